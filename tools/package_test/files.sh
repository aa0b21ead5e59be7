# shellcheck shell=bash
# What lies in the packages. Part of tools/package_test.sh.

# The files that both packages have, of the program $1 with the desktop's name $2.
common_files() {
  local side
  printf '%s\n' READ-ME.txt install-for-me.sh runtime-packages.txt "$1" \
    "share/applications/$2.desktop" "share/metainfo/$2.metainfo.xml" \
    "share/icons/hicolor/scalable/apps/$1.svg"
  for side in 16 22 24 32 48 64 128 256 512; do
    printf '%s\n' "share/icons/hicolor/${side}x$side/apps/$1.png"
  done
}

# expect_files FOLDER, with the names expected in it on the input.
expect_files() {
  if ! diff <(sort) <(cd "$1" && find . -type f -printf '%P\n' | sort) >&2; then
    die "${1##*/} doesn't hold what it should (<: missing, >: too much)."
  fi
}

expect_executable() {
  local file
  for file in "$@"; do [ -x "$file" ] || die "$file can't be started."; done
}

check_files() {
  {
    common_files zorvand org.zorvand.Zorvand
    (cd "$ROOT" && find Resources -type f)
    printf '%s\n' Resources/main.exe
  } | expect_files "$1/$TOOL"
  common_files zorvand-viewer org.zorvand.Viewer | expect_files "$1/$VIEWER"
  expect_executable "$1/$TOOL"/{zorvand,Resources/main.exe,install-for-me.sh} \
    "$1/$VIEWER"/{zorvand-viewer,install-for-me.sh}
}

# The packages that hold the libraries which the program $1 itself names.
packages_of_program() {
  local name path
  readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | while IFS= read -r name; do
    path=$(ldd "$1" | sed -n "s|^\t$name => \([^ ]*\) .*|\1|p")
    # dpkg may know the file by /lib or by /usr/lib.
    dpkg -S "*${path#/usr}" | sed 's/:.*//'
  done
}

runtime_packages() { grep -v '^#' "$ROOT/packaging/runtime-packages.txt"; }

# No name of this machine, nothing for a debugger, and no library that nobody is told of.
check_programs() {
  local program package told needed
  # The last two are in every Debian.
  told=$(runtime_packages && printf '%s\n' libc6 libgcc-s1)
  for program in "$@"; do
    if readelf -d "$program" | grep -E '\((RPATH|RUNPATH)\)'; then die "$program has a path of libraries."; fi
    if readelf -S "$program" | grep -E ' \.(symtab|debug_info) '; then die "$program isn't stripped."; fi
    if grep -qF -e "$ROOT" -e "$BUILD" "$program"; then die "$program names the folder it was built in."; fi
    needed=$(packages_of_program "$program")
    for package in $needed; do
      grep -qxF "$package" <<<"$told" ||
        die "$program needs $package; packaging/runtime-packages.txt doesn't name it."
    done
  done
}

# What the desktop and software centres read of the folders in the arguments.
check_descriptions() {
  local folder
  for folder in "$@"; do
    desktop-file-validate "$folder"/share/applications/*.desktop
    appstreamcli validate --no-net "$folder"/share/metainfo/*.xml >"$WORK/appstream.log" ||
      die "$(cat "$WORK/appstream.log")"
    grep -qF "<release version=\"$VERSION\"" "$folder"/share/metainfo/*.xml ||
      die "The metainfo of ${folder##*/} knows no release $VERSION."
  done
}
