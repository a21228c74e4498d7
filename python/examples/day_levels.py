"""Draws the levels of a day.

    python day_levels.py FILE PICTURE [ZONE]

FILE is a measurement file with intervals, PICTURE what to write: day.png, day.svg. With ZONE, such
as Europe/Berlin, times are instants in that zone, else the clock of the instrument.
"""

import sys

import matplotlib as mpl

mpl.use("agg")

import matplotlib.dates as mdates
import matplotlib.pyplot as plt

import qvslm


def draw(path: str, picture: str, zone: str | None = None) -> None:
    """Levels A and B of each interval as lines, level marks as points, events dashed."""
    measurement = qvslm.read(path, ["Interval", "LevelMark", "Event"], tz=zone)
    intervals = measurement.to_pandas("Interval").sort_values("RecordTime")
    marks = measurement.to_pandas("LevelMark")
    events = measurement.to_pandas("Event")

    figure, axes = plt.subplots(figsize=(10, 4.5), layout="constrained")
    for name, colour in (("LevelB", "tab:orange"), ("LevelA", "tab:blue")):
        axes.plot(intervals["RecordTime"], intervals[name], color=colour, lw=0.8, label=name)
    if len(marks) > 0:
        axes.plot(marks["RecordTime"], marks["Level"], "k.", ms=4, label="level marks")
    for time in events["RecordTime"].dropna():
        axes.axvline(time, color="tab:green", lw=0.8, ls="--")

    info = measurement.info
    axes.set_title(" · ".join(filter(None, [*info.titles, f"model {info.model}, {info.serial}"])))
    axes.set_ylabel(intervals.attrs["units"]["LevelA"])
    locator = mdates.AutoDateLocator(tz=zone)
    axes.xaxis.set_major_locator(locator)
    axes.xaxis.set_major_formatter(mdates.ConciseDateFormatter(locator, tz=zone))
    axes.grid(alpha=0.3)
    figure.legend(loc="outside lower left", ncols=3, frameon=False)
    figure.savefig(picture, dpi=120)
    plt.close(figure)


if __name__ == "__main__":
    if not 3 <= len(sys.argv) <= 4:
        sys.exit(__doc__)
    draw(*sys.argv[1:])
