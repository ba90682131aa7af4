#!/usr/bin/env python3
"""One content in every format: table, lines, JSON, tabs, NULs; terminals of all kinds; filters."""
import json
import os
import re
import sys
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import DONE, NOTHING, USAGE, ToolTest, unescape

COLOR = re.compile(r"\x1b\[[0-9;]*m")
DAY = 1700000000  # 2023-11-14 23:13:20 in the zone of the tests


def make_two_files(test):
    """A picture with companions and a print order, and a protected movie."""
    test.make_file("DCIM/100PHOTO/QVX_0001.JPG", b"12345", mtime=DAY)
    test.make_file("DCIM/100PHOTO/QVX_0001.SRW")
    test.make_file("DCIM/100PHOTO/QVX_0001.WAV")
    test.make_file("DCIM/100PHOTO/QVX_0002.MP4", b"x" * 2048, mtime=DAY + 60)
    os.chmod(test.root / "DCIM/100PHOTO/QVX_0002.MP4", 0o444)
    test.run_tool("print", "set", "card", "2", "0")


class FormatTest(ToolTest):
    def setUp(self):
        super().setUp()
        make_two_files(self)

    def tsv(self, *arguments, **options):
        head, *rows = [line.split("\t") for line in self.lines(*arguments, **options)]
        return [dict(zip(head, row, strict=True)) for row in rows]

    def test_json_lines_and_tabs_say_the_same(self):
        files = self.json("ls", "--json", "card")
        self.assertEqual([json.loads(line) for line in self.lines("ls", "--jsonl", "card")], files)
        rows = self.tsv("ls", "--tsv", "card")
        self.assertEqual(list(rows[0]), list(files[0]))
        for row, file in zip(rows, files, strict=True):
            for name, value in file.items():
                expected = "/".join(value) if isinstance(value, list) else (
                    value if isinstance(value, str) else json.dumps(value))
                self.assertEqual(row[name], expected, name)
        self.assertEqual(rows[0]["companions"], "QVX_0001.SRW/QVX_0001.WAV")

    def test_table_and_paths_say_the_same(self):
        files = self.json("ls", "--json", "card")
        table = [line.split()[:3] for line in self.lines("ls", "--long", "card")[1:]]
        self.assertEqual(table, [[str(f["index"]), f["path"], str(f["size"])] for f in files])
        paths = [file["path"] for file in files]
        self.assertEqual(self.lines("ls", "--paths", "card"), paths)
        self.assertEqual(self.run_tool("ls", "-0", "card").stdout.decode().split("\0"), paths + [""])
        self.assertEqual(self.run_tool("ls", "--null", "--paths", "card").stdout,
                         self.run_tool("ls", "-0", "card").stdout)

    def test_an_empty_list_is_whole_in_every_format(self):
        self.run_tool("rm", "card", "--all", "--yes", "--force")
        for form, text in (("--json", "[]\n"), ("--jsonl", ""), ("-0", ""), ("--paths", "")):
            self.assertEqual(self.run_tool("ls", form, "card").stdout.decode(), text)
        self.assertEqual(self.tsv("ls", "--tsv", "card"), [])

    def test_only_one_format_at_a_time(self):
        for pair in (("--json", "--jsonl"), ("--tsv", "--json"), ("--tsv", "--paths"), ("-0", "--jsonl"),
                     ("--long", "--tsv")):
            self.complaint("ls", "card", *pair, expect=USAGE)

    def test_every_name_can_be_had_back_from_every_format(self):
        raw = b"DCIM/CAMERA/tab\there \\x41 \xff\xc3 \xe2\x80\xae\n\x7f.jpg"
        self.make_file(raw)
        (self.root / "DCIM/100PHOTO").rename(self.outside / "away")
        texts = [self.lines("ls", "--paths", "card")[0], self.json("ls", "--json", "card")[0]["path"],
                 json.loads(self.lines("ls", "--jsonl", "card")[0])["path"],
                 self.tsv("ls", "--tsv", "card")[0]["path"],
                 self.lines("ls", "card")[1].strip().split("  ")[1]]
        for text in texts:
            self.assertEqual(unescape(text), b"card/" + raw)
        self.assertEqual(self.run_tool("ls", "-0", "card").stdout, b"card/" + raw + b"\0")

    def test_a_range_or_a_path_lists_a_part(self):
        for given in (("1",), ("1-1",), ("QVX_0002.MP4",), ("100PHOTO/QVX_0002.MP4", "1")):
            self.assertEqual(self.lines("ls", "--paths", "card", *given),
                             ["card/DCIM/100PHOTO/QVX_0002.MP4"])
        self.assertEqual([file["index"] for file in self.json("info", "card", "0-1", "--json")], [0, 1])
        self.assertEqual(self.json("info", "card", "1", "--json")["index"], 1)
        self.assertEqual(len(self.json("info", "card", "1", "0", "--json")), 2)
        self.assertEqual(self.lines("info", "card", "0-1").count(""), 1)


