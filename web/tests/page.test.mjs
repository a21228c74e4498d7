// The page in Chromium against what qvslm gives of the same files.
import assert from "node:assert/strict";
import { readdirSync, readFileSync, writeFileSync, mkdtempSync, rmSync } from "node:fs";
import { spawnSync } from "node:child_process";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { after, before, test } from "node:test";

import { csvCells } from "./csv_cells.mjs";
import { dump, qvslm, root, samples, samplesFolder } from "./native.mjs";
import { choose, drop, factsOf, kindsOf, openPage, panelOf, startBrowser } from "./page.mjs";

const night = samplesFolder + "night_europe.qvd";
let browser;
let folder;

before(async () => {
  browser = await startBrowser();
  folder = mkdtempSync(tmpdir() + "/page-");
});
after(async () => {
  await browser.close();
  rmSync(folder, { recursive: true });
});

function changed(name, change) {
  const path = `${folder}/${name}`;
  writeFileSync(path, change(readFileSync(night)));
  return path;
}

function countsOf(records) {
  const counts = {};
  for (const { record } of records) counts[record] = (counts[record] ?? 0) + 1;
  return counts;
}

test("every sample at once: what it is, and how many records of each kind", async () => {
  const { page, context, requests, faults } = await openPage(browser);
  await choose(page, samples.map((name) => samplesFolder + name));
  for (const name of samples) {
    const panel = await panelOf(page, name);
    await panel.locator(".records").waitFor();
    const native = dump(samplesFolder + name);
    assert.deepEqual(await kindsOf(panel), countsOf(native.records), name);
    const facts = await factsOf(panel);
    const told = qvslm(["info", samplesFolder + name]).lines;
    const line = (label) =>
      told.find((one) => one.startsWith(`  ${label} `))?.slice(15).trim().replace("T", " ").replace("+00:00", "");
    assert.equal(facts["Model"], line("model"), name);
    assert.equal(facts["Serial number"], line("serial"), name);
    assert.equal(facts["Start"], line("start"), name);
    assert.equal(facts["Last record"], line("last record"), name);
    assert.equal(facts["Records"].replaceAll(",", ""), String(native.records.length), name);
    assert.equal(await panel.locator(".summary p").textContent(), "The file is whole.", name);
  }
  assert.deepEqual(faults, []);
  assert.ok(requests.every((address) => /^(file|blob):/.test(address)));
  await context.close();
});

test("rows of a table hold what dump gives, in a zone", async () => {
  const { page, context } = await openPage(browser);
  await page.getByLabel("Time zone").selectOption("Europe/Berlin");
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  const expected = dump(night, "Europe/Berlin", ["--records", "Interval"]).records;
  const rows = panel.locator('.table .body [role="row"]');
  await rows.first().waitFor();
  const heads = await panel.locator('.table [role="columnheader"]').allTextContents();
  for (const i of [0, 5]) {
    const cells = await rows.nth(i).locator('[role="gridcell"]').allTextContents();
    const cell = (name) => cells[heads.findIndex((head) => head.split(" ")[0] === name)];
    const local = expected[i].RecordTimeLocal;
    assert.equal(cell("RecordTime"), `${local.slice(0, 19).replace("T", " ")} ${local.slice(19)}`);
    assert.equal(Number(cell("LevelA")), Math.round(expected[i].LevelA * 100) / 100);
    assert.equal(cell("RecordIndex"), String(expected[i].RecordIndex));
  }
  assert.match(await panel.locator(".rows").textContent(), /^48 records$/);
  assert.ok(heads.includes("LevelA (dB)"));
  const hint = await panel.getByRole("columnheader", { name: "RecordTime", exact: true }).getAttribute("title");
  assert.equal(hint, "time: start of the interval");
  await context.close();
});

test("the table by keyboard, and a record in full", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator('.table .body [role="row"]').first().waitFor();
  await panel.locator(".table").focus();
  await page.keyboard.press("End");
  const last = panel.locator('.table [aria-selected="true"]');
  await last.waitFor();
  assert.equal(await last.getAttribute("aria-rowindex"), "49");
  const index = panel.locator(".fields dl > div").filter({ hasText: "RecordIndex" }).locator("dd").first();
  assert.equal(await index.textContent(), "48");
  await context.close();
});

