// Random changes of one directory, small and large and across the size where look-ups change their
// ways; after each of them every look-up is held to a plain walk over the records.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "dcf/CQDCFDir.h"
#include "dcf/CQDCFMemManager.h"
#include "tests/dcf/plain_walks.h"
#include "tests/model/model_choice.h"
#include "tests/support/card.h"

namespace {

using flm_model::Choice;
using flm_test::Arg;
using flm_test::Items;

constexpr int kUnits = 420;
constexpr int kRounds = 60;
constexpr int kStepsInRound = 160;
constexpr int kQuestions = 6;        // of each kind after a step
constexpr int kFileNumbers = 10000;  // of the flags that duplicates are looked up by

const std::vector<std::string> kPrefixes = {"QVX_", "QVX_", "CAM_", "HDE_", "sdc1", "ABCD"};
const std::vector<std::string> kExtensions = {"JPG", "JPG", "MP4", "MPO", "MP3", "SRW", "jpg"};
const std::vector<std::string> kFreeNames = {"HOLIDAY1.JPG", "holiday in the hills.JPG", "a.jpg",
                                             "HOLIDAY1.WAV", "QVX_0001.JPG"};

// A directory, the choices made on it, and the reference.
class RandomDir {
 public:
  RandomDir(uint64_t seed, short number)
      : choice_(seed), number_(number), flags_(kFileNumbers, '\0') {
    pool_.Create(static_cast<int>(sizeof(DCFItem)), kUnits, 0);
    dir_.SetMemMgr(&pool_);
    dir_.SetDnum(number);
    dir_.SetDirName(number == 99 ? "CAMERA" : "100PHOTO");
    numbers_ = choice_.Chance(50) ? 400 : 40;  // few numbers: many files of one number
    for (char& flag : flags_) flag = choice_.Chance(70) ? 1 : 0;
  }
  ~RandomDir() { dir_.FreeMem(); }

  // Begins with the files of a folder on a card instead of with nothing.
  void Scan(const flm_test::Card& card) {
    EXPECT_LT(200, dir_.Listup(Arg(card.Root()), 4, number_, 0));
    sorted_ = true;
  }

  void Run(int steps) {
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      if (step % 40 == 0) aim_ = choice_.From(std::vector<int>{31, 34, 63, 64, 65, 66, 150, 300});
      Change();
      Compare(step);
    }
  }

 private:
  Items Walk() const { return flm_test::ItemsFrom(dir_.GetFirstItem()); }
  DCFItem* AnyItem() {
    Items items = Walk();
    return items.empty() ? nullptr : choice_.From(items);
  }
  int AnyNumber() {
    DCFItem* item = choice_.Chance(60) ? AnyItem() : nullptr;
    if (item != nullptr) return item->fileNumber + (choice_.Chance(3) ? 65536 : 0);
    return choice_.Chance(90) ? choice_.Below(numbers_) : choice_.Range(-2, 40000);
  }
  std::string AnyName(int number) {
    if (number_ == 99 && choice_.Chance(60)) {
      return choice_.Chance(30) ? choice_.From(kFreeNames)
                                : "free name " + std::to_string(choice_.Below(300)) + ".jpg";
    }
    std::string digits = std::to_string(10000 + (number & 0x1FFF) % 10000).substr(1);
    return choice_.From(kPrefixes) + digits + "." + choice_.From(kExtensions);
  }
  std::string AnyPath(int number) {
    const DCFItem* item = choice_.Chance(70) ? AnyItem() : nullptr;
    std::string name = item == nullptr ? AnyName(number) : item->fileName;
    std::string path = std::string("/c/DCIM/") + dir_.GetDirName() + "/" + name;
    if (choice_.Chance(10)) path[path.size() - 3] = choice_.Chance(50) ? 'M' : 'X';
    if (choice_.Chance(5)) path = path.substr(static_cast<size_t>(choice_.Below(15)));
    if (choice_.Chance(3)) path = name.substr(0, static_cast<size_t>(choice_.Below(6)));
    return path;
  }

