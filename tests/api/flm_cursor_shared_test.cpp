// The cursor, through the flat functions.
#include "tests/api/flm_fixture.h"

namespace {

using flm_test::At;
using flm_test::Count;
using flm_test::Cursor;

class FlatCursor : public flm_test::FlatTest {
 protected:
  void SetUp() override { ScanFivePictures(); }
  // The file at the list's own cursor.
  static std::string Current() {
    CQFileListItem item;
    return _flm_get_isfilelist(FILELIST_MMC)->GetCurrent(&item, false) == 0 ? item.filePath : "";
  }
};

TEST_F(FlatCursor, MovesToTheFirstAndLastFile) {
  EXPECT_EQ(flm_move_to_last(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), 4);
  EXPECT_EQ(Current(), "/mnt/mmc/DCIM/103PHOTO/QVX_0002.JPG");
  EXPECT_EQ(flm_move_to_first(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), 0);
  EXPECT_EQ(Current(), "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG");
}

TEST_F(FlatCursor, StepsForwards) {
  ASSERT_EQ(flm_move_to_first(FILELIST_MMC), 0);
  for (int i = 1; i < 5; ++i) {
    EXPECT_EQ(flm_move_to_next(FILELIST_MMC), 0);
    EXPECT_EQ(Cursor(), i);
  }
}

TEST_F(FlatCursor, StepsBackwards) {
  ASSERT_EQ(flm_move_to_last(FILELIST_MMC), 0);
  for (int i = 3; i >= 0; --i) {
    EXPECT_EQ(flm_move_to_prev(FILELIST_MMC), 0);
    EXPECT_EQ(Cursor(), i);
  }
}

TEST_F(FlatCursor, AStepBehindTheLastFileLeavesNoCurrentFile) {
  ASSERT_EQ(flm_move_to_last(FILELIST_MMC), 0);
  EXPECT_EQ(flm_move_to_next(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), -1);
  EXPECT_EQ(Current(), "");
  EXPECT_EQ(flm_move_to_next(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), 0);
}

TEST_F(FlatCursor, AStepBeforeTheFirstFileLeavesNoCurrentFile) {
  ASSERT_EQ(flm_move_to_first(FILELIST_MMC), 0);
  EXPECT_EQ(flm_move_to_prev(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), -1);
  EXPECT_EQ(flm_move_to_prev(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), -1);
}

TEST_F(FlatCursor, IsSetByIndex) {
  for (const int index : {3, 0, 4, 2, 1}) {
    EXPECT_EQ(flm_set_cursor(FILELIST_MMC, index), 0);
    EXPECT_EQ(Cursor(), index);
    const std::string current = Current();
    EXPECT_EQ(current, At(index));
  }
}

TEST_F(FlatCursor, AnIndexPastTheEndIsNoCursor) {
  for (const int index : {5, -1, INT_MAX, INT_MIN}) {
    ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 2), 0);
    EXPECT_EQ(flm_set_cursor(FILELIST_MMC, index), 0);
    EXPECT_EQ(Cursor(), -1);
  }
}

TEST_F(FlatCursor, AnIndexPastTheEndLeavesTheWalkWhereItWas) {
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 2), 0);
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 5), 0);
  EXPECT_EQ(Current(), At(2));
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 2), 0);
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 5), 0);
  EXPECT_EQ(flm_move_to_next(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), 3);
}

TEST_F(FlatCursor, GoesToEveryFileThatIsAskedFor) {
  EXPECT_EQ(At(3), "/mnt/mmc/DCIM/103PHOTO/QVX_0001.JPG");
  EXPECT_EQ(Cursor(), 3);
  flm_test::ValueAt(flm_get_selection, FILELIST_MMC, 1);
  EXPECT_EQ(Cursor(), 1);
}

TEST_F(FlatCursor, OfOneListIsNotThatOfTheOther) {
  sd0.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  ASSERT_EQ(flm_listup(FILELIST_SD0), 0);
  ASSERT_EQ(flm_set_cursor(FILELIST_MMC, 4), 0);
  ASSERT_EQ(flm_set_cursor(FILELIST_SD0, 1), 0);
  EXPECT_EQ(Cursor(FILELIST_MMC), 4);
  EXPECT_EQ(Cursor(FILELIST_SD0), 1);
  ASSERT_EQ(flm_move_to_next(FILELIST_SD0), 0);
  EXPECT_EQ(Cursor(FILELIST_MMC), 4);
  EXPECT_EQ(Cursor(FILELIST_SD0), 2);
}

TEST_F(FlatCursor, StandsOnANewFile) {
  EXPECT_EQ(flm_test::NewName(), "/mnt/mmc/DCIM/103PHOTO/QVX_0003.JPG");
  EXPECT_EQ(Current(), "/mnt/mmc/DCIM/103PHOTO/QVX_0003.JPG");
  EXPECT_EQ(flm_move_to_prev(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), 4);
}

TEST_F(FlatCursor, OfAnEmptyListGoesNowhere) {
  mmc.Remove("DCIM");
  ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
  ASSERT_EQ(Count(), 0);
  const int before = Cursor();
  EXPECT_EQ(flm_move_to_first(FILELIST_MMC), 0);
  EXPECT_EQ(flm_move_to_last(FILELIST_MMC), 0);
  EXPECT_EQ(flm_move_to_next(FILELIST_MMC), 0);
  EXPECT_EQ(flm_move_to_prev(FILELIST_MMC), 0);
  EXPECT_EQ(Cursor(), before);
}

}  // namespace
