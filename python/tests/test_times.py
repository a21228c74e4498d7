"""Times: the clock of the instrument, or instants by a zone, whatever zone the process has."""

import os
import time
from collections.abc import Iterator
from datetime import UTC, datetime, timedelta
from zoneinfo import ZoneInfo, ZoneInfoNotFoundError

import numpy as np
import pytest
from conftest import sample
from hypothesis import given, settings
from hypothesis import strategies as st

import qvslm
from qvslm import _zones

ZONES = [
    "Europe/Berlin",
    "Europe/Dublin",
    "America/New_York",
    "America/Sao_Paulo",
    "Africa/Casablanca",
    "Asia/Kolkata",
    "Australia/Lord_Howe",
    "Pacific/Apia",
    "UTC",
]


@pytest.fixture(params=["UTC", "Asia/Tokyo", "America/St_Johns"])
def process_zone(request: pytest.FixtureRequest) -> Iterator[str]:
    before = os.environ.get("TZ")
    os.environ["TZ"] = request.param
    time.tzset()
    names = time.tzname
    yield request.param
    assert (os.environ["TZ"], time.tzname) == (request.param, names)
    if before is None:
        del os.environ["TZ"]
    else:
        os.environ["TZ"] = before
    time.tzset()


@pytest.mark.usefixtures("process_zone")
def test_without_a_zone_times_are_those_of_the_clock() -> None:
    measurement = qvslm.read(sample("night_europe"))
    times = measurement.times("Interval")
    # Twenty-two o'clock by the instrument, and every ten minutes of its clock.
    assert times[0] == np.datetime64("2024-10-26T22:00:00")
    assert measurement.info.start == datetime(2024, 10, 26, 22)
    assert measurement.info.start.tzinfo is None
    assert np.unique(np.diff(times)).tolist() == [timedelta(minutes=10)]


# The instrument runs through the night and keeps daylight time: 22:00 is 20:00 UTC, and eight hours
# later 04:00 UTC, which a clock in Berlin shows as 05:00.
@pytest.mark.usefixtures("process_zone")
def test_with_a_zone_times_are_instants() -> None:
    measurement = qvslm.read(sample("night_europe"), tz="Europe/Berlin")
    times = measurement.times("Interval")
    assert times[0] == np.datetime64("2024-10-26T20:00:00")
    assert np.unique(np.diff(times)).tolist() == [timedelta(minutes=10)]
    assert measurement.info.start == datetime(2024, 10, 26, 20, tzinfo=UTC)
    assert measurement.info.start.tzinfo == ZoneInfo("Europe/Berlin")


def test_no_time_is_nat() -> None:
    measurement = qvslm.read(sample("general_spine"))
    end = measurement.times("End", "EndRecordStopTime")
    assert measurement["End"]["EndRecordStopTime"].tolist() == [0]
    assert np.isnat(end).tolist() == [True]
    assert measurement.info.last_stop is None


def test_an_unknown_zone_is_told() -> None:
    with pytest.raises(ZoneInfoNotFoundError):
        qvslm.read(sample("night_europe"), tz="Europe/Nowhere")


def _by_table(changes: list[_zones.Change], instant: int) -> tuple[int, int]:
    found = changes[0]
    for change in changes:
        if change[0] <= instant:
            found = change
    return found[1:]


@settings(max_examples=300, deadline=None)
@given(key=st.sampled_from(ZONES), instant=st.integers(-(2**31), 2**31 - 1))
def test_the_table_of_changes_reads_instants_as_the_zone_does(key: str, instant: int) -> None:
    local = (datetime(1970, 1, 1, tzinfo=UTC) + timedelta(seconds=instant)).astimezone(
        ZoneInfo(key)
    )
    offset = local.utcoffset()
    assert offset is not None
    own = (round(offset.total_seconds()), int(bool(local.dst())))
    assert _by_table(_zones.changes(key), instant) == own


# 2024-03-31 01:00 UTC and 2024-10-27 01:00 UTC.
def test_changes_stand_at_their_second() -> None:
    changes = _zones.changes("Europe/Berlin")
    assert (1711846800, 7200, 1) in changes
    assert (1729990800, 3600, 0) in changes
