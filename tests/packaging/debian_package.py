"""The Debian package, made anew from what stands in a build folder."""
import pathlib
import shutil
import subprocess
import sys

SKIPPED = 77  # exit status of a test that cannot be made here


def skip(reason):
    print(f"skipped: {reason}")
    sys.exit(SKIPPED)


def need(*tools):
    for tool in tools:
        if not shutil.which(tool):
            skip(f"{tool} is not installed")


def make(build, folder):
    """The package, in this folder. The test ends as skipped where the build folder cannot make one."""
    configuration = pathlib.Path(build) / "CPackConfig.cmake"
    if not configuration.exists():
        skip("the build folder has no configuration of a package")
    done = subprocess.run(["cpack", "--config", str(configuration.resolve()), "-B", str(folder)], check=False,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode:
        raise RuntimeError(f"no package was made:\n{done.stdout}")
    package, = pathlib.Path(folder).glob("drukkeuring_*_amd64.deb")
    return package


def field(package, name):
    """A field of the package's description."""
    return subprocess.run(["dpkg-deb", "-f", str(package), name], check=True, capture_output=True, text=True).stdout.strip()
