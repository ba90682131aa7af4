// The pool of items: which unit is handed out next, when there is none left, and that no byte
// outside the pool is touched.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFMemManager.h"
#include "dcf/DCFItem.h"

namespace {

constexpr int kUnit = 60;

class Pool : public testing::Test {
 protected:
  void Make(int units) { EXPECT_EQ(0, pool_.Create(kUnit, units, 0)); }
  // Takes `count` units; null ones are kept too.
  void Take(int count) {
    for (int i = 0; i < count; ++i) taken_.push_back(pool_.AllocBlock());
  }
  CQDCFMemManager pool_;
  std::vector<unsigned char*> taken_;
};

TEST_F(Pool, HasNothingToGiveBeforeItIsMade) {
  EXPECT_EQ(nullptr, pool_.AllocBlock());
  EXPECT_EQ(-1, pool_.FindEmptyBlock());
  EXPECT_FALSE(pool_.HasPool());
}

TEST_F(Pool, HandsUnitsOutLowestFirstSideBySide) {
  Make(100);
  Take(100);
  for (int i = 0; i < 100; ++i) EXPECT_EQ(taken_[0] + i * kUnit, taken_[i]) << i;
}

TEST_F(Pool, AUnitIsTheCallersToItsLastByte) {
  Make(33);
  Take(33);
  for (int i = 0; i < 33; ++i) std::memset(taken_[i], i, kUnit);
  for (int i = 0; i < 33; ++i) {
    EXPECT_EQ(i, taken_[i][0]) << i;
    EXPECT_EQ(i, taken_[i][kUnit - 1]) << i;
  }
}

TEST_F(Pool, FindingAUnitDoesNotTakeIt) {
  Make(3);
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  Take(1);
  EXPECT_EQ(1, pool_.FindEmptyBlock());
}

// The number of units, which may end in the middle of a word of marks, at its end or behind it.
class PoolOf : public testing::TestWithParam<int> {};

TEST_P(PoolOf, GivesExactlyItsUnits) {
  CQDCFMemManager pool;
  ASSERT_EQ(0, pool.Create(kUnit, GetParam(), 0));
  for (int i = 0; i < GetParam(); ++i) {
    EXPECT_EQ(i, pool.FindEmptyBlock());
    ASSERT_NE(nullptr, pool.AllocBlock()) << i;
  }
  EXPECT_EQ(nullptr, pool.AllocBlock());
  EXPECT_EQ(nullptr, pool.AllocBlock());
  EXPECT_EQ(-1, pool.FindEmptyBlock());
}

TEST_P(PoolOf, GivesItsLastUnitAgainWhenItWasFreed) {
  CQDCFMemManager pool;
  ASSERT_EQ(0, pool.Create(kUnit, GetParam(), 0));
  unsigned char* last = nullptr;
  for (int i = 0; i < GetParam(); ++i) last = pool.AllocBlock();
  EXPECT_EQ(0, pool.FreeBlock(last));
  EXPECT_EQ(GetParam() - 1, pool.FindEmptyBlock());
  EXPECT_EQ(last, pool.AllocBlock());
  EXPECT_EQ(nullptr, pool.AllocBlock());
}

INSTANTIATE_TEST_SUITE_P(Sizes, PoolOf, testing::Values(1, 2, 31, 32, 33, 40, 63, 64, 65, 96));

TEST_F(Pool, OfOneWholeCatalogueEndsAfter32000Units) {
  ASSERT_EQ(0, pool_.Create(static_cast<int>(sizeof(DCFItem)), flm::kMaxFiles, 0));
  Take(32000);
  EXPECT_NE(nullptr, taken_.back());
  EXPECT_EQ(nullptr, pool_.AllocBlock());
  EXPECT_EQ(0, pool_.FreeBlock(taken_[12345]));
  EXPECT_EQ(taken_[12345], pool_.AllocBlock());
  EXPECT_EQ(nullptr, pool_.AllocBlock());
}

TEST_F(Pool, GivesFreedUnitsAgainLowestFirst) {
  Make(8);
  Take(8);
  EXPECT_EQ(0, pool_.FreeBlock(taken_[5]));
  EXPECT_EQ(0, pool_.FreeBlock(taken_[2]));
  EXPECT_EQ(taken_[2], pool_.AllocBlock());
  EXPECT_EQ(taken_[5], pool_.AllocBlock());
  EXPECT_EQ(nullptr, pool_.AllocBlock());
}

TEST_F(Pool, GivesAFreedUnitBeforeOneThatWasNeverUsed) {
  Make(100);
  Take(70);
  pool_.FreeBlock(taken_[69]);
  pool_.FreeBlock(taken_[3]);
  pool_.FreeBlock(taken_[40]);
  EXPECT_EQ(taken_[3], pool_.AllocBlock());
  EXPECT_EQ(taken_[40], pool_.AllocBlock());
  EXPECT_EQ(taken_[69], pool_.AllocBlock());
  EXPECT_EQ(taken_[0] + 70 * kUnit, pool_.AllocBlock());
}

TEST_F(Pool, AUnitKeepsWhatItHeld) {
  Make(2);
  Take(2);
  std::memset(taken_[0], 0x5a, kUnit);
  pool_.FreeBlock(taken_[0]);
  ASSERT_EQ(taken_[0], pool_.AllocBlock());
  EXPECT_EQ(0x5a, taken_[0][0]);
  EXPECT_EQ(0x5a, taken_[0][kUnit - 1]);
}

TEST_F(Pool, FreeingAnyByteOfAUnitFreesTheUnit) {
  Make(3);
  Take(3);
  EXPECT_EQ(0, pool_.FreeBlock(taken_[1] + kUnit - 1));
  EXPECT_EQ(taken_[1], pool_.AllocBlock());
}

TEST_F(Pool, FreeingTwiceIsLikeFreeingOnce) {
  Make(3);
  Take(3);
  EXPECT_EQ(0, pool_.FreeBlock(taken_[1]));
  EXPECT_EQ(0, pool_.FreeBlock(taken_[1]));
  EXPECT_EQ(taken_[1], pool_.AllocBlock());
  EXPECT_EQ(nullptr, pool_.AllocBlock());
}

TEST_F(Pool, FreeingWithoutAPoolIsHarmless) {
  unsigned char unit[kUnit] = {};
  EXPECT_EQ(0, pool_.FreeBlock(unit));
  EXPECT_EQ(0, pool_.FreeBlock(nullptr));
}

TEST_F(Pool, AMarkedUnitIsPassedOver) {
  Make(100);
  pool_.SetBlockMark(0, true);
  pool_.SetBlockMark(2, true);
  EXPECT_EQ(1, pool_.FindEmptyBlock());
  for (int i = 0; i < 64; ++i) pool_.SetBlockMark(i, true);
  EXPECT_EQ(64, pool_.FindEmptyBlock());
}

TEST_F(Pool, AClearedMarkMakesItsUnitFree) {
  Make(64);
  Take(64);
  pool_.SetBlockMark(63, false);
  EXPECT_EQ(63, pool_.FindEmptyBlock());
  pool_.SetBlockMark(31, false);
  EXPECT_EQ(31, pool_.FindEmptyBlock());
  pool_.SetBlockMark(31, true);
  EXPECT_EQ(63, pool_.FindEmptyBlock());
}

TEST_F(Pool, AMarkOutsideThePoolChangesNothing) {
  Make(40);
  for (const int index : {-1, 64, 1000, INT_MIN, INT_MAX}) {
    pool_.SetBlockMark(index, true);
    EXPECT_EQ(0, pool_.FindEmptyBlock()) << index;
  }
  CQDCFMemManager none;
  none.SetBlockMark(0, true);
  EXPECT_EQ(-1, none.FindEmptyBlock());
}

TEST_F(Pool, TheFirstClearBitIsCountedFromTheTop) {
  struct {
    unsigned long word;
    int expected;
  } const cases[] = {{0x00000000UL, 0},  {0x7fffffffUL, 0},  {0x80000000UL, 1},  {0xc0000000UL, 2},
                     {0xffff0000UL, 16}, {0xfffffffeUL, 31}, {0xfffffffdUL, 30}, {0xffffffffUL, -1},
                     {0x0fffffffUL, 0},  {0xf7ffffffUL, 4}};
  for (const auto& c : cases) {
    EXPECT_EQ(c.expected, pool_.GetEmptyIndexInBlock(c.word)) << std::hex << c.word;
  }
}

TEST_F(Pool, BitsAboveTheWordAreNoUnits) {
  EXPECT_EQ(-1, pool_.GetEmptyIndexInBlock(~0UL));
  EXPECT_EQ(31, pool_.GetEmptyIndexInBlock(~1UL));
}

TEST_F(Pool, TheThirdArgumentChangesNothing) {
  EXPECT_EQ(0, pool_.Create(kUnit, 2, 1));
  Take(3);
  EXPECT_EQ(taken_[0] + kUnit, taken_[1]);
  EXPECT_EQ(nullptr, taken_[2]);
}

TEST_F(Pool, DestroyedTwiceIsHarmless) {
  Make(40);
  Take(5);
  pool_.Destroy();
  pool_.Destroy();
  EXPECT_FALSE(pool_.HasPool());
  EXPECT_EQ(nullptr, pool_.AllocBlock());
  EXPECT_EQ(-1, pool_.FindEmptyBlock());
}

TEST_F(Pool, MadeAgainAfterDestroyHasEveryUnitFree) {
  Make(40);
  Take(40);
  pool_.Destroy();
  Make(40);
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  EXPECT_TRUE(pool_.HasPool());
}

TEST_F(Pool, MadeAgainWithoutDestroyHasEveryUnitFree) {
  Make(64);
  Take(64);
  Make(8);
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  taken_.clear();
  Take(9);
  EXPECT_NE(nullptr, taken_[7]);
  EXPECT_EQ(nullptr, taken_[8]);
}

TEST_F(Pool, OfNoUnitsHasNothingToGive) {
  for (const int count : {0, -1, INT_MIN}) {
    Make(count);
    EXPECT_EQ(-1, pool_.FindEmptyBlock()) << count;
    EXPECT_EQ(nullptr, pool_.AllocBlock()) << count;
  }
}

TEST_F(Pool, OfUnitsWithoutASizeHasNothingToGive) {
  for (const int size : {0, -1, INT_MIN}) {
    EXPECT_EQ(0, pool_.Create(size, 8, 0)) << size;
    EXPECT_EQ(nullptr, pool_.AllocBlock()) << size;
    unsigned char unit[kUnit] = {};
    EXPECT_EQ(0, pool_.FreeBlock(unit)) << size;
  }
}

TEST(PoolOfUnits, OfOneByteEachIsHandedOutByteByByte) {
  CQDCFMemManager pool;
  ASSERT_EQ(0, pool.Create(1, 33, 0));
  unsigned char* const first = pool.AllocBlock();
  ASSERT_NE(nullptr, first);
  for (int i = 1; i < 33; ++i) EXPECT_EQ(first + i, pool.AllocBlock());
  EXPECT_EQ(nullptr, pool.AllocBlock());
}

}  // namespace
