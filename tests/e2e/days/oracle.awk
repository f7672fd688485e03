# Judges what somebody saw who sat in front of the alerter. A line each, in order of time, tab between:
#
#   MOMENT due TITLE       there is such an item, due from then on
#   MOMENT told TITLE      a look at the window found it there, and the look before did not
#   MOMENT later TITLE     it was put off until then
#   MOMENT over TITLE      it was done or dismissed
#   MOMENT end             nothing was looked at after it
#
# MOMENT: in seconds. Prints a line for each fault and "N passed, N failed", a reminder counting as one.
BEGIN { FS = "\t" }
function fault(what) {
    failed++
    print "FAIL " what ": " $3 " at " $1
}
$2 == "due" { next_at[$3] = $1 }
$2 == "told" {
    if (over[$3]) fault("a reminder of what is over")
    else if (!($3 in next_at)) fault("a reminder of nothing")
    else if (next_at[$3] == "") fault("a reminder that was not answered comes again")
    else if ($1 < next_at[$3]) fault("a reminder before its time")
    else {
        passed++
        lateness[passed] = $1 - next_at[$3]
    }
    next_at[$3] = ""
}
$2 == "later" { next_at[$3] = $1 }
$2 == "over" { over[$3] = 1 }
$2 == "end" {
    for (title in next_at) {
        if (next_at[title] == "" || over[title] || next_at[title] > $1) continue
        failed++
        print "FAIL no reminder: " title
    }
    for (i in lateness) if (lateness[i] > latest) latest = lateness[i]
    printf "reminders: %d, the latest seen %d seconds of its clock after its time\n", passed, latest
    print passed + 0 " passed, " failed + 0 " failed"
    exit failed > 0
}
