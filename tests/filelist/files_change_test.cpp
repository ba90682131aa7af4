// Single files entered into the list and forgotten by it, and questions about one file.
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::ItemOf;
using flm_test::SetPath;

class FileListFiles : public FileListTest {
 protected:
  void SetUp() override {
    MakeFivePictures();
    ASSERT_EQ(Scan(), 5);
  }
};

// --- AddFile ------------------------------------------------------------------------------------

TEST_F(FileListFiles, AnAddedFileIsHeldAndCounted) {
  card.MakeFile("DCIM/103PHOTO/QVX_0003.JPG");
  EXPECT_EQ(list.AddFile(Arg(On("DCIM/103PHOTO/QVX_0003.JPG"))), 0);
  EXPECT_EQ(list.GetCount(), 6);
  EXPECT_EQ(list.DCF_GetCount(), 6);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/103PHOTO/QVX_0003.JPG"))), 1);
  EXPECT_EQ(PathAt(5), On("DCIM/103PHOTO/QVX_0003.JPG"));
}

TEST_F(FileListFiles, ARefusedFileIsCountedToo) {
  EXPECT_EQ(list.AddFile(Arg("no slash")), -3);
  EXPECT_EQ(list.GetCount(), 6);
  EXPECT_EQ(list.AddFile(Arg(On("DCIM/150PHOTO/QVX_0001.JPG"))), -1);
  EXPECT_EQ(list.GetCount(), 7);
  EXPECT_EQ(list.AddFile(Arg("/" + std::string(98, 'x'))), -1);
  EXPECT_EQ(list.GetCount(), 8);
  EXPECT_EQ(list.DCF_GetCount(), 5);
}

TEST_F(FileListFiles, NoPathIsRefused) {
  EXPECT_LT(list.AddFile(nullptr), 0);
  EXPECT_LT(list.AddFile(Arg("")), 0);
  EXPECT_EQ(list.DCF_GetCount(), 5);
}

// --- RemoveFileFromList -------------------------------------------------------------------------

TEST_F(FileListFiles, AFileOfWhichOnlyTheNumberIsHeldIsNotForgotten) {
  card.MakeFile("DCIM/104PHOTO/CAM_0001.MP4");
  card.MakeFile("DCIM/104PHOTO/HDV_0001.MPO");
  ASSERT_EQ(Scan(), 7);
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/104PHOTO/CAM_0001.MPO"))), -2);
  EXPECT_EQ(list.GetCount(), 7);
  EXPECT_EQ(PathAt(5), On("DCIM/104PHOTO/CAM_0001.MP4"));
  EXPECT_EQ(PathAt(6), On("DCIM/104PHOTO/HDV_0001.MPO"));
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/104PHOTO/HDV_0001.MPO"))), 0);
  EXPECT_EQ(PathAt(5), On("DCIM/104PHOTO/CAM_0001.MP4"));
}

