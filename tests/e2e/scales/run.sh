#!/usr/bin/env bash
# Measures every window in both scripts at 100, 150, 200 and 300 %: nothing lies across another
# thing, outside of its container or without an extent, and every caption can be read. ZV_TEST_BIN:
# folder of the programs that test; WINEPREFIX: the prefix to use. Ends with the line "N passed, N
# failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tools/setup/wine.sh
source tools/setup/scale.sh
: "${ZV_TEST_BIN:?folder of the programs that test}"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
passed=0
failed=0
export ZV_WINE_TIMEOUT=120

# measure PERCENT: the windows of the control, then those of the report component.
measure() {
    wine_output "$ZV_TEST_BIN/zvscript.exe" --backend win32 tests/scenarios/layout/*.zvs >"$work/control"
    wine_output "$ZV_TEST_BIN/report_layout_contract.exe" >"$work/report"
}
take() { # PERCENT FILE PASSED FAILED: adds what a program counted; none is a failure
    local p f
    p=$(sed -nE "$3" "$2" | tail -n 1)
    f=$(sed -nE "$4" "$2" | tail -n 1)
    passed=$((passed + ${p:-0}))
    failed=$((failed + ${f:-0}))
    if [ -z "$p" ]; then
        failed=$((failed + 1))
        echo "FAILED: at $1 % nothing was counted"
    elif [ "${f:-0}" -gt 0 ]; then
        echo "FAILED at $1 %:"
        grep -E 'FAIL|Which is|lies|cuts' "$2" | head -n 20
    fi
}

while read -r percent; do
    rm -f "$work/control" "$work/report"
    at_scale "$percent" measure
    take "$percent" "$work/control" 's/^([0-9]+) passed, .*/\1/p' 's/.* ([0-9]+) failed$/\1/p'
    take "$percent" "$work/report" 's/^\[  PASSED  \] ([0-9]+) tests?\.$/\1/p' \
        's/^ ?([0-9]+) FAILED TESTS?$/\1/p'
done < <(scales)
scales_end

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
