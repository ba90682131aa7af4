// Adding items to a directory, taking them out, joining companions, and the list of companions that
// wait for their main files.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "tests/dcf/dir_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::Lines;

class DirItems : public flm_test::DirOnCard {
 protected:
  DirItems() : DirOnCard(123, "123PHOTO", 3) {}
};

TEST_F(DirItems, ANewFileFillsItsItem) {
  int added = 0;
  DCFItem* const item = dir_.AddFile(nullptr, 42, Arg("HDV_0042.MP4"), &added, 77);
  ASSERT_NE(nullptr, item);
  EXPECT_EQ(item, dir_.GetFirstItem());
  EXPECT_EQ(42, item->fileNumber);
  EXPECT_EQ(77U, item->fileTime);
  EXPECT_EQ(123, item->dirNumber);
  EXPECT_STREQ("HDV_0042.MP4", item->fileName);
  EXPECT_EQ("HDV_", std::string(item->prefixChars, 4));
  EXPECT_EQ("MP4", std::string(item->extChars, 3));
  EXPECT_EQ(0x90, item->itemBits);
  EXPECT_EQ(1, added);
}

TEST_F(DirItems, ANewFileHasNoMarksAndNoCompanions) {
  DCFItem* const item = Add(1, "CAM_0001.JPG");
  ASSERT_NE(nullptr, item);
  EXPECT_EQ(0, item->companionSrw);
  EXPECT_EQ(0, item->companionWav);
  EXPECT_EQ(0, item->companionMpo);
  EXPECT_EQ(0, item->dpofCopies);
  EXPECT_EQ(0, item->dpofIndex);
  EXPECT_EQ(0, item->dpofSize);
  EXPECT_EQ(0x80, item->itemBits);
}

TEST_F(DirItems, FilesStandInTheOrderInWhichTheyWereAdded) {
  Add(3, "CAM_0003.JPG");
  Add(1, "CAM_0001.JPG");
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ((Lines{"3 CAM_0003.JPG", "1 CAM_0001.JPG", "2 CAM_0002.JPG"}), Items());
  EXPECT_EQ(3, dir_.GetCount());
}

TEST_F(DirItems, AGivenItemIsFilledWithoutCounting) {
  DCFItem* const item = Add(1, "CAM_0001.JPG");
  int added = 9;
  EXPECT_EQ(item, dir_.AddFile(item, 2, Arg("SDA_0002.JPG"), &added, 5));
  EXPECT_EQ(9, added);
  EXPECT_EQ(1, dir_.GetCount());
  EXPECT_EQ((Lines{"2 SDA_0002.JPG"}), Items());
  EXPECT_EQ(6, dir_.GetPrefix(item));
}

TEST_F(DirItems, AGivenItemLosesItsCompanionsAndPrints) {
  DCFItem* const item = Add(1, "CAM_0001.JPG");
  item->companionSrw = 'S';
  item->companionWav = 'W';
  item->companionMpo = 'M';
  item->dpofCopies = 1;
  item->dpofIndex = 1;
  item->dpofSize = 1;
  int added = 0;
  dir_.AddFile(item, 1, Arg("CAM_0001.JPG"), &added, 0);
  EXPECT_EQ(0, item->companionSrw);
  EXPECT_EQ(0, item->companionWav);
  EXPECT_EQ(0, item->companionMpo);
  EXPECT_EQ(0, item->dpofCopies);
  EXPECT_EQ(0, item->dpofIndex);
  EXPECT_EQ(0, item->dpofSize);
}

TEST_F(DirItems, AGivenItemKeepsItsMarkBits) {
  DCFItem* const item = Add(1, "HDV_0001.MP4");
  item->itemBits = 0x5f;
  int added = 0;
  dir_.AddFile(item, 1, Arg("CAM_0001.JPG"), &added, 0);
  EXPECT_EQ(0x8f, item->itemBits);
}

TEST_F(DirItems, AnAttemptAtAFullPoolCountsAllTheSame) {
  for (int i = 1; i <= 3; ++i) ASSERT_NE(nullptr, Add(i, "CAM_0001.JPG"));
  int added = 3;
  EXPECT_EQ(nullptr, dir_.AddFile(nullptr, 4, Arg("CAM_0004.JPG"), &added, 0));
  EXPECT_EQ(4, added);
  EXPECT_EQ(3, dir_.GetCount());
}

TEST_F(DirItems, ACounterIsNotNeeded) {
  EXPECT_NE(nullptr, dir_.AddFile(nullptr, 4, Arg("CAM_0004.JPG"), nullptr, 0));
  EXPECT_EQ(1, dir_.GetCount());
}

TEST_F(DirItems, AFreeNameIsKeptWhole) {
  const std::string forty = "a name of exactly forty characters12.jpg";
  Add(0, forty);
  EXPECT_EQ((Lines{"0 " + forty}), Items());
  Add(1, forty + "x");
  EXPECT_EQ((Lines{"0 " + forty, "1 " + forty}), Items());
}

