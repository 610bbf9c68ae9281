"""Single failures of the calls that concern the user's files and the print server, by strace."""
import collections
import re

ERRORS = ("ENOSPC", "EIO", "EACCES", "EINTR", "ECONNRESET")
CALLS = ("open", "openat", "read", "pread64", "write", "pwrite64", "rename", "renameat", "renameat2", "link", "linkat",
         "fsync", "close", "stat", "newfstatat", "fstat", "lstat", "statx", "access", "readlink", "mkdir", "unlink",
         "flock", "fchmod", "fchown", "lseek", "connect", "sendto", "recvfrom")
MOST = 4  # of the same call with the same file: the first ones and the last
MOST_ASKED = 16  # of the same call to the server, spread over the run: some are questions, some carry the document

LINE = re.compile(r"^(\d+) +(\w+)\((.*)$")

# The `number`th call of this name in the run, and what it is a call of.
Point = collections.namedtuple("Point", "call number what")


def watching(trace):
    return ["strace", "-f", "--seccomp-bpf", "-qq", "-yy", "-s", "300", "-e", f"trace={','.join(CALLS)}", "-e",
            "signal=none", "-o", str(trace)]


def failing(point, error, trace):
    return ["strace", "-f", "--seccomp-bpf", "-qq", "-yy", "-s", "300", "-e", f"trace={point.call}", "-e",
            "signal=none", "-e", f"inject={point.call}:error={error}:when={point.number}", "-o", str(trace)]


def object_of(call, rest, place):
    """What this call concerns: a file in `place`, with stand-ins for chance names, or the server; else nothing."""
    if call in ("connect", "sendto", "recvfrom"):
        return "" if "nscd" in rest else "the server"
    path = re.search(rf"{re.escape(str(place))}/?([^\"> ,]*)", rest)
    if not path:
        return ""
    what = re.sub(r"#\d+.*|\.settings-\w+|\.drukkeuring-\w+|QtProject\.conf\S*", "…", path[1])
    is_toolkits = what.startswith(("home/.config/QtProject", "home/.config/…")) and "tarvik" not in what
    return "" if is_toolkits else what or "."


def injected(log, place):
    """The calls that failed: each with what it concerned."""
    lines = [LINE.match(line) for line in log.splitlines() if line.endswith("(INJECTED)")]
    return [(found[2], object_of(found[2], found[3], place), found[0].partition(" ")[2][:160])
            for found in lines if found]


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
        what = object_of(call, rest, place)
        if what:
            groups[call, what].append(Point(call, counts[call], what))
    chosen = []
    for (_, what), same in groups.items():
        if what == "the server":
            step = max(1, len(same) / MOST_ASKED)
            chosen.extend(same[int(i * step)] for i in range(min(MOST_ASKED, len(same))))
        else:
            chosen.extend(same if len(same) <= MOST else same[:MOST - 1] + same[-1:])
    return chosen
