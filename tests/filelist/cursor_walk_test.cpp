// Walking the list: first, next, previous, last and current file.
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::FileListTestOf;
using flm_test::MarkedItem;

constexpr time_t kTime = 1577934245;

// Five pictures, the last one with a raw companion.
class FileListWalk : public FileListTest {
 protected:
  void SetUp() override {
    MakeFivePictures();
    card.MakeFile("DCIM/103PHOTO/QVX_0002.SRW");
    ASSERT_EQ(Scan(), 5);
  }
};

TEST_F(FileListWalk, ForwardsVisitsEveryFileInOrder) {
  CQFileListItem item;
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
  EXPECT_EQ(list.GetCurIndex(), 0);
  for (int i = 1; i < 5; ++i) {
    EXPECT_EQ(list.GetNext(&item, false), 0);
    EXPECT_EQ(item.filePath, PathAt(i));
    EXPECT_EQ(list.GetCurIndex(), i);
  }
}

TEST_F(FileListWalk, BackwardsVisitsEveryFileInOrder) {
  CQFileListItem item;
  ASSERT_EQ(list.GetLast(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(4));
  EXPECT_EQ(list.GetCurIndex(), 4);
  for (int i = 3; i >= 0; --i) {
    EXPECT_EQ(list.GetPrev(&item, false), 0);
    EXPECT_EQ(item.filePath, PathAt(i));
    EXPECT_EQ(list.GetCurIndex(), i);
  }
}

TEST_F(FileListWalk, NextWithoutACurrentFileIsTheFirst) {
  CQFileListItem item;
  EXPECT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
  EXPECT_EQ(list.GetCurIndex(), 0);
}

TEST_F(FileListWalk, NextBehindTheLastFileFailsAndLeavesNoCurrentFile) {
  CQFileListItem item;
  ASSERT_EQ(list.GetLast(&item, false), 0);
  EXPECT_EQ(list.GetNext(&item, false), -1);
  EXPECT_EQ(list.GetCurIndex(), -1);
  EXPECT_LT(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
}

TEST_F(FileListWalk, PrevBeforeTheFirstFileFailsAndLeavesNoCurrentFile) {
  CQFileListItem item;
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  EXPECT_EQ(list.GetPrev(&item, false), -1);
  EXPECT_EQ(list.GetCurIndex(), -1);
  EXPECT_LT(list.GetCurrent(&item, false), 0);
}

TEST_F(FileListWalk, PrevWithoutACurrentFileKeepsTheCataloguesCode) {
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetPrev(&item, false), -2);
  EXPECT_EQ(list.GetCurIndex(), -1);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListWalk, AStepThatFailsLeavesTheItem) {
  CQFileListItem item;
  ASSERT_EQ(list.GetLast(&item, false), 0);
  item = MarkedItem();
  EXPECT_EQ(list.GetNext(&item, true), -1);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListWalk, NullItemsAreRefusedAndMoveNothing) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  EXPECT_EQ(list.GetFirst(nullptr, true), -1);
  EXPECT_EQ(list.GetNext(nullptr, true), -1);
  EXPECT_EQ(list.GetPrev(nullptr, true), -1);
  EXPECT_EQ(list.GetLast(nullptr, true), -1);
  EXPECT_EQ(list.GetCurrent(nullptr, true), -1);
  EXPECT_EQ(list.GetCur(nullptr), -1);
  EXPECT_EQ(list.GetCurIndex(), 2);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(2));
}

TEST_F(FileListWalk, WithoutInformationTheMarksStay) {
  card.SetTime("DCIM/100PHOTO/QVX_0001.JPG", kTime);
  CQFileListItem item = MarkedItem();
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  flm_test::ExpectMarksUntouched(item);
  EXPECT_EQ(item.year, 77);
  item = MarkedItem();
  ASSERT_EQ(list.GetNext(&item, false), 0);
  flm_test::ExpectMarksUntouched(item);
  EXPECT_EQ(item.year, 77);
}

TEST_F(FileListWalk, FirstAndNextGiveTheTimeWithoutInformation) {
  card.SetTime("DCIM/100PHOTO/QVX_0001.JPG", kTime);
  card.SetTime("DCIM/100PHOTO/QVX_0002.JPG", kTime + 1);
  CQFileListItem item = MarkedItem();
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  EXPECT_EQ(item.modTime, kTime);
  ASSERT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.modTime, kTime + 1);
}

