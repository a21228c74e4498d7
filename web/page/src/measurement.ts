// One open file in the worker: walks through it as often as it is asked something.
import { Core, goesOn, type BatchEntry } from "../../package/src/core.js";
import { infoOf, infoOfCount, recordAt, recordNamed } from "../../package/src/decode.js";
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import { records } from "../../package/src/generated/fields.js";
import { FileStory, type MeasurementRecord } from "../../package/src/index.js";
import { openSource } from "../../package/src/source.js";
import { zoneOf } from "../../package/src/zone.js";
import { LevelSeries } from "./level_series.js";
import type {
  Format,
  Kind,
  Mark,
  Opened,
  SeriesChoice,
  SeriesExtent,
  TimeFilter,
} from "./protocol.js";
import { csvHead, csvLine } from "./table_text.js";

type Tell = (progress: number) => void;

// A place in the file to go on from, and how many records of each kind stand before it.
interface Place {
  saved: Uint8Array;
  counts: Map<string, number>;
}
const mostPlaces = 24;
const smallestStretch = 16_000_000;
const mostMarks = 20_000;
const mostRecords = 50_000; // in one go, before it is told how far the work has come
const runMarks = [64, 80];

/** The time that a record is filtered by. */
function timeField(info: RecordInfo): FieldInfo | undefined {
  return info.fields.find((field) => field.kind === "time" && field.count === 0);
}

function seriesOf(info: RecordInfo): string[] {
  if (info.name === "TimeHistory") return ["FirstLevels", "SecondLevels"];
  if (info.fields.every((field) => field.name !== "RecordTime")) return [];
  const isLevel = (field: FieldInfo): boolean =>
    field.type === "f32" && field.count === 0 && (field.kind === "level" || field.kind === "dB");
  const names = info.fields.filter(isLevel).map((field) => field.name);
  // What the instrument was set to comes behind what it measured.
  const isSetting = (name: string): boolean => /^Threshold|Offset$/.test(name);
  return [...names.filter((name) => !isSetting(name)), ...names.filter(isSetting)];
}

const f32 = 4;

export class Measurement {
  private readonly places: Place[] = [];
  private counts = new Map<string, number>();
  private filtered: { key: string; ordinals: number[] } | undefined;
  series = new LevelSeries();

  private constructor(private readonly core: Core) {}

  static async open(file: File, tz: string, tell: Tell): Promise<{ it: Measurement; told: Opened }> {
    const start = performance.now();
    const core = await Core.open(await openSource(file), zoneOf(tz));
    const it = new Measurement(core);
    return { it, told: it.survey(start, tell) };
  }

  private survey(start: number, tell: Tell): Opened {
    const { core } = this;
    const story = new FileStory(core);
    const marks: Mark[] = [];
    const stretch = Math.max(smallestStretch, Math.ceil(core.source.size / mostPlaces));
    let state = core.openWalk(true);
    let records = 0;
    core.want(FileStory.codes);
    this.places.push({ saved: core.save(), counts: new Map() });
    while (state.end === goesOn) {
      records += core.walkOn(this.places.length * stretch, mostRecords);
      state = core.state();
      const view = core.view();
      for (const entry of core.batch(view)) {
        const info = infoOf(entry);
        if (info === undefined || !entry.isWhole) continue;
        const record = recordAt(view, entry, info, core.zone);
        story.note(record);
        if (record.record === "Event" && runMarks.includes(record.EventCode)) {
          if (marks.length < mostMarks) marks.push({ time: record.RecordTime, code: record.EventCode });
        }
      }
      if (state.position >= this.places.length * stretch && state.end === goesOn) {
        this.places.push({ saved: core.save(), counts: this.countedSoFar() });
      }
      tell(state.position / core.source.size);
    }
    this.counts = this.countedSoFar();
    return {
      info: story.info(records),
      kinds: this.kinds(),
      series: this.choices(),
      marks,
      milliseconds: performance.now() - start,
    };
  }

  private countedSoFar(): Map<string, number> {
    const counted = new Map<string, number>();
    this.core.counts().forEach((count, index) => {
      const info = infoOfCount(index);
      if (count > 0 && info !== undefined) counted.set(info.name, count);
    });
    return counted;
  }

  private kinds(): Kind[] {
    const kinds = records.filter((info) => this.counts.has(info.name));
    return kinds.map((info) => ({ name: info.name, count: this.counts.get(info.name)! }));
  }

  private choices(): SeriesChoice[] {
    const weight = (kind: string): number =>
      this.counts.get(kind)! * (kind === "TimeHistory" ? 60 : 1);
    const kinds = this.kinds().map((kind) => kind.name);
    kinds.sort((a, b) => weight(b) - weight(a));
    return kinds.flatMap((kind) =>
      seriesOf(recordNamed(kind)).map((field) => ({ kind, field })),
    );
  }

  // Walks from a place on, with the whole records of one kind; visit ends it with false.
  private walk(
    place: Place,
    kind: RecordInfo,
    visit: (view: DataView, entry: BatchEntry) => boolean,
    tell?: Tell,
  ): void {
    const { core } = this;
    core.restore(place.saved);
    core.want([kind.code]);
    let state = core.state();
    while (state.end === goesOn) {
      core.walkOn(undefined, mostRecords);
      state = core.state();
      const view = core.view();
      for (const entry of core.batch(view)) {
        if (infoOf(entry) !== kind || !entry.isWhole) continue;
        if (!visit(view, entry)) return;
      }
      tell?.(state.position / core.source.size);
    }
  }

