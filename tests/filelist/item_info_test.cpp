// How the fields of an item are filled: from the catalogue, from the marks, from the file itself.
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::FileListTest;
using flm_test::ItemOf;
using flm_test::MarkedItem;
using flm_test::SetPath;

using FileListInfo = FileListTest;

constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr time_t kTime = 1577934245;  // 2020-01-02 03:04:05 UTC, 08:34:05 in the tests' zone

TEST_F(FileListInfo, ArgumentsAreCheckedInTheirOrder) {
  CQFileListItem item;
  EXPECT_EQ(list.GetInfo(nullptr, nullptr), -2);
  EXPECT_EQ(list.GetInfo(nullptr, &item), -2);
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture)), nullptr), -3);
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture)), &item), -6);
}

TEST_F(FileListInfo, WithoutACatalogueTheItemIsUntouched) {
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture)), &item), -6);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListInfo, AFileThatTheListDoesNotHoldIsRefused) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetInfo(Arg(On("DCIM/100PHOTO/QVX_0002.JPG")), &item), -1);
  EXPECT_EQ(list.GetInfo(Arg(On("DCIM/101PHOTO/QVX_0001.JPG")), &item), -1);
  EXPECT_EQ(list.GetInfo(Arg(""), &item), -1);
  EXPECT_EQ(list.GetInfo(Arg("nonsense"), &item), -1);
  flm_test::ExpectUntouched(item);
}

TEST_F(FileListInfo, APlainPictureFillsEveryField) {
  card.MakeFile(kPicture, "x", kTime);
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture)), &item), 0);
  EXPECT_EQ(item.filePath, On(kPicture));
  EXPECT_STREQ(item.objectPath, "");
  EXPECT_EQ(item.selected, 0);
  EXPECT_EQ(item.isProtected, 0);
  EXPECT_EQ(item.dpofCopies, 0);
  EXPECT_EQ(item.dpofIndex, 0);
  EXPECT_EQ(item.dpofSize, 0);
  EXPECT_EQ(item.wifiFlag, 0);
  EXPECT_EQ(item.reservedFlag, 77);  // nobody's field
  EXPECT_EQ(item.modTime, kTime);
}

TEST_F(FileListInfo, MarksAndPrintSettingsAreRead) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  CQFileListItem named = ItemOf(On(kPicture));
  ASSERT_EQ(list.SetSel(&named, true), 0);
  ASSERT_EQ(list.SetWifiFlag(&named, true), 0);
  ASSERT_EQ(list.SetDPOF(&named, 42), 0);
  ASSERT_EQ(list.SetDPOFSize(&named, 9), 0);
  ASSERT_EQ(list.SetDPOFIndex(true), 0);
  CQFileListItem item;
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture)), &item), 0);
  EXPECT_EQ(item.selected, 1);
  EXPECT_EQ(item.wifiFlag, 1);
  EXPECT_EQ(item.dpofCopies, 42);
  EXPECT_EQ(item.dpofSize, 9);
  EXPECT_EQ(item.dpofIndex, 1);
}

TEST_F(FileListInfo, ThePathMayBeTheItemsOwn) {
  card.MakeFile(kPicture, "x", kTime);
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = ItemOf(On(kPicture));
  EXPECT_EQ(list.GetInfo(item.filePath, &item), 0);
  EXPECT_EQ(item.filePath, On(kPicture));
  EXPECT_EQ(item.modTime, kTime);
}

TEST_F(FileListInfo, EachCompanionHasItsPlaceInTheObjectPath) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 4, "JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.WAV");
  card.MakeFile("DCIM/100PHOTO/QVX_0003.MPO");
  for (const char* extension : {"SRW", "WAV", "MPO"}) {
    card.MakeFile(std::string("DCIM/100PHOTO/QVX_0004.") + extension);
  }
  ASSERT_EQ(Scan(), 4);
  const char* const objects[] = {"QVX_0001.S  ", "QVX_0002. W ", "QVX_0003.  M", "QVX_0004.SWM"};
  for (int i = 0; i < 4; ++i) {
    CQFileListItem item = MarkedItem();
    EXPECT_EQ(list.GetInfo(Arg(PathAt(i)), &item), 0);
    EXPECT_EQ(item.objectPath, On(std::string("DCIM/100PHOTO/") + objects[i]));
  }
}

