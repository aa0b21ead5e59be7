#!/usr/bin/env bash
# Takes pictures of all windows, at one and two pixels to the dot, on a light and a dark desktop:
#
#     tools/take_pictures.sh           # into build/pictures/{light,dark}-{1x,2x}
#     tools/take_pictures.sh --docs    # and those that the README shows into docs
#
# The sample session works in the real windows, drawn in memory; no screen is needed.
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"
. "$ROOT/tools/sample_session/pictures.sh"

PICTURES=$ROOT/build/pictures

# What is kept of the session's pictures: the name of a step, the name of its picture.
KEPT=(
  Form1-project Form1
  Form2-choose-text-folder Form2
  Form3-passage-selected Form3
  Form3-gallery-chosen Form3-gallery
  Form4-help Form4
  Form5-choose-picture Form5
  Form6-entry-with-media Form6
  Form6-entry-gallery Form6-gallery
  Recovery-left Recovery
  viewer-first-layout-index viewer-first
  viewer-second-layout-index viewer-second
)

# take LIGHT|DARK SCALE
take() {
  local desktop=$1 scale=$2 kept=$PICTURES/$1-$2x i found
  local options=()
  if [ "$desktop" = dark ]; then options=(--dark); fi
  if ! QT_SCALE_FACTOR=$scale run_session "$BUILD/tools/sample_session/sample_session" \
    "$LOGS/pictures.log" ${options[@]+"${options[@]}"} "$ROOT/build/zorvand/Resources"; then
    show_tail "$LOGS/pictures.log"
    die "The sample session failed."
  fi
  rm -rf -- "$kept"
  mkdir -p "$kept"
  for ((i = 0; i < ${#KEPT[@]}; i += 2)); do
    found=$(picture_of_step "${KEPT[i]}")
    cp "$found" "$kept/${KEPT[i + 1]}.png"
  done
  say "$kept"
}

case "${1:-}" in
  '' | --docs) ;;
  *)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}"
take_turn
build_release zorvand sample_session
for desktop in light dark; do
  for scale in 1 2; do take "$desktop" "$scale"; done
done
if [ "${1:-}" = --docs ]; then
  cp "$PICTURES/light-1x/Form1.png" "$ROOT/docs/project.png"
  cp "$PICTURES/light-1x/Form3.png" "$ROOT/docs/workbench.png"
  cp "$PICTURES/light-1x/Form6.png" "$ROOT/docs/entry.png"
  cp "$PICTURES/light-1x/viewer-first.png" "$ROOT/docs/viewer.png"
fi
