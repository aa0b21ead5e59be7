#!/usr/bin/env bash
# on_a_desktop.sh PROGRAM [ARGUMENT...]: runs a program on a screen of its own, with a session bus
# and the accessibility bus. Status 77 where the machine lacks what that takes.
set -euo pipefail

for tool in xvfb-run xauth dbus-run-session; do
  if ! command -v "$tool" >/dev/null; then
    echo "Skipped: $tool isn't installed."
    exit 77
  fi
done
if ! /usr/bin/python3 -c 'import gi; gi.require_version("Atspi", "2.0")' 2>/dev/null; then
  echo "Skipped: Python can't use the accessibility bus (python3-gi, gir1.2-atspi-2.0)."
  exit 77
fi
unset WAYLAND_DISPLAY DBUS_SESSION_BUS_ADDRESS AT_SPI_BUS_ADDRESS
# The bus starts its helpers by itself; they want a folder of their own.
XDG_RUNTIME_DIR=$(mktemp -d)
trap 'rm -rf -- "$XDG_RUNTIME_DIR"' EXIT
export XDG_RUNTIME_DIR QT_QPA_PLATFORM=xcb QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
xvfb-run --auto-servernum --server-args='-screen 0 1280x1024x24' dbus-run-session -- "$@"
