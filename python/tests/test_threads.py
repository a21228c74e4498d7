"""Files side by side give what one after the other gives."""

import itertools
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from conftest import SAMPLES, sample

import qvslm

Read = tuple[tuple[str, bytes], ...]


def _read(path: Path, tz: str | None) -> Read:
    measurement = qvslm.read(path, tz=tz)
    return tuple((name, measurement[name].tobytes()) for name in measurement)


# One has a daylight span and the other none, and they have zones of their own.
def test_two_files_in_turn() -> None:
    paths = {
        "night_europe": "Europe/Berlin",
        "night_america": "America/New_York",
        "general_spine": None,
    }
    alone = {name: _read(sample(name), tz) for name, tz in paths.items()}
    files = {name: qvslm.open(sample(name), tz=tz) for name, tz in paths.items()}
    pieces: dict[str, dict[str, bytes]] = {name: {} for name in paths}
    steps = {name: file.batches(rows=1) for name, file in files.items()}
    for turn in itertools.zip_longest(*steps.values()):
        for name, batch in zip(steps, turn, strict=True):
            for record, rows in (batch or {}).items():
                pieces[name][record] = pieces[name].get(record, b"") + rows.tobytes()
    for name, file in files.items():
        file.close()
        assert sorted(pieces[name].items()) == sorted(alone[name])


def test_eight_threads() -> None:
    jobs = [(path, tz) for path in SAMPLES for tz in (None, "Europe/Berlin", "America/New_York")]
    alone = [_read(*job) for job in jobs]
    with ThreadPoolExecutor(8) as pool:
        for _ in range(3):
            assert list(pool.map(lambda job: _read(*job), jobs)) == alone


# What is asked of one file by two threads is done one after the other.
def test_two_threads_at_one_file() -> None:
    whole = qvslm.read(sample("general_day"))
    with qvslm.open(sample("general_day")) as file, ThreadPoolExecutor(2) as pool:
        parts = list(pool.map(lambda _: file.read("Interval"), range(2)))
    assert sum(len(part.get("Interval", ())) for part in parts) == len(whole["Interval"])
