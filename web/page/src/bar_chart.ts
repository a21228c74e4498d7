// Spectra and distributions as bars.
import { drawing, element } from "./elements.js";
import { texts } from "./texts.js";

export interface Bar {
  name: string;
  value: number | null;
}

const width = 420;
const height = 120;
const head = 4;
const foot = 16;

/** Bars from a bottom value on; each says its value to the pointer. */
export function barChart(title: string, bars: Bar[], bottom: number): HTMLElement {
  const known = bars.flatMap((bar) => (bar.value === null ? [] : [bar.value]));
  const top = Math.max(bottom + 1, ...known);
  const wide = width / bars.length;
  const room = height - head - foot;
  const shapes = bars.map((bar, i) => {
    const tall = bar.value === null ? 0 : ((bar.value - bottom) / (top - bottom)) * room;
    const said = `${bar.name}: ${bar.value ?? texts.noValue}`;
    return drawing(
      "rect",
      {
        x: (i * wide).toFixed(2),
        y: (height - foot - Math.max(0, tall)).toFixed(2),
        width: Math.max(0.5, wide - 1).toFixed(2),
        height: Math.max(0, tall).toFixed(2),
      },
      drawing("title", {}, said),
    );
  });
  const names = [0, bars.length - 1].map((i) =>
    drawing(
      "text",
      { x: i === 0 ? 0 : width, y: height - 3, "text-anchor": i === 0 ? "start" : "end" },
      bars[i]?.name ?? "",
    ),
  );
  const picture = drawing(
    "svg",
    {
      viewBox: `0 0 ${width} ${height}`,
      role: "img",
      "aria-label": texts.chart(title, bars.length),
    },
    ...shapes,
    ...names,
  );
  const range = element("span", { class: "hint" }, texts.range(bottom, top));
  return element("figure", {}, element("figcaption", {}, element("span", {}, title), range), picture);
}

const counts = 127;

/** The bars of a level distribution: three bytes of base level, then 127 counts of three bytes. */
export function distributionBars(bytes: number[]): Bar[] {
  const base = Math.trunc(bytes[0] ?? 0);
  const bars = Array.from({ length: counts }, (_, k) => {
    const at = 3 + 3 * k;
    const value = (bytes[at] ?? 0) * 65536 + (bytes[at + 1] ?? 0) * 256 + (bytes[at + 2] ?? 0);
    return { name: `${base + k + 1} ${texts.dB}`, value };
  });
  const first = bars.findIndex((bar) => bar.value > 0);
  const last = bars.findLastIndex((bar) => bar.value > 0);
  return first < 0 ? [] : bars.slice(Math.max(0, first - 1), last + 2);
}
