# A print server of its own with one printer, which puts out each job as a PDF document. It ends with the stage.

import os
import pathlib
import re

from stage import run, wait

CONFIGURATION = {
    "cupsd.conf": """Listen {root}/socket
Browsing Off
DefaultAuthType None
<Policy default>
<Limit All>
Allow all
</Limit>
</Policy>
""",
    "cups-files.conf": """FileDevice Yes
ServerRoot {root}
StateDir {root}
CacheDir {root}/cache
RequestRoot {root}/spool
TempDir {root}/spool/tmp
AccessLog {root}/access-log
ErrorLog stderr
PageLog {root}/page-log
""",
}
# A printer that prints up to the edges of its paper, made to put out PDF documents and to leave copies to the server.
DRIVER = pathlib.Path("/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd")
CHANGES = '*cupsFilter: "application/vnd.cups-pdf 0 -"\n*cupsManualCopies: True\n'


class PrintQueue:
    def __init__(self, stage, name):
        self.name = name
        self._stage = stage
        self._root = stage.scratch / "printer"
        (self._root / "spool" / "tmp").mkdir(parents=True)
        for file, text in CONFIGURATION.items():
            (self._root / file).write_text(text.format(root=self._root))
        (self._root / "driver").write_text(f"{DRIVER.read_text()}\n{CHANGES}")
        # Where the server may, it works as another user.
        stage.scratch.chmod(0o711)
        os.environ["CUPS_SERVER"] = f"{self._root}/socket"
        os.environ["PATH"] += ":/usr/sbin"
        stage.start("cupsd", "-f", "-c", f"{self._root}/cupsd.conf", "-s", f"{self._root}/cups-files.conf")
        command = ["lpadmin", "-p", self.name, "-E", "-v", f"file://{self._root}/printed.pdf", "-P",
                   f"{self._root}/driver", "-o", "PageSize=A4"]
        # The server may be about to begin.
        wait("the printer", lambda: self._stage.succeeds(*command))
        run("lpadmin", "-d", self.name)

    def jobs(self):
        return set(re.findall(rf"{self.name}-(\d+)", run("lpstat", "-W", "all", "-o")))

    def document(self, earlier):
        # What came out for the one job since there were those.
        job, = wait("a print job", lambda: self.jobs() - earlier)
        wait("the job printed", lambda: f"{self.name}-{job} " in run("lpstat", "-W", "completed", "-o"))
        return self._root / "printed.pdf"
