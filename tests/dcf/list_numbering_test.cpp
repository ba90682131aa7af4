// The number of the newest file, and the series value that outlives the card.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>

#include "platform/preference.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

long StoredSeries() { return pref_get_long(1, 856); }
void StoreSeries(long value) { pref_set_long(1, 856, value); }

TEST(CQDCFListNumbering, TheNewestNumberIsThatOfTheLastFileOfTheLastFolder) {
  CardCatalogue c;
  c.With(
      {"DCIM/100PHOTO/QVX_0900.JPG", "DCIM/105ABCDE/QVX_0003.JPG", "DCIM/105ABCDE/QVX_0012.MP4"});
  EXPECT_EQ(c.list.GetLastIndex(), 10500012);
}

TEST(CQDCFListNumbering, AskingForTheNewestNumberResetsTheStoredOne) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0012.MP4"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500012);
  c.list.GetLastIndex();
  EXPECT_EQ(c.list.GetStoredLastIndex(), 0);
}

TEST(CQDCFListNumbering, AnEmptyNewestFolderCountsWithFileZero) {
  CardCatalogue c;
  c.card.MakeDir("DCIM/110PHOTO");
  c.With({"DCIM/105ABCDE/QVX_0012.MP4"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 11000000);
}

TEST(CQDCFListNumbering, AmongEqualNumbersThePhotoFolderIsNewest) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0003.JPG", "DCIM/105ZZZZZ/QVX_0090.JPG"});
  EXPECT_EQ(c.list.GetLastIndex(), 10500003);
}

TEST(CQDCFListNumbering, WithoutFoldersThereIsNoNumber) {
  CardCatalogue c;
  c.Scan();
  EXPECT_EQ(c.list.GetLastIndex(), 0);
  c.list.Destroy();
  EXPECT_EQ(c.list.GetLastIndex(), 0);
}

TEST(CQDCFListNumbering, Folder999OfAnotherNameMeansFull) {
  CardCatalogue c;
  c.With({"DCIM/999ABCDE/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 99909999);
}

TEST(CQDCFListNumbering, Folder999PhotoIsAFolderLikeOthers) {
  CardCatalogue c;
  c.With({"DCIM/999ABCDE/QVX_0500.JPG", "DCIM/999PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 99900001);
}

TEST(CQDCFListNumbering, TheCameraFolderAloneCountsAs99) {
  CardCatalogue c;
  c.With({"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.jpg"});
  c.ScanWithCamera();
  EXPECT_EQ(c.list.GetStoredLastIndex(), 9900001);
}

TEST(CQDCFListNumbering, UpdatingReadsTheNewestNumberAgain) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0003.JPG", "DCIM/105ABCDE/QVX_0012.JPG"});
  c.list.RemoveFile(c.Path("DCIM/105ABCDE/QVX_0012.JPG"));
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500012);
  EXPECT_EQ(c.list.UpdateLastIndex(true), 10500003);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500003);
}

TEST(CQDCFListNumbering, UpdatingTakesTheSeriesValueUnlessToldNotTo) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0003.JPG"});
  c.list.SetSeriesMode(true);
  StoreSeries(12300045);
  EXPECT_EQ(c.list.UpdateLastIndex(true), 10500003);
  EXPECT_EQ(c.list.UpdateLastIndex(false), 12300045);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 12300045);
}

struct Series {
  long stored;
  int lastIndex;  // after the update of 10500003
};

TEST(CQDCFListNumbering, AGreaterSeriesValueWithinRangeIsTaken) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0003.JPG"});
  c.list.SetSeriesMode(true);
  const Series table[] = {{0, 10500003},         {-1, 10500003},        {10500002, 10500003},
                          {10500003, 10500003},  {10500004, 10500004},  {99909998, 99909998},
                          {99909999, 99909999},  {99910000, 10500003},  {2147483647, 10500003},
                          {-99909999, 10500003}, {100000000, 10500003}, {10000000, 10500003}};
  for (const Series& row : table) {
    StoreSeries(row.stored);
    EXPECT_EQ(c.list.UpdateLastIndex(false), row.lastIndex) << row.stored;
    EXPECT_EQ(StoredSeries(), row.stored) << "reading stores nothing";
  }
}

