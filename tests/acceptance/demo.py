# The program's story, played on a desktop of its own: every title, board and page is the one to expect. Pictures for
# whoever wants to look go to the folder given second; the first argument is the program.

import pathlib
import sys

import solver
from player import Player, press, see
from stage import on_stage

EVERY_SHAPE = ["Include All Cross-Diagonals", "Include All Cross-Lines", "Include All Scattered-Cross-Diagonals",
               "Include All Scattered-Cross-Lines"]


class Story:
    def __init__(self, stage, program, pictures):
        self.stage, self.program, self.pictures = stage, program, pictures

    def practise(self, order):
        self.player.push("Practice Solving Squares")
        self.player.wait_for_score(order, 0, 0, 0)

    def by_keyboard_alone(self):
        print("By keyboard and the lines shown alone: 5 by 5 with every shape")
        player = self.player
        self.stage.picture(self.pictures / "1-main-page.png")
        player.choose("Puzzle-mode", "Choose Magic Square Properties")
        for name in EVERY_SHAPE:
            player.tick(name)
        player.push("Done")
        self.practise(5)
        self.stage.picture(self.pictures / "2-practising.png")
        player.answer(self.by_the_lines_shown, 5, 65, solver.lines(5, shapes=True))
        self.stage.picture(self.pictures / "4-solved-and-next.png")
        press("q")
        player.wait_for_title("Quarvelle")

    def by_the_lines_shown(self, answers):
        # Each blank and its number from what is told of a line alone.
        for _ in answers:
            press("ctrl+l")
            self.player.hear("a line", lambda news: "blank" in news and ". Sum " not in news)
            press("ctrl+l")
            told = self.player.hear("its sum", lambda news: ". Sum " in news)
            self.stage.picture(self.pictures / "3-a-line-shown.png")
            line, total = told.split(". Sum ")[0].split(": ")[1], int(told.rpartition(" ")[2])
            yield total - sum(int(number) for number in line.split(", ") if number != "blank")

    def clicked_on(self, answers):
        for cell, number in answers[:3]:
            self.player.click_on(cell)
            yield number

    def with_the_mouse(self):
        print("With the mouse: New Square, Start Over, Quit playing")
        player = self.player
        player.click_menu("Size of Square", "7 by 7")
        player.click(player.find("push button", "Practice Solving Squares"))
        player.wait_for_score(7, 0, 0, 0)
        player.answer(self.clicked_on, 7, 175, solver.lines(7))
        for item, *score in (("New Square", 3, 1), ("Start Over", 0, 0)):
            before = player.board()
            player.click_menu("Options", item)
            see("another square", lambda: player.board() != before)
            player.wait_for_score(7, 0, *score)
        player.click_menu("Options", "Quit playing")
        player.wait_for_title("Quarvelle")

    def tell(self):
        self.player = Player(self.stage, self.program)
        self.by_keyboard_alone()
        self.player.choose("Options", "Quit")
        self.player.expect_end()
        self.player = Player(self.stage, self.program)
        self.with_the_mouse()
        print("The window closed in the middle of a square")
        self.practise(7)
        press("alt+F4")
        self.player.expect_end()


if __name__ == "__main__":
    folder = pathlib.Path(sys.argv[2])
    with on_stage(folder) as stage:
        Story(stage, sys.argv[1], folder).tell()
    print("All titles and boards were seen as expected.")
