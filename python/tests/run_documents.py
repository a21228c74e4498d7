"""Runs the lines of README.md and the example as their pages say, in a folder with samples.

    run_documents.py PYTHON

PYTHON is that of an environment in which the package is installed; the lines that install it are
left out. One line for each block that fails; the last line counts.
"""

import os
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

PACKAGE = Path(__file__).parents[1]
SAMPLES = PACKAGE.parent / "samples" / "files"
PNG = b"\x89PNG\r\n\x1a\n"


def _run(arguments: list[str], python: Path, folder: Path, text: str | None = None) -> bool:
    environment = {
        name: value for name, value in os.environ.items() if not name.startswith("PYTHON")
    }
    environment["PATH"] = f"{python.parent}:{environment['PATH']}"
    done = subprocess.run(
        arguments,
        cwd=folder,
        env=environment,
        input=text,
        capture_output=True,
        text=True,
        check=False,
    )
    if done.returncode != 0:
        print(done.stdout, done.stderr, sep="\n")
    return done.returncode == 0


def main(python: Path) -> int:
    passed = failed = 0
    blocks = re.findall(r"```(\w+)\n(.*?)```", (PACKAGE / "README.md").read_text(), re.S)
    with tempfile.TemporaryDirectory() as scratch:
        folder = Path(scratch)
        for name in ("general_day.qvd", "general_time_history.qvd"):
            shutil.copy(SAMPLES / name, folder)
        shutil.copy(PACKAGE / "examples" / "day_levels.py", folder)
        session = ""
        for kind, lines in blocks:
            if "pip install" in lines:
                continue
            if kind == "python":
                session += lines
                good = _run([str(python), "-"], python, folder, session)
            else:
                good = _run(["sh", "-e", "-c", lines], python, folder)
            passed, failed = passed + good, failed + (not good)
            if not good:
                print(f"failed:\n{lines}")
        picture = folder / "day.png"
        drawn = picture.is_file() and picture.read_bytes().startswith(PNG)
        drawn = drawn and picture.stat().st_size > 20000
        if not drawn:
            print("the example has drawn nothing")
        passed, failed = passed + drawn, failed + (not drawn)
    print(f"lines of the quick start, and the example: {passed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1]).absolute()))
