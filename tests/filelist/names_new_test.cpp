// The names of new files: extension, prefix, folder, and what is counted.
#include <climits>

#include "platform/preference.h"
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;

constexpr int kNameSize = 396;  // what callers provide

class FileListNames : public FileListTest {
 protected:
  void SetUp() override { ASSERT_EQ(Scan(), 0); }

  // The next name, or "failed with ..." .
  std::string New(int kind) { return Answer(list.GetNewFileName(name_, kind)); }
  std::string Copy() { return Answer(list.GetCopyNewFileName(name_)); }
  std::string Answer(int result) {
    return result == 0 ? std::string(name_) : "failed with " + std::to_string(result);
  }

  char name_[kNameSize] = {};
};

TEST_F(FileListNames, EveryKindHasItsExtension) {
  const char* const extensions[] = {"JPG", "SRW", "MP4", "3GP", "MP3", "WAV", "MPO"};
  for (int kind = 0; kind < 7; ++kind) {
    EXPECT_EQ(New(kind),
              On("DCIM/100PHOTO/QVX_000" + std::to_string(kind + 1) + "." + extensions[kind]));
  }
}

TEST_F(FileListNames, AKindThatNobodyDefinedHasNoExtension) {
  EXPECT_EQ(New(7), On("DCIM/100PHOTO/QVX_0001."));
  EXPECT_EQ(New(-1), On("DCIM/100PHOTO/QVX_0002."));
  EXPECT_EQ(New(INT_MAX), On("DCIM/100PHOTO/QVX_0003."));
  EXPECT_EQ(New(INT_MIN), On("DCIM/100PHOTO/QVX_0004."));
}

