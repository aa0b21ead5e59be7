#!/usr/bin/env bash
# Makes both packages and tries them as their users would:
#
#     tools/package_test.sh                # everything; as root, and with a Debian mirror in reach
#     tools/package_test.sh --quick        # what needs neither
#     tools/package_test.sh --built BUILD  # the same, of a build folder that is up to date (ctest)
#
# "Everything" adds an empty Debian 12 with nothing but packaging/runtime-packages.txt, in which the
# packages are unpacked and the sample book is made. It is made once, in ZORVAND_PACKAGE_ROOT
# (else build/package-root), and again when that list changes.
set -euo pipefail
# shellcheck source=/dev/null
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
. "$ROOT/tools/package_test/screen.sh"
. "$ROOT/tools/package_test/files.sh"
. "$ROOT/tools/package_test/desktop.sh"
. "$ROOT/tools/package_test/bare_debian.sh"

# shellcheck disable=SC2016  # it is a name
# A folder as users name them, and a little worse.
FOLDER_NAME='کتاب من (100%) $HOME "نو" `'

# The tarballs, as $TOOL and $VIEWER, without their ending.
make_packages() {
  local log=$WORK/cpack.log
  rm -rf -- "$BUILD/packages"
  (cd "$BUILD" && cpack) >"$log" 2>&1 || {
    show_tail "$log"
    die "cpack failed."
  }
  VERSION=$(sed -n 's/^CMAKE_PROJECT_VERSION:STATIC=//p' "$BUILD/CMakeCache.txt")
  TOOL=zorvand-$VERSION-linux-$(uname -m)
  VIEWER=zorvand-viewer-$VERSION-linux-$(uname -m)
  (cd "$BUILD/packages" && sha256sum --quiet -c "$TOOL.tar.gz.sha256" "$VIEWER.tar.gz.sha256")
}

try_here() {
  local folder=$WORK/$FOLDER_NAME
  mkdir "$folder"
  tar -xzf "$BUILD/packages/$TOOL.tar.gz" -C "$folder"
  tar -xzf "$BUILD/packages/$VIEWER.tar.gz" -C "$folder"
  check_files "$folder"
  check_programs "$folder/$TOOL/zorvand" "$folder/$TOOL/Resources/main.exe" \
    "$folder/$VIEWER/zorvand-viewer"
  check_descriptions "$folder/$TOOL" "$folder/$VIEWER"
  check_menu "$folder/$TOOL" zorvand "$TOOL_TITLE"
  check_menu "$folder/$VIEWER" zorvand-viewer "$VIEWER_TITLE"
  [ -s "$folder/$TOOL/ZVL.txt" ] || die "zorvand has written no ZVL.txt beside itself."
  QT_QPA_PLATFORM=offscreen "$BUILD/tools/kill_test/kill_test" --program "$folder/$TOOL" \
    "$BUILD/tools/kill_test/plugins" "$WORK/killed" 5 || die "The packaged tool lost what was filed."
  say "The packages are whole, start from the menu, and keep a record of what is filed."
}

usage() {
  sed -n '2,10s/^# \{0,1\}//p' "$0"
  exit 2
}

mode=${1:---all}
case "$mode:$#" in
  --all:* | --quick:1) ;;
  --built:2) BUILD=$(cd "$2" && pwd) ;;
  *) usage ;;
esac
need_utf8_locale
started=$SECONDS
if [ "$mode" = --all ]; then need_bare_debian; fi
if [ "$mode" != --built ]; then
  need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
  take_turn
  build_release zorvand viewer sample_session kill_test
fi
WORK=$(mktemp -d)
trap 'close_screen; rm -rf -- "$WORK"' EXIT
open_screen
make_packages
try_here
if [ "$mode" = --all ]; then try_in_bare_debian; fi
say "The packages are good: $BUILD/packages ($((SECONDS - started)) s)"
