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

const colourNames = ["text", "grid", "line", "band", "mark"] as const;
type Colours = Record<(typeof colourNames)[number], string>;

// The colours of the style, as a canvas takes them.
function coloursIn(place: HTMLElement): Colours {
  const probe = place.appendChild(element("span"));
  const entries = colourNames.map((name) => {
    probe.style.color = `var(--${name})`;
    return [name, getComputedStyle(probe).color] as const;
  });
  probe.remove();
  return Object.fromEntries(entries) as Colours;
}

// Where fingers, or a pointer that moves the view, took hold of the plot.
interface Grip {
  time: number; // under the middle of them
  spread: number; // pixels between two fingers; 0 for one pointer
  pixel: number; // seconds
}

const mainButton = 0;
const middleButton = 1;
const closest = 20; // pixels between two fingers that are told from one

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
  private colours: Colours = { text: "", grid: "", line: "", band: "", mark: "" };
  private readonly held = new Map<number, { x: number; y: number }>(); // pointers, by their ids
  private grip: Grip = { time: 0, spread: 0, pixel: 0 };

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
    // With the middle button some systems scroll.
    this.root.addEventListener("mousedown", (event) => {
      if (event.button === middleButton) event.preventDefault();
    });
    this.root.addEventListener("pointerdown", (event) => this.onHold(event));
    this.root.addEventListener("pointermove", (event) => this.onMove(event));
    for (const name of ["pointerup", "pointercancel"] as const) {
      this.root.addEventListener(name, (event) => this.onRelease(event));
    }
  }

  async show(extent: SeriesExtent, label: string): Promise<void> {
    this.extent = extent;
    const window = await this.askWindow(extent.from, extent.to, this.points());
    this.plot?.destroy();
    this.colours = coloursIn(this.root);
    this.plot = new uPlot(this.options(label), this.data(window), this.root);
    this.all();
  }

  destroy(): void {
    this.plot?.destroy();
    this.plot = undefined;
  }

  /** Takes the colours anew. */
  recolour(): void {
    this.colours = coloursIn(this.root);
    this.plot?.redraw();
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
    const axis = {
      stroke: () => this.colours.text,
      grid: { stroke: () => this.colours.grid, width: 1 },
    };
    const stroke = (): string => this.colours.line;
    const line = { stroke, width: 1 };
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
      // Where samples are few, each is a point; of extremes the higher have them.
      series: [
        {},
        { ...line, label, points: { size: 4, stroke, fill: stroke } },
        { ...line, points: { show: false } },
      ],
      bands: [{ series: [1, 2], fill: () => this.colours.band }],
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
    ctx.strokeStyle = this.colours.mark;
    ctx.fillStyle = this.colours.mark;
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
    if (event.ctrlKey || event.altKey || event.metaKey) return; // the browser's own
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
    if (event.shiftKey || event.deltaY === 0) {
      this.pan(Math.sign(event.deltaY || event.deltaX) * panStep);
      return;
    }
    const left = plot.over.getBoundingClientRect().left;
    this.zoom(event.deltaY < 0 ? zoomStep : 1 / zoomStep, plot.posToVal(event.clientX - left, "x"));
  }

  // Fingers, the middle button, and the main one with shift hold the plot: the time under them goes along.
  // What is captured here, uPlot does not take for a selection.
  private onHold(event: PointerEvent): void {
    const plot = this.plot;
    const isMoving =
      event.pointerType === "touch" ||
      event.button === middleButton ||
      (event.shiftKey && event.button === mainButton);
    if (plot === undefined || !isMoving || !plot.over.contains(event.target as Node)) return;
    this.held.set(event.pointerId, { x: event.clientX, y: event.clientY });
    this.root.setPointerCapture(event.pointerId);
    this.root.classList.add("held");
    this.grasp();
  }

  private onMove(event: PointerEvent): void {
    const plot = this.plot;
    if (plot === undefined || !this.held.has(event.pointerId)) return;
    this.held.set(event.pointerId, { x: event.clientX, y: event.clientY });
    const { middle, spread } = this.hold(plot);
    const { grip } = this;
    const pixel = grip.spread > 0 ? (grip.pixel * grip.spread) / spread : grip.pixel;
    const from = grip.time - middle * pixel;
    this.look(from, from + plot.over.clientWidth * pixel);
  }

  private onRelease(event: PointerEvent): void {
    if (!this.held.delete(event.pointerId)) return;
    if (this.held.size > 0) this.grasp();
    else this.root.classList.remove("held");
  }

  // The middle of the first two pointers, in pixels of the plot, and how far they are apart.
  private hold(plot: uPlot): { middle: number; spread: number } {
    const [one, other] = this.held.values();
    const { left } = plot.over.getBoundingClientRect();
    if (one === undefined) return { middle: 0, spread: 0 };
    if (other === undefined) return { middle: one.x - left, spread: 0 };
    const spread = Math.max(closest, Math.hypot(one.x - other.x, one.y - other.y));
    return { middle: (one.x + other.x) / 2 - left, spread };
  }

  // Takes hold anew, whenever there is a pointer more or less.
  private grasp(): void {
    const plot = this.plot;
    if (plot === undefined) return;
    const { middle, spread } = this.hold(plot);
    const { from, to } = this.view();
    const pixel = (to - from) / plot.over.clientWidth;
    this.grip = { time: from + middle * pixel, spread, pixel };
  }

  // Asks for what is in view, with as much again on both sides; one question at a time.
  private refresh(): void {
    const { from, to } = this.view();
    this.root.dataset["from"] = String(from);
    this.root.dataset["to"] = String(to);
    if (this.isAsking) {
      this.isStale = true;
      return;
    }
    const side = to - from;
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