TEST_F(FileListNames, ANewNameIsHeldCountedAndCurrent) {
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(list.GetCount(), 1);
  EXPECT_EQ(list.DCF_GetCount(), 1);
  EXPECT_EQ(list.IsExist(Arg(On("DCIM/100PHOTO/QVX_0001.JPG"))), 1);
  CQFileListItem item;
  EXPECT_EQ(list.GetCurrent(&item, false), 0);
  EXPECT_EQ(item.filePath, On("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListNames, TheFolderIsMadeAndTheFileIsNot) {
  New(0);
  EXPECT_TRUE(card.Exists("DCIM/100PHOTO"));
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListNames, NumbersGoOnFromTheNewestFile) {
  card.MakeFile("DCIM/101PHOTO/ABC_0041.JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_9000.JPG");
  ASSERT_EQ(Scan(), 2);
  EXPECT_EQ(New(0), On("DCIM/101PHOTO/QVX_0042.JPG"));
  EXPECT_EQ(list.GetCount(), 3);
}

TEST_F(FileListNames, AFullFolderIsFollowedByTheNext) {
  card.MakeFile("DCIM/101PHOTO/QVX_9999.JPG");
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(New(0), On("DCIM/102PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListNames, WithoutANumberTheCataloguesCodeIsGiven) {
  card.MakeFile("DCIM/999PHOTO/QVX_9999.JPG");
  ASSERT_EQ(Scan(), 1);
  std::strcpy(name_, "untouched");
  EXPECT_EQ(list.GetNewFileName(name_, 0), -9999);
  EXPECT_STREQ(name_, "untouched");
  EXPECT_EQ(list.GetCount(), 1);
}

TEST_F(FileListNames, TheSetPrefixIsUsed) {
  EXPECT_EQ(list.SetFilePrefix(Arg("ABC_")), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/ABC_0001.JPG"));
  EXPECT_EQ(list.SetFilePrefix(Arg("ABCDEFGHI")), -2);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/ABC_0002.JPG"));
  EXPECT_EQ(list.SetFilePrefix(nullptr), -1);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/ABC_0003.JPG"));
  EXPECT_EQ(list.SetFilePrefix(Arg("ABCDEFGH")), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/ABCDEFGH0004.JPG"));
}

TEST_F(FileListNames, TheColourModeSetsThePrefix) {
  for (const int mode : {1, 2, -1}) {
    ASSERT_EQ(list.SetFileNameColor(static_cast<eFileListColorMode>(mode)), 0);
    EXPECT_NE(New(0).find("/_QVX000"), std::string::npos) << mode;
  }
  ASSERT_EQ(list.SetFileNameColor(FILELIST_COLOR_SRGB), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0004.JPG"));
}

TEST_F(FileListNames, TheColourModeAnswersWithTheResultOfSettingThePrefix) {
  class Refusing : public CQFileList {
   public:
    int SetFilePrefix(char* prefix) override {
      asked += std::string(prefix) + " ";
      return -5;
    }
    std::string asked;
  } refusing;
  EXPECT_EQ(refusing.SetFileNameColor(FILELIST_COLOR_ADOBERGB), -5);
  EXPECT_EQ(refusing.SetFileNameColor(FILELIST_COLOR_SRGB), -5);
  EXPECT_EQ(refusing.asked, "_QVX QVX_ ");
}

TEST_F(FileListNames, APrefixSetAfterTheColourModeWins) {
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  list.SetFilePrefix(Arg("ABC_"));
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/ABC_0001.JPG"));
}

TEST_F(FileListNames, OnlyAMovieIsMarkedAs3D) {
  list.SetImageType(FILELIST_IMAGE_3D);
  EXPECT_EQ(New(2), On("DCIM/100PHOTO/S3D_0001.MP4"));
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(New(3), On("DCIM/100PHOTO/QVX_0003.3GP"));
  EXPECT_EQ(New(6), On("DCIM/100PHOTO/QVX_0004.MPO"));
  list.SetImageType(static_cast<eFileListImageType>(2));
  EXPECT_EQ(New(2), On("DCIM/100PHOTO/QVX_0005.MP4"));
}

TEST_F(FileListNames, A3DMovieHasItsPrefixInEveryColourMode) {
  list.SetImageType(FILELIST_IMAGE_3D);
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  EXPECT_EQ(New(2), On("DCIM/100PHOTO/S3D_0001.MP4"));
}

TEST_F(FileListNames, AFolderOfThatNumberWithAnotherSuffixIsPassed) {
  card.MakeFile("DCIM/105ABCDE/QVX_0012.JPG");
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(New(0), On("DCIM/106PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListNames, FormsFollowTheListsType) {
  ASSERT_EQ(Scan(0), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  ASSERT_EQ(Scan(2), 0);
  EXPECT_EQ(New(2), On("VIDEO/100VIDEO/QVX_0001.MP4"));
  ASSERT_EQ(Scan(3), 0);
  EXPECT_EQ(New(0).find('/'), std::string::npos);
}

TEST_F(FileListNames, ANameIsNeverGivenTwice) {
  ASSERT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  ASSERT_EQ(list.RemoveFileFromList(Arg(name_)), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0002.JPG"));
}

TEST(FileListNamesUnscanned, NamingNeedsACatalogue) {
  CQFileList list;
  char name[kNameSize] = "untouched";
  EXPECT_EQ(list.GetNewFileName(name, 0), -1);
  EXPECT_EQ(list.GetCopyNewFileName(name), -1);
  EXPECT_EQ(list.GetLatestFileName(name, FILE_ADD_RAW), -1);
  EXPECT_STREQ(name, "untouched");
  EXPECT_EQ(list.GetCount(), -1);
}

TEST_F(FileListNames, NoBufferIsRefused) {
  EXPECT_LT(list.GetNewFileName(nullptr, 0), 0);
  EXPECT_LT(list.GetCopyNewFileName(nullptr), 0);
  EXPECT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
}

// --- Copies -------------------------------------------------------------------------------------

TEST_F(FileListNames, ACopyIsHeldButNotCounted) {
  ASSERT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(Copy(), On("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(list.GetCount(), 1);
  EXPECT_EQ(list.DCF_GetCount(), 2);
  EXPECT_EQ(list.IsExist(Arg(name_)), 1);
  EXPECT_TRUE(card.Exists("DCIM/100PHOTO"));
}

TEST_F(FileListNames, ACopyIsNever3D) {
  list.SetImageType(FILELIST_IMAGE_3D);
  EXPECT_EQ(Copy(), On("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FileListNames, ACopyHasThePrefixOfTheList) {
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  EXPECT_EQ(Copy(), On("DCIM/100PHOTO/_QVX0001.JPG"));
}

TEST_F(FileListNames, ANewNameFollowsTheStoredNumberAndACopyDoesNot) {
  ASSERT_GE(list.SetSeriesMode(true), 0);
  ASSERT_EQ(pref_set_long(1, 856, 20000005), 0);
  EXPECT_EQ(Copy(), On("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(pref_get_long(1, 856), 10000001);  // a copy's number is stored all the same
  ASSERT_EQ(pref_set_long(1, 856, 20000005), 0);
  EXPECT_EQ(New(0), On("DCIM/200PHOTO/QVX_0006.JPG"));
  EXPECT_EQ(pref_get_long(1, 856), 20000006);
}

TEST_F(FileListNames, WithoutANumberThereIsNoCopy) {
  card.MakeFile("DCIM/999PHOTO/QVX_9999.JPG");
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(Copy(), "failed with -9999");
  EXPECT_EQ(list.GetCount(), 1);
}

class CountingNine : public CQFileList {
 public:
  int GetCount() override { return 9; }
};
using FileListNamesCounted = flm_test::FileListTestOf<CountingNine>;

TEST_F(FileListNamesCounted, ACopyTakesTheCountThatTheListAnswers) {
  ASSERT_EQ(Scan(), 0);
  char name[kNameSize];
  EXPECT_EQ(list.GetCopyNewFileName(name), 0);
  EXPECT_EQ(list.CQFileList::GetCount(), 9);
  EXPECT_EQ(list.GetNewFileName(name, 0), 0);
  EXPECT_EQ(list.CQFileList::GetCount(), 2);
}

// --- A full catalogue ---------------------------------------------------------------------------

TEST_F(FileListNames, AFullCatalogueNamesNothing) {
  ASSERT_EQ(New(0), On("DCIM/100PHOTO/QVX_0001.JPG"));
  const std::string next = On("DCIM/100PHOTO/QVX_0002.JPG");
  while (list.DCF_GetCount() < 32000) ASSERT_EQ(list.GetDCFList()->AddFile(next.c_str()), 0);
  std::strcpy(name_, "untouched");
  EXPECT_EQ(list.GetNewFileName(name_, 0), -1);
  EXPECT_EQ(list.GetCopyNewFileName(name_), -1);
  EXPECT_STREQ(name_, "untouched");
  EXPECT_EQ(list.DCF_GetCount(), 32000);
}

}  // namespace
