// Uses that no application makes on purpose, and what the plain walks would make of them.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "dcf/CQDCFItemList.h"
#include "dcf/CQDCFMemManager.h"
#include "filelist/CQFileList.h"
#include "fsio/PCQDCFFSIO.h"
#include "tests/dcf/list_fixture.h"
#include "tests/filelist/core_fixture.h"
#include "tests/fsio/scoped_os_calls.h"

namespace {

using flm_test::Arg;
using flm_test::CardCatalogue;

constexpr unsigned char kNumberOne[4] = {1, 0, 0, 0};

// A folder with one name that is longer than the names of most file systems can be.
class LongName {
 public:
  static constexpr size_t kLength = 300;

  LongName() {
    next_ = 0;
    flm::Os().Opendir = [](const char*) { return reinterpret_cast<DIR*>(&next_); };
    flm::Os().Closedir = [](DIR*) { return 0; };
    flm::Os().Readdir = [](DIR*) -> dirent* {
      static const std::string names[] = {"CAM_0001.JPG", std::string(kLength, 'x'),
                                          "CAM_0002.JPG"};
      if (next_ == std::size(names)) return nullptr;
      dirent* const entry = reinterpret_cast<dirent*>(buffer_);
      std::memset(buffer_, 0, sizeof(buffer_));
      names[next_++].copy(buffer_ + offsetof(dirent, d_name), kLength);
      return entry;
    };
  }

 private:
  flm_test::ScopedOsCalls os_;
  inline static size_t next_ = 0;
  alignas(dirent) inline static char buffer_[sizeof(dirent) + kLength];
};

TEST(OddUse, ANameOfThreeHundredBytesHidesNoOtherName) {
  const LongName names;
  PCQDCFFSIO reader(Arg("/any"), Arg(""));
  ASSERT_TRUE(reader.IsValid());
  PCQDCFFSIO::PTFile entry = {};
  ASSERT_EQ(0, reader.Read(&entry));
  EXPECT_STREQ("CAM_0001.JPG", entry.name);
  ASSERT_EQ(0, reader.Read(&entry));
  EXPECT_STREQ("CAM_0002.JPG", entry.name);
  ASSERT_EQ(0, reader.Read(&entry));
  EXPECT_EQ(std::string(flm::kEntryNameCopied, 'x'),
            std::string(entry.name, flm::kEntryNameCopied));
  EXPECT_EQ(-2, reader.Read(&entry));
}

TEST(OddUse, TwoPhotoFoldersOfOneNumberChangePlacesWhenSorted) {
  CardCatalogue c;
  ASSERT_EQ(0, c.With({"DCIM/101PHOTO/QVX_0001.JPG", "DCIM/102PHOTO/QVX_0001.JPG"}));
  ASSERT_EQ(0, c.list.AddItem(101, kNumberOne));  // the slot named 102PHOTO has number 101 now
  c.list.SortDirList();
  EXPECT_EQ(0, c.SlotOf("102PHOTO"));
  EXPECT_EQ(1, c.SlotOf("101PHOTO"));
}

TEST(OddUse, ACursorInNoSlotEndsTheWalkWithoutHarm) {
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  ASSERT_EQ(0, c.Scan());
  DCFItem* const first = c.list.GetFirstDCFItem();
  ASSERT_NE(nullptr, first->next);
  for (const int slot : {-7, -1, 999, 5000}) {
    c.list.SetCurItem(100, 1, slot, first);
    EXPECT_EQ(0, c.Next().result) << slot;
    c.list.SetCurItem(100, 2, slot, first->next);
    EXPECT_EQ(0, c.Prev().result) << slot;
    c.list.SetCurItem(100, 1, slot, first);
    EXPECT_EQ(first->next, c.list.GetNextDCFItem()) << slot;
  }
}

TEST(OddUse, AMarkWalkFromNoSlotGoesOnAlongTheItems) {
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 50, "JPG");
  ASSERT_EQ(0, c.Scan());
  constexpr int kBit = 5;
  ASSERT_EQ(0, c.SetBit("DCIM/100PHOTO/QVX_0040.JPG", kBit));
  char path[flm::kPathSize] = {};
  for (const int slot : {-7, 5000}) {
    c.list.SetBitCurFile(100, 1, slot, c.list.GetFirstDCFItem());
    EXPECT_EQ(0, c.list.GetBitNext(path, sizeof(path), kBit)) << slot;
  }
}

TEST(OddUse, AMarkWalkBackFromNoSlotGoesBackAlongTheItems) {
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 50, "JPG");
  ASSERT_EQ(0, c.Scan());
  constexpr int kBit = 5;
  ASSERT_EQ(0, c.SetBit("DCIM/100PHOTO/QVX_0040.JPG", kBit));
  char path[flm::kPathSize] = {};
  for (const int slot : {-7, 5000}) {
    c.list.SetBitCurFile(100, 50, slot, c.Find("DCIM/100PHOTO/QVX_0050.JPG"));
    EXPECT_EQ(0, c.list.GetBitPrev(path, sizeof(path), kBit, nullptr)) << slot;
  }
}

