// Deleting one file: what goes with it, what follows it, what is left alone.
#include <gtest/gtest.h>

#include "dcf/CQDCFList.h"
#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kThree[] = "DCIM/100PHOTO/QVX_0003.JPG";
constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";
using Names = std::vector<std::string>;

class DeletingOne : public testing::Test {
 protected:
  void WithThree() { ASSERT_EQ(3, at_.With({kOne, kTwo, kThree})); }
  ListedCard at_;
};

TEST_F(DeletingOne, TheFileLeavesTheCardAndTheList) {
  WithThree();
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(10000003, at_.list.Delete(&item, false, false));
  EXPECT_FALSE(at_.card.Exists(kTwo));
  EXPECT_EQ((Names{kOne, kThree}), at_.Files());
  EXPECT_EQ(2, at_.list.GetCount());
  EXPECT_EQ(2, at_.list.DCF_GetCount());
  EXPECT_EQ(0, at_.list.IsExist(flm_test::Arg(at_.card.Path(kTwo))));
  EXPECT_TRUE(at_.card.Exists(kOne));
  EXPECT_TRUE(at_.card.Exists(kThree));
}

TEST_F(DeletingOne, TheResultIsTheNewestFileThatIsLeft) {
  WithThree();
  CQFileListItem item = at_.At(2);
  EXPECT_EQ(10000002, at_.list.Delete(&item, false, false));
  int dirNumber = 0;
  int fileNumber = 0;
  ASSERT_EQ(0, at_.list.GetLastIndex(&dirNumber, &fileNumber));
  EXPECT_EQ(100, dirNumber);
  EXPECT_EQ(2, fileNumber);
}

TEST_F(DeletingOne, ANullItemIsRefused) {
  WithThree();
  EXPECT_EQ(-2, at_.list.Delete(nullptr, true, true));
  EXPECT_EQ(-2, at_.list.DeleteCons(nullptr, true, true));
  EXPECT_EQ(-2, at_.list.DeleteVoiceRec(nullptr, true, true));
  EXPECT_EQ(3, at_.list.GetCount());
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
}

TEST_F(DeletingOne, AProtectedFileIsKept) {
  WithThree();
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetAt(2, &current, false));
  at_.card.SetReadOnly(kTwo, true);
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(-100, at_.list.Delete(&item, false, true));
  EXPECT_TRUE(at_.card.Exists(kTwo));
  EXPECT_TRUE(at_.card.IsReadOnly(kTwo));
  EXPECT_EQ(3, at_.list.GetCount());
  EXPECT_EQ(2, at_.list.GetCurIndex());
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
}

TEST_F(DeletingOne, ForceDeletesAProtectedFile) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(10000003, at_.list.Delete(&item, true, false));
  EXPECT_FALSE(at_.card.Exists(kTwo));
  EXPECT_EQ((Names{kOne, kThree}), at_.Files());
}

TEST_F(DeletingOne, ForceDoesNotMindAProtectionThatCannotBeTakenAway) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  flm::Os().Chmod = [](const char*, mode_t) { return -1; };
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(10000003, at_.list.Delete(&item, true, false));
  EXPECT_FALSE(at_.card.Exists(kTwo));
}

TEST_F(DeletingOne, ThePathOfTheItemIsAllThatIsNeeded) {
  WithThree();
  CQFileListItem item = at_.Item(kTwo);
  EXPECT_EQ(10000003, at_.list.Delete(&item, false, false));
  EXPECT_EQ((Names{kOne, kThree}), at_.Files());
  EXPECT_EQ(kTwo, at_.NameOf(item));
}

TEST_F(DeletingOne, CompanionsGoWithTheirFile) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.SRW", "DCIM/100PHOTO/QVX_0001.WAV",
                         "DCIM/100PHOTO/QVX_0001.MPO", kTwo, "DCIM/100PHOTO/QVX_0002.WAV"}));
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(10000002, at_.list.Delete(&item, false, false));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.SRW"));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.WAV"));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.MPO"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0002.WAV"));
  EXPECT_EQ((Names{kTwo}), at_.Files());
}

TEST_F(DeletingOne, AMissingCompanionChangesNothing) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.WAV", kTwo}));
  CQFileListItem item = at_.At(0);
  at_.card.Remove("DCIM/100PHOTO/QVX_0001.WAV");
  EXPECT_EQ(10000002, at_.list.Delete(&item, false, false));
  EXPECT_EQ((Names{kTwo}), at_.Files());
}

TEST_F(DeletingOne, AMovieOfTheSameNumberStaysWhenACompanionGoes) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.MP4", "DCIM/100PHOTO/QVX_0001.MPO"}));
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(10000001, at_.list.Delete(&item, false, false));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.MP4"));
  EXPECT_EQ((Names{"DCIM/100PHOTO/QVX_0001.MP4"}), at_.Files());
}

TEST_F(DeletingOne, APictureStaysWhenTheMovieOfItsNumberGoes) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.MP4"}));
  CQFileListItem item = at_.Item("DCIM/100PHOTO/QVX_0001.MP4");
  EXPECT_EQ(10000001, at_.list.Delete(&item, false, false));
  EXPECT_EQ((Names{kOne}), at_.Files());
}

