// A folder large enough to be looked up in by its index, listed while requests for memory fail. The
// index only saves time: a scan that lists the folder at all lists it as with all the memory there
// is, and every answer is the same.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <string>

#include "dcf/CQDCFItemList.h"
#include "dcf/CQDCFMemManager.h"
#include "tests/dcf/list_fixture.h"
#include "tests/faults/fault_gate.h"

namespace flm_faults {
namespace {

using flm_test::CardCatalogue;

constexpr int kPictures = 300;
constexpr int kOtherFiles = 40;  // of a kind that no catalogue holds
constexpr int kLimit = 100000;
constexpr int kSelected = 5;
constexpr int kCopies = 2;

std::string Picture(int number) {
  char path[64];
  std::snprintf(path, sizeof(path), "DCIM/100PHOTO/QVX_%04d.JPG", number);
  return path;
}

class LargeFolderFaults : public testing::Test {
 protected:
  LargeFolderFaults() {
    c_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kPictures, "JPG");
    c_.card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kOtherFiles, "TXT");
    // What is there but once in the life of a catalogue.
    c_.Scan();
  }

  // Scans with a fault; the requests for memory that were counted.
  int Scan(const Fault& fault) {
    Gate::Begin(fault, kLimit);
    c_.Scan();
    return Gate::End().requests;
  }

  // All that the catalogue says of the files, and of changes to them.
  std::string Answers() {
    std::string answers = Files();
    for (const int number : {1, 64, 65, 150, kPictures}) c_.SetBit(Picture(number), kSelected);
    for (const int number : {2, 150, 299})
      c_.list.SetCustomInfo(c_.Path(Picture(number)), kCopies, 3);
    answers += Marked();
    for (const int number : {1, 150, 151, kPictures})
      answers += std::to_string(c_.list.RemoveFile(c_.Path(Picture(number)))) + " ";
    for (const int number : {150, kPictures + 1})
      answers += std::to_string(c_.list.AddFile(c_.Path(Picture(number)))) + " ";
    return answers + Files() + Marked();
  }

  CardCatalogue c_;

 private:
  std::string Files() {
    std::string answers = std::to_string(c_.list.GetCount()) + " files\n";
    for (const std::string& file : c_.Held()) answers += file + " ";
    for (int number = 0; number <= kPictures + 2; ++number) {
      flm_test::Text path = c_.Path(Picture(number));
      answers += std::to_string(c_.list.IsExist(path)) + "@" +
                 std::to_string(c_.list.GetListIndex(path)) + " ";
    }
    return answers + "\n";
  }
  std::string Marked() {
    std::string answers = std::to_string(c_.list.GetCustomBitCount(kSelected)) + " selected: ";
    for (auto step = c_.BitFirst(kSelected); step.result == 0; step = c_.BitNext(kSelected))
      answers += step.path + " ";
    for (auto step = c_.BitLast(kSelected); step.result == 0; step = c_.BitPrev(kSelected))
      answers += step.path + " ";
    char path[flm::kPathSize];
    CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(kCopies, c_.list.GetCount());
    while (const int copies = c_.list.GetNextWithInfo(walk, path, flm::kPathSize))
      answers += std::to_string(copies) + " of " + c_.Relative(path) + " ";
    return answers + "\n";
  }
};

TEST_F(LargeFolderFaults, AFolderThatIsListedIsListedAsWithAllMemory) {
  const int requests = Scan(Fault());
  const std::string whole = Answers();
  ASSERT_NE(whole.find("300 files"), std::string::npos);
  int spared = 0;
  for (int at = 1; at <= requests; ++at) {
    for (const bool lasting : {false, true}) {
      const Fault fault = {Source::kMemory, at, lasting, ENOMEM};
      Scan(fault);
      if (c_.list.GetCount() <= 0) continue;
      ++spared;
      EXPECT_EQ(whole, Answers()) << Describe(fault);
    }
  }
  // The sorting by number, the index, and the index made smaller fail once each, and the last of
  // them for good.
  constexpr int kSpared = 4;
  EXPECT_EQ(spared, kSpared) << "of " << requests;
}

// The records of a list in order, after it was sorted with a fault.
std::string Sorted(const Fault& fault) {
  CQDCFMemManager pool;
  pool.Create(static_cast<int>(sizeof(DCFItem)), kPictures, 0);
  CQDCFItemList list;
  list.SetMemMgr(&pool);
  for (int number = kPictures; number > 0; --number) {
    DCFItem* const item = list.AddTail();
    item->fileNumber = static_cast<int16_t>(number * 7 % kPictures);
    std::snprintf(item->fileName, sizeof(item->fileName), "QVX_%04d.JPG", int{item->fileNumber});
  }
  Gate::Begin(fault, kLimit);
  list.Sort();
  Gate::End();
  std::string names;
  for (const DCFItem* item = list.Head(); item != nullptr; item = item->next)
    names += std::string(item->fileName) + " ";
  return names;
}

TEST(LargeListFaults, AListIsSortedWithoutMemoryToo) {
  const std::string sorted = Sorted(Fault());
  EXPECT_EQ(0U, sorted.find("QVX_0000.JPG QVX_0001.JPG QVX_0002.JPG "));
  EXPECT_EQ(sorted, Sorted({Source::kMemory, 1, true, ENOMEM}));
}

}  // namespace
}  // namespace flm_faults
