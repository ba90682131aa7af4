// The record of a file: where its bytes stand, and when its time is read from the card.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>

#include "dcf/CQDCFList.h"
#include "dcf/CQDCFMemManager.h"
#include "dcf/DCFItem.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;

TEST(Record, HasItsFieldsAtTheirPlaces) {
  EXPECT_EQ(0U, offsetof(DCFItem, fileNumber));
  EXPECT_EQ(2U, offsetof(DCFItem, dpofCopies));
  EXPECT_EQ(3U, offsetof(DCFItem, itemBits));
  EXPECT_EQ(4U, offsetof(DCFItem, prefixChars));
  EXPECT_EQ(8U, offsetof(DCFItem, extChars));
  EXPECT_EQ(11U, offsetof(DCFItem, companionSrw));
  EXPECT_EQ(12U, offsetof(DCFItem, companionWav));
  EXPECT_EQ(13U, offsetof(DCFItem, companionMpo));
  EXPECT_EQ(13U, offsetof(DCFItem, dpofEdit));
  EXPECT_EQ(14U, offsetof(DCFItem, dpofIndex));
  EXPECT_EQ(15U, offsetof(DCFItem, dpofSize));
  EXPECT_EQ(16U, offsetof(DCFItem, fileTime));
  EXPECT_EQ(20U, offsetof(DCFItem, dirNumber));
  EXPECT_EQ(22U, offsetof(DCFItem, fileName));
}

TEST(Record, HasFieldsOfTheirSizes) {
  EXPECT_EQ(2U, sizeof(DCFItem::fileNumber));
  EXPECT_EQ(4U, sizeof(DCFItem::prefixChars));
  EXPECT_EQ(3U, sizeof(DCFItem::extChars));
  EXPECT_EQ(4U, sizeof(DCFItem::fileTime));
  EXPECT_EQ(2U, sizeof(DCFItem::dirNumber));
}

TEST(Record, HoldsAFreeNameOf40CharactersWhole) { EXPECT_EQ(41U, sizeof(DCFItem::fileName)); }

TEST(Record, HasItsLinksBehindItsPayload) {
  EXPECT_LE(offsetof(DCFItem, fileName) + sizeof(DCFItem::fileName), offsetof(DCFItem, prev));
  EXPECT_LT(offsetof(DCFItem, prev), offsetof(DCFItem, next));
  EXPECT_EQ(sizeof(DCFItem), offsetof(DCFItem, next) + sizeof(DCFItem*));
}

TEST(Record, SharesOneByteBetweenTheMultiPictureCompanionAndThePrintEdit) {
  DCFItem item = {};
  item.companionMpo = 'M';
  EXPECT_EQ('M', item.dpofEdit);
  item.dpofEdit = 0;
  EXPECT_EQ('\0', item.companionMpo);
}

// An item of picture 7 in 100PHOTO, with the process-wide catalogue on the card.
class TimeOfAnItem : public testing::Test {
 protected:
  TimeOfAnItem() {
    catalogue_.Create();
    catalogue_.SetBaseURI(Arg(card_.Root()));
    catalogue_.SetMode(0);
    item_.fileNumber = 7;
    item_.dirNumber = 100;
    std::memcpy(item_.prefixChars, "QVX_", 4);
    std::memcpy(item_.extChars, "JPG", 3);
    std::strcpy(item_.fileName, "QVX_0007.JPG");
  }
  static constexpr char kPicture[] = "DCIM/100PHOTO/QVX_0007.JPG";

  Card card_;
  CQDCFList catalogue_;
  DCFItem item_ = {};
  unsigned int time_ = 12345;
};

TEST_F(TimeOfAnItem, IsGivenFromTheRecordWhenItIsKnown) {
  card_.MakeFile(kPicture, "x", 1500000000);
  item_.setFileTime(77);
  item_.getFileTime(&time_);
  EXPECT_EQ(77U, time_);
  EXPECT_EQ(77U, item_.fileTime);
}

TEST_F(TimeOfAnItem, IsReadFromTheCardWhenItIsNotKnown) {
  card_.MakeFile(kPicture, "x", 1500000000);
  item_.getFileTime(&time_);
  EXPECT_EQ(1500000000U, time_);
}

TEST_F(TimeOfAnItem, IsKeptOnceItWasRead) {
  card_.MakeFile(kPicture, "x", 1500000000);
  item_.getFileTime(&time_);
  EXPECT_EQ(1500000000U, item_.fileTime);
  card_.SetTime(kPicture, 1600000000);
  item_.getFileTime(&time_);
  EXPECT_EQ(1500000000U, time_);
}

// Its folder is the first of its number that holds its number, not one that the item remembers.
TEST_F(TimeOfAnItem, IsThatOfTheFileInTheFolderThatIsFoundByNumber) {
  card_.MakeFile("DCIM/100ABCDE/QVX_0006.JPG", "x", 1500000006);
  card_.MakeFile("DCIM/100FGHIJ/QVX_0007.JPG", "x", 1500000007);
  catalogue_.SetMode(4);
  ASSERT_EQ(0, catalogue_.Listup(0, false));
  ASSERT_EQ(2, catalogue_.GetCount());
  item_.getFileTime(&time_);
  EXPECT_EQ(1500000007U, time_);
}

TEST_F(TimeOfAnItem, OfAMissingFileIsZeroAndStaysUnknown) {
  item_.getFileTime(&time_);
  EXPECT_EQ(0U, time_);
  EXPECT_EQ(0U, item_.fileTime);
}

TEST_F(TimeOfAnItem, OfAMissingFileIsAskedForAgain) {
  item_.getFileTime(&time_);
  card_.MakeFile(kPicture, "x", 1500000000);
  item_.getFileTime(&time_);
  EXPECT_EQ(1500000000U, time_);
}

TEST_F(TimeOfAnItem, ForNobodyIsHarmless) {
  item_.getFileTime(nullptr);
  EXPECT_EQ(0U, item_.fileTime);
}

TEST(TimeOfAnItemWithoutCatalogue, IsZero) {
  DCFItem item = {};
  item.fileNumber = 7;
  item.dirNumber = 100;
  unsigned int time = 12345;
  item.getFileTime(&time);
  EXPECT_EQ(0U, time);
}

TEST(Record, StoresAnyTime) {
  DCFItem item = {};
  item.setFileTime(0xffffffffU);
  unsigned int time = 0;
  item.getFileTime(&time);
  EXPECT_EQ(0xffffffffU, time);
}

}  // namespace
