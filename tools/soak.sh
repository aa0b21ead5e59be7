#!/usr/bin/env bash
# A very long day of one editor, in the real windows, drawn in memory: 30 collections of 1,000 entries
# are filed and built, and each window is opened 200 times. Prints time and memory for each step and a
# verdict; the exit status is 0 if nothing grows. Takes some twenty minutes on a quiet machine.
#
#     tools/soak.sh                                  # as above
#     tools/soak.sh COLLECTIONS ENTRIES OPENINGS     # 6 100 50 is a quick look
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

case $# in
  0 | 3) ;;
  *)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}"
take_turn
build_release zorvand soak
end_turn
SOAK_FOLDER=$(mktemp -d "${TMPDIR:-/tmp}/zorvand-soak-XXXXXX")
trap 'rm -rf -- "$SOAK_FOLDER"' EXIT
mkdir -p "$SOAK_FOLDER/home"
HOME=$SOAK_FOLDER/home QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES=default.warning=false \
  "$BUILD/tools/soak/soak" "$ROOT/build/zorvand/Resources" "$SOAK_FOLDER/program" "$@"
