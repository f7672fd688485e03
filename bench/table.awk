# The results of the programs as a table.
BEGIN {
    format = "%-54s %11s %11s %-6s %7s %-22s %4s\n"
    printf format, "measure", "ours", "floor", "", "ratio", "goal", "runs"
}
{
    ratio = $3 > 0 ? $2 / $3 : 0
    goal = ""
    met = 1
    if ($5 > 0) { goal = "<= " ($5 + 0) " x"; met = ratio <= $5 }
    if ($6 > 0) { goal = "<= " ($6 + 0) " " $4; met = $2 <= $6 }
    if (goal != "") goal = goal (met ? "  met" : "  MISSED")
    printf format, $1, sprintf("%.2f", $2), ($3 > 0 ? sprintf("%.2f", $3) : "-"), $4,
        (ratio > 0 ? sprintf("%.2f", ratio) : "-"), goal, $7
}
