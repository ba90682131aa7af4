#!/usr/bin/env python3
"""Cards that somebody prepared: names that command terminals, links that lead elsewhere, pipes."""
import json
import os
import pty
import re
import resource
import subprocess
import sys
import time
import unicodedata
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, DONE, FAILED, UNREADABLE, ToolTest, all_from

ESCAPES = b"\x1b]0;owned\x07\x1b[2J"
ORDER = "MISC/AUTPRINT.MRK"
FREE_NAMES = (b"a \x1b[2J bad\xff\n name.JPG", b"C1 \xc2\x9b2J and \xc2\x85 end.JPG",
              b"turned \xe2\x80\xae GPJ.exe \xe2\x81\xa6.JPG", b"delete \x7f\x08\x08 back.JPG",
              b"quote \" and\r return.JPG", b"overlong \xc0\x9b and \xed\xa0\x80.JPG")
# What the tool itself shows on a terminal beside text: a bar that is drawn over.
OWN_SEQUENCES = re.compile("\r\x1b\\[K")


def bad_characters(text):
    """Characters of a text that a terminal obeys instead of showing them."""
    return sorted({character for character in text
                   if unicodedata.category(character) in ("Cc", "Zl", "Zp")
                   or character in "\u061c\u200e\u200f\u202a\u202b\u202c\u202d\u202e"
                                   "\u2066\u2067\u2068\u2069"} - {"\n"})


def between_cells(arguments, text):
    """The text of a table between tabs without the tabs, of which no cell has one."""
    return text.replace("\t", " ") if "--tsv" in arguments else text


