// The page in Chromium, as a user has it: opened from its file, with files given to it.
import { existsSync } from "node:fs";
import { pathToFileURL } from "node:url";
import { chromium } from "playwright-core";

import { root } from "./native.mjs";

const address = pathToFileURL(root + "web/dist/index.html").href;

export async function startBrowser() {
  const executablePath = ["/usr/bin/chromium", "/usr/bin/chromium-browser"].find(existsSync);
  return chromium.launch({ executablePath, args: ["--no-sandbox", "--js-flags=--expose-gc"] });
}

/** Collects what the page and its workers have dropped. */
export async function collectGarbage(page) {
  for (const one of [page, ...page.workers()]) await one.evaluate(() => globalThis.gc());
  await page.waitForTimeout(1500); // until the processes have given it back
}

/** A page, with what it asked of the network and what went wrong in it. */
export async function openPage(browser, options = {}) {
  const context = await browser.newContext({ acceptDownloads: true, ...options });
  const page = await context.newPage();
  const requests = [];
  const faults = [];
  page.on("request", (request) => requests.push(request.url()));
  page.on("pageerror", (error) => faults.push(String(error)));
  page.on("console", (message) => {
    if (message.type() === "error") faults.push(message.text());
  });
  await page.goto(address);
  return { page, context, requests, faults, address };
}

export async function choose(page, paths) {
  await page.locator('input[type="file"]').setInputFiles(paths);
}

/** The panel of a file, when it has been read. */
export async function panelOf(page, name) {
  const panel = page.locator("section.file").filter({ has: page.getByRole("heading", { name, exact: true }) });
  await panel.locator(".summary").waitFor();
  return panel;
}

/** Names and values of what the panel tells of the file. */
export async function factsOf(panel) {
  return panel.locator(".summary dl > div").evaluateAll((rows) =>
    Object.fromEntries(rows.map((row) => [row.children[0].textContent, row.children[1].textContent])),
  );
}

/** Kinds of records with their counts. */
export async function kindsOf(panel) {
  return panel
    .locator(".records select option")
    .evaluateAll((all) =>
      Object.fromEntries(
        all.map((one) => [one.value, Number(one.textContent.replace(/^.*\(/, "").replace(/\D/g, ""))]),
      ),
    );
}

/** Drops files onto the page, with the events of a pointer. */
export async function drop(page, files) {
  const transfer = await page.evaluateHandle((given) => {
    const made = new DataTransfer();
    for (const { name, text } of given) {
      const bytes = Uint8Array.from(atob(text), (c) => c.charCodeAt(0));
      made.items.add(new File([bytes], name));
    }
    return made;
  }, files);
  await page.dispatchEvent("body", "drop", { dataTransfer: transfer });
}
