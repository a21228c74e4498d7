// The plot of levels over time. It draws what it has at once, and asks for the window in view.
import uPlot from "uplot";

import { clockText, type Zone } from "./clock_text.js";
import { element } from "./elements.js";
import type { Mark, SeriesExtent, SeriesWindow } from "./protocol.js";
import { texts } from "./texts.js";

export type AskWindow = (from: number, to: number, most: number) => Promise<SeriesWindow>;

const height = 280;
const zoomStep = 0.6;
const panStep = 0.25;
const shortest = 1; // seconds in view
const mostMarks = 100; // in view; more of them would hide the levels
const mostNamedMarks = 8;

// How times stand at the axis, by the step between them: what stands at each, and below where the
// year, the day or the minute changes. In the order that uPlot asks for.
const hour = 3600;
const date = "\n{D} {MMM} {YYYY}";
const dayAlone = "\n{D} {MMM}";
const axisTimes: (string | number | null)[][] = [
  [365 * 24 * hour, "{YYYY}", null, null, null, null, null, null, 1],
  [28 * 24 * hour, "{MMM}", "\n{YYYY}", null, null, null, null, null, 1],
  [24 * hour, "{D} {MMM}", "\n{YYYY}", null, null, null, null, null, 1],
  [60, "{HH}:{mm}", date, null, dayAlone, null, null, null, 1],
  [1, "{HH}:{mm}:{ss}", date, null, dayAlone, null, null, null, 1],
  [0.001, "{ss}.{fff}", `${date} {HH}:{mm}`, null, dayAlone, null, "\n{HH}:{mm}", null, 1],
];

function colour(name: string): string {
  return getComputedStyle(document.documentElement).getPropertyValue(name).trim();
}

export class LevelPlot {
  readonly root = element("div", {
    class: "plot",
    tabindex: "0",
    role: "application",
    "aria-label": `${texts.level}. ${texts.plotHelp}`,
  });
  readonly reading = element("output", { class: "reading" });
  private plot: uPlot | undefined;
  private isAsking = false;
  private isStale = false;
  private extent: SeriesExtent = { samples: 0, from: 0, to: 0 };

  constructor(
    private readonly zone: Zone,
    private readonly marks: Mark[],
    private readonly askWindow: AskWindow,
  ) {
    new ResizeObserver(() => this.fit()).observe(this.root);
    this.root.addEventListener("keydown", (event) => this.onKey(event));
    // Behind that of uPlot, which knows no more than what it draws.
    this.root.addEventListener("dblclick", () => this.all());
    this.root.addEventListener("wheel", (event) => this.onWheel(event), { passive: false });
  }

  async show(extent: SeriesExtent, label: string): Promise<void> {
    this.extent = extent;
    const window = await this.askWindow(extent.from, extent.to, this.points());
    this.plot?.destroy();
    this.plot = new uPlot(this.options(label), this.data(window), this.root);
    this.all();
  }

  destroy(): void {
    this.plot?.destroy();
    this.plot = undefined;
  }

  private width(): number {
    return Math.max(200, this.root.clientWidth);
  }
  private points(): number {
    return 2 * this.width();
  }

  private fit(): void {
    const plot = this.plot;
    if (plot !== undefined && plot.width !== this.width()) {
      plot.setSize({ width: this.width(), height });
    }
  }

  private data(window: SeriesWindow): uPlot.AlignedData {
    return [window.times, window.highs, window.lows];
  }

  private options(label: string): uPlot.Options {
    const axis = { stroke: colour("--text"), grid: { stroke: colour("--grid"), width: 1 } };
    const line = { stroke: colour("--line"), width: 1, points: { show: false } };
    return {
      width: this.width(),
      height,
      legend: { show: false },
      tzDate: (time) => {
        const clock = (time + this.zone.changeAt(time).offset) * 1000;
        return uPlot.tzDate(new Date(clock), "UTC");
      },
      cursor: { drag: { x: true, y: false, setScale: true } },
      scales: { x: { time: true } },
      series: [{}, { ...line, label }, { ...line }],
      bands: [{ series: [1, 2], fill: colour("--band") }],
      axes: [{ ...axis, values: axisTimes }, { ...axis, label: texts.dB, labelSize: 20, size: 46 }],
      hooks: {
        setScale: [(_, key) => key === "x" && this.refresh()],
        setCursor: [() => this.tell()],
        draw: [(plot) => this.drawMarks(plot)],
      },
    };
  }

