"""A print server of its own with one printer, which puts out each job as a PDF document. It ends with the stage."""

import os
import pathlib
import re
import subprocess

from stage import wait

CONFIGURATION = {
    "cupsd.conf": """Listen {root}/socket
LogLevel warn
Browsing Off
WebInterface No
DefaultAuthType None
<Location />
Allow all
</Location>
<Policy default>
<Limit All>
Allow all
</Limit>
</Policy>
""",
    "cups-files.conf": """ServerRoot {root}
StateDir {root}
CacheDir {root}/cache
RequestRoot {root}/spool
TempDir {root}/spool/tmp
AccessLog {root}/access-log
ErrorLog {root}/error-log
PageLog {root}/page-log
SystemGroup root
""",
}


def run(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout


class PrintQueue:
    def __init__(self, stage, name):
        self.name = name
        # The printer takes its folder from the system's settings, and gives its sheets to nobody but root.
        self._printed = pathlib.Path("/var/spool/cups-pdf/root")
        self._stage = stage
        root = stage.scratch / "printer"
        for folder in ("ppd", "cache", "spool/tmp"):
            (root / folder).mkdir(parents=True)
        for file, text in CONFIGURATION.items():
            (root / file).write_text(text.format(root=root))
        # The server works as another user beside root.
        stage.scratch.chmod(0o711)
        run("chgrp", "-R", "lp", str(root))
        run("chmod", "-R", "g+rwX", str(root))
        os.environ["CUPS_SERVER"] = f"{root}/socket"
        os.environ["PATH"] += ":/usr/sbin"
        stage.start("cupsd", "-f", "-c", f"{root}/cupsd.conf", "-s", f"{root}/cups-files.conf")
        wait("the print server", lambda: "is running" in run("lpstat", "-r"))
        # Of the ways through PostScript, this one keeps text as text.
        run("lpadmin", "-p", name, "-E", "-v", f"cups-pdf:/{name}", "-P",
            "/usr/share/ppd/cups-pdf/CUPS-PDF_opt.ppd", "-o", "pdftops-renderer-default=pdftocairo",
            "-o", "PageSize=A4")
        run("lpadmin", "-d", name)

    def jobs(self):
        return set(re.findall(rf"{self.name}-(\d+)", run("lpstat", "-W", "all", "-o")))

    def document(self, earlier):
        """What came out for the one job since there were those."""
        job, = wait("a print job", lambda: self.jobs() - earlier)
        wait("the job printed", lambda: f"{self.name}-{job} " in run("lpstat", "-W", "completed", "-o"))
        name, = self._printed.glob(f"*job_{job}.pdf")
        return name.rename(self._stage.scratch / "printed.pdf")

    def close(self):
        """Takes away what the printer leaves in the system's folders."""
        pathlib.Path(f"/var/log/cups/cups-pdf-{self.name}_log").unlink(missing_ok=True)
        if self._printed.is_dir() and not any(self._printed.iterdir()):
            self._printed.rmdir()
