// The scan: what it hands to the catalogue, what it counts, and what it leaves when it fails.
#include <climits>

#include "platform/preference.h"
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::FileListTestOf;
using flm_test::ItemOf;
using flm_test::MarkedItem;

using FileListScan = FileListTest;

constexpr char kOrder[] = "MISC/AUTPRINT.MRK";

TEST_F(FileListScan, MakesTheCatalogueAndReturnsTheCount) {
  MakeFivePictures();
  EXPECT_EQ(Scan(), 5);
  EXPECT_EQ(list.GetCount(), 5);
  EXPECT_EQ(list.DCF_GetCount(), 5);
  EXPECT_NE(list.GetDCFList(), nullptr);
}

TEST_F(FileListScan, AgainUsesTheSameCatalogue) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  CQDCFList* const catalogue = list.GetDCFList();
  card.MakeFile("DCIM/103PHOTO/QVX_0003.JPG");
  card.Remove("DCIM/100PHOTO");
  EXPECT_EQ(list.Listup(0), 4);
  EXPECT_EQ(list.GetDCFList(), catalogue);
  EXPECT_EQ(PathAt(0), On("DCIM/101PHOTO/QVX_0007.JPG"));
  EXPECT_EQ(PathAt(3), On("DCIM/103PHOTO/QVX_0003.JPG"));
}

TEST_F(FileListScan, OfAnEmptyCardCountsNothing) {
  EXPECT_EQ(Scan(), 0);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_TRUE(card.Exists("DCIM"));
}

TEST_F(FileListScan, TypesChooseTheTree) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  card.MakeFiles("VIDEO/100VIDEO", "QVX_", 1, 2, "MP4");
  const int counts[][2] = {{4, 3}, {0, 3}, {2, 2}, {1, 2}, {3, 2}};
  for (const auto& [type, count] : counts) EXPECT_EQ(Scan(type), count) << "type " << type;
}

TEST_F(FileListScan, TheTypeIsTheCataloguesMode) {
  ASSERT_EQ(Scan(4), 0);
  EXPECT_EQ(list.GetDCFList()->GetMode(), 4);
  ASSERT_EQ(Scan(2), 0);
  EXPECT_EQ(list.GetDCFList()->GetMode(), 2);
}

TEST_F(FileListScan, StopsAtTheNewestFolderWithFilesWhenAskedTo) {
  MakeFivePictures();
  card.MakeDir("DCIM/104PHOTO");
  Prepare();
  EXPECT_EQ(list.Listup(1), 2);
  EXPECT_EQ(list.GetCount(), 2);
}

TEST_F(FileListScan, AnyOtherArgumentMeansAWholeScan) {
  MakeFivePictures();
  Prepare();
  for (const int argument : {0, 2, -1, INT_MAX}) EXPECT_EQ(list.Listup(argument), 5) << argument;
}

TEST_F(FileListScan, TakesFilesOutsideTheRulesUnlessToldOtherwise) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  card.MakeFile("DCIM/CAMERA01/HOLIDAYPICTURE.JPG");
  EXPECT_EQ(Scan(), 2);
  list.IncludeNonDCF(false);
  EXPECT_EQ(list.GetCount(), 2);
  EXPECT_EQ(list.Listup(0), 1);
  list.IncludeNonDCF(true);
  EXPECT_EQ(list.Listup(0), 2);
}

TEST_F(FileListScan, HandsTheStoredSeriesFlagOn) {
  ASSERT_EQ(Scan(), 0);
  EXPECT_FALSE(list.GetDCFList()->GetSeriesMode());
  list.SetSeriesMode(true);
  list.Destroy();
  ASSERT_EQ(list.Listup(0), 0);
  EXPECT_TRUE(list.GetDCFList()->GetSeriesMode());
  EXPECT_TRUE(list.GetSeriesMode());
}

// --- Failures -----------------------------------------------------------------------------------

TEST_F(FileListScan, ATreeThatCannotBeOpenedIsTheCount) {
  card.WriteFile("DCIM", "not a folder");
  EXPECT_EQ(Scan(), -2);
  EXPECT_EQ(list.GetCount(), -2);
}

TEST_F(FileListScan, AMissingRootFails) {
  list.SetBaseURI(On("missing").c_str());
  list.SetType(4);
  EXPECT_EQ(list.Listup(0), -2);
  EXPECT_EQ(list.GetCount(), -2);
  EXPECT_TRUE(card.Tree().empty());
}

TEST_F(FileListScan, AFailureEndsEverythingThatNeedsFiles) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  list.SetBaseURI(On("missing").c_str());
  ASSERT_EQ(list.Listup(0), -2);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetFirst(&item, false), -1);
  EXPECT_EQ(list.GetNext(&item, false), -1);
  EXPECT_EQ(list.GetPrev(&item, false), -1);
  EXPECT_EQ(list.GetLast(&item, false), -1);
  EXPECT_EQ(list.GetCurrent(&item, false), -1);
  EXPECT_EQ(list.GetAt(0, &item, false), -1);
  EXPECT_EQ(list.GetCount(), -2);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListScan, AScanThatSucceedsAfterAFailureCountsAgain) {
  MakeFivePictures();
  list.SetType(4);
  list.SetBaseURI(On("missing").c_str());
  ASSERT_EQ(list.Listup(0), -2);
  EXPECT_EQ(Scan(), 5);
  CQFileListItem item;
  EXPECT_EQ(list.GetFirst(&item, false), 0);
}

