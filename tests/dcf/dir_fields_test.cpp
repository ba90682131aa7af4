// The properties of a directory and the fields of its items: prefix, name, bits, info bytes.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "tests/dcf/dir_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::Lines;

TEST(NewDirectory, IsAFreeSlotWithoutAnything) {
  CQDCFDir dir;
  EXPECT_EQ(-1, dir.GetDnum());
  EXPECT_STREQ("", dir.GetDirName());
  EXPECT_FALSE(dir.GetListup());
  EXPECT_EQ(nullptr, dir.GetMemMgr());
  EXPECT_EQ(1, dir.IsEmpty());
  EXPECT_EQ(0, dir.GetCount());
  EXPECT_EQ(0, dir.GetCountVariable());
  EXPECT_EQ(nullptr, dir.GetFirstItem());
}

TEST(NewDirectory, WithoutAPoolGetsNoItem) {
  CQDCFDir dir;
  EXPECT_EQ(nullptr, dir.AddItem());
  EXPECT_EQ(0, dir.IsEmpty());
  EXPECT_EQ(0, dir.GetCount());
}

TEST(DirectoryNumber, IsKeptAs16SignedBits) {
  CQDCFDir dir;
  for (const short number : {short{100}, short{999}, short{99}, short{0}, short{-1}}) {
    dir.SetDnum(number);
    EXPECT_EQ(number, dir.GetDnum());
  }
  dir.SetDnum(static_cast<short>(65535));
  EXPECT_EQ(-1, dir.GetDnum());
}

TEST(DirectoryName, HasUpTo98Characters) {
  CQDCFDir dir;
  const std::string longest(98, 'n');
  dir.SetDirName(Arg(longest));
  EXPECT_EQ(longest, dir.GetDirName());
}

TEST(DirectoryName, ThatIsTooLongOrNullIsIgnored) {
  CQDCFDir dir;
  dir.SetDirName(Arg("100PHOTO"));
  dir.SetDirName(Arg(std::string(99, 'n')));
  EXPECT_STREQ("100PHOTO", dir.GetDirName());
  dir.SetDirName(nullptr);
  EXPECT_STREQ("100PHOTO", dir.GetDirName());
}

TEST(DirectoryName, ClearsTheWholeField) {
  CQDCFDir dir;
  dir.SetDirName(Arg(std::string(98, 'n')));
  dir.SetDirName(Arg("100PHOTO"));
  const char* const field = dir.GetDirName();
  for (int i = 8; i < 99; ++i) EXPECT_EQ('\0', field[i]) << i;
  dir.SetDirName(Arg(""));
  EXPECT_STREQ("", dir.GetDirName());
}

TEST(DirectoryFlag, ForListedIsKept) {
  CQDCFDir dir;
  dir.SetListup(true);
  EXPECT_TRUE(dir.GetListup());
  dir.SetListup(false);
  EXPECT_FALSE(dir.GetListup());
}

class DirFields : public flm_test::DirOnCard {
 protected:
  DirFields() : item_(dir_.AddItem()) {}
  DCFItem* item_;
};

TEST_F(DirFields, ADirectoryWithAListIsNotEmptyEvenWithoutItems) {
  dir_.RemoveItem(item_);
  EXPECT_EQ(0, dir_.IsEmpty());
  EXPECT_EQ(0, dir_.GetCount());
  dir_.FreeMem();
  EXPECT_EQ(1, dir_.IsEmpty());
}

TEST_F(DirFields, GetMemMakesAListAndKeepsTheOneThatIsThere) {
  dir_.FreeMem();
  dir_.GetMem();
  EXPECT_EQ(0, dir_.IsEmpty());
  Add(1, "CAM_0001.JPG");
  dir_.GetMem();
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirFields, GetMemLendsTheListThePoolOfNow) {
  CQDCFMemManager other;
  other.Create(static_cast<int>(sizeof(DCFItem)), 1, 0);
  dir_.FreeMem();
  dir_.GetMem();
  dir_.SetMemMgr(&other);
  dir_.GetMem();
  EXPECT_NE(nullptr, dir_.AddItem());
  EXPECT_EQ(-1, other.FindEmptyBlock());
  EXPECT_EQ(nullptr, dir_.AddItem());
  dir_.FreeMem();
}

