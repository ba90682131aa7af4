// Print marks and the print order file, through the flat functions.
#include "tests/api/flm_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::Count;
using flm_test::ValueAt;

using Values = std::vector<int>;

constexpr char kOrder[] = "MISC/AUTPRINT.MRK";

class FlatPrint : public flm_test::FlatTest {
 protected:
  void SetUp() override { ScanFivePictures(); }
  static void ClearMarks() {
    EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, 0), 0);
    EXPECT_EQ(flm_set_dpof_size_all(FILELIST_MMC, 0), 0);
    EXPECT_EQ(flm_set_dpof_index(FILELIST_MMC, 0), 0);
  }
};

TEST_F(FlatPrint, NothingIsOrderedAtFirst) {
  EXPECT_EQ(All(flm_get_dpof), Values(5, 0));
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 0));
  EXPECT_EQ(All(flm_get_dpof_size), Values(5, 0));
}

TEST_F(FlatPrint, CopiesOfOneFile) {
  EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 1, 3), 0);
  EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 4, 99), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{0, 3, 0, 0, 99}));
  EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 1, 0), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{0, 0, 0, 0, 99}));
}

TEST_F(FlatPrint, CopiesOutOfRangeChangeNothing) {
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 1, 3), 0);
  for (const int copies : {100, -1, INT_MAX, INT_MIN}) {
    EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 1, copies), 0);
  }
  EXPECT_EQ(All(flm_get_dpof), (Values{0, 3, 0, 0, 0}));
}

TEST_F(FlatPrint, CopiesOfEveryFile) {
  EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, 2), 0);
  EXPECT_EQ(All(flm_get_dpof), Values(5, 2));
  EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, -1), 0);
  EXPECT_EQ(All(flm_get_dpof), Values(5, 2));
  EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, 100), 0);
  EXPECT_EQ(All(flm_get_dpof), Values(5, 100));
  EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, 300), 0);
  EXPECT_EQ(All(flm_get_dpof), Values(5, 44));
}

TEST_F(FlatPrint, OnlyPicturesArePrinted) {
  mmc.MakeFile("DCIM/103PHOTO/QVX_0003.MP4");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  ASSERT_EQ(Count(), 6);
  EXPECT_EQ(flm_set_dpof_all(FILELIST_MMC, 1), 0);
  EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 5, 4), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{1, 1, 1, 1, 1, 0}));
}

TEST_F(FlatPrint, TheIndexPrintHasEveryFileOrNone) {
  EXPECT_EQ(flm_set_dpof_index(FILELIST_MMC, 7), 0);
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 1));
  EXPECT_EQ(flm_set_dpof_index(FILELIST_MMC, 0), 0);
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 0));
  EXPECT_EQ(flm_set_dpof_index(FILELIST_MMC, -1), 0);
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 1));
}

TEST_F(FlatPrint, SizesOfOneAndOfEveryFile) {
  EXPECT_EQ(flm_set_dpof_size(FILELIST_MMC, 2, 8), 0);
  EXPECT_EQ(All(flm_get_dpof_size), (Values{0, 0, 8, 0, 0}));
  EXPECT_EQ(flm_set_dpof_size_all(FILELIST_MMC, 5), 0);
  EXPECT_EQ(All(flm_get_dpof_size), Values(5, 5));
  EXPECT_EQ(flm_set_dpof_size(FILELIST_MMC, 2, -1), 0);
  EXPECT_EQ(flm_set_dpof_size_all(FILELIST_MMC, -1), 0);
  EXPECT_EQ(All(flm_get_dpof_size), Values(5, 5));
}

TEST_F(FlatPrint, PastTheEndTheListsCodesAreHandedOut) {
  EXPECT_EQ(flm_set_dpof(FILELIST_MMC, 5, 1), 0);
  EXPECT_EQ(flm_set_dpof_size(FILELIST_MMC, 5, 1), 0);
  EXPECT_EQ(ValueAt(flm_get_dpof, FILELIST_MMC, 5), -3);
  EXPECT_EQ(ValueAt(flm_get_dpof_size, FILELIST_MMC, 5), -3);
  EXPECT_EQ(ValueAt(flm_get_dpof_index, FILELIST_MMC, 5), 0);
  EXPECT_EQ(All(flm_get_dpof), Values(5, 0));
}

