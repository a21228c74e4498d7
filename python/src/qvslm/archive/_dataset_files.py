"""The measurement files of a dataset and the Parquet files that hold their rows.

As objects, and as the columns of the manifest.
"""

import itertools
from collections.abc import Iterator
from dataclasses import dataclass, field
from datetime import datetime
from typing import Any, NamedTuple

import numpy as np
import pyarrow as pa

FOLDER = "records"

WHOLE, BROKEN, UNREADABLE = "whole", "broken", "unreadable"

_PART = pa.struct(
    [
        ("kind", pa.string()),
        ("month", pa.string()),
        ("name", pa.string()),
        ("rows", pa.int64()),
        ("bytes", pa.int64()),
    ]
)
_TIME = pa.timestamp("ms")
SCHEMA = pa.schema(
    [
        ("path", pa.string()),
        ("size", pa.int64()),
        ("modified", pa.int64()),
        ("fingerprint", pa.string()),
        ("instrument", pa.string()),
        ("model", pa.int64()),
        ("serial", pa.string()),
        ("firmware", pa.string()),
        ("mode", pa.string()),
        ("titles", pa.list_(pa.string())),
        ("start", _TIME),
        ("last_stop", _TIME),
        ("last_record", _TIME),
        ("census", pa.map_(pa.string(), pa.int64())),
        ("rows", pa.int64()),
        ("status", pa.string()),
        ("reason", pa.string()),
        ("offset", pa.int64()),
        ("parts", pa.list_(_PART)),
    ]
)


Place = tuple[str, str, str, str]
"""Of a Parquet file: kind, instrument, month and name."""


def path_of(place: Place) -> str:
    """The path of a Parquet file in its dataset."""
    kind, instrument, month, name = place
    return f"{FOLDER}/kind={kind}/instrument={instrument}/month={month}/{name}.parquet"


class Part(NamedTuple):
    """The rows of one measurement file in a Parquet file, which may hold rows of others."""

    kind: str
    instrument: str
    month: str
    name: str
    rows: int
    bytes: int
    """Of the Parquet file the share that these rows have of its rows."""

    @property
    def place(self) -> Place:
        """Which Parquet file it is."""
        return self[:4]

    @property
    def path(self) -> str:
        """The path of the Parquet file in the dataset."""
        return path_of(self[:4])


@dataclass(frozen=True)
class Merged:
    """A Parquet file that takes the place of others."""

    old: list[Place]
    new: Place
    bytes: int
    rows: dict[str, int]
    """Of each measurement file."""

    def parts(self) -> Iterator[tuple[str, Part]]:
        """The measurement files with their parts, whose bytes add up to those of the file."""
        total, before = sum(self.rows.values()), 0
        for file, rows in self.rows.items():
            share = self.bytes * (before + rows) // total - self.bytes * before // total
            before += rows
            yield file, Part(*self.new, rows, share)


@dataclass
class File:
    """A measurement file of the archive, and what became of it."""

    path: str
    size: int
    modified: int
    """Nanoseconds since 1970, as the file system tells."""
    fingerprint: str
    status: str
    """"whole", "broken" (it ends early: its rows are those before), or "unreadable"."""
    reason: str
    offset: int | None = None
    instrument: str = ""
    model: int = 0
    serial: str = ""
    firmware: str = ""
    mode: str = ""
    titles: list[str] = field(default_factory=list)
    start: datetime | None = None
    """Like the other times as the clock of the instrument shows it; with a zone, as UTC does."""
    last_stop: datetime | None = None
    last_record: datetime | None = None
    census: dict[str, int] = field(default_factory=dict)
    rows: int = 0
    parts: list[Part] = field(default_factory=list)


# Columns -----------------------------------------------------------------------------------------
#
# A manifest may have millions of parts: they go from and to Arrow by columns, and names that come
# often are one object.

_SCALARS = [name for name in SCHEMA.names if name not in ("titles", "census", "parts")]


def _values(array: pa.Array) -> list[Any]:
    if pa.types.is_string(array.type):
        coded = array.dictionary_encode()
        texts = np.array([*coded.dictionary.to_pylist(), None], object)
        return list(texts[coded.indices.fill_null(-1).to_numpy(zero_copy_only=False)])
    if array.null_count == 0 and pa.types.is_integer(array.type):
        return list(array.to_numpy().tolist())
    return list(array.to_pylist())


def _runs(lists: pa.Array) -> Iterator[slice]:
    ends = lists.offsets.to_numpy() - lists.offsets[0].as_py()
    return (slice(begin, end) for begin, end in itertools.pairwise(ends.tolist()))


def files_of(table: pa.Table) -> Iterator[File]:
    """The rows of the manifest as objects."""
    table = table.combine_chunks()
    column = {name: table.column(name).combine_chunks() for name in SCHEMA.names}
    scalars = zip(*(_values(column[name]) for name in _SCALARS), strict=True)
    titles = _values(column["titles"].flatten())
    names, counts = _values(column["census"].keys), _values(column["census"].items)
    flat = column["parts"].flatten()
    kinds, months, of_parts, rows, sizes = (_values(flat.field(i)) for i in range(5))
    for values, of_titles, of_census, of_file in zip(
        scalars,
        _runs(column["titles"]),
        _runs(column["census"]),
        _runs(column["parts"]),
        strict=True,
    ):
        told = dict(zip(_SCALARS, values, strict=True))
        parts = zip(
            kinds[of_file],
            itertools.repeat(told["instrument"]),
            months[of_file],
            of_parts[of_file],
            rows[of_file],
            sizes[of_file],
        )
        yield File(
            **told,
            titles=titles[of_titles],
            census=dict(zip(names[of_census], counts[of_census], strict=True)),
            parts=list(map(Part._make, parts)),
        )


def _offsets(lists: list[Any]) -> pa.Array:
    return pa.array(np.cumsum([0, *map(len, lists)], dtype=np.int32))


def table_of(files: list[File], told: dict[bytes, bytes]) -> pa.Table:
    """The files as rows of the manifest, and what is told of them all."""
    parts = [part for file in files for part in file.parts]
    of_parts = [
        pa.array([getattr(part, field.name) for part in parts], field.type) for field in _PART
    ]
    pairs = [pair for file in files for pair in file.census.items()]
    titles = [title for file in files for title in file.titles]
    lists = {
        "titles": pa.ListArray.from_arrays(
            _offsets([file.titles for file in files]), pa.array(titles, pa.string())
        ),
        "census": pa.MapArray.from_arrays(
            _offsets([file.census for file in files]),
            pa.array([name for name, _ in pairs], pa.string()),
            pa.array([count for _, count in pairs], pa.int64()),
        ),
        "parts": pa.ListArray.from_arrays(
            _offsets([file.parts for file in files]),
            pa.StructArray.from_arrays(of_parts, fields=list(_PART)),
        ),
    }
    columns = [
        lists[field.name]
        if field.name in lists
        else pa.array([getattr(file, field.name) for file in files], field.type)
        for field in SCHEMA
    ]
    return pa.Table.from_arrays(columns, schema=SCHEMA.with_metadata(told))
