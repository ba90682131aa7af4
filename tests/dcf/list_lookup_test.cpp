// From paths to numbers, slots, items and positions.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kA1[] = "DCIM/100PHOTO/QVX_0001.JPG";
constexpr char kA2[] = "DCIM/100PHOTO/QVX_0002.JPG";
constexpr char kB1[] = "DCIM/105ABCDE/QVX_0001.JPG";

struct Numbers {
  int dir;
  short file;
  bool operator==(const Numbers& other) const { return dir == other.dir && file == other.file; }
};
std::ostream& operator<<(std::ostream& out, const Numbers& n) {
  return out << n.dir << "/" << n.file;
}

Numbers NumbersOf(const char* path, int mode = 4, const char* root = "/mnt/mmc") {
  CQDCFList list;
  list.Create();
  list.SetBaseURI(root);
  list.SetMode(mode);
  Numbers numbers = {-1, -1};
  list.GetNum(path, &numbers.dir, &numbers.file);
  return numbers;
}

TEST(CQDCFListLookup, NumbersStandBehindTheRootAndTheTree) {
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_0042.JPG"), (Numbers{105, 42}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/999PHOTO/QVX_9999.JPG", 0), (Numbers{999, 9999}));
  EXPECT_EQ(NumbersOf("/opt/sd0/DCIM/100PHOTO/12340001.MP4", 4, "/opt/sd0"), (Numbers{100, 1}));
  EXPECT_EQ(NumbersOf("./DCIM/100PHOTO/QVX_0007.JPG", 4, "."), (Numbers{100, 7}));
}

TEST(CQDCFListLookup, NumbersStandOnePlaceFurtherInTheMovieTree) {
  for (int mode : {1, 2, 3, 5}) {
    EXPECT_EQ(NumbersOf("/mnt/mmc/VIDEO/100VIDEO/QVX_0042.MP4", mode), (Numbers{100, 42})) << mode;
  }
}

