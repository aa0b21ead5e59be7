# shellcheck shell=bash disable=SC2034
# Shared by ./run, ./test and .ci/run, which source it: the machine's packages, and the build.
# Debian 12, as root or through sudo. Nothing is fetched when every package is there.

ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
BUILD=$ROOT/build/default
LOGS=$ROOT/build/logs

BUILD_PACKAGES=(g++ cmake ninja-build qt6-base-dev qt6-multimedia-dev
  libicu-dev zlib1g-dev libgtest-dev libgmock-dev)
FONT_PACKAGES=(fonts-dejavu-core fonts-dejavu-extra)
# What the viewer plays sounds and films with, and the words of its dialogs that it has not itself.
PLAY_PACKAGES=(gstreamer1.0-plugins-base gstreamer1.0-plugins-good gstreamer1.0-libav
  qt6-translations-l10n)
TEST_PACKAGES=(python3 xvfb xauth x11-utils chromium poppler-utils desktop-file-utils appstream
  fonts-noto-core fonts-freefarsi libglib2.0-bin dbus at-spi2-core python3-gi gir1.2-atspi-2.0
  pulseaudio pulseaudio-utils strace locales gstreamer1.0-plugins-base gstreamer1.0-plugins-good
  gstreamer1.0-plugins-bad gstreamer1.0-libav)

say() { printf '%s\n' "$*"; }

die() {
  printf '%s\n' "$@" >&2
  exit 1
}

# The end of a log, for a step that failed.
show_tail() {
  printf -- '---- the end of %s ----\n' "$1" >&2
  tail -n 60 "$1" >&2
  printf -- '----\n' >&2
}

# Prints the packages among the arguments that aren't installed.
missing_packages() {
  local installed package
  installed=$(dpkg-query -W -f='${Package} ${db:Status-Status}\n' "$@" 2>/dev/null || true)
  for package in "$@"; do
    grep -qxF "$package installed" <<<"$installed" || printf '%s\n' "$package"
  done
}

# Runs a command as root.
as_root() {
  if [ "$(id -u)" = 0 ]; then "$@"; else sudo "$@"; fi
}

apt_get() {
  as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300 "$@"
}

# Ends with the name of each package that apt can't offer, or else with apt's own last words.
explain_missing() {
  local log=$1 package unknown=()
  shift
  for package in "$@"; do
    [ -n "$(apt-cache show --no-all-versions "$package" 2>/dev/null)" ] || unknown+=("$package")
  done
  if [ ${#unknown[@]} -gt 0 ]; then
    die "Zorvand needs these packages, and apt knows of none by that name: ${unknown[*]}" \
      "They are in Debian 12 (bookworm), section main. See that /etc/apt/sources.list names a mirror" \
      "that can be reached, then run:  apt-get update && apt-get install ${unknown[*]}" \
      "and start this again. (What apt said: $log)"
  fi
  show_tail "$log"
  die "apt couldn't install: $(missing_packages "$@" | tr '\n' ' ')" \
    "See the lines above (no network, a full disk, a held package?), put it right and start this again."
}

# Installs what isn't there of the packages in the arguments.
need_packages() {
  local missing log=$LOGS/packages.log
  mkdir -p "$LOGS"
  if ! command -v dpkg-query >/dev/null; then
    say "This isn't a Debian machine: nothing is installed. The build needs: $*"
    return
  fi
  mapfile -t missing < <(missing_packages "$@")
  [ ${#missing[@]} -gt 0 ] || return 0
  if [ "$(id -u)" != 0 ] && ! command -v sudo >/dev/null; then
    die "These packages are missing: ${missing[*]}" \
      "Only root can install them, and there is no sudo here. As root, run:" \
      "  apt-get update && apt-get install --no-install-recommends ${missing[*]}"
  fi
  say "Installing packages: ${missing[*]}"
  # Old lists may still serve when the mirror can't be reached, so a failed update isn't the end.
  apt_get update >"$log" 2>&1 </dev/null || true
  apt_get install --no-install-recommends "${missing[@]}" >>"$log" 2>&1 </dev/null ||
    explain_missing "$log" "${missing[@]}"
}

# Qt wants a UTF-8 locale for file names; a bare machine has none but C.UTF-8.
need_utf8_locale() {
  case "$(locale charmap 2>/dev/null)" in
    UTF-8) ;;
    *) export LC_ALL=C.UTF-8 ;;
  esac
}

# As many compilers at once as there are cores, but each with a gigabyte of memory.
jobs_at_once() {
  local cores memory
  cores=$(nproc)
  memory=$(awk '/^MemAvailable:/ { print int($2 / 1048576) }' /proc/meminfo 2>/dev/null || true)
  if [ -n "$memory" ] && [ "$memory" -lt "$cores" ]; then cores=$((memory > 0 ? memory : 1)); fi
  printf '%s\n' "$cores"
}

# One run at a time in one tree: a second one waits here.
take_turn() {
  mkdir -p "$ROOT/build"
  exec 9>"$ROOT/build/.turn"
  flock -n 9 || {
    say "Another ./run or ./test is at work in this folder; waiting for it."
    flock 9
  }
}

end_turn() { exec 9>&-; }

# Builds what a preset names: build_preset PRESET TARGET...
build_preset() {
  local preset=$1 folder=$ROOT/build/$1 started=$SECONDS
  local log=$LOGS/build.log
  shift
  if [ "$preset" != default ]; then log=$LOGS/build-$preset.log; fi
  mkdir -p "$LOGS"
  [ -f "$folder/build.ninja" ] || say "First build: this takes some minutes."
  say "Building (log: ${log#"$ROOT"/}) ..."
  if ! (cd "$ROOT" && cmake --preset "$preset" &&
    cmake --build "$folder" --parallel "$(jobs_at_once)" --target "$@") >"$log" 2>&1 </dev/null; then
    show_tail "$log"
    die "The build failed; the whole log is $log"
  fi
  say "Built in $((SECONDS - started)) s."
}

# Builds the release: build_release TARGET...
build_release() { build_preset default "$@"; }

# Nothing of the tests reaches the user's own folders or screen.
keep_to_the_tree() {
  export HOME=$ROOT/build/home QT_QPA_PLATFORM=offscreen
  mkdir -p "$HOME"
  unset DISPLAY WAYLAND_DISPLAY XDG_STATE_HOME XDG_CONFIG_HOME XDG_DATA_HOME
}

# Runs tests of a preset and prints ctest's closing line: run_tests PRESET LOG OPTION...
run_tests() {
  local preset=$1 log=$LOGS/$2 started=$SECONDS status=0
  shift 2
  say "Testing (log: ${log#"$ROOT"/}) ..."
  (cd "$ROOT" && ctest --preset "$preset" -j "$(nproc)" "$@") >"$log" 2>&1 </dev/null || status=$?
  if [ "$status" != 0 ]; then
    grep -vE '^ *Start +[0-9]+:| +Passed +[0-9.]+ sec$' "$log" | tail -n 200 >&2 || true
    die "The tests failed; the whole log is $log"
  fi
  # What this machine couldn't test, each with its reason.
  if grep -qE '\(Skipped\)$' "$log"; then
    say "NOT TESTED here (the reasons are in the log):"
    grep -E '\(Skipped\)$' "$log"
  fi
  say "$(grep 'tests passed' "$log"), in $((SECONDS - started)) s."
}
