// Records as comma-separated values (RFC 4180): arrays have a column for each element.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import type { MeasurementRecord } from "../../package/src/index.js";

function shown(info: RecordInfo): FieldInfo[] {
  return info.fields.filter((field) => field.offset !== 0 && !field.reserved);
}

function columns(field: FieldInfo): string[] {
  if (field.type === "char" || field.count === 0) {
    return field.kind === "time" ? [field.name, field.name + "Local"] : [field.name];
  }
  const row = Array.from({ length: field.count }, (_, i) => `[${i}]`);
  const rows = Array.from({ length: field.rows }, (_, j) => row.map((one) => `[${j}]${one}`));
  return (field.rows === 0 ? row : rows.flat()).map((one) => field.name + one);
}

function cell(value: unknown): string {
  if (typeof value === "number") return String(value);
  if (typeof value !== "string") return "";
  const text = value;
  // A spreadsheet takes a text that begins so for a formula.
  const safe = /^[=+\-@\t\r]/.test(text) ? "'" + text : text;
  return /[",\r\n]/.test(safe) ? `"${safe.replaceAll('"', '""')}"` : safe;
}

export function csvHead(info: RecordInfo): string {
  return shown(info).flatMap(columns).join(",") + "\r\n";
}

export function csvLine(info: RecordInfo, record: MeasurementRecord): string {
  const members = record as unknown as Record<string, unknown>;
  const cells = shown(info).flatMap((field) => {
    const value = members[field.name];
    const isArray = Array.isArray(value);
    const local = members[field.name + "Local"];
    if (field.kind === "time" && !isArray) return [value, local];
    return isArray ? (value.flat() as unknown[]) : [value];
  });
  return cells.map(cell).join(",") + "\r\n";
}
