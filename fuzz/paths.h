// One operation of the list or its catalogue with arguments that a fuzzer chose. The tables of all
// operations are in paths_list.cpp and paths_catalogue.cpp.
#ifndef FILELISTMANAGEMENT_FUZZ_PATHS_H
#define FILELISTMANAGEMENT_FUZZ_PATHS_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "dcf/CQDCFList.h"
#include "filelist/CQFileList.h"

namespace flm_fuzz {

constexpr int kNumbers = 3;

struct Arguments {
  explicit Arguments(CQFileList& from) : list(from), catalogue(*from.GetDCFList()) {}

  CQFileList& list;
  CQDCFList& catalogue;

  char* path = nullptr;  // in a block of exactly its length, or null
  char* text = nullptr;  // another one, never null
  CQFileListItem* item = nullptr;
  CQFileListItem ownItem;  // for operations that take no null
  int number[kNumbers] = {};
  bool on = false;
  bool on2 = false;

  // A buffer of exactly `size` bytes, all zero, until the end of the input.
  char* Out(int size) {
    buffers.emplace_back(new char[static_cast<size_t>(size > 0 ? size : 1)]());
    return buffers.back().get();
  }
  // A size for such a buffer: those that callers use, and every small one.
  int Size() const {
    constexpr int kUsual = 128;
    return (number[2] & 1) == 0 ? kUsual : number[2] & 0x7F;
  }
  DCFItem* Record() { return on2 ? nullptr : catalogue.FindItem(path); }
  ProgressCallback Callback() const;

  std::vector<std::unique_ptr<char[]>> buffers;
};

struct Operation {
  bool changes;  // the list or the card may be another one afterwards
  void (*run)(Arguments&);
};

using Operations = std::vector<Operation>;
const Operations& ListOperations();
const Operations& CatalogueOperations();

}  // namespace flm_fuzz

#endif
