// Asks the worker of a file, as promises.
import FileWorker from "./worker.ts?worker&inline";
import type { Answer, RequestName, Requests } from "./protocol.js";

interface Waiting {
  resolve: (value: never) => void;
  reject: (fault: Error) => void;
  progress: ((share: number) => void) | undefined;
}

export class FileAsker {
  private readonly worker = new FileWorker();
  private readonly waiting = new Map<number, Waiting>();
  private last = 0;

  constructor() {
    this.worker.onmessage = (event: MessageEvent<Answer>) => {
      const answer = event.data;
      const one = this.waiting.get(answer.id);
      if (one === undefined) return;
      if ("progress" in answer) {
        one.progress?.(answer.progress);
        return;
      }
      this.waiting.delete(answer.id);
      if ("fault" in answer) one.reject(new Error(answer.fault));
      else one.resolve(answer.give as never);
    };
    this.worker.onerror = (event) => this.end(event.message);
  }

  ask<N extends RequestName>(
    name: N,
    ask: Requests[N]["ask"],
    progress?: (share: number) => void,
  ): Promise<Requests[N]["give"]> {
    const id = ++this.last;
    return new Promise((resolve, reject) => {
      this.waiting.set(id, { resolve, reject, progress });
      this.worker.postMessage({ id, name, ask });
    });
  }

  /** Stops whatever it does, at once. */
  end(why: string): void {
    this.worker.terminate();
    for (const one of this.waiting.values()) one.reject(new Error(why));
    this.waiting.clear();
  }
}
