// A long series of levels with levels of detail that keep the extremes: a window of it is drawn from
// as many points as a screen has columns.
import type { SeriesExtent, SeriesWindow } from "./protocol.js";

const step = 8; // points of a level of detail in one of the next
const most = 12_000_000; // more samples are thinned, and only their extremes kept

interface Detail {
  lows: Float32Array;
  highs: Float32Array;
}

export class LevelSeries {
  private times = new Float64Array(1 << 16);
  private levels = new Float32Array(1 << 16);
  private count = 0;
  private details: Detail[] = [];

  /** A sample; NaN for no value. */
  add(time: number, level: number): void {
    if (this.count === this.times.length) this.makeRoom();
    this.times[this.count] = time;
    this.levels[this.count] = level;
    ++this.count;
  }

  private makeRoom(): void {
    if (this.count >= most) {
      this.thin();
      return;
    }
    const room = Math.min(most, this.count * 2);
    const times = new Float64Array(room);
    const levels = new Float32Array(room);
    times.set(this.times);
    levels.set(this.levels);
    this.times = times;
    this.levels = levels;
  }

  // Of four samples the lowest and the highest stay, in their order.
  private thin(): void {
    const { times, levels } = this;
    let kept = 0;
    for (let i = 0; i + 4 <= this.count; i += 4) {
      let low = i;
      let high = i;
      for (let k = i + 1; k < i + 4; ++k) {
        if (!(levels[k]! >= levels[low]!)) low = k;
        if (levels[k]! > levels[high]!) high = k;
      }
      if (low === high) high = low === i + 3 ? i : i + 3;
      for (const k of low < high ? [low, high] : [high, low]) {
        times[kept] = times[k]!;
        levels[kept] = levels[k]!;
        ++kept;
      }
    }
    this.count = kept;
  }

  // Clocks are set back, and files hold runs in any order.
  private sort(): void {
    const { times, levels, count } = this;
    let isSorted = true;
    for (let i = 1; i < count && isSorted; ++i) isSorted = times[i - 1]! <= times[i]!;
    if (isSorted) return;
    const order = new Uint32Array(count);
    for (let i = 0; i < count; ++i) order[i] = i;
    order.sort((a, b) => times[a]! - times[b]!);
    this.times = Float64Array.from(order, (i) => times[i]!);
    this.levels = Float32Array.from(order, (i) => levels[i]!);
  }

  /** Makes the levels of detail; behind the last sample. */
  finish(): SeriesExtent {
    this.sort();
    this.details = [];
    let lows = this.levels.subarray(0, this.count);
    let highs = lows;
    while (lows.length > step) {
      const size = Math.ceil(lows.length / step);
      const next = { lows: new Float32Array(size), highs: new Float32Array(size) };
      for (let i = 0; i < size; ++i) {
        let low = NaN;
        let high = NaN;
        const end = Math.min(lows.length, (i + 1) * step);
        for (let k = i * step; k < end; ++k) {
          if (!(lows[k]! >= low)) low = Number.isNaN(lows[k]!) ? low : lows[k]!;
          if (!(highs[k]! <= high)) high = Number.isNaN(highs[k]!) ? high : highs[k]!;
        }
        next.lows[i] = low;
        next.highs[i] = high;
      }
      this.details.push(next);
      lows = next.lows;
      highs = next.highs;
    }
    return {
      samples: this.count,
      from: this.count > 0 ? this.times[0]! : 0,
      to: this.count > 0 ? this.times[this.count - 1]! : 0,
    };
  }

  // The first sample at or behind a time.
  private indexAt(time: number): number {
    let low = 0;
    let high = this.count;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (this.times[middle]! < time) low = middle + 1;
      else high = middle;
    }
    return low;
  }

  /** What lies between two times, with a point before and behind it, by at most so many points. */
  window(from: number, to: number, mostPoints: number): SeriesWindow {
    const first = Math.max(0, this.indexAt(from) - 1);
    const last = Math.min(this.count, this.indexAt(to) + 1);
    let width = 1;
    let detail: Detail = { lows: this.levels, highs: this.levels };
    for (const next of this.details) {
      if ((last - first) / width <= mostPoints) break;
      width *= step;
      detail = next;
    }
    const window: SeriesWindow = { times: [], lows: [], highs: [] };
    const value = (level: number): number | null => (Number.isNaN(level) ? null : level);
    for (let i = Math.floor(first / width); i * width < last; ++i) {
      window.times.push(this.times[i * width]!);
      window.lows.push(value(detail.lows[i]!));
      window.highs.push(value(detail.highs[i]!));
    }
    return window;
  }
}
