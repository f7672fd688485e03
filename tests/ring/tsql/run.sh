#!/usr/bin/env bash
# run.sh PROGRAM MODULES NODE: PROGRAM writes what the system sends to SQL Server, the grammar in the
# folder MODULES reads it. Closes with "N passed, N failed".
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
sent=$(mktemp)
trap 'rm -f "$sent"' EXIT
"$1" >"$sent"
NODE_PATH=$2 "$3" "$here/check.js" "$sent" "$here/refused.txt"
