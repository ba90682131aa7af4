#include "fsio/folder_listing.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "base/fixed_sizes.h"
#include "fsio/os_calls.h"

namespace flm {
namespace {

constexpr size_t kFreeCharacters = 4;  // in front of the number of a DCF name
constexpr size_t kFirstBlock = 4096;
constexpr size_t kLongName = 255;
constexpr int32_t kDotEntries = 2;
constexpr size_t kDigits = 4;
constexpr size_t kNumbers = 10000;
constexpr int32_t kWorthCounting = 256;  // from so many names on, one pass by number is faster

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

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

bool HasNumber(const char* name) {
  const char* const digits = name + kFreeCharacters;
  return IsDigit(digits[0]) && IsDigit(digits[1]) && IsDigit(digits[2]) && IsDigit(digits[3]);
}

// The number of a name that has one.
uint32_t NumberOf(const char* name) {
  uint32_t number = 0;
  for (size_t i = 0; i < kDigits; ++i) {
    number = number * 10 + static_cast<uint32_t>(name[kFreeCharacters + i] - '0');
  }
  return number;
}

// How two names that the folder holds at two places stand, as the platform's stable sort leaves
// them.
bool ComesBefore(const char* names, uint32_t left, uint32_t right) {
  const int order = std::memcmp(names + left + kFreeCharacters, names + right + kFreeCharacters,
                                kDcfNameLength - kFreeCharacters);
  return order != 0 ? order < 0 : left < right;
}

bool IsType(const dirent& entry, unsigned char type) { return entry.d_type == type; }

}  // namespace

bool FolderListing::Read(const char* path) {
  Clear();
  if (path != nullptr && ReadNames(path) && MakePlaces() && Sort()) return true;
  Clear();
  return false;
}

void FolderListing::Clear() {
  std::free(names_);
  std::free(places_);
  names_ = nullptr;
  places_ = nullptr;
  namesSize_ = 0;
  namesUsed_ = 0;
  count_ = 0;
  dotEntries_ = 0;
  uniform_ = true;
  numbered_ = true;
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

// Adds a name behind the others, with its length and the byte that tells its type in front. Some
// file systems have names whose length does not fit into a byte: these have the largest one.
bool FolderListing::Take(const char* name, bool mayBeLink) {
  const size_t length = std::strlen(name);
  if (namesUsed_ + kHead + length + 1 > namesSize_) {
    const size_t wanted = namesSize_ == 0 ? kFirstBlock : 2 * namesSize_;
    char* const grown = static_cast<char*>(std::realloc(names_, wanted));
    if (grown == nullptr) return false;
    names_ = grown;
    namesSize_ = wanted;
  }
  names_[namesUsed_++] = static_cast<char>(length < kLongName ? length : kLongName);
  names_[namesUsed_++] = mayBeLink ? kMayBeLink : kNoLink;
  std::memcpy(names_ + namesUsed_, name, length + 1);
  namesUsed_ += length + 1;
  ++count_;
  if (IsDotEntry(name)) {
    uniform_ = uniform_ && ++dotEntries_ <= kDotEntries;
  } else {
    uniform_ = uniform_ && length == kDcfNameLength && name[0] > '.';
    numbered_ = numbered_ && uniform_ && HasNumber(name);
  }
  return true;
}

// The places in the order of reading, with the dot entries in front when every name is uniform:
// then these are the first in order, "." before "..".
bool FolderListing::MakePlaces() {
  places_ = static_cast<uint32_t*>(std::calloc(static_cast<size_t>(count_) + 1, sizeof(uint32_t)));
  if (places_ == nullptr) return false;
  uint32_t* dots = places_;
  uint32_t* others = uniform_ ? places_ + dotEntries_ : places_;
  uint32_t at = kHead;
  for (int i = 0; i < count_; ++i) {
    const char* const name = names_ + at;
    *(uniform_ && IsDotEntry(name) ? dots++ : others++) = at;
    at += LengthOf(name) + 1 + kHead;
  }
  const bool swapped = uniform_ && dotEntries_ == kDotEntries && names_[places_[0] + 1] != '\0';
  if (swapped) std::swap(places_[0], places_[1]);
  return true;
}

uint32_t FolderListing::LengthOf(const char* name) {
  const unsigned char kept = static_cast<unsigned char>(name[-static_cast<int>(kLengthAt)]);
  return kept < kLongName ? kept : static_cast<uint32_t>(std::strlen(name));
}

bool FolderListing::Sort() {
  if (!uniform_) return SortAsPlatform();
  if (numbered_ && count_ >= kWorthCounting && SortByNumber()) return true;
  SortByName(places_ + dotEntries_, places_ + count_);
  return true;
}

void FolderListing::SortByName(uint32_t* from, uint32_t* to) const {
  const char* const names = names_;
  std::sort(from, to,
            [names](uint32_t left, uint32_t right) { return ComesBefore(names, left, right); });
}

// One pass by number, then the names of each number among themselves. False without memory.
bool FolderListing::SortByNumber() {
  const size_t count = static_cast<size_t>(count_ - dotEntries_);
  auto* const scratch = static_cast<uint32_t*>(std::calloc(count + kNumbers + 1, sizeof(uint32_t)));
  if (scratch == nullptr) return false;
  uint32_t* const unsorted = scratch;
  uint32_t* const starts = scratch + count;  // where the names of each number begin
  uint32_t* const sorted = places_ + dotEntries_;
  std::memcpy(unsorted, sorted, count * sizeof(uint32_t));
  for (size_t i = 0; i < count; ++i) ++starts[NumberOf(names_ + unsorted[i]) + 1];
  for (size_t number = 0; number < kNumbers; ++number) starts[number + 1] += starts[number];
  for (size_t i = 0; i < count; ++i) sorted[starts[NumberOf(names_ + unsorted[i])]++] = unsorted[i];
  // Each start has moved on to the next number's.
  uint32_t from = 0;
  for (size_t number = 0; number < kNumbers; ++number) {
    const uint32_t to = starts[number];
    if (to - from > 1) SortByName(sorted + from, sorted + to);
    from = to;
  }
  std::free(scratch);
  return true;
}

// Names of several lengths have no consistent order under the rule. What the platform's sort makes
// of them in the order of reading is what callers know, so it is asked.
bool FolderListing::SortAsPlatform() {
  const size_t count = static_cast<size_t>(count_);
  const char** const names = static_cast<const char**>(std::malloc((count + 1) * sizeof(*names)));
  if (names == nullptr) return false;
  for (size_t i = 0; i < count; ++i) names[i] = names_ + places_[i];
  std::qsort(names, count, sizeof(*names), CompareDcfAt);
  for (size_t i = 0; i < count; ++i) {
    places_[i] = static_cast<uint32_t>(names[i] - names_);
  }
  std::free(names);
  return true;
}

}  // namespace flm
