"""The data source of Spark gives the rows of ``qvslm.read`` and ``qvslm archive add``."""

import dataclasses
import os
import signal
import subprocess
import sys
import time
from collections.abc import Iterator
from datetime import datetime
from pathlib import Path

import duckdb
import numpy as np
import polars as pl
import pytest
from conftest import ROOT
from pyspark.errors import PySparkException
from pyspark.sql import DataFrame, SparkSession
from pyspark.sql.datasource import GreaterThanOrEqual

import qvslm
from qvslm import archive
from qvslm import spark as source

os.environ["PYSPARK_PYTHON"] = sys.executable


def session(master: str) -> SparkSession:
    """A session that knows the data source."""
    spark = (
        SparkSession.builder.master(master)
        .config("spark.ui.enabled", "false")
        .config("spark.sql.shuffle.partitions", "2")
        .config("spark.driver.host", "127.0.0.1")
        .config("spark.driver.bindAddress", "127.0.0.1")
        .config("spark.sql.python.filterPushdown.enabled", "true")
        .config("spark.python.worker.reuse", "true")
        .config("spark.executor.memory", "512m")
        .config("spark.testing.reservedMemory", "0")
        .getOrCreate()
    )
    source.register(spark)
    return spark


@pytest.fixture(scope="module")
def spark() -> Iterator[SparkSession]:
    """A session on this machine."""
    session_here = session("local[2]")
    yield session_here
    session_here.stop()


def load(spark: SparkSession, folder: Path, **options: str | int) -> DataFrame:
    """A folder as a table."""
    return spark.read.format("qvslm").options(**options).load(str(folder))


def test_schema(spark: SparkSession) -> None:
    schema = load(spark, Path("/"), records="Interval").schema
    names = ["kind", "instrument", "month", "file", "time"]
    assert schema.fieldNames() == [*names, *(f.name for f in qvslm.fields("Interval"))]
    assert schema["LevelA"].simpleString() == "LevelA:float"
    assert schema["LevelA"].metadata == {"comment": "level", "unit": "dB"}
    assert schema["RecordTime"].simpleString() == "RecordTime:timestamp_ntz"
    zoned = load(spark, Path("/"), records="Interval", tz="Europe/Berlin").schema
    assert zoned["RecordTime"].simpleString() == "RecordTime:timestamp"


def test_rows_columns_and_filters(spark: SparkSession, kept_files: list[Path]) -> None:
    frame = load(
        spark,
        kept_files[0].parents[1],
        records="Interval",
        columns="file,time,LevelA",
        partition_bytes=200_000,
    )
    assert frame.columns == ["file", "time", "LevelA"]
    expected = []
    for path in kept_files:
        measurement = qvslm.read(path)
        times = measurement.times("Interval").tolist()
        levels = measurement["Interval"]["LevelA"].tolist()
        expected += [
            (str(path), time, None if level == 999.0 else level)
            for time, level in zip(times, levels, strict=True)
        ]
    assert sorted(map(tuple, frame.collect()), key=repr) == sorted(expected, key=repr)
    first, last = datetime(2024, 6, 22, 12), datetime(2024, 6, 22, 13)
    some = frame.where((frame.time >= first) & (frame.time < last))
    plan = some._jdf.queryExecution().executedPlan().toString()
    assert "time" not in plan.split("Filter")[-1].split("\n")[0].replace("isnotnull(time", "")
    inside = [row for row in expected if first <= row[1] < last]
    assert sorted(map(tuple, some.collect()), key=repr) == sorted(inside, key=repr)
    assert inside


def test_broken_files(spark: SparkSession, files: list[Path], tmp_path: Path) -> None:
    (tmp_path / "files" / "notes.txt").write_text("no measurement")
    expected = {str(path) for path in files if not qvslm.read(path).status.whole}
    rows = load(spark, tmp_path / "files", records="broken").collect()
    assert {row.file for row in rows} == {*expected, str(tmp_path / "files" / "notes.txt")}
    assert all(row.reason for row in rows)
    with pytest.raises(PySparkException, match=r"notes\.txt|\.qvd"):
        load(spark, tmp_path / "files", columns="time", strict="true").collect()


def test_a_broken_file_with_a_name_of_any_bytes(tmp_path: Path) -> None:
    Path(os.fsdecode(os.fsencode(tmp_path) + b"/n\xff.txt")).write_text("no measurement")
    cut = (ROOT / "samples" / "files" / "general_day.qvd").read_bytes()[:-1000]
    (tmp_path / "cut.qvd").write_bytes(cut)
    options = {"path": str(tmp_path), "records": "broken"}
    reader = source._Reader(options, ["file", "status", "reason"])
    batches = [batch for part in reader.partitions() for batch in reader.read(part)]
    rows = sorted(tuple(row.values()) for batch in batches for row in batch.to_pylist())
    assert [row[:2] for row in rows] == [
        (str(tmp_path / "cut.qvd"), "broken"),
        (f"{tmp_path}/n\\xff.txt", "unreadable"),
    ]
    assert "n\\xff.txt" in rows[1][2]


@pytest.mark.parametrize(
    ("kind", "is_left_out"),
    [
        ("Interval", True),
        ("TimeHistory", True),
        ("Samples", False),
        ("FieldHistory", False),
        ("BandInterval", False),
        ("LevelMarkBands", False),
    ],
)
def test_files_are_left_out_by_what_they_tell_of_their_last_record(
    kind: str, is_left_out: bool
) -> None:
    path = ROOT / "samples" / "files" / "general_day.qvd"
    with qvslm.open(path) as file:
        info = file.info
    last, later, latest = (datetime(2024, 6, 22, hour) for hour in (12, 13, 14))
    reader = source._Reader({"path": str(path), "records": kind}, ["time"])
    assert not reader._ends_before(dataclasses.replace(info, last_record=last))
    assert list(reader.pushFilters([GreaterThanOrEqual(("time",), later)])) == []
    for start, end, expected in (
        (last, last, is_left_out),
        (None, last, is_left_out),
        (last, later, False),
        # Records without a time have that of the start.
        (latest, last, False),
        (None, None, False),
    ):
        told = dataclasses.replace(info, start=start, last_record=end)
        assert reader._ends_before(told) == expected, (start, end)


