// Protection: the write permission of the file on the card and of its companions.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;

constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kRaw[] = "DCIM/100PHOTO/QVX_0001.SRW";
constexpr char kMemo[] = "DCIM/100PHOTO/QVX_0001.WAV";
constexpr char kMulti[] = "DCIM/100PHOTO/QVX_0001.MPO";
constexpr char kOther[] = "DCIM/100PHOTO/QVX_0002.JPG";

std::vector<std::string> changed;  // paths handed to chmod, in order
int RecordChmod(const char* path, mode_t /*mode*/) {
  changed.push_back(path);
  return 0;
}

class ProtectionOfFiles : public testing::Test {
 protected:
  ListedCard at_;
};

TEST_F(ProtectionOfFiles, AProtectedFileLosesItsOwnersWritePermissionAlone) {
  at_.With({kPicture, kOther});
  at_.card.SetMode(kPicture, 0664);
  CQFileListItem item = at_.Item(kPicture);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kPicture));
  EXPECT_FALSE(at_.card.IsReadOnly(kOther));
  EXPECT_TRUE(at_.list.IsProtect(&item));
  EXPECT_EQ(0, at_.list.SetProtect(&item, false));
  EXPECT_FALSE(at_.card.IsReadOnly(kPicture));
  EXPECT_FALSE(at_.list.IsProtect(&item));
}

TEST_F(ProtectionOfFiles, ProtectingTwiceIsFine) {
  at_.With({kPicture});
  CQFileListItem item = at_.Item(kPicture);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.list.IsProtect(&item));
}

TEST_F(ProtectionOfFiles, ItIsReadFromTheCardEachTime) {
  at_.With({kPicture});
  CQFileListItem item = at_.Item(kPicture);
  EXPECT_FALSE(at_.list.IsProtect(&item));
  at_.card.SetReadOnly(kPicture, true);
  EXPECT_TRUE(at_.list.IsProtect(&item));
  item.isProtected = 0;
  EXPECT_TRUE(at_.list.IsProtect(&item));
}

TEST_F(ProtectionOfFiles, NeitherOperationNeedsACatalogue) {
  at_.card.MakeFile(kPicture);
  CQFileListItem item = at_.Item(kPicture);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kPicture));
  EXPECT_TRUE(at_.list.IsProtect(&item));
}

TEST_F(ProtectionOfFiles, OddItemsAreRefusedWithTheirOwnCodes) {
  at_.With({kPicture});
  CQFileListItem empty;
  EXPECT_EQ(-100, at_.list.SetProtect(nullptr, true));
  EXPECT_EQ(-101, at_.list.SetProtect(&empty, true));
  EXPECT_FALSE(at_.list.IsProtect(nullptr));
  EXPECT_FALSE(at_.list.IsProtect(&empty));
  EXPECT_FALSE(at_.card.IsReadOnly(kPicture));
}

TEST_F(ProtectionOfFiles, AnEmptyPathIsRefusedWhateverItsCompanions) {
  at_.With({kPicture, kMemo});
  CQFileListItem item = at_.At(0);
  item.filePath[0] = '\0';
  EXPECT_EQ(-101, at_.list.SetProtect(&item, true));
  EXPECT_FALSE(at_.card.IsReadOnly(kMemo));
}

TEST_F(ProtectionOfFiles, AMissingFileIsNotProtectedAndCannotBe) {
  at_.With({kPicture});
  CQFileListItem item = at_.Item(kOther);
  EXPECT_FALSE(at_.list.IsProtect(&item));
  EXPECT_EQ(-1, at_.list.SetProtect(&item, true));
  EXPECT_FALSE(at_.card.Exists(kOther));
}

TEST_F(ProtectionOfFiles, AllThreeCompanionsFollowTheirFile) {
  ASSERT_EQ(1, at_.With({kPicture, kRaw, kMemo, kMulti}));
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  for (const char* file : {kPicture, kRaw, kMemo, kMulti}) {
    EXPECT_TRUE(at_.card.IsReadOnly(file)) << file;
  }
  EXPECT_EQ(0, at_.list.SetProtect(&item, false));
  for (const char* file : {kPicture, kRaw, kMemo, kMulti}) {
    EXPECT_FALSE(at_.card.IsReadOnly(file)) << file;
  }
}

TEST_F(ProtectionOfFiles, TheFileComesFirstThenRawThenMemoThenMultiPicture) {
  ASSERT_EQ(1, at_.With({kPicture, kRaw, kMemo, kMulti}));
  CQFileListItem item = at_.At(0);
  changed.clear();
  flm::Os().Chmod = RecordChmod;
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_EQ((std::vector<std::string>{at_.card.Path(kPicture), at_.card.Path(kRaw),
                                      at_.card.Path(kMemo), at_.card.Path(kMulti)}),
            changed);
}

TEST_F(ProtectionOfFiles, AnAbsentKindOfCompanionIsPassedOver) {
  ASSERT_EQ(1, at_.With({kPicture, kMemo}));
  CQFileListItem item = at_.At(0);
  changed.clear();
  flm::Os().Chmod = RecordChmod;
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_EQ((std::vector<std::string>{at_.card.Path(kPicture), at_.card.Path(kMemo)}), changed);
}

TEST_F(ProtectionOfFiles, AnItemWithoutItsCompanionsPathLeavesThemAlone) {
  ASSERT_EQ(1, at_.With({kPicture, kMemo}));
  CQFileListItem item = at_.Item(kPicture);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kPicture));
  EXPECT_FALSE(at_.card.IsReadOnly(kMemo));
}

TEST_F(ProtectionOfFiles, TheResultIsThatOfTheCompanion) {
  ASSERT_EQ(1, at_.With({kPicture, kMemo}));
  CQFileListItem item = at_.At(0);
  at_.card.Remove(kMemo);
  EXPECT_EQ(-1, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kPicture));
}

TEST_F(ProtectionOfFiles, ACompanionHidesTheFailureOfItsFile) {
  ASSERT_EQ(1, at_.With({kPicture, kMemo}));
  CQFileListItem item = at_.At(0);
  at_.card.Remove(kPicture);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kMemo));
}

TEST_F(ProtectionOfFiles, TheLastCompanionDecides) {
  ASSERT_EQ(1, at_.With({kPicture, kRaw, kMulti}));
  CQFileListItem item = at_.At(0);
  at_.card.Remove(kRaw);
  EXPECT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.card.IsReadOnly(kMulti));
}

TEST_F(ProtectionOfFiles, TheStoragesFailureIsTheResult) {
  ASSERT_EQ(1, at_.With({kPicture}));
  CQFileListItem item = at_.At(0);
  flm::Os().Chmod = [](const char*, mode_t) { return -7; };
  EXPECT_EQ(-7, at_.list.SetProtect(&item, true));
  EXPECT_FALSE(at_.list.IsProtect(&item));
}

TEST_F(ProtectionOfFiles, ProtectionLeavesTheMarksAlone) {
  ASSERT_EQ(1, at_.With({kPicture}));
  CQFileListItem item = at_.At(0);
  ASSERT_EQ(0, at_.list.SetSel(&item, true));
  ASSERT_EQ(0, at_.list.SetProtect(&item, true));
  EXPECT_TRUE(at_.list.IsSel(&item));
  EXPECT_FALSE(at_.list.IsWifiFlag(&item));
}

}  // namespace
