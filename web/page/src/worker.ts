// The worker of one file: answers one question after the other.
import { Measurement } from "./measurement.js";
import type { Answer, Question, RequestName, Requests } from "./protocol.js";

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

async function answer({ id, name, ask }: Question): Promise<unknown> {
  const asked = <N extends RequestName>(_: N): Requests[N]["ask"] => ask as Requests[N]["ask"];
  const tell = teller(id);
  if (name === "open") {
    const { file, tz } = asked(name);
    const opened = await Measurement.open(file, tz, tell);
    measurement = opened.it;
    return opened.told;
  }
  if (measurement === undefined) throw new Error("no file is open");
  switch (name) {
    case "series":
      return measurement.takeSeries(asked(name), tell);
    case "window": {
      const { from, to, most } = asked(name);
      return measurement.series.window(from, to, most);
    }
    case "filter": {
      const { kind, filter } = asked(name);
      return measurement.countOf(kind, filter, tell);
    }
    case "rows": {
      const { kind, filter, from, count } = asked(name);
      return measurement.rows(kind, filter, from, count);
    }
    case "download": {
      const { kind, filter, format } = asked(name);
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