TEST_F(DeletingOne, AFileOfTheCameraFolderIsDeletedByItsWholeName) {
  ASSERT_EQ(2, at_.With({"DCIM/CAMERA01/FIRST_PICTURE.JPG", "DCIM/CAMERA01/OTHER_PICTURE.JPG"}));
  CQFileListItem item = at_.Item("DCIM/CAMERA01/OTHER_PICTURE.JPG");
  EXPECT_LT(0, at_.list.Delete(&item, false, false));
  EXPECT_FALSE(at_.card.Exists("DCIM/CAMERA01/OTHER_PICTURE.JPG"));
  EXPECT_EQ((Names{"DCIM/CAMERA01/FIRST_PICTURE.JPG"}), at_.Files());
}

TEST_F(DeletingOne, ThePrintOrderIsSavedOnlyWhenAsked) {
  WithThree();
  CQFileListItem one = at_.At(0);
  ASSERT_EQ(10000003, at_.list.Delete(&one, false, false));
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
  at_.list.SetDPOFDevName(flm_test::Arg("CAM"));
  CQFileListItem two = at_.At(0);
  ASSERT_EQ(10000003, at_.list.Delete(&two, false, true));
  EXPECT_EQ("[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"CAM\"\r\n\r\n", at_.card.ReadFile(kPrintOrder));
}

TEST_F(DeletingOne, TheSavedPrintOrderNamesOnlyFilesThatAreLeft) {
  WithThree();
  ASSERT_EQ(0, at_.list.SetDPOFAll(1));
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(10000003, at_.list.Delete(&item, false, true));
  const std::string order = at_.card.ReadFile(kPrintOrder);
  EXPECT_EQ(std::string::npos, order.find("QVX_0001.JPG"));
  EXPECT_NE(std::string::npos, order.find("QVX_0002.JPG"));
  EXPECT_NE(std::string::npos, order.find("QVX_0003.JPG"));
}

TEST_F(DeletingOne, APrintOrderThatCannotBeSavedIsReportedAndTheFileIsGone) {
  WithThree();
  at_.card.Remove("MISC");
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(-1000, at_.list.Delete(&item, false, true));
  EXPECT_FALSE(at_.card.Exists(kTwo));
  EXPECT_EQ((Names{kOne, kThree}), at_.Files());
}

TEST_F(DeletingOne, WhenThePrintOrderCannotBeSavedTheEmptyFolderStays) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/101PHOTO/QVX_0001.JPG"}));
  at_.card.Remove("MISC");
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(-1000, at_.list.Delete(&item, false, true));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO"));
}

TEST_F(DeletingOne, TheCurrentPageIsForgotten) {
  WithThree();
  std::vector<CQFileListItem> page(2);
  at_.list.InitPage(2);
  ASSERT_EQ(2, at_.list.GetFirstPage(page.data()));
  ASSERT_EQ(0, at_.list.GetCurPageNum());
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(10000003, at_.list.Delete(&item, false, false));
  EXPECT_EQ(-1, at_.list.GetCurPageNum());
}

TEST_F(DeletingOne, TheCursorEndsOnTheLastFile) {
  WithThree();
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetFirst(&current, false));
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(10000003, at_.list.Delete(&item, false, false));
  EXPECT_EQ(1, at_.list.GetCurIndex());
  ASSERT_EQ(0, at_.list.GetCurrent(&current, false));
  EXPECT_EQ(kThree, at_.NameOf(current));
}

TEST_F(DeletingOne, EveryRemovalIsFlushed) {
  ASSERT_EQ(2, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.WAV", kTwo}));
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(10000002, at_.list.Delete(&item, false, false));
  EXPECT_EQ(2, ListedCard::flushes);
}

TEST_F(DeletingOne, TheOtherTwoNamesDeleteInTheSameWay) {
  WithThree();
  at_.card.SetReadOnly(kTwo, true);
  CQFileListItem one = at_.Item(kOne);
  CQFileListItem two = at_.Item(kTwo);
  EXPECT_EQ(-100, at_.list.DeleteCons(&two, false, true));
  EXPECT_EQ(-100, at_.list.DeleteVoiceRec(&two, false, true));
  EXPECT_EQ(10000003, at_.list.DeleteCons(&one, false, true));
  EXPECT_TRUE(at_.card.Exists(kPrintOrder));
  EXPECT_EQ(10000003, at_.list.DeleteVoiceRec(&two, true, false));
  EXPECT_EQ((Names{kThree}), at_.Files());
}

// A derived list sees every deletion that is asked for by another name.
class Watching : public CQFileList {
 public:
  int Delete(CQFileListItem* /*item*/, bool force, bool saveDpof) override {
    seen.push_back(std::to_string(force) + std::to_string(saveDpof));
    return 77;
  }
  std::vector<std::string> seen;
};

TEST(DeletingByOtherNames, GoesThroughTheVirtualOperation) {
  Watching list;
  CQFileListItem item;
  EXPECT_EQ(77, list.DeleteCons(&item, true, false));
  EXPECT_EQ(77, list.DeleteVoiceRec(&item, false, true));
  EXPECT_EQ((Names{"10", "01"}), list.seen);
}

TEST_F(DeletingOne, TheOnlyFileCanBeDeleted) {
  ASSERT_EQ(1, at_.With({kOne}));
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(10000000, at_.list.Delete(&item, false, true));
  EXPECT_EQ(0, at_.list.GetCount());
  EXPECT_FALSE(at_.card.Exists(kOne));
  EXPECT_EQ("", at_.card.ReadFile(kPrintOrder));
}

}  // namespace
