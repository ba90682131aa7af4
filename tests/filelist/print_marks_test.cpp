// Print marks of single files and of all files: what is stored, what is refused, in which order.
#include <gtest/gtest.h>

#include <climits>

#include "dcf/CQDCFList.h"
#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/101PHOTO/QVX_0002.JPG";
constexpr char kMovie[] = "DCIM/101PHOTO/QVX_0003.MP4";
constexpr char kUnknown[] = "DCIM/100PHOTO/QVX_0009.JPG";
constexpr char kUnknownFolder[] = "DCIM/777PHOTO/QVX_0001.JPG";

// One setting with its setters and its getter, and the codes by which they differ.
struct Setting {
  const char* name;
  int byte;
  int (CQFileList::*set)(CQFileListItem*, int);
  int (CQFileList::*get)(CQFileListItem*);
  int (CQFileList::*setAll)(int);
  int nullSet;
  int emptySet;
  int tooSmall;
};
const Setting kCopies = {
    "copies", 2, &CQFileList::SetDPOF, &CQFileList::GetDPOFNumOfCopy, &CQFileList::SetDPOFAll, -2,
    -5,       -3};
const Setting kEdit = {
    "edit", 13, &CQFileList::SetDPOFEdit, &CQFileList::GetDPOFEdit, &CQFileList::SetDPOFEditAll, -2,
    -5,     -3};
const Setting kSize = {
    "size", 15, &CQFileList::SetDPOFSize, &CQFileList::GetDPOFSize, &CQFileList::SetDPOFSizeAll, -3,
    -4,     -2};
const Setting kSettings[] = {kCopies, kEdit, kSize};

class PrintMarks : public testing::Test {
 protected:
  PrintMarks() { EXPECT_EQ(3, at_.With({kOne, kTwo, kMovie})); }
  int Set(const Setting& setting, const std::string& file, int value) {
    CQFileListItem item = at_.Item(file);
    return (at_.list.*setting.set)(&item, value);
  }
  int Get(const Setting& setting, const std::string& file) {
    CQFileListItem item = at_.Item(file);
    return (at_.list.*setting.get)(&item);
  }
  bool InIndex(const std::string& file) {
    CQFileListItem item = at_.Item(file);
    return at_.list.GetDPOFIndex(&item);
  }
  ListedCard at_;
};

TEST_F(PrintMarks, NothingIsOrderedAfterTheScan) {
  for (const Setting& setting : kSettings) {
    EXPECT_EQ(0, Get(setting, kOne)) << setting.name;
    EXPECT_EQ(0, Get(setting, kMovie)) << setting.name;
  }
  EXPECT_FALSE(InIndex(kOne));
}

TEST_F(PrintMarks, ASettingIsStoredForOneFileAlone) {
  for (const Setting& setting : kSettings) {
    SCOPED_TRACE(setting.name);
    for (const int value : {1, 50, 99, 0}) {
      EXPECT_EQ(0, Set(setting, kTwo, value));
      EXPECT_EQ(value, Get(setting, kTwo));
      EXPECT_EQ(0, Get(setting, kOne));
    }
  }
}

TEST_F(PrintMarks, SettingsAreApart) {
  ASSERT_EQ(0, Set(kCopies, kOne, 2));
  ASSERT_EQ(0, Set(kEdit, kOne, 3));
  ASSERT_EQ(0, Set(kSize, kOne, 4));
  EXPECT_EQ(2, Get(kCopies, kOne));
  EXPECT_EQ(3, Get(kEdit, kOne));
  EXPECT_EQ(4, Get(kSize, kOne));
  EXPECT_FALSE(InIndex(kOne));
}

TEST_F(PrintMarks, ASettingLivesInTheCataloguesByteOfItsNumber) {
  for (const Setting& setting : kSettings) {
    ASSERT_EQ(0, Set(setting, kTwo, setting.byte + 1));
    const std::string path = at_.card.Path(kTwo);
    EXPECT_EQ(setting.byte + 1, at_.list.GetDCFList()->GetCustomInfo(path.c_str(), setting.byte));
  }
  ASSERT_EQ(0, at_.list.SetDPOFIndex(true));
  EXPECT_EQ(1, at_.list.GetDCFList()->GetCustomInfo(at_.card.Path(kTwo).c_str(), 14));
}

TEST_F(PrintMarks, CopiesAndEditOfOneFileEndAt99) {
  for (const Setting& setting : {kCopies, kEdit}) {
    SCOPED_TRACE(setting.name);
    ASSERT_EQ(0, Set(setting, kOne, 7));
    EXPECT_EQ(-4, Set(setting, kOne, 100));
    EXPECT_EQ(-4, Set(setting, kOne, INT_MAX));
    EXPECT_EQ(7, Get(setting, kOne));
  }
}

