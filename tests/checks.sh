# Sourced by suites that compare what they find with what they expect, and close with "N passed,
# N failed".
passed=0
failed=0

check() { # WHAT EXPECTED ACTUAL
    if [ "$2" = "$3" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL %s\n  expected: %s\n  got:      %s\n' "$1" "$2" "$3"
    fi
}
