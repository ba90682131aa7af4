#!/usr/bin/env python3
"""flm check: what on a card would be refused, hidden or lost."""
import json
import os
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import DONE, FAILED, ToolTest


class CheckTest(ToolTest):
    def findings(self):
        """Kind, path in the card and reason of every finding."""
        done = self.run_tool("check", "card", "--json", expect=None)
        value = json.loads(done.stdout)
        self.assertEqual(done.returncode, FAILED if value["findings"] else DONE)
        return [(f["kind"], f["path"][len("card/"):], f["reason"]) for f in value["findings"]]

    def test_a_good_card_has_nothing_to_report(self):
        self.run_tool("mkcard", "card", "--files", "20", "--dirs", "2", "--companions", "--camera")
        self.assertEqual(self.findings(), [])
        self.assertEqual(self.lines("check", "card"),
                         ["nothing to report", "25 of 32000 files; the newest is 101/0020 of 999/9999"])

    def test_folder_names_that_break_the_rules(self):
        for name in ("10PHOTO", "ABCDEFGH", "099PHOTO", "050PHOTO", "101photo"):
            self.make_folder(f"DCIM/{name}")
        self.make_file("DCIM/stray.txt")
        self.assertEqual(self.findings(), [
            ("folder-name", "DCIM/050PHOTO", "not listed: folder numbers run from 100 to 999"),
            ("folder-name", "DCIM/099PHOTO",
             "folder numbers begin at 100: this one is listed with the CAMERA folder"),
            ("folder-name", "DCIM/101photo",
             "lost: listed as 101PHOTO, where its files cannot be opened"),
            ("folder-name", "DCIM/10PHOTO",
             "not listed: a folder name has 8 characters, this one has 7"),
            ("folder-name", "DCIM/ABCDEFGH", "not listed: a folder name begins with three digits"),
            ("file-name", "DCIM/stray.txt", "not listed: it lies beside the folders, not in one")])

    def test_file_names_that_break_the_rules(self):
        folder = "DCIM/100PHOTO/"
        for name in (".hidden", "CAM_0001.JPEG", "CAM_00X1.JPG", "CAM_0001.TXT", "CA-XA001.JPG",
                     "CAM_0000.JPG", "CAM_0002XJPG", "cam_0003.jpg"):
            self.make_file(folder + name)
        self.make_folder(folder + "CAM_0004.JPG")
        os.symlink("nowhere", self.root / folder / "CAM_0005.JPG")
        os.mkfifo(self.root / folder / "CAM_0006.JPG")
        os.symlink("CAM_0000.JPG", self.root / folder / "CAM_0007.JPG")
        self.make_file("DCIM/CAMERA/short.jpg")
        self.make_file("DCIM/CAMERA/" + "x" * 37 + ".jpg")
        self.assertEqual(self.findings(), [
            ("file-name", folder + ".hidden",
             "not listed: names that begin with a point are hidden"),
            ("file-name", folder + "CA-XA001.JPG",
             "not listed: the name begins neither with four letters or _ nor with a number behind four "
             "characters"),
            ("file-name", folder + "CAM_0000.JPG", "file numbers begin at 0001"),
            ("file-name", folder + "CAM_0001.JPEG",
             "not listed: a file name has 12 characters, this one has 13"),
            ("file-name", folder + "CAM_0001.TXT",
             "not listed: the extension is none of JPG MP4 AVI 3GP MP3 WAV SRW MPO"),
            ("file-name", folder + "CAM_0002XJPG",
             "lost: listed as CAM_0002.JPG, which cannot be opened"),
            ("file-name", folder + "CAM_0004.JPG",
             "a folder with the name of a file is listed as a file"),
            ("file-name", folder + "CAM_0005.JPG", "a link that leads nowhere is listed as a file"),
            ("file-name", folder + "CAM_0006.JPG",
             "what is neither file nor folder is listed as a file"),
            ("file-name", folder + "CAM_00X1.JPG",
             "not listed: characters 5 to 8 are not four digits"),
            ("file-name", folder + "cam_0003.jpg",
             "lost: listed as CAM_0003.JPG, which cannot be opened"),
            ("file-name", "DCIM/CAMERA/short.jpg",
             "not listed: a name in CAMERA has 12 to 40 characters, this one has 9"),
            ("file-name", "DCIM/CAMERA/" + "x" * 37 + ".jpg",
             "not listed: a name in CAMERA has 12 to 40 characters, this one has 41")])

    def test_what_is_no_file_counts_like_one_where_it_is_listed(self):
        folder = "DCIM/100PHOTO/"
        for name in ("CAM_0001.JPG", "CAM_0002.JPG"):
            self.make_file(folder + name)
        os.mkfifo(self.root / folder / "CAM_0001.WAV")
        os.symlink("nowhere", self.root / folder / "CAM_0001.SRW")
        os.symlink("nowhere", self.root / folder / "ABCD0002.JPG")
        self.assertEqual(self.lines("count", "card"), ["3"])
        self.assertEqual(self.findings(), [
            ("file-name", folder + "ABCD0002.JPG", "a link that leads nowhere is listed as a file"),
            ("duplicate", "DCIM/100PHOTO",
             "the number 0002 is used by ABCD0002.JPG, CAM_0002.JPG: companions join the first of them")])

    def test_a_link_to_what_may_not_be_seen_is_no_finding(self):
        self.make_file("DCIM/100PHOTO/CAM_0001.JPG")
        (self.outside / "closed").mkdir()
        (self.outside / "closed/picture").write_text("x")
        os.symlink(self.outside / "closed/picture", self.root / "DCIM/100PHOTO/CAM_0002.JPG")
        (self.outside / "closed").chmod(0)
        try:
            self.run_tool("check", "card", **self.as_nobody())
        finally:
            (self.outside / "closed").chmod(0o755)

    def test_every_refused_or_hidden_file_is_missing_in_the_list_and_no_other(self):
        names = ("CAM_0001.JPG", "CAM_0002.JPEG", ".CAM0003.JPG", "1234567A.JPG", "CAMX0004.WAV")
        for name in names:
            self.make_file(f"DCIM/100PHOTO/{name}")
        unlisted = {path for kind, path, reason in self.findings() if "not listed" in reason}
        listed = {path[len("card/"):] for path in self.lines("ls", "--paths", "card")}
        self.assertEqual(listed | unlisted, {f"DCIM/100PHOTO/{name}" for name in names})
        self.assertEqual(listed & unlisted, set())

    def test_companions_without_a_picture_and_duplicate_numbers(self):
        folder = "DCIM/100PHOTO"
        for name in ("CAM_0001.SRW", "CAM_0002.JPG", "CAM_0002.MP4", "CAM_0003.JPG", "CAM_0003.WAV"):
            self.make_file(f"{folder}/{name}")
        self.assertEqual(self.findings(), [
            ("companion", f"{folder}/CAM_0001.SRW",
             "listed as a file of its own: there is no CAM_0001.JPG"),
            ("duplicate", folder, "the number 0002 is used by CAM_0002.JPG, CAM_0002.MP4: companions "
                                  "join the first of them")])

    def test_folders_of_one_number_and_folders_that_are_mistaken_for_each_other(self):
        for name in ("100ABCDE", "100ABCXY", "101PHOTO", "101_0315"):
            self.make_folder(f"DCIM/{name}")
        self.assertEqual(self.findings(), [
            ("alike-folders", "DCIM/100ABCXY",
             "its name begins as that of 100ABCDE: files of one are looked up in the other"),
            ("equal-folders", "DCIM/101_0315", "it has the number of 101PHOTO")])

    def test_entries_of_the_print_order_without_effect(self):
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/100PHOTO/QVX_0002.MP4")
        self.make_file("DCIM/100PHOTO/notes.txt")
        lines = ["[HDR]", "[JOB]", "PRT TYP=STD", "PRT QTY = 003", "IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"",
                 "IMG SRC=\"../DCIM/100PHOTO/QVX_0009.JPG\"", "IMG SRC=\"../DCIM/100PHOTO/notes.txt\"",
                 "IMG SRC=\"../DCIM/100PHOTO/QVX_0002.MP4\"", "IMG SRC=\"DCIM/100PHOTO/QVX_0001.JPG\"",
                 "IMG SRC=QVX_0001.JPG", "PRT TYP = STD", "IMG SRC=\"../DCIM/100PHOTO/QVX_0001.JPG\"",
                 "PRT TYP=POSTER", "PRT TYP"]
        self.make_file("MISC/AUTPRINT.MRK", "\r\n".join(lines).encode() + b"\r\n")
        findings = self.findings()
        self.assertIn(("file-name", "DCIM/100PHOTO/notes.txt",
                       "not listed: a file name has 12 characters, this one has 9"), findings)
        order = [reason for kind, path, reason in findings if kind == "print-order"]
        self.assertEqual(order, [
            "line 4: the quantity \" 003\" is passed over because of the blanks around \"=\"",
            "line 6: \"../DCIM/100PHOTO/QVX_0009.JPG\" is missing",
            "line 7: \"../DCIM/100PHOTO/notes.txt\" is not in the list",
            "line 8: \"../DCIM/100PHOTO/QVX_0002.MP4\" is no JPG and cannot be printed",
            "line 9: \"DCIM/100PHOTO/QVX_0001.JPG\" does not begin with ../",
            "line 10: the image has no name in quotes",
            "line 11: the type \" STD\" is passed over because of the blanks around \"=\"",
            "line 12: \"../DCIM/100PHOTO/QVX_0001.JPG\" gets no mark, since the type of its job is not "
            "known",
            "line 13: the type \"POSTER\" is passed over",
            "line 14: \"PRT TYP\" has no value"])
        self.assertEqual(self.json("print", "show", "card", "--json")["files"], [])

    def test_the_end_of_the_numbers_is_told(self):
        self.make_pictures("999PHOTO", 9990)
        self.assertEqual(self.findings(), [
            ("limit", "DCIM", "the newest file is 999/9990: the numbers end at 999/9999")])
        room = self.json("check", "card", "--json", expect=FAILED)["room"]
        self.assertEqual(room, {"files": 1, "files_left": 31999, "last_folder": 999, "last_file": 9990,
                                "folder_numbers_left": 0, "file_numbers_left_in_folder": 9})

    def test_reasons_never_reach_the_terminal_raw(self):
        self.make_file(b"DCIM/\x1b[2J")
        line = self.lines("check", "card", expect=FAILED)[0]
        self.assertTrue(line.startswith(r"card/DCIM/\x1B[2J: "))

    def test_a_folder_that_cannot_be_opened_is_told_and_its_files_are_not_called_missing(self):
        self.make_pictures("100PHOTO", 1)
        self.make_pictures("101PHOTO", 2)
        self.make_file("MISC/AUTPRINT.MRK", b"[HDR]\nPRT TYP=STD\nPRT QTY=001\n"
                                            b"IMG SRC=\"../DCIM/101PHOTO/QVX_0002.JPG\"\n")
        (self.root / "DCIM/101PHOTO").chmod(0)
        options = self.as_nobody()
        done = self.run_tool("check", "card", "--json", expect=FAILED, **options)
        self.assertEqual([(f["kind"], f["reason"]) for f in json.loads(done.stdout)["findings"]], [
            ("unreadable", "cannot be read: Permission denied"),
            ("print-order",
             "line 4: \"../DCIM/101PHOTO/QVX_0002.JPG\" lies in a folder that cannot be read")])

    def order_findings(self, content):
        self.make_file("MISC/AUTPRINT.MRK", content)
        return [reason for kind, _, reason in self.findings() if kind == "print-order"]

    def test_quantities_misspelt_keys_and_an_unfinished_last_line_of_the_print_order(self):
        self.make_folder("DCIM")
        self.assertEqual(self.order_findings(
            b"[HDR]\nPRT TYP=STD\nPRT QTY=000\nPRT QTY=099\nPRT QTY=100\nprt qty=1\nPRT typ=IDX\n"
            b" PRT QTY=1\nPRT QTY=007"), [
                "line 3: the quantity \"000\" is outside 1 to 99",
                "line 5: the quantity \"100\" is outside 1 to 99",
                "line 6: \"prt qty=1\" is passed over: keys are in capitals and begin at the start of "
                "the line",
                "line 7: \"PRT typ=IDX\" is passed over: keys are in capitals",
                "line 8: \" PRT QTY=1\" is passed over: keys are in capitals and begin at the start of "
                "the line",
                "line 9: the last line has no line end and is passed over"])

    def test_a_print_order_that_is_no_file(self):
        self.make_folder("DCIM")
        self.make_folder("MISC/AUTPRINT.MRK")
        self.assertEqual(self.findings(), [("print-order", "MISC/AUTPRINT.MRK",
                                            "it is no regular file and is passed over")])

    def test_listed_names_with_characters_that_other_devices_refuse(self):
        for name in ("IM-G0001.JPG", "IM G0002.JPG", "I_9G0003.JPG"):
            self.make_file(f"DCIM/100PHOTO/{name}")
        reason = ("listed, but other devices may not take it: one of its first four characters is none "
                  "of A-Z, 0-9 and _")
        self.assertEqual(self.findings(), [("file-name", "DCIM/100PHOTO/IM G0002.JPG", reason),
                                           ("file-name", "DCIM/100PHOTO/IM-G0001.JPG", reason)])
        self.assertEqual(self.lines("count", "card"), ["3"])


if __name__ == "__main__":
    unittest.main()
