#!/usr/bin/env bash
# Takes pictures of all windows, at one and two pixels to the dot, on a light and a dark desktop:
#
#     tools/take_pictures.sh              # into build/pictures/{light,dark}-{1x,2x}
#     tools/take_pictures.sh --docs       # and those that the README shows into docs
#     tools/take_pictures.sh --font all   # as where one font alone is installed: into
#                                         # build/pictures/FONT-{light,dark}-{1x,2x} for each FONT
#     tools/take_pictures.sh --font freefarsi --desktop dark --scale 2   # one of each
#
# The sample session works in the real windows, drawn in memory; no screen is needed.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
. "$ROOT/tools/sample_session/pictures.sh"

PICTURES=$ROOT/build/pictures

# What a host may have, where it has nothing else: the name of a font, its files.
FONTS=(
  dejavu 'DejaVuSans.ttf DejaVuSans-Bold.ttf'
  noto-sans 'NotoSansArabic-Regular.ttf NotoSans-Regular.ttf'
  noto-naskh 'NotoNaskhArabic-Regular.ttf NotoSans-Regular.ttf'
  freefarsi 'FreeFarsi.ttf'
  vazirmatn 'Vazirmatn-Regular.ttf'
)

# What is kept of the session's pictures: the name of a step, the name of its picture.
KEPT=(
  Form1-project Form1
  Form2-choose-text-folder Form2
  Form3-collection-1-opened Form3-start
  Form3-passage-selected Form3
  Form3-gallery-chosen Form3-gallery
  Form4-help Form4
  Form5-choose-picture Form5
  Form6-entry-with-media Form6
  Form6-entry-gallery Form6-gallery
  Recovery-left Recovery
  popM-menu menu
  box box
  viewer-first-layout-index viewer-first
  viewer-second-layout-index viewer-second
)

usage() {
  sed -n '2,11s/^# \{0,1\}//p' "$0"
  exit 2
}

# take NAME LIGHT|DARK SCALE: into the folder NAME
take() {
  local folder=$PICTURES/$1 desktop=$2 scale=$3 i found
  local options=()
  if [ "$desktop" = dark ]; then options=(--dark); fi
  if ! QT_SCALE_FACTOR=$scale run_session "$BUILD/tools/sample_session/sample_session" \
    "$LOGS/pictures.log" ${options[@]+"${options[@]}"} "$ROOT/build/zorvand/Resources"; then
    show_tail "$LOGS/pictures.log"
    die "The sample session failed."
  fi
  rm -rf -- "$folder"
  mkdir -p "$folder"
  for ((i = 0; i < ${#KEPT[@]}; i += 2)); do
    found=$(picture_of_step "${KEPT[i]}")
    cp "$found" "$folder/${KEPT[i + 1]}.png"
  done
  say "$folder"
}

# take_all PREFIX: for each desktop and each scale that is asked for
take_all() {
  local desktop scale
  for desktop in $desktops; do
    for scale in $scales; do take "$1$desktop-${scale}x" "$desktop" "$scale"; done
  done
}

# The session's own settings of fonts, with the files in the arguments for all that there is:
# with_fonts FILE... Status 1 where one isn't installed.
with_fonts() {
  local folder=$PICTURES/fonts file found
  rm -rf -- "$folder"
  mkdir -p "$folder"
  for file in "$@"; do
    found=$(find /usr/share/fonts -name "$file" -print -quit)
    if [ -z "$found" ]; then return 1; fi
    cp "$found" "$folder"
  done
  sed "s|<dir>.*</dir>|<dir>$folder</dir>|" "$ROOT/tools/sample_session/fonts.conf" >"$folder/fonts.conf"
  SESSION_FONTS=$folder/fonts.conf
}

take_in_fonts() {
  local wanted=$1 i files known=
  for ((i = 0; i < ${#FONTS[@]}; i += 2)); do
    if [ "$wanted" != all ] && [ "$wanted" != "${FONTS[i]}" ]; then continue; fi
    known=yes
    read -ra files <<<"${FONTS[i + 1]}"
    if with_fonts "${files[@]}"; then
      take_all "${FONTS[i]}-"
    else
      say "${FONTS[i]} isn't installed here."
    fi
  done
  [ -n "$known" ] || usage
}

font=
docs=
desktops='light dark'
scales='1 2'
while [ $# -gt 0 ]; do
  case "$1" in
    --docs) docs=yes ;;
    --font | --desktop | --scale)
      [ $# -gt 1 ] || usage
      case "$1" in
        --font) font=$2 ;;
        --desktop) desktops=$2 ;;
        --scale) scales=$2 ;;
      esac
      shift
      ;;
    *) usage ;;
  esac
  shift
done
case "$desktops" in light | dark | 'light dark') ;; *) usage ;; esac
case "$scales" in 1 | 2 | '1 2') ;; *) usage ;; esac
if [ -n "$docs" ] && [ -n "$font" ]; then usage; fi

need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}"
if [ -n "$font" ]; then need_packages fonts-noto-core fonts-freefarsi; fi
take_turn
build_release zorvand sample_session
if [ -n "$font" ]; then
  take_in_fonts "$font"
else
  take_all ''
fi
if [ -n "$docs" ]; then
  cp "$PICTURES/light-1x/Form1.png" "$ROOT/docs/project.png"
  cp "$PICTURES/light-1x/Form3.png" "$ROOT/docs/workbench.png"
  cp "$PICTURES/light-1x/Form6.png" "$ROOT/docs/entry.png"
  cp "$PICTURES/light-1x/viewer-first.png" "$ROOT/docs/viewer.png"
fi
