// A series of a file: what is kept of it, where in the file its samples stand, and the part of it
// that was read once more with every sample.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import { LevelSeries } from "./level_series.js";
import type { SeriesExtent, SeriesWindow } from "./protocol.js";

const mostInPart = 1 << 18; // buckets
const mostRead = 64_000_000; // bytes of the file for a part
const f32 = 4;
const noLevel = 999;
const farthest = 2 ** 32; // seconds; what a file says of its samples' spacing may lead anywhere

// The samples of one record after the other.
class SampleReader {
  private readonly offsets: Record<"value" | "time" | "count" | "period" | "first", number>;
  private readonly room: number; // of a record with many samples; else 0
  private readonly markerAt: number; // below 0 without one
  readonly times: Float64Array;
  readonly levels: Float32Array;

  constructor(info: RecordInfo, name: string) {
    const fieldOf = (name: string): FieldInfo | undefined =>
      info.fields.find((field) => field.name === name);
    const offsetOf = (name: string): number => fieldOf(name)?.offset ?? -1;
    this.offsets = {
      value: offsetOf(name),
      time: offsetOf("RecordTime"),
      count: offsetOf("EntryCount"),
      period: offsetOf("StreamPeriod"),
      first: offsetOf("FirstLevels"),
    };
    this.room = info.name === "TimeHistory" ? fieldOf("FirstLevels")!.count : 0;
    this.markerAt = info.name === "FieldHistory" ? offsetOf("Level") : -1;
    this.times = new Float64Array(Math.max(1, this.room));
    this.levels = new Float32Array(Math.max(1, this.room));
  }

  /** Puts them into times and levels, and gives how many there are. */
  read(view: DataView, at: number): number {
    return this.room > 0 ? this.readMany(view, at) : this.readOne(view, at);
  }

  private put(i: number, time: number, level: number): void {
    this.times[i] = time;
    this.levels[i] = level === noLevel ? NaN : level;
  }

  private readMany(view: DataView, at: number): number {
    const { time, period, count, first, value } = this.offsets;
    const start = view.getInt32(at + time, true);
    const spacing = view.getFloat32(at + period, true);
    const entries = Math.min(this.room, view.getUint16(at + count, true));
    let samples = 0;
    let taken = 0;
    for (let i = 0; i < entries; ++i) {
      // An entry that is not above 0 is a marker.
      if (!(view.getFloat32(at + first + f32 * i, true) > 0)) continue;
      const sampleTime = start + spacing * samples;
      ++samples;
      if (!(Math.abs(sampleTime) < farthest)) continue;
      this.put(taken, sampleTime, view.getFloat32(at + value + f32 * i, true));
      ++taken;
    }
    return taken;
  }

  private readOne(view: DataView, at: number): number {
    const { time, value } = this.offsets;
    const start = view.getInt32(at + time, true);
    const isMarker = this.markerAt >= 0 && view.getFloat32(at + this.markerAt, true) === -1;
    if (start <= 0 || isMarker) return 0;
    this.put(0, start, view.getFloat32(at + value, true));
    return 1;
  }
}

interface Span {
  stretch: number;
  from: number;
  to: number;
}

interface Part {
  stretches: number[];
  take: (view: DataView, at: number) => void;
  finish: () => void;
}

export class StoredSeries {
  private readonly levels = new LevelSeries();
  // The times of each stretch of the file that has samples.
  private readonly spans: Span[] = [];
  private span: Span = { stretch: 0, from: Infinity, to: -Infinity };
  private finer: { from: number; to: number; levels: LevelSeries } | undefined;
  private readonly reader: SampleReader;

  constructor(
    readonly info: RecordInfo,
    field: string,
  ) {
    this.reader = new SampleReader(info, field);
  }

  begin(stretch: number): void {
    this.span = { stretch, from: Infinity, to: -Infinity };
    this.spans.push(this.span);
  }

  /** Takes the samples of a record. */
  take(view: DataView, at: number): void {
    const { reader, span, levels } = this;
    const count = reader.read(view, at);
    for (let i = 0; i < count; ++i) {
      const time = reader.times[i]!;
      if (time < span.from) span.from = time;
      if (time > span.to) span.to = time;
    }
    levels.take(reader.times, reader.levels, count);
  }

  finish(): SeriesExtent {
    return this.levels.finish();
  }

  private stretchesIn(from: number, to: number): number[] {
    const meets = this.spans.filter((span) => span.from <= to && span.to >= from);
    return meets.map(({ stretch }) => stretch);
  }

  /** What is known between two times. */
  window(from: number, to: number, most: number, bytesInStretch: number): SeriesWindow {
    const { finer } = this;
    const isInFiner = finer !== undefined && from >= finer.from && to <= finer.to;
    const levels = isInFiner ? finer.levels : this.levels;
    const [first, last] = this.levels.reach(from, to);
    const isNear = this.stretchesIn(first, last).length * bytesInStretch <= mostRead;
    const canBeFiner = isNear && levels.isCoarse(from, to, most);
    return { ...levels.window(from, to, most), canBeFiner };
  }

  /** What is to be read for every sample between two times; it is known when that is finished. */
  part(from: number, to: number): Part {
    const levels = new LevelSeries(mostInPart);
    const [first, last] = this.levels.reach(from, to);
    const { reader } = this;
    const take = (view: DataView, at: number): void => {
      levels.take(reader.times, reader.levels, reader.read(view, at), first, last);
    };
    const finish = (): void => {
      levels.finish();
      this.finer = { from, to, levels };
    };
    return { stretches: this.stretchesIn(first, last), take, finish };
  }
}
