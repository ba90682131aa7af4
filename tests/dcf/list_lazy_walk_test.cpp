// Walks over a card of which only the newest folder was read: the forward walk and the step back
// read the others when they reach them, everything else keeps to what has been read.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

class CQDCFListLazyWalk : public testing::Test {
 protected:
  CQDCFListLazyWalk() {
    c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
    c.card.MakeDir("DCIM/101PHOTO");
    c.card.MakeFiles("DCIM/102PHOTO", "QVX_", 1, 2, "JPG");
    c.card.MakeFiles("DCIM/103PHOTO", "QVX_", 1, 1, "JPG");
    c.ScanNewest();
  }

  CardCatalogue c;
  const Names all = {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                     "DCIM/100PHOTO/QVX_0003.JPG", "DCIM/102PHOTO/QVX_0001.JPG",
                     "DCIM/102PHOTO/QVX_0002.JPG", "DCIM/103PHOTO/QVX_0001.JPG"};
};

TEST_F(CQDCFListLazyWalk, ForwardReadsEveryFolderInTurn) { EXPECT_EQ(c.Walked(), all); }

TEST_F(CQDCFListLazyWalk, BackwardReadsEveryFolderInTurn) {
  EXPECT_EQ(c.WalkedBack(), Names(all.rbegin(), all.rend()));
}

TEST_F(CQDCFListLazyWalk, TheRecordsComeFromEveryFolderInTurn) {
  std::vector<int> numbers;
  for (DCFItem* i = c.list.GetFirstDCFItem(); i != nullptr; i = c.list.GetNextDCFItem()) {
    numbers.push_back(c.list.GetDcfNum(i));
  }
  const std::vector<int> expected = {10000001, 10000002, 10000003, 10200001, 10200002, 10300001};
  EXPECT_EQ(numbers, expected);
}

TEST_F(CQDCFListLazyWalk, OnlyTheFolderReadLastStaysInMemory) {
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.First().path, all[0]);
  EXPECT_EQ(c.list.GetCount(), 3);
  EXPECT_EQ(c.Held(), Names(all.begin(), all.begin() + 3));
  c.SetCur(all[2]);
  EXPECT_EQ(c.Next().path, all[3]);
  EXPECT_EQ(c.list.GetCount(), 2);
  EXPECT_EQ(c.Held(), Names(all.begin() + 3, all.begin() + 5));
}

TEST_F(CQDCFListLazyWalk, AStepBackKeepsOnlyTheFolderReadToo) {
  c.Last();
  EXPECT_EQ(c.Prev().path, all[4]);
  EXPECT_EQ(c.list.GetCount(), 2);
  EXPECT_EQ(c.Held(), Names(all.begin() + 3, all.begin() + 5));
}

TEST_F(CQDCFListLazyWalk, AFolderThatWasForgottenIsReadAgain) {
  c.First();
  c.card.MakeFile("DCIM/103PHOTO/QVX_0007.JPG");
  const Names walked = c.Walked();
  ASSERT_FALSE(walked.empty());
  EXPECT_EQ(walked.back(), "DCIM/103PHOTO/QVX_0007.JPG");
}

TEST_F(CQDCFListLazyWalk, AnEmptyFolderForgetsNothing) {
  c.SetCur(all[5]);
  c.card.Remove("DCIM/102PHOTO");
  c.card.Remove("DCIM/100PHOTO");
  EXPECT_EQ(c.Prev().result, -1);
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.Cur().path, all[5]);
}

TEST_F(CQDCFListLazyWalk, FirstReadsAFolderWithoutMovingTheCursor) {
  EXPECT_EQ(c.First(false).path, all[0]);
  EXPECT_EQ(c.list.GetCount(), 3);
  EXPECT_EQ(c.Cur().result, -1);
}

// The file under the cursor may be forgotten by reading another folder.
TEST_F(CQDCFListLazyWalk, ACursorOnAForgottenFileBecomesUnset) {
  c.Last();
  EXPECT_EQ(c.First(false).path, all[0]);
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
}

TEST_F(CQDCFListLazyWalk, AMarkWalkOnAForgottenFileBecomesUnset) {
  c.SetBit(all[5], 5);
  EXPECT_EQ(c.BitFirst(5).path, all[5]);
  c.First();
  EXPECT_EQ(c.BitNext(5).result, -1);
  EXPECT_EQ(c.BitPrev(5).result, -1);
}

TEST_F(CQDCFListLazyWalk, LastAndPositionsKeepToWhatWasRead) {
  EXPECT_EQ(c.At(0).path, all[5]);
  EXPECT_EQ(c.At(1).result, -1);
  EXPECT_EQ(c.Last().path, all[5]);
  EXPECT_EQ(c.list.IsLast(c.Path(all[5])), 1);
  c.First();
  EXPECT_EQ(c.Last().path, all[2]);
  EXPECT_EQ(c.list.IsLast(c.Path(all[2])), 1);
  EXPECT_EQ(c.list.IsLast(c.Path(all[5])), 0);
}

TEST_F(CQDCFListLazyWalk, LookupsAndCountersKeepToWhatWasRead) {
  EXPECT_EQ(c.Find(all[0]), nullptr);
  EXPECT_EQ(c.list.IsExist(c.Path(all[0])), -1);
  EXPECT_EQ(c.SetBit(all[0], 5), -1);
  EXPECT_EQ(c.SetCur(all[0]), -300);
  c.list.SetCustomBitAll(5, true);
  EXPECT_EQ(c.list.GetCustomBitCount(5), 1);
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST_F(CQDCFListLazyWalk, MarkWalksKeepToWhatWasRead) {
  c.list.SetCustomBitAll(5, true);
  EXPECT_EQ(c.BitFirst(5).path, all[5]);
  EXPECT_EQ(c.BitNext(5).result, -1);
  EXPECT_EQ(c.BitLast(5).path, all[5]);
  EXPECT_EQ(c.BitPrev(5).result, -1);
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST_F(CQDCFListLazyWalk, AFolderThatHasGoneIsPassedOver) {
  c.card.Remove("DCIM/100PHOTO");
  EXPECT_EQ(c.First().path, all[3]);
}

// Both folders of one number stay when one of them is read; the count is that of the one read.
TEST_F(CQDCFListLazyWalk, FoldersOfOneNumberStayTogether) {
  CardCatalogue twin;
  twin.card.MakeFiles("DCIM/100ABCDE", "QVX_", 1, 3, "JPG");
  twin.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  twin.ScanNewest();
  EXPECT_EQ(twin.list.GetCount(), 2);
  EXPECT_EQ(twin.First().path, "DCIM/100ABCDE/QVX_0001.JPG");
  EXPECT_EQ(twin.list.GetCount(), 3);
  EXPECT_EQ(twin.Held().size(), 5u);
}

}  // namespace
}  // namespace flm_test