TEST_F(FileListInfo, CompanionsOfAMovieFolderAreNamedByTheMovie) {
  card.MakeFile("VIDEO/100VIDEO/QVX_0001.JPG");
  card.MakeFile("VIDEO/100VIDEO/QVX_0001.WAV");
  ASSERT_EQ(Scan(2), 1);
  CQFileListItem item;
  EXPECT_EQ(list.GetInfo(Arg(On("VIDEO/100VIDEO/QVX_0001.JPG")), &item), 0);
  EXPECT_EQ(item.objectPath, On("VIDEO/100VIDEO/QVX_0001.MP4"));
}

TEST_F(FileListInfo, AFileOutsideTheNumberedTreeIsItsOwnObject) {
  card.MakeFile("DCIM/CAMERA01/HOLIDAYPICTURE.JPG");
  ASSERT_EQ(Scan(), 1);
  const std::string path = On("DCIM/CAMERA01/HOLIDAYPICTURE.JPG");
  CQFileListItem item;
  EXPECT_EQ(list.GetInfo(Arg(path), &item), 0);
  EXPECT_EQ(item.filePath, path);
  EXPECT_EQ(item.objectPath, path);
}

TEST_F(FileListInfo, AnOverlongPathFailsAfterTheOtherFieldsWereFilled) {
  card.MakeFile(kPicture);
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  ASSERT_EQ(Scan(), 1);
  CQFileListItem named = ItemOf(On(kPicture));
  ASSERT_EQ(list.SetSel(&named, true), 0);
  CQFileListItem item = MarkedItem();
  EXPECT_EQ(list.GetInfo(Arg(On(kPicture) + std::string(120, 'x')), &item), -1);
  EXPECT_STREQ(item.filePath, "untouched");
  EXPECT_EQ(item.objectPath, On("DCIM/100PHOTO/QVX_0001.S  "));
  EXPECT_EQ(item.selected, 1);
  EXPECT_EQ(item.wifiFlag, 0);
  EXPECT_EQ(item.dpofCopies, 0);
}

TEST_F(FileListInfo, AProtectedFileReadsBackAsProtected) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  card.SetReadOnly(kPicture, true);
  CQFileListItem item = ItemOf(On(kPicture));
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(item.isProtected, 1);
  card.SetReadOnly(kPicture, false);
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(item.isProtected, 0);
}

TEST_F(FileListInfo, FileInfoWantsAPath) {
  EXPECT_EQ(list.GetFileInfo(nullptr), -1);
  CQFileListItem item = MarkedItem();
  SetPath(&item, "");
  EXPECT_EQ(list.GetFileInfo(&item), -1);
  EXPECT_STREQ(item.objectPath, "untouched object");
  flm_test::ExpectMarksUntouched(item);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListInfo, FileInfoLeavesThePaths) {
  card.MakeFile(kPicture);
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  ASSERT_EQ(Scan(), 1);
  CQFileListItem item = MarkedItem();
  SetPath(&item, On(kPicture));
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(item.filePath, On(kPicture));
  EXPECT_STREQ(item.objectPath, "untouched object");
  EXPECT_EQ(item.reservedFlag, 77);
}

