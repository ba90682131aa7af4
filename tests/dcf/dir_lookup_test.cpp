// Walking the items of a directory and looking one up by number or by path.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "tests/dcf/dir_fixture.h"

namespace {

using flm_test::Arg;
using flm_test::InWords;
using flm_test::Lines;

constexpr char kNoItem[] = "none";

class DirLookup : public flm_test::DirOnCard {
 protected:
  std::string At(int number, const std::string& path) {
    return InWords(dir_.GetItem(number, Arg(path)));
  }
  std::string InFolder(int number, const std::string& name) {
    return At(number, "/mnt/mmc/DCIM/" + std::string(dir_.GetDirName()) + "/" + name);
  }
};

TEST_F(DirLookup, ItemsAreWalkedForwardAndBack) {
  DCFItem* const a = Add(1, "CAM_0001.JPG");
  DCFItem* const b = Add(2, "CAM_0002.JPG");
  DCFItem* const c = Add(3, "CAM_0003.JPG");
  EXPECT_EQ(a, dir_.GetFirstItem());
  EXPECT_EQ(b, dir_.GetNextItem(a));
  EXPECT_EQ(c, dir_.GetNextItem(b));
  EXPECT_EQ(nullptr, dir_.GetNextItem(c));
  EXPECT_EQ(c, dir_.GetLastItem());
  EXPECT_EQ(b, dir_.GetPrevItem(c));
  EXPECT_EQ(nullptr, dir_.GetPrevItem(a));
}

TEST_F(DirLookup, ANullItemHasNoNeighbours) {
  Add(1, "CAM_0001.JPG");
  EXPECT_EQ(nullptr, dir_.GetNextItem(nullptr));
  EXPECT_EQ(nullptr, dir_.GetPrevItem(nullptr));
}

TEST_F(DirLookup, WithoutAListThereIsNoItem) {
  EXPECT_EQ(nullptr, dir_.GetFirstItem());
  EXPECT_EQ(nullptr, dir_.GetLastItem());
  EXPECT_EQ(nullptr, dir_.GetItem(1));
  EXPECT_EQ(kNoItem, InFolder(1, "CAM_0001.JPG"));
  EXPECT_FALSE(dir_.GetItemBit(1, 0));
  EXPECT_FALSE(dir_.IsEnabledItem(1));
  dir_.SetItemBit(1, 5, true);
  EXPECT_EQ(1, dir_.IsEmpty());
}

TEST_F(DirLookup, InAnEmptyListThereIsNoItem) {
  dir_.GetMem();
  EXPECT_EQ(nullptr, dir_.GetFirstItem());
  EXPECT_EQ(nullptr, dir_.GetLastItem());
  EXPECT_EQ(nullptr, dir_.GetItem(0));
  EXPECT_EQ(kNoItem, InFolder(0, "CAM_0000.JPG"));
}

TEST_F(DirLookup, ANumberFindsItsFirstItem) {
  Add(1, "CAM_0001.JPG");
  Add(2, "HDV_0002.MP4");
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ("2 HDV_0002.MP4", InWords(dir_.GetItem(2)));
  EXPECT_EQ("1 CAM_0001.JPG", InWords(dir_.GetItem(1)));
}

TEST_F(DirLookup, ANumberThatNoItemHasFindsNone) {
  Add(1, "CAM_0001.JPG");
  for (const int number : {0, 2, -1, 65537, INT_MIN, INT_MAX}) {
    EXPECT_EQ(nullptr, dir_.GetItem(number)) << number;
  }
}

TEST_F(DirLookup, BitsAreReadAndWrittenByNumber) {
  DCFItem* const first = Add(2, "CAM_0002.JPG");
  DCFItem* const second = Add(2, "CAM_0002.MP4");
  dir_.SetItemBit(2, 5, true);
  EXPECT_TRUE(dir_.GetItemBit(2, 5));
  EXPECT_EQ(0x84, first->itemBits);
  EXPECT_EQ(0x80, second->itemBits);
  dir_.SetItemBit(2, 5, false);
  EXPECT_EQ(0x80, first->itemBits);
  dir_.SetItemBit(3, 5, true);
  EXPECT_FALSE(dir_.GetItemBit(3, 5));
  EXPECT_EQ(0x80, first->itemBits);
}

TEST_F(DirLookup, AnItemWithANameIsEnabled) {
  DCFItem* const item = Add(2, "CAM_0002.JPG");
  EXPECT_TRUE(dir_.IsEnabledItem(2));
  EXPECT_FALSE(dir_.IsEnabledItem(3));
  dir_.SetItemBit(item, 0, false);
  EXPECT_FALSE(dir_.IsEnabledItem(2));
}

TEST_F(DirLookup, ANumberIsJoinedWithTheLastDigitsOfTheDirectory) {
  Add(7, "CAM_0007.JPG");
  struct {
    short dirNumber;
    int expected;
  } const cases[] = {{100, 7}, {101, 107}, {123, 2307}, {999, 9907}, {200, 7}, {99, 9907}, {0, 7}};
  for (const auto& c : cases) {
    dir_.SetDnum(c.dirNumber);
    EXPECT_EQ(c.expected, dir_.GetFnum(7)) << c.dirNumber;
  }
}

TEST_F(DirLookup, ANumberInAFreeSlotOrOfNoItemIsRefused) {
  DCFItem* const item = Add(7, "CAM_0007.JPG");
  EXPECT_EQ(-2, dir_.GetFnum(8));
  dir_.SetItemBit(item, 0, false);
  EXPECT_EQ(-2, dir_.GetFnum(7));
  dir_.SetDnum(-1);
  EXPECT_EQ(-1, dir_.GetFnum(7));
  EXPECT_EQ(-1, dir_.GetFnum(8));
}

TEST_F(DirLookup, APathFindsTheFileOfItsNumberPrefixAndExtension) {
  Add(2, "CAM_0002.JPG");
  Add(2, "HDV_0002.MP4");
  Add(2, "CAM_0002.MP4");
  EXPECT_EQ("2 CAM_0002.JPG", InFolder(2, "CAM_0002.JPG"));
  EXPECT_EQ("2 HDV_0002.MP4", InFolder(2, "HDV_0002.MP4"));
  EXPECT_EQ("2 CAM_0002.MP4", InFolder(2, "CAM_0002.MP4"));
}

TEST_F(DirLookup, APathThatDiffersInOneOfTheThreeFindsNothing) {
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ(kNoItem, InFolder(3, "CAM_0002.JPG"));
  EXPECT_EQ(kNoItem, InFolder(2, "QVX_0002.JPG"));
  EXPECT_EQ(kNoItem, InFolder(2, "cam_0002.JPG"));
  EXPECT_EQ(kNoItem, InFolder(2, "CAM_0002.MP4"));
  EXPECT_EQ(kNoItem, InFolder(2, "CAM_0002.jpg"));
}

TEST_F(DirLookup, OnlyTheFirstCharacterOfTheExtensionCounts) {
  Add(2, "CAM_0002.MP4");
  EXPECT_EQ("2 CAM_0002.MP4", InFolder(2, "CAM_0002.MPO"));
  EXPECT_EQ("2 CAM_0002.MP4", InFolder(2, "CAM_0002.Mxx"));
}

TEST_F(DirLookup, TheNumberThatIsHandedInCountsNotTheOneInThePath) {
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ("2 CAM_0002.JPG", InFolder(2, "CAM_9999.JPG"));
}

TEST_F(DirLookup, AShortPathFindsNothing) {
  Add(2, "CAM_0002.JPG");
  EXPECT_EQ("2 CAM_0002.JPG", At(2, "CAM_0002.JPG"));
  EXPECT_EQ(kNoItem, At(2, "AM_0002.JPG"));
  EXPECT_EQ(kNoItem, At(2, "JPG"));
  EXPECT_EQ(kNoItem, At(2, "J"));
  EXPECT_EQ(kNoItem, At(2, ""));
  EXPECT_EQ(nullptr, dir_.GetItem(2, nullptr));
}

class FreeLookup : public DirLookup {
 protected:
  FreeLookup() {
    Call(99, "CAMERA");
    Add(0, "HOLIDAYS.JPG");
    Add(1, "rome.jpg of 2017");
    Add(2, "a name of exactly forty characters12.jpg");
  }
};

TEST_F(FreeLookup, APathFindsTheFileOfItsWholeName) {
  EXPECT_EQ("1 rome.jpg of 2017", InFolder(0, "rome.jpg of 2017"));
  EXPECT_EQ("0 HOLIDAYS.JPG", InFolder(77, "HOLIDAYS.JPG"));
  EXPECT_EQ("2 a name of exactly forty characters12.jpg",
            InFolder(-1, "a name of exactly forty characters12.jpg"));
}

TEST_F(FreeLookup, AnotherNameFindsNothing) {
  EXPECT_EQ(kNoItem, InFolder(0, "rome.jpg of 201"));
  EXPECT_EQ(kNoItem, InFolder(0, "rome.jpg of 20177"));
  EXPECT_EQ(kNoItem, InFolder(0, "ROME.JPG OF 2017"));
  EXPECT_EQ(kNoItem, InFolder(2, "a name of exactly forty characters12.jpgx"));
  EXPECT_EQ(kNoItem, InFolder(0, ""));
  EXPECT_EQ(kNoItem, At(0, ""));
  EXPECT_EQ(nullptr, dir_.GetItem(0, nullptr));
}

class Position : public DirLookup {
 protected:
  int Of(int number, const std::string& path) { return dir_.GetFidx(number, Arg(path)); }
  void AddThree() {
    Add(5, "CAM_0005.JPG");
    Add(5, "CAM_0005.MP4");
    Add(7, "CAM_0007.JPG");
  }
};

TEST_F(Position, OfAFileCountsFromZero) {
  AddThree();
  EXPECT_EQ(0, Of(5, "/mnt/mmc/DCIM/100PHOTO/CAM_0005.JPG"));
  EXPECT_EQ(1, Of(5, "/mnt/mmc/DCIM/100PHOTO/CAM_0005.MP4"));
  EXPECT_EQ(2, Of(7, "/mnt/mmc/DCIM/100PHOTO/CAM_0007.JPG"));
}

TEST_F(Position, IsFoundByNumberAndFirstCharacterOfTheExtensionAlone) {
  AddThree();
  EXPECT_EQ(1, Of(5, "QVX_9999.MPO"));
  EXPECT_EQ(2, Of(7, "JPG"));
}

TEST_F(Position, OfWhatIsNotThereIsMinusOne) {
  AddThree();
  EXPECT_EQ(-1, Of(6, "CAM_0006.JPG"));
  EXPECT_EQ(-1, Of(7, "CAM_0007.MP4"));
  EXPECT_EQ(-1, Of(7, "PG"));
  EXPECT_EQ(-1, Of(7, ""));
  EXPECT_EQ(-1, dir_.GetFidx(7, nullptr));
}

TEST_F(Position, WithoutAListIsZero) { EXPECT_EQ(0, Of(7, "CAM_0007.JPG")); }

TEST_F(Position, InAnEmptyListIsMinusOne) {
  dir_.GetMem();
  EXPECT_EQ(-1, Of(7, "CAM_0007.JPG"));
  EXPECT_EQ(-1, Of(7, "/mnt/mmc/DCIM/CAMERA/CAM_0007.JPG"));
}

TEST_F(Position, ForACameraPathIsTheNumberOfTheFirstItemWhoseNameStandsInIt) {
  Add(4, "HOLIDAYS.JPG");
  Add(9, "rome.jpg of 2017");
  EXPECT_EQ(9, Of(0, "/mnt/mmc/DCIM/CAMERA/rome.jpg of 2017"));
  EXPECT_EQ(4, Of(0, "/mnt/mmc/DCIM/CAMERA/HOLIDAYS.JPG"));
  EXPECT_EQ(9, Of(0, "CAMERA rome.jpg of 2017 and more"));
  EXPECT_EQ(-1, Of(9, "/mnt/mmc/DCIM/CAMERA/missing.jpg"));
}

TEST_F(Position, ForACameraPathDoesNotLookAtTheDirectory) {
  AddThree();
  EXPECT_EQ(5, Of(0, "CAMERA/CAM_0005.MP4"));
  EXPECT_EQ(7, Of(0, "/CAMERAS/100PHOTO/CAM_0007.JPG"));
}

}  // namespace
