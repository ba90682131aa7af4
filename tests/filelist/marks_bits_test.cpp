// Setting, reading and counting the marks of files: selection, wifi, and the one mark that voice
// memos and continuous captures share.
#include <gtest/gtest.h>

#include "dcf/CQDCFList.h"
#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;

constexpr char kFirst[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kSecond[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kThird[] = "DCIM/101PHOTO/QVX_0001.JPG";
constexpr char kMovie[] = "DCIM/101PHOTO/QVX_0002.MP4";
constexpr char kUnknown[] = "DCIM/100PHOTO/QVX_0009.JPG";

// One mark, as the operations of its family see it.
struct Family {
  const char* name;
  int bit;
  int noCatalogue;
  bool catalogueFirst;
  int (CQFileList::*set)(CQFileListItem*, bool);
  bool (CQFileList::*is)(CQFileListItem*);
};
const Family kFamilies[] = {
    {"Sel", 5, -6, false, &CQFileList::SetSel, &CQFileList::IsSel},
    {"WifiFlag", 4, -6, false, &CQFileList::SetWifiFlag, &CQFileList::IsWifiFlag},
    {"VoiceRec", 7, -1, true, &CQFileList::SetVoiceRec, &CQFileList::IsVoiceRec},
    {"ConsCap", 7, -1, true, &CQFileList::SetConsCap, &CQFileList::IsConsCap},
};

// The families that can be set for all files and counted.
struct Whole {
  const char* name;
  int noCatalogue;
  int (CQFileList::*setAll)(bool);
  int (CQFileList::*count)();
  int (CQFileList::*set)(CQFileListItem*, bool);
};
const Whole kWholes[] = {
    {"Sel", -6, &CQFileList::SetSelAll, &CQFileList::GetSelCount, &CQFileList::SetSel},
    {"VoiceRec", -1, &CQFileList::SetVoiceRecAll, &CQFileList::GetVoiceRecCount,
     &CQFileList::SetVoiceRec},
    {"ConsCap", -1, &CQFileList::SetConsCapAll, &CQFileList::GetConsCount, &CQFileList::SetConsCap},
};

class MarksOfFiles : public testing::Test {
 protected:
  MarksOfFiles() { count_ = at_.With({kFirst, kSecond, kThird, kMovie}); }
  ListedCard at_;
  int count_;
};

TEST_F(MarksOfFiles, AMarkIsOffAfterTheScan) {
  ASSERT_EQ(4, count_);
  for (const Family& family : kFamilies) {
    CQFileListItem item = at_.Item(kFirst);
    EXPECT_FALSE((at_.list.*family.is)(&item)) << family.name;
  }
}

TEST_F(MarksOfFiles, AMarkIsSetAndClearedForOneFileAlone) {
  for (const Family& family : kFamilies) {
    SCOPED_TRACE(family.name);
    CQFileListItem item = at_.Item(kSecond);
    CQFileListItem before = at_.Item(kFirst);
    CQFileListItem behind = at_.Item(kThird);
    EXPECT_EQ(0, (at_.list.*family.set)(&item, true));
    EXPECT_TRUE((at_.list.*family.is)(&item));
    EXPECT_FALSE((at_.list.*family.is)(&before));
    EXPECT_FALSE((at_.list.*family.is)(&behind));
    EXPECT_EQ(0, (at_.list.*family.set)(&item, false));
    EXPECT_FALSE((at_.list.*family.is)(&item));
  }
}

TEST_F(MarksOfFiles, AMovieIsMarkedLikeAPicture) {
  for (const Family& family : kFamilies) {
    CQFileListItem item = at_.Item(kMovie);
    EXPECT_EQ(0, (at_.list.*family.set)(&item, true)) << family.name;
    EXPECT_TRUE((at_.list.*family.is)(&item)) << family.name;
  }
}

TEST_F(MarksOfFiles, AMarkLivesInTheCataloguesBitOfItsNumber) {
  for (const Family& family : kFamilies) {
    SCOPED_TRACE(family.name);
    CQFileListItem item = at_.Item(kSecond);
    EXPECT_FALSE(at_.list.GetDCFList()->GetCustomBit(item.filePath, family.bit));
    EXPECT_EQ(0, (at_.list.*family.set)(&item, true));
    EXPECT_TRUE(at_.list.GetDCFList()->GetCustomBit(item.filePath, family.bit));
    EXPECT_EQ(1, at_.list.GetDCFList()->GetCustomBitCount(family.bit));
    EXPECT_EQ(0, (at_.list.*family.set)(&item, false));
  }
}

TEST_F(MarksOfFiles, SelectionAndWifiAndCaptureAreApart) {
  CQFileListItem item = at_.Item(kFirst);
  ASSERT_EQ(0, at_.list.SetWifiFlag(&item, true));
  EXPECT_FALSE(at_.list.IsSel(&item));
  EXPECT_FALSE(at_.list.IsVoiceRec(&item));
  ASSERT_EQ(0, at_.list.SetSel(&item, true));
  ASSERT_EQ(0, at_.list.SetWifiFlag(&item, false));
  EXPECT_TRUE(at_.list.IsSel(&item));
  EXPECT_FALSE(at_.list.IsVoiceRec(&item));
}

TEST_F(MarksOfFiles, MarkingChangesNeitherTheItemNorTheCard) {
  const std::vector<std::string> tree = at_.card.Tree();
  CQFileListItem item = at_.Item(kFirst);
  ASSERT_EQ(0, at_.list.SetSel(&item, true));
  EXPECT_EQ(kFirst, at_.NameOf(item));
  EXPECT_EQ(0, item.selected);
  EXPECT_EQ(tree, at_.card.Tree());
  EXPECT_FALSE(at_.card.IsReadOnly(kFirst));
}

TEST_F(MarksOfFiles, ANullItemIsRefused) {
  for (const Family& family : kFamilies) {
    EXPECT_EQ(-2, (at_.list.*family.set)(nullptr, true)) << family.name;
    EXPECT_FALSE((at_.list.*family.is)(nullptr)) << family.name;
  }
}

TEST_F(MarksOfFiles, AnItemWithoutAPathIsRefusedAndNothingIsMarked) {
  for (const Family& family : kFamilies) {
    CQFileListItem item;
    EXPECT_EQ(-3, (at_.list.*family.set)(&item, true)) << family.name;
    EXPECT_FALSE((at_.list.*family.is)(&item)) << family.name;
    EXPECT_EQ(0, at_.list.GetDCFList()->GetCustomBitCount(family.bit)) << family.name;
  }
}

TEST_F(MarksOfFiles, AFileThatIsNotHeldCannotBeMarked) {
  const std::string paths[] = {at_.card.Path(kUnknown),
                               at_.card.Path("DCIM/777PHOTO/QVX_0001.JPG"),
                               "/",
                               "x",
                               at_.card.Root(),
                               std::string(127, 'a'),
                               std::string(127, '/')};
  for (const Family& family : kFamilies) {
    for (const std::string& path : paths) {
      SCOPED_TRACE(std::string(family.name) + " " + path);
      CQFileListItem item;
      flm::CopyText(item.filePath, sizeof(item.filePath), path.c_str());
      EXPECT_EQ(-1, (at_.list.*family.set)(&item, true));
      EXPECT_FALSE((at_.list.*family.is)(&item));
      EXPECT_EQ(0, at_.list.GetDCFList()->GetCustomBitCount(family.bit));
    }
  }
}

TEST(MarksWithoutACatalogue, TheOrderOfTheChecksDiffersFromFamilyToFamily) {
  ListedCard at;
  for (const Family& family : kFamilies) {
    SCOPED_TRACE(family.name);
    CQFileListItem empty;
    CQFileListItem item = at.Item(kFirst);
    EXPECT_EQ(family.catalogueFirst ? -1 : -2, (at.list.*family.set)(nullptr, true));
    EXPECT_EQ(family.catalogueFirst ? -1 : -3, (at.list.*family.set)(&empty, true));
    EXPECT_EQ(family.noCatalogue, (at.list.*family.set)(&item, true));
    EXPECT_FALSE((at.list.*family.is)(nullptr));
    EXPECT_FALSE((at.list.*family.is)(&empty));
    EXPECT_FALSE((at.list.*family.is)(&item));
  }
}

TEST(MarksWithoutACatalogue, WholeListOperationsGiveTheirFamilysCode) {
  ListedCard at;
  for (const Whole& whole : kWholes) {
    EXPECT_EQ(whole.noCatalogue, (at.list.*whole.setAll)(true)) << whole.name;
    EXPECT_EQ(whole.noCatalogue, (at.list.*whole.count)()) << whole.name;
  }
}

TEST(MarksWithoutACatalogue, ADestroyedListAnswersLikeOneNeverScanned) {
  ListedCard at;
  ASSERT_EQ(1, at.With({kFirst}));
  at.list.Destroy();
  CQFileListItem item = at.Item(kFirst);
  EXPECT_EQ(-6, at.list.SetSel(&item, true));
  EXPECT_EQ(-1, at.list.SetConsCap(&item, true));
  EXPECT_EQ(-6, at.list.GetSelCount());
  EXPECT_EQ(-1, at.list.GetConsCount());
}

TEST_F(MarksOfFiles, AllFilesOfAllFoldersAreMarkedAndUnmarkedAtOnce) {
  for (const Whole& whole : kWholes) {
    SCOPED_TRACE(whole.name);
    EXPECT_EQ(0, (at_.list.*whole.count)());
    EXPECT_EQ(0, (at_.list.*whole.setAll)(true));
    EXPECT_EQ(4, (at_.list.*whole.count)());
    EXPECT_EQ(0, (at_.list.*whole.setAll)(false));
    EXPECT_EQ(0, (at_.list.*whole.count)());
  }
}

TEST_F(MarksOfFiles, TheCountFollowsEachFile) {
  for (const Whole& whole : kWholes) {
    SCOPED_TRACE(whole.name);
    CQFileListItem first = at_.Item(kFirst);
    CQFileListItem third = at_.Item(kThird);
    (at_.list.*whole.set)(&first, true);
    EXPECT_EQ(1, (at_.list.*whole.count)());
    (at_.list.*whole.set)(&third, true);
    (at_.list.*whole.set)(&third, true);
    EXPECT_EQ(2, (at_.list.*whole.count)());
    (at_.list.*whole.setAll)(false);
    EXPECT_EQ(0, (at_.list.*whole.count)());
  }
}

TEST_F(MarksOfFiles, AVoiceMemoMarkIsACaptureMark) {
  CQFileListItem item = at_.Item(kThird);
  EXPECT_EQ(0, at_.list.SetVoiceRec(&item, true));
  EXPECT_TRUE(at_.list.IsConsCap(&item));
  EXPECT_EQ(1, at_.list.GetConsCount());
  EXPECT_EQ(0, at_.list.SetConsCap(&item, false));
  EXPECT_FALSE(at_.list.IsVoiceRec(&item));
  EXPECT_EQ(0, at_.list.GetVoiceRecCount());
}

TEST_F(MarksOfFiles, ClearingAllCaptureMarksClearsAllVoiceMemoMarks) {
  ASSERT_EQ(0, at_.list.SetVoiceRecAll(true));
  EXPECT_EQ(4, at_.list.GetConsCount());
  EXPECT_EQ(0, at_.list.SetConsCapAll(false));
  EXPECT_EQ(0, at_.list.GetVoiceRecCount());
}

TEST_F(MarksOfFiles, SelectingAllLeavesOtherMarksAlone) {
  CQFileListItem item = at_.Item(kFirst);
  ASSERT_EQ(0, at_.list.SetWifiFlag(&item, true));
  ASSERT_EQ(0, at_.list.SetSelAll(true));
  EXPECT_EQ(0, at_.list.GetVoiceRecCount());
  ASSERT_EQ(0, at_.list.SetSelAll(false));
  EXPECT_TRUE(at_.list.IsWifiFlag(&item));
}

TEST_F(MarksOfFiles, MarksAreReadThroughEveryInterface) {
  CQFileListItem item = at_.Item(kFirst);
  IQFileList& list = at_.list;
  IQSelectedFileList& selected = at_.list;
  EXPECT_EQ(0, list.SetSel(&item, true));
  EXPECT_EQ(1, selected.GetSelCount());
}

TEST_F(MarksOfFiles, FilesOfOneNumberAreMarkedApart) {
  ListedCard at;
  ASSERT_EQ(2, at.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0001.MP4"}));
  CQFileListItem picture = at.Item("DCIM/100PHOTO/QVX_0001.JPG");
  CQFileListItem movie = at.Item("DCIM/100PHOTO/QVX_0001.MP4");
  EXPECT_EQ(0, at.list.SetSel(&movie, true));
  EXPECT_FALSE(at.list.IsSel(&picture));
  EXPECT_TRUE(at.list.IsSel(&movie));
}

TEST(MarksInTheCameraFolder, FilesAreToldApartByTheirNames) {
  ListedCard at;
  ASSERT_EQ(2, at.With({"DCIM/CAMERA01/FIRST_PICTURE.JPG", "DCIM/CAMERA01/OTHER_PICTURE.JPG"}));
  CQFileListItem first = at.Item("DCIM/CAMERA01/FIRST_PICTURE.JPG");
  CQFileListItem other = at.Item("DCIM/CAMERA01/OTHER_PICTURE.JPG");
  EXPECT_EQ(0, at.list.SetSel(&other, true));
  EXPECT_FALSE(at.list.IsSel(&first));
  EXPECT_TRUE(at.list.IsSel(&other));
  EXPECT_EQ(1, at.list.GetSelCount());
}

TEST(MarksAndTheScan, ANewScanForgetsTheMarks) {
  ListedCard at;
  ASSERT_EQ(2, at.With({kFirst, kSecond}));
  ASSERT_EQ(0, at.list.SetSelAll(true));
  ASSERT_EQ(0, at.list.SetVoiceRecAll(true));
  ASSERT_EQ(2, at.Scan());
  EXPECT_EQ(0, at.list.GetSelCount());
  EXPECT_EQ(0, at.list.GetVoiceRecCount());
}

TEST(MarksOnAnEmptyCard, WholeListOperationsSucceedAndCountNothing) {
  ListedCard at;
  ASSERT_EQ(0, at.Scan());
  for (const Whole& whole : kWholes) {
    EXPECT_EQ(0, (at.list.*whole.setAll)(true)) << whole.name;
    EXPECT_EQ(0, (at.list.*whole.count)()) << whole.name;
  }
}

}  // namespace
