"""Files as the library wants them: by a path, and such that can be sought in."""

import os
import shutil
import stat
import tempfile
from pathlib import Path
from typing import BinaryIO, Protocol, TypeAlias, runtime_checkable


@runtime_checkable
class Readable(Protocol):
    """A file object that gives bytes."""

    def read(self, size: int = ..., /) -> bytes: ...


Source: TypeAlias = "str | os.PathLike[str] | bytes | bytearray | memoryview | Readable | BinaryIO"

_NAMELESS = "measurement"


class LocalFile:
    """The path of a source; of one that is no regular file, that of a copy."""

    def __init__(self, source: Source) -> None:
        self._folder: tempfile.TemporaryDirectory[str] | None = None
        if isinstance(source, (str, os.PathLike)):
            self.name = os.fspath(source)
            self.path = self.name
            mode = Path(self.path).stat().st_mode
            if stat.S_ISDIR(mode):
                raise IsADirectoryError(f"{self.name} is a folder")
            if not stat.S_ISREG(mode):
                with Path(self.path).open("rb") as pipe:
                    self._copy(pipe)
        elif isinstance(source, (bytes, bytearray, memoryview)):
            self.name = _NAMELESS
            with self._new_copy() as copy:
                copy.write(source)
        elif isinstance(source, Readable):
            name = getattr(source, "name", None)
            self.name = name if isinstance(name, str) and name else _NAMELESS
            self._copy(source)
        else:
            raise TypeError(f"{type(source).__name__} is no path, no bytes and no binary file")

    def _new_copy(self) -> BinaryIO:
        self._folder = tempfile.TemporaryDirectory(prefix="qvslm-")
        self.path = str(Path(self._folder.name) / Path(self.name).name)
        return Path(self.path).open("wb")

    def _copy(self, source: Readable) -> None:
        with self._new_copy() as copy:
            try:
                shutil.copyfileobj(source, copy, 1 << 20)
            except TypeError:
                raise TypeError("the file gives text: open it in binary mode") from None

    def close(self) -> None:
        """Removes the copy, if there is one."""
        if self._folder is not None:
            self._folder.cleanup()
            self._folder = None
