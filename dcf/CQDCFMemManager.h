// The pool from which all items of one catalogue are taken.
#ifndef FILELISTMANAGEMENT_DCF_CQDCFMEMMANAGER_H
#define FILELISTMANAGEMENT_DCF_CQDCFMEMMANAGER_H

#include <cstdint>

// One array of fixed-size units with one occupancy bit each. Unit k has its bit in word k / 32, at
// bit 31 - k % 32; a set bit means in use. Units are handed out lowest index first, so a freed unit
// is the first to be used again. No heap is touched after Create.
class CQDCFMemManager {
 public:
  CQDCFMemManager();
  virtual ~CQDCFMemManager();
  CQDCFMemManager(const CQDCFMemManager&) = delete;
  CQDCFMemManager& operator=(const CQDCFMemManager&) = delete;

  // Makes a pool of unitCount units of unitSize bytes; isNand is accepted and ignored. Returns 0,
  // also when memory is short: AllocBlock then has nothing to give. An earlier pool is released.
  int Create(int unitSize, int unitCount, int isNand);
  // Releases the pool. Returns 0.
  int Destroy();

  // A free unit with whatever it held before, or null when none is free.
  unsigned char* AllocBlock();
  // Gives back a unit that AllocBlock returned; any other address must not be passed. Returns 0.
  int FreeBlock(unsigned char* unit);

  // Index of the first free unit, -1 when there is none.
  int FindEmptyBlock();
  // Position of the first clear bit of a 32-bit word, counted from bit 31; -1 when all are set.
  int GetEmptyIndexInBlock(unsigned long word);
  // Sets or clears the occupancy bit of a unit. Returns 0, -1 when there is no such unit.
  int SetBlockMark(int index, bool used);

  // Whether there is a pool.
  bool HasPool() const { return pool_ != nullptr; }

 private:
  int32_t unitSize_;       // bytes per unit
  int32_t unitCount_;      // number of units
  int32_t markWordCount_;  // unitCount / 32 + 1
  uint32_t* markWords_;    // the occupancy bits; owned
  unsigned char* pool_;    // the units; owned
  int32_t firstOpenWord_;  // no word before it has a clear bit
};

#endif
