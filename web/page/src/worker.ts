// The worker of one file: answers one question after the other, unless it is cancelled.
import { Measurement, type Job } from "./measurement.js";
import type { Answer, Cancel, Question } from "./protocol.js";

const post = (answer: Answer): void => self.postMessage(answer);
let measurement: Measurement | undefined;
const open = new Set<number>(); // questions that an answer is awaited for

const turns = new MessageChannel();
/** Lets the messages in that have come. */
function giveWay(): Promise<void> {
  return new Promise((resolve) => {
    turns.port1.onmessage = () => resolve();
    turns.port2.postMessage(undefined);
  });
}

function jobOf(id: number): Job {
  const interval = 25;
  let last = performance.now();
  return {
    async turn(progress) {
      if (performance.now() - last < interval) return;
      post({ id, progress });
      await giveWay();
      if (!open.has(id)) throw new Error("cancelled");
      last = performance.now();
    },
  };
}

async function answer(question: Question): Promise<unknown> {
  const job = jobOf(question.id);
  if (question.name === "open") {
    const opened = await Measurement.open(question.ask.file, question.ask.tz, job);
    measurement = opened.it;
    return opened.told;
  }
  if (measurement === undefined) throw new Error("no file is open");
  switch (question.name) {
    case "series":
      return measurement.takeSeries(question.ask, job);
    case "window":
      return measurement.window(question.ask);
    case "finerWindow":
      return measurement.finerWindow(question.ask, job);
    case "filter":
      return measurement.countOf(question.ask.kind, question.ask.filter, job);
    case "rows":
      return measurement.rows(question.ask, job);
    case "download":
      return measurement.download(question.ask, job);
  }
}

let turn = Promise.resolve();
self.addEventListener("message", ({ data }: MessageEvent<Question | Cancel>) => {
  if ("cancel" in data) {
    if (open.delete(data.cancel)) post({ id: data.cancel, cancelled: true });
    return;
  }
  const { id } = data;
  open.add(id);
  turn = turn.then(async () => {
    if (!open.has(id)) return;
    try {
      const give = await answer(data);
      if (open.delete(id)) post({ id, give });
    } catch (error) {
      const fault = error instanceof Error ? error.message : String(error);
      if (open.delete(id)) post({ id, fault });
    }
  });
});
