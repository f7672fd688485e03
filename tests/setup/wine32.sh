#!/usr/bin/env bash
# The unpacked 32-bit Wine (see tools/setup/wine32) is told from a broken one, so that what a broken
# one leads to is never taken for a fault of the programs. Needs it whole, and leaves it so. Closes
# with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
folder=build/wine/i386
kept=build/wine/i386.kept
passed=0
failed=0
check() { # NAME COMMAND...
    local name=$1
    shift
    if "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $name"
    fi
}
whole() { tools/setup/wine32 check; }
broken() { ! whole; }
put_back() { rm -f "$folder/$file" && mv "$kept" "$folder/$file"; }

check "it is whole" whole
for file in usr/lib/wine/wine usr/lib/wine/wineserver32 usr/lib/i386-linux-gnu/wine/i386-windows/ntdll.dll; do
    mv "$folder/$file" "$kept"
    check "without $file it is broken" broken
    head -c 100 "$kept" >"$folder/$file"
    check "with a part of $file it is broken" broken
    put_back
done
touch "$folder/another"
check "with another file it is broken" broken
rm "$folder/another"

# Who asks while another one makes it waits for that.
waits() {
    timeout 3 tools/setup/wine32
    [ $? -eq 124 ] && [ ! -e "$folder.made" ] && [ ! -e "$folder.packages" ]
}
file=usr/lib/wine/wine
exec 8>"$folder.lock"
flock 8
mv "$folder/$file" "$kept"
check "two are not made at once" waits
put_back
exec 8>&-

check "it is whole again" whole
check "it runs" timeout 60 "$folder/usr/lib/wine/wine" --version

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
