// Construction, properties and the directory table of a catalogue.
#include <gtest/gtest.h>

#include <memory>

#include "dcf/CQDCFDir.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

std::string ProcessWidePath() {
  char out[flm::kPathSize] = "untouched";
  DCFItem item = {};
  std::memcpy(item.prefixChars, "QVX_", 4);
  std::memcpy(item.extChars, "JPG", 3);
  CQDCFList::GetFullPath(out, sizeof(out), 100, 1, -1, &item);
  return out;
}

TEST(CQDCFListTable, ANewCatalogueHoldsNothing) {
  CQDCFList list;
  EXPECT_EQ(list.GetCount(), 0);
  EXPECT_EQ(list.GetMode(), 1);
  EXPECT_FALSE(list.GetSeriesMode());
  EXPECT_STREQ(list.GetBaseURI(), "");
  EXPECT_EQ(list.GetStoredLastIndex(), 0);
}

TEST(CQDCFListTable, ANewCatalogueHasNoCurrentFile) {
  CQDCFList list;
  char out[flm::kPathSize] = "untouched";
  EXPECT_EQ(list.GetCur(out, sizeof(out), nullptr, 0), -1);
  EXPECT_EQ(list.GetPrev(out, sizeof(out), nullptr, 0), -2);
  EXPECT_STREQ(out, "untouched");
}

TEST(CQDCFListTable, TheNewestCatalogueIsTheProcessWideOne) {
  CQDCFList first;
  first.Create();
  first.SetMode(4);
  first.SetBaseURI("/one");
  EXPECT_EQ(ProcessWidePath(), "/one/DCIM/100PHOTO/QVX_0001.JPG");
  CQDCFList second;
  second.Create();
  second.SetMode(4);
  second.SetBaseURI("/two");
  EXPECT_EQ(ProcessWidePath(), "/two/DCIM/100PHOTO/QVX_0001.JPG");
}

TEST(CQDCFListTable, DestructionLeavesNoProcessWideCatalogue) {
  { CQDCFList list; }
  EXPECT_EQ(ProcessWidePath(), "untouched");
}

TEST(CQDCFListTable, DestructionOfAnyCatalogueLeavesNoProcessWideOne) {
  auto older = std::make_unique<CQDCFList>();
  CQDCFList newer;
  newer.Create();
  older.reset();
  EXPECT_EQ(ProcessWidePath(), "untouched");
}

TEST(CQDCFListTable, CreateResetsThePropertiesEachTime) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.SetSeriesMode(true);
  c.First();
  c.list.Create();
  EXPECT_EQ(c.list.GetCount(), 0);
  EXPECT_STREQ(c.list.GetBaseURI(), "");
  EXPECT_FALSE(c.list.GetSeriesMode());
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.list.AddDir(200), 0) << "the count of folders begins anew";
}

TEST(CQDCFListTable, CreateKeepsTheMode) {
  CQDCFList list;
  list.SetMode(4);
  list.Create();
  EXPECT_EQ(list.GetMode(), 4);
}

TEST(CQDCFListTable, ASecondCreateKeepsTheTableAndItsItems) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG"});
  c.list.Create();
  c.list.SetBaseURI(c.card.Root().c_str());
  const Names held = {"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/100PHOTO/QVX_0002.JPG"};
  EXPECT_EQ(c.Held(), held);
}

TEST(CQDCFListTable, AScanAfterASecondCreateReleasesWhatWasThere) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.Create();
  c.list.SetBaseURI(c.card.Root().c_str());
  c.card.Remove("DCIM/100PHOTO");
  c.With({"DCIM/101PHOTO/QVX_0002.JPG"});
  EXPECT_EQ(c.Held(), Names{"DCIM/101PHOTO/QVX_0002.JPG"});
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST(CQDCFListTable, EverySlotIsFreeAfterCreate) {
  CardCatalogue c;
  EXPECT_EQ(c.list.GetLastIndex(), 0);
  EXPECT_EQ(c.First().result, -1);
  EXPECT_EQ(c.list.GetFirstDCFItem(), nullptr);
}

