"""Prints batches from the program's window and checks what comes out.

main.py PROGRAM QUEUE SCRATCH PICTURES: prints on the queue of that name, which it makes. Files of no use
afterwards go to one folder, pictures of the sheets to the other."""

import os
import re
import subprocess
import sys
import time
from contextlib import contextmanager

from sheets import Fault, check_batch, read, require
from window import Window, keys, until

PROGRAM, QUEUE, SCRATCH, PICTURES = sys.argv[1:]
PRINTED = "/var/spool/cups-pdf/root"


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


def add_queue(*options):
    run("lpadmin", "-p", QUEUE, "-E", "-v", f"cups-pdf:/{QUEUE}", "-P",
        "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd",
        # Of the ways through PostScript, this one keeps text as text.
        "-o", "pdftops-renderer-default=pdftocairo", *options)
    run("lpadmin", "-d", QUEUE)


def jobs():
    return re.findall(rf"{QUEUE}-(\d+)", run("lpstat", "-W", "all", "-o"))


def printed(before):
    """The one document that has come out of the printer since there were the jobs `before`."""
    until(lambda: len(jobs()) > len(before), "the job")
    job, = set(jobs()) - set(before)
    until(lambda: f"{QUEUE}-{job} " in run("lpstat", "-W", "completed", "-o"), "the end of the job", 60)
    name, = (name for name in os.listdir(PRINTED) if name.endswith(f"job_{job}.pdf"))
    result = os.path.join(SCRATCH, "printed.pdf")
    run("mv", os.path.join(PRINTED, name), result)
    if not os.listdir(PRINTED):
        os.rmdir(PRINTED)
    return result


def draw(pdf, name):
    run("pdftoppm", "-r", "100", "-png", pdf, os.path.join(PICTURES, name))


def batch(name, upright=False, paper=None, file=None, pages=None, **settings):
    """Prints a batch and checks all of it."""
    with Window(PROGRAM) as window:
        before = jobs()
        drawn = {k: v for k, v in settings.items() if k != "starts"}
        if "starts" in settings:
            drawn["random_starts"] = len(settings["starts"])
        window.set_up(**drawn)
        if file:
            window.choose_file(file)
        if upright or paper:
            window.choose_page(paper, upright)
        keys("Return")
        window.wait_for_end()
        window.has_no_message()
        pdf = file or printed(before)
        draw(pdf, name)
        sheets = check_batch(pdf, **settings)
        require(all(sheet.upright == upright for sheet in sheets), "the paper lies the wrong way round")
        labels = [sheet.label for sheet in sheets]
        require(pages is None or labels == pages, f"pieces {labels}")
        window.close()
    print(f"  {name}: {len(sheets)} sheets, {settings['count']} squares")


