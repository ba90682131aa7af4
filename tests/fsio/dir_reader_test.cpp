// Reading a folder: which names come out, in which order, and what a reader answers when there is
// nothing to read.
#include <dirent.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>
#include <vector>

#include "fsio/PCQDCFFSIO.h"
#include "tests/fsio/scoped_os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;
using Names = std::vector<std::string>;

std::string NameOf(const PCQDCFFSIO::PTFile& entry) {
  return std::string(entry.name, strnlen(entry.name, sizeof(entry.name)));
}

Names Rest(PCQDCFFSIO& reader) {
  Names names;
  PCQDCFFSIO::PTFile entry = {};
  while (reader.Read(&entry) == 0) names.push_back(NameOf(entry));
  return names;
}

Names NamesIn(const Card& card, const std::string& folder, const char* pattern = "") {
  PCQDCFFSIO reader(Arg(card.Path(folder)), Arg(pattern));
  return Rest(reader);
}

TEST(DirReader, NamesOfTwelveCharactersComeInTheOrderOfTheirNumbers) {
  Card card;
  card.MakeFile("d/CAM_0010.JPG");
  card.MakeFile("d/QVX_0002.JPG");
  card.MakeFile("d/CAM_0002.MP4");
  EXPECT_EQ((Names{".", "..", "QVX_0002.JPG", "CAM_0002.MP4", "CAM_0010.JPG"}), NamesIn(card, "d"));
}

TEST(DirReader, EqualNumbersComeInTheOrderOfTheirExtensions) {
  Card card;
  card.MakeFile("d/AAAA0001.WAV");
  card.MakeFile("d/CCCC0001.JPG");
  card.MakeFile("d/BBBB0001.MP4");
  EXPECT_EQ((Names{".", "..", "CCCC0001.JPG", "BBBB0001.MP4", "AAAA0001.WAV"}), NamesIn(card, "d"));
}

TEST(DirReader, NamesOfAnotherLengthComeInByteOrder) {
  Card card;
  for (const char* name : {"b", "a", "B", "_", "z.txt", "aa", "\xc3\xa4"}) {
    card.MakeFile(std::string("d/") + name);
  }
  EXPECT_EQ((Names{".", "..", "B", "_", "a", "aa", "b", "z.txt", "\xc3\xa4"}), NamesIn(card, "d"));
}

TEST(DirReader, ATwelveCharacterNameIsComparedWholeWithAnyOtherLength) {
  Card card;
  card.MakeFile("d/ZZZZ0001.JPG");
  card.MakeFile("d/M");
  EXPECT_EQ((Names{".", "..", "M", "ZZZZ0001.JPG"}), NamesIn(card, "d"));
}

TEST(DirReader, NamesThatDifferInTheirFreeCharactersOnlyAreBothListed) {
  Card card;
  card.MakeFile("d/QVX_0001.JPG");
  card.MakeFile("d/CAM_0001.JPG");
  Names names = NamesIn(card, "d");
  std::sort(names.begin(), names.end());
  EXPECT_EQ((Names{".", "..", "CAM_0001.JPG", "QVX_0001.JPG"}), names);
}

TEST(DirReader, ThePatternSelectsNothing) {
  Card card;
  card.MakeFile("d/QVX_0001.JPG");
  EXPECT_EQ((Names{".", "..", "QVX_0001.JPG"}), NamesIn(card, "d", "HD*"));
}

TEST(DirReader, ANullPatternIsNoHindrance) {
  Card card;
  card.MakeFile("d/QVX_0001.JPG");
  PCQDCFFSIO reader(Arg(card.Path("d")), nullptr);
  EXPECT_EQ(3U, Rest(reader).size());
}

TEST(DirReader, FoldersAndLinksAreListedLikeFiles) {
  Card card;
  card.MakeDir("d/100PHOTO");
  ASSERT_EQ(0, symlink("nowhere", card.Path("d/link").c_str()));
  EXPECT_EQ((Names{".", "..", "100PHOTO", "link"}), NamesIn(card, "d"));
}

TEST(DirReader, AnEmptyFolderHoldsItsTwoOwnEntries) {
  Card card;
  card.MakeDir("d");
  EXPECT_EQ((Names{".", ".."}), NamesIn(card, "d"));
}

