"""A fresh Debian in a folder, as it is after its installation: nothing but the packages that every machine has."""
import os
import pathlib
import re
import shutil
import subprocess
import tempfile

from debian_package import need, skip

USER = "anna"
OPENED = "/tmp/opened"
# What opens a file for the user notes its name.
XDG_OPEN = f"#!/bin/sh\necho \"$1\" >> {OPENED}\n"
LOCALE = "nl_NL.UTF-8"
# Settings of this machine's apt that the way to its mirror may need.
WAY_TO_THE_MIRROR = re.compile(r'Acquire::(https?::\S+|Retries|Check-[\w-]+) "[^"]+";')


def machine_release():
    return subprocess.run(["sh", "-c", ". /etc/os-release && echo $VERSION_CODENAME"], check=True, capture_output=True,
                          text=True).stdout.strip()


def machine_mirror(release):
    """Where this machine has its packages of this release from."""
    told = subprocess.run(["apt-get", "indextargets", "--format", "$(ORIGIN) $(CODENAME) $(COMPONENT) $(REPO_URI)",
                           "Created-By: Packages"], check=True, capture_output=True, text=True).stdout
    for line in told.splitlines():
        origin, codename, component, address = line.split(" ", 3)
        if (origin, codename, component) == ("Debian", release, "main"):
            return address
    skip("this machine has no mirror of Debian")
    return None


class Root:
    """A system in a folder of its own, in which commands run. Takes root."""

    def __init__(self, folder):
        need("chroot")
        self.folder = pathlib.Path(folder).resolve() / "root"

    def environment(self, user=None, **variables):
        """Nothing of this machine's."""
        return {"PATH": "/usr/sbin:/usr/bin:/sbin:/bin", "HOME": f"/home/{user}" if user else "/root",
                "LC_ALL": LOCALE if user else "C.UTF-8", "DEBIAN_FRONTEND": "noninteractive",
                "XDG_RUNTIME_DIR": "/run/user-anna", **variables}

    def words(self, command, user=None):
        """A command as this machine gives it, to be run in the root; that of a user begins in the home folder."""
        person = [f"--userspec={user}", str(self.folder), "env", "-C", f"/home/{user}"] if user else [str(self.folder)]
        return ["chroot", *person, *command]

    def run(self, *command, user=None, **variables):
        """To its end; what it says. That goes through a file: what a command leaves running would keep a pipe open."""
        words, environment = self.words(command, user), self.environment(user, **variables)
        with tempfile.TemporaryFile() as output:
            done = subprocess.run(words, env=environment, check=False, stdin=subprocess.DEVNULL, stdout=output,
                                  stderr=subprocess.STDOUT)
            output.seek(0)
            text = output.read().decode("utf-8", "replace")
        if done.returncode:
            raise RuntimeError(f"{' '.join(command)}: {text[-4000:]}")
        return text

    def note_what_is_opened(self):
        opener = self.folder / "bin/xdg-open"
        opener.write_text(XDG_OPEN, encoding="ascii")
        opener.chmod(0o755)

    def opened(self):
        """The files that have been opened for the user."""
        file = self.folder / OPENED[1:]
        return file.read_text("utf-8").splitlines() if file.exists() else []

    def processes(self, program):
        """Ids of the processes that run this program of the root."""
        found = []
        for entry in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                if os.readlink(entry / "exe") == str(self.folder / program):
                    found.append(int(entry.name))
            except OSError:
                continue  # it has ended meanwhile, or is the system's
        return found


class CleanRoot(Root):
    """Use it with `with`. It lies in the folder of the caller, who needs root and a mount namespace of its own: what is
    mounted goes with the namespace."""

    def __init__(self, folder):
        need("debootstrap", "mount")
        super().__init__(folder)
        release = machine_release()
        done = subprocess.run(["debootstrap", "--variant=minbase", release, str(self.folder), machine_mirror(release)],
                              check=False, capture_output=True, text=True)
        if done.returncode:
            skip(f"no clean root could be made: {done.stdout[-500:]}")
        own = subprocess.run(["apt-config", "dump", "Acquire"], check=True, capture_output=True, text=True).stdout
        lines = [line for line in own.splitlines() if WAY_TO_THE_MIRROR.fullmatch(line)]
        (self.folder / "etc/apt/apt.conf.d/90mirror").write_text("\n".join(lines) + "\n", encoding="utf-8")
        subprocess.run(["mount", "-t", "proc", "proc", str(self.folder / "proc")], check=True)

    def add_user(self):
        """A Dutch user, whose session has a folder for what runs."""
        self.install("locales")
        self.run("localedef", "-i", "nl_NL", "-f", "UTF-8", LOCALE)
        self.run("useradd", "--create-home", "--shell", "/bin/sh", USER)
        self.run("install", "-d", "-m", "700", "-o", USER, "/run/user-anna")

    def install(self, *packages):
        self.run("apt-get", "install", "-y", "--no-install-recommends", *packages)

    def packages(self):
        return set(self.run("dpkg-query", "-W", "-f", "${Package}\\n").split())

    def files(self):
        """Path to its kind, rights, owner and size, of all that is on the disk."""
        found = {}
        for place, folders, names in os.walk(self.folder):
            if place == str(self.folder):
                folders[:] = [name for name in folders if name not in ("proc", "sys", "dev")]
            for name in (*folders, *names):
                path = pathlib.Path(place, name)
                status = path.lstat()
                size = status.st_size if path.is_file() else 0
                found[str(path.relative_to(self.folder))] = (status.st_mode, status.st_uid, status.st_gid, size)
        return found


def in_a_namespace_of_its_own(script, arguments, inside="--inside"):
    """Runs this script once more, in a folder that is thrown away, with mounts that nobody else sees; its exit status. What it
    starts ends with it."""
    if os.geteuid() != 0:
        skip("only root can make a clean root")
    need("unshare")
    folder = tempfile.mkdtemp(prefix="clean-root-")
    try:
        words = ["unshare", "--mount", "--propagation", "private", "--pid", "--fork", "--kill-child"]
        if subprocess.run([*words, "true"], check=False, capture_output=True).returncode:
            skip("this machine allows no mounts")
        return subprocess.run([*words, script, *arguments, inside, folder], check=False).returncode
    finally:
        shutil.rmtree(folder)
