"""Writes docs/performance.md and its figure from the lines that were measured."""

import datetime
import os
import platform
import re
import subprocess
import tempfile
from pathlib import Path

TREE = Path(__file__).resolve().parent.parent
PAGE = TREE / "docs" / "performance.md"
FIGURE = TREE / "docs" / "performance.svg"

LIBRARY_GOAL_KIB = 96
COLOURS = ["#1f77b4", "#ff7f0e", "#2ca02c", "#d62728", "#9467bd", "#8c564b", "#e377c2", "#7f7f7f",
           "#bcbd22", "#17becf", "#003f5c", "#a05195", "#665191", "#ffa600", "#00876c", "#c2185b"]

HEAD = """# Performance

Every operation is held against its floor: the least that the system's own calls need for the same
work, written as plainly as it goes and measured on the same card. Operation and floor take turns,
and the medians of their times are divided: a ratio of 1.00 means that the library costs nothing
beyond the floor. Below 1 it does the work in a better way than its floor.

Cards hold one-byte pictures, an equal share in each of four folders, so that folders grow with the
card up to 8 000 files each. Files and folders are in the system's cache, which a benchmark can
repeat and a camera's first scan cannot: what is measured is the work of the processor and of the
system, not the card's speed. One card is made of 9 999 pictures with a raw companion each (G2).

`scripts/bench` prints these tables, `scripts/bench --report --full` writes this page, and
`scripts/bench --check` compares instruction counts of five operations with stored ones; unlike times
they are the same on a busy machine.
"""

NOTES = """
What the rows mean where their names do not say it:

- G1, G2: the floor reads the folders with `scandir` in the order of the catalogue and releases the
  entries; it looks at no name beyond sorting it.
- G3: only the newest folder is read, by `readdir`, and sorted.
- G4: the floor prints each path into one buffer with `snprintf`.
- G5, G6: the floor asks for the status of each file by its path, in the order of the operation.
- G7: three jobs a file. The load's floor reads the lines with `getline` and looks each source up in
  a hash table; the save's floor prints the blocks into one buffer with `snprintf` and writes it at
  once (G7b), or writes a text that was ready (G7c, for comparison).
- G8: one call on a file picked at random, its time held against that of the same call on a card
  with 4 000 files. No call touches the card.
- G9: two equal cards a round, one for each side.
- G10, G11: operation and floor take turns at every file, because flushing takes as long as whatever
  else is being written makes it take.
- G12: processes from start to end, their output going to `/dev/null`, in the locale `C`.
- G13: blocks of the heap as large as the heap made them, from before the list was made to after its
  scan, against the bare records.
- G14: allocations by the library and by libc on its behalf. GetAt, GetNext and GetPrev are called
  with information too.
"""


def number(text, digits):
    """With so many digits behind the point, or three that matter when it is small."""
    try:
        value = float(text)
    except ValueError:
        return text
    return f"{value:.{digits}f}" if value >= 0.1 else f"{value:.3g}"


def whole(text):
    """A count; one that is no whole number keeps a digit."""
    value = float(text)
    return f"{value:,.{0 if value == int(value) else 1}f}".replace(",", " ")


def first_match(path, pattern):
    try:
        found = re.search(pattern, Path(path).read_text(), re.MULTILINE)
    except OSError:
        return None
    return found.group(1).strip() if found else None


def file_system(folder):
    done = subprocess.run(["df", "--output=fstype", folder], capture_output=True, text=True,
                          check=True)
    return done.stdout.split()[-1]


def machine(places):
    model = first_match("/proc/cpuinfo", r"^model name\s*: (.*)$") or platform.machine()
    memory = int(first_match("/proc/meminfo", r"^MemTotal:\s*(\d+)") or 0) // (1024 * 1024)
    system = first_match("/etc/os-release", r'^PRETTY_NAME="(.*)"$') or platform.system()
    compiler = subprocess.run(["c++", "--version"], capture_output=True, text=True,
                              check=True).stdout.splitlines()[0]
    kinds = ", ".join(f"{name}: {file_system(folder)}" for name, folder in places.items())
    return [
        ("Date", datetime.date.today().isoformat()),
        ("Processor", f"{model}, {len(os.sched_getaffinity(0))} cores"),
        ("Memory", f"{memory} GiB"),
        ("System", f"{system}, kernel {platform.release()}"),
        ("C library", " ".join(platform.libc_ver())),
        ("Compiler", f"{compiler}, build type Release"),
        ("File systems", kinds),
    ]


def table(head, rows):
    lines = ["| " + " | ".join(head) + " |", "|" + "---|" * len(head)]
    for row in rows:
        lines.append("| " + " | ".join(cell.replace("|", "\\|") for cell in row) + " |")
    return "\n".join(lines) + "\n"


def emphasised(text, verdict):
    return f"**{text}**" if verdict in ("MISSED", "GIVEN UP") else text


def has_ratio(line):
    return line.ratio != "-" or line.value.startswith(">")


def is_time(line):
    return "(" not in line.name


def sizes_in(lines):
    return sorted({int(line.files) for line in lines if is_time(line) and line.row != "G2"})


def ratio_table(lines, place):
    """One line for each row, one column for each size; a ratio above its goal stands out."""
    here = [line for line in lines if line.place == place and has_ratio(line) and line.row != "G13"]
    sizes = sizes_in(here)
    rows = []
    for name in dict.fromkeys(line.row for line in here):
        own = {int(line.files): line for line in here if line.row == name}
        one = next(iter(own.values()))
        cells = []
        if set(own) <= set(sizes):
            for size in sizes:
                line = own.get(size)
                cells.append(cell_of(line) if line else "")
        else:  # a card of its own size
            cells = [""] * (len(sizes) - 1) + [f"{cell_of(one)} ({whole(one.files)} files)"]
        rows.append([name, one.name, one.goal] + cells)
    return table(["", "Operation / floor", "Goal"] + [f"{whole(s)} files" for s in sizes], rows)


