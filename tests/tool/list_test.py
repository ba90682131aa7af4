#!/usr/bin/env python3
"""Listing a card: ls, count, info, pages, and what bad roots and arguments get."""
import datetime
import os
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, FAILED, NOTHING, UNREADABLE, USAGE, ToolTest

BIG = 5 * 1024 ** 3


class ListTest(ToolTest):
    def test_files_come_in_order_of_folder_and_number(self):
        self.make_pictures("101PHOTO", 2, 1)
        self.make_pictures("100ABCDE", 9)
        self.make_file("DCIM/CAMERA/party at the lake.jpg")
        self.assertEqual(self.lines("ls", "--paths", self.root), [
            f"{self.root}/DCIM/CAMERA/party at the lake.jpg",
            f"{self.root}/DCIM/100ABCDE/QVX_0009.JPG",
            f"{self.root}/DCIM/101PHOTO/QVX_0001.JPG",
            f"{self.root}/DCIM/101PHOTO/QVX_0002.JPG"])

    def test_the_camera_folder_can_be_left_out(self):
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/CAMERA/party at the lake.jpg")
        self.assertEqual(self.lines("count", self.root), ["2"])
        self.assertEqual(self.lines("count", self.root, "--no-non-dcf"), ["1"])
        self.assertEqual(self.lines("count", self.root, "--non-dcf"), ["2"])
        self.assertEqual(len(self.lines("ls", "--paths", "--no-non-dcf", self.root)), 1)

    def test_paths_begin_with_the_root_as_the_user_wrote_it(self):
        self.make_pictures("100PHOTO", 1)
        for root, shown in (("card", "card"), ("card/", "card"), ("./card", "./card"),
                            ("../" + self.outside.name + "/card",) * 2):
            self.assertEqual(self.lines("ls", "--paths", root),
                             [shown + "/DCIM/100PHOTO/QVX_0001.JPG"])
        self.assertEqual(self.lines("ls", "--paths", ".", cwd=self.root),
                         ["./DCIM/100PHOTO/QVX_0001.JPG"])

    def test_a_root_may_be_longer_than_any_path_of_the_library_and_hold_any_word(self):
        deep = self.outside / "CAMERA" / "MISC" / "DCIM" / ("d" * 200)
        deep.mkdir(parents=True)
        self.root.rename(deep / "card")
        self.root = deep / "card"
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/100PHOTO/QVX_0001.WAV")
        (file,) = self.json("ls", "--json", self.root)
        self.assertEqual(file["path"], f"{self.root}/DCIM/100PHOTO/QVX_0001.JPG")
        self.assertEqual(file["companions"], ["QVX_0001.WAV"])
        self.run_tool("print", "set", self.root, "2", "0")
        self.assertEqual(self.json("ls", "--json", self.root)[0]["copies"], 2)

    def test_json_tells_everything_about_a_file(self):
        self.make_file("DCIM/100PHOTO/QVX_0001.JPG", b"12345", mtime=1700000000)
        self.make_file("DCIM/100PHOTO/QVX_0001.SRW")
        self.make_file("DCIM/100PHOTO/QVX_0001.MPO")
        os.chmod(self.root / "DCIM/100PHOTO/QVX_0001.JPG", 0o444)
        self.assertEqual(self.json("ls", "--json", "card"), [{
            "index": 0, "path": "card/DCIM/100PHOTO/QVX_0001.JPG", "size": 5,
            "mtime": "2023-11-14T23:13:20+01:00", "mtime_seconds": 1700000000, "protected": True,
            "selected": False, "wifi": False, "voice_or_capture": False, "copies": 0,
            "index_print": False, "size_code": 0, "companions": ["QVX_0001.SRW", "QVX_0001.MPO"]}])
        self.assertEqual(
            datetime.datetime.fromisoformat("2023-11-14T23:13:20+01:00").timestamp(), 1700000000)

    def test_the_table_has_a_heading_and_aligned_columns(self):
        self.make_file("DCIM/100PHOTO/QVX_0001.JPG", b"x" * 2048, mtime=1700000000)
        self.make_file("DCIM/100PHOTO/QVX_0001.WAV")
        self.make_file("DCIM/100PHOTO/QVX_0002.JPG", b"x" * 7, mtime=1700000000)
        self.assertEqual(self.lines("ls", "card"), [
            "INDEX  PATH                             SIZE  TIME                 MARKS  COMPANIONS",
            "    0  card/DCIM/100PHOTO/QVX_0001.JPG  2.0K  2023-11-14 23:13:20  -      WAV",
            "    1  card/DCIM/100PHOTO/QVX_0002.JPG     7  2023-11-14 23:13:20  -      -"])
        long_form = self.lines("ls", "--long", "card")
        self.assertIn(" 2048  ", long_form[1])
        self.assertTrue(long_form[1].endswith("QVX_0001.WAV"))

    def test_a_movie_above_two_gigabytes_keeps_its_size_and_time(self):
        self.make_file("DCIM/100PHOTO/QVX_0001.MP4", b"")
        path = self.root / "DCIM/100PHOTO/QVX_0001.MP4"
        os.truncate(path, BIG)
        os.utime(path, (5000000000, 5000000000))
        (file,) = self.json("ls", "--json", "card")
        self.assertEqual((file["size"], file["mtime_seconds"]), (BIG, 5000000000))
        self.assertIn("5.0G", self.lines("ls", "card")[1])
        self.assertIn("2128-06-11", self.lines("ls", "card")[1])

    def test_counting_and_listing_paths_change_nothing_on_the_card(self):
        self.make_pictures("100PHOTO", 1, 2)
        before = self.snapshot()
        for command in (["count"], ["ls", "--paths"], ["ls"], ["next"], ["last"], ["avail"], ["check"],
                        ["pages", "--size", "2"], ["print", "show"]):
            self.run_tool(*command, "card")
        self.run_tool("info", "card", "0")
        self.assertEqual(self.snapshot(), before)
        self.assertFalse((self.root / "MISC").exists())

    def test_two_files_of_one_number_keep_their_own_companions(self):
        self.make_pictures("100PHOTO", 3)
        self.make_file("DCIM/100PHOTO/HDV_0003.MP4")
        self.make_file("DCIM/100PHOTO/QVX_0003.SRW")
        self.assertEqual([file["companions"] for file in self.json("ls", "--json", "card")],
                         [["QVX_0003.SRW"], []])
        self.assertEqual(self.json("info", "--json", "card", "HDV_0003.MP4")["companions"], [])

    def test_an_empty_card_is_an_empty_list(self):
        self.make_folder("DCIM")
        self.assertEqual(self.json("ls", "--json", "card"), [])
        self.assertEqual(self.lines("ls", "--paths", "card"), [])
        self.assertEqual(self.lines("count", "card"), ["0"])

    def test_a_companion_is_named_with_its_picture(self):
        self.make_pictures("100PHOTO", 7)
        self.make_file("DCIM/100PHOTO/QVX_0007.SRW")
        for name in ("100PHOTO/QVX_0007.SRW", "QVX_0007.SRW", "card/DCIM/100PHOTO/QVX_0007.SRW"):
            self.assertEqual(self.complaint("ls", "card", name, expect=NOTHING),
                             f"{name} is a companion of QVX_0007.JPG, not a file of the list")
        self.assertEqual(self.complaint("ls", "card", "QVX_0007.WAV", expect=NOTHING),
                         "no file QVX_0007.WAV on the card")

    def test_companions_are_listed_behind_their_files_when_asked_for(self):
        self.make_pictures("100PHOTO", 6, 7)
        self.make_file("DCIM/100PHOTO/QVX_0006.SRW")
        self.make_file("DCIM/100PHOTO/QVX_0006.WAV")
        paths = [f"card/DCIM/100PHOTO/QVX_000{name}" for name in ("6.JPG", "6.SRW", "6.WAV", "7.JPG")]
        self.assertEqual(self.lines("ls", "card", "--paths", "--companions"), paths)
        self.assertEqual(self.run_tool("ls", "card", "-0", "--companions").stdout.decode(),
                         "".join(path + "\0" for path in paths))
        self.assertEqual(self.lines("ls", "card", "--paths"), [paths[0], paths[3]])
        for form in ((), ("--json",), ("--long",)):
            self.assertEqual(self.complaint("ls", "card", "--companions", *form, expect=USAGE),
                             "--companions adds to --paths or -0")


