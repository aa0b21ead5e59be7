# shellcheck shell=bash
# Shared by the scripts that take pictures out of the sample session, which source it.

# Paths can be read in some pictures, so the session works where no user's name shows.
SESSION_FOLDER=/tmp/ketab

# Runs the session, in the real windows drawn in memory: run_session PROGRAM LOG ARGUMENT...
# The folder it has worked in goes at the end of the script.
run_session() {
  local program=$1 log=$2
  shift 2
  if [ -e "$SESSION_FOLDER" ]; then
    echo "$SESSION_FOLDER is in the way." >&2
    return 1
  fi
  trap 'rm -rf -- "$SESSION_FOLDER"' EXIT
  QT_QPA_PLATFORM=offscreen "$program" "$@" "$SESSION_FOLDER" >"$log" 2>&1 </dev/null
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
