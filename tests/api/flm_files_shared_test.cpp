// Scanning, counting, naming files by index and forgetting them, through the flat functions.
#include <filesystem>

#include "tests/api/flm_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::At;
using flm_test::Count;
using flm_test::Cursor;
using flm_test::Exists;

using FlatFiles = flm_test::FlatTest;

// A list that no test of this process has scanned stands as after flm_init.
class FlatUnscanned : public flm_test::FlatTest {
 protected:
  void SetUp() override {
    if (Count() != -1) GTEST_SKIP() << "another test of this process has scanned the list";
  }
};

TEST_F(FlatUnscanned, TheCountIsMinusOne) {
  EXPECT_EQ(Count(FILELIST_MMC), -1);
  EXPECT_EQ(Count(FILELIST_SD0), -1);
}

TEST_F(FlatUnscanned, ThereIsNoFileAndNoCursor) {
  EXPECT_EQ(At(0), "");
  EXPECT_EQ(Cursor(), -1);
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG"), 0);
}

TEST_F(FlatUnscanned, TheListsOwnCodesAreHandedOut) {
  EXPECT_EQ(flm_test::ValueAt(flm_get_selection, FILELIST_MMC, 0), 0);
  EXPECT_EQ(flm_test::ValueAt(flm_get_protection, FILELIST_MMC, 0), 0);
  EXPECT_EQ(flm_test::ValueAt(flm_get_dpof, FILELIST_MMC, 0), -3);  // no file at the index
  EXPECT_EQ(flm_test::ValueAt(flm_get_dpof_size, FILELIST_MMC, 0), -3);
  EXPECT_EQ(flm_test::ValueAt(flm_get_dpof_index, FILELIST_MMC, 0), 0);
}

TEST_F(FlatUnscanned, NothingIsNamed) {
  char buffer[396] = "untouched";
  char* name = buffer;
  EXPECT_EQ(flm_get_new_filename(FILELIST_MMC, FILETYPE_JPG, &name), 0);
  EXPECT_STREQ(buffer, "untouched");
  EXPECT_TRUE(mmc.Tree().empty());
}

TEST_F(FlatUnscanned, TheSeriesModeDoesNotTakeEffect) {
  EXPECT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES), 0);
  FileListMode mode = FILELIST_MODE_SERIES;
  EXPECT_EQ(flm_get_series_mode(FILELIST_MMC, &mode), 0);
  EXPECT_EQ(mode, FILELIST_MODE_RESET);
}

// --- Scan ---------------------------------------------------------------------------------------

TEST_F(FlatFiles, AScanCountsTheFilesOfItsCard) {
  mmc.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  sd0.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  EXPECT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(Count(FILELIST_MMC), 3);
  EXPECT_EQ(flm_listup(FILELIST_SD0), 0);
  EXPECT_EQ(Count(FILELIST_SD0), 2);
  EXPECT_EQ(Count(FILELIST_MMC), 3);
}

TEST_F(FlatFiles, AScanOfAnEmptyCardSucceeds) {
  EXPECT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(At(0), "");
}

