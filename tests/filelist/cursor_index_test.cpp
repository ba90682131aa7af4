// Indexed access and the index of the cursor.
#include <climits>

#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::FileListTestOf;
using flm_test::ItemOf;
using flm_test::MarkedItem;

class FileListIndex : public FileListTest {
 protected:
  void SetUp() override {
    MakeFivePictures();
    card.MakeFile("DCIM/100PHOTO/QVX_0002.SRW");
    ASSERT_EQ(Scan(), 5);
  }
};

TEST_F(FileListIndex, EveryIndexGivesItsFileAndMovesTheCursorThere) {
  const char* const files[] = {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                               "DCIM/101PHOTO/QVX_0007.JPG", "DCIM/103PHOTO/QVX_0001.JPG",
                               "DCIM/103PHOTO/QVX_0002.JPG"};
  for (const int i : {4, 0, 3, 1, 2}) {
    CQFileListItem item;
    EXPECT_EQ(list.GetAt(i, &item, true), 0);
    EXPECT_EQ(item.filePath, On(files[i]));
    EXPECT_EQ(list.GetCurIndex(), i);
    CQFileListItem current;
    EXPECT_EQ(list.GetCurrent(&current, false), 0);
    EXPECT_EQ(current.filePath, On(files[i]));
  }
}

TEST_F(FileListIndex, AnIndexOutOfRangeEmptiesBothPathsAndTheCursorsIndex) {
  for (const int index : {5, 6, -1, INT_MAX, INT_MIN}) {
    ASSERT_EQ(list.SetCurIndex(2), 0);
    CQFileListItem item = MarkedItem();
    EXPECT_LT(list.GetAt(index, &item, true), 0) << index;
    EXPECT_STREQ(item.filePath, "");
    EXPECT_STREQ(item.objectPath, "");
    flm_test::ExpectMarksUntouched(item);
    EXPECT_EQ(list.GetCurIndex(), -1);
  }
}

TEST_F(FileListIndex, AnIndexOutOfRangeDoesNotMoveTheCataloguesCursor) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  CQFileListItem item;
  ASSERT_LT(list.GetAt(9, &item, true), 0);
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(2));
}

TEST_F(FileListIndex, WithoutInformationOnlyThePathsAreWritten) {
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetAt(1, &item, false), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(item.objectPath, On("DCIM/100PHOTO/QVX_0002.S  "));
  flm_test::ExpectMarksUntouched(item);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListIndex, WithInformationTheItemIsFilled) {
  card.SetTime("DCIM/100PHOTO/QVX_0002.JPG", 1577934245);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetAt(1, &item, true), 0);
  EXPECT_EQ(item.selected, 0);
  EXPECT_EQ(item.isProtected, 0);
  EXPECT_EQ(item.modTime, 1577934245);
}

TEST_F(FileListIndex, AFileWithoutCompanionsEmptiesTheObjectPath) {
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetAt(0, &item, false), 0);
  EXPECT_STREQ(item.objectPath, "");
}

TEST_F(FileListIndex, TheCataloguesAccessLeavesTheCursor) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.DCF_GetAt(1, &item), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(item.objectPath, On("DCIM/100PHOTO/QVX_0002.S  "));
  flm_test::ExpectMarksUntouched(item);
  EXPECT_EQ(list.GetCurIndex(), 2);
  EXPECT_EQ(list.DCF_GetAt(5, &item), -1);
  EXPECT_STREQ(item.filePath, "");
  EXPECT_STREQ(item.objectPath, "");
  EXPECT_EQ(list.GetCurIndex(), 2);
}

TEST_F(FileListIndex, TheCataloguesAccessClearsWholeFields) {
  CQFileListItem item;
  std::memset(item.filePath, 'z', sizeof(item.filePath));
  std::memset(item.objectPath, 'z', sizeof(item.objectPath));
  ASSERT_EQ(list.DCF_GetAt(0, &item), 0);
  const size_t length = std::strlen(item.filePath);
  for (size_t i = length; i < sizeof(item.filePath); ++i) ASSERT_EQ(item.filePath[i], '\0');
  for (const char c : item.objectPath) ASSERT_EQ(c, '\0');
}

TEST_F(FileListIndex, NullItemsAreRefused) {
  ASSERT_EQ(list.SetCurIndex(2), 0);
  EXPECT_EQ(list.GetAt(0, nullptr, true), -1);
  EXPECT_EQ(list.DCF_GetAt(0, nullptr), -1);
  EXPECT_LT(list.GetFileListIndex(static_cast<CQFileListItem*>(nullptr)), 0);
  EXPECT_EQ(list.GetCurIndex(), 2);
}

TEST_F(FileListIndex, PathsHaveTheirIndex) {
  for (int i = 0; i < 5; ++i) {
    CQFileListItem item = ItemOf(PathAt(i));
    EXPECT_EQ(list.GetFileListIndex(item.filePath), i);
    EXPECT_EQ(list.GetFileListIndex(&item), i);
  }
  EXPECT_EQ(list.GetCurIndex(), -1);
}

