// The next name: which number it carries, what is made for it, and what is refused.
#include <gtest/gtest.h>

#include "platform/preference.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

long StoredSeries() { return pref_get_long(1, 856); }

// A catalogue of a card with these files, whose newest number is set by force.
void SetNewest(CardCatalogue& c, const std::string& relative) {
  ASSERT_EQ(c.list.SetLastIndex(c.Path(relative), true), 0);
}

TEST(CQDCFListNewName, AnEmptyCardBeginsWithFolder100) {
  for (int mode : {0, 4}) {
    CardCatalogue c(mode);
    c.Scan();
    EXPECT_EQ(c.New(), (Step{0, "DCIM/100PHOTO/QVX_0001.JPG"})) << mode;
    EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
    EXPECT_EQ(c.list.GetCount(), 1);
    EXPECT_TRUE(c.card.Exists("DCIM/100PHOTO"));
    EXPECT_FALSE(c.card.Exists("DCIM/100PHOTO/QVX_0001.JPG")) << "the caller writes the file";
  }
}

TEST(CQDCFListNewName, NamesFollowTheNewestNumber) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0012.JPG"});
  EXPECT_EQ(c.New().path, "DCIM/105PHOTO/QVX_0013.JPG");
  EXPECT_EQ(c.New("PHOTO", false, "ABC_", "MP4").path, "DCIM/105PHOTO/ABC_0014.MP4");
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500014);
  const Names held = {"DCIM/105PHOTO/QVX_0012.JPG", "DCIM/105PHOTO/QVX_0013.JPG",
                      "DCIM/105PHOTO/ABC_0014.MP4"};
  EXPECT_EQ(c.Held(), held);
}

TEST(CQDCFListNewName, TheNumberFollowsTheStoredOneAndNotTheCard) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0012.JPG"});
  SetNewest(c, "DCIM/105PHOTO/QVX_0011.JPG");
  EXPECT_EQ(c.New().path, "DCIM/105PHOTO/QVX_0012.JPG");
  EXPECT_EQ(c.list.GetCount(), 2);
}

TEST(CQDCFListNewName, AFullFolderIsFollowedByTheNext) {
  CardCatalogue c;
  c.With({"DCIM/100ABCDE/QVX_9999.JPG"});
  EXPECT_EQ(c.New("ABCDE").path, "DCIM/101ABCDE/QVX_0001.JPG");
  EXPECT_TRUE(c.card.Exists("DCIM/101ABCDE"));
}

TEST(CQDCFListNewName, AFolderOfTheNumberUnderAnotherNameIsPassedOver) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0012.JPG"});
  EXPECT_EQ(c.New().path, "DCIM/106PHOTO/QVX_0001.JPG");
}

TEST(CQDCFListNewName, AFolderOfTheNumberUnderTheRightNameIsKept) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0012.JPG", "DCIM/105PHOTO/QVX_0003.JPG"});
  EXPECT_EQ(c.New("ABCDE").path, "DCIM/105ABCDE/QVX_0004.JPG");
  EXPECT_EQ(c.New("PHOTO").path, "DCIM/105PHOTO/QVX_0005.JPG");
}

TEST(CQDCFListNewName, OnlyOneFolderIsPassedOver) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0012.JPG", "DCIM/106ABCDE/QVX_0012.JPG"});
  SetNewest(c, "DCIM/105ABCDE/QVX_0012.JPG");
  EXPECT_EQ(c.New().path, "DCIM/106PHOTO/QVX_0001.JPG");
}

TEST(CQDCFListNewName, ANumberWithoutAFolderNeedsNoStep) {
  CardCatalogue c;
  c.With({"DCIM/105ABCDE/QVX_0012.JPG"});
  SetNewest(c, "DCIM/200PHOTO/QVX_0041.JPG");
  EXPECT_EQ(c.New().path, "DCIM/200PHOTO/QVX_0042.JPG");
}

TEST(CQDCFListNewName, TheCameraFolderIsNeverNumberedInto) {
  CardCatalogue c;
  c.With({"DCIM/CAMERA/another party.jpg", "DCIM/CAMERA/party at the lake.jpg"});
  c.ScanWithCamera();
  ASSERT_EQ(c.list.GetStoredLastIndex(), 9900001);
  EXPECT_EQ(c.New().path, "DCIM/100PHOTO/QVX_0002.JPG");
}

TEST(CQDCFListNewName, AFolderOf8CharactersBeyondTheDigitsIsComparedWhole) {
  CardCatalogue c;
  c.With({"DCIM/1000ABCD/QVX_0001.JPG"});
  EXPECT_EQ(c.New("0ABCD").path, "DCIM/1000ABCD/QVX_0002.JPG");
}

