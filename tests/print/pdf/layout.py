"""Where every text of a test form belongs, from the measures of the stationery. Lengths are twips from the corner of
the sheet; constants are centimetres, calibration is millimetres.

A printer begins to draw at some distance from the corner: `margin` of the batch is that distance, and `offset` is what
the program takes it for. Without them the surface begins in the corner."""

from dataclasses import dataclass, replace

CM = 567
MM = CM / 10
TOPS_CM = (0, 10.158, 20.317)
UNDER_LETTER_CM = 19.8
STUB_EDGE_CM = 3.7
SPACING = 1.1
NARROW, WIDE, UNDER_LETTER = 1, 2, 3
WEIGHTS = (2, 4, 8, 5, 10, 9, 7, 3, 6, 1, 2, 4, 8, 5, 10)
BANKS = {"ABNA": "ABNANL2A"}


@dataclass
class Text:
    text: str
    font: str
    size: float
    x: float  # left edge, or the right one
    y: float
    right: bool = False


def calibrated(base, text):
    return round(base + MM * float((text or "0").replace(",", ".")))


def check_digit(digits, length):
    padded = digits.strip().rjust(length, "0")[-length:]
    total = sum(int(digit) * weight for digit, weight in zip(reversed(padded), WEIGHTS))
    return {10: "1", 11: "0"}.get(11 - total % 11, str(11 - total % 11))