// A folder that is added with a number of 0 or less in the place of one that holds files hides
// them.
TEST(OddUse, PositionsPassOverFilesOfAFolderWithoutANumber) {
  CardCatalogue c;
  ASSERT_EQ(0, c.Scan());
  const unsigned char data[sizeof(DCFItem)] = {};
  ASSERT_EQ(0, c.list.AddItem(100, data));
  ASSERT_EQ(0, c.list.AddItem(101, data));
  ASSERT_EQ(0, c.list.AddItem(101, data));
  ASSERT_EQ(0, c.list.AddItem(103, data));
  ASSERT_EQ(0, c.list.AddDir(0));
  for (int position = 0; position < 3; ++position) EXPECT_EQ(0, c.At(position).result) << position;
  EXPECT_GT(0, c.At(3).result);
}

TEST(OddUse, ABytesWalkGoesByAnyByte) {
  constexpr int kSomeByte = 12;
  CardCatalogue c;
  c.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 3, "JPG");
  ASSERT_EQ(0, c.Scan());
  ASSERT_EQ(0, c.list.SetCustomInfoAll(kSomeByte, 0));
  flm_test::Text second = c.Path("DCIM/100PHOTO/QVX_0002.JPG");
  ASSERT_EQ(0, c.list.SetCustomInfo(second, kSomeByte, 'Y'));
  CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(kSomeByte, 3);
  char path[flm::kPathSize] = {};
  EXPECT_EQ('Y', c.list.GetNextWithInfo(walk, path, sizeof(path)));
  EXPECT_EQ(second.Now(), path);
  EXPECT_EQ(0, c.list.GetNextWithInfo(walk, path, sizeof(path)));
}

TEST(OddUse, ANumberIsZeroWithoutATable) {
  CQDCFList list;
  EXPECT_EQ(0, list.GetNewFileIndex_FromLastIndex());
}

// The name of a folder that a caller chose and the root fill a path alone.
TEST(OddUse, PathsOfAFolderThatFillsThemAreCutAlike) {
  CardCatalogue c;
  const std::string below(60, 'r');
  c.card.MakeDir(below + "/DCIM");
  c.list.SetBaseURI(c.card.Path(below).c_str());
  ASSERT_EQ(0, c.Scan());
  const std::string suffix(80, 'S');
  ASSERT_EQ(0, c.New(suffix.c_str()).result);
  const std::string whole = below + "/DCIM/100" + suffix;
  const size_t kept = flm::kPathSize - 1 - c.card.Path("").size();
  for (int time = 0; time < 2; ++time) EXPECT_EQ(whole.substr(0, kept), c.Last().path);
}

TEST(OddUse, AnItemTakenOutThroughAnotherListLeavesACountThatIsRepaired) {
  constexpr int kUnits = 400;
  CQDCFMemManager pool;
  pool.Create(static_cast<int>(sizeof(DCFItem)), kUnits, 0);
  CQDCFItemList other;
  other.SetMemMgr(&pool);
  other.AddTail();
  DCFItem* const strange = other.AddTail();
  other.AddTail();
  for (const int nodes : {65, 72, 110, 156, 200}) {
    CQDCFItemList list;
    list.SetMemMgr(&pool);
    for (int i = 0; i < nodes; ++i) list.AddTail();
    ASSERT_EQ(nodes, list.UpdateCount());
    if (nodes == 65) {
      ASSERT_EQ(0, list.DeleteItemAt(strange));
      ASSERT_EQ(nodes - 1, list.GetCount());
    }
    list.AddTail();
    EXPECT_EQ(nodes + 1, list.UpdateCount());
  }
}

class OddUseOfLists : public flm_test::FileListTest {};

TEST_F(OddUseOfLists, PrintMarksAreThoseOfTheCursorsFileWhateverItsSlot) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
  ASSERT_EQ(2, Scan());
  CQFileListItem item;
  ASSERT_EQ(0, list.GetAt(0, &item, false));
  ASSERT_EQ(0, list.SetDPOF(&item, 7));
  ASSERT_EQ(0, list.SetDPOFSize(&item, 4));
  CQDCFList& catalogue = *list.GetDCFList();
  DCFItem* const first = catalogue.GetFirstDCFItem();
  catalogue.SetCurItem(100, 1, -1, first);
  ASSERT_EQ(0, list.GetAt(0, &item, true));
  EXPECT_EQ(7, item.dpofCopies);
  EXPECT_EQ(4, item.dpofSize);
}

TEST_F(OddUseOfLists, ARecordThatNamesItsFolderKeepsNoEmptiedFolder) {
  for (const std::string name : {"", "."}) {
    card.MakeFile("DCIM/CAMERA/one free name.jpg");
    card.MakeFiles("DCIM/101PHOTO", "QVX_", 1, 1, "JPG");
    ASSERT_EQ(2, Scan());
    ASSERT_EQ(0, list.AddFile(Arg(On("DCIM/CAMERA/" + name))));
    CQFileListItem item = flm_test::ItemOf(On("DCIM/CAMERA/one free name.jpg"));
    EXPECT_GT(list.Delete(&item, false, false), 0);
    EXPECT_FALSE(card.Exists("DCIM/CAMERA")) << name;
  }
}

}  // namespace
