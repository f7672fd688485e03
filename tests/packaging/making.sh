#!/usr/bin/env bash
# The making of the set-up: signing, sameness, refusals. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.." || exit 1
source tests/checks.sh
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

packaging/make --out "$work/first" >"$work/log" 2>&1
check "makes the set-up" 0 $?
packaging/make --as-built --out "$work/second" >"$work/log" 2>&1
check "makes it again" 0 $?
check "both are the same" "" "$(diff -r "$work/first" "$work/second")"
check "one for each width, and nothing else" 2 "$(find "$work/first" -type f | wc -l)"

# A command that signs: it gets whole files, each once, and appends to them.
cat >"$work/sign" <<'SIGN'
#!/usr/bin/env bash
[ "$1" = given ] && [ $# -eq 2 ] && [ "$(head -c 2 "$2")" = MZ ] || exit 1
basename "$2" >>"$0.log"
printf 'signed  ' >>"$2"
SIGN
chmod +x "$work/sign"
packaging/make --as-built --uncompressed --sign "$work/sign given" --out "$work/signed" >"$work/log" 2>&1
check "makes a signed one" 0 $?
check "every program was signed" "zvAlert.exe zvAlert.exe zvDemo.exe zvDemo.exe zv_Host.dll zv_Host.dll zv_Task.ocx zv_Task.ocx zvdb.exe zvdb.exe" \
    "$(grep -E '^(zv_|zvA|zvD|zvd)' "$work/sign.log" | LC_ALL=C sort | tr '\n' ' ' | sed 's/ $//')"
check "the uninstallers and the set-ups, too" 4 "$(grep -vcE '^(zv_|zvA|zvD|zvd)' "$work/sign.log")"
check "the set-up ends with its signature" "signed  " "$(tail -c 8 "$work/signed"/*-setup.exe)"

packaging/make --as-built --sign false --out "$work/refused" >"$work/log" 2>&1
check "a signature that fails ends the making" 1 $?
check "with the file's name" yes "$(grep -q 'signing failed: zvAlert.exe' "$work/log" && echo yes)"
check "and leaves nothing" "" "$(find "$work/refused" -type f)"
packaging/make --unknown >/dev/null 2>&1
check "an unknown option is refused" 2 $?
packaging/make --version 1.x >/dev/null 2>&1
check "so is what is no version" 2 $?

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