TEST(CQDCFListTable, DestroyTwiceIsHarmless) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.Destroy();
  c.list.Destroy();
  EXPECT_EQ(c.At(0).result, -1);
  EXPECT_EQ(c.First().result, -1);
}

TEST(CQDCFListTable, ADestroyedCatalogueCanBeCreatedAgain) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.Destroy();
  c.list.Create();
  EXPECT_EQ(c.At(0).result, -1);
  c.list.SetBaseURI(c.card.Root().c_str());
  EXPECT_EQ(c.Scan(), 0);
  EXPECT_EQ(c.Held(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
}

TEST(CQDCFListTable, DestroyLeavesTheCursorOnNothing) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.First();
  c.SetBit("DCIM/100PHOTO/QVX_0001.JPG", 5);
  c.BitFirst(5);
  c.First();
  c.list.Destroy();
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.Prev().result, -2);
  EXPECT_EQ(c.BitNext(5).result, -1);
  EXPECT_EQ(c.BitPrev(5).result, -1);
}

TEST(CQDCFListTable, FreeMemReleasesItemsAndKeepsNumbers) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0001.JPG"});
  c.list.FreeMem();
  EXPECT_EQ(c.At(0).result, -1);
  EXPECT_EQ(c.list.GetLastIndex(), 10500000);
  EXPECT_EQ(c.SlotOf("105PHOTO"), 0);
}

TEST(CQDCFListTable, FreeMemLeavesTheCursorOnNothing) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0001.JPG"});
  c.First();
  c.list.FreeMem();
  EXPECT_EQ(c.Cur().result, -1);
}

TEST(CQDCFListTable, AWalkAfterFreeMemReadsTheFoldersAgain) {
  CardCatalogue c;
  c.With({"DCIM/105PHOTO/QVX_0001.JPG"});
  c.list.FreeMem();
  EXPECT_EQ(c.First().path, "DCIM/105PHOTO/QVX_0001.JPG");
  EXPECT_EQ(c.list.GetCount(), 1);
}