def stopped(name, stop, squares_before, ends=False):
    """Stops a large batch on the queue and checks that its full sheets come out."""
    with Window(PROGRAM) as window:
        before = jobs()
        window.set_up(mode=2, order=5, start=1, distance=1, count=100000, blanks=9)
        keys("Return")
        left = re.compile(r"(\d+) out of")
        until(lambda: 100000 - int(left.search(window.title()).group(1)) >= squares_before, "some squares")
        stop(window)
        if ends:
            window.process.wait(5)
            require(window.process.returncode == 0, f"exit code {window.process.returncode}")
        else:
            seconds = window.wait_for_end()
            window.has_no_message()
            window.close()
        pdf = printed(before)
        sheets = read(pdf)
        check_batch(pdf, 2, 5, 1, 1, len(sheets) // 2 * 25, 9)
    took = "" if ends else f", main page back after {seconds * 1000:.0f} ms"
    print(f"  {name}: {len(sheets)} full sheets{took}")


def fails(name, choose, accept=("Return",)):
    """A batch that can't be printed: the person is told and has the main page back."""
    with Window(PROGRAM) as window:
        window.set_up(mode=2, order=5, start=1, distance=1, count=200, blanks=9)
        choose(window)
        keys(*accept)
        window.dismiss_message()
        window.close()
    print(f"  {name}: told, main page back")


@contextmanager
def small_disk(*options):
    """A folder on a disk of its own."""
    folder = os.path.join(SCRATCH, "tiny")
    os.makedirs(folder, exist_ok=True)
    try:
        run("mount", "-t", "tmpfs", "-o", ",".join(("size=64k", *options)), "tmpfs", folder)
    except subprocess.CalledProcessError as error:
        raise Fault(f"no small disk to fill: {error.stderr}") from None
    try:
        yield folder
    finally:
        run("umount", folder)


def full_disk():
    with small_disk() as folder:
        fails("a full disk", lambda window: window.choose_file(f"{folder}/sheets.pdf"))
        require(os.listdir(folder) == [], f"the full disk holds {os.listdir(folder)}")


def unwritable():
    # An inode for the folder and one for the file: the dialog can open that, but nothing can replace it.
    with small_disk("nr_inodes=2") as folder:
        path = f"{folder}/sheets.pdf"
        with open(path, "w", encoding="ascii") as file:
            file.write("earlier")

        def replace(window):
            window.choose_file(path)
            keys("Return")
            until(lambda: len(window.windows()) == 3, "the question whether to replace the file")
            keys("alt+y")

        fails("a file that can't be replaced", replace, accept=())
        with open(path, encoding="ascii") as file:
            require(file.read() == "earlier", "the earlier file is lost")
    with Window(PROGRAM) as window:
        window.set_up(mode=2, order=5, start=1, distance=1, count=200, blanks=9)
        window.choose_file(f"{SCRATCH}/nowhere/sheets.pdf")
        keys("Return")
        until(lambda: len(window.windows()) == 3, "the dialog's own message")
        keys("Return")
        until(lambda: len(window.windows()) == 2, "the dialog again")
        keys("Escape")
        window.wait_for_end(2)
        window.has_no_message()
        window.close()
    print("  an unwritable path: told by the dialog, main page back")


def vanished_printer():
    fails("a printer that disappears", lambda _: run("lpadmin", "-x", QUEUE))
    add_queue()


def measured(count):
    """Seconds that a batch of puzzles and answers takes as a PDF file, and the program's peak memory in kB."""
    with Window(PROGRAM) as window:
        window.set_up(mode=2, order=5, start=1, distance=1, count=count, blanks=100)
        window.choose_file(f"{SCRATCH}/{count}.pdf")
        keys("Return")
        seconds = window.wait_for_end()
        with open(f"/proc/{window.process.pid}/status", encoding="ascii") as status:
            peak = int(re.search(r"VmHWM:\s*(\d+) kB", status.read()).group(1))
        window.close()
    print(f"  {count} puzzles and answers: {seconds:.2f} s, peak {peak} kB")
    return seconds, peak


def speed():
    seconds, peak = measured(1000)
    require(seconds < 2.5, "1000 puzzles take too long")
    _, later_peak = measured(10000)
    require(later_peak < 1.2 * peak, "memory grows with the batch")


def cancelled():
    with Window(PROGRAM) as window:
        before = jobs()
        window.set_up(mode=0, order=7, start=1, distance=1, count=3, blanks=9)
        keys("Escape")
        window.wait_for_end(2)
        window.has_no_message()
        require(jobs() == before, "a job in spite of the cancellation")
        window.close()
    print("  cancelled in the dialog: nothing printed")


def main():
    add_queue()
    print("Batches:")
    batch("both", mode=2, order=5, start=1, distance=1, count=30, blanks=100)
    batch("puzzles", mode=1, order=7, start=1, distance=1, count=13, blanks=6)
    batch("squares", mode=0, order=11, start=1, distance=1, count=5, blanks=1)
    batch("random", mode=2, order=5, start=10, distance=2, count=30, blanks=9, starts=[10, 11, 12, 13])
    batch("fractions", mode=2, order=5, start=-3.5, distance=0.25, count=7, blanks=12)
    batch("negative", mode=2, order=7, start=-20, distance=1, count=12, blanks=30, upright=True)
    batch("one piece", mode=2, order=29, start=1, distance=1, count=2, blanks=100)
    batch("31", mode=0, order=31, start=1, distance=1, count=1, blanks=1, pages=["1,1", "1,2"])
    batch("23", mode=2, order=23, start=1, distance=20, count=1, blanks=50,
          pages=["1,1", "1,1", "2,1", "2,1"])
    batch("101", mode=0, order=101, start=1, distance=1, count=1, blanks=1)
    add_queue("-o", "PageSize=Letter")
    batch("letter", mode=2, order=5, start=1, distance=1, count=25, blanks=10)
    batch("file", mode=2, order=13, start=1, distance=1, count=5, blanks=40, file=f"{SCRATCH}/quiz.pdf")
    add_queue("-o", "PageSize=A4")
    print("Stops:")
    stopped("Q in the first sheets", lambda _: keys("q"), 1)
    stopped("Abort printing", lambda window: window.menu("Down"), 500)
    stopped("closing the window", lambda window: keys("alt+F4"), 300, ends=True)
    print("Speed:")
    speed()
    print("Faults:")
    cancelled()
    full_disk()
    unwritable()
    vanished_printer()


try:
    begin = time.monotonic()
    main()
    print(f"All of it held ({time.monotonic() - begin:.0f} s); the sheets' pictures are in {PICTURES}.")
except Fault as fault:
    sys.exit(f"print-check: {fault}")
