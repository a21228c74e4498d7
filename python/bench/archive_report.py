"""Adds an archive to a dataset, asks it questions, and prints both as tables of Markdown.

    archive_report.py FOLDER DATASET [RAW_FILES]

FOLDER holds the files, such as build/bench/bench/station_archive writes them. They are added with
one process to DATASET-1, which is removed, and with two to DATASET; a dataset that is there already
is kept, and only asked. Each question is asked three times, and the fastest counts. The raw files
are read once, in one process: all of them, or RAW_FILES evenly spread ones.
"""

import os
import shutil
import subprocess
import sys
import time
from collections import defaultdict
from collections.abc import Callable, Sequence
from pathlib import Path

import numpy as np

import qvslm
from qvslm import archive


def seconds(work: Callable[[], object]) -> float:
    """The time that passes."""
    begin = time.perf_counter()
    work()
    return time.perf_counter() - begin


# Adding ------------------------------------------------------------------------------------------


def add(folder: Path, dataset: Path, processes: int) -> tuple[float, int]:
    """Seconds of a run of its own, and the highest memory of one of its processes in bytes."""
    command = [sys.executable, "-m", "qvslm", "archive", "add", str(folder), "--to", str(dataset)]
    begin = time.perf_counter()
    command += ["--processes", str(processes)]
    run = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    # Of the run and of all the processes that it waited for.
    _, status, used = os.wait4(run.pid, 0)
    spent = time.perf_counter() - begin
    if os.waitstatus_to_exitcode(status) not in (0, 3):
        sys.exit(f"archive add failed: {status}")
    return spent, used.ru_maxrss * 1024


def add_table(folder: Path, dataset: Path) -> None:
    """Adds with two processes and with one, and prints what it took."""
    print("| `archive add` | seconds | files/s | MB/s | highest memory of a process |")
    print("|---|---:|---:|---:|---:|")
    alone = dataset.with_name(f"{dataset.name}-1")
    for name, to, processes in (("two processes", dataset, 2), ("one process", alone, 1)):
        shutil.rmtree(to, ignore_errors=True)
        spent, memory = add(folder, to, processes)
        files = archive.Manifest.load(to).files
        size = sum(file.size for file in files.values())
        print(
            f"| {name} | {spent:.0f} | {len(files) / spent:.1f} | {size / spent / 1e6:.1f}"
            f" | {memory / 2**20:.0f} MiB |",
            flush=True,
        )
    shutil.rmtree(alone)


def print_sizes(dataset: Path) -> None:
    """Prints what became of the bytes."""
    manifest = archive.Manifest.load(dataset)
    size = sum(file.size for file in manifest.files.values())
    parts = manifest.parts()
    rows: dict[str, int] = defaultdict(int)
    for part in parts:
        rows[part.kind] += part.rows
    parquet = sum(part.bytes for part in parts)
    print(
        f"\n{len(manifest.files)} files of {size / 1e6:.0f} MB, {len(manifest.broken())} broken;"
        f" {sum(rows.values())} rows in {len({part.place for part in parts})} Parquet files of"
        f" {parquet / 1e6:.0f} MB: {parquet / size:.2f} bytes for each byte of file. Most rows:"
    )
    most = sorted(rows, key=lambda kind: -rows[kind])[:3]
    print(", ".join(f"{rows[kind]} {kind}" for kind in most) + ".\n")


# Questions ---------------------------------------------------------------------------------------


def hourly_means(paths: Sequence[Path]) -> int:
    """Energy means and percentiles of LevelA by station and hour, from the raw files."""
    groups: dict[tuple[str, int], list[float]] = defaultdict(list)
    for path in paths:
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


def marks(paths: Sequence[Path]) -> list[float]:
    """The loudest level marks, from the raw files."""
    levels: list[float] = []
    for path in paths:
        own = qvslm.read(path, "LevelMark")["LevelMark"]["Level"]
        levels += own[own != 999.0].tolist()
    return sorted(levels)[-10:]


def loudest_sample(paths: Sequence[Path]) -> float:
    """The highest sample, from the raw files."""
    return max(
        float(np.nanmax(series["level"], initial=0))
        for path in paths
        for series in [qvslm.read(path, "TimeHistory").samples()]
    )


def question_table(folder: Path, dataset: Path, raw_files: int | None) -> None:
    """Asks the dataset and the raw files, and prints how long it took."""
    every = sorted(path for path in folder.rglob("*") if path.is_file())
    some = every if raw_files is None else every[:: max(1, len(every) // raw_files)]
    took = min(seconds(lambda: archive.open(dataset).close()) for _ in range(3))
    print(f"`archive.open` took {took:.2f} s.\n")
    with archive.open(dataset) as connection:
        questions: list[tuple[str, Callable[[], object], Callable[[Sequence[Path]], object]]] = [
            (
                "hourly energy means and percentiles of a level",
                lambda: archive.energy_means(connection, "LevelA").fetchall(),
                hourly_means,
            ),
            (
                "ten loudest level marks",
                lambda: archive.loudest_events(connection, "Level").fetchall(),
                marks,
            ),
            (
                "highest of all samples",
                lambda: connection.sql("SELECT max(level) FROM Samples").fetchall(),
                loudest_sample,
            ),
        ]
        print(
            f"| question of all {len(every)} files | DuckDB, s"
            f" | {len(some)} raw files in one process, s | ratio for all |"
        )
        print("|---|---:|---:|---:|")
        for name, ask, read in questions:
            own = min(seconds(ask) for _ in range(3))
            begin = time.perf_counter()
            read(some)
            raw = time.perf_counter() - begin
            ratio = raw * len(every) / len(some) / own
            print(f"| {name} | {own:.2f} | {raw:.1f} | {ratio:.0f} |", flush=True)


def main() -> None:
    """Prints the tables."""
    folder, dataset = (Path(os.path.abspath(name)) for name in sys.argv[1:3])  # noqa: PTH100
    if not dataset.exists():
        add_table(folder, dataset)
    print_sizes(dataset)
    question_table(folder, dataset, int(sys.argv[3]) if len(sys.argv) > 3 else None)


if __name__ == "__main__":
    main()
