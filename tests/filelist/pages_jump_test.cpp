// Going to a page by its number, pages after changes of the list, and page sizes that are none.
#include <climits>

#include "tests/filelist/pages_fixture.h"

namespace {

class PageJumps : public flm_test::Pages {};

TEST_F(PageJumps, AnyPageIsReachedFromNone) {
  With(25, 10);
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, Page());
  at_.list.InitPage(10);
  EXPECT_EQ(5, At(2));
  EXPECT_EQ("21 22 23 24 25", Shown());
  EXPECT_EQ(2, Page());
}

TEST_F(PageJumps, APageFurtherAwayIsReached) {
  With(25, 5);
  ASSERT_EQ(5, First());
  EXPECT_EQ(5, At(3));
  EXPECT_EQ("16 17 18 19 20", Shown());
  EXPECT_EQ(3, Page());
  EXPECT_EQ(5, At(1));
  EXPECT_EQ("6 7 8 9 10", Shown());
  EXPECT_EQ(1, Page());
}

TEST_F(PageJumps, TheNextAndThePreviousPageAreStepsFromTheCurrentOne) {
  With(25, 10);
  ASSERT_EQ(10, First());
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(5, At(2));
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, Page());
}

TEST_F(PageJumps, ThePageAfterTheLastIsTheFirst) {
  With(25, 10);
  ASSERT_EQ(5, Last());
  EXPECT_EQ(10, At(3));
  EXPECT_EQ("1 2 3 4 5 6 7 8 9 10", Shown());
  EXPECT_EQ(0, Page());
}

TEST_F(PageJumps, TheCurrentPageIsReadAgain) {
  With(25, 10);
  ASSERT_EQ(10, At(1));
  CQFileListItem item = at_.Item(File(12));
  ASSERT_EQ(0, at_.list.SetSel(&item, true));
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, items_[1].selected);
  EXPECT_EQ(1, Page());
}

TEST_F(PageJumps, TheCurrentPageIsAnchoredByItsFirstFile) {
  With(25, 10);
  ASSERT_EQ(10, At(1));
  Forget(3, 3);
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
}

TEST_F(PageJumps, WithoutItsFirstFileTheCurrentPageIsFoundByPosition) {
  With(25, 10);
  ASSERT_EQ(10, At(1));
  Forget(11, 11);
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("12 13 14 15 16 17 18 19 20 21", Shown());
  EXPECT_EQ(1, Page());
}

TEST_F(PageJumps, WhenThePositionIsGoneTooItFails) {
  With(11, 10);
  ASSERT_EQ(1, At(1));
  Forget(11, 11);
  EXPECT_EQ(-1, At(1));
  EXPECT_EQ("", Shown());
}

TEST_F(PageJumps, AfterADeletionPagesGoByPosition) {
  With(25, 10);
  ASSERT_EQ(10, First());
  CQFileListItem item = at_.Item(File(1));
  ASSERT_EQ(10000025, at_.list.Delete(&item, false, false));
  ASSERT_EQ(-1, Page());
  EXPECT_EQ(10, At(1));
  EXPECT_EQ("12 13 14 15 16 17 18 19 20 21", Shown());
  EXPECT_EQ(4, At(2));
  EXPECT_EQ("22 23 24 25", Shown());
}

TEST_F(PageJumps, ANegativePageIsRefused) {
  With(25, 10);
  ASSERT_EQ(10, First());
  EXPECT_EQ(-1, At(-1));
  EXPECT_EQ(-1, At(INT_MIN));
  EXPECT_EQ(0, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageJumps, AnEmptyListIsRefusedAfterTheNumber) {
  With(0, 10);
  EXPECT_EQ(-2, At(0));
  EXPECT_EQ(-2, At(5));
  EXPECT_EQ(-1, At(-1));
  EXPECT_EQ(-1, Page());
}

TEST_F(PageJumps, AListWithoutACatalogueIsRefused) {
  at_.list.InitPage(10);
  EXPECT_EQ(-2, At(0));
  EXPECT_EQ(-1, At(-1));
}

TEST_F(PageJumps, APageBehindTheLastIsRefusedAndThePageStays) {
  With(25, 10);
  EXPECT_EQ(-1, At(3));
  EXPECT_EQ(-1, Page());
  ASSERT_EQ(10, First());
  for (const int page : {3, 4, 1000, 214748364, 214748365, 429496730, INT_MAX}) {
    EXPECT_EQ(-1, At(page)) << page;
    EXPECT_EQ(0, Page()) << page;
    EXPECT_EQ("", Shown()) << page;
  }
}

TEST_F(PageJumps, LargePageSizesDoNotOverflow) {
  With(3, INT_MAX);
  EXPECT_EQ(3, At(0));
  EXPECT_EQ("1 2 3", Shown());
  EXPECT_EQ(3, First());
  EXPECT_EQ(3, Last());
  at_.list.InitPage(INT_MAX);
  for (const int page : {1, 2, 3, INT_MAX}) EXPECT_EQ(-1, At(page)) << page;
  EXPECT_EQ(-1, Page());
}

class PageSizes : public flm_test::Pages {};

TEST_F(PageSizes, WithoutASizeThereAreNoPages) {
  for (const int size : {0, -1, -10, INT_MIN}) {
    SCOPED_TRACE(size);
    flm_test::ListedCard at;
    ASSERT_EQ(1, at.With({"DCIM/100PHOTO/QVX_0001.JPG"}));
    at.list.InitPage(size);
    CQFileListItem item = at.Item("KEPT");
    EXPECT_EQ(0, at.list.GetPageTotalCount());
    EXPECT_EQ(0, at.list.GetLastPage(&item));
    EXPECT_EQ("KEPT", at.NameOf(item));
  }
}

TEST_F(PageSizes, TheFirstPageBecomesCurrentAndIsEmpty) {
  With(3, 0);
  EXPECT_EQ(0, First());
  EXPECT_EQ(0, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSizes, NextAndPreviousOnlyCount) {
  With(3, 0);
  ASSERT_EQ(0, First());
  EXPECT_EQ(0, Next());
  EXPECT_EQ(1, Page());
  EXPECT_EQ(0, Next());
  EXPECT_EQ(2, Page());
  EXPECT_EQ(0, Prev());
  EXPECT_EQ(1, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSizes, AnyPageBecomesCurrentAndIsEmpty) {
  With(3, 0);
  EXPECT_EQ(0, At(7));
  EXPECT_EQ(7, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSizes, ASizeBelowZeroHasNoPageBehindTheFirst) {
  With(3, -2);
  EXPECT_EQ(0, At(0));
  EXPECT_EQ(0, Page());
  at_.list.InitPage(-2);
  EXPECT_EQ(-1, At(2));
  EXPECT_EQ(-1, Page());
}

TEST_F(PageSizes, BeforeInitPageNothingIsShown) {
  at_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  ASSERT_EQ(3, at_.Scan());
  EXPECT_EQ(0, at_.list.GetPageTotalCount());
  EXPECT_EQ(0, First());
  EXPECT_EQ(0, Last());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSizes, TheSizeDecidesWhetherALastUpdatedPageIsKnown) {
  With(3, 0);
  int page = 7;
  int position = 7;
  EXPECT_EQ(-3, at_.list.GetLastUpdated(&page, &position));
  at_.list.InitPage(-4);
  EXPECT_EQ(-3, at_.list.GetLastUpdated(&page, &position));
  EXPECT_EQ(7, page);
  EXPECT_EQ(7, position);
}

}  // namespace
