#!/usr/bin/env bash
# Runs each fuzz target for some seconds (60 unless told otherwise) from its seeds:
#   tools/fuzz.sh [seconds] [reader...]
# New inputs are kept in build/fuzz/corpus/, what fails in build/fuzz/found/.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

seconds=${1:-60}
[ $# -eq 0 ] || shift
readers=("$@")

need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" clang-14
mkdir -p "$LOGS"
if ! (cd "$ROOT" && cmake --preset fuzz && cmake --build --preset fuzz) >"$LOGS/fuzz.log" 2>&1; then
  show_tail "$LOGS/fuzz.log"
  die "The build failed; the whole log is $LOGS/fuzz.log"
fi

if [ ${#readers[@]} -eq 0 ]; then
  for source in "$ROOT"/fuzz/*_fuzz.cpp; do
    [ -e "$source" ] || die "There is no fuzz target in $ROOT/fuzz."
    readers+=("$(basename "$source" _fuzz.cpp)")
  done
fi

failed=()
for reader in "${readers[@]}"; do
  corpus=$ROOT/build/fuzz/corpus/$reader found=$ROOT/build/fuzz/found/$reader
  seeds=$ROOT/fuzz/seeds/$reader log=$LOGS/fuzz_$reader.log
  mkdir -p "$corpus" "$found"
  folders=("$corpus")
  [ ! -d "$seeds" ] || folders+=("$seeds")
  say "$reader: $seconds s (log: ${log#"$ROOT"/}) ..."
  if "$ROOT/build/fuzz/fuzz/${reader}_fuzz" -max_total_time="$seconds" -timeout=10 \
    -rss_limit_mb=2048 -artifact_prefix="$found/" "${folders[@]}" >"$log" 2>&1; then
    say "  $(grep -E '^Done ' "$log" | tail -n 1)"
  else
    show_tail "$log"
    failed+=("$reader")
  fi
done
[ ${#failed[@]} -eq 0 ] || die "Failed: ${failed[*]}. The inputs are in $ROOT/build/fuzz/found/."