TEST_F(PrintMarks, AValueBelowZeroIsRefused) {
  for (const Setting& setting : kSettings) {
    SCOPED_TRACE(setting.name);
    ASSERT_EQ(0, Set(setting, kOne, 7));
    EXPECT_EQ(setting.tooSmall, Set(setting, kOne, -1));
    EXPECT_EQ(setting.tooSmall, Set(setting, kOne, INT_MIN));
    EXPECT_EQ(-2, (at_.list.*setting.setAll)(-1));
    EXPECT_EQ(-2, (at_.list.*setting.setAll)(INT_MIN));
    EXPECT_EQ(7, Get(setting, kOne));
  }
}

TEST_F(PrintMarks, TheSizeOfOneFileIsStoredInEightBits) {
  EXPECT_EQ(0, Set(kSize, kOne, 254));
  EXPECT_EQ(254, Get(kSize, kOne));
  EXPECT_EQ(0, Set(kSize, kOne, 300));
  EXPECT_EQ(44, Get(kSize, kOne));
}

TEST_F(PrintMarks, AValueForAllFilesHasNoUpperEnd) {
  for (const Setting& setting : kSettings) {
    SCOPED_TRACE(setting.name);
    EXPECT_EQ(0, (at_.list.*setting.setAll)(100));
    EXPECT_EQ(100, Get(setting, kOne));
    EXPECT_EQ(100, Get(setting, kTwo));
    EXPECT_EQ(0, (at_.list.*setting.setAll)(300));
    EXPECT_EQ(44, Get(setting, kOne));
    EXPECT_EQ(0, (at_.list.*setting.setAll)(256));
    EXPECT_EQ(0, Get(setting, kTwo));
  }
}

TEST_F(PrintMarks, AStored255ReadsAsNotHeld) {
  for (const Setting& setting : kSettings) {
    ASSERT_EQ(0, (at_.list.*setting.setAll)(255));
    EXPECT_EQ(-100, Get(setting, kOne)) << setting.name;
  }
}

TEST_F(PrintMarks, MoviesAreNotOrdered) {
  EXPECT_EQ(-200, Set(kCopies, kMovie, 1));
  EXPECT_EQ(-202, Set(kSize, kMovie, 1));
  EXPECT_EQ(0, at_.list.SetDPOFAll(5));
  EXPECT_EQ(0, at_.list.SetDPOFSizeAll(5));
  EXPECT_EQ(0, at_.list.SetDPOFIndex(true));
  EXPECT_EQ(0, Get(kCopies, kMovie));
  EXPECT_EQ(0, Get(kSize, kMovie));
  EXPECT_FALSE(InIndex(kMovie));
}

TEST_F(PrintMarks, MoviesHaveAnEditValue) {
  EXPECT_EQ(0, Set(kEdit, kMovie, 6));
  EXPECT_EQ(6, Get(kEdit, kMovie));
  EXPECT_EQ(0, at_.list.SetDPOFEditAll(8));
  EXPECT_EQ(8, Get(kEdit, kMovie));
}

TEST_F(PrintMarks, TheIndexTakesAllPicturesOrNone) {
  EXPECT_EQ(0, at_.list.SetDPOFIndex(true));
  EXPECT_TRUE(InIndex(kOne));
  EXPECT_TRUE(InIndex(kTwo));
  EXPECT_EQ(0, at_.list.SetDPOFIndex(false));
  EXPECT_FALSE(InIndex(kOne));
}

TEST_F(PrintMarks, OnlyExactlyOneMeansInTheIndex) {
  const std::string path = at_.card.Path(kOne);
  ASSERT_EQ(0, at_.list.GetDCFList()->SetCustomInfo(path.c_str(), 14, 2));
  EXPECT_FALSE(InIndex(kOne));
  ASSERT_EQ(0, at_.list.GetDCFList()->SetCustomInfo(path.c_str(), 14, 1));
  EXPECT_TRUE(InIndex(kOne));
}

TEST_F(PrintMarks, AFileOfAnUnknownFolderIsNotHeld) {
  for (const Setting& setting : kSettings) {
    EXPECT_EQ(-1, Set(setting, kUnknownFolder, 5)) << setting.name;
    EXPECT_EQ(-100, Get(setting, kUnknownFolder)) << setting.name;
  }
  EXPECT_FALSE(InIndex(kUnknownFolder));
}

TEST_F(PrintMarks, AnUnknownFileOfAKnownFolderReadsAsNotOrdered) {
  for (const Setting& setting : kSettings) {
    EXPECT_EQ(-1, Set(setting, kUnknown, 5)) << setting.name;
    EXPECT_EQ(0, Get(setting, kUnknown)) << setting.name;
  }
  EXPECT_FALSE(InIndex(kUnknown));
}

TEST_F(PrintMarks, TheEditValueAndTheMultiPictureLetterShareAPlace) {
  ListedCard at;
  ASSERT_EQ(1, at.With({kOne, "DCIM/100PHOTO/QVX_0001.MPO"}));
  CQFileListItem item = at.At(0);
  EXPECT_EQ('M', at.list.GetDPOFEdit(&item));
  EXPECT_EQ(0, at.list.SetDPOFEdit(&item, 65));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0001.  A", at.Relative(at.At(0).objectPath));
  EXPECT_EQ(0, at.list.SetObject(&item, FILE_ADD_MULTI_PICTURE, true));
  EXPECT_EQ('M', at.list.GetDPOFEdit(&item));
}

