// What the page asks of a file's worker, and what it gets.
import type { FileInfo, MeasurementRecord } from "../../package/src/index.js";

/** Seconds since 1970 UTC; both ends belong to it. Null: all times. */
export type TimeFilter = { from: number; to: number } | null;

export interface SeriesChoice {
  kind: string;
  field: string;
}

export interface Mark {
  time: number;
  code: number;
}

export interface Kind {
  name: string;
  count: number;
}

export interface Opened {
  info: FileInfo;
  kinds: Kind[];
  series: SeriesChoice[];
  marks: Mark[];
  milliseconds: number;
}

export interface SeriesExtent {
  samples: number;
  from: number;
  to: number;
}

/** Extremes by time; where both are the same, samples. Null: no value. */
export interface SeriesPoints {
  times: number[];
  lows: (number | null)[];
  highs: (number | null)[];
}

export interface SeriesWindow extends SeriesPoints {
  /** Whether a finer window gives more of it. */
  canBeFiner: boolean;
}

export interface WindowChoice {
  from: number;
  to: number;
  /** Points. */
  most: number;
}

export interface RowChoice {
  kind: string;
  filter: TimeFilter;
  from: number;
  count: number;
}

export type Format = "csv" | "jsonl";

export interface Requests {
  open: { ask: { file: File; tz: string }; give: Opened };
  series: { ask: SeriesChoice; give: SeriesExtent };
  window: { ask: WindowChoice; give: SeriesWindow };
  finerWindow: { ask: WindowChoice; give: SeriesWindow };
  filter: { ask: { kind: string; filter: TimeFilter }; give: number };
  rows: { ask: RowChoice; give: MeasurementRecord[] };
  download: { ask: { kind: string; filter: TimeFilter; format: Format }; give: Blob };
}
export type RequestName = keyof Requests;

export type Question = {
  [N in RequestName]: { id: number; name: N; ask: Requests[N]["ask"] };
}[RequestName];
/** A question that needs no answer any more. */
export interface Cancel {
  cancel: number;
}
export type Answer =
  | { id: number; give: unknown }
  | { id: number; fault: string }
  | { id: number; cancelled: true }
  | { id: number; progress: number };
