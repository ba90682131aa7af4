// A list before its first scan, its set-up, and what each operation answers without a catalogue.
#include <climits>

#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::FileListTestOf;
using flm_test::ItemOf;
using flm_test::MarkedItem;

using FileListSetUp = FileListTest;

TEST_F(FileListSetUp, AFreshListHasNoCountCursorOrCatalogue) {
  EXPECT_EQ(list.GetCount(), -1);
  EXPECT_EQ(list.GetCurIndex(), -1);
  EXPECT_EQ(list.GetDCFList(), nullptr);
}

TEST_F(FileListSetUp, AFreshListHasTypeZeroNoRootAndNoSeriesMode) {
  EXPECT_EQ(list.GetType(), 0);
  EXPECT_STREQ(list.GetBaseURI(), "");
  EXPECT_FALSE(list.GetSeriesMode());
}

TEST_F(FileListSetUp, AFreshListHasNoPage) { EXPECT_EQ(list.GetCurPageNum(), -1); }

TEST_F(FileListSetUp, CreateMakesNoCatalogue) {
  EXPECT_EQ(list.Create(), 0);
  EXPECT_EQ(list.GetDCFList(), nullptr);
  EXPECT_EQ(list.GetCount(), -1);
}

TEST_F(FileListSetUp, DestroyWithoutACatalogueDoesNothing) {
  list.Destroy();
  list.Destroy();
  EXPECT_EQ(list.GetDCFList(), nullptr);
}

TEST_F(FileListSetUp, DestroyReleasesTheCatalogue) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  ASSERT_NE(list.GetDCFList(), nullptr);
  list.Destroy();
  EXPECT_EQ(list.GetDCFList(), nullptr);
}

TEST_F(FileListSetUp, AListIsScannedAgainAfterDestroy) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  list.Destroy();
  EXPECT_EQ(list.Listup(0), 5);
  EXPECT_EQ(PathAt(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListSetUp, AnyTypeIsKept) {
  for (const int type : {4, 0, 2, -1, INT_MAX, INT_MIN}) {
    list.SetType(type);
    EXPECT_EQ(list.GetType(), type);
  }
}

TEST_F(FileListSetUp, TheRootIsReadInPlace) {
  list.SetBaseURI("/mnt/mmc");
  EXPECT_STREQ(list.GetBaseURI(), "/mnt/mmc");
  EXPECT_EQ(list.GetBaseURI(), list.GetBaseURI());
}

TEST_F(FileListSetUp, PrefixesUpToEightCharactersAreTaken) {
  EXPECT_EQ(list.SetFilePrefix(nullptr), -1);
  EXPECT_EQ(list.SetFilePrefix(Arg("")), 0);
  EXPECT_EQ(list.SetFilePrefix(Arg("ABCD")), 0);
  EXPECT_EQ(list.SetFilePrefix(Arg("ABCDEFGH")), 0);
  EXPECT_EQ(list.SetFilePrefix(Arg("ABCDEFGHI")), -2);
  EXPECT_EQ(list.SetFilePrefix(Arg(std::string(5000, 'A'))), -2);
}

TEST_F(FileListSetUp, EveryColourModeSucceeds) {
  for (const int mode : {0, 1, 2, -1, INT_MAX}) {
    EXPECT_EQ(list.SetFileNameColor(static_cast<eFileListColorMode>(mode)), 0);
  }
}

TEST_F(FileListSetUp, InitGetAtDoesNothing) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  ASSERT_EQ(list.SetCurIndex(3), 0);
  list.InitGetAt();
  EXPECT_EQ(list.GetCurIndex(), 3);
  EXPECT_EQ(list.GetCount(), 5);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(3));
}

TEST_F(FileListSetUp, FreeListForgetsTheFilesAndKeepsTheCatalogue) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  list.FreeList();
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_NE(list.GetDCFList(), nullptr);
  EXPECT_EQ(PathAt(0), "");
  CQFileListItem item;
  EXPECT_EQ(list.GetFirst(&item, false), -1);
  EXPECT_EQ(list.DCF_GetCount(), 5);
}

TEST_F(FileListSetUp, FreeListWithoutACatalogueSetsTheCountToZero) {
  list.FreeList();
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(list.GetDCFList(), nullptr);
}

TEST_F(FileListSetUp, NoCursorStandsOnAForgottenFile) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  ASSERT_EQ(list.SetCurIndex(2), 0);
  list.FreeList();
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetCur(&item), -1);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListSetUp, ADestroyedListAnswersAsOneWithoutACatalogue) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  ASSERT_EQ(list.SetCurIndex(2), 0);
  CQFileListItem item = ItemOf(PathAt(2));
  list.Destroy();
  EXPECT_EQ(list.GetFileListIndex(&item), -6);
  EXPECT_EQ(list.IsExist(item.filePath), 0);
  EXPECT_EQ(list.RemoveFileFromList(&item), -6);
  EXPECT_EQ(list.SetCur(item.filePath), -1);
  EXPECT_EQ(list.GetFirst(&item, false), -1);
  EXPECT_EQ(list.GetCurrent(&item, false), -1);
  EXPECT_EQ(list.GetAt(0, &item, false), -1);
}

