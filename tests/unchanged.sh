# Sourced by ./test: what only the checkout, the system's packages and what was built decide is not
# played again while they are as they were when it passed. With ZV_LONG=1 everything is.
#
#   digest_of PATH...         one word for the checkout in the working folder, the packages and those
#                             files, or the files in those folders
#   has_passed STAMP DIGEST   whether the file STAMP says that it passed with this digest
#   passes STAMP DIGEST COMMAND...   runs the command, and writes STAMP when it passes

digest_of() {
    {
        git rev-parse HEAD
        # A file that is gone and one that is new are differences, too.
        git ls-files -cdo --exclude-standard -z | LC_ALL=C sort -zu | xargs -0 sha256sum
        dpkg-query -W
        for path; do find "$path" -type f -print0 | LC_ALL=C sort -z | xargs -0 sha256sum; done
    } 2>&1 | sha256sum | cut -d' ' -f1
}
has_passed() { [ -z "${ZV_LONG:-}" ] && [ -n "$2" ] && [ "$(cat "$1" 2>/dev/null)" = "$2" ]; }
passes() {
    local stamp=$1 digest=$2 status
    shift 2
    rm -f "$stamp"
    "$@"
    status=$?
    [ "$status" -ne 0 ] || echo "$digest" >"$stamp"
    return "$status"
}
