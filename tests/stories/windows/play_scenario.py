#!/usr/bin/env python3
"""Plays a scenario against the Windows program and holds its record beside the one that the runner gives.

    play_scenario.py --build FOLDER FILE.scenario

FOLDER is the build folder of the Windows program. Compared are the records that do not depend on measures or on the
machine's printers: messages, forms that come and go, what was ignored or refused, writes to the settings, and all
values that can be seen from outside; of the documents that are printed the number of their pages, and their words where
nothing is drawn by chance. Exit status 77 where Wine or the print server is missing.
"""
import argparse
import contextlib
import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "windows"))
from agent import Agent  # noqa: E402
from control_ids import Ids  # noqa: E402
from documents import pages_of, told_in, words_of_pages  # noqa: E402
from print_server import PrintServer  # noqa: E402
from printers import driver_of, printers_in  # noqa: E402
from script import words_of  # noqa: E402
from story_player import NEVER_SHOWN, StoryPlayer, on_screen, settings_in  # noqa: E402
from wine_prefix import WinePrefix  # noqa: E402

KINDS = {"message", "show", "unload", "ignored", "refused", "store", "get", "error"}
DIRECTIVES = {"only", "pages", "status", "complaint"}


def kind_of(record):
    return record.get("event") or next(iter(record))


def comparable(records, stored, unknown):
    """What can be compared of the runner's records. `stored` holds the settings at the start, `unknown` the numbers of
    the questions that nobody outside can answer."""
    questions = 0
    for record in records:
        kind = kind_of(record)
        if kind == "get":
            questions += 1
            if questions - 1 not in unknown:
                yield {**record, "value": on_screen(record["value"])}
        elif kind == "store":
            if record["ok"] and stored.get(record["name"]) != record["value"]:
                stored[record["name"]] = record["value"]
                yield {key: record[key] for key in ("event", "path", "name", "value")}
        elif kind in {"show", "unload"}:
            if record["form"] != NEVER_SHOWN:
                yield {"event": kind, "form": record["form"]}
        elif kind == "message":
            yield {key: record[key] for key in ("event", "title", "text")}
        elif kind in KINDS:
            yield record


def in_one_order(records):
    """Writes that happen within one action are seen together: their order among each other is not compared."""
    group = []
    for record in [*records, None]:
        if record is not None and kind_of(record) == "store":
            group.append(record)
            continue
        yield from sorted(group, key=lambda one: one["name"])
        group = []
        if record is not None:
            yield record


class Story:
    """A script and the record that the runner gives of it."""

    def __init__(self, file):
        """The print server takes no queue with a blank in its name."""
        text = file.read_text(encoding="utf-8")
        record = file.with_suffix(".jsonl").read_text(encoding="utf-8")
        for queue in printers_in(text.splitlines()):
            text, record = (one.replace(queue, queue.replace(" ", "_")) for one in (text, record))
        self.script = text.splitlines()
        self.records = [json.loads(line) for line in record.splitlines()]
        comments = [line.lstrip("# ").partition(":") for line in self.script if line.startswith("#")]
        self.wanted = {name: value.strip() for name, colon, value in comments if colon and name in DIRECTIVES}
        self.only = set(self.wanted["only"].split()) if "only" in self.wanted else None

    def counts(self, kind):
        """True if records of this kind are compared."""
        return self.only is None or kind in self.only

    @property
    def end(self):
        return int(self.wanted.get("status", 0)), self.wanted.get("complaint", "")

    @property
    def drivers(self):
        return {name: driver_of(options) for name, options in printers_in(self.script).items()}

    @property
    def has_chance(self):
        return any(words[:1] == ["random"] for words in map(words_of, self.script))

    @property
    def has_own_font(self):
        """The machine's printers have another font, so that pages that are full end elsewhere."""
        return any("font" in options for options in printers_in(self.script).values())

    def compare(self, told):
        """How many records agree with `told`."""
        unknown = {number for number, record in enumerate(one for one in told if kind_of(one) == "get")
                   if record.get("unknown")}
        told = [record for record in told if not record.get("unknown") and self.counts(kind_of(record))]
        told = list(in_one_order(told))
        wanted = list(in_one_order(comparable(self.records, settings_in(self.script), unknown)))
        for number, (is_, should) in enumerate(zip(told, wanted), start=1):
            if is_ != should:
                sys.exit(f"record {number}:\n  expected {should}\n  but was  {is_}")
        if len(told) != len(wanted):
            more, side = (told, "more than expected") if len(told) > len(wanted) else (wanted, "missing")
            sys.exit(f"records {side}: {more[min(len(told), len(wanted)):][:3]}")
        return len(told)

    def compare_documents(self, server):
        """How many documents agree with those that come out of the server's queues."""
        number = 0
        for number, wanted in enumerate(told_in(self.records), start=1):
            document = server.next_job().document
            if self.counts("page") and not self.has_own_font and pages_of(document) != len(wanted):
                sys.exit(f"document {number} has {pages_of(document)} pages, not {len(wanted)}")
            if self.counts("text") and "pages" not in self.wanted and not self.has_chance:
                told = words_of_pages(document)
                if told != wanted:
                    sys.exit(f"document {number}:\n  expected {wanted}\n  but was  {told}")
        if self.counts("end") and server.has_job():
            sys.exit("more has been printed")
        return number


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("scenario", type=pathlib.Path)
    arguments = parser.parse_args()
    story = Story(arguments.scenario)
    with WinePrefix.for_test(arguments.build) as prefix, contextlib.ExitStack() as ends:
        server = ends.enter_context(PrintServer(story.drivers)) if story.drivers else None
        prefix.settings.update(server.settings if server else {})
        agent = Agent(prefix.command(), arguments.build / "bin" / "win_agent.exe")
        ends.callback(agent.close)
        program = prefix.windows_path(arguments.build / "bin" / "drukkeuring.exe")
        player = StoryPlayer(agent, program, Ids.of(prefix, arguments.build), story.script)
        status, complaint = player.run()
        if (status, complaint) != story.end:
            sys.exit(f"it ended with {status}, {complaint!r}, not {story.end}")
        agree = story.compare(player.records)
        documents = story.compare_documents(server) if server else 0
    if agree + documents == 0:
        sys.exit("there is nothing to compare")
    print(f"{agree} records and {documents} documents agree.")


if __name__ == "__main__":
    main()