TEST_F(FileListWalk, NextWithoutACurrentFileGivesNoTime) {
  CQFileListItem item = MarkedItem();
  ASSERT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.modTime, 77);
}

TEST_F(FileListWalk, PrevLastAndCurrentGiveNoTime) {
  CQFileListItem item = MarkedItem();
  ASSERT_EQ(list.GetLast(&item, false), 0);
  ASSERT_EQ(list.GetPrev(&item, false), 0);
  ASSERT_EQ(list.GetCurrent(&item, false), 0);
  flm_test::ExpectTimeUntouched(item);
  flm_test::ExpectMarksUntouched(item);
}

TEST_F(FileListWalk, WithInformationEveryStepFillsTheItem) {
  card.SetTime("DCIM/100PHOTO/QVX_0001.JPG", kTime);
  card.SetReadOnly("DCIM/100PHOTO/QVX_0001.JPG", true);
  ASSERT_EQ(list.SetSelAll(true), 0);
  const auto expectFilled = [](const CQFileListItem& item) {
    EXPECT_EQ(item.selected, 1);
    EXPECT_EQ(item.isProtected, 1);
    EXPECT_EQ(item.year, 2020);
    EXPECT_EQ(item.modTime, kTime);
  };
  CQFileListItem item;
  EXPECT_EQ(list.GetFirst(&item, true), 0);
  expectFilled(item);
  CQFileListItem current;
  EXPECT_EQ(list.GetCurrent(&current, true), 0);
  expectFilled(current);
  ASSERT_EQ(list.GetNext(&item, true), 0);
  CQFileListItem prev;
  EXPECT_EQ(list.GetPrev(&prev, true), 0);
  expectFilled(prev);
}

TEST_F(FileListWalk, OnlyTheLastFileWithInformationLosesItsObjectPath) {
  const std::string object = On("DCIM/103PHOTO/QVX_0002.S  ");
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetLast(&item, true), 0);
  EXPECT_STREQ(item.objectPath, "");
  EXPECT_EQ(list.GetLast(&item, false), 0);
  EXPECT_EQ(item.objectPath, object);
  CQFileListItem current;
  EXPECT_EQ(list.GetCurrent(&current, true), 0);
  EXPECT_EQ(current.objectPath, object);
  CQFileListItem at;
  EXPECT_EQ(list.GetAt(4, &at, true), 0);
  EXPECT_EQ(at.objectPath, object);
}

TEST_F(FileListWalk, FirstWithInformationKeepsItsObjectPath) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.WAV");
  ASSERT_EQ(list.Listup(0), 5);
  CQFileListItem item;
  EXPECT_EQ(list.GetFirst(&item, true), 0);
  EXPECT_EQ(item.objectPath, On("DCIM/100PHOTO/QVX_0001. W "));
}

TEST_F(FileListWalk, NextWithinAFolderLeavesTheObjectPath) {
  CQFileListItem item;
  ASSERT_EQ(list.SetCurIndex(3), 0);
  item = MarkedItem();
  ASSERT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(4));
  EXPECT_STREQ(item.objectPath, "untouched object");
}

TEST_F(FileListWalk, PrevIntoAnotherFolderWritesTheObjectPath) {
  card.MakeFile("DCIM/101PHOTO/QVX_0007.WAV");
  ASSERT_EQ(list.Listup(0), 5);
  ASSERT_EQ(list.SetCurIndex(3), 0);
  CQFileListItem item;
  ASSERT_EQ(list.GetPrev(&item, true), 0);
  EXPECT_EQ(item.objectPath, On("DCIM/101PHOTO/QVX_0007. W "));
}

TEST_F(FileListWalk, CurrentDoesNotMoveTheCursor) {
  ASSERT_EQ(list.SetCurIndex(1), 0);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, true), 0);
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(1));
  EXPECT_EQ(list.GetCurIndex(), 1);
  ASSERT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(2));
}

