#!/usr/bin/env python3
"""Cards without room. A small file system in memory is mounted in a namespace of the test's own.

Exits 77 where the system permits no such namespace.
"""
import errno
import os
import pathlib
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import FAILED, ToolTest

PAGE = 4096
ORDER = "MISC/AUTPRINT.MRK"
WITH_CARDS = pathlib.Path(__file__).resolve().parent.parent / "support/with-cards"


class FullCardTest(ToolTest):
    def setUp(self):
        super().setUp()
        subprocess.run(["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", str(self.root)], check=True)
        self.addCleanup(subprocess.run, ["umount", str(self.root)], check=True)
        self.make_pictures("100PHOTO", *range(1, 101))
        self.filler = self.root / "filler"
        self.order_file = self.root / ORDER

    def fill(self, pages_left=0):
        """Takes all the room that the card has but for some pages."""
        with open(self.filler, "wb", buffering=0) as file:
            try:
                while True:
                    file.write(b"f" * PAGE)
            except OSError as error:
                self.assertEqual(error.errno, errno.ENOSPC)
            file.truncate(os.fstat(file.fileno()).st_size - pages_left * PAGE)

    def test_a_print_order_that_does_not_fit_leaves_the_earlier_one(self):
        self.run_tool("print", "set", "card", "2", "0")
        before = self.order_file.read_bytes()
        for pages in range(3):  # of the three that the order of all pictures takes
            self.fill(pages)
            self.assertRegex(self.complaint("print", "set", "card", "1", "--all"),
                             "No space left on device|the card is full")
            self.assertEqual(self.order_file.read_bytes(), before)
            self.assertEqual(os.listdir(self.root / "MISC"), ["AUTPRINT.MRK"])
        self.filler.unlink()
        self.run_tool("print", "set", "card", "1", "--all")
        self.assertEqual(len(self.json("print", "show", "card", "--json")["files"]), 100)

    def test_the_order_of_kept_files_is_whole_after_the_others_went(self):
        self.run_tool("print", "set", "card", "3", "--all")
        self.run_tool("protect", "card", "1-99", "--yes")
        self.fill()
        self.run_tool("rm", "card", "--all", "--yes", expect=FAILED)
        files = self.json("print", "show", "card", "--json")["files"]
        self.assertEqual([file["copies"] for file in files], [3] * 99)
        self.assertEqual(os.listdir(self.root / "MISC"), ["AUTPRINT.MRK"])

    def test_an_import_that_does_not_fit_leaves_nothing(self):
        (self.outside / "a.jpg").write_bytes(b"a" * 5 * PAGE)
        before = self.tree()
        for pages in range(5):
            self.fill(pages)
            self.assertIn("No space left", self.complaint("import", "card", "a.jpg"))
            self.assertEqual(self.tree(), sorted([*before, "filler"]))
        self.filler.unlink()
        self.run_tool("import", "card", "a.jpg")


if __name__ == "__main__":
    if not os.environ.get("FLM_PRIVATE_CARDS"):
        os.execv(WITH_CARDS, [str(WITH_CARDS), sys.executable, os.path.abspath(__file__), *sys.argv[1:]])
    unittest.main()
