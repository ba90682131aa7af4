// The walks over all files that are held, and the navigation cursor.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kB1[] = "DCIM/105ABCDE/QVX_0001.JPG";
constexpr char kB3[] = "DCIM/105ABCDE/QVX_0003.JPG";

// Two folders of two files, and an empty folder between and behind them.
class CQDCFListWalk : public testing::Test {
 protected:
  CQDCFListWalk() {
    c.card.MakeDir("DCIM/102PHOTO");
    c.card.MakeDir("DCIM/110PHOTO");
    c.With({kA1, kA2, kB1, kB3});
  }

  CardCatalogue c;
  const Names all = {kA1, kA2, kB1, kB3};
};

TEST_F(CQDCFListWalk, ForwardComesByEveryFileOnce) { EXPECT_EQ(c.Walked(), all); }

TEST_F(CQDCFListWalk, BackwardComesByEveryFileOnce) {
  EXPECT_EQ(c.WalkedBack(), Names(all.rbegin(), all.rend()));
}

TEST_F(CQDCFListWalk, PositionsCountFromTheFirstFile) {
  for (int i = 0; i < 4; ++i) EXPECT_EQ(c.At(i), (Step{0, all[i]}));
  EXPECT_EQ(c.At(4).result, -1);
  EXPECT_EQ(c.At(-1).result, -1);
  EXPECT_EQ(c.At(2147483647).result, -1);
  EXPECT_EQ(c.At(-2147483647 - 1).result, -1);
}

TEST_F(CQDCFListWalk, ReadingAPositionLeavesTheCursor) {
  c.First();
  c.At(3);
  EXPECT_EQ(c.Cur(), (Step{0, kA1}));
  EXPECT_EQ(c.Next().path, kA2);
}

TEST_F(CQDCFListWalk, FirstMovesTheCursorOnlyWhenAsked) {
  EXPECT_EQ(c.First(false), (Step{0, kA1}));
  EXPECT_EQ(c.Cur().result, -1);
  c.Last();
  EXPECT_EQ(c.First(false), (Step{0, kA1}));
  EXPECT_EQ(c.Cur().path, kB3);
  EXPECT_EQ(c.First(true), (Step{0, kA1}));
  EXPECT_EQ(c.Cur().path, kA1);
}

TEST_F(CQDCFListWalk, NextWithoutACurrentFileIsTheFirst) {
  EXPECT_EQ(c.Next(), (Step{0, kA1}));
  EXPECT_EQ(c.time, kNoTime) << "no time is given then";
  EXPECT_EQ(c.Cur().path, kA1);
}

TEST_F(CQDCFListWalk, NextBehindTheLastFileStaysThere) {
  c.Last();
  EXPECT_EQ(c.Next().result, -1);
  EXPECT_EQ(c.Next().result, -1);
  EXPECT_EQ(c.Cur().path, kB3);
  EXPECT_EQ(c.Prev().path, kB1);
}

TEST_F(CQDCFListWalk, PrevWithoutACurrentFileIsRefused) {
  EXPECT_EQ(c.Prev(), (Step{-2, kUntouched}));
}

TEST_F(CQDCFListWalk, PrevBeforeTheFirstFileStaysThere) {
  c.First();
  EXPECT_EQ(c.Prev().result, -1);
  EXPECT_EQ(c.Cur().path, kA1);
  EXPECT_EQ(c.Next().path, kA2);
}

TEST_F(CQDCFListWalk, LastMovesTheCursor) {
  EXPECT_EQ(c.Last(), (Step{0, kB3}));
  EXPECT_EQ(c.Cur(), (Step{0, kB3}));
}

TEST_F(CQDCFListWalk, NextAndPrevCrossFolders) {
  c.SetCur(kA2);
  EXPECT_EQ(c.Next().path, kB1);
  EXPECT_EQ(c.Prev().path, kA2);
}

TEST_F(CQDCFListWalk, TheLastPathLeavesTheCursor) {
  char out[flm::kPathSize] = "";
  c.First();
  EXPECT_EQ(c.list.GetLastPath(out, sizeof(out)), 0);
  EXPECT_EQ(c.Relative(out), kB3);
  EXPECT_EQ(c.Cur().path, kA1);
}

