"""Compares the program's PDF batch with the least that its toolkit needs for the same texts, in one run side by side.

compare.py PDF_BATCH [BENCH_COMPOSITION [BENCH_PREVIEW [BENCH_PRECHECK]]]
"""

import json
import os
import statistics
import subprocess
import sys
import tempfile

BATCH, ROUNDS = 250, 9
LONG, LONG_ROUNDS = 30000, 3


def measure(program, way, forms, folder):
    file = os.path.join(folder, way + ".pdf")
    output = subprocess.run([program, way, str(forms), file], check=True, capture_output=True, text=True).stdout
    os.remove(file)
    return json.loads(output)


def medians(program, forms, rounds, folder):
    """Medians by way; the ways take turns, so that a busy moment of the machine falls on both."""
    runs = {"program": [], "floor": []}
    for _ in range(rounds):
        for way, list_ in runs.items():
            list_.append(measure(program, way, forms, folder))
    return {way: {key: statistics.median(run[key] for run in list_) for key in ("ms", "peak_kb")}
            for way, list_ in runs.items()}


def verdict(name, value, goal, unit=""):
    print(f"{name:32} {value:10.3f} {unit:3} goal {goal:8.3f}  {'ok' if value <= goal else 'MISSED'}")
    return value <= goal


def cpu_medians(program):
    """Medians by benchmark, in its own unit; the rounds of the ways take turns here too."""
    output = subprocess.run([program, "--benchmark_format=json", f"--benchmark_repetitions={ROUNDS}",
                             "--benchmark_min_time=0.05", "--benchmark_enable_random_interleaving=true"],
                            check=True, capture_output=True, text=True).stdout
    return {run["run_name"].split("/")[0]: run["cpu_time"] for run in json.loads(output)["benchmarks"]
            if run.get("aggregate_name") == "median"}


def compare_precheck(program):
    median = cpu_medians(program)
    good = verdict("looking at the settings", median["CheckSettings"], 5, "ms")
    good &= verdict("looking at the batch", median["CheckDocument"], 50, "ms")
    good &= verdict("the same against composing it", median["CheckDocument"] / median["Compose"], 3)
    return good


def compare_preview(program):
    median = {name: microseconds / 1000 for name, microseconds in cpu_medians(program).items()}
    print(f"opening and closing a preview: {median['OpenAndClose']:.2f} ms, another picture on the screen: "
          f"{median['PictureChangeOnScreen']:.3f} ms")
    good = verdict("page change", median["PageChange"], 1, "ms")
    good &= verdict("page change on the screen", median["PageChangeOnScreen"], 1, "ms")
    good &= verdict("the same against a bare picture",
                    median["PageChangeOnScreen"] / median["PictureChangeOnScreen"], 2)
    return good


def main():
    program = sys.argv[1]
    with tempfile.TemporaryDirectory() as folder:
        batch = medians(program, BATCH, ROUNDS, folder)
        long = medians(program, LONG, LONG_ROUNDS, folder)
    for way in batch:
        print(f"{way:8} {BATCH} forms {batch[way]['ms']:9.1f} ms {batch[way]['peak_kb'] / 1024:6.1f} MB, "
              f"{LONG} forms {long[way]['ms']:9.1f} ms {long[way]['peak_kb'] / 1024:6.1f} MB")
    growth = {way: long[way]["ms"] / batch[way]["ms"] for way in batch}
    good = verdict("batch against the floor", batch["program"]["ms"] / batch["floor"]["ms"], 1.15)
    good &= verdict("peak memory of the batch", batch["program"]["peak_kb"] / 1024, 40, "MB")
    good &= verdict("peak memory of the long batch", long["program"]["peak_kb"] / 1024, 40, "MB")
    good &= verdict("growth against the floor's", growth["program"] / growth["floor"], 1.05)
    if len(sys.argv) > 2:
        output = subprocess.run([sys.argv[2], "--benchmark_format=json"], check=True, capture_output=True, text=True)
        for run in json.loads(output.stdout)["benchmarks"]:
            if run["name"] == "StartUp":
                good &= verdict("start-up without windows", run["real_time"] / 1000, 2, "ms")
            else:
                print(f"composing: {run['per_form'] * 1e6:.2f} us a form, {run['per_text'] * 1e9:.0f} ns a text")
    if len(sys.argv) > 3:
        good &= compare_preview(sys.argv[3])
    if len(sys.argv) > 4:
        good &= compare_precheck(sys.argv[4])
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
