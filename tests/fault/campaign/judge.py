"""What a run may not do: lose, cut or change a file, forget a choice, or say what is not so."""
import collections

from machine import NO_FILE, NO_PRINTER, OLD_PDF, PERHAPS, REFUSED, SLOT, TRAY, plain

KINDS = ("lost", "cut", "changed", "forgotten", "false", "crashed")


class Judge:
    """`before` are the lines of the settings, `job` and `pdf` the documents: what a run makes in which nothing fails."""

    def __init__(self, before, job, pdf):
        self.before, self.job, self.pdf = before, plain(job), plain(pdf)
        self.counts = collections.Counter()
        self.found = []

    def note(self, kind, what, run):
        self.counts[kind] += 1
        self.found.append(f"{kind}: {what}: {run}")

    def files(self, machine, name):
        """After any end, also a kill."""
        now = machine.lines_of_settings()
        if now is None:
            self.note("lost", "the settings", name)
        elif now[0] != self.before[0]:
            self.note("cut", "the settings", name)
        for path in machine.strangers():
            self.note("changed", path, name)
        pdf = machine.out / "uit.pdf"
        if not pdf.exists():
            self.note("lost", "the old PDF", name)
        elif pdf.read_bytes() != OLD_PDF and plain(pdf.read_bytes()) != self.pdf:
            self.note("cut", "the PDF", name)

    def judge(self, machine, run, name):
        """After a run that came to its end."""
        self.counts["runs"] += 1
        self.files(machine, name)
        if run.status != 0:
            self.note("crashed", run.status, name)
            return
        self.words(run, name)
        now = machine.lines_of_settings()
        if not run.messages and not run.missing and now is not None:
            stored = [[line for line in lines if not (run.unreachable and line.startswith('"CurrentPrinter"'))]
                      for lines in (now[1], self.before[1])]
            # A printer that the manager has shown as out of reach is not the one that it has seen first.
            if stored[0] != stored[1]:
                self.note("forgotten", f"the printer, in {now[1]}", name)
        if run.job is not None:
            if plain(run.job.document) != self.job:
                self.note("cut", "the document of the queue", name)
            if TRAY not in run.missing and f"InputSlot={SLOT}" not in run.job.options.split():
                self.note("forgotten", f"the tray, in {run.job.options}", name)
        for path in machine.leftovers():
            if not path.name.startswith(".settings-"):  # the next start clears those
                self.note("changed", f"{path} stays", name)

    def words(self, run, name):
        """Each document is where it is said to be."""
        told = " | ".join(run.messages)
        is_told = any(word in told for word in REFUSED + NO_PRINTER) or PERHAPS in told
        if run.job is None and not is_told and not run.missing:
            self.note("false", "no document came out of the queue, and nothing was told", name)
        if run.job is not None and any(word in told for word in REFUSED):
            self.note("false", f"the document was printed, and told was: {told}", name)
        replaced = run.pdf is not None and run.pdf != OLD_PDF
        if not replaced and NO_FILE not in told and "PDF-bestand" not in run.missing:
            self.note("false", f"no PDF, and told was: {told}", name)
        if replaced and NO_FILE in told:
            self.note("false", f"the PDF is there, and told was: {told}", name)
