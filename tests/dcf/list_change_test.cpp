// Folders made on the card, files entered and removed, companions recorded.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kB1[] = "DCIM/105ABCDE/QVX_0001.JPG";

struct BaseFolders {
  int mode;
  Names after[4];  // the card after each call
};

TEST(CQDCFListFolders, EachCallMakesAtMostOneNewFolder) {
  const BaseFolders table[] = {
      {0,
       {{"DCIM/"},
        {"DCIM/", "DCIM/100PHOTO/"},
        {"DCIM/", "DCIM/100PHOTO/", "MISC/"},
        {"DCIM/", "DCIM/100PHOTO/", "MISC/"}}},
      {2,
       {{"VIDEO/"},
        {"VIDEO/", "VIDEO/100VIDEO/"},
        {"MISC/", "VIDEO/", "VIDEO/100VIDEO/"},
        {"MISC/", "VIDEO/", "VIDEO/100VIDEO/"}}},
      {4, {{"DCIM/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}}},
      {1, {{"DCIM/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}}},
      {3, {{"DCIM/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}}},
      {7, {{"DCIM/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}, {"DCIM/", "MISC/"}}},
  };
  for (const BaseFolders& row : table) {
    CardCatalogue c(row.mode);
    for (const Names& tree : row.after) {
      EXPECT_EQ(c.list.CreateBaseDirectory(), 0);
      EXPECT_EQ(c.card.Tree(), tree) << "mode " << row.mode;
    }
  }
}

TEST(CQDCFListFolders, WithoutARootNoFolderIsMade) {
  static int made;
  made = 0;
  CQDCFList list;
  list.Create();
  flm::Os().Mkdir = [](const char*, mode_t) { return ++made, -1; };
  for (int mode : {0, 2, 4}) {
    list.SetMode(mode);
    list.CreateBaseDirectory();
    list.CreateNewDirectory(100, "PHOTO");
  }
  flm::ResetOsCalls();
  EXPECT_EQ(made, 0);
}

TEST(CQDCFListFolders, ANewFolderHasItsNumberAndSuffix) {
  CardCatalogue c;
  c.card.MakeDir("DCIM");
  EXPECT_EQ(c.list.CreateNewDirectory(105, Arg("ABCDE")), 0);
  EXPECT_EQ(c.list.CreateNewDirectory(7, Arg("X")), 0);
  const Names tree = {"DCIM/", "DCIM/007X/", "DCIM/105ABCDE/"};
  EXPECT_EQ(c.card.Tree(), tree);
}

TEST(CQDCFListFolders, ANewFolderStandsInTheTreeOfTheMode) {
  for (int mode : {0, 1, 2, 3, 4, 5}) {
    CardCatalogue c(mode);
    c.card.MakeDir("DCIM");
    c.card.MakeDir("VIDEO");
    EXPECT_EQ(c.list.CreateNewDirectory(105, Arg("ABCDE")), 0);
    const bool still = mode == 0 || mode == 4;
    EXPECT_EQ(c.card.Exists("DCIM/105ABCDE"), still) << mode;
    EXPECT_EQ(c.card.Exists("VIDEO/105ABCDE"), !still) << mode;
  }
}

TEST(CQDCFListFolders, AFolderThatCannotBeMadeAnswersMinusOne) {
  CardCatalogue c;
  EXPECT_EQ(c.list.CreateNewDirectory(105, Arg("ABCDE")), -1) << "there is no tree";
  c.card.MakeDir("DCIM/105ABCDE");
  EXPECT_EQ(c.list.CreateNewDirectory(105, Arg("ABCDE")), -1) << "it is there already";
  EXPECT_EQ(c.list.CreateNewDirectory(106, nullptr), -1);
  EXPECT_EQ(c.list.MakeDirectory(c.Path("missing/folder")), -1);
  EXPECT_EQ(c.list.MakeDirectory(nullptr), -1);
  EXPECT_EQ(c.list.MakeDirectory(Arg("")), -1);
}

TEST(CQDCFListFolders, AnyFolderCanBeMadeByItsPath) {
  CardCatalogue c;
  EXPECT_EQ(c.list.MakeDirectory(c.Path("MISC")), 0);
  struct stat status = {};
  ASSERT_EQ(stat(c.card.Path("MISC").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 07777, 0775u);
}

class CQDCFListChange : public testing::Test {
 protected:
  CQDCFListChange() { c.With({kA1, kA2, kB1}); }
  int Add(const std::string& relative) { return c.list.AddFile(c.Path(relative)); }
  int Remove(const std::string& relative) { return c.list.RemoveFile(c.Path(relative)); }

  CardCatalogue c;
};

TEST_F(CQDCFListChange, AFileIsEnteredAtTheEndOfItsFolder) {
  EXPECT_EQ(Add("DCIM/100PHOTO/ABC_0000.MP4"), 0);
  const Names held = {kA1, kA2, "DCIM/100PHOTO/ABC_0000.MP4", kB1};
  EXPECT_EQ(c.Held(), held);
  EXPECT_EQ(c.list.GetCount(), 4);
}

TEST_F(CQDCFListChange, AnEnteredFileIsEnabledAndNamed) {
  Add("DCIM/100PHOTO/ABC_0007.MP4");
  DCFItem* item = c.Find("DCIM/100PHOTO/ABC_0007.MP4");
  ASSERT_NE(item, nullptr);
  EXPECT_STREQ(item->fileName, "ABC_0007.MP4");
  EXPECT_EQ(item->fileNumber, 7);
  EXPECT_EQ(std::string(item->extChars, 3), "MP4");
  EXPECT_TRUE(c.Bit("DCIM/100PHOTO/ABC_0007.MP4", 0));
}

// A fresh catalogue: what nobody wrote is 0.
TEST_F(CQDCFListChange, AnEnteredFileHasNoTimeAndNoFolderNumberYet) {
  Add("DCIM/100PHOTO/ABC_0007.MP4");
  const DCFItem* const item = c.Find("DCIM/100PHOTO/ABC_0007.MP4");
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(item->dirNumber, 0);
  EXPECT_EQ(item->fileTime, 0u);
}

TEST_F(CQDCFListChange, EnteringNeitherLooksAtNorChangesTheCard) {
  const Names tree = c.card.Tree();
  EXPECT_EQ(Add("DCIM/100PHOTO/ABC_0007.MP4"), 0);
  EXPECT_EQ(c.card.Tree(), tree);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500001);
}

TEST_F(CQDCFListChange, PathsThatCannotBeEnteredAreRefused) {
  EXPECT_EQ(c.list.AddFile(Arg("QVX_0009.JPG")), -3);
  EXPECT_EQ(c.list.AddFile(Arg("")), -3);
  EXPECT_EQ(c.list.AddFile(Arg(std::string(120, 'x'))), -3) << "no '/' is looked for first";
  EXPECT_LT(c.list.AddFile(nullptr), 0);
  EXPECT_EQ(Add("DCIM/300PHOTO/QVX_0009.JPG"), -1);
  EXPECT_EQ(c.list.AddFile(Arg("/a/b")), -1);
  EXPECT_EQ(c.list.GetCount(), 3);
  EXPECT_EQ(c.Held().size(), 3u);
}

TEST_F(CQDCFListChange, APathOf98CharactersIsEntered) {
  const std::string folder = c.card.Path("DCIM/100PHOTO/QVX_0009");
  EXPECT_EQ(c.list.AddFile(Arg(folder + std::string(98 - folder.size(), 'x'))), 0);
  EXPECT_EQ(c.list.AddFile(Arg(folder + std::string(99 - folder.size(), 'x'))), -1);
  EXPECT_EQ(c.list.GetCount(), 4);
}

TEST_F(CQDCFListChange, ALongNameIsCutToItsField) {
  const std::string folder = c.card.Path("DCIM/100PHOTO/QVX_0009");
  c.list.AddFile(Arg(folder + std::string(98 - folder.size(), 'x')));
  c.Last();
  for (const std::string& file : c.Held()) EXPECT_LT(file.size(), 128u);
}

TEST_F(CQDCFListChange, ARemovedFileIsForgotten) {
  EXPECT_EQ(Remove(kA1), 0);
  EXPECT_EQ(c.Held(), (Names{kA2, kB1}));
  EXPECT_EQ(c.list.GetCount(), 2);
  EXPECT_EQ(c.list.IsExist(c.Path(kA1)), -1);
  EXPECT_TRUE(c.card.Exists(kA1)) << "the file itself stays";
}

TEST_F(CQDCFListChange, AFileIsRemovedOnce) {
  Remove(kA1);
  EXPECT_EQ(Remove(kA1), -2);
  EXPECT_EQ(c.list.GetCount(), 2);
}

TEST_F(CQDCFListChange, FilesThatAreNotHeldAreNotRemoved) {
  EXPECT_EQ(Remove("DCIM/300PHOTO/QVX_0001.JPG"), -1);
  EXPECT_EQ(Remove("DCIM/100PHOTO/QVX_0009.JPG"), -2);
  EXPECT_EQ(Remove("DCIM/100PHOTO/ABC_0001.JPG"), -2);
  EXPECT_EQ(Remove("DCIM/100PHOTO/QVX_0001.JPE"), -2);
  EXPECT_EQ(c.list.RemoveFile(Arg("")), -1);
  EXPECT_EQ(c.list.RemoveFile(nullptr), -1);
  EXPECT_EQ(c.list.GetCount(), 3);
  EXPECT_EQ(c.Held().size(), 3u);
}

// Taking a multi-picture companion away must not take the movie of its number.
TEST_F(CQDCFListChange, TheWholeExtensionTellsWhichFileIsRemoved) {
  c.With({"DCIM/100PHOTO/QVX_0007.MP4", "DCIM/100PHOTO/ABC_0007.MP4"});
  EXPECT_EQ(Remove("DCIM/100PHOTO/QVX_0007.MPO"), -2);
  EXPECT_EQ(Remove("DCIM/100PHOTO/QVX_0007.MP4"), 0);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/ABC_0007.MP4")), 7);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/QVX_0007.MP4")), -1);
}

TEST_F(CQDCFListChange, FilesOfTheCameraFolderAreRemovedByName) {
  const Names free = {"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.jpg"};
  c.With(free);
  c.ScanWithCamera();
  EXPECT_EQ(Remove("DCIM/CAMERA/no such party.jpg"), -2);
  EXPECT_EQ(Remove(free[1]), 0);
  EXPECT_EQ(c.At(0).path, free[0]);
  EXPECT_EQ(c.list.GetCount(), 4);
}

TEST_F(CQDCFListChange, TheRoomOfARemovedFileIsUsedAgain) {
  for (int i = 0; i < 100; ++i) {
    ASSERT_EQ(Remove(kA1), 0);
    ASSERT_EQ(Add(kA1), 0);
  }
  EXPECT_EQ(c.list.GetCount(), 3);
}

TEST_F(CQDCFListChange, ARawItemStandsInTheSlotOfItsNumber) {
  const unsigned char data[4] = {0x2a, 0x01, 9, 0x84};
  EXPECT_EQ(c.list.AddItem(103, data), 0);
  EXPECT_EQ(c.list.GetCount(), 4);
  EXPECT_EQ(c.list.GetDidx(103, 0x12a), 3);
  EXPECT_EQ(c.list.GetCustomBitCount(5), 1);
  EXPECT_EQ(c.list.GetLastIndex(), 10300298) << "the slot took the number";
}

TEST_F(CQDCFListChange, RawItemsAreAppendedInOrder) {
  const unsigned char first[4] = {1, 0, 0, 0};
  const unsigned char second[4] = {2, 0, 0, 0};
  EXPECT_EQ(c.list.AddItem(103, first), 0);
  EXPECT_EQ(c.list.AddItem(103, second), 0);
  EXPECT_EQ(c.list.GetLastIndex(), 10300002);
  EXPECT_EQ(c.list.GetCount(), 5);
}

TEST_F(CQDCFListChange, ARawItemMayTakeASlotThatIsInUse) {
  const unsigned char data[4] = {9, 0, 0, 0};
  EXPECT_EQ(c.list.AddItem(101, data), 0);
  EXPECT_EQ(c.list.GetDidx(101, 9), 1);
  EXPECT_EQ(c.list.GetDidx(101, 1), 1) << "the slot's files go with it";
  EXPECT_EQ(c.list.GetDidx(105, 1), -1);
}

TEST_F(CQDCFListChange, RawItemsWithoutASlotAreRefused) {
  const unsigned char data[4] = {1, 0, 0, 0};
  for (int number : {-2147483647 - 1, -1, 0, 99, 1099, 65636, 2147483647}) {
    EXPECT_EQ(c.list.AddItem(number, data), -1) << number;
  }
  EXPECT_EQ(c.list.AddItem(103, nullptr), -1);
  EXPECT_EQ(c.list.GetCount(), 3);
  EXPECT_EQ(c.list.GetLastIndex(), 10500001);
}

TEST_F(CQDCFListChange, TheLastSlotTakesARawItem) {
  const unsigned char data[4] = {1, 0, 0, 0};
  EXPECT_EQ(c.list.AddItem(1098, data), 0);
  EXPECT_EQ(c.list.GetCount(), 4);
}

TEST_F(CQDCFListChange, CompanionsAreRecordedAndTakenAway) {
  DCFItem* item = c.Find(kA2);
  ASSERT_NE(item, nullptr);
  const struct {
    int type;
    char DCFItem::*field;
    char letter;
  } table[] = {{202, &DCFItem::companionSrw, 'S'},
               {201, &DCFItem::companionWav, 'W'},
               {204, &DCFItem::companionMpo, 'M'}};
  for (const auto& row : table) {
    EXPECT_EQ(c.list.SetObject(c.Path(kA2), row.type, true), 0);
    EXPECT_EQ(item->*row.field, row.letter) << row.type;
    EXPECT_EQ(c.list.SetObject(c.Path(kA2), row.type, false), 0);
    EXPECT_EQ(item->*row.field, ' ') << row.type;
  }
}

TEST_F(CQDCFListChange, ACompanionTouchesNoOtherField) {
  c.list.SetObject(c.Path(kA2), 202, true);
  EXPECT_EQ(c.Find(kA2)->companionWav, 0);
  EXPECT_EQ(c.Find(kA2)->companionMpo, 0);
  EXPECT_EQ(c.Find(kA1)->companionSrw, 0);
}

TEST_F(CQDCFListChange, OtherKindsOfCompanionsChangeNothing) {
  for (int type : {-1, 0, 200, 203, 205}) {
    EXPECT_EQ(c.list.SetObject(c.Path(kA2), type, true), 0) << type;
  }
  EXPECT_EQ(c.Find(kA2)->companionSrw, 0);
  EXPECT_EQ(c.Find(kA2)->companionWav, 0);
  EXPECT_EQ(c.Find(kA2)->companionMpo, 0);
}

TEST_F(CQDCFListChange, AFileThatIsNotHeldTakesNoCompanion) {
  EXPECT_EQ(c.list.SetObject(c.Path("DCIM/100PHOTO/QVX_0009.JPG"), 202, true), -1);
  EXPECT_EQ(c.list.SetObject(c.Path("DCIM/100PHOTO/QVX_0009.JPG"), 999, true), -1);
  EXPECT_EQ(c.list.SetObject(nullptr, 202, true), -1);
  EXPECT_EQ(c.list.SetObject(Arg(""), 202, true), -1);
}

TEST(CQDCFListChangeNothing, WithoutATableNothingIsChanged) {
  CardCatalogue c;
  c.list.Destroy();
  const unsigned char data[4] = {1, 0, 0, 0};
  EXPECT_EQ(c.list.AddFile(c.Path(kA1)), -1);
  EXPECT_EQ(c.list.RemoveFile(c.Path(kA1)), -1);
  EXPECT_EQ(c.list.AddItem(100, data), -1);
  EXPECT_EQ(c.list.SetObject(c.Path(kA1), 202, true), -1);
  EXPECT_EQ(c.list.AddDir(100), -1);
  EXPECT_EQ(c.list.GetCount(), 0);
}

}  // namespace
}  // namespace flm_test
