# shellcheck shell=bash disable=SC2034
# Shared by the scripts that take pictures out of the sample session, which source it.

# Paths can be read in some pictures, so the session believes itself where no user's name shows,
# whoever runs it.
SESSION_SHOWN=/tmp/ketab
SESSION_FOLDER=  # where it really works, from run_session on; gone at the end of the script
SESSION_FONTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/fonts.conf

# What puts a folder over another one for a command alone: as root, or as an ordinary user.
OWN_MOUNTS=(unshare --mount)
if [ "$(id -u)" != 0 ]; then OWN_MOUNTS=(unshare --map-root-user --mount); fi
# shellcheck disable=SC2016  # the inner shell's words
OVER_THE_OTHER=(sh -c 'mount --bind "$1" "$2" && shift 2 && exec "$@"' over)

# Each session gets a folder of its own, seen by itself alone under the name that shows: those of
# other users, and others of this one, are at work at the same time. Where the machine allows no
# such thing, all work in the one folder; then one user's sessions wait for each other, and what
# another user has left there is in the way.
find_session_folder() {
  SESSION_FOLDER=$(mktemp -d "${TMPDIR:-/tmp}/zorvand-session-XXXXXX")
  # Whoever made it, it is only looked up. Nobody takes it away: the session of another may be on it.
  mkdir -p -- "$SESSION_SHOWN"
  if "${OWN_MOUNTS[@]}" "${OVER_THE_OTHER[@]}" "$SESSION_FOLDER" "$SESSION_SHOWN" true 2>/dev/null; then
    SESSION_RUNNER=("${OWN_MOUNTS[@]}" "${OVER_THE_OTHER[@]}" "$SESSION_FOLDER" "$SESSION_SHOWN")
    return
  fi
  rmdir -- "$SESSION_FOLDER"
  exec 8>"$SESSION_SHOWN-$(id -u).lock"
  flock 8
  if [ ! -O "$SESSION_SHOWN" ]; then
    echo "$SESSION_SHOWN is somebody else's and in the way." >&2
    return 1
  fi
  rm -rf -- "$SESSION_SHOWN"
  SESSION_FOLDER=$SESSION_SHOWN
  SESSION_RUNNER=(env)
}

# Runs the session, in the real windows drawn in memory: run_session PROGRAM LOG ARGUMENT...
# With the fonts that the packages bring, and without anything of the user's that could show.
run_session() {
  local program=$1 log=$2 name kept=()
  shift 2
  if [ -n "$SESSION_FOLDER" ]; then rm -rf -- "$SESSION_FOLDER"; fi
  find_session_folder || return 1
  SESSION_HOME=${SESSION_HOME:-$(mktemp -d "${TMPDIR:-/tmp}/zorvand-home-XXXXXX")}
  trap 'rm -rf -- "$SESSION_FOLDER" "$SESSION_HOME"' EXIT
  for name in QT_SCALE_FACTOR ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS GCOV_PREFIX; do
    if [ -n "${!name:-}" ]; then kept+=("$name=${!name}"); fi
  done
  env -i PATH="$PATH" HOME="$SESSION_HOME" LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen \
    FONTCONFIG_FILE="$SESSION_FONTS" ${kept[@]+"${kept[@]}"} \
    "${SESSION_RUNNER[@]}" "$program" "$@" "$SESSION_SHOWN" >"$log" 2>&1 </dev/null 8>&-
}

# Prints the first picture of a step; the numbers before it change with the session.
picture_of_step() {
  local found
  for found in "$SESSION_FOLDER"/pictures/*-"$1".png; do
    [ -f "$found" ] || break
    printf '%s\n' "$found"
    return
  done
  echo "The session took no picture '$1'." >&2
  return 1
}
