// Turning round the print mark of the selected files.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using flm_test::Progress;
using Seen = std::vector<Progress>;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kThree[] = "DCIM/101PHOTO/QVX_0001.JPG";
constexpr char kMovie[] = "DCIM/101PHOTO/QVX_0002.MP4";

class OrderingMany : public testing::Test {
 protected:
  OrderingMany() {
    EXPECT_EQ(4, at_.With({kOne, kTwo, kThree, kMovie}));
    Progress::Begin();
  }
  void Select(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      CQFileListItem item = at_.Item(file);
      EXPECT_EQ(0, at_.list.SetSel(&item, true)) << file;
    }
  }
  void Order(const std::string& file, int copies) {
    CQFileListItem item = at_.Item(file);
    EXPECT_EQ(0, at_.list.SetDPOF(&item, copies)) << file;
  }
  int Copies(const std::string& file) {
    CQFileListItem item = at_.Item(file);
    return at_.list.GetDPOFNumOfCopy(&item);
  }
  ListedCard at_;
};

TEST_F(OrderingMany, AnOrderedFileLosesItsPrintsAndAnotherGetsOne) {
  Order(kOne, 2);
  Order(kTwo, 5);
  Select({kOne, kThree});
  EXPECT_EQ(0, at_.list.DPOFSel(Progress::Record));
  EXPECT_EQ(0, Copies(kOne));
  EXPECT_EQ(5, Copies(kTwo));
  EXPECT_EQ(1, Copies(kThree));
  EXPECT_EQ((Seen{{0, 2, 0}, {1, 2, 0}}), Progress::seen);
}

TEST_F(OrderingMany, NothingIsSaved) {
  Select({kOne});
  ASSERT_EQ(0, at_.list.DPOFSel(nullptr));
  EXPECT_FALSE(at_.card.Exists("MISC/AUTPRINT.MRK"));
}

TEST_F(OrderingMany, ItBeginsAtTheLastAndMayBeCancelled) {
  Select({kOne, kThree});
  Progress::Begin(0);
  EXPECT_EQ(10000, at_.list.DPOFSel(Progress::Record));
  EXPECT_EQ(1, Copies(kThree));
  EXPECT_EQ(0, Copies(kOne));
  EXPECT_FALSE(at_.card.Exists("MISC/AUTPRINT.MRK"));
}

TEST_F(OrderingMany, AMovieCannotBeOrderedAndItsCodeIsReported) {
  Select({kOne, kMovie});
  EXPECT_EQ(-19800, at_.list.DPOFSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(OrderingMany, OtherPrintMarksAndTheSelectionStay) {
  CQFileListItem one = at_.Item(kOne);
  ASSERT_EQ(0, at_.list.SetDPOFSize(&one, 4));
  ASSERT_EQ(0, at_.list.SetDPOFIndex(true));
  Select({kOne});
  ASSERT_EQ(0, at_.list.DPOFSel(nullptr));
  EXPECT_EQ(4, at_.list.GetDPOFSize(&one));
  EXPECT_TRUE(at_.list.GetDPOFIndex(&one));
  EXPECT_EQ(1, at_.list.GetSelCount());
}

TEST_F(OrderingMany, WithoutASelectionNothingHappens) {
  EXPECT_EQ(0, at_.list.DPOFSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ(0, Copies(kOne));
}

TEST_F(OrderingMany, TheSelectedListDoesTheSame) {
  Select({kOne});
  IQSelectedFileList& selected = at_.list;
  EXPECT_EQ(0, selected.DPOFSel(nullptr));
  EXPECT_EQ(1, Copies(kOne));
  EXPECT_EQ(0, selected.DPOFSel(nullptr));
  EXPECT_EQ(0, Copies(kOne));
}

TEST(OrderingNone, EmptyListsAndListsWithoutACatalogueReportNothing) {
  ListedCard at;
  Progress::Begin();
  EXPECT_EQ(0, at.list.DPOFSel(Progress::Record));
  ASSERT_EQ(0, at.Scan());
  EXPECT_EQ(0, at.list.DPOFSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
}

}  // namespace
