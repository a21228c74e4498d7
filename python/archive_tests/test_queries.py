"""What DuckDB answers, against the same worked out with NumPy from ``qvslm.read``."""

from collections import defaultdict
from pathlib import Path

import duckdb
import numpy as np
import pyarrow as pa
import pytest
from numpy.typing import NDArray

import qvslm
from qvslm import archive


def _intervals(files: list[Path]) -> dict[str, tuple[NDArray[np.datetime64], NDArray[np.float64]]]:
    times, levels = defaultdict(list), defaultdict(list)
    for path in files:
        measurement = qvslm.read(path)
        instrument = f"{measurement.info.model}-{measurement.info.serial}"
        rows = measurement["Interval"]
        times[instrument].append(measurement.times("Interval"))
        levels[instrument].append(rows["LevelA"].astype(np.float64))
    return {name: (np.concatenate(times[name]), np.concatenate(levels[name])) for name in times}


@pytest.mark.parametrize(("each", "unit"), [("hour", "M8[h]"), ("day", "M8[D]")])
def test_energy_means(kept_files: list[Path], kept_dataset: Path, each: str, unit: str) -> None:
    expected = {}
    for instrument, (times, levels) in _intervals(kept_files).items():
        there = levels != 999.0
        times, levels = times[there].astype(unit), levels[there]
        for time in np.unique(times):
            own = levels[times == time]
            mean = 10 * np.log10(np.mean(10 ** (own / 10)))
            expected[instrument, time.astype("M8[us]").item()] = [
                len(own),
                mean,
                *np.percentile(own, (90, 50, 10)),
            ]
    with archive.open(kept_dataset) as connection:
        answer = archive.energy_means(connection, "LevelA", each).fetchall()
    assert len(expected) > 5
    assert [(row[0], row[1]) for row in answer] == sorted(expected)
    for row in answer:
        assert row[2:] == pytest.approx(expected[row[0], row[1]], abs=1e-6)


def test_gaps(kept_files: list[Path], kept_dataset: Path) -> None:
    expected = []
    for instrument, (times, _) in sorted(_intervals(kept_files).items()):
        times = np.sort(times).astype("M8[s]")
        steps = np.diff(times).astype(np.int64)
        for place in np.flatnonzero(steps > 900):
            expected.append(
                (instrument, times[place].item(), times[place + 1].item(), float(steps[place]))
            )
    with archive.open(kept_dataset) as connection:
        assert archive.gaps(connection, 900).fetchall() == expected
    assert expected


def test_loudest_events(kept_files: list[Path], kept_dataset: Path) -> None:
    levels = []
    for path in kept_files:
        own = qvslm.read(path)["LevelMark"]["Level"]
        levels += own[own != 999.0].tolist()
    with archive.open(kept_dataset) as connection:
        answer = archive.loudest_events(connection, "Level", 12).fetchall()
    assert [row[2] for row in answer] == sorted(levels, reverse=True)[:12]


def test_nan_is_no_level() -> None:
    nan = np.float32(np.nan)
    levels = np.array([60, nan, 50, 999, nan, 40], np.float32)
    rows = pa.table(
        {
            "instrument": pa.array(["486-2071"] * 6),
            "time": pa.array(np.arange(6) * 60, pa.timestamp("s")),
            "file": pa.array(["a"] * 6),
            "Level": pa.array(levels, mask=levels == 999),
        }
    )
    with duckdb.connect() as connection:
        connection.register("Rows", rows)
        (means,) = archive.energy_means(connection, "Level", records="Rows").fetchall()
        loudest = archive.loudest_events(connection, "Level", 9, "Rows").fetchall()
    there = np.array([60.0, 50.0, 40.0])
    mean = 10 * np.log10(np.mean(10 ** (there / 10)))
    assert means[2:] == pytest.approx((3, mean, *np.percentile(there, (90, 50, 10))))
    assert [row[2] for row in loudest] == [60, 50, 40]


def test_every_kind_has_its_rows(kept_files: list[Path], kept_dataset: Path) -> None:
    counts: dict[str, int] = dict.fromkeys([*qvslm.RECORDS, "Samples"], 0)
    for path in kept_files:
        measurement = qvslm.read(path)
        counts["Samples"] += len(measurement.samples())
        for kind in measurement:
            counts[kind] += len(measurement[kind])
    with archive.open(kept_dataset) as connection:
        for kind, count in counts.items():
            answer = connection.sql(f'SELECT count(*), count(instrument) FROM "{kind}"').fetchall()
            assert answer == [(count, count)], kind


def test_broken_files_are_told(kept_files: list[Path], kept_dataset: Path) -> None:
    expected = {str(path) for path in kept_files if not qvslm.read(path).status.whole}
    with archive.open(kept_dataset) as connection:
        rows = connection.sql("FROM broken").fetchall()
        parquet = connection.sql("SELECT sum(parquet_bytes), sum(rows) FROM files").fetchall()
    assert {row[0] for row in rows} == expected
    assert len(expected) >= 5
    assert all(parquet[0])


def test_the_answer_in_the_zone_of_the_place(kept_files: list[Path], tmp_path: Path) -> None:
    path = next(path for path in kept_files if "night_europe" in path.name)
    archive.add(path, tmp_path / "zone", tz="Europe/Berlin", processes=1)
    with archive.open(tmp_path / "zone") as connection:
        rows = archive.energy_means(connection, "LevelA", "hour").project("epoch(hour), records")
        hours, records = zip(*rows.fetchall(), strict=True)
    # The hour from 2 to 3 comes twice that night.
    assert (np.diff(hours) == 3600).all()
    assert records == (6,) * 8
