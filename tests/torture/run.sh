#!/usr/bin/env bash
# Torture: four workstations work on one database, and every few seconds one of them is killed and
# started again. In the end the database must be sound, and nothing may be missing of what a user
# was shown as done.
#
#   ZV_NATIVE_BIN=FOLDER tests/torture/run.sh [SECONDS [ENGINE [MACHINE...]]]
#
# ENGINE: embedded (the default), sqlite-odbc (the same file over ODBC), or postgresql, with a
# server of its own for the time. The workers take the machines in turn: native (the default), or 64
# and 32, Windows programs of that width in a Wine that is prepared (see tools/setup/wine.sh). Closes
# with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
: "${ZV_NATIVE_BIN:?folder of the native programs}"
seconds=${1:-30}
engine=${2:-embedded}
machines=("${@:3}")
[ ${#machines[@]} -gt 0 ] || machines=(native)
if [ "$engine" = postgresql ] && [ -z "${ZV_TORTURE_SERVER:-}" ]; then
    ZV_TORTURE_SERVER=1 exec tests/server/postgresql.sh with "$PWD/tests/torture/run.sh" "$seconds" "$engine"
fi
[ "${machines[*]}" = native ] || source tools/setup/wine.sh
work=$(mktemp -d)
workers=(anna bert carl dora)
declare -A pids=() machine_of=()
for ((i = 0; i < ${#workers[@]}; i++)); do
    machine_of[${workers[i]}]=${machines[i % ${#machines[@]}]}
done
trap 'kill -9 "${pids[@]}" 2>/dev/null; rm -rf "$work"' EXIT
passed=0
failed=0
check() { # NAME COMMAND...
    local name=$1
    shift
    if "$@" >"$work/check.log" 2>&1; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAILED $name"
    fi
    tail -n 20 "$work/check.log"
}

if [ "$engine" = postgresql ]; then
    database=${ZV_TEST_POSTGRESQL:?}
    checked=(--to "$database")
else
    file=$work/t.db
    checked=("$file")
    database=$file
    [ "$engine" = sqlite-odbc ] && database="Driver={SQLite3};Timeout=5000;Database=$file"
fi
# work_at MACHINE ARGUMENT...: the worker, in place of the shell that it is called in.
work_at() {
    if [ "$1" = native ]; then exec "$ZV_NATIVE_BIN/zvTorture" work "${@:2}"; fi
    wine_width "$1"
    exec "$ZV_WINE" "$ZV_TEST_BIN/zvTorture.exe" work "${@:2}"
}
# path_at MACHINE PATH
path_at() { if [ "$1" = native ]; then echo "$2"; else echo "Z:$2"; fi; }

"$ZV_NATIVE_BIN/zvdb" create "${checked[@]}" || exit 1
"$ZV_NATIVE_BIN/zvTorture" prepare "$database" || exit 1

starts=0
start() { # NAME SECONDS
    local machine=${machine_of[$1]} address=$database
    starts=$((starts + 1))
    [ "$engine" != embedded ] || address=$(path_at "$machine" "$file")
    work_at "$machine" "$address" "$1" "$(path_at "$machine" "$work/$1.journal")" \
        "$starts" "$2" >>"$work/$1.out" 2>>"$work/$1.err" &
    pids[$1]=$!
}
begin=$SECONDS
for name in "${workers[@]}"; do start "$name" "$seconds"; done
kills=0
while left=$((seconds - (SECONDS - begin))) && [ "$left" -gt 4 ]; do
    sleep $((1 + RANDOM % 3))
    name=${workers[RANDOM % ${#workers[@]}]}
    kill -9 "${pids[$name]}" 2>/dev/null && kills=$((kills + 1))
    wait "${pids[$name]}" 2>/dev/null
    start "$name" "$((seconds - (SECONDS - begin)))"
done
for name in "${workers[@]}"; do
    timeout 60 tail --pid="${pids[$name]}" -f /dev/null || kill -9 "${pids[$name]}"
    check "$name ends by itself" wait "${pids[$name]}"
    check "$name met no crash" test ! -s "$work/$name.err"
    unset "pids[$name]"
done
echo "$seconds s, ${#workers[@]} workers (${machines[*]}), $kills kills"
check "every few seconds one was killed" test "$kills" -ge $((seconds / 8))
check "nothing acknowledged is missing" "$ZV_NATIVE_BIN/zvTorture" verify "$database" "$work"/*.journal
check "the database is sound" "$ZV_NATIVE_BIN/zvdb" check "${checked[@]}"
for machine in "${machines[@]}"; do
    [ "$machine" != native ] || continue
    sound_at() { (wine_width "$machine" && wine_run "$ZV_BIN/zvdb.exe" check "Z:$file"); }
    check "it is sound for programs of $machine bits" sound_at
done
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
