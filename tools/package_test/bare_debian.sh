# shellcheck shell=bash disable=SC2034
# An empty Debian 12, and the packages in it. Part of tools/package_test.sh.
# The screen is the host's, so that nothing but the runtime packages is installed inside.

BARE=${ZORVAND_PACKAGE_ROOT:-$ROOT/build/package-root}
MIRROR=${ZORVAND_DEBIAN_MIRROR:-http://deb.debian.org/debian}
# Nothing is deleted but what bears it.
MARK=.made-by-package-test
USER_IN_BARE=editor
HOME_IN_BARE="/home/$USER_IN_BARE"
HERE="$HOME_IN_BARE/کتاب من"

need_bare_debian() {
  [ "$(id -u)" = 0 ] || die "An empty Debian can be made by root alone: sudo $0" \
    "What needs no root is tried by: $0 --quick"
  need_packages debootstrap
}

# in_bare COMMAND...: as root in the empty Debian. Mounts and processes end with the command.
in_bare() {
  # shellcheck disable=SC2016  # they are for the inner shell
  unshare --mount --pid --fork --kill-child -- sh -ec \
    'root=$1; shift; mount -t proc proc "$root/proc"; exec chroot "$root" "$@"' - "$BARE" \
    env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 ${http_proxy:+"http_proxy=$http_proxy"} \
    "$@"
}

# as_user FOLDER COMMAND...: the same as the user, with the screen, in that folder.
as_user() {
  # shellcheck disable=SC2016
  in_bare setpriv --reuid="$USER_IN_BARE" --regid="$USER_IN_BARE" --clear-groups \
    env HOME="$HOME_IN_BARE" DISPLAY="$DISPLAY" XAUTHORITY="$HOME_IN_BARE/.Xauthority" \
    sh -c 'cd "$1" && shift && exec "$@"' - "$@"
}

# Makes the empty Debian, unless there is one with the same packages.
make_bare() {
  local log=$WORK/debian.log packages
  if [ -e "$BARE/$MARK" ] && cmp -s "$ROOT/packaging/runtime-packages.txt" "$BARE/runtime-packages.txt"; then
    return
  fi
  mapfile -t packages < <(runtime_packages)
  say "Making an empty Debian 12 in $BARE; this takes some minutes."
  if [ -e "$BARE" ] && [ ! -e "$BARE/$MARK" ]; then
    die "$BARE wasn't made here and stays as it is. Name another folder in ZORVAND_PACKAGE_ROOT."
  fi
  rm -rf --one-file-system -- "$BARE"
  mkdir -p "$BARE"
  touch "$BARE/$MARK"
  {
    unshare --mount -- debootstrap --variant=minbase bookworm "$BARE" "$MIRROR" &&
      in_bare apt-get update &&
      in_bare env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends \
        "${packages[@]}" &&
      in_bare useradd --create-home "$USER_IN_BARE"
  } >"$log" 2>&1 </dev/null || {
    show_tail "$log"
    die "The empty Debian couldn't be made."
  }
  cp "$ROOT/packaging/runtime-packages.txt" "$BARE/runtime-packages.txt"
}

# The user's own folder, empty, with both packages unpacked in it.
unpack_in_bare() {
  local archive
  rm -rf -- "${BARE:?}$HOME_IN_BARE"
  in_bare install -d -o "$USER_IN_BARE" -g "$USER_IN_BARE" "$HOME_IN_BARE" "$HERE"
  cp "$XAUTHORITY" "$BARE$HOME_IN_BARE/.Xauthority"
  in_bare chown "$USER_IN_BARE:" "$HOME_IN_BARE/.Xauthority"
  for archive in "$TOOL" "$VIEWER"; do
    as_user "$HERE" tar -xzf - <"$BUILD/packages/$archive.tar.gz"
  done
}

# The packages hold no test driver: it is put beside the tool for this alone, with the one library
# that it needs more.
make_sample_book() {
  local log=$WORK/session.log driver=$BARE$HERE/$TOOL/driver
  mkdir "$driver"
  cp "$BUILD/tools/sample_session/sample_session" "$driver"
  cp -L "$(ldd "$driver/sample_session" | sed -n 's/.*libQt6Test\.so[^ ]* => \([^ ]*\) .*/\1/p')" "$driver"
  as_user "$HERE/$TOOL" env LD_LIBRARY_PATH=driver QT_QPA_PLATFORM=offscreen \
    driver/sample_session Resources "$HERE/نمونه" >"$log" 2>&1 </dev/null || {
    show_tail "$log"
    die "The sample book couldn't be made."
  }
  rm -rf -- "$driver"
}

# The last of the two exports is the whole book, with the pages to print, and the package's own viewer.
check_export() {
  local program="$BARE$HERE/نمونه/program" package="$BARE$HERE/$TOOL" exported other
  exported="$program/Export/Export 2"
  [ -s "$exported/Data/_xml/Index.xml" ] || die "The sample book wasn't exported."
  other=$(diff -rq "$program/Data" "$exported/Data" |
    grep -vF "Only in $exported/Data" || true)
  [ -z "$other" ] || die "The exported book isn't the book that was made:" "$other"
  [ "$(files_named '*.html' "$exported/Data")" = "$(files_named '*.htm' "$program/Data")" ] ||
    die "Not every page of the book can be printed."
  cmp "$exported/main.exe" "$package/Resources/main.exe"
  [ -x "$exported/main.exe" ] || die "The exported viewer can't be started."
}

files_named() { find "$2" -type f -name "$1" | wc -l; }

# Whatever is loaded while running: pictures' formats, screens, sounds and films.
check_plugins() {
  local plugins missing
  # shellcheck disable=SC2016
  plugins='find /usr/lib/*/qt6/plugins /usr/lib/*/gstreamer-1.0 -name "*.so" -exec ldd {} +'
  missing=$(in_bare sh -c "$plugins" 2>/dev/null | grep 'not found' | sort -u || true)
  [ -z "$missing" ] || die "Some plugins lack libraries:" "$missing"
}

# starts TITLE PROGRAM [ARGUMENT]: the program shows its window on the real screen.
starts() {
  local title=$1 program=$2 log=$WORK/start.log started
  shift 2
  as_user "$HERE" "./$program" "$@" >"$log" 2>&1 </dev/null &
  started=$!
  wait_until "$program to start" find_program "$BARE$HERE/$program"
  wait_until "the window of $program" window_is_shown "$title"
  end_program
  wait "$started" 2>/dev/null || true
  wait_until "the end of $program" no_window_is_shown "$title"
  if grep -iE 'error|could not|cannot|not found' "$log"; then die "$program complains."; fi
}

try_in_bare_debian() {
  make_bare
  check_plugins
  unpack_in_bare
  make_sample_book
  check_export
  starts "$TOOL_TITLE" "$TOOL/zorvand"
  [ -s "$BARE$HERE/$TOOL/ZVL.txt" ] || die "zorvand has written no ZVL.txt beside itself."
  starts "$VIEWER_TITLE" "نمونه/program/Export/Export 2/main.exe"
  starts "$VIEWER_TITLE" "$VIEWER/zorvand-viewer" "نمونه/program/Export/Export 2"
  say "In an empty Debian 12 the sample book is made, and all three programs start."
}
