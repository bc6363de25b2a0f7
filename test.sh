#!/usr/bin/env bash
# Installs what is missing, builds everything and runs every test:  ./test.sh [CTEST-OPTION...]
set -eu
cd "$(dirname "$(readlink -f "$0")")"
. tools/packages.sh

install_missing $program_packages $test_packages
build_targets all
exec ctest --test-dir build/release --output-on-failure -j "$(nproc)" "$@"