TEST_F(CQDCFListWalk, CurWithoutACurrentFileWritesNothing) {
  EXPECT_EQ(c.Cur(), (Step{-1, kUntouched}));
  c.First();
  c.list.InitCursor();
  EXPECT_EQ(c.Cur(), (Step{-1, kUntouched}));
}

TEST_F(CQDCFListWalk, FirstAndNextGiveTheTimeOfTheFile) {
  c.card.SetTime(kA1, 1500000001);
  c.card.SetTime(kA2, 1500000002);
  c.card.SetTime(kB1, 1500000003);
  c.First();
  EXPECT_EQ(c.time, 1500000001u);
  c.Next();
  EXPECT_EQ(c.time, 1500000002u);
  c.Next();
  EXPECT_EQ(c.time, 1500000003u);
}

TEST_F(CQDCFListWalk, ATimeIsReadOnce) {
  c.card.SetTime(kA1, 1500000001);
  c.First();
  c.card.SetTime(kA1, 1600000000);
  c.First();
  EXPECT_EQ(c.time, 1500000001u);
}

TEST_F(CQDCFListWalk, ATimeThatCannotBeReadIsZeroAndAskedAgain) {
  c.card.Remove(kA1);
  c.First();
  EXPECT_EQ(c.time, 0u);
  c.card.MakeFile(kA1, "x", 1500000001);
  c.First();
  EXPECT_EQ(c.time, 1500000001u);
}

TEST_F(CQDCFListWalk, NobodyNeedsToTakeTheTime) {
  char out[flm::kPathSize] = "";
  char object[flm::kPathSize] = "";
  EXPECT_EQ(c.list.GetFirst(out, sizeof(out), object, sizeof(object), true, nullptr), 0);
  EXPECT_EQ(c.list.GetNext(out, sizeof(out), object, sizeof(object), nullptr), 0);
  EXPECT_EQ(c.Relative(out), kA2);
}

TEST_F(CQDCFListWalk, TheRecordsComeInTheSameOrder) {
  EXPECT_EQ(c.list.GetFirstDCFItem(), c.Find(kA1));
  EXPECT_EQ(c.Cur().path, kA1);
  EXPECT_EQ(c.list.GetNextDCFItem(), c.Find(kA2));
  EXPECT_EQ(c.list.GetNextDCFItem(), c.Find(kB1));
  EXPECT_EQ(c.Cur().path, kB1);
  EXPECT_EQ(c.list.GetNextDCFItem(), c.Find(kB3));
  EXPECT_EQ(c.list.GetNextDCFItem(), nullptr);
}

TEST_F(CQDCFListWalk, TheNextRecordWithoutACurrentFileIsTheFirst) {
  EXPECT_EQ(c.list.GetNextDCFItem(), c.Find(kA1));
}

TEST_F(CQDCFListWalk, PathsAreCutToTheGivenSize) {
  const std::string whole = c.card.Path(kA1);
  for (int size : {1, 2, 10, static_cast<int>(whole.size()), 127}) {
    std::string out(flm::kPathSize, '#');
    EXPECT_EQ(c.list.GetFirst(&out[0], size, nullptr, 0, true, nullptr), 0);
    EXPECT_EQ(std::string(out.c_str()), whole.substr(0, size - 1)) << size;
    EXPECT_EQ(out.find_last_not_of('#'), std::strlen(out.c_str())) << "nothing behind the end";
  }
}

TEST_F(CQDCFListWalk, ASizeOfNothingWritesNothing) {
  for (int size : {0, -1, -2147483647 - 1}) {
    char out[4] = "##";
    EXPECT_EQ(c.list.GetFirst(out, size, out, size, true, nullptr), 0);
    EXPECT_EQ(c.list.GetNext(out, size, out, size, nullptr), 0);
    EXPECT_EQ(c.list.GetPrev(out, size, out, size), 0);
    EXPECT_EQ(c.list.GetLast(out, size, out, size), 0);
    EXPECT_EQ(c.list.GetCur(out, size, out, size), 0);
    EXPECT_EQ(c.list.GetAt(0, out, size, out, size), 0);
    EXPECT_STREQ(out, "##");
  }
}

