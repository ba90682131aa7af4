// The names of folders, their order, and the small conversions of a catalogue.
#include <gtest/gtest.h>

#include "dcf/CQDCFDir.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

TEST(CQDCFListNames, UpperCaseChangesLettersOnly) {
  CQDCFList list;
  Text text("abcxyz AZ09 _@[`{ \xe4 and a text longer than any name of the camera");
  list.MakeUpperCase(text);
  EXPECT_EQ(text.Now(), "ABCXYZ AZ09 _@[`{ \xe4 AND A TEXT LONGER THAN ANY NAME OF THE CAMERA");
}

TEST(CQDCFListNames, UpperCaseOfNothingIsHarmless) {
  CQDCFList list;
  Text empty("");
  list.MakeUpperCase(empty);
  list.MakeUpperCase(nullptr);
  EXPECT_EQ(empty.Now(), "");
}

struct DirName {
  const char* name;
  int result;
};

TEST(CQDCFListNames, FolderNamesAreEightCharactersBehindThreeDigits) {
  CQDCFList list;
  const DirName table[] = {
      {"100PHOTO", 0},    {"999ABCDE", 0},    {"000ABCDE", 0},    {"100_____", 0},
      {"1000ABCD", 0},    {"12345678", 0},    {"100 @.-!", 0},    {"", -2},
      {"100PHOT", -2},    {"100PHOTOS", -2},  {"A00PHOT", -2},    {"ABC12345", -100},
      {"A0012345", -100}, {"/00PHOTO", -100}, {":00PHOTO", -100}, {"1A0PHOTO", -101},
      {"1AAPHOTO", -101}, {"10ABCDEF", -102}, {"10:PHOTO", -102}, {"10/PHOTO", -102},
      {"CAMER", -2},      {"CAMERB00", -100}, {"XCAMERA0", -100},
  };
  for (const DirName& row : table) {
    EXPECT_EQ(list.CheckDirNameSyntax(Arg(row.name)), row.result) << row.name;
  }
}

TEST(CQDCFListNames, CameraFoldersMayHaveAnyLength) {
  CQDCFList list;
  for (const char* name : {"CAMERA", "camera", "CAMERA1", "Camera roll of my telephone"}) {
    EXPECT_EQ(list.CheckDirNameSyntax(Arg(name)), 0) << name;
  }
}

TEST(CQDCFListNames, ACheckedFolderNameIsUpperCased) {
  CQDCFList list;
  Text accepted("100abcde");
  EXPECT_EQ(list.CheckDirNameSyntax(accepted), 0);
  EXPECT_EQ(accepted.Now(), "100ABCDE");
  Text refused("my pictures");
  EXPECT_EQ(list.CheckDirNameSyntax(refused), -2);
  EXPECT_EQ(refused.Now(), "MY PICTURES");
}

TEST(CQDCFListNames, NoFolderNameIsRefused) {
  CQDCFList list;
  EXPECT_EQ(list.CheckDirNameSyntax(nullptr), -1);
}

TEST(CQDCFListNames, AFolderNumberIsTheFirstThreeCharacters) {
  CQDCFList list;
  EXPECT_EQ(list.GetDnum(Arg("100PHOTO")), 100);
  EXPECT_EQ(list.GetDnum(Arg("1000ABCD")), 100);
  EXPECT_EQ(list.GetDnum(Arg("099XXXXX")), 99);
  EXPECT_EQ(list.GetDnum(Arg("99999999")), 999);
  EXPECT_EQ(list.GetDnum(Arg("000ABCDE")), 0);
}

TEST(CQDCFListNames, TheCameraFolderHasNumber99) {
  CQDCFList list;
  EXPECT_EQ(list.GetDnum(Arg("CAMERA")), 99);
  EXPECT_EQ(list.GetDnum(Arg("CAMERA01")), 99);
  EXPECT_NE(list.GetDnum(Arg("CAMER")), 99);
  EXPECT_NE(list.GetDnum(Arg("camera")), 99);
}

