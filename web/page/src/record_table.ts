// A table of which only the cells in view exist.
import {
  defaultRangeExtractor,
  elementScroll,
  observeElementOffset,
  observeElementRect,
  Virtualizer,
  type VirtualItem,
} from "@tanstack/virtual-core";

import type { RecordInfo } from "../../package/src/field_info.js";
import type { MeasurementRecord } from "../../package/src/index.js";
import type { Zone } from "./clock_text.js";
import { element, freshId } from "./elements.js";
import { columnsOf, valueText, type Column } from "./table_columns.js";

export type AskRows = (from: number, count: number) => Promise<MeasurementRecord[]>;

const rowHeight = 26; // pixels, as in the style
const headHeight = 28;
// Rows as tall as the tallest element that all browsers have; of each the virtualizer keeps its place.
const mostSlots = 300_000;
const spareRows = 10; // drawn above and below what is in view
const heldRows = 40; // asked for above and below what is drawn
const spareColumns = 2;

export class RecordTable {
  readonly root = element("div", { class: "table", role: "grid", tabindex: "0" });
  private readonly id = freshId();
  private readonly head = element("div", { class: "row", role: "row", "aria-rowindex": 1 });
  private readonly body = element("div", { class: "body", role: "rowgroup" });
  private readonly columns: Column[];
  private readonly pinnedWidth: number;
  // Rows by their place in the scrolled element: a slot shows the record `shift` further on.
  private readonly slots: Virtualizer<HTMLElement, HTMLElement>;
  private readonly across: Virtualizer<HTMLElement, HTMLElement>;
  private readonly unmounts: (() => void)[];
  private pinnedShift = { scrollTop: -1, shift: 0 };
  private held = { from: 0, to: 0, records: [] as MeasurementRecord[] };
  private isAsking = false;
  private drawn = "";
  private chosen = -1;
  private told = -1;

  constructor(
    info: RecordInfo,
    private readonly count: number,
    private readonly zone: Zone,
    private readonly askRows: AskRows,
    private readonly onChoose: (record: MeasurementRecord) => void,
  ) {
    this.columns = columnsOf(info, zone);
    const first = this.columns[0];
    this.pinnedWidth = first?.field.kind === "time" ? first.width : 0;
    this.root.setAttribute("aria-label", info.name);
    this.root.setAttribute("aria-rowcount", String(count + 1));
    this.root.setAttribute("aria-colcount", String(this.columns.length));
    this.root.append(element("div", { class: "head", role: "rowgroup" }, this.head), this.body);

    const shared = {
      getScrollElement: () => this.root,
      scrollToFn: elementScroll,
      observeElementRect,
      observeElementOffset,
      onChange: () => this.refresh(),
    };
    this.slots = new Virtualizer<HTMLElement, HTMLElement>({
      ...shared,
      count: Math.min(count, mostSlots),
      estimateSize: () => rowHeight,
      overscan: spareRows,
      scrollPaddingEnd: headHeight,
    });
    this.across = new Virtualizer<HTMLElement, HTMLElement>({
      ...shared,
      horizontal: true,
      count: this.columns.length,
      estimateSize: (index) => this.columns[index]!.width,
      overscan: spareColumns,
      scrollPaddingStart: this.pinnedWidth,
      // The first column is always there: it stays at the left where it is a time.
      rangeExtractor: (range) => [...new Set([0, ...defaultRangeExtractor(range)])],
    });
    this.body.style.height = `${this.slots.getTotalSize()}px`;
    for (const part of [this.head, this.body]) part.style.width = `${this.across.getTotalSize()}px`;
    this.unmounts = [this.slots, this.across].map((one) => {
      const unmount = one._didMount();
      one._willUpdate();
      return unmount;
    });
    if (count === 1) this.chosen = 0;
    this.root.addEventListener("scroll", () => this.refresh());
    this.root.addEventListener("keydown", (event) => this.onKey(event));
    // Before it has a place in the page, and so before longer work is asked for.
    void this.ask(0, Math.min(count, heldRows));
  }

  destroy(): void {
    for (const unmount of this.unmounts) unmount();
  }

  // How many records lie between a slot and the record of its number. Browsers have no elements that
  // are tall enough for millions of rows; there the share of the way that is scrolled is that of the
  // list. A pixel of it may be many records: to show a certain one, the shift is set to it.
  private shift(): number {
    const surplus = this.count - this.slots.options.count;
    const { scrollTop } = this.root;
    if (surplus === 0) return 0;
    if (scrollTop === this.pinnedShift.scrollTop) return this.pinnedShift.shift;
    return Math.round(Math.min(1, scrollTop / this.scrollRange()) * surplus);
  }

  private scrollRange(): number {
    return Math.max(1, this.root.scrollHeight - this.root.clientHeight);
  }

  private rowsInView(): number {
    return Math.max(1, Math.floor((this.root.clientHeight - headHeight) / rowHeight));
  }

  // Scrolls no further than needed.
  private reveal(ordinal: number): void {
    if (this.count === this.slots.options.count) {
      this.slots.scrollToIndex(ordinal, { align: "auto" });
      return;
    }
    const rows = this.rowsInView();
    const first = this.shift() + Math.ceil(this.root.scrollTop / rowHeight);
    if (ordinal >= first && ordinal < first + rows) return;
    const target = ordinal < first ? ordinal : ordinal - rows + 1;
    const share = target / (this.count - rows);
    const before = this.root.scrollTop;
    this.root.scrollTop = Math.ceil((share * this.scrollRange()) / rowHeight) * rowHeight;
    const { scrollTop } = this.root;
    this.pinnedShift = { scrollTop, shift: target - Math.ceil(scrollTop / rowHeight) };
    if (scrollTop === before) this.refresh();
  }