// What must hold after a request that found no number.
void ExpectNoNumberLeft(CardCatalogue& c, const char* suffix = "PHOTO") {
  const Names tree = c.card.Tree();
  const int count = c.list.GetCount();
  const int last = c.list.GetStoredLastIndex();
  pref_set_long(1, 856, 5);
  EXPECT_EQ(c.New(suffix, true).result, -9999);
  EXPECT_EQ(c.card.Tree(), tree);
  EXPECT_EQ(c.list.GetCount(), count);
  EXPECT_EQ(c.list.GetStoredLastIndex(), last);
  EXPECT_EQ(StoredSeries(), 5);
}

TEST(CQDCFListNewName, TheLastNumberIsTheLast) {
  CardCatalogue c;
  c.With({"DCIM/999PHOTO/QVX_9998.JPG"});
  EXPECT_EQ(c.New().path, "DCIM/999PHOTO/QVX_9999.JPG");
  EXPECT_EQ(c.list.GetStoredLastIndex(), 99909999) << "the number itself does not begin anew";
  EXPECT_EQ(StoredSeries(), 10000000);
  ExpectNoNumberLeft(c);
}

TEST(CQDCFListNewName, AFullCardHasNoNumberLeft) {
  CardCatalogue c;
  c.With({"DCIM/999ABCDE/QVX_0001.JPG"});
  ExpectNoNumberLeft(c);
  ExpectNoNumberLeft(c, "ABCDE");
}

TEST(CQDCFListNewName, Folder999UnderAnotherNameOnlyLeavesNoNumber) {
  CardCatalogue c;
  c.With({"DCIM/999ABCDE/QVX_0001.JPG"});
  SetNewest(c, "DCIM/999PHOTO/QVX_0005.JPG");
  ExpectNoNumberLeft(c);
}

TEST(CQDCFListNewName, AStoredSeriesValueIsFollowed) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0003.JPG"});
  c.list.SetSeriesMode(true);
  pref_set_long(1, 856, 12300045);
  EXPECT_EQ(c.New().path, "DCIM/123PHOTO/QVX_0046.JPG");
  EXPECT_EQ(StoredSeries(), 12300046);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 12300046);
}

TEST(CQDCFListNewName, WithoutSeriesTheStoredValueIsOnlyWritten) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0003.JPG"});
  pref_set_long(1, 856, 12300045);
  EXPECT_EQ(c.New().path, "DCIM/100PHOTO/QVX_0004.JPG");
  EXPECT_EQ(StoredSeries(), 10000004);
  c.list.SetSeriesMode(true);
  pref_set_long(1, 856, 12300045);
  EXPECT_EQ(c.New("PHOTO", true).path, "DCIM/100PHOTO/QVX_0005.JPG");
  EXPECT_EQ(StoredSeries(), 10000005);
}

TEST(CQDCFListNewName, ASeriesAcrossCardsGoesOn) {
  CardCatalogue first;
  first.list.SetSeriesMode(true);
  first.With({"DCIM/104PHOTO/QVX_0007.JPG"});
  EXPECT_EQ(first.New().path, "DCIM/104PHOTO/QVX_0008.JPG");
  CardCatalogue second;
  second.list.SetSeriesMode(true);
  second.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(second.New().path, "DCIM/104PHOTO/QVX_0009.JPG");
}

TEST(CQDCFListNewName, TheNewFileBecomesCurrent) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0003.JPG"});
  const std::string path = c.New().path;
  EXPECT_EQ(c.Cur().path, path);
  EXPECT_EQ(c.Prev().path, "DCIM/100PHOTO/QVX_0003.JPG");
}

TEST(CQDCFListNewName, TheNewItemIsEnabledNamedAndDated) {
  CardCatalogue c;
  c.Scan();
  flm::Os().Time = [](time_t*) -> time_t { return 1500000007; };
  c.New("PHOTO", false, "ABC_", "MP4");
  DCFItem* item = c.Find("DCIM/100PHOTO/ABC_0001.MP4");
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(c.Bit("DCIM/100PHOTO/ABC_0001.MP4", 0));
  EXPECT_STREQ(item->fileName, "ABC_0001.MP4");
  EXPECT_EQ(std::string(item->prefixChars, 4), "ABC_");
  EXPECT_EQ(std::string(item->extChars, 3), "MP4");
  EXPECT_EQ(item->fileNumber, 1);
  EXPECT_EQ(item->dirNumber, 100);
  EXPECT_EQ(item->fileTime, 1500000007u);
  c.First();
  EXPECT_EQ(c.time, 1500000007u);
}

TEST(CQDCFListNewName, ANewItemCarriesNoMarks) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.SetCustomBitAll(5, true);
  c.list.SetCustomInfoAll(14, 9);
  c.list.RemoveFile(c.Path("DCIM/100PHOTO/QVX_0001.JPG"));
  const std::string path = c.New().path;
  for (int bit = 1; bit < 8; ++bit) EXPECT_FALSE(c.Bit(path, bit)) << bit;
  for (int byte : {2, 11, 12, 13, 14, 15}) EXPECT_EQ(c.Info(path, byte), 0) << byte;
}

