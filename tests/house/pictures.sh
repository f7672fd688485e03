#!/usr/bin/env bash
# Whether tools/setup/check_pictures finds fault with what is no picture of a window, and only with
# that. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
passed=0
failed=0
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
good=$work/good
mkdir "$good"
mapfile -t list < <(tools/setup/tour --pictures)
count=${#list[@]}
[ "$count" -gt 7 ] || { echo "the tour names $count pictures"; exit 1; }

its=640x480
convert -size "$its" gradient:blue-white "$work/picture.png"
for each in "${list[@]}"; do
    cp "$work/picture.png" "$good/$each.png"
    echo "$each $its" >>"$good/extents"
done

# expect WHAT STATUS LINE...: looks the folder "tried" over. The exit status and every line written
# must be these.
expect() {
    local what=$1 status=$2 written
    shift 2
    written=$(tools/setup/check_pictures "$work/tried" 2>&1)
    local got=$?
    if [ "$got" = "$status" ] && [ "$written" = "$(printf '%s\n' "$@")" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL %s: status %s\n%s\n' "$what" "$got" "$written"
    fi
    rm -rf "$work/tried"
}
try() { cp -r "$good" "$work/tried"; }
try
expect "a whole tour" 0 "$count passed, 0 failed"

# Every fault at once, each at a picture of its own.
try
rm "$work/tried/${list[0]}.png"
: >"$work/tried/${list[1]}.png"
convert -size "$its" xc:blue "$work/tried/${list[2]}.png"
convert -size 64x48 gradient:blue-white "$work/tried/${list[3]}.png"
echo "no picture" >"$work/tried/${list[4]}.png"
sed -i "/^${list[6]} /d" "$work/tried/extents"
head -c 20 "$good/${list[5]}.png" >"$work/tried/${list[5]}.png"
expect "one fault of each kind" 1 \
    "FAILED: ${list[0]}.png is missing" \
    "FAILED: ${list[1]}.png is missing" \
    "FAILED: ${list[2]}.png has 1 colours and shows nothing" \
    "FAILED: ${list[3]}.png is 64x48 instead of $its" \
    "FAILED: ${list[4]}.png is no picture" \
    "FAILED: ${list[5]}.png is no picture" \
    "FAILED: ${list[6]}.png has windows whose extent nobody asked for" \
    "$((count - 7)) passed, 7 failed"
mkdir "$work/tried"
expect "an empty folder" 1 "$(printf '%s\n' "${list[@]}" |
    sed -E 's/.*/FAILED: &.png is missing/')" "0 passed, $count failed"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
