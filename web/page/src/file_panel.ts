// All that is shown of one file.
import { recordNamed } from "../../package/src/decode.js";
import type { FileInfo, MeasurementRecord } from "../../package/src/index.js";
import { instantOf, zoneOf, type Zone } from "./clock_text.js";
import { element, freshId, labelled } from "./elements.js";
import { Cancelled, FileAsker } from "./file_worker.js";
import { LevelPlot } from "./level_plot.js";
import type { Format, Opened, TimeFilter } from "./protocol.js";
import { recordDetails } from "./record_details.js";
import { RecordTable } from "./record_table.js";
import { SeriesWindows } from "./series_windows.js";
import { texts } from "./texts.js";

function button(text: string, click: () => void, name = text): HTMLButtonElement {
  return element("button", { type: "button", "aria-label": name, click }, text);
}

function options(names: string[], values = names): HTMLOptionElement[] {
  return names.map((name, i) => element("option", { value: values[i]! }, name));
}

/** Gives signals, each of which ends the work with the one before. */
function newest(): () => AbortSignal {
  let last = new AbortController();
  return () => {
    last.abort();
    last = new AbortController();
    return last.signal;
  };
}

export class FilePanel {
  readonly root: HTMLElement;
  private readonly content = element("div", { class: "content" });
  private readonly bar = element("progress", { max: 1, value: 0, "aria-label": texts.openFiles });
  private readonly work = element("div", { class: "work", role: "status", hidden: true });
  private asker: FileAsker | undefined;
  private isOpen = false;
  private works = 0;
  private plot: LevelPlot | undefined;
  private zone: Zone;

  constructor(
    private readonly file: File,
    private tz: string,
    onClose: (panel: FilePanel) => void,
  ) {
    this.zone = zoneOf(tz);
    const id = freshId();
    const close = button("×", () => {
      this.close();
      onClose(this);
    }, texts.close(file.name));
    this.work.append(
      element("span", {}, texts.reading(file.name)),
      this.bar,
      button(texts.cancel, () => this.cancel()),
    );
    this.root = element(
      "section",
      { class: "file", "aria-labelledby": id },
      element("header", {}, element("h2", { id }, file.name), close),
      this.work,
      this.content,
    );
  }

  /** Takes the colours of the page anew. */
  recolour(): void {
    this.plot?.recolour();
  }

  close(): void {
    this.asker?.end(new Cancelled(texts.cancelled));
    this.asker = undefined;
    this.isOpen = false;
    this.plot?.destroy();
  }

  // What was read stays. A file that was not read to its end has nothing to show.
  private cancel(): void {
    if (this.isOpen) this.asker?.cancelAll();
    else this.closeWith(texts.cancelled);
  }

  private closeWith(why: string): void {
    this.close();
    const again = button(texts.openAgain, () => void this.open(this.tz));
    this.content.replaceChildren(element("p", { role: "alert" }, why), again);
  }

  /** Opens the file anew, in a zone. */
  async open(tz: string): Promise<void> {
    this.close();
    this.tz = tz;
    this.zone = zoneOf(tz);
    const asker = new FileAsker(() => this.closeWith(texts.stuck));
    this.asker = asker;
    try {
      const opened = await this.during((tell) => asker.ask("open", { file: this.file, tz }, tell));
      this.isOpen = true;
      this.content.replaceChildren(this.summary(opened));
      if (opened.kinds.length === 0) return;
      this.content.append(this.levels(asker, opened), this.records(asker, opened));
    } catch (error) {
      if (this.asker === asker) this.fail(error);
    }
  }

  // Shows progress once work takes longer than the blink of an eye.
  private async during<T>(work: (tell: (share: number) => void) => Promise<T>): Promise<T> {
    const blink = 150;
    const timer = setTimeout(() => (this.work.hidden = false), blink);
    this.bar.value = 0;
    ++this.works;
    try {
      return await work((share) => (this.bar.value = share));
    } finally {
      clearTimeout(timer);
      if (--this.works === 0) this.work.hidden = true;
    }
  }

  private fail(error: unknown): void {
    if (error instanceof Cancelled) return;
    const why = error instanceof Error ? error.message : String(error);
    this.content.append(element("p", { class: "fault", role: "alert" }, `${texts.fault}: ${why}`));
  }