TEST_F(DirItems, RemovingAnItemTakesItOutAndFreesIt) {
  Add(1, "CAM_0001.JPG");
  DCFItem* const second = Add(2, "CAM_0002.JPG");
  Add(3, "CAM_0003.JPG");
  EXPECT_EQ(0, dir_.RemoveItem(second));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "3 CAM_0003.JPG"}), Items());
  EXPECT_EQ(2, dir_.GetCount());
  EXPECT_EQ(1, pool_.FindEmptyBlock());
}

TEST_F(DirItems, ARemovedItemHasNoNumberMarksOrPrefix) {
  DCFItem* const item = Add(42, "HDV_0042.MP4");
  item->dpofCopies = 3;
  item->itemBits = 0xff;
  ASSERT_EQ(0, dir_.RemoveItem(item));
  EXPECT_EQ(0, item->fileNumber);
  EXPECT_EQ(0, item->dpofCopies);
  EXPECT_EQ(0, item->itemBits);
  EXPECT_EQ(std::string(4, '\0'), std::string(item->prefixChars, 4));
}

TEST_F(DirItems, RemovingNullIsRefused) {
  EXPECT_EQ(-1, dir_.RemoveItem(nullptr));
  Add(1, "CAM_0001.JPG");
  EXPECT_EQ(-1, dir_.RemoveItem(nullptr));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(DirItems, ACompanionIsMarkedOnTheItemOfItsNumber) {
  Add(1, "CAM_0001.JPG");
  DCFItem* const item = Add(2, "CAM_0002.JPG");
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0002.SRW")));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG", "2 CAM_0002.JPG +S"}), Items());
  EXPECT_EQ('S', item->companionSrw);
  EXPECT_EQ(' ', item->companionWav);
  EXPECT_EQ(' ', item->companionMpo);
}

TEST_F(DirItems, EachKindOfCompanionHasItsOwnPlace) {
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0002.WAV")));
  EXPECT_EQ((Lines{"2 CAM_0002.JPG +W"}), Items());
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0002.MPO")));
  EXPECT_EQ((Lines{"2 CAM_0002.JPG +WM"}), Items());
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0002.SRW")));
  EXPECT_EQ((Lines{"2 CAM_0002.JPG +SWM"}), Items());
}

TEST_F(DirItems, ACompanionJoinsTheFirstItemOfItsNumberWhateverItsPrefix) {
  Add(2, "HDV_0002.MP4");
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0002.SRW")));
  EXPECT_EQ((Lines{"2 HDV_0002.MP4 +S", "2 CAM_0002.JPG"}), Items());
}

TEST_F(DirItems, ACompanionWithoutAnItemIsRefused) {
  Add(1, "CAM_0001.JPG");
  EXPECT_EQ(-1, dir_.SetObject(Arg("CAM_0002.SRW")));
  EXPECT_EQ(-1, dir_.SetObject(nullptr));
  EXPECT_EQ(0, dir_.GetFirstItem()->companionSrw);
  dir_.FreeMem();
  EXPECT_EQ(-1, dir_.SetObject(Arg("CAM_0001.SRW")));
}

TEST_F(DirItems, AnotherExtensionBlanksThePlacesAndMarksNone) {
  DCFItem* const item = Add(1, "CAM_0001.JPG");
  item->companionWav = 'W';
  for (const char* name : {"CAM_0001.JPG", "CAM_0001.srw", "CAM_0001", "CAM_0001.S"}) {
    EXPECT_EQ(0, dir_.SetObject(Arg(name))) << name;
    EXPECT_EQ(' ', item->companionSrw) << name;
    EXPECT_EQ('W', item->companionWav) << name;
    EXPECT_EQ(' ', item->companionMpo) << name;
  }
}

TEST_F(DirItems, OnlyTheTenthToTwelfthCharacterNameTheKind) {
  Add(1, "CAM_0001.JPG");
  EXPECT_EQ(0, dir_.SetObject(Arg("CAM_0001.SRWX")));
  EXPECT_EQ((Lines{"1 CAM_0001.JPG +S"}), Items());
}

TEST_F(DirItems, ADuplicateIsFoundForFlaggedNumbersOfOneMark) {
  DCFItem* const item = Add(3, "SDC10003.JPG");
  char flags[16] = {};
  flags[3] = 1;
  flags[4] = 1;
  EXPECT_EQ(item, dir_.CheckDup(flags, 3, Arg("SDC10003.JPG")));
  EXPECT_EQ(item, dir_.CheckDup(flags, 3, Arg("sdc1")));
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, 3, Arg("CAM_0003.JPG")));
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, 3, Arg("SDC")));
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, 4, Arg("SDC10004.JPG")));
  flags[3] = 0;
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, 3, Arg("SDC10003.JPG")));
}

