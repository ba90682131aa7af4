#include "dcf/CQDCFItemList.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "dcf/CQDCFMemManager.h"

namespace {

int CompareItems(const DCFItem* a, const DCFItem* b) {
  if (a->fileNumber != b->fileNumber) return a->fileNumber > b->fileNumber ? 1 : -1;
  return std::strncmp(a->fileName, b->fileName, flm::kFileNameSize);
}

// Exchanges what two nodes hold; the links stay, so positions keep their nodes.
void ExchangePayload(DCFItem* a, DCFItem* b) {
  unsigned char saved[flm::kItemPayloadSize];
  std::memcpy(saved, static_cast<void*>(a), flm::kItemPayloadSize);
  std::memcpy(static_cast<void*>(a), static_cast<void*>(b), flm::kItemPayloadSize);
  std::memcpy(static_cast<void*>(b), saved, flm::kItemPayloadSize);
}

// Gives every node the payload of its source; each cycle of sources is walked once.
template <typename Node>
void MoveAlongCycles(Node* nodes, uint32_t count) {
  unsigned char first[flm::kItemPayloadSize];
  for (uint32_t start = 0; start < count; ++start) {
    uint32_t at = start;
    if (nodes[at].source == at) continue;
    std::memcpy(first, static_cast<void*>(nodes[start].item), flm::kItemPayloadSize);
    while (nodes[at].source != start) {
      const uint32_t source = nodes[at].source;
      std::memcpy(static_cast<void*>(nodes[at].item), static_cast<void*>(nodes[source].item),
                  flm::kItemPayloadSize);
      nodes[at].source = at;
      at = source;
    }
    std::memcpy(static_cast<void*>(nodes[at].item), first, flm::kItemPayloadSize);
    nodes[at].source = at;
  }
}

}  // namespace

CQDCFItemList::CQDCFItemList()
    : count_(0), head_(nullptr), tail_(nullptr), memManager_(nullptr), byName_(false) {}

CQDCFItemList::~CQDCFItemList() { RemoveAll(); }

int CQDCFItemList::SetMemMgr(CQDCFMemManager* memManager) {
  memManager_ = memManager;
  return 0;
}

DCFItem* CQDCFItemList::AddTail() {
  unsigned char* const unit = memManager_ == nullptr ? nullptr : memManager_->AllocBlock();
  if (unit == nullptr) return nullptr;
  std::memset(unit, 0, flm::kItemClearedSize);
  DCFItem* const item = reinterpret_cast<DCFItem*>(unit);
  item->next = nullptr;
  item->prev = nullptr;
  if (head_ == nullptr) {
    head_ = item;
  } else {
    tail_->next = item;
    item->prev = tail_;
  }
  tail_ = item;
  ++count_;
  KeepRoom();
  return item;
}

// The room grows with the list and not with the first look-up: looking up allocates nothing.
void CQDCFItemList::KeepRoom() {
  const int holes = index_.Used() - index_.Count();
  if (count_ <= kWalkedItems || count_ + holes <= index_.Room()) return;
  constexpr int kGrowth = 8;  // by an eighth, and by no less than this
  constexpr int kLeast = 32;
  ReserveIndex(count_ + count_ / kGrowth + kLeast, byName_);
}

void CQDCFItemList::ReserveIndex(int items, bool byName) {
  byName_ = byName;
  if (items > kWalkedItems) {
    index_.Reserve(items, byName);
  } else {
    index_.Release();
  }
}

void CQDCFItemList::FitIndex(int more) {
  const int wanted = count_ + more;
  constexpr int kSlack = 16;  // a sixteenth is worth no second allocation
  if (index_.Room() - wanted > wanted / kSlack) {
    ReserveIndex(wanted, byName_);
  }
}

flm::ItemIndex* CQDCFItemList::Index() const {
  if (count_ <= kWalkedItems || index_.Room() == 0) return nullptr;
  // More nodes than room: memory was short when they were added, or the count was wrong.
  return index_.CatchUp(head_) ? &index_ : nullptr;
}

int CQDCFItemList::DeleteItemAt(DCFItem* item) {
  if (item == nullptr || memManager_ == nullptr) return -1;
  index_.Remove(item);
  if (tail_ != nullptr && item->next == nullptr) tail_ = item->prev;
  if (item == head_) {
    head_ = item->next;
  } else if (item->prev != nullptr) {
    item->prev->next = item->next;
  }
  if (item->next != nullptr) item->next->prev = item->prev;
  if (memManager_->FreeBlock(reinterpret_cast<unsigned char*>(item)) < 0) return -1;
  --count_;
  return 0;
}

int CQDCFItemList::RemoveAll() {
  if (count_ == 0 || head_ == nullptr || memManager_ == nullptr) return 0;
  index_.Clear();
  DCFItem* item = head_;
  for (int i = 0; i < count_ && item != nullptr; ++i) {
    DCFItem* const next = item->next;
    if (memManager_->FreeBlock(reinterpret_cast<unsigned char*>(item)) < 0) return 0;
    item = next;
  }
  head_ = nullptr;
  count_ = 0;
  return 0;
}