  private summary({ info, kinds, milliseconds }: Opened): HTMLElement {
    const verdict = info.whole
      ? texts.whole
      : `${kinds.length === 0 ? texts.unreadable : texts.notWhole}: ${info.why ?? ""}`;
    const facts: [string, string][] = [
      [texts.facts.model, String(info.model)],
      [texts.facts.serial, info.serial],
      [texts.facts.firmware, info.firmware],
      [texts.facts.mode, info.mode],
      [texts.facts.form, info.form],
      [texts.facts.titles, info.titles.join(" · ")],
      [texts.facts.sites, info.sites > 0 ? String(info.sites) : ""],
      [texts.facts.headerTime, this.shown(info.headerTime)],
      [texts.facts.start, this.shown(info.start)],
      [texts.facts.lastStop, this.shown(info.lastStop)],
      [texts.facts.lastRecord, this.shown(info.lastRecord)],
      [texts.facts.size, texts.bytes(info.size)],
      [texts.facts.records, texts.count(info.records)],
    ];
    const isRead = kinds.length > 0;
    const list = facts
      .filter(([, value]) => value !== "" && isRead)
      .map(([name, value]) => {
        const kind = name === texts.facts.titles ? "wide" : "";
        return element("div", { class: kind }, element("dt", {}, name), element("dd", {}, value));
      });
    const summary = element(
      "div",
      { class: "summary" },
      element("p", { class: info.whole ? "whole" : "fault", role: "status" }, verdict),
      element("dl", {}, ...list),
    );
    summary.dataset["milliseconds"] = milliseconds.toFixed(0);
    return summary;
  }

  private shown(time: FileInfo["start"]): string {
    if (time === null) return "";
    const clock = time.slice(0, 19).replace("T", " ");
    return this.zone.name === "UTC" ? clock : `${clock} ${time.slice(19)}`;
  }

  private levels(asker: FileAsker, opened: Opened): HTMLElement {
    const part = element("section", { class: "levels" }, element("h3", {}, texts.level));
    if (opened.series.length === 0) {
      part.append(element("p", {}, texts.noSeries));
      return part;
    }
    const windows = new SeriesWindows(asker, (window) => plot.draw(window));
    const plot = new LevelPlot(this.zone, opened.marks, (from, to, most) =>
      windows.ask({ from, to, most }),
    );
    this.plot = plot;
    const names = opened.series.map(({ kind, field }) => `${kind} ${field}`);
    const choice = element("select", {}, ...options(names));
    const samples = element("span", { class: "samples" });
    const signalOf = newest();
    let shown = -1;
    const show = async (): Promise<void> => {
      const chosen = opened.series[choice.selectedIndex]!;
      const signal = signalOf();
      const taking = this.during((tell) => asker.ask("series", chosen, tell, signal));
      const extent = await taking.catch((error: unknown) => {
        // The series that is shown stays; a newer choice stays as well.
        if (!signal.aborted) choice.selectedIndex = shown;
        throw error;
      });
      shown = choice.selectedIndex;
      samples.textContent = texts.samples(extent.samples);
      part.dataset["samples"] = String(extent.samples);
      await plot.show(extent, choice.value);
    };
    choice.addEventListener("change", () => void show().catch((error: unknown) => this.fail(error)));
    const tools = element(
      "div",
      { class: "tools" },
      labelled(texts.series, choice),
      samples,
      element(
        "span",
        { class: "control" },
        button("+", () => plot.zoom(0.6), texts.zoomIn),
        button("−", () => plot.zoom(1 / 0.6), texts.zoomOut),
        button("←", () => plot.pan(-0.25), texts.earlier),
        button("→", () => plot.pan(0.25), texts.later),
        button(texts.all, () => plot.all()),
      ),
    );
    part.append(tools, plot.root, plot.reading, element("p", { class: "hint" }, texts.plotHelp));
    // The plot has its width once it stands in the page.
    requestAnimationFrame(() => void show().catch((error: unknown) => this.fail(error)));
    return part;
  }

