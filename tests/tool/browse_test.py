#!/usr/bin/env python3
"""The contact sheet in a real terminal: keys are sent to it by tmux, and its screen is read back.

FLM_SAMPLE_PICTURES names the program that makes pictures. Without it, or without tmux, the tests are
skipped; never where everything must run (CI=true).
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import time
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, DONE, FAILED, INTERRUPTED, UNREADABLE, USAGE, ToolTest

SKIPPED = 77  # the status that ctest takes for a skipped test
PICTURES = os.environ.get("FLM_SAMPLE_PICTURES", "")


def missing():
    """What these tests lack, "" for nothing."""
    if not shutil.which("tmux"):
        return "tmux is not installed"
    if not PICTURES:
        return "this build of flm has no browse"
    return ""


def need_everything():
    reason = missing()
    if not reason:
        return
    if os.environ.get("CI") == "true":
        raise AssertionError(f"nothing may be skipped here: {reason}")
    print(f"skipped: {reason}", file=sys.stderr)
    raise unittest.SkipTest(reason)


def is_running(pid):
    """Whether a program runs; one that ended may wait for long until somebody asks for its status."""
    try:
        status = pathlib.Path(f"/proc/{pid}/stat").read_text()
    except FileNotFoundError:
        return False
    return status.rsplit(")", 1)[1].split()[0] not in "ZX"


class Window:
    """A shell in a terminal of its own, in the test's folder."""

    def __init__(self, test, columns=80, rows=24):
        self.test = test
        self.socket = str(test.outside / "tmux")
        environment = dict(test.env, LC_ALL="C.UTF-8", PS1="prompt> ", PATH=os.environ["PATH"])
        environment.pop("TMUX", None)
        subprocess.run(["tmux", "-S", self.socket, "-f", "/dev/null", "new-session", "-d", "-x",
                        str(columns), "-y", str(rows), "-c", str(test.outside),
                        "bash", "--norc", "--noprofile"],
                       env=environment, check=True, timeout=60)
        self.tmux("set", "-g", "escape-time", "0")
        self.wait_for("prompt>")

    def tmux(self, *arguments):
        return subprocess.run(["tmux", "-S", self.socket, *arguments], capture_output=True,
                              check=True, timeout=60).stdout.decode()

    def close(self):
        """Ends everything, and waits for the tool: it may still tidy up on the card."""
        children = self.children()
        subprocess.run(["tmux", "-S", self.socket, "kill-server"], capture_output=True, check=False,
                       timeout=60)
        end = time.monotonic() + 10
        while any(is_running(pid) for pid in children) and time.monotonic() < end:
            time.sleep(0.01)

    def screen(self):
        return self.tmux("capture-pane", "-p")

    def wait_for(self, pattern, seconds=30):
        """Waits until the screen shows the pattern; the screen."""
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            shown = self.screen()
            if re.search(pattern, shown):
                return shown
            time.sleep(0.02)
        raise AssertionError(f"nothing like {pattern} on the screen:\n{self.screen()}")

    def send(self, *keys):
        self.tmux("send-keys", *keys)

    def type_line(self, text):
        self.tmux("send-keys", "-l", text)
        self.send("Enter")

    def press(self, key, pattern):
        """Presses a key and waits for what it shows."""
        self.send(key)
        return self.wait_for(pattern)

    def resize(self, columns, rows):
        self.tmux("resize-window", "-x", str(columns), "-y", str(rows))

    def children(self):
        """The programs that the shell runs."""
        shell = self.tmux("display", "-p", "#{pane_pid}").strip()
        return pathlib.Path(f"/proc/{shell}/task/{shell}/children").read_text().split()


