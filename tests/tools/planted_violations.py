#!/usr/bin/env python3
"""Plants one violation of each kind in a copy of the tree and holds that tools/check_walls tells of it,
and of nothing else.

One line for each test that failed; the last line is "walls: N passed, N failed".
"""
import pathlib
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDERS = ("api", "bench", "fields", "fuzz", "host", "identity", "models", "records", "samples",
           "settings", "tests", "tools")
HERE = "may not be included here"
STREAMS = "only fields/data_file calls the C stream functions"
CLOCK = "only fields/local_time asks the clock and the zone"
QUIET = "the library prints nothing and throws nothing"

# A file, a line that is added at its end (a file that is not there is written), and what is told of
# that line; None where the line is allowed.
LINES = [
    # Who may include whom within the library.
    ("fields/levels.h", '#include "records/records.h"', f"records/records.h {HERE}"),
    ("fields/stream_levels.cpp", '#include "api/framing.h"', f"api/framing.h {HERE}"),
    ("fields/levels.h", '#include "qvslm_records.h"', f"api/include/qvslm_records.h {HERE}"),
    ("identity/lookups.cpp", '#include "settings/settings.h"', f"settings/settings.h {HERE}"),
    ("records/events.cpp", '#include "models/models.h"', f"models/models.h {HERE}"),
    ("records/events.cpp", '#include "identity/tail_scan.h"', f"identity/tail_scan.h {HERE}"),
    ("settings/q_block.cpp", '#include "records/records.h"', f"records/records.h {HERE}"),
    ("models/tallies.cpp", '#include "settings/settings.h"', f"settings/settings.h {HERE}"),
    ("models/tallies.cpp", '#include "fields/calendar.h"', None),
    ("api/context.h", '#include "fields/month_names.h"', f"fields/month_names.h {HERE}"),
    ("api/pump.cpp", '#include "host/errors.h"', f"host/errors.h {HERE}"),
    ("api/pump.cpp", '#include "identity/tail_scan.h"', None),
    ("records/events.cpp", "#include <unistd.h>", f"<unistd.h> {HERE}"),
    ("settings/q_block.cpp", "#include <nlohmann/json.hpp>", f"<nlohmann/json.hpp> {HERE}"),
    ("records/events.cpp", "#include <optional>", None),
    # The public headers.
    ("api/include/qvslmtranslate.h", '#include "api/path_letters.h"', f"api/path_letters.h {HERE}"),
    ("api/include/qvslmtranslate.h", "#include <cstdint>", f"<cstdint> {HERE}"),
    ("api/include/qvslm_records.h", "#include <sys/types.h>", f"<sys/types.h> {HERE}"),
    ("api/include/qvslm_records.h", "#include <stdbool.h>", None),
    # The header of front ends.
    ("api/front_end/qvslm_zone.h", '#include "qvslmtranslate.h"',
     f"api/include/qvslmtranslate.h {HERE}"),
    ("api/front_end/qvslm_zone.h", "#include <cstdint>", f"<cstdint> {HERE}"),
    ("fields/calendar.cpp", '#include "api/front_end/qvslm_zone.h"',
     f"api/front_end/qvslm_zone.h {HERE}"),
    ("api/start.cpp", '#include "api/front_end/qvslm_zone.h"', f"api/front_end/qvslm_zone.h {HERE}"),
    ("bench/limit.cpp", '#include "qvslm_zone.h"', f"api/front_end/qvslm_zone.h {HERE}"),
    ("tests/consumer/consumer.c", '#include "qvslm_zone.h"', f"api/front_end/qvslm_zone.h {HERE}"),
    ("tools/zone_info/tzif.cpp", '#include "writers.h"', f"tools/writers.h {HERE}"),
    ("host/walk.cpp", '#include "qvslm_zone.h"', None),
    ("python/planted.c", '#include "qvslm_zone.h"', None),
    ("web/planted_page.c", '#include "qvslm_zone.h"', None),
    ("tests/support/steps.h", '#include "qvslm_zone.h"', None),
    # Those who use the library from outside, whatever the way they write it.
    ("host/walk.cpp", '#include "api/context.h"', f"api/context.h {HERE}"),
    ("host/walk.cpp", '#  include "../fields/levels.h"', f"fields/levels.h {HERE}"),
    ("host/walk.cpp", "#include <records/records.h>", f"records/records.h {HERE}"),
    ("host/walk.cpp", '#include "sample.h"', f"samples/sample.h {HERE}"),
    ("host/walk.cpp", "#include <gtest/gtest.h>", f"<gtest/gtest.h> {HERE}"),
    ("host/walk.cpp", "#include <sys/stat.h>", None),
    ("samples/sound.cpp", '#include "fields/levels.h"', f"fields/levels.h {HERE}"),
    ("samples/sound.cpp", '#include "support/translation.h"', f"tests/support/translation.h {HERE}"),
    ("bench/limit.cpp", '#include "fields/levels.h"', f"fields/levels.h {HERE}"),
    ("bench/limit.cpp", '#include "support/translation.h"', f"tests/support/translation.h {HERE}"),
    ("fuzz/file_parts.cpp", '#include "api/context.h"', f"api/context.h {HERE}"),
    ("fuzz/file_parts.cpp", '#include "host/errors.h"', f"host/errors.h {HERE}"),
    ("fuzz/file_parts.cpp", '#include "support/memory_file.h"', None),
    ("tools/list_writer.cpp", '#include "qvslm_records.h"', f"api/include/qvslm_records.h {HERE}"),
    # Tests, and their helpers that see the library from within.
    ("tests/records/events_test.cpp", '#include "api/context.h"', f"api/context.h {HERE}"),
    ("tests/support/steps.h", '#include "fields/levels.h"', f"fields/levels.h {HERE}"),
    ("tests/robustness/unusual_files_test.cpp", '#include "robustness/watched_host.h"',
     f"tests/robustness/watched_host.h {HERE}"),
    ("tests/host/dump_test.cpp", '#include "host/errors.h"', f"host/errors.h {HERE}"),
    ("tests/api/pump_test.cpp", "#include <sndfile.h>", f"<sndfile.h> {HERE}"),
    ("tests/consumer/consumer.c", '#include "support/translation.h"',
     f"tests/support/translation.h {HERE}"),
    ("tests/api/pump_internal_test.cpp", '#include "fields/levels.h"', None),
    ("tests/robustness/watched_host.cpp", '#include "api/framing.h"', None),
    # Includes that say less than a file's name, or more.
    ("host/walk.cpp", "#include WALK_HEADER", "an include without a plain name: WALK_HEADER"),
    ("host/walk.cpp", '#include "walks.h"', '"walks.h" is no file of the tree'),
    ("host/walk.cpp", '#include "errors.cpp"', f"host/errors.cpp {HERE}"),
    ("host/walk.cpp", '// #include "api/context.h"', None),
    ("host/walk.cpp", 'auto x = R"(\n#include "api/context.h"\n)";', None),
    # What happens in one place.
    ("records/events.cpp", "auto file = fopen(path, mode);", f"{STREAMS}: fopen"),
    ("api/file_path.h", "int next = std::fgetc(file);", f"{STREAMS}: fgetc"),
    ("fields/data_file.cpp", "int next = std::fgetc(file);", None),
    ("fields/calendar.cpp", "auto seconds = mktime(&parts);", f"{CLOCK}: mktime"),
    ("fields/calendar.cpp", "auto now = std::time(nullptr);", f"{CLOCK}: std::time"),
    ("fields/local_time.cpp", "auto seconds = mktime(&parts);", None),
    ("models/tallies.cpp", 'void Say() { std::printf("x"); }', f"{QUIET}: printf"),
    ("models/tallies.cpp", "void Fail() { throw 1; }", f"{QUIET}: throw"),
    ("models/tallies.cpp", 'int x = 1;  // throw, printf("x"), fopen(', None),
]


