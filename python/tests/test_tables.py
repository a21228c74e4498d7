"""Tables of pandas, polars and Arrow, and Parquet."""

import json
from datetime import datetime
from pathlib import Path
from zoneinfo import ZoneInfo

import numpy as np
import pandas as pd
import polars as pl
import pyarrow as pa
import pyarrow.dataset as ds
import pyarrow.parquet as pq
import pytest
from conftest import SAMPLES, sample

import qvslm
from qvslm import __main__ as command

BERLIN = "Europe/Berlin"
FIRST = datetime(2024, 10, 26, 22)


def _without_level() -> qvslm.Measurement:
    """A measurement of which the second level A is missing."""
    measurement = qvslm.read(sample("night_europe"), tz=BERLIN)
    measurement["Interval"]["LevelA"][1] = 999.0
    return measurement


def test_arrow() -> None:
    measurement = _without_level()
    table = measurement.to_arrow("Interval")
    table.validate(full=True)
    levels = table.column("LevelA")
    assert levels.null_count == 1
    assert levels[1].as_py() is None
    assert levels[0].as_py() == measurement["Interval"]["LevelA"][0]
    assert table.schema.field("LevelA").metadata == {b"comment": b"level", b"unit": b"dB"}
    assert table.schema.field("RecordTime").type == pa.timestamp("s", BERLIN)
    assert table.column("RecordTime")[0].as_py() == FIRST.replace(tzinfo=ZoneInfo(BERLIN))
    assert table.schema.field("Samples").type == pa.list_(pa.uint8(), 256)
    told = json.loads(table.schema.metadata[b"qvslm"])
    assert (told["record"], told["serial"], told["tz"]) == ("Interval", "2071", BERLIN)


def test_arrow_without_a_zone() -> None:
    table = qvslm.read(sample("night_europe")).to_arrow("Interval")
    assert table.column("RecordTime")[0].as_py() == FIRST


@pytest.mark.parametrize("path", SAMPLES, ids=lambda path: path.stem)
def test_arrow_holds_every_value(path: Path) -> None:
    measurement = qvslm.read(path)
    for name in measurement:
        table = measurement.to_arrow(name)
        table.validate(full=True)
        rows = measurement[name]
        for field in qvslm.fields(name):
            column = table.column(field.name).to_pylist()
            if field.dtype.kind == "S":
                assert column == measurement.text(name, field.name).tolist()
            elif field.kind == "time":
                assert np.array_equal(
                    np.array(column, "M8[s]"), measurement.times(name, field.name), equal_nan=True
                )
            else:
                own = rows[field.name].astype(object)
                if field.kind == "level":
                    own[rows[field.name] == 999.0] = None
                assert repr(column) == repr(own.tolist()), (name, field.name)


def test_pandas() -> None:
    frame = _without_level().to_pandas("Interval")
    assert len(frame) == 48
    assert np.isnan(frame["LevelA"][1])
    assert frame["LevelA"].isna().sum() == 1
    assert frame["RecordTime"][0] == pd.Timestamp(FIRST, tz=BERLIN)
    assert frame.attrs["units"]["LevelA"] == "dB"
    assert frame.attrs["comments"]["RecordTime"] == "time: start of the interval"
    assert frame.attrs["serial"] == "2071"
    naive = qvslm.read(sample("night_europe")).to_pandas("Interval")
    assert naive["RecordTime"][0] == pd.Timestamp(FIRST)
    end = qvslm.read(sample("general_spine")).to_pandas("End")
    assert end["EndRecordStopTime"].isna().all()
    assert (
        end["Title1"].tolist() == qvslm.read(sample("general_spine")).text("End", "Title1").tolist()
    )


def test_polars() -> None:
    frame = _without_level().to_polars("Interval")
    assert frame["LevelA"].null_count() == 1
    assert frame["LevelA"][1] is None
    assert frame["RecordTime"][0] == FIRST.replace(tzinfo=ZoneInfo(BERLIN))
    assert frame.schema["Samples"] == pl.Array(pl.UInt8, 256)
    summary = qvslm.read(sample("general_day")).to_polars("Summary")
    assert summary.schema["Aux"] == pl.Array(pl.Float32, (3, 3))


