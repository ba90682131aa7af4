#include "dcf/CQDCFItemList.h"

#include <cstring>

#include "dcf/CQDCFMemManager.h"

namespace {

bool ComesAfter(const DCFItem* a, const DCFItem* b) {
  if (a->fileNumber != b->fileNumber) return a->fileNumber > b->fileNumber;
  return std::strncmp(a->fileName, b->fileName, flm::kFileNameSize) > 0;
}

// Exchanges what two nodes hold; the links stay, so positions keep their nodes.
void ExchangePayload(DCFItem* a, DCFItem* b) {
  unsigned char saved[flm::kItemPayloadSize];
  std::memcpy(saved, static_cast<void*>(a), flm::kItemPayloadSize);
  std::memcpy(static_cast<void*>(a), static_cast<void*>(b), flm::kItemPayloadSize);
  std::memcpy(static_cast<void*>(b), saved, flm::kItemPayloadSize);
}

}  // namespace

CQDCFItemList::CQDCFItemList() : count_(0), head_(nullptr), tail_(nullptr), memManager_(nullptr) {}

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
  return item;
}

int CQDCFItemList::DeleteItemAt(DCFItem* item) {
  if (item == nullptr || memManager_ == nullptr) return -1;
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
  int nodes = 0;
  for (const DCFItem* item = head_; item != nullptr; item = item->next) ++nodes;
  count_ = nodes;
  return nodes;
}

DCFItem* CQDCFItemList::GetItemAt(int i) const {
  if (i < 0 || i >= count_) return nullptr;
  DCFItem* item = head_;
  for (int position = 0; position < i && item != nullptr; ++position) item = item->next;
  return item;
}

int CQDCFItemList::GetNum(const DCFItem* item) const {
  return item == nullptr ? -1 : item->fileNumber;
}

int CQDCFItemList::Sort() {
  for (DCFItem* a = head_; a != nullptr; a = a->next) {
    for (DCFItem* b = a->next; b != nullptr; b = b->next) {
      if (ComesAfter(a, b)) ExchangePayload(a, b);
    }
  }
  return 0;
}

int CQDCFItemList::GetStrCmpRes(unsigned char* /*a*/, unsigned char* /*b*/,
                                unsigned int /*length*/) {
  return 0;
}