def cell_of(line):
    text = "given up" if line.value.startswith(">") else number(line.ratio, 2)
    return emphasised(text, line.verdict)


def time_table(lines, place):
    """Times of operation and floor on the largest card."""
    here = [line for line in lines if line.place == place and has_ratio(line) and is_time(line)]
    largest = {line.row: line for line in here}
    rows = [[line.row, line.name, whole(line.files), number(line.value, 3), number(line.floor, 3)]
            for line in largest.values()]
    return table(["", "Operation / floor", "Files", "ms", "Floor, ms"], rows)


def memory_table(lines):
    rows = []
    for line in lines:
        if is_time(line) or line.row == "G10g":
            continue
        limit = line.goal
        if line.floor != "-":
            limit = str(float(line.goal) * float(line.floor))
        rows.append([line.row, line.name.split(" / ")[0], whole(line.files),
                     emphasised(whole(line.value), line.verdict), whole(limit)])
    return table(["", "What", "Files", "Measured", "At most"], rows)


def library_sizes():
    """Bytes of the stripped library for 32-bit ARM, by build type."""
    sizes = {}
    for build_type in ("Release", "MinSizeRel"):
        with tempfile.TemporaryDirectory(prefix="flm-bench.") as folder:
            quiet = {"cwd": TREE, "check": True, "stdout": subprocess.DEVNULL}
            subprocess.run(["cmake", "-S", ".", "-B", folder, "-G", "Ninja",
                            "--toolchain", "cmake/toolchains/armhf.cmake",
                            f"-DCMAKE_BUILD_TYPE={build_type}", "-DFLM_BUILD_TOOLS=OFF"], **quiet)
            subprocess.run(["cmake", "--build", folder, "--target", "filelistmanagement"], **quiet)
            stripped = Path(folder) / "stripped.so"
            subprocess.run(["arm-linux-gnueabihf-strip", "-o", stripped,
                            Path(folder) / "libfilelistmanagement.so"], **quiet)
            sizes[build_type] = stripped.stat().st_size
    return sizes


def size_table():
    limit = LIBRARY_GOAL_KIB * 1024
    rows = [[f"`libfilelistmanagement.so` for armhf, stripped, {name} (bytes)",
             emphasised(whole(size), "ok" if size <= limit else "MISSED"), whole(limit)]
            for name, size in library_sizes().items()]
    return table(["What", "Measured", "At most"], rows)


def series(lines, place):
    """Lines of each row that was timed at two sizes or more."""
    here = [line for line in lines if line.place == place and line.ratio != "-" and is_time(line)
            and not line.row.startswith("G8") and line.row != "G7c"]
    by_row = {}
    for line in here:
        by_row.setdefault(line.row, []).append(line)
    return {row: own for row, own in by_row.items() if len(own) > 1}


def panel(lines, place, colours):
    """The commands that draw one place: each operation as a line, its floor dashed."""
    drawn = series(lines, place)
    if not drawn:
        return []
    data, plots = [], []
    for row, own in drawn.items():
        block = f"${place}_{row}"
        points = [f"{line.files} {line.value} {line.floor}" for line in own]
        data += [f"{block} << EOD", *points, "EOD"]
        colour = colours[row]
        title = f"{row}  {own[0].name.split(' / ')[0]}"
        plots.append(f"{block} using 1:2 with linespoints lc rgb '{colour}' pt 7 ps 0.5 lw 1.5 "
                     f"title '{title}'")
        plots.append(f"{block} using 1:3 with lines lc rgb '{colour}' dt 2 lw 1 notitle")
    return data + [f"set title '{place}'", "plot " + ", \\\n  ".join(plots)]


def draw(lines, places):
    rows = [row for place in places for row in series(lines, place)]
    colours = {row: COLOURS[i % len(COLOURS)] for i, row in enumerate(dict.fromkeys(rows))}
    panels = [panel(lines, place, colours) for place in places]
    panels = [commands for commands in panels if commands]
    if not panels:
        return False
    script = ["set terminal svg size 1100,1200 background rgb 'white' font 'sans,12'",
              f"set output '{FIGURE}'", "set multiplot layout 2,1",
              "set logscale xy", "set key outside right top", "set grid",
              "set xlabel 'files'", "set ylabel 'milliseconds (floor dashed)'",
              "set xtics (4000, 8000, 16000, 32000)", "set xrange [3500:36000]",
              *[command for commands in panels for command in commands], "unset multiplot"]
    subprocess.run(["gnuplot"], input="\n".join(script) + "\n", text=True, check=True)
    return True


def write(lines, places):
    parts = [HEAD, "## The machine\n", table(["", ""], [list(pair) for pair in machine(places)])]
    parts.append("## Ratios\n\nA ratio above its goal stands out. \"Given up\" says that the "
                 "row did not end in time.\n")
    for place in places:
        parts += [f"### On {place}\n", ratio_table(lines, place)]
    parts.append(NOTES.lstrip("\n"))
    if draw(lines, list(places)):
        parts += ["## Times\n", "![Time against number of files, one line an operation, its floor "
                  "dashed](performance.svg)\n", "On the largest card measured:\n"]
    for place in places:
        parts += [f"### Times on {place}\n", time_table(lines, place)]
    parts += ["## Memory and allocations\n", memory_table(lines), "## Size\n", size_table()]
    PAGE.write_text("\n".join(parts))
    print(f"wrote {PAGE.relative_to(TREE)} and {FIGURE.relative_to(TREE)}")
