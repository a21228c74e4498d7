"""Small Parquet files become larger ones, and rows of files that went leave those that they share.

What is written stands beside what it replaces, under a name of its own, and counts when a manifest
names it.
"""

from collections import Counter, defaultdict
from collections.abc import Iterator
from dataclasses import dataclass
from pathlib import Path

import numpy as np
import pyarrow as pa
import pyarrow.compute as pc
import pyarrow.parquet as pq
from numpy.typing import NDArray

from . import _layout
from ._dataset_files import Merged, Place, path_of
from ._errors import DatasetError
from ._manifest import Manifest
from ._part_writer import PartWriter, new_name

SMALL_FILES = 8
"""So many small files of a kind, instrument and month are merged."""
SMALL_BYTES = 8 << 20
MOST_BYTES = 64 << 20
_MOST_FILES = 256
# Of a file whose rows are at hand; of files that overlap the second has half of it, and so on.
_BATCH_BYTES = 8 << 20
_BATCH_ROWS = 16384


@dataclass(frozen=True)
class Job:
    """Parquet files of one kind, instrument and month that become one."""

    places: list[Place]
    files: list[str] | None = None
    """The measurement files whose rows stay; all of them for None."""


def small(manifest: Manifest) -> list[Job]:
    """The small files that are to be merged."""
    sizes: dict[Place, int] = Counter()
    # By time, so that files which are too many for one follow each other.
    for file in sorted(manifest.files.values(), key=lambda item: (str(item.start), item.path)):
        for part in file.parts:
            sizes[part.place] += part.bytes
    by_month: dict[tuple[str, ...], list[Place]] = defaultdict(list)
    for place, size in sizes.items():
        if size < SMALL_BYTES:
            by_month[place[:3]].append(place)
    jobs = []
    for places in by_month.values():
        if len(places) < SMALL_FILES:
            continue
        bins: list[list[Place]] = [[]]
        filled = 0
        for place in places:
            if filled + sizes[place] > MOST_BYTES or len(bins[-1]) == _MOST_FILES:
                bins.append([])
                filled = 0
            bins[-1].append(place)
            filled += sizes[place]
        jobs += [Job(bin_) for bin_ in bins if len(bin_) > 1]
    return jobs


def holed(manifest: Manifest) -> list[Job]:
    """The files that hold rows of measurement files that went."""
    return [Job([place], files) for place, files in manifest.holed().items()]


def _width(kind: pa.DataType) -> int:
    """About so many bytes has a value in memory."""
    if pa.types.is_fixed_size_list(kind):
        return int(kind.list_size) * _width(kind.value_type)
    return 80 if pa.types.is_string(kind) else 1 + int(kind.bit_width) // 8


class _Input:
    """The rows of a Parquet file, from its first to its last, a batch at a time."""

    def __init__(self, path: Path, number: int) -> None:
        self._path = path
        self.number = number
        found = pq.read_metadata(path)
        schema = found.schema.to_arrow_schema()
        time = found.row_group(0).column(schema.get_field_index("time")).statistics
        is_told = time is not None and time.has_min_max and time.null_count == 0
        self.first = int(time.min_raw) if is_told else _layout.NO_TIME
        """No row comes before that time."""
        self.width = sum(_width(field.type) for field in schema)
        self.table = schema.empty_table()
        self.keys: NDArray[np.int64] = np.empty(0, np.int64)

    def open(self, batch_rows: int) -> None:
        """Must come before all else."""
        self._file = pq.ParquetFile(self._path)
        self._batches = self._file.iter_batches(batch_rows)
        self.fill()

    def fill(self) -> bool:
        """The next rows, where all of those at hand were taken; False where there are no more."""
        while len(self.keys) == 0:
            batch = next(self._batches, None)
            if batch is None:
                self._file.close()
                return False
            self.table = pa.Table.from_batches([batch])
            self.keys = _layout.keys(self.table)
        return True

    def take(self, last: int, with_last: bool) -> tuple[pa.Table, NDArray[np.int64]]:
        """The rows at hand up to a time, with those of that time or without."""
        count = int(np.searchsorted(self.keys, last, "right" if with_last else "left"))
        taken = self.table.slice(0, count), self.keys[:count]
        self.table, self.keys = self.table.slice(count), self.keys[count:]
        return taken


def _in_order(inputs: list[_Input]) -> Iterator[tuple[pa.Table, int]]:
    """The rows of all of them in the order of time. Files that do not overlap are open in turn."""
    waiting = sorted(inputs, key=lambda item: (item.first, item.number), reverse=True)
    at_hand: list[_Input] = []
    while waiting or at_hand:
        last = min((int(item.keys[-1]) for item in at_hand), default=None)
        while waiting and (last is None or waiting[-1].first <= last):
            item = waiting.pop()
            room = _BATCH_BYTES // (item.width * (len(at_hand) + 1))
            item.open(max(16, min(_BATCH_ROWS, room)))
            at_hand.append(item)
            last = int(item.keys[-1]) if last is None else min(last, int(item.keys[-1]))
        assert last is not None
        at_hand.sort(key=lambda item: item.number)
        taken, has_more = [], False
        for item in at_hand:
            # One that ends with that time may have more of it, which come before those of others.
            ends = int(item.keys[-1]) == last
            taken.append(item.take(last, not has_more))
            has_more = has_more or ends
        at_hand = [item for item in at_hand if item.fill()]
        table = pa.concat_tables([rows for rows, keys in taken if len(keys) > 0])
        if sum(len(keys) > 0 for _, keys in taken) > 1:
            table = table.take(np.argsort(np.concatenate([k for _, k in taken]), kind="stable"))
        yield table, last


def merge(dataset: str, job: Job) -> Merged:
    """Writes the file that takes the place of others. Memory is flat."""
    new = *job.places[0][:3], new_name()
    try:
        inputs = [
            _Input(Path(dataset, path_of(place)), number) for number, place in enumerate(job.places)
        ]
        writer = PartWriter(Path(dataset, path_of(new)))
        rows = _write(writer, _in_order(inputs), job.files)
        return Merged(job.places, new, writer.close(), rows)
    except (OSError, pa.ArrowException) as fault:
        raise DatasetError(f"{path_of(job.places[0])} and others: {fault}") from fault


def _write(
    writer: PartWriter, tables: Iterator[tuple[pa.Table, int]], files: list[str] | None
) -> dict[str, int]:
    stay = None if files is None else pa.array(files, pa.string())
    rows: Counter[str] = Counter()
    for table, last in tables:
        if stay is not None:
            table = table.filter(pc.is_in(table.column("file"), value_set=stay))
        if table.num_rows == 0:
            continue
        for told in pc.value_counts(table.column("file").combine_chunks()):
            rows[told["values"].as_py()] += told["counts"].as_py()
        writer.add(table, last)
    return dict(rows)
