// Asks the worker of a file, as promises.
import FileWorker from "./worker.ts?worker&inline";
import type { Answer, Cancel, Question, RequestName, Requests } from "./protocol.js";
import { texts } from "./texts.js";

const patience = 1000; // milliseconds that a worker has to hear that its work was cancelled

/** What was asked for is not wanted any more. */
export class Cancelled extends Error {}

interface Waiting {
  resolve: (value: never) => void;
  reject: (fault: Error) => void;
  progress: ((share: number) => void) | undefined;
}

export class FileAsker {
  private readonly worker = new FileWorker();
  private readonly waiting = new Map<number, Waiting>();
  private last = 0;

  /** onStuck: the worker did not hear a Cancel, and was ended. */
  constructor(private readonly onStuck: () => void) {
    this.worker.onmessage = (event: MessageEvent<Answer>) => this.take(event.data);
    this.worker.onerror = (event) => this.end(new Error(event.message));
  }

  private take(answer: Answer): void {
    const one = this.waiting.get(answer.id);
    if (one === undefined) return;
    if ("progress" in answer) {
      one.progress?.(answer.progress);
      return;
    }
    this.waiting.delete(answer.id);
    if ("fault" in answer) one.reject(new Error(answer.fault));
    else if ("cancelled" in answer) one.reject(new Cancelled(texts.cancelled));
    else one.resolve(answer.give as never);
  }

  private post(message: Question | Cancel): void {
    this.worker.postMessage(message);
  }

  ask<N extends RequestName>(
    name: N,
    ask: Requests[N]["ask"],
    progress?: (share: number) => void,
    signal?: AbortSignal,
  ): Promise<Requests[N]["give"]> {
    if (signal?.aborted === true) return Promise.reject(new Cancelled(texts.cancelled));
    const id = ++this.last;
    signal?.addEventListener("abort", () => this.cancel(id), { once: true });
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { resolve, reject, progress });
      this.post({ id, name, ask } as Question);
    });
  }

  private cancel(id: number): void {
    if (!this.waiting.has(id)) return;
    this.post({ cancel: id });
    setTimeout(() => {
      if (!this.waiting.has(id)) return;
      this.end(new Cancelled(texts.cancelled));
      this.onStuck();
    }, patience);
  }

  /** Stops all that it does. What was read stays. */
  cancelAll(): void {
    for (const id of this.waiting.keys()) this.cancel(id);
  }

  /** Ends the worker, whatever it does. */
  end(why: Error): void {
    this.worker.terminate();
    for (const one of this.waiting.values()) one.reject(why);
    this.waiting.clear();
  }
}
