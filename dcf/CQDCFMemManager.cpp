#include "dcf/CQDCFMemManager.h"

#include <cstdlib>

namespace {

constexpr int kBitsPerWord = 32;
constexpr uint32_t kFullWord = 0xFFFFFFFFU;
constexpr uint32_t kTopBit = 0x80000000U;

}  // namespace

CQDCFMemManager::CQDCFMemManager()
    : unitSize_(0),
      unitCount_(0),
      markWordCount_(0),
      markWords_(nullptr),
      pool_(nullptr),
      firstOpenWord_(0) {}

CQDCFMemManager::~CQDCFMemManager() { Destroy(); }

int CQDCFMemManager::Create(int unitSize, int unitCount, int /*isNand*/) {
  Destroy();
  if (unitSize < 1 || unitCount < 0) return 0;
  unitSize_ = unitSize;
  unitCount_ = unitCount;
  markWordCount_ = unitCount / kBitsPerWord + 1;
  markWords_ =
      static_cast<uint32_t*>(std::calloc(static_cast<size_t>(markWordCount_), sizeof(uint32_t)));
  // The system hands out zeroed pages anyway; asking for them keeps a first use deterministic.
  pool_ = static_cast<unsigned char*>(
      std::calloc(static_cast<size_t>(unitCount) + 1, static_cast<size_t>(unitSize)));
  if (markWords_ == nullptr || pool_ == nullptr) Destroy();
  return 0;
}

int CQDCFMemManager::Destroy() {
  std::free(markWords_);
  std::free(pool_);
  markWords_ = nullptr;
  pool_ = nullptr;
  unitSize_ = 0;
  unitCount_ = 0;
  markWordCount_ = 0;
  firstOpenWord_ = 0;
  return 0;
}

unsigned char* CQDCFMemManager::AllocBlock() {
  const int index = FindEmptyBlock();
  if (index < 0) return nullptr;
  SetBlockMark(index, true);
  return pool_ + static_cast<size_t>(index) * static_cast<size_t>(unitSize_);
}

int CQDCFMemManager::FreeBlock(unsigned char* unit) {
  if (pool_ == nullptr || unit == nullptr) return 0;
  SetBlockMark(static_cast<int>((unit - pool_) / unitSize_), false);
  return 0;
}

int CQDCFMemManager::FindEmptyBlock() {
  if (markWordCount_ < 1) return -1;
  while (firstOpenWord_ < markWordCount_ && markWords_[firstOpenWord_] == kFullWord) {
    ++firstOpenWord_;
  }
  if (firstOpenWord_ == markWordCount_) return -1;
  const int index =
      firstOpenWord_ * kBitsPerWord + GetEmptyIndexInBlock(markWords_[firstOpenWord_]);
  return index < unitCount_ ? index : -1;
}

// Halves the part that is known to have a clear bit until one bit is left.
int CQDCFMemManager::GetEmptyIndexInBlock(unsigned long word) {
  uint32_t clear = ~static_cast<uint32_t>(word);
  if (clear == 0) return -1;
  int position = 0;
  for (int half = kBitsPerWord / 2; half > 0; half /= 2) {
    if (clear >> half != 0) {
      clear >>= half;
    } else {
      position += half;
    }
  }
  return position;
}

int CQDCFMemManager::SetBlockMark(int index, bool used) {
  if (index < 0 || index >= unitCount_) return -1;
  const int word = index / kBitsPerWord;
  const uint32_t mask = kTopBit >> (index % kBitsPerWord);
  if (used) {
    markWords_[word] |= mask;
  } else {
    markWords_[word] &= ~mask;
    if (word < firstOpenWord_) firstOpenWord_ = word;
  }
  return 0;
}
