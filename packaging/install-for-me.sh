#!/bin/sh
# Puts the program of this folder into the desktop's menu, for the user who runs this:
#
#     ./install-for-me.sh             # run it anew when the folder was moved
#     ./install-for-me.sh --remove    # takes it out again
#
# Writes into ~/.local/share (or XDG_DATA_HOME) alone.
set -eu

data=${XDG_DATA_HOME:-$HOME/.local/share}
here=$(cd -- "$(dirname -- "$0")" && pwd -P && echo .)
here=${here%??}  # the shell drops line breaks at an end, where a folder's name may have some

die() {
  printf '%s\n' "$@" >&2
  exit 1
}

# A value's own escapes (freedesktop.org, Desktop Entry, "Possible value types").
as_value() { printf '%s' "$1" | sed 's/\\/\\\\/g'; }

# The program's path as an Exec line wants it: quoted, and its percent signs told from field codes
# (the same, "The Exec key"). GLib looks for the program under the name with both
# signs, so such a name isn't put first.
as_command() {
  case $1 in *%*) printf 'env ' ;; esac
  # shellcheck disable=SC2016  # the $ and ` are letters
  as_value "$(printf '"%s"' "$(printf '%s' "$1" | sed 's/["`$\\]/\\&/g; s/%/%%/g')")"
}

# Prints the delivered entry with the program's place in this folder.
entry_of_this_folder() {
  while IFS= read -r line; do
    case $line in
      Exec=*)
        words=${line#Exec=}
        program=${words%% *}
        printf 'Exec=%s%s\n' "$(as_command "$here/$program")" "${words#"$program"}"
        ;;
      TryExec=*) printf 'TryExec=%s\n' "$(as_value "$here/${line#TryExec=}")" ;;
      *) printf '%s\n' "$line" ;;
    esac
  done <"$delivered"
}

# Desktops look for new icons when the folder's date changes.
tell_desktop() { touch -- "$data/icons/hicolor" 2>/dev/null || true; }

put_in() {
  mkdir -p -- "$data/applications"
  entry_of_this_folder >"$entry.new"
  mv -f -- "$entry.new" "$entry"
  icons | while IFS= read -r icon; do
    mkdir -p -- "$(dirname -- "$data/$icon")"
    cp -- "$here/share/$icon" "$data/$icon"
  done
  tell_desktop
  printf '%s\n' "In the menu now: $entry"
}

take_out() {
  if [ ! -e "$entry" ]; then
    printf '%s\n' "It isn't in the menu."
    return
  fi
  if ! entry_of_this_folder | cmp -s - "$entry"; then
    die "The entry in the menu belongs to another folder, or was changed, and stays: $entry" \
      "Delete it by hand, or run this in that folder."
  fi
  rm -f -- "$entry"
  icons | while IFS= read -r icon; do rm -f -- "$data/$icon"; done
  tell_desktop
  printf '%s\n' "Taken out of the menu."
}

icons() { (cd -- "$here/share" && find icons -type f); }

line_break='
'
case $here in
  *"$line_break"*) die "This folder's name, or that of one above it, holds a line break; no entry can name it." ;;
esac
for delivered in "$here"/share/applications/*.desktop; do entry=$data/applications/${delivered##*/}; done
[ -f "$delivered" ] || die "Run this in the folder as it was unpacked: $delivered is missing."
case "$#${1:-}" in
  0) put_in ;;
  1--remove) take_out ;;
  *)
    sed -n '2,7s/^# \{0,1\}//p' "$0"
    exit 2
    ;;
esac
