#include "fsio/PCQDCFFSIO.h"

#include <cstdlib>
#include <cstring>

#include "fsio/os_calls.h"

namespace {

constexpr size_t kFreeCharacters = 4;  // in front of the number of a DCF name

// The number decides, not the free characters, so that a folder comes out in the order of its file
// numbers whatever prefixes it holds. Two names that differ only in their free characters are equal
// and keep the order that the platform's sort gives them.
int CompareDcf(const dirent** a, const dirent** b) {
  const char* const left = (*a)->d_name;
  const char* const right = (*b)->d_name;
  const bool dcf =
      std::strlen(left) == flm::kDcfNameLength && std::strlen(right) == flm::kDcfNameLength;
  return dcf ? std::strcmp(left + kFreeCharacters, right + kFreeCharacters)
             : std::strcmp(left, right);
}

}  // namespace

PCQDCFFSIO::PCQDCFFSIO() = default;

PCQDCFFSIO::PCQDCFFSIO(const char* path, const char* pattern) { Open(path, pattern); }

PCQDCFFSIO::~PCQDCFFSIO() { Close(); }

int PCQDCFFSIO::Open(const char* path, const char* /*pattern*/) {
  Close();
  dirent** listing = nullptr;
  entryCount_ = path == nullptr ? -1 : flm::Os().Scandir(path, &listing, nullptr, CompareDcf);
  entries_ = entryCount_ < 0 ? nullptr : listing;
  handle_ = entries_;
  remaining_ = entryCount_;
  return 0;
}

int PCQDCFFSIO::Read(PTFile* entry) {
  if (entries_ == nullptr || entry == nullptr) return -1;
  if (remaining_ < 1) return -2;
  dirent*& next = entries_[entryCount_ - remaining_];
  const size_t length = strnlen(next->d_name, flm::kEntryNameCopied);
  std::memset(entry->name, 0, flm::kEntryNameCopied);
  std::memcpy(entry->name, next->d_name, length);
  std::free(next);
  next = nullptr;
  --remaining_;
  return 0;
}

int PCQDCFFSIO::Close() {
  ReleaseUnread();
  std::free(entries_);
  entries_ = nullptr;
  return 0;
}

void PCQDCFFSIO::ReleaseUnread() {
  if (entries_ == nullptr) return;
  for (int i = entryCount_ - remaining_; i < entryCount_; ++i) std::free(entries_[i]);
}
