# Sourced by ./run, ./test and the scripts that start Windows programs: a Wine prefix of the
# project's own for each width of programs, a display, and one way to start a program.
#
#   wine_width 64|32      whose programs are run from here on: sets ZV_WIDTH, ZV_WINE, WINEPREFIX,
#                         and the folders ZV_BIN of what ships and ZV_TEST_BIN of what tests it
#   wine_prepare          makes the prefix when it is missing, and the 32-bit Wine (see wine32)
#   wine_start            a display when there is none, and a Wine server that stays
#   wine_run PROGRAM ...  runs a Windows program under a time limit
#   wine_output PROGRAM ...  the same, and prints what it says with the line ends of this system
#   wine_clock TIME [START RATE]  prints the words that, in front of a program, set the clock of its
#                         day, and make all its clocks RATE times as fast from the second that the
#                         file START holds as soon as it is there (clock.c)
#   wine_register FILE    registers a control or a component
#   wine_stop             ends what wine_start started, of both widths
#
# Without wine_width the width is ZV_WIDTH, or 64; a prefix and folders that are set already are
# kept, unless they are of the other width. Paths are the same for both: drive Z is this system's
# root.

ZV_ROOT=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml=;winemenubuilder.exe="

wine_width() {
    local width=$1 preset unpacked=$ZV_ROOT/build/wine/i386
    [ "${ZV_WIDTH:-$width}" = "$width" ] || unset WINEPREFIX ZV_BIN ZV_TEST_BIN
    export ZV_WIDTH=$width
    case $width in
        64)
            preset=windows-x64
            export ZV_WINE=/usr/lib/wine/wine64 WINEPREFIX=${WINEPREFIX:-$ZV_ROOT/build/wine/prefix}
            ZV_WINE_SERVER=/usr/lib/wine/wineserver64
            unset ODBCSYSINI
            ;;
        32)
            preset=windows-x86
            export ZV_WINE=$unpacked/usr/lib/wine/wine WINEPREFIX=${WINEPREFIX:-$ZV_ROOT/build/wine/prefix32}
            ZV_WINE_SERVER=$unpacked/usr/lib/wine/wineserver
            # Its drivers of databases are not those of the system.
            export ODBCSYSINI=$unpacked/etc
            ;;
        *)
            echo "wine_width: 64 or 32, not $width" >&2
            return 2
            ;;
    esac
    if [ -z "${ZV_BIN:-}" ]; then
        export ZV_BIN=$ZV_ROOT/build/$preset-release/bin ZV_TEST_BIN=${ZV_TEST_BIN:-$ZV_ROOT/build/$preset/bin}
    fi
}
wine_width "${ZV_WIDTH:-64}"

# The locale decides the ANSI code page that Windows programs see: 936 for zh_CN. The project makes
# its own, so that the system's need not change.
_wine_locales() {
    local name
    export LOCPATH=$ZV_ROOT/build/wine/locale
    mkdir -p "$LOCPATH"
    for name in zh_CN zh_TW en_US; do
        [ -d "$LOCPATH/$name.UTF-8" ] || LC_ALL=C localedef -i "$name" -f UTF-8 "$LOCPATH/$name.UTF-8"
    done
    export LC_ALL=${ZV_LOCALE:-zh_CN.UTF-8}
}
_wine_locales

_wine_settings() {
    local file=$WINEPREFIX/zv-settings.reg font
    {
        printf 'Windows Registry Editor Version 5.00\r\n\r\n'
        # A crash ends the program at once instead of waiting at a box.
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\WineDbg]\r\n"ShowCrashDialog"=dword:00000000\r\n\r\n'
        # Wine draws the frames itself, so no window manager is needed.
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="N"\r\n\r\n'
        printf '[HKEY_CURRENT_USER\\Software\\Wine\\Fonts\\Replacements]\r\n'
        for font in "Microsoft YaHei UI" "Microsoft JhengHei UI" SimSun "MS Shell Dlg" \
            "MS Shell Dlg 2" Tahoma "Segoe UI"; do
            printf '"%s"="WenQuanYi Micro Hei"\r\n' "$font"
        done
        # The pictures of a theme are stretched point by point, in this width with numbers that take
        # windows three times as long. So they are tested with a theme in one width, in the other without.
        [ "$ZV_WIDTH" = 64 ] || printf '%s\r\n"ThemeActive"="0"\r\n' \
            '[HKEY_CURRENT_USER\Software\Microsoft\Windows\CurrentVersion\ThemeManager]'
    } >"$file.new"
    cmp -s "$file.new" "$file" && return
    timeout 60 "$ZV_WINE" regedit /S "$file.new" && mv "$file.new" "$file"
}

