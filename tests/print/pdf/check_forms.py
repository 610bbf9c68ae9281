"""Prints a batch of test forms to PDF with the given program and checks every text of every form: what it says and
where it stands, by pdftotext and by measures that are written down here once more.

check_forms.py PROGRAM TYPE CONTRACT TRAFFIC
"""

import json
import os
import subprocess
import sys
import tempfile

sys.path.insert(0, os.path.dirname(__file__))
from form_checker import FontMissing, FormChecker, check_known_values  # noqa: E402

FORMS = 250
TOLERANCE_MM = 0.05
NOT_FOUND = 77  # exit status of a test that cannot be made here


def check(pdf, batch):
    checker = FormChecker(batch, pdf, TOLERANCE_MM)
    checker.run()
    if len(batch["documents"]) != FORMS:
        checker.errors.append(f"{len(batch['documents'])} documents")
    embedded = subprocess.run(["pdffonts", pdf], check=True, capture_output=True, text=True).stdout.split("\n")[2:]
    checker.errors += [f"not embedded: {line}" for line in embedded if line and line.split()[-5] != "yes"]
    return checker


def main():
    program, form_type, contract, traffic = sys.argv[1:5]
    check_known_values()
    with tempfile.TemporaryDirectory() as folder:
        subprocess.run([program, folder, form_type, contract, traffic, str(FORMS)], check=True)
        with open(os.path.join(folder, "forms.json"), encoding="utf-8") as file:
            batch = json.load(file)
        pdf = os.path.join(folder, "forms.pdf")
        if not os.path.exists(pdf):
            print("no PDF was written")
            return 1
        try:
            checker = check(pdf, batch)
        except FontMissing as missing:
            print(f"{missing} is not installed")
            return NOT_FOUND
    for error in checker.errors[:20]:
        print(error)
    print(f"{len(checker.errors)} errors, {FORMS} forms, {checker.page_count} pages, worst {checker.worst:.4f} mm")
    return 1 if checker.errors else 0


if __name__ == "__main__":
    sys.exit(main())