TEST(CQDCFListNewName, AMovieCardSpellsFoldersWithVideo) {
  CardCatalogue c(2);
  c.Scan();
  EXPECT_EQ(c.New("VIDEO", false, "QVX_", "MP4"), (Step{0, "VIDEO/100VIDEO/QVX_0001.MP4"}));
  EXPECT_TRUE(c.card.Exists("VIDEO/100VIDEO"));
  EXPECT_EQ(c.New("ABCDE", false, "QVX_", "MP4").path, "VIDEO/101VIDEO/QVX_0001.MP4");
  EXPECT_TRUE(c.card.Exists("VIDEO/101ABCDE")) << "the folder itself has the suffix asked for";
}

TEST(CQDCFListNewName, OtherModesGiveTheBareName) {
  for (int mode : {1, 3, 5}) {
    CardCatalogue c(mode);
    c.card.MakeDir("VIDEO");
    c.Scan();
    EXPECT_EQ(c.New("VIDEO", false, "QVX_", "MP4"), (Step{0, "QVX_0001.MP4"})) << mode;
    EXPECT_TRUE(c.card.Exists("VIDEO/100VIDEO"));
    EXPECT_EQ(c.list.GetCount(), 1);
    EXPECT_EQ(c.list.GetStoredLastIndex(), 10000001);
    EXPECT_EQ(c.Cur().result, -1) << "a bare name is no path that the cursor could go to";
  }
}

TEST(CQDCFListNewName, APlainStillCardSpellsTheSuffixAskedFor) {
  CardCatalogue c(0);
  c.With({"DCIM/105ABCDE/QVX_0001.JPG"});
  EXPECT_EQ(c.New("ABCDE").path, "DCIM/105ABCDE/QVX_0002.JPG");
}

TEST(CQDCFListNewName, AFolderThatCannotBeMadeStopsNothing) {
  CardCatalogue c;
  c.Scan();
  flm::Os().Mkdir = [](const char*, mode_t) { return -1; };
  EXPECT_EQ(c.New(), (Step{0, "DCIM/100PHOTO/QVX_0001.JPG"}));
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_FALSE(c.card.Exists("DCIM/100PHOTO"));
}

// The count of slots runs ahead by one for each slot that had never been used: the place of the
// next folder shows it.
TEST(CQDCFListNewName, ASlotNeverUsedBeforeCountsTwice) {
  CardCatalogue c;
  c.Scan();
  c.New();
  EXPECT_EQ(c.list.AddDir(500), 2);
}

TEST(CQDCFListNewName, ASlotUsedBeforeCountsOnce) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.card.Remove("DCIM/100PHOTO");
  c.Scan();
  c.New();
  EXPECT_EQ(c.list.AddDir(500), 1);
}

TEST(CQDCFListNewName, ASecondNameInAFolderCountsNoSlot) {
  CardCatalogue c;
  c.Scan();
  c.New();
  c.New();
  EXPECT_EQ(c.list.AddDir(500), 2);
}

TEST(CQDCFListNewName, WalksComeByTheNewFilesOfNewFolders) {
  CardCatalogue c;
  c.Scan();
  Names named;
  for (const char* suffix : {"AAAAA", "BBBBB", "CCCCC", "CCCCC"}) {
    named.push_back(c.New(suffix).path);
  }
  const Names expected = {"DCIM/100AAAAA/QVX_0001.JPG", "DCIM/101BBBBB/QVX_0001.JPG",
                          "DCIM/102CCCCC/QVX_0001.JPG", "DCIM/102CCCCC/QVX_0002.JPG"};
  EXPECT_EQ(named, expected);
  EXPECT_EQ(c.Walked(), expected);
  EXPECT_EQ(c.WalkedBack(), Names(expected.rbegin(), expected.rend()));
}

TEST(CQDCFListNewName, TheIndexIsGivenByTheInnerOperation) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0012.JPG"});
  pref_set_long(1, 856, 5);
  char out[flm::kNewNameSize] = "";
  EXPECT_EQ(c.list.GetNewFileIndex(Arg("QVX_"), Arg("JPG"), out, sizeof(out), Arg("PHOTO")),
            10500013);
  EXPECT_EQ(c.Relative(out), "DCIM/105PHOTO/QVX_0013.JPG");
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500013);
  EXPECT_EQ(StoredSeries(), 5) << "only the whole operation stores it";
  EXPECT_EQ(c.Cur().result, -1) << "nor does the cursor move";
}

TEST(CQDCFListNewName, AnIndexCanBeEnteredDirectly) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0012.JPG"});
  char out[flm::kNewNameSize] = "";
  EXPECT_EQ(c.list.GetNewFileIndex_SetInfo(20000007, Arg("QVX_"), Arg("JPG"), out, sizeof(out),
                                           Arg("ABCDE")),
            0);
  EXPECT_EQ(c.Relative(out), "DCIM/200ABCDE/QVX_0007.JPG");
  EXPECT_EQ(c.list.GetCount(), 2);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10500012) << "entering a number does not store it";
  EXPECT_TRUE(c.card.Exists("DCIM/200ABCDE"));
}

}  // namespace
}  // namespace flm_test
