#!/usr/bin/env python3
"""Changing files: protect, unprotect, rm, with confirmation, progress and Ctrl-C."""
import os
import pty
import re
import select
import signal
import subprocess
import time
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, FAILED, INTERRUPTED, NOTHING, USAGE, ToolTest


class Terminal:
    """The tool on a pseudo terminal, with everything it shows."""

    def __init__(self, test, *arguments):
        self.ours, theirs = pty.openpty()
        self.process = subprocess.Popen([BINARY, *arguments], stdin=theirs, stdout=theirs,
                                        stderr=theirs, cwd=test.outside, env=test.env)
        os.close(theirs)
        self.shown = ""

    def read_until(self, pattern=None, seconds=60):
        """Reads until the pattern shows or the program has gone; what was shown up to then."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if pattern and re.search(pattern, self.shown):
                return self.shown
            ready, _, _ = select.select([self.ours], [], [], 0.1)
            if not ready:
                continue
            try:
                data = os.read(self.ours, 65536)
            except OSError:
                return self.shown
            if not data:
                return self.shown
            self.shown += data.decode()
        raise AssertionError(f"nothing like {pattern} in {self.shown!r}")

    def answer(self, text):
        os.write(self.ours, text.encode())

    def finish(self):
        self.read_until()
        os.close(self.ours)
        return self.process.wait(timeout=60)


class RemoveTest(ToolTest):
    def test_a_file_goes_with_its_companions(self):
        self.make_pictures("100PHOTO", 1, 2)
        for extension in ("SRW", "WAV", "MPO"):
            self.make_file(f"DCIM/100PHOTO/QVX_0001.{extension}")
        self.assertEqual(self.lines("rm", "card", "0"),
                         ["removed card/DCIM/100PHOTO/QVX_0001.JPG with QVX_0001.SRW, QVX_0001.WAV, "
                          "QVX_0001.MPO"])
        self.assertEqual(self.tree(), ["DCIM", "DCIM/100PHOTO", "DCIM/100PHOTO/QVX_0002.JPG", "MISC"])

    def test_a_file_of_the_same_number_keeps_its_companion(self):
        self.make_pictures("100PHOTO", 3)
        self.make_file("DCIM/100PHOTO/QVX_0003.MP4")
        self.make_file("DCIM/100PHOTO/QVX_0003.SRW")
        self.run_tool("rm", "card", "QVX_0003.MP4")
        self.assertEqual(self.tree(), ["DCIM", "DCIM/100PHOTO", "DCIM/100PHOTO/QVX_0003.JPG",
                                       "DCIM/100PHOTO/QVX_0003.SRW", "MISC"])

    def test_lists_and_ranges_name_the_files_as_they_stood_before(self):
        self.make_pictures("100PHOTO", *range(1, 8))
        self.run_tool("rm", "card", "0-1,5", "QVX_0004.JPG", "-y")
        self.assertEqual([line[-12:] for line in self.lines("ls", "--paths", "card")],
                         ["QVX_0003.JPG", "QVX_0005.JPG", "QVX_0007.JPG"])

    def test_a_bad_list_removes_nothing(self):
        self.make_pictures("100PHOTO", 1, 2, 3)
        before = self.tree()
        for bad, status in (("0,9", NOTHING), ("2-1", USAGE), ("0--1", USAGE), ("0-", USAGE),
                            (",", USAGE)):
            self.complaint("rm", "card", bad, "-y", expect=status)
        self.complaint("rm", "card", "-y", expect=USAGE)
        self.complaint("rm", "card", "0", "--all", "-y", expect=USAGE)
        self.assertEqual(self.tree()[:len(before)], before)

    def test_an_emptied_folder_goes_and_the_newest_stays(self):
        self.make_pictures("100PHOTO", 1)
        self.make_pictures("101PHOTO", 2)
        self.run_tool("rm", "card", "0-1", "-y")
        self.assertEqual(self.tree(), ["DCIM", "DCIM/101PHOTO", "MISC"])

    def test_protected_files_stay_unless_forced(self):
        self.make_pictures("100PHOTO", 1, 2)
        os.chmod(self.root / "DCIM/100PHOTO/QVX_0001.JPG", 0o444)
        self.assertEqual(self.complaint("rm", "card", "--all", "--yes"),
                         "card/DCIM/100PHOTO/QVX_0001.JPG is protected (--force removes it)")
        self.assertEqual(self.lines("count", "card"), ["1"])
        self.assertIn("is protected", self.complaint("rm", "card", "0"))
        self.run_tool("rm", "card", "0", "--force")
        self.assertEqual(self.lines("count", "card"), ["0"])

    def test_a_dry_run_changes_nothing(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.make_file("DCIM/100PHOTO/QVX_0002.WAV")
        os.chmod(self.root / "DCIM/100PHOTO/QVX_0001.JPG", 0o444)
        before = self.snapshot()
        self.assertEqual(self.lines("rm", "card", "--all", "--dry-run", expect=FAILED), [
            "would keep card/DCIM/100PHOTO/QVX_0001.JPG, which is protected",
            "would remove card/DCIM/100PHOTO/QVX_0002.JPG with QVX_0002.WAV"])
        self.assertEqual(self.snapshot(), before)

    def test_a_dry_run_refuses_what_the_command_refuses(self):
        self.make_pictures("100PHOTO", 1)
        elsewhere = self.outside / "elsewhere"
        elsewhere.mkdir()
        (elsewhere / "QVX_0002.JPG").touch()
        (self.root / "DCIM/101PHOTO").symlink_to(elsewhere)
        for command, target in (("rm", "1"), ("protect", "1")):
            refusal = self.complaint(command, "card", target)
            self.assertIn("leads out of the card", refusal)
            self.assertEqual(self.complaint(command, "card", target, "--dry-run"), refusal)
        self.make_folder("MISC")
        (self.root / "MISC/AUTPRINT.MRK").symlink_to("nowhere")
        refusal = self.complaint("rm", "card", "0")
        self.assertIn("is a link", refusal)
        self.assertEqual(self.complaint("rm", "card", "0", "--dry-run"), refusal)

    def test_several_files_need_a_yes_and_nobody_is_there_to_ask(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.assertEqual(self.complaint("rm", "card", "0-1"),
                         "will not remove 2 files without --yes: there is no terminal to ask on")
        self.assertEqual(self.lines("count", "card"), ["2"])
        self.run_tool("rm", "card", "0")

    def test_the_print_order_forgets_the_file_and_keeps_its_maker(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.run_tool("print", "set", "card", "3", "--all", "--creator", "CAM")
        for arguments in (("0",), ("--all", "--yes")):
            self.run_tool("rm", "card", *arguments)
            order = self.json("print", "show", "card", "--json")
            self.assertEqual(len(order["files"]), int(self.lines("count", "card")[0]))
            self.assertEqual(order["creator"], "CAM" if order["files"] else "")

    def test_without_a_print_order_none_is_made_for_single_files(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.run_tool("rm", "card", "0")
        self.assertFalse((self.root / "MISC/AUTPRINT.MRK").exists())

    def test_a_file_that_cannot_be_removed_is_named(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.make_folder("MISC")
        options = self.as_nobody()
        for path in (self.root / "DCIM/100PHOTO", self.root):
            os.chmod(path, 0o555)
        self.assertEqual(self.complaint("rm", "card", "1", **options),
                         "cannot remove card/DCIM/100PHOTO/QVX_0002.JPG: Permission denied")
        self.complaint("rm", "card", "--all", "-y", **options)
        self.assertEqual(self.lines("count", "card"), ["2"])

    def test_a_file_that_is_not_there_under_its_listed_name_is_not_called_removed(self):
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/100PHOTO/QVX_0002.jpg")
        message = "cannot remove card/DCIM/100PHOTO/QVX_0002.JPG: No such file or directory"
        for arguments in (("1",), ("1", "--dry-run")):
            done = self.run_tool("rm", "card", *arguments, expect=FAILED)
            self.assertEqual((done.stdout, done.stderr.decode()), (b"", f"flm: {message}\n"))
        self.assertEqual(self.lines("count", "card"), ["2"])
        done = self.run_tool("rm", "card", "--all", "--yes", expect=FAILED)
        self.assertEqual(done.stdout, b"removed card/DCIM/100PHOTO/QVX_0001.JPG\n")
        self.assertEqual(done.stderr.decode(), f"flm: {message}\n")
        self.assertTrue((self.root / "DCIM/100PHOTO/QVX_0002.jpg").exists())

    def test_an_emptied_folder_that_cannot_be_removed_is_named(self):
        self.make_pictures("100PHOTO", 1)
        self.make_pictures("101PHOTO", 2)
        self.make_folder("MISC")
        os.chmod(self.root / "DCIM/100PHOTO", 0o777)
        options = self.as_nobody()
        os.chmod(self.root / "DCIM", 0o555)
        done = self.run_tool("rm", "card", "0", expect=FAILED, **options)
        self.assertEqual(done.stdout, b"removed card/DCIM/100PHOTO/QVX_0001.JPG\n")
        self.assertEqual(done.stderr,
                         b"flm: cannot remove the folder card/DCIM/100PHOTO: Permission denied\n")

    def test_ctrl_c_while_the_card_is_read_ends_before_the_first_file(self):
        self.make_pictures("100PHOTO", *range(1, 3001))
        terminal = Terminal(self, "rm", "card", "--all")
        inside = f"/proc/{terminal.process.pid}/cwd"
        end = time.monotonic() + 60
        while os.readlink(inside) != str(self.root) and time.monotonic() < end:
            pass
        terminal.process.send_signal(signal.SIGINT)
        terminal.answer("n\n")
        self.assertEqual(terminal.finish(), INTERRUPTED)
        self.assertIn("interrupted: 0 files done", terminal.shown)
        self.assertEqual(self.lines("count", "card"), ["3000"])

    def test_ctrl_c_stops_between_two_files_and_says_how_many_are_done(self):
        self.make_pictures("100PHOTO", *range(1, 2501))
        terminal = Terminal(self, "rm", "card", "--all", "--yes")
        terminal.read_until(r"\d+/2500")
        terminal.process.send_signal(signal.SIGINT)
        self.assertEqual(terminal.finish(), INTERRUPTED)
        done = int(re.search(r"interrupted: (\d+) of 2500 files done", terminal.shown).group(1))
        self.assertEqual(self.lines("count", "card"), [str(2500 - done)])


class ProtectTest(ToolTest):
    def modes(self):
        return {path.name: oct(path.stat().st_mode & 0o777)
                for path in sorted((self.root / "DCIM/100PHOTO").iterdir())}

    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1, 2)
        self.make_file("DCIM/100PHOTO/QVX_0001.WAV")
        for path in (self.root / "DCIM/100PHOTO").iterdir():
            os.chmod(path, 0o644)

    def test_protection_covers_the_companions_and_goes_again(self):
        self.assertEqual(self.lines("protect", "card", "0"),
                         ["protected card/DCIM/100PHOTO/QVX_0001.JPG and QVX_0001.WAV"])
        self.assertEqual(self.modes(), {"QVX_0001.JPG": "0o444", "QVX_0001.WAV": "0o444",
                                        "QVX_0002.JPG": "0o644"})
        self.assertEqual([file["protected"] for file in self.json("ls", "--json", "card")],
                         [True, False])
        self.run_tool("unprotect", "card", "0")
        self.assertEqual(set(self.modes().values()), {"0o644"})

    def test_a_file_that_cannot_be_protected_is_named_with_the_reason(self):
        os.remove(self.root / "DCIM/100PHOTO/QVX_0002.JPG")
        self.make_file("DCIM/100PHOTO/QVX_0002.jpg")
        self.assertEqual(self.complaint("protect", "card", "1"),
                         "cannot protect card/DCIM/100PHOTO/QVX_0002.JPG: No such file or directory")
        if os.geteuid() == 0:
            self.assertEqual(
                self.complaint("protect", "card", "0", **self.as_nobody()),
                "cannot protect card/DCIM/100PHOTO/QVX_0001.JPG: Operation not permitted")

    def test_all_files_with_all_companions(self):
        self.run_tool("protect", "card", "--all", "--yes")
        self.assertEqual(set(self.modes().values()), {"0o444"})
        self.assertEqual(self.run_tool("unprotect", "card", "--all", "-yq").stdout, b"")
        self.assertEqual(set(self.modes().values()), {"0o644"})

    def test_a_dry_run_changes_nothing(self):
        before = self.snapshot()
        self.assertEqual(self.lines("protect", "card", "0-1", "-n"),
                         ["would protect card/DCIM/100PHOTO/QVX_0001.JPG and QVX_0001.WAV",
                          "would protect card/DCIM/100PHOTO/QVX_0002.JPG"])
        self.assertEqual(self.snapshot(), before)


class TerminalTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", *range(1, 6))

    def test_yes_on_the_terminal_is_enough(self):
        terminal = Terminal(self, "rm", "card", "0-2")
        terminal.read_until(r"remove 3 files\? \[y/N\]")
        terminal.answer("y\n")
        self.assertEqual(terminal.finish(), 0)
        self.assertEqual(self.lines("count", "card"), ["2"])
        self.assertIn("[#####", terminal.shown)
        self.assertIn("3/3", terminal.shown)

    def test_anything_else_is_a_no(self):
        for answer in ("\n", "n\n", "maybe\n", "\x04"):
            terminal = Terminal(self, "rm", "card", "0-2")
            terminal.read_until("files?")
            terminal.answer(answer)
            self.assertEqual(terminal.finish(), FAILED)
            self.assertIn("nothing was done", terminal.shown)
        self.assertEqual(self.lines("count", "card"), ["5"])

    def test_ctrl_c_at_the_question_does_nothing(self):
        terminal = Terminal(self, "rm", "card", "0-2")
        terminal.read_until("files?")
        time.sleep(0.2)
        terminal.process.send_signal(signal.SIGINT)
        self.assertEqual(terminal.finish(), INTERRUPTED)
        self.assertEqual(self.lines("count", "card"), ["5"])

    def test_quiet_shows_no_bar(self):
        terminal = Terminal(self, "protect", "card", "--all", "--yes", "--quiet")
        self.assertEqual(terminal.finish(), 0)
        self.assertEqual(terminal.shown, "")

    def test_the_bar_is_only_for_terminals(self):
        self.assertEqual(self.run_tool("protect", "card", "--all", "--yes").stderr, b"")


if __name__ == "__main__":
    unittest.main()
