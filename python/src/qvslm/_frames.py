"""Records as tables of pandas, polars and Arrow."""

import json
from typing import TYPE_CHECKING, Any

import numpy as np
from numpy.typing import NDArray

from ._columns import Column, columns_of
from ._file import Info, Rows, Status
from ._records import RecordType

if TYPE_CHECKING:
    import pandas as pd
    import polars as pl
    import pyarrow as pa

METADATA_KEY = b"qvslm"
"""Under this key the metadata of an Arrow schema tells of the file, in JSON."""


def _plain(value: object) -> int | str | None:
    return value if value is None or isinstance(value, (int, str)) else str(value)


def facts(info: Info, status: Status, tz: str | None) -> dict[str, Any]:
    """What is told of the file beside a table, in values that JSON knows."""
    told = {name: _plain(value) for name, value in vars(info).items() if name != "titles"}
    return {
        **told,
        "titles": list(info.titles),
        "whole": status.whole,
        "reason": status.reason,
        "tz": tz,
    }


# Arrow -------------------------------------------------------------------------------------------


def _arrow_type(column: Column, tz: str | None) -> "pa.DataType":
    import pyarrow as pa

    if column.field.dtype.kind == "S":
        scalar: pa.DataType = pa.string()
    elif column.field.kind == "time":
        scalar = pa.timestamp("s", tz=tz)
    else:
        scalar = pa.from_numpy_dtype(column.values.dtype)
    return scalar


def _arrow_array(column: Column, tz: str | None) -> "pa.Array":
    import pyarrow as pa

    scalar = _arrow_type(column, tz)
    if column.field.dtype.kind == "S":
        array = pa.array(column.values.reshape(-1).tolist(), scalar)
    else:
        bits = None if column.bits is None else pa.py_buffer(column.bits)
        buffers = [bits, pa.py_buffer(column.values.reshape(-1).view(np.uint8))]
        array = pa.Array.from_buffers(scalar, column.values.size, buffers, column.missing)
    for size in reversed(column.field.shape):
        array = pa.FixedSizeListArray.from_arrays(array, size)
    return array


def to_arrow(record: RecordType, rows: Rows, tz: str | None) -> "pa.Table":
    """A table whose fields carry unit and comment."""
    import pyarrow as pa

    arrays, fields = [], []
    for column in columns_of(record, rows):
        array = _arrow_array(column, tz)
        told = {"comment": column.field.comment}
        if column.field.unit:
            told["unit"] = column.field.unit
        arrays.append(array)
        fields.append(pa.field(column.field.name, array.type, metadata=told))
    return pa.Table.from_arrays(arrays, schema=pa.schema(fields))


def with_facts(table: "pa.Table", record: RecordType, told: dict[str, Any]) -> "pa.Table":
    """The table with what is told of its file."""
    text = json.dumps({"record": record.name, **told})
    return table.replace_schema_metadata({METADATA_KEY: text.encode()})


# pandas ------------------------------------------------------------------------------------------


def _pandas_column(column: Column, tz: str | None) -> "pd.Series[Any] | NDArray[Any]":
    import pandas as pd

    if column.field.kind == "time" and not column.field.shape:
        times = column.values.astype("datetime64[s]")
        times[column.mask()] = np.datetime64("NaT")
        series = pd.Series(times)
        return series if tz is None else series.dt.tz_localize("UTC").dt.tz_convert(tz)
    values = column.values
    if column.missing > 0:
        values[column.mask()] = 0 if column.field.kind == "time" else np.nan
    return pd.Series(list(values), dtype=object) if column.field.shape else values


def to_pandas(
    record: RecordType, rows: Rows, tz: str | None, told: dict[str, Any]
) -> "pd.DataFrame":
    """A DataFrame; ``attrs`` tell of the file, and unit and comment of each column."""
    import pandas as pd

    columns = {column.field.name: _pandas_column(column, tz) for column in columns_of(record, rows)}
    frame = pd.DataFrame(columns)
    frame.attrs["record"] = record.name
    frame.attrs |= told
    frame.attrs["units"] = {field.name: field.unit for field in record.fields if field.unit}
    frame.attrs["comments"] = {field.name: field.comment for field in record.fields}
    return frame


# polars ------------------------------------------------------------------------------------------


def _polars_series(column: Column, tz: str | None) -> "pl.Series":
    import polars as pl

    flat = column.values.reshape(-1)
    name = column.field.name
    if column.field.dtype.kind == "S":
        series = pl.Series(name, flat.tolist(), dtype=pl.String)
    else:
        series = pl.Series(name, flat)
    if column.missing > 0:
        there = pl.Series(np.logical_not(column.mask().reshape(-1)))
        series = series.to_frame().select(pl.when(there).then(pl.col(name)).alias(name))[name]
    if column.field.kind == "time":
        series = (series * 1000).cast(pl.Datetime("ms"))
        if tz is not None:
            series = series.dt.replace_time_zone("UTC").dt.convert_time_zone(tz)
    if column.field.shape:
        series = series.reshape((len(column.values), *column.field.shape))
    return series


def to_polars(record: RecordType, rows: Rows, tz: str | None) -> "pl.DataFrame":
    """A DataFrame. Polars keeps no metadata: ``qvslm.fields`` has units and comments."""
    import polars as pl

    return pl.DataFrame([_polars_series(column, tz) for column in columns_of(record, rows)])
