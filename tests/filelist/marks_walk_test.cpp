// Walking only the files that carry a mark.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;

struct Family {
  const char* name;
  int (CQFileList::*set)(CQFileListItem*, bool);
  int (CQFileList::*first)(CQFileListItem*);
  int (CQFileList::*next)(CQFileListItem*);
  int (CQFileList::*prev)(CQFileListItem*);
  int (CQFileList::*last)(CQFileListItem*);
};
const Family kFamilies[] = {
    {"Sel", &CQFileList::SetSel, &CQFileList::GetSelFirst, &CQFileList::GetSelNext,
     &CQFileList::GetSelPrev, &CQFileList::GetSelLast},
    {"VoiceRec", &CQFileList::SetVoiceRec, &CQFileList::GetVoiceRecFirst,
     &CQFileList::GetVoiceRecNext, &CQFileList::GetVoiceRecPrev, &CQFileList::GetVoiceRecLast},
    {"Cons", &CQFileList::SetConsCap, &CQFileList::GetConsFirst, &CQFileList::GetConsNext,
     &CQFileList::GetConsPrev, &CQFileList::GetConsLast},
};

// Six files in three folders; the second, fourth and sixth get the mark of each family in turn.
class MarkedWalk : public testing::TestWithParam<Family> {
 protected:
  MarkedWalk() {
    EXPECT_EQ(6, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", Marked(0), "DCIM/101PHOTO/QVX_0001.JPG",
                           Marked(1), "DCIM/102PHOTO/QVX_0001.JPG", Marked(2)}));
    for (int i = 0; i < 3; ++i) {
      CQFileListItem item = at_.Item(Marked(i));
      EXPECT_EQ(0, (at_.list.*GetParam().set)(&item, true));
    }
  }
  static std::string Marked(int i) {
    const char* const names[] = {"DCIM/100PHOTO/QVX_0002.JPG", "DCIM/101PHOTO/QVX_0002.JPG",
                                 "DCIM/102PHOTO/QVX_0002.JPG"};
    return names[i];
  }
  int First(CQFileListItem* item) { return (at_.list.*GetParam().first)(item); }
  int Next(CQFileListItem* item) { return (at_.list.*GetParam().next)(item); }
  int Prev(CQFileListItem* item) { return (at_.list.*GetParam().prev)(item); }
  int Last(CQFileListItem* item) { return (at_.list.*GetParam().last)(item); }
  void ClearAll() {
    at_.list.SetSelAll(false);
    at_.list.SetVoiceRecAll(false);
  }

  ListedCard at_;
  CQFileListItem item_;
};

TEST_P(MarkedWalk, ForwardVisitsTheMarkedFilesInOrder) {
  EXPECT_EQ(0, First(&item_));
  EXPECT_EQ(Marked(0), at_.NameOf(item_));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(Marked(2), at_.NameOf(item_));
  EXPECT_EQ(-1, Next(&item_));
}

