"""Adds measurement files to a dataset: what is new, changed and gone, on all cores."""

import contextlib
import itertools
import multiprocessing
import os
import sys
import threading
import time
from collections.abc import Callable, Iterable, Iterator
from concurrent.futures import FIRST_COMPLETED, Future, ProcessPoolExecutor, wait
from concurrent.futures.process import BrokenProcessPool
from dataclasses import dataclass, field
from pathlib import Path
from typing import TextIO

from .. import _zones
from . import _layout, _manifest, _merge
from ._dataset_files import UNREADABLE, WHOLE, File, Merged
from ._errors import DatasetError
from ._manifest import Manifest
from ._translate import fingerprint, shown, translate

_COMMIT_SECONDS = 20.0
# Commits take at most a tenth of the time.
_COMMIT_SHARE = 9
# So few are merged sooner than processes start.
_FEW_JOBS = 16
_SHOW_SECONDS = 0.5

Source = str | os.PathLike[str]


@dataclass
class Report:
    """What a run did."""

    new: int = 0
    changed: int = 0
    gone: int = 0
    unchanged: int = 0
    rows: int = 0
    """Written by this run."""
    bytes: int = 0
    """Of the measurement files that were translated."""
    swept: int = 0
    """Parquet files that no manifest named, left by a run that was stopped, or replaced."""
    merged: int = 0
    """Small Parquet files that became larger ones."""
    broken: list[File] = field(default_factory=list)
    """Of the files translated by this run."""
    seconds: float = 0.0


@dataclass
class _Plan:
    todo: list[tuple[str, str, int]] = field(default_factory=list)
    """Path, its name in the dataset, bytes."""
    gone: list[str] = field(default_factory=list)
    touched: list[tuple[str, int, int]] = field(default_factory=list)
    """Name, size and time of files whose bytes are as they were."""


def _found(root: Path, pattern: str, dataset: Path) -> Iterator[Path]:
    if root.is_file():
        yield root
        return
    if not root.is_dir():
        raise FileNotFoundError(f"{root} is neither a file nor a folder")

    def stop(fault: OSError) -> None:
        # What stands in a folder that cannot be listed is not gone; a folder that went is.
        if not isinstance(fault, FileNotFoundError):
            raise fault

    real = dataset.resolve()
    for folder, folders, names in os.walk(root, onerror=stop):
        if Path(folder).resolve() == real:
            folders.clear()
            continue
        for path in (Path(folder, name) for name in names):
            if path.relative_to(root).match(pattern) and path.is_file():
                yield path


def _has_same_bytes(path: Path, old: File) -> bool:
    try:
        return old.fingerprint == fingerprint(str(path))
    except OSError:
        return False


def _is_below(name: str, root: str) -> bool:
    return name == root or name.startswith(root.rstrip("/") + "/")


def _roots(sources: Iterable[Source], dataset: Path) -> list[Path]:
    """The sources, a link as it is called. None of them stands in the dataset."""
    roots = [Path(os.path.abspath(source)) for source in sources]  # noqa: PTH100
    real = dataset.resolve()
    for root in roots:
        if root.resolve().is_relative_to(real):
            raise ValueError(f"{root} stands in the dataset {dataset}")
    return roots


def _plan(
    roots: Iterable[Path], pattern: str, dataset: Path, manifest: Manifest, report: Report
) -> _Plan:
    plan = _Plan()
    there: set[str] = set()
    for root in roots:
        known = {name for name in manifest.files if _is_below(name, shown(str(root)))}
        paths = {shown(str(path)): path for path in _found(root, pattern, dataset)}
        if known and not paths:
            raise FileNotFoundError(
                f"{root} is empty, but the dataset holds {len(known)} files of it: is it mounted?"
            )
        plan.gone += sorted(known - paths.keys())
        for name, path in sorted(paths.items()):
            if name in there:
                continue
            try:
                facts = path.stat()
            except FileNotFoundError:
                # It went after the folder was listed.
                plan.gone += [name] if name in known else []
                continue
            there.add(name)
            old = manifest.files.get(name)
            if old is None or not old.fingerprint:
                # Of a file that could not be read there is no fingerprint: it is tried again.
                plan.todo.append((str(path), name, facts.st_size))
            elif (old.size, old.modified) == (facts.st_size, facts.st_mtime_ns):
                report.unchanged += 1
            elif old.size == facts.st_size and _has_same_bytes(path, old):
                plan.touched.append((name, facts.st_size, facts.st_mtime_ns))
                report.unchanged += 1
            else:
                plan.todo.append((str(path), name, facts.st_size))
    # A file may be named itself that is left out of its folder by the pattern.
    plan.gone = sorted(set(plan.gone) - there)
    return plan


