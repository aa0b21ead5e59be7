#!/usr/bin/env bash
# Cuts the power of a disk on which the sample book is made, and looks at what is left:
#
#     tools/power_cut_test.sh [SECONDS ...]    # copies at each box, and so long after it; usually 0 2
#
# As root, with loop devices and ext4. The disk is a file with an ext4 in it. While a message box
# stands the file is copied, which has then what a disk has that lost its power: each copy is mounted,
# the journal is played back, and all that the box told of must be there, byte for byte. Copies are
# taken at other moments, too; there, all that an earlier box told of must be left, and what is
# replaced since must be the old file or the new one, whole. The index has all its old lines, and of
# new ones each is whole or not there.
set -euo pipefail
# shellcheck source=/dev/null
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

SESSION=$BUILD/tools/sample_session/sample_session
RESOURCES=$ROOT/build/zorvand/Resources
MEGABYTES=256

# The book and its exports as the tool sees them.
copy_tree() {
  local work=$1 number=$2
  mkdir "$work/copies/$number.tree"
  cp -a "$work/disk/session/program/Data" "$work/copies/$number.tree"
  if [ -d "$work/disk/session/program/Export" ]; then
    cp -a "$work/disk/session/program/Export" "$work/copies/$number.tree"
  fi
}

# What stands at a box, for the copies of it: at_box FOLDER TEXT. Run by the session, which waits.
at_box() {
  local work=$1 seconds number before=0
  number=$(find "$work/copies" -name '*.told' | wc -l)
  copy_tree "$work" "$number"
  for seconds in $POWER_CUT_SECONDS; do
    sleep $((seconds - before))
    before=$seconds
    cp --sparse=always "$work/image" "$work/copies/$number.$seconds.image"
  done
  printf '%s\n' "$2" >"$work/copies/$number.told"
}

# Where the tool is just replacing the book's media, which it takes away before it copies them.
is_saving() {
  tail -n 1 "$1/disk/session/program/ZVL.txt" | grep -q 'Saving settings'
}

# While the session runs, now and then, with the session stopped so that a copy is of one moment.
copy_now_and_then() {
  local work=$1 session=$2 number=0 told moment
  while kill -0 "$session" 2>/dev/null; do
    sleep "0.$((RANDOM % 9 + 1))"
    told=$(find "$work/copies" -name '*.told' | wc -l)
    [ "$told" -gt 0 ] || continue
    kill -STOP "$session" 2>/dev/null || break
    moment=r
    if is_saving "$work"; then moment=s; fi
    cp --sparse=always "$work/image" "$work/copies/$((told - 1)).$moment$number.image"
    kill -CONT "$session" 2>/dev/null || break
    number=$((number + 1))
  done
}

# Whether a file may be another one than at the box before.
is_replaced() {
  case "$1" in
    ./Data/_xml/Index.xml | ./Data/TXT/CDProperty.xml | ./Data/FlashIMG/*) true ;;
    *) false ;;
  esac
}

# Whether a file is the same in two places, or in neither.
is_same() {
  if [ -e "$1" ]; then cmp -s "$1" "$2"; else [ ! -e "$2" ]; fi
}

# Whether an index has the lines of the old one and those of the new one up to some line's end. One
# that is new may still be empty.
is_between() {
  local old=$1 new=$2 left=$3
  is_same "$old" "$left" && return
  if [ ! -e "$old" ] && [ ! -s "$left" ]; then return; fi
  [ -e "$left" ] && cmp -s -n "$(stat -c %s "$left")" "$left" "$new" || return
  [ ! -e "$old" ] || cmp -s -n "$(stat -c %s "$old")" "$old" "$left" || return
  [ "$(tail -c 2 "$left" | od -An -tx1)" = ' 0a 00' ]
}

# Whether what may be replaced since the box was replaced well.
is_old_or_new() {
  local file=$1 tree=$2 next=$3 disk=$4 moment=$5
  case "$file" in
    */Index.xml) is_between "$tree/$file" "$next/$file" "$disk/$file" ;;
    */FlashIMG/*) [ "$moment" = s ] || is_same "$tree/$file" "$disk/$file" ||
      is_same "$next/$file" "$disk/$file" ;;
    *) is_same "$tree/$file" "$disk/$file" || is_same "$next/$file" "$disk/$file" ||
      { [ ! -e "$tree/$file" ] && [ "$moment" = s ]; } ;;
  esac
}

# What differs between what was told and what is left, one path a line:
# lost TREE NEXT_TREE DISK MOMENT, where MOMENT is "told" for a copy that must be exact.
lost() {
  local tree=$1 next=$2 disk=$3 moment=$4 file
  { (cd "$tree" && find . -type f) && (cd "$next" && find ./Data -type f); } | sort -u |
    while read -r file; do
      if [ "$moment" != told ] && is_replaced "$file"; then
        is_old_or_new "$file" "$tree" "$next" "$disk" "$moment" && continue
      elif [ ! -e "$tree/$file" ] || cmp -s "$tree/$file" "$disk/$file"; then
        continue
      fi
      printf '%s\n' "${file#./}"
    done
}

check_copy() {
  local work=$1 image=$2 name number moment=told missing
  name=$(basename "$image" .image)
  number=${name%%.*}
  # Only these boxes tell that something is on the disk.
  case "$(cat "$work/copies/$number.told")" in
    *ساخته* | *آماده*) ;;
    *) moment=r ;;
  esac
  case "${name#*.}" in
    r*) moment=r ;;
    s*) moment=s ;;
  esac
  mount -o loop "$image" "$work/copy"
  missing=$(lost "$work/copies/$number.tree" "$work/copies/$((number + 1)).tree" \
    "$work/copy/session/program" "$moment")
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
copy_tree "$WORK" "$(find "$WORK/copies" -name '*.told' | wc -l)"

checked=0
failed=0
for image in "$WORK"/copies/*.image; do check_copy "$WORK" "$image"; done
say "$checked copies of the disk, $failed of them with losses."
[ "$failed" = 0 ]
