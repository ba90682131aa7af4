"""Instruction counts, which do not depend on how busy the machine is, against stored ones."""

import platform
import re
import shutil
import subprocess
import tempfile
from pathlib import Path

STORED = Path(__file__).resolve().parent / "instructions.txt"
TOLERANCE = 0.03
FILES = 4000
COUNTED_FUNCTION = "flm_counted_operation"

# libc chooses its string functions by the processor and by what its model is known to do fast.
# Without the wide registers and these preferences every x86-64 machine takes the same functions, and
# with fixed sizes of caches the same ways through them.
LEFT_OUT = ["AVX", "AVX2", "AVX512F", "AVX512VL", "AVX512BW", "BMI1", "BMI2", "ERMS", "FSRM",
            "LZCNT", "MOVBE", "RTM", "SSE4_1", "SSE4_2", "SSSE3",
            "AVX_Fast_Unaligned_Load", "Fast_Copy_Backward", "Fast_Rep_String",
            "Fast_Unaligned_Copy", "Fast_Unaligned_Load", "Prefer_PMINUB_for_stringop", "Slow_BSF"]
TUNABLES = ":".join([
    "glibc.cpu.hwcaps=" + ",".join("-" + feature for feature in LEFT_OUT),
    "glibc.cpu.x86_data_cache_size=0x8000",
    "glibc.cpu.x86_shared_cache_size=0x100000",
    "glibc.cpu.x86_non_temporal_threshold=0xc0000",
])
ENVIRONMENT = {"PATH": "/usr/bin:/bin", "LC_ALL": "C", "TZ": "UTC0", "GLIBC_TUNABLES": TUNABLES}


def toolchain():
    """What the counts depend on besides the sources."""
    compiler = subprocess.run(["c++", "-dumpfullversion"], capture_output=True, text=True,
                              check=True).stdout.strip()
    return f"c++ {compiler}, {' '.join(platform.libc_ver())}, {platform.machine()}"


def operations(program):
    listed = subprocess.run([program, "--list"], capture_output=True, text=True, check=True).stdout
    rows = [line.split("\t") for line in listed.splitlines()]
    return [fields[1] for fields in rows if fields[0] == "count"]


def count(program, folder, operation):
    """Instructions between entering and leaving the counted function."""
    private = Path(tempfile.mkdtemp(prefix="flm-bench.", dir=folder))
    profile = private / "profile"
    try:
        subprocess.run(
            ["valgrind", "--quiet", "--tool=callgrind", f"--callgrind-out-file={profile}",
             f"--toggle-collect={COUNTED_FUNCTION}", program, "--dir", private, "--files",
             str(FILES), "--count", operation],
            env=ENVIRONMENT, check=True)
        total = re.search(r"^(?:summary|totals): (\d+)", profile.read_text(), re.MULTILINE)
        if total is None or int(total.group(1)) == 0:
            raise RuntimeError(f"nothing was counted for {operation}")
        return int(total.group(1))
    finally:
        shutil.rmtree(private, ignore_errors=True)


def read_stored():
    lines = STORED.read_text().splitlines() if STORED.exists() else []
    made_with = next((line[2:] for line in lines if line.startswith("# with ")), "")
    pairs = [line.split() for line in lines if line and not line.startswith("#")]
    return {name: int(value) for name, value in pairs}, made_with.replace("with ", "", 1)


def store(counts):
    head = [f"# Instructions of one operation on a card of {FILES} files in memory.",
            f"# with {toolchain()}"]
    STORED.write_text("\n".join(head + [f"{name} {value}" for name, value in counts.items()]) + "\n")


def compare(counts):
    """Prints the table; the number of counts that are beyond their tolerance."""
    stored, made_with = read_stored()
    if made_with and made_with != toolchain():
        print(f"The stored counts were made with {made_with}; this is {toolchain()}.")
    print(f"{'operation':22} {'stored':>14} {'now':>14} {'change':>9}")
    beyond = 0
    for name, now in counts.items():
        if name not in stored:
            print(f"{name:22} {'-':>14} {now:>14} {'-':>9}  NOT STORED")
            beyond += 1
            continue
        change = now / stored[name] - 1
        kept = abs(change) <= TOLERANCE
        beyond += not kept
        print(f"{name:22} {stored[name]:>14} {now:>14} {change:>+9.2%}  {'ok' if kept else 'BEYOND'}")
    return beyond


def check(program, folder, update):
    counts = {name: count(program, folder, name) for name in operations(program)}
    if update:
        store(counts)
    beyond = compare(counts)
    if beyond:
        print(f"{beyond} beyond {TOLERANCE:.0%}. When the change is meant, fewer instructions too: "
              "scripts/bench --check --update")
    return 1 if beyond else 0
