#!/usr/bin/env bash
# Runs tests under the address and undefined-behaviour sanitizers:  tools/sanitized.sh [CTEST-OPTION...]
# Without options it runs those of the core and of the editor.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/packages.sh

install_missing $program_packages $test_packages
[ $# -gt 0 ] || set -- -L 'core|editor'
# Sources compiled together take half the time, also where each test then runs once.
cmake --preset asan -DCMAKE_UNITY_BUILD=ON >/dev/null
cmake --build build/asan --parallel "$(nproc)" --target \
    core_tests window_tests tst_FailingDisk make_word_tables word_tables snippets
exec ctest --test-dir build/asan --output-on-failure -j "$(nproc)" "$@"