TEST(CQDCFListTable, CreateMemManagerKeepsAPoolThatHoldsBlocks) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  c.list.CreateMemManager();
  EXPECT_EQ(c.Held(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
}

TEST(CQDCFListTable, ThePoolLetsItemsBeAddedWithoutAScan) {
  const unsigned char data[4] = {1, 0, 0, 0};
  CardCatalogue c;
  EXPECT_EQ(c.list.AddItem(100, data), -1);
  c.list.CreateMemManager();
  EXPECT_EQ(c.list.AddItem(100, data), 0);
}

TEST(CQDCFListTable, TheInternalMemoryHasAPoolToo) {
  const unsigned char data[4] = {1, 0, 0, 0};
  CardCatalogue c;
  c.list.SetBaseURI("/int/nand");
  c.list.CreateMemManager();
  EXPECT_EQ(c.list.AddItem(100, data), 0);
}

TEST(CQDCFListTable, ARootOf97CharactersIsTaken) {
  CQDCFList list;
  const std::string longest = "/" + std::string(96, 'r');
  EXPECT_EQ(list.SetBaseURI(longest.c_str()), 0);
  EXPECT_EQ(list.GetBaseURI(), longest);
}

TEST(CQDCFListTable, ARootOf98CharactersIsRefusedAndTheEarlierOneStays) {
  CQDCFList list;
  list.SetBaseURI("/mnt/mmc");
  EXPECT_EQ(list.SetBaseURI(("/" + std::string(97, 'r')).c_str()), -1);
  EXPECT_STREQ(list.GetBaseURI(), "/mnt/mmc");
}

TEST(CQDCFListTable, ANullRootIsRefusedAndTheEarlierOneStays) {
  CQDCFList list;
  list.SetBaseURI("/mnt/mmc");
  EXPECT_EQ(list.SetBaseURI(nullptr), -1);
  EXPECT_STREQ(list.GetBaseURI(), "/mnt/mmc");
}

TEST(CQDCFListTable, AShorterRootReplacesALongerOneWhole) {
  CQDCFList list;
  list.SetBaseURI("/mnt/mmc");
  EXPECT_EQ(list.SetBaseURI("/a"), 0);
  EXPECT_STREQ(list.GetBaseURI(), "/a");
}

TEST(CQDCFListTable, ModeAndSeriesModeAreStored) {
  CQDCFList list;
  for (int mode : {0, 1, 2, 3, 4, -7, 2147483647}) {
    list.SetMode(mode);
    EXPECT_EQ(list.GetMode(), mode);
  }
  EXPECT_EQ(list.SetSeriesMode(true), 0);
  EXPECT_TRUE(list.GetSeriesMode());
  EXPECT_EQ(list.SetSeriesMode(false), 0);
  EXPECT_FALSE(list.GetSeriesMode());
}

TEST(CQDCFListTable, AddDirTakesOneSlotAfterTheOther) {
  CardCatalogue c;
  EXPECT_EQ(c.list.AddDir(300), 0);
  EXPECT_EQ(c.list.AddDir(200), 1);
  EXPECT_EQ(c.list.GetLastIndex(), 20000000) << "the last slot in use has number 200";
}

TEST(CQDCFListTable, AddDirKeeps16BitsOfTheNumber) {
  CardCatalogue c;
  EXPECT_EQ(c.list.AddDir(65536 + 105), 0);
  EXPECT_EQ(c.list.GetLastIndex(), 10500000);
  EXPECT_EQ(c.list.AddDir(65535), 1) << "the slot counts but is free";
  EXPECT_EQ(c.list.GetLastIndex(), 10500000);
}

TEST(CQDCFListTable, AddDirIsRefusedWhenTheTableIsFull) {
  CardCatalogue c;
  for (int i = 0; i < 999; ++i) ASSERT_EQ(c.list.AddDir(100), i);
  EXPECT_EQ(c.list.AddDir(500), -1);
  EXPECT_EQ(c.list.AddDir(500), -1);
  EXPECT_EQ(c.list.GetLastIndex(), 10000000);
}

TEST(CQDCFListTable, FreeAllDirEmptiesTheTable) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0001.JPG"});
  c.First();
  c.list.FreeAllDir();
  EXPECT_EQ(c.list.GetCount(), 0);
  EXPECT_EQ(c.list.GetLastIndex(), 0);
  EXPECT_EQ(c.First().result, -1);
  EXPECT_EQ(c.Cur().result, -1);
  EXPECT_EQ(c.list.AddDir(100), 0);
}

TEST(CQDCFListTable, FreeAllDirExceptKeepsTheDirectoriesOfOneNumber) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101ABCDE/QVX_0002.JPG", "DCIM/101PHOTO/QVX_0003.JPG",
          "DCIM/102PHOTO/QVX_0004.JPG"});
  CQDCFDir keep;
  keep.SetDnum(101);
  EXPECT_EQ(c.list.FreeAllDirExcept(&keep), 0) << "the count is that of the directory given";
  EXPECT_EQ(c.list.GetCount(), 0);
  const Names held = {"DCIM/101ABCDE/QVX_0002.JPG", "DCIM/101PHOTO/QVX_0003.JPG"};
  EXPECT_EQ(c.Held(), held);
}

TEST(CQDCFListTable, FreeAllDirExceptLetsAWalkReadTheOthersAgain) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG", "DCIM/101PHOTO/QVX_0003.JPG"});
  CQDCFDir keep;
  keep.SetDnum(101);
  c.list.FreeAllDirExcept(&keep);
  EXPECT_EQ(c.First().path, "DCIM/100PHOTO/QVX_0001.JPG");
}

TEST(CQDCFListTable, FreeAllDirExceptNothingChangesNothing) {
  CardCatalogue c;
  c.With({"DCIM/100PHOTO/QVX_0001.JPG"});
  EXPECT_LT(c.list.FreeAllDirExcept(nullptr), 0);
  EXPECT_EQ(c.list.GetCount(), 1);
  EXPECT_EQ(c.Held(), Names{"DCIM/100PHOTO/QVX_0001.JPG"});
}

}  // namespace
}  // namespace flm_test