  // Draws what there is of the rows in view, and asks for the others: one question at a time, after
  // whose answer it looks again what is in view.
  private refresh(): void {
    const slots = this.slots.getVirtualItems();
    const columns = this.across.getVirtualItems();
    if (slots.length === 0 || columns.length === 0) return;
    const shift = this.shift();
    const from = slots[0]!.index + shift;
    const to = slots.at(-1)!.index + 1 + shift;
    const state = [from, to, shift, columns[1]?.index, columns.length, this.held.from, this.held.to];
    if (this.drawn !== state.join()) {
      this.drawn = state.join();
      this.drawHead(columns);
      this.drawRows(from, to, shift, columns);
    }
    const isHeld = from >= this.held.from && to <= this.held.to;
    if (!isHeld && !this.isAsking) {
      void this.ask(Math.max(0, from - heldRows), Math.min(this.count, to + heldRows));
    }
  }

  private async ask(from: number, to: number): Promise<void> {
    this.isAsking = true;
    try {
      this.held = { from, to, records: await this.askRows(from, to - from) };
    } catch {
      return; // The file was closed, or its panel says what went wrong.
    } finally {
      this.isAsking = false;
    }
    this.refresh();
  }

  private cell(role: string, { index, start }: VirtualItem, text: string, title: string): HTMLElement {
    const column = this.columns[index]!;
    const isPinned = index === 0 && this.pinnedWidth > 0;
    const kind = isPinned ? "pinned" : column.isNumber ? "number" : "";
    const cell = element("div", { class: kind, role, "aria-colindex": index + 1 }, text);
    if (title !== "") cell.title = title;
    if (!isPinned) cell.style.left = `${start}px`;
    cell.style.width = `${column.width}px`;
    return cell;
  }

  private drawHead(columns: VirtualItem[]): void {
    const cells = columns.map((column) => {
      const { field, head } = this.columns[column.index]!;
      return this.cell("columnheader", column, head, field.comment);
    });
    this.head.replaceChildren(...cells);
  }

  private drawRows(from: number, to: number, shift: number, columns: VirtualItem[]): void {
    const rows: HTMLElement[] = [];
    for (let ordinal = from; ordinal < to; ++ordinal) {
      const record = this.held.records[ordinal - this.held.from];
      if (record === undefined) continue;
      const members = record as unknown as Record<string, unknown>;
      const cells = columns.map((column) => {
        const { field } = this.columns[column.index]!;
        const text = valueText(field, members[field.name], this.zone);
        return this.cell("gridcell", column, text, field.type === "char" ? text : "");
      });
      const row = element(
        "div",
        {
          id: `${this.id}-${ordinal}`,
          class: "row",
          role: "row",
          "aria-rowindex": ordinal + 2,
          click: () => this.choose(ordinal),
        },
        ...cells,
      );
      row.style.top = `${(ordinal - shift) * rowHeight}px`;
      rows.push(row);
    }
    this.body.replaceChildren(...rows);
    this.markChosen();
  }

  private choose(ordinal: number): void {
    this.chosen = ordinal;
    this.markChosen();
  }

  // Tells of the chosen record once it is there.
  private markChosen(): void {
    const id = `${this.id}-${this.chosen}`;
    this.root.removeAttribute("aria-activedescendant");
    for (const row of this.body.children) {
      const isChosen = row.id === id;
      row.setAttribute("aria-selected", String(isChosen));
      if (isChosen) this.root.setAttribute("aria-activedescendant", id);
    }
    const record = this.held.records[this.chosen - this.held.from];
    if (record === undefined || this.told === this.chosen) return;
    this.told = this.chosen;
    this.onChoose(record);
  }

  private scrollColumns(step: 1 | -1): void {
    const edge = this.root.scrollLeft + this.pinnedWidth;
    const column = this.across.getVirtualItemForOffset(edge);
    if (column === undefined) return;
    const isCutOff = column.start < edge - 1;
    const target = step === -1 && isCutOff ? column.index : column.index + step;
    const index = Math.max(0, Math.min(this.columns.length - 1, target));
    this.across.scrollToIndex(index, { align: "start" });
  }

  private onKey(event: KeyboardEvent): void {
    if (event.ctrlKey || event.altKey || event.metaKey) return; // the browser's own
    const page = Math.max(1, this.rowsInView() - 1);
    const steps: Record<string, number> = {
      ArrowDown: 1,
      ArrowUp: -1,
      PageDown: page,
      PageUp: -page,
      Home: -this.count,
      End: this.count,
    };
    const step = steps[event.key];
    if (event.key === "ArrowLeft" || event.key === "ArrowRight") {
      event.preventDefault();
      this.scrollColumns(event.key === "ArrowLeft" ? -1 : 1);
    } else if (step !== undefined) {
      event.preventDefault();
      this.choose(Math.max(0, Math.min(this.count - 1, this.chosen + step)));
      this.reveal(this.chosen);
    }
  }
}
