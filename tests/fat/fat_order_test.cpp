// The print order and the preference store on a FAT, and both on a card without room.
#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#include "platform/preference.h"
#include "tests/fat/fat_card.h"

namespace flm_test {
namespace {

constexpr char kOrder[] = "MISC/AUTPRINT.MRK";
constexpr int kSeries = 856;  // the series value's key, in category 1

// Takes all the room that a card has left, except for a number of bytes.
class FullCard {
 public:
  FullCard(const Card& card, size_t bytesLeft) : path_(card.Path("FILLER.BIN")) {
    const int descriptor = open(path_.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const std::string block(1 << 16, 'f');
    size_t length = 0;
    size_t step = block.size();
    while (step > 0) {
      const ssize_t written = write(descriptor, block.data(), step);
      if (written > 0) length += static_cast<size_t>(written);
      if (written <= 0) step /= 2;
    }
    room_ = errno == ENOSPC;
    if (bytesLeft > 0 && ftruncate(descriptor, static_cast<off_t>(length - bytesLeft)) != 0) {
      room_ = false;
    }
    close(descriptor);
  }
  ~FullCard() { unlink(path_.c_str()); }
  FullCard(const FullCard&) = delete;
  FullCard& operator=(const FullCard&) = delete;

  bool IsFull() const { return room_; }

 private:
  std::string path_;
  bool room_ = false;
};

class FatPrintOrder : public OnFat {
 protected:
  void With(int files) {
    card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, files, "JPG");
    card.MakeDir("MISC");
    ASSERT_EQ(Scan(), files);
  }
  void Order(int index, int copies) {
    CQFileListItem item = At(index);
    ASSERT_EQ(list.SetDPOF(&item, copies), 0);
  }
  int Save() { return list.SaveDPOFInfo(nullptr, Arg("CAM")); }
};

TEST_F(FatPrintOrder, IsReadAgainWhenTheCardComesBack) {
  With(3);
  Order(0, 2);
  Order(2, 99);
  EXPECT_EQ(Save(), 0);
  ASSERT_EQ(ScanAgain(), 3);
  EXPECT_EQ(At(0).dpofCopies, 2);
  EXPECT_EQ(At(1).dpofCopies, 0);
  EXPECT_EQ(At(2).dpofCopies, 99);
}

TEST_F(FatPrintOrder, OfFilesInSmallLettersIsReadAgain) {
  card.MakeFile("dcim/100photo/qvx_0001.jpg");
  card.MakeDir("misc");
  ASSERT_EQ(Scan(), 1);
  Order(0, 3);
  EXPECT_EQ(Save(), 0);
  EXPECT_TRUE(card.Exists("misc/autprint.mrk"));
  ASSERT_EQ(ScanAgain(), 1);
  EXPECT_EQ(At(0).dpofCopies, 3);
}

TEST_F(FatPrintOrder, LosesTheFilesThatAreDeleted) {
  With(3);
  for (int index = 0; index < 3; ++index) Order(index, index + 1);
  ASSERT_EQ(Save(), 0);
  CQFileListItem item = At(1);
  EXPECT_EQ(list.Delete(&item, false, true), 10000003);
  ASSERT_EQ(ScanAgain(), 2);
  EXPECT_EQ(At(0).dpofCopies, 1);
  EXPECT_EQ(At(1).dpofCopies, 3);
  EXPECT_EQ(card.ReadFile(kOrder).find("QVX_0002"), std::string::npos);
}

TEST_F(FatPrintOrder, ReplacesALongerOneWhole) {
  With(40);
  for (int index = 0; index < 40; ++index) Order(index, 1);
  ASSERT_EQ(Save(), 0);
  const size_t longer = card.ReadFile(kOrder).size();
  list.SetDPOFAll(0);
  Order(7, 5);
  ASSERT_EQ(Save(), 0);
  EXPECT_LT(card.ReadFile(kOrder).size(), longer);
  ASSERT_EQ(ScanAgain(), 40);
  EXPECT_EQ(At(7).dpofCopies, 5);
  EXPECT_EQ(At(8).dpofCopies, 0);
}

TEST_F(FatPrintOrder, OnAReadOnlyBitCannotBeSavedByWhomPermissionsBind) {
  With(1);
  ASSERT_EQ(Save(), 0);
  SetReadOnlyBit(kOrder, true);
  const OrdinaryUser user;
  if (!user.Held()) GTEST_SKIP() << "the system lets the superuser be nobody else";
  EXPECT_EQ(Save(), -1);
}

class FatWithoutRoom : public FatPrintOrder {};

TEST_F(FatWithoutRoom, AShortPrintOrderFailsWithTheClosing) {
  With(2);
  Order(0, 1);
  const FullCard full(card, 0);
  ASSERT_TRUE(full.IsFull());
  EXPECT_EQ(Save(), -1);
  EXPECT_EQ(card.ReadFile(kOrder), "");
}

TEST_F(FatWithoutRoom, APrintOrderThatIsCutSaysSo) {
  constexpr size_t kRoom = 8192;
  With(200);
  for (int index = 0; index < 200; ++index) Order(index, 1);
  ASSERT_EQ(Save(), 0);
  const std::string whole = card.ReadFile(kOrder);
  card.Remove(kOrder);
  {
    const FullCard full(card, kRoom);
    ASSERT_TRUE(full.IsFull());
    EXPECT_EQ(Save(), -1);
    const std::string cut = card.ReadFile(kOrder);
    EXPECT_EQ(cut, whole.substr(0, cut.size()));
    EXPECT_GE(cut.size(), kRoom);
    EXPECT_LT(cut.size(), whole.size());
  }
  EXPECT_EQ(Save(), 0);
  EXPECT_EQ(card.ReadFile(kOrder), whole);
}

TEST_F(FatWithoutRoom, ANewFolderThatCannotBeMadeStopsNoNaming) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 9999, 1, "JPG");
  ASSERT_EQ(Scan(), 1);
  const FullCard full(card, 0);
  ASSERT_TRUE(full.IsFull());
  char path[396] = {};
  EXPECT_EQ(list.GetNewFileName(path, 0), 0);
  EXPECT_EQ(Relative(path), "DCIM/101PHOTO/QVX_0001.JPG");
  EXPECT_FALSE(card.Exists("DCIM/101PHOTO"));
}

