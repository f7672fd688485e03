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

check "nothing lies at the top that a run left behind" \
    "$(git ls-files -- ':(glob)*' |
        grep -vxE 'CHANGELOG.md|CMakeLists.txt|CMakePresets.json|README.md|THIRD-PARTY.md|run|test|\.[a-z-]+')"

check "src includes nothing of host, tools and tests" \
    "$(sources src | xargs grep -nE '#include "(host|tools|tests)/')"

# Folders below host/, tools/ and tests/ are named without theirs in front.
played='driver|test_server|zvdb|zvscript'
check "what ships includes nothing of tools and tests" \
    "$(sources src host | xargs grep -nE "#include \"($played|doubles|application|contract|forms/headless)/" |
        grep -v '^src/forms/headless/')"
check "what ships links nothing that plays the user" \
    "$(git ls-files -co --exclude-standard -- src host | grep 'CMakeLists.txt$' |
        xargs grep -nE 'zv_(driver|doubles|test|zvscript|zvdb)|LINK.*zv_forms_headless')"

# A folder may include only folders that stand before it in this list, and itself.
order=(base automation store platform resources suite changes items cards staff plans reminders forms progress session reports windows control com)
allowed=
for folder in "${order[@]}"; do
    allowed="$allowed${allowed:+|}$folder"
    check "src/$folder depends on nothing behind it" \
        "$(sources "src/$folder" | xargs -r grep -nE '#include "[a-z]+/' | grep -vE "#include \"($allowed)/")"
done

check "items, plans, cards and staff know no window, no machine and no session" \
    "$(sources src/suite src/changes src/items src/plans src/cards src/staff |
        xargs grep -nE '#include "(forms|platform|session)/')"

check "a plan, its rules and its dates know no database" \
    "$(grep -nE '#include "store/|#include "plans/plan_(row|saving|store|items)' \
        src/plans/plan.h src/plans/plan_rules.* src/plans/occurrences.*)"

# zvdb works without a display and without a control.
check "zvdb includes nothing of windows" \
    "$(sources tools/zvdb | xargs grep -nE '#include "(forms|progress|session|reports|windows|control|com)/')"
check "zvdb links nothing of windows" \
    "$(grep -nE 'zv_(forms|progress|session|reports|windows|control|com)' tools/zvdb/CMakeLists.txt)"

# The domain writes the statements; a window may at most hand one on.
statements='"([^"]* )?(select|insert|update|delete) [^"]*"'
check "only the domain and the store write statements" \
    "$(sources src | grep -vE '^src/(changes|items|plans|reminders|cards|staff|suite|store)/' | xargs grep -niE "$statements")"
check "the statements of the domain are seen" \
    "$([ "$(sources src/items src/plans src/cards src/staff | xargs grep -hiE "$statements" | wc -l)" -ge 20 ] ||
        echo "fewer than there are")"

# A panel is put together with others by the window; it may share the model and a table of boxes.
check "no panel includes the window, an act or another panel" \
    "$(sources src/windows/main/panels | while read -r file; do
        own=$(basename "${file%.*}")
        grep -nE '#include "windows/main/(acts/|frm_|panels/[a-z_]*panel\.h)' "$file" |
            grep -v "panels/$own\.h" | sed "s|^|$file:|"
    done)"
check "no act includes the window" \
    "$(sources src/windows/main/acts | xargs grep -nE '#include "windows/main/frm_')"

# What is said stands in the resources, in a file for each language; the demonstration host has one
# of its own, and what zvdb makes up and a random user types is data.
check "no Chinese text outside the resources" \
    "$(sources src host tools |
        grep -vE '^(src/resources/|host/demo/demo_texts\.h$|tools/zvscript/monkey/played_words\.cpp$|tools/zvdb/(words|own_modules|sample_[a-z]+)\.cpp$)' |
        LC_ALL=C.UTF-8 xargs grep -nP '[\x{4E00}-\x{9FFF}]')"
check "texts of a language stand in its file" \
    "$(sources src/resources |
        grep -vE '^src/resources/(languages/[a-z]+|fixed_texts|glyph_samples)\.h$' |
        LC_ALL=C.UTF-8 xargs grep -nP '[\x{4E00}-\x{9FFF}]')"

