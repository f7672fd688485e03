#!/usr/bin/env bash
# Makes one small fault at a time in the product, plays the tests that meet it and tells which faults
# nobody noticed. All faults are built into one set of programs and switched on one at a time. Takes
# long, and is not part of ./test:
#
#   ZV_LONG=1 tests/ring/mutants/run.sh                   200 faults (ZV_MUTANTS), chosen by ZV_SEED (1);
#                                                         goes on where it ended;
#                                                         ZV_FOLDERS="domain store": only of these
#   ZV_LONG=1 tests/ring/mutants/run.sh folder PATH|NAME  all of a folder of the sources or the report
#   ZV_LONG=1 tests/ring/mutants/run.sh again ID...       these once more
#   ZV_LONG=1 tests/ring/mutants/run.sh prepare           only builds and measures the tests
#   tests/ring/mutants/run.sh report                      what is known of the faults of ZV_SEED
#   tests/ring/mutants/run.sh show ID...                  a fault as a change of its file
#
# What is built and found lies in build/ring/mutants. ZV_JOBS (2) at a time.
set -euo pipefail
cd "$(dirname "$0")/../../.."
if [[ ! "${1:-}" =~ ^(show|report)$ ]] && [ -z "${ZV_LONG:-}" ]; then
    echo "this takes long: ZV_LONG=1 $0 $*"
    exit 1
fi
source tools/setup/compiler_cache.sh
exec node tests/ring/mutants/main.js "$@"
