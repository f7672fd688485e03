# Sourced after wine.sh by what plays hours in minutes: a Wine prefix of its own, in which the clocks of
# all programs and of their server run faster (clock.c).
#
#   fast_prepare FOLDER TIME RATE   copies the prefix to FOLDER/prefix and works there from now on; the
#                                   day's clock shows TIME (UTC) and runs as every other, until
#   fast_go                         from now on, all run RATE times as fast; what is to be there by
#                                   then has started, because Wine waits so many seconds for its own
#   fast_moment                     prints the second of that clock since 1970
#   fast_stop                       ends that server, and works in the former prefix again; before the
#                                   folder goes, because the server is found by it

fast_prepare() {
    local word words=
    fast_folder=$1
    fast_rate=$3
    fast_began=
    fast_former=("$WINEPREFIX" "$ZV_WINE")
    cp -a "$WINEPREFIX" "$fast_folder/prefix"
    export WINEPREFIX=$fast_folder/prefix
    mapfile -t fast_clock < <(TZ=UTC wine_clock "$2" "$fast_folder/start" "$fast_rate")
    for word in "${fast_clock[@]}"; do
        case $word in ZV_CLOCK=*) fast_ahead=${word#ZV_CLOCK=} ;; esac
        words="$words ${word@Q}"
    done
    timeout 30 "${fast_clock[@]}" "$ZV_WINE_SERVER" -p || return
    # In front of every program that is started there.
    printf '#!/bin/sh\nexec%s TZ=UTC %s "$@"\n' "$words" "${ZV_WINE@Q}" >"$fast_folder/wine"
    chmod +x "$fast_folder/wine"
    ZV_WINE=$fast_folder/wine
    timeout 60 "$ZV_WINE" cmd /c exit
}

# In one piece, because every program reads it when it wants.
fast_go() {
    fast_began=$(date +%s)
    echo "$fast_began" >"$fast_folder/start.new"
    mv "$fast_folder/start.new" "$fast_folder/start"
}

fast_moment() {
    local now
    now=$(date +%s%N)
    # Milliseconds, so that five days at a high rate stay a number of 64 bits.
    echo $((now / 1000000000 + fast_ahead +
        (${fast_began:-0} ? (now / 1000000 - ${fast_began:-0} * 1000) * (fast_rate - 1) / 1000 : 0)))
}

fast_stop() {
    timeout 30 "$ZV_WINE_SERVER" -k
    timeout 30 "$ZV_WINE_SERVER" -w
    WINEPREFIX=${fast_former[0]} ZV_WINE=${fast_former[1]}
}
