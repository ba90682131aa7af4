// What is answered when memory is short. The allocations that the library makes without exceptions
// go through the two operators below, which fail one of them on demand and are ordinary otherwise.
#include <gtest/gtest.h>

#include <new>

#include "dpof/CQFileReader.h"
#include "tests/dcf/dir_fixture.h"

namespace {

int g_allocationsUntilFailure = 0;  // 0: none fails

bool IsTheOneToFail() { return g_allocationsUntilFailure > 0 && --g_allocationsUntilFailure == 0; }

// Lets the n-th allocation from now fail, and none after the end of its life.
class FailingAllocation {
 public:
  explicit FailingAllocation(int n) { g_allocationsUntilFailure = n; }
  ~FailingAllocation() { g_allocationsUntilFailure = 0; }
};

}  // namespace

void* operator new(size_t size, const std::nothrow_t&) noexcept {
  if (IsTheOneToFail()) return nullptr;
  try {
    return ::operator new(size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](size_t size, const std::nothrow_t&) noexcept {
  if (IsTheOneToFail()) return nullptr;
  try {
    return ::operator new[](size);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

namespace {

using flm_test::Arg;
using flm_test::Lines;

class NoMemory : public flm_test::DirOnCard {};

TEST_F(NoMemory, ForTheItemListGivesNoItem) {
  const FailingAllocation failing(1);
  EXPECT_EQ(nullptr, dir_.AddItem());
  EXPECT_EQ(1, dir_.IsEmpty());
}

TEST_F(NoMemory, ForTheDirectoryReaderIsMinusOneAndListsNothing) {
  Put({"CAM_0001.JPG"});
  dir_.SetListup(true);
  const FailingAllocation failing(2);  // the first one is the item list
  EXPECT_EQ(-1, Scan());
  EXPECT_FALSE(dir_.GetListup());
  EXPECT_EQ(0, dir_.IsEmpty());
  EXPECT_EQ(0, dir_.GetCount());
}

TEST_F(NoMemory, ThatComesBackLetsTheFolderBeRead) {
  Put({"CAM_0001.JPG"});
  {
    const FailingAllocation failing(2);
    ASSERT_EQ(-1, Scan());
  }
  EXPECT_EQ(1, Scan());
  EXPECT_EQ((Lines{"1 CAM_0001.JPG"}), Items());
}

TEST_F(NoMemory, ForTheBlockOfALineReaderIsAFileThatWasNotOpened) {
  card_.MakeFile("f", "A\n");
  const int before = flm_test::FdCount();
  const FailingAllocation failing(1);
  CQFileReader reader(Arg(card_.Path("f")));
  char line[8];
  EXPECT_EQ(-100, reader.GetStatus());
  EXPECT_FALSE(reader.FlagCreate());
  EXPECT_EQ(-1, reader.GetLine(line, sizeof(line), '\n'));
  EXPECT_EQ(before, flm_test::FdCount());
}

}  // namespace
