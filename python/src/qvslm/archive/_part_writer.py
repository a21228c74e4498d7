"""Writes the Parquet files of a dataset: their encodings, row groups and order."""

import time
import uuid
from pathlib import Path

import pyarrow as pa
import pyarrow.parquet as pq

# A row group is large enough for engines to read it fast, and small enough to be kept in memory
# for each kind of records at once.
GROUP_ROWS = 122_880
GROUP_BYTES = 16 << 20
# In a file with fewer rows dictionaries and statistics of each column take more room than they
# save.
_FEW_ROWS = 1024


def _leaf(field: pa.Field) -> tuple[str, pa.DataType]:
    path, kind = str(field.name), field.type
    while pa.types.is_fixed_size_list(kind):
        path, kind = f"{path}.list.element", kind.value_type
    return path, kind


def _options(schema: pa.Schema, is_small: bool) -> dict[str, object]:
    """Encodings that every engine reads: those of Spark before 4.3 know no split streams."""
    leaves = [_leaf(field) for field in schema]
    # Times and counters that follow each other are small as differences.
    counters = [
        path
        for path, kind in leaves
        if pa.types.is_timestamp(kind) or (pa.types.is_integer(kind) and kind.bit_width >= 32)
    ]
    others = [path for path, _ in leaves if path not in counters]
    return {
        "compression": "zstd",
        "sorting_columns": [pq.SortingColumn(schema.get_field_index("time"))],
        "use_dictionary": ["file"] if is_small else others,
        "column_encoding": dict.fromkeys(counters, "DELTA_BINARY_PACKED"),
        "write_statistics": ["time"] if is_small else True,
    }


def _bare(schema: pa.Schema) -> pa.Schema:
    """With the units of the fields. Their comments would take room in each file."""
    return pa.schema(
        [
            field.with_metadata({k: v for k, v in (field.metadata or {}).items() if k == b"unit"})
            for field in schema
        ]
    )


def new_name() -> str:
    """A name that no Parquet file has."""
    return f"{time.strftime('%Y%m%d')}-{uuid.uuid4().hex[:16]}"


class PartWriter:
    """A Parquet file of one kind and month whose rows stand in the order of time."""

    def __init__(self, place: Path) -> None:
        self._place = place
        self._beside = place.with_name(f".{place.name}")
        self._writer: pq.ParquetWriter | None = None
        self._waiting: list[pa.Table] = []
        self._bytes = self._more = 0
        self._last: int | None = None
        self.rows = 0

    def follows(self, first: int) -> bool:
        """Whether rows from that time on stand behind those that are here."""
        return self._last is None or first >= self._last

    def add(self, table: pa.Table, last: int) -> None:
        """Rows in the order of time, and the time of the last of them."""
        self._waiting.append(table)
        self._bytes += table.nbytes
        self._last = last
        self.rows += table.num_rows
        self._more += table.num_rows
        while self._more >= GROUP_ROWS:
            self._flush(GROUP_ROWS)
        if self._bytes >= GROUP_BYTES:
            self._flush(self._more)

    def _flush(self, rows: int) -> None:
        table = pa.concat_tables(self._waiting)
        if self._writer is None:
            self._place.parent.mkdir(parents=True, exist_ok=True)
            schema = _bare(table.schema)
            options = _options(schema, rows < _FEW_ROWS)
            self._writer = pq.ParquetWriter(self._beside, schema, **options)
        group = pa.Table.from_arrays(table.columns, schema=self._writer.schema).slice(0, rows)
        self._writer.write_table(group, row_group_size=rows)
        rest = table.slice(rows)
        self._waiting, self._bytes, self._more = [rest], rest.nbytes, rest.num_rows

    def close(self) -> int:
        """Puts the file in its place, and gives its bytes. It has at least one row."""
        if self._more > 0:
            self._flush(self._more)
        assert self._writer is not None
        self._writer.close()
        self._beside.replace(self._place)
        return self._place.stat().st_size
