/** Reads the measurement files of a family of sound level meters. */
import { allCodes, Core, goesOn, notStarted, type WalkState } from "./core.js";
import { fieldsAt, infoOf, recordAt, recordNamed } from "./decode.js";
import type {
  End,
  FileHeaderInfo,
  MeasurementRecord,
  RecordCensus,
} from "./generated/fields.js";
import { openSource, type Source } from "./source.js";
import { zoneOf } from "./zone.js";

export type * from "./generated/fields.js";
export { records } from "./generated/fields.js";
export type { FieldInfo, FieldKind, FieldType, RecordInfo } from "./field_info.js";
export type { Source } from "./source.js";

export interface Options {
  /** The zone of the measurement, such as "Europe/Berlin". Without it, times are the clock's. */
  tz?: string;
}

export interface ReadOptions extends Options {
  /** Only records of these names. */
  records?: readonly string[];
  /** Also the records that the file does not wholly hold; they have a member `cut`. */
  cut?: boolean;
  /** Without it, records are not counted first, which finds the span of daylight time. */
  census?: boolean;
}

/** A file that cannot be read, or not to its end. */
export class MeasurementFileError extends Error {
  constructor(
    why: string,
    /** The status of the library. */
    readonly status: number,
    /** Where in the file; below 0 where nothing could be read. */
    readonly offset: number,
  ) {
    super(offset < 0 ? why : `at byte ${offset}: ${why}`);
    this.name = "MeasurementFileError";
  }
}

function endOf(core: Core, state: WalkState): MeasurementFileError | null {
  if (state.wasWhole !== 0) return null;
  const isUnread = state.end === notStarted;
  const place = state.cutOffset >= 0 ? state.cutOffset : state.offset;
  return new MeasurementFileError(core.why(), state.status, isUnread ? -1 : place);
}

async function coreOf(source: Source, options: Options): Promise<Core> {
  // Throws where there is no such zone, before the source is open.
  const zone = zoneOf(options.tz ?? "UTC");
  return Core.open(await openSource(source), zone);
}

/**
 * The records of a file, in its order. Throws a MeasurementFileError behind the last one when the
 * file is not whole.
 */
export async function* read(
  source: Source,
  options: ReadOptions = {},
): AsyncGenerator<MeasurementRecord, void> {
  const names = options.records;
  const codes = names?.map((name) => recordNamed(name).code);
  const core = await coreOf(source, options);
  try {
    let state = core.openWalk(options.census ?? true);
    core.want(codes ?? allCodes);
    while (state.end === goesOn) {
      core.walkOn();
      state = core.state();
      const view = core.view();
      for (const entry of core.batch(view)) {
        const info = infoOf(entry);
        if (info === undefined || (names !== undefined && !names.includes(info.name))) continue;
        if (!entry.isWhole && options.cut !== true) continue;
        yield recordAt(view, entry, info, core.zone);
      }
    }
    const fault = endOf(core, state);
    if (fault !== null) throw fault;
  } finally {
    core.close();
  }
}

/** How many records of each kind a file holds. */
export async function census(source: Source, options: Options = {}): Promise<RecordCensus> {
  const core = await coreOf(source, options);
  try {
    const status = core.count();
    if (status !== 0) {
      throw new MeasurementFileError("the records cannot be counted", status, -1);
    }
    return censusOf(core);
  } finally {
    core.close();
  }
}

function censusOf(core: Core): RecordCensus {
  const info = recordNamed("RecordCensus");
  return fieldsAt(core.view(), core.censusAt, info, core.zone) as unknown as RecordCensus;
}

export interface FileInfo {
  name: string;
  size: number;
  model: number;
  serial: string;
  firmware: string;
  mode: string;
  form: "text header" | "settings lines";
  titles: string[];
  sites: number;
  /** Times with the offset of the zone; null where the file does not tell. */
  headerTime: string | null;
  start: string | null;
  lastStop: string | null;
  lastRecord: string | null;
  census: RecordCensus;
  records: number;
  whole: boolean;
  /** Where and why the walk ended, when the file is not whole. */
  why: string | null;
  offset: number;
}

