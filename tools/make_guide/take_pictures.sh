#!/usr/bin/env bash
# Takes the guide's pictures anew: runs the sample session, which works in the real windows drawn in
# memory, and cuts what the guide shows out of its pictures. Needs ImageMagick.
#
#     take_pictures.sh SAMPLE_SESSION RESOURCES
#
# as in: take_pictures.sh build/default/tools/sample_session/sample_session build/zorvand/Resources
set -euo pipefail

if [ $# -ne 2 ]; then
  sed -n '2,8s/^# \{0,1\}//p' "$0"
  exit 2
fi
session=$(realpath "$1")
resources=$(realpath "$2")
here=$(cd "$(dirname "$0")" && pwd)

. "$here/../sample_session/pictures.sh"
run_session "$session" /dev/null "$resources"

# keep NAME COLOURS ARGUMENT...: what `convert` makes of the arguments, framed by a thin line, with
# few colours and nothing but the image in the file.
keep() {
  local name=$1 colours=$2
  shift 2
  convert "$@" +repage -bordercolor '#9a9a9a' -border 1 -alpha off +dither -colors "$colours" \
    -strip -define png:exclude-chunks=all -define png:include-chunk=PLTE,tRNS \
    -define png:compression-level=9 "PNG8:$here/pictures/$name.png"
}

# The help window doesn't smooth what it has to scale, so each picture is kept in the size in which
# it is shown, at most as wide as a page of the guide.
page=(-filter Lanczos -resize 638x)
gap=(-background '#efefef' -gravity center)

project=$(picture_of_step Form1-project)
opened=$(picture_of_step Form3-text-opened)
edited=$(picture_of_step Form3-entries-edited)
keep project 96 "$project"
keep choosers 48 "$(picture_of_step Form2-choose-text-folder)" -size 20x1 xc:'#efefef' \
  "$(picture_of_step Form5-choose-picture)" "${gap[@]}" +append
keep workbench 48 "$opened" "${page[@]}"
keep commands 32 \( "$opened" -crop 426x40+398+156 +repage \) \
  \( "$opened" -crop 398x40+0+156 +repage \) "${gap[@]}" -append
keep paragraphs 32 \( "$opened" -crop 385x30+442+594 +repage \) \
  \( "$opened" -crop 440x30+2+594 +repage \) "${gap[@]}" -append
keep rebuilt 32 "$(picture_of_step Form3-paragraphs-rebuilt)" -crop 638x230+189+200
keep selected 48 "$(picture_of_step Form3-passage-selected)" -crop 638x482+189+6
keep list 48 "$edited" -crop 638x146+3+6
keep entry 96 "$(picture_of_step Form6-entry-with-media)" -filter Lanczos -resize 560x
keep recovery 32 "$(picture_of_step Recovery-left)"
keep menu 32 "$(picture_of_step popM-menu)"
keep entry-gallery 128 "$(picture_of_step Form6-entry-gallery)" -filter Lanczos -resize 560x
keep collection-gallery 128 "$(picture_of_step Form3-gallery-chosen)" "${page[@]}"
boxes=("$SESSION_FOLDER/pictures"/*-box.png)
keep built 32 "${boxes[0]}"
keep exported 32 "${boxes[-1]}"
keep viewer-first 160 "$(picture_of_step viewer-first-layout-collection)" -filter Lanczos -resize 500x
keep viewer-second 128 "$(picture_of_step viewer-second-layout-index)" -filter Lanczos -resize 560x
du -bc "$here"/pictures/*.png | tail -n 1
