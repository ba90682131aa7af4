// Sorting a list of items: by number, then by name; contents move and nodes stay.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <ostream>
#include <random>
#include <string>
#include <vector>

#include "dcf/CQDCFItemList.h"
#include "dcf/CQDCFMemManager.h"

namespace {

struct Named {
  int number;
  std::string name;
  bool operator==(const Named& other) const { return number == other.number && name == other.name; }
};
std::ostream& operator<<(std::ostream& out, const Named& named) {
  return out << named.number << ' ' << named.name;
}
using List = std::vector<Named>;

class Sorting : public testing::Test {
 protected:
  Sorting() {
    pool_.Create(static_cast<int>(sizeof(DCFItem)), 300, 0);
    list_.SetMemMgr(&pool_);
  }
  void Add(const List& items) {
    for (const Named& named : items) {
      DCFItem* const item = list_.AddTail();
      ASSERT_NE(nullptr, item);
      item->fileNumber = static_cast<int16_t>(named.number);
      std::strncpy(item->fileName, named.name.c_str(), sizeof(item->fileName) - 1);
    }
  }
  List Now() const {
    List items;
    for (DCFItem* item = list_.Head(); item != nullptr; item = item->next) {
      items.push_back({item->fileNumber, item->fileName});
    }
    return items;
  }
  CQDCFMemManager pool_;
  CQDCFItemList list_;
};

TEST_F(Sorting, GoesByNumberAndForEqualNumbersByName) {
  Add({{5, "CAM_0005.JPG"}, {2, "CAM_0002.MP4"}, {2, "CAM_0002.JPG"}});
  EXPECT_EQ(0, list_.Sort());
  EXPECT_EQ((List{{2, "CAM_0002.JPG"}, {2, "CAM_0002.MP4"}, {5, "CAM_0005.JPG"}}), Now());
}

TEST_F(Sorting, TakesNumbersAsSigned) {
  Add({{1, "A"}, {-1, "B"}, {0, "C"}, {-32768, "D"}, {32767, "E"}});
  list_.Sort();
  EXPECT_EQ((List{{-32768, "D"}, {-1, "B"}, {0, "C"}, {1, "A"}, {32767, "E"}}), Now());
}

TEST_F(Sorting, ComparesNamesByteByByte) {
  Add({{1, "\xff"}, {1, "b"}, {1, "B"}, {1, "BB"}, {1, ""}});
  list_.Sort();
  EXPECT_EQ((List{{1, ""}, {1, "B"}, {1, "BB"}, {1, "b"}, {1, "\xff"}}), Now());
}

TEST_F(Sorting, ComparesNamesToTheirLastCharacter) {
  const std::string stem(39, 'n');
  Add({{1, stem + "b"}, {1, stem + "a"}});
  list_.Sort();
  EXPECT_EQ((List{{1, stem + "a"}, {1, stem + "b"}}), Now());
}

TEST_F(Sorting, OfNothingIsZero) {
  EXPECT_EQ(0, list_.Sort());
  Add({{1, "A"}});
  EXPECT_EQ(0, list_.Sort());
  EXPECT_EQ((List{{1, "A"}}), Now());
}

TEST_F(Sorting, MovesContentsAndLeavesTheNodesInPlace) {
  Add({{2, "B"}, {1, "A"}});
  DCFItem* const first = list_.Head();
  DCFItem* const second = first->next;
  list_.Sort();
  EXPECT_EQ(first, list_.Head());
  EXPECT_EQ(second, first->next);
  EXPECT_EQ(first, second->prev);
  EXPECT_EQ(nullptr, first->prev);
  EXPECT_EQ(nullptr, second->next);
  EXPECT_EQ(1, first->fileNumber);
  EXPECT_EQ(2, second->fileNumber);
  EXPECT_EQ(2, list_.GetCount());
}

TEST_F(Sorting, MovesTheWholePayload) {
  Add({{2, "B"}, {1, "A"}});
  DCFItem* const first = list_.Head();
  DCFItem* const second = first->next;
  unsigned char* const bytes = reinterpret_cast<unsigned char*>(first);
  std::memset(bytes + 2, 0x11, flm::kItemPayloadSize - 2);
  std::memset(reinterpret_cast<unsigned char*>(second) + 2, 0x22, flm::kItemPayloadSize - 2);
  list_.Sort();
  for (size_t i = 2; i < flm::kItemPayloadSize; ++i) EXPECT_EQ(0x22, bytes[i]) << i;
  EXPECT_EQ(0x11, reinterpret_cast<unsigned char*>(second)[flm::kItemPayloadSize - 1]);
}

TEST_F(Sorting, OrdersAnyMixture) {
  std::mt19937 random(1);
  List items;
  for (int i = 0; i < 300; ++i) {
    const int number = static_cast<int>(random() % 50);
    items.push_back({number, std::string(1, static_cast<char>('A' + random() % 26))});
  }
  Add(items);
  list_.Sort();
  std::sort(items.begin(), items.end(), [](const Named& a, const Named& b) {
    return a.number != b.number ? a.number < b.number : a.name < b.name;
  });
  EXPECT_EQ(items, Now());
}

}  // namespace
