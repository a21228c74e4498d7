// Places in a file to go on from, in bounded memory: as many as there is room for what the library
// knew at each.
import type { Core } from "../../package/src/core.js";

const blockSize = 256;
const smallestStretch = 1 << 20;
const mostMemory = 16_000_000;

type Counts = ReadonlyMap<string, number>;

// What the library knew: the blocks of its memory that differ from those at the first place.
interface Place {
  blocks: number[];
  bytes: Uint8Array;
  /** How many records of each kind stand before it. */
  counts: Counts;
}

function isSame(a: BigUint64Array, b: BigUint64Array, block: number): boolean {
  const words = blockSize / 8;
  for (let i = block * words; i < (block + 1) * words; ++i) if (a[i] !== b[i]) return false;
  return true;
}

export class Places {
  private readonly first: Uint8Array;
  private all: Place[] = [{ blocks: [], bytes: new Uint8Array(), counts: new Map() }];
  private memory = 0;
  /** Bytes from one place to the next, about. */
  stretch: number;

  /** The first place is where the library stands now. */
  constructor(
    private readonly core: Core,
    smallest = smallestStretch,
    private readonly room = mostMemory,
  ) {
    this.first = core.memory(blockSize).slice();
    this.stretch = smallest;
  }

  get count(): number {
    return this.all.length;
  }

  countsAt(place: number): Counts {
    return this.all[place]!.counts;
  }

  /** Where in the file a stretch ends and the next place may stand. */
  endOf(place: number): number {
    return (place + 1) * this.stretch;
  }

  /** Where the library has come to the end of the last stretch, there is a place. */
  note(position: number, counts: () => Counts): void {
    if (position < this.endOf(this.count - 1)) return;
    this.add(counts());
    // One step may go past stretches; those begin and end here.
    while (position >= this.endOf(this.count - 1)) this.all.push(this.all.at(-1)!);
    if (this.memory > this.room) this.dropEverySecond();
  }

  private add(counts: Counts): void {
    const now = this.core.memory(blockSize);
    const words = new BigUint64Array(now.buffer, now.byteOffset, now.length / 8);
    const before = new BigUint64Array(this.first.buffer, 0, this.first.length / 8);
    const batch = this.core.batchRoom;
    const blocks: number[] = [];
    for (let block = 0; block * blockSize < now.length; ++block) {
      const at = block * blockSize;
      // What was handed over already is not needed again.
      if (at >= batch.from && at + blockSize <= batch.to) continue;
      if (at >= this.first.length || !isSame(words, before, block)) blocks.push(block);
    }
    const bytes = new Uint8Array(blocks.length * blockSize);
    blocks.forEach((block, i) => {
      bytes.set(now.subarray(block * blockSize, (block + 1) * blockSize), i * blockSize);
    });
    this.all.push({ blocks, bytes, counts });
    this.memory += bytes.length;
  }

  private dropEverySecond(): void {
    this.all = this.all.filter((_, i) => i % 2 === 0);
    this.stretch *= 2;
    this.memory = 0;
    for (const { bytes } of new Set(this.all)) this.memory += bytes.length;
  }

  /** Makes the library stand at a place once more. */
  goTo(place: number): void {
    const { blocks, bytes } = this.all[place]!;
    // Where the library stands now it may use less of its memory than at the place.
    const memory = new Uint8Array(this.core.view().buffer);
    memory.set(this.first);
    blocks.forEach((block, i) => {
      memory.set(bytes.subarray(i * blockSize, (i + 1) * blockSize), block * blockSize);
    });
  }
}
