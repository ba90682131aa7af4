// The files of one directory.
#ifndef FILELISTMANAGEMENT_DCF_CQDCFITEMLIST_H
#define FILELISTMANAGEMENT_DCF_CQDCFITEMLIST_H

#include <cstdint>

#include "dcf/DCFItem.h"

class CQDCFMemManager;

// A doubly linked list whose nodes are units of the catalogue's pool, in the order in which they
// were added or sorted.
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

 private:
  int32_t count_;                // nodes, as last counted or maintained
  DCFItem* head_;                // first node or null
  DCFItem* tail_;                // last node; stale after RemoveAll, which AddTail does not mind
  CQDCFMemManager* memManager_;  // where nodes come from; not owned
};

#endif
