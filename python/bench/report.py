"""Measures the package against its yardsticks in one run, and prints ratios as Markdown tables.

    report.py ROW_WALK [RUNS]

ROW_WALK is build/bench/bench/row_walk, the walk in C; the package is the installed one. The peers
npTDMS, asammdf and obspy are measured where they are installed, on files that they write.
Subject and yardstick take turns; medians of processor time are compared, but of threads those of
the time that passes.
"""

import importlib.util
import statistics
import subprocess
import sys
import tempfile
import time
from collections.abc import Callable
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

import peers
import pyarrow.parquet as pq

import qvslm

MIXED_BYTES = 30_000_000
RECORDS = 10_000
SAMPLES_OF_RECORD = 60

Times = dict[str, list[float]]


def seconds(work: Callable[[], object]) -> float:
    """The processor's time that the work takes, until what it gave is gone."""
    start = time.process_time()
    work()
    return time.process_time() - start


def passing(work: Callable[[], object]) -> float:
    """The time that passes."""
    start = time.perf_counter()
    work()
    return time.perf_counter() - start


def median(times: list[float]) -> float:
    """In milliseconds."""
    return statistics.median(times) * 1000


def to_arrow(path: Path) -> list[object]:
    """All records of a file as tables."""
    measurement = qvslm.read(path)
    return [measurement.to_arrow(name) for name in measurement]


def write(path: Path, folder: Path, compression: str) -> float:
    """Seconds that the Parquet encoder takes, records as tables given."""
    measurement = qvslm.read(path)
    tables = {name: measurement.to_arrow(name) for name in measurement}
    return seconds(
        lambda: [
            pq.write_table(table, folder / f"{name}.parquet", compression=compression)
            for name, table in tables.items()
        ]
    )


def two_threads(path: Path) -> float:
    """Two readings side by side."""
    with ThreadPoolExecutor(2) as pool:
        list(pool.map(qvslm.read, [path]))
        return passing(lambda: list(pool.map(qvslm.read, [path, path])))


def measure(row_walk: str, path: Path, folder: Path, runs: int) -> Times:
    """Each figure as many times as there are runs, in turns."""
    times: Times = {}

    def note(name: str, value: float) -> None:
        times.setdefault(name, []).append(value)

    for _ in range(runs):
        walk = subprocess.run([row_walk, path, "1"], capture_output=True, check=True, text=True)
        alone, copied, kept = map(float, walk.stdout.split())
        note("C walk", alone)
        note("C walk, each record copied once to one buffer", copied)
        note("C walk, all records kept", kept)
        note("arrays of all records", seconds(lambda: qvslm.read(path)))
        note("Arrow tables of all records", seconds(lambda: to_arrow(path)))
        note("one after the other", passing(lambda: [qvslm.read(path) for _ in range(2)]))
        note("two threads", two_threads(path))
    for _ in range(max(2, runs // 4)):
        note("Parquet encoder, zstd", write(path, folder, "zstd"))
        note("Parquet encoder, not compressed", write(path, folder, "none"))
    return times


def memory_of_batches(path: Path) -> int:
    """Kilobytes at the highest of a process that goes through a file by batches."""
    script = (
        "import qvslm, sys\n"
        "with qvslm.open(sys.argv[1]) as file:\n"
        "    rows = sum(len(a) for batch in file.batches() for a in batch.values())\n"
        "with open('/proc/self/status') as status:\n"
        "    print(next(line.split()[1] for line in status if line.startswith('VmHWM')))\n"
    )
    done = subprocess.run(
        [sys.executable, "-c", script, path], capture_output=True, check=True, text=True
    )
    return int(done.stdout)


def print_mixed(times: Times) -> None:
    """The table of the mixed file."""
    copied = median(times["C walk, each record copied once to one buffer"])
    kept = median(times["C walk, all records kept"])
    print("| mixed 30 MB | ms | by the walk that copies | by the walk that keeps |")
    print("|---|---:|---:|---:|")
    for name, values in times.items():
        own = median(values)
        print(f"| {name} | {own:.1f} | {own / copied:.2f} | {own / kept:.2f} |")
    ratio = median(times["two threads"]) / median(times["one after the other"])
    print(f"\nTwo threads take {ratio:.2f} of the time of one.")
    parquet = median(times["Parquet encoder, zstd"])
    share = parquet / (parquet + median(times["Arrow tables of all records"]))
    print(f"Of files to Parquet the encoder's share is {share:.0%}.\n")


def print_peers(row_walk: str, folder: Path, runs: int) -> None:
    """The table of the peers."""
    own = folder / "stream.qvd"
    values = RECORDS * SAMPLES_OF_RECORD
    subprocess.run([row_walk, "stream", own, str(values)], check=True)
    records = f"{RECORDS} records of {SAMPLES_OF_RECORD} samples"
    rows: list[tuple[str, str, Callable[[], object]]] = [
        ("qvslm, arrays of records", records, lambda: qvslm.read(own, "TimeHistory")),
        ("qvslm, series of samples", records, lambda: qvslm.read(own).samples()),
    ]
    for module, name, what, make in peers.PEERS:
        if importlib.util.find_spec(module) is None:
            print(f"{name} is not installed.\n")
            continue
        rows.append((name, what, make(folder, RECORDS, SAMPLES_OF_RECORD)))
    times: Times = {}
    for _ in range(runs):
        for name, _what, work in rows:
            times.setdefault(name, []).append(seconds(work))
    best = median(times["qvslm, series of samples"])
    print(f"| {values} samples | file | ms | by our series |")
    print("|---|---|---:|---:|")
    for name, what, _work in rows:
        print(f"| {name} | {what} | {median(times[name]):.1f} | {median(times[name]) / best:.1f} |")
    print()


def main() -> None:
    """Writes the files, and prints what was measured."""
    row_walk = sys.argv[1]
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 9
    with tempfile.TemporaryDirectory() as scratch:
        folder = Path(scratch)
        mixed = folder / "mixed.qvd"
        subprocess.run([row_walk, "write", mixed, str(MIXED_BYTES)], check=True)
        print_mixed(measure(row_walk, mixed, folder, runs))
        print_peers(row_walk, folder, runs)
        small = memory_of_batches(mixed)
        subprocess.run([row_walk, "write", mixed, str(MIXED_BYTES * 10)], check=True)
        print(f"By batches: {small / 1024:.0f} MiB for 30 MB, ", end="")
        print(f"{memory_of_batches(mixed) / 1024:.0f} MiB for 300 MB.")


if __name__ == "__main__":
    main()
