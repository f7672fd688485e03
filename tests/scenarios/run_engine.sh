#!/usr/bin/env bash
# Plays every scenario without a display on another engine than the embedded one: "sqlite-odbc", or
# "postgresql" with a server of its own for the time. Needs ZV_NATIVE_BIN (folder of the native
# programs); closes with "N passed, N failed".
#
#   tests/scenarios/run_engine.sh ENGINE
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/scenarios/tally.sh
engine=${1:?an engine}
: "${ZV_NATIVE_BIN:?folder of the native programs}"
if [ "$engine" = postgresql ] && [ -z "${ZV_TEST_POSTGRESQL:-}" ]; then
    exec tests/server/postgresql.sh with "$PWD/tests/scenarios/run_engine.sh" "$engine"
fi
mapfile -t files < <(find tests/scenarios -name '*.zvs' | sort)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# One player for each core; each takes every n-th file.
players=$(nproc)
status=0
pids=()
for ((player = 0; player < players; player++)); do
    share=()
    for ((i = player; i < ${#files[@]}; i += players)); do share+=("${files[i]}"); done
    "$ZV_NATIVE_BIN/zvscript" --engine "$engine" "${share[@]}" >"$work/$player" 2>&1 &
    pids+=($!)
done
for pid in "${pids[@]}"; do wait "$pid" || status=1; done
cat "$work"/*
tally "$work" "${#files[@]}"
exit "$status"