  private drawMarks(plot: uPlot): void {
    const { ctx, bbox } = plot;
    ctx.save();
    ctx.strokeStyle = colour("--mark");
    ctx.fillStyle = colour("--mark");
    ctx.setLineDash([4, 4]);
    ctx.textAlign = "left";
    const { from, to } = this.view();
    const inView = this.marks.filter((mark) => mark.time >= from && mark.time <= to);
    for (const [i, mark] of (inView.length > mostMarks ? [] : inView).entries()) {
      const x = plot.valToPos(mark.time, "x", true);
      ctx.beginPath();
      ctx.moveTo(x, bbox.top);
      ctx.lineTo(x, bbox.top + bbox.height);
      ctx.stroke();
      if (inView.length <= mostNamedMarks) {
        const text = mark.code === 64 ? texts.runStart : texts.mark(mark.code);
        ctx.fillText(text, x + 4, bbox.top + (1 + (i % 3)) * 12 * devicePixelRatio);
      }
    }
    ctx.restore();
  }

  // The value under the pointer with its local time.
  private tell(): void {
    const plot = this.plot;
    const at = plot?.cursor.idx;
    if (plot === undefined || at === null || at === undefined) return;
    const time = plot.data[0][at];
    if (time === undefined) return;
    const high = plot.data[1]?.[at];
    const low = plot.data[2]?.[at];
    const value = (level: number): string => `${level.toFixed(1)} ${texts.dB}`;
    let level = texts.noValue;
    if (typeof high === "number" && typeof low === "number") {
      level = high === low ? value(high) : `${low.toFixed(1)} – ${value(high)}`;
    }
    this.reading.textContent = `${clockText(time, this.zone)}   ${level}`;
  }

  private view(): { from: number; to: number } {
    const scale = this.plot?.scales["x"];
    return { from: scale?.min ?? this.extent.from, to: scale?.max ?? this.extent.to };
  }

  /** Shows the time between two instants, as far as there are samples. */
  look(from: number, to: number): void {
    const room = Math.max(shortest, this.extent.to - this.extent.from);
    const length = Math.min(room, Math.max(shortest, to - from));
    const start = Math.min(Math.max(from, this.extent.from), this.extent.from + room - length);
    this.plot?.setScale("x", { min: start, max: start + length });
  }

  all(): void {
    this.look(this.extent.from, this.extent.to);
  }
  zoom(factor: number, centre?: number): void {
    const { from, to } = this.view();
    const fixed = centre ?? (from + to) / 2;
    this.look(fixed - (fixed - from) * factor, fixed + (to - fixed) * factor);
  }
  pan(share: number): void {
    const { from, to } = this.view();
    const shift = (to - from) * share;
    this.look(from + shift, to + shift);
  }

  private onKey(event: KeyboardEvent): void {
    const moves: Record<string, () => void> = {
      ArrowLeft: () => this.pan(-panStep),
      ArrowRight: () => this.pan(panStep),
      "+": () => this.zoom(zoomStep),
      "=": () => this.zoom(zoomStep),
      "-": () => this.zoom(1 / zoomStep),
      "0": () => this.all(),
    };
    const move = moves[event.key];
    if (move === undefined) return;
    event.preventDefault();
    move();
  }

  private onWheel(event: WheelEvent): void {
    const plot = this.plot;
    if (plot === undefined) return;
    event.preventDefault();
    if (event.shiftKey) {
      this.pan(Math.sign(event.deltaY || event.deltaX) * panStep);
      return;
    }
    const left = plot.over.getBoundingClientRect().left;
    this.zoom(event.deltaY < 0 ? zoomStep : 1 / zoomStep, plot.posToVal(event.clientX - left, "x"));
  }

  // Asks for what is in view, with as much again on both sides; one question at a time.
  private refresh(): void {
    if (this.isAsking) {
      this.isStale = true;
      return;
    }
    const { from, to } = this.view();
    const side = to - from;
    this.root.dataset["from"] = String(from);
    this.root.dataset["to"] = String(to);
    this.isAsking = true;
    this.isStale = false;
    this.askWindow(from - side, to + side, 3 * this.points())
      .then((window) => this.draw(window))
      .catch(() => undefined)
      .finally(() => {
        this.isAsking = false;
        if (this.isStale) this.refresh();
      });
  }

  /** Draws a window in view. */
  draw(window: SeriesWindow): void {
    this.plot?.setData(this.data(window), false);
    this.plot?.redraw();
  }
}
