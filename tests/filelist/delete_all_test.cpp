// Deleting every file of the list.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using flm_test::Progress;
using Names = std::vector<std::string>;
using Seen = std::vector<Progress>;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kThree[] = "DCIM/100PHOTO/QVX_0003.JPG";
constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";

class DeletingAll : public testing::Test {
 protected:
  DeletingAll() { Progress::Begin(); }
  void WithThree() { ASSERT_EQ(3, at_.With({kOne, kTwo, kThree})); }
  ListedCard at_;
};

TEST_F(DeletingAll, NothingIsLeftOnTheCardOrInTheList) {
  WithThree();
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ((Names{"DCIM/", "DCIM/100PHOTO/", "MISC/", kPrintOrder}), at_.card.Tree());
  EXPECT_EQ(0, at_.list.GetCount());
  EXPECT_EQ(0, at_.list.DCF_GetCount());
}

TEST_F(DeletingAll, FilesGoInListOrderAndEachIsReported) {
  WithThree();
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}, {1, 3, 0}, {2, 3, 0}}), Progress::seen);
  EXPECT_FALSE(Progress::cancelWasSet);
}

TEST_F(DeletingAll, AProtectedFileIsPassedOverAndReported) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  EXPECT_EQ(10000002, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}, {1, 3, -100}, {2, 3, 0}}), Progress::seen);
  EXPECT_EQ((Names{kTwo}), at_.Files());
  EXPECT_EQ(1, at_.list.GetCount());
  EXPECT_TRUE(at_.card.IsReadOnly(kTwo));
  EXPECT_FALSE(at_.card.Exists(kOne));
  EXPECT_FALSE(at_.card.Exists(kThree));
}

TEST_F(DeletingAll, AProtectedFileKeepsItsCompanions) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.WAV", kTwo}));
  at_.card.SetReadOnly(kOne, true);
  EXPECT_EQ(10000001, at_.list.DeleteAll(false, nullptr));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.WAV"));
}

TEST_F(DeletingAll, ForceDeletesProtectedFilesToo) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  EXPECT_EQ(10000000, at_.list.DeleteAll(true, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}, {1, 3, 0}, {2, 3, 0}}), Progress::seen);
  EXPECT_FALSE(at_.card.Exists(kTwo));
}

TEST_F(DeletingAll, CompanionsGoWithTheirFiles) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.SRW", "DCIM/100PHOTO/QVX_0001.WAV", kTwo,
                         "DCIM/100PHOTO/QVX_0002.MPO"}));
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ((Names{"DCIM/", "DCIM/100PHOTO/", "MISC/", kPrintOrder}), at_.card.Tree());
  EXPECT_EQ(2u, Progress::seen.size());
}

TEST_F(DeletingAll, OlderFoldersGoAndTheNewestStays) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG",
                         "DCIM/102PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10200000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ((Names{"DCIM/", "DCIM/102PHOTO/", "MISC/", kPrintOrder}), at_.card.Tree());
}

TEST_F(DeletingAll, TheNewestFolderStaysEvenWhenItsNumberIs999) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/999PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(99900000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ((Names{"DCIM/", "DCIM/999PHOTO/", "MISC/", kPrintOrder}), at_.card.Tree());
}

TEST_F(DeletingAll, AFolderWithOtherContentStays) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/notes.txt",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10100000, at_.list.DeleteAll(false, nullptr));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/notes.txt"));
}

TEST_F(DeletingAll, AFolderWithAProtectedFileStays) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  at_.card.SetReadOnly("DCIM/100PHOTO/QVX_0001.JPG", true);
  EXPECT_EQ(10100000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ((Names{"DCIM/100PHOTO/QVX_0001.JPG"}), at_.Files());
  EXPECT_TRUE(at_.card.Exists("DCIM/101PHOTO"));
}

