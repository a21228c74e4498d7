"""What is raised where a file is not what was asked for."""


class Error(Exception):
    """A file that cannot be read, or with ``strict=True`` one that is not whole.

    ``status`` is the status of the library, 0 where nothing failed but the file ends early, and
    ``offset`` the byte where it happened, or None.
    """

    def __init__(self, text: str, status: int, offset: int | None) -> None:
        super().__init__(text, status, offset)
        self.text = text
        self.status = status
        self.offset = offset

    def __str__(self) -> str:
        return self.text
