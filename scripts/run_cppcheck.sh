#!/usr/bin/env bash
# Runs cppcheck on our own sources.
set -euo pipefail
cd "$(dirname "$0")/.."

mapfile -t sources < <(git ls-files '*.cpp' ':!:*_test.cpp' ':!:tests/*' ':!:third_party/*')
mkdir -p build/cppcheck
cppcheck --quiet -j 2 --std=c++20 --language=c++ --platform=win64 --library=windows \
    --enable=warning,performance,portability --inline-suppr --error-exitcode=1 \
    --suppress=missingIncludeSystem \
    --suppressions-list=scripts/cppcheck_suppressions.txt \
    --cppcheck-build-dir=build/cppcheck \
    -DUNICODE -D_UNICODE -D_WIN32 -I . "${sources[@]}"
