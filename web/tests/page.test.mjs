// The page in Chromium against what qvslm gives of the same files.
import assert from "node:assert/strict";
import { readdirSync, readFileSync, writeFileSync, mkdtempSync, rmSync, truncateSync } from "node:fs";
import { spawnSync } from "node:child_process";
import { createRequire } from "node:module";
import { tmpdir } from "node:os";
import { after, before, test } from "node:test";

import { build } from "vite";

import { Core, goesOn } from "../package/dist/core.js";
import { openSource } from "../package/dist/source.js";
import { zoneOf } from "../package/dist/zone.js";
import { watchMemory } from "./browser_memory.mjs";
import { csvCells } from "./csv_cells.mjs";
import { dump, qvslm, root, samples, samplesFolder } from "./native.mjs";
import { choose, collectGarbage, drop, factsOf, kindsOf, openPage, panelOf, startBrowser } from "./page.mjs";

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
    assert.equal(cell("EndTime").slice(0, 19), expected[i].EndTimeLocal.slice(0, 19).replace("T", " "));
  }
  assert.match(await panel.locator(".rows").textContent(), /^48 records$/);
  assert.ok(heads.includes("LevelA (dB)"));
  const hint = await panel.getByRole("columnheader", { name: "RecordTime", exact: true }).getAttribute("title");
  assert.equal(hint, "time: start of the interval");
  await context.close();
});

test("all fields of a kind that are no arrays are columns, of which those in view exist", async () => {
  const { page, context } = await openPage(browser, { viewport: { width: 1280, height: 900 } });
  const name = "general_blocks.qvd";
  await choose(page, [samplesFolder + name]);
  const panel = await panelOf(page, name);
  await panel.getByLabel("Kind").selectOption("Results");
  const table = panel.locator('.table[aria-label="Results"]');
  await table.locator(".body .row").first().waitFor();
  const record = dump(samplesFolder + name, "UTC", ["--records", "Results"]).records[0];
  const names = Object.keys(record).filter(
    (key) => !Array.isArray(record[key]) && !/^(record|code)$|Local$/.test(key),
  );
  assert.ok(names.length > 100);
  assert.equal(await table.getAttribute("aria-colcount"), String(names.length));

  const read = () =>
    table.evaluate((one) => {
      const cells = (row) =>
        [...row.children].map((cell) => [Number(cell.getAttribute("aria-colindex")), cell.textContent]);
      const times = one.querySelector(".body .pinned").getBoundingClientRect();
      return {
        heads: cells(one.querySelector(".head .row")),
        values: cells(one.querySelector(".body .row")),
        times: times.left - one.getBoundingClientRect().left,
      };
    });
  const heads = new Map();
  const values = new Map();
  await table.focus();
  for (let i = 0; i < names.length; ++i) {
    const seen = await read();
    assert.ok(seen.heads.length < 30, `${seen.heads.length} columns at once`);
    assert.deepEqual(seen.heads.map(([index]) => index), seen.values.map(([index]) => index));
    assert.ok(seen.times >= 0 && seen.times < 4, "times stay at the left");
    for (const [index, text] of seen.heads) heads.set(index, text.split(" ")[0]);
    for (const [index, text] of seen.values) values.set(heads.get(index), text);
    await page.keyboard.press("ArrowRight");
    await page.waitForTimeout(20);
  }
  assert.deepEqual([...heads.values()].sort(), names.sort());
  for (const key of names) {
    const expected = record[key];
    const local = record[`${key}Local`];
    const shown = values.get(key);
    if (local !== undefined) {
      assert.equal(shown, local?.slice(0, 19).replace("T", " ") ?? "–", key);
    } else if (typeof expected === "number") {
      assert.ok(Math.abs(Number(shown) - expected) <= 0.005, `${key}: ${shown} for ${expected}`);
    } else {
      assert.equal(shown, expected ?? "–", key);
    }
  }
  const far = await table.evaluate((one) => one.scrollLeft);
  await page.keyboard.press("ArrowLeft");
  await page.waitForTimeout(50);
  assert.ok((await table.evaluate((one) => one.scrollLeft)) < far);
  await context.close();
});

