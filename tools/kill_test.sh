#!/usr/bin/env bash
# Kills the tool (SIGKILL) after each of many random operations, brings back what it left, and
# compares that with a model and the book with that of an unbroken run; first the program itself, with
# a robot in it, then its windows in processes whose tables can be looked into:
#
#   tools/kill_test.sh [OPERATIONS [SEED...]]     # 100 operations for each of three seeds
#
# A seed that failed fails again. ./test has a short run of it.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

operations=${1:-100}
shift || true
seeds=("$@")
if [ ${#seeds[@]} -eq 0 ]; then seeds=($RANDOM $RANDOM $RANDOM); fi

need_utf8_locale
take_turn
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
build_release kill_test zorvand
keep_to_the_tree

status=0
for seed in "${seeds[@]}"; do
  say "Seed $seed, $operations operations ..."
  "$BUILD/tools/kill_test/kill_test" --program "$ROOT/build/zorvand" \
    "$BUILD/tools/kill_test/plugins" "$BUILD/kill_test-$seed" "$operations" "$seed" || status=1
  "$BUILD/tools/kill_test/kill_test" "$BUILD/kill_test-$seed" "$operations" "$seed" || status=1
done
exit "$status"
