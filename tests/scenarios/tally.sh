# Sourced by what plays scenarios with several players at once.

# tally FOLDER COUNT: adds up what the players' logs in FOLDER show and closes with
# "N passed, N failed". A player that broke off wrote no count: what it should have played of COUNT
# has failed.
tally() {
    awk -v files="$2" '
        /^[0-9]+ passed, [0-9]+ failed/ { passed += $1; failed += $3 }
        END {
            if (passed + failed < files) failed = files - passed
            printf "%d passed, %d failed\n", passed, failed
        }' "$1"/*
}
