#!/usr/bin/env bash
# Installs what is missing, builds the program and starts it:  ./run.sh [FILE]
set -eu
called_from=$PWD
cd "$(dirname "$(readlink -f "$0")")"
. tools/packages.sh

if [ -z "${DISPLAY:-}" ] && [ -z "${WAYLAND_DISPLAY:-}" ] && [ -z "${QT_QPA_PLATFORM:-}" ]; then
    echo "run.sh: there is no display; on a machine without a screen use: xvfb-run ./run.sh ${1:-}" >&2
    exit 1
fi

install_missing $program_packages
build_targets ArdiphonPro word_tables first_settings
build/release/tools/first_settings "$PWD/data/examples"

program=$PWD/build/release/bin/ArdiphonPro
cd "$called_from"
exec "$program" "$@"