TEST_F(FileListInfo, FileInfoOfAMissingFileSucceedsAndLeavesTheFilesOwnFields) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  card.Remove(kPicture);
  CQFileListItem item = MarkedItem();
  SetPath(&item, On(kPicture));
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(item.selected, 0);
  EXPECT_EQ(item.wifiFlag, 0);
  EXPECT_EQ(item.isProtected, 77);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListInfo, FileInfoSucceedsWhenTheTimeCannotBeConverted) {
  card.MakeFile(kPicture);
  ASSERT_EQ(Scan(), 1);
  flm::Os().Localtime = [](const time_t*, tm*) -> tm* { return nullptr; };
  CQFileListItem item = MarkedItem();
  SetPath(&item, On(kPicture));
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(item.isProtected, 77);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListInfo, TimesAreLocal) {
  card.MakeFile(kPicture, "x", kTime);
  CQFileListItem item = ItemOf(On(kPicture));
  EXPECT_EQ(list.GetFileCreateTime(&item), 0);
  EXPECT_EQ(item.year, 2020);
  EXPECT_EQ(item.month, 1);
  EXPECT_EQ(item.day, 2);
  EXPECT_EQ(item.hour, 8);
  EXPECT_EQ(item.minute, 34);
  EXPECT_EQ(item.second, 5);
  EXPECT_EQ(item.modTime, kTime);
}

TEST_F(FileListInfo, TheTimeAloneLeavesProtectionAndMarks) {
  card.MakeFile(kPicture, "x", kTime);
  card.SetReadOnly(kPicture, true);
  CQFileListItem item = MarkedItem();
  SetPath(&item, On(kPicture));
  EXPECT_EQ(list.GetFileCreateTime(&item), 0);
  EXPECT_EQ(item.modTime, kTime);
  flm_test::ExpectMarksUntouched(item);
  EXPECT_STREQ(item.objectPath, "untouched object");
}

TEST_F(FileListInfo, TheTimeOfNoFileIsRefused) {
  EXPECT_EQ(list.GetFileCreateTime(nullptr), -1);
  CQFileListItem item = MarkedItem();
  SetPath(&item, On("DCIM/100PHOTO/QVX_0009.JPG"));
  EXPECT_LT(list.GetFileCreateTime(&item), 0);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListInfo, ATimeThatCannotBeConvertedIsRefused) {
  card.MakeFile(kPicture);
  flm::Os().Localtime = [](const time_t*, tm*) -> tm* { return nullptr; };
  CQFileListItem item = MarkedItem();
  SetPath(&item, On(kPicture));
  EXPECT_EQ(list.GetFileCreateTime(&item), -1);
  flm_test::ExpectTimeUntouched(item);
}

TEST_F(FileListInfo, ATimeBeyond32BitsKeepsItsLowBits) {
  card.MakeFile(kPicture);
  flm::Os().Stat = [](const char* path, struct stat* status) {
    const int result = stat(path, status);
    status->st_mtime = (time_t{1} << 32) + 5;  // 2106-02-07 06:28:21 UTC
    return result;
  };
  CQFileListItem item = ItemOf(On(kPicture));
  EXPECT_EQ(list.GetFileCreateTime(&item), 0);
  EXPECT_EQ(item.modTime, 5);
  EXPECT_EQ(item.year, 2106);
}

// Answers every mark with a value of its own and notes the order of the questions.
class Questioned : public CQFileList {
 public:
  std::string asked;
  bool IsSel(CQFileListItem*) override { return Ask('s'), true; }
  bool IsWifiFlag(CQFileListItem*) override { return Ask('w'), true; }
  int GetDPOFNumOfCopy(CQFileListItem*) override { return Ask('c'), 21; }
  int GetDPOFSize(CQFileListItem*) override { return Ask('z'), 300; }
  bool GetDPOFIndex(CQFileListItem*) override { return Ask('i'), true; }

 private:
  void Ask(char what) { asked += what; }
};

TEST(FileListInfoFields, ComeFromTheListsOwnOperationsInOrder) {
  Questioned list;
  CQFileListItem item = ItemOf("/nowhere/DCIM/100PHOTO/QVX_0001.JPG");
  EXPECT_EQ(list.GetFileInfo(&item), 0);
  EXPECT_EQ(list.asked, "swczi");
  EXPECT_EQ(item.selected, 1);
  EXPECT_EQ(item.wifiFlag, 1);
  EXPECT_EQ(item.dpofCopies, 21);
  EXPECT_EQ(item.dpofSize, 300);
  EXPECT_EQ(item.dpofIndex, 1);
}

}  // namespace
