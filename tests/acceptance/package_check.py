# Takes the Debian package for what it claims to be: it validates, comes out the same elsewhere, and needs nothing but
# its dependencies in a system that has nothing else, where it leaves no trace. The first argument is the package; a
# picture of the window goes to the folder given second.

import os
import pathlib
import shutil
import sys

from player import press
from stage import Failure, expect, on_stage, run, wait

# As a session finds the program: by the path of its user, not by root's.
PLAYER = {"HOME": "/home/player", "XDG_RUNTIME_DIR": "/home/player/run",
          "PATH": "/usr/local/bin:/usr/bin:/bin:/usr/local/games:/usr/games"}
ADMINISTRATOR = {"HOME": "/root", "PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "DEBIAN_FRONTEND": "noninteractive"}


def validate(package, scratch):
    files = scratch / "files"
    run("dpkg-deb", "--extract", package, files)
    entry, = files.glob("usr/share/applications/*.desktop")
    metadata, = files.glob("usr/share/metainfo/*.xml")
    page, = files.glob("usr/share/man/man6/*.gz")
    run("desktop-file-validate", entry)
    run("appstreamcli", "validate", "--pedantic", "--no-net", metadata)
    run("lintian", "--fail-on", "error,warning", "--allow-root", package)
    manual = "LC_ALL=C.UTF-8 MANROFFSEQ= MANWIDTH=80 man --warnings --local-file"
    expect("warnings of the manual page", run("sh", "-c", f"{manual} {page} 2>&1 >/dev/null"), "")
    return dict(line.split("=", 1) for line in entry.read_text().splitlines() if "=" in line)


def build_again(package, scratch):
    copy = scratch / "another folder"
    copy.mkdir()
    run("sh", "-c", 'git ls-files -z | xargs -0 cp --parents --target-directory "$0"', copy)
    commit = run("git", "log", "-1", "--format=%ct").strip()
    run("packaging/debian/build.sh", cwd=copy, env={**os.environ, "SOURCE_DATE_EPOCH": commit}, umask=0o027)
    if (copy / package).read_bytes() != package.read_bytes():
        raise Failure("saw another package in another folder")


class System:
    # A minimal one in a folder, in which the dependencies are installed.

    def __init__(self, root, depends):
        self.root = root
        mirror = run("apt-get", "indextargets", "--format", "$(REPO_URI)", "Created-By: Packages", "Origin: Debian")
        release = run("sh", "-c", ". /etc/os-release && echo $VERSION_CODENAME").strip()
        run("debootstrap", "--variant=minbase", release, root, mirror.splitlines()[0])
        self.run("apt-get", "satisfy", "--yes", "--no-install-recommends", depends)
        self.run("useradd", "--create-home", "player")
        self.run("install", "--directory", "--owner", "player", "--mode", "700", PLAYER["XDG_RUNTIME_DIR"])

    def run(self, *command):
        return run("/usr/sbin/chroot", self.root, *command, env=ADMINISTRATOR)

    def files(self):
        # What was done is written down in the system's own records.
        return {*run("find", self.root, "-path", "*/var/log", "-prune", "-o", "-print").splitlines()}


def use(stage, root, entry, picture):
    program = stage.start("/usr/sbin/chroot", "--userspec=player", root, entry["Exec"],
                          env={**PLAYER, "DISPLAY": os.environ["DISPLAY"]})
    search = ["xdotool", "search", "--onlyvisible", "--class", f"^{entry['StartupWMClass']}$", "getwindowname"]
    wait("the window of the launcher's class", lambda: stage.succeeds(*search))
    expect("the title", run(*search), "Quarvelle\n")
    stage.picture(picture)
    press("alt+F4")
    expect("the exit code", program.wait(60), 0)


def check(package, pictures):
    with on_stage(pictures) as stage:
        entry = validate(package, stage.scratch)
        build_again(package, stage.scratch)
        stage.scratch.chmod(0o711)
        system = System(stage.scratch / "root", run("dpkg-deb", "--field", package, "Depends").strip())
        before = system.files()
        shutil.copy(package, system.root / "root/quarvelle.deb")
        system.run("dpkg", "--install", "/root/quarvelle.deb")
        (system.root / "root/quarvelle.deb").unlink()
        print(system.run("dpkg", "--listfiles", "quarvelle"), end="")
        use(stage, system.root, entry, pictures / "installed.png")
        system.run("dpkg", "--purge", "quarvelle")
        expect("what was left or is missing", before ^ system.files(), set())


if __name__ == "__main__":
    check(*map(pathlib.Path, sys.argv[1:]))
    print(f"{sys.argv[1]}: valid, reproducible, and gone when it is removed")
