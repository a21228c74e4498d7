// The worker of one file: answers one question after the other.
import { Measurement } from "./measurement.js";
import type { Answer, Question } from "./protocol.js";

const post = (answer: Answer): void => self.postMessage(answer);
let measurement: Measurement | undefined;

function teller(id: number): (progress: number) => void {
  const interval = 50;
  let last = performance.now();
  return (progress) => {
    if (performance.now() - last < interval) return;
    last = performance.now();
    post({ id, progress });
  };
}

async function answer(question: Question): Promise<unknown> {
  const tell = teller(question.id);
  if (question.name === "open") {
    const opened = await Measurement.open(question.ask.file, question.ask.tz, tell);
    measurement = opened.it;
    return opened.told;
  }
  if (measurement === undefined) throw new Error("no file is open");
  switch (question.name) {
    case "series":
      return measurement.takeSeries(question.ask, tell);
    case "window": {
      const { from, to, most } = question.ask;
      return measurement.series.window(from, to, most);
    }
    case "filter": {
      const { kind, filter } = question.ask;
      return measurement.countOf(kind, filter, tell);
    }
    case "rows": {
      const { kind, filter, from, count } = question.ask;
      return measurement.rows(kind, filter, from, count);
    }
    case "download": {
      const { kind, filter, format } = question.ask;
      return measurement.download(kind, filter, format, tell);
    }
  }
}

let turn = Promise.resolve();
self.addEventListener("message", (event: MessageEvent<Question>) => {
  const question = event.data;
  turn = turn.then(async () => {
    try {
      post({ id: question.id, give: await answer(question) });
    } catch (error) {
      post({ id: question.id, fault: error instanceof Error ? error.message : String(error) });
    }
  });
});
