#!/usr/bin/env bash
# fuzz/minimise.sh [FOLDER]: forms the kept corpus anew. For each target the smallest files of the
# kept corpus, of build/fuzz/found/ and of FOLDER/TARGET that together reach every edge that all of
# them reach are what fuzz/corpus/TARGET holds afterwards.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/fuzz
more=${1:-}

for corpus in "$root"/fuzz/corpus/*/; do
  target=$(basename "$corpus")
  sources=("$corpus")
  for folder in "$build/found/$target" "${more:+$more/$target}"; do
    if [ -n "$folder" ] && [ -d "$folder" ]; then sources+=("$folder"); fi
  done
  kept=$(mktemp -d)
  # Edges alone, not how often each was passed: a fraction of the files.
  "$build/fuzz/$target" -merge=1 -use_counters=0 -max_len=36000 "$kept" "${sources[@]}" \
    >"$kept.log" 2>&1 || { tail -n 20 "$kept.log" >&2; exit 1; }
  rm -rf "$corpus"
  mkdir -p "$corpus"
  for file in "$kept"/*; do
    if [ -f "$file" ]; then cp "$file" "$corpus"; fi
  done
  rm -rf "$kept" "$kept.log"
  echo "$target: $(find "$corpus" -type f | wc -l) files, $(du -sk --apparent-size "$corpus" | cut -f1) KB"
done
