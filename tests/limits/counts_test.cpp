// As many files, folders and companions as a catalogue takes, on real folders: one less, as many,
// one more.
#include <set>

#include "tests/limits/limits_fixture.h"

namespace flm_test {
namespace {

constexpr int kMost = 32000;
constexpr int kInAFolder = 8000;
constexpr int kWaiting = 5461;  // companions that wait for their pictures during a scan

class FileCount : public LargeCard {};

TEST_F(FileCount, GoesUpTo32000AndLeavesOutTheLastOfTheOldestFolder) {
  for (const char* folder : {"DCIM/101PHOTO", "DCIM/102PHOTO", "DCIM/103PHOTO"}) {
    Add(folder, 1, kInAFolder);
  }
  Add("DCIM/100PHOTO", 1, kInAFolder - 1);
  EXPECT_EQ(Scan(), kMost - 1);
  EXPECT_EQ(NameAt(kMost - 2), "DCIM/103PHOTO/QVX_8000.JPG");

  Add("DCIM/100PHOTO", kInAFolder, 1);
  EXPECT_EQ(Scan(), kMost);
  EXPECT_EQ(NameAt(kInAFolder - 1), "DCIM/100PHOTO/QVX_8000.JPG");
  EXPECT_EQ(NameAt(kMost - 1), "DCIM/103PHOTO/QVX_8000.JPG");
  EXPECT_EQ(New(), "") << "no room in the list";

  Add("DCIM/100PHOTO", kInAFolder + 1, 1);
  EXPECT_EQ(Scan(), kMost);
  EXPECT_EQ(NameAt(kInAFolder - 1), "DCIM/100PHOTO/QVX_8000.JPG");
  EXPECT_EQ(NameAt(kInAFolder), "DCIM/101PHOTO/QVX_0001.JPG");

  EXPECT_EQ(Delete(kMost - 1), 10307999);
  EXPECT_EQ(New(), "DCIM/103PHOTO/QVX_8000.JPG") << "room for one";
  EXPECT_EQ(New(), "");
}

TEST_F(FileCount, LeavesOutAFolderOlderThanTheNewest32000Files) {
  for (const char* folder : {"DCIM/101PHOTO", "DCIM/102PHOTO", "DCIM/103PHOTO", "DCIM/104PHOTO"}) {
    Add(folder, 1, kInAFolder);
  }
  Add("DCIM/100PHOTO", 1, 1);
  EXPECT_EQ(Scan(), kMost);
  EXPECT_EQ(NameAt(0), "DCIM/101PHOTO/QVX_0001.JPG");
}

class FolderCount : public LargeCard {
 protected:
  // Adds folders with one file each until there are so many. Number 999 stays free.
  void HaveFolders(int wanted) {
    constexpr int kNumbers = 899;
    for (; folders_ < wanted; ++folders_) {
      const std::string number = std::to_string(100 + folders_ % kNumbers);
      Add("DCIM/" + number + (folders_ < kNumbers ? "AAAAA" : "BBBBB"), 1, 1);
    }
  }

 private:
  int folders_ = 0;
};

TEST_F(FolderCount, GoesUpTo999) {
  struct {
    int folders, listed;
  } const cases[] = {{998, 998}, {999, 999}, {1000, 999}, {1500, 999}};
  for (const auto& c : cases) {
    HaveFolders(c.folders);
    EXPECT_EQ(Scan(), c.listed) << c.folders;
    const Names files = Files();
    EXPECT_EQ(std::set<std::string>(files.begin(), files.end()).size(),
              static_cast<size_t>(c.listed))
        << c.folders;
  }
}

TEST_F(FolderCount, LeavesRoomForOneNewFolderAt998) {
  HaveFolders(998);
  ASSERT_EQ(Scan(), 998);
  EXPECT_EQ(New(), "DCIM/999PHOTO/QVX_0001.JPG");
  EXPECT_TRUE(Exists("DCIM/999PHOTO"));
}

TEST_F(FolderCount, LeavesRoomForNoNewFolderAt999) {
  HaveFolders(999);
  ASSERT_EQ(Scan(), 999);
  EXPECT_EQ(New(), "");
  EXPECT_FALSE(Exists("DCIM/999PHOTO"));
}

class CompanionCount : public LargeCard {};

TEST_F(CompanionCount, BeyondTheOnesThatWaitChangesNothing) {
  Add("DCIM/100PHOTO", 1, kWaiting - 1);
  Add("DCIM/100PHOTO", 1, kWaiting - 1, "SRW");
  for (int pictures = kWaiting; pictures <= kWaiting + 2; ++pictures) {
    Add("DCIM/100PHOTO", pictures, 1);
    Add("DCIM/100PHOTO", pictures, 1, "SRW");
    ASSERT_EQ(Scan(), pictures);
    for (int index = kWaiting - 2; index < pictures; ++index) {
      CQFileListItem item = At(index);
      char raw[flm::kPathSize] = {};
      EXPECT_EQ(list_.GetObjectFullPath(&item, FILE_TYPE_RAW, raw, sizeof(raw)), FILE_TYPE_RAW);
      EXPECT_EQ(Relative(raw), "DCIM/100PHOTO/QVX_" + FourDigits(index + 1) + ".SRW");
    }
  }
  EXPECT_GT(Delete(kWaiting), 0);
  EXPECT_FALSE(Exists("DCIM/100PHOTO/QVX_5462.SRW"));
  EXPECT_TRUE(Exists("DCIM/100PHOTO/QVX_5463.SRW"));
}

}  // namespace
}  // namespace flm_test