class TerminalTest(ToolTest):
    def setUp(self):
        super().setUp()
        make_two_files(self)

    def test_a_pipe_gets_no_colours_and_whole_lines(self):
        plain = self.run_tool("ls", "card", env=dict(self.env, TERM="xterm", COLUMNS="20")).stdout
        self.assertNotIn(b"\x1b", plain)
        self.assertIn(b"card/DCIM/100PHOTO/QVX_0001.JPG", plain)
        self.assertIn(b"\x1b[32m", self.run_tool("ls", "card", "--color", "always").stdout)

    def test_lines_are_as_wide_as_the_terminal_at_most(self):
        for columns, headings in ((120, "INDEX PATH SIZE TIME MARKS COMPANIONS"),
                                  (80, "INDEX PATH SIZE TIME MARKS COMPANIONS"),
                                  (60, "INDEX PATH SIZE MARKS"), (40, "INDEX PATH SIZE"),
                                  (20, "INDEX PATH")):
            lines = COLOR.sub("", self.shown(columns, "ls", "card")).splitlines()
            self.assertEqual(lines[0].split(), headings.split(), columns)
            self.assertEqual(len(lines), 3)
            for line in lines:
                self.assertLessEqual(len(line), columns)
                self.assertEqual(line, line.rstrip())
            path = "card/DCIM/100PHOTO/QVX_0001.JPG"
            shown = lines[1].split()[1]
            if columns == 120:
                self.assertEqual(shown, path)
            elif columns >= 40:
                self.assertTrue(path.endswith(shown.lstrip("…")) and len(shown) >= 23, shown)
        self.assertEqual(self.shown(120, "ls", "card", NO_COLOR="1"),
                         self.run_tool("ls", "card").stdout.decode())

    def test_the_long_table_drops_and_cuts_nothing(self):
        whole = self.run_tool("ls", "--long", "card").stdout.decode()
        self.assertIn("COMPANIONS", whole)
        for columns in (120, 80, 20):
            self.assertEqual(self.shown(columns, "ls", "--long", "card", NO_COLOR="1"), whole)

    def test_wide_characters_take_two_columns(self):
        self.make_file("DCIM/CAMERA/写真写真写真写真写真.jpg")
        lines = self.shown(70, "ls", "card", NO_COLOR="1").splitlines()
        self.assertTrue(any("写" in line for line in lines))
        for line in lines:
            wide = sum(1 for char in line if "⺀" <= char <= "鿿")
            self.assertLessEqual(len(line) + wide, 70)

    def test_type_and_protection_have_colours(self):
        picture, movie = self.shown(120, "ls", "card").splitlines()[1:]
        self.assertIn("\x1b[32mcard/DCIM/100PHOTO/QVX_0001.JPG\x1b[0m", picture)
        self.assertIn("\x1b[1;35mcard/DCIM/100PHOTO/QVX_0002.MP4\x1b[0m", movie)
        self.assertIn("\x1b[31mP\x1b[0m", movie)

    def test_colours_can_be_declined(self):
        plain = COLOR.sub("", self.shown(100, "ls", "card"))
        for variables in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"TERM": ""}):
            self.assertEqual(self.shown(100, "ls", "card", **variables), plain)
        self.assertEqual(self.shown(100, "--color", "never", "ls", "card"), plain)
        self.assertIn("\x1b", self.shown(100, "ls", "card", NO_COLOR=""))
        self.assertIn("\x1b", self.shown(100, "ls", "card", "--color=always", NO_COLOR="1"))

    def test_other_formats_are_the_same_on_a_terminal(self):
        for form in ("--json", "--jsonl", "--tsv", "--paths"):
            self.assertEqual(self.shown(30, "ls", form, "card"),
                             self.run_tool("ls", form, "card").stdout.decode())


