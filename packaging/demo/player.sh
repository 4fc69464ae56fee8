# The hands and eyes of a person at a virtual display, for a script to play with: xdotool moves the mouse and
# types, board_reader looks at the screen. Nothing here knows more of the program than can be seen.

reader=build/release/packaging/demo/board_reader
pictures=build/demo
scratch=$(mktemp -d)
display=
manager=
program=
window=

cleanup() {
    for pid in $program $manager $display; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$scratch"
}
trap cleanup EXIT

fail() {
    echo "Demonstration failed: $1" >&2
    [ -z "$window" ] || echo "The title was: $(title)" >&2
    cat "$scratch"/*.log >&2
    ! $reader picture $pictures/failure.png 2>/dev/null || echo "The screen was: $pictures/failure.png" >&2
    exit 1
}

# await WHAT COMMAND...: until the command succeeds; WHAT is what is to be seen then.
await() {
    local what=$1 deadline=$((SECONDS + 20))
    shift
    until "$@"; do
        [ $SECONDS -lt $deadline ] || fail "did not see $what"
        sleep 0.05
    done
}

picture() {
    $reader picture "$pictures/$1.png" || fail "could not take the picture $1"
    echo "  picture: $pictures/$1.png"
}

# --- The display and the program -------------------------------------------------------------------------

start_display() {
    local name number
    Xvfb ${DEMO_DISPLAY:-} -displayfd 3 -screen 0 800x620x24 -nolisten tcp 3>"$scratch/number" \
        2>"$scratch/display.log" &
    display=$!
    # Nothing of the person's own settings: what is shown is what a new account shows.
    for name in $(compgen -e); do
        [ "$name" = PATH ] || unset "$name"
    done
    export HOME=$scratch XDG_RUNTIME_DIR=$scratch LANG=C.UTF-8 QT_QPA_PLATFORM=xcb
    await "a virtual display" test -s "$scratch/number"
    read -r number <"$scratch/number"
    export DISPLAY=:$number
    openbox --sm-disable >"$scratch/manager.log" 2>&1 &
    manager=$!
    await "the window manager" xdotool get_desktop >/dev/null 2>&1
}

windows() { xdotool search --onlyvisible --class '^quarvelle$' 2>/dev/null; }
one_window() { [ "$(windows | wc -l)" -eq 1 ]; }
no_window() { ! windows >/dev/null; }
geometry() { xdotool getwindowgeometry --shell "$1"; }
maximised() { geometry "$window" | grep -q '^WIDTH=800$'; }
title() { xdotool getwindowname "$window"; }
title_is() { [ "$(title)" = "$1" ]; }

see_color() { $reader color "$1" >"$scratch/color" 2>/dev/null; }

# The page's place on the screen, from its orange caption, which stands at 48, 24.
see_page() {
    see_color '#ff8000' || return
    read -r page_x page_y <"$scratch/color"
    page_x=$((page_x - 48))
    page_y=$((page_y - 24))
}

start_program() {
    setsid build/release/app/quarvelle 2>"$scratch/program.log" &
    program=$!
    await "the window" one_window
    window=$(windows)
    await "the program's name in the title" title_is Quarvelle
    await "the window fill the screen" maximised
    await "the main page" see_page
}

# Checks that the program ends by itself, well, and leaves nothing running.
ends_well() {
    local code=0
    window=
    await "the program and all it started end" nothing_runs
    wait "$program" || code=$?
    program=
    [ $code -eq 0 ] || fail "the program ended with exit code $code"
    no_window || fail "the program left a window behind"
    echo "  ended with exit code 0, nothing left running"
}
nothing_runs() { ! kill -0 -- "-$program" 2>/dev/null; }

# --- Mouse and keyboard ----------------------------------------------------------------------------------

click() { xdotool mousemove "$1" "$2" click 1; }

# Controls of the main page, by the middle of each from the page's corner.
size_box=(416 65)
start_box=(152 121)
distance_box=(208 153)
practice_button=(268 328)

# enter X Y TEXT: replaces what the box at a point of the page holds.
enter() {
    click $((page_x + $1)) $((page_y + $2))
    xdotool key ctrl+a type --delay 20 -- "$3"
}

menus_are() {
    $reader captions $((page_x + 2)) $((page_y - 17)) 790 13 across >"$scratch/menus"
    [ "$(wc -l <"$scratch/menus")" -eq "$1" ]
}

items_are() {
    local popup X Y WIDTH HEIGHT WINDOW SCREEN
    popup=$(windows | grep -v "^$window$") || return
    eval "$(geometry "$popup")"
    $reader captions $((X + 4)) $((Y + 2)) $((WIDTH - 8)) $((HEIGHT - 4)) down >"$scratch/items"
    [ "$(wc -l <"$scratch/items")" -eq "$1" ]
}

# choose MENU MENUS ITEM ITEMS: clicks an item of a menu, counted from 1, of as many as there are to be.
choose() {
    await "$2 menus" menus_are "$2"
    click $(sed -n "$1p" "$scratch/menus")
    await "a menu of $4 items" items_are "$4"
    click $(sed -n "$3p" "$scratch/items")
}

# --- The board -------------------------------------------------------------------------------------------

# The answers of the board on the screen go to $scratch/answers: where to click and what to type, a line each
# in the order in which they can be found.
read_board() { $reader board "$@" >"$scratch/answers" 2>"$scratch/reader.log"; }

read_other_board() {
    read_board "$@" && ! cmp -s "$scratch/answers" "$scratch/before"
}

# see_board ORDER START DISTANCE: waits for a board other than the last one.
see_board() {
    touch "$scratch/answers"
    cp "$scratch/answers" "$scratch/before"
    await "a new $1 by $1 board" read_other_board "$@"
    echo "  read a board of $1 by $1 with $(wc -l <"$scratch/answers") blanks and solved it line by line"
}

# type_answer X Y TEXT: without the Enter.
type_answer() {
    click "$1" "$2"
    xdotool type --delay 10 -- "$3"
}

press_enter() { xdotool key Return; }
