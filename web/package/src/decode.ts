// Records in memory, by the field table, as objects.
import type { BatchEntry } from "./core.js";
import { bandIntervals, type FieldInfo, type FieldType, type RecordInfo } from "./field_info.js";
import { records, type MeasurementRecord } from "./generated/fields.js";
import type { Zone } from "./zone.js";

const noLevel = 999;
const elementSizes: Record<FieldType, number> = { u8: 1, u16: 2, u32: 4, i32: 4, f32: 4, char: 1 };

const byCode = new Map<number, RecordInfo>();
for (const record of records) {
  if (record.code !== 0 && !byCode.has(record.code)) byCode.set(record.code, record);
}
const bandInterval = recordNamed("BandInterval");

export function recordNamed(name: string): RecordInfo {
  const found = records.find((record) => record.name === name);
  if (found === undefined) throw new RangeError(`there is no record ${name}`);
  return found;
}

/** What a record of a batch is. */
export function infoOf(entry: BatchEntry): RecordInfo | undefined {
  return entry.isBandInterval ? bandInterval : byCode.get(entry.code);
}

/** What was counted there (Core.counts). */
export function infoOfCount(index: number): RecordInfo | undefined {
  return index === bandIntervals ? bandInterval : byCode.get(index);
}

/** A number of so many digits; of two that are as near, the one that ends evenly. */
function nearest(value: number, digits: number): number {
  const longer = value.toPrecision(digits + 1);
  if (/5(e|$)/.test(longer)) {
    const [head, tail] = value.toExponential(100).split("e") as [string, string];
    const kept = head.slice(0, head.indexOf(".") + digits);
    const isTie = /^50*$/.test(head.slice(kept.length));
    if (isTie && /[02468]\.?$/.test(kept)) return Number(`${kept}e${tail}`);
  }
  return Number(value.toPrecision(digits));
}

/** The number with the fewest digits that is this number of 32 bits. */
export function shortest(value: number): number {
  const size = Math.abs(value);
  if (size < 16384) {
    // Numbers with two decimals lie so far apart here that at most one rounds to the value.
    const hundredths = Math.round(value * 100) / 100;
    if (Math.fround(hundredths) === value) return hundredths;
  }
  for (let digits = size < 1e-37 ? 1 : 6; digits < 9; ++digits) {
    const near = nearest(value, digits);
    if (Math.fround(near) === value) return near;
  }
  return nearest(value, 9);
}

function numberAt(view: DataView, at: number, field: FieldInfo): number | null {
  switch (field.type) {
    case "u8":
    case "char":
      return view.getUint8(at);
    case "u16":
      return view.getUint16(at, true);
    case "u32":
      return view.getUint32(at, true);
    case "i32":
      return view.getInt32(at, true);
    case "f32": {
      const value = view.getFloat32(at, true);
      const isNone = !Number.isFinite(value) || (field.kind === "level" && value === noLevel);
      return isNone ? null : shortest(value);
    }
  }
}

export function textAt(view: DataView, at: number, room: number): string {
  let text = "";
  for (let i = 0; i < room; ++i) {
    const code = view.getUint8(at + i);
    if (code === 0) break;
    text += String.fromCharCode(code);
  }
  return text;
}

type Convert = (view: DataView, at: number, field: FieldInfo) => unknown;

function row(view: DataView, at: number, field: FieldInfo, convert: Convert): unknown {
  if (field.type === "char") return textAt(view, at, field.count);
  if (field.count === 0) return convert(view, at, field);
  const size = elementSizes[field.type];
  const values = new Array<unknown>(field.count);
  for (let i = 0; i < field.count; ++i) values[i] = convert(view, at + i * size, field);
  return values;
}

function value(view: DataView, record: number, field: FieldInfo, convert: Convert): unknown {
  const at = record + field.offset;
  if (field.rows === 0) return row(view, at, field, convert);
  const size = elementSizes[field.type] * field.count;
  return Array.from({ length: field.rows }, (_, i) => row(view, at + i * size, field, convert));
}

/** The fields of a struct, with local texts of its times. */
export function fieldsAt(
  view: DataView,
  at: number,
  info: RecordInfo,
  zone: Zone,
): Record<string, unknown> {
  const object: Record<string, unknown> = {};
  const clock: Convert = (from, place) => zone.text(from.getInt32(place, true));
  for (const field of info.fields) {
    const isCode = field.offset === 0 && info.code !== 0;
    if (isCode || field.reserved) continue;
    object[field.name] = value(view, at, field, numberAt);
    if (field.kind === "time") object[field.name + "Local"] = value(view, at, field, clock);
  }
  return object;
}

/** A record of a batch as an object. */
export function recordAt(
  view: DataView,
  entry: BatchEntry,
  info: RecordInfo,
  zone: Zone,
): MeasurementRecord {
  const object: Record<string, unknown> = {
    record: info.name,
    code: info.code,
    ...fieldsAt(view, entry.at, info, zone),
  };
  if (entry.isShort) object["short"] = true;
  if (!entry.isWhole) object["cut"] = true;
  return object as unknown as MeasurementRecord;
}
