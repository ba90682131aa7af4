// The newest number, series mode, companions of existing files, and the file updated last.
#include <climits>

#include "platform/preference.h"
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::ItemOf;

class FileListLastIndex : public FileListTest {
 protected:
  void SetUp() override {
    card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
    ASSERT_EQ(Scan(), 3);
  }
  std::string Last() {
    int dirNumber = -1;
    int fileNumber = -1;
    EXPECT_EQ(list.GetLastIndex(&dirNumber, &fileNumber), 0);
    return std::to_string(dirNumber) + "/" + std::to_string(fileNumber);
  }
  std::string New() {
    char name[396] = {};
    return list.GetNewFileName(name, 0) == 0 ? name : "none";
  }
  static long Stored() { return pref_get_long(1, 856); }
};

TEST_F(FileListLastIndex, IsTheNewestFilesAfterAScan) { EXPECT_EQ(Last(), "100/3"); }

TEST_F(FileListLastIndex, OfAnEmptyCardIsNothing) {
  card.Remove("DCIM");
  ASSERT_EQ(list.Listup(0), 0);
  EXPECT_EQ(Last(), "0/0");
}

TEST_F(FileListLastIndex, IsReadFromTheStoredField) {
  ASSERT_EQ(list.SetLastIndex(Arg(On("DCIM/105PHOTO/QVX_0020.JPG")), true), 0);
  EXPECT_EQ(Last(), "105/20");
  EXPECT_EQ(Last(), "105/20");
}

TEST_F(FileListLastIndex, RisesWithEveryNewName) {
  EXPECT_EQ(New(), On("DCIM/100PHOTO/QVX_0004.JPG"));
  EXPECT_EQ(Last(), "100/4");
}

TEST_F(FileListLastIndex, NullNumbersAreLeftAlone) {
  int number = 77;
  list.GetLastIndex(nullptr, &number);
  list.GetLastIndex(&number, nullptr);
  list.GetLastIndex(nullptr, nullptr);
  EXPECT_EQ(Last(), "100/3");
}

// --- Setting it by a path -----------------------------------------------------------------------

TEST_F(FileListLastIndex, ByAPathPassesTheCataloguesCodesOn) {
  EXPECT_EQ(list.SetLastIndex(nullptr, true), -2);
  EXPECT_EQ(list.SetLastIndex(Arg(""), true), -3);
  EXPECT_EQ(list.SetLastIndex(Arg(On("DCIM/099PHOTO/QVX_0020.JPG")), true), -1);
  EXPECT_EQ(list.SetLastIndex(Arg("nonsense"), true), -1);
  EXPECT_EQ(Last(), "100/3");
}

TEST_F(FileListLastIndex, WithoutForceOnlyRises) {
  EXPECT_EQ(list.SetLastIndex(Arg(On("DCIM/100PHOTO/QVX_0002.JPG")), false), 0);
  EXPECT_EQ(Last(), "100/3");
  EXPECT_EQ(list.SetLastIndex(Arg(On("DCIM/100PHOTO/QVX_0020.JPG")), false), 0);
  EXPECT_EQ(Last(), "100/20");
}

TEST_F(FileListLastIndex, WithForceAlsoFalls) {
  EXPECT_EQ(list.SetLastIndex(Arg(On("DCIM/100PHOTO/QVX_0001.JPG")), true), 0);
  EXPECT_EQ(Last(), "100/1");
  EXPECT_EQ(Stored(), 10000001);
}

// --- Setting it by numbers ----------------------------------------------------------------------

class PathNoting : public CQFileList {
 public:
  std::string path;
  bool force = false;
  int SetLastIndex(char* text, bool forced) override {
    path = text;
    force = forced;
    return 555;
  }
  using CQFileList::SetLastIndex;
};

TEST(FileListLastIndexPath, DependsOnTheListsType) {
  PathNoting list;
  list.SetBaseURI("/mnt/mmc");
  for (const int type : {3, 4}) {
    list.SetType(type);
    EXPECT_EQ(list.SetLastIndex(105, 20, true), 555);
    EXPECT_EQ(list.path, "/mnt/mmc/DCIM/105PHOTO/QVX_0020.JPG") << type;
    EXPECT_TRUE(list.force);
  }
  for (const int type : {0, 1, 2, 5, -1, INT_MIN, INT_MAX}) {
    list.SetType(type);
    EXPECT_EQ(list.SetLastIndex(105, 20, false), 555);
    EXPECT_EQ(list.path, "/mnt/mmc/VIDEO/105VIDEO/QVX_0020.MP4") << type;
    EXPECT_FALSE(list.force);
  }
}

