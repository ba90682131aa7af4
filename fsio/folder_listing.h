// The names of a folder in DCF order, kept in one block of memory: a card has thousands of them,
// and one allocation a name costs more than reading the card.
#ifndef FILELISTMANAGEMENT_FSIO_FOLDER_LISTING_H
#define FILELISTMANAGEMENT_FSIO_FOLDER_LISTING_H

#include <cstddef>
#include <cstdint>

namespace flm {

class FolderListing {
 public:
  FolderListing() = default;
  ~FolderListing() { Clear(); }
  FolderListing(const FolderListing&) = delete;
  FolderListing& operator=(const FolderListing&) = delete;

  // Lists a folder, "." and ".." too, in place of an earlier listing: names of 12 characters by
  // everything behind their four free characters, any other pair by the whole names, byte by byte;
  // equal names in the order in which the folder holds them. False, and empty, when the path is
  // null, the folder cannot be read to its end or memory is short.
  bool Read(const char* path);
  void Clear();

  int Count() const { return count_; }
  const char* Name(int i) const { return names_ + places_[i]; }

  int Length(int i) const { return static_cast<int>(LengthOf(Name(i))); }

  // Whether entry i is known to be neither a link nor a thing that could be one, so that a status
  // call by its name finds it.
  bool IsNoLink(int i) const { return names_[places_[i] - kTypeAt] != kMayBeLink; }

 private:
  // In front of each name in the block stand its length and a byte that tells the entry's type.
  static constexpr uint32_t kLengthAt = 2;
  static constexpr uint32_t kTypeAt = 1;
  static constexpr uint32_t kHead = 2;
  static constexpr char kMayBeLink = 0;
  static constexpr char kNoLink = 1;

  static uint32_t LengthOf(const char* name);
  bool ReadNames(const char* path);
  bool Take(const char* name, bool mayBeLink);
  bool MakePlaces();
  bool Sort();
  void SortByName(uint32_t* from, uint32_t* to) const;
  bool SortByNumber();
  bool SortAsPlatform();

  char* names_ = nullptr;  // owned
  size_t namesSize_ = 0;
  size_t namesUsed_ = 0;
  uint32_t* places_ = nullptr;  // of the names in the block, in order; owned
  int32_t count_ = 0;
  int32_t dotEntries_ = 0;  // "." and ".." among them
  bool uniform_ = true;     // all other names are of 12 characters and stand behind these two
  bool numbered_ = true;    // and have four digits where the number stands
};

}  // namespace flm

#endif