def test_partitions() -> None:
    small = [(f"{number:03}", 10) for number in range(100)]
    parts = source.partitions_of([("big", 1000), *small], 400)
    assert [sum(size for _, size in part) for part in parts[1:]] == [250, 250, 250, 250]
    assert sorted(file for part in parts for file in part) == sorted([("big", 1000), *small])
    assert [("big", 1000)] in parts
    assert source.partitions_of([], 400) == []


def _as_rows(connection: duckdb.DuckDBPyConnection, kind: str, parquet: Path) -> list[tuple[int]]:
    columns = [row[0] for row in connection.sql(f'DESCRIBE "{kind}"').fetchall()]
    listed = ", ".join(f'"{name}"' for name in columns)
    written = f"read_parquet('{parquet}/**/*.parquet', hive_partitioning = true)"
    only = []
    for one, other in ((f'"{kind}"', written), (written, f'"{kind}"')):
        condition = "" if one != written else f" WHERE kind = '{kind}'"
        second = "" if other != written else f" WHERE kind = '{kind}'"
        only += connection.sql(
            f"SELECT count(*) FROM (SELECT {listed} FROM {one}{condition}"
            f" EXCEPT ALL SELECT {listed} FROM {other}{second})"
        ).fetchall()
    return only


@pytest.mark.parametrize("kind", ["Interval", "Samples", "Settings"])
def test_written_by_spark(
    spark: SparkSession, kept_files: list[Path], kept_dataset: Path, tmp_path: Path, kind: str
) -> None:
    frame = load(spark, kept_files[0].parents[1], records=kind)
    written = tmp_path / "written"
    frame.sortWithinPartitions("kind", "instrument", "month", "time").write.partitionBy(
        "kind", "instrument", "month"
    ).option("compression", "zstd").parquet(str(written))
    with archive.open(kept_dataset) as connection:
        assert _as_rows(connection, kind, written) == [(0,), (0,)]
        assert connection.sql(f'SELECT count(*) FROM "{kind}"').fetchall() == [(frame.count(),)]


def test_engines_read_what_was_added(
    spark: SparkSession, kept_files: list[Path], kept_dataset: Path
) -> None:
    paths = archive.paths(kept_dataset, "Samples")
    series = [qvslm.read(path).samples() for path in kept_files]
    marks = sum(int(own["mark"].astype(int).sum()) for own in series)
    levels = sum(float(np.nansum(own["level"], dtype=float)) for own in series)
    latest = max(own["time"].max() for own in series if len(own)).item()
    of_spark = spark.read.parquet(*paths).selectExpr(
        "sum(mark)", "sum(level)", "max(time)", "count(record)"
    )
    of_polars = (
        pl.scan_parquet(paths)
        .select(
            pl.col("mark").cast(pl.Int64).sum(),
            pl.col("level").cast(pl.Float64).sum(),
            pl.col("time").max(),
            pl.col("record").count(),
        )
        .collect()
    )
    for row in (tuple(of_spark.collect()[0]), of_polars.row(0)):
        assert row == (marks, pytest.approx(levels), latest, sum(map(len, series)))


# Each task tells that it runs, by its executor, and waits until it may go on.
_CLUSTER = """
import os, pathlib, sys, time
from test_spark import load, session
folder = pathlib.Path(sys.argv[2])
def held(batches):
    (folder / f"runs-{os.getppid()}").touch()
    while not (folder / "go").exists():
        time.sleep(0.05)
    yield from batches
spark = session("local-cluster[2,1,512]")
frame = load(spark, sys.argv[1], records="Samples", columns="level", partition_bytes=60000)
print(spark.sparkContext.applicationId, flush=True)
frame = frame.union(frame).union(frame)
print("rows", frame.mapInArrow(held, frame.schema).count(), flush=True)
"""


def _executors(application: str) -> list[int]:
    found = subprocess.run(
        ["pgrep", "-f", f"CoarseGrainedExecutorBackend.*{application}"],
        capture_output=True,
        text=True,
        check=False,
    )
    return [int(line) for line in found.stdout.split()]


def test_a_worker_of_a_cluster_is_killed(kept_files: list[Path], tmp_path: Path) -> None:
    expected = sum(len(qvslm.read(path).samples()) for path in kept_files)
    run = subprocess.Popen(
        [sys.executable, "-c", _CLUSTER, kept_files[0].parents[1], tmp_path],
        cwd=Path(__file__).parent,
        stdout=subprocess.PIPE,
        stderr=(tmp_path / "log").open("w"),
        text=True,
    )
    assert run.stdout is not None
    application = run.stdout.readline().strip()
    assert application.startswith("app-")
    deadline = time.monotonic() + 120
    while len(list(tmp_path.glob("runs-*"))) < 2:
        assert time.monotonic() < deadline, (tmp_path / "log").read_text()
        time.sleep(0.1)
    os.kill(_executors(application)[0], signal.SIGKILL)
    (tmp_path / "go").touch()
    rows = run.stdout.readline()
    assert rows == f"rows {3 * expected}\n", (tmp_path / "log").read_text()[-3000:]
    assert run.wait(60) == 0
    assert "Lost task" in (tmp_path / "log").read_text()
