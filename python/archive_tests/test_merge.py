"""Small Parquet files become larger ones, and nothing of them is lost or doubled."""

import io
import re
import sys
from collections import Counter
from datetime import datetime, timedelta
from pathlib import Path

import duckdb
import pyarrow as pa
import pyarrow.parquet as pq
import pytest
from conftest import ROOT
from rows import assert_rows_are_those_of

import qvslm
from qvslm import __main__ as command
from qvslm import archive
from qvslm.archive import Manifest, _merge
from qvslm.archive._dataset_files import path_of

NIGHTS = 60
FIRST = datetime(2024, 4, 1, 12)


@pytest.fixture
def nights(tmp_path: Path) -> list[Path]:
    """A file of a station for each day of April, and of May but its last."""
    content = (ROOT / "samples" / "files" / "bands_general.qvd").read_bytes()
    paths = []
    for number in range(NIGHTS):
        day = FIRST + timedelta(number)
        own = content.replace(b"06May2024", day.strftime("%d%b%Y").encode())
        packed = bytes.fromhex(day.strftime("%d%m%y"))
        path = tmp_path / "files" / f"{number:02}.qvd"
        path.parent.mkdir(exist_ok=True)
        path.write_bytes(own.replace(b"\x06\x05\x24", packed))
        paths.append(path)
    return paths


def _files(dataset: Path) -> Counter[tuple[str, str]]:
    """How many Parquet files there are of a kind and month."""
    places = {part.place for part in Manifest.load(dataset).parts()}
    return Counter((kind, month) for kind, _, month, _ in places)


def _rows_that_differ(one: Path, other: Path) -> int:
    """How many rows of views stand in one dataset alone, of all kinds."""
    count = 0
    for kind in Manifest.load(one).kinds():
        with archive.open(one) as first, archive.open(other) as second:
            tables = [view.sql(f'FROM "{kind}"').to_arrow_table() for view in (first, second)]
        with duckdb.connect() as connection:
            for name, table in zip(("a", "b"), tables, strict=True):
                connection.register(name, table)
            for left, right in (("a", "b"), ("b", "a")):
                question = f"SELECT * FROM (FROM {left} EXCEPT ALL FROM {right})"
                count += len(connection.sql(question).fetchall())
    return count


