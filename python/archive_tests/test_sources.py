"""Where files are found, and which of them are gone."""

import os
from collections.abc import Callable, Iterator
from pathlib import Path

import pytest
from conftest import SAMPLES

from qvslm import archive
from qvslm.archive import Manifest, _add, _manifest

CONTENT = next(path for path in SAMPLES if path.stem == "model431_short").read_bytes()


@pytest.fixture
def folder(tmp_path: Path) -> Path:
    """A folder with ``a.qvd``, and ``below/b.qvd``."""
    for name in ("a.qvd", "below/b.qvd"):
        path = tmp_path / "files" / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(CONTENT)
    return tmp_path / "files"


def _add_one(sources: Path | list[Path], dataset: Path, pattern: str = "*") -> tuple[int, ...]:
    """How many files are new, changed, gone and as before."""
    report = archive.add(sources, dataset, pattern=pattern, processes=1)
    return report.new, report.changed, report.gone, report.unchanged


def _names(dataset: Path, folder: Path) -> list[str]:
    return [os.path.relpath(path, folder) for path in sorted(Manifest.load(dataset).files)]


def test_what_no_run_wrote_stays(folder: Path, tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    _add_one(folder, dataset)
    place = dataset / next(iter(Manifest.load(dataset).parts())).path
    own = [dataset / "records" / "a.qvd", place.with_name("mine.parquet")]
    left = [
        place.with_name("20240506-0123456789abcdef-0.parquet"),
        place.with_name("20240506-0123456789abcdef.parquet"),
        place.with_name(".20240506-0123456789abcdef-11.parquet"),
    ]
    for path in own + left:
        path.write_bytes(b"")
    assert archive.add(folder, dataset, processes=1).swept == len(left)
    assert all(path.exists() for path in [*own, place])
    assert not any(path.exists() for path in left)


def test_what_goes_while_it_is_swept(folder: Path, tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    _add_one(folder, dataset)
    place = dataset / next(iter(Manifest.load(dataset).parts())).path
    walked: list[tuple[str, list[str], list[str]]] = [
        (str(place.parent), [], [".20240506-0123456789abcdef-0.parquet"])
    ]
    with pytest.MonkeyPatch.context() as patch:
        patch.setattr(os, "walk", lambda *_, **__: iter(walked))
        _manifest.sweep(dataset, Manifest.load(dataset))


@pytest.mark.parametrize("source", ["dataset", "dataset/records", "link", "link/records"])
def test_a_dataset_is_no_source(tmp_path: Path, source: str) -> None:
    own = tmp_path / "dataset" / "records" / "a.qvd"
    own.parent.mkdir(parents=True)
    own.write_bytes(CONTENT)
    (tmp_path / "link").symlink_to("dataset")
    with pytest.raises(ValueError, match="stands in the dataset"):
        _add_one(tmp_path / source, tmp_path / "dataset")
    assert list((tmp_path / "dataset").iterdir()) == [own.parent]


def test_a_dataset_below_its_source_by_a_link(folder: Path, tmp_path: Path) -> None:
    (tmp_path / "link").symlink_to("files")
    assert _add_one(tmp_path / "link", folder / "dataset") == (2, 0, 0, 0)
    assert _add_one(tmp_path / "link", folder / "dataset") == (0, 0, 0, 2)


@pytest.mark.parametrize("part", ["month=2020-01", "Kind=Interval", "time=3", "model=486"])
def test_a_dataset_where_its_columns_would_be_others(
    folder: Path, tmp_path: Path, part: str
) -> None:
    with pytest.raises(ValueError, match=part):
        _add_one(folder, tmp_path / part / "dataset")
    assert not (tmp_path / part).exists()
    _add_one(folder, tmp_path / "year=2020")
    (tmp_path / "year=2020").rename(tmp_path / part)
    with pytest.raises(ValueError, match=part):
        archive.open(tmp_path / part)


def test_a_folder_that_cannot_be_listed(
    folder: Path, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    dataset = tmp_path / "dataset"
    _add_one(folder, dataset)
    scandir: Callable[..., object] = os.scandir

    def fail(path: str | os.PathLike[str] = ".") -> object:
        if Path(path).name == "below":
            raise PermissionError(13, "Permission denied", str(path))
        return scandir(path)

    with monkeypatch.context() as patch:
        patch.setattr(os, "scandir", fail)
        with pytest.raises(PermissionError, match="below"):
            _add_one(folder, dataset)
    assert _names(dataset, folder) == ["a.qvd", "below/b.qvd"]


def test_a_file_that_is_named_itself(folder: Path, tmp_path: Path) -> None:
    dataset = tmp_path / "dataset"
    named = folder / "c.bin"
    named.write_bytes(CONTENT)
    assert _add_one([folder, named], dataset, "*.qvd") == (3, 0, 0, 0)
    assert _add_one([folder, named], dataset, "*.qvd") == (0, 0, 0, 3)
    assert _names(dataset, folder) == ["a.qvd", "below/b.qvd", "c.bin"]
    # What the pattern leaves out counts as gone, and a file that two sources hold counts once.
    assert _add_one([folder, folder / "below"], dataset, "*.qvd") == (0, 0, 1, 2)


def test_a_file_that_goes_after_it_was_listed(
    folder: Path, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    dataset = tmp_path / "dataset"
    _add_one(folder / "a.qvd", dataset)
    found = _add._found

    def gone(*arguments: object) -> Iterator[Path]:
        paths = list(found(*arguments))  # type: ignore[arg-type]
        (folder / "a.qvd").unlink()
        (folder / "passing").unlink()
        return iter(paths)

    (folder / "passing").write_bytes(CONTENT)
    monkeypatch.setattr(_add, "_found", gone)
    assert _add_one(folder, dataset) == (1, 0, 1, 0)
    assert _names(dataset, folder) == ["below/b.qvd"]


def test_a_touched_file_that_cannot_be_read(
    folder: Path, tmp_path: Path, monkeypatch: pytest.MonkeyPatch
) -> None:
    def fail(path: str) -> str:
        raise PermissionError(13, "Permission denied", path)

    dataset = tmp_path / "dataset"
    _add_one(folder, dataset)
    os.utime(folder / "a.qvd", (1, 1))
    (folder / "c.qvd").write_bytes(CONTENT)
    monkeypatch.setattr(_add, "fingerprint", fail)
    # It is translated, and that tells what became of it.
    assert _add_one(folder, dataset) == (1, 1, 0, 1)
