# Sourced: where downloads live that outlast a build folder.
# shellcheck shell=bash

TARN_CACHE=${TARN_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tarn}
# shellcheck disable=SC2034  # read by the scripts that source this
TARN_RUNTIMES=$TARN_CACHE/runtimes
# Inside a runtime's folder: the line of the lock file that it came from.
# shellcheck disable=SC2034
TARN_RUNTIME_STAMP=tarn-runtime.stamp
