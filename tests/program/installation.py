#!/usr/bin/env python3
"""The Debian package: made, installed below a folder that stands for the system's root, used by a
plain user who may write nothing there, and removed without a trace.

  installation.py BUILD-FOLDER"""

import os
import re
import shutil
import subprocess
import sys
import tempfile

from desktop import VERSION

BUILD = sys.argv[1]
TESTS = os.path.dirname(os.path.abspath(__file__))
USER = "65534"  # nobody, where root runs the test
AS_ROOT = [] if os.geteuid() == 0 else ["fakeroot"]
AS_USER = (
    ["setpriv", "--reuid", USER, "--regid", USER, "--clear-groups"] if os.geteuid() == 0 else []
)
EVERYBODY = dict(os.environ, LC_ALL="C.UTF-8", PYTHONDONTWRITEBYTECODE="1", TMPDIR="/tmp")


def run(*command, **options):
    done = subprocess.run(
        command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, **options
    )
    assert done.returncode == 0, f"{command}: {done.stdout}"
    return done.stdout


def tree(top, but=None):
    """Every path below a folder with its kind, mode and size."""
    found = {}
    for folder, folders, names in os.walk(top):
        for name in folders + names:
            path = os.path.join(folder, name)
            status = os.lstat(path)
            size = 0 if os.path.isdir(path) else status.st_size
            found[os.path.relpath(path, top)] = (oct(status.st_mode), size)
    return {path: found[path] for path in found if not (but and path.startswith(but))}


def make_package(folder):
    run("cpack", "-B", folder, cwd=BUILD)
    (name,) = [name for name in os.listdir(folder) if name.endswith(".deb")]
    return os.path.join(folder, name)


def check_control(package):
    depends = run("dpkg-deb", "-f", package, "Depends")
    for library in ["libqt6widgets6 (>=", "libqscintilla2-qt6-15", "libsndfile1", "libc6"]:
        assert library in depends, (library, depends)
    recommends = run("dpkg-deb", "-f", package, "Recommends").strip().split(", ")
    assert "csound" in recommends and "csound-doc" in recommends, recommends
    assert run("dpkg-deb", "-f", package, "Version").strip() == VERSION


def check_files(package, folder):
    """The package holds what `cmake --install` puts below a prefix, with proper owners and modes."""
    rows = [line.split(maxsplit=5) for line in run("dpkg-deb", "-c", package).splitlines()]
    for mode, owner, _, _, _, name in rows:
        assert owner == "root/root", (owner, name)
        assert mode in ["drwxr-xr-x", "-rwxr-xr-x", "-rw-r--r--"], (mode, name)
    packed = {name[len("./usr/"):] for mode, *_, name in rows if mode[0] == "-"}
    prefix = os.path.join(folder, "prefix")
    run("cmake", "--install", BUILD, "--prefix", prefix)
    installed = {path for path, (mode, _) in tree(prefix).items() if mode.startswith("0o10")}
    assert packed == installed, packed ^ installed
    for name in [
        "bin/ArdiphonPro",
        "lib/ardiphon/ArdiphonConsole",
        "lib/ardiphon/ArdiphonPro",
        "lib/ardiphon/opcode.txt",
        "lib/ardiphon/csd.txt",
        "lib/ardiphon/score.txt",
        "lib/ardiphon/snippets.txt",
        "share/applications/ardiphon.desktop",
        "share/doc/ardiphon/copyright",
        "share/doc/ardiphon/examples/first.csd",
        "share/icons/hicolor/48x48/apps/ardiphon.png",
        "share/icons/hicolor/scalable/mimetypes/ardiphon-csound-orc.svg",
        "share/man/man1/ArdiphonPro.1.gz",
        "share/mime/packages/ardiphon.xml",
    ]:
        assert name in packed, name
    shutil.rmtree(prefix)


class Root:
    """A folder that dpkg takes for the system's root."""

    def __init__(self, folder):
        self.path = os.path.join(folder, "root")
        self.database = os.path.join(self.path, "var", "lib", "dpkg")
        for name in ["info", "updates", "triggers"]:
            os.makedirs(os.path.join(self.database, name))
        open(os.path.join(self.database, "status"), "w").close()

    def file(self, *names):
        return os.path.join(self.path, "usr", *names)

    def dpkg(self, *arguments):
        run(*AS_ROOT, "dpkg", f"--root={self.path}", "--force-depends", "--force-not-root",
            "--log=/dev/null", *arguments)

    def tree(self):
        return tree(self.path, but="var/lib/dpkg")

    def make_read_only(self, read_only):
        for path, (mode, _) in self.tree().items():
            if not mode.startswith("0o12"):
                bits = int(mode, 8) & 0o777
                os.chmod(os.path.join(self.path, path),
                         bits & 0o555 if read_only else bits | 0o200)


def check_desktop_files(root, folder):
    run("desktop-file-validate", root.file("share/applications/ardiphon.desktop"))
    manual = run("groff", "-man", "-Tutf8", "-ww", input=run("gzip", "-dc", root.file(
        "share/man/man1/ArdiphonPro.1.gz")))
    assert "warning" not in manual and "one file, blanks" in manual, manual

    data = os.path.join(folder, "share")
    shutil.copytree(root.file("share"), data)
    run("update-mime-database", os.path.join(data, "mime"))
    environment = dict(EVERYBODY, XDG_DATA_DIRS=data, XDG_DATA_HOME=folder,
                       XDG_CONFIG_HOME=folder, XDG_CONFIG_DIRS=folder)
    for ending in ["csd", "ORC", "sco"]:
        piece = os.path.join(folder, f"piece.{ending}")
        with open(piece, "w") as file:
            file.write("; a piece\n")
        told = run("gio", "info", piece, env=environment)
        kind = f"text/x-csound-{ending.lower()}"
        assert re.search(f"standard::content-type: {kind}\n", told), told
        assert f"ardiphon-csound-{ending.lower()}" in told, told
    shutil.rmtree(data)


def use(root, scripts):
    """What a plain user does: the first start, a first piece, documents that the system opens."""
    program = root.file("lib", "ardiphon")
    piece = root.file("share", "doc", "ardiphon", "examples", "first.csd")
    for arguments in [
        ["first_start.py", root.file("bin")],
        ["first_piece.py", program, program, piece],
        ["file_types.py", program, program],
    ]:
        script = os.path.join(scripts, arguments[0])
        run(*AS_USER, sys.executable, script, *arguments[1:], env=EVERYBODY, cwd="/")


with tempfile.TemporaryDirectory(prefix="ardiphon-installation-", dir="/tmp") as folder:
    os.chmod(folder, 0o755)
    os.umask(0o022)
    root = Root(folder)
    empty = root.tree()
    package = make_package(os.path.join(folder, "package"))
    check_control(package)
    check_files(package, folder)

    root.dpkg("--install", package)
    check_desktop_files(root, folder)
    root.make_read_only(True)
    installed = root.tree()
    # That user may not look into our folders.
    scripts = os.path.join(folder, "tests", "program")
    shutil.copytree(TESTS, scripts)
    shutil.copy(os.path.join(TESTS, "..", "..", "CMakeLists.txt"), folder)  # names the version
    use(root, scripts)
    assert root.tree() == installed
    root.make_read_only(False)
    root.dpkg("--purge", "ardiphon")
    assert root.tree() == empty, root.tree().keys() ^ empty.keys()
