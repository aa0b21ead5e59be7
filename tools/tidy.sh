#!/usr/bin/env bash
# clang-format and clang-tidy over all sources, or over the files whose path holds a word given:
#   tools/tidy.sh [word...]
#   tools/tidy.sh --format [word...]   clang-format alone, which takes seconds
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

need_utf8_locale
format_alone=
if [ "${1:-}" = --format ]; then
  format_alone=yes
  shift
  need_packages clang-format-14
else
  need_packages "${BUILD_PACKAGES[@]}" clang-format-14 clang-tidy-14
fi
cd "$ROOT"
mkdir -p "$LOGS"
status=0

mapfile -t files < <(find . \( -name build -o -name '.?*' \) -prune -o \
  \( -name '*.cpp' -o -name '*.h' \) -print | sed 's|^\./||' | sort)
if [ $# -gt 0 ]; then
  words=$(printf '%s\n' "$@")
  mapfile -t files < <(printf '%s\n' "${files[@]}" | grep -F -- "$words" || true)
fi
[ ${#files[@]} -gt 0 ] || die "No source has such a path."

say "clang-format: ${#files[@]} files ..."
clang-format-14 --dry-run -Werror "${files[@]}" || status=1
if [ -n "$format_alone" ]; then
  [ "$status" = 0 ] || die "Put it right with clang-format-14 -i FILE..."
  say "Clean."
  exit
fi

cmake --preset tidy >"$LOGS/tidy.log" 2>&1 || {
  show_tail "$LOGS/tidy.log"
  die "The tree can't be configured; the whole log is $LOGS/tidy.log"
}
mapfile -t sources < <(printf '%s\n' "${files[@]}" | grep '\.cpp$' || true)
say "clang-tidy: ${#sources[@]} files (log: ${LOGS#"$ROOT"/}/tidy.log) ..."
# The list of compile commands holds what the presets build; a path is matched as it stands.
patterns=()
for source in "${sources[@]}"; do
  patterns+=("^$(printf '%s' "$ROOT/$source" | sed 's/[][\.*^$+?(){}|]/\\&/g')\$")
done
if [ ${#patterns[@]} -gt 0 ]; then
  run-clang-tidy-14 -quiet -p build/tidy -j "$(jobs_at_once)" "${patterns[@]}" \
    >"$LOGS/tidy.log" 2>&1 || status=1
  sed -i 's/\x1b\[[0-9;]*m//g' "$LOGS/tidy.log"
  grep -E '(warning|error): ' "$LOGS/tidy.log" | sort -u || true
fi
[ "$status" = 0 ] || die "Not clean; the whole log is $LOGS/tidy.log"
say "Clean."
