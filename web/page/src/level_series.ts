// A long series of levels in bounded memory. Samples are kept one by one as long as there is room;
// beyond that as buckets of samples that follow one another, of which the extremes are kept. Above
// them stand levels of detail, so that a window is drawn from as many points as a screen has columns.
import { ascendingOrder } from "./ascending_order.js";
import type { SeriesExtent, SeriesPoints } from "./protocol.js";

const step = 8; // points of a level of detail in one of the next
const longestGap = 60; // seconds; samples further apart stand in two buckets
export const mostBuckets = 1 << 20;

interface Extremes {
  lows: Float32Array;
  highs: Float32Array;
}

/** The lowest and the highest of some levels; NaN is none. */
function extremes({ lows, highs }: Extremes, first: number, end: number): [number, number] {
  let low = NaN;
  let high = NaN;
  for (let k = first; k < end; ++k) {
    if (!(low <= lows[k]!)) low = Number.isNaN(lows[k]!) ? low : lows[k]!;
    if (!(high >= highs[k]!)) high = Number.isNaN(highs[k]!) ? high : highs[k]!;
  }
  return [low, high];
}

export class LevelSeries {
  // Of each bucket the time of its first sample, the seconds to its last one, and the extremes.
  private firsts: Float64Array;
  private lengths: Float32Array;
  private buckets: Extremes;
  private count = 0;
  private samples = 0;
  private inLast = 0; // samples of the last bucket
  private latest = -Infinity;
  private details: Extremes[] = [];
  // The latest time of the buckets up to each one, where a bucket begins before others end.
  private reached: Float64Array | undefined;
  /** Samples that a bucket may hold. */
  width = 1;

  constructor(private readonly most = mostBuckets) {
    const room = Math.min(most, 1 << 14);
    this.firsts = new Float64Array(room);
    this.lengths = new Float32Array(room);
    this.buckets = { lows: new Float32Array(room), highs: new Float32Array(room) };
  }

  /** Samples that lie between two times; NaN for no value. */
  take(times: Float64Array, levels: Float32Array, count: number, from = -Infinity, to = Infinity): void {
    for (let i = 0; i < count; ++i) {
      const time = times[i]!;
      if (time >= from && time <= to) this.add(time, levels[i]!);
    }
  }

  private add(time: number, level: number): void {
    const follows = time >= this.latest && time - this.latest <= longestGap;
    this.latest = time;
    ++this.samples;
    if (this.inLast < this.width && follows && this.count > 0) {
      ++this.inLast;
      this.widen(this.count - 1, time, level);
      return;
    }
    if (this.count === this.firsts.length) this.makeRoom();
    const at = this.count++;
    this.firsts[at] = time;
    this.lengths[at] = 0;
    this.buckets.lows[at] = level;
    this.buckets.highs[at] = level;
    this.inLast = 1;
  }

  private widen(at: number, time: number, level: number): void {
    const { lows, highs } = this.buckets;
    this.lengths[at] = time - this.firsts[at]!;
    if (Number.isNaN(level)) return;
    if (!(lows[at]! <= level)) lows[at] = level;
    if (!(highs[at]! >= level)) highs[at] = level;
  }

  private makeRoom(): void {
    if (this.count >= this.most) {
      this.merge();
      return;
    }
    const room = Math.min(this.most, this.count * 2);
    const grown = (old: Float32Array): Float32Array => {
      const array = new Float32Array(room);
      array.set(old);
      return array;
    };
    const firsts = new Float64Array(room);
    firsts.set(this.firsts);
    this.firsts = firsts;
    this.lengths = grown(this.lengths);
    this.buckets = { lows: grown(this.buckets.lows), highs: grown(this.buckets.highs) };
  }

  // Where clocks are set back or samples stand far apart all over the file, buckets that do not
  // follow one another are joined as well.
  private merge(): void {
    this.width *= 2;
    this.joinNeighbours(false);
    if (this.count > this.most * 0.75) {
      this.sort();
      this.joinNeighbours(true);
    }
    this.inLast = this.width;
  }

  private joinNeighbours(evenApart: boolean): void {
    const { firsts, lengths, buckets, count } = this;
    let kept = 0;
    for (let i = 0; i < count; ++kept) {
      const first = firsts[i]!;
      const next = i + 1 < count ? firsts[i + 1]! - first : -1;
      const follows = next >= 0 && (evenApart || next - lengths[i]! <= longestGap);
      const end = follows ? i + 2 : i + 1;
      const length = follows ? Math.max(lengths[i]!, next + lengths[i + 1]!) : lengths[i]!;
      const [low, high] = extremes(buckets, i, end);
      firsts[kept] = first;
      lengths[kept] = length;
      buckets.lows[kept] = low;
      buckets.highs[kept] = high;
      i = end;
    }
    this.count = kept;
  }

