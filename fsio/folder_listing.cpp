#include "fsio/folder_listing.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "base/fixed_sizes.h"
#include "fsio/os_calls.h"

namespace flm {
namespace {

constexpr size_t kFreeCharacters = 4;  // in front of the number of a DCF name
constexpr size_t kFirstBlock = 4096;
constexpr int kBitsPerByte = 8;

// The number decides, not the free characters, so that a folder comes out in the order of its file
// numbers whatever prefixes it holds. Two names that differ only in their free characters are equal
// and keep the order that the platform's sort gives them.
int CompareDcf(const char* left, const char* right) {
  const bool dcf = std::strlen(left) == kDcfNameLength && std::strlen(right) == kDcfNameLength;
  return dcf ? std::strcmp(left + kFreeCharacters, right + kFreeCharacters)
             : std::strcmp(left, right);
}

int CompareDcfAt(const void* left, const void* right) {
  return CompareDcf(*static_cast<const char* const*>(left),
                    *static_cast<const char* const*>(right));
}

bool IsDotEntry(const char* name) {
  return name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'));
}

// Number, point and extension as one number that compares as the characters do.
uint64_t KeyOf(const char* name) {
  uint64_t key = 0;
  for (size_t i = kFreeCharacters; i < kDcfNameLength; ++i) {
    key = key << kBitsPerByte | static_cast<unsigned char>(name[i]);
  }
  return key;
}

bool IsType(const dirent& entry, unsigned char type) { return entry.d_type == type; }

}  // namespace

bool FolderListing::Read(const char* path) {
  Clear();
  if (path != nullptr && ReadNames(path) && MakeEntries()) {
    if (uniform_) {
      SortByKey();
      return true;
    }
    if (SortAsPlatform()) return true;
  }
  Clear();
  return false;
}

void FolderListing::Clear() {
  std::free(names_);
  std::free(entries_);
  names_ = nullptr;
  entries_ = nullptr;
  namesSize_ = 0;
  namesUsed_ = 0;
  count_ = 0;
  uniform_ = true;
}

bool FolderListing::ReadNames(const char* path) {
  DIR* const dir = Os().Opendir(path);
  if (dir == nullptr) return false;
  bool complete = true;
  errno = 0;
  while (const dirent* const entry = Os().Readdir(dir)) {
    const bool mayBeLink = IsType(*entry, DT_LNK) || IsType(*entry, DT_UNKNOWN);
    if (!Take(entry->d_name, mayBeLink)) {
      complete = false;
      break;
    }
    errno = 0;
  }
  // A folder that could be read in part only would make files that are there look deleted.
  if (errno != 0) complete = false;
  Os().Closedir(dir);
  return complete;
}

// Adds a name behind the others, with the byte that tells its type in front.
bool FolderListing::Take(const char* name, bool mayBeLink) {
  const size_t length = std::strlen(name);
  if (namesUsed_ + length + 2 > namesSize_) {
    const size_t wanted = namesSize_ == 0 ? kFirstBlock : 2 * namesSize_;
    char* const grown = static_cast<char*>(std::realloc(names_, wanted));
    if (grown == nullptr) return false;
    names_ = grown;
    namesSize_ = wanted;
  }
  names_[namesUsed_++] = mayBeLink ? kMayBeLink : kNoLink;
  std::memcpy(names_ + namesUsed_, name, length + 1);
  namesUsed_ += length + 1;
  ++count_;
  uniform_ = uniform_ && (IsDotEntry(name) || (length == kDcfNameLength && name[0] > '.'));
  return true;
}

bool FolderListing::MakeEntries() {
  const size_t count = static_cast<size_t>(count_);
  entries_ = static_cast<Entry*>(std::malloc((count + 1) * sizeof(Entry)));
  if (entries_ == nullptr) return false;
  uint32_t at = 1;
  for (size_t i = 0; i < count; ++i) {
    const char* const name = names_ + at;
    // The dot entries stand in front, "." before "..".
    const bool dot = uniform_ && IsDotEntry(name);
    entries_[i].key = !uniform_ ? 0 : dot ? static_cast<uint64_t>(name[1] != '\0') : KeyOf(name);
    entries_[i].nameAt = at;
    at += static_cast<uint32_t>(std::strlen(name)) + 2;
  }
  return true;
}

void FolderListing::SortByKey() {
  std::sort(entries_, entries_ + count_, [](const Entry& a, const Entry& b) {
    return a.key != b.key ? a.key < b.key : a.nameAt < b.nameAt;
  });
}

// Names of several lengths have no consistent order under the rule. What the platform's sort makes
// of them in the order of reading is what callers know, so it is asked.
bool FolderListing::SortAsPlatform() {
  const size_t count = static_cast<size_t>(count_);
  const char** const names = static_cast<const char**>(std::malloc((count + 1) * sizeof(*names)));
  if (names == nullptr) return false;
  for (size_t i = 0; i < count; ++i) names[i] = names_ + entries_[i].nameAt;
  std::qsort(names, count, sizeof(*names), CompareDcfAt);
  for (size_t i = 0; i < count; ++i) {
    entries_[i].nameAt = static_cast<uint32_t>(names[i] - names_);
  }
  std::free(names);
  return true;
}

}  // namespace flm
