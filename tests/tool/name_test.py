#!/usr/bin/env python3
"""Naming new files: new, next, import, last, set-last, avail, series."""
import datetime
import json
import os
import resource
import signal
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import DONE, FAILED, UNREADABLE, USAGE, ToolTest


class NewTest(ToolTest):
    def test_an_empty_folder_becomes_a_card(self):
        self.assertEqual(self.lines("new", "card", "jpg"), ["card/DCIM/100PHOTO/QVX_0001.JPG"])
        self.assertIn("DCIM/100PHOTO", self.tree())
        self.assertNotIn("DCIM/100PHOTO/QVX_0001.JPG", self.tree())

    def test_every_kind_has_its_extension(self):
        self.make_pictures("100PHOTO", 7)
        for kind in ("jpg", "srw", "mp4", "3gp", "mp3", "wav", "mpo"):
            self.assertEqual(self.lines("new", "card", kind),
                             [f"card/DCIM/100PHOTO/QVX_0008.{kind.upper()}"])

    def test_next_gives_what_new_gives_and_makes_nothing(self):
        self.make_folder("DCIM")
        cards = ([], ["DCIM/100PHOTO/QVX_0012.JPG"], ["DCIM/100PHOTO/QVX_9999.JPG"],
                 ["DCIM/105ABCDE/QVX_0012.JPG"], ["DCIM/999PHOTO/QVX_0001.JPG"],
                 ["DCIM/CAMERA/party at the lake.jpg"])
        wishes = (["jpg"], ["mp4", "--3d"], ["jpg", "--date-files"], ["mp4", "--3d", "--date-files"],
                  ["jpg", "--date-folders"], ["jpg", "--prefix", "ABCD"], ["jpg", "--series"])
        for files in cards:
            for path in files:
                self.make_file(path)
            for wish in wishes:
                before = self.snapshot()
                status = DONE
                if "DCIM/999PHOTO" in self.tree() and "--date-folders" in wish:
                    status = FAILED
                expected = self.run_tool("next", "card", *wish, expect=status)
                self.assertEqual(self.snapshot(), before)
                given = self.run_tool("new", "card", *wish, expect=status)
                self.assertEqual((given.stdout, given.stderr), (expected.stdout, expected.stderr))
                for folder in sorted((self.root / "DCIM").iterdir()):
                    if not list(folder.iterdir()):
                        folder.rmdir()

    def test_names_of_the_day(self):
        self.make_folder("DCIM")
        now = datetime.datetime.now(datetime.timezone(datetime.timedelta(hours=1)))
        day = now.strftime("%m%d")
        self.assertIn(self.lines("next", "card", "--date-files", "--date-folders")[0],
                      f"card/DCIM/100_{day}/{day}0001.JPG")

    def test_the_last_number_of_all_is_the_end(self):
        self.make_file("DCIM/999PHOTO/QVX_9999.JPG")
        for command in (("new", "card", "jpg"), ("next", "card")):
            self.assertEqual(self.complaint(*command), "no file number is left on the card")

    def test_next_refuses_a_folder_that_is_no_card(self):
        self.complaint("next", "card", expect=UNREADABLE)
        self.assertEqual(self.tree(), [])

    def test_wrong_options(self):
        self.make_folder("DCIM")
        for wrong in (["gif"], ["jpg", "--prefix", "abc"], ["jpg", "--prefix", "abcd"],
                      ["jpg", "--prefix", "ABCD", "--date-files"]):
            self.complaint("new", "card", *wrong, expect=USAGE)


class NumberTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("102PHOTO", 20)

    def test_last_and_avail(self):
        self.assertEqual(self.lines("last", "card"), ["102/0020"])
        self.assertEqual(self.lines("avail", "card"), ["1000"])
        self.make_pictures("999PHOTO", 9990)
        self.assertEqual(self.lines("avail", "card"), ["9"])

    def test_a_set_number_is_followed_in_series_mode(self):
        self.assertEqual(self.lines("series", "show"), ["none"])
        self.assertEqual(self.lines("set-last", "card", "105/0300"), ["102/0020 -> 105/0300"])
        self.assertEqual(self.lines("series", "show"), ["105/0300"])
        self.assertEqual(self.lines("last", "card", "--series"), ["105/0300"])
        self.assertEqual(self.lines("next", "card", "--series"), ["card/DCIM/105PHOTO/QVX_0301.JPG"])
        self.assertEqual(self.lines("next", "card"), ["card/DCIM/102PHOTO/QVX_0021.JPG"])

    def test_a_lower_number_needs_force(self):
        self.assertEqual(self.complaint("set-last", "card", "102/0019"),
                         "102/0019 is not above 102/0020; --force sets it all the same")
        self.assertEqual(self.lines("series", "show"), ["none"])
        self.run_tool("set-last", "card", "102/0019", "--force")
        self.assertEqual(self.lines("series", "show"), ["102/0019"])
        self.complaint("series", "set", "100/0001")
        self.run_tool("series", "set", "100/0001", "--force")
        self.assertEqual(self.lines("series", "show"), ["100/0001"])

    def test_a_dry_run_stores_nothing(self):
        self.run_tool("set-last", "card", "105/0300", "--dry-run")
        self.run_tool("series", "set", "105/0300", "--dry-run")
        self.assertEqual(self.lines("series", "show"), ["none"])

    def test_numbers_that_are_none(self):
        for wrong in ("99/0001", "1000/0001", "105", "105/", "105/10000", "a/b", "105/-1", "999/9999"):
            self.complaint("set-last", "card", wrong, expect=USAGE)

    def test_the_store_is_found_where_the_user_was(self):
        self.env["FLM_PREFERENCE_FILE"] = "relative"
        self.run_tool("set-last", "card", "105/0300")
        self.assertTrue((self.outside / "relative").is_file())
        self.assertFalse((self.root / "relative").exists())

    def test_a_store_that_cannot_be_written_is_named(self):
        (self.outside / "store").write_bytes(b"")
        self.env["FLM_PREFERENCE_FILE"] = str(self.outside / "store/file")
        message = f"cannot write the preference store {self.outside}/store/file: Not a directory"
        source = self.outside / "a.jpg"
        source.write_bytes(b"x")
        before = self.tree()
        for command in (("new", "card", "jpg", "--series", "--date-folders"),
                        ("import", "card", "a.jpg", "--series"), ("set-last", "card", "105/0300"),
                        ("series", "set", "105/0300")):
            done = self.run_tool(*command, expect=FAILED)
            self.assertEqual((done.stdout, done.stderr.decode()), (b"", f"flm: {message}\n"))
        self.assertEqual([path for path in self.tree() if path != "MISC"], before)
        self.run_tool("import", "card", "a.jpg")

    def test_a_card_with_a_folder_that_cannot_be_opened_gets_no_new_files(self):
        self.make_pictures("103PHOTO", 1)
        (self.root / "DCIM/103PHOTO").chmod(0)
        (self.outside / "a.jpg").write_bytes(b"x")
        options = self.as_nobody()
        for command in (("new", "card", "jpg"), ("next", "card"), ("import", "card", "a.jpg")):
            self.assertEqual(self.complaint(*command, expect=UNREADABLE, **options),
                             "cannot read card/DCIM/103PHOTO: Permission denied")

    def test_a_folder_that_cannot_be_made_is_named_with_the_reason(self):
        (self.root / "DCIM").chmod(0o555)
        self.make_folder("MISC")
        options = self.as_nobody()
        self.assertEqual(self.complaint("new", "card", "jpg", "--date-folders", **options)[-19:],
                         ": Permission denied")
        (self.outside / "empty").mkdir()
        self.assertEqual(self.complaint("new", "empty", "jpg", **options),
                         "cannot make the folder empty/DCIM: Permission denied")

    def test_a_card_without_a_numbered_folder_has_no_last_number(self):
        self.make_file("empty/DCIM/CAMERA/party at the lake.jpg")
        self.assertEqual(self.lines("last", "card/empty"), ["none"])
        self.make_folder("DCIM/105PHOTO")
        self.assertEqual(self.lines("last", "card"), ["105/0000"])

    def test_words_that_are_no_kind_and_no_number(self):
        kinds = "(jpg srw mp4 3gp mp3 wav mpo)"
        self.assertEqual(self.complaint("new", "card", "gif", expect=USAGE),
                         f"gif is no kind of file {kinds}")
        self.assertEqual(self.complaint("new", "card", "", expect=USAGE),
                         f"the kind of file is empty {kinds}")
        self.assertEqual(self.complaint("series", "set", "", expect=USAGE),
                         "the number is empty: it is a folder and a file number such as 105/0020")