TEST_F(FileListFiles, AForgottenFileStaysOnTheCard) {
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/101PHOTO/QVX_0007.JPG"))), 0);
  EXPECT_EQ(list.GetCount(), 4);
  EXPECT_EQ(list.DCF_GetCount(), 4);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/101PHOTO/QVX_0007.JPG"))), 0);
  EXPECT_EQ(PathAt(2), On("DCIM/103PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(card.Exists("DCIM/101PHOTO/QVX_0007.JPG"));
}

TEST_F(FileListFiles, AFileForgottenAsAnItemEmptiesTheItemsPath) {
  CQFileListItem item = ItemOf(On("DCIM/101PHOTO/QVX_0007.JPG"));
  EXPECT_EQ(list.RemoveFileFromList(&item), 0);
  EXPECT_STREQ(item.filePath, "");
  EXPECT_EQ(list.GetCount(), 4);
  EXPECT_TRUE(card.Exists("DCIM/101PHOTO/QVX_0007.JPG"));
}

TEST_F(FileListFiles, ForgettingAnUnknownFileChangesNothing) {
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/150PHOTO/QVX_0001.JPG"))), -1);
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/100PHOTO/QVX_0009.JPG"))), -2);
  EXPECT_EQ(list.RemoveFileFromList(Arg(On("DCIM/100PHOTO/ABC_0001.JPG"))), -2);
  EXPECT_LT(list.RemoveFileFromList(Arg("")), 0);
  EXPECT_LT(list.RemoveFileFromList(static_cast<char*>(nullptr)), 0);
  EXPECT_EQ(list.GetCount(), 5);
  EXPECT_EQ(list.DCF_GetCount(), 5);
}

TEST_F(FileListFiles, AnItemThatIsNotHeldKeepsItsPath) {
  CQFileListItem item = ItemOf(On("DCIM/100PHOTO/QVX_0009.JPG"));
  EXPECT_EQ(list.RemoveFileFromList(&item), -2);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0009.JPG"));
  EXPECT_EQ(list.RemoveFileFromList(static_cast<CQFileListItem*>(nullptr)), -1);
  EXPECT_EQ(list.GetCount(), 5);
}

TEST_F(FileListFiles, ForgettingTheCurrentFileLeavesNoCurrentFile) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  ASSERT_EQ(list.RemoveFileFromList(Arg(PathAt(2))), 0);
  CQFileListItem item;
  EXPECT_LT(list.GetCurrent(&item, true), 0);
  EXPECT_EQ(list.GetCurIndex(), -1);
}

TEST_F(FileListFiles, ForgettingAnotherFileKeepsTheCurrentOne) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  ASSERT_EQ(list.RemoveFileFromList(Arg(PathAt(0))), 0);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, true), 0);
  EXPECT_EQ(item.filePath, On("DCIM/101PHOTO/QVX_0007.JPG"));
}

TEST_F(FileListFiles, EveryFileCanBeForgotten) {
  for (int left = 4; left >= 0; --left) {
    EXPECT_EQ(list.RemoveFileFromList(Arg(PathAt(0))), 0);
    EXPECT_EQ(list.GetCount(), left);
  }
  CQFileListItem item;
  EXPECT_EQ(list.GetFirst(&item, false), -1);
  EXPECT_EQ(list.Listup(0), 5);
}

// --- Questions ----------------------------------------------------------------------------------

TEST_F(FileListFiles, AHeldFileExists) {
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/100PHOTO/QVX_0002.JPG"))), 1);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/100PHOTO/QVX_0003.JPG"))), 0);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/105PHOTO/QVX_0001.JPG"))), 0);
  EXPECT_EQ(list.IsExist(nullptr), 0);
  EXPECT_EQ(list.IsExist(Arg("")), 0);
  EXPECT_EQ(list.IsExist(Arg(std::string(4000, 'x'))), 0);
}

TEST_F(FileListFiles, TheListIsAskedAndNotTheCard) {
  card.Remove("DCIM/100PHOTO/QVX_0002.JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_0003.JPG");
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/100PHOTO/QVX_0002.JPG"))), 1);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/100PHOTO/QVX_0003.JPG"))), 0);
}

TEST_F(FileListFiles, AFileNumberedZeroExists) {
  card.MakeFile("DCIM/103PHOTO/QVX_0000.JPG");
  ASSERT_EQ(list.Listup(0), 6);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/103PHOTO/QVX_0000.JPG"))), 1);
}

TEST_F(FileListFiles, OnlyTheLastFileIsLast) {
  for (int i = 0; i < 5; ++i) {
    CQFileListItem item = ItemOf(PathAt(i));
    EXPECT_EQ(list.IsLast(&item), i == 4 ? 1 : 0) << i;
  }
  CQFileListItem nothing;
  EXPECT_EQ(list.IsLast(&nothing), 0);
  EXPECT_EQ(list.IsLast(nullptr), 0);
}

TEST_F(FileListFiles, AnEmptyListHasNoLastFile) {
  CQFileListItem item = ItemOf(PathAt(4));
  card.Remove("DCIM");
  ASSERT_EQ(list.Listup(0), 0);
  EXPECT_EQ(list.IsLast(&item), 0);
  EXPECT_EQ(list.IsExist(item.filePath), 0);
}

TEST_F(FileListFiles, SortingAnswersZero) { EXPECT_EQ(list.SortItem(), 0); }

}  // namespace
