"""Measurement files as a data source of Spark 4: ``spark.read.format("qvslm")``.

    qvslm.spark.register(spark)
    frame = spark.read.format("qvslm").option("records", "Interval").load("/archive/station1")

Rows are those of ``qvslm archive add``: ``kind``, ``instrument``, ``month``, ``file`` and ``time``,
then the fields of the record. Options:

* ``path``, or the paths given to ``load``: files, and folders that are searched.
* ``records``: the kind of records, or ``Samples``; with ``broken`` there is a row for each file
  that is not whole.
* ``tz``: the zone of the measurements. Without it times are ``timestamp_ntz``.
* ``columns``: ``RecordTime,LevelA``; others are neither made nor sent. Spark tells a data source in
  Python of filters, but not of columns.
* ``pattern``: names of files in folders.
* ``strict``: ``true`` fails at a file that is not whole, or no measurement file.
* ``partition_bytes``: about so many bytes of files go into a partition. A file is never split.

Comparisons of ``time`` with constants are handed down where ``spark.sql.python.filterPushdown
.enabled`` is set: rows outside are not sent, and files that end before are not decoded, for
kinds of records of which a file tells that.
"""

import json
import os
from collections.abc import Iterable, Iterator, Sequence
from dataclasses import dataclass
from datetime import UTC, datetime
from pathlib import Path
from zoneinfo import ZoneInfo

import pyarrow as pa
import pyarrow.compute as pc
from pyspark.sql import SparkSession
from pyspark.sql.datasource import (
    DataSource,
    DataSourceReader,
    EqualTo,
    Filter,
    GreaterThan,
    GreaterThanOrEqual,
    InputPartition,
    LessThan,
    LessThanOrEqual,
)
from pyspark.sql.pandas.types import from_arrow_type
from pyspark.sql.types import StructField, StructType

from ._errors import Error
from ._file import Info, MeasurementFile
from .archive import _layout
from .archive._translate import BATCH, shown

PARTITION_BYTES = 64 << 20
BROKEN = "broken"
_BROKEN_SCHEMA = pa.schema(
    [
        pa.field("file", pa.string()),
        pa.field("status", pa.string()),
        pa.field("offset", pa.int64()),
        pa.field("reason", pa.string()),
    ]
)
# A file tells the time of its last record, and no record of these kinds is later. Of most others
# there are few. Bands and tables do not count for it, and samples go on after the time of their
# record: files are not left out for these.
_TOLD_OF = ("Interval", "Summary", "DaySummary", "Event", "LevelMark", "TimeHistory")
_HEADS = [pa.field(name, pa.string()) for name in ("kind", "instrument", "month")]


def _spark_type(kind: pa.DataType) -> pa.DataType:
    """What Spark has no type of is told in the next wider one."""
    if pa.types.is_fixed_size_list(kind):
        return pa.list_(_spark_type(kind.value_type))
    if pa.types.is_timestamp(kind):
        return pa.timestamp("us", tz=kind.tz and "UTC")
    wider = {pa.uint8(): pa.int16(), pa.uint16(): pa.int32(), pa.uint32(): pa.int64()}
    return wider.get(kind, kind)


def _arrow_schema(kind: str, tz: str | None) -> pa.Schema:
    if kind == BROKEN:
        return _BROKEN_SCHEMA
    fields = [*_HEADS, *_layout.schema(kind, tz)]
    return pa.schema([field.with_type(_spark_type(field.type)) for field in fields])


def _spark_field(field: pa.Field, is_clock: bool) -> StructField:
    told = {key.decode(): value.decode() for key, value in (field.metadata or {}).items()}
    kind = from_arrow_type(field.type, prefer_timestamp_ntz=is_clock)
    return StructField(field.name, kind, True, metadata=told)


@dataclass
class _Files(InputPartition):
    """Files that one task reads, one after the other."""

    files: list[tuple[str, int]]


@dataclass
class _Span:
    """Microseconds, as rows tell them; both ends belong to it."""

    first: int | None = None
    last: int | None = None

    def holds(self, times: pa.Array) -> pa.Array:
        numbers = times.cast(pa.int64())
        mask = pc.is_valid(numbers)
        if self.first is not None:
            mask = pc.and_(mask, pc.greater_equal(numbers, self.first))
        if self.last is not None:
            mask = pc.and_(mask, pc.less_equal(numbers, self.last))
        return mask

    def is_all(self) -> bool:
        return self.first is None and self.last is None


def _microseconds(value: object) -> int | None:
    if not isinstance(value, datetime):
        return None
    moment = value if value.tzinfo else value.replace(tzinfo=UTC)
    return int((moment - datetime(1970, 1, 1, tzinfo=UTC)) / _MICROSECOND)


_MICROSECOND = datetime.resolution