TEST(DirReader, TheEndIsReportedAgainAndAgain) {
  Card card;
  card.MakeDir("d");
  PCQDCFFSIO reader(Arg(card.Path("d")), Arg(""));
  PCQDCFFSIO::PTFile entry = {};
  EXPECT_EQ(0, reader.Read(&entry));
  EXPECT_EQ(0, reader.Read(&entry));
  EXPECT_EQ(-2, reader.Read(&entry));
  EXPECT_EQ(-2, reader.Read(&entry));
  EXPECT_STREQ("..", entry.name);
}

TEST(DirReader, ReadingBeforeOpeningIsRefused) {
  PCQDCFFSIO reader;
  PCQDCFFSIO::PTFile entry = {};
  EXPECT_EQ(-1, reader.Read(&entry));
  EXPECT_FALSE(reader.IsValid());
}

TEST(DirReader, OpenAnswersZeroWhateverItFinds) {
  Card card;
  card.MakeFile("file");
  PCQDCFFSIO reader;
  EXPECT_EQ(0, reader.Open(Arg(card.Root()), Arg("")));
  EXPECT_EQ(0, reader.Open(Arg(card.Path("missing")), Arg("")));
  EXPECT_EQ(0, reader.Open(Arg(card.Path("file")), Arg("")));
  EXPECT_EQ(0, reader.Open(Arg(""), Arg("")));
  EXPECT_EQ(0, reader.Open(nullptr, nullptr));
}

TEST(DirReader, AFolderThatCannotBeListedGivesNothing) {
  Card card;
  card.MakeFile("file");
  for (const std::string& path : {card.Path("missing"), card.Path("file"), std::string()}) {
    PCQDCFFSIO reader(Arg(path), Arg(""));
    PCQDCFFSIO::PTFile entry = {};
    EXPECT_FALSE(reader.IsValid()) << path;
    EXPECT_EQ(-1, reader.Read(&entry)) << path;
    EXPECT_EQ(-1, reader.Read(&entry)) << path;
    EXPECT_STREQ("", entry.name) << path;
  }
}

TEST(DirReader, AListedFolderIsValid) {
  Card card;
  PCQDCFFSIO reader(Arg(card.Root()), Arg(""));
  EXPECT_TRUE(reader.IsValid());
}

TEST(DirReader, AClosedReaderHasNothingToRead) {
  Card card;
  PCQDCFFSIO reader(Arg(card.Root()), Arg(""));
  PCQDCFFSIO::PTFile entry = {};
  ASSERT_EQ(0, reader.Read(&entry));
  reader.Close();
  EXPECT_EQ(-1, reader.Read(&entry));
  reader.Close();
  EXPECT_EQ(-1, reader.Read(&entry));
}

TEST(DirReader, ClosingAnUnopenedReaderIsHarmless) {
  PCQDCFFSIO reader;
  reader.Close();
  EXPECT_FALSE(reader.IsValid());
}

TEST(DirReader, OpeningAgainStartsTheOtherFolderFromItsFront) {
  Card card;
  card.MakeFile("one/A");
  card.MakeFile("two/B");
  PCQDCFFSIO reader(Arg(card.Path("one")), Arg(""));
  PCQDCFFSIO::PTFile entry = {};
  ASSERT_EQ(0, reader.Read(&entry));
  reader.Open(Arg(card.Path("two")), Arg(""));
  EXPECT_EQ((Names{".", "..", "B"}), Rest(reader));
}

TEST(DirReader, OpeningAMissingFolderForgetsTheEarlierOne) {
  Card card;
  PCQDCFFSIO reader(Arg(card.Root()), Arg(""));
  reader.Open(Arg(card.Path("missing")), Arg(""));
  PCQDCFFSIO::PTFile entry = {};
  EXPECT_FALSE(reader.IsValid());
  EXPECT_EQ(-1, reader.Read(&entry));
}

TEST(DirReader, TheListingIsThatOfTheMomentOfOpening) {
  Card card;
  card.MakeFile("d/QVX_0001.JPG");
  PCQDCFFSIO reader(Arg(card.Path("d")), Arg(""));
  card.MakeFile("d/QVX_0002.JPG");
  card.Remove("d/QVX_0001.JPG");
  EXPECT_EQ((Names{".", "..", "QVX_0001.JPG"}), Rest(reader));
}

