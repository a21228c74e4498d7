"""Files become a dataset, once, whatever happens."""

import errno
import itertools
import os
import random
import subprocess
import sys
import time
from collections import Counter
from pathlib import Path

import pyarrow.parquet as pq
import pytest
from conftest import CUT, write_files
from rows import assert_rows_are_those_of

from qvslm import __main__ as command
from qvslm import archive
from qvslm.archive import Manifest, _add, _layout, _part_writer, _translate
from qvslm.archive._errors import DatasetError

BERLIN = "Europe/Berlin"


def _state(dataset: Path) -> dict[str, tuple[int, int]]:
    paths = [path for path in dataset.rglob("*") if path.is_file()]
    return {str(path): (path.stat().st_mtime_ns, path.stat().st_size) for path in paths}


def _add_all(folder: Path, dataset: Path) -> archive.Report:
    return archive.add(folder, dataset, processes=2)


def test_sixty_files_and_a_rerun(files: list[Path], tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    report = _add_all(tmp_path / "files", dataset)
    assert (report.new, report.changed, report.gone, report.unchanged) == (60, 0, 0, 0)
    assert {Path(file.path) for file in report.broken} >= {files[number] for number in CUT}
    assert_rows_are_those_of(dataset, files)
    before = _state(dataset)
    again = _add_all(tmp_path / "files", dataset)
    assert (again.new, again.changed, again.gone, again.unchanged) == (0, 0, 0, 60)
    # The small files that were merged are left to those who read them then.
    assert (report.merged, report.swept) == (again.swept, 0)
    after = _state(dataset)
    assert after.items() <= before.items()
    assert len(before) - len(after) == again.swept > 0
    assert _add_all(tmp_path / "files", dataset).swept == 0
    assert _state(dataset) == after


def test_a_cut_file_gives_what_it_holds(files: list[Path], tmp_path: Path) -> None:
    path = files[CUT[0]]
    archive.add([path], tmp_path / "dataset", processes=1)
    (broken,) = Manifest.load(tmp_path / "dataset").broken()
    assert broken.status == "broken"
    assert broken.offset is not None
    assert 0 < broken.offset <= path.stat().st_size
    assert broken.reason
    assert broken.rows > 0


def test_changed_removed_and_touched_files(files: list[Path], tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    _add_all(tmp_path / "files", dataset)
    files[4].write_bytes(files[4].read_bytes()[:-400])
    files[5].unlink()
    os.utime(files[6], (1, 1))
    (tmp_path / "files" / "notes.txt").write_text("no measurement")
    report = _add_all(tmp_path / "files", dataset)
    assert (report.new, report.changed, report.gone, report.unchanged) == (1, 1, 1, 58)
    assert [(file.status, file.rows) for file in report.broken if file.rows == 0] == [
        ("unreadable", 0)
    ]
    assert_rows_are_those_of(dataset, [path for path in files if path.exists()])
    assert _add_all(tmp_path / "files", dataset).swept > 0


def test_an_empty_folder_is_not_taken_for_a_city_without_noise(
    files: list[Path], tmp_path: Path
) -> None:
    dataset = tmp_path / "dataset"
    archive.add(files[0].parent, dataset, processes=1)
    before = _state(dataset)
    for path in files[0].parent.iterdir():
        path.unlink()
    with pytest.raises(FileNotFoundError, match="mounted"):
        archive.add(files[0].parent, dataset, processes=1)
    assert _state(dataset) == before


def test_a_zone_holds_for_the_dataset(files: list[Path], tmp_path: Path) -> None:
    paths = [path for path in files if "night_europe" in path.name]
    archive.add(paths, tmp_path / "dataset", tz=BERLIN, processes=1)
    assert_rows_are_those_of(tmp_path / "dataset", paths, BERLIN)
    with pytest.raises(ValueError, match="America"):
        archive.add(paths, tmp_path / "dataset", tz="America/Denver", processes=1)
    # The last record of the night begins in the 28th of October by the clock of the place.
    part = next(p for p in Manifest.load(tmp_path / "dataset").parts("Interval"))
    assert "month=2024-10" in part.path


def test_batches_give_what_the_whole_gives(
    files: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setattr(_translate, "BATCH", 7)
    monkeypatch.setattr(_part_writer, "GROUP_ROWS", 50)
    dataset = tmp_path / "dataset"
    paths = [path for path in files[:26] if path.stat().st_size < 60_000]
    manifest = Manifest()
    for path in paths:
        row = _translate.translate(str(path), str(path), str(dataset), None)
        manifest.files[row.path] = row
    manifest.commit(dataset)
    assert_rows_are_those_of(dataset, paths)


def test_a_folder_that_cannot_be_written_is_no_fault_of_a_file(
    files: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    def fail(*_: object) -> None:
        raise OSError("no room")

    monkeypatch.setattr(_translate._Parts, "add", fail)
    with pytest.raises(DatasetError, match="no room"):
        _translate.translate(str(files[0]), "a", str(tmp_path / "dataset"), None)


def test_an_error_while_reading_is_tried_again(
    files: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    def fail(*_: object) -> None:
        raise OSError(errno.EIO, "Input/output error")

    dataset = tmp_path / "dataset"
    dataset.mkdir()
    name = str(files[0])
    with monkeypatch.context() as patch:
        patch.setattr(_layout, "tables", fail)
        manifest = Manifest()
        manifest.put(_translate.translate(name, name, str(dataset), None))
    assert manifest.files[name].status == "unreadable"
    manifest.commit(dataset)
    report = archive.add(files[:1], dataset, processes=1)
    assert (report.new, report.changed, report.unchanged) == (0, 1, 0)
    assert_rows_are_those_of(dataset, files[:1])


def test_a_name_of_any_bytes_costs_no_other_file(files: list[Path], tmp_path: Path) -> None:
    Path(os.fsdecode(os.fsencode(files[0].parent) + b"/n\xff.txt")).write_text("no measurement")
    report = archive.add(files[0].parent, tmp_path / "dataset", processes=1)
    (unreadable,) = [file for file in report.broken if file.status == "unreadable"]
    assert unreadable.path == f"{files[0].parent}/n\\xff.txt"
    assert "n\\xff.txt" in unreadable.reason
    assert_rows_are_those_of(tmp_path / "dataset", files[0].parent.glob("*.qvd"))


def _die(path: str, name: str, dataset: str, tz: str | None) -> archive.File:
    if "13_" in path:
        os._exit(9)
    return _translate.translate(path, name, dataset, tz)


def test_a_worker_that_dies_costs_its_file_alone(
    files: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setattr(_add, "translate", _die)
    report = archive.add(files[10:16], tmp_path / "dataset", processes=2)
    assert report.new == 6
    (dead,) = [file for file in report.broken if "died" in file.reason]
    assert dead.path == str(files[13])


def _die_without_file(path: str, *_: object) -> archive.File:
    Path(path).unlink(missing_ok=True)
    os._exit(9)


def test_a_file_that_went_with_its_worker(
    files: list[Path], tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    monkeypatch.setattr(_add, "translate", _die_without_file)
    (dead,) = archive.add(files[:1], tmp_path / "dataset", processes=1).broken
    assert (dead.path, dead.size, dead.status) == (str(files[0]), 0, "unreadable")


def test_one_run_at_a_time(files: list[Path], tmp_path: Path) -> None:
    from qvslm.archive import _manifest

    with _manifest.locked(tmp_path / "dataset"), pytest.raises(BlockingIOError):
        archive.add(files[:1], tmp_path / "dataset", processes=1)


def test_a_dataset_of_another_layout_is_refused(files: list[Path], tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    archive.add(files[:1], dataset, processes=1)
    table = pq.read_table(dataset / "manifest.parquet")
    older = {b"qvslm.archive": b'{"layout": 1, "tz": null}'}
    pq.write_table(table.replace_schema_metadata(older), dataset / "manifest.parquet")
    before = _state(dataset)
    with pytest.raises(ValueError, match="has the layout 1, and this version knows 2"):
        archive.add(files[:1], dataset, processes=1)
    assert _state(dataset) == before


# Tells when it begins to translate, to commit, and to take a merged or rewritten Parquet file.
_CHILD = """
import sys
from qvslm.archive import _add, _merge
_add._COMMIT_SECONDS = _add._COMMIT_SHARE = 0.02
_merge.SMALL_FILES = 2
def told(name, work):
    def tells(*arguments):
        print(name, flush=True)
        return work(*arguments)
    return tells
_add._run = told("translates", _add._run)
_add.Manifest.exchange = told("merges", _add.Manifest.exchange)
_add._Commits.commit = told("commits", _add._Commits.commit)
from qvslm.__main__ import main
if __name__ == "__main__":
    sys.exit(main(["archive", "add", sys.argv[1], "--to", sys.argv[2], "--processes", "2"]))
"""


def test_killed_at_twenty_moments(tmp_path: Path) -> None:
    paths = write_files(tmp_path / "files", 26)
    dataset = tmp_path / "dataset"
    child = tmp_path / "child.py"
    child.write_text(_CHILD)
    moments = random.Random(16)
    kills: Counter[str] = Counter()
    while kills.total() < 20:
        phase = ("translates", "commits", "merges")[kills.total() % 3]
        with subprocess.Popen(
            [sys.executable, child, tmp_path / "files", dataset],
            stdout=subprocess.PIPE,
            stderr=subprocess.DEVNULL,
            text=True,
        ) as run:
            assert run.stdout is not None
            lines = (line for line in run.stdout if line == f"{phase}\n")
            later = 0 if phase == "translates" else moments.randrange(5)
            if next(itertools.islice(lines, later, None), None) is not None:
                time.sleep(moments.uniform(0, 1.5 if phase == "translates" else 0.05))
                run.kill()
                kills[phase] += 1
        if (dataset / "manifest.parquet").exists():
            files = Manifest.load(dataset).files
            # A file that changed may still stand there as it was before.
            same = [path for path in paths if str(path) in files]
            same = [path for path in same if files[str(path)].size == path.stat().st_size]
            assert_rows_are_those_of(dataset, same, others=True)
            if len(same) == len(paths):
                # All is there: something changes, so that there is something to do.
                for path in moments.sample(paths, 12):
                    path.write_bytes(path.read_bytes()[:-8])
    _add_all(tmp_path / "files", dataset)
    assert_rows_are_those_of(dataset, paths)
    named = {part.path for part in Manifest.load(dataset).parts()}
    _add_all(tmp_path / "files", dataset)
    there = {path.relative_to(dataset).as_posix() for path in (dataset / "records").rglob("*.*")}
    assert {path for path in there if path.endswith(".parquet")} == named


def test_command(files: list[Path], tmp_path: Path, capsys: pytest.CaptureFixture[str]) -> None:
    arguments = ["archive", "add", str(files[0]), "--to", str(tmp_path / "d"), "--processes", "1"]
    assert command.main(arguments) == 0
    assert "1 new, 0 changed, 0 gone, 0 as before; 0 broken" in capsys.readouterr().out
    assert command.main(["archive", "add", str(files[3]), "--to", str(tmp_path / "d")]) == 3
    assert str(files[3]) in capsys.readouterr().err
    assert command.main(["archive", "add", "/nowhere", "--to", str(tmp_path / "d")]) == 1


def test_layout(files: list[Path], tmp_path: Path) -> None:
    archive.add(files[:8], tmp_path / "dataset", processes=1)
    for part in Manifest.load(tmp_path / "dataset").parts():
        path = tmp_path / "dataset" / part.path
        group = pq.read_metadata(path).row_group(0)
        assert group.column(0).compression == "ZSTD"
        assert group.column(1).statistics.has_min_max
        assert [column.column_index for column in group.sorting_columns] == [1]
        schema = pq.read_schema(path)
        assert schema.equals(_layout.schema(part.kind, None))
        told = {key for field in schema for key in field.metadata or {}} - {b"PARQUET:field_id"}
        assert told <= {b"unit"}
        # What has no engine but the newest is not used, and few rows get no dictionaries.
        found = [group.column(place).encodings for place in range(group.num_columns)]
        assert not any("BYTE_STREAM_SPLIT" in encodings for encodings in found)
        assert "DELTA_BINARY_PACKED" in group.column(1).encodings
        has_dictionaries = sum("RLE_DICTIONARY" in encodings for encodings in found)
        assert (has_dictionaries > 1) == (part.rows >= 1024)