test("a filter by time", async () => {
  const { page, context } = await openPage(browser);
  await page.getByLabel("Time zone").selectOption("Europe/Berlin");
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator('.table .body [role="row"]').first().waitFor();
  await panel.getByLabel("From", { exact: true }).fill("2024-10-26T23:00:00");
  await panel.getByLabel("To", { exact: true }).fill("2024-10-27T00:59:59");
  await panel.getByRole("button", { name: "Filter" }).click();
  // Ten minutes each.
  await panel.getByText("12 records", { exact: true }).waitFor();
  const first = panel.locator('.table .body [role="row"]').first();
  await first.waitFor();
  assert.match(await first.textContent(), /^2024-10-26 23:00:00/);
  await panel.getByRole("button", { name: "Clear" }).click();
  await panel.getByText("48 records", { exact: true }).waitFor();
  await context.close();
});

test("downloads hold what dump gives", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator('.table .body [role="row"]').first().waitFor();
  const download = async (name) => {
    const coming = page.waitForEvent("download");
    await panel.getByRole("button", { name }).click();
    const saved = await coming;
    return { name: saved.suggestedFilename(), text: readFileSync(await saved.path(), "utf8") };
  };
  const expected = dump(night, "UTC", ["--records", "Interval"]).records;
  const lines = await download("Download JSON lines");
  assert.equal(lines.name, "night_europe_Interval.jsonl");
  assert.deepEqual(lines.text.trimEnd().split("\n").map((line) => JSON.parse(line)), expected);

  const csv = await download("Download CSV");
  assert.equal(csv.name, "night_europe_Interval.csv");
  const [heads, ...rows] = csvCells(csv.text);
  assert.equal(rows.length, expected.length);
  rows.forEach((row, i) => {
    assert.equal(row.length, heads.length);
    assert.equal(Number(row[heads.indexOf("LevelA")]), expected[i].LevelA);
    assert.equal(row[heads.indexOf("RecordTimeLocal")], expected[i].RecordTimeLocal);
    assert.equal(Number(row[heads.indexOf("Samples[0]")]), expected[i].Samples[0]);
  });
  await context.close();
});

test("spectra and distributions as bars", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [samplesFolder + "bands_general.qvd", samplesFolder + "general_short_term.qvd"]);
  const bands = await panelOf(page, "bands_general.qvd");
  await bands.getByLabel("Kind").selectOption("IntervalBands");
  await bands.locator('.table[aria-label="IntervalBands"] .body .row').first().click();
  const expected = dump(samplesFolder + "bands_general.qvd", "UTC", ["--records", "IntervalBands"]).records[0];
  const bars = bands.locator("figure").first().locator("rect title");
  await bars.first().waitFor({ state: "attached" });
  const said = await bars.allTextContents();
  assert.ok(said.length > 6);
  said.forEach((text, i) => assert.equal(text, `${i + 1}: ${expected.BandsA[i]}`));

  const summaries = dump(samplesFolder + "general_short_term.qvd", "UTC", ["--records", "Summary"]).records;
  const at = summaries.findIndex((record) => record.DistributionPresent === 1);
  assert.ok(at >= 0);
  const short = await panelOf(page, "general_short_term.qvd");
  await short.getByLabel("Kind").selectOption("Summary");
  await short.locator('.table[aria-label="Summary"] .body .row').nth(at).click();
  const chart = short.locator("figure").filter({ hasText: "Level distribution" });
  await chart.waitFor();
  const bytes = summaries[at].Distribution;
  const most = Math.max(
    ...Array.from({ length: 127 }, (_, k) => bytes[3 + 3 * k] * 65536 + bytes[4 + 3 * k] * 256 + bytes[5 + 3 * k]),
  );
  assert.ok((await chart.locator("rect title").allTextContents()).some((text) => text.endsWith(`dB: ${most}`)));
  await context.close();
});

