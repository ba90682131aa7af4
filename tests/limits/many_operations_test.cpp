// Ten thousand operations on one list without a scan in between: at the end the list is what a scan
// of the card would give.
#include <algorithm>

#include "tests/limits/limits_fixture.h"

namespace flm_test {
namespace {

constexpr int kNames = 4000;
constexpr int kMarks = 3000;
constexpr int kDeletions = 3000;
static_assert(kNames + kMarks + kDeletions == 10000, "ten thousand operations");

class ManyOperations : public LargeCard {
 protected:
  // The index that the i-th operation of a kind takes: all over the list, the same in every run.
  static int Spread(int i, int count) {
    constexpr int kStep = 7919;  // a prime beyond every count
    return static_cast<int>(static_cast<long long>(i) * kStep % count);
  }
};

TEST_F(ManyOperations, LeaveTheListThatAScanWouldGive) {
  Add("DCIM/100PHOTO", 8000, 1);
  ASSERT_EQ(Scan(), 1);
  for (int i = 0; i < kNames; ++i) {
    const std::string name = New();
    ASSERT_NE(name, "") << i;
    AddFile(name);
  }
  ASSERT_EQ(list_.GetCount(), kNames + 1);
  EXPECT_TRUE(Exists("DCIM/101PHOTO")) << "the numbers went over to the next folder";
  for (int i = 0; i < kMarks; ++i) {
    CQFileListItem item = At(Spread(i, kNames + 1));
    ASSERT_EQ(list_.SetSel(&item, true), 0) << item.filePath;
  }
  EXPECT_EQ(list_.GetSelCount(), kMarks);
  for (int i = 0; i < kDeletions; ++i) {
    ASSERT_GT(Delete(Spread(i, list_.GetCount())), 0) << i;
  }
  EXPECT_EQ(list_.GetCount(), kNames + 1 - kDeletions);
  const Names files = Files();
  EXPECT_EQ(files, ScannedAnew());
  EXPECT_TRUE(std::is_sorted(files.begin(), files.end()));
}

TEST_F(ManyOperations, OnOneFileCostItNothing) {
  constexpr int kTimes = 10000;
  Add("DCIM/100PHOTO", 1, 3);
  ASSERT_EQ(Scan(), 3);
  CQFileListItem item = At(1);
  for (int i = 0; i < kTimes; ++i) {
    ASSERT_EQ(list_.SetDPOF(&item, i % 100), 0);
    ASSERT_EQ(list_.GetDPOFNumOfCopy(&item), i % 100);
  }
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                            "DCIM/100PHOTO/QVX_0003.JPG"}));
}

}  // namespace
}  // namespace flm_test