check "no test for the operating system outside the ports" \
    "$(sources src | grep -vE '^src/(automation|com|[a-z]+/(win32|ado|odbc|sqlite|headless|scripted))/' |
        xargs grep -nE '_WIN32|windows\.h')"

# What stands in for a port is found in one place. A scenario has boxes and a database of its own;
# their comments say why.
ports='Dialogs|ConnectionOpener|StatementObserver|Clock|AnsiCodePage|Shell|FileSystem|OutputFile'
ports="$ports|ModuleRunner|ReportPrinter|SettingsStore|PropertyBag|store::Connection|Recordset"
stands_in="(\\b(public|protected|private)|^ *struct +[A-Za-z]+( final)? *:) ([a-z]+::)*($ports)( |,|\\{|$)"
check "what stands in for a port is a double" \
    "$(sources tests bench tools |
        grep -vE '^(tests/doubles/|tools/zvscript/scripted_(dialogs|database)\.h$)' |
        xargs grep -nE "$stands_in")"
check "the doubles are seen" \
    "$([ "$(sources tests/doubles tools/zvscript | xargs grep -hE "$stands_in" | wc -l)" -ge 16 ] ||
        echo "fewer than there are")"
check "no two doubles have one name" \
    "$(sources tests/doubles tests/application tools/zvscript src/platform/scripted bench |
        grep '\.h$' | xargs sed -nE 's/^(class|struct) ([A-Za-z]+).*[{:].*/\2/p' | sort | uniq -d)"
check "a double knows only ports" \
    "$(sources tests/doubles | xargs grep -nE '#include "' |
        grep -vE '#include "(base|store|platform|resources|forms|doubles)/|"control/property_bag\.h"')"
check "tools know of the tests only the doubles" \
    "$(sources tools | xargs grep -nE '#include "(application|contract|unit)/')"

check "no source tells when it is built" \
    "$(sources src host tools | xargs grep -nE '__(DATE|TIME|TIMESTAMP)__')"

check "nothing is thrown at the system" \
    "$(sources src/{base,forms,platform}/win32 src/{automation,com,store/ado} host |
        xargs -n1 awk -f tests/house/boundary.awk)"

# What serves and calls automation objects stands in one folder.
# once NAME PATTERN FILES: code that fits PATTERN stands in src/automation and in FILES only, beside
# the examples, which are programs of other people.
once() {
    check "$1" "$(sources src host tools | grep -vE "^(src/automation/|host/examples/|$3)" |
        xargs awk -v pattern="$2" '{
            code = $0
            sub(/(^|[^:])\/\/.*/, "", code)
            if (code ~ pattern) print FILENAME ":" FNR ": " $0
        }')"
    check "what is for src/automation is seen: $1" \
        "$(sources src/automation | xargs grep -qE "$2" || echo "nothing fits")"
}
none='(none)'
# The demonstration host is a container of its own: it answers ambient properties and events.
container='host/demo/(control_site|property_bag|embedded_control|demo_window)\.'
once "class factories stand in src/automation" 'IClassFactory' "$none"
once "the path of a file is asked for in src/automation" 'GetModuleFileName' "$none"
# The workstation's settings are values, no classes.
once "classes are registered in src/automation" \
    'Reg(CreateKey|SetValue|SetKeyValue|DeleteTree|DeleteKey)' 'src/resources/win32/registry_settings\.'
# The control's dispatch interface is declared with its functions; its two halves hand a call on.
once "late-bound calls are made and answered in src/automation" \
    'DISPPARAMS|(->|[.])Invoke[(]' "src/com/(automation\.h|members\.cpp)|$container"
once "objects of automation are made of src/automation" \
    '[:,] *(public +)?IDispatch( |,|$)' "src/com/ids\.h|$container"
once "objects are made by name in src/automation" 'CLSIDFromProgID' "$container"
once "automation values are read in src/automation" \
    'ChangeType(Ex)?[(](VT_|.*, VT_)|DISP_E_PARAMNOTFOUND' "src/base/win32/(variant|com_error)\.h|$container"

# Lines are broken by one version of the tool; another one breaks some of them differently.
check "the formatter is that of the team" \
    "$(clang-format --version 2>&1 | grep -q 'version 14\.' || clang-format --version 2>&1)"
check "sources are formatted" \
    "$(sources src host tools tests bench | xargs clang-format --dry-run 2>&1 | grep ': warning:')"

