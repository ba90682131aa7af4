#!/usr/bin/env python3
"""The print order: print show, set, size, index, clear, save, load."""
import resource
import signal
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import FAILED, NOTHING, UNREADABLE, USAGE, ToolTest

HEADER = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n"


def job(number, kind, quantity, *sources):
    end = ">" if kind == "IDX" else ""
    text = (f"[JOB]\r\nPRT PID={number:03d}\r\nPRT TYP={kind}\r\nPRT QTY={quantity:03d}{end}\r\n"
            "IMG FMT=EXIF2 -J\r\n")
    return text + "".join(f"<IMG SRC=\"../DCIM/{source}\">\r\n" for source in sources)


class PrintTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1, 2)
        self.make_file("DCIM/101PHOTO/QVX_0003.MP4")
        self.order_file = self.root / "MISC/AUTPRINT.MRK"

    def order(self):
        """Path in the tree, copies, index print and size code of every file that is ordered."""
        files = self.json("print", "show", "card", "--json")["files"]
        return [(file["path"][len("card/DCIM/"):], file["copies"], file["index_print"],
                 file["size_code"]) for file in files]

    def text(self):
        return self.order_file.read_bytes().decode()

    def test_the_file_has_the_jobs_in_their_order(self):
        self.run_tool("print", "set", "card", "2", "0", "--creator", "CAM")
        self.run_tool("print", "size", "card", "4", "QVX_0002.JPG")
        self.run_tool("print", "index", "card", "on")
        self.assertEqual(self.text(), HEADER + job(1, "STD", 2, "100PHOTO/QVX_0001.JPG") +
                         job(2, "IDX", 1, "100PHOTO/QVX_0001.JPG", "100PHOTO/QVX_0002.JPG") +
                         job(3, "SIZ -04", 1, "100PHOTO/QVX_0002.JPG"))
        self.assertEqual(self.order(), [("100PHOTO/QVX_0001.JPG", 2, True, 0),
                                        ("100PHOTO/QVX_0002.JPG", 0, True, 4)])
        self.assertIn("x2 I", self.lines("ls", "card")[1])
        self.assertIn("index,size-code=4", self.lines("ls", "-l", "card")[2])

    def test_marks_are_taken_back(self):
        self.run_tool("print", "set", "card", "3", "--all")
        self.run_tool("print", "size", "card", "8", "--all")
        self.run_tool("print", "index", "card", "on")
        self.run_tool("print", "set", "card", "0", "0")
        self.run_tool("print", "size", "card", "0", "1")
        self.run_tool("print", "index", "card", "off")
        self.assertEqual(self.order(), [("100PHOTO/QVX_0001.JPG", 0, False, 8),
                                        ("100PHOTO/QVX_0002.JPG", 3, False, 0)])
        self.run_tool("print", "clear", "card")
        self.assertEqual(self.order(), [])
        self.assertTrue(self.text().startswith("[HDR]"))

    def test_only_pictures_can_be_ordered(self):
        self.assertEqual(self.complaint("print", "set", "card", "1", "2"),
                         "card/DCIM/101PHOTO/QVX_0003.MP4 cannot be printed: its name does not end in JPG "
                         "in capitals")
        self.assertFalse(self.order_file.exists())

    def test_values_outside_the_order_are_wrong_usage(self):
        for arguments in (("set", "card", "100", "0"), ("set", "card", "-1", "0"),
                          ("size", "card", "6", "0"), ("index", "card", "maybe"),
                          ("set", "card", "1"), ("set", "card", "1", "0", "--all"),
                          ("set", "card", "1", "0", "--creator", "a\"b"),
                          ("set", "card", "1", "0", "--creator", "a\nb"),
                          ("set", "card", "1", "0", "--creator", "x" * 31)):
            self.complaint("print", *arguments, expect=USAGE)
        self.assertFalse(self.order_file.exists())

    def test_an_order_of_another_maker_is_taken_over(self):
        foreign = self.outside / "order.mrk"
        foreign.write_bytes(b"[HDR]\nGEN CRT=\"OTHER\"\nVEN XYZ=1\n[JOB]\nPRT PID=001\nPRT TYP=STD\n"
                            b"PRT QTY=005\nIMG SRC=\"../DCIM/100PHOTO/QVX_0002.JPG\"\n"
                            b"IMG SRC=\"../DCIM/100PHOTO/QVX_0099.JPG\"\n")
        self.run_tool("print", "set", "card", "1", "0")
        self.run_tool("print", "load", "card", "order.mrk", "--merge")
        self.assertEqual(self.order(), [("100PHOTO/QVX_0001.JPG", 1, False, 0),
                                        ("100PHOTO/QVX_0002.JPG", 5, False, 0)])
        self.run_tool("print", "load", "card", "order.mrk", "--creator", "CAM")
        self.assertEqual(self.text(), HEADER + job(1, "STD", 5, "100PHOTO/QVX_0002.JPG"))
        self.assertEqual(self.complaint("print", "load", "card", "nothing.mrk"),
                         "cannot open nothing.mrk: No such file or directory")

    def test_save_writes_the_order_in_our_own_form_and_keeps_the_maker(self):
        self.make_file("MISC/AUTPRINT.MRK", b"GEN CRT = \"CAM\"\nPRT TYP=STD\nPRT QTY=7\n"
                                            b"IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"\n")
        self.run_tool("print", "save", "card")
        self.assertEqual(self.text(), HEADER + job(1, "STD", 7, "100PHOTO/QVX_0001.JPG"))

    def test_a_full_card_keeps_the_old_order(self):
        for number in range(100, 1000):
            self.make_file(f"DCIM/100PHOTO/QVX_{number:04d}.JPG")
        self.run_tool("print", "set", "card", "2", "0")
        before = self.text()

        def limited():
            signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
            resource.setrlimit(resource.RLIMIT_FSIZE, (8192, 8192))

        self.complaint("print", "set", "card", "3", "--all", preexec_fn=limited)
        self.assertEqual(self.text(), before)
        self.assertEqual([path.name for path in self.order_file.parent.iterdir()], ["AUTPRINT.MRK"])

    def test_a_card_that_may_not_be_written_is_a_failure(self):
        self.make_folder("MISC")
        (self.root / "MISC").chmod(0o555)
        self.assertIn("Permission denied", self.complaint("print", "set", "card", "1", "0",
                                                          expect=FAILED, **self.as_nobody()))

    FOREIGN = (b"[HDR]\nGEN CRT=\"CAM\"\n[JOB]\nPRT TYP=MUL\nPRT QTY=001\n"
               b"IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"\n[JOB]\nPRT TYP=STD\nPRT QTY=002\n"
               b"IMG SRC=\"../DCIM/100PHOTO/QVX_0002.JPG\"\nIMG SRC=\"../DCIM/100PHOTO/QVX_0077.JPG\"\n")

    def test_lines_that_are_not_understood_are_told_before_they_are_dropped(self):
        warning = (b"flm: 2 lines of the print order are not understood and will be dropped "
                   b"(see flm check)\n")
        for arguments in (("print", "set", "card", "1", "1"), ("print", "index", "card", "on"),
                          ("print", "save", "card"), ("rm", "card", "1")):
            self.make_file("MISC/AUTPRINT.MRK", self.FOREIGN)
            self.assertEqual(self.run_tool(*arguments).stderr, warning)
            self.assertNotIn("MUL", self.text())
            self.assertEqual(self.run_tool("print", "save", "card").stderr, b"")

    def test_a_file_that_is_no_print_order_is_not_loaded(self):
        self.run_tool("print", "set", "card", "2", "0")
        before = self.text()
        for content in (b"", b"GIF89a" + bytes(range(256)) * 64, b"PRT TYP=STD\nPRT QTY=001\n"):
            (self.outside / "other").write_bytes(content)
            self.assertEqual(self.complaint("print", "load", "card", "other"),
                             "other is no print order")
            self.complaint("print", "load", "card", "other", "--merge")
        self.assertEqual(self.text(), before)

    def test_an_order_of_files_that_cannot_be_read_is_not_written_again(self):
        self.run_tool("print", "set", "card", "2", "0")
        before = self.text()
        (self.root / "DCIM/100PHOTO").chmod(0)
        options = self.as_nobody()
        for arguments in (("print", "clear", "card"), ("print", "show", "card"),
                          ("print", "save", "card"), ("rm", "card", "--all", "--yes")):
            self.assertEqual(self.complaint(*arguments, expect=UNREADABLE, **options),
                             "cannot read card/DCIM/100PHOTO: Permission denied")
        self.assertEqual(self.text(), before)

    def test_an_order_in_a_folder_that_cannot_be_searched_is_not_taken_for_none(self):
        self.run_tool("print", "set", "card", "2", "0")
        before = self.text()
        for path, mode in ((self.root / "MISC", 0), (self.root / "MISC", 0o444), (self.order_file, 0)):
            kept = path.stat().st_mode
            path.chmod(mode)
            options = self.as_nobody()
            for arguments in (("print", "show", "card"), ("print", "set", "card", "1", "1"),
                              ("rm", "card", "0"), ("rm", "card", "0", "--dry-run"),
                              ("rm", "card", "--all", "--yes"), ("new", "card", "jpg")):
                self.assertEqual(self.complaint(*arguments, expect=UNREADABLE, **options),
                                 "cannot read card/MISC/AUTPRINT.MRK: Permission denied")
            self.assertIn("card/MISC/AUTPRINT.MRK: cannot be read: Permission denied",
                          self.lines("check", "card", expect=FAILED, **options))
            path.chmod(kept)
        self.assertEqual(self.text(), before)
        self.assertEqual(self.lines("count", "card"), ["3"])

    def test_filters_that_leave_no_picture_are_told_and_write_nothing(self):
        self.run_tool("print", "set", "card", "2", "0")
        before = self.text()
        for arguments in (("set", "card", "1"), ("size", "card", "3")):
            self.assertEqual(self.complaint("print", *arguments, "--type", "mp4", expect=NOTHING),
                             "no file that can be printed: the name of none ends in JPG in capitals")
        self.make_file("movies/DCIM/100PHOTO/QVX_0001.MP4")
        self.complaint("print", "set", "movies", "1", "--all", expect=NOTHING, cwd=self.root)
        self.assertEqual(self.text(), before)
        self.assertFalse((self.root / "movies/MISC/AUTPRINT.MRK").exists())

    def test_a_free_name_that_ends_in_small_letters_cannot_be_printed(self):
        self.make_file("DCIM/CAMERA/party at the lake.jpg")
        self.assertEqual(self.complaint("print", "set", "card", "1", "0"),
                         "card/DCIM/CAMERA/party at the lake.jpg cannot be printed: its name does not "
                         "end in JPG in capitals")

    def test_keys_that_are_not_known_are_told_before_they_are_dropped(self):
        self.make_file("MISC/AUTPRINT.MRK", b"[HDR]\nGEN REV=01.10\nGEN DTM=2026:03:15\n\n[JOB]\n"
                                            b"PRT PID=001\nPRT TYP=STD\nPRT QTY=001\nPRT DPI=300\n"
                                            b"IMG FMT=EXIF2 -J\nIMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"\n"
                                            b"IMG ROT=090\nUSR NAM=\"Ann\"\nFOO BAR\n")
        dropped = ["GEN DTM=2026:03:15", "PRT DPI=300", "IMG ROT=090", "USR NAM=\"Ann\"", "FOO BAR"]
        found = [f["reason"] for f in self.json("check", "card", "--json", expect=FAILED)["findings"]]
        self.assertEqual(found, [f"line {line}: \"{text}\" is not known"
                                 for line, text in zip((3, 9, 12, 13, 14), dropped)])
        self.assertEqual(self.run_tool("print", "save", "card").stderr,
                         b"flm: 5 lines of the print order are not understood and will be dropped "
                         b"(see flm check)\n")
        self.assertEqual(self.lines("check", "card")[0], "nothing to report")
        self.assertEqual(self.order(), [("100PHOTO/QVX_0001.JPG", 1, False, 0)])


if __name__ == "__main__":
    unittest.main()
