"""Sixty files of an archive, made of the samples."""

from pathlib import Path

import pytest

from qvslm import archive

ROOT = Path(__file__).parents[2]
SAMPLES = sorted((ROOT / "samples" / "files").glob("*.qvd"))
FILES = 60
CUT = (3, 17, 29, 41, 58)
"""The numbers of the files that end after two thirds of their bytes."""


def write_files(folder: Path, count: int = FILES) -> list[Path]:
    """Copies of the samples, those of general models under other serial numbers; five are cut."""
    paths = []
    for number in range(count):
        sample = SAMPLES[number % len(SAMPLES)]
        content = sample.read_bytes().replace(b"486 2071", b"486 %04d" % (2071 + number // 26), 1)
        if number in CUT:
            content = content[: len(content) * 2 // 3]
        path = folder / f"station{number % 7}" / f"{number:02}_{sample.name}"
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(content)
        paths.append(path)
    return paths


@pytest.fixture
def files(tmp_path: Path) -> list[Path]:
    """The sixty files, in a folder ``files``."""
    return write_files(tmp_path / "files")


@pytest.fixture(scope="session")
def kept_files(tmp_path_factory: pytest.TempPathFactory) -> list[Path]:
    """The sixty files, of which no test changes one."""
    return write_files(tmp_path_factory.mktemp("archive") / "files")


@pytest.fixture(scope="session")
def kept_dataset(kept_files: list[Path]) -> Path:
    """The dataset of the sixty files that stay as they are."""
    folder = kept_files[0].parents[2]
    archive.add(folder / "files", folder / "dataset", processes=2)
    return folder / "dataset"
