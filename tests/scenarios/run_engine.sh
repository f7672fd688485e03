#!/usr/bin/env bash
# Plays every scenario without a display on another engine than the embedded one: "sqlite-odbc", or
# "postgresql" with a server of its own for the time. Needs ZV_NATIVE_BIN (folder of the native
# programs); closes with "N passed, N failed".
#
#   tests/scenarios/run_engine.sh ENGINE
set -uo pipefail
cd "$(dirname "$0")/../.."
engine=${1:?an engine}
with=()
[ "$engine" = postgresql ] && with=(tests/server/postgresql.sh with)
mapfile -t files < <(find tests/scenarios -name '*.zvs' | sort)
"${with[@]}" "${ZV_NATIVE_BIN:?}/zvscript" --engine "$engine" "${files[@]}"
