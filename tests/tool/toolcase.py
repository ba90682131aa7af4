#!/usr/bin/env python3
"""What the tool's tests share: a card in a temporary folder, and running the built program.

FLM_BINARY names the program. Every test has a preference store of its own and a fixed time zone.
"""
import fcntl
import json
import os
import pathlib
import pty
import re
import shutil
import struct
import subprocess
import tempfile
import termios
import unittest

BINARY = os.path.abspath(os.environ.get("FLM_BINARY", "build/flm"))

DONE = 0
FAILED = 1
USAGE = 2
NOTHING = 3
UNREADABLE = 4
INTERRUPTED = 130


def unescape(text):
    """The bytes of a name as the tool writes it."""
    def byte(match):
        found = match.group(0)
        return b"\\" if found == b"\\\\" else bytes([int(found[2:], 16)])
    return re.sub(rb"\\\\|\\x[0-9A-F]{2}", byte, text.encode())


def all_from(terminal):
    """What comes from our side of a terminal until the other side is closed; then ours is, too."""
    shown = b""
    try:
        while data := os.read(terminal, 65536):
            shown += data
    except OSError:
        pass
    os.close(terminal)
    return shown


class ToolTest(unittest.TestCase):
    """A test with an empty card folder at self.root."""

    def setUp(self):
        self.outside = pathlib.Path(tempfile.mkdtemp(prefix="flmtool"))
        self.addCleanup(self.remove_everything)
        self.root = self.outside / "card"
        self.root.mkdir()
        self.env = dict(os.environ, TZ="UTC-1", FLM_PREFERENCE_FILE=str(self.outside / "preferences"))

    def remove_everything(self):
        for folder, names, _ in os.walk(self.outside):
            for name in names:
                os.chmod(os.path.join(folder, name), 0o755)
        shutil.rmtree(self.outside)

    def run_tool(self, *arguments, expect=DONE, **options):
        """Runs the tool and checks its status unless None is expected; the finished process."""
        options.setdefault("stdin", subprocess.DEVNULL)
        options.setdefault("env", self.env)
        options.setdefault("cwd", self.outside)
        binary = options.pop("binary", BINARY)
        done = subprocess.run([binary, *map(os.fsencode, arguments)], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=60, check=False, **options)
        if expect is not None:
            self.assertEqual(done.returncode, expect, (arguments, done.stdout, done.stderr))
        return done

    def shown(self, columns, *arguments, expect=DONE, **variables):
        """What the tool shows on a terminal of so many columns; standard error is no part of it."""
        ours, theirs = pty.openpty()
        fcntl.ioctl(theirs, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
        env = dict(self.env, TERM="xterm")
        env.pop("NO_COLOR", None)
        env.update(variables)
        process = subprocess.Popen([BINARY, *map(os.fsencode, arguments)], stdin=subprocess.DEVNULL,
                                   stdout=theirs, stderr=subprocess.PIPE, cwd=self.outside, env=env)
        os.close(theirs)
        shown = all_from(ours)
        complaint = process.communicate(timeout=60)[1]
        self.assertEqual(process.returncode, expect, (arguments, shown, complaint))
        return shown.decode().replace("\r\n", "\n")

    def as_nobody(self):
        """Options for running the tool as a user whom permissions bind."""
        if os.geteuid() != 0:
            return {}
        copy = self.outside / "flm"
        shutil.copy(BINARY, copy)
        os.chmod(self.outside, 0o755)
        return {"binary": str(copy), "user": 65534, "group": 65534, "extra_groups": []}

    def lines(self, *arguments, **options):
        return self.run_tool(*arguments, **options).stdout.decode().splitlines()

    def json(self, *arguments, **options):
        return json.loads(self.run_tool(*arguments, **options).stdout)

    def complaint(self, *arguments, expect=FAILED, **options):
        """Runs a command that fails, which must say so in one line; the line without the name."""
        done = self.run_tool(*arguments, expect=expect, **options)
        text = done.stderr.decode()
        self.assertRegex(text, r"\Aflm: [^\n]+\n\Z")
        return text[len("flm: "):-1]

    def hold_many_files(self):
        """Puts the empty card into memory, where thousands of files are made and removed quickly."""
        if not os.access("/dev/shm", os.W_OK):
            return
        memory = tempfile.mkdtemp(prefix="flmtool", dir="/dev/shm")
        self.addCleanup(shutil.rmtree, memory)
        self.root.rmdir()
        self.root.symlink_to(memory)

    def make_folder(self, path):
        (self.root / path).mkdir(parents=True, exist_ok=True)

    def make_file(self, path, content=b"x", mtime=None):
        full = os.path.join(os.fsencode(self.root), os.fsencode(path))
        os.makedirs(os.path.dirname(full), exist_ok=True)
        with open(full, "wb") as file:
            file.write(content)
        if mtime is not None:
            os.utime(full, (mtime, mtime))

    def make_pictures(self, folder, *numbers):
        for number in numbers:
            self.make_file(f"DCIM/{folder}/QVX_{number:04d}.JPG")

    def tree(self):
        """Everything on the card, relative to it."""
        return sorted(str(path.relative_to(self.root)) for path in self.root.rglob("*"))

    def snapshot(self):
        """Names, kinds, modes, sizes and times of everything on the card."""
        paths = [self.root, *sorted(self.root.rglob("*"))]
        status = [(str(path), path.lstat()) for path in paths]
        return [(name, s.st_mode, s.st_size, s.st_mtime_ns) for name, s in status]