TEST_F(CQDCFListWalk, NoBufferIsHarmless) {
  const int size = flm::kPathSize;
  EXPECT_EQ(c.list.GetFirst(nullptr, size, nullptr, size, true, nullptr), 0);
  EXPECT_EQ(c.list.GetNext(nullptr, size, nullptr, size, nullptr), 0);
  EXPECT_EQ(c.list.GetPrev(nullptr, size, nullptr, size), 0);
  EXPECT_EQ(c.list.GetLast(nullptr, size, nullptr, size), 0);
  EXPECT_EQ(c.list.GetCur(nullptr, size, nullptr, size), 0);
  EXPECT_EQ(c.list.GetAt(0, nullptr, size, nullptr, size), 0);
}

TEST_F(CQDCFListWalk, TheLastFileHasTheNumbersOfTheLastItem) {
  EXPECT_EQ(c.list.IsLast(c.Path(kB3)), 1);
  EXPECT_EQ(c.list.IsLast(c.Path("DCIM/105ABCDE/XYZ_0003.MP4")), 1) << "numbers decide";
  EXPECT_EQ(c.list.IsLast(c.Path(kB1)), 0);
  EXPECT_EQ(c.list.IsLast(c.Path("DCIM/110PHOTO/QVX_0003.JPG")), 0);
  EXPECT_EQ(c.list.IsLast(Arg("")), 0);
  EXPECT_EQ(c.list.IsLast(nullptr), 0);
}

TEST(CQDCFListWalkModes, AMovieCardIsWalkedInItsOwnSpelling) {
  CardCatalogue c(2);
  c.With({"VIDEO/100VIDEO/QVX_0001.MP4", "VIDEO/101ABCDE/QVX_0002.AVI"});
  const Names walked = {"VIDEO/100VIDEO/QVX_0001.MP4", "VIDEO/101VIDEO/QVX_0002.MP4"};
  EXPECT_EQ(c.Walked(), walked);
  EXPECT_EQ(c.WalkedBack(), Names(walked.rbegin(), walked.rend()));
  EXPECT_EQ(c.Held(), walked);
  EXPECT_EQ(c.list.SetCurFile(c.Path("VIDEO/100VIDEO/QVX_0001.MP4")), 0);
  EXPECT_EQ(c.Next().path, walked[1]);
}