TEST_P(MarkedWalk, BackwardVisitsTheMarkedFilesFromTheLast) {
  EXPECT_EQ(0, Last(&item_));
  EXPECT_EQ(Marked(2), at_.NameOf(item_));
  EXPECT_EQ(0, Prev(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
  EXPECT_EQ(0, Prev(&item_));
  EXPECT_EQ(Marked(0), at_.NameOf(item_));
  EXPECT_EQ(-1, Prev(&item_));
}

TEST_P(MarkedWalk, NothingFollowsTheLastAndTheOneBeforeItIsStillReached) {
  ASSERT_EQ(0, Last(&item_));
  EXPECT_EQ(-1, Next(&item_));
  EXPECT_EQ(0, Prev(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
}

TEST_P(MarkedWalk, AWalkTurnsRoundAtAnyFile) {
  ASSERT_EQ(0, First(&item_));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(0, Prev(&item_));
  EXPECT_EQ(Marked(0), at_.NameOf(item_));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
}

TEST_P(MarkedWalk, FirstBeginsAgain) {
  ASSERT_EQ(0, Last(&item_));
  EXPECT_EQ(0, First(&item_));
  EXPECT_EQ(Marked(0), at_.NameOf(item_));
}

TEST_P(MarkedWalk, AFailedStepLeavesTheItemAsItWas) {
  ASSERT_EQ(0, Last(&item_));
  CQFileListItem kept = at_.Item("KEPT");
  flm::CopyText(kept.objectPath, sizeof(kept.objectPath), "objects");
  EXPECT_EQ(-1, Next(&kept));
  EXPECT_EQ("KEPT", at_.NameOf(kept));
  ASSERT_EQ(0, First(&item_));
  EXPECT_EQ(-1, Prev(&kept));
  EXPECT_EQ("KEPT", at_.NameOf(kept));
  EXPECT_STREQ("objects", kept.objectPath);
}

TEST_P(MarkedWalk, WithoutMarkedFilesEveryStepFails) {
  ClearAll();
  CQFileListItem kept = at_.Item("KEPT");
  EXPECT_EQ(-1, First(&kept));
  EXPECT_EQ(-1, Last(&kept));
  EXPECT_EQ(-1, Next(&kept));
  EXPECT_EQ(-1, Prev(&kept));
  EXPECT_EQ("KEPT", at_.NameOf(kept));
}

TEST_P(MarkedWalk, AStepWithoutAWalkBegunFails) {
  EXPECT_EQ(-1, Next(&item_));
  EXPECT_EQ(-1, Prev(&item_));
  EXPECT_STREQ("", item_.filePath);
}

TEST_P(MarkedWalk, LastAndPrevRefuseANullItem) {
  EXPECT_EQ(-1, Last(nullptr));
  EXPECT_EQ(-1, Prev(nullptr));
}

TEST_P(MarkedWalk, FirstNextAndLastFillThePathAndNothingElse) {
  flm::CopyText(item_.objectPath, sizeof(item_.objectPath), "objects");
  ASSERT_EQ(0, First(&item_));
  EXPECT_STREQ("objects", item_.objectPath);
  ASSERT_EQ(0, Next(&item_));
  EXPECT_STREQ("objects", item_.objectPath);
  ASSERT_EQ(0, Last(&item_));
  EXPECT_STREQ("objects", item_.objectPath);
  EXPECT_EQ(0, item_.selected);
  EXPECT_EQ(-1, item_.dpofSize);
  EXPECT_EQ(0, item_.modTime);
}

TEST_P(MarkedWalk, TheWalkLeavesTheIndexOfTheCurrentFile) {
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetAt(2, &current, false));
  ASSERT_EQ(0, First(&item_));
  ASSERT_EQ(0, Next(&item_));
  ASSERT_EQ(0, Prev(&item_));
  ASSERT_EQ(0, Last(&item_));
  EXPECT_EQ(2, at_.list.GetCurIndex());
}

TEST_P(MarkedWalk, SteppingLeavesTheCurrentFile) {
  ASSERT_EQ(0, First(&item_));
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetAt(4, &current, false));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
  EXPECT_EQ(0, at_.list.GetCurrent(&current, false));
  EXPECT_EQ("DCIM/102PHOTO/QVX_0001.JPG", at_.NameOf(current));
}

TEST_P(MarkedWalk, MovingTheCurrentFileLeavesTheWalk) {
  ASSERT_EQ(0, First(&item_));
  CQFileListItem current;
  ASSERT_EQ(0, at_.list.GetLast(&current, false));
  EXPECT_EQ(0, Next(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
}

TEST_P(MarkedWalk, AFileThatIsGoneIsNeverHandedOut) {
  ASSERT_EQ(0, First(&item_));
  CQFileListItem gone = at_.Item(Marked(0));
  ASSERT_EQ(0, at_.list.RemoveFileFromList(&gone));
  EXPECT_EQ(-1, Prev(&item_));
  EXPECT_EQ(-1, Next(&item_));
  EXPECT_EQ(0, First(&item_));
  EXPECT_EQ(Marked(1), at_.NameOf(item_));
}

INSTANTIATE_TEST_SUITE_P(Families, MarkedWalk, testing::ValuesIn(kFamilies),
                         [](const testing::TestParamInfo<Family>& family) {
                           return std::string(family.param.name);
                         });

TEST(MarkedWalkOfTwoNames, VoiceMemoAndCaptureWalkTheSameFiles) {
  ListedCard at;
  ASSERT_EQ(3, at.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                        "DCIM/100PHOTO/QVX_0003.JPG"}));
  CQFileListItem first = at.Item("DCIM/100PHOTO/QVX_0001.JPG");
  CQFileListItem third = at.Item("DCIM/100PHOTO/QVX_0003.JPG");
  at.list.SetVoiceRec(&first, true);
  at.list.SetConsCap(&third, true);
  CQFileListItem item;
  EXPECT_EQ(0, at.list.GetVoiceRecFirst(&item));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0001.JPG", at.NameOf(item));
  EXPECT_EQ(0, at.list.GetConsNext(&item));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0003.JPG", at.NameOf(item));
  EXPECT_EQ(-1, at.list.GetVoiceRecNext(&item));
}

TEST(MarkedWalkOfTwoMarks, GoesOnFromTheFileThatTheOtherFound) {
  ListedCard at;
  ASSERT_EQ(3, at.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                        "DCIM/100PHOTO/QVX_0003.JPG"}));
  CQFileListItem first = at.Item("DCIM/100PHOTO/QVX_0001.JPG");
  CQFileListItem second = at.Item("DCIM/100PHOTO/QVX_0002.JPG");
  CQFileListItem third = at.Item("DCIM/100PHOTO/QVX_0003.JPG");
  at.list.SetVoiceRec(&first, true);
  at.list.SetSel(&second, true);
  at.list.SetVoiceRec(&third, true);
  CQFileListItem item;
  EXPECT_EQ(0, at.list.GetSelFirst(&item));
  EXPECT_EQ(0, at.list.GetVoiceRecNext(&item));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0003.JPG", at.NameOf(item));
  EXPECT_EQ(0, at.list.GetSelPrev(&item));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0002.JPG", at.NameOf(item));
  EXPECT_EQ(0, at.list.GetVoiceRecPrev(&item));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0001.JPG", at.NameOf(item));
}

