#!/usr/bin/env bash
# Plays every scenario in real windows. Needs ZV_TEST_BIN (folder of the test programs) and a
# display; closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
source tools/setup/wine.sh
mapfile -t files < <(find tests/scenarios -name '*.zvs' | sort)
ZV_WINE_TIMEOUT=900 wine_run "${ZV_TEST_BIN:?}/zvscript.exe" --backend win32 "${files[@]}"
