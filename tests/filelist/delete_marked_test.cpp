// Deleting every file that carries a mark: the selected ones, and those of a voice memo or of a
// continuous capture.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using flm_test::Progress;
using Names = std::vector<std::string>;
using Seen = std::vector<Progress>;

constexpr char kPrintOrder[] = "MISC/AUTPRINT.MRK";

struct Family {
  const char* name;
  int (CQFileList::*set)(CQFileListItem*, bool);
  int (CQFileList::*remove)(bool, ProgressCallback);
};
const Family kFamilies[] = {
    {"Sel", &CQFileList::SetSel, &CQFileList::DeleteSel},
    {"VoiceRec", &CQFileList::SetVoiceRec, &CQFileList::DeleteVoiceRecAll},
    {"Cons", &CQFileList::SetConsCap, &CQFileList::DeleteConsAll},
};

std::string File(int number) { return "DCIM/100PHOTO/QVX_000" + std::to_string(number) + ".JPG"; }

class DeletingMarked : public testing::TestWithParam<Family> {
 protected:
  DeletingMarked() { Progress::Begin(); }
  // Five files, of which the second, third and fifth are marked.
  void WithFive() {
    ASSERT_EQ(5, at_.With({File(1), File(2), File(3), File(4), File(5)}));
    for (const int number : {2, 3, 5}) Mark(File(number));
  }
  void Mark(const std::string& file) {
    CQFileListItem item = at_.Item(file);
    EXPECT_EQ(0, (at_.list.*GetParam().set)(&item, true)) << file;
  }
  int DeleteMarked(bool force, ProgressCallback callback) {
    return (at_.list.*GetParam().remove)(force, callback);
  }
  ListedCard at_;
};

TEST_P(DeletingMarked, ExactlyTheMarkedFilesGo) {
  WithFive();
  EXPECT_EQ(0, DeleteMarked(false, nullptr));
  EXPECT_EQ((Names{File(1), File(4)}), at_.Files());
  EXPECT_EQ((Names{"DCIM/", "DCIM/100PHOTO/", File(1), File(4), "MISC/", kPrintOrder}),
            at_.card.Tree());
}

TEST_P(DeletingMarked, TheyGoFromTheLastToTheFirstWithTheNewestIndexAsStatus) {
  WithFive();
  EXPECT_EQ(0, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 10000004}, {1, 3, 10000004}, {2, 3, 10000004}}), Progress::seen);
  EXPECT_FALSE(Progress::cancelWasSet);
}

TEST_P(DeletingMarked, TheStatusIsTheNewestFileAfterEachDeletion) {
  ASSERT_EQ(3, at_.With({File(1), File(2), File(3)}));
  for (const int number : {2, 3}) Mark(File(number));
  EXPECT_EQ(0, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 2, 10000002}, {1, 2, 10000001}}), Progress::seen);
}

TEST_P(DeletingMarked, WithoutMarkedFilesNothingHappens) {
  ASSERT_EQ(1, at_.With({File(1)}));
  std::vector<CQFileListItem> page(1);
  at_.list.InitPage(1);
  ASSERT_EQ(1, at_.list.GetFirstPage(page.data()));
  EXPECT_EQ(0, DeleteMarked(true, Progress::Record));
  EXPECT_TRUE(Progress::seen.empty());
  EXPECT_FALSE(at_.card.Exists(kPrintOrder));
  EXPECT_EQ(0, at_.list.GetCurPageNum());
}

TEST_P(DeletingMarked, AProtectedFileStaysAndTheResultIsTheLastStep) {
  WithFive();
  at_.card.SetReadOnly(File(3), true);
  EXPECT_EQ(-1, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 10000004}, {1, 3, -100}, {2, 3, 10000004}}), Progress::seen);
  EXPECT_EQ((Names{File(1), File(3), File(4)}), at_.Files());
}

TEST_P(DeletingMarked, ForceDeletesProtectedFilesToo) {
  WithFive();
  at_.card.SetReadOnly(File(3), true);
  EXPECT_EQ(0, DeleteMarked(true, nullptr));
  EXPECT_EQ((Names{File(1), File(4)}), at_.Files());
}

TEST_P(DeletingMarked, ACancelOnTheFirstCallStopsAfterOneFile) {
  WithFive();
  Progress::Begin(0);
  EXPECT_EQ(10000, DeleteMarked(false, Progress::Record));
  EXPECT_EQ(1u, Progress::seen.size());
  EXPECT_EQ((Names{File(1), File(2), File(3), File(4)}), at_.Files());
  EXPECT_TRUE(at_.card.Exists(kPrintOrder));
}

TEST_P(DeletingMarked, ACancelThatCannotSaveThePrintOrderSaysSo) {
  WithFive();
  at_.card.Remove("MISC");
  Progress::Begin(1);
  EXPECT_EQ(-1000, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, -1000}, {1, 3, -1000}}), Progress::seen);
  EXPECT_EQ(3, at_.list.GetCount());
}

TEST_P(DeletingMarked, APrintOrderThatCannotBeSavedIsReportedAfterAllFiles) {
  WithFive();
  at_.card.Remove("MISC");
  EXPECT_EQ(-1000, DeleteMarked(false, Progress::Record));
  EXPECT_EQ(3u, Progress::seen.size());
  EXPECT_EQ((Names{File(1), File(4)}), at_.Files());
}

std::vector<std::string> orders;  // the print order as it stood at each call
const flm_test::Card* orderCard = nullptr;
void RecordOrder(int /*index*/, int /*total*/, int* /*status*/, bool* /*cancel*/) {
  orders.push_back(orderCard->ReadFile(kPrintOrder));
}

