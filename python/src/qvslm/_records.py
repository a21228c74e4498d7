"""The records and their fields, as the library's own table tells them."""

from collections.abc import Iterable
from dataclasses import dataclass

import numpy as np
from numpy.typing import NDArray

from . import _core

_UNITS = {"level": "dB", "dB": "dB", "s": "s", "%": "%"}


@dataclass(frozen=True)
class Field:
    """A field of a record."""

    name: str
    dtype: np.dtype[np.generic]
    """Of one value; an array in the record has ``shape`` of them."""
    shape: tuple[int, ...]
    unit: str
    """Empty where the value has none, or the record does not tell."""
    comment: str
    kind: str
    """What it holds: "level", "dB", "time", "s", "%", "text", "raw text" or "plain"."""
    offset: int
    """Bytes from the start of the record."""


@dataclass(frozen=True)
class RecordType:
    """A kind of records."""

    name: str
    code: int
    place: int
    dtype: np.dtype[np.void]
    fields: tuple[Field, ...]


def _field(
    name: str, kind_of_number: str, kind: str, offset: int, rows: int, count: int, comment: str
) -> Field:
    shape = tuple(size for size in (rows, count) if size > 0)
    dtype = np.dtype(kind_of_number)
    if kind_of_number == "S":
        dtype = np.dtype(f"S{shape[-1]}")
        shape = shape[:-1]
    return Field(name, dtype, shape, _UNITS.get(kind, ""), comment, kind, offset)


def _record_types() -> dict[str, RecordType]:
    types = {}
    for place, (name, code, size, rows) in enumerate(_core.records()):
        if code == 0:
            continue
        fields = tuple(
            _field(field, number, kind, offset, many, count, comment)
            for field, number, kind, offset, many, count, reserved, comment in rows
            if not reserved
        )
        dtype = np.dtype(
            {
                "names": [field.name for field in fields],
                "formats": [(field.dtype, field.shape) for field in fields],
                "offsets": [field.offset for field in fields],
                "itemsize": size,
            }
        )
        types[name] = RecordType(name, code, place, dtype, fields)
    return types


RECORD_TYPES = _record_types()
BY_PLACE = {record.place: record for record in RECORD_TYPES.values()}


def record_type(name: str) -> RecordType:
    """The kind of records of a name."""
    try:
        return RECORD_TYPES[name]
    except KeyError:
        raise KeyError(
            f"no record is named {name!r}; there are {', '.join(RECORD_TYPES)}"
        ) from None


def record_types(names: str | Iterable[str] | None) -> list[RecordType]:
    """The kinds of one name or of several; all of them for None."""
    if names is None:
        return list(RECORD_TYPES.values())
    if isinstance(names, str):
        names = (names,)
    return [record_type(name) for name in names]


def fields(record: str) -> tuple[Field, ...]:
    """Name, type, unit and comment of every field of a record, in the order of its bytes."""
    return record_type(record).fields


def _until_nul(values: NDArray[np.bytes_]) -> NDArray[np.bytes_]:
    width = values.dtype.itemsize
    codes = np.ascontiguousarray(values).reshape(-1).view(np.uint8).reshape(-1, width)
    behind = np.logical_or.accumulate(codes == 0, axis=1)
    return np.where(behind, np.uint8(0), codes).view(values.dtype).reshape(values.shape)


def decode(values: NDArray[np.bytes_]) -> NDArray[np.str_]:
    """Texts of a field of bytes: each up to its first NUL, bytes above 127 as Latin-1."""
    return np.char.decode(_until_nul(values), "latin-1")
