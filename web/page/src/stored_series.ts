// A series of a file: what is kept of it, where in the file its samples stand, and the part of it
// that was read once more with every sample.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import { LevelSeries } from "./level_series.js";
import type { SeriesExtent, SeriesWindow } from "./protocol.js";

const mostInPart = 1 << 18; // buckets
const mostRead = 64_000_000; // bytes of the file for a part
const f32 = 4;

/** Takes the samples of a record; true, as there may be more. */
type Take = (view: DataView, at: number) => boolean;
type Add = (time: number, level: number) => void;

// The samples of a kind of records, by the offsets of its fields.
function taker(info: RecordInfo, name: string, add: Add): Take {
  const fieldOf = (name: string): FieldInfo => info.fields.find((field) => field.name === name)!;
  const offsetOf = (name: string): number => fieldOf(name).offset;
  const known = (level: number): number => (level === 999 ? NaN : level);
  const valueAt = offsetOf(name);
  const timeAt = offsetOf("RecordTime");
  if (info.name === "TimeHistory") {
    const countAt = offsetOf("EntryCount");
    const periodAt = offsetOf("StreamPeriod");
    const firstAt = offsetOf("FirstLevels");
    const room = fieldOf("FirstLevels").count;
    return (view, at) => {
      const start = view.getInt32(at + timeAt, true);
      const period = view.getFloat32(at + periodAt, true);
      const entries = Math.min(room, view.getUint16(at + countAt, true));
      let samples = 0;
      for (let i = 0; i < entries; ++i) {
        // An entry that is not above 0 is a marker.
        if (!(view.getFloat32(at + firstAt + f32 * i, true) > 0)) continue;
        const level = view.getFloat32(at + valueAt + f32 * i, true);
        add(start + period * samples++, known(level));
      }
      return true;
    };
  }
  const markerAt = info.name === "FieldHistory" ? offsetOf("Level") : undefined;
  return (view, at) => {
    const time = view.getInt32(at + timeAt, true);
    const isMarker = markerAt !== undefined && view.getFloat32(at + markerAt, true) === -1;
    if (time > 0 && !isMarker) add(time, known(view.getFloat32(at + valueAt, true)));
    return true;
  };
}

interface Span {
  stretch: number;
  from: number;
  to: number;
}

interface Part {
  stretches: number[];
  take: Take;
  finish: () => void;
}

export class StoredSeries {
  private readonly levels = new LevelSeries();
  // The times of each stretch of the file that has samples.
  private readonly spans: Span[] = [];
  private span: Span = { stretch: 0, from: Infinity, to: -Infinity };
  private finer: { from: number; to: number; levels: LevelSeries } | undefined;
  readonly take: Take;

  constructor(
    readonly info: RecordInfo,
    private readonly field: string,
  ) {
    this.take = taker(info, field, (time, level) => {
      const { span } = this;
      if (time < span.from) span.from = time;
      if (time > span.to) span.to = time;
      this.levels.add(time, level);
    });
  }

  begin(stretch: number): void {
    this.span = { stretch, from: Infinity, to: -Infinity };
    this.spans.push(this.span);
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
    const take = taker(this.info, this.field, (time, level) => {
      if (time >= first && time <= last) levels.add(time, level);
    });
    const finish = (): void => {
      levels.finish();
      this.finer = { from, to, levels };
    };
    return { stretches: this.stretchesIn(first, last), take, finish };
  }
}
