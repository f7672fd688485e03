# Counts what the log of "ctest -V" shows: the tests inside of each program that CTest starts, as the
# test framework or a player of scenarios sums them up, and a program without a sum as one. Writes
# "PASSED FAILED SKIPPED"; with show=1 instead what failed tests said. A program that fails without
# a failed test of its own, such as one that crashes, counts as one failure.
{ sub(/\r$/, "") }
/^[0-9]+: / {
    id = $1 + 0
    line = substr($0, index($0, ": ") + 2)
    if (line ~ /^\[  PASSED  \] [0-9]+ test/) inside[id] += n(line, 3)
    else if (line ~ /^\[  SKIPPED \] [0-9]+ tests?, listed below/) { skipped += n(line, 3); told[id] }
    else if (line ~ /^\[  FAILED  \] [0-9]+ tests?, listed below/) broken[id] += n(line, 3)
    else if (line ~ /^[0-9]+ passed, [0-9]+ failed/) { inside[id] += n(line, 1); broken[id] += n(line, 3) }
    else if (line ~ /^\[ RUN/) { during[id] = "" }
    else if (line ~ /^\[  FAILED  \] .*ms\)$/) { said[id] = said[id] during[id] line "\n"; during[id] = "" }
    else if (line ~ /^(FAIL|FAILED) /) said[id] = said[id] line "\n"
    else if (line !~ /^\[ +OK|^\[[-=]+\]|^ok |^$/) during[id] = during[id] line "\n"
    next
}
/^ *[0-9]+\/[0-9]+ Test +#[0-9]+: / {
    match($0, /#[0-9]+/)
    id = substr($0, RSTART + 1, RLENGTH - 1) + 0
    if ($0 ~ /\*\*\*Skipped/) { if (!(id in told)) skipped++; next }
    passed += id in inside ? inside[id] : $0 !~ /\*\*\*/
    failed += broken[id]
    if ($0 !~ /\*\*\*/) next
    if (!broken[id]) failed++
    if (show) printf "%s\n%s%s\n", $0, said[id], broken[id] ? "" : during[id]
}
END { if (!show) print passed + 0, failed + 0, skipped + 0 }
function n(text, word, words) { split(text, words, /[ ,\[\]]+/); return words[word] + 0 }
