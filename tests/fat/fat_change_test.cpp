// What changes a card with a FAT: deletion, new names, and the times of files.
#include "fsio/PCQDCFFSIO.h"
#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

using Names = std::vector<std::string>;

constexpr time_t kTick = 2;                // seconds between two times that a FAT can keep
constexpr time_t kFirstTime = 315532800;   // 1980-01-01 00:00:00 UTC
constexpr time_t kLastTime = 4354819198;   // 2107-12-31 23:59:58 UTC
constexpr time_t kAfter2038 = 2208988800;  // 2040-01-01 00:00:00 UTC

class FatDeletion : public OnFat {};

TEST_F(FatDeletion, AFolderThatBecomesEmptyGoes) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1, "JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, 1, "JPG");
  ASSERT_EQ(Scan(), 2);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, false), 10100001);
  EXPECT_EQ(Tree(), (Names{"DCIM/", "DCIM/101PHOTO/", "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(ScanAgain(), 1);
}

TEST_F(FatDeletion, TheNewestFolderStaysWhenItBecomesEmpty) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1, "JPG");
  card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, 1, "JPG");
  ASSERT_EQ(Scan(), 2);
  CQFileListItem item = At(1);
  EXPECT_GT(list.Delete(&item, false, false), 0);
  EXPECT_TRUE(card.Exists("DCIM/101PHOTO"));
  EXPECT_EQ(ScanAgain(), 1);
}

TEST_F(FatDeletion, AFolderWithAnotherFileStays) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1, "JPG");
  card.MakeFile("DCIM/100PHOTO/notes.txt");
  card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, 1, "JPG");
  ASSERT_EQ(Scan(), 2);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, false), 10100001);
  EXPECT_TRUE(card.Exists("DCIM/100PHOTO/notes.txt"));
}

TEST_F(FatDeletion, OfAllFilesLeavesTheNewestFolderAndAnEmptyOrder) {
  for (const char* folder : {"DCIM/100PHOTO", "DCIM/101PHOTO", "DCIM/102PHOTO"}) {
    card.MakeFiles(folder, "QVX_", 1, 20, "JPG");
    card.MakeFiles(folder, "QVX_", 1, 20, "SRW");
  }
  card.MakeDir("MISC");
  ASSERT_EQ(Scan(), 60);
  EXPECT_EQ(list.DeleteAll(false, nullptr), 10200000);
  EXPECT_EQ(ScanAgain(), 0);
  EXPECT_EQ(Tree(), (Names{"DCIM/", "DCIM/102PHOTO/"}));
  EXPECT_EQ(card.ReadFile("MISC/AUTPRINT.MRK"), "");
}

TEST_F(FatDeletion, OfMarkedFilesTakesThoseAlone) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 5, "JPG");
  card.MakeDir("MISC");
  ASSERT_EQ(Scan(), 5);
  for (const int index : {1, 3}) {
    CQFileListItem item = At(index);
    ASSERT_EQ(list.SetSel(&item, true), 0);
  }
  EXPECT_EQ(list.DeleteSel(false, nullptr), 0);
  EXPECT_EQ(ScanAgain(), 3);
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0003.JPG",
                            "DCIM/100PHOTO/QVX_0005.JPG"}));
}

class FatNaming : public OnFat {
 protected:
  // The next name, relative to the root; "" for none.
  std::string New() {
    char path[396] = {};
    return list.GetNewFileName(path, 0) == 0 ? Relative(path) : "";
  }
};

TEST_F(FatNaming, AnEmptyCardGetsItsTreeAndFirstFolder) {
  ASSERT_EQ(Scan(), 0);
  EXPECT_EQ(New(), "DCIM/100PHOTO/QVX_0001.JPG");
  card.WriteFile("DCIM/100PHOTO/QVX_0001.JPG", "x");
  EXPECT_EQ(ScanAgain(), 1);
}

TEST_F(FatNaming, BehindNumber9999ANewFolderIsMade) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 9999, 1, "JPG");
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(New(), "DCIM/101PHOTO/QVX_0001.JPG");
  card.WriteFile("DCIM/101PHOTO/QVX_0001.JPG", "x");
  EXPECT_EQ(ScanAgain(), 2);
  EXPECT_EQ(New(), "DCIM/101PHOTO/QVX_0002.JPG");
}

TEST_F(FatNaming, ACompanionIsWrittenBesideItsPicture) {
  ASSERT_EQ(Scan(), 0);
  card.WriteFile(New(), "picture");
  char path[128] = {};
  ASSERT_EQ(list.GetLatestFileName(path, FILE_ADD_RAW), 0);
  EXPECT_EQ(Relative(path), "DCIM/100PHOTO/QVX_0001.SRW");
  card.WriteFile("DCIM/100PHOTO/QVX_0001.SRW", "raw");
  EXPECT_EQ(ScanAgain(), 1);
}

class FatTimes : public OnFat {
 protected:
  // The time of a file that was given one, as the list has it after the card was away.
  unsigned int Kept(time_t given) {
    card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG", "x", given);
    EXPECT_EQ(ScanAgain(), 1);
    return static_cast<unsigned int>(At(0).modTime);
  }
};

TEST_F(FatTimes, AreKeptInStepsOfTwoSeconds) {
  EXPECT_EQ(Kept(1000000000), 1000000000U);
  EXPECT_EQ(Kept(1000000001), 1000000000U);
  EXPECT_EQ(Kept(1000000001 + kTick), 1000000002U);
}

TEST_F(FatTimes, FromTheFirstToTheLastThatAFatCanKeepAreListed) {
  for (const time_t given : {kFirstTime, kAfter2038, kLastTime}) {
    EXPECT_EQ(Kept(given), static_cast<unsigned int>(given)) << given;
  }
}

TEST_F(FatTimes, BeforeTheFirstAreTheFirst) {
  EXPECT_EQ(Kept(kFirstTime - 1), static_cast<unsigned int>(kFirstTime));
}

// The zone of the tests lies 5 h 30 min east of UTC.
TEST_F(FatTimes, AreShownAsLocalTime) {
  Kept(kAfter2038);
  const CQFileListItem item = At(0);
  EXPECT_EQ(
      (std::vector<int>{item.year, item.month, item.day, item.hour, item.minute, item.second}),
      (std::vector<int>{2040, 1, 1, 5, 30, 0}));
}

}  // namespace
}  // namespace flm_test