TEST(CQDCFListNumbering, AStoredValueIsCheckedAtItsFullWidth) {
  if (sizeof(long) < 8) GTEST_SKIP() << "a long has 32 bits here and cannot hold such a value";
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0003.JPG"});
  c.list.SetSeriesMode(true);
  StoreSeries(static_cast<long>((INT64_C(1) << 32) + 12300045));
  EXPECT_EQ(c.list.UpdateLastIndex(false), 10500003);
  StoreSeries(static_cast<long>(-(INT64_C(1) << 32) + 12300045));
  EXPECT_EQ(c.list.UpdateLastIndex(false), 10500003);
}

TEST(CQDCFListNumbering, WithoutSeriesModeTheStoredValueIsNotTaken) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0003.JPG"});
  StoreSeries(12300045);
  c.list.UpdateLastIndexWithSeriesValue();
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500003);
  c.list.SetSeriesMode(true);
  c.list.UpdateLastIndexWithSeriesValue();
  EXPECT_EQ(c.list.GetStoredLastIndex(), 12300045);
}

TEST(CQDCFListNumbering, TheSeriesValueIsReadInSeriesModeOnly) {
  CQDCFList list;
  StoreSeries(12300045);
  int value = 7;
  list.ReadSeriesValue(&value);
  EXPECT_EQ(value, 7);
  list.SetSeriesMode(true);
  EXPECT_EQ(list.ReadSeriesValue(&value), 12300045);
  EXPECT_EQ(value, 12300045);
  list.ReadSeriesValue(nullptr);
}

TEST(CQDCFListNumbering, ReadingGivesWhateverIsStored) {
  CQDCFList list;
  list.SetSeriesMode(true);
  int value = 7;
  StoreSeries(-5);
  EXPECT_EQ(list.ReadSeriesValue(&value), -5);
  EXPECT_EQ(value, -5);
  StoreSeries(2000000000);
  EXPECT_EQ(list.ReadSeriesValue(&value), 2000000000);
}

TEST(CQDCFListNumbering, AStoredValueBeyondAnIntReadsAsTheNearestOne) {
  if (sizeof(long) < 8) GTEST_SKIP() << "a long has 32 bits here and cannot hold such a value";
  CQDCFList list;
  list.SetSeriesMode(true);
  int value = 7;
  StoreSeries(static_cast<long>(INT64_C(99999999999)));
  EXPECT_EQ(list.ReadSeriesValue(&value), INT_MAX);
  EXPECT_EQ(value, INT_MAX);
  StoreSeries(static_cast<long>(-INT64_C(99999999999)));
  EXPECT_EQ(list.ReadSeriesValue(&value), INT_MIN);
  EXPECT_EQ(value, INT_MIN);
}

TEST(CQDCFListNumbering, TheSeriesValueIsWrittenInEveryMode) {
  CQDCFList list;
  for (bool on : {false, true}) {
    list.SetSeriesMode(on);
    int value = on ? 10100002 : 10100001;
    EXPECT_EQ(list.BackupSeriesValue(&value), 0);
    EXPECT_EQ(StoredSeries(), on ? 10100002 : 10100001);
    EXPECT_EQ(value, on ? 10100002 : 10100001);
  }
}

TEST(CQDCFListNumbering, ASeriesValueAtItsEndBeginsAnewInBothPlaces) {
  CQDCFList list;
  const int table[][2] = {{99909998, 99909998},
                          {99909999, 10000000},
                          {99910000, 10000000},
                          {2147483647, 10000000},
                          {0, 0},
                          {-3, -3}};
  for (const auto& row : table) {
    int value = row[0];
    EXPECT_EQ(list.BackupSeriesValue(&value), 0);
    EXPECT_EQ(StoredSeries(), row[1]) << row[0];
    EXPECT_EQ(value, row[1]) << row[0];
  }
}

