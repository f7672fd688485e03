#!/usr/bin/env bash
# A private PostgreSQL server for tests: it lives in a folder of its own, listens on loopback only
# and leaves nothing behind.
#
#   postgresql.sh start FOLDER [--durable]   makes FOLDER and starts a server in it
#   postgresql.sh facts FOLDER               prints the connection facts of a started server again
#   postgresql.sh halt FOLDER [--crash]      stops the server and keeps its data
#   postgresql.sh resume FOLDER              starts a halted server on its port again
#   postgresql.sh stop FOLDER                stops the server and removes FOLDER
#   postgresql.sh with [--durable] COMMAND…  runs a command with a server of its own
#
# The facts are lines for the shell: eval "$(tests/server/postgresql.sh start /tmp/x)". They export
# ZV_TEST_POSTGRESQL, a whole ODBC connection string with the password in it, and the variables
# that the server's own clients read (PGHOST, PGPORT, PGDATABASE, PGUSER, PGPASSWORD).
#
# Without --durable the server does not wait for the disk: a crash of the machine loses the data, a
# crash of the server alone does not. Started by root, the server runs as the user "postgres", for
# whom the way to FOLDER must be open.
set -euo pipefail

user=tester
database=tasks
address=127.0.0.1

fail() {
    echo "postgresql.sh: $*" >&2
    exit 1
}

# The newest server that is installed.
bin=$(find /usr/lib/postgresql -mindepth 3 -maxdepth 3 -path '*/bin/initdb' 2>/dev/null | sort -V | tail -n 1)
[ -n "$bin" ] || fail "no PostgreSQL is installed (see tools/setup/packages)"
bin=$(dirname "$bin")

# Runs a command as the user who owns the server, who must not be root.
as_owner() {
    if [ "$(id -u)" -eq 0 ]; then
        (cd / && runuser -u postgres -- "$@")
    else
        "$@"
    fi
}

# The id of the running server of FOLDER; nothing when it does not run. The number in the file is
# believed only when that process works in the server's own folder.
server_pid() {
    local pid
    pid=$(head -n 1 "$1/data/postmaster.pid" 2>/dev/null) || return 0
    [ "$(readlink "/proc/$pid/cwd" 2>/dev/null)" = "$1/data" ] && echo "$pid"
    return 0
}

# launch FOLDER PORT: fails when the port is taken.
launch() {
    as_owner "$bin/pg_ctl" start --silent --wait --timeout=60 --pgdata="$1/data" --log="$1/log" \
        --options="-p $2" >/dev/null 2>&1
}

# A port that nobody listens on right now.
free_port() {
    local port
    while :; do
        port=$((RANDOM % 16000 + 32768))
        (: <"/dev/tcp/$address/$port") 2>/dev/null || break
    done
    echo "$port"
}

initialise() {
    local folder=$1 durable=$2 password
    mkdir -p "$folder"
    folder=$(cd "$folder" && pwd -P)
    [ -z "$(ls -A "$folder")" ] || fail "the folder is not empty: $folder"
    chmod 700 "$folder"
    password=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
    (umask 077 && echo "$password" >"$folder/password")
    touch "$folder/log"
    if [ "$(id -u)" -eq 0 ]; then
        chown -R postgres: "$folder"
        if ! as_owner test -w "$folder"; then
            rm -rf -- "$folder"
            fail "the user postgres cannot reach $folder"
        fi
    fi
    # One locale whatever the machine's: UTF-8, order by code point, letter case of every alphabet.
    as_owner "$bin/initdb" --pgdata="$folder/data" --username="$user" --pwfile="$folder/password" \
        --auth=scram-sha-256 --encoding=UTF8 --locale=C.UTF-8 --no-sync >"$folder/log" 2>&1 ||
        fail "initdb: $(tail -n 5 "$folder/log")"
    {
        echo "listen_addresses = '$address'"
        # The path of a socket has a length limit; without one, loopback is the only way in.
        if [ ${#folder} -le 80 ]; then
            echo "unix_socket_directories = '$folder'"
        else
            echo "unix_socket_directories = ''"
        fi
        echo "timezone = 'UTC'"
        echo "lc_messages = 'C.UTF-8'"
        if [ -z "$durable" ]; then
            echo "fsync = off"
            echo "full_page_writes = off"
        fi
    } | as_owner tee -a "$folder/data/postgresql.conf" >/dev/null
}

facts() {
    local folder=$1 port password
    port=$(cat "$folder/port") || fail "no server has been started in $folder"
    password=$(cat "$folder/password")
    echo "export ZV_TEST_POSTGRESQL='Driver={PostgreSQL Unicode};Server=$address;Port=$port;Database=$database;Uid=$user;Pwd=$password'"
    echo "export PGHOST=$address PGPORT=$port PGDATABASE=$database PGUSER=$user PGPASSWORD=$password"
}

start() {
    local folder=$1 port attempt
    initialise "$folder" "${2:-}"
    folder=$(cd "$folder" && pwd -P)
    for attempt in 1 2 3 4 5; do
        port=$(free_port)
        launch "$folder" "$port" && break
        [ "$attempt" -lt 5 ] || fail "the server does not start: $(tail -n 5 "$folder/log")"
    done
    echo "$port" >"$folder/port"
    (
        eval "$(facts "$folder")"
        PGDATABASE=postgres "$bin/psql" --no-psqlrc --quiet --set ON_ERROR_STOP=1 \
            --command "create database $database"
    ) || {
        halt "$folder"
        fail "the database cannot be created"
    }
    facts "$folder"
}

resume() {
    local folder
    folder=$(cd "$1" && pwd -P)
    [ -z "$(server_pid "$folder")" ] || fail "the server runs already"
    launch "$folder" "$(cat "$folder/port")" || fail "the server does not start: $(tail -n 5 "$folder/log")"
}

# halt FOLDER [--crash]
halt() {
    local folder pid patience=600
    folder=$(cd "$1" && pwd -P)
    pid=$(server_pid "$folder")
    [ -n "$pid" ] || return 0
    # Sessions are ended, nobody is waited for. A crash does not even write what is in memory.
    if [ "${2:-}" = --crash ]; then kill -QUIT "$pid"; else kill -INT "$pid"; fi
    while [ "$(readlink "/proc/$pid/cwd")" = "$folder/data" ]; do
        patience=$((patience - 1))
        [ "$patience" -gt 0 ] || fail "the server (process $pid) does not end"
        sleep 0.1
    done
}

stop() {
    [ -e "$1/data/PG_VERSION" ] || fail "no server has been started in $1"
    halt "$1"
    rm -rf -- "$1"
}

with() {
    local durable= facts status=0
    if [ "${1:-}" = --durable ]; then
        durable=$1
        shift
    fi
    [ $# -gt 0 ] || fail "with: a command is missing"
    folder=$(mktemp -d "${TMPDIR:-/tmp}/zv-postgresql-XXXXXX")
    # The server may not have come to life.
    trap '[ ! -e "$folder/data/PG_VERSION" ] || halt "$folder"; rm -rf -- "$folder"' EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    facts=$(start "$folder" $durable)
    eval "$facts"
    "$@" || status=$?
    return "$status"
}

action=${1:-}
[ -n "${2:-}" ] || fail "usage: start|facts|halt|resume|stop FOLDER, or with COMMAND"
shift
case $action in
    start | facts | halt | resume | stop | with) "$action" "$@" ;;
    *) fail "unknown action $action" ;;
esac
