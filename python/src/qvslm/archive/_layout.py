"""How records stand in the Parquet files of a dataset, whoever writes them."""

import dataclasses
import itertools
import re
from collections import Counter
from collections.abc import Collection, Iterator
from datetime import UTC
from pathlib import Path

import numpy as np
import pyarrow as pa
import pyarrow.compute as pc
from numpy.typing import NDArray

from .. import _core, _frames
from .._file import Info, MeasurementFile, Rows
from .._measurement import SAMPLE
from .._records import RECORD_TYPES, RecordType, record_type

SAMPLES = "Samples"
"""The kind of the rows of the time history, a row a sample or marker."""
NO_MONTH = "unknown"
NO_TIME = int(np.iinfo(np.int64).min)
_HISTORY = "TimeHistory"
_TIME_FIELDS = ("RecordTime", "BlockTime", "StopTime")
_NOBODY = Info("", 0, "", "", "", ("", "", ""), 0, None, None, None, None)
_ENTRIES = max(size for field in record_type(_HISTORY).fields for size in field.shape)
_NUMBER = pa.field(
    "record",
    pa.int32(),
    metadata={"comment": "number of the record of the time history in its file, from 0"},
)


def stored(kind: str) -> RecordType:
    """The records of a kind with the fields that stand in the dataset.

    The entries of a time history are the rows of ``Samples``, and stand there alone.
    """
    record = record_type(kind)
    if kind != _HISTORY:
        return record
    return dataclasses.replace(record, fields=tuple(f for f in record.fields if not f.shape))


def instrument(info: Info) -> str:
    """The instrument's name in paths: model and serial number."""
    return f"{info.model}-{re.sub(r'[^A-Za-z0-9.-]', '_', info.serial) or 'none'}"


def _time_type(tz: str | None, unit: str) -> pa.DataType:
    return pa.timestamp(unit, tz=tz)


def _in_milliseconds(kind: pa.DataType) -> pa.DataType:
    if pa.types.is_fixed_size_list(kind):
        return pa.list_(_in_milliseconds(kind.value_type), kind.list_size)
    return _time_type(kind.tz, "ms") if pa.types.is_timestamp(kind) else kind


def _seconds(info: Info) -> int:
    if info.start is None:
        return 0
    start = info.start if info.start.tzinfo else info.start.replace(tzinfo=UTC)
    return int(start.timestamp())


def _times(record: RecordType, rows: Rows, info: Info) -> NDArray[np.int64]:
    """Seconds of each record: its own time, else the start of its file; 0 for none."""
    own = next((field for field in record.fields if field.name in _TIME_FIELDS), None)
    if own is None:
        return np.full(len(rows), _seconds(info))
    times = rows[own.name].astype(np.int64)
    return np.where(times > 0, times, _seconds(info))


def keys(table: pa.Table) -> NDArray[np.int64]:
    """By what rows are sorted: their times, those without one first."""
    times = table.column("time").cast(pa.int64()).combine_chunks()
    numbers: NDArray[np.int64] = times.fill_null(NO_TIME).to_numpy(zero_copy_only=False)
    return numbers


def _month(number: np.datetime64) -> str:
    return NO_MONTH if np.isnat(number) else str(number)


def months(table: pa.Table) -> list[tuple[int, int, str]]:
    """The rows by months on the clock of the place: first row, the one behind, "2024-06"."""
    if table.num_rows == 0:
        return []
    times = table.column("time").combine_chunks()
    if times.type.tz is not None:
        times = pc.local_timestamp(times)
    if times.null_count == 0:
        ends = pc.min_max(times).values()
        first, last = (np.datetime64(end.value, times.type.unit).astype("M8[M]") for end in ends)
        if first == last:
            return [(0, len(times), _month(first))]
    numbers = times.to_numpy(zero_copy_only=False).astype("M8[M]")
    counts = numbers.view(np.int64)
    starts = [0, *(np.flatnonzero(counts[1:] != counts[:-1]) + 1).tolist(), len(counts)]
    return [(start, end, _month(numbers[start])) for start, end in itertools.pairwise(starts)]


def _files(path: str, rows: int) -> pa.Array:
    return pa.DictionaryArray.from_arrays(pa.array(np.zeros(rows, np.int32)), [path]).cast(
        pa.string()
    )


