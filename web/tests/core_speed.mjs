// core_speed FILE: how long the core takes for census and walk of a file, warm, against the program
// of this machine that does the same (`qvslm info`); the best of several rounds.
import { spawnSync } from "node:child_process";
import { readFileSync } from "node:fs";

import { Core, goesOn } from "../package/dist/core.js";
import { openSource } from "../package/dist/source.js";
import { zoneOf } from "../package/dist/zone.js";
import { root } from "./native.mjs";

const path = process.argv[2];
const rounds = 7;

async function walk(source) {
  const core = await Core.open(await openSource(source), zoneOf("UTC"));
  const start = performance.now();
  let state = core.openWalk(true);
  core.want([]);
  let records = 0;
  while (state.end === goesOn) {
    records += core.walkOn();
    state = core.state();
  }
  const time = performance.now() - start;
  core.close();
  return { time, records };
}

function native() {
  const start = performance.now();
  spawnSync(root + "build/release/host/qvslm", ["info", path], { env: { TZ: "UTC0" } });
  return performance.now() - start;
}

const best = { core: Infinity, bytes: Infinity, native: Infinity };
const bytes = readFileSync(path);
let records = 0;
for (let i = 0; i < rounds; ++i) {
  const walked = await walk(path);
  records = walked.records;
  best.core = Math.min(best.core, walked.time);
  best.bytes = Math.min(best.bytes, (await walk(bytes)).time);
  best.native = Math.min(best.native, native());
}
const ms = (time) => time.toFixed(0) + " ms";
console.log(
  `${records} records; native ${ms(best.native)}, core from a path ${ms(best.core)}, from memory ` +
    `${ms(best.bytes)}, ratio ${(best.core / best.native).toFixed(2)}`,
);
