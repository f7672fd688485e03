#!/usr/bin/env bash
# Whether ./test plays again what has changed, and only that. Closes with "N passed, N failed".
set -uo pipefail
cd "$(dirname "$0")/../.."
source tests/checks.sh
source tests/unchanged.sh
unset ZV_LONG
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/checkout" "$work/built"
cd "$work/checkout" || exit 1
git init -q . && git config user.name tester && git config user.email tester@example.org
printf 'build/\n' >.gitignore
echo one >source
echo program >../built/program
git add . && git commit -qm first

stamp=$work/stamp
yes_no() { "$@" && echo yes || echo no; }
digest=$(digest_of ../built)
check "what was never played has not passed" no "$(yes_no has_passed "$stamp" "$digest")"
passes "$stamp" "$digest" false
check "what failed has not" no "$(yes_no has_passed "$stamp" "$digest")"
passes "$stamp" "$digest" true
check "what passed has" yes "$(yes_no has_passed "$stamp" "$(digest_of ../built)")"
check "without a digest nothing has" no "$(yes_no has_passed "$stamp" "")"
check "a long run plays it again" no "$(ZV_LONG=1 && yes_no has_passed "$stamp" "$digest")"
passes "$stamp" "$digest" false
check "a failure is its status" 1 $?
check "a failure afterwards counts" no "$(yes_no has_passed "$stamp" "$digest")"

# changed WHAT COMMAND...: the digest differs after the command.
changed() {
    local what=$1 before
    shift
    before=$(digest_of ../built)
    "$@"
    check "$what changes the digest" no "$(yes_no [ "$before" = "$(digest_of ../built)" ])"
}
changed "a source" eval 'echo two >source'
changed "a file that git does not know yet" eval 'echo new >other'
changed "a name" mv other another
changed "a file that is gone" rm source
changed "a commit" git commit -qam second
changed "a program" eval 'echo changed >../built/program'
changed "another program" eval 'echo program >../built/second'
before=$(digest_of ../built)
mkdir build && echo log >build/log
check "what is built elsewhere does not" "$before" "$(digest_of ../built)"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