TEST(CQDCFListNumbering, NoSeriesValueIsRefusedAndNothingStored) {
  CQDCFList list;
  StoreSeries(5);
  EXPECT_EQ(list.BackupSeriesValue(nullptr), -1);
  EXPECT_EQ(StoredSeries(), 5);
}

// A card whose newest file is 105/0003; the stored value is 5.
class CQDCFListSetLast : public testing::Test {
 protected:
  CQDCFListSetLast() {
    c.With({"DCIM/105ABCDE/QVX_0003.JPG"});
    StoreSeries(5);
  }
  int Set(const std::string& relative, bool force) {
    return c.list.SetLastIndex(c.Path(relative), force);
  }

  CardCatalogue c;
};

TEST_F(CQDCFListSetLast, AGreaterNumberIsTakenAndStored) {
  EXPECT_EQ(Set("DCIM/106XXXXX/ABC_0007.JPG", false), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10600007);
  EXPECT_EQ(StoredSeries(), 10600007);
}

TEST_F(CQDCFListSetLast, ALowerNumberIsTakenOnlyByForce) {
  EXPECT_EQ(Set("DCIM/105ABCDE/QVX_0002.JPG", false), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500003);
  EXPECT_EQ(StoredSeries(), 10500003) << "what holds is stored";
  EXPECT_EQ(Set("DCIM/105ABCDE/QVX_0002.JPG", true), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500002);
  EXPECT_EQ(StoredSeries(), 10500002);
}

TEST_F(CQDCFListSetLast, TheGreatestNumberBeginsAnewHereToo) {
  EXPECT_EQ(Set("DCIM/999PHOTO/QVX_9999.JPG", false), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000000);
  EXPECT_EQ(StoredSeries(), 10000000);
}

TEST_F(CQDCFListSetLast, TheNumberBeforeTheGreatestStays) {
  EXPECT_EQ(Set("DCIM/999PHOTO/QVX_9998.JPG", false), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 99909998);
}

TEST_F(CQDCFListSetLast, PathsWithoutAFolderNumberAreRefused) {
  for (const char* file : {"DCIM/099ABCDE/QVX_0004.JPG", "DCIM/CAMERA/party at the lake.jpg", "",
                           "DCIM/000ABCDE/QVX_0004.JPG", "DCIM/10"}) {
    EXPECT_EQ(Set(file, true), -1) << file;
  }
  EXPECT_EQ(c.list.SetLastIndex(nullptr, true), -2);
  EXPECT_EQ(c.list.SetLastIndex(Arg(""), true), -3);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500003);
  EXPECT_EQ(StoredSeries(), 5);
}

TEST_F(CQDCFListSetLast, FoldersFrom100To999AreTaken) {
  EXPECT_EQ(Set("DCIM/999PHOTO/QVX_0001.JPG", true), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 99900001);
  EXPECT_EQ(Set("DCIM/100PHOTO/QVX_0001.JPG", true), 0);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
}

TEST(CQDCFListFreeNumber, ACardWithoutFoldersHasNumberOneOfTheFirst) {
  CardCatalogue c;
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10000001);
}

TEST(CQDCFListFreeNumber, TheFirstGapOfTheFirstSlotIsGiven) {
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  c.Scan();
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10000004);
  c.list.RemoveFile(c.Path("DCIM/100PHOTO/QVX_0002.JPG"));
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10000002);
}

TEST(CQDCFListFreeNumber, TheSlotAndNotTheFolderGivesTheNumber) {
  CardCatalogue c;
  c.With({"DCIM/555ABCDE/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10000002);
}

TEST(CQDCFListFreeNumber, SearchingChangesNothing) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.GetNewFileIndex_FromLastIndex();
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
}

// The first slots are full, and each slot begins with numbers of its own.
TEST(CQDCFListFreeNumber, AFullSlotLeadsToTheNext) {
  CardCatalogue c;
  FakeListings fake(c.card);
  fake.AddFolder("100PHOTO", 9998);
  c.Scan();
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10100100);
  c.list.AddDir(101);
  EXPECT_EQ(c.list.GetNewFileIndex_FromLastIndex(), 10100100);
}

}  // namespace
}  // namespace flm_test
