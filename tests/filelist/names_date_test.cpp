// Names and folders made from the camera's date.
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::FileListTest;

time_t cameraTime;

class FileListDateNames : public FileListTest {
 protected:
  void SetUp() override {
    ASSERT_EQ(Scan(), 0);
    flm::Os().Time = [](time_t* now) {
      if (now != nullptr) *now = cameraTime;
      return cameraTime;
    };
    list.SetFileNameMake(FILE_NAME_MAKE_DATE);
  }

  // Noon in local time.
  void Today(int month, int day) {
    tm noon = {};
    noon.tm_year = 2021 - 1900;
    noon.tm_mon = month - 1;
    noon.tm_mday = day;
    noon.tm_hour = 12;
    noon.tm_isdst = -1;
    cameraTime = mktime(&noon);
  }
  std::string New(int kind) {
    char name[396] = {};
    const int result = list.GetNewFileName(name, kind);
    return result == 0 ? Tail(name) : "failed with " + std::to_string(result);
  }
  std::string Copy() {
    char name[396] = {};
    const int result = list.GetCopyNewFileName(name);
    return result == 0 ? Tail(name) : "failed with " + std::to_string(result);
  }
  // What stands behind the tree's folder.
  static std::string Tail(const std::string& path) { return path.substr(path.find("DCIM/") + 5); }
};

TEST_F(FileListDateNames, APictureBeginsWithMonthAndDay) {
  Today(10, 3);
  EXPECT_EQ(New(0), "100PHOTO/10030001.JPG");
  Today(3, 15);
  EXPECT_EQ(New(0), "100PHOTO/03150002.JPG");
}

TEST_F(FileListDateNames, ThePrefixSetByHandIsNotUsed) {
  Today(10, 3);
  char prefix[] = "ABC_";
  list.SetFilePrefix(prefix);
  EXPECT_EQ(New(0), "100PHOTO/10030001.JPG");
}

TEST_F(FileListDateNames, AnyPolicyButZeroMeansTheDate) {
  Today(10, 3);
  list.SetFileNameMake(static_cast<eFILE_NAME_MAKE>(7));
  EXPECT_EQ(New(0), "100PHOTO/10030001.JPG");
  list.SetFileNameMake(static_cast<eFILE_NAME_MAKE>(-1));
  EXPECT_EQ(New(0), "100PHOTO/10030002.JPG");
  list.SetFileNameMake(FILE_NAME_MAKE_FIXED);
  EXPECT_EQ(New(0), "100PHOTO/QVX_0003.JPG");
}

TEST_F(FileListDateNames, TheUnderscoreFormHasOneCharacterForTheMonth) {
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  const char* const starts[] = {"_128", "_228", "_328", "_428", "_528", "_628",
                                "_728", "_828", "_928", "_A28", "_B28", "_C28"};
  for (int month = 1; month <= 12; ++month) {
    Today(month, 28);
    EXPECT_EQ(New(0).substr(9, 4), starts[month - 1]);
  }
}

TEST_F(FileListDateNames, TheUnderscoreFormHasTwoDigitsForTheDay) {
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  Today(10, 3);
  EXPECT_EQ(New(0), "100PHOTO/_A030001.JPG");
  Today(12, 5);
  EXPECT_EQ(New(0), "100PHOTO/_C050002.JPG");
  Today(3, 15);
  EXPECT_EQ(New(0), "100PHOTO/_3150003.JPG");
}

TEST_F(FileListDateNames, A3DMovieTakesTheUnderscoreForm) {
  Today(3, 15);
  list.SetImageType(FILELIST_IMAGE_3D);
  EXPECT_EQ(New(2), "100PHOTO/_3150001.MP4");
  EXPECT_EQ(New(0), "100PHOTO/03150002.JPG");
  EXPECT_EQ(New(3), "100PHOTO/03150003.3GP");
}

TEST_F(FileListDateNames, ACopyTakesTheFormOfTheColourModeAlone) {
  Today(3, 15);
  list.SetImageType(FILELIST_IMAGE_3D);
  EXPECT_EQ(Copy(), "100PHOTO/03150001.JPG");
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  EXPECT_EQ(Copy(), "100PHOTO/_3150002.JPG");
}

TEST_F(FileListDateNames, FoldersAreNamedByTheDate) {
  Today(3, 15);
  list.SetFileNameMake(FILE_NAME_MAKE_FIXED);
  list.SetFolderNameMake(FILE_NAME_MAKE_DATE);
  EXPECT_EQ(New(0), "100_0315/QVX_0001.JPG");
  EXPECT_TRUE(card.Exists("DCIM/100_0315"));
  EXPECT_EQ(Copy(), "100_0315/QVX_0002.JPG");
}

TEST_F(FileListDateNames, ANewDayMakesANewFolder) {
  Today(3, 15);
  list.SetFolderNameMake(static_cast<eFILE_NAME_MAKE>(2));
  EXPECT_EQ(New(0), "100_0315/03150001.JPG");
  Today(12, 31);
  EXPECT_EQ(New(0), "101_1231/12310001.JPG");
  list.SetFolderNameMake(FILE_NAME_MAKE_FIXED);
  EXPECT_EQ(New(0), "102PHOTO/12310001.JPG");
}

TEST_F(FileListDateNames, WithoutAClockItIsTheFirstOfJanuary) {
  flm::Os().Localtime = [](const time_t*, tm*) -> tm* { return nullptr; };
  list.SetFolderNameMake(FILE_NAME_MAKE_DATE);
  EXPECT_EQ(New(0), "100_0101/01010001.JPG");
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  EXPECT_EQ(New(0), "100_0101/_1010002.JPG");
}

TEST_F(FileListDateNames, TheDateIsLocal) {
  cameraTime = 1609441200;  // 2020-12-31 19:00 UTC, past midnight in the tests' zone
  EXPECT_EQ(New(0), "100PHOTO/01010001.JPG");
}

}  // namespace
