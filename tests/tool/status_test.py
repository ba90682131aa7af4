#!/usr/bin/env python3
"""What every command ends with: exit status, interrupts, closed pipes, --read-only, --progress."""
import json
import os
import pty
import re
import signal
import subprocess
import sys
import time
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, DONE, FAILED, INTERRUPTED, NOTHING, UNREADABLE, USAGE, ToolTest, all_from

# Every command with arguments that fit a card with one picture, apart from the card itself.
LOOKING = [("ls", "@"), ("ls", "@", "--json"), ("ls", "@", "--jsonl"), ("ls", "@", "--tsv"),
           ("ls", "@", "--paths"), ("ls", "@", "-0"), ("count", "@"), ("info", "@", "0"),
           ("info", "@", "0", "--json"), ("pages", "@", "--size", "5"), ("scan", "@"),
           ("scan", "@", "--explain"), ("last", "@"), ("avail", "@"), ("next", "@"),
           ("print", "show", "@"), ("rm", "@", "0", "-n"), ("protect", "@", "0", "-n"),
           ("set-last", "@", "200/0001", "--dry-run")]
CHANGING = [("rm", "@", "0"), ("protect", "@", "0"), ("unprotect", "@", "0"), ("new", "@", "jpg"),
            ("import", "@", "picture.jpg"), ("print", "set", "@", "1", "0"),
            ("print", "size", "@", "3", "0"), ("print", "index", "@", "on"), ("print", "clear", "@"),
            ("print", "save", "@"), ("print", "load", "@", "order"), ("set-last", "@", "200/0001")]
ELSEWHERE = [("series", "set", "200/0001"), ("mkcard", "other")]
# What asks for a file that is not there.
MISSING = [("ls", "@", "7"), ("ls", "@", "--json", "7"), ("ls", "@", "--tsv", "nothing.jpg"),
           ("ls", "@", "-0", "7"), ("ls", "@", "--selected"), ("ls", "@", "--jsonl", "--selected"),
           ("count", "@", "--selected"), ("info", "@", "7"), ("pages", "@", "--size", "5", "--page", "3"),
           ("rm", "@", "0,7"), ("protect", "@", "100PHOTO/QVX_0009.JPG"), ("unprotect", "@", "7"),
           ("rm", "@", "--selected", "-n"), ("print", "set", "@", "1", "7"), ("print", "size", "@", "3", "7")]


def on(card, command):
    return [card if word == "@" else word for word in command]


class StatusTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1)
        self.make_folder("MISC")
        (self.outside / "picture.jpg").write_bytes(b"picture")
        (self.outside / "order").write_bytes(b"[HDR]\n")

    def test_what_is_done_is_zero(self):
        for command in LOOKING + CHANGING[1:] + CHANGING[:1]:
            self.run_tool(*on("card", command), expect=DONE)

    def test_a_card_that_cannot_be_read_is_four(self):
        (self.outside / "file").touch()
        (self.outside / "empty").mkdir()
        makes_cards = ("new", "import")
        for command in LOOKING + CHANGING + [("check", "@")]:
            self.complaint(*on("nowhere", command), expect=UNREADABLE)
            self.complaint(*on("file", command), expect=UNREADABLE)
            if command[0] not in makes_cards:
                self.complaint(*on("empty", command), expect=UNREADABLE)
        self.assertEqual(os.listdir(self.outside / "empty"), [])

    def test_what_matches_nothing_is_three_and_changes_nothing(self):
        before = self.snapshot()
        for command in MISSING:
            done = self.run_tool(*on("card", command), expect=NOTHING)
            self.assertRegex(done.stderr, rb"\Aflm: [^\n]+\n\Z")
        self.assertEqual(self.snapshot(), before)

    def test_the_status_is_the_same_in_every_format(self):
        for form in ("--json", "--jsonl", "--tsv", "--paths", "-0", "--long"):
            for arguments, status in ((("card",), DONE), (("card", "9"), NOTHING),
                                      (("card", "--since", "2999-01-01"), NOTHING),
                                      (("nowhere",), UNREADABLE), (("card", "--since", "x"), USAGE),
                                      (("card", "3-1"), USAGE)):
                self.run_tool("ls", form, *arguments, expect=status)

    def test_every_file_that_failed_is_named(self):
        self.make_pictures("100PHOTO", 2, 3)
        for number in (1, 3):
            os.chmod(self.root / f"DCIM/100PHOTO/QVX_000{number}.JPG", 0o444)
        done = self.run_tool("rm", "card", "0-2", "--yes", expect=FAILED)
        self.assertEqual(re.findall(r"QVX_000\d", done.stderr.decode()), ["QVX_0001", "QVX_0003"])


