#!/usr/bin/env bash
# The test server from its start to its end: what it keeps, and that it leaves nothing behind.
set -uo pipefail
cd "$(dirname "$0")"
passed=0
failed=0
parent=$(mktemp -d "${TMPDIR:-/tmp}/zv-server-check-XXXXXX")
chmod 755 "$parent"
folder=$parent/server
trap '[ ! -e "$folder/data/PG_VERSION" ] || ./postgresql.sh stop "$folder"; rm -rf -- "$parent"' EXIT

# check NAME EXPECTED ACTUAL
check() {
    if [ "$2" = "$3" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL %s: expected "%s", got "%s"\n' "$1" "$2" "$3"
    fi
}

bin=$(dirname "$(find /usr/lib/postgresql -path '*/bin/psql' | sort -V | tail -n 1)")
ask() { "$bin/psql" --no-psqlrc --quiet --tuples-only --no-align --command "$1"; }
processes() { pgrep -f "postgres .*$folder/data" | wc -l; }

facts=$(./postgresql.sh start "$folder")
eval "$facts"
check "texts compare in one locale" "t" "$(ask "select lower('ÉA')='éa' and current_setting('lc_collate')='C.UTF-8'")"
check "it listens on loopback only" "127.0.0.1" "$(ask "show listen_addresses")"
check "the connection string names it" "yes" \
    "$([[ $ZV_TEST_POSTGRESQL == *"Port=$PGPORT;"*"Pwd=$PGPASSWORD" ]] && echo yes)"
check "the login needs its password" "refused" "$(PGPASSWORD=x ask "select 1" 2>/dev/null || echo refused)"
check "no process shows the password" "0" "$(pgrep -fc "$PGPASSWORD")"
check "the facts can be asked for again" "$facts" "$(./postgresql.sh facts "$folder")"
check "a folder in use is refused" "2" "$(./postgresql.sh start "$folder" >/dev/null 2>&1; echo $(($? + 1)))"

ask "create table kept(n int)" && ask "insert into kept values(7)"
./postgresql.sh halt "$folder" --crash
check "a halted server is gone" "0" "$(processes)"
./postgresql.sh resume "$folder"
check "what was committed survives a crash of the server" "7" "$(ask "select n from kept")"
./postgresql.sh stop "$folder"
check "a stopped server is gone" "0" "$(processes)"
check "its folder is gone" "" "$(ls "$parent")"

check "a command has a server for its time" "5" \
    "$(TMPDIR=$parent ./postgresql.sh with "$bin/psql" --no-psqlrc -qAtc "select 2+3")"
TMPDIR=$parent ./postgresql.sh with bash -c 'exit 7'
check "the command's exit status is passed on" "7" "$?"
check "nothing is left of those servers" "" "$(ls "$parent")"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
