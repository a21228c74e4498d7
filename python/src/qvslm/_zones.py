"""Time zones as the library takes them: a table of changes."""

import functools
import zoneinfo
from datetime import UTC, datetime, timedelta

Change = tuple[int, int, int]

# Records tell seconds of 32 bits. Some years beyond them the library looks for daylight time, too.
_FIRST = datetime(1893, 1, 1, tzinfo=UTC)
_BEHIND = datetime(2047, 1, 1, tzinfo=UTC)
# No zone goes back to what it was within so short a time.
_STEP = 3 * 86400
_EPOCH = datetime(1970, 1, 1, tzinfo=UTC)

CLOCK: list[Change] = [(0, 0, 0)]
"""The zone in which instants are what the clock of the instrument showed."""


def _reading(zone: zoneinfo.ZoneInfo, instant: int) -> tuple[int, int]:
    """Seconds ahead of UTC, and whether that is daylight time."""
    local = (_EPOCH + timedelta(seconds=instant)).astimezone(zone)
    offset = local.utcoffset() or timedelta()
    return round(offset.total_seconds()), int(bool(local.dst()))


def _first_other(zone: zoneinfo.ZoneInfo, before: int, behind: int) -> int:
    """The first instant that is read otherwise than the one before; the one behind is."""
    old = _reading(zone, before)
    while behind - before > 1:
        middle = (before + behind) // 2
        if _reading(zone, middle) == old:
            before = middle
        else:
            behind = middle
    return behind


@functools.lru_cache(maxsize=64)
def _changes(key: str) -> tuple[Change, ...]:
    zone = zoneinfo.ZoneInfo(key)
    at = round((_FIRST - _EPOCH).total_seconds())
    end = round((_BEHIND - _EPOCH).total_seconds())
    reading = _reading(zone, at)
    changes = [(at, *reading)]
    while at < end:
        ahead = at + _STEP
        while _reading(zone, ahead) != reading:
            at = _first_other(zone, at, ahead)
            reading = _reading(zone, at)
            changes.append((at, *reading))
        at = ahead
    return tuple(changes)


def changes(tz: str | None) -> list[Change]:
    """The changes of a zone of the IANA database; without one, the clock of the instrument.

    Raises ``zoneinfo.ZoneInfoNotFoundError`` for a name that is no zone's.
    """
    return CLOCK if tz is None else list(_changes(tz))
