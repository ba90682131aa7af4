// The list of a directory's items: adding, taking out, emptying and counting.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "dcf/CQDCFItemList.h"
#include "dcf/CQDCFMemManager.h"

namespace {

using Numbers = std::vector<int>;

constexpr int kUnits = 6;

class ItemList : public testing::Test {
 protected:
  ItemList() {
    pool_.Create(static_cast<int>(sizeof(DCFItem)), kUnits, 0);
    list_.SetMemMgr(&pool_);
  }
  // Adds one item for every number.
  void Add(const Numbers& numbers) {
    for (const int number : numbers) {
      DCFItem* const item = list_.AddTail();
      ASSERT_NE(nullptr, item);
      item->fileNumber = static_cast<int16_t>(number);
    }
  }
  Numbers Forward() const {
    Numbers numbers;
    for (DCFItem* item = list_.Head(); item != nullptr; item = item->next) {
      numbers.push_back(item->fileNumber);
    }
    return numbers;
  }
  // From the last node back, which shows that both links agree.
  Numbers Backward() const {
    Numbers numbers;
    DCFItem* item = list_.Head();
    while (item != nullptr && item->next != nullptr) item = item->next;
    for (; item != nullptr; item = item->prev) numbers.push_back(item->fileNumber);
    return numbers;
  }