TEST(FileListLastIndexPath, HasTheListsPrefix) {
  PathNoting list;
  list.SetBaseURI("/opt/sd0");
  list.SetType(4);
  list.SetFileNameColor(FILELIST_COLOR_ADOBERGB);
  list.SetLastIndex(999, 9999, true);
  EXPECT_EQ(list.path, "/opt/sd0/DCIM/999PHOTO/_QVX9999.JPG");
}

TEST(FileListLastIndexPath, WritesAnyNumberWhole) {
  PathNoting list;
  list.SetBaseURI("/opt/sd0");
  list.SetType(4);
  list.SetLastIndex(7, 12345, true);
  EXPECT_EQ(list.path, "/opt/sd0/DCIM/007PHOTO/QVX_12345.JPG");
  list.SetLastIndex(-5, -6, true);
  EXPECT_EQ(list.path, "/opt/sd0/DCIM/-05PHOTO/QVX_-006.JPG");
  list.SetLastIndex(INT_MIN, INT_MAX, true);
  EXPECT_EQ(list.path, "/opt/sd0/DCIM/-2147483648PHOTO/QVX_2147483647.JPG");
}

TEST(FileListLastIndexPath, IsCutAt127Characters) {
  PathNoting list;
  const std::string root = "/" + std::string(119, 'd');
  list.SetBaseURI(root.c_str());
  list.SetType(4);
  list.SetLastIndex(105, 20, true);
  EXPECT_EQ(list.path, (root + "/DCIM/105PHOTO/QVX_0020.JPG").substr(0, 127));
}

TEST_F(FileListLastIndex, ByNumbersIsStored) {
  EXPECT_EQ(list.SetLastIndex(105, 20, true), 0);
  EXPECT_EQ(Last(), "105/20");
  EXPECT_EQ(Stored(), 10500020);
  EXPECT_EQ(list.SetLastIndex(105, 19, false), 0);
  EXPECT_EQ(Last(), "105/20");
  EXPECT_EQ(list.SetLastIndex(99, 1, true), -1);
  EXPECT_EQ(Last(), "105/20");
}

TEST_F(FileListLastIndex, ByNumbersOnAMovieList) {
  ASSERT_EQ(Scan(2), 0);
  EXPECT_EQ(list.SetLastIndex(105, 20, true), 0);
  EXPECT_EQ(Last(), "105/20");
}

TEST(FileListLastIndexUnscanned, SetsNothingWithoutACatalogue) {
  CQFileList list;
  EXPECT_EQ(list.SetLastIndex(Arg("/mnt/mmc/DCIM/105PHOTO/QVX_0020.JPG"), true), 0);
  EXPECT_EQ(list.SetLastIndex(nullptr, true), 0);
  EXPECT_EQ(list.SetLastIndex(105, 20, true), 0);
  EXPECT_EQ(list.UpdateLastIndex(true), -6);
  EXPECT_EQ(list.UpdateLastIndex(false), -6);
  EXPECT_EQ(pref_get_long(1, 856), -1);
}

// --- UpdateLastIndex and series mode ------------------------------------------------------------

TEST_F(FileListLastIndex, IsTakenFromTheFilesAgain) {
  ASSERT_EQ(list.SetLastIndex(105, 20, true), 0);
  EXPECT_EQ(list.UpdateLastIndex(true), 10000003);
  EXPECT_EQ(Last(), "100/3");
}

TEST_F(FileListLastIndex, TheStoredNumberCountsInSeriesModeOnly) {
  ASSERT_EQ(pref_set_long(1, 856, 12300045), 0);
  EXPECT_EQ(list.UpdateLastIndex(false), 10000003);
  EXPECT_EQ(list.SetSeriesMode(true), 12300045);
  EXPECT_EQ(Last(), "123/45");
  EXPECT_EQ(list.UpdateLastIndex(true), 10000003);
  EXPECT_EQ(list.UpdateLastIndex(false), 12300045);
}

TEST_F(FileListLastIndex, SwitchingSeriesModeOffForgetsTheStoredNumber) {
  ASSERT_EQ(pref_set_long(1, 856, 12300045), 0);
  ASSERT_EQ(list.SetSeriesMode(true), 12300045);
  EXPECT_TRUE(list.GetSeriesMode());
  EXPECT_EQ(list.SetSeriesMode(false), 10000003);
  EXPECT_FALSE(list.GetSeriesMode());
  EXPECT_FALSE(list.GetDCFList()->GetSeriesMode());
  EXPECT_EQ(New(), On("DCIM/100PHOTO/QVX_0004.JPG"));
}

