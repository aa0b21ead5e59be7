#!/usr/bin/env bash
# Builds the release with the bench and prints its table:
#   tools/bench.sh [row...]          the rows named, or all (an unknown name lists them)
#   tools/bench.sh --rules [option...]  the plain rules by size, with Google Benchmark's own options
# The exit status is 0 if every target is met. Leave five minutes between two runs: ext4 makes files
# many times slower while it remembers that thousands were deleted.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

BENCH=$ROOT/build/bench
BENCH_PACKAGES=(libbenchmark-dev catdoc libjpeg-turbo-progs python3 xvfb)

build_bench() {
  local log=$LOGS/bench.log
  mkdir -p "$LOGS"
  say "Building the bench (log: ${log#"$ROOT"/}) ..." >&2
  if ! { cmake -S "$ROOT" -B "$BENCH" -G Ninja -DCMAKE_BUILD_TYPE=Release -DZORVAND_BENCH=ON \
    -DBUILD_TESTING=OFF &&
    cmake --build "$BENCH" --parallel "$(jobs_at_once)" --target bench_table bench_rules; } \
    >"$log" 2>&1 </dev/null; then
    show_tail "$log"
    die "The build failed; the whole log is $log"
  fi
}

need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" "${BENCH_PACKAGES[@]}" >&2
build_bench
# The windows are drawn in memory.
export QT_QPA_PLATFORM=offscreen
unset DISPLAY WAYLAND_DISPLAY XDG_STATE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
if [ "${1:-}" = --rules ]; then
  shift
  exec "$BENCH/bench/bench_rules" "$@"
fi
exec "$BENCH/bench/bench_table" "$@"