// --- Without a catalogue ------------------------------------------------------------------------

TEST_F(FileListSetUp, WalksFailBeforeAScanAndLeaveTheItem) {
  CQFileListItem item = MarkedItem();
  for (const bool withInfo : {false, true}) {
    EXPECT_EQ(list.GetFirst(&item, withInfo), -1);
    EXPECT_EQ(list.GetNext(&item, withInfo), -1);
    EXPECT_EQ(list.GetPrev(&item, withInfo), -1);
    EXPECT_EQ(list.GetLast(&item, withInfo), -1);
    EXPECT_EQ(list.GetCurrent(&item, withInfo), -1);
    EXPECT_EQ(list.GetAt(0, &item, withInfo), -1);
  }
  EXPECT_EQ(list.DCF_GetAt(0, &item), -1);
  EXPECT_LT(list.GetCur(&item), 0);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListSetUp, LookupsBeforeAScanSayThatThereIsNoCatalogue) {
  CQFileListItem item = ItemOf("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(list.GetFileListIndex(item.filePath), -6);
  EXPECT_EQ(list.GetFileListIndex(&item), -6);
  EXPECT_EQ(list.RemoveFileFromList(item.filePath), -6);
  EXPECT_EQ(list.RemoveFileFromList(&item), -6);
  EXPECT_STREQ(item.filePath, "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(list.SetCur(item.filePath), -1);
  EXPECT_EQ(list.SetCur(nullptr), -1);
  EXPECT_EQ(list.SetCurIndex(0), -1);
  EXPECT_EQ(list.DCF_GetCount(), -1);
}

TEST_F(FileListSetUp, SomeQuestionsBeforeAScanAreAnsweredWithZero) {
  CQFileListItem item = ItemOf("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  int dirNumber = 77;
  int fileNumber = 78;
  EXPECT_EQ(list.IsExist(item.filePath), 0);
  EXPECT_EQ(list.IsExist(nullptr), 0);
  EXPECT_EQ(list.IsLast(&item), 0);
  EXPECT_EQ(list.IsLast(nullptr), 0);
  EXPECT_EQ(list.SortItem(), 0);
  EXPECT_EQ(list.GetLastIndex(&dirNumber, &fileNumber), 0);
  EXPECT_EQ(dirNumber, 77);
  EXPECT_EQ(fileNumber, 78);
}

TEST_F(FileListSetUp, AddFileBeforeAScanCountsNothing) {
  EXPECT_EQ(list.AddFile(Arg("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG")), -1);
  EXPECT_EQ(list.GetCount(), -1);
}

// --- How many more files ------------------------------------------------------------------------

class Numbered : public CQFileList {
 public:
  int dirNumber = 0;
  int fileNumber = 0;
  int held = 0;
  int GetLastIndex(int* dir, int* file) override {
    *dir = dirNumber;
    *file = fileNumber;
    return 0;
  }
  int GetCount() override { return held; }
};

struct Room {
  int dirNumber;
  int fileNumber;
  int held;
  int left;
};

TEST(FileListRoom, IsTheSmallerOfNumbersAndPlaces) {
  const Room rooms[] = {
      {120, 1, 100, 1000},   {999, 9990, 31995, 5}, {999, 9990, 100, 9},  {998, 9999, 0, 1000},
      {999, 100, 10, 9899},  {999, 9999, 5, 0},     {100, 1, 31500, 500}, {100, 1, 32000, 0},
      {100, 1, 31000, 1000}, {100, 1, 31001, 999},  {0, 0, 0, 1000},      {100, 1, 32005, -5},
  };
  Numbered list;
  for (const Room& room : rooms) {
    list.dirNumber = room.dirNumber;
    list.fileNumber = room.fileNumber;
    list.held = room.held;
    EXPECT_EQ(list.GetAvailNumOfPhoto(), room.left)
        << room.dirNumber << "/" << room.fileNumber << ", " << room.held << " held";
  }
}

TEST_F(FileListSetUp, RoomOfAScannedCardFollowsItsNewestFile) {
  card.MakeFile("DCIM/999PHOTO/QVX_9990.JPG");
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(list.GetAvailNumOfPhoto(), 9);
}

// --- RemoveAll ----------------------------------------------------------------------------------

class Deleting : public CQFileList {
 public:
  std::string calls;
  int DeleteAll(bool force, ProgressCallback callback) override {
    calls += force ? 'F' : 'f';
    calls += callback == nullptr ? '0' : 'c';
    return 4711;
  }
};

TEST(FileListRemoveAll, IsDeleteAllWithoutACallback) {
  Deleting list;
  EXPECT_EQ(list.RemoveAll(true), 4711);
  EXPECT_EQ(list.RemoveAll(false), 4711);
  EXPECT_EQ(list.calls, "F0f0");
}

TEST_F(FileListSetUp, RemoveAllDeletesTheFilesThemselves) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  list.RemoveAll(false);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_FALSE(card.Exists("DCIM/103PHOTO/QVX_0002.JPG"));
}

}  // namespace
