"""Many measurement files as one dataset of Parquet that any engine queries."""

from ._add import Report, add
from ._dataset_files import File, Part
from ._manifest import Manifest
from ._queries import energy_means, gaps, loudest_events, open, paths

__all__ = [
    "File",
    "Manifest",
    "Part",
    "Report",
    "add",
    "energy_means",
    "gaps",
    "loudest_events",
    "open",
    "paths",
]
