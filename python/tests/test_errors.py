"""Files that are cut, damaged, or none: told, and never the end of the interpreter."""

import os
from pathlib import Path

import pytest
from conftest import SAMPLES, sample
from hypothesis import HealthCheck, given, settings
from hypothesis import strategies as st

import qvslm

DAY = sample("general_day").read_bytes()
EXAMPLES = int(os.environ.get("QVSLM_EXAMPLES", "150"))


def test_a_cut_file_gives_what_it_holds() -> None:
    whole = qvslm.read(sample("general_day"))
    cut = qvslm.read(DAY[:20000])
    count = len(cut["Interval"])
    assert 0 < count < 1440
    assert cut["Interval"].tobytes() == whole["Interval"][:count].tobytes()
    status = cut.status
    assert not status.whole
    assert not status
    assert status.reason == "the file ends before the end of its data"
    assert status.offset is not None
    assert 19000 < status.offset <= 20000
    assert whole.status.whole
    assert whole.status.offset is None


def test_a_cut_file_raises_with_strict() -> None:
    with pytest.raises(qvslm.Error, match=r"at byte 19.*the file ends before") as fault:
        qvslm.read(DAY[:20000], strict=True)
    assert fault.value.offset == qvslm.read(DAY[:20000]).status.offset
    assert fault.value.status == qvslm.read(DAY[:20000]).status.status
    assert qvslm.read(DAY, strict=True).status.whole
    with qvslm.open(DAY[:20000], strict=True) as file, pytest.raises(qvslm.Error):
        list(file.batches(rows=100))


@pytest.mark.parametrize("content", [b"", b"no measurement", b"\0" * 5000])
def test_what_is_no_measurement_raises(content: bytes) -> None:
    with pytest.raises(qvslm.Error) as fault:
        qvslm.read(content)
    assert fault.value.status == -314
    assert fault.value.offset is None
    assert fault.value.text == str(fault.value)


def _read_all(content: bytes) -> None:
    try:
        measurement = qvslm.read(content, tz="Europe/Berlin")
    except qvslm.Error as fault:
        assert -320 <= fault.status < 0
        return
    measurement.samples()
    for name in measurement:
        measurement.to_arrow(name)
        for field in qvslm.fields(name):
            if field.dtype.kind == "S":
                measurement.text(name, field.name)


# Cut anywhere, and with bytes exchanged anywhere.
@settings(max_examples=EXAMPLES, deadline=None, suppress_health_check=list(HealthCheck))
@given(data=st.data(), path=st.sampled_from(SAMPLES))
def test_no_damage_ends_the_interpreter(data: st.DataObject, path: Path) -> None:
    content = bytearray(path.read_bytes())
    for _ in range(data.draw(st.integers(0, 30))):
        at = data.draw(st.integers(0, len(content) - 1))
        content[at] = data.draw(st.sampled_from([0, 1, 10, 0x7F, 0x80, 0xFF]) | st.integers(0, 255))
    if data.draw(st.booleans()):
        del content[data.draw(st.integers(0, len(content))) :]
    _read_all(bytes(content))
