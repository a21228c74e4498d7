// page_speed FILE: how long the page takes for a file from the choice to its first plot, what of this
// its core needs in the same tab, and how long the page keeps a user waiting meanwhile.
import { choose, openPage, panelOf, startBrowser } from "./page.mjs";

const path = process.argv[2];
const name = path.replace(/^.*\//, "");
const browser = await startBrowser();
for (let round = 0; round < 3; ++round) {
  const { page, context } = await openPage(browser, { viewport: { width: 1280, height: 900 } });
  await page.evaluate(() => {
    globalThis.waits = [];
    new PerformanceObserver((list) => {
      for (const entry of list.getEntries()) globalThis.waits.push(entry.duration);
    }).observe({ entryTypes: ["longtask"] });
    globalThis.drawn = new Promise((resolve) => {
      addEventListener("change", () => (globalThis.begun = performance.now()), true);
      new MutationObserver(() => {
        if (document.querySelector(".uplot canvas")) resolve(performance.now() - globalThis.begun);
      }).observe(document.body, { childList: true, subtree: true });
    });
  });
  await choose(page, [path]);
  const first = await page.evaluate(() => globalThis.drawn);
  const panel = await panelOf(page, name);
  const walk = await panel.locator(".summary").getAttribute("data-milliseconds");
  const samples = await panel.locator(".levels").getAttribute("data-samples");

  // Frames while the levels are moved through, with the keys of a user.
  await panel.locator(".plot").focus();
  const frames = page.evaluate(
    () =>
      new Promise((resolve) => {
        const gaps = [];
        let last = performance.now();
        const frame = (now) => {
          gaps.push(now - last);
          last = now;
          if (gaps.length < 120) requestAnimationFrame(frame);
          else resolve(gaps.slice(1).sort((a, b) => a - b));
        };
        requestAnimationFrame(frame);
      }),
  );
  for (let i = 0; i < 12; ++i) await page.keyboard.press(["+", "ArrowRight", "+", "ArrowLeft", "-"][i % 5]);
  const gaps = await frames;
  const waits = await page.evaluate(() => globalThis.waits);
  const ms = (time) => `${Number(time).toFixed(0)} ms`;
  console.log(
    `${name}: first plot after ${ms(first)}, the walk of it ${ms(walk)}, ${samples} samples; longest task of ` +
      `the page ${ms(Math.max(0, ...waits))}; frames while moving: half within ${ms(gaps[gaps.length >> 1])}, ` +
      `all within ${ms(gaps.at(-1))}`,
  );
  await context.close();
}
await browser.close();
