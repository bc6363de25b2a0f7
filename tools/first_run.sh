#!/usr/bin/env bash
# Gives a fresh copy of the program the settings that it needs for a first run, each only where the
# user has none:  tools/first_run.sh BUILD-FOLDER
set -eu
project=$(dirname "$(dirname "$(readlink -f "$0")")")
. "$project/tools/packages.sh"

"$1/tools/first_settings" \
    FileCSound "$(command -v csound || true)" \
    FileGuida "$(first_existing /usr/share/doc/csound-doc/html/index.html)" \
    WorkingDirectory "$project/data/examples"
