#!/usr/bin/env python3
"""Watches a whole demonstration run and checks every file that it makes, changes or removes, and every program that it
starts. It starts in folders of its own, so whatever is written elsewhere is a fault.

check_writes.py DEMONSTRATION
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

NOT_FOUND = 77  # exit status of a test that cannot be made here
CALLS = ("open,openat,openat2,creat,rename,renameat,renameat2,unlink,unlinkat,rmdir,mkdir,mkdirat,mknod,mknodat,link,"
         "linkat,symlink,symlinkat,chmod,fchmodat,chown,lchown,fchownat,truncate,execve,execveat")
NAME = r"[^/]+"
# What the run may write. The demonstration keeps the user's settings in a temporary folder.
ALLOWED = (
    r"out",
    rf"out/{NAME}\.(pdf|png)",
    rf"tmp/{NAME}",
    rf"tmp/{NAME}/screen\.json",
    rf"tmp/{NAME}/tarvik",
    rf"tmp/{NAME}/tarvik/(settings\.reg|\.settings-{NAME})",
    rf"tmp/{NAME}/QtProject\.conf({NAME})?",  # the toolkit's: the folders that its file window has shown
    r"runtime",
)
WRITING = re.compile(r"O_(WRONLY|RDWR|CREAT|TRUNC|APPEND|TMPFILE)")
DEVICES = re.compile(r"/dev/(null|tty|shm/\S*|urandom)|/proc/self/\S+")


def started(program, folder):
    """What the run has called, line by line; None where nobody may watch."""
    names = {name: str(folder / name) for name in ("home", "out", "tmp", "runtime", "work")}
    for path in names.values():
        os.mkdir(path, 0o700)
    environment = {"PATH": os.environ["PATH"], "HOME": names["home"], "TMPDIR": names["tmp"],
                   "XDG_RUNTIME_DIR": names["runtime"], "LC_ALL": "C.UTF-8", "QT_QPA_PLATFORM": "offscreen",
                   "ASAN_OPTIONS": "detect_leaks=0"}  # that watches the process itself, and only one can
    trace = folder / "trace"
    done = subprocess.run(["strace", "-f", "-qq", "-y", "-s", "4096", "-e", f"trace={CALLS}", "-o", trace, program,
                           names["out"]], cwd=names["work"], env=environment, check=False, capture_output=True, text=True)
    if "PTRACE" in done.stderr and not done.stdout:
        return None
    if done.returncode:
        raise SystemExit(f"the demonstration failed:\n{done.stdout}{done.stderr}")
    return trace.read_text("utf-8", "replace").splitlines()


def targets(line):
    """The paths that a call of this line makes or changes; none if it failed or only reads."""
    call = re.match(r"\d+ +(\w+)\((.*)\) += (-?\d+)", line)
    if not call or int(call[3]) < 0 or call[1] == "execve":
        return []
    name, arguments = call[1], call[2]
    if name.startswith("open") and not WRITING.search(arguments):
        return []
    work = re.search(r"AT_FDCWD<(.*?)>", arguments)
    paths = re.findall(r'"((?:[^"\\]|\\.)*)"', arguments)
    return [os.path.normpath(os.path.join(work[1], path) if work else path) for path in paths]


def complaints(lines, folder):
    programs = [line for line in lines if re.search(r" execve(at)?\(", line)]
    if len(programs) != 1:
        yield f"programs were started: {programs[1:]}"
    allowed = re.compile("|".join(ALLOWED))
    written = {path for line in lines for path in targets(line) if not DEVICES.fullmatch(path)}
    for path in sorted(written):
        if not path.startswith(f"{folder}/") or not allowed.fullmatch(path[len(str(folder)) + 1:]):
            yield f"{path} was written"
    for kind in ("out/.*\\.pdf", "tmp/.*/settings\\.reg"):
        if not any(re.fullmatch(f"{folder}/{kind}", path) for path in written):
            yield f"nothing was seen of {kind}"
    for name in ("home", "work", "tmp", "runtime"):
        for path in (folder / name).rglob("*"):
            yield f"{path} was left behind"


def main():
    if not shutil.which("strace"):
        print("skipped: strace is not installed")
        return NOT_FOUND
    with tempfile.TemporaryDirectory() as place:
        folder = pathlib.Path(place).resolve()
        lines = started(sys.argv[1], folder)
        if lines is None:
            print("skipped: processes may not be watched here")
            return NOT_FOUND
        found = list(complaints(lines, folder))
    print("\n".join(found) or f"{len(lines)} calls, and all is written where it belongs.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
