#!/usr/bin/env python3
"""A card that loses what it was given, or cannot be read to the end, without a word to the list.

FLM_FAILING_CARD names the library that plays such a card (failing_card.cpp).
"""
import os
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import UNREADABLE, ToolTest

LIBRARY = os.environ.get("FLM_FAILING_CARD")
ORDER = "MISC/AUTPRINT.MRK"


@unittest.skipUnless(LIBRARY, "the sanitizers must be loaded first, so no library can be before them")
class FailingCardTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", *range(1, 101))
        self.run_tool("print", "set", "card", "2", "--all")
        self.order_file = self.root / ORDER
        self.before = self.order_file.read_bytes()
        self.assertGreater(len(self.before), 8192)

    def on_card_that(self, name, value):
        return {"env": dict(self.env, LD_PRELOAD=LIBRARY, **{name: value})}

    def test_a_block_that_was_dropped_is_found_by_reading_the_order_back(self):
        for block in (2, 50, 101):  # of jobs; the first one is the header
            message = self.complaint("print", "set", "card", "1", "--all",
                                     **self.on_card_that("FLM_DROP_BLOCK", str(block)))
            self.assertEqual(message, "the new print order is cut: "
                             f"card/DCIM/100PHOTO/QVX_{block - 1:04d}.JPG lacks its marks")
            self.assertEqual(self.order_file.read_bytes(), self.before)
            self.assertEqual(os.listdir(self.root / "MISC"), ["AUTPRINT.MRK"])
        self.run_tool("print", "set", "card", "1", "--all",
                      **self.on_card_that("FLM_DROP_BLOCK", "1000"))

    def test_an_order_that_cannot_be_read_to_its_end_is_not_written_again(self):
        for command in (["print", "set", "card", "1", "0"], ["print", "show", "card"],
                        ["print", "clear", "card"], ["rm", "card", "0"],
                        ["rm", "card", "--all", "--yes"]):
            self.assertEqual(self.complaint(*command, expect=UNREADABLE,
                                            **self.on_card_that("FLM_FAIL_READ", "1")),
                             "cannot read card/MISC/AUTPRINT.MRK: Input/output error")
        self.assertEqual(self.order_file.read_bytes(), self.before)
        self.assertEqual(self.lines("count", "card"), ["100"])

    def test_an_order_that_cannot_be_read_to_its_end_is_reported(self):
        findings = self.json("check", "card", "--json", expect=1,
                             **self.on_card_that("FLM_FAIL_READ", "1"))["findings"]
        self.assertEqual([(one["kind"], one["reason"]) for one in findings],
                         [("print-order", "cannot be read: Input/output error")])


if __name__ == "__main__":
    unittest.main()
