#!/usr/bin/env python3
"""The manual page: it names every command and option, is well formed, and its examples work."""
import pathlib
import re
import shutil
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from completion_test import names_in_help
from toolcase import BINARY, ToolTest

PAGE = pathlib.Path(__file__).resolve().parents[2] / "tools/flm.1"


class ManualTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.text = PAGE.read_text()

    def section(self, name):
        return self.text.partition(f".Sh {name}\n")[2].partition("\n.Sh ")[0]

    def examples(self):
        """The commands of each example, unescaped."""
        blocks = re.findall(r"\.Bd -literal.*?\n(.*?)\.Ed", self.section("EXAMPLES"), re.DOTALL)
        return [block.replace("\\e", "\\") for block in blocks]

    def test_every_example_works(self):
        self.root.rmdir()
        (self.outside / "bin").mkdir()
        (self.outside / "bin/flm").symlink_to(BINARY)
        path = f"{self.outside}/bin:{self.env['PATH']}"
        self.assertGreater(len(self.examples()), 6)
        output = {}
        for example in self.examples():
            done = subprocess.run(["bash", "-e", "-o", "pipefail", "-c", example], cwd=self.outside,
                                  env=dict(self.env, PATH=path), stdin=subprocess.DEVNULL,
                                  stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False, text=True)
            self.assertEqual((done.returncode, done.stderr), (0, ""), example)
            output[example.split("\n")[0]] = done.stdout
        # The six files that were locked, those that are left, were copied with their companions.
        copies = sorted(path.name for path in (self.outside / "locked").rglob("*") if path.is_file())
        left = self.lines("ls", "card", "--paths", "--companions")
        self.assertEqual(copies, sorted(path.rpartition("/")[2] for path in left))
        self.assertEqual(len(self.lines("ls", "card", "--paths")), 6)
        self.assertGreater(len((self.outside / "movies.tsv").read_text().splitlines()), 1)
        self.assertEqual(self.lines("count", "card"), ["6"])
        self.assertIn("nothing to report", output["flm --read-only check card"])

    def test_the_largest_file_may_have_blanks_in_its_name(self):
        self.make_file("DCIM/CAMERA/party at the lake.jpg", b"x" * 900)
        self.make_file("DCIM/CAMERA/a 9999 b 9999 c.jpg", b"x" * 80)
        (self.outside / "bin").mkdir()
        (self.outside / "bin/flm").symlink_to(BINARY)
        (largest,) = [example for example in self.examples() if "sort" in example]
        done = subprocess.run(["bash", "-c", largest], cwd=self.outside, stdout=subprocess.PIPE, text=True,
                              env=dict(self.env, PATH=f"{self.outside}/bin:{self.env['PATH']}"), check=True)
        self.assertEqual(done.stdout, "card/DCIM/CAMERA/party at the lake.jpg\t900\n")

    def test_every_command_and_option_is_in_it(self):
        plain = re.sub(r"\\&", "", self.text)
        for command, (commands, options) in names_in_help(self).items():
            if command:
                self.assertRegex(plain, rf"\bCm {command}\b")
            for option in options:
                dashed = "Fl " + option[1:]
                self.assertRegex(plain, rf"{re.escape(dashed)}(?![\w-])", (command, option))

    def test_every_exit_status_is_in_it(self):
        self.assertEqual(re.findall(r"^\.It (\d+)$", self.section("EXIT STATUS"), re.MULTILINE),
                         ["0", "1", "2", "3", "4", "130"])

    def test_it_is_well_formed(self):
        if shutil.which("mandoc"):
            done = subprocess.run(["mandoc", "-T", "lint", PAGE], stdout=subprocess.PIPE, check=False,
                                  text=True)
            self.assertEqual(done.stdout, "")
        elif shutil.which("groff"):
            done = subprocess.run(["groff", "-mandoc", "-ww", "-z", PAGE], stderr=subprocess.PIPE,
                                  check=False, text=True)
            self.assertEqual(done.stderr, "")
        else:
            self.skipTest("neither mandoc nor groff is installed")


if __name__ == "__main__":
    unittest.main()
