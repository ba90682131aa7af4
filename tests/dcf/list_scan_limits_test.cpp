// The limits of a scan: 32000 files, 999 folders, names and roots of the greatest length.
#include <gtest/gtest.h>

#include "platform/preference.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

TEST(CQDCFListScanLimits, NewestFoldersComeFirstUntil32000FilesAreHeld) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (const char* name : {"100PHOTO", "101PHOTO", "102PHOTO", "103PHOTO", "104PHOTO"}) {
    fake.AddFolder(name, 9000);
  }
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.list.GetCount(), 32000);
  EXPECT_EQ(c.At(0).path, "DCIM/101PHOTO/QVX_0001.JPG");
  EXPECT_EQ(c.At(4999).path, "DCIM/101PHOTO/QVX_5000.JPG");
  EXPECT_EQ(c.At(5000).path, "DCIM/102PHOTO/QVX_0001.JPG");
  EXPECT_EQ(c.At(31999).path, "DCIM/104PHOTO/QVX_9000.JPG");
  EXPECT_EQ(c.At(32000).result, -1);
}

TEST(CQDCFListScanLimits, AFullCatalogueNamesNothingNew) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (const char* name : {"100PHOTO", "101PHOTO", "102PHOTO", "103PHOTO"}) {
    fake.AddFolder(name, 8000);
  }
  c.Scan();
  pref_set_long(1, 856, 5);
  EXPECT_EQ(c.New().result, -1);
  EXPECT_EQ(c.list.GetCount(), 32000);
  EXPECT_EQ(c.list.GetStoredLastIndex(), 10308000);
  EXPECT_EQ(pref_get_long(1, 856), 5);
}

TEST(CQDCFListScanLimits, A999thFolderIsTheLastOneTaken) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (int i = 0; i < 1500; ++i) {
    fake.AddFolder("100" + std::to_string(10000 + i), 1);
  }
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.list.GetCount(), 999);
  EXPECT_EQ(c.list.AddDir(100), -1);
  EXPECT_EQ(c.At(998).path, "DCIM/10010998/QVX_0001.JPG");
}

TEST(CQDCFListScanLimits, AFolderNameThatDoesNotFitIsPassedOver) {
  CardCatalogue c;
  FakeListings fake(c.card);
  fake.AddFolder("CAMERA" + std::string(93, 'X'), 1);
  fake.AddFolder("CAMERA" + std::string(244, 'X'), 1);
  fake.AddFolder("100PHOTO", 1);
  EXPECT_EQ(c.ScanWithCamera(), 0);
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.SlotOf("100PHOTO"), 0);
}

TEST(CQDCFListScanLimits, AFolderNameOf98CharactersFits) {
  CardCatalogue c;
  FakeListings fake(c.card);
  fake.AddFolder("CAMERA" + std::string(92, 'X'), 0);
  EXPECT_EQ(c.ScanWithCamera(), 0);
  EXPECT_EQ(c.SlotOf("CAMERAXX"), 0);
}

TEST(CQDCFListScanLimits, FolderNamesOfAnyBytesAreSafe) {
  CardCatalogue c;
  FakeListings fake(c.card);
  for (const char* name : {"100\xff\xfe%s\n", "100%n%n%", "...", " ", "\xff", "100/////"}) {
    fake.AddFolder(name, 1);
  }
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.Walked().size(), static_cast<size_t>(c.list.GetCount()));
}

TEST(CQDCFListScanLimits, ARootOf84CharactersIsScanned) {
  CardCatalogue c;
  const std::string deep(84 - c.card.Root().size() - 1, 'd');
  c.card.MakeFile(deep + "/DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(c.list.SetBaseURI(c.Path(deep)), 0);
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.Held(), Names{deep + "/DCIM/100PHOTO/QVX_0001.JPG"});
}

TEST(CQDCFListScanLimits, TheLongestRootIsSafe) {
  CardCatalogue c;
  const std::string deep(97 - c.card.Root().size() - 1, 'd');
  c.card.MakeFile(deep + "/DCIM/100PHOTO/QVX_0001.JPG");
  ASSERT_EQ(c.list.SetBaseURI(c.Path(deep)), 0);
  c.Scan();
  EXPECT_EQ(c.list.GetCount(), 0) << "the folders' paths do not fit any more";
  const Names tree = {deep + "/", deep + "/DCIM/", deep + "/DCIM/100PHOTO/",
                      deep + "/DCIM/100PHOTO/QVX_0001.JPG"};
  EXPECT_EQ(c.card.Tree(), tree);
}

TEST(CQDCFListScanLimits, AFolderThatDisappearsDuringTheScanHasNoFiles) {
  CardCatalogue c;
  FakeListings fake(c.card);
  fake.AddFolder("100PHOTO", 2);
  fake.AddFolder("101PHOTO", 2);
  fake.folders.erase("DCIM/101PHOTO");
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.list.GetCount(), 2);
}

}  // namespace
}  // namespace flm_test
