// Protection on a FAT: one read-only bit for a file. Which calls reach it depends on the mount.
#include "fsio/PCQDCFFSIO.h"
#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kRaw[] = "DCIM/100PHOTO/QVX_0001.SRW";
constexpr char kOther[] = "DCIM/100PHOTO/QVX_0002.JPG";

class FatProtection : public OnFat {
 protected:
  FatProtection() {
    for (const char* name : {kPicture, kRaw, kOther}) card.MakeFile(name);
    EXPECT_EQ(Scan(), 2);
  }
  bool IsProtectedOnCard(const char* name) { return card.IsReadOnly(name); }
};

TEST_F(FatProtection, AReadOnlyBitIsProtectionUnderEveryMask) {
  SetReadOnlyBit(kPicture, true);
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(At(0).isProtected, 1);
  EXPECT_EQ(At(1).isProtected, 0);
}

// The result is that of the system's call, which says 0 also where it changed nothing.
TEST_F(FatProtection, SucceedsAndHoldsWhereTheMountLeavesOnlyTheOwnerToWrite) {
  CQFileListItem item = Item(kOther);
  EXPECT_EQ(list.SetProtect(&item, true), 0);
  EXPECT_EQ(IsProtectedOnCard(kOther), OwnerWriteIsProtection());
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(At(1).isProtected != 0, OwnerWriteIsProtection());
}

TEST_F(FatProtection, IsTakenAwayWhereTheMountLeavesOnlyTheOwnerToWrite) {
  SetReadOnlyBit(kOther, true);
  CQFileListItem item = Item(kOther);
  EXPECT_EQ(list.SetProtect(&item, false), 0);
  EXPECT_EQ(IsProtectedOnCard(kOther), !OwnerWriteIsProtection());
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(At(1).isProtected == 0, OwnerWriteIsProtection());
}

TEST_F(FatProtection, FollowsToTheCompanions) {
  CQFileListItem item = At(0);
  EXPECT_EQ(list.SetProtect(&item, true), 0);
  EXPECT_EQ(IsProtectedOnCard(kPicture), OwnerWriteIsProtection());
  EXPECT_EQ(IsProtectedOnCard(kRaw), OwnerWriteIsProtection());
}

TEST_F(FatProtection, OfAllFilesIsReportedDoneUnderEveryMask) {
  card.Remove(kRaw);
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(list.SetProtectAll(true, nullptr), 0);
  for (const char* name : {kPicture, kOther}) {
    EXPECT_EQ(IsProtectedOnCard(name), OwnerWriteIsProtection()) << name;
  }
  EXPECT_EQ(list.SetProtectAll(false, nullptr), 0);
  for (const char* name : {kPicture, kOther}) EXPECT_FALSE(IsProtectedOnCard(name)) << name;
}

TEST_F(FatProtection, KeepsAFileFromDeletionUnlessForced) {
  SetReadOnlyBit(kPicture, true);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, false), -100);
  EXPECT_TRUE(card.Exists(kPicture));
  EXPECT_TRUE(card.Exists(kRaw));
  EXPECT_EQ(list.Delete(&item, true, false), 10000002);
  EXPECT_FALSE(card.Exists(kPicture));
  EXPECT_FALSE(card.Exists(kRaw));
}

TEST_F(FatProtection, OfACompanionAloneKeepsNothing) {
  SetReadOnlyBit(kRaw, true);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, false), 10000002);
  EXPECT_FALSE(card.Exists(kRaw));
}

TEST_F(FatProtection, IsPassedOverByTheDeletionOfAllUnlessForced) {
  SetReadOnlyBit(kOther, true);
  ASSERT_EQ(ScanAgain(), 2);
  list.DeleteAll(false, nullptr);
  EXPECT_FALSE(card.Exists(kPicture));
  EXPECT_TRUE(card.Exists(kOther));
  list.DeleteAll(true, nullptr);
  EXPECT_FALSE(card.Exists(kOther));
}

TEST_F(FatProtection, LeavesTheTimeAndTheContent) {
  card.WriteFile(kOther, "content");
  card.SetTime(kOther, 1000000000);
  CQFileListItem item = Item(kOther);
  list.SetProtect(&item, true);
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(At(1).modTime, 1000000000);
  EXPECT_EQ(card.ReadFile(kOther), "content");
}

}  // namespace
}  // namespace flm_test