TEST_F(DirItems, ADuplicateOfNothingIsNone) {
  Add(3, "SDC10003.JPG");
  char flags[16] = {1};
  EXPECT_EQ(nullptr, dir_.CheckDup(nullptr, 3, Arg("SDC10003.JPG")));
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, 0, nullptr));
  EXPECT_EQ(nullptr, dir_.CheckDup(flags, -1, Arg("SDC10003.JPG")));
}

// The buffers of waiting companions: three entries.
class Waiting : public testing::Test {
 protected:
  int Add(const char* name, unsigned int time) {
    return dir_.ObjTmpListAdd(names_, &count_, Arg(name), times_, time);
  }
  CQDCFDir dir_;
  char names_[36] = {};
  unsigned char times_[12] = {};
  int count_ = 0;
};

TEST_F(Waiting, NamesAreKeptInTheirOrderWithTheirTimes) {
  EXPECT_EQ(1, Add("CAM_0001.SRW", 11));
  EXPECT_EQ(2, Add("CAM_0002.WAV", 22));
  EXPECT_EQ(3, Add("CAM_0003.MPO", 0xffffffffU));
  EXPECT_EQ(3, count_);
  EXPECT_EQ("CAM_0001.SRWCAM_0002.WAVCAM_0003.MPO", std::string(names_, sizeof(names_)));
  unsigned int time = 0;
  std::memcpy(&time, times_ + 4, 4);
  EXPECT_EQ(22U, time);
}

TEST_F(Waiting, NamesAreGivenBackTerminated) {
  Add("CAM_0001.SRW", 11);
  Add("CAM_0002.WAV", 22);
  char out[14];
  std::memset(out, '~', sizeof(out));
  unsigned int time = 0;
  EXPECT_EQ(0, dir_.ObjTmpListAt(names_, 1, out, times_, &time));
  EXPECT_STREQ("CAM_0002.WAV", out);
  EXPECT_EQ('~', out[13]);
  EXPECT_EQ(22U, time);
  EXPECT_EQ(0, dir_.ObjTmpListAt(names_, 0, out, times_, &time));
  EXPECT_STREQ("CAM_0001.SRW", out);
  EXPECT_EQ(11U, time);
}

TEST_F(Waiting, OnlyTwelveCharactersOfANameAreKept) {
  Add("A long name of a raw file.SRW", 0);
  EXPECT_EQ("A long name ", std::string(names_, 12));
  EXPECT_EQ('\0', names_[12]);
}

TEST_F(Waiting, AShorterNameEndsWhereItEnds) {
  std::memset(names_, '~', sizeof(names_));
  Add("A.SRW", 0);
  char out[13];
  unsigned int time = 0;
  EXPECT_EQ(0, dir_.ObjTmpListAt(names_, 0, out, times_, &time));
  EXPECT_STREQ("A.SRW", out);
  EXPECT_EQ('~', names_[12]);
}

TEST_F(Waiting, ANullArgumentIsRefusedByItsPlaceAndChangesNothing) {
  EXPECT_EQ(-1, dir_.ObjTmpListAdd(nullptr, &count_, Arg("CAM_0001.SRW"), times_, 1));
  EXPECT_EQ(-2, dir_.ObjTmpListAdd(names_, nullptr, Arg("CAM_0001.SRW"), times_, 1));
  EXPECT_EQ(-3, dir_.ObjTmpListAdd(names_, &count_, nullptr, times_, 1));
  EXPECT_EQ(-4, dir_.ObjTmpListAdd(names_, &count_, Arg("CAM_0001.SRW"), nullptr, 1));
  EXPECT_EQ(-1, dir_.ObjTmpListAdd(nullptr, nullptr, nullptr, nullptr, 1));
  EXPECT_EQ(-2, dir_.ObjTmpListAdd(names_, nullptr, nullptr, nullptr, 1));
  EXPECT_EQ(0, count_);
  EXPECT_EQ('\0', names_[0]);
}

TEST_F(Waiting, NothingIsGivenToNowhere) {
  Add("CAM_0001.SRW", 11);
  char out[13] = "unchanged";
  unsigned int time = 5;
  EXPECT_EQ(-1, dir_.ObjTmpListAt(names_, 0, nullptr, times_, &time));
  EXPECT_EQ(-1, dir_.ObjTmpListAt(nullptr, 0, out, times_, &time));
  EXPECT_EQ(-1, dir_.ObjTmpListAt(names_, 0, out, nullptr, &time));
  EXPECT_EQ(-1, dir_.ObjTmpListAt(names_, 0, out, times_, nullptr));
  EXPECT_STREQ("unchanged", out);
  EXPECT_EQ(5U, time);
}

}  // namespace
