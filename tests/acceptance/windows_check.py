# Installs, uses and removes the Windows program under Wine, on a screen of 96 dots an inch and on one of 192, and runs
# the engine's tests there. The first argument is the folder of the build, the second one that for pictures.

import os
import pathlib
import re
import sys
from contextlib import contextmanager

import sheets
from player import press, type_text
from print_check import Batch
from printer import PrintQueue
from stage import expect, on_stage, run, wait

# What the system notes by itself: an uninstaller is a temporary file, and a printer becomes known when it is used.
NOTED = re.compile(r"/(Temp|spool)/|\\(Windows NT|Wine)\\")
SCORE = "Number of (5 by 5) Complete Magic Square(s) solved: 0 / Numbers correct: {} / Numbers incorrect: {}"


def contents(drive):
    # All files, and all places of settings of programs.
    settings = run("wine", "reg", "query", r"HKCU\Software", "/s").splitlines()
    everything = {*map(str, drive.rglob("*")), *(line for line in settings if line.startswith("HKEY"))}
    return {item.removeprefix(f"{drive}/") for item in everything if not NOTED.search(item)}


def keyboard():
    # Title and number of the window that has the keyboard.
    # No window may have it for a moment, which the command takes for a failure.
    command = "xdotool getwindowfocus getwindowname getwindowgeometry || true"
    return run("sh", "-c", command).splitlines()[:2]


@contextmanager
def running(stage, program):
    process = stage.start("wine", program)
    yield wait("the window", lambda: "Quarvelle" in (at := keyboard()) and at)
    press("alt+F4")
    expect("the exit code", process.wait(60), 0)


def print_batch(queue, upright):
    press(*["Tab"] * 5, "ctrl+a", "3", "Tab", "space")
    wait("the system's dialog", lambda: "Print" in keyboard())
    press("Return")
    # Of a page that is turned, text and size would be told in different directions.
    run("pdftocairo", "-pdf", str(queue.document(set())), str(upright))
    puzzles, answers = sheets.read(upright)
    expect("the sheets", (puzzles.kind, answers.kind, answers.notes), ("Puzzles", "Answers", puzzles.notes))
    expect("the number of squares", len(puzzles.notes), 3)
    boards = (sheet.boards(5, answers.grid()) for sheet in (puzzles, answers))
    for note, puzzle, square in zip(puzzles.notes, *boards, strict=True):
        Batch("three of 5 by 5", 3).check_square(note, puzzle, square)
    wait("the window again", lambda: "Quarvelle" in keyboard())


def practise():
    press(*["Tab"] * 3, "space")
    wait("a square without answers", lambda: SCORE.format(0, 0) in keyboard())
    press("Home")
    for wrong, number in enumerate((26, *range(1, 26))):
        type_text(number)
        press("Return")
        right, worse = SCORE.format(1, wrong), SCORE.format(0, wrong + 1)
        if wait(f"a judgement of {number}", lambda: {right, worse}.intersection(keyboard())) == {right}:
            break
    expect("a right answer after a wrong one", (number < 26, keyboard()[0]), (True, right))


def start_windows(stage, dots):
    drive = stage.scratch / "wine/drive_c"
    drive.mkdir(parents=True)
    os.environ.update(WINEPREFIX=str(drive.parent), WINEDEBUG="-all", WINEDLLOVERRIDES="mscoree,mshtml=",
                      CUPS_SERVER=str(stage.scratch / "no-printer"))
    stage.start("wine", "wineboot", "--init").wait()
    run("wine", "reg", "add", r"HKCU\Control Panel\Desktop", "/v", "LogPixels", "/t", "REG_DWORD", "/d", dots)
    return drive


def install_and_use(stage, drive, installer, dots, pictures):
    before = contents(drive)
    run("wine", str(installer), "/S")
    installed = contents(drive) - before
    print("The installer has made:", *sorted(installed), sep="\n  ")
    for what in "quarvelle.exe", "uninstall.exe", "Start Menu/Programs/Quarvelle.lnk", "Uninstall\\Quarvelle":
        expect(what, sum(item.endswith(what) for item in installed), 1)
    program, = drive.rglob("quarvelle.exe")
    with running(stage, program) as window:
        press(*["Tab"] * 6, "space")
        wait("that there is no printer", lambda: "Quarvelle" in (at := keyboard()) and at != window)
        stage.picture(pictures / f"no-printer-{dots}.png")
        press("Return")
        wait("the window again", lambda: keyboard() == window)
        stage.picture(pictures / f"main-page-{dots}.png")
    queue = PrintQueue(stage, "quarvelle-check")
    with running(stage, program):
        print_batch(queue, stage.scratch / "upright.pdf")
        practise()
        stage.picture(pictures / f"practising-{dots}.png")
    run("wine", str(program.with_name("uninstall.exe")), "/S")
    wait("all of it go", lambda: not installed & contents(drive))
    expect("the same as before", contents(drive) ^ before, set())


def main(build, pictures):
    installer, = build.glob("quarvelle-*-setup.exe")
    for dots, size, tests in ("96", "1024x700", "engine_tests"), ("192", "2048x1400", "puzzle_tests"):
        print(f"At {dots} dots an inch:")
        with on_stage(pictures, size) as stage:
            drive = start_windows(stage, dots)
            print(run("wine", f"{build}/tree/tests/{tests}.exe", "--gtest_brief=1"), end="")
            install_and_use(stage, drive, installer, dots, pictures)
            run("wineserver", "--wait")


if __name__ == "__main__":
    main(*map(pathlib.Path, sys.argv[1:]))
    print("Closed in the middle of a square, the program ended with exit code 0, and uninstalled, it left nothing.")
