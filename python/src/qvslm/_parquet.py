"""Measurement files as datasets of Parquet: one a record name, a part a file."""

import contextlib
import os
from collections.abc import Iterable
from pathlib import Path

import pyarrow as pa
import pyarrow.parquet as pq

from . import _frames
from ._file import MeasurementFile, Status
from ._records import record_type

_ROWS = 65536


class _Part:
    """A file of a dataset: written beside its place, and moved there when it is whole."""

    def __init__(self, folder: Path, name: str, schema: pa.Schema) -> None:
        folder.mkdir(parents=True, exist_ok=True)
        self._place = folder / f"{name}.parquet"
        self._beside = folder / f".{name}.parquet.{os.getpid()}"
        self._writer = pq.ParquetWriter(self._beside, schema, compression="zstd")

    def add(self, table: pa.Table) -> None:
        self._writer.write_table(table)

    def close(self) -> None:
        self._writer.close()
        self._beside.replace(self._place)

    def drop(self) -> None:
        with contextlib.suppress(Exception):
            self._writer.close()
        self._beside.unlink(missing_ok=True)


def to_parquet(
    source: str | os.PathLike[str],
    to: str | os.PathLike[str],
    records: Iterable[str] | None = None,
    *,
    tz: str | None = None,
    strict: bool = False,
) -> Status:
    """Writes the records of a file to ``to/NAME/FILE.parquet``, with flat memory.

    A part that was there is exchanged when the new one is whole; of a file that raises nothing is
    left. Gives the status of the file.
    """
    names = None if records is None else list(records)
    # A Parquet file begins with what is told of it, and some of that stands at the end of a file.
    with MeasurementFile(source, tz, strict) as file:
        file.read([])
        status = file.status
        told = _frames.facts(file.info, status, tz)
    parts: dict[str, _Part] = {}
    try:
        with MeasurementFile(source, tz) as file:
            for batch in file.batches(names, _ROWS):
                for name, rows in batch.items():
                    kind = record_type(name)
                    table = _frames.with_facts(_frames.to_arrow(kind, rows, tz), kind, told)
                    if name not in parts:
                        parts[name] = _Part(Path(to) / name, Path(source).name, table.schema)
                    parts[name].add(table)
        for part in parts.values():
            part.close()
    except BaseException:
        for part in parts.values():
            part.drop()
        raise
    return status
