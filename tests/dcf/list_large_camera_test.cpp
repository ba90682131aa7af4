// "CAMERA" folders so large that their files are looked up instead of walked: the same file answers
// as in a small one.
#include <gtest/gtest.h>

#include "base/file_list_item.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr int kSelected = 5;
constexpr int kCopies = 2;
constexpr char kFolder[] = "DCIM/CAMERA/";

std::string Numbered(int number) {
  return "picture " + std::to_string(100000 + number).substr(1) + ".JPG";
}

// The running numbers of files go on where the numbers of the layout end.
class CQDCFListLargeCamera : public testing::Test {
 protected:
  CQDCFListLargeCamera() : fake(c.card) {
    fake.folders["DCIM"] = {"CAMERA"};
    Names& names = fake.folders["DCIM/CAMERA"];
    for (int number = 0; number < kFiles; ++number) names.push_back(Numbered(number));
    c.ScanWithCamera();
  }

  static constexpr int kFiles = 10002;
  CardCatalogue c;
  FakeListings fake;
};

TEST_F(CQDCFListLargeCamera, TheLastOfTenThousandAndTwoFilesIsListedAndSelectable) {
  ASSERT_EQ(c.list.GetCount(), kFiles);
  const std::string last = kFolder + Numbered(kFiles - 1);
  EXPECT_EQ(c.At(kFiles - 1).path, last);
  EXPECT_EQ(c.Last().path, last);
  EXPECT_EQ(c.list.IsExist(c.Path(last)), kFiles - 1);
  EXPECT_EQ(c.SetBit(last, kSelected), 0);
  EXPECT_TRUE(c.Bit(last, kSelected));
  EXPECT_EQ(c.list.GetCustomBitCount(kSelected), 1);
  EXPECT_EQ(c.BitFirst(kSelected).path, last);
}

TEST_F(CQDCFListLargeCamera, PrintsOfFilesBehindTheLastNumberOfTheLayoutAreFound) {
  const Names ordered = {kFolder + Numbered(5), kFolder + Numbered(9999), kFolder + Numbered(10000),
                         kFolder + Numbered(10001)};
  for (const std::string& file : ordered)
    EXPECT_EQ(c.list.SetCustomInfo(c.Path(file), kCopies, 3), 0);
  Names found;
  char path[flm::kPathSize];
  CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(kCopies, kFiles);
  while (c.list.GetNextWithInfo(walk, path, flm::kPathSize) != 0) found.push_back(c.Relative(path));
  EXPECT_EQ(found, ordered);
}

// 70 files, of which the name of one ends in the whole name of another.
class CQDCFListNameWithin : public testing::Test {
 protected:
  void ListWith(const std::string& longer) {
    Names files = {kFolder + std::string(kShorter), kFolder + longer};
    for (int number = 1; number <= 68; ++number) files.push_back(kFolder + Numbered(number));
    for (const std::string& file : files) c.card.MakeFile(file);
    ASSERT_EQ(c.ScanWithCamera(), 0);
    ASSERT_EQ(c.list.GetCount(), 70);
  }
  CQFileListItem InfoOf(const std::string& name) {
    CQFileListItem info;
    EXPECT_EQ(c.list.GetInfo(c.Path(kFolder + name), &info), 0) << name;
    return info;
  }
  int IndexOf(const std::string& name) { return c.list.GetListIndex(c.Path(kFolder + name)); }

  static constexpr char kShorter[] = "party at sea.JPG";
  CardCatalogue c;
};

TEST_F(CQDCFListNameWithin, TheMarksOfTheLongerAreItsOwnWhenItStandsFirst) {
  const std::string longer = "a party at sea.JPG";
  ListWith(longer);
  EXPECT_EQ(c.At(0).path, kFolder + longer);
  EXPECT_EQ(c.At(1).path, kFolder + std::string(kShorter));
  EXPECT_EQ(c.SetBit(kFolder + longer, kSelected), 0);
  EXPECT_EQ(InfoOf(longer).selected, 1);
  EXPECT_EQ(InfoOf(kShorter).selected, 0);
  EXPECT_EQ(IndexOf(longer), 0);
  EXPECT_EQ(IndexOf(kShorter), 1);
}

TEST_F(CQDCFListNameWithin, TheMarksOfTheLongerAreTheShortersWhenThatStandsFirst) {
  const std::string longer = "the party at sea.JPG";
  ListWith(longer);
  EXPECT_EQ(c.At(0).path, kFolder + std::string(kShorter));
  EXPECT_EQ(c.At(69).path, kFolder + longer);
  EXPECT_EQ(c.SetBit(kFolder + longer, kSelected), 0);
  EXPECT_TRUE(c.Bit(kFolder + longer, kSelected)) << "its whole name finds the file itself";
  EXPECT_EQ(InfoOf(longer).selected, 0) << "the first whose name stands in the path answers";
  EXPECT_EQ(c.SetBit(kFolder + std::string(kShorter), kSelected), 0);
  EXPECT_EQ(InfoOf(longer).selected, 1);
  EXPECT_EQ(IndexOf(longer), 0);
}

}  // namespace
}  // namespace flm_test