TEST(CQDCFListLookup, NumbersAreReadAtTheirPlaceWhateverStandsBeforeIt) {
  EXPECT_EQ(NumbersOf("/one/two.tree.105ABCDE.QVX_0042.JPG"), (Numbers{105, 42}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_00421234"), (Numbers{105, 42}));
}

TEST(CQDCFListLookup, ANumberThatThePathIsTooShortForStays) {
  EXPECT_EQ(NumbersOf(""), (Numbers{-1, -1}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/10"), (Numbers{-1, -1}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105"), (Numbers{105, -1}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_004"), (Numbers{105, -1}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_0042"), (Numbers{105, 42}));
}

TEST(CQDCFListLookup, APathWithCameraInItIs99And0) {
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/CAMERA/party.jpg"), (Numbers{99, 0}));
  EXPECT_EQ(NumbersOf("CAMERA"), (Numbers{99, 0}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_0042.JPG/CAMERA", 2), (Numbers{99, 0}));
  EXPECT_EQ(NumbersOf("/mnt/mmc/DCIM/105ABCDE/QVX_0042.JPG/camera"), (Numbers{105, 42}));
}

TEST(CQDCFListLookup, NumbersNeedAPathAndTwoPlaces) {
  CQDCFList list;
  list.SetMode(4);
  Text path("/DCIM/105ABCDE/QVX_0042.JPG");
  int dir = 7;
  short file = 8;
  list.GetNum(static_cast<const char*>(nullptr), &dir, &file);
  list.GetNum(path, nullptr, &file);
  list.GetNum(path, &dir, nullptr);
  EXPECT_EQ(dir, 7);
  EXPECT_EQ(file, 8);
}

TEST(CQDCFListLookup, AKeyIsMadeOfTheNumbersOfAPath) {
  CardCatalogue c;
  EXPECT_EQ(c.list.GetURIToKey(c.Path("DCIM/105ABCDE/QVX_0042.JPG")), 10500042);
  EXPECT_EQ(c.list.GetURIToKey(c.Path("DCIM/CAMERA/party.jpg")), 9900000);
  EXPECT_LT(c.list.GetURIToKey(Arg("")), 0);
  EXPECT_LT(c.list.GetURIToKey(nullptr), 0);
}

class CQDCFListLookupTest : public testing::Test {
 protected:
  CQDCFListLookupTest() { c.With({kA1, kA2, kB1}); }

  CardCatalogue c;
};

TEST_F(CQDCFListLookupTest, AFolderIsFoundByItsNameInThePath) {
  EXPECT_EQ(c.list.GetDidx(100, c.Path(kA1)), 0);
  EXPECT_EQ(c.list.GetDidx(105, c.Path(kB1)), 1);
  EXPECT_EQ(c.list.GetDidx(105, c.Path("DCIM/106ABCDE/QVX_0001.JPG")), -1);
  EXPECT_EQ(c.list.GetDidx(-7, c.Path(kB1)), 1) << "the number is not looked at";
}

TEST_F(CQDCFListLookupTest, SixCharactersOfAFolderNameAreEnough) {
  EXPECT_EQ(c.SlotOf("105ABCXX"), 1);
  EXPECT_EQ(c.SlotOf("105ABXXX"), -1);
  EXPECT_EQ(c.SlotOf("105abcde"), -1);
}

TEST_F(CQDCFListLookupTest, TheFirstFolderThatSharesSixCharactersIsTaken) {
  c.With({"DCIM/105ABCXX/QVX_0001.JPG"});
  EXPECT_EQ(c.SlotOf("105ABCXX"), 1);
}

TEST_F(CQDCFListLookupTest, OnlyTheLastTwoSlashesCount) {
  EXPECT_EQ(c.list.GetDidx(0, Arg("/somewhere/else/100PHOTO/x")), 0);
  EXPECT_EQ(c.list.GetDidx(0, Arg("/somewhere/else/100PHOTO/x/y")), -1);
  EXPECT_EQ(c.list.GetDidx(0, Arg("a/100PHOTO/and a file of a long name")), 0);
  EXPECT_EQ(c.list.GetDidx(0, Arg("100PHOTO/and a file of a long name")), -1);
}

TEST_F(CQDCFListLookupTest, APathBelow24CharactersIsNeverFound) {
  const std::string path = "/a/100PHOTO/QVX_0001.JPG";
  ASSERT_EQ(path.size(), 24u);
  EXPECT_EQ(c.list.GetDidx(100, Arg(path)), 0);
  EXPECT_EQ(c.list.GetDidx(100, Arg(path.substr(1))), -1);
  EXPECT_EQ(c.list.GetDidx(100, Arg("")), -1);
  EXPECT_EQ(c.list.GetDidx(100, nullptr), -1);
}

TEST_F(CQDCFListLookupTest, OddPathsFindNoFolder) {
  for (const char* path :
       {"////////////////////////", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa", "aaaaaaaaaaaaaaaaaaaaaa/b/c",
        "aaaaaaaaaaaaaaaaaaaaaaaaaa//", "/aaaaaaaaaaaaaaaaaaaaaaaaaaa"}) {
    EXPECT_EQ(c.list.GetDidx(100, Arg(path)), -1) << path;
  }
}

TEST_F(CQDCFListLookupTest, TheCameraFolderIsFoundByItsPath) {
  c.With({"DCIM/CAMERA/party at the lake.jpg"});
  c.ScanWithCamera();
  EXPECT_EQ(c.list.GetDidx(99, c.Path("DCIM/CAMERA/party at the lake.jpg")), 0);
}

TEST_F(CQDCFListLookupTest, AFolderIsFoundByANumberOfItsFiles) {
  c.With({"DCIM/105PHOTO/QVX_0008.JPG"});
  EXPECT_EQ(c.list.GetDidx(100, 2), 0);
  EXPECT_EQ(c.list.GetDidx(105, 1), 1);
  EXPECT_EQ(c.list.GetDidx(105, 8), 2);
  EXPECT_EQ(c.list.GetDidx(105, 2), -1);
  EXPECT_EQ(c.list.GetDidx(106, 1), -1);
  EXPECT_EQ(c.list.GetDidx(-1, 0), -1);
  EXPECT_EQ(c.list.GetDidx(100, -1), -1);
}

TEST_F(CQDCFListLookupTest, AnItemIsFoundByFolderNumberFileNumberAndFreeCharacters) {
  DCFItem* item = c.Find(kB1);
  ASSERT_NE(item, nullptr);
  EXPECT_EQ(c.list.GetDcfNum(item), 10500001);
  EXPECT_EQ(c.Find("DCIM/105XXXXX/QVX_0001.JPG"), item) << "the folder's name is not looked at";
  EXPECT_EQ(c.Find("DCIM/105ABCDE/QVX_0001.MP4"), item) << "nor the extension";
  EXPECT_EQ(c.Find("DCIM/105ABCDE/qvx_0001.JPG"), item) << "the free characters in either case";
  EXPECT_EQ(c.Find("DCIM/105ABCDE/ABC_0001.JPG"), nullptr);
  EXPECT_EQ(c.Find("DCIM/105ABCDE/QVX_0002.JPG"), nullptr);
  EXPECT_EQ(c.Find("DCIM/106ABCDE/QVX_0001.JPG"), nullptr);
}

TEST_F(CQDCFListLookupTest, FindingLeavesThePathAsItIs) {
  Text path = c.Path("DCIM/105ABCDE/qvx_0001.JPG");
  c.list.FindItem(path);
  EXPECT_EQ(path.Now(), c.card.Path("DCIM/105ABCDE/qvx_0001.JPG"));
}

TEST_F(CQDCFListLookupTest, FoldersOfOneNumberAreSearchedInTurn) {
  c.With({"DCIM/105PHOTO/QVX_0008.JPG"});
  ASSERT_NE(c.Find("DCIM/105ABCDE/QVX_0008.JPG"), nullptr);
}

TEST_F(CQDCFListLookupTest, OfOneNumberAndPrefixTheFirstIsFoundWhateverItsExtension) {
  c.With({"DCIM/105ABCDE/QVX_0001.MP4"});
  const DCFItem* const found = c.Find("DCIM/105ABCDE/QVX_0001.MP4");
  ASSERT_NE(found, nullptr);
  EXPECT_EQ(std::string(found->extChars, 3), "JPG");
}

TEST_F(CQDCFListLookupTest, OddPathsFindNoItem) {
  for (const char* path : {"", "x", "/////////////", "QVX_0001.JPG", "CAMERA", "0001.JPG"}) {
    EXPECT_EQ(c.list.FindItem(Arg(path)), nullptr) << path;
  }
  EXPECT_EQ(c.list.FindItem(nullptr), nullptr);
}

TEST_F(CQDCFListLookupTest, AFileThatIsHeldAnswersItsNumber) {
  EXPECT_EQ(c.list.IsExist(c.Path(kA2)), 2);
  EXPECT_EQ(c.list.IsExist(c.Path(kB1)), 1);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/QVX_0003.JPG")), -1);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/ABC_0001.JPG")), -1);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/QVX_0001.MP4")), -1);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/300PHOTO/QVX_0001.JPG")), -1);
  EXPECT_EQ(c.list.IsExist(Arg("")), -1);
  EXPECT_EQ(c.list.IsExist(nullptr), -1);
}