test("scrolling has one question for rows in flight", async () => {
  const { page, context } = await openPage(browser);
  await page.addInitScript(() => {
    globalThis.told = { asked: 0, most: 0 };
    const open = new Set();
    globalThis.Worker = class extends Worker {
      constructor(...all) {
        super(...all);
        this.addEventListener("message", (event) => open.delete(event.data.id));
      }
      postMessage(question) {
        if (question.name === "rows") {
          ++globalThis.told.asked;
          open.add(question.id);
          globalThis.told.most = Math.max(globalThis.told.most, open.size);
        }
        super.postMessage(question);
      }
    };
  });
  await page.reload();
  const name = "general_day.qvd";
  await choose(page, [samplesFolder + name]);
  const panel = await panelOf(page, name);
  const records = dump(samplesFolder + name).records;
  const [kind, count] = Object.entries(countsOf(records)).reduce((a, b) => (a[1] > b[1] ? a : b));
  assert.ok(count > 500, `${count} ${kind}`);
  await panel.getByLabel("Kind").selectOption(kind);
  const table = panel.locator(`.table[aria-label="${kind}"]`);
  await table.locator(".body .row").first().waitFor();
  await page.evaluate(() => (globalThis.told.most = 0));
  await table.evaluate(async (one) => {
    for (let i = 0; i < 60; ++i) {
      one.scrollTop = ((i * 37) % 60) * 200;
      await new Promise(requestAnimationFrame);
    }
    one.scrollTop = one.scrollHeight;
  });
  const last = table.locator(`[aria-rowindex="${count + 1}"]`);
  await last.waitFor();
  const times = records.filter((record) => record.record === kind);
  const { from, shown } = await table.evaluate((one) => ({
    from: Number(one.querySelector(".body .row").getAttribute("aria-rowindex")) - 2,
    shown: [...one.querySelectorAll(".body .row")].map((row) => row.children[0].textContent),
  }));
  const clock = (record) => record.RecordTimeLocal.slice(0, 19).replace("T", " ");
  assert.deepEqual(shown, times.slice(from).map(clock));
  const told = await page.evaluate(() => globalThis.told);
  assert.equal(told.most, 1);
  assert.ok(told.asked > 3);
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
  const table = panel.locator(".table");
  assert.equal(await table.getAttribute("aria-activedescendant"), await last.getAttribute("id"));
  for (const [key, row] of [["ArrowUp", 48], ["Home", 2], ["ArrowUp", 2], ["ArrowDown", 3], ["End", 49]]) {
    await page.keyboard.press(key);
    await table.locator(`[aria-selected="true"][aria-rowindex="${row}"]`).waitFor();
    assert.ok(await isInView(table), `${key} to ${row}`);
  }
  await page.keyboard.press("Home");
  for (let i = 0; i < 15; ++i) await page.keyboard.press("ArrowDown");
  await table.locator('[aria-selected="true"][aria-rowindex="17"]').waitFor();
  assert.ok(await isInView(table), "down over the foot");
  await page.keyboard.press("End");
  await page.keyboard.press("PageUp");
  await table.locator('[aria-selected="true"]:not([aria-rowindex="49"])').waitFor();
  const paged = 49 - Number(await last.getAttribute("aria-rowindex"));
  assert.ok(paged >= 8 && paged <= 12, `a page of ${paged}`);
  await page.keyboard.press("End");
  await table.locator('[aria-selected="true"][aria-rowindex="49"]').waitFor();
  const index = panel.locator(".fields dl > div").filter({ hasText: "RecordIndex" }).locator("dd").first();
  assert.equal(await index.textContent(), "48");
  await context.close();
});

// Whether the chosen row stands between the head and the foot of its table.
function isInView(table) {
  return table.evaluate(async (one) => {
    await new Promise((resolve) => setTimeout(resolve, 50));
    const row = one.querySelector('[aria-selected="true"]')?.getBoundingClientRect();
    const head = one.querySelector(".head").getBoundingClientRect();
    const foot = one.getBoundingClientRect().top + one.clientTop + one.clientHeight;
    return row !== undefined && row.top >= head.bottom - 1 && row.bottom <= foot + 1;
  });
}

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
  await panel.getByLabel("From", { exact: true }).fill("2030-01-01T00:00:00");
  await page.keyboard.press("Enter");
  await panel.getByText("No record lies within these times.").waitFor();
  assert.equal(await panel.locator(".table").count(), 0);
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
  const rounded = (value) => String(Math.round(value * 100) / 100);
  const range = `${rounded(Math.min(0, ...expected.BandsA))} to ${rounded(Math.max(...expected.BandsA))}`;
  assert.equal(await bands.locator("figcaption .hint").first().textContent(), range);

  const summaries = dump(samplesFolder + "general_short_term.qvd", "UTC", ["--records", "Summary"]).records;
  const at = summaries.findIndex((record) => record.DistributionPresent === 1);
  assert.ok(at >= 0);
  const short = await panelOf(page, "general_short_term.qvd");
  await short.getByLabel("Kind").selectOption("Summary");
  // A single record needs no choice.
  assert.equal(summaries.length, 1);
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

