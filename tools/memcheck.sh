#!/usr/bin/env bash
# Runs the sample session under memcheck: the tool's whole road (texts in, marking, an entry edited,
# galleries, builds, two exports) and the viewer on what it has exported, in both layouts. Fails for
# each error, and for each block that is lost for good.
#
#     tools/memcheck.sh                        # the sample session
#     tools/memcheck.sh PROGRAM [ARGUMENT...]  # a program that is built, a test say
#
# Nothing is suppressed: neither the toolkit nor what it stands on is told of. Takes some ten minutes.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

REPORT=$LOGS/memcheck.txt
SESSION_FOLDER=

# memcheck PROGRAM [ARGUMENT...]
memcheck() {
  QT_QPA_PLATFORM=offscreen QT_ACCESSIBILITY=0 valgrind --quiet --leak-check=full \
    --show-leak-kinds=definite --errors-for-leak-kinds=definite --error-exitcode=99 \
    --num-callers=40 --log-file="$REPORT" "$@" >"$LOGS/memcheck.log" 2>&1
}

clean_up() { [ -z "$SESSION_FOLDER" ] || rm -rf -- "$SESSION_FOLDER"; }
trap clean_up EXIT

need_utf8_locale
mkdir -p "$LOGS"
program=("$@")
if [ ${#program[@]} -eq 0 ]; then
  need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" valgrind
  take_turn
  build_release zorvand sample_session
  SESSION_FOLDER=$(mktemp -d "${TMPDIR:-/tmp}/zorvand-memcheck-XXXXXX")
  export HOME=$SESSION_FOLDER/home
  mkdir -p "$HOME"
  program=("$BUILD/tools/sample_session/sample_session" "$ROOT/build/zorvand/Resources"
    "$SESSION_FOLDER/out")
else
  need_packages valgrind
fi
started=$SECONDS
status=0
memcheck "${program[@]}" || status=$?
case $status in
  0) say "No errors, nothing lost ($((SECONDS - started)) s)." ;;
  99)
    show_tail "$REPORT"
    die "memcheck found something; the whole report is $REPORT"
    ;;
  *)
    show_tail "$LOGS/memcheck.log"
    die "The program itself failed (status $status); its output is $LOGS/memcheck.log"
    ;;
esac
