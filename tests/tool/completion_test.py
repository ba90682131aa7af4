#!/usr/bin/env python3
"""The completions of bash, zsh and fish know every command and option, and complete."""
import os
import pathlib
import pty
import re
import select
import shutil
import subprocess
import sys
import time
import unittest

sys.dont_write_bytecode = True  # Keeps the source tree clean.
from toolcase import BINARY, ToolTest

FOLDER = pathlib.Path(__file__).resolve().parents[2] / "tools/completion"


def names_in_help(test, *words):
    """Commands and options of the tool and of each command, by the words of the command."""
    text = test.run_tool(*words, "--help").stdout.decode()
    options = [name for entry in re.findall(r"^  (-\S+)", text, re.MULTILINE)
               for name in re.sub(r"\{[^}]*\}", "", entry).split(",")]
    _, _, below = text.partition("\nSubcommands:\n")
    commands = re.findall(r"^  ([a-z][a-z-]*)", below.partition("\n\n")[0], re.MULTILINE)
    names = {" ".join(words): (commands, options)}
    for command in commands:
        names.update(names_in_help(test, *words, command))
    return names


# Pages, beeps and questions would only be in the way.
BASH_START = f"""bind 'set page-completions off' 'set show-all-if-ambiguous on' \
  'set completion-query-items 0' 'set bell-style none' 'set enable-bracketed-paste off'
source '{FOLDER}/flm.bash'
"""
ZSH_START = f"""setopt no_beep no_prompt_sp no_prompt_cr; unset zle_bracketed_paste
fpath=('{FOLDER}' $fpath); autoload -Uz compinit; compinit -D -u
"""


class ShellTerminal:
    """An interactive shell that has read the completion."""

    def __init__(self, test, shell, start):
        bin_folder = test.outside / "bin"
        bin_folder.mkdir()
        (bin_folder / "flm").symlink_to(BINARY)
        env = dict(test.env, TERM="dumb", PS1="$ ", HISTFILE="/dev/null", HOME=str(test.outside),
                   PATH=f"{bin_folder}:{os.environ['PATH']}")
        self.ours, theirs = pty.openpty()
        self.process = subprocess.Popen(shell, stdin=theirs, stdout=theirs, stderr=theirs,
                                        cwd=test.outside, env=env, start_new_session=True)
        os.close(theirs)
        self.pending = ""
        self.send(start + "PS1='@'; echo rea''dy\n")
        self.read_until("ready")
        self.read_until("@")

    def send(self, text):
        os.write(self.ours, text.encode())

    def read_until(self, end):
        limit = time.monotonic() + 20
        while end not in self.pending:
            ready, _, _ = select.select([self.ours], [], [], max(0, limit - time.monotonic()))
            if not ready:
                raise AssertionError(f"no {end!r} in {self.pending!r}")
            self.pending += os.read(self.ours, 65536).decode()
        shown, self.pending = self.pending.split(end, 1)
        return shown

    def complete(self, line):
        """The words of the line after the completion key, as the shell passes them on."""
        self.send(f"{line}\t")
        self.send("\x01printf '<%s>' \x05; echo '' do''ne\n")  # In front of the line and behind it.
        shown = self.read_until(" done")
        self.read_until("@")
        return re.findall(r"<([^<>]*)>", re.search(r"(?:<[^<>]*>)+\Z", shown).group(0))

    def offers(self, line):
        """What is offered when several words fit; the line is given up then."""
        self.send(f"{line}\t\x15echo do''ne\n")
        offered = self.read_until("@").replace("\r", "").split("\n", 1)[-1].split()
        self.read_until("done")
        self.read_until("@")
        return offered

    def close(self):
        self.process.kill()
        self.process.wait()
        os.close(self.ours)


