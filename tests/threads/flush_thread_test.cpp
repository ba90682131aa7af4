// The flush threads as they are, started by removals. Everything else that these tests share with
// them is atomic, so that a thread sanitizer may watch.
#include <gtest/gtest.h>
#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <string>

#include "filelist/CQFileList.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;

constexpr int kFiles = 12;
constexpr int kAllModesList = 4;

bool OnCallersThread() {
  static const pthread_t caller = pthread_self();
  return pthread_equal(caller, pthread_self()) != 0;
}

// A card whose flushes on threads of their own take until they are told to end, at most 20 seconds;
// those that the caller waits for are done at once.
class Flushing : public testing::Test {
 protected:
  Flushing() {
    OnCallersThread();
    released = false;
    begun = ended = 0;
    flm::Os().Sync = [] {
      if (OnCallersThread()) return;
      ++begun;
      Wait([] { return released.load(); });
      ++ended;
    };
  }
  ~Flushing() override {
    End();
    flm::ResetOsCalls();
  }

  template <class Condition>
  static void Wait(Condition holds) {
    for (int i = 0; i < 20000 && !holds(); ++i) usleep(1000);
  }
  static void WaitForBegun(int count) {
    Wait([count] { return begun == count; });
    EXPECT_EQ(count, begun);
  }
  static void End() {
    released = true;
    Wait([] { return ended == begun; });
  }
  int Remove(const std::string& relative) {
    return PCQDCFFSIO::RemoveFile(Arg(card.Path(relative)), true);
  }

  Card card;
  inline static std::atomic<bool> released{false};
  inline static std::atomic<int> begun{0};
  inline static std::atomic<int> ended{0};
};

TEST_F(Flushing, IsNotWaitedFor) {
  card.MakeFile("f");
  EXPECT_EQ(0, Remove("f"));
  EXPECT_EQ(0, ended);
  WaitForBegun(1);
  End();
  EXPECT_EQ(1, ended);
}

TEST_F(Flushing, RunsManyTimesAtOnceAfterARunOfRemovals) {
  card.MakeFiles("d", "QVX_", 1, kFiles, "JPG");
  for (int number = 1; number <= kFiles; ++number) {
    EXPECT_EQ(0, Remove("d/QVX_" + std::to_string(10000 + number).substr(1) + ".JPG"));
  }
  WaitForBegun(kFiles);
  EXPECT_EQ(0, ended);
  End();
  EXPECT_EQ(kFiles, ended);
}

// The table of calls is the library's; a thread that outlives a change of it must not read it.
TEST_F(Flushing, KeepsTheCallThatTheRemovalFound) {
  static std::atomic<int> others;
  others = 0;
  card.MakeFiles("d", "QVX_", 1, kFiles, "JPG");
  const auto slow = flm::Os().Sync;
  for (int number = 1; number <= kFiles; ++number) {
    flm::Os().Sync = slow;
    EXPECT_EQ(0, Remove("d/QVX_" + std::to_string(10000 + number).substr(1) + ".JPG"));
    flm::Os().Sync = [] { ++others; };
  }
  WaitForBegun(kFiles);
  End();
  EXPECT_EQ(kFiles, ended);
  EXPECT_EQ(0, others);
}

TEST_F(Flushing, LeavesTheListToItsCaller) {
  card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, kFiles, "JPG");
  CQFileList list;
  list.SetBaseURI(card.Root().c_str());
  list.SetType(kAllModesList);
  ASSERT_EQ(kFiles, list.Listup(0));
  for (int left = kFiles - 1; left > 0; --left) {
    CQFileListItem item;
    ASSERT_EQ(0, list.GetAt(0, &item, true));
    EXPECT_EQ(0, list.SetProtect(&item, true));
    EXPECT_EQ(0, list.SetProtect(&item, false));
    EXPECT_LE(0, list.Delete(&item, false, false));
    EXPECT_EQ(left, list.Listup(0));
  }
  WaitForBegun(kFiles - 1);
  EXPECT_EQ(0, ended);
  list.Destroy();
}

}  // namespace