class NameTest(ToolTest):
    """Names of any bytes."""

    STRANGE = b"DCIM/CAMERA/\x1b[2J bad\xff\n name.jpg"

    def test_a_terminal_never_gets_control_characters_or_broken_text(self):
        self.make_file(self.STRANGE)
        shown = r"card/DCIM/CAMERA/\x1B[2J bad\xFF\x0A name.jpg"
        self.assertEqual(self.lines("ls", "--paths", "card"), [shown])
        self.assertIn(shown, self.lines("ls", "card")[1])
        self.assertIn(shown, self.run_tool("info", "card", "0").stdout.decode())

    def test_json_escapes_only_what_is_no_text(self):
        self.make_file(self.STRANGE)
        (file,) = self.json("ls", "--json", "card")
        self.assertEqual(file["path"], "card/DCIM/CAMERA/\x1b[2J bad\\xFF\n name.jpg")

    def test_nul_separated_paths_are_raw(self):
        self.make_file(self.STRANGE)
        self.assertEqual(self.run_tool("ls", "--paths", "-0", "card").stdout,
                         b"card/" + self.STRANGE + b"\0")

    def test_real_text_of_any_language_stays(self):
        self.make_file("DCIM/CAMERA/Übersicht 写真.jpg")
        self.assertEqual(self.lines("ls", "--paths", "card"), ["card/DCIM/CAMERA/Übersicht 写真.jpg"])

    def test_surrogates_overlong_forms_and_turned_text_are_escaped(self):
        cases = ((b"\xed\xa0\x80", r"\xED\xA0\x80"), (b"\xc0\xaf", r"\xC0\xAF"),
                 (b"\xf4\x90\x80\x80", r"\xF4\x90\x80\x80"), (b"\xe2\x80\xae", r"\xE2\x80\xAE"),
                 (b"\xc2\x9b", r"\xC2\x9B"))
        for raw, shown in cases:
            self.make_file(b"DCIM/CAMERA/" + raw + b"xxxxxxxxxxxx.jpg")
            self.assertEqual(self.lines("ls", "--paths", "card"),
                             [f"card/DCIM/CAMERA/{shown}xxxxxxxxxxxx.jpg"])
            self.json("ls", "--json", "card")
            os.remove(os.fsencode(self.root) + b"/DCIM/CAMERA/" + raw + b"xxxxxxxxxxxx.jpg")


class InfoTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1, 2)
        self.make_pictures("101PHOTO", 2)
        self.make_file("DCIM/CAMERA/party at the lake.jpg")

    def index_of(self, given, **options):
        return self.json("info", "--json", "card", given, **options)["index"]

    def test_a_file_is_named_in_every_way(self):
        for given in ("2", "QVX_0001.JPG", "DCIM/100PHOTO/QVX_0001.JPG", "100PHOTO/QVX_0001.JPG",
                      "card/DCIM/100PHOTO/QVX_0001.JPG", "./card//DCIM/100PHOTO/QVX_0001.JPG",
                      f"{self.root}/DCIM/100PHOTO/QVX_0001.JPG"):
            self.assertEqual(self.index_of(given), 2 - 1 if given != "2" else 2, given)

    def test_a_path_through_a_link_to_the_card_is_found(self):
        (self.outside / "link").symlink_to(self.root)
        self.assertEqual(self.index_of(f"{self.outside}/link/DCIM/101PHOTO/QVX_0002.JPG"), 3)

    def test_a_free_name_is_found(self):
        self.assertEqual(self.index_of("party at the lake.jpg"), 0)

    def test_a_name_that_occurs_twice_needs_its_folder(self):
        self.assertEqual(self.complaint("info", "card", "QVX_0002.JPG", expect=USAGE),
                         "QVX_0002.JPG is the name of 2 files: name the folder too")
        self.assertEqual(self.index_of("101PHOTO/QVX_0002.JPG"), 3)

    def test_what_is_not_there_is_named(self):
        self.assertEqual(self.complaint("info", "card", "QVX_0009.JPG", expect=NOTHING),
                         "no file QVX_0009.JPG on the card")
        self.assertEqual(self.complaint("info", "card", "4", expect=NOTHING),
                         "no file with the index 4: the card has 4 files")
        self.assertEqual(self.complaint("info", "card", "99999999999", expect=NOTHING),
                         "no file with the index 99999999999: the card has 4 files")
        self.assertEqual(self.complaint("info", "card", "/etc/passwd", expect=NOTHING),
                         "/etc/passwd does not lie on the card")
        self.assertEqual(self.complaint("info", "card", "\x1b[2J", expect=NOTHING),
                         r"no file \x1B[2J on the card")
        self.complaint("info", "card", "", expect=USAGE)

    def test_info_tells_numbers_and_companions(self):
        self.make_file("DCIM/101PHOTO/QVX_0002.WAV")
        info = self.json("info", "--json", "card", "3")
        self.assertEqual((info["folder_number"], info["file_number"], info["prefix"], info["last"]),
                         (101, 2, "QVX_", True))
        self.assertEqual(info["companion_paths"], ["card/DCIM/101PHOTO/QVX_0002.WAV"])
        self.assertIsNone(self.json("info", "--json", "card", "0")["folder_number"])
        self.assertIn("number        0002", self.lines("info", "card", "3"))


class PagesTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", *range(1, 26))

    def test_every_file_stands_on_one_page(self):
        pages = self.json("pages", "card", "--size", "10", "--json")
        self.assertEqual([len(page["files"]) for page in pages], [10, 10, 5])
        self.assertEqual([file["index"] for page in pages for file in page["files"]], list(range(25)))

    def test_one_page_alone(self):
        (page,) = self.json("pages", "card", "--size", "10", "--page", "2", "--json")
        self.assertEqual((page["page"], page["files"][0]["path"]),
                         (2, "card/DCIM/100PHOTO/QVX_0021.JPG"))
        self.assertEqual(self.lines("pages", "card", "--size", "20", "--page", "1")[:2],
                         ["page 1 of 2", "  20  card/DCIM/100PHOTO/QVX_0021.JPG"])

    def test_a_page_that_does_not_exist_is_a_failure(self):
        self.assertEqual(self.complaint("pages", "card", "--size", "10", "--page", "3",
                                        expect=NOTHING),
                         "no page 3: the card has 3 pages")
        self.complaint("pages", "card", "--size", "0", expect=USAGE)


class BadInputTest(ToolTest):
    def test_a_root_that_is_no_card_is_named(self):
        (self.outside / "file").touch()
        self.assertEqual(self.complaint("ls", "nowhere", expect=UNREADABLE),
                         "cannot open nowhere: No such file or directory")
        self.assertEqual(self.complaint("count", "file", expect=UNREADABLE), "file is not a folder")
        self.assertEqual(self.complaint("ls", "card", expect=UNREADABLE), "no DCIM folder in card")
        self.assertEqual(self.tree(), [])
        (self.root / "DCIM").touch()
        self.assertEqual(self.complaint("ls", "card", expect=UNREADABLE),
                         "card/DCIM is not a folder")
        self.complaint("ls", "", expect=USAGE)

    def test_a_root_that_may_not_be_read_is_named(self):
        self.make_pictures("100PHOTO", 1)
        for path in (self.root / "DCIM", self.root):
            os.chmod(path, 0)
            self.assertIn("Permission denied",
                          self.complaint("ls", "card", expect=UNREADABLE, **self.as_nobody()))
            os.chmod(path, 0o755)

    def test_wrong_usage_is_one_line_and_status_two(self):
        for arguments in ([], ["ls"], ["frobnicate"], ["ls", "card", "--frobnicate"],
                          ["info", "card"], ["ls", "card", "--json", "--long"], ["ls", "-0", "--tsv", "card"],
                          ["pages", "card"], ["print"], ["series"], ["new", "card", "gif"],
                          ["mkcard", "x", "--prefix", "ab"], ["mkcard", "x", "--files", "10000"]):
            self.complaint(*arguments, expect=USAGE)

    def test_a_word_that_is_no_command_or_option_is_named(self):
        for arguments, message in ((["foo"], "no command foo"), (["print", "foo"], "no command foo"),
                                   (["--bogus"], "no option --bogus"),
                                   (["ls", "--bogus=3"], "no option --bogus"),
                                   (["ls", "card", "-z"], "no option -z"),
                                   (["a\nb\x1b"], r"no command a\x0Ab\x1B")):
            self.assertEqual(self.complaint(*arguments, expect=USAGE), message + " (see flm --help)")
        for arguments in (["count", "card", "a\nb"], ["mkcard", "card", "--files", "a\nb"],
                          ["print", "set", "card", "a\nb", "0"]):
            self.assertIn(r"a\x0Ab", self.complaint(*arguments, expect=USAGE))

    def test_help_and_version_go_to_standard_output(self):
        self.assertTrue(self.run_tool("--help").stdout)
        self.assertTrue(self.run_tool("ls", "--help").stdout)
        self.assertRegex("".join(self.lines("--version")), r"^flm \d+\.\d+\.\d+$")

    def test_a_reader_that_has_seen_enough_is_no_failure(self):
        self.make_pictures("100PHOTO", *range(1, 3000))
        with subprocess.Popen([BINARY, "ls", "card"], stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              cwd=self.outside, env=self.env) as process:
            process.stdout.readline()
            process.stdout.close()
            self.assertEqual(process.stderr.read(), b"")
            self.assertEqual(process.wait(), 0)

    def test_output_that_cannot_be_written_is_a_failure(self):
        self.make_pictures("100PHOTO", 1)
        with open("/dev/full", "wb") as full:
            done = subprocess.run([BINARY, "ls", "card"], stdout=full, stderr=subprocess.PIPE,
                                  cwd=self.outside, env=self.env, check=False)
        self.assertEqual(done.returncode, FAILED)
        self.assertEqual(done.stderr, b"flm: cannot write the output: No space left on device\n")

    def test_names_that_could_be_overlooked_stand_in_quotes(self):
        self.make_pictures("100PHOTO", 1)
        self.assertEqual(self.complaint("ls", "card", " ", expect=NOTHING), 'no file " " on the card')
        self.assertEqual(self.complaint("ls", "card", "a ", expect=NOTHING), 'no file "a " on the card')
        self.assertEqual(self.complaint("ls", "card", "a b", expect=NOTHING), "no file a b on the card")
        self.assertEqual(self.complaint("ls", " ", expect=UNREADABLE),
                         'cannot open " ": No such file or directory')
        self.assertIn('"" has no extension', self.complaint("import", "card", ""))

    def test_every_help_ends_with_the_exit_status(self):
        for command in (("ls",), ("count",), ("check",), ("rm",), ("import",), ("print", "save"), ("new",)):
            self.assertIn("Exit status: 0 done", self.run_tool(*command, "--help").stdout.decode())


