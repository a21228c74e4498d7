// One open file in the worker: walks through it as often as it is asked something.
import { Core, goesOn, type BatchEntry } from "../../package/src/core.js";
import { infoOf, infoOfCount, recordAt, recordNamed } from "../../package/src/decode.js";
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import { records } from "../../package/src/generated/fields.js";
import { FileStory, type MeasurementRecord } from "../../package/src/index.js";
import { openSource } from "../../package/src/source.js";
import { zoneOf } from "../../package/src/zone.js";
import { Places } from "./places.js";
import type {
  Format,
  Kind,
  Mark,
  Opened,
  RowChoice,
  SeriesChoice,
  SeriesExtent,
  SeriesWindow,
  TimeFilter,
  WindowChoice,
} from "./protocol.js";
import { StoredSeries } from "./stored_series.js";
import { csvHead, csvLine } from "./table_text.js";

/** Work that others wait for. */
export interface Job {
  /** Tells how far it has come, and gives way to questions; throws when it was cancelled. */
  turn(progress: number): Promise<void>;
}

const mostMarks = 20_000;
const mostSteps = 10_000; // in one go, before it is told how far the work has come
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

// How many of a kind that lie within the times stand before each stretch, and at the end all.
interface Listed {
  key: string;
  before: number[];
}

export class Measurement {
  private readonly places: Places;
  private counts = new Map<string, number>();
  private listed: Listed | undefined;
  private series: StoredSeries | undefined;

  private constructor(private readonly core: Core) {
    core.openWalk(true);
    this.places = new Places(core);
  }

  static async open(file: File, tz: string, job: Job): Promise<{ it: Measurement; told: Opened }> {
    const start = performance.now();
    const core = await Core.open(await openSource(file), zoneOf(tz));
    const story = new FileStory(core);
    const it = new Measurement(core);
    return { it, told: await it.survey(start, story, job) };
  }

  private async survey(start: number, story: FileStory, job: Job): Promise<Opened> {
    const { core, places } = this;
    const marks: Mark[] = [];
    let state = core.state();
    let records = 0;
    core.want(FileStory.codes);
    while (state.end === goesOn) {
      records += core.walkOn(places.endOf(places.count - 1), mostSteps);
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
      if (state.end === goesOn) places.note(state.position, () => this.countedSoFar());
      await job.turn(state.position / core.source.size);
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

  // Walks through stretches of the file, with the whole records of one kind; visit ends it with
  // false. Says the stretch before it goes through it.
  private async walk(
    stretches: Iterable<number>,
    kind: RecordInfo,
    job: Job,
    visit: (view: DataView, entry: BatchEntry) => unknown,
    begin?: (stretch: number) => void,
  ): Promise<void> {
    const { core, places } = this;
    let next = -1;
    for (const stretch of stretches) {
      if (stretch !== next) {
        places.goTo(stretch);
        core.want([kind.code]);
      }
      next = stretch + 1;
      begin?.(stretch);
      const end = next < places.count ? places.endOf(stretch) : undefined;
      let state = core.state();
      while (state.end === goesOn && (end === undefined || state.position < end)) {
        core.walkOn(end, mostSteps);
        state = core.state();
        const view = core.view();
        for (const entry of core.batch(view)) {
          if (infoOf(entry) !== kind || !entry.isWhole) continue;
          if (visit(view, entry) === false) return;
        }
        await job.turn(state.position / core.source.size);
      }
    }
  }

  private get everywhere(): number[] {
    return Array.from({ length: this.places.count }, (_, i) => i);
  }

  /** Takes up a series of levels; the one before stays until it is there. */
  async takeSeries(choice: SeriesChoice, job: Job): Promise<SeriesExtent> {
    const info = recordNamed(choice.kind);
    const series = new StoredSeries(info, choice.field);
    const { everywhere } = this;
    await this.walk(
      everywhere,
      info,
      job,
      (view, { at }) => series.take(view, at),
      (stretch) => series.begin(stretch),
    );
    const extent = series.finish();
    this.series = series;
    return extent;
  }

  /** What is known of the series between two times, without reading. */
  window({ from, to, most }: WindowChoice): SeriesWindow {
    if (this.series === undefined) throw new Error("no series was taken up");
    return this.series.window(from, to, most, this.places.stretch);
  }

  /** The same with every sample that lies there, read once more. */
  async finerWindow({ from, to, most }: WindowChoice, job: Job): Promise<SeriesWindow> {
    const { series } = this;
    if (series === undefined) throw new Error("no series was taken up");
    const part = series.part(from, to);
    await this.walk(part.stretches, series.info, job, (view, { at }) => part.take(view, at));
    part.finish();
    return this.window({ from, to, most });
  }

  private passes(view: DataView, at: number, field: FieldInfo | undefined, filter: TimeFilter): boolean {
    if (filter === null || field === undefined) return true;
    const time = view.getInt32(at + field.offset, true);
    return time >= filter.from && time <= filter.to;
  }

  private async list(kind: string, filter: TimeFilter, job: Job): Promise<number[]> {
    const key = JSON.stringify([kind, filter]);
    if (this.listed?.key === key) return this.listed.before;
    const { everywhere, places } = this;
    let before: number[] = [];
    if (filter === null) {
      before = everywhere.map((place) => places.countsAt(place).get(kind) ?? 0);
      before.push(this.counts.get(kind) ?? 0);
    } else {
      const info = recordNamed(kind);
      const field = timeField(info);
      let found = 0;
      const visit = (view: DataView, { at }: BatchEntry): void => {
        if (this.passes(view, at, field, filter)) ++found;
      };
      await this.walk(everywhere, info, job, visit, () => before.push(found));
      before.push(found);
    }
    this.listed = { key, before };
    return before;
  }

  /** How many records of a kind lie within the times. */
  async countOf(kind: string, filter: TimeFilter, job: Job): Promise<number> {
    return (await this.list(kind, filter, job)).at(-1)!;
  }

  /** Records of a kind, by their place among those within the times. */
  async rows({ kind, filter, from, count }: RowChoice, job: Job): Promise<MeasurementRecord[]> {
    const info = recordNamed(kind);
    const field = timeField(info);
    const before = await this.list(kind, filter, job);
    const stretches = this.everywhere.filter((i) => before[i + 1]! > from && before[i]! < from + count);
    const found: MeasurementRecord[] = [];
    let ordinal = 0;
    const visit = (view: DataView, entry: BatchEntry): boolean => {
      if (!this.passes(view, entry.at, field, filter)) return true;
      if (ordinal >= from) found.push(recordAt(view, entry, info, this.core.zone));
      ++ordinal;
      return found.length < count;
    };
    await this.walk(stretches, info, job, visit, (stretch) => (ordinal = before[stretch]!));
    return found;
  }

  /** All records of a kind within the times as a text. */
  async download(
    { kind, filter, format }: { kind: string; filter: TimeFilter; format: Format },
    job: Job,
  ): Promise<Blob> {
    const info = recordNamed(kind);
    const field = timeField(info);
    const parts: Blob[] = [];
    let text = format === "csv" ? csvHead(info) : "";
    await this.walk(this.everywhere, info, job, (view, entry) => {
      if (!this.passes(view, entry.at, field, filter)) return;
      const record = recordAt(view, entry, info, this.core.zone);
      text += format === "csv" ? csvLine(info, record) : JSON.stringify(record) + "\n";
      if (text.length > 1 << 20) {
        parts.push(new Blob([text]));
        text = "";
      }
    });
    parts.push(new Blob([text]));
    return new Blob(parts, { type: format === "csv" ? "text/csv" : "application/x-ndjson" });
  }
}
