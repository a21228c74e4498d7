#!/usr/bin/env python3
"""Holds the documents to what they say: their programs compile and run, their shell lines work.

    documents.py PREFIX SAMPLE       PREFIX: an installed tree; SAMPLE: a whole measurement file

Of README.md, CONTRIBUTING.md, docs/ and the public headers:

- every C and C++ block is compiled, with all warnings as errors. A block without a main is taken as the
  lines of a function that has `path`, `context` and `record`;
- every whole program is run on the sample and on a cut copy of it: it ends with 0 and with 1;
- every `sh` block is run, and of a `console` block each line behind a `$`, whose output is compared with
  the lines below it, where "..." stands for any lines.

The last line is "documents: N passed, N failed".
"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
from dataclasses import dataclass

ROOT = pathlib.Path(__file__).resolve().parents[2]
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]
COMPILERS = {"c": ["cc", "-std=c99"], "cpp": ["c++", "-std=c++17"]}
# What runs these tests cannot be run by them.
SELF = "./check"


@dataclass
class Block:
    place: str
    language: str
    text: str


def fenced_blocks(path: pathlib.Path) -> list[Block]:
    blocks = []
    name = path.relative_to(ROOT)
    for match in re.finditer(r"^```(\S+)\n(.*?)^```$", path.read_text(), re.M | re.S):
        line = path.read_text().count("\n", 0, match.start()) + 1
        blocks.append(Block(f"{name}:{line}", match[1], match[2]))
    return blocks


def header_examples(path: pathlib.Path) -> list[Block]:
    """The examples of a header: runs of lines indented by two or more within a comment that hold code."""
    blocks: list[Block] = []
    lines: list[str] = []
    first = 0

    def close() -> None:
        text = "\n".join(lines).strip("\n")
        is_list = text.startswith("- ")
        if not is_list and re.search(r"[;{]$", text, re.M) and "(" in text:
            blocks.append(Block(f"{path.relative_to(ROOT)}:{first}", "c", text + "\n"))
        lines.clear()

    for number, line in enumerate(path.read_text().splitlines(), 1):
        match = re.match(r"^ \*   (.*)$", line)
        if match:
            if not lines:
                first = number
            lines.append(match[1])
        elif line.strip() == "*" and lines:
            lines.append("")
        else:
            close()
    close()
    return blocks


class Results:
    def __init__(self) -> None:
        self.passed = 0
        self.failed = 0

    def note(self, name: str, fault: str) -> None:
        if fault:
            self.failed += 1
            print(f"  FAILED: {name}")
            print("\n".join("    " + line for line in fault.splitlines()))
        else:
            self.passed += 1
            print(f"  passed: {name}")


def as_program(block: Block) -> str:
    if "int main(" in block.text:
        return block.text
    return (
        "#include <qvslm_walk.h>\n#include <stdio.h>\n"
        "int Example(const char* path, void* context, void* record);\n"
        f"int Example(const char* path, void* context, void* record) {{\n{block.text}\n"
        "(void)path; (void)context; (void)record; return 0; }\n"
        "int main(void) { return 0; }\n"
    )


def compile_block(block: Block, prefix: pathlib.Path, work: pathlib.Path) -> tuple[str, pathlib.Path]:
    source = work / f"example.{block.language}"
    program = work / "example"
    source.write_text(as_program(block))
    library = next(prefix.rglob("libQVSLMTRANSLATE.so")).parent
    done = subprocess.run(
        [*COMPILERS[block.language], *WARNINGS, f"-I{prefix / 'include'}", str(source)]
        + [f"-L{library}", f"-Wl,-rpath,{library}", "-lQVSLMTRANSLATE", "-o", str(program)],
        capture_output=True,
        text=True,
    )
    return done.stderr if done.returncode else "", program


def run_program(program: pathlib.Path, sample: pathlib.Path, expected: int) -> str:
    done = subprocess.run([program, sample], capture_output=True, text=True, timeout=60)
    if done.returncode == expected and (done.stdout or expected != 0):
        return ""
    return f"exit code {done.returncode}, expected {expected}\n{done.stdout[:500]}{done.stderr}"


def matches(expected: list[str], found: list[str]) -> bool:
    """Whether the lines are as expected, where a line of dots stands for any number of lines."""
    if not expected:
        return not found
    if expected[0].strip() == "...":
        return any(matches(expected[1:], found[at:]) for at in range(len(found) + 1))
    return bool(found) and expected[0] == found[0] and matches(expected[1:], found[1:])


def run_shell(script: str, environment: dict[str, str]) -> subprocess.CompletedProcess[str]:
    return subprocess.run(
        ["bash", "-c", "set -eo pipefail\n" + script],
        cwd=ROOT, env=environment, capture_output=True, text=True, timeout=1200,
    )


def check_console(block: Block, environment: dict[str, str]) -> str:
    settings = ""
    for part in re.split(r"^\$ ", block.text, flags=re.M)[1:]:
        command, _, output = part.partition("\n")
        if command.startswith("export "):
            settings += command + "\n"
            continue
        done = run_shell(settings + command, environment)
        if done.returncode:
            return f"{command}: exit code {done.returncode}\n{done.stderr}"
        if not matches(output.splitlines(), done.stdout.splitlines()):
            return f"{command}: wrote\n{done.stdout}"
    return ""


def check_sh(block: Block, environment: dict[str, str]) -> str:
    script = "\n".join(line for line in block.text.splitlines() if line.split("#")[0].strip() != SELF)
    done = run_shell(script, environment)
    return f"exit code {done.returncode}\n{done.stdout[-500:]}{done.stderr}" if done.returncode else ""


def main() -> int:
    prefix, sample = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    environment = {**os.environ, "TZ": "UTC", "PATH": f"{prefix / 'bin'}:{os.environ['PATH']}"}
    documents = [ROOT / "README.md", ROOT / "CONTRIBUTING.md", *sorted((ROOT / "docs").glob("*.md"))]
    headers = sorted((ROOT / "api" / "include").glob("*.h"))
    blocks = [block for path in documents for block in fenced_blocks(path)]
    blocks += [block for path in headers for block in header_examples(path)]
    results = Results()
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        cut = work / "cut.qvd"
        cut.write_bytes(sample.read_bytes()[: sample.stat().st_size * 9 // 10])
        for block in blocks:
            if block.language in COMPILERS:
                fault, program = compile_block(block, prefix, work)
                results.note(f"{block.place} compiles", fault)
                if fault or "int main(" not in block.text:
                    continue
                results.note(f"{block.place} runs", run_program(program, sample, 0))
                results.note(f"{block.place} runs on a cut file", run_program(program, cut, 1))
            elif block.language == "console":
                results.note(f"{block.place} shows what it says", check_console(block, environment))
            elif block.language == "sh":
                results.note(f"{block.place} works", check_sh(block, environment))
    print(f"documents: {results.passed} passed, {results.failed} failed")
    return 1 if results.failed or not results.passed else 0


if __name__ == "__main__":
    sys.exit(main())