// --- File ---------------------------------------------------------------------------------------

TEST_F(FlatPrint, AnOrderIsSavedAndLoaded) {
  mmc.MakeDir("MISC");
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 0, 2), 0);
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 3, 7), 0);
  EXPECT_EQ(flm_save_dpof_info(FILELIST_MMC, Arg("QV-1")), 0);
  ASSERT_TRUE(mmc.Exists(kOrder));
  ClearMarks();
  ASSERT_EQ(All(flm_get_dpof), Values(5, 0));
  EXPECT_EQ(flm_load_dpof_info(FILELIST_MMC), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{2, 0, 0, 7, 0}));
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 0));
}

TEST_F(FlatPrint, TheIndexPrintIsSavedAndLoaded) {
  mmc.MakeDir("MISC");
  ASSERT_EQ(flm_set_dpof_index(FILELIST_MMC, 1), 0);
  EXPECT_EQ(flm_save_dpof_info(FILELIST_MMC, nullptr), 0);
  ClearMarks();
  EXPECT_EQ(flm_load_dpof_info(FILELIST_MMC), 0);
  EXPECT_EQ(All(flm_get_dpof_index), Values(5, 1));
}

TEST_F(FlatPrint, TheDeviceNameStandsInTheOrder) {
  mmc.MakeDir("MISC");
  EXPECT_EQ(flm_save_dpof_info(FILELIST_MMC, Arg("QV-1")), 0);
  EXPECT_NE(mmc.ReadFile(kOrder).find("QV-1"), std::string::npos);
  EXPECT_EQ(flm_save_dpof_info(FILELIST_MMC, nullptr), 0);
  EXPECT_EQ(mmc.ReadFile(kOrder).find("QV-1"), std::string::npos);
}

TEST_F(FlatPrint, AnOrderThatCannotBeSavedIsNoFailure) {
  std::vector<std::string> tree;
  if (mmc.Exists("MISC")) mmc.Remove("MISC");
  mmc.WriteFile("MISC", "not a folder");
  tree = mmc.Tree();
  EXPECT_EQ(flm_save_dpof_info(FILELIST_MMC, Arg("QV-1")), 0);
  EXPECT_EQ(mmc.Tree(), tree);
}

TEST_F(FlatPrint, AnOrderThatIsMissingIsNoFailure) {
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 0, 2), 0);
  ASSERT_FALSE(mmc.Exists(kOrder));
  EXPECT_EQ(flm_load_dpof_info(FILELIST_MMC), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{2, 0, 0, 0, 0}));
}

TEST_F(FlatPrint, AScanLoadsTheOrder) {
  mmc.MakeDir("MISC");
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 2, 5), 0);
  ASSERT_EQ(flm_save_dpof_info(FILELIST_MMC, Arg("QV-1")), 0);
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{0, 0, 5, 0, 0}));
}

TEST_F(FlatPrint, EachCardHasItsOrder) {
  mmc.MakeDir("MISC");
  sd0.MakeDir("MISC");
  sd0.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_set_dpof(FILELIST_MMC, 0, 2), 0);
  ASSERT_EQ(flm_set_dpof(FILELIST_SD0, 1, 3), 0);
  ASSERT_EQ(flm_save_dpof_info(FILELIST_MMC, nullptr), 0);
  ASSERT_EQ(flm_save_dpof_info(FILELIST_SD0, nullptr), 0);
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(All(flm_get_dpof), (Values{2, 0, 0, 0, 0}));
  EXPECT_EQ(ValueAt(flm_get_dpof, FILELIST_SD0, 0), 0);
  EXPECT_EQ(ValueAt(flm_get_dpof, FILELIST_SD0, 1), 3);
}

}  // namespace