TEST_F(FileListIndex, PathsOfNoFileHaveNoIndex) {
  for (const std::string& path :
       {On("DCIM/100PHOTO/QVX_0009.JPG"), On("DCIM/105PHOTO/QVX_0001.JPG"), std::string(),
        std::string("/"), std::string("DCIM"), std::string(3000, '/'), std::string(3000, 'x')}) {
    EXPECT_EQ(list.GetFileListIndex(Arg(path)), -1) << path.substr(0, 60);
  }
  EXPECT_EQ(list.GetFileListIndex(static_cast<char*>(nullptr)), -1);
}

// --- SetCur -------------------------------------------------------------------------------------

TEST_F(FileListIndex, SetCurMovesTheCursor) {
  EXPECT_EQ(list.SetCur(Arg(On("DCIM/101PHOTO/QVX_0007.JPG"))), 0);
  EXPECT_EQ(list.GetCurIndex(), 2);
  CQFileListItem item;
  ASSERT_EQ(list.GetPrev(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(1));
}

TEST_F(FileListIndex, SetCurToNothingLeavesNoCurrentFile) {
  ASSERT_EQ(list.SetCurIndex(3), 0);
  EXPECT_EQ(list.SetCur(nullptr), 0);
  EXPECT_EQ(list.GetCurIndex(), -1);
  CQFileListItem item;
  EXPECT_EQ(list.GetNext(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(0));
}

TEST_F(FileListIndex, SetCurPassesTheCataloguesCodesOn) {
  EXPECT_EQ(list.SetCur(Arg("")), -100);
  EXPECT_EQ(list.SetCur(Arg(card.Root() + "/DCIM/105")), -101);
  EXPECT_EQ(list.SetCur(Arg(On("DCIM/105PHOTO/QVX_0001.JPG"))), -200);
  EXPECT_EQ(list.SetCur(Arg(On("DCIM/100PHOTO/QVX_0009.JPG"))), -300);
}

TEST_F(FileListIndex, SetCurToAnUnknownFileLosesOnlyTheIndex) {
  ASSERT_EQ(list.SetCurIndex(3), 0);
  EXPECT_EQ(list.SetCur(Arg(On("DCIM/100PHOTO/QVX_0009.JPG"))), -300);
  EXPECT_EQ(list.GetCurIndex(), -1);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, PathAt(3));
}

TEST_F(FileListIndex, SetCurIndexAnswersAsTheAccessItMakes) {
  EXPECT_EQ(list.SetCurIndex(4), 0);
  EXPECT_EQ(list.GetCurIndex(), 4);
  EXPECT_LT(list.SetCurIndex(5), 0);
  EXPECT_EQ(list.GetCurIndex(), -1);
  EXPECT_LT(list.SetCurIndex(-1), 0);
}

class Access : public CQFileList {
 public:
  std::string calls;
  int GetAt(int index, CQFileListItem* item, bool withInfo) override {
    calls += std::to_string(index) + (item == nullptr ? "-" : "+") + (withInfo ? "i " : "n ");
    return 1234;
  }
  int InitGetAt() override { return calls += "init ", 0; }
};
using FileListIndexNoted = FileListTestOf<Access>;

TEST_F(FileListIndexNoted, SetCurIndexIsAnAccessWithInformation) {
  EXPECT_EQ(list.SetCurIndex(8), 1234);
  EXPECT_EQ(list.calls, "8+i ");
}

TEST_F(FileListIndexNoted, SetCurToNothingResetsIndexedAccess) {
  ASSERT_EQ(Scan(), 0);
  list.calls.clear();
  EXPECT_EQ(list.SetCur(nullptr), 0);
  EXPECT_EQ(list.calls, "init ");
  list.calls.clear();
  list.SetCur(Arg("somewhere"));
  EXPECT_EQ(list.calls, "");
}

// Notes the steps of an access that a derived class may have replaced.
class Steps : public CQFileList {
 public:
  std::string calls;
  int SetCur(char* path) override {
    calls += "cursor ";
    return CQFileList::SetCur(path);
  }
};
using FileListIndexSteps = FileListTestOf<Steps>;

TEST_F(FileListIndexSteps, ADerivedListDoesEachStepOfAnAccess) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  for (const bool withInfo : {true, false}) {
    CQFileListItem item = flm_test::MarkedItem();
    list.calls.clear();
    EXPECT_EQ(list.GetAt(2, &item, withInfo), 0);
    EXPECT_EQ(list.calls, "cursor ");
    EXPECT_EQ(item.filePath, On("DCIM/101PHOTO/QVX_0007.JPG"));
    EXPECT_EQ(item.isProtected == 77, !withInfo);
    EXPECT_EQ(list.GetCurIndex(), 2);
  }
}

TEST_F(FileListIndexSteps, AnAccessBehindTheEndLeavesNoIndex) {
  MakeFivePictures();
  ASSERT_EQ(Scan(), 5);
  CQFileListItem item;
  list.calls.clear();
  EXPECT_LT(list.GetAt(5, &item, true), 0);
  EXPECT_EQ(list.calls, "");
  EXPECT_LT(list.GetCurIndex(), 0);
}

TEST_F(FileListIndex, FilesOfOneNumberAreToldApart) {
  card.MakeFile("DCIM/100PHOTO/HDV_0001.MP4");
  ASSERT_EQ(list.Listup(0), 6);
  EXPECT_EQ(list.SetCur(Arg(On("DCIM/100PHOTO/HDV_0001.MP4"))), 0);
  CQFileListItem item;
  ASSERT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/HDV_0001.MP4"));
}

}  // namespace