TEST_F(PrintMarks, NullItemsAreRefused) {
  for (const Setting& setting : kSettings) {
    EXPECT_EQ(setting.nullSet, (at_.list.*setting.set)(nullptr, 5)) << setting.name;
    EXPECT_EQ(-2, (at_.list.*setting.get)(nullptr)) << setting.name;
  }
  EXPECT_FALSE(at_.list.GetDPOFIndex(nullptr));
}

TEST_F(PrintMarks, ItemsWithoutAPathAreRefused) {
  CQFileListItem empty;
  for (const Setting& setting : kSettings) {
    EXPECT_EQ(setting.emptySet, (at_.list.*setting.set)(&empty, 5)) << setting.name;
    EXPECT_EQ(-3, (at_.list.*setting.get)(&empty)) << setting.name;
  }
  EXPECT_FALSE(at_.list.GetDPOFIndex(&empty));
}

TEST_F(PrintMarks, TheItemIsLookedAtBeforeTheNumberOfCopiesAndTheSizeBeforeTheItem) {
  CQFileListItem empty;
  EXPECT_EQ(-2, at_.list.SetDPOF(nullptr, -1));
  EXPECT_EQ(-5, at_.list.SetDPOF(&empty, -1));
  EXPECT_EQ(-5, at_.list.SetDPOF(&empty, 100));
  EXPECT_EQ(-2, at_.list.SetDPOFEdit(nullptr, 100));
  EXPECT_EQ(-5, at_.list.SetDPOFEdit(&empty, -1));
  EXPECT_EQ(-2, at_.list.SetDPOFSize(nullptr, -1));
  EXPECT_EQ(-2, at_.list.SetDPOFSize(&empty, -1));
}

TEST_F(PrintMarks, AnOverlongPathIsRefusedByTheReadingOfCopies) {
  CQFileListItem item;
  std::string(sizeof(item.filePath), 'a').copy(item.filePath, sizeof(item.filePath));
  EXPECT_EQ(-4, at_.list.GetDPOFNumOfCopy(&item));
  item.filePath[127] = '\0';
  EXPECT_EQ(-100, at_.list.GetDPOFNumOfCopy(&item));
}

TEST(PrintMarksWithoutACatalogue, TheEditValueLooksForItFirst) {
  ListedCard at;
  EXPECT_EQ(-1, at.list.SetDPOFEdit(nullptr, -1));
  EXPECT_EQ(-1, at.list.GetDPOFEdit(nullptr));
  EXPECT_EQ(-1, at.list.SetDPOFEditAll(-1));
}

TEST(PrintMarksWithoutACatalogue, TheOthersLookForItLast) {
  ListedCard at;
  CQFileListItem empty;
  CQFileListItem item = at.Item(kOne);
  EXPECT_EQ(-2, at.list.SetDPOF(nullptr, 5));
  EXPECT_EQ(-5, at.list.SetDPOF(&empty, 5));
  EXPECT_EQ(-3, at.list.SetDPOF(&item, -1));
  EXPECT_EQ(-4, at.list.SetDPOF(&item, 100));
  EXPECT_EQ(-6, at.list.SetDPOF(&item, 5));
  EXPECT_EQ(-3, at.list.SetDPOFSize(nullptr, 5));
  EXPECT_EQ(-4, at.list.SetDPOFSize(&empty, 5));
  EXPECT_EQ(-6, at.list.SetDPOFSize(&item, 5));
  EXPECT_EQ(-2, at.list.SetDPOFAll(-1));
  EXPECT_EQ(-6, at.list.SetDPOFAll(5));
  EXPECT_EQ(-2, at.list.SetDPOFSizeAll(-1));
  EXPECT_EQ(-6, at.list.SetDPOFSizeAll(5));
  EXPECT_EQ(-6, at.list.SetDPOFIndex(true));
}

TEST(PrintMarksWithoutACatalogue, ReadingLooksForItLast) {
  ListedCard at;
  CQFileListItem empty;
  CQFileListItem item = at.Item(kOne);
  CQFileListItem unterminated;
  std::string(128, 'a').copy(unterminated.filePath, 128);
  EXPECT_EQ(-2, at.list.GetDPOFNumOfCopy(nullptr));
  EXPECT_EQ(-3, at.list.GetDPOFNumOfCopy(&empty));
  EXPECT_EQ(-4, at.list.GetDPOFNumOfCopy(&unterminated));
  EXPECT_EQ(-6, at.list.GetDPOFNumOfCopy(&item));
  EXPECT_EQ(-2, at.list.GetDPOFSize(nullptr));
  EXPECT_EQ(-3, at.list.GetDPOFSize(&empty));
  EXPECT_EQ(-6, at.list.GetDPOFSize(&item));
  EXPECT_FALSE(at.list.GetDPOFIndex(nullptr));
  EXPECT_FALSE(at.list.GetDPOFIndex(&empty));
  EXPECT_FALSE(at.list.GetDPOFIndex(&item));
}

}  // namespace
