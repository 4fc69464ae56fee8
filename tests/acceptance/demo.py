"""The program's story, played on a desktop of its own: every title, board and page is the one to expect. Pictures for
whoever wants to look go to the folder given second; the first argument is the program."""

import pathlib
import sys

import solver
from player import Player, press, type_text
from stage import Failure, Stage, wait

EVERY_SHAPE = ["Include All Cross-Diagonals", "Include All Cross-Lines", "Include All Scattered-Cross-Diagonals",
               "Include All Scattered-Cross-Lines"]


def practise(player, order):
    player.push("Practice Solving Squares")
    player.wait_for_score(order, 0, 0, 0)


def quit_playing(player):
    press("q")
    player.wait_for_title("Quarvelle")
    player.find("push button", "Practice Solving Squares")


def by_keyboard_alone(player, pictures):
    print("By keyboard alone: 5 by 5 with every shape, and 11 by 11")
    player.picture(pictures / "1-main-page.png")
    player.choose("z", "c")
    for name in EVERY_SHAPE:
        player.tab_to("check box", name)
        press("space")
    player.picture(pictures / "2-properties.png")
    player.push("Done")
    practise(player, 5)
    player.picture(pictures / "3-practising.png")
    player.solve_by_keyboard(5, solver.lines(5, shapes=True), 65, wrong_answers=1)
    player.picture(pictures / "4-solved-and-next.png")
    quit_playing(player)
    player.enter("Size of Square", 11)
    practise(player, 11)
    player.solve_by_keyboard(11, solver.lines(11), 671, wrong_answers=1)
    quit_playing(player)


def answer_with_the_mouse(player, order, total, count):
    board = player.board()
    for right, (cell, number) in enumerate(solver.solve(board, total, solver.lines(order))[:count], 1):
        player.click_cell(*cell)
        type_text(solver.text(number))
        press("Return")
        player.wait_for_score(order, 0, right, 0)
        board[cell] = number
    player.wait_for_board(board)
    print(f"  answered {count} blanks of a {order} by {order} square")


def with_the_mouse(player, pictures):
    print("With the mouse: New Square, Start Over, Quit playing, large squares and fractions")
    player.click(player.find("menu item", "Size of Square"))
    player.click(player.find("menu item", "7 by 7"))
    player.click(player.find("push button", "Practice Solving Squares"))
    player.wait_for_score(7, 0, 0, 0)
    answer_with_the_mouse(player, 7, 175, 3)
    for item, right in (("New Square", 3), ("Start Over", 0)):
        before = player.board()
        player.click(player.find("menu item", "Options"))
        player.click(player.find("menu item", item))
        wait("another square", lambda: player.board() != before)
        player.wait_for_score(7, 0, right, 0)
    player.click(player.find("menu item", "Options"))
    player.click(player.find("menu item", "Quit playing"))
    player.wait_for_title("Quarvelle")
    player.enter("Size of Square", 29)
    practise(player, 29)
    answer_with_the_mouse(player, 29, 12209, 3)
    player.picture(pictures / "5-twenty-nine.png")
    quit_playing(player)
    player.enter("Starting Number", -24)
    player.enter("Distance", "0.5")
    player.find("label", "(Larger than Page)")
    player.picture(pictures / "6-larger-than-page.png")
    player.enter("Size of Square", 23)
    practise(player, 23)
    answer_with_the_mouse(player, 23, solver.magic_total(23, -24, "0.5"), 5)
    player.picture(pictures / "7-fractions.png")
    quit_playing(player)


def end_to_end(program, pictures):
    pictures.mkdir(parents=True, exist_ok=True)
    stage = Stage()
    try:
        player = Player(stage, program)
        by_keyboard_alone(player, pictures)
        player.choose("o", "q")
        player.expect_end()
        player = Player(stage, program)
        with_the_mouse(player, pictures)
        print("The window closed in the middle of a square")
        practise(player, 23)
        press("alt+F4")
        player.expect_end()
    except Failure as failure:
        player.picture(pictures / "failure.png")
        sys.exit(f"Demonstration failed: {failure}\n{stage.said()}")
    finally:
        stage.close()


if __name__ == "__main__":
    end_to_end(sys.argv[1], pathlib.Path(sys.argv[2]))
    print("All titles and boards were seen as expected.")
