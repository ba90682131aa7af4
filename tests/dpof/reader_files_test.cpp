// Which files a reader opens, how it goes over the ends of its blocks, and how it ends on a file
// that cannot be read to its end.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <vector>

#include "dpof/CQFileReader.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;
using Texts = std::vector<std::string>;

constexpr int kBlock = 8192;

// Every line of a file, each result that is not 0 as a text of its own.
Texts LinesOf(CQFileReader& reader, int size = 20000) {
  Texts texts;
  std::vector<char> line(static_cast<size_t>(size));
  for (int i = 0; i < 1000; ++i) {
    const int result = reader.GetLine(line.data(), size, '\n');
    texts.push_back(std::string(line.data(), strnlen(line.data(), line.size())));
    if (result == 0) continue;
    texts.push_back(std::to_string(result));
    if (result != -101) break;
  }
  return texts;
}

Texts LinesIn(const std::string& content) {
  Card card;
  card.WriteFile("f", content);
  CQFileReader reader(Arg(card.Path("f")));
  return LinesOf(reader);
}

void ExpectUnusable(CQFileReader& reader, const std::string& what) {
  char line[8] = "as was";
  EXPECT_FALSE(reader.FlagCreate()) << what;
  EXPECT_EQ(-1, reader.GetLine(line, sizeof(line), '\n')) << what;
  EXPECT_EQ(-1, reader.GetLine(line, sizeof(line), '\n')) << what;
  EXPECT_STREQ("as was", line) << what;
}

TEST(ReaderFile, OfNothingIsNotUsable) {
  CQFileReader reader;
  EXPECT_EQ(0, reader.GetStatus());
  ExpectUnusable(reader, "no file");
}

TEST(ReaderFile, ThatIsOpenIsUsable) {
  Card card;
  card.MakeFile("f", "A\n");
  CQFileReader reader(Arg(card.Path("f")));
  EXPECT_TRUE(reader.FlagCreate());
  EXPECT_EQ(0, reader.GetStatus());
}

TEST(ReaderFile, ThatCannotBeOpenedIsNotUsable) {
  Card card;
  card.MakeDir("folder");
  ASSERT_EQ(0, mkfifo(card.Path("pipe").c_str(), 0666));
  for (const char* name : {"missing", "folder", "pipe", "missing/f"}) {
    CQFileReader reader(Arg(card.Path(name)));
    EXPECT_EQ(-100, reader.GetStatus()) << name;
    ExpectUnusable(reader, name);
  }
}

TEST(ReaderFile, WithoutAPathIsNotUsable) {
  CQFileReader none(static_cast<char*>(nullptr));
  EXPECT_EQ(-100, none.GetStatus());
  ExpectUnusable(none, "null");
  CQFileReader empty(Arg(""));
  EXPECT_EQ(-100, empty.GetStatus());
  ExpectUnusable(empty, "empty");
}

TEST(ReaderFile, WhoseSizeIsUnknownIsNotUsable) {
  Card card;
  card.MakeFile("f", "A\n");
  flm::Os().Fstat = [](int, struct stat*) { return -1; };
  flm::Os().Stat = [](const char*, struct stat*) { return -1; };
  CQFileReader reader(Arg(card.Path("f")));
  flm::ResetOsCalls();
  ExpectUnusable(reader, "size unknown");
}

TEST(ReaderFile, ThatIsALinkIsItsTarget) {
  Card card;
  card.MakeFile("f", "A\nB\n");
  ASSERT_EQ(0, symlink("f", card.Path("link").c_str()));
  CQFileReader reader(Arg(card.Path("link")));
  EXPECT_EQ((Texts{"A\n", "B\n", "", "-102"}), LinesOf(reader));
}

