// Finds the directories of a catalogue by name and by number, and the directory of a position,
// without walking the table. What it holds is taken from the table anew after every change of a
// name, a number or the number of slots in use; item counts are kept up one by one.
// Proven by list_reference_test, which also runs on a card with hundreds of folders.
#ifndef FILELISTMANAGEMENT_DCF_FOLDER_INDEX_H
#define FILELISTMANAGEMENT_DCF_FOLDER_INDEX_H

#include <cstdint>

#include "base/fixed_sizes.h"

class CQDCFDir;

namespace flm {

constexpr int kWeakDirName = 6;  // folders that share these characters are one to a look-up

class FolderIndex {
 public:
  // The table has changed; nothing else may be asked before the next Take.
  void Forget() { current_ = false; }
  bool IsCurrent() const { return current_; }
  // Takes over the table: names of its first `used` slots, numbers and counts of all.
  void Take(CQDCFDir* table, int used);

  // The first slot in use whose name begins with the first six characters of `name`; -1 for none.
  int FirstNamed(const CQDCFDir* table, const char* name) const;
  // Slots that may have a number, in ascending order; -1 at the end. The caller compares: several
  // numbers share a chain.
  int FirstOfNumber(int number) const { return numberHeads_[BucketOfNumber(number)]; }
  int NextOfNumber(int slot) const { return numberNexts_[slot]; }
  // One behind the last slot that has a number or items.
  int End() const { return end_; }

  void SetCount(int slot, int count);
  // Items in the slots in front of one.
  int Before(int slot) const;
  // The slot that holds a position, and in *rest the position in it; -1 beyond the last.
  int SlotAt(int position, int* rest) const;
  // Whether slots without a number above 0 hold items: positions of a walk do not count these.
  bool HasHidden() const { return hidden_; }

 private:
  static constexpr int kBuckets = 1024;
  static int BucketOfNumber(int number) { return number & (kBuckets - 1); }

  bool current_ = false;
  bool hidden_ = false;
  int16_t end_ = 0;
  int16_t numberHeads_[kBuckets];
  int16_t numberNexts_[kMaxFolders];
  int16_t nameHeads_[kBuckets];
  int16_t nameNexts_[kMaxFolders];
  uint16_t counts_[kMaxFolders];
  uint16_t tree_[kMaxFolders + 1];  // partial sums of the counts, from 1
};

}  // namespace flm

#endif