  // Clocks are set back, and files hold runs in any order.
  private sort(): void {
    const { firsts, count } = this;
    const order = ascendingOrder(firsts.subarray(0, count));
    if (order === undefined) return;
    const sorted = <A extends Float32Array | Float64Array>(old: A, array: A): A => {
      for (let i = 0; i < count; ++i) array[i] = old[order[i]!]!;
      return array;
    };
    const { lows, highs } = this.buckets;
    const room = firsts.length;
    this.firsts = sorted(firsts, new Float64Array(room));
    this.lengths = sorted(this.lengths, new Float32Array(room));
    this.buckets = {
      lows: sorted(lows, new Float32Array(room)),
      highs: sorted(highs, new Float32Array(room)),
    };
  }

  /** Makes the levels of detail; behind the last sample. */
  finish(): SeriesExtent {
    this.sort();
    this.details = [this.buckets];
    let size = this.count;
    for (let below = this.buckets; size > step; ) {
      const length = size;
      size = Math.ceil(size / step);
      const next = { lows: new Float32Array(size), highs: new Float32Array(size) };
      for (let i = 0; i < size; ++i) {
        const [low, high] = extremes(below, i * step, Math.min(length, (i + 1) * step));
        next.lows[i] = low;
        next.highs[i] = high;
      }
      this.details.push(next);
      below = next;
    }
    let to = -Infinity;
    let overlap = false;
    for (let i = 0; i < this.count; ++i) {
      overlap ||= this.firsts[i]! < to;
      to = Math.max(to, this.endOf(i));
    }
    this.reached = overlap ? this.reaches() : undefined;
    const isEmpty = this.count === 0;
    return { samples: this.samples, from: isEmpty ? 0 : this.firsts[0]!, to: isEmpty ? 0 : to };
  }

  private endOf(bucket: number): number {
    return this.firsts[bucket]! + this.lengths[bucket]!;
  }

  private reaches(): Float64Array {
    const reached = new Float64Array(this.count);
    let to = -Infinity;
    for (let i = 0; i < this.count; ++i) {
      to = Math.max(to, this.endOf(i));
      reached[i] = to;
    }
    return reached;
  }

  // The first bucket whose time among these is at or behind a time.
  private indexAt(time: number, times = this.firsts): number {
    let low = 0;
    let high = this.count;
    while (low < high) {
      const middle = (low + high) >> 1;
      if (times[middle]! < time) low = middle + 1;
      else high = middle;
    }
    return low;
  }

  // The buckets between two times, with one before and one behind.
  private between(from: number, to: number): [number, number] {
    return [Math.max(0, this.indexAt(from) - 1), Math.min(this.count, this.indexAt(to) + 1)];
  }

  /** Whether a window of so many points would show more if it had every sample. */
  isCoarse(from: number, to: number, mostPoints: number): boolean {
    const [first, end] = this.between(from, to);
    return this.width > 1 && end - first < mostPoints;
  }

  /** The times between which a window needs samples: a bucket more on both sides. */
  reach(from: number, to: number): [number, number] {
    const [first, end] = this.between(from, to);
    if (first === end) return [from, to];
    // Lengths are rounded.
    return [Math.min(from, this.firsts[first]!), Math.max(to, this.endOf(end - 1) + 1)];
  }

  /** What lies between two times, with a point before and behind it, by at most so many points. */
  window(from: number, to: number, mostPoints: number): SeriesPoints {
    const [before, end] = this.between(from, to);
    // Where a clock was set back, buckets that begin earlier reach into the window too.
    const first = this.reached === undefined ? before : Math.min(before, this.indexAt(from, this.reached));
    let width = 1;
    let level = 0;
    while (level + 1 < this.details.length && (end - first) / (width * step) >= mostPoints) {
      width *= step;
      ++level;
    }
    const detail = this.details[level] ?? this.buckets;
    const size = Math.ceil(this.count / width);
    // A point more, as its first one may begin before the window.
    const each = Math.max(1, Math.ceil((end - first) / width / Math.max(1, mostPoints - 1)));
    const window: SeriesPoints = { times: [], lows: [], highs: [] };
    const value = (one: number): number | null => (Number.isNaN(one) ? null : one);
    for (let i = Math.floor(first / (width * each)); i * width * each < end; ++i) {
      const [low, high] = extremes(detail, i * each, Math.min(size, (i + 1) * each));
      window.times.push(this.firsts[i * width * each]!);
      window.lows.push(value(low));
      window.highs.push(value(high));
    }
    return window;
  }
}
