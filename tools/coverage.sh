#!/usr/bin/env bash
# Runs every test with gcov's counters in and prints how much of each file they ran.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" gcovr
cd "$ROOT"
mkdir -p "$LOGS"
log=$LOGS/coverage.log
say "Building and testing (log: ${log#"$ROOT"/}) ..."
if ! { cmake --preset coverage &&
  cmake --build --preset coverage --parallel "$(jobs_at_once)"; } >"$log" 2>&1; then
  show_tail "$log"
  die "The build failed; the whole log is $log"
fi
find build/coverage -name '*.gcda' -delete
ctest --preset coverage -j "$(nproc)" >>"$log" 2>&1 ||
  say "Tests failed (see the log); what follows is what ran all the same."
gcovr --root . --object-directory build/coverage --exclude 'tests/' --exclude 'build/' \
  --exclude 'tools/' --exclude 'fuzz/' --exclude 'bench/' --exclude-throw-branches