TEST(CQDCFListNames, AShortOrMissingNameHasNoNumberOfAFolder) {
  CQDCFList list;
  EXPECT_EQ(list.GetDnum(static_cast<const char*>(nullptr)), -1);
  EXPECT_LT(list.GetDnum(Arg("")), 100);
  EXPECT_LT(list.GetDnum(Arg("1")), 100);
}

class Folder {
 public:
  Folder(short number, const char* name) {
    dir_.SetDnum(number);
    dir_.SetDirName(name);
  }
  const CQDCFDir* Get() const { return &dir_; }

 private:
  CQDCFDir dir_;
};

int Compare(const Folder& a, const Folder& b) {
  CQDCFList list;
  const int forward = list.CompareDirName(a.Get(), b.Get());
  const int backward = list.CompareDirName(b.Get(), a.Get());
  return forward > 0 && backward < 0 ? 1 : forward < 0 && backward > 0 ? -1 : 0;
}

TEST(CQDCFListNames, FoldersStandInTheOrderOfTheirNumbers) {
  EXPECT_EQ(Compare(Folder(101, "101AAAAA"), Folder(100, "100ZZZZZ")), 1);
  EXPECT_EQ(Compare(Folder(99, "CAMERA"), Folder(100, "100ABCDE")), -1);
  EXPECT_EQ(Compare(Folder(-1, "999PHOTO"), Folder(100, "100ABCDE")), -1) << "signed";
}

TEST(CQDCFListNames, AmongFoldersOfOneNumberPhotoComesLast) {
  EXPECT_EQ(Compare(Folder(100, "100PHOTO"), Folder(100, "100ABCDE")), 1);
  EXPECT_EQ(Compare(Folder(100, "100PHOTO"), Folder(100, "100ZZZZZ")), 1);
  EXPECT_EQ(Compare(Folder(100, "100ZZZZZ"), Folder(100, "100PHOTO")), -1);
}

TEST(CQDCFListNames, OtherFoldersOfOneNumberStandInTheOrderOfTheirNames) {
  EXPECT_EQ(Compare(Folder(100, "100ABCDF"), Folder(100, "100ABCDE")), 1);
  EXPECT_EQ(Compare(Folder(99, "CAMERA"), Folder(99, "CAMERA2")), -1);
}

TEST(CQDCFListNames, ComparisonGivesExactlyOneForANumberAndForPhoto) {
  CQDCFList list;
  const Folder low(100, "100PHOTO"), high(101, "101ABCDE"), other(100, "100ZZZZZ");
  EXPECT_EQ(list.CompareDirName(high.Get(), low.Get()), 1);
  EXPECT_EQ(list.CompareDirName(low.Get(), high.Get()), -1);
  EXPECT_EQ(list.CompareDirName(low.Get(), other.Get()), 1);
  EXPECT_EQ(list.CompareDirName(other.Get(), low.Get()), -1);
}

TEST(CQDCFListNames, EqualAndMissingFoldersCompareEqual) {
  CQDCFList list;
  const Folder one(100, "100ABCDE"), same(100, "100ABCDE");
  EXPECT_EQ(list.CompareDirName(one.Get(), same.Get()), 0);
  EXPECT_EQ(list.CompareDirName(nullptr, one.Get()), 0);
  EXPECT_EQ(list.CompareDirName(one.Get(), nullptr), 0);
  EXPECT_EQ(list.CompareDirName(nullptr, nullptr), 0);
}

TEST(CQDCFListNames, SortingPutsTheHighestNumberIntoTheLastSlot) {
  CardCatalogue c;
  for (int number : {300, 200, 250}) c.list.AddDir(number);
  EXPECT_EQ(c.list.GetLastIndex(), 25000000);
  EXPECT_EQ(c.list.SortDirList(), 0);
  EXPECT_EQ(c.list.GetLastIndex(), 30000000);
}

TEST(CQDCFListNames, SortingNothingIsDone) {
  CQDCFList list;
  EXPECT_EQ(list.SortDirList(), 0);
  EXPECT_EQ(list.SortItem(), 0);
  list.Create();
  EXPECT_EQ(list.SortDirList(), 0);
  EXPECT_EQ(list.SortItem(), 0);
}