async function plotView(page, plot) {
  await page.waitForTimeout(150);
  const { from, to } = await plot.evaluate((one) => ({ ...one.dataset }));
  return { from: Number(from), to: Number(to), length: to - from };
}

function assertNear(found, expected, tolerance, what) {
  assert.ok(Math.abs(found - expected) <= tolerance, `${what}: ${found}, not ${expected}`);
}

test("levels are moved by a drag with shift and with the middle button", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  const plot = panel.locator(".plot");
  await plot.locator("canvas").waitFor();
  await plot.focus();
  for (const key of ["+", "+", "+"]) await page.keyboard.press(key);
  const box = await plot.locator(".u-over").boundingBox();
  const drag = async (distance, button) => {
    await page.mouse.move(box.x + box.width / 2, box.y + 40);
    await page.mouse.down({ button });
    await page.mouse.move(box.x + box.width / 2 + distance, box.y + 40, { steps: 5 });
    await page.mouse.up({ button });
  };
  let before = await plotView(page, plot);
  for (const [distance, button, shift] of [[100, "left", true], [-60, "middle", false]]) {
    if (shift) await page.keyboard.down("Shift");
    await drag(distance, button);
    if (shift) await page.keyboard.up("Shift");
    const moved = await plotView(page, plot);
    const pixel = before.length / box.width;
    assertNear(moved.length, before.length, pixel, `length after ${button}`);
    assertNear(moved.from, before.from - distance * pixel, 2 * pixel, `start after ${button}`);
    before = moved;
  }
  // At its ends it stops.
  await page.keyboard.down("Shift");
  for (let i = 0; i < 6; ++i) await drag(box.width / 2 - 5, "left");
  await page.keyboard.up("Shift");
  const intervals = dump(night, "UTC", ["--records", "Interval"]).records;
  assert.equal((await plotView(page, plot)).from, intervals[0].RecordTime);
  await context.close();
});

test("levels are moved by a finger and zoomed by two", async () => {
  const { page, context } = await openPage(browser, { viewport: { width: 390, height: 844 }, hasTouch: true });
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  const plot = panel.locator(".plot");
  await plot.locator("canvas").waitFor();
  await plot.scrollIntoViewIfNeeded();
  const box = await plot.locator(".u-over").boundingBox();
  const middle = box.x + box.width / 2;
  const y = box.y + 60;
  const client = await context.newCDPSession(page);
  const touch = (type, ...xs) =>
    client.send("Input.dispatchTouchEvent", { type, touchPoints: xs.map((x, id) => ({ x, y, id })) });
  const all = await plotView(page, plot);

  await touch("touchStart", middle - 30);
  await touch("touchStart", middle - 30, middle + 30);
  for (const half of [40, 50, 60]) await touch("touchMove", middle - half, middle + half);
  await touch("touchEnd");
  const near = await plotView(page, plot);
  const pixel = all.length / box.width;
  assertNear(near.length, all.length / 2, 4 * pixel, "length between two fingers");
  assertNear((near.from + near.to) / 2, (all.from + all.to) / 2, 4 * pixel, "middle between two fingers");

  await touch("touchStart", middle);
  for (const distance of [10, 25, 40]) await touch("touchMove", middle + distance);
  await touch("touchEnd");
  const moved = await plotView(page, plot);
  assertNear(moved.length, near.length, pixel, "length under a finger");
  assertNear(moved.from, near.from - (40 * near.length) / box.width, 2 * pixel, "start under a finger");

  // A swipe along the other axis scrolls the page.
  const swipe = (type, ...ys) =>
    client.send("Input.dispatchTouchEvent", { type, touchPoints: ys.map((at) => ({ x: middle, y: at })) });
  const scrolled = await page.evaluate(() => scrollY);
  await swipe("touchStart", y + 60);
  for (const up of [40, 10, -20, -50]) await swipe("touchMove", y + up);
  await swipe("touchEnd");
  await page.waitForTimeout(200);
  assert.ok((await page.evaluate(() => scrollY)) > scrolled);
  assert.equal((await plotView(page, plot)).from, moved.from);
  await context.close();
});

