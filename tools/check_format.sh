#!/usr/bin/env bash
# Compares the format of all sources with .clang-format.
set -eu
cd "$(dirname "$(readlink -f "$0")")/.."
. tools/packages.sh

install_missing clang-format
find src tests benchmarks tools \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 clang-format --dry-run --Werror
