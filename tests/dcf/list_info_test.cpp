// The information of one file, as callers get it.
#include <gtest/gtest.h>

#include "base/file_list_item.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";

class CQDCFListInfo : public testing::Test {
 protected:
  CQDCFListInfo() { c.With({kA1, kA2, "DCIM/100PHOTO/QVX_0002.SRW"}); }
  int Get(const std::string& relative) { return c.list.GetInfo(c.Path(relative), &info); }

  CardCatalogue c;
  CQFileListItem info;
};

TEST_F(CQDCFListInfo, APlainFileHasItsPathAndNothingElse) {
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(c.Relative(info.filePath), kA1);
  EXPECT_STREQ(info.objectPath, "");
  EXPECT_EQ(info.selected, 0);
  EXPECT_EQ(info.isProtected, 0);
  EXPECT_EQ(info.wifiFlag, 0);
  EXPECT_EQ(info.dpofCopies, 0);
  EXPECT_EQ(info.dpofIndex, 0);
  EXPECT_EQ(info.dpofSize, 0);
}

TEST_F(CQDCFListInfo, MarksAreGivenByTheirBits) {
  c.SetBit(kA1, 5);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.selected, 1);
  EXPECT_EQ(info.wifiFlag, 0);
  c.list.SetCustomBit(c.Path(kA1), 5, false);
  c.SetBit(kA1, 4);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.selected, 0);
  EXPECT_EQ(info.wifiFlag, 1);
}

TEST_F(CQDCFListInfo, PrintSettingsAreGivenByTheirBytes) {
  c.list.SetCustomInfo(c.Path(kA1), 2, 250);
  c.list.SetCustomInfo(c.Path(kA1), 14, 200);
  c.list.SetCustomInfo(c.Path(kA1), 15, 7);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.dpofCopies, 250);
  EXPECT_EQ(info.dpofIndex, 1) << "any value but 0";
  EXPECT_EQ(info.dpofSize, 7);
}

TEST_F(CQDCFListInfo, ProtectionIsReadFromTheCard) {
  c.card.SetReadOnly(kA1, true);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.isProtected, 1);
  c.card.SetReadOnly(kA1, false);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.isProtected, 0);
}

TEST_F(CQDCFListInfo, CompanionsAreNamed) {
  EXPECT_EQ(Get(kA2), 0);
  EXPECT_EQ(c.Relative(info.objectPath), "DCIM/100PHOTO/QVX_0002.S  ");
}

TEST_F(CQDCFListInfo, AnEarlierCompanionPathIsCleared) {
  Get(kA2);
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_STREQ(info.objectPath, "");
}

TEST_F(CQDCFListInfo, TimesAreLeftAlone) {
  info.year = 1999;
  info.modTime = 42;
  EXPECT_EQ(Get(kA1), 0);
  EXPECT_EQ(info.year, 1999);
  EXPECT_EQ(info.modTime, 42);
}

TEST_F(CQDCFListInfo, TheNumbersOfThePathDecide) {
  c.SetBit(kA2, 5);
  EXPECT_EQ(Get("DCIM/100XXXXX/ABC_0002.MP4"), 0);
  EXPECT_EQ(info.selected, 1);
  EXPECT_EQ(c.Relative(info.filePath), "DCIM/100XXXXX/ABC_0002.MP4");
}

TEST_F(CQDCFListInfo, AFileThatIsNotHeldChangesNothing) {
  std::strcpy(info.filePath, "before");
  std::strcpy(info.objectPath, "before");
  info.selected = 1;
  for (const char* file : {"DCIM/100PHOTO/QVX_0003.JPG", "DCIM/101PHOTO/QVX_0001.JPG", "", "x"}) {
    EXPECT_EQ(Get(file), -1) << file;
  }
  EXPECT_EQ(c.list.GetInfo(nullptr, &info), -1);
  EXPECT_EQ(c.list.GetInfo(Arg(""), &info), -1);
  EXPECT_STREQ(info.filePath, "before");
  EXPECT_STREQ(info.objectPath, "before");
  EXPECT_EQ(info.selected, 1);
  EXPECT_EQ(info.dpofSize, -1);
}

TEST_F(CQDCFListInfo, NoRecordIsRefused) { EXPECT_EQ(c.list.GetInfo(c.Path(kA1), nullptr), -1); }

TEST_F(CQDCFListInfo, APathThatDoesNotFitFillsTheOtherFields) {
  std::strcpy(info.filePath, "before");
  c.SetBit(kA1, 5);
  const std::string path = c.card.Path(kA1);
  EXPECT_EQ(c.list.GetInfo(Arg(path + std::string(128 - path.size(), 'x')), &info), -1);
  EXPECT_STREQ(info.filePath, "before");
  EXPECT_EQ(info.selected, 1);
  EXPECT_EQ(info.dpofSize, 0);
}

TEST_F(CQDCFListInfo, APathOf127CharactersFits) {
  const std::string path = c.card.Path(kA1);
  const std::string longest = path + std::string(127 - path.size(), 'x');
  EXPECT_EQ(c.list.GetInfo(Arg(longest), &info), 0);
  EXPECT_EQ(info.filePath, longest);
}

TEST_F(CQDCFListInfo, AFileOfTheCameraFolderHasItsPathAsObject) {
  const char* const lake = "DCIM/CAMERA/party at the lake.jpg";
  const char* const other = "DCIM/CAMERA/another party.jpg";
  c.With({lake, other});
  c.ScanWithCamera();
  c.SetBit(lake, 5);
  EXPECT_EQ(Get(lake), 0);
  EXPECT_EQ(c.Relative(info.filePath), lake);
  EXPECT_EQ(c.Relative(info.objectPath), lake);
  EXPECT_EQ(info.selected, 1);
  EXPECT_EQ(Get(other), 0);
  EXPECT_EQ(info.selected, 0);
  EXPECT_EQ(Get("DCIM/CAMERA/no such file.jpg"), -1);
}

TEST_F(CQDCFListInfo, AVeryLongCameraPathStaysInItsFields) {
  c.With({"DCIM/CAMERA/party at the lake.jpg"});
  c.ScanWithCamera();
  const std::string path = c.card.Path("DCIM/CAMERA/") + std::string(300, 'x');
  EXPECT_EQ(c.list.GetInfo(Arg(path + "party at the lake.jpg"), &info), -1);
  EXPECT_LT(std::strlen(info.objectPath), sizeof(info.objectPath));
}

TEST(CQDCFListInfoNothing, WithoutAScanNothingIsFound) {
  CardCatalogue c;
  CQFileListItem info;
  EXPECT_EQ(c.list.GetInfo(c.Path(kA1), &info), -1);
  c.list.Destroy();
  EXPECT_EQ(c.list.GetInfo(c.Path(kA1), &info), -1);
  EXPECT_EQ(info.dpofSize, -1);
}

}  // namespace
}  // namespace flm_test
