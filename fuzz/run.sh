#!/usr/bin/env bash
# fuzz/run.sh [SECONDS [TARGET...]]: runs the fuzz targets over the kept corpus for SECONDS each (20
# by default), two at a time, and fails when one of them finds anything. What a run discovers is
# kept in build/fuzz/found/, so that the next one goes on from there; see fuzz/minimise.sh.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/fuzz
seconds=${1:-20}
shift || true
targets=("$@")
[ ${#targets[@]} -gt 0 ] ||
  targets=(fuzz_translate_counted fuzz_translate fuzz_census fuzz_work fuzz_header
    fuzz_texts)

cd "$root"
mkdir -p "$build"
{ [ -f "$build/build.ninja" ] || cmake --preset fuzz; } >"$build/configure.log" 2>&1 ||
  { cat "$build/configure.log" >&2; exit 1; }
ninja -C "$build" fuzz_targets >"$build/build.log" 2>&1 ||
  { tail -n 40 "$build/build.log" >&2; exit 1; }

# The census, the translation alone and the work over long files profit from the files of the target that does both.
shared_with() {
  case $1 in
    fuzz_translate | fuzz_census | fuzz_work) echo fuzz/corpus/fuzz_translate_counted ;;
  esac
}

# run TARGET: one line on what came of it.
run() {
  local target=$1 log=$build/$1.log found=$build/found/$1
  # An empty folder is not kept by git.
  local folders=("$found") folder
  for folder in "fuzz/corpus/$target" $(shared_with "$target"); do
    if [ -d "$folder" ]; then folders+=("$folder"); fi
  done
  mkdir -p "$found" "$build/findings"
  local outcome=0
  "$build/fuzz/$target" -max_total_time="$seconds" -max_len=12000 -timeout=20 \
    -rss_limit_mb=1500 -dict=fuzz/qvslm.dict -print_final_stats=1 \
    -artifact_prefix="$build/findings/$target-" "${folders[@]}" \
    >"$log" 2>&1 || outcome=$?
  if [ $outcome -ne 0 ]; then
    echo "$target: a finding in build/fuzz/findings, log in build/fuzz/$target.log" >&2
    grep -E -m 3 'broken promise|ERROR|runtime error' "$log" >&2 || tail -n 20 "$log" >&2
    return 1
  fi
  local executions coverage
  executions=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  coverage=$(sed -n 's/.*\(cov: [0-9]* ft: [0-9]*\).*/\1/p' "$log" | tail -n 1)
  echo "$target: $seconds s, $executions executions, $coverage, no finding"
}

passed=0
failed=0
running=0
settle() {
  if wait -n; then passed=$((passed + 1)); else failed=$((failed + 1)); fi
  running=$((running - 1))
}
for target in "${targets[@]}"; do
  [ "$running" -lt 2 ] || settle
  run "$target" &
  running=$((running + 1))
done
while [ "$running" -gt 0 ]; do settle; done
echo "fuzz targets: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
