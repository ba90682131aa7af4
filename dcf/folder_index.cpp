#include "dcf/folder_index.h"

#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFDir.h"

namespace flm {
namespace {

constexpr int16_t kNone = -1;
constexpr int kTopStep = 512;  // the highest power of two that is no more than the slots
constexpr uint32_t kHashBase = 31;

int LowestBit(int value) { return value & -value; }

uint32_t HashOfName(const char* name) {
  uint32_t hash = 0;
  const int length = BoundedLength(name, kWeakDirName);
  for (int i = 0; i < length; ++i) hash = hash * kHashBase + static_cast<unsigned char>(name[i]);
  return hash;
}

void Fill(int16_t* heads, int count) {
  for (int i = 0; i < count; ++i) heads[i] = kNone;
}

}  // namespace

void FolderIndex::Take(CQDCFDir* table, int used) {
  Fill(numberHeads_, kBuckets);
  Fill(nameHeads_, kBuckets);
  std::memset(tree_, 0, sizeof(tree_));
  hidden_ = false;
  end_ = 0;
  // From the last to the first, so that the first of equals stands first in its chain.
  for (int slot = kMaxFolders - 1; slot >= 0; --slot) {
    CQDCFDir& dir = table[slot];
    const int number = dir.GetDnum();
    const int count = dir.GetCount();
    counts_[slot] = static_cast<uint16_t>(count);
    tree_[slot + 1] = counts_[slot];
    if (end_ == 0 && (number >= 0 || count > 0)) end_ = static_cast<int16_t>(slot + 1);
    if (number <= 0 && count > 0) hidden_ = true;
    int16_t& head = numberHeads_[BucketOfNumber(number)];
    numberNexts_[slot] = head;
    head = static_cast<int16_t>(slot);
    if (slot >= used) continue;
    int16_t& nameHead = nameHeads_[HashOfName(dir.GetDirName()) & (kBuckets - 1)];
    nameNexts_[slot] = nameHead;
    nameHead = static_cast<int16_t>(slot);
  }
  for (int at = 1; at <= kMaxFolders; ++at) {
    const int parent = at + LowestBit(at);
    if (parent <= kMaxFolders) tree_[parent] = static_cast<uint16_t>(tree_[parent] + tree_[at]);
  }
  current_ = true;
}

int FolderIndex::FirstNamed(const CQDCFDir* table, const char* name) const {
  for (int slot = nameHeads_[HashOfName(name) & (kBuckets - 1)]; slot != kNone;
       slot = nameNexts_[slot]) {
    if (std::strncmp(table[slot].GetDirName(), name, kWeakDirName) == 0) return slot;
  }
  return -1;
}

void FolderIndex::SetCount(int slot, int count) {
  if (!current_ || count == counts_[slot]) return;
  // A slot that comes to hold items may be one that nothing counted so far.
  if (counts_[slot] == 0) {
    current_ = false;
    return;
  }
  const int change = count - counts_[slot];
  counts_[slot] = static_cast<uint16_t>(count);
  for (int at = slot + 1; at <= kMaxFolders; at += LowestBit(at)) {
    tree_[at] = static_cast<uint16_t>(tree_[at] + change);
  }
}

int FolderIndex::Before(int slot) const {
  int sum = 0;
  for (int at = slot; at > 0; at -= LowestBit(at)) sum += tree_[at];
  return sum;
}

int FolderIndex::SlotAt(int position, int* rest) const {
  int slot = 0;
  int left = position;
  for (int step = kTopStep; step > 0; step /= 2) {
    if (slot + step <= kMaxFolders && tree_[slot + step] <= left) {
      slot += step;
      left -= tree_[slot];
    }
  }
  *rest = left;
  return slot < kMaxFolders ? slot : -1;
}

}  // namespace flm
