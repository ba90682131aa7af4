// Selection and protection, through the flat functions.
#include "tests/api/flm_fixture.h"

namespace {

using flm_test::Count;
using flm_test::ValueAt;

using Values = std::vector<int>;

class FlatMarks : public flm_test::FlatTest {
 protected:
  void SetUp() override { ScanFivePictures(); }
};

TEST_F(FlatMarks, NothingIsSelectedAtFirst) {
  EXPECT_EQ(All(flm_get_selection), (Values{0, 0, 0, 0, 0}));
}

TEST_F(FlatMarks, OneFileIsSelected) {
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 2, 1), 0);
  EXPECT_EQ(All(flm_get_selection), (Values{0, 0, 1, 0, 0}));
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 2, 0), 0);
  EXPECT_EQ(All(flm_get_selection), (Values{0, 0, 0, 0, 0}));
}

TEST_F(FlatMarks, AnythingButZeroSelects) {
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 0, 7), 0);
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 1, -1), 0);
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 2, INT_MIN), 0);
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 3, 256), 0);
  EXPECT_EQ(All(flm_get_selection), (Values{1, 1, 1, 1, 0}));
}

TEST_F(FlatMarks, SelectingPastTheEndSelectsNothing) {
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, 5, 1), 0);
  EXPECT_EQ(flm_set_selection(FILELIST_MMC, -1, 1), 0);
  EXPECT_EQ(All(flm_get_selection), (Values{0, 0, 0, 0, 0}));
  EXPECT_EQ(ValueAt(flm_get_selection, FILELIST_MMC, 5), 0);
}

TEST_F(FlatMarks, TheSelectionOfOneListIsNotThatOfTheOther) {
  sd0.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_set_selection(FILELIST_SD0, 0, 1), 0);
  EXPECT_EQ(ValueAt(flm_get_selection, FILELIST_SD0, 0), 1);
  EXPECT_EQ(All(flm_get_selection), (Values{0, 0, 0, 0, 0}));
}

TEST_F(FlatMarks, TheSelectionLeavesTheCard) {
  const std::vector<std::string> tree = mmc.Tree();
  ASSERT_EQ(flm_set_selection(FILELIST_MMC, 0, 1), 0);
  EXPECT_EQ(mmc.Tree(), tree);
  EXPECT_FALSE(mmc.IsReadOnly("DCIM/100PHOTO/QVX_0001.JPG"));
}

// --- Protection ---------------------------------------------------------------------------------

TEST_F(FlatMarks, ProtectionIsTheFilesWritePermission) {
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 1, 1), 0);
  EXPECT_TRUE(mmc.IsReadOnly("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_FALSE(mmc.IsReadOnly("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(All(flm_get_protection), (Values{0, 1, 0, 0, 0}));
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 1, 0), 0);
  EXPECT_FALSE(mmc.IsReadOnly("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(All(flm_get_protection), (Values{0, 0, 0, 0, 0}));
}

TEST_F(FlatMarks, AnythingButZeroProtects) {
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 0, -7), 0);
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 1, 256), 0);
  EXPECT_EQ(All(flm_get_protection), (Values{1, 1, 0, 0, 0}));
}

TEST_F(FlatMarks, ProtectionMadeElsewhereIsSeen) {
  mmc.SetReadOnly("DCIM/101PHOTO/QVX_0007.JPG", true);
  EXPECT_EQ(All(flm_get_protection), (Values{0, 0, 1, 0, 0}));
}

TEST_F(FlatMarks, CompanionsAreProtectedWithTheirFile) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0001.WAV");
  mmc.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  ASSERT_EQ(Count(), 5);
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 0, 1), 0);
  for (const char* extension : {"JPG", "WAV", "SRW"}) {
    EXPECT_TRUE(mmc.IsReadOnly(std::string("DCIM/100PHOTO/QVX_0001.") + extension)) << extension;
  }
}

TEST_F(FlatMarks, ProtectingPastTheEndProtectsNothing) {
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 5, 1), 0);
  EXPECT_EQ(All(flm_get_protection), (Values{0, 0, 0, 0, 0}));
  EXPECT_EQ(ValueAt(flm_get_protection, FILELIST_MMC, 5), 0);
}

TEST_F(FlatMarks, AFileThatIsGoneIsNotProtected) {
  mmc.Remove("DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(flm_set_protection(FILELIST_MMC, 0, 1), 0);
  EXPECT_EQ(ValueAt(flm_get_protection, FILELIST_MMC, 0), 0);
}

}  // namespace