TEST_F(CQDCFListLookupTest, TheCatalogueAndNotTheCardIsAsked) {
  c.card.Remove(kA1);
  c.card.MakeFile("DCIM/100PHOTO/QVX_0005.JPG");
  EXPECT_EQ(c.list.IsExist(c.Path(kA1)), 1);
  EXPECT_EQ(c.list.IsExist(c.Path("DCIM/100PHOTO/QVX_0005.JPG")), -1);
}

TEST_F(CQDCFListLookupTest, APositionCountsTheFilesOfEarlierFolders) {
  EXPECT_EQ(c.list.GetListIndex(c.Path(kA1)), 0);
  EXPECT_EQ(c.list.GetListIndex(c.Path(kA2)), 1);
  EXPECT_EQ(c.list.GetListIndex(c.Path(kB1)), 2);
}

TEST_F(CQDCFListLookupTest, PositionsOfOneNumberAreToldApartByTheExtension) {
  c.With({"DCIM/100PHOTO/QVX_0001.MP4"});
  EXPECT_EQ(c.list.GetListIndex(c.Path(kA1)), 0);
  EXPECT_EQ(c.list.GetListIndex(c.Path("DCIM/100PHOTO/QVX_0001.MP4")), 1);
  EXPECT_EQ(c.list.GetListIndex(c.Path(kB1)), 3);
}

