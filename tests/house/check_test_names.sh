#!/usr/bin/env bash
# The sources of the tests share their programs, where two types or two functions of one name would
# silently become one. What is no source's own (an unnamed namespace) must have a name of its own.
set -u
cd "$1" || exit 2
twice=$(find . -name '*.h' -o -name '*.cpp' | sort | while read -r file; do
    awk -v file="$file" '
        /^namespace \{/ { unnamed = 1 }
        /^\} \/\/ namespace$/ { unnamed = 0 }
        unnamed { next }
        /^namespace [A-Za-z_]+ \{/ { scope = $2 "::" }
        /^\} \/\/ namespace [A-Za-z_]+$/ { scope = "" }
        /^(class|struct) [A-Za-z_]+/ && !/;$/ { sub(/:.*/, "", $2); print scope $2, file }
        /^inline const(expr)? .*( =|\{)/ {
            sub(/( =|\{).*/, ""); sub(/.* \**/, ""); print scope $0, file; next }
        /^inline .*\(/ { name = $0; sub(/\).*/, ")", name); print scope name, file }' "$file"
done | sort | awk '{ name = $0; sub(/ [^ ]*$/, "", name) } name == before { print line; print $0 }
                   { before = name; line = $0 }')
[ -z "$twice" ] && exit
echo "One name for two things:"
echo "$twice"
exit 1