# A check is switched off in the list of checks, and its reason stands above.
switched_off=$(sed -nE 's/^  -([a-z][a-zA-Z.-]*),?$/\1/p' .clang-tidy | sort)
check "every check that is off has its reason, and every reason its check" \
    "$(diff <(sed -nE 's/^#  ([a-z]+-[a-zA-Z.-]+) +[^ ].*/\1/p' .clang-tidy | sort) <(echo "$switched_off"))"
check "checks that are off are seen" "$([ -n "$switched_off" ] || echo none)"
check "a source that switches a check off says which, and why" \
    "$(sources src host tools tests bench | xargs grep -nE 'NOLINT' |
        grep -vE '// NOLINT(NEXTLINE)?\([a-zA-Z.,-]+\): [a-z]')"

# The checks of clang-tidy look for these in the file alone that is compiled, which is a batch.
check "every name that a source takes from elsewhere is used there" \
    "$(sources src host tools tests bench | xargs awk '
        FNR == 1 { report() }
        { text[FNR] = $0; lines = FNR; file = FILENAME }
        END { report() }
        function report(  name, line, uses, i, name_at) {
            for (i = 1; i <= lines; i++) {
                if (file !~ /\.cpp$/ || text[i] !~ /^using [A-Za-z_:]+::[A-Za-z_]+;/) continue
                name = text[i]
                sub(/;.*/, "", name)
                sub(/.*::/, "", name)
                uses = 0
                for (line = 1; line <= lines; line++)
                    if (line != i && text[line] ~ "(^|[^A-Za-z0-9_])" name "($|[^A-Za-z0-9_])") uses++
                if (!uses) print file ":" i ": " text[i]
            }
            lines = 0
        }')"

