// The contact sheet without a terminal: pages, the current file, orders, deletions.
#include "browse_sheet.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <memory>

#include "failure.h"
#include "tests/support/card.h"

using flm::tool::Access;
using flm::tool::Card;
using flm::tool::CardOptions;
using flm::tool::Sheet;
using flm::tool::SheetOutcome;

namespace {

bool GoOn(int /*done*/, int /*total*/) { return true; }

class BrowseSheet : public testing::Test {
 protected:
  ~BrowseSheet() override {
    sheet_.reset();
    opened_.reset();
    EXPECT_EQ(chdir("/"), 0);  // out of the card's folder, which goes
  }

  // A sheet of a card with so many files in its numbered folder.
  Sheet& Open(int files, int pageSize) {
    card_.MakeDir("MISC");
    card_.MakeDir("DCIM/100PHOTO");
    card_.MakeFiles("DCIM/100PHOTO", "QVX_", 1, files, "JPG");
    CardOptions options;
    options.root = card_.Root();
    opened_ = std::make_unique<Card>(options, Access::kChange);
    sheet_ = std::make_unique<Sheet>(*opened_);
    sheet_->SetPageSize(pageSize);
    return *sheet_;
  }

  flm_test::Card card_;
  std::unique_ptr<Card> opened_;
  std::unique_ptr<Sheet> sheet_;
};

TEST_F(BrowseSheet, CurrentFileStaysWhenThePageSizeChanges) {
  Sheet& sheet = Open(25, 10);
  sheet.GoTo(17);
  for (const int size : {4, 25, 1, 7}) {
    sheet.SetPageSize(size);
    EXPECT_EQ(sheet.Current().index, 17);
    EXPECT_EQ(sheet.PageNumber(), 17 / size);
    EXPECT_EQ(sheet.Position(), 17 % size);
  }
}

TEST_F(BrowseSheet, StepsGoRoundAndRowsDoNot) {
  Sheet& sheet = Open(10, 6);
  sheet.Step(-1);
  EXPECT_EQ(sheet.Current().index, 9);
  sheet.StepRow(3);
  EXPECT_EQ(sheet.Current().index, 9);
  sheet.StepRow(-3);
  EXPECT_EQ(sheet.Current().index, 6);
  sheet.Step(1);
  sheet.StepRow(3);  // the last row is short: its last file
  EXPECT_EQ(sheet.Current().index, 9);
  sheet.Step(1);
  EXPECT_EQ(sheet.Current().index, 0);
  sheet.StepRow(-3);
  EXPECT_EQ(sheet.Current().index, 0);
}

TEST_F(BrowseSheet, PagesGoRoundAndKeepThePlaceOnThePage) {
  Sheet& sheet = Open(10, 4);
  sheet.GoTo(3);
  sheet.NextPage();
  EXPECT_EQ(sheet.Current().index, 7);
  sheet.NextPage();
  EXPECT_EQ(sheet.Current().index, 9);  // the last page has two files
  sheet.NextPage();
  EXPECT_EQ(sheet.Current().index, 1);
  sheet.PreviousPage();
  EXPECT_EQ(sheet.PageNumber(), 2);
}

TEST_F(BrowseSheet, WithoutFilesNothingHappens) {
  Sheet& sheet = Open(0, 4);
  EXPECT_TRUE(sheet.IsEmpty());
  sheet.Step(1);
  sheet.StepRow(2);
  sheet.NextPage();
  sheet.PreviousPage();
  sheet.ToggleSelected();
  sheet.ToggleSelectedAll();
  sheet.Order(1);
  EXPECT_TRUE(sheet.Targets().empty());
  EXPECT_FALSE(sheet.IsOrderChanged());
}

TEST_F(BrowseSheet, PrintsStayBetweenNoneAndNinetyNine) {
  Sheet& sheet = Open(1, 4);
  sheet.Order(-1);
  EXPECT_FALSE(sheet.IsOrderChanged());
  for (int i = 0; i < 120; ++i) sheet.Order(1);
  EXPECT_EQ(sheet.Current().item.dpofCopies, 99);
}

TEST_F(BrowseSheet, OrderThatCannotBeSavedIsKeptInMemory) {
  Sheet& sheet = Open(3, 4);
  sheet.GoTo(1);
  sheet.Order(2);
  card_.MakeDir("MISC/AUTPRINT.NEW");  // where the new order would grow
  EXPECT_THROW(sheet.SaveOrder(), flm::tool::Failure);
  EXPECT_TRUE(sheet.IsOrderChanged());
  sheet.SetPageSize(4);
  EXPECT_EQ(sheet.Current().item.dpofCopies, 2);
  card_.Remove("MISC/AUTPRINT.NEW");
  sheet.SaveOrder();
  EXPECT_FALSE(sheet.IsOrderChanged());
  EXPECT_NE(card_.ReadFile("MISC/AUTPRINT.MRK").find("QVX_0002.JPG"), std::string::npos);
}

TEST_F(BrowseSheet, DeletionKeepsTheCurrentFileWhenOthersGo) {
  Sheet& sheet = Open(9, 4);
  for (const int index : {0, 2, 7}) {
    sheet.GoTo(index);
    sheet.ToggleSelected();
  }
  sheet.GoTo(5);
  const std::string current = sheet.Current().Path();
  const SheetOutcome outcome = sheet.Delete(sheet.Targets(), GoOn);
  EXPECT_EQ(outcome.done, 3);
  EXPECT_EQ(outcome.failed, 0);
  EXPECT_EQ(sheet.Count(), 6);
  EXPECT_EQ(sheet.Current().Path(), current);
}

TEST_F(BrowseSheet, DeletionStopsWhenItsProgressSaysSo) {
  Sheet& sheet = Open(9, 4);
  sheet.ToggleSelectedAll();
  const auto stopAfterTwo = [](int done, int /*total*/) { return done < 2; };
  const SheetOutcome outcome = sheet.Delete(sheet.Targets(), stopAfterTwo);
  EXPECT_TRUE(outcome.cancelled);
  EXPECT_EQ(outcome.done, 2);
  EXPECT_EQ(sheet.Count(), 7);
}

TEST_F(BrowseSheet, ProtectedAndMissingFilesAreCountedApart) {
  Sheet& sheet = Open(4, 4);
  sheet.ToggleSelectedAll();
  card_.SetReadOnly("DCIM/100PHOTO/QVX_0002.JPG", true);
  card_.Remove("DCIM/100PHOTO/QVX_0003.JPG");
  const SheetOutcome outcome = sheet.Delete(sheet.Targets(), GoOn);
  EXPECT_EQ(outcome.done, 2);
  EXPECT_EQ(outcome.kept, 1);
  EXPECT_EQ(outcome.failed, 1);
  EXPECT_NE(outcome.complaint.find("QVX_0003.JPG: No such file"), std::string::npos);
  EXPECT_TRUE(card_.Exists("DCIM/100PHOTO/QVX_0002.JPG"));
}

}  // namespace
