#!/usr/bin/env python3
"""Does what the documentation says: builds and runs every block of README.md and docs/*.md.

    FLM_BUILD=BUILD-FOLDER CXX=COMPILER docs_test.py

The build is installed into a temporary folder, and each page is worked through from top to bottom in
a folder of its own, where the tool, the compiler and the package are found as on a reader's machine,
and `card` is a sample card, with holiday.jpg beside it, unless the page makes one itself. A block is run by its language and by what follows it:

    sh                      run; its output must be that of the next `text` block, if there is one
    sh fails: STATUS        the same, ending with this exit status
    sh no-run: REASON       not run: it needs another machine, rights or much time
    cpp                     a whole program: built, run with the argument `card`, output compared
    cpp fragment            the inside of the function in fragment.cpp: likewise
    cpp static              a whole program, linked with the archive
    cpp file: NAME          written to that file, and must compile
    cmake file: NAME        written to that file
    cmake                   a project around the program viewer.cpp of the page: configured and built
    text, json              shown; `text shown` is not the output of the block in front

In an output a line "..." stands for any lines. Indented blocks are shown only.

The folder of the sources stands beside the card as `filelistmanagement`. /media/card is the card,
too. Links between the pages, and to files of the tree, must lead somewhere.
"""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import pages  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parent.parent
BUILD = os.environ.get("FLM_BUILD", "build/release")
COMPILER = os.environ.get("CXX", "c++")
TIMEOUT = 120

MOUNTED_CARD = "/media/card"
MAKES_CARD = "flm mkcard card"
FRAGMENT_MARK = "  // The fragment stands here.\n"
PROJECT_HEAD = """cmake_minimum_required(VERSION 3.16)
project(documentation LANGUAGES CXX)
add_executable(viewer ../viewer.cpp)
target_compile_features(viewer PRIVATE cxx_std_17)
"""

PAGES = [SOURCE / "README.md", *sorted((SOURCE / "docs").glob("*.md"))]


class BlockFailed(Exception):
    """A block that does not do what its page says."""


def run(command, cwd, env):
    """Status and output of a command, its complaints included."""
    done = subprocess.run(command, cwd=cwd, env=env, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, timeout=TIMEOUT, check=False)
    return done.returncode, done.stdout.decode(errors="backslashreplace")


class Reader:
    """Somebody who works through one page in a folder of their own."""

    def __init__(self, work, env, page):
        self.work = work
        self.env = dict(env, HOME=str(work), FLM_PREFERENCE_FILE=str(work / "preferences"))
        self.programs = 0
        if not any(MAKES_CARD in block.text for block in page.blocks):
            self.must(["flm", "mkcard", "card", "--files", "20", "--dirs", "2", "--companions"])
            (work / "holiday.jpg").write_bytes((work / "card/DCIM/100PHOTO/QVX_0001.JPG").read_bytes())
        (work / "filelistmanagement").symlink_to(SOURCE)

    def must(self, command):
        status, output = run(command, self.work, self.env)
        if status != 0:
            raise BlockFailed(f"{' '.join(map(str, command[:3]))} ... ended with {status}\n{output}")
        return output

    def follow(self, page, block):
        """Does what the block says."""
        if block.language == "sh":
            self.run_commands(page, block)
        elif block.value("file"):
            self.write_file(block)
        elif block.language == "cpp":
            self.run_program(page, block)
        elif block.language == "cmake":
            self.build_project(block)

    def run_commands(self, page, block):
        if block.value("no-run"):
            return
        expected_status = int(block.value("fails") or 0)
        commands = block.text.replace(MOUNTED_CARD, str(self.work / "card"))
        status, output = run(["bash", "-eu", "-o", "pipefail", "-c", commands], self.work, self.env)
        if status != expected_status:
            raise BlockFailed(f"ended with {status}\n{output}")
        self.compare(page, block, output.replace(str(self.work / "card"), MOUNTED_CARD))

    def write_file(self, block):
        name = self.work / block.value("file")
        name.parent.mkdir(parents=True, exist_ok=True)
        name.write_text(block.text, encoding="utf-8")
        if block.language == "cpp":
            self.compile(name, ["-fsyntax-only"])

    def compile(self, source, options):
        flags = self.must(["pkg-config", "--cflags", "filelistmanagement"]).split()
        self.must([COMPILER, "-std=c++17", "-Wall", "-Wextra", "-Werror", *flags, source, *options])

    def run_program(self, page, block):
        self.programs += 1
        source = self.work / f"program{self.programs}.cpp"
        text = block.text
        if block.remark == "fragment":
            text = (HERE / "fragment.cpp").read_text(encoding="utf-8").replace(FRAGMENT_MARK, text)
        source.write_text(text, encoding="utf-8")
        program = source.with_suffix("")
        libraries = self.must(["pkg-config", "--libs", "filelistmanagement"]).split()
        if block.remark == "static":
            folder = libraries[0].removeprefix("-L")
            libraries = [f"{folder}/libfilelistmanagement.a", "-pthread"]
        self.compile(source, ["-o", program, *libraries])
        self.compare(page, block, self.must([program, "card"]))

    def build_project(self, block):
        project = self.work / f"project{block.line}"
        project.mkdir()
        (project / "CMakeLists.txt").write_text(PROJECT_HEAD + block.text, encoding="utf-8")
        self.must(["cmake", "-S", project, "-B", project / "build"])
        self.must(["cmake", "--build", project / "build"])

    @staticmethod
    def compare(page, block, output):
        expected = pages.expected_output(page, block)
        if expected is not None and not pages.same_output(expected, output):
            raise BlockFailed(f"printed\n{output}--- instead of\n{expected}")