def records_table(
    kind: str,
    rows: Rows,
    path: str,
    info: Info,
    tz: str | None,
    columns: Collection[str] | None = None,
    first: int = 0,
) -> pa.Table:
    """Records as they stand in the dataset; of their fields those that are asked for.

    ``first`` is the number of the first of them in its file.
    """
    record = stored(kind)
    seconds = _times(record, rows, info)
    times = pa.array(seconds * 1000, mask=seconds == 0).cast(_time_type(tz, "ms"))
    if columns is not None:
        wanted = tuple(field for field in record.fields if field.name in columns)
        record = dataclasses.replace(record, fields=wanted)
    table = _frames.to_arrow(record, rows, tz)
    heads = [pa.field("file", pa.string()), pa.field("time", times.type)]
    arrays = [_files(path, len(rows)), times]
    if kind == _HISTORY:
        heads.append(_NUMBER)
        arrays.append(pa.array(np.arange(first, first + len(rows), dtype=np.int32)))
    # Parquet knows no seconds.
    fields = [field.with_type(_in_milliseconds(field.type)) for field in table.schema]
    for field, column in zip(fields, table.columns, strict=True):
        arrays.append(column if column.type == field.type else column.cast(field.type))
    return pa.Table.from_arrays(arrays, schema=pa.schema([*heads, *fields]))


def _samples_table(
    series: NDArray[np.void], numbers: NDArray[np.int32], path: str, tz: str | None
) -> pa.Table:
    levels = [
        pa.array(np.ascontiguousarray(series[name]), from_pandas=True)
        for name in ("level", "second")
    ]
    marks = [pa.array(np.ascontiguousarray(series[name])) for name in ("mark", "detail")]
    stamps = np.ascontiguousarray(series["time"]).view(np.int64)
    times = pa.array(stamps, mask=stamps == 0).cast(_time_type(tz, "us"))
    decibels = {"unit": "dB"}
    fields = [
        pa.field("file", pa.string()),
        pa.field("time", times.type),
        _NUMBER,
        pa.field("level", pa.float32(), metadata=decibels),
        pa.field("second", pa.float32(), metadata=decibels),
        pa.field("mark", pa.int16()),
        pa.field("detail", pa.int16()),
    ]
    arrays = [_files(path, len(series)), times, pa.array(numbers), *levels, *marks]
    return pa.Table.from_arrays(arrays, schema=pa.schema(fields))


class Samples:
    """The series of the time history, made a batch of records at a time.

    A record tells its time in whole seconds; parts of a second come from where the one before it
    ended.
    """

    def __init__(self, path: str, tz: str | None) -> None:
        self._path = path
        self._tz = tz
        self._end = np.nan

    def table(self, rows: Rows, first: int) -> pa.Table:
        """The samples of the records, which go on where those before ended.

        ``first`` is the number of the first of them in the file.
        """
        entries, self._end = _core.series(np.ascontiguousarray(rows).view(np.uint8), self._end)
        counts = np.minimum(rows["EntryCount"], _ENTRIES)
        numbers = np.arange(first, first + len(rows), dtype=np.int32)
        return _samples_table(
            entries.view(SAMPLE), np.repeat(numbers, counts), self._path, self._tz
        )


def schema(kind: str, tz: str | None) -> pa.Schema:
    """The columns of a kind of rows: file and time, then the fields of the record."""
    if kind == SAMPLES:
        return _samples_table(np.empty(0, SAMPLE), np.empty(0, np.int32), "", tz).schema
    return records_table(kind, np.empty(0, record_type(kind).dtype), "", _NOBODY, tz).schema


def check_place(dataset: Path) -> None:
    """Raises ``ValueError`` below a folder that engines would take for a column of the rows.

    They read ``month=2024-06`` in a path wherever in it that stands, in place of the rows' own.
    """
    named = {part.partition("=")[0].lower(): part for part in dataset.parts if "=" in part}
    if not named:
        return
    columns = {"kind", "instrument", "month"}
    for kind in [*RECORD_TYPES, SAMPLES]:
        columns.update(name.lower() for name in schema(kind, None).names)
    taken = sorted(columns & named.keys())
    if taken:
        told = f"engines would take {named[taken[0]]} for the column of that name"
        raise ValueError(f"{dataset}: {told}")


def tables(
    file: MeasurementFile,
    kinds: Collection[str] | None,
    path: str,
    info: Info,
    batch_rows: int,
    columns: Collection[str] | None = None,
) -> Iterator[tuple[str, pa.Table]]:
    """The rows of a file by kinds, a batch of records at a time."""
    samples = Samples(path, file.tz)
    has_samples = kinds is None or SAMPLES in kinds
    records = None if kinds is None else {*kinds} - {SAMPLES}
    if records is not None and has_samples:
        records.add(_HISTORY)
    counts: Counter[str] = Counter()
    for batch in file.batches(records, batch_rows):
        for kind, rows in batch.items():
            first = counts[kind]
            counts[kind] += len(rows)
            if kinds is None or kind in kinds:
                yield kind, records_table(kind, rows, path, info, file.tz, columns, first)
            if kind == _HISTORY and has_samples:
                series = samples.table(rows, first)
                if series.num_rows > 0:
                    yield SAMPLES, series
