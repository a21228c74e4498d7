// Time zones by their names.
import { changesOf, type ZoneChange } from "./zone_changes.js";

export class Zone {
  constructor(
    readonly name: string,
    readonly changes: readonly ZoneChange[],
  ) {}

  /** What holds at an instant. */
  changeAt(seconds: number): ZoneChange {
    const changes = this.changes;
    let low = 0;
    let high = changes.length;
    while (high - low > 1) {
      const middle = (low + high) >> 1;
      if (changes[middle]!.from <= seconds) low = middle;
      else high = middle;
    }
    return changes[low]!;
  }

  /** The clock of an instant with its offset, as 2024-10-26T22:00:00+02:00; null for no time. */
  text(seconds: number): string | null {
    if (seconds <= 0) return null;
    const offset = this.changeAt(seconds).offset;
    const minutes = Math.trunc(offset / 60);
    const size = Math.abs(minutes);
    const hours = String(Math.floor(size / 60)).padStart(2, "0");
    const rest = String(size % 60).padStart(2, "0");
    const clock = new Date((seconds + offset) * 1000).toISOString().slice(0, 19);
    return `${clock}${minutes < 0 ? "-" : "+"}${hours}:${rest}`;
  }
}

const known = new Map<string, Zone>();

/** A zone by its name, such as Europe/Berlin. Throws a RangeError where the platform knows none. */
export function zoneOf(name: string): Zone {
  let zone = known.get(name);
  if (zone === undefined) {
    const isClock = name === "UTC";
    const fixed = [{ from: 0, offset: 0, daylight: false }];
    zone = new Zone(name, isClock ? fixed : changesOf(name));
    known.set(name, zone);
  }
  return zone;
}
