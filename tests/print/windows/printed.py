"""Documents as they come out of the print server's queue, and what they should say."""
import os
import pathlib
import re
import subprocess
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parents[1] / "pdf"))
from form_checker import TWIPS_PER_MM, words  # noqa: E402
from layout import MM, TOPS_CM, CM  # noqa: E402

PERSON_ROWS = pathlib.Path(__file__).parents[3] / "src" / "testdata" / "generated" / "PersonRows.inc"
ACCOUNT_ROWS = PERSON_ROWS.with_name("AccountRows.inc")
LIST_LENGTH = 249
LIST_COLUMNS = (0, 5000, 8000, 9500)
REPORT_COLUMN = 5000
SAME_LINE_TWIPS = 60
NEAR_MM = 2


def features(document):
    """What the document asks of the printer: the chosen entry of each of its lists."""
    return {name.decode(): value.decode()
            for name, value in re.findall(rb"%%BeginFeature: \*(\w+) (\w+)", document)}


def as_pdf(document, folder):
    source, pdf = os.path.join(folder, "job.ps"), os.path.join(folder, "job.pdf")
    pathlib.Path(source).write_bytes(document)
    subprocess.run(["ps2pdf", source, pdf], check=True, capture_output=True)
    return pdf


def settings_of(reg_file):
    """Values of the first key of an exported file."""
    text = reg_file.read_text("utf-16").split("\n[")[1]
    return dict(re.findall(r'^"(\w+)"="(.*)"', text, re.M))


def rows_of(file):
    return [line.strip()[1:-1] for line in file.read_text("utf-8").splitlines() if line.startswith('"')]


def persons():
    """As the documents show them."""
    for row in rows_of(PERSON_ROWS):
        name, partner = row[:80], ""
        if "e/o" in name:
            first, partner = name.split("e/o", 1)
            name, partner = first.strip() + " e/o", partner.strip()
        yield {"naam": name, "partner": partner, "postcode": row[80:87], "adres": row[88:138], "woonplaats": row[138:]}


def accounts():
    """Those that can be drawn."""
    return {row.split(",")[1] for row in rows_of(ACCOUNT_ROWS)[1:22501]}


def numbers_without_account(count):
    """After six forms every 26th has none, and the first six of each round through the list do not count."""
    waiting, found = 0, set()
    for number in range(count):
        if number % LIST_LENGTH > 5:
            waiting += 1
            if waiting > 25:
                waiting = 0
                found.add(number)
    return found


