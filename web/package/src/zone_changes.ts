// When the clocks of a zone change: how far they are ahead of UTC, from what the platform's own
// calendar tells, and whether the zone calls that daylight time, which it does not tell.
import { daylightTurns } from "./generated/daylight_turns.js";

/** From an instant on (seconds since 1970 UTC), local time is so many seconds ahead of UTC. */
export interface ZoneChange {
  readonly from: number;
  readonly offset: number;
  readonly daylight: boolean;
}

interface OffsetChange {
  readonly from: number;
  readonly offset: number;
}

const day = 86400;
const firstInstant = Date.UTC(1969, 11, 1) / 1000;
// A year more than is promised: what comes next decides what is daylight time.
const lastInstant = Date.UTC(2071, 0, 1) / 1000;

/** How many seconds a zone's clock is ahead of UTC at an instant. */
function offsetsOf(name: string): (seconds: number) => number {
  const format = new Intl.DateTimeFormat("en-US", {
    timeZone: name,
    hourCycle: "h23",
    year: "numeric",
    month: "numeric",
    day: "numeric",
    hour: "numeric",
    minute: "numeric",
    second: "numeric",
  });
  return (seconds) => {
    // 10/27/2024, 02:59:59
    const [month, date, year, hour, minute, second] = format
      .format(seconds * 1000)
      .match(/\d+/g)!
      .map(Number) as [number, number, number, number, number, number];
    return Date.UTC(year, month - 1, date, hour, minute, second) / 1000 - seconds;
  };
}

function probeOffsets(name: string): OffsetChange[] {
  const offsetAt = offsetsOf(name);
  let held = offsetAt(firstInstant);
  const changes = [{ from: firstInstant, offset: held }];
  // No zone goes to another time and back within this.
  const step = 8 * day;
  for (let start = firstInstant; start < lastInstant; start += step) {
    if (offsetAt(start + step) === held) continue;
    let before = start;
    let behind = start + step;
    while (behind - before > 1) {
      const middle = Math.floor((before + behind) / 2);
      if (offsetAt(middle) === held) before = middle;
      else behind = middle;
    }
    held = offsetAt(behind);
    changes.push({ from: behind, offset: held });
  }
  return changes;
}

/** Most zones call daylight time what is over within a year, when the clock goes back. */
function daylightByRule(changes: readonly OffsetChange[], at: number): boolean {
  const change = changes[at]!;
  const next = changes[at + 1];
  const year = 366 * day;
  return next !== undefined && next.offset < change.offset && next.from - change.from < year;
}

/** Where the zone's daylight time turns from what the rule says to the other, and back. */
function turnsOf(name: string): readonly number[] {
  const wanted = name.toLowerCase(); // as the platform takes names
  const row = daylightTurns.find(([names]) => names.toLowerCase().split(" ").includes(wanted));
  return row === undefined ? [] : row[1];
}

/** The changes of a zone from the end of 1969 on, each unlike the one before it. */
export function changesOf(name: string): ZoneChange[] {
  const offsets = probeOffsets(name);
  const turns = turnsOf(name);
  const instants = [...new Set([...offsets.map(({ from }) => from), ...turns])];
  instants.sort((a, b) => a - b);
  const changes: ZoneChange[] = [];
  let at = 0;
  let turned = 0;
  for (const from of instants) {
    while (at + 1 < offsets.length && offsets[at + 1]!.from <= from) ++at;
    while (turned < turns.length && turns[turned]! <= from) ++turned;
    const offset = offsets[at]!.offset;
    // A zone that keeps to one time for good has no daylight time any more, even if the table knows of
    // no end.
    const staysTurned = turned === turns.length && at + 1 === offsets.length;
    const isTurned = turned % 2 === 1 && !staysTurned;
    const daylight = daylightByRule(offsets, at) !== isTurned;
    const held = changes[changes.length - 1];
    if (held?.offset === offset && held.daylight === daylight) continue;
    changes.push({ from, offset, daylight });
  }
  return changes;
}
