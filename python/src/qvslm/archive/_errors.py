"""What goes wrong with a dataset."""


class DatasetError(OSError):
    """The dataset cannot be written. It is no fault of a measurement file."""
