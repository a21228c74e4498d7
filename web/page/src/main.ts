import "uplot/dist/uPlot.min.css";
import "./style.css";
import { clockZone } from "./clock_text.js";
import { element, labelled } from "./elements.js";
import { FilePanel } from "./file_panel.js";
import { texts } from "./texts.js";

const panels = new Set<FilePanel>();
const list = element("div", { class: "files" });
const input = element("input", { type: "file", multiple: true });
let tz = clockZone;

function openFiles(files: Iterable<File>): void {
  for (const file of files) {
    const panel = new FilePanel(file, tz, (closed) => {
      closed.root.remove();
      panels.delete(closed);
      input.focus(); // what had it is gone
    });
    panels.add(panel);
    list.append(panel.root);
    void panel.open(tz);
  }
}

function reopen(): void {
  for (const panel of panels) void panel.open(tz);
}

function recolour(): void {
  for (const panel of panels) panel.recolour();
}

function zoneChoice(): HTMLElement {
  const zones = Intl.supportedValuesOf("timeZone").filter((zone) => zone !== clockZone);
  const choice = element(
    "select",
    {},
    element("option", { value: clockZone }, texts.clock),
    ...zones.map((zone) => element("option", {}, zone)),
  );
  choice.addEventListener("change", () => {
    tz = choice.value;
    reopen();
  });
  return labelled(texts.zone, choice);
}

function themeChoice(): HTMLElement {
  const choice = element(
    "select",
    {},
    ...Object.entries(texts.themes).map(([value, text]) => element("option", { value }, text)),
  );
  choice.addEventListener("change", () => {
    document.documentElement.dataset["theme"] = choice.value;
    recolour();
  });
  return labelled(texts.theme, choice);
}

function fileChoice(): HTMLElement {
  input.addEventListener("change", () => {
    openFiles([...(input.files ?? [])]);
    input.value = "";
  });
  return element(
    "div",
    { class: "drop" },
    element("p", {}, texts.drop),
    element("label", { class: "choose" }, texts.choose, input),
    element("p", { class: "hint" }, texts.stays),
  );
}

function takeDrops(): void {
  addEventListener("dragover", (event) => {
    event.preventDefault();
    document.body.classList.add("over");
  });
  addEventListener("dragleave", () => document.body.classList.remove("over"));
  addEventListener("drop", (event) => {
    event.preventDefault();
    document.body.classList.remove("over");
    openFiles([...(event.dataTransfer?.files ?? [])]);
  });
}

document.title = texts.title;
document.body.append(
  element(
    "header",
    { class: "top" },
    element("h1", {}, texts.title),
    element("div", { class: "tools" }, zoneChoice(), themeChoice()),
  ),
  element("main", {}, fileChoice(), list),
);
takeDrops();
matchMedia("(prefers-color-scheme: dark)").addEventListener("change", recolour);
