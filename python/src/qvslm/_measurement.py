"""A whole file in memory."""

from collections.abc import Iterable, Iterator
from typing import TYPE_CHECKING, Any

import numpy as np
from numpy.typing import NDArray

from . import _core, _frames
from ._file import Info, MeasurementFile, Rows, Status
from ._records import decode, record_type
from ._sources import Source

if TYPE_CHECKING:
    import pandas as pd
    import polars as pl
    import pyarrow as pa

SAMPLE = np.dtype(
    [
        ("time", "datetime64[us]"),
        ("level", np.float32),
        ("second", np.float32),
        ("mark", np.int16),
        ("detail", np.int16),
    ],
    align=True,
)
"""An entry of the time history, see ``Measurement.samples``."""


class Measurement:
    """The records of a file, by their names.

    ``m["Interval"]`` is a structured array whose fields are those of the record, and
    ``m["Interval"]["LevelA"]`` a view of one of them. Times are seconds: of the clock of the
    instrument without ``tz``, since 1970-01-01 00:00 UTC with it. A time of 0 is none, and a level
    of 999.0.
    """

    def __init__(
        self,
        arrays: dict[str, Rows],
        info: Info,
        census: dict[str, int],
        status: Status,
        tz: str | None,
    ) -> None:
        self._arrays = arrays
        self.info = info
        """Which instrument wrote the file, and when."""
        self.census = census
        """How many records of each kind the file holds; of items that are cut, too."""
        self.status = status
        """Whether the file is whole, else where and why it ended."""
        self.tz = tz

    def __getitem__(self, record: str) -> Rows:
        """The records of a name; none where the file holds none."""
        kind = record_type(record)
        rows = self._arrays.get(record)
        return np.empty(0, kind.dtype) if rows is None else rows

    def __contains__(self, record: object) -> bool:
        return record in self._arrays

    def __iter__(self) -> Iterator[str]:
        return iter(self._arrays)

    def __len__(self) -> int:
        return len(self._arrays)

    def keys(self) -> list[str]:
        """The names of the records that are there."""
        return list(self._arrays)

    def __repr__(self) -> str:
        held = ", ".join(f"{len(rows)} {name}" for name, rows in self._arrays.items())
        return f"<qvslm.Measurement {self.info.name}: {held or 'no records'}>"

    def text(self, record: str, field: str) -> NDArray[np.str_]:
        """The texts of a field."""
        return decode(self[record][field])

    def times(self, record: str, field: str = "RecordTime") -> NDArray[np.datetime64]:
        """The times of a field: the clock of the instrument, or UTC with ``tz``. NaT for none."""
        seconds = self[record][field]
        times = seconds.astype("datetime64[s]")
        times[seconds <= 0] = np.datetime64("NaT")
        return times

    def samples(self) -> NDArray[np.void]:
        """The streamed time history as one series.

        ``time`` as ``times``, to the microsecond; ``level`` and ``second``, the second level, NaN
        for none; ``mark`` is -1 for a sample. A marker stands between samples, without levels: its
        ``mark`` is the code of the event, and ``detail`` its detail.
        """
        rows = np.ascontiguousarray(self["TimeHistory"])
        return _core.series(rows.view(np.uint8), np.nan)[0].view(SAMPLE)

    def _told(self) -> dict[str, Any]:
        return _frames.facts(self.info, self.status, self.tz)

    def to_pandas(self, record: str) -> "pd.DataFrame":
        """The records of a name as a DataFrame of pandas, a column for each field."""
        return _frames.to_pandas(record_type(record), self[record], self.tz, self._told())

    def to_polars(self, record: str) -> "pl.DataFrame":
        """The records of a name as a DataFrame of polars."""
        return _frames.to_polars(record_type(record), self[record], self.tz)

    def to_arrow(self, record: str) -> "pa.Table":
        """The records of a name as a table of Arrow."""
        kind = record_type(record)
        return _frames.with_facts(_frames.to_arrow(kind, self[record], self.tz), kind, self._told())


def read(
    source: Source,
    records: str | Iterable[str] | None = None,
    *,
    tz: str | None = None,
    strict: bool = False,
) -> Measurement:
    """Reads a measurement file.

    ``source`` is a path, bytes, or a binary file object; ``records`` the names of the records to
    keep, all without it. ``tz`` is the zone of the place of the measurement, such as
    "Europe/Berlin": times are real instants then, else what the clock of the instrument showed. A
    file that ends early gives what it holds, and tells so in ``status``; with ``strict`` it raises
    ``Error``.
    """
    if isinstance(records, str):
        records = (records,)
    names = None if records is None else list(records)
    with MeasurementFile(source, tz, strict) as file:
        arrays = file.read(names)
        return Measurement(arrays, file.info, file.census, file.status, tz)