class Installation:
    """The build in a folder of its own, and the environment in which it is found."""

    def __init__(self, work):
        prefix = work / "installed"
        subprocess.run(["cmake", "--install", BUILD, "--prefix", prefix], check=True,
                       stdout=subprocess.DEVNULL)
        library = next(prefix.rglob("libfilelistmanagement.so")).parent
        self.env = {name: value for name, value in os.environ.items()
                    if name in ("PATH", "LANG") or name.startswith("CCACHE")}
        self.env.update(PATH=f"{prefix}/bin:{os.environ['PATH']}", LD_LIBRARY_PATH=str(library),
                        PKG_CONFIG_PATH=str(library / "pkgconfig"), CMAKE_PREFIX_PATH=str(prefix),
                        CXX=COMPILER, CXXFLAGS="-O0", TZ="UTC", CMAKE_BUILD_PARALLEL_LEVEL="2")
        if shutil.which("ninja"):
            self.env["CMAKE_GENERATOR"] = "Ninja"
        if shutil.which("ccache"):
            self.env["CMAKE_CXX_COMPILER_LAUNCHER"] = "ccache"
            self.env.setdefault("CCACHE_DIR", os.path.expanduser("~/.cache/ccache"))


class DocumentationTest(unittest.TestCase):
    """Every page, block by block."""

    @classmethod
    def setUpClass(cls):
        cls.work = pathlib.Path(tempfile.mkdtemp(prefix="flmdocs"))
        cls.addClassCleanup(shutil.rmtree, cls.work)
        cls.installed = Installation(cls.work)

    def work_through(self, path):
        page = pages.read_page(path.read_text(encoding="utf-8"))
        if not any(block.language in pages.RUN for block in page.blocks):
            return
        folder = self.work / name_of(path)
        folder.mkdir()
        reader = Reader(folder, self.installed.env, page)
        for block in page.blocks:
            try:
                reader.follow(page, block)
            except BlockFailed as failure:
                self.fail(f"{path.relative_to(SOURCE)}:{block.line}: {failure}")


def name_of(path):
    return "_".join(path.relative_to(SOURCE).with_suffix("").parts).replace("-", "_")


def add_page(path):
    def test(self):
        self.work_through(path)
    setattr(DocumentationTest, f"test_{name_of(path)}", test)


for each_page in PAGES:
    add_page(each_page)


