// page_speed FILE: how long the page takes for a file from the choice to its first plot, what of this
// its core needs in the same tab, how long the page keeps a user waiting meanwhile, and the memory of
// the browser: the most, and what is kept behind a collection of garbage.
import { watchMemory } from "./browser_memory.mjs";
import { choose, collectGarbage, openPage, panelOf, startBrowser } from "./page.mjs";

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
    globalThis.finer = [];
    const asked = new Map();
    const post = Worker.prototype.postMessage;
    Worker.prototype.postMessage = function (message) {
      if (message.name === "open") {
        this.addEventListener("message", ({ data }) => {
          if ("give" in data && asked.has(data.id)) globalThis.finer.push(performance.now() - asked.get(data.id));
        });
      }
      if (message.name === "finerWindow") asked.set(message.id, performance.now());
      post.call(this, message);
    };
    globalThis.drawn = new Promise((resolve) => {
      addEventListener("change", () => (globalThis.begun = performance.now()), true);
      new MutationObserver(() => {
        if (document.querySelector(".uplot canvas")) resolve(performance.now() - globalThis.begun);
      }).observe(document.body, { childList: true, subtree: true });
    });
  });
  await collectGarbage(page);
  await page.evaluate(() => (globalThis.waits = []));
  const watch = watchMemory();
  await choose(page, [path]);
  const first = await page.evaluate(() => globalThis.drawn);
  const panel = await panelOf(page, name);
  const walk = await panel.locator(".summary").getAttribute("data-milliseconds");
  const samples = await panel.locator(".levels").getAttribute("data-samples");
  const memory = watch.end().all;
  const waits = await page.evaluate(() => globalThis.waits);
  await collectGarbage(page);
  const kept = watch.now().all;
  await page.evaluate(() => (globalThis.waits = []));

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
  // Windows of every sample, from the question to the answer.
  for (let i = 0; i < 20; ++i) await page.keyboard.press("+");
  for (let i = 0; i < 4; ++i) {
    await page.keyboard.press("-");
    await page.waitForTimeout(600);
  }
  const finer = await page.evaluate(() => globalThis.finer);
  waits.push(...(await page.evaluate(() => globalThis.waits)));
  console.log(
    `${name}: first plot after ${ms(first)}, the walk of it ${ms(walk)}, ${samples} samples; longest task of ` +
      `the page ${ms(Math.max(0, ...waits))}; frames by keys: ${byKeys}; while dragging: ${byPointer}; ` +
      `memory ${memory.toFixed(0)} MB at most, ${kept.toFixed(0)} MB kept; ` +
      `finer windows after ${finer.map(ms).join(", ")}`,
  );
  await context.close();
}
await browser.close();