  void Change() {
    int count = static_cast<int>(Walk().size());
    int kind = choice_.Below(100);
    if (kind < 55) {
      int times = choice_.Chance(25) ? choice_.Range(2, 30) : 1;
      for (int i = 0; i < times; ++i) count < aim_ ? Add() : Remove();
    } else if (kind < 85) {
      ChangeField(AnyItem());
    } else if (kind < 93) {
      count < aim_ ? Remove() : Add();
    } else {
      ChangeAll();
    }
  }

  void Add() {
    int number = choice_.Below(numbers_);
    std::string name = AnyName(number);
    int added = 0;
    switch (choice_.Below(5)) {
      case 0:
        WriteRaw(dir_.AddItem(), number, name);
        return;
      case 1: {
        DCFItem* item = dir_.AddItem();
        dir_.SetFileName(item, name.c_str());
        dir_.SetFnum(item, static_cast<short>(number));
        dir_.SetDnum(item, 0);
        return;
      }
      default:
        dir_.AddFile(nullptr, number, name.c_str(), &added, 7);
    }
  }

  // A caller may fill a record that it was just given, without any operation.
  void WriteRaw(DCFItem* item, int number, const std::string& name) {
    if (item == nullptr) return;
    item->fileNumber = static_cast<int16_t>(choice_.Chance(90) ? number : -1);
    if (choice_.Chance(50)) return;
    item->itemBits = static_cast<uint8_t>(choice_.Below(256));
    std::memcpy(item->prefixChars, name.data(), sizeof(item->prefixChars));
    std::memcpy(item->extChars, name.data() + name.size() - 3, sizeof(item->extChars));
    std::memset(item->fileName, 0, sizeof(item->fileName));
    std::memcpy(item->fileName, name.data(), name.size());
  }

  void Remove() {
    Items items = Walk();
    if (items.empty()) return;
    int place = choice_.Below(10);
    DCFItem* item = place == 0 ? items.front() : place == 1 ? items.back() : choice_.From(items);
    EXPECT_EQ(0, dir_.RemoveItem(item));
  }

  void ChangeField(DCFItem* item) {
    if (item == nullptr) return;
    int number = choice_.Below(numbers_);
    std::string name = AnyName(number);
    bool on = choice_.Chance(50);
    int added = 0;
    switch (choice_.Below(9)) {
      case 0:
        dir_.SetFnum(item, static_cast<short>(choice_.Chance(95) ? number : -1));
        return;
      case 1:
        dir_.SetFileName(item, name.c_str());
        return;
      case 2:
        dir_.SetPrefix(item, name.c_str());
        return;
      case 3:
        dir_.SetPrefix(item, choice_.Below(8));
        return;
      case 4:
        dir_.SetItemBit(item, choice_.Range(-1, 8), on);
        return;
      case 5:
        dir_.SetItemBit(AnyNumber(), choice_.Below(8), on);
        return;
      case 6:
        dir_.AddFile(item, number, name.c_str(), &added, 9);
        return;
      default:
        SetByte(item);
    }
  }

  void SetByte(DCFItem* item) {
    int byte = choice_.Range(-1, flm_test::kInfoBytes);
    if (choice_.Chance(50)) byte = choice_.From(std::vector<int>{0, 1, 3, 4, 7, 8, 9, 22});
    unsigned char value = static_cast<unsigned char>(choice_.Below(256));
    if (byte == 1) value = choice_.Chance(80) ? 0 : 255;
    dir_.SetItemInfo(item, byte, value);
    bool info = byte >= 0 && byte < flm_test::kInfoBytes;
    if (info) {
      EXPECT_EQ(value, flm_test::BytesOf(item)[byte]);
    }
  }

  void ChangeAll() {
    std::vector<flm_test::Payload> before = flm_test::PayloadsOf(Walk());
    switch (choice_.Below(6)) {
      case 0:
        dir_.FreeMem();
        EXPECT_EQ(1, dir_.IsEmpty());
        if (choice_.Chance(50)) dir_.GetMem();
        return;
      case 1:
        dir_.GetMem();
        return;
      default:
        // A directory is sorted once, until it is read again.
        bool sorts = !sorted_ && dir_.IsEmpty() == 0;
        dir_.Sort();
        if (sorts) {
          EXPECT_EQ(flm_test::PlainlySorted(before), flm_test::PayloadsOf(Walk()));
        }
        if (sorts) sorted_ = true;
    }
  }

