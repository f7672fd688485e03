#!/usr/bin/env bash
# Whether ./test counts what CTest runs: tests inside of a program, failures, skipped tests, and
# programs that break off. Runs CTest on programs that only write what such programs write. Closes
# with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/checks.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# program NAME STATUS LINE...: writes the lines and ends with the status; ABORT dies by a signal.
programs=()
program() {
    local name=$1 status=$2
    shift 2
    {
        echo '#!/bin/sh'
        [ $# -eq 0 ] || printf "echo '%s'\n" "$@"
        [ "$status" = ABORT ] && echo 'kill -ABRT $$' || echo "exit $status"
    } >"$work/$name"
    chmod +x "$work/$name"
    programs+=("$name")
}
# counted WHAT EXPECTED: runs the programs made since the last time.
counted() {
    local name
    {
        for name in "${programs[@]}"; do
            echo "add_test($name \"$work/$name\")"
            echo "set_tests_properties($name PROPERTIES SKIP_RETURN_CODE 77)"
        done
    } >"$work/CTestTestfile.cmake"
    (cd "$work" && ctest -V) >"$work/log" 2>&1
    check "$1" "$2" "$(awk -f tests/ctest_counts.awk "$work/log")"
    programs=()
}
shown() { awk -v show=1 -f tests/ctest_counts.awk "$work/log"; }

good=('[ RUN      ] A.Good' '[       OK ] A.Good (0 ms)' '[  PASSED  ] 12 tests.')
program framework 0 "${good[@]}"
program player 0 'ok a.zvs' '30 passed, 0 failed'
program plain 0 'a line of its own'
counted "tests inside of programs" "43 0 0"
check "nothing is shown of what passed" "" "$(shown)"

program failing 1 '[ RUN      ] A.Bad' 'expected 1, got 2' '[  FAILED  ] A.Bad (0 ms)' \
    '[ RUN      ] A.Good' 'not of interest' '[       OK ] A.Good (0 ms)' '[  PASSED  ] 3 tests.' \
    '[  FAILED  ] 1 test, listed below:' '[  FAILED  ] A.Bad' ' 1 FAILED TEST'
program player 1 'ok a.zvs' 'FAIL b.zvs:3: expected x got y' '1 passed, 1 failed'
counted "failed tests beside others" "4 2 0"
check "what a failed test says is shown" 1 "$(shown | grep -c 'expected 1, got 2')"
check "what a failed scenario says is shown" 1 "$(shown | grep -c 'b.zvs:3: expected x')"
check "what a good test says is not" 0 "$(shown | grep -c 'of interest')"

program crashing ABORT '[ RUN      ] A.Crash' 'the last words'
program leaking 23 "${good[@]}" 'a leak at the end'
program absent 1
rm "$work/absent"
counted "programs that break off" "12 3 0"
check "what one said last is shown" 1 "$(shown | grep -c 'the last words')"

program skipping 0 '[  PASSED  ] 5 tests.' '[  SKIPPED ] 2 tests, listed below:' '[  SKIPPED ] A.B'
program skipped 77
counted "skipped tests" "5 0 3"

program skipping 77 '[  SKIPPED ] 1 test, listed below:' '[  SKIPPED ] A.B'
counted "a skipped test that CTest tells of, too" "0 0 1"
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