TEST_F(DirFields, FreeMemGivesTheItemsBackAndEndsListed) {
  Add(1, "CAM_0001.JPG");
  dir_.SetListup(true);
  dir_.FreeMem();
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  EXPECT_FALSE(dir_.GetListup());
  EXPECT_EQ(nullptr, dir_.GetFirstItem());
  EXPECT_EQ(100, dir_.GetDnum());
  EXPECT_STREQ("100PHOTO", dir_.GetDirName());
}

TEST_F(DirFields, FreeMemWithoutAListChangesNothing) {
  dir_.FreeMem();
  dir_.SetListup(true);
  dir_.FreeMem();
  EXPECT_TRUE(dir_.GetListup());
}

TEST_F(DirFields, TheEndOfADirectoryGivesItsItemsBack) {
  dir_.FreeMem();
  {
    CQDCFDir other;
    other.SetMemMgr(&pool_);
    ASSERT_NE(nullptr, other.AddItem());
    ASSERT_EQ(1, pool_.FindEmptyBlock());
  }
  EXPECT_EQ(0, pool_.FindEmptyBlock());
}

TEST_F(DirFields, CountingAgainSeesWhatTheStoredCountDoesNot) {
  dir_.AddItem();
  dir_.AddItem();
  item_->next->next = nullptr;
  EXPECT_EQ(3, dir_.GetCountVariable());
  EXPECT_EQ(2, dir_.GetCount());
  EXPECT_EQ(2, dir_.GetCountVariable());
}

struct PrefixBits {
  int code;
  uint8_t bits;
};
constexpr PrefixBits kPrefixBits[] = {{0, 0x00}, {1, 0x10}, {2, 0x20}, {3, 0x30},
                                      {4, 0x40}, {5, 0x50}, {6, 0x60}};

TEST_F(DirFields, APrefixCodeIsKeptInBits1To3) {
  for (const PrefixBits& c : kPrefixBits) {
    item_->itemBits = 0x8f;
    dir_.SetPrefix(item_, c.code);
    EXPECT_EQ(0x8f | c.bits, item_->itemBits) << c.code;
    EXPECT_EQ(c.code, dir_.GetPrefix(item_));
    EXPECT_EQ(c.code, dir_.GetPrefixCode(item_));
  }
}

TEST_F(DirFields, AnotherPrefixCodeClearsTheThreeBits) {
  for (const int code : {7, 8, -1, INT_MIN, INT_MAX}) {
    item_->itemBits = 0xff;
    dir_.SetPrefix(item_, code);
    EXPECT_EQ(0x8f, item_->itemBits) << code;
  }
}

struct PrefixOfName {
  const char* name;
  int code;
  const char* prefix;
  const char* extension;
};
constexpr PrefixOfName kPrefixNames[] = {
    {"HDV_0001.MP4", 1, "HDV_", "MP4"}, {"hdv_0001.mp4", 1, "hdv_", "mp4"},
    {"HDE_0001.MP4", 2, "HDE_", "MP4"}, {"HDA_0001.MP4", 3, "HDA_", "MP4"},
    {"sDv_0001.MP4", 4, "sDv_", "MP4"}, {"SDE_0001.JPG", 5, "SDE_", "JPG"},
    {"SDA_0001.JPG", 6, "SDA_", "JPG"}, {"CAM_0001.JPG", 0, "CAM_", "JPG"},
    {"QVX_0001.JPG", 0, "QVX_", "JPG"}, {"a name of rome.tif", 0, "a na", "tif"},
};

TEST_F(DirFields, TheNamesPrefixAndExtensionAreTakenAsGiven) {
  for (const PrefixOfName& c : kPrefixNames) {
    item_->itemBits = 0xff;
    dir_.SetPrefix(item_, Arg(c.name));
    EXPECT_EQ(0x8f | c.code << 4, item_->itemBits) << c.name;
    EXPECT_EQ(c.prefix, std::string(item_->prefixChars, 4));
    EXPECT_EQ(c.extension, std::string(item_->extChars, 3));
  }
}

TEST_F(DirFields, ANameShorterThanItsPrefixIsReadToItsEnd) {
  std::memset(item_->prefixChars, '~', 4);
  dir_.SetPrefix(item_, Arg("ab"));
  EXPECT_EQ(std::string("ab\0\0", 4), std::string(item_->prefixChars, 4));
  dir_.SetPrefix(item_, Arg(""));
  EXPECT_EQ(std::string(4, '\0'), std::string(item_->prefixChars, 4));
  EXPECT_EQ(0, dir_.GetPrefix(item_));
}