class EntryOfTheReader : public testing::Test {
 protected:
  // Reads the one file of a folder into an entry whose bytes are all set.
  void ReadNamed(const std::string& name) {
    Card card;
    card.MakeFile("d/" + name);
    PCQDCFFSIO reader(Arg(card.Path("d")), Arg(""));
    std::memset(&entry_, 0x7e, sizeof(entry_));
    for (int i = 0; i < 3; ++i) ASSERT_EQ(0, reader.Read(&entry_));
  }
  bool Untouched(int first) const {
    return std::all_of(entry_.name + first, entry_.name + sizeof(entry_.name),
                       [](char c) { return c == 0x7e; });
  }
  PCQDCFFSIO::PTFile entry_;
};

TEST_F(EntryOfTheReader, HoldsTheNameFilledUpWithZeros) {
  ReadNamed("QVX_0001.JPG");
  EXPECT_STREQ("QVX_0001.JPG", entry_.name);
  EXPECT_TRUE(std::all_of(entry_.name + 12, entry_.name + 128, [](char c) { return c == 0; }));
  EXPECT_TRUE(Untouched(128));
}

TEST_F(EntryOfTheReader, KeepsItsTime) {
  ReadNamed("QVX_0001.JPG");
  EXPECT_EQ(0x7e7e7e7eU, entry_.time);
}

TEST_F(EntryOfTheReader, HoldsANameOf127CharactersTerminated) {
  const std::string name(127, 'n');
  ReadNamed(name);
  EXPECT_EQ(name, std::string(entry_.name));
  EXPECT_TRUE(Untouched(128));
}

TEST_F(EntryOfTheReader, HoldsThe128FirstCharactersOfALongNameWithoutATerminator) {
  for (const size_t length : {128U, 129U, 255U}) {
    ReadNamed(std::string(length, 'n'));
    EXPECT_EQ(std::string(128, 'n'), std::string(entry_.name, 128)) << length;
    EXPECT_TRUE(Untouched(128)) << length;
  }
}

TEST(DirReader, ANullEntryIsRefusedAndTakesNothingFromTheListing) {
  Card card;
  card.MakeFile("d/A");
  PCQDCFFSIO reader(Arg(card.Path("d")), Arg(""));
  EXPECT_EQ(-1, reader.Read(nullptr));
  EXPECT_EQ((Names{".", "..", "A"}), Rest(reader));
}

TEST(DirReader, AFailedListingLeavesNoDescriptorOpen) {
  Card card;
  const int before = flm_test::FdCount();
  for (int i = 0; i < 3; ++i) {
    const PCQDCFFSIO listed(Arg(card.Root()), Arg(""));
    const PCQDCFFSIO missing(Arg(card.Path("missing")), Arg(""));
  }
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST(DirReader, AFolderThatCannotBeReadToItsEndHasNoListing) {
  Card card;
  card.MakeFiles("d", "QVX_", 1, 5, "JPG");
  const flm_test::ScopedOsCalls os;
  flm::Os().Readdir = [](DIR* dir) {
    dirent* const entry = readdir(dir);
    if (entry == nullptr || std::strcmp(entry->d_name, "QVX_0003.JPG") != 0) return entry;
    errno = EIO;
    return static_cast<dirent*>(nullptr);
  };
  const int before = flm_test::FdCount();
  PCQDCFFSIO reader(Arg(card.Path("d")), Arg(""));
  EXPECT_FALSE(reader.IsValid());
  PCQDCFFSIO::PTFile entry = {};
  EXPECT_EQ(-1, reader.Read(&entry));
  EXPECT_EQ(before, flm_test::FdCount());
}

TEST(DirReader, AHundredFilesComeInAscendingOrder) {
  Card card;
  card.MakeFiles("d", "QVX_", 51, 50, "JPG");
  card.MakeFiles("d", "CAM_", 1, 50, "JPG");
  const Names names = NamesIn(card, "d");
  ASSERT_EQ(102U, names.size());
  EXPECT_EQ("CAM_0001.JPG", names[2]);
  EXPECT_EQ("CAM_0050.JPG", names[51]);
  EXPECT_EQ("QVX_0051.JPG", names[52]);
  EXPECT_EQ("QVX_0100.JPG", names[101]);
}

}  // namespace
