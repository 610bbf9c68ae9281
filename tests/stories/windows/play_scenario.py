#!/usr/bin/env python3
"""Plays a scenario against the Windows program and holds its record beside the one that the runner gives.

    play_scenario.py --build FOLDER FILE.scenario

FOLDER is the build folder of the Windows program. Compared are the records that do not depend on measures or on the
machine's printers: messages, forms that come and go, what was ignored or refused, writes to the settings, and all
values that can be seen from outside. Exit status 77 where Wine is missing.
"""
import argparse
import contextlib
import json
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "windows"))
from agent import Agent, Registry  # noqa: E402
from control_ids import Ids  # noqa: E402
from player import Player  # noqa: E402
from print_server import PrintServer  # noqa: E402
from script import words_of  # noqa: E402
from watcher import SETTINGS  # noqa: E402
from wine_prefix import WinePrefix  # noqa: E402

KINDS = ["message", "show", "unload", "ignored", "refused", "store", "get", "error"]


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
                yield record
        elif kind == "store":
            if record["ok"] and stored.get(record["name"]) != record["value"]:
                stored[record["name"]] = record["value"]
                yield {key: record[key] for key in ("event", "path", "name", "value")}
        elif kind in {"show", "unload"}:
            if record["form"] != "frmPrintPreviewGhost":
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


def settings_in(script):
    words = [words_of(line) for line in script]
    return {line[1]: int(line[2]) if line[0] == "set-number" else line[2]
            for line in words if line and line[0] in {"set", "set-number"}}


def queues_in(script):
    """Names of the printers. What they are like is the machine's here."""
    return [line[1] for line in map(words_of, script) if line and line[0] == "printer"]


def lines_of(file, queues=()):
    """The print server takes no queue with a blank in its name."""
    text = file.read_text(encoding="utf-8")
    for queue in queues:
        text = text.replace(queue, queue.replace(" ", "_"))
    return text.splitlines()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--build", type=pathlib.Path, required=True)
    parser.add_argument("scenario", type=pathlib.Path)
    arguments = parser.parse_args()
    queues = queues_in(lines_of(arguments.scenario))
    script = lines_of(arguments.scenario, queues)
    only = next((set(line.split(":", 1)[1].split()) for line in script if line.startswith("# only:")), set(KINDS))

    with WinePrefix.for_test(arguments.build) as prefix, contextlib.ExitStack() as ends:
        if queues:
            prefix.settings.update(ends.enter_context(PrintServer(queues_in(script))).settings)
        agent = Agent(prefix.command(), arguments.build / "bin" / "win_agent.exe")
        registry = Registry(agent)
        registry.delete(SETTINGS)
        registry.make(SETTINGS)
        player = Player(agent, registry, prefix.windows_path(arguments.build / "bin" / "drukkeuring.exe"),
                        Ids.of(prefix, arguments.build))
        player.play(script)
        agent.close()

    unknown = {number for number, record in enumerate(one for one in player.records if kind_of(one) == "get")
               if record.get("unknown")}
    told = [record for record in player.records if not record.get("unknown") and kind_of(record) in only]
    records = [json.loads(line) for line in lines_of(arguments.scenario.with_suffix(".jsonl"), queues)]
    wanted = list(in_one_order(comparable(records, settings_in(script), unknown)))
    told = list(in_one_order(told))
    for number, (is_, should) in enumerate(zip(told, wanted), start=1):
        if is_ != should:
            sys.exit(f"record {number}:\n  expected {should}\n  but was  {is_}")
    if len(told) != len(wanted):
        more, side = (told, "more than expected") if len(told) > len(wanted) else (wanted, "missing")
        sys.exit(f"records {side}: {more[min(len(told), len(wanted)):][:3]}")
    print(f"{len(told)} records agree.")


if __name__ == "__main__":
    main()
