// Setting the navigation cursor, and what becomes of it.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kB1[] = "DCIM/105ABCDE/QVX_0001.JPG";

class CQDCFListCursor : public testing::Test {
 protected:
  CQDCFListCursor() { c.With({kA1, kA2, kB1}); }

  CardCatalogue c;
};

TEST_F(CQDCFListCursor, AFileBecomesCurrentByItsPath) {
  EXPECT_EQ(c.SetCur(kA2), 0);
  EXPECT_EQ(c.Cur(), (Step{0, kA2}));
  EXPECT_EQ(c.Next().path, kB1);
}

TEST_F(CQDCFListCursor, NoPathEndsTheNavigation) {
  c.First();
  EXPECT_EQ(c.list.SetCurFile(nullptr), 0);
  EXPECT_EQ(c.Cur().result, -1);
}

struct BadPath {
  const char* path;
  int result;
};

TEST_F(CQDCFListCursor, APathThatNamesNoFileIsRefusedAndTheCursorStays) {
  c.SetCur(kA2);
  const BadPath table[] = {
      {"", -100},
      {"DCIM", -100},
      {"DCIM/10", -100},
      {"DCIM/100", -101},
      {"DCIM/100PHOTO", -101},
      {"DCIM/100PHOTO/QVX_000", -101},
      {"DCIM/101PHOTO/QVX_0001.JPG", -200},
      {"DCIM/100PHOTO/QVX_0003.JPG", -300},
      {"DCIM/100PHOTO/ABC_0002.JPG", -300},
      {"DCIM/100PHOTO/QVX_0002.MP4", -300},
  };
  for (const BadPath& row : table) {
    EXPECT_EQ(c.SetCur(row.path), row.result) << row.path;
    EXPECT_EQ(c.Cur().path, kA2) << row.path;
  }
  EXPECT_EQ(c.list.SetCurFile(Arg("")), -100);
}

TEST_F(CQDCFListCursor, FilesOfOneNumberAreToldApart) {
  const char* const files[] = {"DCIM/105ABCDE/QVX_0007.JPG", "DCIM/105ABCDE/QVX_0007.MP4",
                               "DCIM/105ABCDE/XYZ_0007.JPG"};
  c.With({files[0], files[1], files[2]});
  for (const char* file : files) {
    EXPECT_EQ(c.SetCur(file), 0) << file;
    EXPECT_EQ(c.Cur().path, file);
  }
}

TEST_F(CQDCFListCursor, FilesOfTheCameraFolderAreToldApart) {
  const Names free = {"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/birthday in May.jpg",
                      "DCIM/CAMERA/party at the lake.jpg"};
  c.With(free);
  c.ScanWithCamera();
  for (const std::string& file : free) {
    EXPECT_EQ(c.SetCur(file), 0) << file;
    EXPECT_EQ(c.Cur().path, file);
  }
  EXPECT_EQ(c.Next().path, kA1);
  EXPECT_EQ(c.Prev().path, free[2]);
  EXPECT_EQ(c.Prev().path, free[1]);
}

TEST_F(CQDCFListCursor, AFileThatIsRemovedIsNotCurrentAnyMore) {
  c.SetCur(kA2);
  EXPECT_EQ(c.list.RemoveFile(c.Path(kA2)), 0);
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
  EXPECT_EQ(c.Next().path, kA1) << "the walk begins anew";
}

TEST_F(CQDCFListCursor, RemovingAnotherFileLeavesTheCursor) {
  c.SetCur(kA2);
  c.list.RemoveFile(c.Path(kA1));
  c.list.RemoveFile(c.Path(kB1));
  EXPECT_EQ(c.Cur().path, kA2);
  EXPECT_EQ(c.Next().result, -1);
  EXPECT_EQ(c.Prev().result, -1);
}

TEST_F(CQDCFListCursor, AMarkWalkOnARemovedFileBecomesUnset) {
  c.list.SetCustomBitAll(5, true);
  c.BitFirst(5);
  c.list.RemoveFile(c.Path(kA1));
  EXPECT_EQ(c.BitNext(5).result, -1);
}

