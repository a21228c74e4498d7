"""Measurement files of a family of sound level meters, as NumPy arrays, DataFrames and Parquet."""

from ._errors import Error
from ._file import Info, MeasurementFile, Status, open
from ._measurement import SAMPLE, Measurement, read
from ._records import RECORD_TYPES as RECORDS
from ._records import Field, RecordType, decode, fields
from ._scan import scan

__version__ = "3.23.0"
__all__ = [
    "RECORDS",
    "SAMPLE",
    "Error",
    "Field",
    "Info",
    "Measurement",
    "MeasurementFile",
    "RecordType",
    "Status",
    "decode",
    "fields",
    "open",
    "read",
    "scan",
]
