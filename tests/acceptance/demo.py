# The program's story, played on a desktop of its own: every title, board and page is the one to expect. Pictures for
# whoever wants to look go to the folder given second; the first argument is the program.

import pathlib
import sys

import solver
from player import Player, press, see, type_text
from stage import on_stage

EVERY_SHAPE = ["Include All Cross-Diagonals", "Include All Cross-Lines", "Include All Scattered-Cross-Diagonals",
               "Include All Scattered-Cross-Lines"]


class Story:
    def __init__(self, stage, program, pictures):
        self.stage, self.program, self.pictures = stage, program, pictures

    def practise(self, order):
        self.player.push("Practice Solving Squares")
        self.player.wait_for_score(order, 0, 0, 0)

    def quit_playing(self):
        press("q")
        self.player.wait_for_title("Quarvelle")

    def by_keyboard_alone(self):
        print("By keyboard alone: 5 by 5 with every shape")
        player = self.player
        self.stage.picture(self.pictures / "1-main-page.png")
        player.choose("Puzzle-mode", "Choose Magic Square Properties")
        for name in EVERY_SHAPE:
            player.tick(name)
        player.push("Done")
        self.practise(5)
        self.stage.picture(self.pictures / "2-practising.png")
        player.answer(player.go_to, 5, 65, solver.lines(5, shapes=True))
        self.stage.picture(self.pictures / "3-solved-and-next.png")
        self.quit_playing()

    def by_the_lines_shown(self):
        print("By the lines shown alone: 7 by 7")
        player, right = self.player, 0
        player.choose("Size of Square", "7 by 7")
        self.practise(7)
        told = player.hear("a new square", lambda news: news.startswith("New square"))
        blanks = int(told.rpartition(" ")[2])
        while right < blanks:
            press("ctrl+l")
            player.hear("a line", lambda news: "blank" in news and ". Sum " not in news)
            press("ctrl+l")
            told = player.hear("its sum", lambda news: ". Sum " in news)
            if right == 0:
                self.stage.picture(self.pictures / "4-a-line-shown.png")
            line, total = told.split(". Sum ")[0].split(": ")[1], int(told.rpartition(" ")[2])
            type_text(total - sum(int(number) for number in line.split(", ") if number != "blank"))
            press("Return")
            right += 1
            player.wait_for_score(7, int(right == blanks), right, 0)
        print(f"  answered {right} of {blanks} blanks of a 7 by 7 square")
        self.quit_playing()

    def with_the_mouse(self):
        print("With the mouse: New Square, Start Over, Quit playing")
        player = self.player
        player.click_menu("Size of Square", "7 by 7")
        player.click(player.find("push button", "Practice Solving Squares"))
        player.wait_for_score(7, 0, 0, 0)
        player.answer(player.click_on, 7, 175, solver.lines(7), 3)
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
        self.by_the_lines_shown()
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
