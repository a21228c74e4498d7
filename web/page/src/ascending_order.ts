// Sorts by merging what is in order already: measurements are, but for a few steps back.

function merge(
  keys: Float64Array,
  from: Uint32Array,
  to: Uint32Array,
  start: number,
  middle: number,
  end: number,
): void {
  let left = start;
  let right = middle;
  for (let at = start; at < end; ++at) {
    const takesLeft = right >= end || (left < middle && keys[from[left]!]! <= keys[from[right]!]!);
    to[at] = from[takesLeft ? left++ : right++]!;
  }
}

/** The places of the keys from the lowest on, equal ones as they are; undefined if that is how they stand. */
export function ascendingOrder(keys: Float64Array): Uint32Array | undefined {
  // Where what is in order begins, and the end of all.
  let starts = [0];
  for (let i = 1; i < keys.length; ++i) if (keys[i]! < keys[i - 1]!) starts.push(i);
  if (starts.length === 1) return undefined;
  starts.push(keys.length);
  let order = Uint32Array.from(keys.keys());
  let spare = new Uint32Array(keys.length);
  while (starts.length > 2) {
    const next: number[] = [];
    for (let i = 0; i + 1 < starts.length; i += 2) {
      const middle = starts[i + 1]!;
      merge(keys, order, spare, starts[i]!, middle, starts[i + 2] ?? middle);
      next.push(starts[i]!);
    }
    next.push(keys.length);
    starts = next;
    [order, spare] = [spare, order];
  }
  return order;
}
