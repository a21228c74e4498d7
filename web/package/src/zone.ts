// Time zones, from what the platform's own calendar tells of them.

/** From an instant on (seconds since 1970 UTC), local time is so many seconds ahead of UTC. */
export interface ZoneChange {
  readonly from: number;
  readonly offset: number;
  readonly daylight: boolean;
}

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

const day = 86400;
const firstInstant = Date.UTC(1969, 11, 1) / 1000;
const lastInstant = Date.UTC(2070, 0, 1) / 1000;

type Probe = (seconds: number) => { offset: number; daylight: boolean };

function probeOf(name: string): Probe {
  const format = new Intl.DateTimeFormat("en-US", {
    timeZone: name,
    hourCycle: "h23",
    year: "numeric",
    month: "numeric",
    day: "numeric",
    hour: "numeric",
    minute: "numeric",
    second: "numeric",
    timeZoneName: "long",
  });
  return (seconds) => {
    const parts: Record<string, string> = {};
    for (const part of format.formatToParts(seconds * 1000)) parts[part.type] = part.value;
    const number = (key: string): number => Number(parts[key]);
    const local = Date.UTC(
      number("year"),
      number("month") - 1,
      number("day"),
      number("hour"),
      number("minute"),
      number("second"),
    );
    return {
      offset: local / 1000 - seconds,
      daylight: /Summer|Daylight/.test(parts["timeZoneName"] ?? ""),
    };
  };
}

function probeChanges(name: string): ZoneChange[] {
  const probe = probeOf(name);
  const changes = [{ from: firstInstant, ...probe(firstInstant) }];
  const step = 8 * day;
  for (let start = firstInstant; start < lastInstant; start += step) {
    const held = changes[changes.length - 1]!;
    const alike = (seconds: number): boolean => {
      const found = probe(seconds);
      return found.offset === held.offset && found.daylight === held.daylight;
    };
    if (alike(start + step)) continue;
    let before = start;
    let behind = start + step;
    while (behind - before > 1) {
      const middle = Math.floor((before + behind) / 2);
      if (alike(middle)) before = middle;
      else behind = middle;
    }
    changes.push({ from: behind, ...probe(behind) });
  }
  return changes;
}

const known = new Map<string, Zone>();

/** A zone by its name, such as Europe/Berlin. Throws a RangeError where the platform knows none. */
export function zoneOf(name: string): Zone {
  let zone = known.get(name);
  if (zone === undefined) {
    const isClock = name === "UTC";
    const fixed = [{ from: firstInstant, offset: 0, daylight: false }];
    zone = new Zone(name, isClock ? fixed : probeChanges(name));
    known.set(name, zone);
  }
  return zone;
}
