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
  private ended: Error | undefined;

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
    if (this.ended !== undefined) return Promise.reject(this.ended);
    const id = ++this.last;
    const onAbort = (): void => this.cancel(id);
    signal?.addEventListener("abort", onAbort);
    const answer = new Promise<Requests[N]["give"]>((resolve, reject) => {
      this.waiting.set(id, { resolve, reject, progress });
      this.post({ id, name, ask } as Question);
    });
    return answer.finally(() => signal?.removeEventListener("abort", onAbort));
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

  /** Stops all work that tells how far it is. What was read stays. */
  cancelAll(): void {
    for (const [id, { progress }] of this.waiting) if (progress !== undefined) this.cancel(id);
  }

  /** Ends the worker, whatever it does, and all that is asked of it later. */
  end(why: Error): void {
    this.ended = why;
    this.worker.terminate();
    for (const one of this.waiting.values()) one.reject(why);
    this.waiting.clear();
  }
}
