#!/usr/bin/env bash
# A host that was compiled, and a control that was stored, before the control of today was built:
# frozen/ holds the program in both widths, the type library that it was compiled against, the
# stream and the bag. Today's control must serve them as the one of then did. Ids of the library,
# its interfaces and members, their order and the stored form may only grow.
#
# The files were made of a build without events: the library and zv_task.h with widl from its
# zv_task.idl, the program from host.cpp with that header, stream and bag by "host save".
#
# Needs ZV_BIN, as tools/setup/wine.sh sets it for a width, and a display. Closes with
# "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")"
source ../../../tools/setup/wine.sh
case $ZV_WIDTH in
    64) then=frozen/x64 ;;
    32) then=frozen/x86 ;;
esac
wine_register "$ZV_BIN/zv_Task.ocx" || {
    echo "FAIL the control cannot be registered"
    echo "0 passed, 1 failed"
    exit 1
}
wine_output "$then/host.exe" check "$(winepath_of frozen/stream.bin)" "$(winepath_of frozen/bag.txt)" \
    "$(winepath_of "$then/zv_task.tlb")"
