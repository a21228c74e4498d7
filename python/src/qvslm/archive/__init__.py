"""Many measurement files as one dataset of Parquet that any engine queries."""

from ._add import Report, add
from ._manifest import File, Manifest
from ._queries import energy_means, gaps, loudest_events, open

__all__ = ["File", "Manifest", "Report", "add", "energy_means", "gaps", "loudest_events", "open"]