  private records(asker: FileAsker, opened: Opened): HTMLElement {
    const kinds = opened.kinds;
    const choice = element(
      "select",
      {},
      ...options(
        kinds.map(({ name, count }) => texts.kindCount(name, count)),
        kinds.map(({ name }) => name),
      ),
    );
    const from = element("input", { type: "datetime-local", step: 1 });
    const to = element("input", { type: "datetime-local", step: 1 });
    const count = element("span", { class: "rows", role: "status" });
    const place = element("div");
    const details = element("div", {}, element("p", { class: "hint" }, texts.pick));
    let filter: TimeFilter = null;
    let table: RecordTable | undefined;
    let shown: { kind: string; filter: TimeFilter } = { kind: choice.value, filter };
    const filterSignal = newest();
    const rowsSignal = newest();

    const show = async (): Promise<void> => {
      const kind = choice.value;
      const asked = filter;
      const signal = filterSignal();
      let rows = kinds.find(({ name }) => name === kind)!.count;
      if (asked !== null) {
        const counting = this.during((tell) =>
          asker.ask("filter", { kind, filter: asked }, tell, signal),
        );
        rows = await counting.catch((error: unknown) => {
          if (!signal.aborted) ({ kind: choice.value, filter } = shown);
          throw error;
        });
      }
      shown = { kind, filter: asked };
      const isShown = rowsSignal();
      const info = recordNamed(kind);
      const choose = (record: MeasurementRecord): void =>
        details.replaceChildren(recordDetails(info, record, this.zone));
      const ask = (first: number, most: number): Promise<MeasurementRecord[]> =>
        asker.ask("rows", { kind, filter: asked, from: first, count: most }, undefined, isShown);
      count.textContent = texts.rows(rows);
      details.replaceChildren(...(rows > 0 ? [element("p", { class: "hint" }, texts.pick)] : []));
      table?.destroy();
      table = rows > 0 ? new RecordTable(info, rows, this.zone, ask, choose) : undefined;
      place.replaceChildren(table?.root ?? element("p", {}, texts.noRows));
    };
    const update = (): void => void show().catch((error: unknown) => this.fail(error));
    const apply = (): void => {
      const start = instantOf(from.value, this.zone, "first");
      const end = instantOf(to.value, this.zone, "last");
      const isOpen = start === null && end === null;
      filter = isOpen ? null : { from: start ?? -Infinity, to: end ?? Infinity };
      if (filter !== null) filter = { from: Math.max(filter.from, -(2 ** 31)), to: Math.min(filter.to, 2 ** 31) };
      update();
    };
    const clear = (): void => {
      from.value = "";
      to.value = "";
      apply();
    };
    const save = (format: Format): void => void this.save(asker, choice.value, filter, format);
    choice.addEventListener("change", update);
    for (const input of [from, to]) {
      input.addEventListener("keydown", ({ key }) => {
        if (key === "Enter") apply();
      });
    }
    update();
    return element(
      "section",
      { class: "records" },
      element("h3", {}, texts.table),
      element(
        "div",
        { class: "tools" },
        labelled(texts.kind, choice),
        count,
        element(
          "span",
          { class: "control" },
          texts.download,
          button(texts.csv, () => save("csv"), `${texts.download} ${texts.csv}`),
          button(texts.jsonl, () => save("jsonl"), `${texts.download} ${texts.jsonl}`),
        ),
      ),
      element(
        "div",
        { class: "tools" },
        labelled(texts.from, from),
        labelled(texts.to, to),
        button(texts.filter, apply),
        button(texts.clear, clear),
      ),
      place,
      details,
    );
  }

  private async save(
    asker: FileAsker,
    kind: string,
    filter: TimeFilter,
    format: Format,
  ): Promise<void> {
    try {
      const blob = await this.during((tell) =>
        asker.ask("download", { kind, filter, format }, tell),
      );
      const address = URL.createObjectURL(blob);
      const name = `${this.file.name.replace(/\.[^.]*$/, "")}_${kind}.${format}`;
      element("a", { href: address, download: name }).click();
      setTimeout(() => URL.revokeObjectURL(address), 60_000);
    } catch (error) {
      if (this.asker === asker) this.fail(error);
    }
  }
}