TEST_P(DeletingMarked, ThePrintOrderIsRewrittenAfterEveryFile) {
  ASSERT_EQ(3, at_.With({File(1), File(2), File(3)}));
  ASSERT_EQ(0, at_.list.SetDPOFAll(1));
  for (const int number : {2, 3}) Mark(File(number));
  orders.clear();
  orderCard = &at_.card;
  EXPECT_EQ(0, DeleteMarked(false, RecordOrder));
  ASSERT_EQ(2u, orders.size());
  EXPECT_NE(std::string::npos, orders[0].find("QVX_0002.JPG"));
  EXPECT_EQ(std::string::npos, orders[0].find("QVX_0003.JPG"));
  EXPECT_EQ(std::string::npos, orders[1].find("QVX_0002.JPG"));
  EXPECT_NE(std::string::npos, orders[1].find("QVX_0001.JPG"));
}

TEST_P(DeletingMarked, CompanionsStayBehindSinceOnlyThePathTravels) {
  ASSERT_EQ(
      2, at_.With({File(1), "DCIM/100PHOTO/QVX_0001.WAV", File(2), "DCIM/100PHOTO/QVX_0002.WAV"}));
  for (const int number : {1, 2}) Mark(File(number));
  EXPECT_EQ(0, DeleteMarked(false, nullptr));
  EXPECT_FALSE(at_.card.Exists(File(1)));
  EXPECT_FALSE(at_.card.Exists(File(2)));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.WAV"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0002.WAV"));
}

TEST_P(DeletingMarked, AllFilesMayBeMarked) {
  ASSERT_EQ(2, at_.With({File(1), File(2)}));
  for (const int number : {1, 2}) Mark(File(number));
  EXPECT_EQ(0, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 2, 10000001}, {1, 2, 10000000}}), Progress::seen);
  EXPECT_EQ(0, at_.list.GetCount());
}

TEST_P(DeletingMarked, OlderFoldersGoOnTheWay) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG",
                         "DCIM/102PHOTO/QVX_0001.JPG"}));
  Mark("DCIM/100PHOTO/QVX_0001.JPG");
  Mark("DCIM/101PHOTO/QVX_0001.JPG");
  EXPECT_EQ(0, DeleteMarked(false, nullptr));
  EXPECT_EQ((Names{"DCIM/", "DCIM/102PHOTO/", "DCIM/102PHOTO/QVX_0001.JPG", "MISC/", kPrintOrder}),
            at_.card.Tree());
}

TEST_P(DeletingMarked, ARefusedRemovalIsReportedAndTheWalkGoesOn) {
  WithFive();
  flm::Os().Unlink = [](const char*) { return -1; };
  flm::Os().Remove = [](const char*) { return -1; };
  EXPECT_EQ(-1, DeleteMarked(false, Progress::Record));
  EXPECT_EQ((Seen{{0, 3, 0}, {1, 3, 0}, {2, 3, 0}}), Progress::seen);
  EXPECT_EQ(5, at_.list.GetCount());
}

TEST_P(DeletingMarked, TheCurrentPageIsForgotten) {
  WithFive();
  std::vector<CQFileListItem> page(2);
  at_.list.InitPage(2);
  ASSERT_EQ(2, at_.list.GetFirstPage(page.data()));
  ASSERT_EQ(0, DeleteMarked(false, nullptr));
  EXPECT_EQ(-1, at_.list.GetCurPageNum());
}

TEST_P(DeletingMarked, TheCurrentPageIsForgottenEvenWhenEveryFileIsProtected) {
  WithFive();
  for (const int number : {2, 3, 5}) at_.card.SetReadOnly(File(number), true);
  std::vector<CQFileListItem> page(2);
  at_.list.InitPage(2);
  ASSERT_EQ(2, at_.list.GetFirstPage(page.data()));
  EXPECT_EQ(-1, DeleteMarked(false, nullptr));
  EXPECT_EQ(-1, at_.list.GetCurPageNum());
  EXPECT_EQ(5, at_.list.GetCount());
}

INSTANTIATE_TEST_SUITE_P(Families, DeletingMarked, testing::ValuesIn(kFamilies),
                         [](const testing::TestParamInfo<Family>& family) {
                           return std::string(family.param.name);
                         });

TEST(DeletingMarkedByTwoNames, VoiceMemoAndCaptureDeleteTheSameFiles) {
  for (const bool byVoice : {true, false}) {
    ListedCard at;
    ASSERT_EQ(3, at.With({File(1), File(2), File(3)}));
    CQFileListItem one = at.Item(File(1));
    CQFileListItem three = at.Item(File(3));
    at.list.SetVoiceRec(&one, true);
    at.list.SetConsCap(&three, true);
    EXPECT_EQ(0, byVoice ? at.list.DeleteVoiceRecAll(false, nullptr)
                         : at.list.DeleteConsAll(false, nullptr));
    EXPECT_EQ((Names{File(2)}), at.Files()) << byVoice;
  }
}

TEST(DeletingMarkedByInterface, SelectedFilesAreDeletedThroughTheSelectedList) {
  ListedCard at;
  ASSERT_EQ(2, at.With({File(1), File(2)}));
  CQFileListItem two = at.Item(File(2));
  at.list.SetSel(&two, true);
  IQSelectedFileList& selected = at.list;
  EXPECT_EQ(0, selected.DeleteSel(false, nullptr));
  EXPECT_EQ((Names{File(1)}), at.Files());
}

}  // namespace
