#!/usr/bin/env bash
# Which lines and branches of the portable sources the native tests reach, by folder: unit tests, the
# contract, scenarios and the ring's harnesses except the longest. Installs clang 16 when it is
# missing, builds the preset native-coverage and plays them; a server of its own stands by. The table
# is printed, the lines that nothing reaches are listed in build/coverage/unreached.txt, and each
# source with its counts beside the lines in build/coverage/sources. Not part of ./test:
#
#   ZV_LONG=1 tests/coverage/run.sh
set -uo pipefail
cd "$(dirname "$0")/../.."
root=$PWD
work=$root/build/coverage
if [ -z "${ZV_LONG:-}" ]; then
    echo "this takes long: ZV_LONG=1 $0"
    exit 1
fi
source tools/setup/compiler_cache.sh
{ tools/setup/packages && tools/setup/clang16; } || exit 1
cmake --preset native-coverage >/dev/null && cmake --build --preset native-coverage || exit 1

rm -rf "$work"
mkdir -p "$work/counts"
# The counts stand in files that a program shares with its children, so that what a child does counts
# also when it ends without a word. Two tests are left out: one lets a program write no more than a small
# file, the other asks for the version of the usual compiler.
LLVM_PROFILE_FILE=$work/counts/%p%c.profraw \
    GTEST_FILTER='-ImportProcess.ADiskThatTakesNoMoreIsAnError:ZvdbUsage.ReportsItsVersion*' \
    tests/server/postgresql.sh with ctest --preset native-coverage -j"$(nproc)" -LE ring >"$work/tests.log" 2>&1
status=$?
llvm-profdata-16 merge -sparse "$work"/counts/*.profraw -o "$work/counts.profdata" || exit 1
programs=()
for program in build/native-coverage/bin/*; do
    [ ! -x "$program" ] || [ -d "$program" ] || programs+=(-object "$program")
done
sources=(-ignore-filename-regex='/(tests|build|usr)/')
llvm-cov-16 export -format=lcov -instr-profile "$work/counts.profdata" "${sources[@]}" \
    "${programs[@]}" >"$work/trace" 2>"$work/llvm-cov.log" || { cat "$work/llvm-cov.log"; exit 1; }
llvm-cov-16 show -format=text -show-branches=count -output-dir "$work/sources" \
    -instr-profile "$work/counts.profdata" "${sources[@]}" "${programs[@]}" 2>>"$work/llvm-cov.log"
node tests/coverage/sum.js "$work/trace" "$root" "$work/unreached.txt" || exit 1
[ "$status" -eq 0 ] || { echo "tests failed: build/coverage/tests.log"; exit 1; }
