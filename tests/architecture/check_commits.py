#!/usr/bin/env python3
"""Checks the subjects of the commits since the last tag, of the last 50 at most: 72 characters, no full stop at the end.

Ends with 77, which skips the test, where there is no history to look at.
"""
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parents[2]
MOST = 50
LONGEST = 72
# Older ones were written before there was a rule.
BEFORE_THE_RULE = "78da3b3"
SKIPPED = 77


def git(*arguments):
    """What git prints, or nothing where it fails."""
    try:
        done = subprocess.run(["git", *arguments], cwd=ROOT, capture_output=True, text=True, encoding="utf-8", check=False)
    except OSError:
        return ""
    return done.stdout.strip() if done.returncode == 0 else ""


def history():
    """The commits in question, one a line: short name, blank, subject."""
    if pathlib.Path(git("rev-parse", "--show-toplevel") or "/") != ROOT:
        return []
    since = [git("describe", "--tags", "--abbrev=0"), git("rev-parse", "--verify", "--quiet", BEFORE_THE_RULE + "^{commit}")]
    return git("log", "--no-merges", f"--max-count={MOST}", "--format=%h %s", "HEAD", *(f"^{start}" for start in since if start)).splitlines()


def complaints(commits):
    for commit in commits:
        subject = commit.partition(" ")[2]
        if len(subject) > LONGEST:
            yield f"{commit}: {len(subject)} characters, {LONGEST} at most"
        if subject.endswith("."):
            yield f"{commit}: ends in a full stop"


def main():
    commits = history()
    if not commits:
        print("No commits to look at.")
        return SKIPPED
    found = list(complaints(commits))
    print("\n".join(found) or f"{len(commits)} subjects are short and end without a full stop.")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