def test_levels_in_arrays_are_missing() -> None:
    measurement = qvslm.read(sample("model442_bands"))
    rows = measurement["BandInterval"]
    rows["Bands1"][3, 5] = 999.0
    expected = int((rows["Bands1"] == 999.0).sum())
    assert measurement.to_arrow("BandInterval").column("Bands1")[3].as_py()[5] is None
    assert measurement.to_polars("BandInterval")["Bands1"][3].to_list()[5] is None
    values = measurement.to_pandas("BandInterval")["Bands1"]
    assert sum(int(np.isnan(row).sum()) for row in values) == expected


# Parquet tells times in milliseconds.
def _is_same(read: pa.Table, written: pa.Table) -> bool:
    return bool(read.equals(written.cast(read.schema)))


class TestParquet:
    def test_a_dataset_a_record_name(self, tmp_path: Path) -> None:
        files = [str(sample(name)) for name in ("night_europe", "general_day")]
        assert command.main(["to-parquet", *files, "--to", str(tmp_path), "--tz", BERLIN]) == 0
        intervals = ds.dataset(tmp_path / "Interval")
        assert intervals.count_rows() == 48 + 1440
        part = tmp_path / "Interval" / "night_europe.qvd.parquet"
        measurement = qvslm.read(sample("night_europe"), tz=BERLIN)
        table = pq.read_table(part)
        assert _is_same(table, measurement.to_arrow("Interval"))
        assert table.schema.field("LevelA").metadata[b"unit"] == b"dB"
        told = json.loads(pq.read_schema(part).metadata[b"qvslm"])
        assert (told["serial"], told["whole"], told["record"]) == ("2071", True, "Interval")
        assert pq.ParquetFile(part).metadata.row_group(0).column(0).compression == "ZSTD"
        assert not list(tmp_path.rglob(".*"))

    def test_every_sample(self, tmp_path: Path) -> None:
        assert command.main(["to-parquet", *map(str, SAMPLES), "--to", str(tmp_path)]) == 0
        for path in SAMPLES:
            measurement = qvslm.read(path)
            for name in measurement:
                table = pq.read_table(tmp_path / name / f"{path.name}.parquet")
                assert _is_same(table, measurement.to_arrow(name)), (path, name)

    def test_a_cut_file(self, tmp_path: Path) -> None:
        cut = tmp_path / "cut.qvd"
        cut.write_bytes(sample("general_day").read_bytes()[:20000])
        out = tmp_path / "out"
        assert command.main(["to-parquet", str(cut), "--to", str(out), "--strict"]) == 1
        assert [path for path in out.rglob("*") if path.is_file()] == []
        assert command.main(["to-parquet", str(cut), "--to", str(out)]) == 3
        assert pq.read_metadata(out / "Interval" / "cut.qvd.parquet").num_rows > 0

    def test_a_fault_leaves_what_was_there(
        self, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
    ) -> None:
        file = str(sample("general_day"))
        assert command.main(["to-parquet", file, "--to", str(tmp_path)]) == 0
        before = {path: path.read_bytes() for path in tmp_path.rglob("*") if path.is_file()}

        def fail(*_: object) -> None:
            raise OSError("no room")

        monkeypatch.setattr("qvslm._parquet._Part.add", fail)
        assert command.main(["to-parquet", file, "--to", str(tmp_path)]) == 1
        after = {path: path.read_bytes() for path in tmp_path.rglob("*") if path.is_file()}
        assert after == before

    def test_what_goes_wrong(self, tmp_path: Path, capsys: pytest.CaptureFixture[str]) -> None:
        assert command.main(["to-parquet", str(tmp_path / "none"), "--to", str(tmp_path)]) == 1
        assert "No such file" in capsys.readouterr().err
        file = str(sample("general_day"))
        for wrong in (["--records", "Nothing"], [file]):
            with pytest.raises(SystemExit) as fault:
                command.main(["to-parquet", file, *wrong, "--to", str(tmp_path)])
            assert fault.value.code == 2
