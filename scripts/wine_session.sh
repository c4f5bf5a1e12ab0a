#!/usr/bin/env bash
# Runs a command that starts Windows programs with "wine": scripts/wine_session.sh COMMAND [ARGUMENT...]
set -euo pipefail
TARN_ROOT=$(cd "$(dirname "$0")/.." && pwd)
# shellcheck source=scripts/lib/wine.sh
. "$TARN_ROOT/scripts/lib/wine.sh"

trap tarn_close_wine EXIT
tarn_open_wine
"$@" {tarn_wine_lock}>&- </dev/null
