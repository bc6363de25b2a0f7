#!/usr/bin/env bash
# Checks the sources with clang-format and clang-tidy:  tools/tidy.sh [PATTERN]
# PATTERN, a regular expression, picks the sources by their path below src, such as compile/ui.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/packages.sh

install_missing $program_packages $test_packages clang-tidy
tools/check_format.sh
cmake --preset tidy >/dev/null
exec run-clang-tidy -p build/tidy -j "$(nproc)" -quiet "$PWD/(src|tools)/.*${1:-}.*\.cpp$"