TEST_F(CQDCFListCursor, TheCursorCanBeSetToARecord) {
  c.list.SetCurItem(105, 1, 1, c.Find(kB1));
  EXPECT_EQ(c.Cur(), (Step{0, kB1}));
  EXPECT_EQ(c.Prev().path, kA2);
}

TEST_F(CQDCFListCursor, NegativeNumbersMakeTheCursorUnset) {
  c.list.SetCurItem(-1, 1, 1, c.Find(kB1));
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
  c.list.SetCurItem(105, -1, 1, c.Find(kB1));
  EXPECT_EQ(c.Cur().result, -1);
}

TEST_F(CQDCFListCursor, ACursorWithoutARecordIsSafe) {
  for (int slot : {-2147483647 - 1, -1, 0, 1, 998, 999, 2147483647}) {
    c.list.SetCurItem(100, 1, slot, nullptr);
    c.list.SetBitCurFile(100, 1, slot, nullptr);
    c.Cur();
    c.Next();
    c.list.SetCurItem(100, 1, slot, nullptr);
    c.Prev();
    c.list.SetCurItem(100, 1, slot, nullptr);
    c.list.GetNextDCFItem();
    c.list.SetCurItem(100, 1, slot, nullptr);
    EXPECT_FALSE(c.Bit(kA1, 5));
    c.BitNext(5);
    c.BitPrev(5);
  }
  EXPECT_EQ(c.Held().size(), 3u);
}

TEST_F(CQDCFListCursor, TheMarkCursorCanBeSetToARecord) {
  c.list.SetCustomBitAll(5, true);
  c.list.SetBitCurFile(100, 1, 0, c.Find(kA1));
  EXPECT_EQ(c.BitNext(5).path, kA2);
}

// The forward walk begins with the slot's number and not with the folder's; the paths that follow
// name the folder by its own.
TEST_F(CQDCFListCursor, PathsAfterFirstNameTheFolderByItsOwnNumber) {
  CardCatalogue plain(0);
  plain.With({"DCIM/105ABCDE/QVX_0001.JPG", "DCIM/106PHOTO/QVX_0001.JPG"});
  const char* const first = "DCIM/105PHOTO/QVX_0001.JPG";
  EXPECT_EQ(plain.First().path, first);
  EXPECT_EQ(plain.Cur().path, first);
  EXPECT_NE(plain.list.GetFirstDCFItem(), nullptr);
  EXPECT_EQ(plain.Cur().path, first);
}

// What tells the slot's number from the folder's: a path is answered by the current file when its
// numbers are those of the cursor.
TEST_F(CQDCFListCursor, FirstStoresTheSlotPlus100) {
  CardCatalogue one;
  one.With({"DCIM/105ABCDE/QVX_0001.JPG"});
  one.SetBit("DCIM/105ABCDE/QVX_0001.JPG", 5);
  EXPECT_FALSE(one.Bit("DCIM/100XXXXX/QVX_0001.JPG", 5));
  one.First();
  EXPECT_TRUE(one.Bit("DCIM/100XXXXX/QVX_0001.JPG", 5));
  one.Last();
  EXPECT_FALSE(one.Bit("DCIM/100XXXXX/QVX_0001.JPG", 5));
  one.list.GetFirstDCFItem();
  EXPECT_TRUE(one.Bit("DCIM/100XXXXX/QVX_0001.JPG", 5));
}

TEST_F(CQDCFListCursor, NextStoresTheFoldersOwnNumber) {
  CardCatalogue one;
  one.With({"DCIM/105ABCDE/QVX_0001.JPG", "DCIM/105ABCDE/QVX_0002.JPG"});
  one.SetBit("DCIM/105ABCDE/QVX_0002.JPG", 5);
  one.First();
  one.Next();
  EXPECT_FALSE(one.Bit("DCIM/100XXXXX/QVX_0002.JPG", 5));
  EXPECT_TRUE(one.Bit("DCIM/105XXXXX/QVX_0002.JPG", 5));
}

}  // namespace
}  // namespace flm_test
