"""The series of samples, made a batch of records at a time."""

import numpy as np
import pytest
from conftest import ROOT

import qvslm
from qvslm.archive import _layout

FILES = [
    path
    for path in sorted((ROOT / "samples" / "files").glob("*.qvd"))
    if len(qvslm.read(path, "TimeHistory")["TimeHistory"]) > 1
]


def test_there_are_files() -> None:
    assert "general_time_history" in {path.stem for path in FILES}


@pytest.mark.parametrize("rows", [1, 7, 50])
@pytest.mark.parametrize("path", FILES, ids=lambda path: path.stem)
def test_batches_give_the_series(path: object, rows: int) -> None:
    measurement = qvslm.read(str(path))
    history = measurement["TimeHistory"]
    samples = _layout.Samples("a", None)
    tables = []
    for first in range(0, len(history), rows):
        tables.append(samples.table(history[first : first + rows], first))
        # Nothing grows with the file.
        assert {type(value) for value in vars(samples).values()} <= {str, type(None), float}
    whole = measurement.samples()
    times = np.concatenate([table.column("time").to_numpy() for table in tables])
    assert (
        times == np.where(whole["time"].view(np.int64) == 0, np.datetime64("NaT"), whole["time"])
    ).all()
    for name in ("level", "second", "mark", "detail"):
        values = np.concatenate([table.column(name).to_numpy() for table in tables])
        assert np.array_equal(values, whole[name], equal_nan=True), name
    numbers = np.concatenate([table.column("record").to_numpy() for table in tables])
    assert (numbers == np.repeat(np.arange(len(history)), history["EntryCount"])).all()
