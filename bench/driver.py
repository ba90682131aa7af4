"""Runs the benchmark program over rows, places and sizes; scripts/bench says how it is called."""

import argparse
import os
import shutil
import signal
import subprocess
import sys
import tempfile
from collections import namedtuple
from pathlib import Path

import instructions
import report

BUILD = Path(os.environ.get("FLM_BENCH_BUILD", "build/bench")).resolve()
PROGRAM = BUILD / "bench" / "flm_bench"
TOOL = BUILD / "flm"

SIZES = [4000, 8000, 16000, 32000]
SMALLEST, LARGEST = SIZES[0], SIZES[-1]
MEMORY, DISK = "tmpfs", "disk"

SECONDS_FOR_A_ROW = 60
SECONDS_WITH_FLUSHES = 300  # G9 to G11 wait for whatever else is being written
SECONDS_WHEN_FULL = 900

GROWTH_GOAL = 1.15
GROWTH_ROW = "G10"

Row = namedtuple("Row", "id name goal")
Line = namedtuple("Line", "row name files place value floor ratio goal verdict")


def places():
    return {MEMORY: Path("/dev/shm"), DISK: Path(os.environ.get("FLM_BENCH_DISK", "/var/tmp"))}


def rows_of_program():
    listed = subprocess.run([PROGRAM, "--list"], capture_output=True, text=True, check=True).stdout
    return [Row(*line.split("\t")) for line in listed.splitlines() if not line.startswith("count")]


def wanted(row, asked):
    """As the program itself reads a list of rows: G5 means G5a, G5b and so on."""
    return not asked or any(row.id == name or row.id[:-1] == name and row.id[-1].isalpha()
                            for name in asked.split(","))


def goal_number(row):
    """G5 of G5a."""
    return row.id.rstrip("abcdefghijklmnopqrstuvwxyz")


def sizes_of(row, place, options):
    """The sizes at which a row says something new, and which end in a bearable time."""
    goal = goal_number(row)
    if goal == "G2":  # makes its own card
        return [SMALLEST]
    if goal in ("G13", "G14") or row.id == "G12d":  # no time is measured, nor does the place matter
        return [LARGEST] if place == MEMORY else []
    if goal == "G8" and place == DISK and not options.full:  # no call touches the card
        return []
    sizes = [SMALLEST, LARGEST] if options.quick else SIZES
    if goal == "G8":  # its floor is the smallest card
        return [size for size in sizes if size > SMALLEST]
    if goal in ("G10", "G11") and options.quick:
        return [SMALLEST]
    if goal in ("G10", "G11") and place == DISK and not options.full:
        return [size for size in sizes if size <= 8000]
    return sizes


def seconds_for(row, options):
    if options.full:
        return SECONDS_WHEN_FULL
    return SECONDS_WITH_FLUSHES if goal_number(row) in ("G9", "G10", "G11") else SECONDS_FOR_A_ROW


def run_row(row, place, folder, files, seconds):
    """A line, or None and a message when nothing was measured. The card goes whatever happens."""
    private = tempfile.mkdtemp(prefix="flm-bench.", dir=folder)
    command = [PROGRAM, "--dir", private, "--place", place, "--files", str(files), "--rows", row.id,
               "--tool", TOOL]
    try:
        done = subprocess.run(command, capture_output=True, text=True, timeout=seconds, check=False)
    except subprocess.TimeoutExpired:
        return Line(row.id, row.name, str(files), place, f">{seconds * 1000}", "-", "-", row.goal,
                    "GIVEN UP"), ""
    finally:
        shutil.rmtree(private, ignore_errors=True)
    fields = done.stdout.rstrip("\n").split("\t")
    if done.returncode != 0 or len(fields) != len(Line._fields):
        return None, done.stderr.strip() or f"flm_bench: {row.id} ended with {done.returncode}"
    return Line(*fields), ""


def number(text):
    """Short enough for a table, with the digits that matter."""
    try:
        value = float(text)
    except ValueError:
        return text
    if value == int(value) and abs(value) < 1e15:
        return str(int(value))
    return f"{value:.2f}" if value >= 0.1 else f"{value:.3g}"


def show(line):
    print(f"{line.row:6} {line.name:58} {line.files:>6} {line.place:6} {number(line.value):>10} "
          f"{number(line.floor):>10} {number(line.ratio):>8} {line.goal:>8} {line.verdict}",
          flush=True)


def show_head():
    print(f"{'row':6} {'operation':58} {'files':>6} {'place':6} {'ms':>10} {'floor':>10} "
          f"{'ratio':>8} {'goal':>8}")


def growth_line(lines, place):
    """How the deletion grows from the smallest to the largest card, against its floor's growth."""
    own = [line for line in lines if line.row == GROWTH_ROW and line.place == place]
    if len(own) < 2:
        return None
    first, last = own[0], own[-1]
    name = f"DeleteSel, growth from {first.files} files (times) / growth of its floor"
    if last.ratio == "-" or first.ratio == "-":
        return None
    grown = float(last.value) / float(first.value)
    floor = float(last.floor) / float(first.floor)
    verdict = "ok" if grown / floor <= GROWTH_GOAL else "MISSED"
    return Line("G10g", name, last.files, place, f"{grown:.6g}", f"{floor:.6g}",
                f"{grown / floor:.6g}", str(GROWTH_GOAL), verdict)


def measure(options):
    """Every line, and whether all rows could be measured."""
    lines, complete = [], True
    usable = {MEMORY: places()[MEMORY]} if options.quick else places()
    show_head()
    for row in rows_of_program():
        if not wanted(row, options.rows):
            continue
        for place, folder in usable.items():
            for files in sizes_of(row, place, options):
                line, message = run_row(row, place, folder, files, seconds_for(row, options))
                if line is None:
                    print(message, file=sys.stderr)
                    complete = False
                    continue
                lines.append(line)
                show(line)
                if line.value.startswith(">"):  # a larger card would not end either
                    complete = False
                    break
            growth = growth_line(lines, place) if row.id == GROWTH_ROW else None
            if growth:
                lines.append(growth)
                show(growth)
    return lines, complete


def read_options():
    parser = argparse.ArgumentParser(prog="scripts/bench")
    extent = parser.add_mutually_exclusive_group()
    extent.add_argument("--quick", action="store_true")
    extent.add_argument("--full", action="store_true")
    extent.add_argument("--check", action="store_true")
    parser.add_argument("--report", action="store_true")
    parser.add_argument("--update", action="store_true")
    parser.add_argument("--rows", default="")
    options = parser.parse_args()
    if options.update and not options.check:
        parser.error("--update goes with --check")
    if options.report and (options.quick or options.check):
        parser.error("--report goes with neither --quick nor --check")
    return options


def main():
    options = read_options()
    # Ends in the ordinary way, so that the card of the moment is removed.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))
    if options.check:
        return instructions.check(PROGRAM, places()[MEMORY], options.update)
    lines, complete = measure(options)
    missed = sum(line.verdict == "MISSED" for line in lines)
    judged = sum(line.verdict in ("ok", "MISSED") for line in lines)
    print(f"{judged - missed} of {judged} within their goals")
    if options.report:
        report.write(lines, places())
    return 0 if complete else 1


if __name__ == "__main__":
    sys.exit(main())
