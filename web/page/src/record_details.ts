// One record in full: its fields, and its spectra and distributions as bars.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import type { MeasurementRecord } from "../../package/src/index.js";
import { barChart, distributionBars } from "./bar_chart.js";
import type { Zone } from "./clock_text.js";
import { element } from "./elements.js";
import { isArray, shownFields, unitOf, valueText } from "./table_columns.js";
import { texts } from "./texts.js";

const fewestBars = 6;

function spectra(field: FieldInfo, value: unknown): HTMLElement[] {
  const isLevels = field.kind === "level" || field.kind === "dB";
  if (!isLevels || field.count < fewestBars || !Array.isArray(value)) return [];
  const rows = (field.rows > 0 ? value : [value]) as (number | null)[][];
  return rows.flatMap((row, j) => {
    // Bands behind the last one that the instrument has are zero.
    const last = row.findLastIndex((level) => level !== null && level !== 0);
    if (last < 0) return [];
    const bars = row.slice(0, last + 1).map((level, i) => ({ name: `${i + 1}`, value: level }));
    const lowest = Math.min(0, ...bars.map((bar) => bar.value ?? 0));
    const title = field.rows > 0 ? `${field.name}[${j}]` : field.name;
    return [barChart(`${title} (${texts.dB})`, bars, lowest)];
  });
}

function distribution(info: RecordInfo, members: Record<string, unknown>): HTMLElement[] {
  const bytes = members["Distribution"];
  const isKnown = info.name === "Summary" || info.name === "DaySummary";
  if (!isKnown || members["DistributionPresent"] !== 1 || !Array.isArray(bytes)) return [];
  const bars = distributionBars(bytes as number[]);
  return bars.length === 0 ? [] : [barChart(texts.distribution, bars, 0)];
}

export function recordDetails(info: RecordInfo, record: MeasurementRecord, zone: Zone): HTMLElement {
  const members = record as unknown as Record<string, unknown>;
  const fields = shownFields(info);
  const charts = fields.flatMap((field) => spectra(field, members[field.name]));
  const rows = fields.map((field) => {
    const unit = unitOf(field);
    const text = valueText(field, members[field.name], zone);
    const value = unit === "" || isArray(field) || text === texts.empty ? text : `${text} ${unit}`;
    return element(
      "div",
      {},
      element("dt", {}, field.name),
      element("dd", {}, value),
      element("dd", { class: "hint" }, field.comment),
    );
  });
  return element(
    "div",
    { class: "details" },
    element("div", { class: "charts" }, ...charts, ...distribution(info, members)),
    element(
      "div",
      { class: "fields", tabindex: "0", role: "region", "aria-label": `${texts.details} ${info.name}` },
      element("dl", {}, ...rows),
    ),
  );
}
