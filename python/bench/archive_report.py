"""Measures a dataset of an archive against its raw files, and prints a table.

    archive_report.py FOLDER DATASET

FOLDER holds the files, such as build/bench/bench/station_archive writes them, and DATASET what
``qvslm archive add`` made of them. Each question is asked three times; the fastest counts. The raw
files are read once, in one process.
"""

import sys
import time
from collections import defaultdict
from collections.abc import Callable
from pathlib import Path

import numpy as np

import qvslm
from qvslm import archive


def seconds(work: Callable[[], object]) -> float:
    """The time that passes."""
    begin = time.perf_counter()
    work()
    return time.perf_counter() - begin


def hourly_means(folder: Path) -> int:
    """Energy means and percentiles of LevelA by station and hour, from the raw files."""
    groups: dict[tuple[str, int], list[float]] = defaultdict(list)
    for path in folder.rglob("*.qvd"):
        measurement = qvslm.read(path, "Interval")
        rows = measurement["Interval"]
        hours = rows["RecordTime"].astype(np.int64) // 3600
        for hour, level in zip(hours.tolist(), rows["LevelA"].tolist(), strict=True):
            if level != 999.0:
                groups[measurement.info.serial, hour].append(level)
    for levels in groups.values():
        energy = 10 * np.log10(np.mean(10 ** (np.array(levels) / 10)))
        assert energy > 0
        np.percentile(levels, (10, 50, 90))
    return len(groups)


def marks(folder: Path) -> list[float]:
    """The loudest level marks, from the raw files."""
    levels: list[float] = []
    for path in folder.rglob("*.qvd"):
        own = qvslm.read(path, "LevelMark")["LevelMark"]["Level"]
        levels += own[own != 999.0].tolist()
    return sorted(levels)[-10:]


def loudest_sample(folder: Path) -> float:
    """The highest sample, from the raw files."""
    return max(
        float(np.nanmax(series["level"], initial=0))
        for path in folder.rglob("*.qvd")
        for series in [qvslm.read(path, "TimeHistory").samples()]
    )


def main() -> None:
    """Prints the table."""
    folder, dataset = map(Path, sys.argv[1:3])
    manifest = archive.Manifest.load(dataset)
    size = sum(file.size for file in manifest.files.values())
    parts = manifest.parts()
    parquet = sum(part.bytes for part in parts)
    rows = sum(part.rows for part in parts)
    print(f"{len(manifest.files)} files, {size / 1e6:.0f} MB; {rows} rows in {len(parts)} Parquet")
    print(f"files, {parquet / 1e6:.0f} MB: {parquet / size:.2f} bytes a byte of file\n")
    print(f"open: {seconds(lambda: archive.open(dataset).close()):.2f} s\n")
    with archive.open(dataset) as connection:
        questions: list[tuple[str, Callable[[], object], Callable[[], object]]] = [
            (
                "hourly means and percentiles of a level",
                lambda: archive.energy_means(connection, "LevelA").fetchall(),
                lambda: hourly_means(folder),
            ),
            (
                "ten loudest level marks",
                lambda: archive.loudest_events(connection, "Level").fetchall(),
                lambda: marks(folder),
            ),
            (
                "highest of all samples",
                lambda: connection.sql("SELECT max(level) FROM Samples").fetchall(),
                lambda: loudest_sample(folder),
            ),
        ]
        print("| question | DuckDB, s | raw files, s | ratio |")
        print("|---|---:|---:|---:|")
        for name, ask, read in questions:
            own = min(seconds(ask) for _ in range(3))
            raw = seconds(read)
            print(f"| {name} | {own:.2f} | {raw:.1f} | {raw / own:.0f} |")


if __name__ == "__main__":
    main()
