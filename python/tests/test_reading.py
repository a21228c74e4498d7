"""Sources, choices, batches, the series of samples, pickles."""

import io
import os
import pickle
import threading
from pathlib import Path

import numpy as np
import pytest
from conftest import SAMPLES, sample

import qvslm


def _same(one: qvslm.Measurement, other: qvslm.Measurement) -> None:
    assert one.keys() == other.keys()
    for name in one:
        assert one[name].tobytes() == other[name].tobytes(), name
    assert one.census == other.census
    assert one.status == other.status


class TestSources:
    path = sample("general_day")

    def test_a_path_as_text_and_as_an_object(self) -> None:
        _same(qvslm.read(str(self.path)), qvslm.read(self.path))

    def test_a_name_of_any_bytes(self, tmp_path: Path) -> None:
        odd = tmp_path / os.fsdecode(b"na\xefve.qvd")
        odd.write_bytes(self.path.read_bytes())
        assert len(qvslm.read(odd)["Interval"]) == 1440

    @pytest.mark.parametrize("kind", [bytes, bytearray, memoryview, io.BytesIO])
    def test_bytes(self, kind: type) -> None:
        measurement = qvslm.read(kind(self.path.read_bytes()))
        assert measurement["Interval"].tobytes() == qvslm.read(self.path)["Interval"].tobytes()

    def test_an_open_file(self) -> None:
        with self.path.open("rb") as file:
            measurement = qvslm.read(file)
        # The name stands in the end record, so that all of it is the same.
        _same(measurement, qvslm.read(self.path))

    def test_a_pipe(self, tmp_path: Path) -> None:
        pipe = tmp_path / "pipe"
        os.mkfifo(pipe)
        writer = threading.Thread(target=lambda: pipe.write_bytes(self.path.read_bytes()))
        writer.start()
        assert len(qvslm.read(pipe)["Interval"]) == 1440
        writer.join()

    def test_copies_are_removed(self, tmp_path: Path, monkeypatch: pytest.MonkeyPatch) -> None:
        monkeypatch.setattr("tempfile.tempdir", str(tmp_path))
        with qvslm.open(self.path.read_bytes()):
            assert len(list(tmp_path.rglob("measurement"))) == 1
        with pytest.raises(qvslm.Error):
            qvslm.read(b"none")
        assert list(tmp_path.iterdir()) == []

    def test_what_is_none(self, tmp_path: Path) -> None:
        with pytest.raises(TypeError, match="int is no path"):
            qvslm.read(3)  # type: ignore[arg-type]
        with pytest.raises(TypeError, match="binary mode"):
            qvslm.read(io.StringIO("text"))  # type: ignore[arg-type]
        with pytest.raises(FileNotFoundError):
            qvslm.read(tmp_path / "none.qvd")
        with pytest.raises(IsADirectoryError):
            qvslm.read(tmp_path)
        with pytest.raises(ValueError, match="null"):
            qvslm.read("a\0b")


def test_only_the_records_that_are_asked_for() -> None:
    path = sample("general_day")
    whole = qvslm.read(path)
    one = qvslm.read(path, "Event")
    two = qvslm.read(path, ["LevelMark", "Event"])
    assert one.keys() == ["Event"]
    assert two.keys() == ["Event", "LevelMark"]
    assert two["LevelMark"].tobytes() == whole["LevelMark"].tobytes()
    assert one.info == whole.info
    assert len(one["Interval"]) == 0
    assert one["Interval"].dtype == whole["Interval"].dtype
    with pytest.raises(KeyError, match="Nothing"):
        qvslm.read(path, "Nothing")
    with pytest.raises(KeyError, match="Nothing"):
        whole["Nothing"]


@pytest.mark.parametrize("rows", [1, 7, 100, 65536])
@pytest.mark.parametrize("path", SAMPLES, ids=lambda path: path.stem)
def test_batches_are_the_whole(path: Path, rows: int) -> None:
    whole = qvslm.read(path)
    pieces: dict[str, list[bytes]] = {name: [] for name in whole}
    with qvslm.open(path) as file:
        for batch in file.batches(rows=rows):
            assert 0 < sum(map(len, batch.values())) <= rows
            for name, records in batch.items():
                pieces[name].append(records.tobytes())
        assert file.status == whole.status
        assert file.info == whole.info
    assert {name: b"".join(parts) for name, parts in pieces.items()} == {
        name: whole[name].tobytes() for name in whole
    }


