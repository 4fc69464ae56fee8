#!/usr/bin/env bash
# Plays Quarvelle as a person would. Ends with 0 only if every title and every board was the one to expect;
# pictures go to build/demo. DEMO_DISPLAY=:N chooses the number of the virtual display.
set -euo pipefail
cd "$(dirname "$0")/../.."

packaging/install-packages.sh build demo
cmake --preset release
cmake --build --preset release --target quarvelle board_reader
rm -rf build/demo
mkdir -p build/demo
. packaging/demo/player.sh

# expect_score ORDER SOLVED CORRECT INCORRECT
expect_score() {
    local score="solved: $2 / Numbers correct: $3 / Numbers incorrect: $4"
    await "the score $score" title_is "Number of ($1 by $1) Complete Magic Square(s) $score"
}

# practise ORDER START DISTANCE
practise() {
    click $((page_x + practice_button[0])) $((page_y + practice_button[1]))
    expect_score "$1" 0 0 0
    see_board "$@"
}

# answer ORDER START DISTANCE COUNT: answers the first blanks of a fresh square right, and reads the board
# again to see that the numbers stand there.
answer() {
    local x y text correct=0
    while read -r x y text; do
        type_answer "$x" "$y" "$text"
        press_enter
        expect_score "$1" 0 $((++correct)) 0
    done < <(head -n "$4" "$scratch/answers")
    tail -n +$(($4 + 1)) "$scratch/answers" | sort >"$scratch/left"
    await "the answers on the board" answers_shown "$1" "$2" "$3"
    echo "  answered $4 blanks"
}
answers_shown() { read_board "$1" "$2" "$3" && sort "$scratch/answers" | cmp -s - "$scratch/left"; }

quit_playing() {
    choose 1 1 3 3
    await "the program's name in the title" title_is Quarvelle
    await "the main page" see_page
    await "the menus of the main page" menus_are 4
}

start_display

echo "A 7 by 7 square, solved to its end with two wrong numbers on the way"
start_program
picture 1-main-page
enter "${size_box[@]}" 7
practise 7 1 1
incorrect=0
correct=0
blanks=$(wc -l <"$scratch/answers")
cp "$scratch/answers" "$scratch/first"
while read -r x y text; do
    if [ $incorrect -lt 2 ]; then
        type_answer "$x" "$y" $((text == 1 ? 2 : 1))
        press_enter
        expect_score 7 0 $correct $((++incorrect))
    fi
    type_answer "$x" "$y" "$text"
    [ $((correct + 1)) -ne $((blanks / 2)) ] || picture 2-practising
    press_enter
    expect_score 7 $((++correct / blanks)) $correct $incorrect
done <"$scratch/first"
see_board 7 1 1
picture 3-solved-and-next

echo "New Square, Start Over, Quit playing"
choose 1 1 1 3
see_board 7 1 1
expect_score 7 1 "$blanks" 2
choose 1 1 2 3
see_board 7 1 1
expect_score 7 0 0 0
picture 4-started-over
quit_playing

echo "A 29 by 29 square"
choose 4 4 8 9
practise 29 1 1
answer 29 1 1 3
picture 5-twenty-nine
quit_playing

echo "Start -24 and distance 0.5: too wide at 29 by 29, practised at 23 by 23"
enter "${start_box[@]}" -24
enter "${distance_box[@]}" 0.5
await "the note that the board is too large" see_color '#0000ff'
picture 6-larger-than-page
choose 4 4 7 9
practise 23 -24 0.5
answer 23 -24 0.5 5
picture 7-fractions
quit_playing

echo "Quit from the main menu"
choose 1 4 1 1
ends_well

echo "The window closed in the middle of a square"
start_program
practise 5 1 1
answer 5 1 1 1
picture 8-before-closing
xdotool key alt+F4
ends_well

echo "The 5 by 5 properties, played to the end of a square"
start_program
choose 3 4 2 2
await "the properties page" see_color '#ff00ff'
# In each pair one box against the other; then neither kind of diagonals, which "Done" does not accept.
for left in 16 168 320 504; do
    click $((page_x + left + 8)) $((page_y + 252))
    click $((page_x + left + 8)) $((page_y + 292))
done
click $((page_x + 24)) $((page_y + 60))
picture 9-properties
click $((page_x + 260)) $((page_y + 108))
await "the main page" see_page
choose 3 4 2 2
await "the properties page" see_color '#ff00ff'
picture 10-properties-again
click $((page_x + 260)) $((page_y + 108))
await "the main page" see_page
practise 5 1 1
correct=0
blanks=$(wc -l <"$scratch/answers")
[ "$blanks" -gt 10 ] || fail "a square with more blanks than rows, columns and diagonals bear"
cp "$scratch/answers" "$scratch/first"
while read -r x y text; do
    type_answer "$x" "$y" "$text"
    [ $((correct + 1)) -ne "$blanks" ] || picture 11-last-of-many-blanks
    press_enter
    expect_score 5 $((++correct / blanks)) $correct 0
done <"$scratch/first"
xdotool key q
await "the main page" see_page
xdotool key alt+F4
ends_well

echo "All titles and boards were seen as expected. Pictures are in build/demo:"
ls build/demo/*.png
