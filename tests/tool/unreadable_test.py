#!/usr/bin/env python3
"""A card of which a part cannot be read: what is shown is told to be less than all."""
import os
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import UNREADABLE, ToolTest


class UnreadableTest(ToolTest):
    def lock_a_folder(self):
        self.make_pictures("100PHOTO", 1)
        self.make_pictures("101PHOTO", 2)
        (self.root / "DCIM/101PHOTO").chmod(0)
        return self.as_nobody()

    def test_a_folder_that_cannot_be_opened_is_told_by_all_that_look(self):
        options = self.lock_a_folder()
        path = "card/DCIM/100PHOTO/QVX_0001.JPG"
        for command in (("ls", "--paths"), ("ls", "-0"), ("ls",), ("ls", "--long"), ("ls", "--json"),
                        ("ls", "--jsonl"), ("ls", "--tsv"), ("pages", "--size", "5"), ("count",),
                        ("count", "--type", "jpg"), ("count", "--type", "mp4"), ("ls", "--type", "mp4"),
                        ("scan",), ("scan", "--explain"), ("scan", "--json"), ("last",), ("avail",)):
            done = self.run_tool(*command, "card", expect=UNREADABLE, **options)
            self.assertEqual(done.stderr, b"flm: cannot read card/DCIM/101PHOTO: Permission denied\n",
                             command)
            if command[0] in ("ls", "pages") and "mp4" not in command:
                self.assertIn(path, done.stdout.decode())
        self.assertEqual(self.run_tool("count", "card", expect=UNREADABLE, **options).stdout, b"1\n")
        self.assertEqual(self.run_tool("last", "card", expect=UNREADABLE, **options).stdout[:3], b"101")
        self.assertEqual(self.lines("ls", "--paths", "card", "0", **options), [path])

    def test_an_operation_on_all_files_says_what_it_did_not_reach(self):
        options = self.lock_a_folder()
        for path in (self.root, self.root / "DCIM/100PHOTO", self.root / "DCIM/100PHOTO/QVX_0001.JPG"):
            os.chown(path, options.get("user", -1), -1)
        told = b"flm: cannot read card/DCIM/101PHOTO: Permission denied\n"
        file = "card/DCIM/100PHOTO/QVX_0001.JPG"
        for said, command in ((f"would protect {file}", ("protect", "--all", "--dry-run")),
                              (f"protected {file}", ("protect", "--all", "--yes")),
                              (f"unprotected {file}", ("unprotect", "--type", "jpg", "--yes")),
                              (f"would remove {file}", ("rm", "--all", "--dry-run")),
                              (f"removed {file}", ("rm", "--all", "--yes"))):
            done = self.run_tool(*command, "card", expect=UNREADABLE, **options)
            self.assertEqual((done.stdout.decode(), done.stderr), (said + "\n", told), command)

    def test_a_file_that_is_named_is_reached_whatever_else_cannot_be_read(self):
        options = self.lock_a_folder()
        self.run_tool("protect", "--dry-run", "card", "QVX_0001.JPG", **options)

    def test_a_file_that_is_not_found_may_lie_in_a_folder_that_cannot_be_opened(self):
        options = self.lock_a_folder()
        why = ", as far as the card can be read: cannot read card/DCIM/101PHOTO: Permission denied"
        for command in (("ls",), ("info",), ("rm",), ("protect", "--dry-run")):
            self.assertEqual(self.complaint(*command, "card", "QVX_0002.JPG", expect=UNREADABLE, **options),
                             "no file QVX_0002.JPG on the card" + why)
        self.assertEqual(self.complaint("ls", "card", "7", expect=UNREADABLE, **options),
                         "no file with the index 7: the card has 1 file" + why)
        self.assertEqual(self.complaint("rm", "card", "--type", "mp4", expect=UNREADABLE, **options),
                         "no file matches" + why)

    def test_a_camera_folder_that_is_left_out_need_not_be_readable(self):
        self.make_pictures("100PHOTO", 1)
        self.make_folder("DCIM/CAMERA")
        (self.root / "DCIM/CAMERA").chmod(0)
        options = self.as_nobody()
        self.assertEqual(self.lines("count", "card", "--no-non-dcf", **options), ["1"])
        self.assertEqual(self.lines("last", "card", **options), ["100/0001"])
        self.run_tool("count", "card", expect=UNREADABLE, **options)

    def test_a_tree_that_cannot_be_searched_is_no_empty_card(self):
        self.make_pictures("100PHOTO", 1)
        (self.root / "DCIM").chmod(0o444)
        self.assertEqual(self.complaint("count", "card", expect=UNREADABLE, **self.as_nobody()),
                         "cannot read card/DCIM: Permission denied")


if __name__ == "__main__":
    unittest.main()
