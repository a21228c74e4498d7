"""Where files are found, and which of them are gone."""

import os
from pathlib import Path

import pytest
from conftest import SAMPLES

from qvslm import archive
from qvslm.archive import Manifest, _manifest

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
