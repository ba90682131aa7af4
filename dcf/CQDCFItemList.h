// The files of one directory.
#ifndef FILELISTMANAGEMENT_DCF_CQDCFITEMLIST_H
#define FILELISTMANAGEMENT_DCF_CQDCFITEMLIST_H

#include <cstdint>

#include "dcf/DCFItem.h"
#include "dcf/item_index.h"

class CQDCFMemManager;

// A doubly linked list whose nodes are units of the catalogue's pool, in the order in which they
// were added or sorted. A short list is walked; a long one keeps an index, which is told of every
// change that is made through this class and CQDCFDir. Whoever writes a number, mark or name
// straight into a record does it before the record is first looked up.
class CQDCFItemList {
 public:
  CQDCFItemList();
  virtual ~CQDCFItemList();  // RemoveAll
  CQDCFItemList(const CQDCFItemList&) = delete;
  CQDCFItemList& operator=(const CQDCFItemList&) = delete;

  // The pool, which is lent and not owned. Returns 0.
  int SetMemMgr(CQDCFMemManager* memManager);

  // A new node at the end, its first 16 bytes and links zeroed and the rest as the unit held it;
  // null without a pool or when the pool is exhausted.
  DCFItem* AddTail();
  // Takes a node out and gives its unit back. 0; -1 for null.
  int DeleteItemAt(DCFItem* item);
  // Empties the list. Returns 0.
  int RemoveAll();

  int GetCount() const { return count_; }
  // Counts the nodes and stores the number; without nodes it answers 0 and stores nothing.
  int UpdateCount();

  // The node at position i from 0, null beyond the count.
  DCFItem* GetItemAt(int i) const;
  // File number of an item; -1 for null.
  int GetNum(const DCFItem* item) const;

  // Orders the nodes by file number and, for equal numbers, by file name. Returns 0.
  int Sort();
  // Does nothing. Returns 0.
  int GetStrCmpRes(unsigned char* a, unsigned char* b, unsigned int length);

  DCFItem* Head() const { return head_; }
  // The last node, as GetItemAt(GetCount() - 1) gives it.
  DCFItem* Last() const { return GetItemAt(count_ - 1); }

  // --- Looking up -------------------------------------------------------------------------------
  // The first node in list order of a number for which `matches` holds, or null; its position, when
  // asked for, stays as it is without one.
  template <typename Matches>
  DCFItem* FirstOfNumber(int number, Matches matches, int* position = nullptr) const {
    if (const flm::ItemIndex* const index = Index()) {
      for (int at = index->FirstOfNumber(number); at >= 0; at = index->NextOfNumber(at)) {
        if (!matches(index->At(at))) continue;
        if (position != nullptr) *position = index->PositionOf(at);
        return index->At(at);
      }
      return nullptr;
    }
    int walked = 0;
    for (DCFItem* item = head_; item != nullptr; item = item->next, ++walked) {
      if (item->fileNumber != number || !matches(item)) continue;
      if (position != nullptr) *position = walked;
      return item;
    }
    return nullptr;
  }
  // The first node with the name, of at most 40 characters.
  DCFItem* FirstOfName(const char* name) const;
  // The first node with all of the flags whose name occurs in the text.
  DCFItem* FirstNameWithin(const char* text, flm::ItemFlags flags) const;
  // The next or previous node with any of the flags, from behind or in front of `from`; null for
  // `from`: from the first or the last.
  DCFItem* NextWith(const DCFItem* from, flm::ItemFlags flags) const;
  DCFItem* PreviousWith(const DCFItem* from, flm::ItemFlags flags) const;
  // Whether the list is walked, for want of nodes or of memory.
  bool IsWalked() const { return Index() == nullptr; }
  // How many nodes stand in front of one of them.
  int PositionOf(const DCFItem* item) const;
  int CountOfBit(int bit) const;

  // Room for an index over so many nodes, by name too if asked; without memory the list is walked.
  void ReserveIndex(int items, bool byName);
  // Gives back room that so many more nodes than now do not need.
  void FitIndex(int more);

  // Writes into a node: every change of a number, mark or name goes through here. A record of
  // another list is written too, but that list is not told.
  template <typename Write>
  void Change(DCFItem* item, bool renames, Write change) {
    const int number = item->fileNumber;
    const flm::ItemFlags flags = index_.IsEmpty() ? flm::ItemFlags{0} : flm::FlagsOf(item);
    change();
    index_.Changed(item, number, flags, renames);
  }

 private:
  static constexpr int kWalkedItems = 64;  // up to so many nodes a walk is as fast as an index

  template <typename Matches>
  DCFItem* FirstWalked(Matches matches) const {
    for (DCFItem* item = head_; item != nullptr; item = item->next) {
      if (matches(item)) return item;
    }
    return nullptr;
  }
  // The index over all nodes; null when the list is to be walked.
  flm::ItemIndex* Index() const;
  void KeepRoom();
  bool SortByTable();
  void SortByExchange();

  int32_t count_;                 // nodes, as last counted or maintained
  DCFItem* head_;                 // first node or null
  DCFItem* tail_;                 // last node; stale after RemoveAll, which AddTail does not mind
  CQDCFMemManager* memManager_;   // where nodes come from; not owned
  bool byName_;                   // an index finds names too
  mutable flm::ItemIndex index_;  // made complete by look-ups
};

#endif
