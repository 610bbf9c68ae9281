#!/usr/bin/env python3
"""The system fails the real program while it prints: calls of the printing and drawing system, a full disk, a print server that
goes away, memory, the registry, and the program's own end. A document then arrives whole or not at all, the user is told once
what is true, and the next document is printed as ever.

    faults.py --build FOLDER

FOLDER is the build folder of the Windows program. Exit status 77 where Wine, CUPS or Ghostscript is missing.
"""
from failures import test_in_office
from office import FORMS, NAME_LIST, REPORT, TITLES
from watcher import SETTINGS

OUT_OF_MEMORY = 7  # as the program numbers it
NO_MORE = 2**31 - 1  # calls that pass
DISK_FULL, ACCESS_DENIED, NO_MEMORY = 112, 5, 8  # numbers of Windows' errors

LAST_LINES = 400  # bytes: the driver does not tell when its closing comments alone find no room

REFUSED = "De printer neemt het document niet aan."
BROKEN = "Het document kan niet verder worden afgedrukt."
UNSURE = ("Het is niet zeker of het document is afgedrukt. Kijk in de wachtrij van de printer voordat u het opnieuw "
          "afdrukt.")
UNREADABLE = "De instellingen van Tarvik kunnen niet worden gelezen."

# The call, how many of them still pass, its result, the number of its error, the document, and what the user is told. The name
# list has several pages; the fonts of the forms are made when they are first drawn.
CALLS = [
    ("CreateFontIndirectW", 0, 0, NO_MEMORY, FORMS, BROKEN),
    ("SelectObject", 40, 0, NO_MEMORY, NAME_LIST, BROKEN),
    ("StartDocW", 0, 0, ACCESS_DENIED, REPORT, REFUSED),
    ("StartPage", 0, 0, DISK_FULL, REPORT, BROKEN),
    ("StartPage", 1, 0, DISK_FULL, NAME_LIST, BROKEN),
    ("EndPage", 0, 0, DISK_FULL, REPORT, BROKEN),
    ("EndPage", 1, 0, DISK_FULL, NAME_LIST, BROKEN),
    ("ExtTextOutW", 0, 0, NO_MEMORY, REPORT, BROKEN),
    ("ExtTextOutW", 500, 0, NO_MEMORY, NAME_LIST, BROKEN),
    ("Polyline", 0, 0, NO_MEMORY, REPORT, BROKEN),
    ("CreatePen", 0, 0, NO_MEMORY, REPORT, BROKEN),
    ("EndDoc", 0, 0, DISK_FULL, REPORT, UNSURE),
]


