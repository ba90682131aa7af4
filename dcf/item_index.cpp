#include "dcf/item_index.h"

#include <cstdlib>
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace flm {
namespace {

constexpr int kMostItems = 0xFFFE;  // what a link can name
constexpr int kBlockShift = 6;
constexpr int kBlockItems = 1 << kBlockShift;
constexpr uint32_t kNumberSpread = 40503;  // 2^16 and 2^32 by the golden ratio
constexpr uint32_t kHashSpread = 2654435769U;
constexpr uint32_t kHashBase = 16777619U;
constexpr uint32_t kLow16 = 0xFFFF;

int LowestBit(int value) { return value & -value; }

uint32_t HashOf(const char* text, int length) {
  uint32_t hash = 0;
  for (int i = 0; i < length; ++i) hash = hash * kHashBase + static_cast<unsigned char>(text[i]);
  return hash;
}

int NameLength(const DCFItem* item) { return BoundedLength(item->fileName, kFileNameSize); }

bool IsPlainCharacter(char c) { return c != '\0' && c != '/'; }

// Whether the numbers in the path that is made of the item are its own.
bool ReadsBack(const DCFItem* item) {
  if (item->fileNumber < 0 || item->fileNumber > kLastFileNumber) return false;
  for (const char c : item->prefixChars) {
    if (!IsPlainCharacter(c)) return false;
  }
  for (const char c : item->extChars) {
    if (!IsPlainCharacter(c)) return false;
  }
  return true;
}

}  // namespace

ItemFlags FlagsOf(const DCFItem* item) {
  int flags = item->itemBits;
  if (item->dpofCopies != 0) flags |= kFlagCopies;
  if (item->dpofIndex != 0) flags |= kFlagIndex;
  if (item->dpofSize != 0) flags |= kFlagSize;
  if (!ReadsBack(item)) flags |= kFlagOdd;
  if (item->dirNumber == kCameraNumber) flags |= kFlagFree;
  return static_cast<ItemFlags>(flags);
}

DCFItem* NextLinked(DCFItem* item, ItemFlags flags) {
  while (item != nullptr && (FlagsOf(item) & flags) == 0) item = item->next;
  return item;
}

DCFItem* PreviousLinked(DCFItem* item, ItemFlags flags) {
  while (item != nullptr && (FlagsOf(item) & flags) == 0) item = item->prev;
  return item;
}

bool ItemIndex::Reserve(int items, bool byName) {
  Release();
  if (items > kMostItems) return false;
  const size_t room = static_cast<size_t>(items);
  const size_t links = byName ? 4 * room : 2 * room;
  const size_t blocks = room / kBlockItems + 1;
  const size_t size = room * sizeof(int32_t) + links * sizeof(Link) +
                      (room + 1) * sizeof(uint16_t) + blocks * sizeof(ItemFlags);
  block_ = static_cast<unsigned char*>(std::malloc(size));
  if (block_ == nullptr) return false;
  SetUp(block_, items, byName);
  Clear();
  return true;
}

void ItemIndex::SetUp(unsigned char* block, int room, bool byName) {
  room_ = room;
  offsets_ = reinterpret_cast<int32_t*>(block);
  numberHeads_ = reinterpret_cast<Link*>(offsets_ + room);
  numberNexts_ = numberHeads_ + room;
  Link* end = numberNexts_ + room;
  if (byName) {
    nameHeads_ = end;
    nameNexts_ = nameHeads_ + room;
    end = nameNexts_ + room;
  }
  tree_ = end;
  blocks_ = tree_ + room + 1;
}

void ItemIndex::Release() {
  std::free(block_);
  block_ = nullptr;
  nameHeads_ = nullptr;
  nameNexts_ = nullptr;
  room_ = 0;
  used_ = 0;
  count_ = 0;
  lastTaken_ = nullptr;
}

void ItemIndex::Clear() {
  used_ = 0;
  count_ = 0;
  allFlags_ = 0;
  nameLengths_ = 0;
  lastTaken_ = nullptr;
  std::memset(bitCounts_, 0, sizeof(bitCounts_));
  const size_t room = static_cast<size_t>(room_);
  if (room == 0) return;
  std::memset(numberHeads_, 0xFF, room * sizeof(Link));
  if (nameHeads_ != nullptr) std::memset(nameHeads_, 0xFF, room * sizeof(Link));
  std::memset(blocks_, 0, (room / kBlockItems + 1) * sizeof(ItemFlags));
}

void ItemIndex::CatchUp(DCFItem* head) {
  DCFItem* item = lastTaken_ == nullptr ? head : lastTaken_->next;
  if (item == nullptr) return;
  const int from = used_;
  for (; item != nullptr && used_ < room_; item = item->next) Append(item);
  if (from == 0) {
    LinkBackwards(from);
  } else {
    for (int sequence = from; sequence < used_; ++sequence) LinkAtEnd(sequence);
  }
}

void ItemIndex::Append(DCFItem* item) {
  if (used_ == 0) base_ = item;
  const ItemFlags flags = FlagsOf(item);
  offsets_[used_] =
      static_cast<int32_t>(reinterpret_cast<char*>(item) - reinterpret_cast<char*>(base_));
  blocks_[used_ >> kBlockShift] = static_cast<ItemFlags>(blocks_[used_ >> kBlockShift] | flags);
  allFlags_ = static_cast<ItemFlags>(allFlags_ | flags);
  CountBits(flags, 1);
  ++used_;
  ++count_;
  AppendToTree();
  lastTaken_ = item;
}

// The new last node sums up itself and the complete sums below it.
void ItemIndex::AppendToTree() {
  int sum = 1;
  for (int step = 1; step < LowestBit(used_); step *= 2) sum += tree_[used_ - step];
  tree_[used_] = static_cast<uint16_t>(sum);
}

// Front insertion from the last to the first leaves every chain in list order.
void ItemIndex::LinkBackwards(int from) {
  for (int sequence = used_ - 1; sequence >= from; --sequence) {
    const DCFItem* const item = At(sequence);
    Link& head = numberHeads_[BucketOfNumber(item->fileNumber)];
    numberNexts_[sequence] = head;
    head = static_cast<Link>(sequence);
    if (nameHeads_ == nullptr) continue;
    const int length = NameLength(item);
    nameLengths_ |= uint64_t{1} << length;
    Link& nameHead = nameHeads_[BucketOfHash(HashOf(item->fileName, length))];
    nameNexts_[sequence] = nameHead;
    nameHead = static_cast<Link>(sequence);
  }
}

void ItemIndex::LinkAtEnd(int sequence) {
  const DCFItem* const item = At(sequence);
  Link* at = &numberHeads_[BucketOfNumber(item->fileNumber)];
  while (*at != kEnd) at = &numberNexts_[*at];
  *at = static_cast<Link>(sequence);
  numberNexts_[sequence] = kEnd;
  if (nameHeads_ == nullptr) return;
  const int length = NameLength(item);
  nameLengths_ |= uint64_t{1} << length;
  at = &nameHeads_[BucketOfHash(HashOf(item->fileName, length))];
  while (*at != kEnd) at = &nameNexts_[*at];
  *at = static_cast<Link>(sequence);
  nameNexts_[sequence] = kEnd;
}

void ItemIndex::Unlink(Link* heads, Link* nexts, int bucket, int sequence) {
  Link* at = &heads[bucket];
  while (*at != kEnd && *at != sequence) at = &nexts[*at];
  if (*at != kEnd) *at = nexts[sequence];
}

// Whether a node of the list has not been taken in yet.
bool ItemIndex::IsWaiting(const DCFItem* item) const {
  if (lastTaken_ == nullptr) return true;
  for (const DCFItem* at = lastTaken_->next; at != nullptr; at = at->next) {
    if (at == item) return true;
  }
  return false;
}

void ItemIndex::Remove(const DCFItem* item) {
  if (IsEmpty()) return;
  const int sequence = SequenceOf(item);
  if (sequence < 0) {
    // Its number was changed behind our back, so nothing that is held can be relied on.
    if (!IsWaiting(item)) Clear();
    return;
  }
  if (lastTaken_ == item) lastTaken_ = item->prev;
  Unlink(numberHeads_, numberNexts_, BucketOfNumber(item->fileNumber), sequence);
  if (nameHeads_ != nullptr) {
    Unlink(nameHeads_, nameNexts_, BucketOfHash(HashOf(item->fileName, NameLength(item))),
           sequence);
  }
  CountBits(FlagsOf(item), -1);
  offsets_[sequence] = kHole;
  for (int at = sequence + 1; at <= used_; at += LowestBit(at)) --tree_[at];
  --count_;
  if (count_ == 0) Clear();
}

void ItemIndex::Changed(const DCFItem* item, int numberBefore, ItemFlags flagsBefore,
                        bool renamed) {
  if (IsEmpty()) return;
  const bool moved = item->fileNumber != numberBefore || (renamed && nameHeads_ != nullptr);
  const ItemFlags flags = FlagsOf(item);
  if (!moved && flags == flagsBefore) return;
  const int sequence = SequenceOf(item, numberBefore);
  if (sequence < 0) {
    if (!IsWaiting(item)) Clear();
    return;
  }
  if (moved) {
    Clear();
    return;
  }
  ItemFlags& block = blocks_[sequence >> kBlockShift];
  block = static_cast<ItemFlags>(block | flags);
  allFlags_ = static_cast<ItemFlags>(allFlags_ | flags);
  CountBits(flagsBefore, -1);
  CountBits(flags, 1);
}

void ItemIndex::CountBits(ItemFlags flags, int step) {
  for (int bit = 0; bit < kItemBitFlags; ++bit) {
    if ((flags & FlagOfBit(bit)) != 0) {
      bitCounts_[bit] = static_cast<uint16_t>(bitCounts_[bit] + step);
    }
  }
}

DCFItem* ItemIndex::At(int sequence) const {
  if (sequence < 0) return nullptr;
  return reinterpret_cast<DCFItem*>(reinterpret_cast<char*>(base_) + offsets_[sequence]);
}

int ItemIndex::BucketOfNumber(int number) const {
  const uint32_t hash = static_cast<uint32_t>(number) * kNumberSpread & kLow16;
  return static_cast<int>(hash * static_cast<uint32_t>(room_) >> 16);
}

int ItemIndex::BucketOfHash(uint32_t hash) const {
  return static_cast<int>((hash * kHashSpread >> 16) * static_cast<uint32_t>(room_) >> 16);
}

int ItemIndex::FirstOfNumber(int number) const {
  if (IsEmpty()) return -1;
  for (Link at = numberHeads_[BucketOfNumber(number)]; at != kEnd; at = numberNexts_[at]) {
    if (At(at)->fileNumber == number) return at;
  }
  return -1;
}

int ItemIndex::NextOfNumber(int sequence) const {
  const int number = At(sequence)->fileNumber;
  for (Link at = numberNexts_[sequence]; at != kEnd; at = numberNexts_[at]) {
    if (At(at)->fileNumber == number) return at;
  }
  return -1;
}

int ItemIndex::SequenceOf(const DCFItem* item) const { return SequenceOf(item, item->fileNumber); }

int ItemIndex::SequenceOf(const DCFItem* item, int number) const {
  if (IsEmpty()) return -1;
  for (Link at = numberHeads_[BucketOfNumber(number)]; at != kEnd; at = numberNexts_[at]) {
    if (At(at) == item) return at;
  }
  return -1;
}

int ItemIndex::SameName(Link from, const char* name, int length) const {
  for (Link at = from; at != kEnd; at = nameNexts_[at]) {
    if (offsets_[at] == kHole) continue;  // its name was changed behind our back before it left
    const char* const held = At(at)->fileName;
    if (std::strncmp(held, name, static_cast<size_t>(length)) == 0 && held[length] == '\0')
      return at;
  }
  return -1;
}

int ItemIndex::FirstOfName(const char* name) const {
  const int length = BoundedLength(name, kFileNameSize);
  if (IsEmpty() || length >= kFileNameSize) return -1;
  return SameName(nameHeads_[BucketOfHash(HashOf(name, length))], name, length);
}

int ItemIndex::NextOfName(int sequence) const {
  const DCFItem* const item = At(sequence);
  return SameName(nameNexts_[sequence], item->fileName, NameLength(item));
}

// Every part of the text that is as long as some name is looked up, instead of looking for every
// name in the text.
int ItemIndex::FirstNameWithin(const char* text, ItemFlags flags) const {
  const int end = static_cast<int>(std::strlen(text));
  int first = -1;
  for (int start = 0; start <= end && !IsEmpty(); ++start) {
    uint32_t hash = 0;
    for (int length = 0; length < kFileNameSize && start + length <= end; ++length) {
      if (length > 0) {
        hash = hash * kHashBase + static_cast<unsigned char>(text[start + length - 1]);
      }
      if ((nameLengths_ >> length & 1) == 0) continue;
      int found = SameName(nameHeads_[BucketOfHash(hash)], text + start, length);
      while (found >= 0 && (FlagsOf(At(found)) & flags) != flags) found = NextOfName(found);
      if (found >= 0 && (first < 0 || found < first)) first = found;
    }
  }
  return first;
}

int ItemIndex::NextInBlock(int from, int end, ItemFlags flags) const {
  for (int at = from; at < end; ++at) {
    if (offsets_[at] != kHole && (FlagsOf(At(at)) & flags) != 0) return at;
  }
  return -1;
}

int ItemIndex::NextWith(int sequence, ItemFlags flags) {
  int at = sequence + 1;
  while (at < used_) {
    const int block = at >> kBlockShift;
    const int blockEnd = (block + 1) << kBlockShift;
    const int end = blockEnd < used_ ? blockEnd : used_;
    if ((blocks_[block] & flags) != 0) {
      const int found = NextInBlock(at, end, flags);
      if (found >= 0) return found;
      // A whole block without such an item is passed over from now on.
      if (at == block << kBlockShift)
        blocks_[block] = static_cast<ItemFlags>(blocks_[block] & ~flags);
    }
    at = end;
  }
  return -1;
}

int ItemIndex::PreviousWith(int sequence, ItemFlags flags) const {
  for (int at = sequence - 1; at >= 0;) {
    const int start = at & ~(kBlockItems - 1);
    if ((blocks_[start >> kBlockShift] & flags) != 0) {
      for (int in = at; in >= start; --in) {
        if (offsets_[in] != kHole && (FlagsOf(At(in)) & flags) != 0) return in;
      }
    }
    at = start - 1;
  }
  return -1;
}

// How many items stand in front of a sequence.
int ItemIndex::PositionOf(int sequence) const {
  if (count_ == used_) return sequence;
  int sum = 0;
  for (int at = sequence; at > 0; at -= LowestBit(at)) sum += tree_[at];
  return sum;
}

int ItemIndex::SequenceAt(int position) const {
  if (position < 0 || position >= count_) return -1;
  if (count_ == used_) return position;
  int at = 0;
  int step = 1;
  while (step * 2 <= used_) step *= 2;
  for (int rest = position; step > 0; step /= 2) {
    if (at + step <= used_ && tree_[at + step] <= rest) {
      at += step;
      rest -= tree_[at];
    }
  }
  return at;
}

}  // namespace flm
