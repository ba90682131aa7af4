// Stepping from page to page.
#include "tests/filelist/pages_fixture.h"

namespace {

class PageSteps : public flm_test::Pages {};

TEST_F(PageSteps, BeforeInitPageThereIsNoPage) {
  ASSERT_EQ(1, at_.With({"DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(-1, Page());
}

TEST_F(PageSteps, InitPageForgetsTheCurrentPage) {
  With(5, 2);
  ASSERT_EQ(2, First());
  ASSERT_EQ(0, Page());
  EXPECT_EQ(0, at_.list.InitPage(3));
  EXPECT_EQ(-1, Page());
  EXPECT_EQ(2, at_.list.GetPageTotalCount());
}

TEST_F(PageSteps, InitPageTakesAnySizeAndNeedsNoScan) {
  for (const int size : {-5, 0, 1, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(0, at_.list.InitPage(size)) << size;
  }
}

// A step of a derived list may be replaced, so that each is made, with the information.
class NotingSteps : public CQFileList {
 public:
  std::string calls;
  int GetFirst(CQFileListItem* item, bool withInfo) override {
    calls += withInfo ? "first " : "first without ";
    return CQFileList::GetFirst(item, withInfo);
  }
  int GetNext(CQFileListItem* item, bool withInfo) override {
    calls += withInfo ? "next " : "next without ";
    return CQFileList::GetNext(item, withInfo);
  }
};

TEST(PageStepsNoted, APageOfADerivedListIsFilledByItsOwnSteps) {
  flm_test::Card card;
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 4, "JPG");
  NotingSteps list;
  list.SetBaseURI(card.Root().c_str());
  list.SetType(4);
  ASSERT_EQ(4, list.Listup(0));
  list.InitPage(2);
  list.calls.clear();
  CQFileListItem items[2];
  EXPECT_EQ(2, list.GetFirstPage(items));
  EXPECT_EQ("first next ", list.calls);
  EXPECT_EQ(card.Path("DCIM/100PHOTO/QVX_0002.JPG"), items[1].filePath);
  list.calls.clear();
  EXPECT_EQ(2, list.GetNextPage(items));
  EXPECT_EQ("next next next ", list.calls) << "two over the page that was shown, one on the next";
  EXPECT_EQ(card.Path("DCIM/100PHOTO/QVX_0004.JPG"), items[1].filePath);
  list.Destroy();
}

TEST_F(PageSteps, TheNumberOfPagesIsRoundedUp) {
  With(25, 10);
  EXPECT_EQ(3, at_.list.GetPageTotalCount());
  at_.list.InitPage(5);
  EXPECT_EQ(5, at_.list.GetPageTotalCount());
  at_.list.InitPage(25);
  EXPECT_EQ(1, at_.list.GetPageTotalCount());
  at_.list.InitPage(26);
  EXPECT_EQ(1, at_.list.GetPageTotalCount());
  at_.list.InitPage(1);
  EXPECT_EQ(25, at_.list.GetPageTotalCount());
  at_.list.InitPage(2147483647);
  EXPECT_EQ(1, at_.list.GetPageTotalCount());
}

TEST_F(PageSteps, AnEmptyListHasNoPages) {
  With(0, 10);
  EXPECT_EQ(0, at_.list.GetPageTotalCount());
}

TEST_F(PageSteps, TwentyFiveFilesAreThreePagesForward) {
  With(25, 10);
  EXPECT_EQ(10, First());
  EXPECT_EQ("1 2 3 4 5 6 7 8 9 10", Shown());
  EXPECT_EQ(0, Page());
  EXPECT_EQ(10, Next());
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, Page());
  EXPECT_EQ(5, Next());
  EXPECT_EQ("21 22 23 24 25", Shown());
  EXPECT_EQ(2, Page());
}

TEST_F(PageSteps, ThePageAfterTheLastIsTheFirst) {
  With(25, 10);
  ASSERT_EQ(5, Last());
  EXPECT_EQ(10, Next());
  EXPECT_EQ("1 2 3 4 5 6 7 8 9 10", Shown());
  EXPECT_EQ(0, Page());
}

TEST_F(PageSteps, ThePageBeforeTheFirstIsTheLast) {
  With(25, 10);
  ASSERT_EQ(10, First());
  EXPECT_EQ(5, Prev());
  EXPECT_EQ("21 22 23 24 25", Shown());
  EXPECT_EQ(2, Page());
}

TEST_F(PageSteps, BackwardPagesAreFull) {
  With(25, 10);
  ASSERT_EQ(5, Last());
  EXPECT_EQ(10, Prev());
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, Page());
  EXPECT_EQ(10, Prev());
  EXPECT_EQ("1 2 3 4 5 6 7 8 9 10", Shown());
  EXPECT_EQ(0, Page());
}

TEST_F(PageSteps, TheLastPageIsFullWhenTheFilesFillIt) {
  With(20, 10);
  EXPECT_EQ(10, Last());
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
  EXPECT_EQ(1, Page());
}

TEST_F(PageSteps, TheLastPageFillsItsFirstElementsInListOrder) {
  With(25, 10);
  EXPECT_EQ(5, Last());
  EXPECT_EQ("DCIM/100PHOTO/QVX_0021.JPG", at_.NameOf(items_[0]));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0025.JPG", at_.NameOf(items_[4]));
  EXPECT_STREQ("", items_[5].filePath);
}

TEST_F(PageSteps, APageLargerThanTheListHoldsAllOfIt) {
  With(3, 10);
  EXPECT_EQ(3, First());
  EXPECT_EQ("1 2 3", Shown());
  EXPECT_EQ(3, Next());
  EXPECT_EQ("1 2 3", Shown());
  EXPECT_EQ(3, Prev());
  EXPECT_EQ("1 2 3", Shown());
  EXPECT_EQ(3, Last());
  EXPECT_EQ("1 2 3", Shown());
  EXPECT_EQ(0, Page());
}

TEST_F(PageSteps, PagesOfOneFileWalkTheList) {
  With(3, 1);
  EXPECT_EQ(1, First());
  EXPECT_EQ(1, Next());
  EXPECT_EQ("2", Shown());
  EXPECT_EQ(1, Next());
  EXPECT_EQ("3", Shown());
  EXPECT_EQ(1, Prev());
  EXPECT_EQ("2", Shown());
}

TEST_F(PageSteps, PagesCrossFolders) {
  at_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  at_.card.MakeFiles("DCIM/101PHOTO", "QVX_", 4, 3, "JPG");
  ASSERT_EQ(6, at_.Scan());
  at_.list.InitPage(4);
  EXPECT_EQ(4, First());
  EXPECT_EQ("1 2 3 4", Shown());
  EXPECT_EQ(2, Next());
  EXPECT_EQ("5 6", Shown());
  EXPECT_EQ(4, Prev());
  EXPECT_EQ("1 2 3 4", Shown());
}

TEST_F(PageSteps, ElementsBehindTheLastFilledAreNotTouched) {
  With(5, 4);
  items_.assign(6, at_.Item("KEPT"));
  ASSERT_EQ(4, at_.list.GetFirstPage(items_.data()));
  EXPECT_EQ("KEPT", at_.NameOf(items_[4]));
  items_.assign(6, at_.Item("KEPT"));
  ASSERT_EQ(1, at_.list.GetNextPage(items_.data()));
  EXPECT_EQ("KEPT", at_.NameOf(items_[1]));
  items_.assign(6, at_.Item("KEPT"));
  ASSERT_EQ(1, at_.list.GetLastPage(items_.data()));
  EXPECT_EQ("KEPT", at_.NameOf(items_[1]));
}

TEST_F(PageSteps, EachItemCarriesItsMarksAndTimes) {
  at_.card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG", "x", 1600000000);
  at_.card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG", "x", 1600000100);
  at_.card.SetReadOnly("DCIM/100PHOTO/QVX_0002.JPG", true);
  ASSERT_EQ(2, at_.Scan());
  at_.list.InitPage(2);
  CQFileListItem two = at_.Item("DCIM/100PHOTO/QVX_0002.JPG");
  ASSERT_EQ(0, at_.list.SetSel(&two, true));
  ASSERT_EQ(0, at_.list.SetDPOF(&two, 7));
  ASSERT_EQ(2, First());
  EXPECT_EQ(1600000000, items_[0].modTime);
  EXPECT_EQ(2020, items_[0].year);
  EXPECT_EQ(0, items_[0].selected);
  EXPECT_EQ(1600000100, items_[1].modTime);
  EXPECT_EQ(1, items_[1].selected);
  EXPECT_EQ(1, items_[1].isProtected);
  EXPECT_EQ(7, items_[1].dpofCopies);
  EXPECT_EQ(0, items_[1].dpofSize);
}

TEST_F(PageSteps, TheCursorEndsOnTheLastFileRead) {
  With(25, 10);
  ASSERT_EQ(10, First());
  EXPECT_EQ(9, at_.list.GetCurIndex());
  ASSERT_EQ(10, Next());
  EXPECT_EQ(19, at_.list.GetCurIndex());
  ASSERT_EQ(5, Last());
  EXPECT_EQ(20, at_.list.GetCurIndex());
}

TEST_F(PageSteps, AStepDoesNotDependOnWhereTheCursorWasMoved) {
  With(25, 10);
  ASSERT_EQ(10, First());
  CQFileListItem moved;
  ASSERT_EQ(0, at_.list.GetAt(22, &moved, false));
  EXPECT_EQ(10, Next());
  EXPECT_EQ("11 12 13 14 15 16 17 18 19 20", Shown());
}

// A file that was gone when its page was shown has no time; stepping over it asks again.
TEST_F(PageSteps, SteppingOverAFileReadsATimeThatIsNotKnownYet) {
  With(6, 3);
  at_.card.Remove(File(2));
  ASSERT_EQ(3, First());
  at_.card.MakeFile(File(2), "x", 1500000000);
  ASSERT_EQ(3, Next());
  at_.card.SetTime(File(2), 1600000000);
  CQFileListItem item;
  ASSERT_EQ(0, at_.list.GetFirst(&item, false));
  ASSERT_EQ(0, at_.list.GetNext(&item, false));
  EXPECT_EQ(1500000000, item.modTime);
}

TEST_F(PageSteps, AnEmptyListShowsNothingAndKeepsThePage) {
  With(0, 10);
  EXPECT_EQ(0, First());
  EXPECT_EQ(0, Next());
  EXPECT_EQ(0, Prev());
  EXPECT_EQ(0, Last());
  EXPECT_EQ(-1, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, AListWithoutACatalogueShowsNothing) {
  at_.list.InitPage(10);
  EXPECT_EQ(-1, First());
  EXPECT_EQ(-1, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, PreviousWithoutACurrentPageFails) {
  With(25, 10);
  EXPECT_EQ(-1, Prev());
  EXPECT_EQ(-1, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, ANextPageThatRunsOffTheListFailsAndKeepsThePage) {
  With(25, 10);
  ASSERT_EQ(5, Last());
  Forget(1, 10);
  EXPECT_EQ(-1, Next());
  EXPECT_EQ(2, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, APreviousPageThatRunsOffTheListFailsAndKeepsThePage) {
  With(25, 10);
  ASSERT_EQ(10, At(1));
  Forget(1, 5);
  EXPECT_EQ(-1, Prev());
  EXPECT_EQ(1, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, APageNumberBeyondTheFilesIsReachedButEmpty) {
  With(25, 5);
  ASSERT_EQ(5, At(2));
  Forget(1, 10);
  Forget(21, 25);
  EXPECT_EQ(0, Next());
  EXPECT_EQ(3, Page());
  EXPECT_EQ("", Shown());
}

TEST_F(PageSteps, WithoutRoomForItemsNothingIsShownAndThePageStays) {
  With(25, 10);
  ASSERT_EQ(10, At(1));
  EXPECT_EQ(-1, at_.list.GetFirstPage(nullptr));
  EXPECT_EQ(-1, at_.list.GetNextPage(nullptr));
  EXPECT_EQ(-1, at_.list.GetPrevPage(nullptr));
  EXPECT_EQ(-1, at_.list.GetLastPage(nullptr));
  EXPECT_EQ(-1, at_.list.GetPageAt(2, nullptr));
  EXPECT_EQ(1, Page());
}

TEST_F(PageSteps, WithoutAShownPageTheNextIsCountedFromTheCursor) {
  With(25, 10);
  EXPECT_EQ(10, Next());
  EXPECT_EQ("10 11 12 13 14 15 16 17 18 19", Shown());
  EXPECT_EQ(0, Page());
}

TEST_F(PageSteps, PagesAreReachedThroughTheirInterface) {
  With(5, 2);
  IQPageUtil& pages = at_.list;
  items_.assign(2, CQFileListItem());
  EXPECT_EQ(3, pages.GetPageTotalCount());
  EXPECT_EQ(2, pages.GetFirstPage(items_.data()));
  EXPECT_EQ(2, pages.GetNextPage(items_.data()));
  EXPECT_EQ(1, pages.GetCurPageNum());
  EXPECT_EQ("3 4", Shown());
  EXPECT_EQ(2, pages.GetPrevPage(items_.data()));
  EXPECT_EQ(1, pages.GetLastPage(items_.data()));
  EXPECT_EQ(2, pages.GetPageAt(1, items_.data()));
  EXPECT_EQ(0, pages.InitPage(1));
}

}  // namespace
