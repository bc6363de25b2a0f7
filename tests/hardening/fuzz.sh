#!/usr/bin/env bash
# The fuzzers, under the sanitizers, both at once, each with one seed after the other:
#   tests/hardening/fuzz.sh [MINUTES [SEED]]
set -eu
cd "$(dirname "$(readlink -f "$0")")/../.."
[ -f build/asan/build.ninja ] || cmake --preset asan >/dev/null
fuzzers="tst_LEditOCXFuzz tst_FilesFuzz"
cmake --build build/asan --target $fuzzers
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
export LSAN_OPTIONS=suppressions=$PWD/tests/hardening/leaks.txt:print_suppressions=0
end=$(($(date +%s) + ${1:-10} * 60))

fuzz() {
    local cases=$2 seed=$3
    while [ "$(date +%s)" -lt "$end" ]; do
        if ! build/asan/tests/"$1" "$cases" "$seed" >"build/asan/$1.log" 2>&1; then
            echo "$1 FAILED with $cases cases and seed $seed, see build/asan/$1.log"
            return 1
        fi
        seed=$((seed + 1))
    done
    echo "$1: $((seed - $3)) runs of $cases cases from seed $3, no failure"
}

status=0
fuzz tst_LEditOCXFuzz 20000 "${2:-1}" & editor=$!
fuzz tst_FilesFuzz 2000 "${2:-1}" & files=$!
wait $editor || status=1
wait $files || status=1
exit $status