TEST_F(FileListScan, WithoutAUsableRootNothingIsReadOrMade) {
  list.SetType(4);
  EXPECT_EQ(list.Listup(0), -1);
  EXPECT_EQ(list.GetCount(), -1);
  const std::string tooLong = card.Root() + "/" + std::string(97 - card.Root().size(), 'd');
  card.MakeFile(tooLong.substr(card.Root().size() + 1) + "/DCIM/100PHOTO/QVX_0001.JPG");
  const std::vector<std::string> before = card.Tree();
  ASSERT_EQ(tooLong.size(), 98U);
  list.SetBaseURI(tooLong.c_str());
  EXPECT_EQ(list.Listup(0), -1);
  char name[396] = "untouched";
  EXPECT_EQ(list.GetNewFileName(name, 0), -1);
  EXPECT_STREQ(name, "untouched");
  EXPECT_EQ(card.Tree(), before);
}

TEST_F(FileListScan, NothingIsMadeBesideTheLongestRoot) {
  // Below a root of 97 characters the tree's name finds no room in the path of a scan.
  const std::string folder(97 - card.Root().size() - 1, 'd');
  card.MakeDir(folder);
  const std::vector<std::string> before = card.Tree();
  list.SetBaseURI(On(folder).c_str());
  list.SetType(4);
  EXPECT_EQ(list.Listup(0), 0);
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(card.Tree(), before);
}

// --- Print order --------------------------------------------------------------------------------

class Noting : public CQFileList {
 public:
  std::string calls;
  int typeAnswer = 4;
  int InitGetAt() override { return calls += "init ", 0; }
  int GetType() override { return typeAnswer; }
  int LoadDPOFInfo(char* path) override { return calls += path, -1; }
};
using FileListScanNoted = FileListTestOf<Noting>;

TEST_F(FileListScanNoted, TheCardsPrintOrderIsLoadedAndItsFailureIgnored) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(Scan(), 1);
  EXPECT_EQ(list.calls, "init " + On(kOrder));
}

TEST_F(FileListScanNoted, ThePrintOrderIsLoadedAlsoAfterAFailedScan) {
  card.WriteFile("DCIM", "not a folder");
  EXPECT_EQ(Scan(), -2);
  EXPECT_EQ(list.calls, "init " + On(kOrder));
}

TEST_F(FileListScanNoted, TheTypeIsWhatTheListAnswers) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  card.MakeFiles("VIDEO/100VIDEO", "QVX_", 1, 2, "MP4");
  list.typeAnswer = 2;
  EXPECT_EQ(Scan(4), 2);
}

TEST_F(FileListScan, ThePrintOrderIsInTheMarksAfterwards) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  ASSERT_EQ(Scan(), 2);
  CQFileListItem second = ItemOf(PathAt(1));
  ASSERT_EQ(list.SetDPOF(&second, 3), 0);
  ASSERT_EQ(list.SaveDPOFInfo(nullptr, Arg("CAM")), 0);
  ASSERT_TRUE(card.Exists(kOrder));
  EXPECT_EQ(list.Listup(0), 2);
  EXPECT_EQ(list.GetDPOFNumOfCopy(&second), 3);
  CQFileListItem first = ItemOf(PathAt(0));
  EXPECT_EQ(list.GetDPOFNumOfCopy(&first), 0);
}

TEST_F(FileListScan, MarksDoNotOutliveIt) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = ItemOf(PathAt(0));
  ASSERT_EQ(list.SetSel(&item, true), 0);
  ASSERT_EQ(list.Listup(0), 1);
  EXPECT_FALSE(list.IsSel(&item));
}

// --- Order and sorting --------------------------------------------------------------------------

TEST_F(FileListScan, FilesStandInFolderAndNumberOrder) {
  card.MakeFile("DCIM/103PHOTO/QVX_0002.JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_0010.JPG");
  card.MakeFile("DCIM/100PHOTO/ABC_0002.MP4");
  ASSERT_EQ(Scan(), 3);
  EXPECT_EQ(PathAt(0), On("DCIM/100PHOTO/ABC_0002.MP4"));
  EXPECT_EQ(PathAt(1), On("DCIM/100PHOTO/QVX_0010.JPG"));
  EXPECT_EQ(PathAt(2), On("DCIM/103PHOTO/QVX_0002.JPG"));
}

TEST_F(FileListScan, SortingKeepsAnOrderThatStands) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  EXPECT_EQ(list.SortItem(), 0);
  EXPECT_EQ(PathAt(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(PathAt(4), On("DCIM/103PHOTO/QVX_0002.JPG"));
}

// --- Two lists ----------------------------------------------------------------------------------

TEST_F(FileListScan, TwoListsKeepTheirOwnPaths) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(Scan(), 1);
  flm_test::Card otherCard;
  otherCard.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  CQFileList other;
  other.SetBaseURI(otherCard.Root().c_str());
  other.SetType(4);
  ASSERT_EQ(other.Listup(0), 2);
  CQFileListItem item;
  EXPECT_EQ(list.GetAt(0, &item, true), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(list.GetLast(&item, true), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0001.JPG"));
  other.Destroy();
  EXPECT_EQ(list.GetFirst(&item, true), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0001.JPG"));
}

}  // namespace
