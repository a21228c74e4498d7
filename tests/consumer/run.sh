#!/usr/bin/env bash
# Uses the library as other projects do: installs it, moves the installed tree elsewhere, and builds
# a host in C99 and one in C++17 against it by find_package and by pkg-config, and against the
# sources by add_subdirectory. Each host walks a sample file and a cut one. Then holds the documents to
# what they say (documents.py).
#
#   tests/consumer/run.sh [BUILD]     BUILD: a folder in which the library and qvslm are built;
#                                     build/dev without it
#
# One line for each test; the last lines are "documents: N passed, N failed" and the same of "consumer".
set -uo pipefail

if [ $# -gt 1 ]; then
  echo "usage: tests/consumer/run.sh [BUILD]" >&2
  exit 2
fi
here=$(cd "$(dirname "$0")" && pwd)
sources=$(cd "$here/../.." && pwd)
build=$(cd "${1:-$sources/build/dev}" && pwd) || exit 2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/moved
passed=0
failed=0

# attempt NAME COMMAND...: a test; prints what the command said only when it failed.
attempt() {
  local name=$1
  shift
  if "$@" >"$work/log" 2>&1; then
    echo "  passed: $name"
    passed=$((passed + 1))
  else
    echo "  FAILED: $name"
    sed 's/^/    /' "$work/log"
    failed=$((failed + 1))
  fi
}

install_and_move() {
  cmake --install "$build" --prefix "$work/prefix" && mv "$work/prefix" "$prefix"
}

configure_and_build() {
  cmake -G Ninja -S "$here" -B "$@" && cmake --build "$1"
}

# A whole sample, and a copy that is cut: one that can still be walked.
sample=$sources/samples/files/night_europe.qvd
cut=$work/cut.qvd
head -c 4000 "$sample" >"$cut"

# walks PROGRAM: it tells the version, and counts the records of a sample and of a cut one as qvslm shows
# them; without a file it says that it cannot be opened.
walks() {
  local whole part
  whole=$("$prefix/bin/qvslm" dump "$sample" | wc -l)
  part=$("$prefix/bin/qvslm" dump "$cut" 2>/dev/null | wc -l)
  [ "$part" -gt 1 ] && [ "$whole" -gt "$part" ] || return 1
  diff <("$1") <(printf 'translation 323\n0\nthe file cannot be opened\n') &&
    diff <("$1" "$sample") <(printf 'translation 323\n%s\n' "$whole") &&
    diff <("$1" "$cut") \
      <(printf 'translation 323\n%s\nthe file ends before the end of its data\n' "$part")
}

compile_by_pkgconfig() {
  local flags libs
  flags=$(pkg-config --cflags qvslmtranslate) && libs=$(pkg-config --libs qvslmtranslate) || return 1
  local strict="-Wall -Wextra -Wpedantic -Werror"
  # shellcheck disable=SC2086
  "${CC:-cc}" -std=c99 $strict $flags "$here/consumer.c" $libs -o "$work/pkg_c" &&
    "${CXX:-c++}" -std=c++17 $strict $flags "$here/consumer.cpp" $libs -o "$work/pkg_cpp"
}

attempt "install, and move the installed tree" install_and_move
attempt "the installed qvslm finds its library" "$prefix/bin/qvslm" --version

attempt "build by find_package" configure_and_build "$work/package" \
  -DCMAKE_PREFIX_PATH="$prefix"
attempt "C99 host by find_package" walks "$work/package/consumer_c"
attempt "C++17 host by find_package" walks "$work/package/consumer_cpp"

attempt "build by add_subdirectory" configure_and_build "$work/subdirectory" \
  -DQVSLM_SOURCES="$sources"
attempt "C99 host by add_subdirectory" walks "$work/subdirectory/consumer_c"
attempt "C++17 host by add_subdirectory" walks "$work/subdirectory/consumer_cpp"

library_folder=$(dirname "$(find "$prefix" -name 'libQVSLMTRANSLATE.so' | head -n 1)")
export PKG_CONFIG_PATH=$library_folder/pkgconfig
export LD_LIBRARY_PATH=$library_folder
attempt "build by pkg-config" compile_by_pkgconfig
attempt "C99 host by pkg-config" walks "$work/pkg_c"
attempt "C++17 host by pkg-config" walks "$work/pkg_cpp"

"$here/documents.py" "$prefix" "$sample"
documents=$?

echo "consumer: $passed passed, $failed failed"
[ "$failed" -eq 0 ] && [ "$documents" -eq 0 ]
