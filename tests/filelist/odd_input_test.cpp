// What odd input gets: a refusal, and nothing changed.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "base/bounded_text.h"
#include "tests/filelist/core_fixture.h"

namespace flm_test {
namespace {

using OddInput = FileListTest;

// An item as an application would hand it in that never filled it: no zero byte anywhere in it.
CQFileListItem ItemWithoutEnds() {
  CQFileListItem item;
  std::memset(item.filePath, 'x', sizeof(item.filePath));
  std::memset(item.objectPath, 'x', sizeof(item.objectPath));
  item.selected = item.isProtected = item.reservedFlag = item.dpofCopies = item.dpofIndex = 1;
  item.dpofSize = 0x01010101;
  item.wifiFlag = 1;
  item.year = item.month = item.day = item.hour = item.minute = item.second = 0x01010101;
  item.modTime = 0x01010101;
  return item;
}

TEST_F(OddInput, APathWithoutAnEndNamesNoFileToTheMarks) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  CQFileListItem item = ItemWithoutEnds();
  EXPECT_EQ(-3, list.SetSel(&item, true));
  EXPECT_FALSE(list.IsSel(&item));
  EXPECT_EQ(-3, list.SetVoiceRec(&item, true));
  EXPECT_EQ(-5, list.SetDPOF(&item, 1));
  EXPECT_EQ(-4, list.SetDPOFSize(&item, 1));
  EXPECT_EQ(-4, list.GetDPOFNumOfCopy(&item));
  EXPECT_EQ(-3, list.GetDPOFEdit(&item));
  EXPECT_EQ(-3, list.GetDPOFSize(&item));
  EXPECT_EQ(-101, list.SetProtect(&item, true));
  EXPECT_FALSE(list.IsProtect(&item));
  EXPECT_EQ(0, list.GetSelCount());
}

TEST_F(OddInput, APathWithoutAnEndNamesNoFileToTheLookups) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  CQFileListItem item = ItemWithoutEnds();
  EXPECT_EQ(0, list.Delete(&item, true, false));
  EXPECT_GT(0, list.RemoveFileFromList(&item));
  EXPECT_EQ(-1, list.GetFileListIndex(&item));
  EXPECT_EQ(0, list.IsLast(&item));
  EXPECT_EQ(-1, list.GetPrefix(&item));
  EXPECT_EQ(-1, list.GetFileInfo(&item));
  EXPECT_EQ(-1, list.GetFileCreateTime(&item));
  EXPECT_EQ(-1, list.SetObject(&item, FILE_ADD_RAW, true));
  EXPECT_EQ(5, list.GetCount());
}

TEST_F(OddInput, APathThatClimbsOutOfTheCardIsNotRemoved) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  const std::string place = "DCIM/../DCIM/100PHOTO/QVX_0001.JPG";
  EXPECT_EQ(-1, list.DCF_RemoveFile(Arg(On(place)), false));
  EXPECT_TRUE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(OddInput, ARootThatGoesUpwardsItselfLosesNoDeletion) {
  MakeFivePictures();
  card.MakeDir("side");
  list.SetBaseURI(On("side/..").c_str());
  list.SetType(kAllModesList);
  ASSERT_EQ(5, list.Listup(0));
  EXPECT_EQ(0, list.DCF_RemoveFile(Arg(On("side/../DCIM/100PHOTO/QVX_0001.JPG")), false));
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(OddInput, AnUnusableRootLeavesNothingOfAnEarlierScan) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  list.SetSelAll(true);
  list.SetBaseURI("");
  EXPECT_EQ(-1, list.Listup(0));
  EXPECT_EQ(0, list.GetSelCount());
  list.DeleteSel(true, nullptr);
  CQFileListItem item;
  flm::CopyText(item.filePath, sizeof(item.filePath), On("DCIM/100PHOTO/QVX_0001.JPG").c_str());
  EXPECT_EQ(0, list.Delete(&item, true, false));
  EXPECT_TRUE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(OddInput, AReleasedListHasNoFilesToChange) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  list.Destroy();
  EXPECT_EQ(-1, list.SetProtectAll(true, nullptr));
  EXPECT_EQ(-1, list.SetProtectSel(true, nullptr));
  EXPECT_EQ(-1, list.DPOFSel(nullptr));
  EXPECT_FALSE(card.IsReadOnly("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(OddInput, ThePageBehindTheLargestNumberIsNoOverflow) {
  MakeFivePictures();
  ASSERT_EQ(5, Scan());
  CQFileListItem items[1];
  list.InitPage(0);
  EXPECT_EQ(0, list.GetPageAt(INT_MAX, items));
  EXPECT_EQ(INT_MAX, list.GetCurPageNum());
  EXPECT_EQ(0, list.GetNextPage(items));
}

TEST_F(OddInput, AFileOfAYearBeyondAllCalendarsIsListed) {
  MakeFivePictures();
  flm::Os().Localtime = [](const time_t*, tm* result) {
    *result = tm();
    result->tm_year = INT_MAX;
    return result;
  };
  ASSERT_EQ(5, Scan());
  CQFileListItem item;
  EXPECT_EQ(0, list.GetFirst(&item, true));
  EXPECT_EQ(On("DCIM/100PHOTO/QVX_0001.JPG"), item.filePath);
}

}  // namespace
}  // namespace flm_test