class Batch:
    """A batch of forms, recovered from its pages: what was drawn by chance stands in the account and in the amount
    of the OCR line, and all else follows from it."""

    PLACES = ("AcceptGiroTop", "AcceptGiroLinks", "AcceptGiroNAWLinks", "AcceptGiroNAWTop", "AcceptGiroBKSoucheLinks",
              "AcceptGiroBKSoucheTop", "AcceptGiroBKAcceptLinks", "AcceptGiroBKAcceptTop", "AcceptGiroBGSoucheLinks",
              "AcceptGiroBGSoucheTop", "AcceptGiroBGAcceptLinks", "OCRLinks", "OCRTop")

    def __init__(self, settings, pdf, count, month, margin, offset):
        self.settings = settings
        self.margin = margin
        self.offset = offset
        _, self.pages = words(pdf)
        people = list(persons())
        self.record = {
            "type": int(settings["AcceptgiroType"]), "contract": int(settings["GMUContractVorm"]),
            "traffic": settings["GMUVerkeer"] == "1", "year": month[0], "month": month[1],
            "AcceptFontSizeNAW2": float(settings["AcceptFontSizeNAW2"]), "GMUFontSize": settings["GMUFontSize"],
            "GMUServiceNr": settings["GMUServiceNr"], "Begunstigde": settings["IncassantBegunstigde"],
            "Adres": settings["IncassantAdres"], "PostCode": settings["IncassantPostCode"].replace(" ", ""),
            "Woonplaats": settings["IncassantWoonplaats"], "BankGiro": settings["IncassantBankGiro"],
            "margin": margin, "offset": offset,
            **{name: [settings[f"{name}{place}"] for place in range(4)] for name in self.PLACES},
            "documents": [{**people[number], **self.drawn(number), "volgnummer": f"{number + 1:08}"}
                          for number in range(count)],
        }

    def millimetres(self, name, place):
        return float(self.settings[f"{name}{place}"].replace(",", ".") or 0)

    def near(self, number, pattern, across_cm, down_cm, shift):
        """The word of this form with this pattern that begins about here, in centimetres of the form; or none."""
        place = number % len(TOPS_CM)
        left = across_cm * CM + self.millimetres(f"{shift}Links", place) * MM
        top = (TOPS_CM[place] + down_cm) * CM + self.millimetres(f"{shift}Top", place) * MM
        return next((text for text, x, _, y in self.pages[number // len(TOPS_CM) + 1] if re.fullmatch(pattern, text)
                     and abs(x - left) < NEAR_MM * TWIPS_PER_MM and abs(y - top) < NEAR_MM * TWIPS_PER_MM), None)

    def drawn(self, number):
        amount = self.near(number, r"\d{9}<", 9.02, 8.975, "OCR") or "0" * 9
        account = self.near(number, r"NL\d\d[A-Z]{4}\d{10}", 4.5, 3, "AcceptGiro") or ""
        return {"euro": str(int(amount[:6])), "cent": amount[6:8], "rekening": account}

    def errors(self):
        """What chance may not draw."""
        known = accounts()
        documents = self.record["documents"]
        empty = {number for number, document in enumerate(documents) if not document["rekening"]}
        if empty != numbers_without_account(len(documents)):
            yield f"forms without an account: {sorted(empty)}"
        for number, document in enumerate(documents):
            if document["rekening"] and document["rekening"] not in known:
                yield f"form {number + 1}: {document['rekening']} is no test account"
            if not (1 <= int(document["euro"]) <= 998 and 1 <= int(document["cent"]) <= 98):
                yield f"form {number + 1}: {document['euro']},{document['cent']} is no amount"
        if len({document["rekening"] for document in documents}) < len(documents) / 2:
            yield "the accounts are hardly drawn by chance"


def lines(page):
    """Words of a page line by line, from left to right."""
    found = []
    for word in sorted(page, key=lambda word: word[3]):
        if not found or word[3] - found[-1][0][3] > SAME_LINE_TWIPS:
            found.append([])
        found[-1].append(word)
    return [sorted(line, key=lambda word: word[1]) for line in found]


def text_of(line):
    return " ".join(word[0] for word in line)


def name_list_errors(pdf, left):
    """`left` is where the first column begins on the sheet, in twips."""
    header = ["Naam", "Adres", "Postcode", "Woonplaats"]
    rows = []
    count, pages = words(pdf)
    for number in range(1, count + 1):
        first, *others = lines(pages[number])
        rows += others
        if [word[0] for word in first] != header:
            yield f"page {number} begins with {text_of(first)}"
        for column, word in zip(LIST_COLUMNS, first):
            if abs(word[1] - left - column) > 0.1 * TWIPS_PER_MM:
                yield f"page {number}: {word[0]} stands at {word[1]}"
    if len(rows) != LIST_LENGTH:
        yield f"{len(rows)} rows"
    for number, (person, row) in enumerate(zip(persons(), rows), start=1):
        name = f"{number:03} : {person['naam']} {person['partner']}".split()
        columns = [name, person["adres"].split(), person["postcode"].split(), person["woonplaats"].split()]
        if sorted(word[0] for word in row) != sorted(sum(columns, [])):
            yield f"row {number}: {text_of(row)}"
        for column, expected in zip(LIST_COLUMNS, columns):
            if not any(word[0] == expected[0] and abs(word[1] - left - column) <= 0.1 * TWIPS_PER_MM for word in row):
                yield f"row {number}: {expected[0]} does not begin its column"


LEFT_SECTIONS = (("OCR regel", "OCR"), ("Integrale acceptgiro (behalve OCR-regel)", "AcceptGiro"),
                 ("Naam/adres/woonplaatsgegevens", "AcceptGiroNAW"),
                 ("Betalingskenmerk (linkersouche)", "AcceptGiroBKSouche"))
RIGHT_SECTIONS = (("Betalingskenmerk op acceptgiro", "AcceptGiroBKAccept"),
                  ("Incassant/begunstigde op linker souche", "AcceptGiroBGSouche"),
                  ("Incassant/begunstigde op acceptgiro", "AcceptGiroBGAccept"))
WITH_CORRECTION = "AcceptGiroBGAccept"
BEHIND_SECTIONS = (
    "NB: De calibratie X (naar links/rechts) en de Y (naar boven/beneden) waarde worden bepaald vanaf de basispositie op "
    "de acceptgiro.",
    "Bij een X van 1,00 en een Y van -1,00 wordt vanaf de basispositie 1 mm. naar rechts en 1 mm. naar boven afgedrukt.",
    "Contractvorm: C-Contract - Blanco acceptgiro zonder servicenr.")
TYPES = {"1": "Acceptgiro's, 3 op 1 vel, smalle souche", "2": "Acceptgiro's, 3 op 1 vel, brede souche",
         "3": "Acceptgiro onder brief, smalle souche"}
FONT_SAMPLE = ("OCR-B schrift : 1234567890+><ABCDEFGHIJKLMNOPQRSTUVWXYZ", "Bovenstaand is het door u gekozen OCR-B schrift")


def section(settings, title, stem):
    yield title
    for place in range(4):
        yield f"Acceptgiro {place + 1}" if place < 3 else "Acceptgiro onder brief"
        for letter, way in (("X", "Links"), ("Y", "Top")):
            value = settings[f"{stem}{way}{place}"]
            twips = round(MM * float(value.replace(",", ".")))
            yield f"{letter}-waarde : {value}" + f" - Correctie naar printer: {twips}" * (stem == WITH_CORRECTION)


def report_errors(pdf, settings, left):
    count, pages = words(pdf)
    if count != 1:
        yield f"{count} pages"
    first, *rows = lines(pages[1])
    behind = next((number for number, row in enumerate(rows) if row[0][0] == "NB:"), len(rows))
    edge = left + REPORT_COLUMN - SAME_LINE_TWIPS
    columns = [[[word for word in row if (word[1] < edge) == is_left] for row in rows[:behind]]
               for is_left in (True, False)]
    said = [text_of(row) for row in [first, *columns[0], *columns[1], *rows[behind:]] if row]
    wanted = ["Instellingen calibratie acceptgiro in millimeters"]
    for title, stem in (*LEFT_SECTIONS, *RIGHT_SECTIONS):
        wanted += section(settings, title, stem)
    wanted += [*BEHIND_SECTIONS, f"Acceptgiro type: {TYPES.get(settings['AcceptgiroType'], '')}".strip(), *FONT_SAMPLE]
    for is_, should in zip(said, wanted):
        if is_ != should:
            yield f"{is_!r} instead of {should!r}"
    if len(said) != len(wanted):
        yield f"{len(said)} lines instead of {len(wanted)}"
