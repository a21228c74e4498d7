// What the program of this machine gives, to compare with.
import { spawnSync } from "node:child_process";
import { readdirSync } from "node:fs";
import { fileURLToPath } from "node:url";

export const root = fileURLToPath(new URL("../../", import.meta.url));
export const samplesFolder = root + "samples/files/";
export const samples = readdirSync(samplesFolder)
  .filter((name) => name.endsWith(".qvd"))
  .sort();

/** Lines of `qvslm`, and how it ended. */
export function qvslm(arguments_, tz = "UTC") {
  const ran = spawnSync(root + "build/release/host/qvslm", arguments_, {
    env: { ...process.env, TZ: tz },
    maxBuffer: 1 << 30,
    encoding: "utf8",
  });
  const lines = ran.stdout.split("\n").filter((line) => line !== "");
  return { lines, status: ran.status, errors: ran.stderr };
}

export function dump(path, tz = "UTC", options = []) {
  const ran = qvslm(["dump", ...options, path], tz);
  return { ...ran, records: ran.lines.map((line) => JSON.parse(line)) };
}