export function trimmed(text: string): string {
  let start = 0;
  let end = text.length;
  while (start < end && text.charCodeAt(start) <= 32) ++start;
  while (end > start && text.charCodeAt(end - 1) <= 32) --end;
  return text.slice(start, end);
}

/** What the header, the lookups and some records tell of a file. */
export class FileStory {
  private firstBlock = 0;
  private firstRun = 0;
  private end: End | undefined;
  private readonly header: FileHeaderInfo;
  private readonly serial: string;
  private readonly looked: WalkState;

  /** The codes of records that it wants to see. */
  static readonly codes = ["Settings", "Event", "End"].map((name) => recordNamed(name).code);

  constructor(private readonly core: Core) {
    const found = core.lookUp();
    const info = recordNamed("FileHeaderInfo");
    this.header = fieldsAt(core.view(), found.header, info, core.zone) as unknown as FileHeaderInfo;
    this.serial = trimmed(found.serial);
    this.looked = core.state();
  }

  note(record: MeasurementRecord): void {
    const runStart = 64;
    if (record.record === "Settings") this.firstBlock ||= record.BlockTime;
    if (record.record === "End") this.end = record;
    if (record.record === "Event" && record.EventCode === runStart) {
      this.firstRun ||= record.RecordTime;
    }
  }

  private headerTime(): number {
    const line = this.header.HeaderLine5;
    if (line.length < 20) return 0;
    return this.core.secondsOf(line.slice(10, 19), line.slice(20, 28));
  }

  info(records: number): FileInfo {
    const { header, core, end } = this;
    const state = core.state();
    const headerTime = this.headerTime();
    const fallback = headerTime > 0 ? headerTime : this.firstBlock;
    const model = Number.parseInt(trimmed(header.HeaderLine2).replace(/^\D*/, ""), 10);
    const fault = endOf(core, state);
    const titles = [
      trimmed(end?.Title1 ?? "") || trimmed(header.TitleLine1),
      trimmed(end?.Title2 ?? "") || trimmed(header.TitleLine2),
      trimmed(end?.Title3 ?? "") || trimmed(header.TitleLine3),
    ];
    return {
      name: core.source.name,
      size: core.source.size,
      model: this.looked.model || (Number.isNaN(model) ? 486 : model),
      serial: this.serial || trimmed(end?.SerialText ?? ""),
      firmware: trimmed(header.HeaderLine3),
      mode: trimmed(header.HeaderLine6),
      form: this.looked.headerStatus === 0 ? "text header" : "settings lines",
      titles: titles.filter((title) => title !== ""),
      sites: this.looked.sites,
      headerTime: core.zone.text(headerTime),
      start: core.zone.text(this.firstRun > 0 ? this.firstRun : fallback),
      lastStop: core.zone.text(end?.EndRecordStopTime ?? 0),
      lastRecord: core.zone.text(end?.LatestRecordTime ?? 0),
      census: censusOf(core),
      records,
      whole: fault === null,
      why: fault?.message ?? null,
      offset: fault?.offset ?? -1,
    };
  }
}

/** What a file is, what it holds, and whether it is whole. */
export async function info(source: Source, options: Options = {}): Promise<FileInfo> {
  const core = await coreOf(source, options);
  try {
    const story = new FileStory(core);
    let state = core.openWalk(true);
    let records = 0;
    core.want(FileStory.codes);
    while (state.end === goesOn) {
      records += core.walkOn();
      state = core.state();
      const view = core.view();
      for (const entry of core.batch(view)) {
        const kind = infoOf(entry);
        if (kind !== undefined && entry.isWhole) {
          story.note(recordAt(view, entry, kind, core.zone));
        }
      }
    }
    return story.info(records);
  } finally {
    core.close();
  }
}