class BrowseTest(ToolTest):
    def setUp(self):
        need_everything()
        super().setUp()

    def make_sheet(self, files, first=1, folder="100PHOTO", size="320x240"):
        """A card with real pictures, named as cameras name them."""
        self.make_folder(f"DCIM/{folder}")
        self.make_folder("MISC")
        names = [str(self.root / f"DCIM/{folder}/QVX_{first + i:04d}.JPG") for i in range(files)]
        subprocess.run([PICTURES, size, *names], check=True, timeout=60)

    def open(self, *options, columns=80, rows=24, shows=r" 1/\d+  page 1/\d+"):
        """The sheet of the card on a terminal of its own."""
        window = Window(self, columns, rows)
        self.addCleanup(window.close)
        window.type_line(" ".join(["clear;", BINARY, "browse", *options, "card; echo status $?"]))
        window.wait_for(shows)
        return window

    def picture(self, number):
        return self.root / f"DCIM/100PHOTO/QVX_{number:04d}.JPG"

    def quit(self, window, status=DONE):
        return window.press("q", rf"(?m)^status {status}$")

    # --- Looking ------------------------------------------------------------------------------------
    def test_the_first_page_shows_pictures_with_their_names(self):
        self.make_sheet(10)
        window = self.open()
        shown = window.wait_for("▄|▀")
        for number in range(1, 9):
            self.assertIn(f"QVX_{number:04d}.JPG", shown)
        self.assertNotIn("QVX_0009.JPG", shown)
        self.assertIn("card/DCIM/100PHOTO/QVX_0001.JPG", shown.splitlines()[0])
        self.assertIn("1/10  page 1/2", shown.splitlines()[0])

    def test_arrows_go_from_file_to_file_and_from_row_to_row(self):
        self.make_sheet(10)
        window = self.open()
        window.press("Right", r"QVX_0002\.JPG .* 2/10 ")
        window.press("Down", r" 6/10 ")
        window.press("Left", r" 5/10 ")
        window.press("Up", r" 1/10 ")
        window.press("Up", r" 1/10 ")
        window.press("Left", r" 10/10  page 2/2")
        window.press("Right", r" 1/10  page 1/2")

    def test_page_keys_turn_pages_and_go_round(self):
        self.make_sheet(10)
        window = self.open()
        shown = window.press("PPage", r" 9/10  page 2/2")
        self.assertIn("QVX_0010.JPG", shown)
        self.assertNotIn("QVX_0003.JPG", shown)
        window.press("NPage", r" 1/10  page 1/2")
        window.press("NPage", r" 9/10  page 2/2")
        window.press("Home", r" 1/10  page 1/2")
        window.press("End", r" 10/10  page 2/2")

    def test_the_sheet_follows_the_size_of_the_window(self):
        self.make_sheet(10)
        window = self.open()
        window.press("End", r" 10/10  page 2/2")
        window.resize(120, 40)
        shown = window.wait_for(r" 10/10  page 1/1")
        self.assertIn("QVX_0001.JPG", shown)
        window.resize(10, 4)
        window.wait_for("too small")
        window.resize(42, 14)
        window.wait_for(r" 10/10  page 5/5")

    def test_help_lists_the_keys(self):
        self.make_sheet(2)
        window = self.open()
        window.press("?", "order|one print more")
        window.press("x", r"QVX_0002\.JPG")
        window.press("F1", "one print more")
        window.press("Escape", r"QVX_0002\.JPG")

    def test_leaving_brings_back_the_screen_and_the_terminal(self):
        self.make_sheet(2)
        before = self.snapshot()
        window = self.open()
        shown = self.quit(window)
        self.assertNotIn("QVX_", shown)
        window.type_line("stty -a")
        state = window.wait_for(r"\bicanon\b")
        self.assertRegex(state, r"(?<!-)\becho\b")
        self.assertRegex(state, r"(?<!-)\bisig\b")
        self.assertEqual(self.snapshot(), before)

    def test_every_signal_to_end_brings_the_terminal_back(self):
        self.make_sheet(2)
        window = self.open()
        for number, status in ((signal.SIGTERM, INTERRUPTED), (signal.SIGINT, INTERRUPTED),
                               (signal.SIGHUP, INTERRUPTED), (signal.SIGABRT, 128 + signal.SIGABRT)):
            os.kill(int(window.children()[0]), number)
            shown = window.wait_for(rf"(?m)^status {status}$")
            self.assertNotIn("QVX_", shown)
            window.type_line("clear; stty -a | grep -o ' -*echo '")
            window.wait_for(r"(?m)^ echo *$")
            window.type_line(f"clear; {BINARY} browse card; echo status $?")
            window.wait_for(r" 1/2  page 1/1")
        window.press("C-c", rf"(?m)^status {INTERRUPTED}$")

    def test_ctrl_z_gives_the_terminal_to_the_shell_until_the_sheet_goes_on(self):
        self.make_sheet(2)
        window = self.open()
        shown = window.press("C-z", "Stopped")
        self.assertNotIn("QVX_", shown)
        window.type_line("fg")
        window.wait_for(r" 1/2  page 1/1")
        window.press("Right", r" 2/2 ")

    # --- Files of all kinds -------------------------------------------------------------------------
    def test_what_is_no_picture_shows_a_word_in_its_place(self):
        self.make_sheet(3)
        self.picture(1).write_bytes(b"not a picture")
        whole = self.picture(2).read_bytes()
        self.picture(2).write_bytes(whole[:len(whole) // 2])
        self.picture(3).unlink()
        os.mkfifo(self.picture(3))
        self.make_file("DCIM/100PHOTO/QVX_0004.MP4")
        self.make_file("DCIM/CAMERA/notes \x1b[2J.txt")
        shown = self.open().wait_for("movie")
        self.assertIn("no picture", shown)
        self.assertEqual(len(re.findall("broken picture", shown)), 2)
        self.assertIn("no such file", shown)
        self.assertIn(r"notes \x1B[2J.txt", shown)

    def test_a_card_without_files(self):
        self.make_folder("DCIM/100PHOTO")
        window = self.open(shows="no files on this card")
        for key in ("Right", "Down", "NPage", "PPage", "Home", "End", "Space", "a", "p", "d", "o", "s"):
            window.send(key)
        self.quit(window)

    def test_what_cannot_be_browsed_is_refused_in_words(self):
        self.make_sheet(1)
        self.assertIn("needs a terminal", self.complaint("browse", "card", expect=USAGE))
        self.assertIn("not in {auto,sixel,kitty,blocks}",
                      self.complaint("browse", "--graphics", "ink", "card", expect=USAGE))
        window = Window(self)
        self.addCleanup(window.close)
        window.type_line(f"{BINARY} browse nowhere; echo status $?")
        shown = window.wait_for(r"(?m)^status \d")
        self.assertRegex(shown, r"(?m)^flm: cannot open nowhere: No such file or directory$")
        self.assertIn(f"status {UNREADABLE}", shown)
        window.type_line(f"clear; TERM=dumb {BINARY} browse card; echo status $?")
        self.assertIn("cursor can be moved", window.wait_for(rf"(?m)^status {USAGE}$"))

    # --- Changing -----------------------------------------------------------------------------------
    def test_space_selects_and_takes_back(self):
        self.make_sheet(3)
        window = self.open()
        window.press("Space", r"1 selected .* 1/3 ")
        window.send("Right")
        window.press("Space", r"2 selected .* 2/3 ")
        window.press("Space", r"1 selected .* 2/3 ")
        window.press("a", r"3 selected ")
        window.press("a", r"\A(?!.*selected).* 2/3 ")

    def test_p_protects_a_file_and_its_companions(self):
        self.make_sheet(2)
        self.make_file("DCIM/100PHOTO/QVX_0001.SRW")
        window = self.open()
        window.press("p", r"(?s)P \+SRW.*protected 1 file")
        self.assertFalse(self.picture(1).stat().st_mode & 0o200)
        self.assertFalse((self.root / "DCIM/100PHOTO/QVX_0001.SRW").stat().st_mode & 0o200)
        self.assertTrue(self.picture(2).stat().st_mode & 0o200)
        window.press("d", r"QVX_0001\.JPG is protected")
        window.press("a", "2 selected")
        window.press("p", r"protect 2 selected files\? y/n")
        window.press("y", "protected 2 files")
        window.press("p", r"unprotect 2 selected files\? y/n")
        window.press("y", "unprotected 2 files")
        self.assertTrue(self.picture(1).stat().st_mode & 0o200)

    def test_d_deletes_after_a_yes(self):
        self.make_sheet(4)
        self.make_file("DCIM/100PHOTO/QVX_0002.WAV")
        window = self.open()
        window.send("Right")
        window.press("d", r"delete QVX_0002\.JPG with QVX_0002\.WAV\? y/n")
        window.press("n", r" 2/4 .*\n(.*\n)*.*Space select")
        window.press("d", r"\? y/n")
        shown = window.press("y", "deleted 1 file")
        self.assertIn(" 2/3 ", shown)
        self.assertNotIn("QVX_0002", shown)
        self.assertFalse(self.picture(2).exists())
        self.assertFalse((self.root / "DCIM/100PHOTO/QVX_0002.WAV").exists())
        window.send("Space")
        window.send("Right")
        window.press("Space", "2 selected")
        window.press("d", r"delete 2 selected files\? y/n")
        window.press("y", r"(?s) 1/1 .*deleted 2 files")
        self.assertEqual(sorted(os.listdir(self.root / "DCIM/100PHOTO")), ["QVX_0001.JPG"])

    def test_esc_stops_a_deletion(self):
        self.make_pictures("100PHOTO", *range(1, 3001))
        window = self.open()
        window.press("a", "3000 selected")
        window.press("d", r"delete 3000 selected files\? y/n")
        window.send("y")
        window.send("Escape")
        shown = window.wait_for("stopped: deleted ")
        left = len(os.listdir(self.root / "DCIM/100PHOTO"))
        deleted = int(re.search(r"stopped: deleted (\d+) file", shown)[1])
        self.assertEqual(left + deleted, 3000)
        self.assertTrue(0 < left < 3000, left)
        self.quit(window)
        self.assertEqual(self.lines("count", "card"), [str(left)])

    def test_print_orders_are_saved_on_leaving(self):
        self.make_sheet(3)
        window = self.open()
        window.send("o")
        window.press("o", r"(?s)print order not saved.*x2.*2 prints of QVX_0001\.JPG")
        window.send("Right")
        window.press("o", r"1 print of QVX_0002\.JPG")
        window.press("O", r"0 prints of QVX_0002\.JPG")
        self.assertEqual(self.json("print", "show", "card", "--json")["files"], [])
        self.quit(window)
        ordered = self.json("print", "show", "card", "--json")["files"]
        self.assertEqual([(file["index"], file["copies"]) for file in ordered], [(0, 2)])

    def test_print_orders_are_saved_by_s_and_follow_deletions(self):
        self.make_sheet(3)
        window = self.open()
        window.send("o")
        window.send("End")
        window.press("o", r"1 print of QVX_0003\.JPG")
        window.press("s", "the print order is saved")
        self.assertEqual(len(self.json("print", "show", "card", "--json")["files"]), 2)
        window.press("d", r"\? y/n")
        window.press("y", "deleted 1 file")
        self.assertEqual(len(self.json("print", "show", "card", "--json")["files"]), 1)

    def test_leaving_by_a_signal_saves_no_print_order_and_says_so(self):
        self.make_sheet(1)
        window = self.open()
        window.press("o", "1 print")
        shown = window.press("C-c", rf"(?m)^status {INTERRUPTED}$")
        self.assertIn("flm: the print order was not saved", shown)
        self.assertFalse((self.root / "MISC/AUTPRINT.MRK").exists())

    def test_leaving_asks_when_the_print_order_cannot_be_saved(self):
        self.make_sheet(1)
        self.make_folder("MISC/AUTPRINT.NEW")
        window = self.open(columns=120)
        window.press("o", "1 print")
        window.press("q", r"cannot write card/MISC/AUTPRINT\.NEW.*; leave without it\? y/n")
        window.press("n", "Space select")
        window.press("q", r"leave without it\? y/n")
        window.press("y", rf"(?m)^status {DONE}$")

    def test_a_movie_cannot_be_ordered(self):
        self.make_file("DCIM/100PHOTO/QVX_0001.MP4")
        window = self.open()
        window.press("o", r"QVX_0001\.MP4 cannot be printed: its name does not end in JPG")

    def test_lines_of_other_makers_are_not_dropped_silently(self):
        self.make_sheet(2)
        self.run_tool("print", "set", "card", "1", "0")
        with open(self.root / "MISC/AUTPRINT.MRK", "a", encoding="ascii") as order:
            order.write("[JOB]\r\nPRT TYP = STD\r\nPRT QTY = 900\r\n")
        window = self.open(columns=120)
        window.press("o", r"\(2 lines of the print order not understood will be dropped\)")


class MissingBrowseTest(ToolTest):
    def test_a_build_without_the_sheet_says_so(self):
        if "FLM_SAMPLE_PICTURES" not in os.environ:
            self.skipTest("nothing says whether this build has the sheet")
        if PICTURES:
            self.assertIn("needs a terminal", self.complaint("browse", "card", expect=USAGE))
        else:
            self.assertIn("this build of flm has no browse",
                          self.complaint("browse", "card", expect=FAILED))


if __name__ == "__main__":
    successful = unittest.main(exit=False).result.wasSuccessful()
    sys.exit((SKIPPED if missing() else 0) if successful else 1)
