// Removals that the storage refuses, paths that are not the list's, and lists without a catalogue:
// the catalogue always says what is on the card.
#include <gtest/gtest.h>

#include "dcf/CQDCFList.h"
#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::ListedCard;
using flm_test::Progress;
using Names = std::vector<std::string>;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";

int Refuse(const char* /*path*/) { return -1; }

class RefusedRemoval : public testing::Test {
 protected:
  RefusedRemoval() { EXPECT_EQ(2, at_.With({kOne, kTwo})); }
  void RefuseAll() {
    flm::Os().Unlink = Refuse;
    flm::Os().Remove = Refuse;
  }
  int RemoveOne() { return at_.list.DCF_RemoveFile(Arg(at_.card.Path(kOne)), false); }
  bool HoldsOne() { return at_.list.IsExist(Arg(at_.card.Path(kOne))) == 1; }

  ListedCard at_;
};

TEST_F(RefusedRemoval, AFileThatIsStillThereStaysInTheCatalogue) {
  RefuseAll();
  EXPECT_EQ(-1, RemoveOne());
  EXPECT_TRUE(HoldsOne());
  EXPECT_EQ(2, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, TheStoragesCodeIsTheResult) {
  flm::Os().Unlink = [](const char*) { return -5; };
  EXPECT_EQ(-5, RemoveOne());
  EXPECT_TRUE(HoldsOne());
}

TEST_F(RefusedRemoval, AFileThatIsGoneAnywayLeavesTheCatalogue) {
  at_.card.Remove(kOne);
  EXPECT_EQ(0, RemoveOne());
  EXPECT_FALSE(HoldsOne());
  EXPECT_EQ(1, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, TwoCodesCountAsRemoved) {
  flm::Os().Unlink = [](const char*) { return -4; };
  EXPECT_EQ(0, RemoveOne());
  EXPECT_FALSE(HoldsOne());
  flm::Os().Unlink = [](const char*) { return -13; };
  EXPECT_EQ(0, at_.list.DCF_RemoveFile(Arg(at_.card.Path(kTwo)), false));
  EXPECT_EQ(0, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, RemovingDoesNotTouchTheListsOwnCount) {
  EXPECT_EQ(0, RemoveOne());
  EXPECT_FALSE(at_.card.Exists(kOne));
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_EQ(1, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, TheFlushIsTheCallersChoice) {
  EXPECT_EQ(0, RemoveOne());
  EXPECT_EQ(0, ListedCard::flushes);
  EXPECT_EQ(0, at_.list.DCF_RemoveFile(Arg(at_.card.Path(kTwo)), true));
  EXPECT_EQ(1, ListedCard::flushes);
}

TEST_F(RefusedRemoval, AnEmptyFolderIsRemovedFromTheCard) {
  at_.card.MakeDir("DCIM/105PHOTO");
  EXPECT_GT(0, at_.list.DCF_RemoveFile(Arg(at_.card.Path("DCIM/105PHOTO")), false));
  EXPECT_FALSE(at_.card.Exists("DCIM/105PHOTO"));
  EXPECT_EQ(2, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, AFolderWithFilesIsNotRemoved) {
  EXPECT_EQ(-1, at_.list.DCF_RemoveFile(Arg(at_.card.Path("DCIM/100PHOTO")), false));
  EXPECT_TRUE(at_.card.Exists(kOne));
  EXPECT_EQ(2, at_.list.DCF_GetCount());
}

TEST_F(RefusedRemoval, AFailedDeletionIsReportedAsNothingDeleted) {
  std::vector<CQFileListItem> page(2);
  at_.list.InitPage(2);
  ASSERT_EQ(2, at_.list.GetFirstPage(page.data()));
  RefuseAll();
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(0, at_.list.Delete(&item, false, true));
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_TRUE(at_.card.Exists(kOne));
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
  EXPECT_EQ(0, at_.list.GetCurPageNum());
}

TEST_F(RefusedRemoval, AFailedDeletionLeavesTheCursorOnTheFileBefore) {
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetAt(1, &current, false));
  RefuseAll();
  CQFileListItem item = at_.At(1);
  ASSERT_EQ(0, at_.list.Delete(&item, false, false));
  EXPECT_EQ(0, at_.list.GetCurIndex());
  EXPECT_EQ(0, at_.list.GetCurrent(&current, false));
  EXPECT_EQ(kOne, at_.NameOf(current));
}

TEST_F(RefusedRemoval, AFailedDeletionLeavesNoCursorWhenThereIsNoFileBefore) {
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetAt(0, &current, false));
  RefuseAll();
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(0, at_.list.Delete(&item, false, false));
  EXPECT_EQ(-1, at_.list.GetCurIndex());
  EXPECT_EQ(-1, at_.list.GetCurrent(&current, false));
}

TEST_F(RefusedRemoval, AFileThatVanishedIsDeletedFromTheList) {
  at_.card.Remove(kOne);
  CQFileListItem item = at_.Item(kOne);
  EXPECT_EQ(10000002, at_.list.Delete(&item, false, false));
  EXPECT_EQ((Names{kTwo}), at_.Files());
}

TEST_F(RefusedRemoval, AnItemWithoutAPathDeletesNothing) {
  const Names tree = at_.card.Tree();
  CQFileListItem empty;
  EXPECT_EQ(0, at_.list.Delete(&empty, true, true));
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_EQ(tree, at_.card.Tree());
}

TEST_F(RefusedRemoval, AFileOfAnotherCardIsNeitherRemovedNorUnprotected) {
  flm_test::Card other;
  other.MakeFile(kOne);
  other.SetReadOnly(kOne, true);
  CQFileListItem item;
  flm::CopyText(item.filePath, sizeof(item.filePath), other.Path(kOne).c_str());
  EXPECT_EQ(0, at_.list.Delete(&item, true, true));
  EXPECT_EQ(-1, at_.list.DCF_RemoveFile(item.filePath, false));
  EXPECT_TRUE(other.IsReadOnly(kOne));
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_TRUE(HoldsOne());
}

TEST_F(RefusedRemoval, OddPathsRemoveNothing) {
  const Names tree = at_.card.Tree();
  for (const std::string& path : {std::string(""), std::string("/"), std::string("x"),
                                  std::string(500, 'a'), at_.card.Root(), at_.card.Path("")}) {
    EXPECT_GT(0, at_.list.DCF_RemoveFile(Arg(path), false)) << path;
  }
  EXPECT_EQ(-1, at_.list.DCF_RemoveFile(nullptr, false));
  EXPECT_EQ(tree, at_.card.Tree());
}

int changesAsked = 0;

TEST_F(RefusedRemoval, TheRootAndWhatIsAboveItAreNotEvenTried) {
  changesAsked = 0;
  flm::Os().Unlink = [](const char*) { return --changesAsked; };
  flm::Os().Remove = [](const char*) { return --changesAsked; };
  for (const char* const behind : {"/", "//", "/..", "/../", "/DCIM/..", "/DCIM/../../x"}) {
    EXPECT_EQ(-1, at_.list.DCF_RemoveFile(Arg(at_.card.Root() + behind), false)) << behind;
  }
  EXPECT_EQ(0, changesAsked);
}

TEST_F(RefusedRemoval, NamesThatBeginWithPointsAreNamesLikeOthers) {
  at_.card.MakeFile("DCIM/..NOTES");
  EXPECT_GT(0, at_.list.DCF_RemoveFile(Arg(at_.card.Path("DCIM/..NOTES")), false));
  EXPECT_FALSE(at_.card.Exists("DCIM/..NOTES"));
}

TEST_F(RefusedRemoval, ForceUnprotectsNothingAboveTheRoot) {
  changesAsked = 0;
  flm::Os().Stat = [](const char*, struct stat* status) {
    *status = {};
    status->st_mode = S_IFDIR | 0555;
    return 0;
  };
  flm::Os().Chmod = [](const char*, mode_t) { return --changesAsked; };
  for (const char* const behind : {"/", "/.."}) {
    CQFileListItem item;
    flm::CopyText(item.filePath, sizeof(item.filePath), (at_.card.Root() + behind).c_str());
    EXPECT_EQ(0, at_.list.Delete(&item, true, false)) << behind;
  }
  EXPECT_EQ(0, changesAsked);
}

TEST(DeletionOfTwoCards, OneListNeverTouchesTheOther) {
  ListedCard one;
  ListedCard other;
  ASSERT_EQ(2, one.With({kOne, kTwo}));
  ASSERT_EQ(2, other.With({kOne, kTwo}));
  other.card.SetReadOnly(kOne, true);
  EXPECT_EQ(10000000, one.list.DeleteAll(true, nullptr));
  EXPECT_FALSE(one.card.Exists(kOne));
  EXPECT_TRUE(other.card.Exists(kOne));
  EXPECT_TRUE(other.card.IsReadOnly(kOne));
  EXPECT_EQ((Names{kOne, kTwo}), other.Files());
}

class DeletionWithoutACatalogue : public testing::Test {
 protected:
  DeletionWithoutACatalogue() {
    at_.card.MakeFile(kOne);
    at_.card.MakeFile(kPrintOrder, "untouched");
    tree_ = at_.card.Tree();
    Progress::Begin();
  }
  void ExpectNothingTouched() {
    EXPECT_EQ(tree_, at_.card.Tree());
    EXPECT_EQ("untouched", at_.card.ReadFile(kPrintOrder));
    EXPECT_TRUE(Progress::seen.empty());
  }
  ListedCard at_;
  Names tree_;
};

TEST_F(DeletionWithoutACatalogue, OneFileIsNotRemoved) {
  EXPECT_EQ(-1, at_.list.DCF_RemoveFile(Arg(at_.card.Path(kOne)), true));
  CQFileListItem item = at_.Item(kOne);
  EXPECT_EQ(0, at_.list.Delete(&item, true, true));
  ExpectNothingTouched();
}

TEST_F(DeletionWithoutACatalogue, AllFilesAreNotRemoved) {
  EXPECT_EQ(-1000, at_.list.DeleteAll(true, Progress::Record));
  EXPECT_EQ(-1000, at_.list.RemoveAll(true));
  ExpectNothingTouched();
}

TEST_F(DeletionWithoutACatalogue, MarkedFilesAreNotRemoved) {
  EXPECT_EQ(-1000, at_.list.DeleteSel(true, Progress::Record));
  EXPECT_EQ(-1000, at_.list.DeleteVoiceRecAll(true, Progress::Record));
  EXPECT_EQ(-1000, at_.list.DeleteConsAll(true, Progress::Record));
  ExpectNothingTouched();
}

}  // namespace
