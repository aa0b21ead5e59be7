#!/usr/bin/env bash
# Compares the pictures that the sample session takes of the windows with those that are known
# (tests/windows/pictures), pixel for pixel. What differs is shown in build/logs/pictures.
#
#     tools/session_pictures.sh           # builds the session first
#     tools/session_pictures.sh --keep    # as they look now they are known from now on
#     tools/session_pictures.sh --built SESSION RESOURCES    # of a session that is built, for ctest
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
. "$ROOT/tools/sample_session/pictures.sh"

KNOWN=$ROOT/tests/windows/pictures
LOG=$LOGS/session_pictures.log

session=$BUILD/tools/sample_session/sample_session
resources=$ROOT/build/zorvand/Resources
what=(--compare "$KNOWN" "$LOGS/pictures")
case "${1:-}" in
  '') ;;
  --keep) what=(--keep "$KNOWN") ;;
  --built)
    session=$2
    resources=$3
    ;;
  *)
    sed -n '2,8s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
unset QT_SCALE_FACTOR  # a desktop's; the known pictures have none
mkdir -p "$LOGS"
if [ "${1:-}" != --built ]; then
  need_utf8_locale
  need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}"
  take_turn
  build_release zorvand sample_session
fi
if ! run_session "$session" "$LOG" "${what[@]}" "$resources"; then
  cat "$LOG" >&2
  if grep -q '^Pictures ' "$LOG"; then
    die "If the windows are to look so:  tools/session_pictures.sh --keep"
  fi
  die "The sample session failed."
fi
tail -n 1 "$LOG"
if [ "${1:-}" = --keep ]; then
  du -sh --apparent-size "$KNOWN"
  git -C "$ROOT" status --short -- "$KNOWN"
fi