TEST_F(FileListLastIndex, InSeriesModeNumbersGoOnAcrossCards) {
  ASSERT_EQ(pref_set_long(1, 856, 12300045), 0);
  list.SetSeriesMode(true);
  EXPECT_EQ(New(), On("DCIM/123PHOTO/QVX_0046.JPG"));
  EXPECT_EQ(Stored(), 12300046);
}

TEST_F(FileListLastIndex, AStoredNumberBelowTheFilesIsNoMatter) {
  ASSERT_EQ(pref_set_long(1, 856, 10000001), 0);
  EXPECT_EQ(list.SetSeriesMode(true), 10000003);
}

TEST(FileListSeriesMode, IsNotKeptBeforeAScan) {
  CQFileList list;
  EXPECT_EQ(list.SetSeriesMode(true), -1);
  EXPECT_FALSE(list.GetSeriesMode());
  EXPECT_EQ(list.SetSeriesMode(false), -1);
  EXPECT_FALSE(list.GetSeriesMode());
}

class Updating : public CQFileList {
 public:
  std::string calls;
  int UpdateLastIndex(bool noSeries) override { return calls += noSeries ? "t" : "f", 321; }
};
using FileListSeriesNoted = flm_test::FileListTestOf<Updating>;

TEST_F(FileListSeriesNoted, TheAnswerIsThatOfTheUpdate) {
  ASSERT_EQ(Scan(), 0);
  EXPECT_EQ(list.SetSeriesMode(true), 321);
  EXPECT_EQ(list.SetSeriesMode(false), 321);
  EXPECT_EQ(list.calls, "ft");
}

// --- The file updated last ----------------------------------------------------------------------

TEST(FileListLastUpdated, IsFoundOnItsPageAgain) {
  CQFileList list;
  list.InitPage(9);
  EXPECT_EQ(list.SetLastUpdated(2, 3), 0);
  int page = 0;
  int position = 0;
  EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
  EXPECT_EQ(page, 2);
  EXPECT_EQ(position, 3);
  list.InitPage(12);
  EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
  EXPECT_EQ(page, 1);
  EXPECT_EQ(position, 12);  // index 11
}

TEST(FileListLastUpdated, IsSetByIndexToo) {
  CQFileList list;
  list.InitPage(9);
  for (int index = 0; index < 30; ++index) {
    EXPECT_EQ(list.SetLastUpdated(index), 0);
    int page = 0;
    int position = 0;
    EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
    EXPECT_EQ(page, index / 9 + 1);
    EXPECT_EQ(position, index % 9 + 1);
  }
}

TEST(FileListLastUpdated, IsTheFirstFileAtFirst) {
  CQFileList list;
  list.InitPage(9);
  int page = 0;
  int position = 0;
  EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
  EXPECT_EQ(page, 1);
  EXPECT_EQ(position, 1);
}

TEST(FileListLastUpdated, ArgumentsAreCheckedInTheirOrder) {
  CQFileList list;
  int page = 77;
  int position = 78;
  EXPECT_EQ(list.GetLastUpdated(nullptr, nullptr), -1);
  EXPECT_EQ(list.GetLastUpdated(nullptr, &position), -1);
  EXPECT_EQ(list.GetLastUpdated(&page, nullptr), -2);
  EXPECT_EQ(list.GetLastUpdated(&page, &position), -3);
  EXPECT_EQ(page, 77);
  EXPECT_EQ(position, 78);
}

TEST(FileListLastUpdated, APageSizeWithoutFilesIsNone) {
  CQFileList list;
  int page = 77;
  int position = 78;
  for (const int size : {0, -1, -2, INT_MIN}) {
    list.InitPage(size);
    EXPECT_EQ(list.GetLastUpdated(&page, &position), -3) << size;
  }
  EXPECT_EQ(page, 77);
  EXPECT_EQ(position, 78);
}

TEST(FileListLastUpdated, ExtremeNumbersDoNoHarm) {
  CQFileList list;
  int page = 0;
  int position = 0;
  for (const int size : {1, 9, INT_MAX}) {
    list.InitPage(size);
    for (const int number : {INT_MIN, -1, 0, INT_MAX}) {
      EXPECT_EQ(list.SetLastUpdated(number, number), 0);
      EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
      EXPECT_EQ(list.SetLastUpdated(number), 0);
      EXPECT_EQ(list.GetLastUpdated(&page, &position), 0);
    }
  }
}

}  // namespace
