#!/usr/bin/env bash
# run.sh PROGRAM ZVSCRIPT MODULES NODE: PROGRAM writes what the system sends to SQL Server, ZVSCRIPT
# plays random users, and the grammar in the folder MODULES reads all of the first and one of each form
# that the users send. With ZV_LONG=1 there are ZV_SEEDS of them (200), from ZV_SEED (1) on. Closes with
# "N passed, N failed".
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$1" >"$work/sent"
steps=300
first=${ZV_SEED:-1}
users=$([ -n "${ZV_LONG:-}" ] && echo "${ZV_SEEDS:-200}" || echo 6)
for ((seed = first; seed < first + users; seed++)); do
    "$2" --statements "$work/seed $seed.log" --monkey "$seed" "$steps" "$work/users.zvs" \
        >"$work/users" || { cat "$work/users"; exit 1; }
done
"$4" "$here/forms.js" "$work"/seed*.log >"$work/forms"
forms=$(wc -l <"$work/forms")
echo "$forms forms of $(cat "$work"/seed*.log | wc -l) statements of random users"
# Far fewer than there are: users who send nothing would prove nothing.
[ "$forms" -ge 20 ] || { echo "0 passed, 1 failed"; exit 1; }
cat "$work/forms" >>"$work/sent"
NODE_PATH=$3 "$4" "$here/check.js" "$work/sent" "$here/refused.txt"
