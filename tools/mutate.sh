#!/usr/bin/env bash
# Plants faults in the code, one at a time, and tells which of them no test sees:
#   tools/mutate.sh PATH... [COUNT] [--seed N]     --help tells the rest
set -euo pipefail
. "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

need_utf8_locale
need_packages "${BUILD_PACKAGES[@]}" "${FONT_PACKAGES[@]}" "${TEST_PACKAGES[@]}"
export PYTHONDONTWRITEBYTECODE=1
exec python3 "$ROOT/tools/mutate/mutate.py" "$@"