class MkcardTest(ToolTest):
    OPTIONS = ("--files", "30", "--dirs", "4", "--companions", "--camera", "--jpeg", "--movies")

    def contents(self, root):
        return {str(path.relative_to(root)): (path.stat().st_mtime_ns,
                                              path.read_bytes() if path.is_file() else None)
                for path in root.rglob("*")}

    def test_the_same_seed_gives_the_same_card(self):
        for name, seed in (("a", "7"), ("b", "7"), ("c", "8")):
            self.run_tool("mkcard", name, *self.OPTIONS, "--seed", seed)
        one, same, other = (self.contents(self.outside / name) for name in "abc")
        self.assertEqual(one, same)
        self.assertNotEqual(one, other)

    def test_the_list_holds_what_was_asked_for(self):
        self.run_tool("mkcard", "card", *self.OPTIONS, "--prefix", "ABCD")
        files = self.json("ls", "--json", "card")
        numbered = [file for file in files if "/CAMERA/" not in file["path"]]
        self.assertEqual((len(files), len(numbered)), (35, 30))
        self.assertEqual({file["path"].split("/")[2] for file in numbered},
                         {"100PHOTO", "101PHOTO", "102PHOTO", "103PHOTO"})
        self.assertTrue(all("/ABCD00" in file["path"] for file in numbered))
        self.assertTrue(any(file["path"].endswith(".MP4") for file in numbered))
        self.assertTrue(any(file["companions"] for file in numbered))
        lengths = {len(os.path.basename(file["path"])) for file in files if file not in numbered}
        self.assertEqual((min(lengths), max(lengths)), (12, 40))
        self.run_tool("check", "card")

    def test_pictures_begin_and_end_as_pictures_do(self):
        self.run_tool("mkcard", "card", "--files", "3", "--jpeg")
        for path in self.root.rglob("*.JPG"):
            content = path.read_bytes()
            self.assertEqual((content[:4], content[-2:]), (b"\xff\xd8\xff\xe0", b"\xff\xd9"))
            self.assertIn(b"\xff\xc0\x00\x0b\x08", content)

    def test_a_card_that_is_there_is_not_touched(self):
        self.make_pictures("100PHOTO", 1)
        before = self.snapshot()
        self.assertEqual(self.complaint("mkcard", "card"), "card has a DCIM folder already")
        self.assertEqual(self.snapshot(), before)


if __name__ == "__main__":
    unittest.main()
