#!/usr/bin/env bash
# Reads every example of a host and compares what it calls with the type library's source: each
# member exists, is used as what it is (assigned, read, called) and gets as many arguments as it
# has; each handler has the parameters of its event. Most examples cannot run here, but none of them
# may be wrong about the control. Closes with "N passed, N failed".
#
#   examples.sh [FILE...]    default: host/examples
set -uo pipefail
root=$(cd "$(dirname "$0")/../.." && pwd)
cd "$root" || exit 1
passed=0
failed=0
report() { # GOOD TEXT
    if [ "$1" = yes ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        echo "FAIL $2"
    fi
}

# Lines "put NAME", "get NAME", "call NAME COUNT" and "event NAME COUNT".
members=$(awk '
    /dispinterface __zvTask/ { events = 1 }
    /\[id\([0-9]+\)/ { kind = /propput/ ? "put" : /propget/ ? "get" : "call" }
    /^ *(HRESULT|void) [A-Za-z_]+\(/ {
        name = $2
        sub(/\(.*/, "", name)
        list = $0
        sub(/^[^(]*\(/, "", list)
        count = gsub(/\[in\]/, "", list)
        if (events) print "event", name, count
        else if (kind == "call") print kind, name, count
        else print kind, name
    }' src/com/zv_task.idl)
report "$([ "$(wc -l <<<"$members")" -ge 30 ] && echo yes)" "the members of the control are not read"

has() { grep -qxF -- "$1" <<<"$members"; }

# What a file does with the control, in the words above; "read" is a read or a call without
# arguments. In all languages the control is called "task".
uses() {
    sed -E "s/^[[:space:]]*('|#|\/\/).*//; s/[[:space:]]+'[^'\"]*$//" "$1" | awk '
        function arguments(list,    depth, i, c, count, quoted) {
            gsub(/^[ \t]+|[ \t;]+$/, "", list)
            if (list == "") return 0
            count = 1
            for (i = 1; i <= length(list); i++) {
                c = substr(list, i, 1)
                if (c == "\"" || c == "\047") quoted = !quoted
                else if (!quoted && c ~ /[([{]/) depth++
                else if (!quoted && c ~ /[)\]}]/) { if (depth-- == 0) break }
                else if (!quoted && c == "," && depth == 0) count++
            }
            return i == 1 ? 0 : count
        }
        {
            # Handlers: task_Event(...), OnEvent(self, ...), event="Event(...)".
            if (match($0, /(Sub task_|def On|event=")[A-Za-z]+\(/)) {
                name = substr($0, RSTART, RLENGTH - 1)
                sub(/^(Sub task_|def On|event=")/, "", name)
                print "event", name, arguments(substr($0, RSTART + RLENGTH)) - ($0 ~ /def On/)
            }
            rest = $0
            while (match(rest, /(^|[^A-Za-z_."])\$?task\.[A-Za-z_]+/)) {
                name = substr(rest, RSTART, RLENGTH)
                sub(/.*\./, "", name)
                rest = substr(rest, RSTART + RLENGTH)
                if (rest ~ /^[ \t]*=[^=]/) print "put", name
                else if (rest ~ /^\(/) print "call", name, arguments(substr(rest, 2))
                else if (rest ~ /^[ \t]+[0-9A-Za-z"]/) print "call", name, arguments(rest)
                else print "get", name
            }
            # C++: PutText(task, L"Name", ...) and Invoke(task, L"name", ..., count).
            if (match($0, /PutText\(task, L"[A-Za-z]+"/)) {
                split(substr($0, RSTART, RLENGTH), part, "\"")
                print "put", part[2]
            }
            if (match($0, /Invoke\(task, L"[A-Za-z]+", DISPATCH_METHOD, [a-z]+, [0-9]+\)/)) {
                text = substr($0, RSTART, RLENGTH)
                split(text, part, "\"")
                sub(/.*, /, "", text)
                print "call", part[2], text + 0
            }
        }'
}

check() { # FILE
    local use count=0 wrong=
    while read -r use; do
        [ -n "$use" ] || continue
        count=$((count + 1))
        has "$use" || wrong+="$use; "
    done <<<"$(uses "$1")"
    report "$([ -z "$wrong" ] && echo yes)" "$1: the control has no such member: $wrong"
    uses_found=$count
}

if [ $# -gt 0 ]; then
    for file in "$@"; do check "$file"; done
else
    while read -r file; do
        check "$file"
        # A file that is about the control sets at least its path and its user, and calls it.
        report "$([ "$uses_found" -ge 3 ] && echo yes)" "$file: hardly any use of the control is seen"
    done <<<"$(grep -lE 'zv_Task\.zvTask|29DE1175|zvTask1' -r host/examples | sort)"
    # A manifest that names another version than that of the files keeps its program from starting.
    version=$(sed -nE 's/^project\(zvTask VERSION ([0-9.]+) .*/\1/p' CMakeLists.txt).0
    for file in host/examples/*.manifest; do
        named=$(tr '\n' ' ' <"$file" | grep -oE 'name="zv(Task|Host)" version="[0-9.]+"' | tr '\n' ' ')
        report "$([ "$named" = "name=\"zvTask\" version=\"$version\" name=\"zvHost\" version=\"$version\" " ] && echo yes)" \
            "$file names $named, the project is $version"
    done
    # The check itself: each of these lines is wrong, and none may pass.
    work=$(mktemp -d)
    trap 'rm -rf "$work"' EXIT
    number=0
    while read -r line; do
        number=$((number + 1))
        printf '%s\n' "$line" >"$work/$number.vbs"
        report "$("$0" "$work/$number.vbs" >/dev/null || echo yes)" "not noticed: $line"
    done <<'LINES'
task.userpath2 = 1
task.refresh 0
task.refresh(1, 0, 2)
x = task.UserPath
task.refresh = 1
Sub task_ItemDone(id)
def OnItemLost(self, id):
<script for="task" event="ItemSaved(id)" language="JScript">
LINES
fi
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
