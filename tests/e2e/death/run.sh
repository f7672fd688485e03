#!/usr/bin/env bash
# Windows and boxes of the real control that end otherwise than by the user: with their owner, the
# message loop, the session or their handle; threads that use the control after each other; two copies
# of the file in one process. Needs ZV_BIN and ZV_TEST_BIN, as tests/e2e/playing.sh says; closes with "N passed,
# N failed".
set -uo pipefail
cd "$(dirname "$0")/../../.."
source tests/e2e/playing.sh
data="$work/数据/taskAlert.db"
make_database sample --items 60 --cards 20 --plans 3
set_up_workstation
printers() { ZV_WINE_TIMEOUT=60 wine_run "$ZV_TEST_BIN/zvPrinters.exe" "$@"; }
expect "a printer is installed" printers add 'zv death' 'FILE:'
ZV_WINE_TIMEOUT=600 wine_run "$ZV_TEST_BIN/zvDeath.exe" "$(winepath_of "$data")" \
    "$(winepath_of "$ZV_BIN/zv_Task.ocx")" 2>&1 | sed -u 's/\r$//' | tee "$work/death.log"
passed=$((passed + $(grep -c '^ok ' "$work/death.log")))
failed=$((failed + $(grep -c '^FAIL ' "$work/death.log")))
printers remove 'zv death' || failed=$((failed + 1))
# Without its last line it broke off.
grep -qE '^[0-9]+ passed, [0-9]+ failed$' "$work/death.log" || failed=$((failed + 1))
finish