class FilterTest(ToolTest):
    def setUp(self):
        super().setUp()
        for number, extension in ((1, "JPG"), (2, "MP4"), (3, "JPG"), (4, "MP3")):
            self.make_file(f"DCIM/100PHOTO/QVX_000{number}.{extension}", mtime=DAY + number * 60)
        self.make_file("DCIM/100PHOTO/QVX_0003.SRW")
        self.make_file("DCIM/CAMERA/holidays.gif.txt", mtime=DAY)
        for name in ("QVX_0001.JPG", "QVX_0002.MP4"):
            os.chmod(self.root / "DCIM/100PHOTO" / name, 0o444)

    def names(self, *filters):
        """The listed files' names, the same in every format, and counted right."""
        status = self.run_tool("count", "card", *filters, expect=None)
        names = [os.path.basename(path) for path in
                 self.lines("ls", "--paths", "card", *filters, expect=status.returncode)]
        for form in ("--json", "--jsonl", "--tsv", "-0", "--long"):
            self.run_tool("ls", form, "card", *filters, expect=DONE if names else NOTHING)
        found = self.json("ls", "--json", "card", *filters, expect=None)
        self.assertEqual([os.path.basename(file["path"]) for file in found], names)
        self.assertEqual(int(status.stdout), len(names))
        self.assertEqual(status.returncode, DONE if names else NOTHING)
        return " ".join(name.replace("QVX_000", "") for name in names)

    def test_files_are_chosen_by_every_filter(self):
        for filters, names in (
                (("--protected",), "1.JPG 2.MP4"), (("--unprotected", "--no-non-dcf"), "3.JPG 4.MP3"),
                (("--type", "jpg"), "1.JPG 3.JPG"), (("--type", "Mp4,MP3"), "2.MP4 4.MP3"),
                (("--type", "mp4", "--type", "txt"), "holidays.gif.txt 2.MP4"),
                (("--with-companion",), "3.JPG"), (("--protected", "--type=jpg"), "1.JPG"),
                (("--selected",), ""), (("--protected", "--with-companion"), ""),
                (("--since", "2023-11-14T23:16:20"), "3.JPG 4.MP3"),
                (("--since", "2023-11-14 23:17"), "4.MP3"),
                (("--since", "2023-11-14", "--type", "mp3"), "4.MP3"), (("--since", "2023-11-15"), "")):
            self.assertEqual(self.names(*filters), names, filters)

    def test_named_files_are_filtered(self):
        self.assertEqual(self.lines("ls", "--paths", "card", "0-2", "--type", "jpg"),
                         ["card/DCIM/100PHOTO/QVX_0001.JPG"])

    def test_what_is_no_date_or_type_is_wrong_usage(self):
        for since in ("yesterday", "2023-13-01", "2023-02-29", "2023-11-14T24:00", "2023-11-14T", "",
                      "2023-11-14T23:16:20Z", "23-1-1"):
            self.complaint("ls", "card", "--since", since, expect=USAGE)
        for kind in (".jpg", "a b", "a/b"):
            self.complaint("ls", "card", "--type", kind, expect=USAGE)
        self.complaint("ls", "card", "--protected", "--unprotected", expect=USAGE)
        self.assertEqual(self.complaint("ls", "card", "--since", "soon", expect=USAGE),
                         "--since: soon is no date such as 2024-03-05 or 2024-03-05T09:07 "
                         "(see flm --help)")

    def test_changing_commands_take_filters(self):
        self.run_tool("unprotect", "card", "--protected", "--type", "mp4")
        self.assertEqual(self.names("--protected"), "1.JPG")
        self.run_tool("protect", "card", "--type", "mp3")
        self.run_tool("print", "set", "card", "2", "--unprotected")
        order = self.json("print", "show", "card", "--json")["files"]
        self.assertEqual([os.path.basename(file["path"]) for file in order], ["QVX_0003.JPG"])
        self.assertEqual(self.complaint("rm", "card", "--unprotected", "--no-such", expect=USAGE)[:9],
                         "no option")
        self.run_tool("rm", "card", "--unprotected", "--yes")
        self.assertEqual(self.names(), "1.JPG 4.MP3")

    def test_a_filter_never_widens_what_all_means(self):
        self.run_tool("rm", "card", "--all", "--type", "mp4", "--force", "--yes")
        self.assertEqual(self.names(), "holidays.gif.txt 1.JPG 3.JPG 4.MP3")
        self.complaint("rm", "card", "--type", "jpg,mp3", expect=1)  # Several need a yes.
        self.assertEqual(self.names(), "holidays.gif.txt 1.JPG 3.JPG 4.MP3")

    def test_a_filter_that_leaves_nothing_changes_nothing(self):
        before = self.snapshot()
        for command in (("rm",), ("protect",), ("unprotect",), ("print", "set", "card", "1")):
            words = command if "card" in command else (*command, "card")
            self.assertEqual(self.complaint(*words, "--selected", "--yes" if command[0] != "print" else
                                            "--protected", expect=NOTHING), "no file matches")
        self.assertEqual([line for line in self.snapshot() if "MISC" not in line[0]][1:], before[1:])

    def test_only_the_locked_files_are_copied(self):
        target = self.outside / "locked"
        target.mkdir()
        listed = self.run_tool("ls", "card", "--protected", "-0").stdout
        for path in listed.split(b"\0")[:-1]:
            os.link(self.outside / os.fsdecode(path), target / os.path.basename(os.fsdecode(path)))
        self.assertEqual(sorted(os.listdir(target)), ["QVX_0001.JPG", "QVX_0002.MP4"])


if __name__ == "__main__":
    unittest.main()
