# shellcheck shell=bash
# Shared by the scripts that take pictures out of the sample session, which source it.

# Paths can be read in some pictures, so the session works where no user's name shows.
SESSION_FOLDER=/tmp/ketab
SESSION_FONTS=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)/fonts.conf

# Runs the session, in the real windows drawn in memory: run_session PROGRAM LOG ARGUMENT...
# With the fonts that the packages bring, and without anything of the user's that could show. One at
# a time, as they all work in the same folder; that goes at the end of the script.
run_session() {
  local program=$1 log=$2 name kept=()
  shift 2
  exec 8>"$SESSION_FOLDER-$(id -u).lock"
  flock 8
  if [ -e "$SESSION_FOLDER" ] && [ ! -O "$SESSION_FOLDER" ]; then
    echo "$SESSION_FOLDER is somebody else's and in the way." >&2
    return 1
  fi
  rm -rf -- "$SESSION_FOLDER"
  SESSION_HOME=${SESSION_HOME:-$(mktemp -d "${TMPDIR:-/tmp}/zorvand-home-XXXXXX")}
  trap 'rm -rf -- "$SESSION_FOLDER" "$SESSION_HOME"' EXIT
  for name in QT_SCALE_FACTOR ASAN_OPTIONS LSAN_OPTIONS UBSAN_OPTIONS GCOV_PREFIX; do
    if [ -n "${!name:-}" ]; then kept+=("$name=${!name}"); fi
  done
  env -i PATH="$PATH" HOME="$SESSION_HOME" LC_ALL=C.UTF-8 TZ=UTC QT_QPA_PLATFORM=offscreen \
    FONTCONFIG_FILE="$SESSION_FONTS" ${kept[@]+"${kept[@]}"} \
    "$program" "$@" "$SESSION_FOLDER" >"$log" 2>&1 </dev/null 8>&-
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
