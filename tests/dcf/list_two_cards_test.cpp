// Two catalogues at once: each keeps to its own card, whichever was made, scanned or destroyed
// last. Only the static path builder follows the newest one.
#include <gtest/gtest.h>

#include <memory>

#include "base/file_list_item.h"
#include "tests/dcf/list_fixture.h"

namespace flm_test {
namespace {

constexpr char kFile[] = "DCIM/100PHOTO/QVX_0001.JPG";

// Two cards with equal names but of different modes; `newer` is the process-wide one.
class CQDCFListTwoCards : public testing::Test {
 protected:
  CQDCFListTwoCards() : newer(std::make_unique<CardCatalogue>(2)) {
    older.With({kFile, "DCIM/100PHOTO/QVX_0001.SRW", "DCIM/101ABCDE/QVX_0002.JPG"});
    newer->With({"VIDEO/100VIDEO/QVX_0001.MP4"});
    older.card.SetTime(kFile, 1500000001);
  }

  CardCatalogue older;
  std::unique_ptr<CardCatalogue> newer;
};

TEST_F(CQDCFListTwoCards, WalksOfTheOlderOneKeepToItsCard) {
  const Step first = {0, kFile, "DCIM/100PHOTO/QVX_0001.S  "};
  EXPECT_EQ(older.First(), first);
  EXPECT_EQ(older.Cur(), first);
  EXPECT_EQ(older.At(0), first);
  EXPECT_EQ(older.Next(), (Step{0, "DCIM/101ABCDE/QVX_0002.JPG"}));
  EXPECT_EQ(older.Prev(), first);
  EXPECT_EQ(older.Last(), (Step{0, "DCIM/101ABCDE/QVX_0002.JPG"}));
}

TEST_F(CQDCFListTwoCards, WalksOfTheNewerOneKeepToItsCard) {
  EXPECT_EQ(newer->First(), (Step{0, "VIDEO/100VIDEO/QVX_0001.MP4"}));
}

TEST_F(CQDCFListTwoCards, MarkWalksKeepToTheirCard) {
  older.list.SetCustomBitAll(5, true);
  EXPECT_EQ(older.BitFirst(5).path, kFile);
  EXPECT_EQ(older.BitNext(5).path, "DCIM/101ABCDE/QVX_0002.JPG");
  EXPECT_EQ(older.BitPrev(5).path, kFile);
  EXPECT_EQ(older.BitLast(5).path, "DCIM/101ABCDE/QVX_0002.JPG");
  EXPECT_EQ(newer->list.GetCustomBitCount(5), 0);
}

TEST_F(CQDCFListTwoCards, TimesAreReadFromTheOwnCard) {
  older.First();
  EXPECT_EQ(older.time, 1500000001u);
}

TEST_F(CQDCFListTwoCards, LookupsKeepToTheirCard) {
  CQFileListItem info;
  EXPECT_EQ(older.list.GetInfo(older.Path(kFile), &info), 0);
  EXPECT_EQ(older.Relative(info.objectPath), "DCIM/100PHOTO/QVX_0001.S  ");
  char key[flm::kPathSize] = "";
  older.card.Path(kFile).copy(key, sizeof(key) - 1);
  older.SetCur(kFile);
  EXPECT_EQ(older.list.GetKeyToURI(10000000, key, sizeof(key)), 0);
  EXPECT_EQ(older.Relative(key), "DCIM/100PHOTO/QVX_0000.JPG");
}

TEST_F(CQDCFListTwoCards, NewNamesKeepToTheirCard) {
  EXPECT_EQ(older.New(), (Step{0, "DCIM/102PHOTO/QVX_0001.JPG"}));
  EXPECT_TRUE(older.card.Exists("DCIM/102PHOTO"));
  EXPECT_FALSE(newer->card.Exists("DCIM"));
}

TEST_F(CQDCFListTwoCards, TheStaticPathBuilderFollowsTheNewest) {
  char out[flm::kPathSize] = "";
  CQDCFList::GetFullPath(out, sizeof(out), 100, 1, 0, older.Find(kFile));
  EXPECT_EQ(newer->Relative(out), "VIDEO/100VIDEO/QVX_0001.MP4");
}

TEST_F(CQDCFListTwoCards, TheOlderOneOutlivesTheNewer) {
  newer.reset();
  flm::Os().Sync = [] {};
  EXPECT_EQ(older.First().path, kFile);
  EXPECT_EQ(older.time, 1500000001u);
  EXPECT_EQ(older.Walked().size(), 2u);
  EXPECT_EQ(older.Scan(), 0);
  EXPECT_EQ(older.Last().path, "DCIM/101ABCDE/QVX_0002.JPG");
}

TEST_F(CQDCFListTwoCards, ARescanOfTheNewerOneLeavesTheOlderAlone) {
  older.First();
  newer->Scan();
  EXPECT_EQ(older.Cur().path, kFile);
  EXPECT_EQ(older.Next().path, "DCIM/101ABCDE/QVX_0002.JPG");
}

}  // namespace
}  // namespace flm_test