class NamesTest(ToolTest):
    """Every command on names of every kind, on a terminal and into a pipe."""

    def setUp(self):
        super().setUp()
        self.root = self.outside / os.fsdecode(b"c\x1b[31m\xff")
        self.root.mkdir()
        self.card = os.fsencode(self.root.name)
        for name in FREE_NAMES:
            self.make_file(b"DCIM/CAMERA/" + name)
        for folder in (b"100\x1b[2Jx", b"101\"\n\xff\x07A", b"102PHOTO"):
            for name in (b"\x1b]0;0001.JPG", b"\"\r\n\x9b0002.JPG", b"QVX_0003.JPG", b"QVX_0003.WAV",
                         b"\x07\x07\x07\x070009.WAV", b"QVX_000\x1b.JPG", b"not\x1b[2J listed"):
                self.make_file(b"DCIM/" + folder + b"/" + name)
        self.make_file(b"DCIM/\x1b[2J")
        self.make_folder(os.fsdecode(b"DCIM/\x1b[2J folder"))
        self.make_file(ORDER, b"[HDR]\r\nGEN CRT=\"" + ESCAPES + b"\"\r\nPRT TYP=" + ESCAPES +
                       b"\r\nPRT QTY=" + ESCAPES + b"\r\nprt qty=" + ESCAPES +
                       b"\r\nIMG SRC=\"" + ESCAPES + b"\"\r\nIMG SRC=\"../" + ESCAPES + b"\"\r\n")

    def looking(self):
        """Command lines that change nothing."""
        card = self.card
        commands = [["ls", card], ["ls", "-l", card], ["ls", "--paths", card], ["count", card],
                    ["ls", "--json", card], ["ls", "--jsonl", card], ["ls", "--tsv", card],
                    ["scan", card], ["scan", "--explain", card], ["scan", "--explain", "--json", card],
                    ["scan", "--explain", "--jsonl", card], ["scan", "--explain", "--tsv", card],
                    ["pages", card, "--size", "4"],
                    ["pages", card, "--size", "4", "--json"], ["check", card],
                    ["check", card, "--json"], ["print", "show", card],
                    ["print", "show", card, "--json"], ["last", card], ["next", card],
                    ["protect", card, "--all", "--dry-run"], ["rm", card, "--all", "--dry-run"]]
        for index in range(15):
            commands += [["info", card, str(index)], ["info", card, str(index), "--json"]]
        return commands

    def failing(self):
        """Command lines whose words come back in messages."""
        card = self.card
        word = b"x\x1b[2J\xff\xc2\x9b\n"
        return [["ls", word], ["info", card, word], ["info", card, word + b"/x"], ["rm", card, word],
                ["import", card, word], ["import", card, word + b".jpg"], ["new", card, word],
                ["print", "set", card, word, "0"], ["print", "set", card, "1", word],
                ["print", "load", card, word], ["print", "set", card, "1", "0", "--creator", word],
                ["series", "set", word], ["mkcard", card], [word], ["ls", card, word],
                ["ls", card, b"--" + word], ["next", card, "--prefix", word]]

    def changing(self):
        card = self.card
        return [["protect", card, "--all", "--yes"], ["rm", card, "--all", "--yes"],
                ["unprotect", card, "0-5", "--yes"], ["print", "set", card, "2", "--all"],
                ["print", "index", card, "on"], ["print", "clear", card], ["new", card, "jpg"],
                ["rm", card, "0-5", "--yes"], ["rm", card, "--all", "--yes", "--force"]]

    def on_terminal(self, arguments):
        """Everything that a command shows on a terminal."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([BINARY, *arguments], stdin=subprocess.DEVNULL, stdout=theirs,
                                   stderr=theirs, cwd=self.outside,
                                   env={**self.env, "NO_COLOR": "1"})
        os.close(theirs)
        shown = all_from(ours)
        self.assertIn(process.wait(timeout=60), (0, 1, 2, 3, 4), arguments)
        return shown

    def check_terminal(self, arguments):
        shown = self.on_terminal(arguments).replace(b"\r\n", b"\n").decode("utf-8")
        shown = between_cells(arguments, shown.replace("\0", "\n"))
        self.assertEqual(bad_characters(OWN_SEQUENCES.sub("", shown)), [], (arguments, shown))
        return shown

    def check_pipe(self, arguments):
        done = self.run_tool(*arguments, expect=None)
        self.assertEqual(bad_characters(done.stderr.decode("utf-8")), [], arguments)
        text = between_cells(arguments, done.stdout.decode("utf-8"))
        if "--json" in arguments and done.returncode != 2 and text:
            json.loads(text)
        elif "--jsonl" in arguments:
            for line in text.split("\n")[:-1]:
                json.loads(line)
        else:
            self.assertEqual(bad_characters(text), [], (arguments, text))

    def test_what_only_looks_shows_no_name_raw(self):
        for arguments in self.looking() + [["ls", "--paths", "-0", self.card]]:
            self.assertNotEqual(self.check_terminal(arguments), "", arguments)
        for arguments in self.looking():
            if arguments[0] != "next":  # a path for another program, raw
                self.check_pipe(arguments)

    def test_messages_show_no_word_raw(self):
        for arguments in self.failing():
            self.check_terminal(arguments)
            self.check_pipe(arguments)

    def test_what_changes_files_shows_no_name_raw(self):
        for arguments in self.changing():
            self.assertNotIn("\x1b", OWN_SEQUENCES.sub("", self.check_terminal(arguments)))
        left = self.run_tool("ls", "--paths", self.card).stdout
        self.assertEqual(left, b"")

    def test_every_name_is_told_apart(self):
        shown = self.run_tool("ls", "--paths", self.card).stdout.decode().splitlines()
        self.assertEqual(len(shown), len(set(shown)))
        raw = self.run_tool("ls", "--paths", "-0", self.card).stdout.split(b"\0")[:-1]
        self.assertEqual(len(raw), len(shown))
        for name in FREE_NAMES:
            self.assertIn(self.card + b"/DCIM/CAMERA/" + name, raw)


class OrderTest(ToolTest):
    """Names that would make lines of their own in a print order."""

    NAMES = (b"CAMERA/line\nPRT QTY=99\nb.JPG", b"CAMERA/quote\" and more.JPG",
             b"CAMERA/return\rof the line.JPG", b"100PHO\nO/QVX_0001.JPG", b"101PHOTO/\"\n\"\n0001.JPG")

    def setUp(self):
        super().setUp()
        self.make_file("DCIM/102PHOTO/QVX_0001.JPG")
        for name in self.NAMES:
            self.make_file(b"DCIM/" + name)
        self.paths = self.run_tool("ls", "--paths", "-0", "card").stdout.split(b"\0")[:-1]
        self.order_file = self.root / ORDER

    def index_of(self, name):
        return str(self.paths.index(b"card/DCIM/" + name))

    def test_such_a_file_is_not_ordered(self):
        for name in self.NAMES:
            for command in (["print", "set", "card", "1"], ["print", "size", "card", "4"]):
                message = self.complaint(*command, self.index_of(name))
                self.assertRegex(message, r"\Acard/DCIM/.* cannot be ordered: no line of a print "
                                          r"order can hold its name\Z")
        self.assertIn("cannot be ordered", self.complaint("print", "index", "card", "on"))
        self.assertFalse(self.order_file.exists())

    def test_all_pictures_are_all_but_those(self):
        done = self.run_tool("print", "set", "card", "2", "--all", expect=FAILED)
        self.assertEqual(done.stderr.count(b"is left out"), len(self.NAMES))
        text = self.order_file.read_bytes()
        self.assertEqual(text.count(b"<IMG SRC="), 1)
        self.assertIn(b"<IMG SRC=\"../DCIM/102PHOTO/QVX_0001.JPG\">\r\n", text)
        self.assertEqual(text.count(b"\n"), text.count(b"\r\n"))
        self.run_tool("print", "clear", "card")

    def test_an_order_that_marks_such_a_file_is_not_written_again(self):
        # A folder is found by its first six characters.
        order = (b"[HDR]\nGEN CRT=\"CAM\"\nPRT TYP=STD\nPRT QTY=001\n"
                 b"IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"\n")
        self.make_file(ORDER, order)
        for command in (["print", "save", "card"], ["print", "index", "card", "off"],
                        ["rm", "card", self.index_of(b"102PHOTO/QVX_0001.JPG")],
                        ["rm", "card", "--all", "--yes"]):
            before = self.snapshot()
            self.assertIn(r"card/DCIM/100PHO\x0AO/QVX_0001.JPG cannot be ordered",
                          self.complaint(*command))
            self.assertEqual(self.snapshot(), before)
        self.run_tool("print", "set", "card", "0", self.index_of(b"100PHO\nO/QVX_0001.JPG"))
        self.run_tool("rm", "card", "--all", "--yes")
        self.assertEqual(self.order_file.read_bytes(), b"")

    def test_a_makers_name_that_would_break_its_line_is_dropped(self):
        self.make_file(ORDER, b"[HDR]\r\nGEN CRT=\"a\rGEN REV=9\x1b[2J\"\r\n")
        self.run_tool("print", "set", "card", "1", self.index_of(b"102PHOTO/QVX_0001.JPG"))
        self.assertIn(b"GEN CRT=\"\"\r\n", self.order_file.read_bytes())

    def test_sources_that_climb_order_nothing(self):
        (self.outside / "DCIM/100PHOTO").mkdir(parents=True)
        (self.outside / "DCIM/100PHOTO/QVX_0001.JPG").write_bytes(b"x")
        self.make_file(ORDER, b"[HDR]\nPRT TYP=STD\nPRT QTY=001\n"
                              b"IMG SRC=\"../../DCIM/100PHOTO/QVX_0001.JPG\"\n"
                              b"IMG SRC=\"../../../../../../etc/passwd\"\n")
        self.assertEqual(self.json("print", "show", "card", "--json")["files"], [])
        self.run_tool("print", "save", "card")
        self.assertNotIn(b"IMG SRC", self.order_file.read_bytes())


class LinkTest(ToolTest):
    """Links that lead out of the card."""

    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1, 2)
        self.make_folder("MISC")
        self.other = self.outside / "other"
        self.other.mkdir()
        (self.other / "QVX_0001.JPG").write_bytes(b"precious")
        (self.outside / "a.jpg").write_bytes(b"x")

    def outside_state(self):
        return sorted((path.name, path.lstat().st_mode, path.lstat().st_mtime_ns, path.read_bytes())
                      for path in self.other.iterdir())

    def refuse(self, *commands, because):
        before = self.outside_state()
        for command in commands:
            self.assertIn(because, self.complaint(*command))
        self.assertEqual(self.outside_state(), before)

    def test_a_folder_elsewhere_is_listed_and_not_changed(self):
        (self.root / "DCIM/101PHOTO").symlink_to(self.other)
        self.assertEqual(self.lines("count", "card"), ["3"])
        self.refuse(["rm", "card", "2"], ["rm", "card", "--all", "--yes"], ["protect", "card", "2"],
                    ["import", "card", "a.jpg"], ["new", "card", "jpg"],
                    because="card/DCIM/101PHOTO leads out of the card, and nothing is changed there")
        self.assertEqual(self.lines("count", "card"), ["3"])
        self.run_tool("protect", "card", "0")

    def test_a_tree_or_a_misc_folder_elsewhere_is_not_changed(self):
        os.rmdir(self.root / "MISC")
        (self.root / "MISC").symlink_to(self.other)
        self.refuse(["rm", "card", "0"], ["print", "set", "card", "1", "0"], ["protect", "card", "0"],
                    because="card/MISC leads out of the card")
        (self.outside / "second").mkdir()
        (self.outside / "second/DCIM").symlink_to(self.root / "DCIM")
        self.assertEqual(self.lines("count", "second"), ["2"])
        self.assertIn("second/DCIM leads out of the card", self.complaint("rm", "second", "0"))
        self.assertEqual(self.lines("count", "card"), ["2"])

    def test_a_linked_picture_goes_as_a_link_and_is_not_protected(self):
        (self.root / "DCIM/100PHOTO/QVX_0003.JPG").symlink_to(self.other / "QVX_0001.JPG")
        self.refuse(["protect", "card", "2"], ["unprotect", "card", "2"], ["rm", "card", "2", "--force"],
                    because="card/DCIM/100PHOTO/QVX_0003.JPG leads out of the card")
        before = self.outside_state()
        self.run_tool("rm", "card", "2")
        self.assertEqual(self.outside_state(), before)
        self.assertEqual(self.lines("count", "card"), ["2"])

    def test_links_beside_the_print_order_are_not_written_through(self):
        victim = self.other / "QVX_0001.JPG"
        (self.root / "MISC/AUTPRINT.NEW").symlink_to(victim)
        before = self.outside_state()
        self.run_tool("print", "set", "card", "1", "0")
        self.assertEqual(self.outside_state(), before)
        self.assertFalse((self.root / ORDER).is_symlink())

    def test_a_linked_print_order_is_replaced_and_never_written_through(self):
        for target in ("QVX_0001.JPG", "missing"):
            (self.root / ORDER).symlink_to(self.other / target)
            self.refuse(["rm", "card", "--all", "--yes"], ["rm", "card", "0"],
                        because="card/MISC/AUTPRINT.MRK is a link")
            before = self.outside_state()
            self.run_tool("print", "set", "card", "1", "0")
            self.assertEqual(self.outside_state(), before)
            self.assertFalse((self.root / ORDER).is_symlink())
            (self.root / ORDER).unlink()

    def test_links_that_stay_on_the_card_are_like_any_other(self):
        (self.root / "DCIM/101PHOTO").symlink_to("100PHOTO")
        self.run_tool("protect", "card", "3")
        self.assertTrue(self.json("ls", "--json", "card")[1]["protected"])


class PipeTest(ToolTest):
    """Pipes and devices in the places of files. Every command ends within the time of a test."""

    def commands(self):
        return (["ls", "card"], ["ls", "-l", "card"], ["info", "card", "0"], ["check", "card"],
                ["print", "show", "card"], ["next", "card"], ["protect", "card", "--all", "--yes"],
                ["unprotect", "card", "--all", "--yes"], ["print", "set", "card", "1", "--all"],
                ["new", "card", "jpg"], ["import", "card", "a.jpg"], ["rm", "card", "--all", "--yes"])

    def run_all(self):
        started = time.monotonic()
        statuses = [self.run_tool(*command, expect=None).returncode for command in self.commands()]
        self.assertTrue(set(statuses) <= {DONE, FAILED}, statuses)
        self.assertLess(time.monotonic() - started, 60)

    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1, 2)
        self.make_folder("MISC")
        (self.outside / "a.jpg").write_bytes(b"x")

    def test_as_pictures_and_companions(self):
        for name in ("QVX_0003.JPG", "QVX_0001.SRW", "QVX_0001.WAV", "QVX_0004.WAV"):
            os.mkfifo(self.root / "DCIM/100PHOTO" / name)
        self.run_all()
        self.assertEqual(self.lines("count", "card"), ["0"])

    def test_as_folders(self):
        os.mkfifo(self.root / "DCIM/101PHOTO")
        os.mkfifo(self.root / "DCIM/CAMERA")
        self.run_all()

    def test_as_the_tree(self):
        os.mkdir(self.outside / "second")
        os.mkfifo(self.outside / "second/DCIM")
        self.assertEqual(self.complaint("ls", "second", expect=UNREADABLE), "second/DCIM is not a folder")

    def test_as_the_print_order_and_beside_it(self):
        os.mkfifo(self.root / ORDER)
        os.mkfifo(self.root / "MISC/AUTPRINT.NEW")
        self.assertEqual(self.json("check", "card", "--json", expect=FAILED)["findings"][0]["reason"],
                         "it is no regular file and is passed over")
        self.run_all()

    def test_a_device_as_the_print_order(self):
        (self.root / ORDER).symlink_to("/dev/zero")
        self.run_all()

    def test_a_folder_as_the_print_order(self):
        self.make_folder(ORDER)
        self.assertIn("cannot replace the print order", self.complaint("print", "set", "card", "1", "0"))
        self.run_all()

    def test_as_the_preference_store(self):
        store = self.outside / "preferences"
        os.mkfifo(store)
        os.mkfifo(str(store) + ".new")
        self.assertEqual(self.lines("series", "show"), ["none"])
        self.run_all()


class SizeTest(ToolTest):
    """Cards that are large where cameras' cards are small."""

    def test_a_print_order_with_a_line_without_end_takes_no_room(self):
        self.make_pictures("100PHOTO", 1)
        self.make_file(ORDER, b"[HDR]\n")
        os.truncate(self.root / ORDER, 1 << 30)
        self.run_tool("ls", "card")
        reasons = [one["reason"] for one in
                   self.json("check", "card", "--json", expect=FAILED)["findings"]]
        self.assertEqual(reasons, ["line 2: the line is too long, and the reading ends here"])
        self.run_tool("print", "set", "card", "1", "0")
        self.assertLess((self.root / ORDER).stat().st_size, 1000)
        largest = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
        self.assertLess(largest, 1 << 19, "in KiB: the line was held")

    def test_thousands_of_folders_are_told_once_each(self):
        for number in range(3000):
            (self.root / f"DCIM/100{number:05d}").mkdir(parents=True)
        findings = self.json("check", "card", "--json", expect=FAILED)["findings"]
        self.assertEqual(len(findings), 3000)  # all but the first, and that there are too many


class StoreTest(ToolTest):
    """The number that is kept on this machine."""

    def test_a_number_that_could_not_be_kept_is_told_once(self):
        self.make_pictures("102PHOTO", 20)
        (self.outside / "store").write_bytes(b"")
        self.env["FLM_PREFERENCE_FILE"] = str(self.outside / "store/file")
        for name in ("a.jpg", "b.jpg"):
            (self.outside / name).write_bytes(b"x")
        message = ("flm: numbers given out are not kept for --series: cannot write the preference "
                   f"store {self.outside}/store/file: Not a directory\n")
        for command in (["new", "card", "jpg"], ["import", "card", "a.jpg", "b.jpg"]):
            self.assertEqual(self.run_tool(*command).stderr.decode(), message)
        self.assertEqual(self.lines("count", "card"), ["3"])

    def test_behind_the_last_number_of_all_the_series_starts_over(self):
        self.make_pictures("999PHOTO", 9998)
        self.assertEqual(self.lines("new", "card", "jpg", "--series"),
                         ["card/DCIM/999PHOTO/QVX_9999.JPG"])
        self.assertEqual(self.lines("series", "show"), ["100/0000"])


if __name__ == "__main__":
    unittest.main()
