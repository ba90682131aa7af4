// The flat functions under the same faults. They know their root by heart and are set up once in
// the life of a process; the card is put in the place of that root.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <new>

#include "api/CBIFileListManager.h"
#include "api/flm.h"
#include "tests/faults/fault_parts.h"
#include "tests/faults/faulty_calls.h"

namespace flm_faults {
namespace {

constexpr char kFlatRoot[] = "/mnt/mmc";
constexpr int kFlatPathSize = 1024;
constexpr int kScanFailed = 4;
constexpr int kNoLists = 3;
constexpr int kLimit = 100000;

// Named so that it runs while nothing was set up in this process.
TEST(FlatDeathTest, ListsThatCannotBeMadeAreACode) {
  EXPECT_EXIT(
      {
        Gate::Begin({Source::kMemory, 1, true, ENOMEM}, kLimit);
        int result = -1;
        try {
          result = flm_init();
        } catch (...) {
          result = 100;
        }
        Gate::End();
        std::exit(result);
      },
      testing::ExitedWithCode(kNoLists), "")
      << "100 stands for an exception";
}

// 30 stands for the two answers that are expected of a set that was tried again, in this order.
TEST(FlatDeathTest, AFailedSetUpIsNeverTriedAgain) {
  EXPECT_EXIT(
      {
        Gate::Begin({Source::kMemory, 1, true, ENOMEM}, kLimit);
        const int first = flm_init();
        Gate::End();
        int count = 0;
        const bool rightly =
            first == kNoLists && flm_init() == 0 && flm_get_count(FILELIST_MMC, &count) == kNoLists;
        std::exit(rightly ? 30 : 31);
      },
      testing::ExitedWithCode(30), "");
}

TEST(ManagerUnderFaults, ListsThatCannotBeAllocatedAreAnException) {
  CBIFileListManager::Destroy();
  bool thrown = false;
  Gate::Begin({Source::kMemory, 1, true, ENOMEM}, kLimit);
  try {
    CBIFileListManager::Create(2);
  } catch (const std::bad_alloc&) {
    thrown = true;
  }
  Gate::End();
  EXPECT_TRUE(thrown);
  char root[] = "";
  EXPECT_EQ(CBIFileListManager::GetFileList(root, 0), nullptr);
}

class FlatFaults : public testing::Test {
 protected:
  FlatFaults() : card_(MixedCard()) {
    flm_init();
    FaultyCalls::Mount(kFlatRoot, card_.Root());
  }
  // The card goes before the next test, and with it the catalogue that was read from it.
  ~FlatFaults() override { List()->Destroy(); }

  static CQFileList* List() { return static_cast<CQFileList*>(_flm_get_isfilelist(FILELIST_MMC)); }

  // Every function that acts on files once; the first code that is not documented, else 0.
  static int ActOnFiles(int index) {
    char path[kFlatPathSize];
    char* name = path;
    int value = 0;
    const int results[] = {
        flm_get_at(FILELIST_MMC, index, &name),
        flm_set_cursor(FILELIST_MMC, index),
        flm_get_cursor(FILELIST_MMC, &value),
        flm_is_exist(FILELIST_MMC, path, &value),
        flm_set_selection(FILELIST_MMC, index, 1),
        flm_get_selection(FILELIST_MMC, index, &value),
        flm_set_protection(FILELIST_MMC, index, 1),
        flm_get_protection(FILELIST_MMC, index, &value),
        flm_set_dpof(FILELIST_MMC, index, 1),
        flm_get_dpof(FILELIST_MMC, index, &value),
        flm_get_dpof_index(FILELIST_MMC, index, &value),
        flm_set_dpof_size(FILELIST_MMC, index, 3),
        flm_get_dpof_size(FILELIST_MMC, index, &value),
        flm_remove_file_from_list(FILELIST_MMC, index),
    };
    if (std::memchr(path, '\0', sizeof(path)) == nullptr) return -1;
    for (const int result : results) {
      if (result != 0) return result;
    }
    return 0;
  }

  static int ActOnList() {
    NewName name;
    char* text = name.text;
    char device[] = "camera";
    FileListMode mode = FILELIST_MODE_RESET;
    const int results[] = {
        flm_move_to_first(FILELIST_MMC),
        flm_move_to_next(FILELIST_MMC),
        flm_move_to_last(FILELIST_MMC),
        flm_move_to_prev(FILELIST_MMC),
        flm_set_series_mode(FILELIST_MMC, FILELIST_MODE_SERIES),
        flm_get_series_mode(FILELIST_MMC, &mode),
        flm_set_dpof_all(FILELIST_MMC, 1),
        flm_set_dpof_index(FILELIST_MMC, 1),
        flm_set_dpof_size_all(FILELIST_MMC, 4),
        flm_save_dpof_info(FILELIST_MMC, device),
        flm_load_dpof_info(FILELIST_MMC),
        flm_get_new_filename(FILELIST_MMC, FILETYPE_JPG, &text),
    };
    if (!name.IsWhole()) return -1;
    for (const int result : results) {
      if (result != 0) return result;
    }
    return 0;
  }

  // The scan and every function behind it; whether each code is one that is documented.
  static bool ScanAndAct() {
    const int scan = flm_listup(FILELIST_MMC);
    int count = 0;
    flm_get_count(FILELIST_MMC, &count);
    const bool told = scan == (count < 0 ? kScanFailed : 0);
    return told && ActOnList() == 0 && ActOnFiles(2) == 0 && ActOnFiles(0) == 0;
  }

  // What is wrong after a run under one fault.
  Complaint Run(const Fault& fault) {
    List()->Destroy();
    bool documented = false;
    bool escaped = false;
    Gate::Begin(fault, kLimit);
    try {
      documented = ScanAndAct();
    } catch (...) {
      escaped = true;
    }
    counted_ = Gate::End();
    const Tree now = card_.Look();
    const Complaint complaint = escaped              ? "an exception leaves a flat function"
                                : !documented        ? "a code that is not documented"
                                : counted_.open != 0 ? "handles left open"
                                                     : WhatIsGone(now);
    card_.Restore(now);
    return complaint.empty() ? "" : complaint + ": " + Describe(fault);
  }

  Complaint WhatIsGone(const Tree& now) const {
    for (const auto& file : card_.Fresh()) {
      if (!HasSame(now, file) && file.first != kPrintOrder) return "gone: " + file.first;
    }
    return "";
  }

  FaultyCalls calls_;
  FaultCard card_;
  Counted counted_;
};

TEST_F(FlatFaults, OfEveryCallToTheSystemAreEndured) {
  ASSERT_EQ("", Run(Fault()));
  const int calls = counted_.calls;
  for (const int error : Errors()) {
    for (int at = 1; at <= calls; ++at) {
      EXPECT_EQ("", Run({Source::kSystem, at, false, error}));
      EXPECT_EQ("", Run({Source::kSystem, at, true, error}));
    }
  }
}

TEST_F(FlatFaults, OfEveryRequestForMemoryAreEndured) {
  ASSERT_EQ("", Run(Fault()));
  const int requests = counted_.requests;
  for (int at = 1; at <= requests; ++at) {
    EXPECT_EQ("", Run({Source::kMemory, at, false, ENOMEM}));
    EXPECT_EQ("", Run({Source::kMemory, at, true, ENOMEM}));
  }
}

}  // namespace
}  // namespace flm_faults
