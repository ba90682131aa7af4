#!/usr/bin/env python3
"""The tool on a card with a FAT. Run inside the machine of scripts/test-fat, where /tmp is the card."""
import errno
import os
import pathlib
import subprocess
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import DONE, FAILED, ToolTest

MASK = int(os.environ["FLM_FAT_MASK"], 8)
# A file of a FAT has one bit of protection; taking the owner's permission alone reaches it only
# where the mount has taken the others already.
OWNER_WRITE_IS_PROTECTION = MASK & 0o022 == 0o022


class ToolOnFat(ToolTest):
    def fill(self):
        """Takes all the room that the card has left."""
        filler = self.outside / "filler"
        with open(filler, "wb", buffering=0) as file:
            size = 1 << 16
            while size:
                try:
                    file.write(b"f" * size)
                except OSError as error:
                    self.assertEqual(error.errno, errno.ENOSPC)
                    size //= 2
        return filler

    def names(self, folder="DCIM"):
        """Names of the files in a folder and below it, in capitals: the mount may show small letters."""
        return sorted(path.name.upper() for path in (self.root / folder).rglob("*")
                      if path.is_file())

    def after_power_cut(self, path):
        """What the card's device has of a file, without what the system keeps in memory."""
        cut = pathlib.Path("/mnt/cut")
        subprocess.run(["mount", "-t", "vfat", "-o", f"ro,{os.environ['FLM_FAT_OPTIONS']}",
                        os.environ["FLM_FAT_IMAGE"], str(cut)], check=True)
        try:
            there = cut / (self.root / path).relative_to("/tmp")
            return there.read_bytes() if there.exists() else None
        finally:
            subprocess.run(["umount", str(cut)], check=True)

    def test_protect_tells_what_became_of_each_file(self):
        self.make_pictures("100PHOTO", 1, 2)
        if OWNER_WRITE_IS_PROTECTION:
            self.assertEqual(self.lines("protect", "card", "0"),
                             ["protected card/DCIM/100PHOTO/QVX_0001.JPG"])
        else:
            self.assertEqual(self.complaint("protect", "card", "0"),
                             f"card/DCIM/100PHOTO/QVX_0001.JPG is not protected: {self.trouble()}")
        files = self.json("ls", "--json", "card")
        self.assertEqual([file["protected"] for file in files], [OWNER_WRITE_IS_PROTECTION, False])

    def trouble(self):
        return ("the card is mounted so that its files can be neither protected nor unprotected "
                f"(vfat with fmask={MASK:04o}; fmask=0022 lets them be)")

    def test_a_mount_without_protection_is_found_before(self):
        self.make_pictures("100PHOTO", 1)
        before = self.snapshot()
        found = self.json("check", "card", "--json", expect=None)["findings"]
        expected = [{"kind": "protection", "path": "card/DCIM", "reason": self.trouble()}]
        self.assertEqual(found, [] if OWNER_WRITE_IS_PROTECTION else expected)
        self.assertEqual(self.snapshot(), before)

    def test_a_file_that_stays_protected_is_told(self):
        self.make_pictures("100PHOTO", 1)
        picture = self.root / "DCIM/100PHOTO/QVX_0001.JPG"
        picture.chmod(0o555 & ~MASK)
        if OWNER_WRITE_IS_PROTECTION:
            self.assertEqual(self.lines("unprotect", "card", "0"),
                             ["unprotected card/DCIM/100PHOTO/QVX_0001.JPG"])
        else:
            self.assertEqual(self.complaint("unprotect", "card", "0"),
                             f"card/DCIM/100PHOTO/QVX_0001.JPG is still protected: {self.trouble()}")

    def test_unprotect_gives_the_permission_back(self):
        self.make_pictures("100PHOTO", 1)
        picture = self.root / "DCIM/100PHOTO/QVX_0001.JPG"
        picture.chmod(0o555 & ~MASK)
        self.run_tool("unprotect", "card", "0", expect=None)
        self.assertEqual(bool(picture.stat().st_mode & 0o200), OWNER_WRITE_IS_PROTECTION)

    def test_import_keeps_content_and_time(self):
        source = self.outside / "holiday.jpg"
        source.write_bytes(b"picture")
        os.utime(source, (1000000000, 1000000000))
        self.make_folder("DCIM")
        self.run_tool("import", "card", str(source))
        copy = self.root / "DCIM/100PHOTO/QVX_0001.JPG"
        self.assertEqual(copy.read_bytes(), b"picture")
        self.assertEqual(copy.stat().st_mtime, 1000000000)
        self.assertEqual(self.names(), ["QVX_0001.JPG"])

    def test_a_power_cut_leaves_what_was_imported(self):
        source = self.outside / "holiday.jpg"
        source.write_bytes(b"p" * 100000)
        self.make_folder("DCIM")
        os.sync()
        self.run_tool("import", "card", str(source))
        self.assertEqual(self.after_power_cut("DCIM/100PHOTO/QVX_0001.JPG"), b"p" * 100000)

    def test_a_power_cut_leaves_the_print_order(self):
        self.make_pictures("100PHOTO", 1, 2)
        os.sync()
        for copies in ("1", "2"):
            self.run_tool("print", "set", "card", copies, "0")
            self.assertEqual(self.after_power_cut("MISC/AUTPRINT.MRK"),
                             (self.root / "MISC/AUTPRINT.MRK").read_bytes())

    def test_import_into_a_full_card_leaves_nothing(self):
        self.make_pictures("100PHOTO", 1)
        source = self.outside / "holiday.jpg"
        source.write_bytes(b"p" * 100000)
        self.fill()
        self.assertIn("No space left", self.complaint("import", "card", str(source)))
        self.assertEqual(self.names(), ["QVX_0001.JPG"])

    def test_a_print_order_that_does_not_fit_leaves_the_earlier_one(self):
        self.make_pictures("100PHOTO", *range(1, 101))
        self.run_tool("print", "set", "card", "2", "0")
        order = self.root / "MISC/AUTPRINT.MRK"
        before = order.read_bytes()
        filler = self.fill()
        self.complaint("print", "set", "card", "1", "--all")
        self.assertEqual(order.read_bytes(), before)
        filler.unlink()
        self.run_tool("print", "set", "card", "1", "--all")
        self.assertEqual(len(self.json("print", "show", "card", "--json")["files"]), 100)
        self.assertEqual(self.names("MISC"), ["AUTPRINT.MRK"])

    def test_files_in_small_letters_are_removed_with_their_companions(self):
        for name in ("qvx_0001.jpg", "QVX_0001.SRW", "qvx_0002.jpg"):
            self.make_file(f"DCIM/100PHOTO/{name}")
        self.assertEqual(self.lines("rm", "card", "0"),
                         ["removed card/DCIM/100PHOTO/QVX_0001.JPG with QVX_0001.SRW"])
        self.assertEqual(self.names(), ["QVX_0002.JPG"])

    def test_a_sample_card_has_nothing_to_report(self):
        self.run_tool("mkcard", "card", "--files", "40", "--dirs", "3", "--companions", "--camera",
                      "--movies")
        found = self.json("check", "card", "--json", expect=None)["findings"]
        self.assertEqual([one for one in found if one["kind"] != "protection"], [])
        self.assertEqual(self.lines("count", "card"), ["45"])

    def test_everything_goes(self):
        self.make_pictures("100PHOTO", 1, 2)
        self.make_pictures("101PHOTO", 1)
        self.run_tool("rm", "card", "--all", "--yes", expect=DONE)
        self.assertEqual(self.names(), [])
        self.assertEqual(self.lines("count", "card"), ["0"])


if __name__ == "__main__":
    unittest.main()
