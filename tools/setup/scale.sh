# Sourced after wine.sh by what looks at windows at several scales.
#
#   scales                 the percentages, one a line
#   at_scale PERCENT COMMAND...  runs the command on a display of its own, as large as screens of that
#                          scale usually are, in the prefix at hand; what ran there before is ended
#   scales_end             puts scale and server of the prefix back to what they were

scales() { printf '%s\n' 100 150 200 300; }

_screen_of() {
    case $1 in
        100) echo 1024x768 ;;
        150) echo 1280x1024 ;;
        200) echo 1920x1200 ;;
        300) echo 3840x2160 ;;
        *)
            echo "at_scale: not a scale: $1" >&2
            return 2
            ;;
    esac
}

# The server decides once on which display its desktop is, and programs read the resolution when they
# start.
_fresh_server() {
    timeout 30 "$ZV_WINE_SERVER" -k
    timeout 30 "$ZV_WINE_SERVER" -w
    wine_start
}

_set_dpi() {
    timeout 60 "$ZV_WINE" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$1" /f >/dev/null
}

at_scale() {
    local percent=$1 screen xvfb former=${ZV_XVFB_PID:-} before=${DISPLAY:-} status
    shift
    screen=$(_screen_of "$percent") || return
    display_start "$screen"
    xvfb=$ZV_XVFB_PID
    ZV_XVFB_PID=$former
    _fresh_server && _set_dpi $((96 * percent / 100))
    "$@"
    status=$?
    timeout 30 "$ZV_WINE_SERVER" -k
    timeout 30 "$ZV_WINE_SERVER" -w
    kill "$xvfb"
    wait "$xvfb" 2>/dev/null
    DISPLAY=$before
    return "$status"
}

scales_end() {
    wine_start
    _set_dpi 96
}