TEST(ReaderFile, IsClosedWithTheReader) {
  Card card;
  card.MakeFile("f", "A\n");
  card.MakeDir("folder");
  const int before = flm_test::FdCount();
  {
    const CQFileReader reader(Arg(card.Path("f")));
    EXPECT_EQ(before + 1, flm_test::FdCount());
    const CQFileReader folder(Arg(card.Path("folder")));
    const CQFileReader missing(Arg(card.Path("missing")));
  }
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST(ReaderFile, IsLeftAsItIs) {
  Card card;
  card.MakeFile("f", "A\nB");
  CQFileReader reader(Arg(card.Path("f")));
  LinesOf(reader);
  EXPECT_EQ("A\nB", card.ReadFile("f"));
}

// Contents whose length lies around the end of the first block.
class BlockEnd : public testing::TestWithParam<int> {};

TEST_P(BlockEnd, MayLieAnywhereInALine) {
  const std::string first(static_cast<size_t>(kBlock + GetParam()), 'a');
  EXPECT_EQ((Texts{first + "\n", "second\n", "", "-102"}), LinesIn(first + "\nsecond\n"));
}

TEST_P(BlockEnd, MayLieAtTheEndOfTheFile) {
  const std::string text(static_cast<size_t>(kBlock + GetParam()), 'a');
  EXPECT_EQ((Texts{text, "-102"}), LinesIn(text));
  EXPECT_EQ((Texts{text + "\n", "", "-102"}), LinesIn(text + "\n"));
}

TEST_P(BlockEnd, MayBeFollowedByANulByte) {
  std::string text(static_cast<size_t>(2 * kBlock), 'a');
  text[static_cast<size_t>(kBlock + GetParam())] = '\0';
  Card card;
  card.WriteFile("f", text + "\n");
  CQFileReader reader(Arg(card.Path("f")));
  std::vector<char> line(20000);
  EXPECT_EQ(0, reader.GetLine(line.data(), 20000, '\n'));
  EXPECT_EQ(text + "\n", std::string(line.data(), text.size() + 1));
}

INSTANTIATE_TEST_SUITE_P(Around, BlockEnd, testing::Values(-2, -1, 0, 1, 2));

TEST(ReaderFile, OfSeveralBlocksIsReadWhole) {
  std::string content;
  Texts expected;
  for (int i = 0; i < 800; ++i) {
    expected.push_back("line " + std::to_string(i) + std::string(static_cast<size_t>(i % 97), '.') +
                       "\n");
    content += expected.back();
  }
  ASSERT_LT(4U * kBlock, content.size());
  expected.push_back("");
  expected.push_back("-102");
  EXPECT_EQ(expected, LinesIn(content));
}

TEST(ReaderFile, WithOneLineOverThreeBlocksIsReadIntoThatLine) {
  const std::string text(2 * kBlock + 100, 'a');
  EXPECT_EQ((Texts{text + "\n", "", "-102"}), LinesIn(text + "\n"));
}

TEST(ReaderFile, ALongLineIsCutAtTheEndOfABlockLikeAnywhere) {
  Card card;
  card.WriteFile("f", std::string(kBlock, 'a') + "b\nc\n");
  CQFileReader reader(Arg(card.Path("f")));
  EXPECT_EQ((Texts{std::string(kBlock, 'a'), "-101", "b\n", "c\n", "", "-102"}),
            LinesOf(reader, kBlock));
}

TEST(ReaderFile, ReadInSmallPiecesIsReadWhole) {
  Card card;
  card.MakeFile("f", "first\nsecond\nthird");
  flm::Os().Read = [](int descriptor, void* buffer, size_t) { return read(descriptor, buffer, 3); };
  CQFileReader reader(Arg(card.Path("f")));
  const Texts lines = LinesOf(reader);
  flm::ResetOsCalls();
  EXPECT_EQ((Texts{"first\n", "second\n", "third", "-102"}), lines);
}

TEST(ReaderFile, ThatCannotBeReadIsAtItsEnd) {
  Card card;
  card.MakeFile("f", "first\nsecond\n");
  flm::Os().Read = [](int, void*, size_t) -> ssize_t { return -1; };
  CQFileReader reader(Arg(card.Path("f")));
  const Texts lines = LinesOf(reader);
  flm::ResetOsCalls();
  EXPECT_EQ((Texts{"", "-102"}), lines);
}

TEST(ReaderFile, ThatBecameShorterEndsWhereItEnds) {
  Card card;
  card.WriteFile("f", std::string(3 * kBlock, 'a'));
  CQFileReader reader(Arg(card.Path("f")));
  ASSERT_EQ(0, truncate(card.Path("f").c_str(), kBlock + 5));
  EXPECT_EQ((Texts{std::string(kBlock + 5, 'a'), "-102"}), LinesOf(reader));
}

TEST(ReaderFile, AsksForOneBlockAtATime) {
  static std::vector<size_t> asked;
  asked.clear();
  Card card;
  card.WriteFile("f", std::string(kBlock + 1, 'a'));
  flm::Os().Read = [](int descriptor, void* buffer, size_t size) {
    asked.push_back(size);
    return read(descriptor, buffer, size);
  };
  CQFileReader reader(Arg(card.Path("f")));
  EXPECT_TRUE(asked.empty());
  LinesOf(reader);
  flm::ResetOsCalls();
  EXPECT_EQ((std::vector<size_t>{kBlock, kBlock}), asked);
}

TEST(ReaderBuffer, IsFilledWithOneValue) {
  CQFileReader reader;
  char buffer[6] = "~~~~~";
  reader.BufferMemSet(buffer, 'q', 3);
  EXPECT_STREQ("qqq~~", buffer);
  reader.BufferMemSet(buffer, 0x141, 2);
  EXPECT_STREQ("AAq~~", buffer);
  reader.BufferMemSet(buffer, 0, 1);
  EXPECT_STREQ("", buffer);
  EXPECT_EQ('A', buffer[1]);
}

TEST(ReaderBuffer, OfNoLengthOrNowhereIsNotFilled) {
  CQFileReader reader;
  char byte = '~';
  reader.BufferMemSet(&byte, 'x', 0);
  reader.BufferMemSet(&byte, 'x', -1);
  reader.BufferMemSet(nullptr, 'x', 5);
  EXPECT_EQ('~', byte);
}

}  // namespace
