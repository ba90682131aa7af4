#include "fsio/PCQDCFFSIO.h"

#include <cstring>

PCQDCFFSIO::PCQDCFFSIO() = default;

PCQDCFFSIO::PCQDCFFSIO(const char* path, const char* pattern) { Open(path, pattern); }

PCQDCFFSIO::~PCQDCFFSIO() = default;

int PCQDCFFSIO::Open(const char* path, const char* /*pattern*/) {
  // A folder without any entry, not even its own, is none that could be read.
  valid_ = listing_.Read(path) && listing_.Count() > 0;
  open_ = valid_;
  next_ = 0;
  return 0;
}

int PCQDCFFSIO::Read(PTFile* entry) {
  if (!open_ || entry == nullptr) return -1;
  if (next_ >= listing_.Count()) return -2;
  const char* const name = listing_.Name(next_++);
  const size_t length = strnlen(name, flm::kEntryNameCopied);
  std::memset(entry->name, 0, flm::kEntryNameCopied);
  std::memcpy(entry->name, name, length);
  return 0;
}

int PCQDCFFSIO::Close() {
  listing_.Clear();
  open_ = false;
  return 0;
}