class CompletionTest(ToolTest):
    def test_the_files_are_what_the_help_says(self):
        done = subprocess.run([sys.executable, FOLDER / "generate", BINARY, "--check"],
                              stderr=subprocess.PIPE, check=False, text=True)
        self.assertEqual(done.returncode, 0, "run tools/completion/generate: " + done.stderr)

    def test_every_command_and_option_is_in_every_completion(self):
        texts = {name: (FOLDER / name).read_text() for name in ("flm.bash", "_flm", "flm.fish")}
        names = names_in_help(self)
        self.assertGreater(len(names), 20)
        for command, (commands, options) in names.items():
            lines = re.findall(rf"^    '{command}'\) echo (.*) ;;$", texts["flm.bash"], re.MULTILINE)
            known = " ".join(lines).split()
            self.assertLessEqual({*commands, *options}, set(known), command)
            self.assertGreater(len(options), 1)
            quoted = command.replace("'", "\\'")
            fish = "\n".join(line for line in texts["flm.fish"].splitlines()
                             if f"'__flm_is \\'{quoted}\\''" in line or " -n " not in line)
            for word in commands:
                self.assertIn(f" -a {word} ", fish)
                self.assertRegex(texts["_flm"], rf"'{word}:")
                self.assertRegex(texts["_flm"], rf"(?m)^ +{word}\)$")
            for option in options:
                flag = f" -l {option[2:]}" if option.startswith("--") else f" -s {option[1:]}"
                self.assertIn(flag, fish)
                self.assertIn(option, texts["_flm"])

    def test_every_shell_can_read_its_file(self):
        for shell, name in (("bash", "flm.bash"), ("zsh", "_flm"), ("fish", "flm.fish")):
            with self.subTest(shell=shell):
                if shutil.which(shell) is None:
                    self.skipTest(f"{shell} is not installed")
                done = subprocess.run([shell, "-n", FOLDER / name], stderr=subprocess.PIPE, check=False)
                self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_fish_completes(self):
        if shutil.which("fish") is None:
            self.skipTest("fish is not installed")
        self.make_pictures("100PHOTO", 1, 2)
        (self.outside / "bin").mkdir()
        (self.outside / "bin/flm").symlink_to(BINARY)
        env = dict(self.env, HOME=str(self.outside), PATH=f"{self.outside}/bin:{os.environ['PATH']}")

        def words(line):
            done = subprocess.run(["fish", "--no-config", "-c",
                                   f"source {FOLDER}/flm.fish; complete -C '{line}'"],
                                  stdout=subprocess.PIPE, env=env, cwd=self.outside, check=True, text=True)
            return [found.split("\t")[0] for found in done.stdout.splitlines()]

        self.assertEqual(words("flm cou"), ["count"])
        self.assertEqual(words("flm print s"), ["save", "set", "show", "size"])
        self.assertEqual(words("flm ls card --json"), ["--json", "--jsonl"])
        self.assertEqual(words("flm --progress js"), ["json"])
        self.assertIn("card/", words("flm count "))
        self.assertEqual(words("flm new card "), "3gp jpg mp3 mp4 mpo srw wav".split())
        self.assertIn("card/DCIM/100PHOTO/QVX_0002.JPG", words("flm info card "))

    def test_zsh_completes(self):
        if shutil.which("zsh") is None:
            self.skipTest("zsh is not installed")
        self.make_pictures("100PHOTO", 1)
        terminal = ShellTerminal(self, ["zsh", "-f", "-i"], ZSH_START)
        self.addCleanup(terminal.close)
        for line, words in (
                ("flm cou", "flm count"), ("flm print sh", "flm print show"),
                ("flm rm card --unpro", "flm rm card --unprotected"), ("flm new card 3", "flm new card 3gp"),
                ("flm print index card of", "flm print index card off"),
                ("flm ls --type mp4 --sin", "flm ls --type mp4 --since"),
                ("flm info card card/", "flm info card card/DCIM/100PHOTO/QVX_0001.JPG")):
            self.assertEqual(terminal.complete(line), words.split(), line)


class BashTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.make_pictures("100PHOTO", 1)
        self.make_file("DCIM/CAMERA/party at the lake.jpg")
        self.bash = ShellTerminal(self, ["bash", "--noprofile", "--norc", "-i"], BASH_START)
        self.addCleanup(self.bash.close)

    def test_words_are_completed(self):
        for line, words in (
                ("flm cou", "flm count"), ("flm print sh", "flm print show"), ("flm ls --jsonl", "flm ls --jsonl"),
                ("flm ls card --uns", "flm ls card --uns"), ("flm rm card --unpro", "flm rm card --unprotected"),
                ("flm --progress js", "flm --progress json"), ("flm --progress=nev", "flm --progress=never"),
                ("flm count ca", "flm count card/"), ("flm --read-only info car", "flm --read-only info card/"),
                ("flm new card 3", "flm new card 3gp"), ("flm print index card of", "flm print index card off"),
                ("flm --color always ls --type mp4 --sin", "flm --color always ls --type mp4 --since"),
                ("flm ls --read", "flm ls --read-only"), ("flm ser", "flm series"),
                ("flm info card card/DCIM/100", "flm info card card/DCIM/100PHOTO/QVX_0001.JPG")):
            self.assertEqual(self.bash.complete(line), words.split(), line)
        self.assertEqual(self.bash.complete("flm info card card/DCIM/CAM"),
                         ["flm", "info", "card", "card/DCIM/CAMERA/party at the lake.jpg"])

    def test_several_words_are_offered(self):
        self.assertEqual(self.bash.offers("flm print "),
                         sorted("show set size index clear save load".split()))
        self.assertIn("import", self.bash.offers("flm "))
        self.assertLessEqual({"--since", "--tsv", "-0", "--read-only"}, set(self.bash.offers("flm ls -")))


if __name__ == "__main__":
    unittest.main()