# Words that say less than the plain ones: report, show, state, distinguish; discard; entry point;
# the user who, the caller that.
check "names and comments use plain words" \
    "$(sources src host tools | grep -v '^src/resources/' | xargs awk '
        {
            comment = match($0, /(^|[^:"])\/\/.*/) ? substr($0, RSTART) : ""
            code = comment == "" ? $0 : substr($0, 1, RSTART - 1)
            gsub(/"([^"\\]|\\.)*"/, "", code)
            said = " " tolower(comment) " "
            if (said ~ /[^a-z](tell|tells|told|telling|bury|buries|buried|doors?|whoever)[^a-z]/ ||
                code ~ /(^|[^a-z])(Tell|Tells|Telling|Told|Bury|Buried|Become|Becomes|Door|Doors|Whoever)([A-Z_(]|$|[^a-z])/ ||
                code ~ /(^|[^A-Za-z0-9_"])(told|tells|telling|bury|whoever)([A-Z_][A-Za-z0-9_]*)?[ ,;().=]/)
                print FILENAME ":" FNR ": " $0
        }')"

# A new engine is a folder in src/store/engines and an entry in the list of src/store/CMakeLists.txt.
# Others may name an engine where all of a folder or file is about that one: the embedded engine,
# the reader of Access files, the engines of tests and scenarios, the words of a help text.
engine_names='Postgre|SqlServer|SQL Server|psqlodbc|FreeTDS|OLEDB\.|Jet OLEDB|"(postgresql|sqlserver|sqlite|access)"'
of_one_engine='src/store/(engines|sqlite)/|tools/zvdb/(access/|command_line\.cpp)|tools/test_server/|tools/zvscript/script_engine\.cpp|src/resources/|host/demo/'
check "only the folders of the engines distinguish engines" \
    "$(sources src host tools | grep -vE "^($of_one_engine)" |
        xargs awk -v names="$engine_names" '{
            code = $0
            sub(/(^|[^:])\/\/.*/, "", code)
            if (code ~ names) print FILENAME ":" FNR ": " $0
        }')"

check "no source file is longer than 600 lines" \
    "$(sources src host tools tests bench | xargs env LC_ALL=C wc -l | awk '$2 != "total" && $1 > 600')"

# On a machine that has much else to do, a server's answer takes longer than a user would wait.
# Time limits are tested by tests that set their own.
check "tests wait for a server patiently" \
    "$(sources tests tools bench | xargs grep -lE '\bOpenOdbc\(' |
        grep -vE '^(tools/zvdb|bench)/|^tests/doubles/engine_opener.h$' |
        xargs grep -LE '\bPatient\(|connectLimit =')"

# Rows of these tables have verbs, which know their columns. "insert ... select" has none.
check "scenarios bring rows in by their verbs" \
    "$(git ls-files -co --exclude-standard -- 'tests/scenarios/*.zvs' |
        grep -vx tests/scenarios/language/database.zvs |
        xargs grep -niE '\bsql .*\binsert into +(tTaskList|tTaskSet|cards|tRsBasic)\b[^)]*\) *values')"

# An error of the store that has words of its own is of a kind, so that the user reads it in his
# language; "Other" leaves that to the number, which must say more than that a database failed.
errors=$(sources src/store | xargs awk 'BEGIN { RS = ";" }
    /RuntimeError\([^,()]*,/ {
        gsub(/[ \n]+/, " ")
        print (!/\.Of\(/ || (/Of\(ErrorKind::Other\)/ && /DatabaseFailure/) ? "no kind " : "kind ") \
            FILENAME ":" $0
    }')
check "every error of the store that has words has a kind" "$(grep '^no kind' <<<"$errors")"
check "the errors of the store are seen" \
    "$([ "$(grep -c '^kind' <<<"$errors")" -ge 20 ] || echo "$errors")"

# in_documents PATTERN: what fits it, "FILE:LINE:TEXT" each.
in_documents() {
    git ls-files -co --exclude-standard -- '*.md' ':!CHANGELOG.md' | xargs grep -noP "$1" | sort -u
}
named() { in_documents "(?<=\`)(?:$1)(?=\`)"; }

# check_each NAME TEST: reads what in_documents wrote and passes when TEST FILE TEXT holds for each,
# of which there must be some.
check_each() {
    local file line text seen=0 missing=
    while IFS=: read -r file line text; do
        seen=$((seen + 1))
        "$2" "$file" "$text" || missing+="$file:$line: $text"$'\n'
    done
    [ "$seen" -gt 0 ] || missing="nothing to look at"
    check "$1" "${missing%$'\n'}"
}

# Windows of the control are opened by scenarios, those of the report component by a test.
is_measured() {
    local window
    window=$(grep -oP 'class \K\w+' <<<"$2")
    grep -qE "^expect $window\.faults == \"\"" tests/scenarios/layout/*.zvs ||
        grep -qE "Faults\(.*\b$window\b|\b$window& form = Open" tests/contract/report_layout_contract.cpp
}
check_each "every window is measured in tests/scenarios/layout or tests/contract/report_layout_contract.cpp" \
    is_measured < <(sources src host | xargs grep -nE 'class \w+ (final )?: public (forms::)?Form\b')

# From the root of the checkout or from the document's folder; "*" stands for any text.
is_path() { compgen -G "$2" >/dev/null || compgen -G "$(dirname "$1")/$2" >/dev/null; }

# Scope::name is a word of a file that declares the scope; the parts of Window.control(index), or a
# name in capitals and small letters, are words of one file.
is_name() {
    local found word pattern
    found=$(git ls-files -co --exclude-standard -- src host tools packaging)
    for word in $(sed -E 's/\(.*//; s/::/:: /g; s/\./ /g' <<<"$2"); do
        pattern="\\b$word\\b"
        [[ $word == *:: ]] &&
            pattern="\\b(class|struct|namespace) .*\\b${word%::}(\$|([ {]|:[^:])[^;]*\$)"
        found=$(xargs -r grep -lE "$pattern" <<<"$found")
    done
    [ -n "$found" ]
}

# Behind a first name a path has a slash, or an ending that only sources have. What is made later
# lies in build/ and out/.
paths='(?!build/|out/)[\w.][\w.*-]*/[\w./*-]*|[a-z0-9_]+\.(?:h|cpp|sh|cmake|zvs|py)'
check_each "every path in the documents exists" is_path < <(named "$paths")
check_each "every link in the documents leads to a file" is_path < <(
    in_documents '(?<=\]\()[^)#:]+(?=[)#])')

control='(?:cmd|txt|cbo|cob|chk|opt|lbl|mnu|tvw|pic|fra|frm|lst)[A-Z]\w*'
names="(?:[A-Za-z_]\w*::)+[A-Za-z_]\w*|$control(?:\.$control)?(?:\(\w+\))?|(?:[A-Z][a-z]+){2,}"
check_each "every name in the documents is one of the sources" is_name < <(named "$names")

echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
