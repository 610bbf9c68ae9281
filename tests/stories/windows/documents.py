"""What has been printed, in the record and on paper."""
import pathlib
import re
import subprocess
import tempfile

from print_server import PATIENCE
from wine_prefix import skip

PAGE = re.compile(rb"^%%Page: ", re.M)


def told_in(records):
    """The documents of a record: the words of each page, in alphabetical order."""
    pages = [[]]
    for record in records:
        if record.get("surface") != "printer":
            continue
        if record["event"] == "text":
            pages[-1] += record["text"].split()
        elif record["event"] == "page":
            pages.append([])
        elif record["event"] == "end":
            yield [sorted(page) for page in pages]
            pages = [[]]


def pages_of(document):
    return len(PAGE.findall(document))


def words_of_pages(document):
    with tempfile.TemporaryDirectory() as folder:
        source, pdf = pathlib.Path(folder, "job.ps"), pathlib.Path(folder, "job.pdf")
        source.write_bytes(document)
        try:
            subprocess.run(["ps2pdf", source, pdf], check=True, capture_output=True, timeout=PATIENCE)
            text = subprocess.run(["pdftotext", "-layout", pdf, "-"], check=True, capture_output=True, timeout=PATIENCE)
        except FileNotFoundError as error:
            skip(f"{error.filename} is not installed")
    return [sorted(page.split()) for page in text.stdout.decode("utf-8").split("\f")[:-1]]
