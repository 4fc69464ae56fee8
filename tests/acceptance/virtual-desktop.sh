# A virtual display with a window manager, for scripts that source this; both end with the script, and so does
# the folder $scratch.
scratch=$(mktemp -d)
running=()

leave() {
    local pid
    for pid in "${running[@]}"; do
        kill "$pid" 2>/dev/null && wait "$pid" 2>/dev/null
    done
    rm -rf --one-file-system "$scratch"
}
trap leave EXIT

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# await WHAT COMMAND...: until the command succeeds.
await() {
    local what=$1 deadline=$((SECONDS + 60))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || fail "waited in vain for $what"
        sleep 0.05
    done
}

# start_display GEOMETRY
start_display() {
    Xvfb -displayfd 3 -screen 0 "$1" -nolisten tcp 3>"$scratch/display" 2>"$scratch/display.log" &
    running+=($!)
    await "the virtual display" test -s "$scratch/display"
    DISPLAY=:$(<"$scratch/display")
    export DISPLAY
    openbox --sm-disable >"$scratch/manager.log" 2>&1 &
    running+=($!)
    await "the window manager" xdotool get_desktop
}
