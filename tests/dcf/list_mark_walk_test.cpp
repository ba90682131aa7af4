// The walks over the files that carry a mark.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr int kMark = 5;
constexpr int kOther = 4;
constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kA3[] = "DCIM/100PHOTO/QVX_0003.JPG";
constexpr char kB1[] = "DCIM/105ABCDE/QVX_0001.JPG";
constexpr char kB2[] = "DCIM/105ABCDE/QVX_0002.JPG";

// Of five files in two folders the first, third and last are marked.
class CQDCFListMarkWalk : public testing::Test {
 protected:
  CQDCFListMarkWalk() {
    c.card.MakeDir("DCIM/102PHOTO");
    c.With({kA1, kA2, kA3, kB1, kB2});
    for (const char* file : {kA1, kA3, kB2}) c.SetBit(file, kMark);
    c.SetBit(kA2, kOther);
  }

  CardCatalogue c;
};

TEST_F(CQDCFListMarkWalk, ForwardComesByMarkedFilesOnly) {
  EXPECT_EQ(c.BitFirst(kMark).path, kA1);
  EXPECT_EQ(c.BitNext(kMark).path, kA3);
  EXPECT_EQ(c.BitNext(kMark).path, kB2);
  EXPECT_EQ(c.BitNext(kMark).result, -1);
}

TEST_F(CQDCFListMarkWalk, BackwardComesByMarkedFilesOnly) {
  EXPECT_EQ(c.BitLast(kMark).path, kB2);
  EXPECT_EQ(c.BitPrev(kMark).path, kA3);
  EXPECT_EQ(c.BitPrev(kMark).path, kA1);
  EXPECT_EQ(c.BitPrev(kMark).result, -1);
}

TEST_F(CQDCFListMarkWalk, ForwardAndBackwardShareOnePlace) {
  c.BitFirst(kMark);
  c.BitNext(kMark);
  EXPECT_EQ(c.BitPrev(kMark).path, kA1);
  c.BitLast(kMark);
  EXPECT_EQ(c.BitPrev(kMark).path, kA3);
  EXPECT_EQ(c.BitNext(kMark).path, kB2);
}

TEST_F(CQDCFListMarkWalk, AWalkMayGoOnWithAnotherMark) {
  EXPECT_EQ(c.BitFirst(kMark).path, kA1);
  EXPECT_EQ(c.BitNext(kOther).path, kA2);
  EXPECT_EQ(c.BitNext(kMark).path, kA3);
}

TEST_F(CQDCFListMarkWalk, NoMarkedFileIsNotFound) {
  EXPECT_EQ(c.BitFirst(6), (Step{-1, kUntouched}));
  EXPECT_EQ(c.BitLast(6), (Step{-1, kUntouched}));
}

TEST_F(CQDCFListMarkWalk, StepsNeedAWalkThatHasBegun) {
  EXPECT_EQ(c.BitNext(kMark), (Step{-1, kUntouched}));
  EXPECT_EQ(c.BitPrev(kMark), (Step{-1, kUntouched}));
}

TEST_F(CQDCFListMarkWalk, AWalkThatFoundNothingHasNotBegun) {
  c.BitFirst(kMark);
  c.BitFirst(6);
  EXPECT_EQ(c.BitNext(kMark).result, -1);
  EXPECT_EQ(c.BitPrev(kMark).result, -1);
}

TEST_F(CQDCFListMarkWalk, FirstAndLastEndTheNavigation) {
  c.First();
  c.BitFirst(kMark);
  EXPECT_EQ(c.Cur().result, -1);
  c.First();
  c.BitLast(kMark);
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
}

TEST_F(CQDCFListMarkWalk, StepsLeaveTheNavigation) {
  c.BitFirst(kMark);
  c.SetCur(kB1);
  c.BitNext(kMark);
  c.BitPrev(kMark);
  EXPECT_EQ(c.Cur().path, kB1);
}

TEST_F(CQDCFListMarkWalk, NavigationLeavesTheWalk) {
  c.BitFirst(kMark);
  c.First();
  c.Last();
  c.list.InitCursor();
  EXPECT_EQ(c.BitNext(kMark).path, kA3);
}

TEST_F(CQDCFListMarkWalk, TheMarkMayBeTakenAwayOnTheWalk) {
  c.BitFirst(kMark);
  c.list.SetCustomBit(c.Path(kA1), kMark, false);
  EXPECT_EQ(c.BitNext(kMark).path, kA3);
}

TEST_F(CQDCFListMarkWalk, EveryItemIsEnabled) {
  EXPECT_EQ(c.BitFirst(0).path, kA1);
  EXPECT_EQ(c.BitNext(0).path, kA2);
  EXPECT_EQ(c.BitLast(0).path, kB2);
  EXPECT_EQ(c.BitPrev(0).path, kB1);
}

TEST_F(CQDCFListMarkWalk, MarksThatDoNotExistAreNotFound) {
  for (int bit : {-2147483647 - 1, -1, 8, 32, 2147483647}) {
    EXPECT_EQ(c.BitFirst(bit).result, -1) << bit;
    EXPECT_EQ(c.BitLast(bit).result, -1) << bit;
    EXPECT_EQ(c.list.GetCustomBitCount(bit), 0) << bit;
  }
}