  /** Takes up a series of levels. */
  takeSeries(choice: SeriesChoice, tell: Tell): SeriesExtent {
    const info = recordNamed(choice.kind);
    const offsetOf = (name: string): number =>
      info.fields.find((field) => field.name === name)?.offset ?? 0;
    const valueAt = offsetOf(choice.field);
    const timeAt = offsetOf("RecordTime");
    const series = new LevelSeries();
    this.series = series;
    const known = (level: number): number => (level === 999 ? NaN : level);
    if (info.name === "TimeHistory") {
      const countAt = offsetOf("EntryCount");
      const periodAt = offsetOf("StreamPeriod");
      const firstAt = offsetOf("FirstLevels");
      const room = info.fields.find((field) => field.name === "FirstLevels")!.count;
      this.walk(this.places[0]!, info, (view, { at }) => {
        const start = view.getInt32(at + timeAt, true);
        const period = view.getFloat32(at + periodAt, true);
        const entries = Math.min(room, view.getUint16(at + countAt, true));
        let samples = 0;
        for (let i = 0; i < entries; ++i) {
          // An entry that is not above 0 is a marker.
          if (!(view.getFloat32(at + firstAt + f32 * i, true) > 0)) continue;
          const level = view.getFloat32(at + valueAt + f32 * i, true);
          series.add(start + period * samples++, known(level));
        }
        return true;
      }, tell);
    } else {
      const isMarker = (view: DataView, at: number): boolean =>
        info.name === "FieldHistory" && view.getFloat32(at + offsetOf("Level"), true) === -1;
      this.walk(this.places[0]!, info, (view, { at }) => {
        const time = view.getInt32(at + timeAt, true);
        if (time > 0 && !isMarker(view, at)) {
          series.add(time, known(view.getFloat32(at + valueAt, true)));
        }
        return true;
      }, tell);
    }
    return series.finish();
  }

  private passes(view: DataView, at: number, field: FieldInfo | undefined, filter: TimeFilter): boolean {
    if (filter === null || field === undefined) return true;
    const time = view.getInt32(at + field.offset, true);
    return time >= filter.from && time <= filter.to;
  }

  private ordinals(kind: string, filter: TimeFilter, tell?: Tell): number[] {
    const key = JSON.stringify([kind, filter]);
    if (this.filtered?.key !== key) {
      const info = recordNamed(kind);
      const field = timeField(info);
      const ordinals: number[] = [];
      let ordinal = 0;
      this.walk(this.places[0]!, info, (view, { at }) => {
        if (this.passes(view, at, field, filter)) ordinals.push(ordinal);
        ++ordinal;
        return true;
      }, tell);
      this.filtered = { key, ordinals };
    }
    return this.filtered.ordinals;
  }

  /** How many records of a kind lie within the times. */
  countOf(kind: string, filter: TimeFilter, tell: Tell): number {
    return filter === null ? (this.counts.get(kind) ?? 0) : this.ordinals(kind, filter, tell).length;
  }

  /** Records of a kind, by their place among those within the times. */
  rows(kind: string, filter: TimeFilter, from: number, count: number): MeasurementRecord[] {
    const info = recordNamed(kind);
    const listed = filter === null ? undefined : this.ordinals(kind, filter).slice(from, from + count);
    const first = listed === undefined ? from : (listed[0] ?? 0);
    const before = (place: Place): number => place.counts.get(kind) ?? 0;
    const place = this.places.findLast((one) => before(one) <= first) ?? this.places[0]!;
    const wanted = listed === undefined ? undefined : new Set(listed);
    const found: MeasurementRecord[] = [];
    const most = Math.min(count, wanted?.size ?? count);
    let ordinal = before(place);
    if (most === 0) return found;
    this.walk(place, info, (view, entry) => {
      const isAsked = wanted === undefined ? ordinal >= first : wanted.has(ordinal);
      if (isAsked) found.push(recordAt(view, entry, info, this.core.zone));
      ++ordinal;
      return found.length < most;
    });
    return found;
  }

  /** All records of a kind within the times as a text. */
  download(kind: string, filter: TimeFilter, format: Format, tell: Tell): Blob {
    const info = recordNamed(kind);
    const field = timeField(info);
    const parts: Blob[] = [];
    let text = format === "csv" ? csvHead(info) : "";
    this.walk(this.places[0]!, info, (view, entry) => {
      if (!this.passes(view, entry.at, field, filter)) return true;
      const record = recordAt(view, entry, info, this.core.zone);
      text += format === "csv" ? csvLine(info, record) : JSON.stringify(record) + "\n";
      if (text.length > 1 << 20) {
        parts.push(new Blob([text]));
        text = "";
      }
      return true;
    }, tell);
    parts.push(new Blob([text]));
    return new Blob(parts, { type: format === "csv" ? "text/csv" : "application/x-ndjson" });
  }
}