test("zoom and pan of levels, and the value under the pointer", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  const plot = panel.locator(".plot");
  await plot.locator("canvas").waitFor();
  const view = async () => {
    await page.waitForTimeout(100);
    const { from, to } = await plot.evaluate((one) => ({ ...one.dataset }));
    return { from: Number(from), to: Number(to) };
  };
  const all = await view();
  const intervals = dump(night, "UTC", ["--records", "Interval"]).records;
  assert.equal(all.from, intervals[0].RecordTime);
  assert.equal(all.to, intervals.at(-1).RecordTime);
  await plot.focus();
  await page.keyboard.press("+");
  const near = await view();
  assert.ok(Math.abs((near.to - near.from) / (all.to - all.from) - 0.6) < 0.01);
  await page.keyboard.press("ArrowLeft");
  const left = await view();
  assert.ok(left.from < near.from && Math.abs(left.to - left.from - (near.to - near.from)) < 1);
  await page.keyboard.press("0");
  assert.deepEqual(await view(), all);

  await page.keyboard.press("+");
  assert.notDeepEqual(await view(), all);
  await plot.locator(".u-over").dblclick();
  assert.deepEqual(await view(), all);

  const box = await plot.locator(".u-over").boundingBox();
  await page.mouse.move(box.x + box.width / 2, box.y + 20);
  await page.mouse.down();
  await page.mouse.move(box.x + box.width - 5, box.y + 20, { steps: 4 });
  await page.mouse.up();
  const dragged = await view();
  assert.ok(dragged.from > all.from && dragged.to <= all.to);
  await page.keyboard.press("0");
  await page.mouse.move(box.x + 1, box.y + 20);
  const reading = await panel.locator(".reading").textContent();
  assert.equal(reading, `2024-10-26 22:00:00   ${intervals[0].LevelA.toFixed(1)} dB`);
  await context.close();
});

test("a title with markup stays text", async () => {
  const { page, context, faults } = await openPage(browser);
  const title = "<img src=x o>";
  const path = changed("markup.qvd", (bytes) =>
    Buffer.from(bytes.toString("latin1").replaceAll("Traffic noise", title), "latin1"),
  );
  await choose(page, [path]);
  const panel = await panelOf(page, "markup.qvd");
  assert.ok((await factsOf(panel))["Titles"].startsWith(title));
  assert.equal(await page.locator("img").count(), 0);
  assert.deepEqual(faults, []);
  await context.close();
});

test("a broken file tells where it ends, and no file what it is not", async () => {
  const { page, context, faults } = await openPage(browser);
  const cut = changed("cut.qvd", (bytes) => bytes.subarray(0, bytes.length - 700));
  const noise = changed("noise.qvd", () => Buffer.from("no measurement at all\n".repeat(400)));
  const empty = changed("empty.qvd", () => Buffer.alloc(0));
  await choose(page, [cut, noise, empty]);
  const panel = await panelOf(page, "cut.qvd");
  const told = await panel.locator(".summary p").textContent();
  const native = dump(cut);
  const place = /at byte (\d+)/.exec(native.errors)[1];
  assert.ok(told.startsWith(`The file is not whole: at byte ${place}: `), told);
  assert.deepEqual(await kindsOf(panel), countsOf(native.records));
  for (const name of ["noise.qvd", "empty.qvd"]) {
    const other = await panelOf(page, name);
    assert.match(await other.locator(".summary p").textContent(), /^This file cannot be read: /);
  }
  assert.deepEqual(faults, []);
  await context.close();
});

test("files are dropped", async () => {
  const { page, context } = await openPage(browser);
  const names = ["night_america.qvd", "model442_tally.qvd"];
  const text = (name) => readFileSync(samplesFolder + name).toString("base64");
  await drop(page, names.map((name) => ({ name, text: text(name) })));
  for (const name of names) {
    const panel = await panelOf(page, name);
    await panel.locator(".records").waitFor();
    assert.deepEqual(await kindsOf(panel), countsOf(dump(samplesFolder + name).records));
  }
  await page.getByRole("button", { name: "Close night_america.qvd" }).click();
  assert.equal(await page.locator("section.file").count(), 1);
  await context.close();
});

test("nothing leaves the page", async () => {
  const { page, context } = await openPage(browser);
  const went = await page.evaluate(() =>
    fetch("http://127.0.0.1:9/").then(
      () => "went",
      (fault) => fault.message,
    ),
  );
  assert.equal(went, "Failed to fetch");
  const policy = await page.locator('meta[http-equiv="Content-Security-Policy"]').getAttribute("content");
  assert.match(policy, /^default-src 'none'; script-src 'sha256-[^ ]+' 'wasm-unsafe-eval'; style-src 'sha256-[^ ]+'; worker-src blob:; base-uri 'none'; form-action 'none'$/);
  await context.close();
});