# Workers -----------------------------------------------------------------------------------------


def _end_with_parent() -> None:
    """A worker whose parent was killed would write on for nobody."""
    parent = multiprocessing.parent_process()
    if parent is None:
        return

    def watch() -> None:
        parent.join()
        os._exit(1)

    threading.Thread(target=watch, daemon=True).start()


def _pool(processes: int) -> ProcessPoolExecutor:
    return ProcessPoolExecutor(
        processes, multiprocessing.get_context("spawn"), initializer=_end_with_parent
    )


def _alone(path: str, name: str, dataset: str, tz: str | None) -> File:
    """Translates a file whose worker may have died of it."""
    with _pool(1) as pool:
        try:
            return pool.submit(translate, path, name, dataset, tz).result()
        except BrokenProcessPool:
            row = File(name, 0, 0, "", UNREADABLE, "the process that translated the file died")
            # It may be gone by now.
            with contextlib.suppress(OSError):
                facts = Path(path).stat()
                row.size, row.modified = facts.st_size, facts.st_mtime_ns
            return row


def _translated(
    todo: list[tuple[str, str, int]], dataset: str, tz: str | None, processes: int
) -> Iterator[File]:
    """The files in the order in which they are done. A dead worker costs its file alone."""
    # The largest first: no long one is left for the end.
    waiting = sorted(todo, key=lambda item: item[2])
    while waiting:
        running: dict[Future[File], tuple[str, str, int]] = {}
        lost: list[tuple[str, str, int]] = []
        pool = _pool(processes)
        try:
            while (waiting or running) and not lost:
                while waiting and len(running) < 2 * processes:
                    item = waiting.pop()
                    running[pool.submit(translate, item[0], item[1], dataset, tz)] = item
                for future in wait(running, return_when=FIRST_COMPLETED).done:
                    item = running.pop(future)
                    try:
                        yield future.result()
                    except BrokenProcessPool:
                        lost.append(item)
        except BrokenProcessPool:
            lost.append(item)
        finally:
            pool.shutdown(wait=True, cancel_futures=True)
        for path, name, _ in [*lost, *running.values()]:
            yield _alone(path, name, dataset, tz)


def _merged(jobs: list[_merge.Job], dataset: Path, processes: int) -> Iterator[Merged]:
    if processes == 1 or len(jobs) < _FEW_JOBS:
        yield from (_merge.merge(str(dataset), job) for job in jobs)
        return
    with _pool(min(processes, len(jobs))) as pool:
        try:
            yield from pool.map(_merge.merge, itertools.repeat(str(dataset)), jobs)
        except BrokenProcessPool:
            raise DatasetError(f"a process that merged files of {dataset} died") from None


class _Commits:
    """What is done counts from time to time: the costlier that is, the rarer."""

    def __init__(self, dataset: Path, manifest: Manifest, processes: int) -> None:
        self._dataset = dataset
        self._manifest = manifest
        self._processes = processes
        self._next = time.monotonic() + _COMMIT_SECONDS

    def are_due(self) -> bool:
        """Whether it is time."""
        return time.monotonic() > self._next

    def commit(self) -> None:
        """Rewrites the Parquet files that hold rows of files that went, and then the manifest."""
        begin = time.monotonic()
        for merged in _merged(_merge.holed(self._manifest), self._dataset, self._processes):
            self._manifest.exchange(merged)
        self._manifest.commit(self._dataset)
        end = time.monotonic()
        self._next = end + max(_COMMIT_SECONDS, _COMMIT_SHARE * (end - begin))


# Progress ----------------------------------------------------------------------------------------


class _Line:
    """A line on a terminal that is written anew from time to time; nothing elsewhere."""

    def __init__(self, out: TextIO) -> None:
        self._out = out
        self._is_on = out.isatty()
        self._is_begun = False
        self._shown = time.monotonic()

    def show(self, text: str, is_last: bool) -> None:
        now = time.monotonic()
        if not self._is_on or (now - self._shown < _SHOW_SECONDS and not is_last):
            return
        self._shown = now
        self._is_begun = True
        self._out.write(f"\r{text}  ")
        self._out.flush()

    def close(self) -> None:
        if self._is_begun:
            self._out.write("\n")


