"""``python -m qvslm``: measurement files as Parquet, and archives of them."""

import argparse
import importlib.util
import sys
from collections import Counter
from pathlib import Path

from ._errors import Error
from ._records import RECORD_TYPES

_WHOLE, _NOTHING, _USAGE, _ENDED_EARLY = 0, 1, 2, 3


def _parser() -> argparse.ArgumentParser:
    parser = argparse.ArgumentParser(prog="python -m qvslm")
    commands = parser.add_subparsers(dest="command", required=True)
    parquet = commands.add_parser(
        "to-parquet", help="write each file's records to DIR/NAME/FILE.parquet"
    )
    parquet.add_argument("files", nargs="+", metavar="FILE")
    parquet.add_argument("--to", required=True, metavar="DIR")
    parquet.add_argument("--records", metavar="NAME,NAME", help="only these kinds of records")
    parquet.add_argument("--tz", metavar="ZONE", help="zone of the measurement: Europe/Berlin")
    parquet.add_argument("--strict", action="store_true", help="write nothing of a cut file")
    archive = commands.add_parser("archive", help="many files as one dataset that engines query")
    add = archive.add_subparsers(dest="action", required=True).add_parser(
        "add", help="bring the dataset DIR up to date with files, and folders of them"
    )
    add.add_argument("sources", nargs="+", metavar="SRC")
    add.add_argument("--to", required=True, metavar="DIR")
    add.add_argument("--tz", metavar="ZONE", help="zone of the measurements, for all of DIR")
    add.add_argument("--pattern", default="*", help="names of the files in folders: '*.qvd'")
    add.add_argument("--processes", type=int, metavar="N", help="as many as there are cores")
    return parser


def _add(options: argparse.Namespace) -> int:
    from . import archive

    def tell(file: "archive.File") -> None:
        if file.status != "whole":
            at = "" if file.offset is None else f"at byte {file.offset}: "
            print(f"qvslm: {file.path}: {at}{file.reason}", file=sys.stderr)

    try:
        report = archive.add(
            options.sources,
            options.to,
            tz=options.tz,
            pattern=options.pattern,
            processes=options.processes,
            tell=tell,
        )
    except (OSError, ValueError, KeyError) as fault:
        print(f"qvslm: {fault}", file=sys.stderr)
        return _NOTHING
    seconds = max(report.seconds, 1e-3)
    files = report.new + report.changed
    print(
        f"{report.new} new, {report.changed} changed, {report.gone} gone, "
        f"{report.unchanged} as before; {len(report.broken)} broken; {report.rows} rows written; "
        f"{report.merged} small Parquet files merged; "
        f"{report.seconds:.1f} s, {files / seconds:.1f} files/s, "
        f"{report.bytes / seconds / 1e6:.1f} MB/s"
    )
    return _ENDED_EARLY if report.broken else _WHOLE


def main(arguments: list[str] | None = None) -> int:
    """Runs the command, and gives its exit code."""
    parser = _parser()
    options = parser.parse_args(arguments)
    if options.command == "archive":
        if importlib.util.find_spec("pyarrow") is None:
            parser.error("pyarrow is missing: pip install qvslm[archive]")
        return _add(options)
    names = None if options.records is None else options.records.split(",")
    for name in names or []:
        if name not in RECORD_TYPES:
            parser.error(f"no record is named {name!r}")
    counts = Counter(Path(file).name for file in options.files)
    for name, count in counts.items():
        if count > 1:
            parser.error(f"{count} files are named {name!r}: their parts would be one")
    try:
        from ._parquet import to_parquet
    except ImportError:
        parser.error("pyarrow is missing: pip install qvslm[arrow]")

    outcome = _WHOLE
    for file in options.files:
        try:
            status = to_parquet(file, options.to, names, tz=options.tz, strict=options.strict)
        except (Error, OSError, ValueError, KeyError) as fault:
            print(f"qvslm: {file}: {fault}", file=sys.stderr)
            outcome = _NOTHING
            continue
        if not status.whole:
            print(f"qvslm: {file}: {status.reason}", file=sys.stderr)
            outcome = outcome or _ENDED_EARLY
    return outcome


if __name__ == "__main__":
    sys.exit(main())