  void Compare(int step) {
    SCOPED_TRACE("step " + std::to_string(step));
    Items items = Walk();
    ASSERT_TRUE(flm_test::IsLinkedBothWays(items));
    EXPECT_EQ(static_cast<int>(items.size()), dir_.GetCountVariable());
    EXPECT_EQ(items.empty() ? nullptr : items.back(), dir_.GetLastItem());
    if (choice_.Chance(30)) {
      EXPECT_EQ(static_cast<int>(items.size()), dir_.GetCount());
    }
    for (int i = 0; i < kQuestions; ++i) CompareNumber(items, AnyNumber());
    for (int i = 0; i < kQuestions; ++i) ComparePath(items);
    if (choice_.Chance(10)) Attach(items);
  }

  void CompareNumber(const Items& items, int number) {
    DCFItem* const expected = flm_test::PlainByNumber(items, number);
    ASSERT_EQ(expected, dir_.GetItem(number)) << number;
    EXPECT_EQ(flm_test::HasBit(expected, 0), dir_.IsEnabledItem(number)) << number;
    int bit = choice_.Below(8);
    EXPECT_EQ(flm_test::HasBit(expected, bit), dir_.GetItemBit(number, bit)) << number;
    int shown = flm_test::HasBit(expected, 0) ? number + number_ % 100 * 100 : -2;
    EXPECT_EQ(shown, dir_.GetFnum(number)) << number;
    if (number < 0 || number >= kFileNumbers) return;
    std::string name = AnyName(number);
    bool duplicate = name.compare(0, 4, "sdc1") == 0 && flags_[static_cast<size_t>(number)] != 0;
    EXPECT_EQ(duplicate ? expected : nullptr, dir_.CheckDup(flags_.data(), number, name.c_str()));
  }

  void ComparePath(const Items& items) {
    int number = AnyNumber();
    std::string path = AnyPath(number);
    EXPECT_EQ(flm_test::PlainByPath(items, number_, number, path),
              dir_.GetItem(number, path.c_str()))
        << number << " " << path;
    int position = flm_test::PlainPosition(items, number, path);
    EXPECT_EQ(dir_.IsEmpty() != 0 ? 0 : position, dir_.GetFidx(number, path.c_str()))
        << number << " " << path;
  }

  // A companion joins the first file of its number.
  void Attach(const Items& items) {
    std::string name = "QVX_" + std::to_string(10000 + choice_.Below(numbers_)).substr(1) + ".SRW";
    DCFItem* const expected = flm_test::PlainByNumber(items, std::stoi(name.substr(4, 4)));
    if (expected != nullptr) expected->companionSrw = ' ';
    EXPECT_EQ(expected == nullptr ? -1 : 0, dir_.SetObject(name.c_str()));
    if (expected != nullptr) {
      EXPECT_EQ('S', expected->companionSrw);
    }
  }

  Choice choice_;
  short number_;
  CQDCFMemManager pool_;
  CQDCFDir dir_;
  std::string flags_;
  int numbers_;
  int aim_ = 32;
  bool sorted_ = false;
};

TEST(DirReference, EveryLookUpOfANumberedFolderAnswersAsThePlainWalk) {
  for (uint64_t seed = 1; seed <= kRounds && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomDir(seed, 100).Run(kStepsInRound);
  }
}

TEST(DirReference, EveryLookUpOfTheCameraFolderAnswersAsThePlainWalk) {
  for (uint64_t seed = 1001; seed <= 1000 + kRounds && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomDir(seed, 99).Run(kStepsInRound);
  }
}

TEST(DirReference, EveryLookUpAfterAScanAnswersAsThePlainWalk) {
  flm_test::Card card;
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 120, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 50, 30, "MP4");
  card.MakeFiles("DCIM/100PHOTO", "CAM_", 20, 60, "JPG");
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 10, 20, "MPO");
  for (uint64_t seed = 2001; seed <= 2000 + kRounds / 2 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomDir dir(seed, 100);
    dir.Scan(card);
    dir.Run(kStepsInRound);
  }
}

}  // namespace
