"""Runs a Python test that needs a program of another build: needs.py PROGRAM TEST [ARGUMENT...]

Ends with 77, which skips the test, where that program was not built.
"""
import os
import sys

program, *test = sys.argv[1:]
if not os.path.exists(program):
    print(f"{program} was not built.")
    sys.exit(77)
os.execv(sys.executable, [sys.executable, "-B", *test])