TEST(CQDCFListNames, SlotsAndKeysConvertByTheirFormulas) {
  CQDCFList list;
  EXPECT_EQ(list.GetDnum(0), 100);
  EXPECT_EQ(list.GetDnum(998), 1098);
  EXPECT_EQ(list.GetFnum(0, 7), 7);
  EXPECT_EQ(list.GetFnum(5, 7), 507);
  EXPECT_EQ(list.GetFnum(100, 7), 7);
  EXPECT_EQ(list.GetFnum(199, 50), 9950);
  EXPECT_EQ(list.GetNumToIndex(100, 1), 10000001);
  EXPECT_EQ(list.GetNumToIndex(999, 9999), 99909999);
  EXPECT_EQ(list.GetNumToIndex(0, 0), 0);
}

TEST(CQDCFListNames, AFileIndexOfTwoDigitsIsItself) {
  CQDCFList list;
  EXPECT_EQ(list.GetFidx(1), 1);
  EXPECT_EQ(list.GetFidx(99), 99);
  EXPECT_EQ(list.GetFidx(100), 0);
  EXPECT_EQ(list.GetFidx(101), 1);
  EXPECT_EQ(list.GetFidx(9950), 50);
  EXPECT_EQ(list.GetFidx(0), 0);
}

TEST(CQDCFListNames, AKeySplitsIntoItsNumbers) {
  CQDCFList list;
  int dirNumber = 0;
  int fileNumber = 0;
  list.GetIndexToNum(12300045, &dirNumber, &fileNumber);
  EXPECT_EQ(dirNumber, 123);
  EXPECT_EQ(fileNumber, 45);
  list.GetIndexToNum(1, nullptr, nullptr);
  list.GetIndexToNum(99909999, &dirNumber, nullptr);
  EXPECT_EQ(fileNumber, 45) << "nothing is written without both places";
}

DCFItem ItemOf(const char* ext, short fileNumber = 1, short dirNumber = 100) {
  DCFItem item = {};
  std::memcpy(item.extChars, ext, 3);
  item.fileNumber = fileNumber;
  item.dirNumber = dirNumber;
  return item;
}

TEST(CQDCFListNames, TheTypeOfAFileIsReadFromItsExtensionInEitherCase) {
  CQDCFList list;
  const DirName table[] = {{"JPG", 203}, {"WAV", 201}, {"SRW", 202}, {"MPO", 204}, {"jpg", 203},
                           {"wAv", 201}, {"srW", 202}, {"Mpo", 204}, {"MP4", -2},  {"MP3", -2},
                           {"AVI", -2},  {"3GP", -2},  {"JPE", -2},  {"XPG", -2},  {"   ", -2}};
  for (const DirName& row : table) {
    const DCFItem item = ItemOf(row.name);
    EXPECT_EQ(list.GetFileType(&item), row.result) << row.name;
    EXPECT_EQ(std::memcmp(item.extChars, row.name, 3), 0) << "the item is left as it was";
  }
  EXPECT_EQ(list.GetFileType(nullptr), -1);
}

TEST(CQDCFListNames, TheKeyOfAnItemIsItsNumbers) {
  CQDCFList list;
  const DCFItem item = ItemOf("JPG", 42, 105);
  EXPECT_EQ(list.GetDcfNum(&item), 10500042);
  EXPECT_LT(list.GetDcfNum(nullptr), 0);
}

TEST(CQDCFListNames, TheNumberOfAnItemEndsAsItsDirectoryNumber) {
  CQDCFList list;
  const DCFItem item = ItemOf("JPG", 42, 105);
  int untouched = 7;
  short number = 0;
  list.GetNum(&item, &untouched, &number);
  EXPECT_EQ(number, 105);
  EXPECT_EQ(untouched, 7);
}

TEST(CQDCFListNames, TheNumberOfNoItemIsNotWritten) {
  CQDCFList list;
  const DCFItem item = ItemOf("JPG", 42, 105);
  int untouched = 7;
  short number = 8;
  list.GetNum(static_cast<const DCFItem*>(nullptr), &untouched, &number);
  list.GetNum(&item, &untouched, nullptr);
  EXPECT_EQ(untouched, 7);
  EXPECT_EQ(number, 8);
}

}  // namespace
}  // namespace flm_test