TEST_F(FatWithoutRoom, FilesCanBeDeletedAndTheRoomIsFreeAgain) {
  card.MakeFile("DCIM/100PHOTO/QVX_0001.JPG", std::string(1 << 16, 'p'));
  card.MakeFile("DCIM/100PHOTO/QVX_0002.JPG");
  card.MakeDir("MISC");
  ASSERT_EQ(Scan(), 2);
  const FullCard full(card, 0);
  ASSERT_TRUE(full.IsFull());
  CQFileListItem item = At(0);
  EXPECT_EQ(list.Delete(&item, false, true), 10000002);
  EXPECT_FALSE(card.Exists("DCIM/100PHOTO/QVX_0001.JPG"));
  EXPECT_EQ(Save(), 0) << "there is room for an order now";
}

TEST_F(FatWithoutRoom, TheEarlierSeriesValueStays) {
  ASSERT_EQ(pref_set_long(1, kSeries, 10100005), 0);
  const FullCard full(card, 0);
  ASSERT_TRUE(full.IsFull());
  EXPECT_EQ(pref_set_long(1, kSeries, 10100006), -1);
  EXPECT_EQ(pref_get_long(1, kSeries), 10100005);
}

class FatPreference : public OnFat {};

TEST_F(FatPreference, IsReplacedAndKeptWhenTheCardComesBack) {
  for (const long value : {10000001L, 10000002L, 10109999L}) {
    ASSERT_EQ(pref_set_long(1, kSeries, value), 0);
  }
  TakeOutAndPutBack();
  EXPECT_EQ(pref_get_long(1, kSeries), 10109999);
}

TEST_F(FatPreference, LeavesNoOtherFileBesideIt) {
  const ScopedVariable here("FLM_PREFERENCE_FILE", card.Path("series").c_str());
  ASSERT_EQ(pref_set_long(1, kSeries, 10000001), 0);
  ASSERT_EQ(pref_set_long(1, kSeries, 10000002), 0);
  EXPECT_EQ(card.Tree(), std::vector<std::string>{"series"});
}

}  // namespace
}  // namespace flm_test
