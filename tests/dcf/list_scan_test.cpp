// The scan of a card: which folders are taken, in which order, and what a scan leaves.
#include <gtest/gtest.h>

#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

TEST(CQDCFListScan, AllFilesAreHeldInTheOrderOfFoldersAndNumbers) {
  CardCatalogue c;
  EXPECT_EQ(c.With({"DCIM/102PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                    "DCIM/100PHOTO/ABC_0001.JPG", "DCIM/101ABCDE/QVX_0009.MP4"}),
            0);
  const Names held = {"DCIM/100PHOTO/ABC_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG",
                      "DCIM/101ABCDE/QVX_0009.MP4", "DCIM/102PHOTO/QVX_0001.JPG"};
  EXPECT_EQ(c.Held(), held);
  EXPECT_EQ(c.list.GetCount(), 4);
}

TEST(CQDCFListScan, PhotoFoldersStandLastAmongTheirNumber) {
  CardCatalogue c;
  c.With(
      {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100ZZZZZ/QVX_0001.JPG", "DCIM/100ABCDE/QVX_0001.JPG"});
  const Names held = {"DCIM/100ABCDE/QVX_0001.JPG", "DCIM/100ZZZZZ/QVX_0001.JPG",
                      "DCIM/100PHOTO/QVX_0001.JPG"};
  EXPECT_EQ(c.Held(), held);
}

// The names of two such folders are one in the catalogue, and so is the folder that both name.
TEST(CQDCFListScan, PhotoFoldersThatDifferInCaseAloneAreTheOneOfCapitalsTwice) {
  CardCatalogue c;
  FakeListings fake(c.card);
  fake.AddFolder("105photo", 2);
  for (const char* folder : {"106ABCDE", "105ABCDE", "105PHOTO", "100PHOTO"}) {
    fake.AddFolder(folder, 1);
  }
  EXPECT_EQ(c.Scan(), 0);
  const Names held = {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/105ABCDE/QVX_0001.JPG",
                      "DCIM/105PHOTO/QVX_0001.JPG", "DCIM/105PHOTO/QVX_0001.JPG",
                      "DCIM/106ABCDE/QVX_0001.JPG"};
  EXPECT_EQ(c.Held(), held);
  EXPECT_EQ(c.list.GetCount(), 5);
}

TEST(CQDCFListScan, FoldersWithBadNamesArePassedOver) {
  CardCatalogue c;
  EXPECT_EQ(c.With({"DCIM/10ABCDEF/QVX_0001.JPG", "DCIM/100PHOT/QVX_0001.JPG",
                    "DCIM/PICTURES/QVX_0001.JPG", "DCIM/.hidden/QVX_0001.JPG",
                    "DCIM/100PHOTOS/QVX_0001.JPG", "DCIM/QVX_0001.JPG", "QVX_0001.JPG"}),
            0);
  EXPECT_EQ(c.list.GetCount(), 0);
  EXPECT_EQ(c.list.AddDir(100), 0) << "no slot was taken";
}

TEST(CQDCFListScan, FoldersBelow99ArePassedOver) {
  CardCatalogue c;
  c.With({"DCIM/098ABCDE/QVX_0001.JPG", "DCIM/000ABCDE/QVX_0001.JPG"});
  EXPECT_EQ(c.ScanWithCamera(), 0);
  EXPECT_EQ(c.list.GetCount(), 0);
}

TEST(CQDCFListScan, OnlyThreeDigitsOfAFolderNameAreItsNumber) {
  CardCatalogue c;
  c.With({"DCIM/1000ABCD/QVX_0001.JPG"});
  EXPECT_EQ(c.Held(), Names{"DCIM/1000ABCD/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetLastIndex(), 10000001);
}

TEST(CQDCFListScan, AFolderNameIsStoredInUpperCase) {
  CardCatalogue c;
  c.card.MakeDir("DCIM/100abcde");
  c.Scan();
  EXPECT_EQ(c.SlotOf("100ABCDE"), 0);
  EXPECT_EQ(c.SlotOf("100abcde"), -1);
}

TEST(CQDCFListScan, CameraFoldersAreTakenOnlyWhenAsked) {
  CardCatalogue c;
  const Names free = {"DCIM/CAMERA/party at the lake.jpg"};
  c.With({"DCIM/CAMERA/party at the lake.jpg", "DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(c.Held(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(c.ScanWithCamera(), 0);
  const Names both = {"DCIM/CAMERA/party at the lake.jpg", "DCIM/100PHOTO/QVX_0001.JPG"};
  EXPECT_EQ(c.Held(), both);
}

TEST(CQDCFListScan, AFolder099IsTreatedLikeCamera) {
  CardCatalogue c;
  c.With({"DCIM/099XXXXX/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetCount(), 0);
  c.ScanWithCamera();
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.list.GetLastIndex(), 9900001);
}

TEST(CQDCFListScan, ANumberedFolderNeedsNoAsking) {
  CardCatalogue c;
  c.With({"DCIM/999ABCDE/QVX_9999.JPG", "DCIM/100ABCDE/QVX_0000.JPG"});
  EXPECT_EQ(c.list.GetCount(), 2);
}

TEST(CQDCFListScan, TheTreeFollowsTheMode) {
  for (int mode : {0, 1, 2, 3, 4, 5, -1}) {
    CardCatalogue c(mode);
    c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
    c.card.MakeFiles("VIDEO/100VIDEO", "QVX_", 1, 3, "MP4");
    EXPECT_EQ(c.Scan(), 0) << mode;
    EXPECT_EQ(c.list.GetCount(), mode == 0 || mode == 4 ? 2 : 3) << mode;
  }
}

TEST(CQDCFListScan, AMissingTreeIsMadeBeforeItIsOpened) {
  CardCatalogue c;
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.card.Tree(), Names{"DCIM/"});
}

TEST(CQDCFListScan, TheModesOneAndThreeMakeAnotherTreeThanTheyScan) {
  for (int mode : {1, 3}) {
    CardCatalogue c(mode);
    EXPECT_EQ(c.Scan(), -2) << mode;
    EXPECT_EQ(c.card.Tree(), Names{"DCIM/"}) << mode;
  }
}

TEST(CQDCFListScan, AMissingRootCannotBeOpened) {
  CardCatalogue c;
  c.list.SetBaseURI(c.Path("missing"));
  EXPECT_EQ(c.Scan(), -2);
  EXPECT_TRUE(c.card.Tree().empty());
}

TEST(CQDCFListScan, ATreeThatIsAFileLeavesAnEmptyTable) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.First();
  c.card.Remove("DCIM");
  c.card.MakeFile("DCIM");
  EXPECT_EQ(c.Scan(), -2);
  EXPECT_EQ(c.list.GetCount(), 0);
  EXPECT_TRUE(c.Held().empty());
  EXPECT_EQ(c.First().result, -1);
  EXPECT_EQ(c.list.AddDir(100), 0);
}

TEST(CQDCFListScan, WithoutARootNothingIsReadOrMade) {
  static int calls;
  calls = 0;
  CardCatalogue c;
  c.list.Create();
  flm::Os().Mkdir = [](const char*, mode_t) { return ++calls, -1; };
  flm::Os().Opendir = [](const char*) { return ++calls, static_cast<DIR*>(nullptr); };
  EXPECT_EQ(c.Scan(), -1);
  EXPECT_EQ(calls, 0);
  EXPECT_EQ(c.list.GetCount(), 0);
}

TEST(CQDCFListScan, AFileNamedLikeAFolderIsAFolderWithoutFiles) {
  CardCatalogue c;
  EXPECT_EQ(c.With({"DCIM/101PHOTO", "DCIM/100PHOTO/QVX_0001.JPG"}), 0);
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.SlotOf("101PHOTO"), 1);
}

TEST(CQDCFListScan, ARescanForgetsWhatHasGone) {
  CardCatalogue c;
  c.With(
      {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0002.JPG"});
  c.card.Remove("DCIM/100PHOTO");
  c.card.Remove("DCIM/101PHOTO/QVX_0001.JPG");
  c.With({"DCIM/105PHOTO/QVX_0007.JPG"});
  const Names held = {"DCIM/101PHOTO/QVX_0002.JPG", "DCIM/105PHOTO/QVX_0007.JPG"};
  EXPECT_EQ(c.Held(), held);
  EXPECT_EQ(c.list.GetCount(), 2);
}

TEST(CQDCFListScan, ARescanForgetsTheMarks) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.SetBit("DCIM/100PHOTO/QVX_0001.JPG", 5);
  c.Scan();
  EXPECT_EQ(c.list.GetCustomBitCount(5), 0);
}

TEST(CQDCFListScan, ARescanLeavesNoCursor) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.SetBit("DCIM/100PHOTO/QVX_0001.JPG", 5);
  c.BitFirst(5);
  c.First();
  c.Scan();
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.BitNext(5).result, -1);
}

TEST(CQDCFListScan, AQuickScanReadsTheNewestFolderWithFiles) {
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  c.card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, 2, "JPG");
  c.card.MakeDir("DCIM/102PHOTO");
  c.card.MakeDir("DCIM/103PHOTO");
  EXPECT_EQ(c.ScanNewest(), 0);
  EXPECT_EQ(c.list.GetCount(), 2);
  const Names held = {"DCIM/101PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0002.JPG"};
  EXPECT_EQ(c.Held(), held);
}

TEST(CQDCFListScan, AQuickScanTakesPhotoFirstAmongEqualNumbers) {
  CardCatalogue c;
  c.card.MakeFile("DCIM/100ABCDE/QVX_0001.JPG");
  c.card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  c.ScanNewest();
  EXPECT_EQ(c.Held(), Names{"DCIM/100PHOTO/QVX_0002.JPG"});
}

TEST(CQDCFListScan, OnlyTheValueOneAsksForAQuickScan) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"});
  for (int stopAtFirst : {0, 2, -1}) {
    c.list.Listup(stopAtFirst, false);
    EXPECT_EQ(c.list.GetCount(), 2) << stopAtFirst;
  }
}

TEST(CQDCFListScan, AnEmptyFolderNeverStopsTheScan) {
  CardCatalogue c;
  c.card.MakeDir("DCIM/105PHOTO");
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST(CQDCFListScan, TheNewestNumberIsKnownAfterwards) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0009.JPG", "DCIM/104PHOTO/QVX_0002.JPG"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10400002);
}

TEST(CQDCFListScan, TheSeriesValueTakesPartOnlyInSeriesMode) {
  CardCatalogue c;
  int stored = 12300045;
  c.list.BackupSeriesValue(&stored);
  c.With({"DCIM/100PHOTO/QVX_0003.JPG"});
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10000003);
  c.list.SetSeriesMode(true);
  c.Scan();
  EXPECT_EQ(c.list.GetStoredLastIndex(), 12300045);
}

TEST(CQDCFListScan, SortingItemsOfAScanChangesNothing) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0002.JPG", "DCIM/100PHOTO/QVX_0001.JPG"});
  const Names before = c.Held();
  EXPECT_EQ(c.list.SortItem(), 0);
  EXPECT_EQ(c.Held(), before);
}

TEST(CQDCFListScan, SortingItemsSortsAFolderThatWasMadeSince) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_9999.JPG"});
  ASSERT_EQ(c.New().path, "DCIM/101PHOTO/QVX_0001.JPG");
  ASSERT_EQ(c.list.AddFile(c.Path("DCIM/101PHOTO/QVX_0000.JPG")), 0);
  ASSERT_EQ(c.list.AddFile(c.Path("DCIM/100PHOTO/QVX_0001.JPG")), 0);
  EXPECT_EQ(c.list.SortItem(), 0);
  EXPECT_EQ(c.Held(), (Names{"DCIM/100PHOTO/QVX_9999.JPG", "DCIM/100PHOTO/QVX_0001.JPG",
                             "DCIM/101PHOTO/QVX_0000.JPG", "DCIM/101PHOTO/QVX_0001.JPG"}))
      << "a folder that was scanned counts as sorted";
}

TEST(CQDCFListScan, AScanLosesNoDescriptor) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"});
  const int before = FdCount();
  c.Scan();
  c.card.Remove("DCIM");
  c.card.MakeFile("DCIM");
  c.Scan();
  EXPECT_EQ(FdCount(), before);
}

TEST(CQDCFListScan, AnUncreatedCatalogueRefusesToScan) {
  CardCatalogue c;
  c.card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG");
  CQDCFList list;
  list.SetBaseURI(c.card.Root().c_str());
  list.SetMode(4);
  EXPECT_EQ(list.Listup(0, false), -1);
  EXPECT_EQ(list.GetCount(), 0);
}

}  // namespace
}  // namespace flm_test
