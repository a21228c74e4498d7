// Where the bytes of a file come from. The library reads synchronously, piece by piece.

export interface ByteSource {
  readonly name: string;
  readonly size: number;
  /** Copies bytes from an offset on; fewer than the target takes only at the end. */
  read(target: Uint8Array, offset: number): number;
  close(): void;
}

export type Source = string | URL | Blob | ArrayBuffer | Uint8Array;

function bytesSource(name: string, bytes: Uint8Array): ByteSource {
  return {
    name,
    size: bytes.length,
    read(target, offset) {
      const piece = bytes.subarray(offset, offset + target.length);
      target.set(piece);
      return piece.length;
    },
    close() {},
  };
}

declare class FileReaderSync {
  readAsArrayBuffer(blob: Blob): ArrayBuffer;
}

const pieceSize = 1 << 22;
const pieces = 4;

// A file in a worker, by pieces of 4 MB, of which the ones used last are kept.
function blobSource(name: string, blob: Blob): ByteSource {
  const reader = new FileReaderSync();
  const kept: { at: number; bytes: Uint8Array }[] = [];
  function piece(at: number): Uint8Array {
    const index = kept.findIndex((one) => one.at === at);
    let found = index < 0 ? undefined : kept.splice(index, 1)[0];
    if (found === undefined) {
      const slice = blob.slice(at * pieceSize, (at + 1) * pieceSize);
      found = { at, bytes: new Uint8Array(reader.readAsArrayBuffer(slice)) };
    }
    kept.unshift(found);
    if (kept.length > pieces) kept.pop();
    return found.bytes;
  }
  return {
    name,
    size: blob.size,
    read(target, offset) {
      let done = 0;
      while (done < target.length && offset + done < blob.size) {
        const at = Math.floor((offset + done) / pieceSize);
        const from = offset + done - at * pieceSize;
        const part = piece(at).subarray(from, from + target.length - done);
        if (part.length === 0) break;
        target.set(part, done);
        done += part.length;
      }
      return done;
    },
    close() {
      kept.length = 0;
    },
  };
}

async function pathSource(path: string | URL): Promise<ByteSource> {
  const module = "node:fs";
  const fs = (await import(/* @vite-ignore */ module)) as typeof import("node:fs");
  const descriptor = fs.openSync(path, "r");
  const text = typeof path === "string" ? path : decodeURIComponent(path.pathname);
  return {
    name: text,
    size: fs.fstatSync(descriptor).size,
    read: (target, offset) => fs.readSync(descriptor, target, 0, target.length, offset),
    close: () => fs.closeSync(descriptor),
  };
}

/**
 * Opens a source. A File or Blob is read by pieces in a worker of a browser; elsewhere, where it
 * cannot be read synchronously, as a whole. A path is one of Node.
 */
export async function openSource(source: Source): Promise<ByteSource> {
  if (typeof source === "string" || source instanceof URL) return pathSource(source);
  if (source instanceof Uint8Array) return bytesSource("", source);
  if (source instanceof ArrayBuffer) return bytesSource("", new Uint8Array(source));
  const name = "name" in source && typeof source.name === "string" ? source.name : "";
  if (typeof FileReaderSync !== "undefined") return blobSource(name, source);
  return bytesSource(name, new Uint8Array(await source.arrayBuffer()));
}