TEST_F(DeletingAll, AnEmptyListSavesThePrintOrderAndReportsNothing) {
  ASSERT_EQ(0, at_.Scan());
  at_.card.MakeDir("MISC");
  EXPECT_EQ(0, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ("", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingAll, AnEmptyListWithAFolderGivesTheFoldersIndex) {
  at_.card.MakeDir("DCIM/105PHOTO");
  ASSERT_EQ(0, at_.Scan());
  EXPECT_EQ(10500000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_TRUE(at_.card.Exists("DCIM/105PHOTO"));
  EXPECT_TRUE(Progress::seen.empty());
}

TEST_F(DeletingAll, ThePrintOrderIsSavedOnceAtTheEnd) {
  WithThree();
  at_.card.WriteFile(kPrintOrder, "old order");
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ("", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingAll, APrintOrderThatCannotBeSavedIsReported) {
  WithThree();
  at_.card.Remove("MISC");
  EXPECT_EQ(-1000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ(3u, Progress::seen.size());
  EXPECT_EQ(0, at_.list.GetCount());
}

TEST_F(DeletingAll, ACancelStopsAfterTheFileAndSavesThePrintOrder) {
  WithThree();
  at_.list.SetDPOFDevName(flm_test::Arg("CAM"));
  Progress::Begin(0);
  EXPECT_EQ(10000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}}), Progress::seen);
  EXPECT_EQ((Names{kTwo, kThree}), at_.Files());
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingAll, ACancelThatCannotSaveThePrintOrderSaysSo) {
  WithThree();
  at_.card.Remove("MISC");
  Progress::Begin(1);
  EXPECT_EQ(-1000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ((Names{kThree}), at_.Files());
}

TEST_F(DeletingAll, ACancelRefreshesTheLastIndex) {
  ASSERT_EQ(2, at_.With({kOne, kThree}));
  ASSERT_EQ(0, at_.list.SetLastIndex(105, 20, true));
  Progress::Begin(0);
  ASSERT_EQ(10000, at_.list.DeleteAll(false, Progress::Record));
  int dirNumber = 0;
  int fileNumber = 0;
  at_.list.GetLastIndex(&dirNumber, &fileNumber);
  EXPECT_EQ(100, dirNumber);
  EXPECT_EQ(3, fileNumber);
}

TEST_F(DeletingAll, ProtectionThatCannotBeTakenAwayEndsIt) {
  WithThree();
  at_.card.WriteFile(kPrintOrder, "old order");
  at_.card.SetReadOnly(kTwo, true);
  flm::Os().Chmod = [](const char*, mode_t) { return -1; };
  EXPECT_EQ(-100, at_.list.DeleteAll(true, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}}), Progress::seen);
  EXPECT_EQ((Names{kTwo, kThree}), at_.Files());
  EXPECT_EQ("old order", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingAll, ARefusedRemovalEndsItWithoutSaving) {
  WithThree();
  at_.card.WriteFile(kPrintOrder, "old order");
  flm::Os().Unlink = [](const char*) { return -1; };
  flm::Os().Remove = [](const char*) { return -1; };
  EXPECT_EQ(-200, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ((Names{kOne, kTwo, kThree}), at_.Files());
  EXPECT_EQ(3, at_.list.GetCount());
  EXPECT_EQ("old order", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingAll, AnEarlyFailureLeavesTheLastIndex) {
  WithThree();
  ASSERT_EQ(0, at_.list.SetLastIndex(105, 20, true));
  flm::Os().Unlink = [](const char*) { return -7; };
  EXPECT_EQ(-200, at_.list.DeleteAll(false, nullptr));
  int dirNumber = 0;
  int fileNumber = 0;
  at_.list.GetLastIndex(&dirNumber, &fileNumber);
  EXPECT_EQ(105, dirNumber);
  EXPECT_EQ(20, fileNumber);
}

TEST_F(DeletingAll, ACardPulledOutEndsWithAnEmptyListAndTheStatedCode) {
  WithThree();
  at_.card.Remove("DCIM");
  at_.card.Remove("MISC");
  EXPECT_EQ(-1000, at_.list.DeleteAll(false, Progress::Record));
  EXPECT_EQ(0, at_.list.GetCount());
}

TEST_F(DeletingAll, TheCurrentPageIsForgotten) {
  WithThree();
  std::vector<CQFileListItem> page(2);
  at_.list.InitPage(2);
  ASSERT_EQ(2, at_.list.GetFirstPage(page.data()));
  ASSERT_EQ(10000000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ(-1, at_.list.GetCurPageNum());
}

TEST_F(DeletingAll, OnlyTheLastFileOfFewIsFlushed) {
  WithThree();
  ASSERT_EQ(10000000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ(1, ListedCard::flushes);
}

TEST_F(DeletingAll, TheCardIsFlushedOnceIn1024FilesAndAfterTheLast) {
  at_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 1030, "JPG");
  ASSERT_EQ(1030, at_.Scan());
  static std::vector<int> flushedAt;
  flushedAt.clear();
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, [](int index, int, int*, bool*) {
    if (ListedCard::flushes > static_cast<int>(flushedAt.size())) flushedAt.push_back(index);
  }));
  EXPECT_EQ((std::vector<int>{1023, 1029}), flushedAt);
  EXPECT_EQ(2, ListedCard::flushes);
}

TEST_F(DeletingAll, RemoveAllDeletesTheFilesToo) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  EXPECT_EQ(10000002, at_.list.RemoveAll(false));
  EXPECT_EQ((Names{kTwo}), at_.Files());
  EXPECT_EQ(10000000, at_.list.RemoveAll(true));
  EXPECT_FALSE(at_.card.Exists(kTwo));
}

TEST_F(DeletingAll, MoviesAndRecordingsGoToo) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.MP4", "DCIM/100PHOTO/QVX_0002.MP3",
                         "DCIM/100PHOTO/QVX_0003.WAV"}));
  EXPECT_EQ(10000000, at_.list.DeleteAll(false, nullptr));
  EXPECT_EQ((Names{"DCIM/", "DCIM/100PHOTO/", "MISC/", kPrintOrder}), at_.card.Tree());
}

TEST_F(DeletingAll, FilesThatTheListDoesNotHoldStay) {
  ASSERT_EQ(1, at_.With({kOne, "DCIM/100PHOTO/NOTES.TXT", "DCIM/notes.txt", "notes.txt"}));
  EXPECT_EQ(10000000, at_.list.DeleteAll(true, nullptr));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/NOTES.TXT"));
  EXPECT_TRUE(at_.card.Exists("DCIM/notes.txt"));
  EXPECT_TRUE(at_.card.Exists("notes.txt"));
}

}  // namespace
