#!/usr/bin/env bash
# The rules of the house that a machine can check: dependencies point one way, the operating
# system stays behind the ports, files stay small, and the documents name only what exists.
set -uo pipefail
cd "$(dirname "$0")/../.."
passed=0
failed=0

# check NAME OUTPUT: passes when OUTPUT is empty.
check() {
    if [ -z "$2" ]; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        printf 'FAIL %s\n%s\n' "$1" "$2"
    fi
}

sources() { git ls-files -co --exclude-standard -- "$@" | grep -E '\.(h|cpp)$'; }

check "src includes nothing of host, tools and tests" \
    "$(sources src | xargs grep -nE '#include "(host|tools|tests)/')"

# A folder may include only folders that stand before it in this list, and itself.
order=(base store platform resources forms session scheduling reports mainwindow control com)
allowed=
for folder in "${order[@]}"; do
    allowed="$allowed${allowed:+|}$folder"
    check "src/$folder depends on nothing behind it" \
        "$(sources "src/$folder" | xargs -r grep -nE '#include "[a-z]+/' | grep -vE "#include \"($allowed)/")"
done

check "no test for the operating system outside the ports" \
    "$(sources src | grep -vE '^src/(com|[a-z]+/(win32|ado|odbc|sqlite|headless|scripted))/' |
        xargs grep -nE '_WIN32|windows\.h')"

check "no source file is longer than 600 lines" \
    "$(sources src host tools tests bench | xargs env LC_ALL=C wc -l | awk '$2 != "total" && $1 > 600')"

# A path in a document stands between backquotes and holds a slash.
missing=$(grep -noE '`(src|host|tools|tests|bench|docs|cmake)/[A-Za-z0-9_./-]*`' README.md docs/*.md |
    while IFS=: read -r file line path; do
        path=${path//\`/}
        [ -e "$path" ] || echo "$file:$line: $path"
    done)
check "every path in the documents exists" "$missing"

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