wine_prepare() {
    [ "$ZV_WIDTH" = 64 ] || "$ZV_ROOT/tools/setup/wine32" || return
    [ -e "$WINEPREFIX/zv-ready" ] && _wine_settings && return
    echo "preparing a Wine prefix of $ZV_WIDTH bits (once)"
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    DISPLAY= timeout 180 "$ZV_WINE" wineboot -i >/dev/null 2>&1 && _wine_settings &&
        timeout 60 "$ZV_WINE_SERVER" -w && touch "$WINEPREFIX/zv-ready"
}

# display_start WIDTHxHEIGHT: a display of its own from now on, whose process is ZV_XVFB_PID.
display_start() {
    local number
    number=$(mktemp)
    Xvfb -displayfd 3 -screen 0 "${1}x24" -nolisten tcp 3>"$number" >/dev/null 2>&1 &
    ZV_XVFB_PID=$!
    for _ in $(seq 100); do
        [ -s "$number" ] && break
        sleep 0.1
    done
    DISPLAY=:$(cat "$number")
    export DISPLAY
    rm -f "$number"
}

wine_start() {
    if [ -z "${DISPLAY:-}" ] || ! xdpyinfo >/dev/null 2>&1; then
        display_start 1600x1200
    fi
    # A server that stays and one program's start make every later start quick.
    timeout 30 "$ZV_WINE_SERVER" -p
    _wine_started["$WINEPREFIX"]=$ZV_WINE_SERVER
    timeout 60 "$ZV_WINE" cmd /c exit
}

wine_run() { timeout "${ZV_WINE_TIMEOUT:-300}" "$ZV_WINE" "$@"; }

# The first program with a window starts one for the desktop, which keeps the first one's output open
# as long as any window stands: a pipe would not end.
wine_output() {
    local file status
    file=$(mktemp)
    wine_run "$@" >"$file" 2>&1
    status=$?
    tr -d '\r' <"$file"
    rm -f "$file"
    return "$status"
}

wine_clock() {
    local library=$ZV_ROOT/build/wine/clock$ZV_WIDTH.so source=$ZV_ROOT/tools/setup/clock.c
    if [ ! "$library" -nt "$source" ]; then
        gcc -m"$ZV_WIDTH" -O2 -Wall -Wextra -Werror -Wno-builtin-declaration-mismatch -fPIC -shared -nostdlib \
            -ffreestanding -o "$library.new" "$source" && mv "$library.new" "$library" || return
    fi
    printf '%s\n' env "LD_PRELOAD=$library" "ZV_CLOCK=$(($(date -d "$1" +%s) - $(date +%s)))"
    [ -z "${2:-}" ] || printf '%s\n' "ZV_CLOCK_START=$2" "ZV_CLOCK_RATE=$3"
}

wine_register() { timeout 60 "$ZV_WINE" regsvr32 /s "$(winepath_of "$1")"; }

# A path of this system as Windows programs see it.
winepath_of() { printf 'Z:%s' "$(realpath "$1")" | tr / '\\'; }

# The servers of this shell, by their prefixes.
declare -A _wine_started
wine_stop() {
    local prefix
    for prefix in "${!_wine_started[@]}"; do
        WINEPREFIX=$prefix timeout 30 "${_wine_started[$prefix]}" -k || true
        WINEPREFIX=$prefix timeout 30 "${_wine_started[$prefix]}" -w || true
        unset "_wine_started[$prefix]"
    done
    if [ -n "${ZV_XVFB_PID:-}" ]; then
        kill "$ZV_XVFB_PID" 2>/dev/null || true
        wait "$ZV_XVFB_PID" 2>/dev/null || true
        unset ZV_XVFB_PID
    fi
}
