// Names as a FAT keeps and finds them: a file is found in any case of its letters, and listed in
// capitals.
#include "fsio/PCQDCFFSIO.h"

#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

using Names = std::vector<std::string>;

constexpr int kRaw = 1;
constexpr int kVoiceMemo = 5;
constexpr int kMultiPicture = 6;

class FatNames : public OnFat {
 protected:
  // The companion of a kind, as a path below the root; "" when the file has none.
  std::string CompanionOf(CQFileListItem item, int kind) {
    char out[128] = {};
    const int result =
        list.GetObjectFullPath(&item, static_cast<eFileType>(kind), out, sizeof(out));
    return result == kind ? Relative(out) : "";
  }
};

TEST_F(FatNames, FilesAreListedByTheirNumbersWhateverTheOrderOfMaking) {
  for (const int number : {7, 2, 9, 1}) card.MakeFiles("DCIM/101PHOTO", "QVX_", number, 1, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 3, 1, "JPG");
  EXPECT_EQ(Scan(), 5);
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0003.JPG", "DCIM/101PHOTO/QVX_0001.JPG",
                            "DCIM/101PHOTO/QVX_0002.JPG", "DCIM/101PHOTO/QVX_0007.JPG",
                            "DCIM/101PHOTO/QVX_0009.JPG"}));
}

TEST_F(FatNames, AnEntryThatWasFreedAndTakenAgainIsListedInItsPlace) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  card.Remove("DCIM/100PHOTO/QVX_0001.JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 9, 1, "JPG");
  EXPECT_EQ(Scan(), 3);
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0002.JPG", "DCIM/100PHOTO/QVX_0003.JPG",
                            "DCIM/100PHOTO/QVX_0009.JPG"}));
}

TEST_F(FatNames, AFileInSmallLettersIsListedInCapitalsAndFound) {
  card.MakeFile("DCIM/100PHOTO/qvx_0001.jpg", "picture", 1000000000);
  ASSERT_EQ(ScanAgain(), 1);
  ASSERT_EQ(Files(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(At(0).modTime, 1000000000);
  EXPECT_EQ(PCQDCFFSIO::GetFileSize(At(0).filePath), 7);
  EXPECT_EQ(list.IsExist(Arg(card.Path("DCIM/100PHOTO/QVX_0001.JPG"))), 1);
}

TEST_F(FatNames, AFileInSmallLettersIsDeletedByItsListedName) {
  card.MakeFile("DCIM/100PHOTO/qvx_0001.jpg");
  card.MakeFile("DCIM/100PHOTO/Qvx_0002.Jpg");
  card.MakeFile("DCIM/100PHOTO/QVX_0003.JPG");
  ASSERT_EQ(Scan(), 3);
  for (int left = 2; left > 0; --left) {
    CQFileListItem item = At(0);
    EXPECT_EQ(list.Delete(&item, false, false), 10000003) << item.filePath;
  }
  EXPECT_EQ(Tree(), (Names{"DCIM/", "DCIM/100PHOTO/", "DCIM/100PHOTO/QVX_0003.JPG"}));
}

TEST_F(FatNames, ACompanionJoinsThePictureInWhateverLettersBothAreSpelled) {
  card.MakeFile("DCIM/100PHOTO/qvx_0001.jpg");
  card.MakeFile("DCIM/100PHOTO/QVX_0001.SRW");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  card.MakeFile("DCIM/100PHOTO/qvx_0002.wav");
  card.MakeFile("DCIM/100PHOTO/Qvx_0003.Jpg");
  card.MakeFile("DCIM/100PHOTO/qVX_0003.mPO");
  ASSERT_EQ(ScanAgain(), 3);
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                            "DCIM/100PHOTO/QVX_0003.JPG"}));
  EXPECT_EQ(CompanionOf(At(0), kRaw), "DCIM/100PHOTO/QVX_0001.SRW");
  EXPECT_EQ(CompanionOf(At(1), kVoiceMemo), "DCIM/100PHOTO/QVX_0002.WAV");
  EXPECT_EQ(CompanionOf(At(2), kMultiPicture), "DCIM/100PHOTO/QVX_0003.MPO");
}

TEST_F(FatNames, ACompanionWithoutItsPictureIsAFileOfItsOwn) {
  card.MakeFile("DCIM/100PHOTO/qvx_0001.jpg");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.SRW");
  EXPECT_EQ(Scan(), 2);
  EXPECT_EQ(Files(), (Names{"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.SRW"}));
}

TEST_F(FatNames, CompanionsInSmallLettersGoWithTheirPicture) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  card.MakeFile("DCIM/100PHOTO/qvx_0001.srw");
  card.MakeFile("DCIM/100PHOTO/qvx_0001.wav");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  ASSERT_EQ(Scan(), 2);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, false), 10000002);
  EXPECT_EQ(Tree(), (Names{"DCIM/", "DCIM/100PHOTO/", "DCIM/100PHOTO/QVX_0002.JPG"}));
}

TEST_F(FatNames, ATreeInSmallLettersIsTheTree) {
  card.MakeFile("dcim/100photo/qvx_0001.jpg", "x", 1000000000);
  ASSERT_EQ(ScanAgain(), 1);
  EXPECT_EQ(Tree(), (Names{"DCIM/", "DCIM/100PHOTO/", "DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(At(0).modTime, 1000000000);
  CQFileListItem item = At(0);
  EXPECT_EQ(list.SetProtect(&item, true), 0);
  EXPECT_EQ(list.Delete(&item, true, false), 10000000);
  EXPECT_FALSE(card.Exists("dcim/100photo/qvx_0001.jpg"));
}

TEST_F(FatNames, NumberingGoesOnInAFolderInSmallLetters) {
  card.MakeFile("dcim/100photo/qvx_0041.jpg");
  ASSERT_EQ(ScanAgain(), 1);
  char path[396] = {};
  ASSERT_EQ(list.GetNewFileName(path, 0), 0);
  card.WriteFile(Relative(path), "new");
  EXPECT_TRUE(card.Exists("dcim/100photo/qvx_0042.jpg"));
  EXPECT_EQ(Tree().size(), 4U) << "the tree, its folder and two files";
}

TEST_F(FatNames, ANameLongerThanTheOldFormIsNoFile) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001 (copy).JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_00012.JPG");
  card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  EXPECT_EQ(Scan(), 1);
  EXPECT_EQ(Files(), Names{"DCIM/100PHOTO/QVX_0002.JPG"});
}

TEST_F(FatNames, FreeNamesOfTheCameraFolderKeepTheirLetters) {
  const std::string longest(36, 'n');
  card.MakeFile("DCIM/CAMERA/" + longest + ".jpg");
  card.MakeFile("DCIM/CAMERA/Summer in the hills.jpg");
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(Files(),
            (Names{"DCIM/CAMERA/Summer in the hills.jpg", "DCIM/CAMERA/" + longest + ".jpg"}));
  CQFileListItem item = At(1);
  EXPECT_GT(list.Delete(&item, false, false), 0);
  EXPECT_FALSE(card.Exists("DCIM/CAMERA/" + longest + ".jpg"));
}

}  // namespace
}  // namespace flm_test
