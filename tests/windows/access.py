#!/usr/bin/env python3
"""The windows as assistive technology meets them: controls stand in the order in which they are read, a label right before the
field that it names, what shows no text has one, and the Tab key comes to everything.

    access.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
from agent import Window, text_of
from failures import test_in_office
from messages import COMBO, EDIT, LIST, STATIC, VK_TAB
from office import FORMS

PLAIN, PROGRESS, SCROLL_BAR, TOOLBAR, UP_DOWN = (
    "DrukkeuringPlain", "msctls_progress32", "ScrollBar", "ToolbarWindow32", "msctls_updown32")
TB_GETBUTTONTEXTW = 0x044B
ROLE_PUSH_BUTTON, STATE_UNAVAILABLE = 0x2B, 0x1
NAMED_BY_LABEL = {COMBO, EDIT, LIST, PROGRESS}
NAMED_BY_THEMSELVES = {"Button", PROGRESS, SCROLL_BAR, TOOLBAR, UP_DOWN}

# The fields of each page and the label that a user knows them by.
LABELS = {
    ("frmMain", 0): {"UserText(70)": "Incassant:", "UserText(71)": "Adres:", "UserText(72)": "Postcode:",
                     "UserText(73)": "Woonplaats:", "UserText(74)": "IBAN:"},
    ("frmMain", 3): {"UserText(0)": "Aantal af te drukken IBAN-acceptgiroformulieren:"},
    ("frmPrintManager", 1): {
        "lstAfdrukken": "Afdrukken:", "UserText(0)": "Aantal copieën afdrukken: ", "cboPrinterSelect(0)": "Printer:",
        "ProgressBar": "Progressie:", "cboPrinterSelect(1)": "Papierformaat:", "cboPrinterSelect(2)": "Papierlade:",
        "cboPrinterSelect(3)": "Papier oriëntatie"},
}

# What shows no text, or none of its own.
NAMES = {
    ("frmMain", 0): {"WizardPanel(0)": "Incassant en instellingen"},
    ("frmMain", 1): {"WizardPanel(1)": "Procedure"},
    ("frmMain", 2): {"WizardPanel(2)": "Omvang van de testpartij"},
    ("frmMain", 3): {"WizardPanel(3)": "Afdrukken", "UpDown": "Aantal af te drukken IBAN-acceptgiroformulieren"},
    ("frmPrintManager", 1): {"pictMyOrientation": "Papier oriëntatie", "pictDetails": "Printerdetails",
                             "ProgressBar": "Progressie", "UpDown": "Aantal copieën afdrukken"},
    ("frmPrintPreview", 0): {"cmdUp": "Vorige pagina", "cmdDown": "Volgende pagina", "pictCurrentPage": "Pagina",
                             "VScroll": "Verticaal schuiven", "Toolbar": "Werkbalk"},
}

# The round of the Tab key.
ROUNDS = {
    ("frmMain", 0): ["UserText(70)", "UserText(71)", "UserText(72)", "UserText(73)", "UserText(74)", "Verder", "Cancel"],
    ("frmMain", 1): ["optProcedure(0)", "optProcedure(1)", "Terug", "Verder", "Cancel"],
    ("frmMain", 2): ["optTestpartij(0)", "optTestpartij(1)", "optTestpartij(2)", "Terug", "Verder", "Cancel"],
    ("frmMain", 3): ["UserText(0)", "cmdPrinten", "cmdVoorcontrole", "Terug", "Cancel"],
    ("frmPrintManager", 1): ["lstAfdrukken", "UserText(0)", "cboPrinterSelect(0)", "chkMatrixPrinter", "cmdDetails",
                             "cboPrinterSelect(3)", "cboPrinterSelect(1)", "cboPrinterSelect(2)", "cmdAnnuleren"],
}

# Texts that are read one after the other, of what stands in one window or area.
READINGS = {
    ("frmMain", 0): ("WizardPanel(0)", ["Incassant:", "UserText(70)", "Adres:", "UserText(71)", "Postcode:", "UserText(72)",
                                        "Woonplaats:", "UserText(73)", "IBAN:", "UserText(74)",
                                        "Controleer uw IBAN nummer voordat u verder gaat.", "Let op:"]),
    ("frmMain", 3): (None, ["Terug", "Verder", "Cancel"]),
    ("frmPrintManager", 1): (None, ["Aantal copieën afdrukken: ", "UserText(0)", "UpDown"]),
}


class Control:
    """A window with what it is and says."""

    def __init__(self, user, form, words):
        kind, number, self.handle, text = words
        self.kind = text_of(kind)
        self.text = text_of(text)
        name = user.ids.name(form, int(number))
        self.name = None if name in {None, "Label"} else name
        window = Window(user.agent, self.handle)
        self.shown, self.usable = window.shown, window.usable
        self.parent = user.agent.ask("parent", self.handle)

    @property
    def read(self):
        """A label by what it says, anything else by what the program calls it."""
        return self.text if self.kind == STATIC else self.name


class Walker:
    """Goes through the windows and holds each against what it should be."""

    def __init__(self, office, failures):
        self.office = office
        self.user = office.user
        self.equal = failures.equal

    def controls(self, form):
        """Those on show, in the order in which the system lists them."""
        words = self.user.agent.ask("children", self.user.form(form).handle).split()
        found = [Control(self.user, form, words[i:i + 4]) for i in range(0, len(words), 4)]
        return [control for control in found if control.shown]

    def check(self, form, page=0):
        controls = self.controls(form)
        where = f"{form} {page}"
        self.equal(len(controls) > 5, True, f"{where} has controls")
        self.check_texts(controls, where)
        self.check_labels(controls, LABELS.get((form, page), {}), where)
        named = {control.name: control.text for control in controls}
        for control, name in NAMES.get((form, page), {}).items():
            self.equal(named.get(control), name, f"{where} {control} is called")
        if (form, page) in READINGS:
            self.check_reading(form, controls, *READINGS[form, page], where)
        if (form, page) in ROUNDS:
            self.check_round(form, ROUNDS[form, page], where)

    def check_texts(self, controls, where):
        silent = [control.name for control in controls if control.kind in NAMED_BY_THEMSELVES and not control.text.strip()]
        self.equal(silent, [], f"{where}: controls without a text")
        internal = [control.name for control in controls
                    if control.name and control.text and control.text == control.name.split("(")[0]]
        self.equal(internal, [], f"{where}: controls called by the program's own names")

    def check_labels(self, controls, labels, where):
        """The text right before a field names it, if nothing that can be used stands between them."""
        fields = [control for control in controls if control.kind in NAMED_BY_LABEL and control.name]
        self.equal(sorted(control.name for control in fields if control.name not in labels), [],
                   f"{where}: fields without a label")
        for field in fields:
            siblings = [control for control in controls if control.parent == field.parent]
            before = siblings[siblings.index(field) - 1] if field is not siblings[0] else None
            self.equal(before and before.kind == STATIC and before.text, labels.get(field.name),
                       f"{where} {field.name} is labelled")

    def check_reading(self, form, controls, area, texts, where):
        parent = str(self.user.handle(form, area) if area else self.user.form(form).handle)
        read = [control.read for control in controls if control.parent == parent and control.read in texts]
        self.equal(read, texts, f"{where} is read")

    def focused(self, form):
        return self.user.ids.name(form, self.user.agent.number("id", self.user.agent.number("focus")))

    def check_round(self, form, stops, where):
        first = self.focused(form)
        met = [first]
        while len(met) <= len(stops):
            self.user.press(form, VK_TAB)
            if self.focused(form) == first:
                break
            met.append(self.focused(form))
        start = met.index(stops[0]) if stops[0] in met else 0
        self.equal(met[start:] + met[:start], stops, f"{where}: the round of Tab")

    def check_toolbar(self):
        bar = self.user.handle("frmPrintPreview", "Toolbar")
        texts = [text_of(self.user.agent.ask("fetch", bar, TB_GETBUTTONTEXTW, self.user.ids.tool(number)))
                 for number in (3, 4, 5, 6, 8)]
        self.equal(texts, ["Eerste pagina", "Vorige pagina", "Volgende pagina", "Laatste pagina", "Afdrukvoorbeeld sluiten"],
                   "the toolbar's buttons")

    def check_arrows(self):
        """One that is off keeps its window as it is; what a screen reader is told of it says so."""
        told = {}
        for name in ("cmdUp", "cmdDown"):
            role, state, text = self.user.agent.ask("accessible", self.user.handle("frmPrintPreview", name)).split()
            told[name] = int(role), int(state) & STATE_UNAVAILABLE, text_of(text)
        self.equal(told, {"cmdUp": (ROLE_PUSH_BUTTON, STATE_UNAVAILABLE, "Vorige pagina"),
                          "cmdDown": (ROLE_PUSH_BUTTON, 0, "Volgende pagina")}, "on the first page a screen reader is told")

    def walk(self):
        office = self.office
        office.play("start")
        for page, option in enumerate([None, "optProcedure(0)", "optTestpartij(2)"]):
            self.check("frmMain", page)
            office.play(*[f"click frmMain.{option}"] * bool(option), "click frmMain.Verder")
        office.wait_for_precheck()
        self.check("frmMain", 3)
        office.open_manager(details=True)
        self.check("frmPrintManager", 1)
        office.pick_document(FORMS)
        office.play("click frmPrintManager.cmdPrintVoorbeeld")
        self.check("frmPrintPreview")
        self.check_toolbar()
        self.check_arrows()
        office.play("click frmPrintPreview.Toolbar(8)", "click frmPrintManager.cmdAnnuleren", "click frmMain.Cancel")
        self.equal(office.events("error", "ignored", "refused"), [], "nothing was refused")


if __name__ == "__main__":
    test_in_office(lambda office, failures: Walker(office, failures).walk())
