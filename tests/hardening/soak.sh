#!/usr/bin/env bash
# The long soak, under the sanitizers:  tests/hardening/soak.sh [MINUTES [SEED]]
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
[ -f build/asan/build.ninja ] || cmake --preset asan >/dev/null
cmake --build build/asan --target soak word_tables
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8
export ASAN_OPTIONS=detect_leaks=1:quarantine_size_mb=32:abort_on_error=1
export LSAN_OPTIONS=suppressions=$PWD/tests/hardening/leaks.txt:print_suppressions=0
export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
exec build/asan/tests/soak --minutes "${1:-20}" --seed "${2:-1}"