class Form:
    """One form on its place, drawn with a cursor as a typesetter would."""

    def __init__(self, batch, fonts, place):
        self.batch = batch
        self.fonts = fonts
        self.place = 3 if batch["type"] == UNDER_LETTER else place
        self.narrow = batch["type"] != WIDE
        cm = UNDER_LETTER_CM if batch["type"] == UNDER_LETTER else TOPS_CM[place]
        offset = batch.get("offset", (0, 0))
        self.left = -offset[0]
        self.top = round(cm * CM - offset[1])
        self.y = calibrated(self.top, self.setting("AcceptGiroTop"))
        self.x = calibrated(self.left, self.setting("AcceptGiroLinks"))
        self.texts = []

    def setting(self, name):
        return self.batch[name][self.place]

    def shift(self, name):
        return calibrated(0, self.setting(name))

    def line_height(self, font, size):
        return round(self.fonts[font].height(size))

    def put(self, text, font, size, x, y, right=False):
        if text.strip():
            self.texts.append(Text(text, font, size, x, y, right))

    def clipped(self, text, font, size, x):
        room = int(STUB_EDGE_CM * CM + self.x) - x
        while self.fonts[font].width(text, size) > room and len(text) >= 3:
            text = text[:-1]
        return text

    def payer(self, document):
        x, y = self.x, self.y
        left, top = self.shift("AcceptGiroNAWLinks"), self.shift("AcceptGiroNAWTop")
        word = "DRUKKEURING"
        ocr = ("ocr", float(self.batch["GMUFontSize"]))
        if not self.batch["traffic"]:
            at = max(x + 0.5 * CM, 0)
            self.put(self.clipped(word, "plain", 9, at) if self.narrow else word, "plain", 9, at, y + 1.3 * CM)
        if self.narrow:
            rows = ((document["euro"], "plain", 9, 2.1, 3, True), (document["cent"], "plain", 9, 3.2, 3, True),
                    (word, "plain", 9, 10.3, 0.8, False), (document["euro"], *ocr, 6.9, 1.75, True),
                    (document["cent"], *ocr, 8.1, 1.75, False), (document["rekening"], *ocr, 4.5, 3, False))
        else:
            rows = ((document["euro"], "plain", 9, 3, 3, True), (document["cent"], "plain", 9, 4.2, 3, True),
                    (word, "plain", 9, 11, 1, False), (document["euro"], "plain", 11, 8.2, 1.75, True),
                    (document["cent"], "plain", 11, 10, 1.75, True), (document["rekening"], "plain", 11, 8.5, 3, True))
        for text, font, size, across, down, right in rows:
            self.put(text, font, size, x + across * CM, y + down * CM, right)

        size = self.batch["AcceptFontSizeNAW2"] if self.narrow else 10
        across = x + (6.5 if self.narrow else 7.5) * CM + left
        down = y + 4 * CM + top
        if not self.narrow:
            down += self.line_height("plain", 9) * SPACING
        town = document["postcode"] + "  " + document["woonplaats"]
        lines = [document["naam"], document["partner"], document["adres"], town]
        if not self.narrow or not document["partner"]:
            del lines[1]
        for line in lines:
            self.put(line, "plain", size, across, down)
            down += self.fonts["plain"].height(size)

    def creditor(self):
        contract = self.batch["contract"]
        if contract in (-1, 1, 2, 33):
            return
        full = contract != 34
        name = self.batch["Begunstigde"] if full else ""
        town = self.batch["Woonplaats"] if full else ""
        x, y = self.x, self.y
        at = max(x + 0.25 * CM + self.shift("AcceptGiroBGSoucheLinks"), 10)
        down = y + 7 * CM + self.shift("AcceptGiroBGSoucheTop")
        self.put(self.batch["BankGiro"], "plain", 8, at, down)
        small = self.line_height("plain", 6)
        down += 1.2 * small * SPACING
        self.put(self.clipped(name, "bold", 6, at), "bold", 6, at, down)
        down += small * SPACING
        self.put(self.clipped(town, "bold", 6, at), "bold", 6, at, down)

        both = self.shift("AcceptGiroBGAcceptLinks")
        at = x + 6.5 * CM + both + (0 if self.narrow else CM)
        down = y + 6.5 * CM + both
        self.put(self.batch["BankGiro"], "plain", 9, at, down)
        line = self.line_height("plain", 7)
        down += 1.3 * line * SPACING
        self.put(name, "bold", 7, at, down)
        down += line * SPACING
        if full:
            code = self.batch["PostCode"]
            self.put(f"{self.batch['Adres']}, {code[:4]} {code[4:]}  {town}", "bold", 7, at, down)

    def ocr_fields(self, document):
        """The line's fields with their places in centimetres."""
        reference = f"1{document['volgnummer']}01{self.batch['month']:02}{self.batch['year'] % 100:02}"
        field = (check_digit(reference, 15) + reference).rjust(16, "0")[-16:]
        amount = document["euro"].zfill(6) + (document["cent"] + "000")[:2]
        account = self.batch["BankGiro"]
        fields = [(3.2, "X"), (4.45, field + "+"), (9.02, amount + check_digit(amount, 8) + "<"),
                  (11.82, BANKS[account[4:8]] + "+")]
        if self.batch["contract"] != 2:
            fields.append((14.37, account + "+"))
        fields.append((19.48, "17>"))
        return field, fields

    def ocr(self, document):
        contract = self.batch["contract"]
        if contract in (-1, 1) or not self.batch["traffic"]:
            return
        field, fields = self.ocr_fields(document)
        grouped = " ".join(field[i:i + 4] for i in range(0, 16, 4))
        size = float(self.batch["GMUFontSize"])
        x, y = self.x, self.y
        self.put(grouped, "ocr", size, x + 10 * CM + self.shift("AcceptGiroBKAcceptLinks"),
                 y + 1.75 * CM + self.shift("AcceptGiroBKAcceptTop"))
        at = max(x + 0.5 * CM + self.shift("AcceptGiroBKSoucheLinks"), 0)
        down = y + self.shift("AcceptGiroBKSoucheTop")
        self.put(grouped[:9].strip(), "ocr", 9, at, down + 1.3 * CM)
        self.put(grouped[10:].strip(), "ocr", 9, at, down + 1.8 * CM)
        if contract == 32:
            self.put(self.batch["GMUServiceNr"] + "S", "font before", 5, x + 15.7 * CM, y + 6.44 * CM)
        top = calibrated(self.top, self.setting("OCRTop"))
        left = calibrated(self.left, self.setting("OCRLinks"))
        for cm, text in fields:
            self.put(text, "ocr", size, cm * CM + left, top + 8.975 * CM)


def forms(batch, fonts):
    """The texts of all forms as (page from 1 on, texts), in the order of the batch."""
    per_sheet = 1 if batch["type"] == UNDER_LETTER else len(TOPS_CM)
    across, down = batch.get("margin", (0, 0))
    for number, document in enumerate(batch["documents"]):
        form = Form(batch, fonts, number % per_sheet)
        if batch["type"] in (NARROW, WIDE, UNDER_LETTER):
            form.payer(document)
            form.creditor()
        form.ocr(document)
        yield number // per_sheet + 1, [replace(text, x=text.x + across, y=text.y + down) for text in form.texts]