  CQDCFMemManager pool_;
  CQDCFItemList list_;
};

TEST_F(ItemList, IsEmptyAtFirst) {
  EXPECT_EQ(0, list_.GetCount());
  EXPECT_EQ(nullptr, list_.Head());
  EXPECT_EQ(nullptr, list_.GetItemAt(0));
}

TEST_F(ItemList, GrowsAtItsEnd) {
  Add({3, 1, 2});
  EXPECT_EQ((Numbers{3, 1, 2}), Forward());
  EXPECT_EQ((Numbers{2, 1, 3}), Backward());
  EXPECT_EQ(3, list_.GetCount());
}

TEST_F(ItemList, WithoutAPoolGetsNoItem) {
  CQDCFItemList list;
  EXPECT_EQ(nullptr, list.AddTail());
  list.SetMemMgr(nullptr);
  EXPECT_EQ(nullptr, list.AddTail());
  EXPECT_EQ(0, list.GetCount());
}

TEST_F(ItemList, GetsNoItemFromAnExhaustedPool) {
  Add({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(nullptr, list_.AddTail());
  EXPECT_EQ(6, list_.GetCount());
  EXPECT_EQ((Numbers{1, 2, 3, 4, 5, 6}), Forward());
}

TEST_F(ItemList, ANewItemHasItsFirst16BytesAndItsLinksClear) {
  DCFItem* item = list_.AddTail();
  ASSERT_NE(nullptr, item);
  std::memset(static_cast<void*>(item), 0xff, sizeof(DCFItem));
  pool_.FreeBlock(reinterpret_cast<unsigned char*>(item));
  CQDCFItemList other;
  other.SetMemMgr(&pool_);
  ASSERT_EQ(item, other.AddTail());
  const unsigned char* const bytes = reinterpret_cast<const unsigned char*>(item);
  for (int i = 0; i < 16; ++i) EXPECT_EQ(0, bytes[i]) << i;
  for (int i = 16; i < 22; ++i) EXPECT_EQ(0xff, bytes[i]) << i;
  EXPECT_EQ('\xff', item->fileName[0]);
  EXPECT_EQ('\xff', item->fileName[sizeof(item->fileName) - 1]);
  EXPECT_EQ(nullptr, item->prev);
  EXPECT_EQ(nullptr, item->next);
}

TEST_F(ItemList, TakesTheFirstItemOut) {
  Add({1, 2, 3});
  EXPECT_EQ(0, list_.DeleteItemAt(list_.Head()));
  EXPECT_EQ((Numbers{2, 3}), Forward());
  EXPECT_EQ((Numbers{3, 2}), Backward());
  EXPECT_EQ(nullptr, list_.Head()->prev);
  EXPECT_EQ(2, list_.GetCount());
}

TEST_F(ItemList, TakesAMiddleItemOut) {
  Add({1, 2, 3});
  EXPECT_EQ(0, list_.DeleteItemAt(list_.GetItemAt(1)));
  EXPECT_EQ((Numbers{1, 3}), Forward());
  EXPECT_EQ((Numbers{3, 1}), Backward());
  EXPECT_EQ(2, list_.GetCount());
}

TEST_F(ItemList, GoesOnBehindThePredecessorOfADeletedLastItem) {
  Add({1, 2, 3});
  EXPECT_EQ(0, list_.DeleteItemAt(list_.GetItemAt(2)));
  EXPECT_EQ((Numbers{1, 2}), Forward());
  Add({4});
  EXPECT_EQ((Numbers{1, 2, 4}), Forward());
  EXPECT_EQ((Numbers{4, 2, 1}), Backward());
}

TEST_F(ItemList, IsEmptyAfterItsOnlyItemWasDeleted) {
  Add({1});
  EXPECT_EQ(0, list_.DeleteItemAt(list_.Head()));
  EXPECT_EQ(nullptr, list_.Head());
  EXPECT_EQ(0, list_.GetCount());
  Add({7});
  EXPECT_EQ((Numbers{7}), Forward());
  EXPECT_EQ(nullptr, list_.Head()->prev);
}

TEST_F(ItemList, ADeletedItemGoesBackToThePool) {
  Add({1, 2, 3, 4, 5, 6});
  DCFItem* const second = list_.GetItemAt(1);
  EXPECT_EQ(0, list_.DeleteItemAt(second));
  EXPECT_EQ(second, list_.AddTail());
  EXPECT_EQ(nullptr, list_.AddTail());
}

TEST_F(ItemList, DeletingNullIsRefused) {
  Add({1});
  EXPECT_EQ(-1, list_.DeleteItemAt(nullptr));
  EXPECT_EQ(1, list_.GetCount());
  EXPECT_EQ((Numbers{1}), Forward());
}

TEST_F(ItemList, IsEmptyAfterRemoveAll) {
  Add({1, 2, 3});
  list_.RemoveAll();
  EXPECT_EQ(0, list_.GetCount());
  EXPECT_EQ(nullptr, list_.GetItemAt(0));
  EXPECT_EQ(nullptr, list_.Head());
}

TEST_F(ItemList, RemoveAllGivesEveryUnitBack) {
  Add({1, 2, 3, 4, 5, 6});
  list_.RemoveAll();
  EXPECT_EQ(0, pool_.FindEmptyBlock());
  Add({1, 2, 3, 4, 5, 6});
  EXPECT_EQ(6, list_.GetCount());
}

TEST_F(ItemList, StartsAnewAfterRemoveAll) {
  Add({1, 2, 3});
  list_.RemoveAll();
  Add({9});
  EXPECT_EQ((Numbers{9}), Forward());
  EXPECT_EQ((Numbers{9}), Backward());
  Add({10});
  EXPECT_EQ((Numbers{9, 10}), Forward());
  EXPECT_EQ((Numbers{10, 9}), Backward());
}

TEST_F(ItemList, RemoveAllOfNothingIsHarmless) {
  list_.RemoveAll();
  list_.RemoveAll();
  EXPECT_EQ(0, list_.GetCount());
  CQDCFItemList unused;
  unused.RemoveAll();
  EXPECT_EQ(nullptr, unused.Head());
}

TEST_F(ItemList, ItsEndGivesEveryUnitBack) {
  {
    CQDCFItemList list;
    list.SetMemMgr(&pool_);
    for (int i = 0; i < kUnits; ++i) ASSERT_NE(nullptr, list.AddTail());
    ASSERT_EQ(-1, pool_.FindEmptyBlock());
  }
  EXPECT_EQ(0, pool_.FindEmptyBlock());
}

TEST_F(ItemList, CountsItsNodes) {
  Add({1, 2, 3});
  list_.GetItemAt(1)->next = nullptr;  // the third node is out of reach
  EXPECT_EQ(3, list_.GetCount());
  EXPECT_EQ(2, list_.UpdateCount());
  EXPECT_EQ(2, list_.GetCount());
}

TEST_F(ItemList, CountingNoNodesAnswersZeroAndStoresNothing) {
  CQDCFItemList donor;
  donor.SetMemMgr(&pool_);
  // An item that this list does not hold is the only way to a count without nodes.
  ASSERT_EQ(0, list_.DeleteItemAt(donor.AddTail()));
  ASSERT_EQ(-1, list_.GetCount());
  EXPECT_EQ(0, list_.UpdateCount());
  EXPECT_EQ(-1, list_.GetCount());
}

TEST_F(ItemList, FindsTheItemAtAPosition) {
  Add({5, 6, 7});
  EXPECT_EQ(5, list_.GetItemAt(0)->fileNumber);
  EXPECT_EQ(6, list_.GetItemAt(1)->fileNumber);
  EXPECT_EQ(7, list_.GetItemAt(2)->fileNumber);
}

TEST_F(ItemList, HasNoItemOutsideItsCount) {
  Add({5, 6});
  for (const int position : {2, 3, INT_MAX, -1, INT_MIN}) {
    EXPECT_EQ(nullptr, list_.GetItemAt(position)) << position;
  }
}

TEST_F(ItemList, TheNumberOfAnItemIsItsFileNumber) {
  Add({4321});
  EXPECT_EQ(4321, list_.GetNum(list_.Head()));
  EXPECT_EQ(-1, list_.GetNum(nullptr));
}

TEST_F(ItemList, ComparingTextsIsNotItsBusiness) {
  unsigned char a[] = "A";
  unsigned char b[] = "B";
  EXPECT_EQ(0, list_.GetStrCmpRes(a, b, 1));
  EXPECT_EQ(0, list_.GetStrCmpRes(b, a, 1));
  EXPECT_EQ(0, list_.GetStrCmpRes(nullptr, nullptr, 0));
}

}  // namespace