def test_a_walk_that_goes_on() -> None:
    with qvslm.open(sample("general_day")) as file:
        next(file.batches(rows=10))
        status = file.status
    assert (status.whole, status.reason, status.offset) == (False, "the walk goes on", None)


def test_a_closed_file_gives_no_more() -> None:
    with qvslm.open(sample("general_day")) as file:
        next(file.batches(rows=10))
    assert list(file.batches()) == []


class TestSamples:
    def test_entries_are_those_of_the_records(self) -> None:
        measurement = qvslm.read(sample("general_time_history"))
        rows = measurement["TimeHistory"]
        series = measurement.samples()
        assert len(series) == rows["EntryCount"].sum()
        used = np.arange(60) < rows["EntryCount"][:, None]
        first = rows["FirstLevels"][used]
        is_sample = first > 0
        assert (series["mark"] == -1).tolist() == is_sample.tolist()
        assert series["level"][is_sample].tolist() == first[is_sample].tolist()
        assert np.isnan(series["level"][~is_sample]).all()
        assert series["mark"][~is_sample].tolist() == (-first[~is_sample]).tolist()
        assert (np.diff(series["time"]) >= np.timedelta64(0)).all()

    # Records tell whole seconds; samples of 1/32 s go on within them.
    def test_samples_lie_a_period_apart(self) -> None:
        measurement = qvslm.read(sample("bands_general"))
        rows = measurement["TimeHistory"]
        series = measurement.samples()
        period = np.timedelta64(round(float(rows["StreamPeriod"][0]) * 1e6), "us")
        entries = int(rows["EntryCount"][0]) + int(rows["EntryCount"][1])
        times = series["time"][:entries][series["mark"][:entries] == -1]
        assert times[0] == measurement.times("TimeHistory")[0]
        assert np.unique(np.diff(times)).tolist() == [period]

    def test_a_file_without_any(self) -> None:
        assert qvslm.read(sample("general_day")).samples().shape == (0,)


def test_pickles() -> None:
    measurement = qvslm.read(sample("bands_model442"), tz="Europe/Berlin")
    again = pickle.loads(pickle.dumps(measurement))
    _same(again, measurement)
    assert (again.info, again.tz) == (measurement.info, "Europe/Berlin")
    fault = qvslm.Error("what", -312, 7)
    copy = pickle.loads(pickle.dumps(fault))
    assert (str(copy), copy.status, copy.offset) == ("what", -312, 7)


def test_info() -> None:
    info = qvslm.read(sample("general_day")).info
    assert (info.model, info.serial, info.firmware) == (486, "2071", "1.200")
    assert info.titles == ("Traffic noise", "Mill Street 12", "Microphone at the window")
    assert qvslm.read(sample("model442_bands")).info.mode.startswith("RTA")
    assert qvslm.read(sample("model442_bands")).info.model == 442


def test_scan(tmp_path: Path) -> None:
    for name in ("night_europe", "general_day"):
        (tmp_path / f"{name}.qvd").write_bytes(sample(name).read_bytes())
    (tmp_path / "below").mkdir()
    (tmp_path / "below" / "cut.qvd").write_bytes(sample("general_day").read_bytes()[:20000])
    (tmp_path / "notes.txt").write_text("no measurement")
    rows = qvslm.scan(tmp_path)
    assert [Path(row["name"]).name for row in rows] == [
        "cut.qvd",
        "general_day.qvd",
        "night_europe.qvd",
    ]
    assert [row["whole"] for row in rows] == [False, True, True]
    assert [row["Intervals"] for row in rows[1:]] == [1440, 48]
    assert rows[2]["serial"] == "2071"
    assert len({tuple(row) for row in rows}) == 1
    assert [Path(row["name"]).name for row in qvslm.scan(tmp_path, "night*")] == [
        "night_europe.qvd"
    ]