TEST_F(DirFields, ANullNameOrItemHasNoPrefixToSet) {
  dir_.SetPrefix(item_, Arg("HDV_0001.MP4"));
  dir_.SetPrefix(item_, static_cast<char*>(nullptr));
  EXPECT_EQ(1, dir_.GetPrefix(item_));
  EXPECT_EQ("HDV_", std::string(item_->prefixChars, 4));
  dir_.SetPrefix(nullptr, Arg("HDV_0001.MP4"));
  dir_.SetPrefix(nullptr, 1);
  EXPECT_EQ(-1, dir_.GetPrefix(nullptr));
  EXPECT_EQ(-1, dir_.GetPrefixCode(nullptr));
}

TEST_F(DirFields, AFileNameBringsItsPrefixAndEnablesTheItem) {
  dir_.SetFileName(item_, Arg("HDV_0003.MP4"));
  EXPECT_STREQ("HDV_0003.MP4", item_->fileName);
  EXPECT_EQ("HDV_", std::string(item_->prefixChars, 4));
  EXPECT_EQ("MP4", std::string(item_->extChars, 3));
  EXPECT_EQ(0x90, item_->itemBits);
}

TEST_F(DirFields, AFileNameLeavesTheMarksAlone) {
  item_->itemBits = 0x0f;
  item_->fileNumber = 5;
  dir_.SetFileName(item_, Arg("CAM_0003.JPG"));
  EXPECT_EQ(0x8f, item_->itemBits);
  EXPECT_EQ(5, item_->fileNumber);
}

TEST_F(DirFields, AFileNameOf40CharactersIsKeptAndALongerOneIsCut) {
  const std::string forty = "a name of exactly forty characters12.jpg";
  ASSERT_EQ(40U, forty.size());
  DCFItem* const behind = dir_.AddItem();
  dir_.SetFileName(item_, Arg(forty));
  EXPECT_EQ(forty, item_->fileName);
  dir_.SetFileName(item_, Arg(forty + "and more.MPO"));
  EXPECT_EQ(forty, item_->fileName);
  EXPECT_EQ(behind, item_->next);
  EXPECT_EQ("MPO", std::string(item_->extChars, 3));
}

TEST_F(DirFields, ANullFileNameChangesNothing) {
  dir_.SetFileName(item_, Arg("CAM_0003.JPG"));
  dir_.SetFileName(item_, nullptr);
  EXPECT_STREQ("CAM_0003.JPG", item_->fileName);
  dir_.SetFileName(nullptr, Arg("CAM_0003.JPG"));
  EXPECT_EQ((Lines{"0 CAM_0003.JPG"}), Items());
}

TEST_F(DirFields, ItemBitsCountFromTheTop) {
  for (int n = 0; n < 8; ++n) {
    item_->itemBits = 0;
    dir_.SetItemBit(item_, n, true);
    EXPECT_EQ(0x80 >> n, item_->itemBits) << n;
    for (int other = 0; other < 8; ++other) {
      EXPECT_EQ(other == n, dir_.GetItemBit(item_, other)) << n << ' ' << other;
    }
  }
}

TEST_F(DirFields, AnItemBitIsClearedAlone) {
  for (int n = 0; n < 8; ++n) {
    item_->itemBits = 0xff;
    dir_.SetItemBit(item_, n, false);
    EXPECT_EQ(0xff & ~(0x80 >> n), item_->itemBits) << n;
  }
}

TEST_F(DirFields, ABitThatIsNoneIsFalseAndChangesNothing) {
  item_->itemBits = 0x55;
  for (const int n : {-1, 8, 32, INT_MIN, INT_MAX}) {
    dir_.SetItemBit(item_, n, true);
    EXPECT_FALSE(dir_.GetItemBit(item_, n)) << n;
    EXPECT_EQ(0x55, item_->itemBits) << n;
  }
  dir_.SetItemBit(static_cast<DCFItem*>(nullptr), 5, true);
  EXPECT_FALSE(dir_.GetItemBit(static_cast<DCFItem*>(nullptr), 5));
}

