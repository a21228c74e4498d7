// The changes of every time zone, under Node, against those of this machine's C library.
import assert from "node:assert/strict";
import { spawnSync } from "node:child_process";
import { readFileSync } from "node:fs";
import { test } from "node:test";

import { zoneOf } from "../package/dist/zone.js";
import { changesOf } from "../package/dist/zone_changes.js";

const first = Date.UTC(1970, 0, 1) / 1000;
const last = Date.UTC(2070, 0, 1) / 1000;

const tzdata = readFileSync("/usr/share/zoneinfo/tzdata.zi", "utf8");
const release = /^# version (\S+)/.exec(tzdata)[1];
// Zones and links; Factory stands for a zone that nobody chose.
const named = [...tzdata.matchAll(/^(?:Z|L \S+) (\S+)/gm)].map(([, name]) => name);
const names = [...new Set([...named, ...Intl.supportedValuesOf("timeZone")])]
  .filter((name) => name !== "Factory")
  .sort();

function run(command, arguments_, environment = {}) {
  const options = { encoding: "utf8", maxBuffer: 1 << 28, env: { ...process.env, ...environment } };
  const ran = spawnSync(command, arguments_, options);
  assert.equal(ran.status, 0, ran.stderr);
  return ran.stdout;
}

/**
 * By the names of zones the second before each change and that of the change. The lines of zdump are
 * `Europe/Berlin  Sun Mar 31 01:00:00 2024 UT = Sun Mar 31 03:00:00 2024 CEST isdst=1 gmtoff=7200`.
 */
function momentsOfLibrary() {
  const lines = run("zdump", ["-v", "-c", "1970,2070", ...names]);
  const line = /^(\S+) +\w+ (\w+ .+ \d+) UT = .* isdst=([01]) gmtoff=(-?\d+)$/gm;
  const moments = new Map(names.map((name) => [name, []]));
  for (const [, name, clock, isDaylight, offset] of lines.matchAll(line)) {
    const from = Date.parse(`${clock} UTC`) / 1000;
    moments.get(name).push({ from, offset: Number(offset), daylight: isDaylight === "1" });
  }
  return moments;
}

/** What holds at the start of 1970, and from then on where it is not as before. */
function changesOfLibrary(name, moments) {
  if (moments.length === 0) return [{ from: first, offset: offsetAtFirst(name), daylight: false }];
  const isNews = ({ offset, daylight }, i) =>
    i === 0 || offset !== moments[i - 1].offset || daylight !== moments[i - 1].daylight;
  const [atFirst, ...changes] = moments.filter(isNews);
  return [{ ...atFirst, from: first }, ...changes];
}

/** zdump tells nothing of a clock that never changed; date gives +05:30:00. */
function offsetAtFirst(name) {
  const [, sign, ...parts] = /^([+-])(\d+):(\d+):(\d+)$/.exec(
    run("date", ["--date=@0", "+%::z"], { TZ: name }).trim(),
  );
  const [hours, minutes, seconds] = parts.map(Number);
  return (sign === "-" ? -1 : 1) * (hours * 3600 + minutes * 60 + seconds);
}

function changesOfPackage(name) {
  const zone = zoneOf(name);
  const inside = zone.changes.filter(({ from }) => from > first && from < last);
  return [{ ...zone.changeAt(first), from: first }, ...inside];
}

const clockText = ({ from, offset }) => `${new Date(from * 1000).toISOString()} ${offset} s`;
const text = (change) => clockText(change) + (change.daylight ? ", daylight time" : "");
/** Changes of the clock alone. */
const clockChanges = (changes) =>
  changes.filter(({ offset }, i) => offset !== changes[i - 1]?.offset).map(clockText);

// Node brings zones of its own. Those that changed between its release and this machine's differ, and
// two that Debian keeps as they were while Node has them as links to Athens and Lisbon.
const keptByDebian = ["EET", "WET"];

test("every zone changes as the C library says", (context) => {
  assert.ok(names.length > 500);
  const moments = momentsOfLibrary();
  const others = [];
  for (const name of names) {
    const library = changesOfLibrary(name, moments.get(name));
    const own = changesOfPackage(name);
    if (clockChanges(own).join() === clockChanges(library).join()) {
      assert.deepEqual(own.map(text), library.map(text), name);
    } else if (!keptByDebian.includes(name)) {
      others.push(name);
    }
  }
  const releases = `zones of Node ${process.versions.tz}, of this machine ${release}`;
  context.diagnostic(`# ${releases}: of ${names.length} others are ${others.join(" ") || "none"}`);
  if (process.versions.tz === release) assert.deepEqual(others, []);
  assert.ok(others.length <= 10, others.join(" "));
});

test("a zone is found as the platform finds it, whatever the case of its name", () => {
  const winter = Date.UTC(2024, 0, 1) / 1000;
  assert.equal(zoneOf("europe/DUBLIN").changeAt(winter).daylight, true);
  assert.equal(zoneOf("Europe/Dublin").changeAt(winter).daylight, true);
  assert.equal(zoneOf("Europe/London").changeAt(winter).daylight, false);
});

// Morocco takes the hour back in its month of fasting, which is its daylight time, until 2087 by the
// table. Here the platform says that it keeps to UTC from September 2026 on.
test("what a platform knows to stay is no daylight time", (context) => {
  const end = Date.UTC(2026, 8, 20, 1);
  const Real = Intl.DateTimeFormat;
  context.mock.method(Intl, "DateTimeFormat", function (language, options) {
    const before = new Real(language, options);
    const behind = new Real(language, { ...options, timeZone: "UTC" });
    return { format: (time) => (time < end ? before : behind).format(time) };
  });
  const changes = changesOf("Africa/Casablanca").slice(-3);
  assert.deepEqual(changes, [
    { from: Date.UTC(2026, 1, 15, 2) / 1000, offset: 0, daylight: true },
    { from: Date.UTC(2026, 2, 22, 2) / 1000, offset: 3600, daylight: false },
    { from: end / 1000, offset: 0, daylight: false },
  ]);
});