TEST_F(FlatFiles, AScanIsAWholeOne) {
  ScanFivePictures();
  EXPECT_EQ(At(0), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(At(4), "/mnt/mmc/DCIM/103PHOTO/QVX_0002.JPG");
}

TEST_F(FlatFiles, AFailedScanIsFourAndItsCodeTheCount) {
  mmc.WriteFile("DCIM", "not a folder");
  EXPECT_EQ(flm_listup(FILELIST_MMC), 4);
  EXPECT_EQ(Count(), -2);
  EXPECT_EQ(At(0), "");
  mmc.Remove("DCIM");
  EXPECT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(Count(), 0);
}

TEST_F(FlatFiles, ACardThatIsGoneFailsTheScan) {
  std::filesystem::remove("/opt/sd0");
  EXPECT_EQ(flm_listup(FILELIST_SD0), 4);
  EXPECT_EQ(Count(FILELIST_SD0), -2);
  std::filesystem::create_directory("/opt/sd0");
  EXPECT_EQ(flm_listup(FILELIST_SD0), 0);
}

TEST_F(FlatFiles, ARescanSeesWhatChanged) {
  ScanFivePictures();
  mmc.Remove("DCIM/100PHOTO");
  mmc.MakeFile("DCIM/104PHOTO/QVX_0001.JPG");
  EXPECT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(Count(), 4);
  EXPECT_EQ(At(0), "/mnt/mmc/DCIM/101PHOTO/QVX_0007.JPG");
  EXPECT_EQ(At(3), "/mnt/mmc/DCIM/104PHOTO/QVX_0001.JPG");
}

TEST_F(FlatFiles, TheListsAreApart) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  sd0.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  for (const FileListType last : {FILELIST_SD0, FILELIST_MMC}) {
    ASSERT_EQ(flm_listup(last == FILELIST_SD0 ? FILELIST_MMC : FILELIST_SD0), 0);
    ASSERT_EQ(flm_listup(last), 0);
    EXPECT_EQ(At(0, FILELIST_MMC), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
    EXPECT_EQ(At(0, FILELIST_SD0), "/opt/sd0/DCIM/100PHOTO/QVX_0001.JPG");
  }
}

// --- flm_get_at ---------------------------------------------------------------------------------

TEST_F(FlatFiles, APathIsFollowedByZerosUpTo1024Bytes) {
  ScanFivePictures();
  char buffer[1025];
  std::memset(buffer, 'z', sizeof(buffer));
  char* name = buffer;
  EXPECT_EQ(flm_get_at(FILELIST_MMC, 1, &name), 0);
  EXPECT_EQ(name, buffer);
  EXPECT_STREQ(buffer, "/mnt/mmc/DCIM/100PHOTO/QVX_0002.JPG");
  for (size_t i = std::strlen(buffer); i < 1024; ++i) ASSERT_EQ(buffer[i], '\0') << i;
  EXPECT_EQ(buffer[1024], 'z');
}

TEST_F(FlatFiles, PastTheEndThereAre1024Zeros) {
  ScanFivePictures();
  for (const int index : {5, 6, -1, INT_MAX, INT_MIN}) {
    char buffer[1025];
    std::memset(buffer, 'z', sizeof(buffer));
    char* name = buffer;
    EXPECT_EQ(flm_get_at(FILELIST_MMC, index, &name), 0);
    for (size_t i = 0; i < 1024; ++i) ASSERT_EQ(buffer[i], '\0') << i;
    EXPECT_EQ(buffer[1024], 'z');
  }
}

TEST_F(FlatFiles, EveryIndexHasItsFile) {
  ScanFivePictures();
  const char* const files[] = {"100PHOTO/QVX_0001.JPG", "100PHOTO/QVX_0002.JPG",
                               "101PHOTO/QVX_0007.JPG", "103PHOTO/QVX_0001.JPG",
                               "103PHOTO/QVX_0002.JPG"};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(At(i), std::string("/mnt/mmc/DCIM/") + files[i]);
}

// --- flm_is_exist -------------------------------------------------------------------------------

TEST_F(FlatFiles, OnlyHeldFilesExist) {
  ScanFivePictures();
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/101PHOTO/QVX_0007.JPG"), 1);
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/101PHOTO/QVX_0008.JPG"), 0);
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/102PHOTO/QVX_0001.JPG"), 0);
  EXPECT_EQ(Exists(""), 0);
  EXPECT_EQ(Exists(std::string(4000, '/')), 0);
}

TEST_F(FlatFiles, NoPathExistsNowhere) {
  ScanFivePictures();
  int exists = -12345;
  EXPECT_EQ(flm_is_exist(FILELIST_MMC, nullptr, &exists), 0);
  EXPECT_EQ(exists, 0);
}

// --- flm_remove_file_from_list ------------------------------------------------------------------

TEST_F(FlatFiles, AForgottenFileStaysOnTheCard) {
  ScanFivePictures();
  EXPECT_EQ(flm_remove_file_from_list(FILELIST_MMC, 2), 0);
  EXPECT_EQ(Count(), 4);
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/101PHOTO/QVX_0007.JPG"), 0);
  EXPECT_EQ(At(2), "/mnt/mmc/DCIM/103PHOTO/QVX_0001.JPG");
  EXPECT_TRUE(mmc.Exists("DCIM/101PHOTO/QVX_0007.JPG"));
}

TEST_F(FlatFiles, ForgettingPastTheEndForgetsNothing) {
  ScanFivePictures();
  for (const int index : {5, -1, INT_MAX, INT_MIN}) {
    EXPECT_EQ(flm_remove_file_from_list(FILELIST_MMC, index), 0);
  }
  EXPECT_EQ(Count(), 5);
}

TEST_F(FlatFiles, EveryFileCanBeForgotten) {
  ScanFivePictures();
  for (int left = 4; left >= 0; --left) {
    EXPECT_EQ(flm_remove_file_from_list(FILELIST_MMC, 0), 0);
    EXPECT_EQ(Count(), left);
  }
  EXPECT_EQ(flm_remove_file_from_list(FILELIST_MMC, 0), 0);
  EXPECT_EQ(Count(), 0);
}

}  // namespace
