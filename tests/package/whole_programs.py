#!/usr/bin/env python3
"""Writes every whole program of the documentation into a file of its own.

    whole_programs.py OUTPUT-FOLDER MARKDOWN...

A whole program is a block of C++ that contains "int main". Prints the files it wrote.
"""

import re
import sys
from pathlib import Path

BLOCK = re.compile(r"^```(?:cpp|c\+\+|cxx)\b[^\n]*\n(.*?)^```", re.DOTALL | re.MULTILINE)


def main():
    folder = Path(sys.argv[1])
    for name in sys.argv[2:]:
        page = Path(name)
        programs = [code for code in BLOCK.findall(page.read_text(encoding="utf-8"))
                    if "int main" in code]
        for number, code in enumerate(programs, 1):
            program = folder / f"{page.stem}_{number}.cpp"
            program.write_text(code, encoding="utf-8")
            print(program)


if __name__ == "__main__":
    main()
