"""A print server (cupsd) of the test's own, on a socket in a temporary folder: it knows nothing of the machine's and
leaves it alone. What would go to a printer is for a test to keep: it writes the backends."""
import ctypes
import os
import pathlib
import pwd
import shutil
import signal
import socket
import subprocess
import tempfile
import time

PROGRAMS = pathlib.Path("/usr/lib/cups")
PATIENCE = 300  # seconds
TOOLS = os.environ.get("PATH", "") + ":/usr/sbin:/sbin"

# "@" is the server's folder, {more} what a test wants besides.
CONFIGURATION = """Listen @/cups.sock
Browsing Off
DefaultAuthType None
WebInterface No
{more}<Location />
  Order allow,deny
  Allow all
</Location>
<Policy default>
  <Limit All>
    Order allow,deny
    Allow all
  </Limit>
</Policy>
"""

FILES = """SystemGroup root
{user}FileDevice Yes
FatalErrors config
ServerRoot @
ServerBin @/bin
DataDir {data}
CacheDir @/cache
StateDir @/state
RequestRoot @/spool
TempDir @/spool/tmp
AccessLog @/access.log
ErrorLog @/error.log
PageLog @/page.log
"""


def end_with_parent():
    """For a process that has just begun: it ends with the one that began it, also where that is killed."""
    parent_death_signal = 1
    ctypes.CDLL(None).prctl(parent_death_signal, signal.SIGTERM)


def is_installed():
    return (PROGRAMS / "daemon/cups-exec").exists() and bool(shutil.which("cupsd", path=TOOLS)) \
        and bool(shutil.which("lpadmin", path=TOOLS))


class PrivateServer:
    """Close it, or use it with `with`. It is started once all is written that it is to find."""

    def __init__(self, more="", data="@/share", folders=()):
        """`more` is configuration, `data` the folder of its types, `folders` are made besides those it needs."""
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="print-"))  # short: a socket's path is limited
        self._process = None
        for name in ("bin/backend", "bin/filter", "cache", "state", "spool/tmp", "out", "ppd", "ssl", *folders):
            (self.folder / name).mkdir(parents=True)
        user = "" if os.getuid() == 0 else f"User {pwd.getpwuid(os.getuid()).pw_name}\n"
        self.write("cupsd.conf", CONFIGURATION.replace("{more}", more))
        self.write("cups-files.conf", FILES.replace("{user}", user).replace("{data}", data))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def start(self):
        self._process = subprocess.Popen(
            ["cupsd", "-f", "-c", str(self.folder / "cupsd.conf"), "-s", str(self.folder / "cups-files.conf")],
            env={**os.environ, "PATH": TOOLS}, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=end_with_parent)
        self._wait_until_it_listens()

    def stop(self):
        """Ends the server, as a machine does that is switched off."""
        if self._process:
            self._process.terminate()
            try:
                self._process.wait(PATIENCE)
            except subprocess.TimeoutExpired:
                self._process.kill()
                self._process.wait()
            self._process = None

    def close(self):
        self.stop()
        shutil.rmtree(self.folder, ignore_errors=True)

    @property
    def settings(self):
        """Variables that point a program at this server."""
        return {"CUPS_SERVER": str(self.folder / "cups.sock")}

    def environment(self):
        """For programs that are to print here."""
        return {**os.environ, "PATH": TOOLS, **self.settings}

    def lpadmin(self, *arguments):
        """An administrator's command. A server on a busy machine may drop a connection: it is asked again."""
        for wait in (0.1, 0.5, None):
            done = subprocess.run(["lpadmin", *map(str, arguments)], stdout=subprocess.DEVNULL, stderr=subprocess.PIPE,
                                  text=True, env=self.environment())
            if not done.returncode:
                return
            if wait is None:
                raise RuntimeError(f"lpadmin {' '.join(map(str, arguments))}: {done.stderr.strip()}")
            time.sleep(wait)

    def log(self):
        file = self.folder / "error.log"
        return file.read_text("utf-8", "replace") if file.exists() else ""

    def write(self, name, text, mode=0o644):
        """A file of the server's."""
        file = self.folder / name
        file.write_text(text.replace("@", str(self.folder)), encoding="utf-8")
        file.chmod(mode)

    def _wait_until_it_listens(self):
        """The socket's name is there before the server listens on it, and before it answers."""
        end = time.monotonic() + PATIENCE
        while not self._answers():
            if self._process.poll() is not None:
                raise RuntimeError(f"the print server ended with {self._process.returncode}:\n{self.log()}")
            if time.monotonic() > end:
                raise TimeoutError(f"the print server does not listen:\n{self.log()}")
            time.sleep(0.005)

    def _answers(self):
        with socket.socket(socket.AF_UNIX) as client:
            client.settimeout(PATIENCE)
            try:
                client.connect(str(self.folder / "cups.sock"))
                client.sendall(b"OPTIONS / HTTP/1.1\r\nHost: localhost\r\nConnection: close\r\n\r\n")
                return client.recv(16).startswith(b"HTTP/")
            except OSError:
                return False
