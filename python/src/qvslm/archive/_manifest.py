"""The list of the files of a dataset: what readers go by, and what the next run goes by.

A dataset is what its manifest names, and nothing else. It is exchanged in one piece by a rename,
so a reader sees the files of before or those of after; Parquet files that it does not name do not
count, and the next run removes them.
"""

import contextlib
import gc
import json
import os
import re
from collections import defaultdict
from collections.abc import Iterator
from pathlib import Path

import pyarrow.parquet as pq

from ._dataset_files import FOLDER, WHOLE, File, Merged, Part, Place, files_of, path_of, table_of

NAME = "manifest.parquet"
_KEY = b"qvslm.archive"
_LAYOUT = 2
# What has another name was not written by this package.
_OWN = re.compile(
    rf"{FOLDER}/kind=[^/]+/instrument=[^/]+/month=[^/]+/\.?\d{{8}}-[0-9a-f]{{16}}(-\d+)?\.parquet"
)


def zone_of(dataset: str | os.PathLike[str]) -> str | None:
    """The zone of a dataset. Raises ``ValueError`` where its layout is another one."""
    told = json.loads((pq.read_schema(Path(dataset) / NAME).metadata or {}).get(_KEY, b"{}"))
    if told.get("layout") != _LAYOUT:
        raise ValueError(
            f"{dataset} has the layout {told.get('layout', 'of no archive')}, and this version"
            f" knows {_LAYOUT}: add the files to a new folder"
        )
    zone: str | None = told["tz"]
    return zone


class Manifest:
    """The files of a dataset by their paths."""

    def __init__(self, tz: str | None = None) -> None:
        self.tz = tz
        """The zone of the measurements, None for the clocks of the instruments."""
        self.files: dict[str, File] = {}
        self._left: set[Place] = set()

    @classmethod
    def load(cls, dataset: str | os.PathLike[str]) -> "Manifest":
        """The manifest of a dataset. Raises ``FileNotFoundError`` where there is none."""
        manifest = cls(zone_of(dataset))
        table = pq.read_table(Path(dataset) / NAME, partitioning=None)
        with _uncollected():
            manifest.files = {file.path: file for file in files_of(table)}
        return manifest

    def put(self, file: File) -> None:
        """A file that is new, or takes the place of what it was."""
        self.drop(file.path)
        self.files[file.path] = file

    def drop(self, name: str) -> None:
        """The rows of a file count no longer."""
        if name in self.files:
            self._left.update(part.place for part in self.files.pop(name).parts)

    def holed(self) -> dict[Place, list[str]]:
        """The Parquet files that hold rows of files that went, and the files that stay in them.

        While there are some the manifest cannot be committed.
        """
        found: dict[Place, list[str]] = defaultdict(list)
        for file in self.files.values() if self._left else ():
            for part in file.parts:
                if part.place in self._left:
                    found[part.place].append(file.path)
        self._left &= found.keys()
        return found

    def exchange(self, merged: Merged) -> None:
        """Names a Parquet file for those whose rows it holds."""
        old = set(merged.old)
        for name, part in merged.parts():
            parts = self.files[name].parts
            at = next(i for i, other in enumerate(parts) if other.place in old)
            parts[at:] = [part, *(other for other in parts[at:] if other.place not in old)]
        self._left -= old

    def commit(self, dataset: Path) -> None:
        """Makes the files the dataset's, all at once and for good."""
        if self.holed():
            raise ValueError("Parquet files hold rows of files that went")
        told = json.dumps({"layout": _LAYOUT, "tz": self.tz}).encode()
        files = [file for _, file in sorted(self.files.items())]
        table = table_of(files, {_KEY: told})
        beside = dataset / f".{NAME}"
        pq.write_table(table, beside, compression="zstd")
        # What the manifest names is on the disk before the manifest is.
        os.sync()
        beside.replace(dataset / NAME)

    def parts(self, kind: str | None = None) -> list[Part]:
        """The rows of files in Parquet files, of a kind of records or of all."""
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


@contextlib.contextmanager
def _uncollected() -> Iterator[None]:
    """Millions of objects that stay are made without a search for garbage among them."""
    was_on = gc.isenabled()
    gc.disable()
    try:
        yield
    finally:
        if was_on:
            gc.enable()


def sweep(dataset: Path, manifest: Manifest) -> int:
    """Removes Parquet files of datasets that the manifest does not name, and empty folders."""
    named = {path_of(place) for place in {part.place for part in manifest.parts()}}
    removed = 0
    for folder, _, names in os.walk(dataset / FOLDER, topdown=False):
        for name in names:
            path = Path(folder, name)
            told = path.relative_to(dataset).as_posix()
            if told not in named and _OWN.fullmatch(told):
                # A worker of a run that was killed may still be renaming it.
                path.unlink(missing_ok=True)
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
