# shellcheck shell=bash disable=SC2034
# The entry in the desktop's menu. Part of tools/package_test.sh.

# Finds the process that runs the program $1.
find_program() {
  local process
  for process in /proc/[0-9]*; do
    if [ "$process/exe" -ef "$1" ]; then
      PROGRAM_PID=${process#/proc/}
      return
    fi
  done
  return 1
}

expect_nothing_in_menu() {
  local left
  left=$(find "$XDG_DATA_HOME" -type f)
  [ -z "$left" ] || die "install-for-me.sh --remove has left: $left"
}

# check_menu FOLDER PROGRAM TITLE: the program starts from the menu of a user, and leaves it again.
check_menu() (
  folder=$1 program=$2
  export HOME=$WORK/home XDG_DATA_HOME="$WORK/home/my data"
  mkdir -p "$HOME"
  "$folder/install-for-me.sh" >/dev/null
  entry=$(find "$XDG_DATA_HOME/applications" -name '*.desktop')
  desktop-file-validate "$entry"
  diff -r "$folder/share/icons" "$XDG_DATA_HOME/icons" || die "Some icons aren't in the menu."
  cd "$WORK" || exit
  gio launch "$entry" >"$WORK/start.log" 2>&1 </dev/null &
  wait_until "$program to start from the menu" find_program "$folder/$program"
  trap end_program EXIT
  wait_until "$program's window" window_is_shown "$3"
  end_program
  wait_until "$program's end" no_window_is_shown "$3"
  "$folder/install-for-me.sh" --remove >/dev/null
  expect_nothing_in_menu
)