TEST_F(FileListWalk, CurrentWithoutACursorFails) {
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetCurrent(&item, true), -1);
  EXPECT_EQ(list.GetCurIndex(), -1);
  EXPECT_EQ(list.GetCount(), 5);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListWalk, GetCurGivesBothPathsAndNothingElse) {
  ASSERT_EQ(list.SetCurIndex(4), 0);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetCur(&item), 0);
  EXPECT_EQ(item.filePath, PathAt(4));
  EXPECT_EQ(item.objectPath, On("DCIM/103PHOTO/QVX_0002.S  "));
  flm_test::ExpectMarksUntouched(item);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListWalk, EveryStepRefreshesTheCount) {
  CQFileListItem item;
  ASSERT_EQ(list.AddFile(Arg("no slash")), -3);
  ASSERT_EQ(list.GetCount(), 6);
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  EXPECT_EQ(list.GetCount(), 5);
  list.AddFile(Arg("no slash"));
  EXPECT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(list.GetCount(), 5);
  list.AddFile(Arg("no slash"));
  EXPECT_EQ(list.GetPrev(&item, false), 0);
  EXPECT_EQ(list.GetCount(), 5);
}

TEST_F(FileListWalk, AStepThatFailsRefreshesTheCountToo) {
  CQFileListItem item;
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  list.AddFile(Arg("no slash"));
  ASSERT_EQ(list.GetPrev(&item, false), -1);
  EXPECT_EQ(list.GetCount(), 5);
}

TEST_F(FileListWalk, TheLastFilesIndexComesFromTheCountBeforeTheStep) {
  CQFileListItem item;
  list.AddFile(Arg("no slash"));
  ASSERT_EQ(list.GetLast(&item, false), 0);
  EXPECT_EQ(list.GetCurIndex(), 5);
  EXPECT_EQ(list.GetCount(), 5);
}

TEST_F(FileListWalk, CurrentLeavesTheCountAsItWas) {
  ASSERT_EQ(list.SetCurIndex(0), 0);
  list.AddFile(Arg("no slash"));
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(list.GetCount(), 6);
}

class CountingSeven : public CQFileList {
 public:
  int GetCount() override { return 7; }
};
using FileListWalkCounted = FileListTestOf<CountingSeven>;

TEST_F(FileListWalkCounted, CurrentTakesTheCountThatTheListAnswers) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item;
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  ASSERT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(list.CQFileList::GetCount(), 7);
}

// A cursor that cannot be reset.
class Stuck : public CQFileList {
 public:
  int SetCur(char*) override { return -5; }
};
using FileListWalkStuck = FileListTestOf<Stuck>;

TEST_F(FileListWalkStuck, AFailedStepWhoseCursorCannotBeResetIsMinusOne) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(Scan(), 1);
  list.AddFile(Arg("no slash"));
  CQFileListItem item;
  EXPECT_EQ(list.GetPrev(&item, false), -1);  // the catalogue says -2
  EXPECT_EQ(list.GetCurrent(&item, false), -1);
  EXPECT_EQ(list.GetCount(), 2);  // not refreshed
}

TEST_F(FileListWalk, AnEmptyListHasNothingToWalk) {
  card.Remove("DCIM");
  ASSERT_EQ(list.Listup(0), 0);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetFirst(&item, false), -1);
  EXPECT_EQ(list.GetNext(&item, false), -1);
  EXPECT_EQ(list.GetPrev(&item, false), -1);
  EXPECT_EQ(list.GetLast(&item, false), -1);
  EXPECT_EQ(list.GetCurrent(&item, false), -1);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListWalk, AFolderThatWasNotReadIsReadOnTheWay) {
  ASSERT_EQ(list.Listup(1), 2);
  CQFileListItem item;
  ASSERT_EQ(list.GetFirst(&item, false), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(list.GetCount(), 2);
  ASSERT_EQ(list.GetNext(&item, false), 0);
  ASSERT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, On("DCIM/101PHOTO/QVX_0007.JPG"));
  EXPECT_EQ(list.GetCount(), 1);
}

TEST_F(FileListWalk, ARescanLeavesNoCurrentFile) {
  ASSERT_EQ(list.SetCurIndex(3), 0);
  ASSERT_EQ(list.Listup(0), 5);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), -1);
  EXPECT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
}

}  // namespace
