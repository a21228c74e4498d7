// Times for the eye, and those that are typed.
import { zoneOf, type Zone } from "../../package/src/zone.js";

export const clockZone = "UTC"; // with it the library leaves the instrument's clock as it is

/** 2024-10-26 22:00:00, with the offset where a zone was chosen. */
export function clockText(seconds: number, zone: Zone): string {
  const text = zone.text(Math.floor(seconds));
  if (text === null) return "";
  const clock = text.slice(0, 19).replace("T", " ");
  return zone.name === clockZone ? clock : `${clock} ${text.slice(19)}`;
}

const day = 86400;

/**
 * The instant that a typed local time (2024-10-26T22:00) stands for; null for none. Where the clock
 * is set back a time comes twice.
 */
export function instantOf(typed: string, zone: Zone, which: "first" | "last"): number | null {
  const clock = Date.parse(typed + "Z") / 1000;
  if (Number.isNaN(clock)) return null;
  const near = [clock - day, clock + day].map((time) => clock - zone.changeAt(time).offset);
  const shown = near.filter((time) => time + zone.changeAt(time).offset === clock);
  // A time that the clock leaves out is taken as the one before it would have gone on.
  if (shown.length === 0) return near[0]!;
  return which === "first" ? Math.min(...shown) : Math.max(...shown);
}

export { zoneOf, type Zone };
