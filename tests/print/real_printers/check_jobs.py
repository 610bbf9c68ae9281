"""Jobs of the program through real drivers, each on the form's sheet, on Legal and on Folio as far as the driver has
them, from another tray, while maker, server and user all have defaults that would spoil the forms. Paper, tray, sides
and the places of the texts are read back from what would go to the printer, and held against the same document, sent
plainly to a queue without any defaults.

check_jobs.py QUEUE_PROBE PRINT_FORMS [DRIVER...]
"""

import importlib.util
import pathlib
import re
import subprocess
import sys
import tempfile

NOT_FOUND = 77  # exit status of a test that cannot be made here
if importlib.util.find_spec("numpy") is None:
    print("skipped: python3-numpy is not installed (tools/setup.sh printers)")
    sys.exit(NOT_FOUND)

import hostile  # noqa: E402
import offer_check  # noqa: E402
import ppd_sources  # noqa: E402
import text_sheets  # noqa: E402
import trials  # noqa: E402
from print_server import PrintServer  # noqa: E402

LEAST_DRIVERS = 20
FORMS = ["1", "31", "1", "6"]  # type, contract, traffic, count: two sheets of three


def hostile_queue(driver):
    return "H" + driver.name


def neutral_queue(driver):
    return "N" + driver.name


def add_queues(server, drivers):
    for driver in drivers:
        if driver.filter:
            server.save_raster_of(driver.filter)
        server.add_queue(hostile_queue(driver), hostile.maker(driver.ppd), hostile.SERVER, hostile.SERVER_BANNERS)
        server.add_queue(neutral_queue(driver), driver.ppd)
    server.set_user_defaults(hostile.user([hostile_queue(driver) for driver in drivers]))


def send(server, probe, driver, paper, document):
    before = server.last_job()
    done = server.run(probe, "--queue", hostile_queue(driver), "--paper", paper, "--bin", driver.slot,
                      "--print", document)
    if done.returncode != 0 or server.last_job() == before:
        raise RuntimeError(f"not sent: {done.stderr[-300:]}")
    return server.wait_for(server.last_job())


def send_plainly(server, driver, paper, document, slot):
    options = [f"PageSize={paper}", "sides=one-sided", "Duplex=None", "number-up=1", "print-scaling=none"]
    if slot:
        options.append(f"{driver.description.bin_option}={slot}")
    told = server.run("lp", "-d", neutral_queue(driver), *[each for option in options for each in ("-o", option)],
                      document).stdout
    return server.wait_for(int(re.search(r"-(\d+) ", told)[1]))


def document_for(size, print_forms, folder):
    """The program's own forms on their own sheet, texts on any other."""
    own = all(abs(a - b) <= offer_check.SAME_SHEET for a, b in zip(size, offer_check.FORM_SHEET))
    document = pathlib.Path(folder) / ("forms.pdf" if own else f"{size[0]:.1f}x{size[1]:.1f}.pdf")
    if not document.exists() and own:
        subprocess.run([print_forms, folder, *FORMS], check=True, capture_output=True)
    elif not document.exists():
        document.write_bytes(text_sheets.make(*(side / offer_check.POINT for side in size)))
    return document


def try_paper(server, probe, driver, paper, size, document):
    """The faults of one job, and how far a text was off."""
    job = send(server, probe, driver, paper, document)
    control = send_plainly(server, driver, paper, document, driver.slot)
    verdict = trials.Verdict(driver, paper, size, job, document)
    faults = [*verdict.faults(), *verdict.unlike(control)]
    for each in (job, control):
        server.drop(each)
    return faults, verdict.worst


def main():
    probe, print_forms, *only = sys.argv[1:]
    if not ppd_sources.archives():
        print("skipped: the packages of printer drivers are not installed (tools/setup.sh printers)")
        return NOT_FOUND
    drivers = trials.drivers(only)
    missing = [driver.name for driver in drivers if not driver.ppd]
    drivers = [driver for driver in drivers if driver.ppd]
    failed = jobs = 0
    with PrintServer() as server, tempfile.TemporaryDirectory() as folder:
        add_queues(server, drivers)
        server.start()
        for driver in drivers:
            for paper, size in driver.papers().items():
                jobs += 1
                document = document_for(size, print_forms, folder)
                try:
                    faults, worst = try_paper(server, probe, driver, paper, size, document)
                except RuntimeError as error:
                    faults, worst = [("no output", str(error))], None
                failed += bool(faults)
                print(f"{driver.name} {paper} {driver.slot}: " + ("ok" if not faults else "")
                      + (f" worst {worst:.2f} mm" if worst is not None else ""), flush=True)
                for kind, what in faults:
                    print(f"    {kind}: {what}")
    print(f"{jobs} jobs through {len(drivers)} drivers, {failed} with a fault"
          + (f"; not installed: {', '.join(missing)}" if missing else ""))
    return 1 if failed or (not only and len(drivers) < LEAST_DRIVERS) else 0


if __name__ == "__main__":
    sys.exit(main())
