#!/usr/bin/env bash
# Runs one Windows program under Wine on a virtual screen: scripts/wine_run.sh PROGRAM [ARGUMENT...]
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/wine.sh
. "$TARN_ROOT/scripts/lib/wine.sh"

trap tarn_close_wine EXIT
tarn_open_wine
wine "$@" {tarn_wine_lock}>&- </dev/null