class LinksTest(unittest.TestCase):
    """Links that stay in the tree."""

    def test_every_link_leads_somewhere(self):
        read = {path: pages.read_page(path.read_text(encoding="utf-8")) for path in PAGES}
        for path, page in read.items():
            for line, target in page.links:
                with self.subTest(page=path.name, line=line, target=target):
                    self.check(path, target, read)

    def check(self, path, target, read):
        if target.startswith(("http://", "https://")):
            return
        name, _, anchor = target.partition("#")
        there = (path.parent / name).resolve() if name else path
        self.assertTrue(there.exists(), f"{name} does not exist")
        if anchor:
            self.assertIn(there, read, f"{name} is no page")
            self.assertIn(anchor, read[there].anchors, f"{name} has no heading for #{anchor}")

    def test_every_page_is_in_the_list_of_pages(self):
        contents = pages.read_page((SOURCE / "docs" / "README.md").read_text(encoding="utf-8"))
        named = {target for _, target in contents.links}
        for path in PAGES:
            if path.parent.name == "docs" and path.name != "README.md":
                with self.subTest(page=path.name):
                    self.assertIn(path.name, named)


class ReadingTest(unittest.TestCase):
    """The judge itself."""

    def test_a_block_has_language_remark_and_text(self):
        block = pages.read_page("# A\n```sh no-run: needs root\nls\n```\n").blocks[0]
        self.assertEqual((block.language, block.text, block.line), ("sh", "ls\n", 2))
        self.assertEqual(block.value("no-run"), "needs root")
        self.assertIsNone(block.value("file"))

    def test_an_unknown_language_and_a_missing_end_are_refused(self):
        for text in ("```perl\n1\n```\n", "```\nls\n```\n", "```sh\nls\n"):
            with self.subTest(text=text), self.assertRaises(pages.PageError):
                pages.read_page(text)

    def test_output_is_the_next_text_of_the_section(self):
        page = pages.read_page("```sh\nls\n```\ngives\n```text\na\n```\n")
        self.assertEqual(pages.expected_output(page, page.blocks[0]), "a\n")
        for between in ("## B\n", "```sh\npwd\n```\n"):
            page = pages.read_page(f"```sh\nls\n```\n{between}```text\na\n```\n")
            self.assertIsNone(pages.expected_output(page, page.blocks[0]))

    def test_outputs_are_compared_line_by_line(self):
        self.assertTrue(pages.same_output("a\n...\nc\n", "a\nb\nb\nc\n"))
        self.assertTrue(pages.same_output("a\n...\n", "a\n"))
        for other in ("a\nb\n", "a\nc\nd\n", "", "c\na\n"):
            with self.subTest(other=other):
                self.assertFalse(pages.same_output("a\n...\nc\n", other))

    def test_headings_get_anchors(self):
        page = pages.read_page("# The `flm` tool, again\n## B\n## B\n```sh\n# no heading\n```\n")
        self.assertEqual(page.anchors, {"the-flm-tool-again", "b", "b-1"})

    def test_links_in_code_are_none(self):
        page = pages.read_page("[a](b.md) `[c](d)`\n    [e](f)\n```text\n[g](h)\n```\n")
        self.assertEqual(page.links, [(1, "b.md")])


class FollowingTest(unittest.TestCase):
    """A page that says something wrong is found out."""

    def follow(self, text):
        with tempfile.TemporaryDirectory() as work:
            folder = pathlib.Path(work)
            reader = Reader.__new__(Reader)
            reader.work, reader.env = folder, dict(os.environ)
            page = pages.read_page(text)
            reader.follow(page, page.blocks[0])

    def test_a_failing_command_fails(self):
        for text in ("```sh\nfalse\n```\n", "```sh fails: 2\nfalse\n```\n", "```sh fails: 1\ntrue\n```\n"):
            with self.subTest(text=text), self.assertRaises(BlockFailed):
                self.follow(text)
        self.follow("```sh fails: 1\nfalse\n```\n")
        self.follow("```sh no-run: would fail\nfalse\n```\n")

    def test_another_output_fails(self):
        with self.assertRaises(BlockFailed):
            self.follow("```sh\necho a\n```\n```text\nb\n```\n")
        self.follow("```sh\necho a\n```\n```text\na\n```\n")


if __name__ == "__main__":
    unittest.main()