TEST_F(CQDCFListMarkWalk, PathsAreCutToTheGivenSize) {
  char out[8] = "#######";
  EXPECT_EQ(c.list.GetBitFirst(out, 5, kMark), 0);
  EXPECT_EQ(std::string(out), c.card.Root().substr(0, 4));
  char kept[4] = "##";
  EXPECT_EQ(c.list.GetBitFirst(kept, 0, kMark), 0);
  EXPECT_EQ(c.list.GetBitNext(kept, -1, kMark), 0);
  EXPECT_EQ(c.list.GetBitPrev(kept, 0, kMark, nullptr), 0);
  EXPECT_EQ(c.list.GetBitLast(nullptr, 10, kMark), 0);
  EXPECT_STREQ(kept, "##");
}

TEST(CQDCFListMarkWalkNothing, WithoutAScanNothingIsMarked) {
  CardCatalogue c;
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(c.BitFirst(kMark).result, -1);
    EXPECT_EQ(c.BitNext(kMark).result, -1);
    EXPECT_EQ(c.BitPrev(kMark).result, -1);
    EXPECT_EQ(c.BitLast(kMark).result, -1);
    EXPECT_EQ(c.list.GetCustomBitCount(kMark), 0);
    c.list.Destroy();
  }
}

// Companions on marked files: the step back names the folder that it left.
class CQDCFListMarkWalkObjects : public testing::Test {
 protected:
  CQDCFListMarkWalkObjects() {
    c.With({kA1, "DCIM/100PHOTO/QVX_0001.SRW", kA2, "DCIM/100PHOTO/QVX_0002.WAV", kB1, kB2});
    c.list.SetCustomBitAll(kMark, true);
  }

  CardCatalogue c;
};

TEST_F(CQDCFListMarkWalkObjects, AStepBackIntoAnEarlierFolderNamesTheFolderJustLeft) {
  c.list.SetBitCurFile(105, 1, 1, c.Find(kB1));
  EXPECT_EQ(c.BitPrev(kMark), (Step{0, kA2, "DCIM/105ABCDE/QVX_0002. W "}));
}

TEST_F(CQDCFListMarkWalkObjects, AStepBackInsideAFolderNamesThatFolder) {
  c.list.SetBitCurFile(100, 2, 0, c.Find(kA2));
  EXPECT_EQ(c.BitPrev(kMark), (Step{0, kA1, "DCIM/100PHOTO/QVX_0001.S  "}));
}

TEST_F(CQDCFListMarkWalkObjects, AStepBackToAFileWithoutCompanionsLeavesTheObject) {
  c.BitLast(kMark);
  EXPECT_EQ(c.BitPrev(kMark), (Step{0, kB1, kUntouched}));
}

TEST_F(CQDCFListMarkWalkObjects, AStepBackNeedsNoObject) {
  char out[flm::kPathSize] = "";
  c.list.SetBitCurFile(100, 2, 0, c.Find(kA2));
  EXPECT_EQ(c.list.GetBitPrev(out, sizeof(out), kMark, nullptr), 0);
  EXPECT_EQ(c.Relative(out), kA1);
}

// The object is written with room for 99 bytes whatever the size of the path.
TEST_F(CQDCFListMarkWalkObjects, TheObjectOfAStepBackHasARoomOfItsOwn) {
  char out[5] = "";
  char object[99] = "";
  c.list.SetBitCurFile(100, 2, 0, c.Find(kA2));
  EXPECT_EQ(c.list.GetBitPrev(out, sizeof(out), kMark, object), 0);
  EXPECT_EQ(c.Relative(object), "DCIM/100PHOTO/QVX_0001.S  ");
}

TEST_F(CQDCFListMarkWalkObjects, ALongObjectIsCutAt98Characters) {
  CardCatalogue deep;
  const std::string folder(84 - deep.card.Root().size() - 1, 'd');
  const std::string photo = folder + "/DCIM/100PHOTO/";
  for (const char* name : {"QVX_0001.JPG", "QVX_0001.SRW", "QVX_0002.JPG"}) {
    deep.card.MakeFile(photo + name);
  }
  deep.list.SetBaseURI(deep.Path(folder));
  ASSERT_EQ(deep.Scan(), 0);
  ASSERT_EQ(deep.list.SetObject(deep.Path(photo + "QVX_0001.JPG"), 202, true), 0);
  deep.list.SetCustomBitAll(kMark, true);
  deep.BitLast(kMark);
  char out[flm::kPathSize] = "";
  char object[99] = "";
  EXPECT_EQ(deep.list.GetBitPrev(out, sizeof(out), kMark, object), 0);
  EXPECT_EQ(deep.Relative(out), photo + "QVX_0001.JPG");
  EXPECT_EQ(std::string(object), deep.card.Path(photo).substr(0, 98));
}

}  // namespace
}  // namespace flm_test
