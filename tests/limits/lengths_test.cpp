// Names and whole paths of the greatest length, and the last numbers.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"
#include "tests/limits/limits_fixture.h"

namespace flm_test {
namespace {

using Names = std::vector<std::string>;

class LongName : public testing::TestWithParam<int> {
 protected:
  LongName() : path_("DCIM/CAMERA/" + std::string(GetParam() - 4, 'n') + ".jpg") {
    at_.card.MakeFile(path_);
    at_.card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  }
  ListedCard at_;
  std::string path_;
};

TEST_P(LongName, OfAFreeFileIsKeptWholeForEveryOperation) {
  ASSERT_EQ(at_.Scan(), 2);
  ASSERT_EQ(at_.Files()[0], path_);
  const Text path = at_.card.Path(path_);
  EXPECT_EQ(at_.list.IsExist(Arg(path.Now())), 1);
  CQFileListItem item;
  ASSERT_EQ(at_.list.GetInfo(Arg(path.Now()), &item), 0);
  EXPECT_EQ(at_.NameOf(item), path_);
  EXPECT_EQ(at_.list.SetSel(&item, true), 0);
  EXPECT_TRUE(at_.list.IsSel(&item));
  EXPECT_EQ(at_.list.SetProtect(&item, true), 0);
  EXPECT_TRUE(at_.card.IsReadOnly(path_));
  EXPECT_GT(at_.list.Delete(&item, true, false), 0);
  EXPECT_FALSE(at_.card.Exists(path_));
  EXPECT_EQ(at_.Files(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
}

INSTANTIATE_TEST_SUITE_P(Lengths, LongName, testing::Values(26, 27, 28, 39, 40));

TEST(TooLongName, Of41CharactersIsNoFile) {
  ListedCard at;
  EXPECT_EQ(at.With({"DCIM/CAMERA/" + std::string(41, 'n')}), 0);
}

// A card below a root of such a length that a path in the CAMERA folder is as long as asked for.
class LongPath : public testing::Test {
 protected:
  // Puts two files into the CAMERA folder, the path of the second one character shorter.
  int With(int length) {
    constexpr int kLongestName = 40;
    const std::string tree = "/DCIM/CAMERA/";
    const int root = length - kLongestName - static_cast<int>(tree.size());
    deep_ = std::string(root - at_.card.Root().size() - 1, 'd');
    longer_ = deep_ + tree + std::string(kLongestName, 'n');
    shorter_ = deep_ + tree + std::string(kLongestName - 1, 'n');
    at_.card.MakeFile(longer_);
    at_.card.MakeFile(shorter_);
    at_.list.SetBaseURI(at_.card.Path(deep_).c_str());
    return at_.Scan();
  }
  ListedCard at_;
  std::string deep_, longer_, shorter_;
};

TEST_F(LongPath, Of127CharactersIsWhole) {
  ASSERT_EQ(With(127), 2);
  ASSERT_EQ(at_.Files(), (Names{shorter_, longer_}));
  CQFileListItem item = at_.At(1);
  EXPECT_EQ(std::string(item.filePath).size(), 127U);
  EXPECT_GT(at_.list.Delete(&item, false, false), 0);
  EXPECT_FALSE(at_.card.Exists(longer_));
  EXPECT_TRUE(at_.card.Exists(shorter_));
}

class LastNumbers : public LargeCard {
 protected:
  // Takes the next name, writes the file and scans the card; the name.
  std::string Record() {
    const std::string name = New();
    if (name.empty()) return name;
    AddFile(name);
    EXPECT_GT(Scan(), 0);
    return name;
  }
};

TEST_F(LastNumbers, OfAFolderLeadToTheNextFolder) {
  Add("DCIM/100PHOTO", 9997, 1);
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(Record(), "DCIM/100PHOTO/QVX_9998.JPG");
  EXPECT_EQ(Record(), "DCIM/100PHOTO/QVX_9999.JPG");
  EXPECT_EQ(Record(), "DCIM/101PHOTO/QVX_0001.JPG");
  EXPECT_EQ(Record(), "DCIM/101PHOTO/QVX_0002.JPG");
}

TEST_F(LastNumbers, OfTheLastFolderAreTheEnd) {
  Add("DCIM/999PHOTO", 9997, 1);
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(Record(), "DCIM/999PHOTO/QVX_9998.JPG");
  EXPECT_EQ(Record(), "DCIM/999PHOTO/QVX_9999.JPG");
  EXPECT_EQ(Record(), "");
  EXPECT_EQ(list_.GetAvailNumOfPhoto(), 0);
}

TEST_F(LastNumbers, OfTheLastFolderButOneLeadToTheLast) {
  Add("DCIM/998PHOTO", 9999, 1);
  ASSERT_EQ(Scan(), 1);
  EXPECT_EQ(Record(), "DCIM/999PHOTO/QVX_0001.JPG");
}

}  // namespace
}  // namespace flm_test
