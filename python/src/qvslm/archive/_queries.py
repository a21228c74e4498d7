"""A dataset in DuckDB, and the questions that an office asks it."""

import os
from collections import defaultdict
from pathlib import Path
from typing import TYPE_CHECKING

import pyarrow as pa

from .._records import RECORD_TYPES
from . import _layout
from ._dataset_files import path_of
from ._manifest import NAME, zone_of

if TYPE_CHECKING:
    import duckdb

_LEVELS = (10, 50, 90)


def _text(value: str) -> str:
    return "'" + value.replace("'", "''") + "'"


def _name(value: str) -> str:
    return '"' + value.replace('"', '""') + '"'


def _paths(connection: "duckdb.DuckDBPyConnection", folder: Path) -> dict[str, list[str]]:
    """The Parquet files of each kind. Of millions of rows of a manifest no objects are made."""
    found: dict[str, list[str]] = defaultdict(list)
    listed = _text(str(folder / NAME))
    places = connection.execute(
        "SELECT DISTINCT part.kind, instrument, part.month, part.name FROM"
        f" (SELECT instrument, unnest(parts) AS part FROM read_parquet({listed})) ORDER BY ALL"
    )
    for place in places.fetchall():
        found[place[0]].append(str(folder / path_of(place)))
    return found


def paths(dataset: str | os.PathLike[str], kind: str) -> list[str]:
    """The Parquet files that hold a kind of rows now, for other engines."""
    import duckdb

    folder = Path(dataset).absolute()
    zone_of(folder)
    with duckdb.connect() as connection:
        return _paths(connection, folder).get(kind, [])


def open(dataset: str | os.PathLike[str]) -> "duckdb.DuckDBPyConnection":
    """A connection of DuckDB with the dataset as it is now.

    There is a view for each kind of records by its name, ``Samples`` of the samples of time
    histories, ``files``, a row a measurement file, and ``broken``, those of which something is
    missing. A view has the fields of its records, and ``instrument``, ``month``, ``time`` and
    ``file`` of each.
    """
    import duckdb

    folder = Path(dataset).absolute()
    _layout.check_place(folder)
    tz = zone_of(folder)
    connection = duckdb.connect()
    if tz is not None:
        connection.execute(f"SET TimeZone = {_text(tz)}")
    files = _paths(connection, folder)
    for kind in [*RECORD_TYPES, _layout.SAMPLES]:
        if kind in files:
            listed = ", ".join(map(_text, files[kind]))
            connection.execute(
                f"CREATE VIEW {_name(kind)} AS SELECT * EXCLUDE (kind)"
                f" FROM read_parquet([{listed}], hive_partitioning = true,"
                " hive_types = {kind: VARCHAR, instrument: VARCHAR, month: VARCHAR})"
            )
        else:
            empty = _layout.schema(kind, tz).empty_table()
            for column in ("instrument", "month"):
                empty = empty.append_column(column, pa.array([], pa.string()))
            connection.register(kind, empty)
    listed = _text(str(folder / NAME))
    connection.execute(
        "CREATE VIEW files AS SELECT * EXCLUDE (parts),"
        " list_sum([part.bytes for part in parts]) AS parquet_bytes"
        f" FROM read_parquet({listed})"
    )
    connection.execute(
        'CREATE VIEW broken AS SELECT path, status, "offset", reason, rows FROM files'
        " WHERE status <> 'whole'"
    )
    return connection


def _is_there(level: str) -> str:
    """Whether a record has a level. NaN, which DuckDB sorts above all numbers, is none."""
    return f"{_name(level)} IS NOT NULL AND NOT isnan({_name(level)}::DOUBLE)"


def energy_means(
    connection: "duckdb.DuckDBPyConnection",
    level: str,
    each: str = "hour",
    records: str = "Interval",
) -> "duckdb.DuckDBPyRelation":
    """Means by energy and percentiles of a level, for each instrument and hour, or day.

    ``L10`` is the level that is exceeded 10 % of the time. Records count alike, as those of one
    instrument with one length do; records without a level are left out.
    """
    percentiles = ", ".join(
        f"quantile_cont({_name(level)}::DOUBLE, {1 - share / 100}) AS L{share}" for share in _LEVELS
    )
    begin = f"date_trunc({_text(each)}, time)"
    if each in ("hour", "minute"):
        # An hour that comes twice at the end of daylight time is two hours.
        begin = f"time - (time::TIMESTAMP - date_trunc({_text(each)}, time::TIMESTAMP))"
    return connection.sql(
        f"SELECT instrument, {begin} AS {_name(each)}, count(*) AS records,"
        f" 10 * log10(avg(pow(10, {_name(level)}::DOUBLE / 10))) AS Leq, {percentiles}"
        f" FROM {_name(records)} WHERE {_is_there(level)}"
        " GROUP BY ALL ORDER BY ALL"
    )


def gaps(
    connection: "duckdb.DuckDBPyConnection", longest: float, records: str = "Interval"
) -> "duckdb.DuckDBPyRelation":
    """Where more than so many seconds lie between the times of two records of an instrument.

    Times are those at which records start: ``longest`` is no less than their length.
    """
    return connection.sql(
        "SELECT * FROM (SELECT instrument, time AS last,"
        " lead(time) OVER (PARTITION BY instrument ORDER BY time) AS next,"
        f" epoch(next) - epoch(time) AS seconds FROM {_name(records)})"
        f" WHERE seconds > {float(longest)} ORDER BY instrument, last"
    )


def loudest_events(
    connection: "duckdb.DuckDBPyConnection",
    level: str,
    count: int = 10,
    records: str = "LevelMark",
) -> "duckdb.DuckDBPyRelation":
    """The records with the highest values of a level, the loudest first."""
    return connection.sql(
        f"SELECT instrument, time, {_name(level)}, file FROM {_name(records)}"
        f" WHERE {_is_there(level)}"
        f" ORDER BY {_name(level)} DESC, time, instrument LIMIT {int(count)}"
    )