class InterruptTest(ToolTest):
    CARD = "/".join(["a folder of a long name, so that few files fill a pipe"] * 4)
    FILES = 500

    def setUp(self):
        super().setUp()
        self.run_tool("mkcard", self.CARD, "--files", str(self.FILES))

    def test_an_interrupt_ends_a_list_in_every_format(self):
        for form in ("--json", "--jsonl", "--tsv", "--paths", "-0", "--long"):
            with subprocess.Popen([BINARY, "ls", form, self.CARD], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, cwd=self.outside, env=self.env) as process:
                process.stdout.read(1)  # The rest does not fit into the pipe, so the tool waits.
                process.send_signal(signal.SIGINT)
                self.assertEqual(process.wait(timeout=60), INTERRUPTED, form)
                self.assertEqual(process.stderr.read(), b"")

    def test_a_job_in_the_background_is_not_interrupted(self):
        with subprocess.Popen([BINARY, "ls", self.CARD], stdout=subprocess.PIPE, cwd=self.outside,
                              env=self.env,
                              preexec_fn=lambda: signal.signal(signal.SIGINT, signal.SIG_IGN)) as process:
            process.stdout.read(1)
            process.send_signal(signal.SIGINT)
            self.assertEqual(process.stdout.read().count(b"\n"), self.FILES + 1)
            self.assertEqual(process.wait(timeout=60), DONE)

    def test_a_closed_pipe_ends_a_list_quietly_in_every_format(self):
        for form in ("--json", "--jsonl", "--tsv", "--paths", "-0", "--long"):
            with subprocess.Popen([BINARY, "ls", form, self.CARD], stdout=subprocess.PIPE,
                                  stderr=subprocess.PIPE, cwd=self.outside, env=self.env) as process:
                process.stdout.read(1)
                process.stdout.close()
                self.assertEqual(process.stderr.read(), b"", form)
                self.assertEqual(process.wait(timeout=60), DONE, form)

    def test_output_that_cannot_be_written_is_a_failure_in_every_format(self):
        for form in ("--json", "--jsonl", "--tsv", "--paths", "-0", "--long"):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([BINARY, "ls", form, self.CARD], stdout=full, stderr=subprocess.PIPE,
                                      cwd=self.outside, env=self.env, check=False)
            self.assertEqual(done.returncode, FAILED)
            self.assertIn(b"cannot write the output", done.stderr)


class ReadOnlyTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1)
        (self.outside / "picture.jpg").write_bytes(b"picture")
        (self.outside / "order").write_bytes(b"[HDR]\n")

    def test_looking_makes_no_folder_and_touches_nothing(self):
        before = self.snapshot()
        for command in LOOKING:
            self.run_tool("--read-only", *on("card", command))
        self.assertEqual(self.snapshot(), before)
        self.assertFalse((self.outside / "preferences").exists())

    def test_what_changes_is_refused_in_front_and_behind(self):
        before = self.snapshot()
        for command in [*CHANGING, *ELSEWHERE]:
            for words in (["--read-only", *on("card", command)], [*on("card", command), "--read-only"]):
                self.assertEqual(self.complaint(*words, expect=USAGE), "--read-only forbids this command")
        self.assertEqual(self.snapshot(), before)
        self.assertFalse((self.outside / "preferences").exists())
        self.assertFalse((self.outside / "other").exists())

    def test_an_empty_folder_stays_empty(self):
        (self.outside / "empty").mkdir()
        for command in LOOKING + CHANGING:
            self.run_tool("--read-only", *on("empty", command), expect=None)
        self.assertEqual(os.listdir(self.outside / "empty"), [])


class ProgressTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", *range(1, 8))

    def protect(self, *arguments, **options):
        return self.run_tool("protect", "card", "--all", "--yes", *arguments, **options)

    def on_terminal(self, *arguments, term="xterm"):
        """What standard error shows on a terminal."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([BINARY, "protect", "card", "--all", "--yes", *arguments],
                                   stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=theirs,
                                   cwd=self.outside, env=dict(self.env, TERM=term))
        os.close(theirs)
        shown = all_from(ours)
        self.assertEqual(process.wait(timeout=60), DONE)
        return shown.decode()

    def test_a_pipe_gets_none_unless_asked_for(self):
        self.assertEqual(self.protect().stderr, b"")
        self.assertEqual(self.protect("--progress", "never").stderr, b"")
        self.assertEqual(self.protect("--progress=always").stderr.splitlines()[-1], b"7/7")

    def test_json_is_one_object_a_line_and_keeps_off_standard_output(self):
        done = self.protect("--progress", "json", "--quiet")
        steps = [json.loads(line) for line in done.stderr.splitlines()]
        self.assertEqual(steps[-1], {"done": 7, "total": 7})
        self.assertEqual([step["done"] for step in steps], sorted({step["done"] for step in steps}))
        self.assertEqual(done.stdout, b"")

    def test_a_terminal_gets_a_bar_and_no_trace_of_it_stays(self):
        shown = self.on_terminal()
        self.assertIn("7/7", shown)
        self.assertTrue(shown.endswith("\r\x1b[K"))
        self.assertEqual(self.on_terminal("--quiet"), "")
        self.assertEqual(self.on_terminal("--progress=never"), "")

    def test_a_dumb_terminal_gets_no_bar(self):
        self.assertEqual(self.on_terminal(term="dumb"), "")
        self.assertNotIn("\x1b", self.on_terminal("--progress=always", term="dumb"))

    def test_there_are_ten_updates_a_second_at_most(self):
        self.root.rename(self.outside / "other")
        self.root.mkdir()
        self.hold_many_files()
        self.make_pictures("101PHOTO", *range(1, 3000))
        start = time.monotonic()
        lines = self.run_tool("rm", "card", "--all", "--yes", "--progress=json").stderr.splitlines()
        seconds = time.monotonic() - start
        self.assertLessEqual(len(lines), 10 * max(1, seconds))

    def test_other_words_are_wrong_usage(self):
        self.complaint("--progress=often", "count", "card", expect=USAGE)
        self.complaint("count", "card", "--color=pink", expect=USAGE)


class NewNameTest(ToolTest):
    def test_the_path_fits_into_another_command_line(self):
        odd = self.outside / "my \\ card"
        odd.mkdir()
        (self.outside / "write").write_text('"$FLM" new "$1" jpg >/dev/null\n'
                                            'echo picture > "$("$FLM" new "$1" jpg)"\n')
        for _ in range(2):
            subprocess.run(["sh", "write", str(odd)], check=True, cwd=self.outside,
                           env=dict(self.env, FLM=BINARY))
        self.assertEqual(sorted(os.listdir(odd / "DCIM/100PHOTO")), ["QVX_0001.JPG", "QVX_0002.JPG"])
        self.assertEqual(self.run_tool("next", str(odd), "-0").stdout,
                         os.fsencode(odd) + b"/DCIM/100PHOTO/QVX_0003.JPG\0")

    def test_asking_for_the_next_name_reserves_nothing(self):
        self.make_pictures("100PHOTO", 9999)
        before = self.snapshot()
        self.assertEqual(self.lines("next", "card"), ["card/DCIM/101PHOTO/QVX_0001.JPG"])
        self.assertEqual(self.snapshot(), before)
        self.assertEqual(self.lines("new", "card", "jpg"), ["card/DCIM/101PHOTO/QVX_0001.JPG"])
        self.assertTrue((self.root / "DCIM/101PHOTO").is_dir())

    def test_nothing_is_overwritten_when_the_numbers_roll_over(self):
        (self.outside / "a.jpg").write_bytes(b"new")
        for others in ((), ("DCIM/101ABCDE/QVX_0001.JPG",), ("DCIM/101PHOTO/QVX_0001.JPG",),
                       ("DCIM/101PHOTO/ABCD0001.JPG", "DCIM/102PHOTO/QVX_9999.MP4")):
            with self.subTest(others=others):
                for path in ("DCIM/100PHOTO/QVX_9998.JPG", "DCIM/100PHOTO/QVX_9999.JPG",
                             "DCIM/100PHOTO/QVX_0001.JPG", *others):
                    self.make_file(path, b"old")
                before = [path for path in self.tree() if path.endswith(("JPG", "MP4"))]
                copies = [path[len("card/"):] for path in self.lines("import", "card", "a.jpg", "a.jpg")]
                self.assertEqual(len({*before, *copies}), len(before) + 2)
                for path in before:
                    self.assertEqual((self.root / path).read_bytes(), b"old")
                for path in copies:
                    (self.root / path).unlink()


class OrphanTest(ToolTest):
    def test_a_picture_takes_its_raw_file_along_however_it_goes(self):
        for arguments in (("0",), ("--all", "--yes"), ("--type", "jpg"), ("QVX_0001.JPG", "--force")):
            self.make_pictures("100PHOTO", 1)
            self.make_file("DCIM/100PHOTO/QVX_0001.SRW")
            self.make_file("DCIM/100PHOTO/QVX_0001.WAV")
            self.run_tool("rm", "card", *arguments)
            self.assertEqual([path for path in self.tree() if "QVX" in path], [])

    def test_two_pictures_of_one_number_leave_nothing_behind(self):
        for arguments in (("0-1", "--yes"), ("--all", "--yes")):
            for name in ("ABCD0001.JPG", "ABCD0001.SRW", "EFGH0001.JPG", "EFGH0001.SRW", "EFGH0001.WAV"):
                self.make_file(f"DCIM/100PHOTO/{name}")
            self.make_pictures("101PHOTO", 1)
            said = self.run_tool("rm", "card", *arguments).stdout.decode()
            self.assertFalse((self.root / "DCIM/100PHOTO").exists())
            for name in ("ABCD0001.SRW", "EFGH0001.SRW", "EFGH0001.WAV"):
                self.assertIn(name, said)

    def test_one_of_two_pictures_of_a_number_leaves_the_other_whole(self):
        for name in ("ABCD0001.JPG", "ABCD0001.SRW", "EFGH0001.JPG", "EFGH0001.SRW"):
            self.make_file(f"DCIM/100PHOTO/{name}")
        self.run_tool("rm", "card", "EFGH0001.JPG")
        self.assertEqual(sorted(os.listdir(self.root / "DCIM/100PHOTO")),
                         ["ABCD0001.JPG", "ABCD0001.SRW"])

    def test_a_picture_that_stays_keeps_its_raw_file(self):
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/100PHOTO/QVX_0001.SRW")
        os.chmod(self.root / "DCIM/100PHOTO/QVX_0001.JPG", 0o444)
        before = self.tree()
        self.run_tool("rm", "card", "0", expect=FAILED)
        self.run_tool("rm", "card", "--all", "--yes", expect=FAILED)
        self.assertEqual([path for path in self.tree() if "MISC" not in path], before)


if __name__ == "__main__":
    unittest.main()