class Trial:
    """A copy of the tree, and the count of what was tried on it."""

    def __init__(self, folder):
        self.copy = pathlib.Path(folder)
        self.passed = self.failed = 0
        for name in FOLDERS:
            shutil.copytree(ROOT / name, self.copy / name, ignore=shutil.ignore_patterns("*.qvd"))

    def report(self, name, holds, found):
        if holds:
            self.passed += 1
            return
        self.failed += 1
        print(f"  FAILED: {name}\n    told: {found}")

    def plant(self, files, *options):
        """Writes the files, and puts back what was there. Gives the lines that check_walls tells."""
        before = {path: path.read_text() if path.exists() else None
                  for path in (self.copy / file for file in files)}
        for path, text in files.items():
            (self.copy / path).parent.mkdir(exist_ok=True)
            (self.copy / path).write_text(text)
        run = subprocess.run([ROOT / "tools/check_walls", *options, self.copy],
                             stdout=subprocess.PIPE, text=True, check=False)
        for path, text in before.items():
            path.unlink() if text is None else path.write_text(text)
        told = run.stdout.splitlines()
        return told if run.returncode == (1 if told else 0) else [f"ended with {run.returncode}"]

    def alone(self, name, files, told, *options):
        """What check_walls tells of these files is this and nothing else."""
        found = self.plant(files, *options)
        self.report(name, found == told, found)

    def lines(self, rows):
        """All lines at once, for each stands for itself: every one that is told of, and no other."""
        files = {}
        places = []
        for path, line, _ in rows:
            file = self.copy / path
            text = files.get(path) or (file.read_text() if file.exists() else "")
            places.append(f"{path}:{text.count(chr(10)) + 1}: ")
            files[path] = text + line + "\n"
        told = self.plant(files, "--no-compile")
        for (path, line, what), place in zip(rows, places):
            found = [text for text in told if text.startswith(place)]
            told = [text for text in told if text not in found]
            self.report(f"{path}: {line}", found == ([place + what] if what else []), found)
        self.report("nothing else", not told, told)


def main():
    with tempfile.TemporaryDirectory() as folder:
        trial = Trial(folder)
        trial.alone("the tree as it is", {}, [], "--no-compile")
        trial.lines(LINES)
        trial.alone(
            "headers in a circle",
            {"records/distribution.h": '#include "records/planted.h"\n',
             "records/planted.h": '#include "records/distribution.h"\n'},
            ["headers that include each other: records/distribution.h -> records/planted.h -> "
             "records/distribution.h"], "--no-compile")
        trial.alone(
            "a header that includes itself", {"host/planted.h": '#include "planted.h"\n'},
            ["headers that include each other: host/planted.h -> host/planted.h"], "--no-compile")
        trial.alone(
            "a name twice", {"models/events.cpp": ""},
            ["a file name that stands twice in the tree: events.cpp in models/events.cpp and "
             "records/events.cpp"], "--no-compile")
        trial.alone(
            "a folder without a rule", {"planted/planted.cpp": "#include <string>\n"},
            ["planted/planted.cpp: no rule says what a file here may include"], "--no-compile")
        trial.alone(
            "a header that needs another", {"fields/planted.h": "int First(Planted planted);\n"},
            ["fields/planted.h: cannot be included alone: "
             "'Planted' was not declared in this scope"])
    print(f"walls: {trial.passed} passed, {trial.failed} failed")
    return 1 if trial.failed else 0


if __name__ == "__main__":
    sys.exit(main())
