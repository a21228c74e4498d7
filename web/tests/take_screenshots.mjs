// take_screenshots: the pictures of docs/browser.md.
import { spawnSync } from "node:child_process";

import { choose, openPage, panelOf, startBrowser } from "./page.mjs";
import { root, samplesFolder } from "./native.mjs";

const browser = await startBrowser();
const shots = [
  { to: "browser_window.png", viewport: { width: 1280, height: 1490 }, files: ["night_europe.qvd", "bands_general.qvd"] },
  { to: "browser_phone.png", viewport: { width: 390, height: 844 }, files: ["model442_logging.qvd"], colorScheme: "dark" },
];
for (const { to, files, ...options } of shots) {
  const { page, context } = await openPage(browser, options);
  await choose(page, files.map((name) => samplesFolder + name));
  for (const name of files) {
    const panel = await panelOf(page, name);
    await panel.locator(".plot canvas").waitFor();
    await panel.locator(".table .body .row").first().waitFor();
    if (name.startsWith("bands")) {
      await panel.getByLabel("Kind").selectOption("IntervalBands");
      await panel.locator('.table[aria-label="IntervalBands"] .body .row').first().locator("div").first().click();
    }
  }
  await page.waitForTimeout(400);
  if (to === "browser_phone.png") {
    await page.evaluate(() => document.querySelector(".levels").scrollIntoView());
  } else {
    await page.evaluate(() => scrollTo(0, 0));
  }
  const path = `${root}docs/${to}`;
  await page.screenshot({ path });
  // Text and lines have few colours.
  spawnSync("convert", [path, "+dither", "-colors", "64", `PNG8:${path}`], { stdio: "inherit" });
  await context.close();
}
await browser.close();
