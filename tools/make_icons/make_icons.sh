#!/usr/bin/env bash
# Draws the icons of the packages in all their sizes, anew, out of packaging/icons/*.svg:
#
#     tools/make_icons/make_icons.sh
#
# Needs the Debian package librsvg2-bin. What it draws is committed, so the build needs it not.
# A drawing that is changed here is changed in platform/qt/artwork.cpp, too: a test compares them.
set -euo pipefail

ICONS=$(cd "$(dirname "${BASH_SOURCE[0]}")/../../packaging/icons" && pwd)
SIDES=(16 22 24 32 48 64 128 256 512)

command -v rsvg-convert >/dev/null || {
  echo "rsvg-convert is missing: apt-get install librsvg2-bin" >&2
  exit 1
}
for drawing in "$ICONS"/*.svg; do
  for side in "${SIDES[@]}"; do
    folder=$ICONS/${side}x$side
    mkdir -p "$folder"
    rsvg-convert -w "$side" -h "$side" -o "$folder/$(basename "$drawing" .svg).png" "$drawing"
  done
done