TEST(CQDCFListWalkModes, APlainStillCardIsWalkedInItsOwnSpelling) {
  CardCatalogue c(0);
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101ABCDE/QVX_0002.MP4"});
  const Names walked = {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0002.JPG"};
  EXPECT_EQ(c.Walked(), walked);
  EXPECT_EQ(c.Held(), walked);
}

TEST(CQDCFListWalkModes, TheCameraFolderIsWalkedFirstAndByItsNames) {
  CardCatalogue c;
  c.With({"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.png",
          "DCIM/100PHOTO/QVX_0001.JPG"});
  c.ScanWithCamera();
  const Names walked = {"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.png",
                        "DCIM/100PHOTO/QVX_0001.JPG"};
  EXPECT_EQ(c.Walked(), walked);
  EXPECT_EQ(c.WalkedBack(), Names(walked.rbegin(), walked.rend()));
}

// What each walk answers when there is no file.
void ExpectNoFiles(CardCatalogue& c) {
  EXPECT_EQ(c.First(), (Step{-1, kUntouched}));
  EXPECT_EQ(c.Next(), (Step{-1, kUntouched}));
  EXPECT_EQ(c.Prev(), (Step{-2, kUntouched}));
  EXPECT_EQ(c.Last(), (Step{-1, kUntouched}));
  EXPECT_EQ(c.Cur(), (Step{-1, kUntouched}));
  EXPECT_EQ(c.At(0), (Step{-1, kUntouched}));
  EXPECT_EQ(c.list.GetFirstDCFItem(), nullptr);
  EXPECT_EQ(c.list.GetNextDCFItem(), nullptr);
  EXPECT_EQ(c.list.IsLast(c.Path(kA1)), 0);
  char out[flm::kPathSize] = "";
  EXPECT_EQ(c.list.GetLastPath(out, sizeof(out)), -1);
}

TEST(CQDCFListWalkNothing, AnEmptyCardHasNoFiles) {
  CardCatalogue c;
  c.card.MakeDir("DCIM/100PHOTO");
  c.Scan();
  ExpectNoFiles(c);
}

TEST(CQDCFListWalkNothing, ACatalogueBeforeItsScanHasNoFiles) {
  CardCatalogue c;
  ExpectNoFiles(c);
}

TEST(CQDCFListWalkNothing, ACatalogueWithoutATableHasNoFiles) {
  CardCatalogue c;
  c.list.Destroy();
  ExpectNoFiles(c);
}

TEST(CQDCFListWalkNothing, LastWithoutFilesLeavesNoCursor) {
  CardCatalogue c;
  c.With({kA1});
  c.First();
  c.list.RemoveFile(c.Path(kA1));
  EXPECT_EQ(c.Last().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
}

// A first item with a companion in each of two folders.
class CQDCFListWalkObjects : public testing::Test {
 protected:
  CQDCFListWalkObjects() {
    c.With({kA1, "DCIM/100PHOTO/QVX_0001.SRW", kA2, "DCIM/100PHOTO/QVX_0002.WAV", kB1,
            "DCIM/105ABCDE/QVX_0001.WAV", "DCIM/105ABCDE/QVX_0001.MPO"});
  }

  CardCatalogue c;
  const std::string objectA1 = "DCIM/100PHOTO/QVX_0001.S  ";
  const std::string objectA2 = "DCIM/100PHOTO/QVX_0002. W ";
  const std::string objectB1 = "DCIM/105ABCDE/QVX_0001. WM";
};

TEST_F(CQDCFListWalkObjects, FirstLastCurAndAtNameTheCompanions) {
  EXPECT_EQ(c.First(), (Step{0, kA1, objectA1}));
  EXPECT_EQ(c.Cur(), (Step{0, kA1, objectA1}));
  EXPECT_EQ(c.Last(), (Step{0, kB1, objectB1}));
  EXPECT_EQ(c.Cur(), (Step{0, kB1, objectB1}));
  EXPECT_EQ(c.At(1), (Step{0, kA2, objectA2}));
}

TEST_F(CQDCFListWalkObjects, NextNamesTheCompanionsOnlyInANewFolder) {
  c.First();
  EXPECT_EQ(c.Next(), (Step{0, kA2, kUntouched}));
  EXPECT_EQ(c.Next(), (Step{0, kB1, objectB1}));
}

TEST_F(CQDCFListWalkObjects, PrevNamesTheCompanionsOnlyInANewFolder) {
  c.Last();
  EXPECT_EQ(c.Prev(), (Step{0, kA2, objectA2}));
  EXPECT_EQ(c.Prev(), (Step{0, kA1, kUntouched}));
}

TEST_F(CQDCFListWalkObjects, NextWithoutACurrentFileNamesThemAsFirstDoes) {
  EXPECT_EQ(c.Next(), (Step{0, kA1, objectA1}));
}

// Callers hand over two buffers of one size; the size of the first counts for both here.
TEST_F(CQDCFListWalkObjects, NextWithoutACurrentFileTakesTheFirstSizeForBoth) {
  char out[flm::kPathSize] = "";
  char object[flm::kPathSize] = "";
  EXPECT_EQ(c.list.GetNext(out, sizeof(out), object, 5, nullptr), 0);
  EXPECT_EQ(c.Relative(object), objectA1);
}

TEST_F(CQDCFListWalkObjects, TheCompanionsPathIsCutToItsOwnSize) {
  char out[flm::kPathSize] = "";
  char object[flm::kPathSize] = "";
  EXPECT_EQ(c.list.GetFirst(out, sizeof(out), object, 5, true, nullptr), 0);
  EXPECT_EQ(c.Relative(out), kA1);
  EXPECT_EQ(std::string(object), c.card.Root().substr(0, 4));
}

}  // namespace
}  // namespace flm_test
