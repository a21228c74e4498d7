#!/usr/bin/env bash
# Compiles every public header alone, as a source with nothing else would, by gcc and by clang in
# every dialect that the headers promise, with every warning that the compiler has as an error; and
# holds that each of them refuses a record whose fields have moved.
#
# One line for each test that failed; the last line is "headers: N passed, N failed".
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
include=$(cd "$here/../../api/include" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0

# The names of all warnings of gcc for a language, but for those that take a value and
#   -Wabi, which does nothing and warns of that;
#   -Wsystem-headers, for the C library's headers are not ours;
#   -Wswitch-default, which asks for what clang's -Wcovered-switch-default rejects;
#   -Wtraditional, -Wtraditional-conversion and -Wc90-c99-compat, which reject what C99 brought, and
#   -Wc99-c11-compat, which rejects what C11 brought, the assertions.
gcc_warnings() {
  local but='abi|system-headers|switch-default|traditional(-conversion)?|c(90-c99|99-c11)-compat'
  gcc -Q --help=warnings,"$1" | awk '$1 ~ /^-W[^=<]*$/ { print $1 }' | grep -vxE -e "-W($but)"
}
mapfile -t gcc_c < <(gcc_warnings c)
mapfile -t gcc_cpp < <(gcc_warnings c++)
# -Wc++98-compat-pedantic rejects what C++11 brought.
clang_all=(-Weverything -Wno-c++98-compat-pedantic)

# compile COMPILER DIALECT FOLDER HEADER
compile() {
  local warnings=("${clang_all[@]}") language=c
  case $1 in
    gcc) warnings=(-Wall -Wextra "${gcc_c[@]}") ;;
    g++) warnings=(-Wall -Wextra "${gcc_cpp[@]}") ;;
  esac
  # A walk is no record: how its fields lie is the compiler's affair.
  [ "$4" = qvslm_walk.h ] && warnings+=(-Wno-padded)
  [[ $2 = c++* ]] && language=c++
  echo "#include \"$4\"" |
    "$1" -std="$2" -x "$language" -pedantic-errors -Werror "${warnings[@]}" -I"$3" -fsyntax-only - \
      >"$work/log" 2>&1
}

# report OUTCOME NAME
report() {
  if [ "$1" -eq 0 ]; then
    passed=$((passed + 1))
    return
  fi
  echo "  FAILED: $2"
  grep 'error:' "$work/log" | head -n 3 | sed 's/^/    /'
  failed=$((failed + 1))
}

# One field of one record, and with it all behind it, moves by two bytes.
moved=$work/moved
cp -r "$include" "$moved"
sed -i '0,/^  uint16_t SiteNumber;/s//  uint16_t Planted;\n&/' "$moved/qvslm_records.h"

# refuses COMPILER DIALECT: a moved field is an error, by name.
refuses() {
  ! compile "$1" "$2" "$moved" qvslmtranslate.h && grep -q 'QvInterval_SiteNumber' "$work/log"
}

for dialect in c99 c11 c17 c2x c++17 c++20 c++2b; do
  compilers=(gcc clang)
  [[ $dialect = c++* ]] && compilers=(g++ clang++)
  for compiler in "${compilers[@]}"; do
    for header in "$include"/*.h; do
      compile "$compiler" "$dialect" "$include" "$(basename "$header")"
      report $? "$(basename "$header") alone, by $compiler in $dialect"
    done
    refuses "$compiler" "$dialect"
    report $? "a moved field refused by $compiler in $dialect"
  done
done

echo "headers: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
