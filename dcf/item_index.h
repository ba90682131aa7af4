// Finds the items of one large directory without walking them: by number, by name, by position, and
// the next one that carries a mark. It says what a walk over the list would say, duplicates
// included: among equals the first in list order stands first.
//
//   sequence   an item's place in the order in which the list got its items; it never changes, and
//              a removed item leaves a hole
//   position   how many items stand in front of it: a sequence less the holes before it, counted by
//              a tree of partial sums
//   chains     sequences of equal hash, in list order: one kind by the item's number, one by its
//              address, and in folders of free names another by name. A bucket names the last of
//              its chain, which leads to the first. Holes stay in their chains
//   blocks     64 sequences each; a block has a flag set when an item in it may have that flag
//
// About twelve bytes an item, fifteen with names. All memory is asked for in Reserve: no look-up
// allocates. Proven by item_list_reference_test, dir_reference_test and the random tests on large
// cards.
#ifndef FILELISTMANAGEMENT_DCF_ITEM_INDEX_H
#define FILELISTMANAGEMENT_DCF_ITEM_INDEX_H

#include <cstdint>

#include "dcf/DCFItem.h"

namespace flm {

// What can be asked of an item in bulk: its eight item bits, and what the walks must not pass over.
using ItemFlags = uint16_t;
constexpr ItemFlags kFlagCopies = 0x0100;  // prints are ordered
constexpr ItemFlags kFlagIndex = 0x0200;   // in the index print
constexpr ItemFlags kFlagSize = 0x0400;    // has a print size
constexpr ItemFlags kFlagOdd = 0x0800;     // its path cannot be read back into its number
constexpr ItemFlags kFlagFree = 0x1000;    // says of itself that it lies in a folder of free names
constexpr int kItemBitFlags = 8;

// The flag of an item bit, counted as marks count them: 0 is the most significant.
constexpr ItemFlags FlagOfBit(int bit) { return static_cast<ItemFlags>(0x80 >> bit); }

ItemFlags FlagsOf(const DCFItem* item);

// The first item with any of the flags from one on, along its links; null when there is none.
DCFItem* NextLinked(DCFItem* item, ItemFlags flags);
DCFItem* PreviousLinked(DCFItem* item, ItemFlags flags);

class ItemIndex {
 public:
  ItemIndex() = default;
  ~ItemIndex() { Release(); }
  ItemIndex(const ItemIndex&) = delete;
  ItemIndex& operator=(const ItemIndex&) = delete;

  // Room for so many items, in place of the room and the entries it had; false, and no room, when
  // memory is short.
  bool Reserve(int items, bool byName);
  void Release();
  int Room() const { return room_; }
  bool HasNames() const { return names_.lasts != nullptr; }

  // Forgets the entries and keeps the room.
  void Clear();
  bool IsEmpty() const { return used_ == 0; }

  // Takes in every node from `head` on that is not held yet, up to the room. Whether all are held.
  bool CatchUp(DCFItem* head);
  // Forgets an item that is about to leave the list.
  void Remove(const DCFItem* item);
  // An item has changed from `before` (number and flags) to what it holds now; `renamed` when its
  // name may be another one.
  void Changed(const DCFItem* item, int numberBefore, ItemFlags flagsBefore, bool renamed);

  // Sequences; -1 for none.
  int FirstOfNumber(int number) const;
  int NextOfNumber(int sequence) const;  // of the same number
  int FirstOfName(const char* name) const;
  int NextOfName(int sequence) const;
  // The first item in list order whose name occurs in the text and that has all of the flags.
  int FirstNameWithin(const char* text, ItemFlags flags) const;
  int SequenceOf(const DCFItem* item) const;
  // The next or previous item with any of the flags, beyond `sequence` (-1, or Used() for the
  // ends).
  int NextWith(int sequence, ItemFlags flags);
  int PreviousWith(int sequence, ItemFlags flags) const;

  DCFItem* At(int sequence) const;
  int Used() const { return used_; }
  int Count() const { return count_; }  // items held
  int PositionOf(int sequence) const;
  int SequenceAt(int position) const;
  int CountOfBit(int bit) const { return bitCounts_[bit]; }

 private:
  using Link = uint16_t;
  static constexpr Link kEnd = 0xFFFF;
  static constexpr int32_t kHole = INT32_MIN;

  void SetUp(unsigned char* block, int room, bool byName);
  void Append(DCFItem* item);
  void AppendToTree();
  // One kind of chains.
  struct Chains {
    Link* lasts = nullptr;  // of each bucket
    Link* nexts = nullptr;  // of each sequence

    Link First(int bucket) const { return lasts[bucket] == kEnd ? kEnd : nexts[lasts[bucket]]; }
    Link Next(int bucket, Link at) const { return at == lasts[bucket] ? kEnd : nexts[at]; }
    void Add(int bucket, int sequence) const;
  };

  void CountBits(ItemFlags flags, int step);
  int NextInBlock(int from, int end, ItemFlags flags) const;
  int BucketOfNumber(int number) const;
  int BucketOfHash(uint32_t hash) const;
  int BucketOfName(const DCFItem* item) const;
  int SameName(int bucket, Link from, const char* name, int length) const;
  int BucketOfAddress(int32_t offset) const;
  bool IsNumber(int sequence, int number) const;

  unsigned char* block_ = nullptr;  // all arrays below; owned
  int32_t* offsets_ = nullptr;      // from the first item, in bytes; kHole for a removed one
  Chains numbers_;
  Chains addresses_;
  Chains names_;              // null without names
  uint16_t* tree_ = nullptr;  // partial sums, from 1
  ItemFlags* blocks_ = nullptr;
  DCFItem* base_ = nullptr;       // where offsets count from
  DCFItem* lastTaken_ = nullptr;  // nodes behind it wait to be taken in; null: all do
  uint64_t nameLengths_ = 0;      // bit n: there may be a name of n characters
  int32_t room_ = 0;
  int32_t buckets_ = 0;
  int32_t used_ = 0;
  int32_t count_ = 0;
  uint16_t bitCounts_[kItemBitFlags] = {};
};

}  // namespace flm

#endif
