#!/usr/bin/env bash
# Holds that a class has one source: a member of a class that is defined in a second file, to keep
# the first one short, is to be a member of a class of its own.
set -u
cd "$1" || exit 2
spread=$(grep -rE '^[A-Za-z].*::~?[A-Za-z0-9_]+\(' --include='*.cpp' . |
    sed -nE 's/^([^:]*):([^(]*[ *&])?(([A-Za-z0-9_]+::)+)~?[A-Za-z0-9_]+\(.*/\1 \3/p' |
    sort -u | awk '{ places[$2] = places[$2] " " $1; if (count[$2]++) twice[$2] }
                   END { for (name in twice) print name places[name] }')
[ -z "$spread" ] && exit
echo "Defined in several sources:"
echo "$spread"
exit 1
