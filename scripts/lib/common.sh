# Sourced: what several scripts need.
# shellcheck shell=bash
# shellcheck disable=SC2034  # read by the scripts that source this

# Downloads live where they outlast a build folder.
TARN_CACHE=${TARN_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tarn}
TARN_RUNTIMES=$TARN_CACHE/runtimes
TARN_APPLICATIONS=$TARN_CACHE/applications

# The system's own interpreter first: it is the one that the system's packages (pip, pefile)
# belong to, whatever else comes earlier on the path.
TARN_PYTHON=${TARN_PYTHON:-/usr/bin/python3}
[ -x "$TARN_PYTHON" ] || TARN_PYTHON=python3

# tarn_say TEXT...: a line of progress.
tarn_say() { printf '==> %s\n' "$*"; }
