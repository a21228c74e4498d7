"""One measurement file as Parquet files of a dataset."""

import hashlib
import os
from datetime import UTC, datetime
from pathlib import Path

import numpy as np
import pyarrow as pa

from .._errors import Error
from .._file import Info, MeasurementFile
from . import _layout
from ._dataset_files import BROKEN, UNREADABLE, WHOLE, File, Part, Place, path_of
from ._errors import DatasetError
from ._part_writer import PartWriter, new_name

BATCH = 16384


class _Parts:
    """The Parquet files of a measurement file. At most one a kind is open."""

    def __init__(self, dataset: Path, instrument: str) -> None:
        self._dataset = dataset
        self._instrument = instrument
        self._stem = new_name()
        self._open: dict[str, tuple[Place, PartWriter]] = {}
        self.done: list[Part] = []
        self._number = 0

    def add(self, kind: str, table: pa.Table) -> None:
        """Rows of a kind, in whatever order."""
        keys = _layout.keys(table)
        if len(keys) > 1 and (keys[1:] < keys[:-1]).any():
            order = np.argsort(keys, kind="stable")
            table, keys = table.take(order), keys[order]
        for start, end, month in _layout.months(table):
            piece = table.slice(start, end - start)
            writer = self._writer(kind, month, int(keys[start]))
            writer.add(piece, int(keys[end - 1]))

    def _writer(self, kind: str, month: str, first: int) -> PartWriter:
        if kind in self._open:
            (_, _, of_month, _), writer = self._open[kind]
            if of_month == month and writer.follows(first):
                return writer
            self._close(kind)
        place = kind, self._instrument, month, f"{self._stem}-{self._number}"
        self._number += 1
        writer = PartWriter(self._dataset / path_of(place))
        self._open[kind] = place, writer
        return writer

    def _close(self, kind: str) -> None:
        place, writer = self._open.pop(kind)
        self.done.append(Part(*place, writer.rows, writer.close()))

    def close(self) -> list[Part]:
        for kind in list(self._open):
            self._close(kind)
        return self.done


def fingerprint(path: str) -> str:
    """Of the bytes of a file."""
    with Path(path).open("rb") as file:
        return hashlib.file_digest(file, lambda: hashlib.blake2b(digest_size=16)).hexdigest()


def _clock(moment: datetime | None) -> datetime | None:
    return moment.astimezone(UTC).replace(tzinfo=None) if moment and moment.tzinfo else moment


def _identity(info: Info) -> dict[str, object]:
    return {
        "instrument": _layout.instrument(info),
        "model": info.model,
        "serial": info.serial,
        "firmware": info.firmware,
        "mode": info.mode,
        "titles": list(info.titles),
        "start": _clock(info.start),
        "last_stop": _clock(info.last_stop),
        "last_record": _clock(info.last_record),
    }


def _write(path: str, name: str, parts: _Parts, info: Info, tz: str | None) -> list[Part]:
    with MeasurementFile(path, tz) as file:
        for kind, table in _layout.tables(file, None, name, info, BATCH):
            try:
                parts.add(kind, table)
            except OSError as fault:
                raise DatasetError(str(fault)) from fault
    try:
        return parts.close()
    except OSError as fault:
        raise DatasetError(str(fault)) from fault


def translate(path: str, name: str, dataset: str, tz: str | None) -> File:
    """Writes the rows of a measurement file into a dataset, and tells what became of it.

    No fault of a file raises, but ``DatasetError`` does. Nothing of it counts until a manifest
    names it.
    """
    row = File(name, 0, 0, "", UNREADABLE, "")
    try:
        facts = Path(path).stat()
        row.size, row.modified = facts.st_size, facts.st_mtime_ns
        row.fingerprint = fingerprint(path)
        # The paths of Parquet files tell the instrument, and that may stand at the end of a file.
        with MeasurementFile(path, tz) as file:
            file.read([])
            info, status, census = file.info, file.status, file.census
        parts = _Parts(Path(dataset), _layout.instrument(info))
        row.parts = _write(path, name, parts, info, tz)
    except DatasetError:
        raise
    except (Error, OSError, ValueError, pa.ArrowException) as fault:
        # The name of the file is in it.
        row.reason = shown(fault.text if isinstance(fault, Error) else str(fault))
        row.offset = fault.offset if isinstance(fault, Error) else None
        if isinstance(fault, OSError):
            # The next run tries again.
            row.fingerprint = ""
        return row
    for key, value in _identity(info).items():
        setattr(row, key, value)
    row.census = {kind: count for kind, count in census.items() if count > 0}
    row.rows = sum(part.rows for part in row.parts)
    row.status = WHOLE if status.whole else BROKEN
    row.reason, row.offset = status.reason, status.offset
    return row


def shown(path: str) -> str:
    """A path as text, whatever bytes it has."""
    return os.fsencode(path).decode("utf-8", "backslashreplace")
