// A table of which only the rows in view exist.
import type { FieldInfo, RecordInfo } from "../../package/src/field_info.js";
import type { MeasurementRecord } from "../../package/src/index.js";
import { clockText, type Zone } from "./clock_text.js";
import { element } from "./elements.js";
import { texts } from "./texts.js";

export type AskRows = (from: number, count: number) => Promise<MeasurementRecord[]>;

const rowHeight = 26;
const tallest = 8_000_000; // pixels; browsers have no taller elements
const mostColumns = 40;
const spare = 10;

const units: Record<string, string> = { level: "dB", dB: "dB", s: "s", "%": "%" };

export function unitOf(field: FieldInfo): string {
  return units[field.kind] ?? "";
}

export function isArray(field: FieldInfo): boolean {
  return field.type !== "char" && field.count > 0;
}

export function valueText(field: FieldInfo, value: unknown, zone: Zone): string {
  if (value === null || value === undefined) return texts.empty;
  if (field.kind === "time") return clockText(Number(value), zone) || texts.empty;
  const isDecibels = field.kind === "level" || field.kind === "dB";
  if (typeof value === "number" && isDecibels) return String(Math.round(value * 100) / 100);
  if (Array.isArray(value)) {
    const all = value.flat() as (number | null)[];
    return all.map((one) => one ?? texts.empty).join(" ");
  }
  if (typeof value === "number") return String(value);
  return typeof value === "string" ? value : texts.empty;
}

function columnsOf(info: RecordInfo): FieldInfo[] {
  const shown = info.fields.filter(
    (field) => field.offset !== 0 && !field.reserved && !isArray(field),
  );
  // Time first; what is always the same last.
  const rank = (field: FieldInfo): number =>
    field.kind === "time" ? 0 : field.kind === "level" || field.kind === "dB" ? 1 : 2;
  return shown.sort((a, b) => rank(a) - rank(b)).slice(0, mostColumns);
}

export class RecordTable {
  readonly root = element("div", { class: "table", role: "grid", tabindex: "0" });
  private readonly body = element("div", { class: "body", role: "rowgroup" });
  private readonly columns: FieldInfo[];
  private chosen = -1;
  private isAsking = false;
  private isStale = false;

  constructor(
    info: RecordInfo,
    private readonly count: number,
    private readonly zone: Zone,
    private readonly askRows: AskRows,
    private readonly onChoose: (record: MeasurementRecord) => void,
  ) {
    this.columns = columnsOf(info);
    this.root.setAttribute("aria-label", info.name);
    this.root.setAttribute("aria-rowcount", String(count + 1));
    this.root.style.setProperty("--columns", String(this.columns.length));
    this.root.append(this.head(), this.body);
    this.body.style.height = `${Math.min(tallest, count * rowHeight)}px`;
    this.root.addEventListener("scroll", () => this.refresh());
    this.root.addEventListener("keydown", (event) => this.onKey(event));
    new ResizeObserver(() => this.refresh()).observe(this.root);
  }

  private head(): HTMLElement {
    const cells = this.columns.map((field) => {
      const unit = unitOf(field);
      const text = unit === "" ? field.name : `${field.name} (${unit})`;
      return element("div", { role: "columnheader", title: field.comment }, text);
    });
    const row = element("div", { class: "row", role: "row", "aria-rowindex": 1 }, ...cells);
    return element("div", { class: "head", role: "rowgroup" }, row);
  }

  // Where the list is taller than an element can be, the scroll bar tells a share of it.
  private get isTooTall(): boolean {
    return this.count * rowHeight > tallest;
  }
  private scrollRange(): number {
    return Math.max(1, this.root.scrollHeight - this.root.clientHeight);
  }
  private lastTop(): number {
    return Math.max(1, this.count - this.visible() + 2);
  }
  private visible(): number {
    return Math.max(1, Math.ceil(this.root.clientHeight / rowHeight));
  }
  private firstVisible(): number {
    const first = this.isTooTall
      ? Math.round((this.root.scrollTop / this.scrollRange()) * this.lastTop())
      : Math.floor(this.root.scrollTop / rowHeight);
    return Math.max(0, Math.min(first, this.count - 1));
  }

  refresh(): void {
    if (this.isAsking) {
      this.isStale = true;
      return;
    }
    if (this.count === 0) return;
    const top = this.firstVisible();
    const first = Math.max(0, top - spare);
    const count = Math.min(this.count - first, this.visible() + 2 * spare);
    const shift = this.isTooTall ? this.root.scrollTop - top * rowHeight : 0;
    this.isAsking = true;
    this.isStale = false;
    this.askRows(first, count)
      .then((records) => this.draw(records, first, shift))
      .catch(() => undefined)
      .finally(() => {
        this.isAsking = false;
        if (this.isStale) this.refresh();
      });
  }

  private draw(records: MeasurementRecord[], first: number, shift: number): void {
    const rows = records.map((record, i) => {
      const ordinal = first + i;
      const members = record as unknown as Record<string, unknown>;
      const cells = this.columns.map((field) =>
        element("div", { role: "gridcell" }, valueText(field, members[field.name], this.zone)),
      );
      const row = element(
        "div",
        {
          class: "row",
          role: "row",
          "aria-rowindex": ordinal + 2,
          "aria-selected": String(ordinal === this.chosen),
          click: () => this.choose(ordinal, record),
        },
        ...cells,
      );
      row.style.transform = `translateY(${ordinal * rowHeight + shift}px)`;
      if (ordinal === this.chosen) this.onChoose(record);
      return row;
    });
    this.body.replaceChildren(...rows);
  }

  private choose(ordinal: number, record: MeasurementRecord): void {
    this.chosen = ordinal;
    for (const row of this.body.children) {
      const isChosen = row.getAttribute("aria-rowindex") === String(ordinal + 2);
      row.setAttribute("aria-selected", String(isChosen));
    }
    this.onChoose(record);
  }

  private onKey(event: KeyboardEvent): void {
    const page = Math.max(1, this.visible() - 2);
    const steps: Record<string, number> = {
      ArrowDown: 1,
      ArrowUp: -1,
      PageDown: page,
      PageUp: -page,
      Home: -this.count,
      End: this.count,
    };
    const step = steps[event.key];
    if (step === undefined || this.count === 0) return;
    event.preventDefault();
    this.chosen = Math.max(0, Math.min(this.count - 1, this.chosen + step));
    const first = this.firstVisible();
    const last = first + this.visible() - 3;
    if (this.chosen < first || this.chosen > last) {
      const target = this.chosen < first ? this.chosen : this.chosen - (last - first);
      this.root.scrollTop = this.isTooTall
        ? Math.ceil((target / this.lastTop()) * this.scrollRange())
        : target * rowHeight;
    }
    this.refresh();
  }
}
