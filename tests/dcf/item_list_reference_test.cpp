// Random sequences on the list of records, across sizes from none to hundreds, with every position
// held to a plain walk along the links.
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "dcf/CQDCFItemList.h"
#include "dcf/CQDCFMemManager.h"
#include "tests/dcf/plain_walks.h"
#include "tests/model/model_choice.h"

namespace {

using flm_model::Choice;
using flm_test::Items;

constexpr int kUnits = 320;
constexpr int kRounds = 60;
constexpr int kStepsInRound = 150;

class RandomItemList {
 public:
  explicit RandomItemList(uint64_t seed) : choice_(seed) {
    pool_.Create(static_cast<int>(sizeof(DCFItem)), kUnits, 0);
    list_.SetMemMgr(&pool_);
  }

  void Run(int steps) {
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      if (step % 30 == 0) aim_ = choice_.From(std::vector<int>{0, 31, 34, 63, 64, 65, 66, 90, 300});
      Change();
      Compare();
    }
  }

 private:
  Items Walk() const { return flm_test::ItemsFrom(list_.Head()); }

  void Change() {
    int kind = choice_.Below(100);
    int times = choice_.Chance(30) ? choice_.Range(2, 40) : 1;
    if (kind < 75) {
      for (int i = 0; i < times; ++i) list_.GetCount() < aim_ ? Add() : Delete();
    } else if (kind < 85) {
      list_.GetCount() < aim_ ? Delete() : Add();
    } else if (kind < 97) {
      std::vector<flm_test::Payload> before = flm_test::PayloadsOf(Walk());
      Items nodes = Walk();
      list_.Sort();
      EXPECT_EQ(flm_test::PlainlySorted(before), flm_test::PayloadsOf(Walk()));
      EXPECT_EQ(nodes, Walk()) << "the nodes keep their positions";
    } else {
      list_.RemoveAll();
      EXPECT_EQ(nullptr, list_.Head());
    }
  }

  void Add() {
    Items before = Walk();
    DCFItem* const item = list_.AddTail();
    if (static_cast<int>(before.size()) == kUnits) {
      EXPECT_EQ(nullptr, item);
      return;
    }
    before.push_back(item);
    EXPECT_EQ(before, Walk());
    ASSERT_NE(nullptr, item);
    item->fileNumber = static_cast<int16_t>(choice_.Range(-1, 60));
    std::memset(item->fileName, 0, sizeof(item->fileName));
    item->fileName[0] = static_cast<char>(choice_.Range('A', 'E'));
    item->dpofCopies = static_cast<uint8_t>(choice_.Below(256));  // tells equal names apart
  }

  void Delete() {
    Items left = Walk();
    if (left.empty()) return;
    size_t position = static_cast<size_t>(choice_.Below(static_cast<int>(left.size())));
    if (choice_.Chance(15)) position = 0;
    if (choice_.Chance(15)) position = left.size() - 1;
    EXPECT_EQ(0, list_.DeleteItemAt(left[position]));
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(position));
    EXPECT_EQ(left, Walk());
  }

  void Compare() {
    Items items = Walk();
    int count = static_cast<int>(items.size());
    ASSERT_TRUE(flm_test::IsLinkedBothWays(items));
    EXPECT_EQ(count, list_.GetCount());
    if (choice_.Chance(30)) {
      EXPECT_EQ(count, list_.UpdateCount());
    }
    for (int position : {-1, 0, 1, count - 1, count, count + 1, choice_.Below(count + 1),
                         choice_.Below(count + 1), choice_.Below(count + 1)}) {
      EXPECT_EQ(flm_test::PlainAt(items, position), list_.GetItemAt(position)) << position;
    }
  }

  Choice choice_;
  CQDCFMemManager pool_;
  CQDCFItemList list_;
  int aim_ = 32;
};

TEST(ItemListReference, EveryPositionAndOrderIsThatOfThePlainWalk) {
  for (uint64_t seed = 1; seed <= kRounds && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomItemList(seed).Run(kStepsInRound);
  }
}

}  // namespace
