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
  const char* Name(int i) const { return names_ + entries_[i].nameAt; }

  // Whether entry i is known to be neither a link nor a thing that could be one, so that a status
  // call by its name finds it.
  bool IsNoLink(int i) const { return names_[entries_[i].nameAt - 1] != kMayBeLink; }

 private:
  // In the block a byte that tells the entry's type stands in front of each name.
  static constexpr char kMayBeLink = 0;
  static constexpr char kNoLink = 1;

  struct Entry {
    uint64_t key;     // what the order looks at, when every name has 12 characters
    uint32_t nameAt;  // place of the name in the block; rises in the order of reading
  };

  bool ReadNames(const char* path);
  bool Take(const char* name, bool mayBeLink);
  bool MakeEntries();
  void SortByKey();
  bool SortAsPlatform();

  char* names_ = nullptr;  // owned
  size_t namesSize_ = 0;
  size_t namesUsed_ = 0;
  Entry* entries_ = nullptr;  // owned
  int32_t count_ = 0;
  bool uniform_ = true;  // all names but "." and ".." are of 12 characters and stand behind these
};

}  // namespace flm

#endif
