"""Peers: packages that read measurement files of other formats, on files that they write.

Each holds as many values as ours, where its format allows in as many records.
"""

from collections.abc import Callable
from pathlib import Path
from typing import Any

import numpy as np

Work = Callable[[], object]


def _levels(count: int) -> Any:
    return (40 + np.arange(count) * 37 % 400 / 10).astype(np.float32)


def tdms(folder: Path, records: int, values: int) -> Work:
    """A segment a record, with one channel."""
    from nptdms import ChannelObject, TdmsFile, TdmsWriter

    path = folder / "peer.tdms"
    levels = _levels(records * values).reshape(records, values)
    with TdmsWriter(path) as writer:
        for row in levels:
            writer.write_segment([ChannelObject("group", "level", row)])

    def work() -> object:
        data = TdmsFile.read(path)["group"]["level"][:]
        assert len(data) == records * values
        return data

    return work


def mdf(folder: Path, records: int, values: int) -> Work:
    """One channel beside its time: an array of pairs."""
    from asammdf import MDF, Signal

    path = folder / "peer.mf4"
    levels = _levels(records * values)
    with MDF(version="4.10") as file:
        file.append([Signal(levels, np.arange(len(levels)) / 8, name="level")])
        file.save(path, overwrite=True)

    def work() -> object:
        with MDF(path) as read:
            signal = read.get("level")
        assert len(signal.samples) == records * values
        return signal

    return work


def mdf_groups(folder: Path, records: int, values: int) -> Work:
    """A group a record, of a tenth of the records: the time is theirs times ten."""
    from asammdf import MDF, Signal

    path = folder / "peer_groups.mf4"
    groups = records // 10
    levels = _levels(groups * values).reshape(groups, values)
    with MDF(version="4.10") as file:
        for at, row in enumerate(levels):
            stamps = at * values / 8 + np.arange(values) / 8
            file.append([Signal(row, stamps, name="level")])
        file.save(path, overwrite=True)

    def work() -> object:
        with MDF(path) as read:
            parts = [read.get("level", group=at).samples for at in range(groups)]
        assert sum(map(len, parts)) == groups * values
        return parts

    return work


def miniseed(folder: Path, records: int, values: int) -> Work:
    """Records of 256 bytes, of 48 values each."""
    from obspy import Stream, Trace, read

    path = folder / "peer.mseed"
    trace = Trace(_levels(records * values), {"sampling_rate": 8.0, "station": "SLM"})
    Stream([trace]).write(str(path), format="MSEED", reclen=256, encoding="FLOAT32")

    def work() -> object:
        stream = read(str(path), format="MSEED")
        assert sum(len(part.data) for part in stream) == records * values
        return stream

    return work


PEERS = [
    ("nptdms", "npTDMS", "10000 segments of 60 values", tdms),
    ("asammdf", "asammdf", "one array of 600000 pairs", mdf),
    ("asammdf", "asammdf, groups", "1000 groups of 60 values: a tenth", mdf_groups),
    ("obspy", "obspy", "12500 miniSEED records of 48 values", miniseed),
]
