"""The list of the files of a dataset: what readers go by, and what the next run goes by.

A dataset is what its manifest names, and nothing else. It is exchanged in one piece by a rename,
so a reader sees the files of before or those of after; Parquet files that it does not name do not
count, and the next run removes them.
"""

import contextlib
import json
import os
from collections.abc import Iterator
from dataclasses import dataclass, field
from datetime import datetime
from pathlib import Path

import pyarrow as pa
import pyarrow.parquet as pq

NAME = "manifest.parquet"
FOLDER = "records"
_KEY = b"qvslm.archive"
_LAYOUT = 2

WHOLE, BROKEN, UNREADABLE = "whole", "broken", "unreadable"

_PART = pa.struct(
    [
        ("path", pa.string()),
        ("kind", pa.string()),
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


@dataclass(frozen=True)
class Part:
    """A Parquet file: its path in the dataset, and what is in it."""

    path: str
    kind: str
    rows: int
    bytes: int


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


class Manifest:
    """The files of a dataset by their paths."""

    def __init__(self, tz: str | None = None) -> None:
        self.tz = tz
        """The zone of the measurements, None for the clocks of the instruments."""
        self.files: dict[str, File] = {}

    @classmethod
    def load(cls, dataset: str | os.PathLike[str]) -> "Manifest":
        """The manifest of a dataset. Raises ``FileNotFoundError`` where there is none."""
        table = pq.read_table(Path(dataset) / NAME, partitioning=None)
        told = json.loads((table.schema.metadata or {}).get(_KEY, b"{}"))
        if told.get("layout") != _LAYOUT:
            raise ValueError(
                f"{dataset} has the layout {told.get('layout', 'of no archive')}, and this version"
                f" knows {_LAYOUT}: add the files to a new folder"
            )
        manifest = cls(told["tz"])
        for row in table.to_pylist():
            parts = [Part(**part) for part in row.pop("parts")]
            census = dict(row.pop("census"))
            manifest.files[row["path"]] = File(**row, parts=parts, census=census)
        return manifest

    def commit(self, dataset: Path) -> None:
        """Makes the files the dataset's, all at once and for good."""
        rows = [
            {**vars(file), "parts": [vars(part) for part in file.parts]}
            | {"census": list(file.census.items())}
            for _, file in sorted(self.files.items())
        ]
        told = json.dumps({"layout": _LAYOUT, "tz": self.tz}).encode()
        table = pa.Table.from_pylist(rows, SCHEMA.with_metadata({_KEY: told}))
        beside = dataset / f".{NAME}"
        pq.write_table(table, beside, compression="zstd")
        # What the manifest names is on the disk before the manifest is.
        os.sync()
        beside.replace(dataset / NAME)

    def parts(self, kind: str | None = None) -> list[Part]:
        """The Parquet files of a kind of records, or all of them."""
        return [
            part
            for file in self.files.values()
            for part in file.parts
            if kind is None or part.kind == kind
        ]

    def kinds(self) -> list[str]:
        """The kinds of records of which the dataset holds some."""
        return sorted({part.kind for part in self.parts()})

    def broken(self) -> list[File]:
        """The files that gave not all of what they once held, or nothing."""
        return [file for file in self.files.values() if file.status != WHOLE]


def sweep(dataset: Path, manifest: Manifest) -> int:
    """Removes Parquet files that the manifest does not name, and folders without a file."""
    named = {part.path for part in manifest.parts()}
    removed = 0
    for folder, _, names in os.walk(dataset / FOLDER, topdown=False):
        for name in names:
            path = Path(folder, name)
            if path.relative_to(dataset).as_posix() not in named:
                path.unlink()
                removed += 1
        with contextlib.suppress(OSError):
            Path(folder).rmdir()
    return removed


@contextlib.contextmanager
def locked(dataset: Path) -> Iterator[None]:
    """Only one process at a time changes a dataset. The lock goes with its process."""
    import fcntl

    dataset.mkdir(parents=True, exist_ok=True)
    with (dataset / ".lock").open("a") as lock:
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
        except BlockingIOError:
            raise BlockingIOError(f"another process adds to {dataset}") from None
        yield
