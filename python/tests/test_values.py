"""Every value of every sample is what `qvslm dump --raw` prints."""

import json
import math
import os
import subprocess
from collections import defaultdict
from pathlib import Path
from typing import Any

import numpy as np
import pytest
from conftest import SAMPLES

import qvslm


def _dumped(host: Path, path: Path, zone: str) -> dict[str, list[dict[str, Any]]]:
    lines = subprocess.run(
        [host, "dump", "--raw", path],
        env={**os.environ, "TZ": zone},
        capture_output=True,
        check=True,
        text=True,
    ).stdout.splitlines()
    records = defaultdict(list)
    for line in lines:
        record = json.loads(line)
        records[record["record"]].append(record)
    return records


def _as_dumped(value: Any) -> Any:
    if isinstance(value, np.ndarray):
        return [_as_dumped(element) for element in value]
    if isinstance(value, bytes):
        return value.split(b"\0")[0].decode("latin-1")
    if isinstance(value, np.floating):
        return float(value) if math.isfinite(value) else None
    return int(value)


def _as_float32(value: Any) -> Any:
    if isinstance(value, list):
        return [_as_float32(element) for element in value]
    return float(np.float32(value)) if isinstance(value, float) else value


@pytest.mark.parametrize(
    ("tz", "zone"), [(None, "UTC"), ("Europe/Berlin", "Europe/Berlin"), ("America/New_York",) * 2]
)
@pytest.mark.parametrize("path", SAMPLES, ids=lambda path: path.stem)
def test_every_value_is_the_dumped_one(host: Path, path: Path, tz: str | None, zone: str) -> None:
    dumped = _dumped(host, path, zone)
    measurement = qvslm.read(path, tz=tz)
    assert {name: len(rows) for name, rows in dumped.items()} == {
        name: len(measurement[name]) for name in measurement
    }
    for name, rows in dumped.items():
        fields = measurement[name].dtype.names
        assert fields is not None
        for row, own in zip(rows, measurement[name], strict=True):
            for field in fields:
                theirs = row["code"] if field == "RecordType" else _as_float32(row[field])
                assert _as_dumped(own[field]) == theirs, (name, field)


@pytest.mark.parametrize("path", SAMPLES, ids=lambda path: path.stem)
def test_the_info_is_that_of_the_program(host: Path, path: Path) -> None:
    lines = subprocess.run(
        [host, "info", path],
        env={**os.environ, "TZ": "Europe/Berlin"},
        capture_output=True,
        check=True,
        text=True,
    ).stdout.splitlines()
    told: dict[str, list[str]] = {}
    for line in lines:
        told.setdefault(line[2:14].strip(), []).append(line[15:])
    info = qvslm.read(path, tz="Europe/Berlin").info
    own = {
        "model": str(info.model),
        "serial": info.serial,
        "firmware": info.firmware,
        "mode": info.mode,
        "sites": str(info.sites) if info.sites > 0 else "",
        "header time": info.header_time.isoformat() if info.header_time else "",
        "start": info.start.isoformat() if info.start else "",
        "last stop": info.last_stop.isoformat() if info.last_stop else "",
        "last record": info.last_record.isoformat() if info.last_record else "",
    }
    assert {name: told.get(name, [""])[0] for name in own} == own
    assert told.get("title", []) == [title for title in info.titles if title]


def test_fields_are_views_of_the_records() -> None:
    rows = qvslm.read(SAMPLES[0])["Interval"]
    levels = rows["LevelA"]
    assert np.shares_memory(levels, rows)
    levels[0] = 12.5
    assert rows[0]["LevelA"] == np.float32(12.5)


def test_the_layout_is_that_of_the_header() -> None:
    interval = qvslm.RECORDS["Interval"].dtype
    assert interval.itemsize == 416
    assert interval.fields is not None
    assert interval.fields["LevelA"] == (np.dtype("f4"), 100)
    assert interval.fields["Samples"][0].shape == (256,)
    assert qvslm.RECORDS["Summary"].dtype.fields["Aux"][0].shape == (3, 3)  # type: ignore[index]


def test_fields_tell_unit_and_comment() -> None:
    by_name = {field.name: field for field in qvslm.fields("Interval")}
    assert (by_name["LevelA"].unit, by_name["LevelA"].kind) == ("dB", "level")
    assert (by_name["Duration"].unit, by_name["FlaggedSamplePercent"].unit) == ("s", "%")
    assert by_name["RecordTime"].comment == "time: start of the interval"
    assert by_name["Model"].unit == ""
    with pytest.raises(KeyError, match="no record is named 'Nothing'"):
        qvslm.fields("Nothing")


def test_texts_end_at_their_first_nul() -> None:
    texts = np.array([b"Stra\xdfe\0rest", b"", b"whole12345"], "S10")
    assert qvslm.decode(texts).tolist() == ["Straße", "", "whole12345"]
    table = np.array([[b"a\0b", b"c"], [b"", b"de"]], "S3")
    assert qvslm.decode(table).tolist() == [["a", "c"], ["", "de"]]