class ImportTest(ToolTest):
    def source(self, name, content):
        path = self.outside / name
        path.write_bytes(content)
        os.utime(path, (1700000000, 1700000000))
        return name

    def test_copies_get_the_next_numbers_and_keep_their_times(self):
        self.make_pictures("100PHOTO", 4)
        first = self.source("holiday.jpeg", b"picture")
        second = self.source("song.Mp3", b"s" * 300000)
        self.assertEqual(self.lines("import", "card", first, second),
                         ["card/DCIM/100PHOTO/QVX_0005.JPG", "card/DCIM/100PHOTO/QVX_0006.MP3"])
        files = self.json("ls", "--json", "card")[1:]
        self.assertEqual([(file["size"], file["mtime_seconds"]) for file in files],
                         [(7, 1700000000), (300000, 1700000000)])
        self.assertEqual((self.root / "DCIM/100PHOTO/QVX_0006.MP3").read_bytes(), b"s" * 300000)

    def test_a_file_that_cannot_be_had_leaves_nothing(self):
        os.mkfifo(self.outside / "pipe.jpg")
        (self.outside / "folder.jpg").mkdir()
        for name, reason in (("missing.jpg", "cannot open missing.jpg: No such file or directory"),
                             ("pipe.jpg", "pipe.jpg is not a file"),
                             ("folder.jpg", "folder.jpg is not a file")):
            self.assertEqual(self.complaint("import", "card", name), reason)
            self.assertEqual(self.tree(), [])
        self.assertIn("no extension", self.complaint("import", "card", self.source("a.txt", b"")))
        self.assertEqual(self.tree(), [])

    def limited(self):
        """No file may grow beyond 64 KiB, as if the card were full."""
        signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
        resource.setrlimit(resource.RLIMIT_FSIZE, (65536, 65536))

    def test_a_full_card_keeps_no_half_file_and_no_empty_new_folder(self):
        small = self.source("small.jpg", b"x")
        large = self.source("large.jpg", b"x" * 200000)
        self.complaint("import", "card", large, preexec_fn=self.limited)
        self.assertEqual(self.tree(), [])
        self.make_file("DCIM/100PHOTO/QVX_9999.JPG")
        self.make_folder("MISC")
        before = self.tree()
        message = self.complaint("import", "card", large, preexec_fn=self.limited)
        self.assertEqual(message, "cannot write card/DCIM/101PHOTO/QVX_0001.JPG: File too large")
        self.assertEqual(self.tree(), before)
        done = self.run_tool("import", "card", small, large, expect=FAILED, preexec_fn=self.limited)
        self.assertEqual(done.stdout, b"card/DCIM/101PHOTO/QVX_0001.JPG\n")
        self.assertEqual(self.tree(), sorted(before + ["DCIM/101PHOTO", "DCIM/101PHOTO/QVX_0001.JPG"]))

    def test_a_file_in_the_way_is_not_replaced(self):
        now = datetime.datetime.now(datetime.timezone(datetime.timedelta(hours=1)))
        folder = now.strftime("101_%m%d")
        self.make_pictures("101PHOTO", 1)
        self.make_file(f"DCIM/{folder}/QVX_0002.JPG", b"old")
        reason = f"card/DCIM/{folder}/QVX_0002.JPG is the next name, but it is there already"
        for command in (("import", "card", self.source("a.jpg", b"new")), ("new", "card", "jpg"),
                        ("next", "card")):
            self.assertEqual(self.complaint(*command, "--date-folders"), reason)
        self.assertEqual((self.root / f"DCIM/{folder}/QVX_0002.JPG").read_bytes(), b"old")

    def test_import_shows_its_progress_a_file_at_a_time(self):
        for name in ("a.jpg", "b.srw", "c.jpg"):
            (self.outside / name).write_bytes(b"x")
        done = self.run_tool("import", "card", "a.jpg", "b.srw", "c.jpg", "--progress", "json")
        counts = [json.loads(line) for line in done.stderr.splitlines()]
        self.assertEqual(counts[0]["total"], 3)
        self.assertEqual(counts[-1], {"done": 3, "total": 3})
        self.assertEqual(len(done.stdout.splitlines()), 3)
        self.assertEqual(self.run_tool("import", "card", "a.jpg", "--progress", "always").stderr, b"1/1\n")
        self.assertEqual(self.run_tool("import", "card", "a.jpg").stderr, b"")

    def test_import_numbers_a_raw_file_and_a_picture_of_one_name_apart(self):
        for name in ("shot.jpg", "shot.srw"):
            (self.outside / name).write_bytes(b"x")
        self.assertEqual([path[-12:] for path in self.lines("import", "card", "shot.jpg", "shot.srw")],
                         ["QVX_0001.JPG", "QVX_0002.SRW"])

    def test_import_writes_raw_paths_into_a_pipe(self):
        card = self.outside / "two\nlines\\"
        card.mkdir()
        (self.outside / "a.jpg").write_bytes(b"x")
        path = f"{card}/DCIM/100PHOTO/QVX_000".encode()
        self.assertEqual(self.run_tool("import", card, "a.jpg").stdout, path + b"1.JPG\n")
        self.assertEqual(self.run_tool("import", card, "a.jpg", "a.jpg", "-0").stdout,
                         path + b"2.JPG\0" + path + b"3.JPG\0")
        self.assertIn("two\\x0Alines", self.shown(200, "import", str(card), "a.jpg"))

    def test_a_card_that_may_not_change_is_told_before_bad_names(self):
        self.assertIn("--read-only", self.complaint("--read-only", "import", "card", "a.txt", expect=USAGE))


if __name__ == "__main__":
    unittest.main()
