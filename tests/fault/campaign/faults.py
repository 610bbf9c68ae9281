"""Single failures of the calls that concern the user's files and the print server, by strace."""
import collections
import re

ERRORS = ("ENOSPC", "EIO", "EACCES", "EINTR", "ECONNRESET")
CALLS = ("open", "openat", "read", "pread64", "write", "pwrite64", "rename", "renameat", "renameat2", "link", "linkat",
         "fsync", "close", "stat", "newfstatat", "fstat", "lstat", "statx", "access", "readlink", "mkdir", "unlink",
         "flock", "fchmod", "fchown", "lseek", "connect", "sendto", "recvfrom")
MOST = 4  # of the same call with the same file: the first ones and the last

LINE = re.compile(r"^(\d+) +(\w+)\((.*)$")

# The `number`th call of this name in the run, and what it is a call of.
Point = collections.namedtuple("Point", "call number what")


def watching(trace):
    return ["strace", "-f", "--seccomp-bpf", "-qq", "-yy", "-s", "300", "-e", f"trace={','.join(CALLS)}", "-e",
            "signal=none", "-o", str(trace)]


def failing(point, error, trace):
    return ["strace", "-f", "--seccomp-bpf", "-qq", "-yy", "-s", "300", "-e", f"trace={point.call}", "-e",
            "signal=none", "-e", f"inject={point.call}:error={error}:when={point.number}", "-o", str(trace)]


def injected(log):
    """The call that failed; an empty text if none did."""
    for line in log.splitlines():
        if line.endswith("(INJECTED)"):
            return line.partition(" ")[2][:160]
    return ""


def points(log, place):
    """The calls of a run that concern files in `place` or the server, each once or a few times."""
    counts, groups = collections.Counter(), collections.defaultdict(list)
    program = None
    for line in log.splitlines():
        found = LINE.match(line)
        if not found:
            continue
        process, call, rest = found.groups()
        program = program or process
        if process != program:
            continue
        counts[call] += 1
        path = re.search(rf"{re.escape(str(place))}/?([^\"> ,]*)", rest)
        if call in ("connect", "sendto", "recvfrom"):
            what = "the server"
        elif path:
            what = re.sub(r"#\d+.*|\.settings-\w+|\.drukkeuring-\w+|QtProject\.conf\S*", "…", path[1])
        else:
            continue
        if what.startswith(("home/.config/QtProject", "home/.config/…")) and "tarvik" not in what:
            continue
        groups[call, what].append(Point(call, counts[call], what))
    chosen = []
    for same in groups.values():
        keep = same if len(same) <= MOST else same[:MOST - 1] + same[-1:]
        chosen.extend(keep)
    return chosen
