# Sourced by the suites that play a user on the demonstration host from outside: what they share.
# Needs ZV_BIN (folder of the programs that ship) and ZV_TEST_BIN (folder of those that test them;
# the same when it is not given). With ZV_PICTURES, a folder, a failure leaves a
# picture of the screen there. The suite sets `data`, the database in the folder $work, and `demo`,
# the process of the host while it runs; `finish` closes with "N passed, N failed".
source tools/setup/wine.sh
: "${ZV_BIN:?folder of the programs that ship}" "${ZV_TEST_BIN:=$ZV_BIN}"
work=$(mktemp -d)
settings='HKCU\Software\VB and VBA Program Settings\Tarnell'
passed=0
failed=0
demo=

outside() { ZV_WINE_TIMEOUT=60 wine_output "$ZV_TEST_BIN/zvOutside.exe" "$@"; }
registry() { ZV_WINE_TIMEOUT=60 wine_output reg "$@"; }
query() { sqlite3 -batch "$data" ".timeout 5000" "$1"; }

# How long the system may take to follow what the user did, in seconds. On a busy machine one look at a
# window takes a quarter of one, and a command may look many times before it acts again.
patience=30

# expect NAME COMMAND...: the command succeeds, within that time.
expect() {
    local name=$1 end=$((SECONDS + patience))
    shift
    until "$@"; do
        if [ "$SECONDS" -ge "$end" ]; then
            failed=$((failed + 1))
            echo "FAIL $name"
            echo "  windows: $(outside list | tr '\n' ' ')"
            echo "  keyboard: $(outside focus), held: $(outside held | tr '\n' ' ')"
            [ -z "${ZV_PICTURES:-}" ] || import -window root "$ZV_PICTURES/failure-$failed.png"
            return
        fi
        sleep 0.1
    done
    passed=$((passed + 1))
}

# A control without a window's name is one of the task manager.
path_of() { [[ "$1" == *.* ]] && printf '%s' "$1" || printf 'frmTaskMain.%s' "$1"; }
appears() { outside wait "$1" 10 >/dev/null; }
goes() { outside gone "$1" 10 >/dev/null; }
has_focus() { [ "$(outside focus)" = "$1" ]; }
text_is() { [ "$(outside text "$(path_of "$1")")" = "$2" ]; }
title_is() { [[ "$(outside text "$1")" == *"$2"* ]]; }
is_checked() { [ "$(outside checked "$(path_of "$1")")" = 1 ]; }
# The text may hold * for what does not matter.
asks() { [[ "$(outside message)" == $1 ]]; }
rows_are() { [ "$(query "$1")" = "$2" ]; }
tree() { outside tree frmTaskMain.tvwTask; }
tree_holds() { tree | grep -qF -- "$1"; }
tree_lacks() { ! tree_holds "$1"; }

# answer NAME TEXT KEY...: the box says so; the keys close it.
answer() {
    local name=$1 text=$2
    shift 2
    expect "$name" asks "$text"
    outside keys "$@"
}

# The components of this build, on a workstation that keeps no settings yet.
set_up_workstation() {
    expect "the host kit registers" wine_register "$ZV_BIN/zv_Host.dll"
    expect "the control registers" wine_register "$ZV_BIN/zv_Task.ocx"
    registry delete "$settings" /f >/dev/null
}

# log_in USER PASSWORD: at $data as a business program does, which hands over to the alerter.
log_in() {
    [ "$(wine_output cscript //nologo "$(winepath_of tests/e2e/alerter/hand_over.vbs)" \
        "$(winepath_of "$data")" "$1" "$2" | tail -n 1)" = END ]
}

# make_database COMMAND OPTION...: by zvdb, at $data.
make_database() {
    mkdir -p "$(dirname "$data")"
    expect "the database is made" wine_run "$ZV_BIN/zvdb.exe" "$1" \
        "$(winepath_of "$(dirname "$data")")\\$(basename "$data")" "${@:2}" >"$work/zvdb.log"
}

finish() {
    [ -n "$demo" ] && kill "$demo" 2>/dev/null
    registry delete "$settings" /f >/dev/null
    rm -rf "$work"
    echo "$passed passed, $failed failed"
    [ "$failed" -eq 0 ]
    exit
}
