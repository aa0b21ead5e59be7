#!/usr/bin/env bash
# Cuts the power of a disk on which the sample book is made, and looks at what is left:
#
#     tools/power_cut_test.sh [SECONDS ...]    # copies at each box, and so long behind it; usually 0 2
#
# As root, with loop devices and ext4. The disk is a file with an ext4 in it. While a message box
# stands the file is copied, which has then what a disk has that lost its power: each copy is mounted,
# the journal is played back, and all that the box told of must be there, byte for byte. Copies are
# taken at other moments, too; there, all that an earlier box told of must be left.
set -euo pipefail
# shellcheck source=/dev/null
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

SESSION=$BUILD/tools/sample_session/sample_session
RESOURCES=$ROOT/build/zorvand/Resources
MEGABYTES=256

# What stands at a box, for the copies of it: at_box FOLDER TEXT. Run by the session, which waits.
at_box() {
  local work=$1 seconds number before=0
  number=$(find "$work/copies" -name '*.told' | wc -l)
  mkdir "$work/copies/$number.tree"
  cp -a "$work/disk/session/program/Data" "$work/copies/$number.tree"
  if [ -d "$work/disk/session/program/Export" ]; then
    cp -a "$work/disk/session/program/Export" "$work/copies/$number.tree"
  fi
  for seconds in $POWER_CUT_SECONDS; do
    sleep $((seconds - before))
    before=$seconds
    cp --sparse=always "$work/image" "$work/copies/$number.$seconds.image"
  done
  printf '%s\n' "$2" >"$work/copies/$number.told"
}

# While the session runs, now and then, with the session stopped so that a copy is of one moment.
copy_now_and_then() {
  local work=$1 session=$2 number=0 told
  while kill -0 "$session" 2>/dev/null; do
    sleep "0.$((RANDOM % 9 + 1))"
    told=$(find "$work/copies" -name '*.told' | wc -l)
    [ "$told" -gt 0 ] || continue
    kill -STOP "$session" 2>/dev/null || break
    cp --sparse=always "$work/image" "$work/copies/$((told - 1)).r$number.image"
    kill -CONT "$session" 2>/dev/null || break
    number=$((number + 1))
  done
}

# Whether a file of the book may be another one than at the box before.
is_replaced() {
  case "$1" in
    */Index.xml | */CDProperty.xml | */FlashIMG/*) true ;;
    *) false ;;
  esac
}

# What differs between what was told and what is left, one path a line: lost TREE DISK EXACTLY
lost() {
  local tree=$1 disk=$2 exactly=$3 file
  (cd "$tree" && find . -type f) | while read -r file; do
    if [ "$exactly" = 0 ] && is_replaced "$file"; then continue; fi
    cmp -s "$tree/$file" "$disk/$file" || printf '%s\n' "${file#./}"
  done
}

check_copy() {
  local work=$1 image=$2 name number exactly=1 missing
  name=$(basename "$image" .image)
  number=${name%%.*}
  case "${name#*.}" in r*) exactly=0 ;; esac
  # Only these boxes tell that something is on the disk.
  case "$(cat "$work/copies/$number.told")" in
    *ساخته* | *آماده*) ;;
    *) exactly=0 ;;
  esac
  mount -o loop "$image" "$work/copy"
  missing=$(lost "$work/copies/$number.tree" "$work/copy/session/program" "$exactly")
  umount "$work/copy"
  checked=$((checked + 1))
  [ -z "$missing" ] && return
  failed=$((failed + 1))
  say "Box $number, copy ${name#*.}: $(wc -l <<<"$missing") files are missing, empty or others:"
  head -n 5 <<<"$missing"
}

clean_up() {
  if [ -n "${session:-}" ]; then kill -CONT "$session" 2>/dev/null || true; fi
  wait || true
  umount "$WORK/copy" 2>/dev/null || true
  umount "$WORK/disk" 2>/dev/null || true
  rm -rf -- "$WORK"
}

if [ "${1:-}" = --at-box ]; then
  at_box "$POWER_CUT_WORK" "$2"
  exit
fi

case "${1:-0}" in *[!0-9]*) sed -n '2,10s/^# \{0,1\}//p' "$0" && exit 2 ;; esac
[ "$(id -u)" = 0 ] || die "Mounting needs root."
[ -x "$SESSION" ] || die "There is no $SESSION: run ./test first."
WORK=$(mktemp -d "${TMPDIR:-/tmp}/zorvand-power-XXXXXX")
trap clean_up EXIT
mkdir "$WORK/disk" "$WORK/copy" "$WORK/copies"
truncate -s "${MEGABYTES}M" "$WORK/image"
mkfs.ext4 -q -F "$WORK/image"
mount -o loop "$WORK/image" "$WORK/disk"

# The session runs one program with one argument, so the rest comes by the environment.
export POWER_CUT_WORK=$WORK POWER_CUT_SECONDS="${*:-0 2}"
printf '#!/bin/sh\nexec bash "%s" --at-box "$1"\n' "$ROOT/tools/power_cut_test.sh" >"$WORK/at-box"
chmod +x "$WORK/at-box"
ZORVAND_AT_BOX=$WORK/at-box QT_QPA_PLATFORM=offscreen "$SESSION" "$RESOURCES" \
  "$WORK/disk/session" >"$WORK/session.log" 2>&1 </dev/null &
session=$!
copy_now_and_then "$WORK" "$session"
wait "$session" || {
  show_tail "$WORK/session.log"
  die "The sample session failed."
}
session=

checked=0
failed=0
for image in "$WORK"/copies/*.image; do check_copy "$WORK" "$image"; done
say "$checked copies of the disk, $failed of them with losses."
[ "$failed" = 0 ]
