// The library in WebAssembly, one instance for each file that is read.
import { coreBytes } from "./generated/core_bytes.js";
import { bandIntervals } from "./field_info.js";
import type { ByteSource } from "./source.js";
import { Zone } from "./zone.js";

interface Calls {
  memory: WebAssembly.Memory;
  _initialize(): void;
  source_name(): number;
  serial_text(): number;
  date_text(): number;
  time_text(): number;
  zone_table(): number;
  zone_room(): number;
  batch_bytes(): number;
  batch_room(): number;
  wanted_codes(): number;
  whole_counts(): number;
  census_counts(): number;
  header_lines(): number;
  walk_state(): number;
  use_zone(count: number): void;
  seconds_of_text(): number;
  look_up(): void;
  count_records(): number;
  open_walk(withCensus: number): void;
  walk_on(until: number, most: number): number;
  walk_why(): number;
  close_walk(): void;
  memory_top(): number;
}

const stateNames = [
  "end",
  "status",
  "censusStatus",
  "offset",
  "position",
  "cutOffset",
  "wasWhole",
  "batchBytes",
  "headerStatus",
  "model",
  "sites",
] as const;
export type WalkState = Record<(typeof stateNames)[number], number>;

/** How walks end. */
export const goesOn = 0;
export const notStarted = 2;

/** What stands before a record in a batch. */
export interface BatchEntry {
  code: number;
  isBandInterval: boolean;
  isWhole: boolean;
  isShort: boolean;
  offset: number;
  /** Of the record in the view. */
  at: number;
}
const headSize = 12;

const nameRoom = 1024;
export const allCodes = -1;

function bytesOfBase64(text: string): Uint8Array<ArrayBuffer> {
  const binary = atob(text);
  const bytes = new Uint8Array(binary.length);
  for (let i = 0; i < binary.length; ++i) bytes[i] = binary.charCodeAt(i);
  return bytes;
}

let compiled: Promise<WebAssembly.Module> | undefined;

export class Core {
  private constructor(
    private readonly calls: Calls,
    readonly source: ByteSource,
    readonly zone: Zone,
  ) {}

  static async open(source: ByteSource, zone: Zone): Promise<Core> {
    compiled ??= WebAssembly.compile(bytesOfBase64(coreBytes));
    const made: { calls?: Calls } = {};
    const nothing = (): number => 0;
    const imports = {
      env: {
        source_size: () => source.size,
        source_read(offset: number, target: number, count: number): number {
          try {
            return source.read(new Uint8Array(made.calls!.memory.buffer, target, count), offset);
          } catch {
            return -1;
          }
        },
        emscripten_notify_memory_growth: nothing,
      },
      // What the C library would ask of a system; none of it is reached with a table of the zone.
      wasi_snapshot_preview1: {
        clock_time_get: nothing,
        environ_sizes_get: nothing,
        environ_get: nothing,
        proc_exit(): never {
          throw new Error("the core stopped");
        },
      },
    };
    const instance = await WebAssembly.instantiate(await compiled, imports);
    const calls = instance.exports as unknown as Calls;
    made.calls = calls;
    calls._initialize();
    const core = new Core(calls, source, zone);
    core.writeText(calls.source_name(), new TextEncoder().encode(source.name), nameRoom);
    core.useZone();
    return core;
  }

  private get buffer(): ArrayBuffer {
    return this.calls.memory.buffer;
  }

  private writeText(at: number, text: Uint8Array, room: number): void {
    const target = new Uint8Array(this.buffer, at, room).fill(0);
    // Of a long path the end holds the name.
    target.set(text.subarray(Math.max(0, text.length - room + 1)));
  }

  private useZone(): void {
    const changes = this.zone.changes;
    const view = new DataView(this.buffer, this.calls.zone_table());
    const count = Math.min(changes.length, this.calls.zone_room());
    for (let i = 0; i < count; ++i) {
      const change = changes[i]!;
      view.setBigInt64(16 * i, BigInt(change.from), true);
      view.setInt32(16 * i + 8, change.offset, true);
      view.setInt32(16 * i + 12, change.daylight ? 1 : 0, true);
    }
    this.calls.use_zone(count);
  }

  view(): DataView {
    return new DataView(this.buffer);
  }

  text(at: number): string {
    const bytes = new Uint8Array(this.buffer, at);
    let text = "";
    for (let i = 0; bytes[i] !== 0; ++i) text += String.fromCharCode(bytes[i]!);
    return text;
  }

  state(): WalkState {
    const view = new DataView(this.buffer, this.calls.walk_state());
    const state = {} as WalkState;
    stateNames.forEach((name, i) => (state[name] = view.getInt32(4 * i, true)));
    return state;
  }

  /** Seconds of a date and a time as the header writes them. */
  secondsOf(date: string, time: string): number {
    const encoder = new TextEncoder();
    this.writeText(this.calls.date_text(), encoder.encode(date).subarray(0, 31), 32);
    this.writeText(this.calls.time_text(), encoder.encode(time).subarray(0, 31), 32);
    return this.calls.seconds_of_text() | 0;
  }

  lookUp(): { header: number; serial: string } {
    this.calls.look_up();
    return { header: this.calls.header_lines(), serial: this.text(this.calls.serial_text()) };
  }

  /** Counts the records; gives the status. */
  count(): number {
    return this.calls.count_records();
  }

  get censusAt(): number {
    return this.calls.census_counts();
  }

  openWalk(withCensus: boolean): WalkState {
    this.calls.open_walk(withCensus ? 1 : 0);
    return this.state();
  }

  /** Which codes come in batches. */
  want(codes: Iterable<number> | typeof allCodes): void {
    const wanted = new Uint8Array(this.buffer, this.calls.wanted_codes(), 256);
    wanted.fill(codes === allCodes ? 1 : 0);
    if (codes === allCodes) return;
    for (const code of codes) wanted[code] = 1;
  }

  /** How many whole records the walk has met: by code, and at 256 those of code 1 in mode 4. */
  counts(): Uint32Array {
    return new Uint32Array(this.buffer, this.calls.whole_counts(), bandIntervals + 1);
  }

  /** Walks on by a batch, at most so many steps; how many records it went past. */
  walkOn(until = 0x7fffffff, most = 0x7fffffff): number {
    return this.calls.walk_on(Math.min(until, 0x7fffffff), most);
  }

  /** The records of the last batch. */
  *batch(view: DataView): Generator<BatchEntry, void> {
    let at = this.calls.batch_bytes();
    const end = at + this.state().batchBytes;
    while (at < end) {
      const size = view.getUint16(at + 2, true);
      yield {
        code: view.getUint16(at, true),
        isBandInterval: view.getUint8(at + 4) !== 0,
        isWhole: view.getUint8(at + 5) !== 0,
        isShort: view.getUint8(at + 6) !== 0,
        offset: view.getInt32(at + 8, true),
        at: at + headSize,
      };
      at += headSize + size;
    }
  }

  why(): string {
    return this.text(this.calls.walk_why());
  }

  /** All that the library knows now is in this memory, which has whole blocks. */
  memory(blockSize: number): Uint8Array {
    const blocks = Math.ceil(this.calls.memory_top() / blockSize);
    return new Uint8Array(this.buffer, 0, blocks * blockSize);
  }
  /** Where batches stand in it. */
  get batchRoom(): { from: number; to: number } {
    const from = this.calls.batch_bytes();
    return { from, to: from + this.calls.batch_room() };
  }

  close(): void {
    this.calls.close_walk();
    this.source.close();
  }
}
