#!/bin/sh
# Starts the installed program, after what an installer does once for each user.
folder=$(dirname "$(readlink -f "$0")")/../lib/ardiphon
"$folder/first_settings"
exec "$folder/ArdiphonPro" "$@"