TEST(MarkedWalkWithoutACatalogue, EveryStepSucceedsAndLeavesTheItem) {
  ListedCard at;
  for (const Family& family : kFamilies) {
    SCOPED_TRACE(family.name);
    CQFileListItem kept = at.Item("KEPT");
    EXPECT_EQ(0, (at.list.*family.first)(&kept));
    EXPECT_EQ(0, (at.list.*family.next)(&kept));
    EXPECT_EQ(0, (at.list.*family.prev)(&kept));
    EXPECT_EQ(0, (at.list.*family.last)(&kept));
    EXPECT_EQ("KEPT", at.NameOf(kept));
  }
}

TEST(MarkedWalkWithoutACatalogue, LastTestsTheItemFirstAndTheOthersTheCatalogue) {
  ListedCard at;
  for (const Family& family : kFamilies) {
    EXPECT_EQ(-1, (at.list.*family.last)(nullptr)) << family.name;
    EXPECT_EQ(0, (at.list.*family.prev)(nullptr)) << family.name;
    EXPECT_EQ(0, (at.list.*family.first)(nullptr)) << family.name;
    EXPECT_EQ(0, (at.list.*family.next)(nullptr)) << family.name;
  }
}

class CompanionsInTheWalk : public testing::Test {
 protected:
  ListedCard at_;
  CQFileListItem item_;
};

TEST_F(CompanionsInTheWalk, OnlyThePreviousStepGivesThem) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0001.WAV",
                         "DCIM/100PHOTO/QVX_0002.JPG"}));
  ASSERT_EQ(0, at_.list.SetSelAll(true));
  ASSERT_EQ(0, at_.list.GetSelFirst(&item_));
  EXPECT_STREQ("", item_.objectPath);
  ASSERT_EQ(0, at_.list.GetSelLast(&item_));
  EXPECT_STREQ("", item_.objectPath);
  ASSERT_EQ(0, at_.list.GetSelPrev(&item_));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0001.JPG", at_.NameOf(item_));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0001. W ", at_.Relative(item_.objectPath));
}

TEST_F(CompanionsInTheWalk, APreviousFileWithoutAnyEmptiesThePath) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG"}));
  ASSERT_EQ(0, at_.list.SetSelAll(true));
  ASSERT_EQ(0, at_.list.GetSelLast(&item_));
  flm::CopyText(item_.objectPath, sizeof(item_.objectPath), "objects");
  ASSERT_EQ(0, at_.list.GetSelPrev(&item_));
  EXPECT_STREQ("", item_.objectPath);
}

TEST_F(CompanionsInTheWalk, AcrossFoldersTheyNameTheFolderThatWasLeft) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0007.JPG", "DCIM/100PHOTO/QVX_0007.WAV",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  ASSERT_EQ(0, at_.list.SetSelAll(true));
  ASSERT_EQ(0, at_.list.GetSelLast(&item_));
  ASSERT_EQ(0, at_.list.GetSelPrev(&item_));
  EXPECT_EQ("DCIM/100PHOTO/QVX_0007.JPG", at_.NameOf(item_));
  EXPECT_EQ("DCIM/101PHOTO/QVX_0007. W ", at_.Relative(item_.objectPath));
}

// The walk carries at most 98 characters of the companions' path.
TEST(CompanionsOnADeepCard, TheirPathIsCut) {
  ListedCard at;
  const std::string below = std::string(83 - at.card.Root().size() - 1, 'r');
  at.card.MakeFile(below + "/DCIM/100PHOTO/QVX_0001.JPG");
  at.card.MakeFile(below + "/DCIM/100PHOTO/QVX_0001.WAV");
  at.card.MakeFile(below + "/DCIM/100PHOTO/QVX_0002.JPG");
  at.list.SetBaseURI(at.card.Path(below).c_str());
  ASSERT_EQ(2, at.Scan());
  ASSERT_EQ(0, at.list.SetSelAll(true));
  CQFileListItem item;
  ASSERT_EQ(0, at.list.GetSelLast(&item));
  ASSERT_EQ(0, at.list.GetSelPrev(&item));
  EXPECT_EQ(at.card.Path(below) + "/DCIM/100PHOTO/QVX_0001.JPG", item.filePath);
  EXPECT_EQ((at.card.Path(below) + "/DCIM/100PHOTO/QVX_0001. W ").substr(0, 98), item.objectPath);
}

}  // namespace
