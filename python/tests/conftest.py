"""The samples, and qvslm, the command-line host, against which values are held."""

import os
from pathlib import Path

import pytest
from hypothesis import settings

ROOT = Path(__file__).parents[2]
SAMPLES = sorted((ROOT / "samples" / "files").glob("*.qvd"))
HOST = Path(os.environ.get("QVSLM_HOST", ROOT / "build" / "dev" / "host" / "qvslm"))

# Nothing is kept from run to run.
settings.register_profile("qvslm", database=None)
settings.load_profile("qvslm")


def sample(name: str) -> Path:
    """A sample file by its name."""
    return ROOT / "samples" / "files" / f"{name}.qvd"


@pytest.fixture(scope="session")
def host() -> Path:
    """The program qvslm of the same tree."""
    assert HOST.is_file(), f"{HOST} is not built"
    return HOST
