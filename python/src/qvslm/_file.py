"""A measurement file that is open, and what stands in it."""

import os
from collections.abc import Iterable, Iterator
from dataclasses import dataclass
from datetime import UTC, datetime
from zoneinfo import ZoneInfo

import numpy as np
from numpy.typing import NDArray

from . import _core, _zones
from ._errors import Error
from ._records import BY_PLACE, RECORD_TYPES, record_types
from ._sources import LocalFile, Source

Rows = NDArray[np.void]

_ALL = 2**63


@dataclass(frozen=True)
class Info:
    """Which instrument wrote a file, and when. What the file does not tell is empty, or None."""

    name: str
    """The file, as it was given."""
    model: int
    serial: str
    firmware: str
    mode: str
    titles: tuple[str, str, str]
    sites: int
    header_time: datetime | None
    start: datetime | None
    """Of the first run, else of the header, else of the first settings."""
    last_stop: datetime | None
    last_record: datetime | None


@dataclass(frozen=True)
class Status:
    """Whether a file is whole, else where and why it ended."""

    whole: bool
    reason: str
    status: int
    """Of the library."""
    offset: int | None
    """The byte where a file that is not whole ends, or begins to miss something."""
    left_out: int
    """Records that the file does not wholly hold. They are in no array."""
    short_items: int
    """Records whose items end before their last field. What is missing is 0."""

    def __bool__(self) -> bool:
        return self.whole


def as_datetime(seconds: int, tz: str | None) -> datetime | None:
    """The instant of a time in a record; 0 is none."""
    if seconds <= 0:
        return None
    instant = datetime.fromtimestamp(seconds, UTC)
    return instant.replace(tzinfo=None) if tz is None else instant.astimezone(ZoneInfo(tz))


def _text(text: bytes) -> str:
    # Blanks and control characters around a text are the instrument's padding.
    return text.decode("latin-1").strip("".join(map(chr, range(33))))


class MeasurementFile:
    """A measurement file that is read from its start to its end, once. Made by ``qvslm.open``."""

    def __init__(self, source: Source, tz: str | None = None, strict: bool = False) -> None:
        zone = _zones.changes(tz)
        self.tz = tz
        self.strict = strict
        self._local = LocalFile(source)
        try:
            self._core = _core.OpenFile(os.fsencode(self._local.path), zone)
            self._refuse_strangers()
        except BaseException:
            self.close()
            raise

    def _refuse_strangers(self) -> None:
        status = self._core.header()["status"]
        if status not in (_core.OK, _core.NO_TEXT_HEADER):
            reason = self._core.status()["reason"]
            raise Error(f"{self._local.name}: {reason}", status, None)

    def __enter__(self) -> "MeasurementFile":
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Closes the file. What was found stays."""
        if hasattr(self, "_core"):
            self._core.close()
        self._local.close()

    @property
    def info(self) -> Info:
        """Which instrument wrote the file, and when; complete at the end of the walk."""
        found = self._core.header()
        has_header = found["status"] == _core.OK
        header_time = found["header_time"]
        fallback = header_time if header_time > 0 else found["first_block_time"]
        run = found["first_run_start"]
        titles = [
            _text(end) or _text(head)
            for end, head in zip(found["end_titles"], found["titles"], strict=True)
        ]
        return Info(
            name=self._local.name,
            model=_model(found["model"]) if has_header else _NO_MODEL,
            serial=_text(found["serial"]) or _text(found["end_serial"]),
            firmware=_text(found["firmware"]),
            mode=_text(found["mode"]),
            titles=(titles[0], titles[1], titles[2]),
            sites=max(found["sites"], 0),
            header_time=self._time(header_time),
            start=self._time(run if run > 0 else fallback),
            last_stop=self._time(found["stop_time"]),
            last_record=self._time(found["latest_time"]),
        )

    def _time(self, seconds: int) -> datetime | None:
        return as_datetime(seconds, self.tz)

    @property
    def census(self) -> dict[str, int]:
        """How many records of each kind the file holds, counted before the walk."""
        return self._core.census()

    @property
    def status(self) -> Status:
        """How the walk ended, or that it has not yet."""
        walk = self._core.status()
        return Status(
            whole=walk["whole"],
            reason=walk["reason"],
            status=walk["status"],
            offset=None
            if walk["whole"] or walk["goes_on"] or not walk["started"]
            else walk["offset"],
            left_out=walk["left_out"],
            short_items=walk["short_items"],
        )

    def batches(
        self, records: str | Iterable[str] | None = None, rows: int = 65536
    ) -> Iterator[dict[str, Rows]]:
        """Goes on through the file, a number of records at a time.

        Gives the arrays of those that came, by the names of the records, with at most so many rows
        together. In memory is one batch. With ``strict`` a file that is not whole raises behind the
        last one.
        """
        if rows < 1:
            raise ValueError("a batch has at least one row")
        kinds = [record.place for record in record_types(records)]
        while batch := self._decode(kinds, rows):
            yield batch
        self._hold_strict()

    def _decode(self, kinds: list[int], most: int) -> dict[str, Rows]:
        arrays = self._core.decode(kinds, most)
        return {
            BY_PLACE[place].name: bytes_of.view(BY_PLACE[place].dtype)
            for place, bytes_of in arrays.items()
        }

    def _hold_strict(self) -> None:
        status = self.status
        if self.strict and not status.whole:
            at = "" if status.offset is None else f"at byte {status.offset}: "
            raise Error(f"{self._local.name}: {at}{status.reason}", status.status, status.offset)

    def read(self, records: str | Iterable[str] | None = None) -> dict[str, Rows]:
        """What is left of the file, in one piece."""
        arrays = self._decode([record.place for record in record_types(records)], _ALL)
        self._hold_strict()
        return {name: arrays[name] for name in RECORD_TYPES if name in arrays}


_NO_MODEL = 486


def _model(line: bytes) -> int:
    digits = ""
    for character in line.decode("latin-1").lstrip(" \t\n\v\f\r"):
        if not character.isascii() or not (
            character.isdigit() or (character in "+-" and not digits)
        ):
            break
        digits += character
    try:
        number = int(digits)
    except ValueError:
        return 0
    return (number + 2**15) % 2**16 - 2**15


def open(source: Source, *, tz: str | None = None, strict: bool = False) -> MeasurementFile:
    """Opens a file to be read a batch at a time, with flat memory.

    ``tz`` and ``strict`` are those of ``qvslm.read``.
    """
    return MeasurementFile(source, tz, strict)
