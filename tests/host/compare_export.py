#!/usr/bin/env python3
"""Holds what `qvslm export` wrote against what `qvslm dump` prints, value by value.

  compare_export.py csv FOLDER DUMP       tables by the csv module, texts without the guard
  compare_export.py long FOLDER DUMP      the same with --long
  compare_export.py sqlite DATABASE DUMP
  compare_export.py xlsx WORKBOOK DUMP
  compare_export.py json OBJECT DUMP      a mat as Octave's jsonencode gives it

DUMP holds the lines of `qvslm dump`. Numbers are equal when they are the same 32-bit number, or the
same whole number; SQLite, sheets and Octave know no -0. Prints "RECORDS VALUES", or what differs,
and ends with 1.
"""
import collections
import csv
import datetime
import json
import pathlib
import sqlite3
import struct
import sys


def rows_of_csv(folder):
    for path in pathlib.Path(folder).iterdir():
        with open(path, encoding="utf-8", newline="") as file:
            rows = csv.reader(file, strict=True)
            # Behind the name stands its unit in parentheses.
            names = [name.split(" (")[0] for name in next(rows)]
            for row in rows:
                if len(row) != len(names):
                    sys.exit(f"{path}: a row of {len(row)} columns under {len(names)} headings")
                yield path.stem, dict(zip(names, row))


def rows_of_long(folder):
    for path in pathlib.Path(folder).iterdir():
        if path.stem.startswith("TimeHistory") and path.stem != "TimeHistory":
            continue
        records = collections.defaultdict(dict)
        with open(path, encoding="utf-8", newline="") as file:
            for row in csv.DictReader(file, strict=True):
                name = row["Field"]
                for index in (row["Index"], row["Index2"]):
                    name += f"[{index}]" if index else ""
                records[row["Record"]][name] = row["Value"]
        for number, values in records.items():
            yield path.stem, {"Record": number, **values}


def rows_of_sqlite(path):
    base = sqlite3.connect(path)
    base.row_factory = sqlite3.Row
    for (name,) in base.execute("SELECT name FROM sqlite_schema WHERE type = 'table'").fetchall():
        if name in ("files", "fields"):
            continue
        for row in base.execute(f'SELECT * FROM "{name}" ORDER BY id'):
            values = {"Record": row["record"]}
            for column in row.keys():
                value = row[column]
                if isinstance(value, bytes):
                    values.update({f"{column}[{i}]": byte for i, byte in enumerate(value)})
                else:
                    values[column] = value
            yield name, values


def rows_of_xlsx(path):
    import openpyxl
    with open(path, "rb") as file:
        for sheet in openpyxl.load_workbook(file, read_only=True):
            rows = sheet.iter_rows(values_only=True)
            names = [name.split(" (")[0] for name in next(rows)]
            for row in rows:
                yield sheet.title, dict(zip(names, row + (None,) * (len(names) - len(row))))


def rows_of_json(path):
    """What Octave gave: vectors as lists, tables as lists of rows, no value as null."""
    with open(path, encoding="utf-8") as file:
        variables = json.load(file)
    for name, records in variables.items():
        if name == "Units" or name.startswith("TimeHistory") and name != "TimeHistory":
            continue
        for record in records if isinstance(records, list) else [records]:
            yield name, dict(flat(record))


def flat(record):
    """Names and values of an object, its arrays as Name[0], Name[1] and Name[0][1]."""
    for name, value in record.items():
        if not isinstance(value, list):
            yield name, value
            continue
        base, local = (name[:-5], "Local") if name.endswith("Local") else (name, "")
        for i, element in enumerate(value):
            if isinstance(element, list):
                for j, inner in enumerate(element):
                    yield f"{base}{local}[{i}][{j}]", inner
            else:
                yield f"{base}{local}[{i}]", element


def is_same(wanted, found, signed_zero):
    if wanted is None or wanted == "":
        return found in (None, "", [])
    if isinstance(found, datetime.datetime):
        return found.isoformat(timespec="seconds") == wanted[:19]
    if isinstance(wanted, str):
        return found == wanted
    if found in (None, ""):
        return False
    if isinstance(wanted, float):
        if wanted == 0 and not signed_zero:
            return float(found) == 0
        return struct.pack("<f", wanted) == struct.pack("<f", float(found))
    return int(found) == wanted


def main():
    form, place, dump = sys.argv[1:]
    read = {"csv": rows_of_csv, "long": rows_of_long, "sqlite": rows_of_sqlite,
            "xlsx": rows_of_xlsx, "json": rows_of_json}[form]
    found = {}
    for table, row in read(place):
        if not table.startswith("TimeHistory") or table == "TimeHistory":
            found[int(row["Record"])] = (table, row)
    with open(dump, encoding="utf-8") as file:
        records = [json.loads(line) for line in file]
    if len(found) != len(records):
        sys.exit(f"{len(found)} rows for {len(records)} records")
    values = 0
    for number, record in enumerate(records, 1):
        table, row = found[number]
        if table != record["record"]:
            sys.exit(f"record {number} is in {table}, and is a {record['record']}")
        for name, wanted in flat(record):
            if name in ("record", "code", "short"):
                continue
            # A list of one element is one value for Octave.
            if name not in row and not (form == "json" and name.endswith("[0]")):
                sys.exit(f"record {number}, {table}: no {name}")
            value = row.get(name, row.get(name.removesuffix("[0]")))
            if not is_same(wanted, value, form in ("csv", "long")):
                sys.exit(f"record {number}, {table}: {name} is {value!r} in place of {wanted!r}")
            values += 1
    print(len(records), values)


if __name__ == "__main__":
    main()
