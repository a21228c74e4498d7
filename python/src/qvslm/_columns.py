"""The records of an array by columns, as tables want them."""

from collections.abc import Iterator
from dataclasses import dataclass
from typing import Any

import numpy as np
from numpy.typing import NDArray

from . import _core
from ._file import Rows
from ._records import Field, RecordType, decode


@dataclass(frozen=True)
class Column:
    """A field of all records: its values, and which of them are missing."""

    field: Field
    values: NDArray[Any]
    """Texts are str, times seconds of 64 bits; an array field has its shape behind the rows."""
    bits: NDArray[np.uint8] | None
    """Where values are missing: a bit for each, 0 for a missing one, of a byte the lowest first."""
    missing: int

    def mask(self) -> NDArray[np.bool_]:
        """True where a value is missing, in the shape of the values."""
        if self.bits is None:
            return np.zeros(self.values.shape, bool)
        there = np.unpackbits(self.bits, count=self.values.size, bitorder="little")
        return np.logical_not(there.reshape(self.values.shape))


def columns_of(record: RecordType, rows: Rows) -> Iterator[Column]:
    """Column by column, in the order of the record."""
    packed = np.ascontiguousarray(rows)
    numbers = _core.columns(record.place, packed.reshape(-1).view(np.uint8))
    for field in record.fields:
        if field.dtype.kind == "S":
            yield Column(field, decode(rows[field.name]), None, 0)
            continue
        values, bits, missing = numbers[field.name]
        dtype = np.dtype(np.int64) if field.kind == "time" else field.dtype
        yield Column(field, values.view(dtype).reshape(len(rows), *field.shape), bits, missing)
