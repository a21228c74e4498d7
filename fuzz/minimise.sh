#!/usr/bin/env bash
# fuzz/minimise.sh [FOLDER]: forms the kept corpus anew. For each target a small set of files that
# together reach every edge which the kept corpus, build/fuzz/found/TARGET and FOLDER/TARGET reach is
# what fuzz/corpus/TARGET holds afterwards. The census and the translation alone run over the corpus
# of the target that does both, too, so that their own hold only what that one lacks; fuzz_work has
# none of its own.
set -euo pipefail

root=$(cd "$(dirname "$0")/.." && pwd)
build=$root/build/fuzz
corpus=$root/fuzz/corpus
more=${1:-}
longest=12000

# Edges alone, not how often each was passed: a fraction of the files.
merge() {
  local target=$1 log
  shift
  log=$(mktemp)
  "$build/fuzz/$target" -use_counters=0 -max_len=$longest "$@" >"$log" 2>&1 ||
    { tail -n 20 "$log" >&2; exit 1; }
  rm -f "$log"
}

# files SOURCE...: the folders among them that are there and not empty.
files() {
  local folder
  for folder in "$@"; do
    if [ -d "$folder" ] && [ -n "$(ls "$folder")" ]; then echo "$folder"; fi
  done
}

for target in fuzz_translate_counted fuzz_translate fuzz_census fuzz_header fuzz_texts; do
  mapfile -t sources < <(files "$corpus/$target" "$build/found/$target" ${more:+"$more/$target"})
  kept=$(mktemp -d)
  case $target in
    fuzz_translate | fuzz_census)
      shared=$corpus/fuzz_translate_counted
      cp "$shared"/* "$kept"
      merge "$target" -merge=1 "$kept" "${sources[@]}"
      for file in "$shared"/*; do rm -f "$kept/$(basename "$file")"; done
      ;;
    *)
      merge "$target" -set_cover_merge=1 "$kept" "${sources[@]}"
      ;;
  esac
  rm -rf "${corpus:?}/$target"
  mkdir -p "$corpus/$target"
  find "$kept" -type f -exec cp -t "$corpus/$target" {} +
  rm -rf "$kept"
  echo "$target: $(find "$corpus/$target" -type f | wc -l) files," \
    "$(du -sk --apparent-size "$corpus/$target" | cut -f1) KB"
done