TEST_F(DirFields, InfoBytesAreTheBytesOfTheRecord) {
  dir_.SetFileName(item_, Arg("CAM_0003.JPG"));
  item_->dpofCopies = 5;
  item_->companionSrw = 'S';
  item_->dpofEdit = 13;
  item_->dpofIndex = 1;
  item_->dpofSize = 7;
  EXPECT_EQ(5, dir_.GetItemInfo(item_, 2));
  EXPECT_EQ(0x80, dir_.GetItemInfo(item_, 3));
  EXPECT_EQ('C', dir_.GetItemInfo(item_, 4));
  EXPECT_EQ('J', dir_.GetItemInfo(item_, 8));
  EXPECT_EQ('S', dir_.GetItemInfo(item_, 11));
  EXPECT_EQ(13, dir_.GetItemInfo(item_, 13));
  EXPECT_EQ(1, dir_.GetItemInfo(item_, 14));
  EXPECT_EQ(7, dir_.GetItemInfo(item_, 15));
  EXPECT_EQ('C', dir_.GetItemInfo(item_, 22));
}

TEST_F(DirFields, AnInfoByteIsWrittenAlone) {
  EXPECT_EQ(0, dir_.SetItemInfo(item_, 2, 255));
  EXPECT_EQ(0, dir_.SetItemInfo(item_, 13, 0x81));
  EXPECT_EQ(0, dir_.SetItemInfo(item_, 14, 1));
  EXPECT_EQ(0, dir_.SetItemInfo(item_, 15, 9));
  EXPECT_EQ(255, item_->dpofCopies);
  EXPECT_EQ(0x81, item_->dpofEdit);
  EXPECT_EQ(1, item_->dpofIndex);
  EXPECT_EQ(9, item_->dpofSize);
  EXPECT_EQ(0, item_->companionWav);
  EXPECT_EQ(0, item_->itemBits);
  EXPECT_EQ(0, item_->fileNumber);
}

TEST_F(DirFields, EveryInfoByteOfANegativeNumberIs255) {
  dir_.SetFnum(item_, -1);
  item_->dpofCopies = 5;
  EXPECT_EQ(255, dir_.GetItemInfo(item_, 2));
  EXPECT_EQ(255, dir_.GetItemInfo(item_, 15));
  dir_.SetFnum(item_, 0);
  EXPECT_EQ(5, dir_.GetItemInfo(item_, 2));
}

TEST_F(DirFields, ANullItemHasNoInfo) {
  EXPECT_EQ(0, dir_.GetItemInfo(nullptr, 2));
  EXPECT_EQ(0, dir_.SetItemInfo(nullptr, 2, 5));
}

TEST_F(DirFields, WithoutAListNoInfoByteIsWritten) {
  DCFItem item = {};
  CQDCFDir empty;
  EXPECT_EQ(1, empty.SetItemInfo(&item, 2, 5));
  EXPECT_EQ(0, item.dpofCopies);
}

TEST_F(DirFields, AnInfoByteOutsideTheRecordIsNeitherReadNorWritten) {
  DCFItem* const behind = dir_.AddItem();
  for (const int index : {-1, static_cast<int>(sizeof(DCFItem)), 1000, INT_MIN, INT_MAX}) {
    EXPECT_EQ(0, dir_.SetItemInfo(item_, index, 0x7f)) << index;
    EXPECT_EQ(0, dir_.GetItemInfo(item_, index)) << index;
  }
  EXPECT_EQ(behind, item_->next);
  EXPECT_EQ(0, behind->fileNumber);
}

TEST_F(DirFields, TheLinksAreNoInfoBytes) {
  DCFItem* const behind = dir_.AddItem();
  for (size_t i = flm::kItemPayloadSize; i < sizeof(DCFItem); ++i) {
    dir_.SetItemInfo(item_, static_cast<int>(i), 0x7f);
  }
  EXPECT_EQ(nullptr, item_->prev);
  EXPECT_EQ(behind, item_->next);
}

TEST_F(DirFields, AFileNumberIsSetAndRead) {
  for (const short number : {short{1}, short{9999}, short{0}, short{-1}, short{32767}}) {
    dir_.SetFnum(item_, number);
    EXPECT_EQ(number, item_->fileNumber);
    EXPECT_EQ(number, dir_.GetFnum(item_));
  }
  dir_.SetFnum(nullptr, 7);
  EXPECT_EQ(-1, dir_.GetFnum(nullptr));
}

TEST_F(DirFields, AnItemGetsTheNumberOfItsDirectoryWhateverIsGiven) {
  dir_.SetDnum(item_, 555);
  EXPECT_EQ(100, item_->dirNumber);
  EXPECT_EQ(100, dir_.GetDnum());
  dir_.SetDnum(nullptr, 555);
  EXPECT_EQ(100, dir_.GetDnum());
}

}  // namespace
