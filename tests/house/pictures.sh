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
[ "$count" -gt 6 ] || { echo "the tour names $count pictures"; exit 1; }

# One picture of a size serves every window of that size.
while read -r each its; do
    [ -e "$work/$its.png" ] || convert -size "$its" gradient:blue-white "$work/$its.png"
    cp "$work/$its.png" "$good/$each.png"
done < <(printf '%s\n' "${list[@]}")

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
name_of() { echo "${list[$1]% *}"; }
size_of() { echo "${list[$1]#* }"; }
try
rm "$work/tried/$(name_of 0).png"
: >"$work/tried/$(name_of 1).png"
convert -size "$(size_of 2)" xc:blue "$work/tried/$(name_of 2).png"
convert -size 64x48 gradient:blue-white "$work/tried/$(name_of 3).png"
echo "no picture" >"$work/tried/$(name_of 4).png"
head -c 20 "$good/$(name_of 5).png" >"$work/tried/$(name_of 5).png"
expect "one fault of each kind" 1 \
    "FAILED: $(name_of 0).png is missing" \
    "FAILED: $(name_of 1).png is missing" \
    "FAILED: $(name_of 2).png has 1 colours and shows nothing" \
    "FAILED: $(name_of 3).png is 64x48 instead of $(size_of 3)" \
    "FAILED: $(name_of 4).png is no picture" \
    "FAILED: $(name_of 5).png is no picture" \
    "$((count - 6)) passed, 6 failed"
mkdir "$work/tried"
expect "an empty folder" 1 "$(printf '%s\n' "${list[@]}" |
    sed -E 's/^([^ ]*) .*/FAILED: \1.png is missing/')" "0 passed, $count failed"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