TEST_F(CQDCFListLookupTest, AFileThatIsNotHeldHasNoPosition) {
  for (const char* file : {"DCIM/100PHOTO/QVX_0003.JPG", "DCIM/100PHOTO/QVX_0001.AVI",
                           "DCIM/300PHOTO/QVX_0001.JPG", "DCIM/105ABCDE/QVX_0002.JPG"}) {
    EXPECT_EQ(c.list.GetListIndex(c.Path(file)), -1) << file;
  }
  EXPECT_EQ(c.list.GetListIndex(Arg("")), -1);
  EXPECT_EQ(c.list.GetListIndex(nullptr), -1);
}

TEST_F(CQDCFListLookupTest, PositionsAgreeWithTheWalk) {
  c.With({"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.jpg"});
  c.ScanWithCamera();
  const Names held = c.Held();
  ASSERT_EQ(held.size(), 5u);
  for (size_t i = 0; i < held.size(); ++i) {
    EXPECT_EQ(c.list.GetListIndex(c.Path(held[i])), static_cast<int>(i)) << held[i];
  }
}

TEST_F(CQDCFListLookupTest, ProtectionIsReadFromTheCard) {
  EXPECT_EQ(c.list.IsProtect(c.Path(kA1)), 0);
  c.card.SetReadOnly(kA1, true);
  EXPECT_EQ(c.list.IsProtect(c.Path(kA1)), 1);
  EXPECT_EQ(c.list.IsProtect(c.Path("DCIM/100PHOTO/QVX_0003.JPG")), 0);
}

// No byte behind the end of a path may be read; a checker of memory sees it when one is.
TEST_F(CQDCFListLookupTest, EveryBeginningOfAPathIsSafe) {
  for (const std::string& whole : {c.card.Path(kA1), c.card.Path("DCIM/CAMERA/party.jpg")}) {
    for (size_t length = 0; length < whole.size(); ++length) {
      const std::string path = whole.substr(0, length);
      EXPECT_EQ(c.list.FindItem(Arg(path)), nullptr) << path;
      EXPECT_EQ(c.list.IsExist(Arg(path)), -1) << path;
      EXPECT_LT(c.list.SetCurFile(Arg(path)), 0) << path;
      EXPECT_NE(c.list.RemoveFile(Arg(path)), 0) << path;
      EXPECT_EQ(c.list.GetListIndex(Arg(path)), -1) << path;
    }
  }
  EXPECT_EQ(c.Held().size(), 3u);
}

TEST_F(CQDCFListLookupTest, APathOfAnyLengthIsSafe) {
  for (const std::string& path :
       {std::string(100000, 'a'), std::string(100000, '/'),
        c.card.Path(kA1) + std::string(999, 'x'), "/" + std::string(5000, 'b') + "/QVX_0001.JPG"}) {
    EXPECT_EQ(c.list.IsExist(Arg(path)), -1);
    EXPECT_EQ(c.SetBit(path, 5), -1);
    EXPECT_LT(c.list.AddFile(Arg(path)), 0);
    EXPECT_LT(c.list.RemoveFile(Arg(path)), 0);
    c.list.FindItem(Arg(path));
    c.list.GetListIndex(Arg(path));
  }
  EXPECT_EQ(c.Held().size(), 3u);
}

}  // namespace
}  // namespace flm_test
