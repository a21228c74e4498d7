"""The rows of files as a dataset must hold them, by way of ``qvslm.read``."""

from collections import Counter, defaultdict
from collections.abc import Iterable
from pathlib import Path

import numpy as np
import pyarrow as pa
import pyarrow.compute as pc
import pyarrow.parquet as pq
from numpy.typing import NDArray

import qvslm
from qvslm.archive import Manifest

Rows = NDArray[np.void]
Tables = dict[tuple[str, str], pa.Table]


def in_order(table: pa.Table) -> pa.Table:
    """By time; rows of one time stay as they stood."""
    keys = table.column("time").cast(pa.int64()).fill_null(0).to_numpy()
    return table.take(np.argsort(keys, kind="stable")).combine_chunks()


def rows_of_dataset(dataset: Path) -> Tables:
    """The rows of each file and kind, from the Parquet files that the manifest names."""
    pieces: dict[tuple[str, str], list[pa.Table]] = defaultdict(list)
    manifest = Manifest.load(dataset)
    tables: dict[str, pa.Table] = {}
    left: dict[str, int] = {}
    sizes: Counter[str] = Counter()
    for file in manifest.files.values():
        for part in file.parts:
            if part.path not in tables:
                table = pq.read_table(dataset / part.path, partitioning=None)
                keys = table.column("time").cast(pa.int64()).fill_null(0).to_numpy()
                assert (np.diff(keys) >= 0).all()
                tables[part.path], left[part.path] = table, table.num_rows
            table = tables[part.path]
            table = table.filter(pc.equal(table.column("file"), file.path))
            assert table.num_rows == part.rows
            left[part.path] -= part.rows
            sizes[part.path] += part.bytes
            pieces[file.path, part.kind].append(table)
        assert file.rows == sum(part.rows for part in file.parts)
    # Parquet files hold rows of no other measurement file.
    assert not any(left.values())
    for path, size in sizes.items():
        assert size == (dataset / path).stat().st_size
    return {key: in_order(pa.concat_tables(tables)) for key, tables in pieces.items()}


def assert_levels_can_be_rebuilt(rows: Rows, history: pa.Table, samples: pa.Table) -> None:
    """The levels of the records of a time history are in their samples, each at its place."""
    order = np.argsort(samples.column("record").to_numpy(), kind="stable")
    level, second, mark, detail = (
        samples.column(name).to_numpy()[order] for name in ("level", "second", "mark", "detail")
    )
    own = history.take(np.argsort(history.column("record").to_numpy()))
    counts, flags = (own.column(name).to_numpy() for name in ("EntryCount", "StreamFlags"))
    second = np.where(np.isnan(second), np.where(np.repeat(flags, counts) == 0, 0, 999), second)
    used = np.arange(rows["FirstLevels"].shape[1]) < counts[:, np.newaxis]
    for name, of_samples, of_marks in (
        ("FirstLevels", level, -mark),
        ("SecondLevels", second, detail),
    ):
        levels = np.zeros(used.shape, np.float32)
        levels[used] = np.where(mark < 0, of_samples, of_marks)
        assert (levels == rows[name]).all(), name


def assert_rows_are_those_of(
    dataset: Path, paths: Iterable[Path], tz: str | None = None, others: bool = False
) -> None:
    """Each value of each record of the files stands in the dataset once, and nothing else does.

    With ``others`` the dataset may hold other files.
    """
    paths = list(paths)
    found = rows_of_dataset(dataset)
    for path in paths:
        try:
            measurement = qvslm.read(path, tz=tz)
        except qvslm.Error:
            continue
        for kind in measurement:
            own = measurement.to_arrow(kind)
            table = found.pop((str(path), kind))
            assert table.num_rows == own.num_rows, (path, kind)
            times = table.column("time")
            told = pa.chunked_array([pa.nulls(own.num_rows, pa.timestamp("s", tz))])
            for name in ("RecordTime", "BlockTime", "StopTime"):
                if name in own.schema.names:
                    told = own.column(name)
                    break
            start = pa.scalar(measurement.info.start, told.type)
            record = in_order(own.append_column("time", told.fill_null(start)))
            assert times.equals(record.column("time").cast(times.type)), (path, kind)
            for name in own.schema.names:
                if kind == "TimeHistory" and pa.types.is_fixed_size_list(own.field(name).type):
                    assert name not in table.column_names
                    continue
                column = table.column(name)
                assert column.equals(record.column(name).cast(column.type)), (path, kind, name)
            if kind == "TimeHistory":
                history = table
        series = measurement.samples()
        if len(series):
            samples = found.pop((str(path), "Samples"))
            assert_levels_can_be_rebuilt(measurement["TimeHistory"], history, samples)
            order = np.argsort(series["time"], kind="stable")
            for name in ("level", "second", "mark", "detail"):
                own_values = pa.chunked_array([series[name][order].copy()])
                if name in ("level", "second"):
                    own_values = pa.chunked_array([pa.array(series[name][order], from_pandas=True)])
                assert samples.column(name).equals(own_values), (path, name)
            stamps = samples.column("time").cast(pa.int64()).fill_null(0).to_numpy()
            assert (stamps == series["time"][order].astype(np.int64)).all(), path
    named = {str(path) for path in paths}
    assert not [key for key in found if not others or key[0] in named]