class Faults:
    def __init__(self, office, failures):
        self.office = office
        self.equal = failures.equal

    def start(self):
        self.office.user.shown.clear()
        self.office.start_at_the_last_page(2)

    def refuse(self, call, passes, result, error, times="on"):
        if self.office.agent.ask("refuse", call, passes, result, error, times) != "ok":
            raise RuntimeError(f"the program does not call {call}")

    def heal(self, call):
        self.refuse(call, NO_MORE, 0, 0)

    def told(self, act):
        """What boxes say while something is done: title, and text without the system's reason."""
        before = len(self.office.user.records)
        act()
        return [(record["title"], next((text for text in (REFUSED, BROKEN, UNSURE, UNREADABLE)
                                        if record["text"].startswith(text)), record["text"]))
                for record in self.office.user.records[before:] if record.get("event") == "message"]

    def print_in_new_manager(self, document):
        self.office.open_manager()
        self.office.print_document(document)

    def prints_whole(self, what):
        """The next document is the only one that arrives, and has its end."""
        self.equal(self.told(lambda: self.print_in_new_manager(REPORT)), [], f"after {what} a document is printed")
        job = self.office.server.next_job()
        self.equal((job.title, b"%%EOF" in job.document[-64:]), (TITLES[REPORT], True), f"after {what} it arrives whole")
        return len(job.document)

    def check_calls(self):
        for call, passes, result, error, document, text in CALLS:
            what = f"{call} that fails after {passes} in {TITLES[document]}"
            self.office.open_manager()
            self.refuse(call, passes, result, error)
            self.equal(self.told(lambda wanted=document: self.office.print_document(wanted)), [("Afdrukken", text)], what)
            self.heal(call)
            self.prints_whole(what)

    def check_memory(self):
        """One request for memory fails, somewhere in a print: whatever comes of it, the program goes on."""
        for passes in (0, 1, 2, 3, 6, 10, 20, 30, 45, 60, 80, 100, 150, 200):
            self.open_in_the_end()
            self.office.pick_document(NAME_LIST)
            self.refuse("malloc", passes, 0, NO_MEMORY, "once")
            self.office.play("click frmPrintManager.cmdPrint")
            self.heal("malloc")
            self.equal(self.office.user.program.exit_code(), None, f"without memory after {passes} requests it goes on")
            if "frmPrintManager" in self.office.user.shown:
                self.office.play("close frmPrintManager")
        self.open_in_the_end()
        self.office.print_document(REPORT)
        self.arrives_whole()
        self.equal({error["number"] for error in self.office.events("error")} <= {OUT_OF_MEMORY}, True, "it tells the reason")
        self.equal(self.office.user.shown, ["frmMain"], "and the wizard waits for the user")

    def open_in_the_end(self):
        """A box of what failed before may still stand before the wizard."""
        tries = 0
        while "frmPrintManager" not in self.office.user.shown and tries < 10:
            self.office.open_manager()
            tries += 1

    def arrives_whole(self):
        """All that comes out of the queue up to a report."""
        title = None
        while title != TITLES[REPORT]:
            job = self.office.server.next_job()
            title = job.title
            self.equal(b"%%EOF" in job.document[-64:], True, f"{title} arrives whole")

    def print_when_told(self):
        """The look at the document that is picked reads the settings as well, and is the first to be refused: its box comes by
        itself, a moment after the pick."""
        before = len(self.office.events("message"))
        self.office.pick_document(REPORT)
        self.office.user.wait_until(lambda: len(self.office.events("message")) > before)
        self.office.play("click frmPrintManager.cmdPrint")

    def check_registry(self):
        for call in ("RegOpenKeyA", "RegQueryValueExA"):
            self.office.open_manager()
            self.refuse(call, 0, ACCESS_DENIED, ACCESS_DENIED)
            self.equal(self.told(self.print_when_told), [("Drukkeuring acceptgiro's", UNREADABLE)],
                       f"{call} that refuses is told, once")
            self.heal(call)
            self.office.server.next_job()
            self.prints_whole(call)
        self.office.open_manager()
        before = self.office.user.registry.values(SETTINGS)
        self.refuse("RegSetValueExA", 0, ACCESS_DENIED, ACCESS_DENIED)
        self.equal(self.told(lambda: self.office.play("click frmPrintManager.chkMatrixPrinter",
                                                      "click frmPrintManager.cmdAnnuleren")), [],
                   "a choice that cannot be kept stops nobody")
        self.heal("RegSetValueExA")
        self.equal(self.office.user.registry.values(SETTINGS) == before, True, "and changes nothing")

    def limit_files(self, bytes_):
        self.office.play("click frmMain.Cancel")
        self.office.limit_files(bytes_)
        self.start()

    def check_disk(self):
        self.limit_files(2**30)
        whole = self.prints_whole("a new start")
        for room in (100, whole // 2, whole - LAST_LINES):
            self.limit_files(room)
            told = self.told(lambda: self.print_in_new_manager(REPORT))
            self.equal(told in ([("Afdrukken", BROKEN)], [("Afdrukken", UNSURE)]), True,
                       f"a disk with room for {room} of {whole} bytes is told: {told}")
        self.limit_files(None)
        self.prints_whole("a full disk")

    def check_kill(self):
        for naps in (0, 20, 60):
            self.office.open_manager()
            self.office.pick_document(NAME_LIST)
            self.office.user.program.begin(self.office.user.mouse(self.office.user.handle("frmPrintManager", "cmdPrint")))
            for _ in range(naps):
                self.office.agent.nap()
            self.office.agent.ask("terminate")
            self.start()
        # A kill may also come when the document is already with the server: it is whole then.
        self.print_in_new_manager(REPORT)
        self.arrives_whole()

    def check_server(self):
        self.office.open_manager()
        self.office.server.stop()
        self.equal(self.told(lambda: self.office.print_document(REPORT)), [("Afdrukken", UNSURE)],
                   "a print server that is gone at the end of a document")

    def run(self):
        self.start()
        self.check_calls()
        self.check_memory()
        self.check_registry()
        self.check_disk()
        self.check_kill()
        self.check_server()
        self.equal(self.office.events("ignored", "refused"), [], "nothing else happened")


if __name__ == "__main__":
    test_in_office(lambda office, failures: Faults(office, failures).run())
