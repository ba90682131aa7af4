// What becomes of the folder whose last file is deleted.
#include <gtest/gtest.h>

#include "tests/filelist/marks_fixture.h"

namespace {

using flm_test::ListedCard;
using Names = std::vector<std::string>;

class FolderOfADeletedFile : public testing::Test {
 protected:
  int Delete(const std::string& file) {
    CQFileListItem item = at_.Item(file);
    return at_.list.Delete(&item, false, false);
  }
  ListedCard at_;
};

TEST_F(FolderOfADeletedFile, AnEmptiedOlderFolderIsRemoved) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10100001, Delete("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO"));
  EXPECT_TRUE(at_.card.Exists("DCIM/101PHOTO"));
}

TEST_F(FolderOfADeletedFile, AFolderThatHoldsAnythingElseStays) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/notes.txt",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10100001, Delete("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/notes.txt"));
}

TEST_F(FolderOfADeletedFile, AFolderWithFurtherFilesStays) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10100001, Delete("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0002.JPG"));
}

TEST_F(FolderOfADeletedFile, TheNewestFolderStaysWhenItsLastFileGoes) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10100000, Delete("DCIM/101PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/101PHOTO"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO"));
}

TEST_F(FolderOfADeletedFile, TheNextCaptureGoesIntoTheNewestFolderThatWasKept) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"}));
  ASSERT_EQ(10100000, Delete("DCIM/101PHOTO/QVX_0001.JPG"));
  char name[396] = {};
  ASSERT_EQ(0, at_.list.GetNewFileName(name, 0));
  EXPECT_EQ("DCIM/101PHOTO/QVX_0001.JPG", at_.Relative(name));
}

TEST_F(FolderOfADeletedFile, TheNewestFolderGoesWhenItsNumberIs999) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/999PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(99900000, Delete("DCIM/999PHOTO/QVX_0001.JPG"));
  EXPECT_FALSE(at_.card.Exists("DCIM/999PHOTO"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
}

TEST_F(FolderOfADeletedFile, AFolderNumbered999IsKeptWhileItHoldsFiles) {
  ASSERT_EQ(2, at_.With({"DCIM/999PHOTO/QVX_0001.JPG", "DCIM/999PHOTO/QVX_0002.JPG"}));
  EXPECT_EQ(99900001, Delete("DCIM/999PHOTO/QVX_0002.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/999PHOTO/QVX_0001.JPG"));
}

TEST_F(FolderOfADeletedFile, AnOlderFolderGoesAlsoBesideFolder999) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/999PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(99900001, Delete("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO"));
}

TEST_F(FolderOfADeletedFile, WithoutAnyFileLeftTheFolderStays) {
  ASSERT_EQ(1, at_.With({"DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(10000000, Delete("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/100PHOTO"));
}

TEST_F(FolderOfADeletedFile, WithoutAnyFileLeftEvenFolder999Stays) {
  ASSERT_EQ(1, at_.With({"DCIM/999PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(99900000, Delete("DCIM/999PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(at_.card.Exists("DCIM/999PHOTO"));
}

TEST_F(FolderOfADeletedFile, AFolderEmptiedButForACompanionGoesWithIt) {
  ASSERT_EQ(2, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0001.WAV",
                         "DCIM/101PHOTO/QVX_0001.JPG"}));
  CQFileListItem item = at_.At(0);
  EXPECT_EQ(10100001, at_.list.Delete(&item, false, false));
  EXPECT_FALSE(at_.card.Exists("DCIM/100PHOTO"));
}

TEST_F(FolderOfADeletedFile, TheListGoesOnWithoutTheRemovedFolder) {
  ASSERT_EQ(3, at_.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG",
                         "DCIM/102PHOTO/QVX_0001.JPG"}));
  ASSERT_EQ(10200001, Delete("DCIM/101PHOTO/QVX_0001.JPG"));
  EXPECT_EQ((Names{"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/102PHOTO/QVX_0001.JPG"}), at_.Files());
  EXPECT_EQ(2, at_.list.GetCount());
}

}  // namespace
