#!/usr/bin/env bash
# Kills a saving program again and again:  tests/hardening/kill_saves.sh [KILLS]
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
[ -f build/release/build.ninja ] || cmake --preset release >/dev/null
cmake --build build/release --target tst_KilledSaves word_tables
export KILLS=${1:-1000} QTEST_FUNCTION_TIMEOUT=7200000 QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
exec build/release/tests/tst_KilledSaves -maxwarnings 0
