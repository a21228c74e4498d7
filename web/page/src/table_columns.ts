// The columns of a table of records: what stands in them, and how wide they are.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import { clockText, type Zone } from "./clock_text.js";
import { texts } from "./texts.js";

export interface Column {
  readonly field: FieldInfo;
  readonly head: string;
  readonly isNumber: boolean;
  readonly width: number; // pixels
}

const cellPadding = 16;
const widestText = 24; // characters
const levelCharacters = 7;
const characters: Record<FieldInfo["type"], number> = {
  u8: 3,
  u16: 5,
  u32: 10,
  i32: 10,
  f32: 10,
  char: widestText,
};
const units: Record<string, string> = { level: "dB", dB: "dB", s: "s", "%": "%" };

function isDecibels(field: FieldInfo): boolean {
  return field.kind === "level" || field.kind === "dB";
}

export function unitOf(field: FieldInfo): string {
  return units[field.kind] ?? "";
}

export function isArray(field: FieldInfo): boolean {
  return field.type !== "char" && field.count > 0;
}

/** The fields of a record that a reader has a use for. */
export function shownFields(info: RecordInfo): FieldInfo[] {
  return info.fields.filter((field) => field.offset !== 0 && !field.reserved);
}

export function valueText(field: FieldInfo, value: unknown, zone: Zone): string {
  if (value === null || value === undefined) return texts.empty;
  if (Array.isArray(value)) {
    return value.flat().map((one) => valueText(field, one, zone)).join(" ");
  }
  if (field.kind === "time") return clockText(Number(value), zone) || texts.empty;
  if (typeof value === "number" && isDecibels(field)) return value.toFixed(2);
  if (typeof value === "number") return String(value);
  return typeof value === "string" ? value : texts.empty;
}

function widestValue(field: FieldInfo, zone: Zone): string {
  if (field.kind === "time") return clockText(Date.now() / 1000, zone);
  if (field.type === "char") return "0".repeat(Math.min(widestText, field.count));
  return "0".repeat(isDecibels(field) ? levelCharacters : characters[field.type]);
}

/** All fields that are no arrays: times first, then levels. */
export function columnsOf(info: RecordInfo, zone: Zone): Column[] {
  const rank = (field: FieldInfo): number =>
    field.kind === "time" ? 0 : isDecibels(field) ? 1 : 2;
  const fields = shownFields(info).filter((field) => !isArray(field));
  fields.sort((a, b) => rank(a) - rank(b));
  const { fontSize, fontFamily } = getComputedStyle(document.body);
  const pen = document.createElement("canvas").getContext("2d")!;
  const widthOf = (text: string, weight: number): number => {
    pen.font = `${weight} ${fontSize} ${fontFamily}`;
    return pen.measureText(text).width;
  };
  return fields.map((field) => {
    const unit = unitOf(field);
    const head = unit === "" ? field.name : `${field.name} (${unit})`;
    const text = Math.max(widthOf(head, 600), widthOf(widestValue(field, zone), 400));
    const isNumber = field.type !== "char" && field.kind !== "time";
    return { field, head, isNumber, width: Math.ceil(text) + cellPadding };
  });
}
