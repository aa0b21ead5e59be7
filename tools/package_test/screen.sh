# shellcheck shell=bash disable=SC2034
# A screen in memory, and the programs that show themselves on it. Part of tools/package_test.sh.

# The titles of the first windows.
TOOL_TITLE='Zorvand'
VIEWER_TITLE='کتاب'

SCREEN_PID=
PROGRAM_PID=

# Starts Xvfb on a display that is free, for those who have the cookie in XAUTHORITY.
open_screen() {
  local number cookie
  cookie=$(mcookie)
  export XAUTHORITY=$WORK/cookie
  xauth -q -f "$XAUTHORITY" add :0 . "$cookie" 2>/dev/null
  exec 4<> <(:)
  Xvfb -displayfd 4 -auth "$XAUTHORITY" -screen 0 1280x1024x24 -nolisten tcp -noreset \
    >"$WORK/screen.log" 2>&1 &
  SCREEN_PID=$!
  read -r -t 20 number <&4 || die "Xvfb didn't start: $(cat "$WORK/screen.log")"
  export DISPLAY=:$number
  unset WAYLAND_DISPLAY QT_QPA_PLATFORM
  xauth -q -f "$XAUTHORITY" add "$DISPLAY" . "$cookie"
}

close_screen() {
  end_program
  if [ -n "$SCREEN_PID" ]; then kill "$SCREEN_PID" 2>/dev/null || true; fi
}

end_program() {
  if [ -n "$PROGRAM_PID" ]; then kill -KILL "$PROGRAM_PID" 2>/dev/null || true; fi
  PROGRAM_PID=
}

# wait_until WHAT COMMAND...: for as long as a busy machine may need.
wait_until() {
  local what=$1 tries
  shift
  for ((tries = 0; tries < 300; ++tries)); do
    if "$@"; then return; fi
    sleep 0.1
  done
  die "Waited in vain for $what."
}

window_is_shown() { xwininfo -root -tree | grep -qF "\"$1\""; }

no_window_is_shown() { ! window_is_shown "$1"; }
