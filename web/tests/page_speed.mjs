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

  // Frames while the levels are moved through, with the keys and the pointer of a user.
  const framesWhile = async (move) => {
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
    await move();
    const gaps = await frames;
    return `half within ${ms(gaps[gaps.length >> 1])}, all within ${ms(gaps.at(-1))}`;
  };
  const ms = (time) => `${Number(time).toFixed(0)} ms`;
  const plot = panel.locator(".plot");
  await plot.focus();
  const byKeys = await framesWhile(async () => {
    for (let i = 0; i < 12; ++i) await page.keyboard.press(["+", "ArrowRight", "+", "ArrowLeft", "-"][i % 5]);
  });
  await plot.scrollIntoViewIfNeeded();
  const box = await plot.locator(".u-over").boundingBox();
  const byPointer = await framesWhile(async () => {
    await page.keyboard.down("Shift");
    await page.mouse.move(box.x + 100, box.y + 50);
    await page.mouse.down();
    for (let i = 0; i < 100; ++i) await page.mouse.move(box.x + 100 + 9 * (i < 50 ? i : 100 - i), box.y + 50);
    await page.mouse.up();
    await page.keyboard.up("Shift");
  });
  const waits = await page.evaluate(() => globalThis.waits);
  console.log(
    `${name}: first plot after ${ms(first)}, the walk of it ${ms(walk)}, ${samples} samples; longest task of ` +
      `the page ${ms(Math.max(0, ...waits))}; frames by keys: ${byKeys}; ` +
      `while dragging: ${byPointer}`,
  );
  await context.close();
}
await browser.close();