def partitions_of(files: Sequence[tuple[str, int]], size: int) -> list[list[tuple[str, int]]]:
    """Files by paths and bytes in parts of about equal bytes: the largest file to the emptiest."""
    import heapq

    total = sum(file[1] for file in files)
    count = max(1, min(len(files), -(-total // max(size, 1))))
    parts: list[list[tuple[str, int]]] = [[] for _ in range(count)]
    room = [(0, 0, number) for number in range(count)]
    for file in sorted(files, key=lambda item: (-item[1], item[0])):
        filled, many, number = heapq.heappop(room)
        parts[number].append(file)
        heapq.heappush(room, (filled + file[1], many + 1, number))
    return [part for part in parts if part]


class _Reader(DataSourceReader):
    def __init__(self, options: dict[str, str], columns: list[str]) -> None:
        self._options = options
        self._kind = options.get("records", "Interval")
        self._tz = options.get("tz")
        self._is_strict = options.get("strict", "false").lower() == "true"
        self._columns = columns
        self._span = _Span()

    def pushFilters(self, filters: list[Filter]) -> Iterable[Filter]:  # noqa: N802
        """Takes comparisons of ``time``; Spark looks after the others."""
        for given in filters:
            bound = None
            comparisons = (
                EqualTo,
                GreaterThan,
                GreaterThanOrEqual,
                LessThan,
                LessThanOrEqual,
            )
            if isinstance(given, comparisons) and given.attribute == ("time",):
                bound = _microseconds(given.value)
            if bound is None or self._kind == BROKEN:
                yield given
                continue
            first, last = self._span.first, self._span.last
            if isinstance(given, (EqualTo, GreaterThan, GreaterThanOrEqual)):
                low = bound + isinstance(given, GreaterThan)
                self._span.first = low if first is None else max(first, low)
            if isinstance(given, (EqualTo, LessThan, LessThanOrEqual)):
                high = bound - isinstance(given, LessThan)
                self._span.last = high if last is None else min(last, high)

    def _paths(self) -> list[str]:
        if "paths" in self._options:
            return [str(path) for path in json.loads(self._options["paths"])]
        return [self._options["path"]]

    def partitions(self) -> Sequence[InputPartition]:
        files = {}
        for root in map(Path, self._paths()):
            found = [root] if not root.is_dir() else root.rglob(self._options.get("pattern", "*"))
            for path in found:
                if path.is_file() or path == root:
                    files[os.path.abspath(path)] = path.stat().st_size  # noqa: PTH100
        size = int(self._options.get("partition_bytes", PARTITION_BYTES))
        return [_Files(part) for part in partitions_of(sorted(files.items()), size)]

    def read(self, partition: InputPartition) -> Iterator[pa.RecordBatch]:  # type: ignore[override]
        assert isinstance(partition, _Files)
        for path, _ in partition.files:
            try:
                yield from self._read_file(path)
            except (Error, OSError) as fault:
                if self._is_strict:
                    raise
                if self._kind == BROKEN:
                    offset = fault.offset if isinstance(fault, Error) else None
                    yield from self._told(path, "unreadable", offset, shown(str(fault)))

    def _told(
        self, path: str, status: str, offset: int | None, reason: str
    ) -> Iterator[pa.RecordBatch]:
        row = {"file": shown(path), "status": status, "offset": offset, "reason": reason}
        yield from pa.Table.from_pylist([row], _BROKEN_SCHEMA).select(self._columns).to_batches()

    def _ends_before(self, info: Info) -> bool:
        """Whether no row of a file is late enough, as far as the file tells."""
        last, start = _microseconds(info.last_record), _microseconds(info.start)
        if self._kind not in _TOLD_OF or self._span.first is None or last is None:
            return False
        # A record without a time has that of the start.
        return max(last, start or last) < self._span.first

    def _read_file(self, path: str) -> Iterator[pa.RecordBatch]:
        with MeasurementFile(path, self._tz, self._is_strict) as file:
            file.read([])
            info, status = file.info, file.status
        if self._kind == BROKEN:
            if not status.whole:
                yield from self._told(path, BROKEN, status.offset, status.reason)
            return
        if self._ends_before(info):
            return
        wanted = _arrow_schema(self._kind, self._tz)
        wanted = pa.schema([wanted.field(name) for name in self._columns])
        with MeasurementFile(path, self._tz) as file:
            for kind, table in _layout.tables(
                file, [self._kind], shown(path), info, BATCH, self._columns
            ):
                heads = {
                    "kind": [kind] * table.num_rows,
                    "instrument": [_layout.instrument(info)] * table.num_rows,
                    "month": [
                        month
                        for start, end, month in _layout.months(table)
                        for _ in range(start, end)
                    ],
                }
                for name, values in heads.items():
                    if name in self._columns:
                        table = table.append_column(name, pa.array(values, pa.string()))
                if not self._span.is_all():
                    times = table.column("time").cast(_spark_type(table.schema.field("time").type))
                    table = table.filter(self._span.holds(times))
                yield from _cast(table.select(self._columns), wanted).to_batches()


def _cast(table: pa.Table, schema: pa.Schema) -> pa.Table:
    arrays = [column.cast(field.type) for column, field in zip(table.columns, schema, strict=True)]
    return pa.Table.from_arrays(arrays, schema=schema)


class QvslmSource(DataSource):
    """The data source ``qvslm``."""

    @classmethod
    def name(cls) -> str:
        return "qvslm"

    def schema(self) -> StructType:
        tz = self.options.get("tz")
        if tz is not None:
            ZoneInfo(tz)
        own = _arrow_schema(self.options.get("records", "Interval"), tz)
        names = own.names
        if "columns" in self.options:
            names = [name.strip() for name in self.options["columns"].split(",")]
        return StructType([_spark_field(own.field(name), tz is None) for name in names])

    def reader(self, schema: StructType) -> DataSourceReader:
        return _Reader(dict(self.options), schema.fieldNames())


def register(spark: SparkSession) -> None:
    """Makes ``format("qvslm")`` known to a session."""
    spark.dataSource.register(QvslmSource)