int CQDCFItemList::UpdateCount() {
  if (head_ == nullptr) return 0;
  if (const flm::ItemIndex* const index = Index()) {
    count_ = index->Count();
    return count_;
  }
  int nodes = 0;
  for (const DCFItem* item = head_; item != nullptr; item = item->next) ++nodes;
  count_ = nodes;
  return nodes;
}

DCFItem* CQDCFItemList::GetItemAt(int i) const {
  if (i < 0 || i >= count_) return nullptr;
  if (const flm::ItemIndex* const index = Index()) return index->At(index->SequenceAt(i));
  DCFItem* item = head_;
  for (int position = 0; position < i && item != nullptr; ++position) item = item->next;
  return item;
}

DCFItem* CQDCFItemList::FirstOfName(const char* name) const {
  const flm::ItemIndex* const index = Index();
  if (index != nullptr && index->HasNames()) return index->At(index->FirstOfName(name));
  return FirstWalked([&](const DCFItem* item) {
    return std::strncmp(item->fileName, name, flm::kFileNameSize) == 0;
  });
}

DCFItem* CQDCFItemList::FirstNameWithin(const char* text, flm::ItemFlags flags) const {
  const flm::ItemIndex* const index = Index();
  if (index != nullptr && index->HasNames()) return index->At(index->FirstNameWithin(text, flags));
  return FirstWalked([&](const DCFItem* item) {
    return (flm::FlagsOf(item) & flags) == flags && std::strstr(text, item->fileName) != nullptr;
  });
}

DCFItem* CQDCFItemList::NextWith(const DCFItem* from, flm::ItemFlags flags) const {
  flm::ItemIndex* const index = Index();
  const int at = index == nullptr || from == nullptr ? -1 : index->SequenceOf(from);
  const bool indexed = index != nullptr && (from == nullptr || at >= 0);
  if (indexed) return index->At(index->NextWith(at, flags));
  return flm::NextLinked(from == nullptr ? head_ : from->next, flags);
}

DCFItem* CQDCFItemList::PreviousWith(const DCFItem* from, flm::ItemFlags flags) const {
  const flm::ItemIndex* const index = Index();
  const int at = index == nullptr || from == nullptr ? -1 : index->SequenceOf(from);
  const bool indexed = index != nullptr && (from == nullptr || at >= 0);
  if (indexed) return index->At(index->PreviousWith(from == nullptr ? index->Used() : at, flags));
  return flm::PreviousLinked(from == nullptr ? Last() : from->prev, flags);
}

int CQDCFItemList::PositionOf(const DCFItem* item) const {
  if (const flm::ItemIndex* const index = Index()) {
    return index->PositionOf(index->SequenceOf(item));
  }
  int position = 0;
  for (const DCFItem* at = head_; at != nullptr && at != item; at = at->next) ++position;
  return position;
}

int CQDCFItemList::CountOfBit(int bit) const {
  if (const flm::ItemIndex* const index = Index()) return index->CountOfBit(bit);
  int count = 0;
  for (const DCFItem* item = head_; item != nullptr; item = item->next) {
    if ((item->itemBits & flm::FlagOfBit(bit)) != 0) ++count;
  }
  return count;
}

int CQDCFItemList::GetNum(const DCFItem* item) const {
  return item == nullptr ? -1 : item->fileNumber;
}

int CQDCFItemList::Sort() {
  const DCFItem* item = head_;
  while (item != nullptr && item->next != nullptr && CompareItems(item, item->next) <= 0) {
    item = item->next;
  }
  if (item == nullptr || item->next == nullptr) return 0;
  index_.Clear();
  if (!SortByTable()) SortByExchange();
  return 0;
}

// Sorts places and moves each payload once. False, and nothing is moved, when memory is short or
// two payloads are equal: which of these comes first is then decided by the exchanges.
bool CQDCFItemList::SortByTable() {
  struct Node {
    DCFItem* item;
    uint32_t source;  // place of the node whose payload belongs here
  };
  uint32_t count = 0;
  for (const DCFItem* item = head_; item != nullptr; item = item->next) ++count;
  auto* const nodes = static_cast<Node*>(std::malloc((count + 1) * sizeof(Node)));
  if (nodes == nullptr) return false;
  uint32_t place = 0;
  for (DCFItem* item = head_; item != nullptr; item = item->next, ++place) {
    nodes[place] = {item, place};
  }
  std::sort(nodes, nodes + count,
            [](const Node& a, const Node& b) { return CompareItems(a.item, b.item) < 0; });
  bool unequal = true;
  for (uint32_t i = 1; i < count; ++i) {
    unequal = unequal && CompareItems(nodes[i - 1].item, nodes[i].item) != 0;
  }
  place = 0;
  for (DCFItem* item = head_; item != nullptr; item = item->next, ++place) {
    nodes[place].item = item;
  }
  if (unequal) MoveAlongCycles(nodes, count);
  std::free(nodes);
  return unequal;
}

void CQDCFItemList::SortByExchange() {
  for (DCFItem* a = head_; a != nullptr; a = a->next) {
    for (DCFItem* b = a->next; b != nullptr; b = b->next) {
      if (CompareItems(a, b) > 0) ExchangePayload(a, b);
    }
  }
}

int CQDCFItemList::GetStrCmpRes(unsigned char* /*a*/, unsigned char* /*b*/,
                                unsigned int /*length*/) {
  return 0;
}
