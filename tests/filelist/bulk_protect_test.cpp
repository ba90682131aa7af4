// Protecting all files, the selected files, and turning round the protection of the selected files.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using flm_test::Progress;
using Seen = std::vector<Progress>;

constexpr char kOne[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kTwo[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kThree[] = "DCIM/101PHOTO/QVX_0001.JPG";
constexpr char kFour[] = "DCIM/101PHOTO/QVX_0002.MP4";
constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";

class ProtectingMany : public testing::Test {
 protected:
  ProtectingMany() {
    EXPECT_EQ(4, at_.With({kOne, kTwo, kThree, kFour}));
    Progress::Begin();
  }
  void Select(const std::vector<std::string>& files) {
    for (const std::string& file : files) {
      CQFileListItem item = at_.Item(file);
      EXPECT_EQ(0, at_.list.SetSel(&item, true)) << file;
    }
  }
  // Which of the four files are protected, as "1100".
  std::string Protected() const {
    std::string text;
    for (const char* file : {kOne, kTwo, kThree, kFour}) {
      text += at_.card.IsReadOnly(file) ? '1' : '0';
    }
    return text;
  }
  ListedCard at_;
};

TEST_F(ProtectingMany, AllFilesAreProtectedAndUnprotected) {
  at_.card.SetReadOnly(kTwo, true);
  EXPECT_EQ(0, at_.list.SetProtectAll(true, nullptr));
  EXPECT_EQ("1111", Protected());
  EXPECT_EQ(0, at_.list.SetProtectAll(false, nullptr));
  EXPECT_EQ("0000", Protected());
}

TEST_F(ProtectingMany, EveryFileIsReportedWithItsIndexAndTheCount) {
  EXPECT_EQ(0, at_.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ((Seen{{0, 4, 0}, {1, 4, 0}, {2, 4, 0}, {3, 4, 0}}), Progress::seen);
  EXPECT_FALSE(Progress::cancelWasSet);
}

TEST_F(ProtectingMany, TheWalkBeginsAtTheLastFile) {
  Progress::Begin(0);
  EXPECT_EQ(10000, at_.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ("0001", Protected());
  EXPECT_EQ(1u, Progress::seen.size());
}

TEST_F(ProtectingMany, ACancelEndsItAtOnceAndSavesNothing) {
  Progress::Begin(1);
  EXPECT_EQ(10000, at_.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ("0011", Protected());
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
}

TEST_F(ProtectingMany, AFailureOnAnyFileIsReportedByTheStepThatReachedIt) {
  at_.card.Remove(kThree);
  EXPECT_EQ(-20000, at_.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ((Seen{{0, 4, 0}}), Progress::seen);
  EXPECT_EQ("0001", Protected());
}

TEST_F(ProtectingMany, SelectedFilesAloneAreProtected) {
  Select({kOne, kThree});
  EXPECT_EQ(0, at_.list.SetProtectSel(true, Progress::Record));
  EXPECT_EQ("1010", Protected());
  EXPECT_EQ((Seen{{0, 2, 0}, {1, 2, 0}}), Progress::seen);
}

TEST_F(ProtectingMany, SelectedFilesAloneAreUnprotected) {
  ASSERT_EQ(0, at_.list.SetProtectAll(true, nullptr));
  Select({kTwo, kFour});
  EXPECT_EQ(0, at_.list.SetProtectSel(false, nullptr));
  EXPECT_EQ("1010", Protected());
}

TEST_F(ProtectingMany, ProtectingTheSelectedBeginsAtTheLastAndMayBeCancelled) {
  Select({kOne, kThree});
  Progress::Begin(0);
  EXPECT_EQ(10000, at_.list.SetProtectSel(true, Progress::Record));
  EXPECT_EQ("0010", Protected());
  EXPECT_EQ((Seen{{0, 2, 0}}), Progress::seen);
}

TEST_F(ProtectingMany, AFailureOnASelectedFileIsReportedByTheStepThatReachedIt) {
  Select({kOne, kThree});
  at_.card.Remove(kThree);
  EXPECT_EQ(-20000, at_.list.SetProtectSel(true, Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ("0000", Protected());
}

TEST_F(ProtectingMany, AMissingFileThatIsNotSelectedDoesNotMatter) {
  Select({kOne});
  at_.card.Remove(kThree);
  EXPECT_EQ(0, at_.list.SetProtectSel(true, nullptr));
  EXPECT_EQ("1000", Protected());
}

TEST_F(ProtectingMany, TurningRoundChangesEachSelectedFileToTheOtherState) {
  at_.card.SetReadOnly(kOne, true);
  at_.card.SetReadOnly(kTwo, true);
  Select({kOne, kThree});
  EXPECT_EQ(0, at_.list.SetProtectSel(Progress::Record));
  EXPECT_EQ("0110", Protected());
  EXPECT_EQ((Seen{{0, 2, 0}, {1, 2, 0}}), Progress::seen);
}

TEST_F(ProtectingMany, TurningRoundBeginsAtTheLastAndMayBeCancelled) {
  Select({kOne, kThree});
  Progress::Begin(0);
  EXPECT_EQ(10000, at_.list.SetProtectSel(Progress::Record));
  EXPECT_EQ("0010", Protected());
}

TEST_F(ProtectingMany, TurningRoundReportsAFailureByItsOwnCode) {
  Select({kOne, kThree});
  at_.card.Remove(kThree);
  EXPECT_EQ(-19999, at_.list.SetProtectSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ("0000", Protected());
}

TEST_F(ProtectingMany, WithoutASelectionNothingHappens) {
  EXPECT_EQ(0, at_.list.SetProtectSel(Progress::Record));
  EXPECT_EQ(0, at_.list.SetProtectSel(true, Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_EQ("0000", Protected());
}

TEST_F(ProtectingMany, TheSelectionAndTheCountStay) {
  Select({kOne, kThree});
  ASSERT_EQ(0, at_.list.SetProtectSel(true, nullptr));
  EXPECT_EQ(2, at_.list.GetSelCount());
  EXPECT_EQ(4, at_.list.GetCount());
}

TEST_F(ProtectingMany, TheSelectedListDoesTheSame) {
  Select({kTwo});
  IQSelectedFileList& selected = at_.list;
  EXPECT_EQ(0, selected.SetProtectSel(true, nullptr));
  EXPECT_EQ("0100", Protected());
  EXPECT_EQ(0, selected.SetProtectSel(nullptr));
  EXPECT_EQ("0000", Protected());
}

TEST_F(ProtectingMany, TurningRoundEndsWithTheLastResultAndTheOthersWithNone) {
  Select({kOne});
  flm::Os().Chmod = [](const char*, mode_t) { return 5; };
  EXPECT_EQ(5, at_.list.SetProtectSel(nullptr));
  EXPECT_EQ(0, at_.list.SetProtectSel(true, nullptr));
  EXPECT_EQ(0, at_.list.SetProtectAll(true, nullptr));
}

TEST_F(ProtectingMany, AFileThatIsPassedOverLastGivesTheResultOfItsStep) {
  Select({kFour});
  flm::Os().Chmod = [](const char*, mode_t) { return 5; };
  EXPECT_EQ(0, at_.list.SetProtectSel(nullptr));
}

// A list that notes how the walks reach their files.
class NotingSteps : public CQFileList {
 public:
  int GetLast(CQFileListItem* item, bool withInfo) override {
    steps += withInfo ? "L" : "l";
    return CQFileList::GetLast(item, withInfo);
  }
  int GetPrev(CQFileListItem* item, bool withInfo) override {
    steps += withInfo ? "P" : "p";
    return CQFileList::GetPrev(item, withInfo);
  }
  std::string steps;
};

TEST_F(ProtectingMany, OnlyTheLastFileIsReadWithItsInformation) {
  NotingSteps list;
  list.SetType(4);
  list.SetBaseURI(at_.card.Root().c_str());
  ASSERT_EQ(4, list.Listup(0));
  for (int operation = 0; operation < 4; ++operation) {
    list.steps.clear();
    if (operation == 0) list.SetProtectAll(false, nullptr);
    if (operation == 1) list.SetProtectSel(false, nullptr);
    if (operation == 2) list.SetProtectSel(nullptr);
    if (operation == 3) list.DPOFSel(nullptr);
    EXPECT_EQ("Lppp", list.steps) << operation;
  }
  list.Destroy();
}

TEST(ProtectingNone, AnEmptyListReportsNothing) {
  ListedCard at;
  Progress::Begin();
  ASSERT_EQ(0, at.Scan());
  EXPECT_EQ(0, at.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ(0, at.list.SetProtectSel(true, Progress::Record));
  EXPECT_EQ(0, at.list.SetProtectSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
}

TEST(ProtectingNone, AListWithoutACatalogueReportsNothing) {
  ListedCard at;
  Progress::Begin();
  at.card.MakeFile(kOne);
  EXPECT_EQ(0, at.list.SetProtectAll(true, Progress::Record));
  EXPECT_EQ(0, at.list.SetProtectSel(true, Progress::Record));
  EXPECT_EQ(0, at.list.SetProtectSel(Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_FALSE(at.card.IsReadOnly(kOne));
}

// Only the step into an older folder gives the companions of its last file; their path then stays
// in the one item of the walk.
class CompanionsOfMany : public testing::Test {
 protected:
  ListedCard at_;
};

TEST_F(CompanionsOfMany, OfTheVeryLastFileTheyAreLeftAlone) {
  ASSERT_EQ(1, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.WAV"}));
  EXPECT_EQ(0, at_.list.SetProtectAll(true, nullptr));
  EXPECT_TRUE(at_.card.IsReadOnly(kOne));
  EXPECT_FALSE(at_.card.IsReadOnly("DCIM/100PHOTO/QVX_0001.WAV"));
}

TEST_F(CompanionsOfMany, OfTheLastFileOfAnOlderFolderTheyFollow) {
  ASSERT_EQ(3, at_.With({kOne, "DCIM/100PHOTO/QVX_0001.WAV", kTwo, "DCIM/100PHOTO/QVX_0002.WAV",
                         kThree}));
  EXPECT_EQ(0, at_.list.SetProtectAll(true, nullptr));
  EXPECT_TRUE(at_.card.IsReadOnly("DCIM/100PHOTO/QVX_0002.WAV"));
  EXPECT_FALSE(at_.card.IsReadOnly("DCIM/100PHOTO/QVX_0001.WAV"));
}

TEST_F(CompanionsOfMany, ThePathThatStaysDecidesTheResultOfFilesBefore) {
  ASSERT_EQ(3, at_.With({kOne, kTwo, "DCIM/100PHOTO/QVX_0002.WAV", kThree}));
  at_.list.SetSelAll(true);
  at_.card.Remove(kOne);
  EXPECT_EQ(0, at_.list.SetProtectSel(true, nullptr));
  EXPECT_TRUE(at_.card.IsReadOnly("DCIM/100PHOTO/QVX_0002.WAV"));
}

}  // namespace