def test_nights_become_a_file_a_kind_and_month(
    nights: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    assert qvslm.read(nights[0]).info.start == FIRST
    assert qvslm.read(nights[59]).info.last_record == datetime(2024, 5, 30, 15)
    report = archive.add(tmp_path / "files", tmp_path / "dataset", processes=2)
    kinds = [*qvslm.read(nights[0]), "Samples"]
    assert report.merged == NIGHTS * len(kinds)
    months = ("2024-04", "2024-05")
    assert _files(tmp_path / "dataset") == {(kind, month): 1 for kind in kinds for month in months}
    assert_rows_are_those_of(tmp_path / "dataset", nights)
    monkeypatch.setattr(_merge, "SMALL_FILES", 1000)
    apart = archive.add(tmp_path / "files", tmp_path / "apart", processes=2)
    assert (apart.merged, apart.rows) == (0, report.rows)
    assert _rows_that_differ(tmp_path / "dataset", tmp_path / "apart") == 0


def test_files_that_change_or_go_leave_what_they_share(nights: list[Path], tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    archive.add(nights[20:40], dataset, processes=1)
    nights[23].write_bytes(nights[23].read_bytes()[:-2000])
    nights[35].unlink()
    for path in [*nights[:20], *nights[40:]]:
        path.unlink()
    report = archive.add(tmp_path / "files", dataset, processes=1)
    assert (report.new, report.changed, report.gone, report.unchanged) == (0, 1, 1, 18)
    assert_rows_are_those_of(dataset, [path for path in nights if path.exists()])
    # What changed stands beside the others of its month, until there is more of it.
    counts = _files(dataset)
    assert (counts["Interval", "2024-04"], counts["Interval", "2024-05"]) == (2, 1)
    with archive.open(dataset) as connection:
        told = connection.sql("SELECT sum(parquet_bytes) FROM files").fetchall()
    sizes = {
        part.path: (dataset / part.path).stat().st_size for part in Manifest.load(dataset).parts()
    }
    assert told == [(sum(sizes.values()),)]


def test_all_files_of_a_shared_one_go(nights: list[Path], tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    archive.add(nights[20:40], dataset, processes=1)
    for path in [*nights[:30], *nights[40:]]:
        path.unlink()
    archive.add(tmp_path / "files", dataset, processes=1)
    assert {month for _, month in _files(dataset)} == {"2024-05"}
    assert_rows_are_those_of(dataset, nights[30:40])


def test_files_that_overlap_are_in_the_order_of_time(
    nights: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    for path in nights[1:20]:
        path.write_bytes(nights[int(path.stem) % 3].read_bytes())
    monkeypatch.setattr(_merge, "_BATCH_ROWS", 7)
    archive.add(nights[:20], tmp_path / "dataset", processes=1)
    assert set(_files(tmp_path / "dataset").values()) == {1}
    assert_rows_are_those_of(tmp_path / "dataset", nights[:20])


def test_more_than_go_into_one(
    nights: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setattr(_merge, "_MOST_FILES", 3)
    dataset = tmp_path / "dataset"
    archive.add(nights[:25], dataset, processes=1)
    # Nine of the first round, and three of them.
    assert _files(dataset)["Interval", "2024-04"] == 3
    assert_rows_are_those_of(dataset, nights[:25])
    before = _files(dataset)
    assert archive.add(nights[:25], dataset, processes=1).merged == 0
    assert _files(dataset) == before


def test_rows_of_one_time_stay_in_the_order_of_the_files(
    tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setattr(_merge, "_BATCH_ROWS", 16)
    places = [("Interval", "486-2071", "2024-06", name) for name in "abc"]
    second = pa.array([0] * 40 + [1] * 40, pa.int64())
    for place in places:
        path = tmp_path / path_of(place)
        path.parent.mkdir(parents=True, exist_ok=True)
        names, numbers = pa.array([place[3]] * 80), pa.array(range(80))
        columns = {"file": names, "time": second.cast(pa.timestamp("ms")), "number": numbers}
        pq.write_table(pa.table(columns), path)
    merged = _merge.merge(str(tmp_path), _merge.Job(list(places)))
    table = pq.read_table(tmp_path / path_of(merged.new), partitioning=None)
    assert table.column("file").to_pylist() == [*("a" * 40 + "b" * 40 + "c" * 40)] * 2
    assert table.column("number").to_pylist() == [*range(40)] * 3 + [*range(40, 80)] * 3


class _Terminal(io.StringIO):
    def isatty(self) -> bool:
        return True


def test_a_terminal_tells_how_far_it_is(
    nights: list[Path],
    tmp_path: Path,
    monkeypatch: pytest.MonkeyPatch,
    capsys: pytest.CaptureFixture[str],
) -> None:
    # Eight nights of April with thirteen kinds of rows.
    terminal = _Terminal()
    monkeypatch.setattr(sys, "stderr", terminal)
    paths = [str(path) for path in nights[:8]]
    to = ["--to", str(tmp_path / "dataset"), "--processes", "1"]
    assert command.main(["archive", "add", *paths, *to]) == 0
    lines = terminal.getvalue().split("\n")
    assert re.fullmatch(
        r".*\r8/8 files, \d+\.\d files/s, \d+\.\d MB/s, 0:00:00 left, 0 broken  ", lines[0]
    )
    assert lines[1].endswith("\rsmall Parquet files merged: 13/13  ")
    assert lines[2:] == [""]
    assert "; 104 small Parquet files merged; " in capsys.readouterr().out
