#!/usr/bin/env bash
# Plays every scenario once more for each box that it answers, with a call of the host or a closed
# window put in while the box stands. Needs ZV_NATIVE_BIN (folder of the native programs); closes
# with "N passed, N failed", a scenario under one disturbance being one.
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/scenarios/tally.sh
: "${ZV_NATIVE_BIN:?folder of the native programs}"
mapfile -t files < <(find tests/scenarios -name '*.zvs' -exec grep -lE '^ *(answer|input) ' {} + | sort)
disturbances=(refresh0 refresh1 refresh9 close opener)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
status=0
printf '%s\n' "${disturbances[@]}" | xargs -P "$(nproc)" -I{} sh -c '
    what=$1 folder=$2
    shift 2
    "$ZV_NATIVE_BIN/zvscript" --disturb "$what" "$@" >"$folder/$what" 2>&1' sh {} "$work" \
    "${files[@]}" || status=1
grep -hv '^ok ' "$work"/*
tally "$work" "$((${#files[@]} * ${#disturbances[@]}))"
exit "$status"
