// New names and the series mode, through the flat functions.
#include "tests/api/flm_fixture.h"

namespace {

using flm_test::Count;
using flm_test::Exists;
using flm_test::NewName;

class FlatNames : public flm_test::FlatTest {
 protected:
  void SetUp() override { ASSERT_EQ(flm_listup(FILELIST_MMC), 0); }
  static int Mode(FileListType type = FILELIST_MMC) {
    FileListMode mode = static_cast<FileListMode>(77);
    EXPECT_EQ(flm_get_series_mode(type, &mode), 0);
    return mode;
  }
  // Leaves a number in the preference store, as a card with that file would.
  static void StoreNumber(int dirNumber, int fileNumber) {
    IQFileList* const list = _flm_get_isfilelist(FILELIST_MMC);
    ASSERT_EQ(list->SetLastIndex(dirNumber, fileNumber, true), 0);
  }
};

TEST_F(FlatNames, EveryKindHasItsExtension) {
  const char* const extensions[] = {"JPG", "SRW", "MP4", "3GP", "MP3", "WAV", "MPO"};
  for (int kind = 0; kind < 7; ++kind) {
    EXPECT_EQ(NewName(kind),
              "/mnt/mmc/DCIM/100PHOTO/QVX_000" + std::to_string(kind + 1) + "." + extensions[kind]);
  }
  EXPECT_EQ(NewName(7), "/mnt/mmc/DCIM/100PHOTO/QVX_0008.");
}

TEST_F(FlatNames, ANewFileIsHeldAndItsFolderMade) {
  EXPECT_EQ(NewName(), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(Count(), 1);
  EXPECT_EQ(Exists("/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG"), 1);
  EXPECT_TRUE(mmc.Exists("DCIM/100PHOTO"));
  EXPECT_FALSE(mmc.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FlatNames, NumbersGoOnFromTheNewestFile) {
  mmc.MakeFile("DCIM/104PHOTO/QVX_0123.JPG");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(NewName(), "/mnt/mmc/DCIM/104PHOTO/QVX_0124.JPG");
}

TEST_F(FlatNames, NoBufferIsOneAndNamesNothing) {
  char* name = nullptr;
  EXPECT_EQ(flm_get_new_filename(FILELIST_MMC, FILETYPE_JPG, &name), 1);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(Count(), 0);
  EXPECT_FALSE(mmc.Exists("DCIM/100PHOTO"));
}

TEST_F(FlatNames, AWrongListIsFoundBeforeAMissingBuffer) {
  char* name = nullptr;
  EXPECT_EQ(flm_get_new_filename(flm_test::kNoType, FILETYPE_JPG, &name), 2);
}

TEST_F(FlatNames, AFailureToNameIsDropped) {
  mmc.MakeFile("DCIM/999PHOTO/QVX_9999.JPG");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(NewName(), "");
  EXPECT_EQ(Count(), 1);
}

TEST_F(FlatNames, OnlyTheGivenBytesAreWritten) {
  char buffer[400];
  std::memset(buffer, 'z', sizeof(buffer));
  char* name = buffer;
  ASSERT_EQ(flm_get_new_filename(FILELIST_MMC, FILETYPE_JPG, &name), 0);
  EXPECT_EQ(name, buffer);
  EXPECT_STREQ(buffer, "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  for (size_t i = 396; i < sizeof(buffer); ++i) EXPECT_EQ(buffer[i], 'z');
}

// --- Series mode --------------------------------------------------------------------------------

TEST_F(FlatNames, OnlyOneSwitchesTheSeriesModeOff) {
  EXPECT_EQ(Mode(), FILELIST_MODE_RESET);
  for (const int mode : {0, 7, -1, INT_MAX, 2}) {
    ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_RESET), 0);
    EXPECT_EQ(flm_set_series_mode(FILELIST_MMC, static_cast<FileListMode>(mode)), 0);
    EXPECT_EQ(Mode(), FILELIST_MODE_SERIES) << mode;
  }
  EXPECT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_RESET), 0);
  EXPECT_EQ(Mode(), FILELIST_MODE_RESET);
}

TEST_F(FlatNames, TheSeriesModeOutlivesAScan) {
  ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES), 0);
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  EXPECT_EQ(Mode(), FILELIST_MODE_SERIES);
}

TEST_F(FlatNames, InSeriesModeNumbersGoOnFromTheStoredOne) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0003.JPG");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  StoreNumber(123, 45);
  ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES), 0);
  EXPECT_EQ(NewName(), "/mnt/mmc/DCIM/123PHOTO/QVX_0046.JPG");
}

TEST_F(FlatNames, WithoutSeriesModeNumbersGoOnFromTheFiles) {
  mmc.MakeFile("DCIM/100PHOTO/QVX_0003.JPG");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  StoreNumber(123, 45);
  ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_RESET), 0);
  EXPECT_EQ(NewName(), "/mnt/mmc/DCIM/100PHOTO/QVX_0004.JPG");
}

TEST_F(FlatNames, InSeriesModeTheOtherCardGoesOn) {
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES), 0);
  ASSERT_EQ(flm_set_series_mode(FILELIST_SD0, FILELIST_MODE_SERIES), 0);
  EXPECT_EQ(NewName(0, FILELIST_MMC), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(NewName(0, FILELIST_SD0), "/opt/sd0/DCIM/100PHOTO/QVX_0002.JPG");
  EXPECT_EQ(NewName(0, FILELIST_MMC), "/mnt/mmc/DCIM/100PHOTO/QVX_0003.JPG");
}

TEST_F(FlatNames, TheSeriesModeOfOneListIsNotThatOfTheOther) {
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_set_series_mode(FILELIST_SD0, FILELIST_MODE_RESET), 0);
  ASSERT_EQ(flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES), 0);
  EXPECT_EQ(Mode(FILELIST_MMC), FILELIST_MODE_SERIES);
  EXPECT_EQ(Mode(FILELIST_SD0), FILELIST_MODE_RESET);
}

}  // namespace
