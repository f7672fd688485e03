#!/usr/bin/env bash
# A few rounds of a user's work in the real windows: nothing may grow or stay behind. bench/soak
# plays a thousand. Needs ZV_TEST_BIN (folder of the test programs) and a display; closes with
# "N passed, N failed".
#
#   tests/e2e/soak/run.sh [ROUNDS]
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tools/setup/wine.sh
ZV_WINE_TIMEOUT=${ZV_WINE_TIMEOUT:-300} wine_run "${ZV_TEST_BIN:?folder of the test programs}/zvSoak.exe" \
    "$(winepath_of tests/e2e/soak)" "${1:-20}" | sed -u 's/\r$//'
exit "${PIPESTATUS[0]}"
