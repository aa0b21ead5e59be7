#!/usr/bin/env bash
# Two sessions are at work at once under the one name that their pictures show, and another user's
# folder of that name is in nobody's way. Status 77 where the machine lets no process have mounts of
# its own.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf -- "$work"' EXIT

fail() {
  echo "$*" >&2
  exit 1
}

# Stands in for the session: tells where it is, waits for the word if it is to, takes its picture.
cat >"$work/session" <<'END'
#!/bin/sh
set -e
[ "$2" = "$SHOWN_IN_TEST" ]
[ -z "$(ls -A "$2")" ]
mkdir "$2/pictures"
if [ "$1" != - ]; then
  echo here >"$1.begun"
  read -r word <"$1.go"
fi
echo "$1" >"$2/pictures/01-step.png"
END
sed -i "s|\$SHOWN_IN_TEST|$work/shown|" "$work/session"
chmod +x "$work/session"

# One session in a process of its own, as each script has one: what it took a picture of.
session() (
  . "$here/pictures.sh"
  SESSION_SHOWN=$work/shown
  run_session "$work/session" "$work/log" "$1" || fail "The session failed: $(cat "$work/log")"
  cat "$(picture_of_step step)"
)

# An ordinary user can't make a folder another's.
mkdir "$work/shown"
echo theirs >"$work/shown/theirs"
if [ "$(id -u)" = 0 ]; then chown -R nobody "$work/shown"; fi
chmod 755 "$work" "$work/shown"

( . "$here/pictures.sh"
  "${OWN_MOUNTS[@]}" true 2>/dev/null) || exit 77

[ "$(session -)" = - ] || fail "A session took no picture of its own."

mkfifo "$work/first.begun" "$work/first.go"
session "$work/first" >"$work/first.seen" &
read -r _ <"$work/first.begun"
[ "$(session -)" = - ] || fail "A second session took no picture of its own."
echo go >"$work/first.go"
wait $! || fail "The first session failed."
[ "$(cat "$work/first.seen")" = "$work/first" ] || fail "The first session took no picture of its own."

[ "$(cat "$work/shown/theirs")" = theirs ] || fail "Another user's folder has changed."
[ "$(ls "$work/shown")" = theirs ] || fail "There is something new in another user's folder."
