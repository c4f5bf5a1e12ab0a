# Sourced by several scripts.
# shellcheck shell=bash
# shellcheck disable=SC2034  # read by the scripts that source this

# Downloads are kept outside the build folder.
TARN_CACHE=${TARN_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tarn}
TARN_RUNTIMES=$TARN_CACHE/runtimes
TARN_APPLICATIONS=$TARN_CACHE/applications

# The system's interpreter has the system's packages (pip, pefile), even if another one precedes it
# on the path.
TARN_PYTHON=${TARN_PYTHON:-/usr/bin/python3}
[ -x "$TARN_PYTHON" ] || TARN_PYTHON=python3

# tarn_say TEXT...: prints a line of progress.
tarn_say() { printf '==> %s\n' "$*"; }