test("other colours need no second look at the file", async () => {
  const { page, context } = await openPage(browser, { colorScheme: "light" });
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator(".plot canvas").waitFor();
  await panel.locator(".summary").evaluate((one) => (one.dataset.seen = "before"));
  const lineColours = () =>
    panel.locator(".plot canvas").evaluate((canvas) => {
      const { data } = canvas.getContext("2d").getImageData(0, 0, canvas.width, canvas.height);
      const found = new Set();
      for (let i = 0; i < data.length; i += 4) {
        if (data[i + 3] === 255) found.add([data[i], data[i + 1], data[i + 2]].join());
      }
      return [...found];
    });
  const light = "11,92,173";
  const dark = "125,184,245";
  await page.waitForTimeout(200);
  assert.ok((await lineColours()).includes(light));
  await page.getByLabel("Colours").selectOption("dark");
  await page.waitForTimeout(200);
  const found = await lineColours();
  assert.ok(found.includes(dark) && !found.includes(light));
  await page.getByLabel("Colours").selectOption("auto");
  await page.waitForTimeout(200);
  assert.ok((await lineColours()).includes(light));
  await page.emulateMedia({ colorScheme: "dark" });
  await page.waitForTimeout(200);
  assert.ok((await lineColours()).includes(dark));
  assert.equal(await panel.locator(".summary").getAttribute("data-seen"), "before");
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
  assert.equal(await page.evaluate(() => document.activeElement.type), "file");
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

// What a file of 300 MB is tried with.
const large = () => `${folder}/large.qvd`;

async function openLarge(options) {
  const opened = await openPage(browser, options);
  await choose(opened.page, [large()]);
  const panel = await panelOf(opened.page, "large.qvd");
  await panel.locator(".plot canvas").waitFor({ timeout: 60_000 });
  return { ...opened, panel };
}

// The last row of the table of a kind.
async function lastRow(page, panel, kind) {
  const table = panel.locator(`.table[aria-label="${kind}"]`);
  await table.locator(".body .row").first().waitFor({ timeout: 60_000 });
  await table.focus();
  await page.keyboard.press("End");
  const last = table.locator('[aria-selected="true"]');
  await last.waitFor({ timeout: 60_000 });
  return last;
}

test("a file of 300 MB in bounded memory, with a page that answers", async () => {
  assert.equal(spawnSync(root + "build/release/samples/write_bulk", [large(), "300000000"]).status, 0);
  const { page, context, faults } = await openPage(browser);
  await collectGarbage(page);
  const watch = watchMemory();
  await choose(page, [large()]);
  const panel = await panelOf(page, "large.qvd");
  await panel.locator(".table .body .row").first().waitFor();
  assert.equal(await panel.locator(".plot canvas").count(), 0, "rows come before levels");
  await panel.locator(".plot canvas").waitFor({ timeout: 60_000 });
  const most = watch.end().all;
  await collectGarbage(page);
  let kept = watch.now().all;
  for (let i = 0; i < 20 && kept >= 190; ++i) {
    await page.waitForTimeout(500);
    kept = watch.now().all;
  }
  console.log(`# ${most.toFixed(0)} MB at most for a file of 300 MB, ${kept.toFixed(0)} MB kept`);
  assert.ok(most < 400, `${most} MB`);
  assert.ok(kept < 190, `${kept} MB`);

  // The last row of the longest list, and the page while it is looked for.
  const kinds = await kindsOf(panel);
  const [name, count] = Object.entries(kinds).reduce((a, b) => (a[1] > b[1] ? a : b));
  assert.ok(count > 1_000_000);
  await panel.getByLabel("Kind").selectOption(name);
  const table = panel.locator(`.table[aria-label="${name}"]`);
  const last = await lastRow(page, panel, name);
  assert.equal(await last.getAttribute("aria-rowindex"), String(count + 1));
  // By single rows where a pixel of the scroll bar is many of them.
  for (let i = 0; i < 20; ++i) await page.keyboard.press("ArrowUp");
  await table.locator(`[aria-selected="true"][aria-rowindex="${count - 19}"]`).waitFor();
  assert.ok(await isInView(table));
  const steps = [["ArrowUp", count - 20], ["ArrowUp", count - 21], ["Home", 2], ["ArrowDown", 3]];
  for (const [key, row] of steps) {
    await page.keyboard.press(key);
    await table.locator(`[aria-selected="true"][aria-rowindex="${row}"]`).waitFor();
    assert.ok(await isInView(table), `${key} to ${row}`);
  }
  for (let i = 0; i < 30; ++i) await page.keyboard.press("ArrowDown");
  await table.locator('[aria-selected="true"][aria-rowindex="33"]').waitFor();
  assert.ok(await isInView(table));
  await table.evaluate((one) => (one.scrollTop = (one.scrollHeight - one.clientHeight) / 2));
  await page.waitForFunction(
    ([kind, all]) => {
      const row = document.querySelector(`.table[aria-label="${kind}"] .body .row`);
      return row !== null && Math.abs(Number(row.getAttribute("aria-rowindex")) / all - 0.5) < 0.001;
    },
    [name, count],
  );
  assert.deepEqual(faults, []);
  await context.close();
});

test("zoomed into 40 million samples each one is shown", async () => {
  const { page, context, panel, faults } = await openLarge({ viewport: { width: 1280, height: 900 } });
  const plot = panel.locator(".plot");
  assert.ok(Number(await panel.locator(".levels").getAttribute("data-samples")) > 39_000_000);
  await plot.focus();
  const view = async () => {
    const { from, to } = await plot.evaluate((one) => ({ ...one.dataset }));
    return { from: Number(from), to: Number(to) };
  };
  for (let i = 0; i < 60 && !((await view()).to - (await view()).from < 60); ++i) await page.keyboard.press("+");
  const { from, to } = await view();
  assert.ok(to - from < 60);
  const clock = (time) => new Date(time * 1000).toISOString().slice(0, 19);
  const told = dump(large(), "UTC", ["--records", "TimeHistory", "--from", clock(from - 120), "--to", clock(to + 120)]);
  const known = told.records.flatMap((record) => {
    const levels = record.FirstLevels.slice(0, record.EntryCount).filter((level) => level > 0);
    return levels.map((level, i) => ({ time: record.RecordTime + i * record.StreamPeriod, level }));
  });
  const box = await plot.locator(".u-over").boundingBox();
  const reading = panel.locator(".reading");
  // One level, where it is thinned the lowest and the highest of some.
  const isExact = async (x) => {
    await page.mouse.move(box.x + x + 3, box.y + 20);
    await page.mouse.move(box.x + x, box.y + 20);
    return /   [0-9.]+ dB$/.test(await reading.textContent());
  };
  for (let i = 0; i < 100 && !(await isExact(box.width / 2)); ++i) await page.waitForTimeout(100);
  let compared = 0;
  for (const { time, level } of known) {
    const x = ((time - from) / (to - from)) * box.width;
    if (x < 5 || x > box.width - 5) continue;
    assert.ok(await isExact(x));
    assert.match(await reading.textContent(), new RegExp(`   ${level.toFixed(1)} dB$`));
    ++compared;
  }
  assert.ok(compared >= 10, `${compared} samples in view`);
  assert.deepEqual(faults, []);
  await context.close();
});

test("a filter by time far into a long list", async () => {
  const { page, context, panel } = await openLarge();
  const [from, to] = ["2020-06-01T00:00:00", "2022-03-04T05:06:07"];
  await panel.getByLabel("From", { exact: true }).fill(from);
  await panel.getByLabel("To", { exact: true }).fill(to);
  await panel.getByLabel("Kind").selectOption("Event");
  await panel.getByRole("button", { name: "Filter" }).click();
  const expected = dump(large(), "UTC", ["--records", "Event", "--from", from, "--to", "2022-03-04T05:06:08"]).records;
  assert.ok(expected.length > 50_000);
  await panel.getByText(`${expected.length.toLocaleString("en-GB")} records`, { exact: true }).waitFor();
  const last = await lastRow(page, panel, "Event");
  assert.equal(await last.getAttribute("aria-rowindex"), String(expected.length + 1));
  assert.ok((await last.textContent()).startsWith(expected.at(-1).RecordTimeLocal.slice(0, 19).replace("T", " ")));
  const table = panel.locator('.table[aria-label="Event"]');
  const row = (index) => table.locator(`.row[aria-rowindex="${index}"]`);
  await table.evaluate((one) => one.scrollTo(0, (one.scrollHeight - one.clientHeight) / 2));
  const middle = Math.round(expected.length / 2);
  await row(middle + 2).waitFor();
  const time = expected[middle].RecordTimeLocal.slice(0, 19).replace("T", " ");
  assert.ok((await row(middle + 2).textContent()).startsWith(time));
  await context.close();
});

test("a file that was not opened to its end can be opened again", async () => {
  const { page, context } = await openPage(browser);
  const worker = page.waitForEvent("worker");
  await choose(page, [large()]);
  const ended = (await worker).waitForEvent("close");
  await page.getByRole("button", { name: "Cancel" }).click();
  await page.getByText("Cancelled.").waitFor();
  await ended;
  await page.getByRole("button", { name: "Open again" }).click();
  const panel = await panelOf(page, "large.qvd");
  await panel.locator(".records").waitFor();
  await context.close();
});

// Writes down what the page asks its workers from now on, and what they answer.
async function recordMessages(page) {
  await page.evaluate(() => {
    globalThis.messages = [];
    const heard = new Set();
    const post = Worker.prototype.postMessage;
    Worker.prototype.postMessage = function (message) {
      if (!heard.has(this)) this.addEventListener("message", ({ data }) => globalThis.messages.push(data));
      heard.add(this);
      globalThis.messages.push(message);
      post.call(this, message);
    };
  });
  return () => page.evaluate(() => globalThis.messages);
}

test("a series, a filter and a download are cancelled, and the file stays open", async () => {
  const { page, context, panel, faults } = await openLarge();
  const messages = await recordMessages(page);
  const cancel = panel.getByRole("button", { name: "Cancel" });
  const series = panel.getByLabel("Series");
  const shown = await series.inputValue();
  const samples = await panel.locator(".samples").textContent();
  await series.selectOption("TimeHistory SecondLevels");
  await cancel.click();
  await cancel.waitFor({ state: "hidden" });
  assert.equal(await series.inputValue(), shown);
  assert.equal(await panel.locator(".samples").textContent(), samples);
  await panel.locator(".plot").focus();
  await page.keyboard.press("+");

  let downloads = 0;
  page.on("download", () => ++downloads);
  await panel.getByLabel("Kind").selectOption("Event");
  await lastRow(page, panel, "Event");
  await panel.getByRole("button", { name: "Download JSON lines" }).click();
  await cancel.click();
  await cancel.waitFor({ state: "hidden" });

  await panel.getByLabel("From", { exact: true }).fill("2021-01-01T00:00:00");
  await panel.getByLabel("Kind").selectOption("Interval");
  await panel.locator('.table[aria-label="Interval"]').waitFor();
  await panel.getByRole("button", { name: "Filter" }).click();
  await cancel.click();
  await cancel.waitFor({ state: "hidden" });

  // All of it goes on to work.
  const count = (await kindsOf(panel)).Interval;
  const last = await lastRow(page, panel, "Interval");
  assert.equal(await last.getAttribute("aria-rowindex"), String(count + 1));
  await series.selectOption("Interval LevelA");
  await panel.getByText(`${count.toLocaleString("en-GB")} samples`, { exact: true }).waitFor({ timeout: 60_000 });
  assert.equal(downloads, 0);
  // Nothing was worked on behind its Cancel.
  const told = await messages();
  const ends = told.flatMap((one, i) => (one.cancelled ? [{ id: one.id, i }] : []));
  assert.ok(ends.length >= 3);
  for (const { id, i } of ends) assert.ok(told.slice(i + 1).every((later) => later.id !== id));
  assert.equal(await page.locator('[role="alert"]').count(), 0);
  assert.deepEqual(faults, []);
  await context.close();
});

test("another series ends the reading of the one before", async () => {
  const { page, context, panel } = await openLarge();
  const messages = await recordMessages(page);
  const series = panel.getByLabel("Series");
  await series.selectOption("TimeHistory SecondLevels");
  await series.selectOption("Interval LevelA");
  const count = (await kindsOf(panel)).Interval.toLocaleString("en-GB");
  await panel.getByText(`${count} samples`, { exact: true }).waitFor({ timeout: 60_000 });
  const posted = await messages();
  const [first] = posted.filter((one) => one.name === "series");
  assert.equal(first.ask.field, "SecondLevels");
  assert.ok(posted.some((one) => one.cancel === first.id));
  assert.equal(await series.inputValue(), "Interval LevelA");
  await context.close();
});

test("work that does not hear a Cancel is ended", async () => {
  const { page, context } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator(".table .body .row").first().waitFor();
  const [worker] = page.workers();
  const ended = worker.waitForEvent("close");
  await worker.evaluate(() => {
    setTimeout(() => {
      for (;;);
    });
  });
  await panel.getByRole("button", { name: "Download CSV" }).click();
  await panel.getByRole("button", { name: "Cancel" }).click();
  await page.getByText("Cancelled. The work did not stop, so that the file was closed.").waitFor();
  await ended;
  await panel.getByRole("button", { name: "Open again" }).click();
  await panel.locator(".table .body .row").first().waitFor();
  await context.close();
});

test("a file of more than 2 GiB", async () => {
  // Behind the end of the data stands what nobody reads.
  const path = changed("long.qvd", (bytes) => bytes);
  truncateSync(path, 3 * 2 ** 30);
  const { page, context, faults } = await openPage(browser);
  await choose(page, [path]);
  const panel = await panelOf(page, "long.qvd");
  assert.deepEqual(await kindsOf(panel), countsOf(dump(path).records));
  assert.equal((await factsOf(panel))["Size"], "3,221,225,472 bytes");
  assert.deepEqual(faults, []);
  await context.close();
});

// A module of the page as Node has it.
async function moduleOf(name) {
  const entry = `${root}web/page/src/${name}.ts`;
  const lib = { entry, formats: ["es"], fileName: name };
  const [built] = await build({ configFile: false, logLevel: "silent", build: { lib, write: false } });
  return import(`data:text/javascript,${encodeURIComponent(built.output[0].code)}`);
}

function seriesOf(LevelSeries, samples, most) {
  const series = new LevelSeries(most);
  const times = Float64Array.from(samples, ({ time }) => time);
  series.take(times, Float32Array.from(samples, ({ level }) => level), samples.length);
  return { series, extent: series.finish() };
}

test("a series with more samples than room keeps extremes and where they stand", async () => {
  const { LevelSeries } = await moduleOf("level_series");
  // Two days with a sample each second and a night between them, every 1000th one without a value.
  const samples = Array.from({ length: 100_000 }, (_, i) => ({
    time: i < 50_000 ? i : i + 40_000,
    level: i % 1000 === 7 ? NaN : 50 + (i % 10),
  }));
  samples[12_345].level = 99;
  samples[50_000].level = 98;
  samples[77_777].level = 3;
  const { series, extent } = seriesOf(LevelSeries, samples, 1024);
  assert.deepEqual(extent, { samples: 100_000, from: 0, to: 139_999 });
  for (const most of [20, 100, 700]) {
    const { times, lows, highs } = series.window(0, 140_000, most);
    assert.ok(times.length <= most + 1 && times.length >= most / 4, `${times.length} of ${most}`);
    const pointAt = (time) => times.findLastIndex((one) => one <= time);
    assert.equal(highs[pointAt(12_345)], 99);
    assert.equal(highs[pointAt(90_000)], 98);
    assert.equal(lows[pointAt(117_777)], 3);
    assert.equal(highs.filter((level) => level > 59).length, 2);
    assert.equal(lows.filter((level) => level < 50).length, 1);
  }
  // No bucket holds both sides of the night.
  const night = series.window(49_000, 91_000, 1000).times;
  assert.ok(night.includes(90_000));
  assert.equal(night.filter((time) => time > 50_000 && time < 90_000).length, 0);
  assert.ok(series.isCoarse(0, 1000, 100));
  assert.ok(!series.isCoarse(0, 140_000, 100));
});

test("samples in any order, and far apart, stay in bounded room", async () => {
  const { LevelSeries } = await moduleOf("level_series");
  const orders = {
    backwards: (i) => 20_000 - i,
    alternating: (i) => (i % 2) * 10_000 + i / 2,
    apart: (i) => i * 100,
  };
  for (const [name, timeOf] of Object.entries(orders)) {
    const samples = Array.from({ length: 20_000 }, (_, i) => ({ time: timeOf(i), level: 40 + (i % 7) }));
    samples[9_000].level = 90;
    const { series, extent } = seriesOf(LevelSeries, samples, 256);
    const sorted = samples.map(({ time }) => time).sort((a, b) => a - b);
    assert.deepEqual(extent, { samples: 20_000, from: sorted[0], to: sorted.at(-1) }, name);
    const { times, lows, highs } = series.window(extent.from, extent.to, 1000);
    assert.ok(times.length <= 256, name);
    assert.deepEqual(times, times.toSorted((a, b) => a - b), name);
    assert.equal(Math.max(...highs), 90, name);
    assert.equal(Math.min(...lows), 40, name);
    const at = times.findLastIndex((time) => time <= timeOf(9_000));
    assert.ok(highs.slice(Math.max(0, at - 2), at + 3).includes(90), name);
  }
  // As long as there is room, every sample stands for itself.
  const few = seriesOf(LevelSeries, [3, 1, 2].map((time) => ({ time, level: time })), 256).series;
  assert.deepEqual(few.window(0, 9, 10), { times: [1, 2, 3], lows: [1, 2, 3], highs: [1, 2, 3] });
});

test("a series whose clock was set back keeps the extremes of each time", async () => {
  const { LevelSeries } = await moduleOf("level_series");
  // Three runs over the same twenty hours.
  const samples = Array.from({ length: 60_000 }, (_, i) => ({ time: (i % 20_000) * 3.6, level: 50 }));
  samples[19_000].level = 99;
  const at = samples[19_000].time;
  const { series } = seriesOf(LevelSeries, samples, 256);
  for (const around of [1, 10, 100, 1000]) {
    for (const shift of [-0.9, 0, 0.9]) {
      const { highs } = series.window(at + shift * around - around, at + shift * around + around, 500);
      assert.equal(Math.max(...highs), 99, `${around} s, ${shift}`);
    }
  }
});

test("places are found again where the library took more memory since the start", async () => {
  const { Places } = await moduleOf("places");
  const core = await Core.open(await openSource(samplesFolder + "bands_general.qvd"), zoneOf("UTC"));
  core.openWalk(true);
  core.want([]);
  const places = new Places(core, 512);
  const before = [0];
  let seen = 0;
  while (core.state().end === goesOn) {
    seen += core.walkOn(places.endOf(places.count - 1));
    if (core.state().end === goesOn) places.note(core.state().position, () => new Map());
    while (before.length < places.count) before.push(seen);
  }
  assert.ok(places.count > 10);
  for (let i = 0; i < places.count; ++i) {
    places.goTo(0);
    places.goTo(i);
    let left = 0;
    while (core.state().end === goesOn) left += core.walkOn();
    assert.equal(left, seen - before[i]);
  }
  core.close();
});

test("a time that comes twice is filtered from its first to its last", async () => {
  const { instantOf, zoneOf: zone } = await moduleOf("clock_text");
  const instants = (typed, name) =>
    ["first", "last"].map((which) => new Date(instantOf(typed, zone(name), which) * 1000).toISOString().slice(0, 16));
  const twice = ["2024-10-27T00:30", "2024-10-27T01:30"];
  assert.deepEqual(instants("2024-10-27T02:30", "Europe/Berlin"), twice);
  assert.deepEqual(instants("2024-11-03T01:30", "America/New_York"), ["2024-11-03T05:30", "2024-11-03T06:30"]);
  assert.deepEqual(instants("2024-06-01T12:00", "America/New_York"), ["2024-06-01T16:00", "2024-06-01T16:00"]);
  assert.deepEqual(instants("2024-06-01T12:00", "UTC"), ["2024-06-01T12:00", "2024-06-01T12:00"]);
  // It does not come at all.
  assert.deepEqual(instants("2024-03-31T02:30", "Europe/Berlin"), ["2024-03-31T01:30", "2024-03-31T01:30"]);
});

test("samples that a file puts beyond all time do not hang the page", async () => {
  const path = `${folder}/endless.qvd`;
  const history = readFileSync(samplesFolder + "general_time_history.qvd").toString("latin1");
  // Each of the lines makes the samples a hundred times or so rarer.
  writeFileSync(path, history.replace("Q 84,0\r\n", "Q 84,0\r\n" + "Q 84,3\r\n".repeat(12)), "latin1");
  assert.ok(dump(path).records.some((record) => record.StreamPeriod > 2 ** 32));
  const { page, context, faults } = await openPage(browser);
  await choose(page, [path]);
  const panel = await panelOf(page, "endless.qvd");
  await panel.locator(".uplot").waitFor();
  const plot = panel.locator(".plot");
  assert.ok(Number(await plot.getAttribute("data-to")) < 2 ** 32);
  await plot.focus();
  for (let i = 0; i < 30; ++i) await page.keyboard.press(i % 3 === 0 ? "+" : "ArrowRight");
  assert.ok(Number(await plot.getAttribute("data-to")) < 2 ** 32);
  assert.deepEqual(faults, []);
  await context.close();
});

test("what is asked of a file that is being read anew comes to an end", async () => {
  const { page, context, faults } = await openPage(browser);
  await choose(page, [night]);
  const panel = await panelOf(page, "night_europe.qvd");
  await panel.locator(".table .body .row").first().waitFor();
  await page.getByLabel("Time zone").evaluate((choice) => {
    const download = [...document.querySelectorAll("button")].find((one) => one.textContent === "CSV");
    choice.value = "Europe/Berlin";
    choice.dispatchEvent(new Event("change"));
    download.click();
  });
  await panel.getByText("2024-10-26 22:00:00 +02:00").first().waitFor();
  await page.waitForTimeout(400); // until the work would be shown
  assert.ok(await panel.locator(".work").isHidden());
  assert.equal(await page.locator('[role="alert"]').count(), 0);
  assert.deepEqual(faults, []);
  await context.close();
});

test("the page is one file of at most 1.5 MB", () => {
  const files = readdirSync(root + "web/dist");
  assert.deepEqual(files, ["index.html"]);
  assert.ok(readFileSync(root + "web/dist/index.html").length <= 1_500_000);
});