class _Progress:
    """How far the files of a plan are: rate, and time left."""

    def __init__(self, plan: _Plan, out: TextIO) -> None:
        self._line = _Line(out)
        self._files = len(plan.todo)
        self._bytes = sum(item[2] for item in plan.todo)
        self._begin = time.monotonic()

    def show(self, files: int, done: int, broken: int) -> None:
        spent = max(time.monotonic() - self._begin, 1e-3)
        left = round(spent * (self._bytes - done) / max(done, 1))
        self._line.show(
            f"{files}/{self._files} files, {files / spent:.1f} files/s, "
            f"{done / spent / 1e6:.1f} MB/s, {left // 3600}:{left // 60 % 60:02}:{left % 60:02} "
            f"left, {broken} broken",
            files == self._files,
        )

    def close(self) -> None:
        self._line.close()


def _load(dataset: Path, tz: str | None) -> Manifest:
    try:
        manifest = Manifest.load(dataset)
    except FileNotFoundError:
        _zones.changes(tz)
        return Manifest(tz)
    if tz is not None and tz != manifest.tz:
        raise ValueError(f"the times of {dataset} are those of {manifest.tz}, not of {tz}")
    return manifest


def add(
    sources: Source | Iterable[Source],
    to: Source,
    *,
    tz: str | None = None,
    pattern: str = "*",
    processes: int | None = None,
    tell: Callable[[File], None] | None = None,
) -> Report:
    """Brings a dataset up to date with measurement files, and folders of them.

    Files that are new or changed are translated, the rows of files that are gone from these
    folders leave the dataset, and files known already cost a look at their size and time. ``tz`` is
    the zone of the measurements and holds for the whole dataset, from its first run on. ``tell`` is
    called with each file that is done. What is done so far is committed every 20 seconds. At the
    end small Parquet files are merged into larger ones.
    """
    listed = [sources] if isinstance(sources, (str, os.PathLike)) else list(sources)
    dataset = Path(os.path.abspath(to))  # noqa: PTH100
    roots = _roots(listed, dataset)
    _layout.check_place(dataset)
    report = Report()
    begin = time.monotonic()
    with _manifest.locked(dataset):
        manifest = _load(dataset, tz)
        report.swept = _manifest.sweep(dataset, manifest)
        plan = _plan(roots, pattern, dataset, manifest, report)
        for name in plan.gone:
            manifest.drop(name)
        for name, size, modified in plan.touched:
            manifest.files[name].size, manifest.files[name].modified = size, modified
        report.gone = len(plan.gone)
        workers = processes or os.cpu_count() or 1
        _run(plan, dataset, manifest, report, workers, tell)
        report.merged = _merge_small(dataset, manifest, workers)
    report.seconds = time.monotonic() - begin
    return report


def _run(
    plan: _Plan,
    dataset: Path,
    manifest: Manifest,
    report: Report,
    processes: int,
    tell: Callable[[File], None] | None,
) -> None:
    progress = _Progress(plan, sys.stderr)
    commits = _Commits(dataset, manifest, processes)
    is_new = not (dataset / _manifest.NAME).exists()
    dirty = bool(is_new or plan.gone or plan.touched)
    try:
        for file in _translated(plan.todo, str(dataset), manifest.tz, processes):
            if file.path in manifest.files:
                report.changed += 1
            else:
                report.new += 1
            manifest.put(file)
            dirty = True
            report.rows += file.rows
            report.bytes += file.size
            if file.status != WHOLE:
                report.broken.append(file)
            if tell is not None:
                tell(file)
            progress.show(report.new + report.changed, report.bytes, len(report.broken))
            if commits.are_due():
                commits.commit()
                dirty = False
    finally:
        progress.close()
        if dirty:
            commits.commit()


def _merge_small(dataset: Path, manifest: Manifest, processes: int) -> int:
    commits = _Commits(dataset, manifest, processes)
    count = 0
    while jobs := _merge.small(manifest):
        line = _Line(sys.stderr)
        try:
            for done, merged in enumerate(_merged(jobs, dataset, processes), 1):
                manifest.exchange(merged)
                count += len(merged.old)
                line.show(f"small Parquet files merged: {done}/{len(jobs)}", done == len(jobs))
                if commits.are_due():
                    commits.commit()
        finally:
            line.close()
        commits.commit()
    return count
