"""Reads the OCR line of 100 forms of the Linux program, as a bank does, from the PDF that it prints.

read_linux.py PRINT_FORMS TYPE
"""

import json
import pathlib
import subprocess
import sys
import tempfile

from line_reader import judge, missing_tool, read_lines

FORMS, WANTED = 100, 98
CONTRACT, TRAFFIC = "31", "1"
NOT_FOUND = 77  # exit status of a test that cannot be made here


def main():
    program, form_type = sys.argv[1:3]
    if missing_tool():
        print(f"skipped: {missing_tool()} is not installed")
        return NOT_FOUND
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder, form_type, CONTRACT, TRAFFIC, str(FORMS)], check=True)
        batch = json.loads((pathlib.Path(folder) / "forms.json").read_text("utf-8"))
        lines = read_lines(pathlib.Path(folder) / "forms.pdf", batch, FORMS, folder)
    return 0 if len(lines) == FORMS and judge(lines, WANTED) else 1


if __name__ == "__main__":
    sys.exit(main())