for (const colorScheme of ["light", "dark"]) {
  test(`axe-core finds nothing, ${colorScheme}, in a window and at phone width`, async () => {
    const axe = readFileSync(createRequire(import.meta.url).resolve("axe-core/axe.min.js"), "utf8");
    for (const viewport of [{ width: 1280, height: 900 }, { width: 390, height: 844 }]) {
      const { page, context } = await openPage(browser, { colorScheme, viewport });
      await choose(page, [night, changed("cut.qvd", (bytes) => bytes.subarray(0, bytes.length - 700))]);
      const panel = await panelOf(page, "night_europe.qvd");
      await panel.locator(".table .body .row").first().click();
      await panel.locator(".fields").waitFor();
      await page.evaluate(axe);
      const { violations } = await page.evaluate(() => globalThis.axe.run());
      const told = violations.map(({ id, nodes }) => `${id}: ${nodes.map((one) => one.html).join(" ").slice(0, 400)}`);
      assert.deepEqual(told, []);
      const wide = await page.evaluate(() => document.documentElement.scrollWidth - innerWidth);
      assert.ok(wide <= 0, `wider than the window by ${wide}`);
      await context.close();
    }
  });
}

// Memory that the processes of the browser have for themselves, in MB.
function browserMemory() {
  const parents = new Map();
  for (const pid of readdirSync("/proc").filter((name) => /^[0-9]+$/.test(name))) {
    try {
      const stat = readFileSync(`/proc/${pid}/stat`, "latin1");
      parents.set(pid, stat.slice(stat.lastIndexOf(")") + 2).split(" ")[1]);
    } catch {
      // It has ended.
    }
  }
  const isOurs = (pid) => pid !== undefined && (parents.get(pid) === String(process.pid) || isOurs(parents.get(pid)));
  let kilobytes = 0;
  for (const pid of parents.keys()) {
    if (!isOurs(pid)) continue;
    try {
      const rollup = readFileSync(`/proc/${pid}/smaps_rollup`, "latin1");
      kilobytes += Number(/^Pss:\s+(\d+)/m.exec(rollup)[1]);
    } catch {
      // It has ended.
    }
  }
  return kilobytes / 1024;
}

test("a file of 300 MB in bounded memory, with a page that answers", async () => {
  const path = `${folder}/large.qvd`;
  assert.equal(spawnSync(root + "build/release/samples/write_bulk", [path, "300000000"]).status, 0);
  const { page, context, faults } = await openPage(browser);
  const before = browserMemory();
  let most = 0;
  const watch = setInterval(() => (most = Math.max(most, browserMemory())), 300);
  await choose(page, [path]);
  const panel = await panelOf(page, "large.qvd");
  await panel.locator(".plot canvas").waitFor({ timeout: 60_000 });
  clearInterval(watch);
  most = Math.max(most, browserMemory());
  console.log(`# ${(most - before).toFixed(0)} MB for a file of 300 MB`);
  // Less than the file: 24 bytes a sample while the series is made, and the places to go on from.
  assert.ok(most - before < 600, `${most - before} MB`);

  // The last row of the longest list, and the page while it is looked for.
  const kinds = await kindsOf(panel);
  const [name, count] = Object.entries(kinds).reduce((a, b) => (a[1] > b[1] ? a : b));
  assert.ok(count > 1_000_000);
  await panel.getByLabel("Kind").selectOption(name);
  const table = panel.locator(`.table[aria-label="${name}"]`);
  await table.locator(".body .row").first().waitFor();
  await table.focus();
  await page.keyboard.press("End");
  const last = table.locator('[aria-selected="true"]');
  await last.waitFor();
  assert.equal(await last.getAttribute("aria-rowindex"), String(count + 1));
  assert.deepEqual(faults, []);
  await context.close();
});

test("long work can be cancelled", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [`${folder}/large.qvd`]);
  await page.getByRole("button", { name: "Cancel" }).click();
  await page.getByText("Cancelled.").waitFor();
  await context.close();
});

test("the page is one file of at most 1.5 MB", () => {
  const files = readdirSync(root + "web/dist");
  assert.deepEqual(files, ["index.html"]);
  assert.ok(readFileSync(root + "web/dist/index.html").length <= 1_500_000);
});
