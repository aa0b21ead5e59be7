#!/bin/sh
# Makes every file of Resources/ that has its source here. README.md says what is needed.
set -eu
cd "$(dirname "$0")"
export PYTHONDONTWRITEBYTECODE=1
python3 make_texts.py
python3 make_small_files.py
python3 make_export_files.py
python3 draw_pictures.py
python3 draw_gallery.py
python3 make_film.py
python3 make_music.py
