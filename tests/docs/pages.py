#!/usr/bin/env python3
"""Reads a page of the documentation: its fenced blocks, headings and links.

What stands behind the language of a block says what becomes of it (see docs_test.py).
"""
import dataclasses
import re

FENCE = re.compile(r"^(```+)(.*)$")
HEADING = re.compile(r"^#{1,6} (.*)$")
LINK = re.compile(r"(?<!\\)\[[^\]\n]*\]\(([^)\s]+)\)")

RUN = ("cpp", "sh", "cmake")
SHOWN = ("text", "json")


class PageError(Exception):
    """A page that cannot be read as it should."""


@dataclasses.dataclass
class Block:
    """A fenced block: where it stands, its language, the rest of its first line, and its text."""
    line: int
    language: str
    remark: str
    text: str
    section: int

    def value(self, key):
        """What follows `key:` in the remark, None when the remark is another one."""
        if self.remark.split(" ")[0] != f"{key}:":
            return None
        return self.remark[len(key) + 1:].strip()


@dataclasses.dataclass
class Page:
    """What is checked of a page."""
    blocks: list
    anchors: set
    links: list  # line and target


def anchor_of(heading, taken):
    """The anchor that a heading gets, as the common viewers of such pages form it."""
    plain = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "")
    base = re.sub(r"[^\w\- ]", "", plain.strip().lower()).replace(" ", "-")
    anchor, number = base, 0
    while anchor in taken:
        number += 1
        anchor = f"{base}-{number}"
    return anchor


def make_block(line, info, lines, section):
    language, _, remark = info.strip().partition(" ")
    if language not in RUN + SHOWN:
        known = ", ".join(RUN + SHOWN)
        raise PageError(f"line {line}: a block of language {language!r}; known are {known}")
    return Block(line, language, remark.strip(), "".join(f"{text}\n" for text in lines), section)


def read_page(text):
    """The page of a text."""
    page = Page([], set(), [])
    inside, start, info, fence, section = None, 0, "", "", 0
    for number, line in enumerate(text.splitlines(), 1):
        found = FENCE.match(line)
        if inside is not None:
            if found and found[1] == fence and not found[2].strip():
                page.blocks.append(make_block(start, info, inside, section))
                inside = None
            else:
                inside.append(line)
        elif found:
            inside, start, fence, info = [], number, found[1], found[2]
        else:
            heading = HEADING.match(line)
            if heading:
                section += 1
                page.anchors.add(anchor_of(heading[1], page.anchors))
            if not line.startswith("    "):
                bare = re.sub(r"`[^`]*`", "", line)
                page.links += [(number, target) for target in LINK.findall(bare)]
    if inside is not None:
        raise PageError(f"line {start}: a block without an end")
    return page


def expected_output(page, block):
    """The text block that shows what a block prints: the next one, in the same section."""
    later = [other for other in page.blocks if other.line > block.line]
    if not later or later[0].language != "text" or later[0].section != block.section:
        return None
    return None if later[0].remark == "shown" else later[0].text


def same_output(expected, actual):
    """Whether the lines are equal; a line "..." stands for any lines, also none."""
    pattern = ""
    for line in expected.splitlines():
        pattern += r"(?:[^\n]*\n)*?" if line.strip() == "..." else re.escape(line.rstrip()) + r"[ \t]*\n"
    text = actual if actual.endswith("\n") or not actual else actual + "\n"
    return re.fullmatch(pattern, text) is not None
