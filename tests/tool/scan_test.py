#!/usr/bin/env python3
"""flm scan: every name of a card is in the list or explained, and the reasons are the true ones."""
import json
import os
import random
import shutil
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import UNREADABLE, USAGE, ToolTest, unescape


def on_card(text):
    """A path as the tool writes it, relative to the card."""
    return os.fsdecode(unescape(text))[len("card/"):]


class ScanTest(ToolTest):
    def explained(self, *options, **settings):
        """Kind and reason by path in the card."""
        rows = self.json("scan", "--explain", "--json", "card", *options, **settings)
        paths = [on_card(row["path"]) for row in rows]
        self.assertEqual(len(paths), len(set(paths)))
        return {on_card(row["path"]): (row["kind"], row["reason"]) for row in rows}

    def check_every_name(self, *options, **settings):
        """Listed, explained and read folders are all names of the card, each once."""
        explained = self.explained(*options, **settings)
        listed = {on_card(path) for path in self.lines("ls", "--paths", "card", *options, **settings)}
        folders = {on_card(row["folder"])
                   for row in self.json("scan", "--json", "card", *options, **settings)}
        names = set(self.tree())
        listed &= names  # A file may be listed under a name that it does not have.
        self.assertEqual(listed | folders | set(explained) | {"DCIM"}, names)
        self.assertEqual((listed & set(explained), folders & set(explained)), (set(), set()))
        return explained

    def test_a_sample_card_is_all_explained(self):
        self.run_tool("mkcard", "card", "--files", "60", "--dirs", "3", "--companions", "--camera",
                      "--movies")
        explained = self.check_every_name()
        self.assertEqual({kind for kind, _ in explained.values()}, {"companion", "outside"})
        counts = self.json("scan", "card", "--json")
        self.assertEqual(sum(row["files"] for row in counts), int(self.lines("count", "card")[0]))
        companions = sum(len(file["companions"]) for file in self.json("ls", "--json", "card"))
        self.assertEqual(sum(row["companions"] for row in counts), companions)
        self.assertIn("left-out", {kind for kind, _ in self.check_every_name("--no-non-dcf").values()})

    def test_every_reason_for_a_file(self):
        folder = "DCIM/100PHOTO/"
        for name in (".hidden.jpg", "CAM_0001.JPEG", "CAM_00X1.JPG", "CAM_0001.TXT", "CA-XA001.JPG",
                     "CAM_0000.JPG", "CAM_0002XJPG", "cam_0003.jpg", "CAM_0004.JPG", "CAM_0004.SRW",
                     "CAM_0005.WAV", "CAM_0006.SRW", "ABCD0004.JPG", "CAM_0004.MP4", "x" * 200):
            self.make_file(folder + name)
        self.make_file(folder + "inner/CAM_0009.JPG")
        self.make_folder(folder + "CAM_0010.JPG/below")
        explained = {path[len(folder):]: why for path, why in self.check_every_name().items()}
        # Which of two pictures of one number comes first is up to the order of the folder.
        joined = [file["path"][-12:] for file in self.json("ls", "--json", "card") if file["companions"]]
        self.assertEqual(len(joined), 1)
        self.assertEqual(explained.pop("CAM_0004.SRW"), (
            "companion", "it is a companion of CAM_0004.JPG" + (
                "" if joined == ["CAM_0004.JPG"] else
                f", but joins {joined[0]}, the first file of its number")))
        self.assertEqual(explained, {
            ".hidden.jpg": ("hidden", "names that begin with a point are hidden"),
            "CAM_0001.JPEG": ("file", "a file name has 12 characters, this one has 13"),
            "CAM_0001.TXT": ("file", "the extension is none of JPG MP4 AVI 3GP MP3 WAV SRW MPO"),
            "CA-XA001.JPG": ("file", "the name begins neither with four letters or _ nor with a number "
                                     "behind four characters"),
            "CAM_00X1.JPG": ("file", "characters 5 to 8 are not four digits"),
            "CAM_0002XJPG": ("listed-as", "it is listed as CAM_0002.JPG"),
            "cam_0003.jpg": ("listed-as", "it is listed as CAM_0003.JPG"),
            "x" * 200: ("file", "a file name has 12 characters, this one has 200"),
            "inner": ("file", "a file name has 12 characters, this one has 5"),
            "inner/CAM_0009.JPG": ("inside", "it lies in a folder that is not read"),
            "CAM_0010.JPG/below": ("inside", "it lies in a folder that is not read")})

    def test_every_reason_for_a_folder(self):
        for path in ("050PHOTO/CAM_0001.JPG", "1000PHOT/CAM_0001.JPG", "10PHOTO/CAM_0001.JPG",
                     "ABCDEFGH/a/b", "101photo/CAM_0001.JPG", "102PHOTO/CAM_0001.JPG",
                     "102photo/CAM_0002.JPG", "103PHOTO/CAM_0001.JPG", "103_0101/CAM_0001.JPG",
                     "CAMERA" + "x" * 90 + "/some picture.jpg", "099PHOTO/CAM_0001.JPG",
                     "099PHOTO/cam_0002xjpg"):
            self.make_file("DCIM/" + path)
        self.make_file("DCIM/104PHOTO")
        self.make_file("DCIM/stray.jpg")
        self.make_file("MISC/AUTPRINT.MRK")
        self.make_file("VIDEO/100VIDEO/SDV_0001.MP4")
        self.make_file("readme.txt")
        explained = {path.removeprefix("DCIM/"): why for path, why in self.check_every_name().items()}
        inside = [path for path, why in explained.items() if why[0] == "inside"]
        for path in inside:
            del explained[path]
        self.assertEqual(explained, {
            "099PHOTO/cam_0002xjpg": ("listed-as", "it is listed as CAM_0002XJPG"),
            "050PHOTO": ("folder", "folder numbers run from 100 to 999"),
            "10PHOTO": ("folder", "a folder name has 8 characters, this one has 7"),
            "ABCDEFGH": ("folder", "a folder name begins with three digits"),
            "101photo": ("listed-as", "it is looked for as 101PHOTO, which is not there"),
            "102photo": ("listed-as", "it is looked for as 102PHOTO, which is another folder"),
            "CAMERA" + "x" * 90: ("folder", "the name is too long"),
            "104PHOTO": ("file", "it has the name of a folder and is none"),
            "stray.jpg": ("file", "it lies beside the folders, not in one"),
            "MISC": ("outside", "it is the folder of the print order"),
            "VIDEO": ("outside", "it lies outside the DCIM folder"),
            "readme.txt": ("outside", "it lies outside the DCIM folder")})
        self.assertIn("MISC/AUTPRINT.MRK", inside)

    def test_free_names_and_their_companions(self):
        for name in ("short.jpg", "x" * 41 + ".jpg", "notes of the journey.txt", "HOLI0000.JPG",
                     "HOLI0000.SRW", "holi0002.jpg", "another one.WAV", ".trash of a computer"):
            self.make_file(f"DCIM/CAMERA/{name}")
        explained = self.check_every_name()
        self.assertEqual(explained["DCIM/CAMERA/short.jpg"],
                         ("file", "a name in CAMERA has 12 to 40 characters, this one has 9"))
        self.assertEqual(explained["DCIM/CAMERA/HOLI0000.SRW"],
                         ("companion", "it is taken for a companion of HOLI0000.JPG"))

    def random_name(self, choice):
        if choice.random() < 0.2:
            return "".join(choice.choice("ab ._\\\xff") for _ in range(choice.randint(2, 45))) + "c"
        stem = choice.choice(["QVX_", "CAM_", "qvx_", "AB-D", "12_4"])
        number = choice.choice(["0000", "0001", "0002", "0003", "9999", "00X1"])
        extension = choice.choice(["JPG", "jpg", "MP4", "SRW", "WAV", "MPO", "TXT", "3gp"])
        return stem + number + choice.choice("...x") + extension

    def test_random_cards_are_all_explained(self):
        choice = random.Random(20)
        folders = ["100PHOTO", "100photo", "100_0101", "CAMERA", "camera", "099PHOTO", "1000ABCD", "12PHOTO"]
        for _ in range(10):
            shutil.rmtree(self.root)
            for _ in range(40):
                self.make_file(f"DCIM/{choice.choice(folders)}/{self.random_name(choice)}")
            for options in ((), ("--no-non-dcf",)):
                kinds = {kind for kind, _ in self.check_every_name(*options).values()}
                self.assertNotIn("changed", kinds)  # Nothing came while the card was read.

    def test_folders_of_one_number_are_both_read(self):
        self.make_pictures("100PHOTO", 1)
        self.make_pictures("100ABCDE", 1)
        self.assertEqual(self.check_every_name(), {})
        self.assertEqual([row["files"] for row in self.json("scan", "card", "--json")], [1, 1])

    def test_a_full_list_is_the_reason(self):
        self.hold_many_files()
        for number in range(1, 6):
            self.make_folder(f"DCIM/10{number}PHOTO")
        for folder, count in ((101, 3), (102, 8000), (103, 8000), (104, 8000), (105, 8000)):
            path = f"{self.root}/DCIM/{folder}PHOTO/QVX_"
            for number in range(1, count + 1):
                os.mknod(f"{path}{number:04d}.JPG")
        self.assertEqual(set(self.check_every_name().values()), {("limit", "the list is full")})

    def test_more_folders_than_the_list_has_room_for(self):
        self.hold_many_files()
        for number in range(100, 1000):
            self.make_folder(f"DCIM/{number}PHOTO")
        for number in range(100, 200):
            self.make_file(f"DCIM/{number}ABCDE/QVX_0001.JPG")
        explained = self.check_every_name()
        self.assertEqual(explained["DCIM/999PHOTO"], ("limit", "the list holds 999 other folders already"))
        self.assertEqual(len(explained), 1)

    def test_a_folder_that_cannot_be_opened_is_explained(self):
        self.make_pictures("100PHOTO", 1)
        self.make_folder("DCIM/101PHOTO")
        (self.root / "DCIM/101PHOTO").chmod(0)
        explained = self.check_every_name(expect=UNREADABLE, **self.as_nobody())
        self.assertEqual(explained, {"DCIM/101PHOTO": ("unreadable", "cannot be read: Permission denied")})

    def test_links_are_named_and_not_followed(self):
        self.make_pictures("100PHOTO", 1)
        (self.root / "DCIM/loop").symlink_to(self.root)
        (self.root / "DCIM/100PHOTO/nothing").symlink_to("nowhere")
        self.assertEqual(set(self.explained()), {"DCIM/loop", "DCIM/100PHOTO/nothing"})

    def test_formats_say_the_same(self):
        self.make_file(b"DCIM/\x1b\xff\\x")
        self.make_pictures("100PHOTO", 1)
        for form in ((), ("--explain",)):
            rows = self.json("scan", *form, "--json", "card")
            self.assertEqual([json.loads(line) for line in self.lines("scan", *form, "--jsonl", "card")],
                             rows)
            self.assertEqual(len(self.lines("scan", *form, "--tsv", "card")), len(rows) + 1)
        self.assertEqual(self.lines("scan", "--explain", "card"),
                         ["card/DCIM/\\x1B\\xFF\\\\x: it lies beside the folders, not in one"])
        self.assertEqual(self.lines("scan", "card"), [
            "FOLDER              FILES  COMPANIONS  OTHERS",
            "card/DCIM/100PHOTO      1           0       0"])
        self.complaint("scan", "--json", "--tsv", "card", expect=USAGE)


if __name__ == "__main__":
    unittest.main()
