#!/usr/bin/env bash
# Runs one Windows program under Wine on a virtual screen: scripts/wine_run.sh PROGRAM [ARGUMENT...]
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/common.sh
. "$TARN_ROOT/scripts/lib/common.sh"
# shellcheck source=scripts/lib/wine.sh
. "$TARN_ROOT/scripts/lib/wine.sh"

trap tarn_close_wine EXIT
tarn_open_wine
# The end-to-end tests read the paths of the real Java runtimes and applications from these.
TARN_RUNTIMES=$(winepath -w "$TARN_RUNTIMES" 2>/dev/null)
export TARN_RUNTIMES
TARN_APPLICATIONS=$(winepath -w "$TARN_APPLICATIONS" 2>/dev/null)
export TARN_APPLICATIONS
wine "$@" {tarn_wine_lock}>&- </dev/null
