#include "dcf/item_index.h"

#include <cstdlib>
#include <cstring>
#include <initializer_list>

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

// Two items a bucket: memory counts for more than the second comparison.
int BucketsFor(int items) { return items / 2 + 1; }

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
  const size_t kinds = byName ? 3 : 2;
  const size_t links = kinds * (room + static_cast<size_t>(BucketsFor(items)));
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
  buckets_ = BucketsFor(room);
  offsets_ = reinterpret_cast<int32_t*>(block);
  Link* end = reinterpret_cast<Link*>(offsets_ + room);
  for (Chains* const chains : {&numbers_, &addresses_, &names_}) {
    if (chains == &names_ && !byName) break;
    chains->lasts = end;
    chains->nexts = end + buckets_;
    end = chains->nexts + room;
  }
  tree_ = end;
  blocks_ = tree_ + room + 1;
}

void ItemIndex::Release() {
  std::free(block_);
  block_ = nullptr;
  numbers_ = Chains();
  addresses_ = Chains();
  names_ = Chains();
  room_ = 0;
  used_ = 0;
  count_ = 0;
  lastTaken_ = nullptr;
}

void ItemIndex::Clear() {
  used_ = 0;
  count_ = 0;
  nameLengths_ = 0;
  lastTaken_ = nullptr;
  std::memset(bitCounts_, 0, sizeof(bitCounts_));
  if (room_ == 0) return;
  for (const Chains& chains : {numbers_, addresses_, names_}) {
    if (chains.lasts == nullptr) continue;
    std::memset(chains.lasts, 0xFF, static_cast<size_t>(buckets_) * sizeof(Link));
  }
  std::memset(blocks_, 0, (static_cast<size_t>(room_) / kBlockItems + 1) * sizeof(ItemFlags));
}

bool ItemIndex::CatchUp(DCFItem* head) {
  DCFItem* item = lastTaken_ == nullptr ? head : lastTaken_->next;
  for (; item != nullptr && used_ < room_; item = item->next) Append(item);
  return item == nullptr;
}

void ItemIndex::Append(DCFItem* item) {
  if (used_ == 0) base_ = item;
  const ItemFlags flags = FlagsOf(item);
  offsets_[used_] =
      static_cast<int32_t>(reinterpret_cast<char*>(item) - reinterpret_cast<char*>(base_));
  blocks_[used_ >> kBlockShift] = static_cast<ItemFlags>(blocks_[used_ >> kBlockShift] | flags);
  CountBits(flags, 1);
  numbers_.Add(BucketOfNumber(item->fileNumber), used_);
  addresses_.Add(BucketOfAddress(offsets_[used_]), used_);
  if (HasNames()) {
    nameLengths_ |= uint64_t{1} << NameLength(item);
    names_.Add(BucketOfName(item), used_);
  }
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

void ItemIndex::Chains::Add(int bucket, int sequence) const {
  Link& last = lasts[bucket];
  const Link added = static_cast<Link>(sequence);
  nexts[added] = last == kEnd ? added : nexts[last];
  if (last != kEnd) nexts[last] = added;
  last = added;
}

void ItemIndex::Remove(const DCFItem* item) {
  const int sequence = SequenceOf(item);
  if (sequence < 0) return;
  if (lastTaken_ == item) lastTaken_ = item->prev;
  CountBits(FlagsOf(item), -1);
  offsets_[sequence] = kHole;
  for (int at = sequence + 1; at <= used_; at += LowestBit(at)) --tree_[at];
  --count_;
  if (count_ == 0) Clear();
}

void ItemIndex::Changed(const DCFItem* item, int numberBefore, ItemFlags flagsBefore,
                        bool renamed) {
  if (IsEmpty()) return;
  const bool moved = item->fileNumber != numberBefore || (renamed && HasNames());
  const ItemFlags flags = FlagsOf(item);
  if (!moved && flags == flagsBefore) return;
  const int sequence = SequenceOf(item);
  if (sequence < 0) return;
  if (moved) {
    Clear();
    return;
  }
  ItemFlags& block = blocks_[sequence >> kBlockShift];
  block = static_cast<ItemFlags>(block | flags);
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
  return static_cast<int>(hash * static_cast<uint32_t>(buckets_) >> 16);
}

int ItemIndex::BucketOfHash(uint32_t hash) const {
  return static_cast<int>((hash * kHashSpread >> 16) * static_cast<uint32_t>(buckets_) >> 16);
}

int ItemIndex::BucketOfName(const DCFItem* item) const {
  return BucketOfHash(HashOf(item->fileName, NameLength(item)));
}

// An item's address is told by its place in the pool; consecutive items differ by a record.
int ItemIndex::BucketOfAddress(int32_t offset) const {
  return BucketOfHash(static_cast<uint32_t>(offset) / alignof(DCFItem));
}

bool ItemIndex::IsNumber(int sequence, int number) const {
  return offsets_[sequence] != kHole && At(sequence)->fileNumber == number;
}

int ItemIndex::FirstOfNumber(int number) const {
  if (IsEmpty()) return -1;
  const int bucket = BucketOfNumber(number);
  Link at = numbers_.First(bucket);
  while (at != kEnd && !IsNumber(at, number)) at = numbers_.Next(bucket, at);
  return at == kEnd ? -1 : at;
}

int ItemIndex::NextOfNumber(int sequence) const {
  const int number = At(sequence)->fileNumber;
  const int bucket = BucketOfNumber(number);
  Link at = numbers_.Next(bucket, static_cast<Link>(sequence));
  while (at != kEnd && !IsNumber(at, number)) at = numbers_.Next(bucket, at);
  return at == kEnd ? -1 : at;
}

int ItemIndex::SequenceOf(const DCFItem* item) const {
  if (IsEmpty()) return -1;
  const int64_t distance = static_cast<int64_t>(reinterpret_cast<uintptr_t>(item)) -
                           static_cast<int64_t>(reinterpret_cast<uintptr_t>(base_));
  if (distance <= kHole || distance > INT32_MAX) return -1;  // of another pool
  const int32_t offset = static_cast<int32_t>(distance);
  const int bucket = BucketOfAddress(offset);
  Link at = addresses_.First(bucket);
  while (at != kEnd && offsets_[at] != offset) at = addresses_.Next(bucket, at);
  return at == kEnd ? -1 : at;
}

int ItemIndex::SameName(int bucket, Link from, const char* name, int length) const {
  for (Link at = from; at != kEnd; at = names_.Next(bucket, at)) {
    if (offsets_[at] == kHole) continue;
    const char* const held = At(at)->fileName;
    if (std::strncmp(held, name, static_cast<size_t>(length)) == 0 && held[length] == '\0')
      return at;
  }
  return -1;
}

int ItemIndex::FirstOfName(const char* name) const {
  const int length = BoundedLength(name, kFileNameSize);
  if (IsEmpty() || length >= kFileNameSize) return -1;
  const int bucket = BucketOfHash(HashOf(name, length));
  return SameName(bucket, names_.First(bucket), name, length);
}

int ItemIndex::NextOfName(int sequence) const {
  const DCFItem* const item = At(sequence);
  const int bucket = BucketOfName(item);
  return SameName(bucket, names_.Next(bucket, static_cast<Link>(sequence)), item->fileName,
                  NameLength(item));
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
      const int bucket = BucketOfHash(hash);
      int found = SameName(bucket, names_.First(bucket), text + start, length);
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
