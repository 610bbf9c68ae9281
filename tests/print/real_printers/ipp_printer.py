"""IPP printers without a driver: ippeveprinter, on a loopback port, with what it is told kept in files. It takes the
bus of the machine's services for granted, so it gets one of its own, with nobody on it."""

import os
import pathlib
import socket
import subprocess
import tempfile
import time

# Called by the printer for each job, with the document's name; the attributes of the job are in the environment.
COMMAND = """#!/bin/sh
env > @/jobs/part
cp "$1" @/jobs/document.$IPP_JOB_ID
mv @/jobs/part @/jobs/attributes.$IPP_JOB_ID
"""


def free_port():
    with socket.socket() as listener:
        listener.bind(("localhost", 0))
        return listener.getsockname()[1]


class Bus:
    def __init__(self, folder):
        self.address = f"unix:path={folder}/bus"
        self._process = subprocess.Popen(
            ["dbus-daemon", "--session", f"--address={self.address}", "--nofork", "--nopidfile"],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        end = time.monotonic() + 10
        while not (pathlib.Path(folder) / "bus").exists() and time.monotonic() < end:
            time.sleep(0.01)

    def close(self):
        self._process.terminate()
        self._process.wait()


class IppPrinter:
    """`attributes` are in ippeveprinter's own file format."""

    def __init__(self, name, attributes):
        self._owner = tempfile.TemporaryDirectory(prefix="ippprinter")
        self.folder = pathlib.Path(self._owner.name)
        (self.folder / "jobs").mkdir()
        (self.folder / "spool").mkdir()
        command = self.folder / "command"
        command.write_text(COMMAND.replace("@", str(self.folder)), encoding="utf-8")
        command.chmod(0o755)
        self._bus = Bus(self.folder)
        self.port = free_port()
        (self.folder / "attributes.conf").write_text(attributes, encoding="utf-8")
        self._log = (self.folder / "log").open("wb")
        self._process = subprocess.Popen(
            ["ippeveprinter", "-r", "off", "-p", str(self.port), "-n", "localhost", "-d", self.folder / "spool", "-k",
             "-v", "-c", command, "-a", self.folder / "attributes.conf", name],
            env={**os.environ, "DBUS_SYSTEM_BUS_ADDRESS": self._bus.address}, stdout=self._log, stderr=self._log)
        self._wait()

    def uri(self):
        return f"ipp://localhost:{self.port}/ipp/print"

    def _wait(self):
        end = time.monotonic() + 10
        while time.monotonic() < end:
            with socket.socket() as client:
                if client.connect_ex(("localhost", self.port)) == 0:
                    return
            time.sleep(0.02)
        raise RuntimeError("the printer does not start:\n" + (self.folder / "log").read_text("utf-8", "replace")[-500:])

    def job(self, patience=60):
        """Attributes and document of the newest job, as the printer has got it."""
        end = time.monotonic() + patience
        while time.monotonic() < end:
            files = sorted((self.folder / "jobs").glob("attributes.*"), key=lambda file: int(file.suffix[1:]))
            if files:
                lines = files[-1].read_text("utf-8", "replace").splitlines()
                found = dict(line.split("=", 1) for line in lines if line.startswith("IPP_"))
                return found, files[-1].with_name("document" + files[-1].suffix)
            time.sleep(0.05)
        raise RuntimeError("the printer gets no job:\n" + (self.folder / "log").read_text("utf-8", "replace")[-800:])

    def forget(self):
        for file in (self.folder / "jobs").iterdir():
            file.unlink()

    def close(self):
        self._process.terminate()
        self._process.wait()
        self._bus.close()
        self._log.close()
        self._owner.cleanup()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()
