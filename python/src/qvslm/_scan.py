"""What a folder holds."""

import os
from pathlib import Path
from typing import Any

from ._errors import Error
from ._file import MeasurementFile


def scan(
    folder: str | os.PathLike[str], pattern: str = "*", *, tz: str | None = None
) -> list[dict[str, Any]]:
    """One row a measurement file in a folder and those below it, in the order of their paths.

    A row is a dict: the file, who wrote it and when, whether it is whole, and the counts of its
    census. Files that do not begin like a measurement file are left out. ``pandas.DataFrame(rows)``
    makes a table of the rows.
    """
    root = Path(folder)
    if not root.is_dir():
        raise NotADirectoryError(f"{root} is no folder")
    rows = []
    for path in sorted(root.rglob(pattern)):
        if not path.is_file():
            continue
        try:
            with MeasurementFile(path, tz) as file:
                file.read([])
                told = vars(file.info) | {"name": str(path), "titles": " / ".join(file.info.titles)}
                status = file.status
                rows.append({**told, "whole": status.whole, "reason": status.reason, **file.census})
        except (Error, OSError):
            continue
    return rows
