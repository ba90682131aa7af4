// A scanned card and its file list, for the tests of marks, deletion, pages and print marks.
#ifndef FILELISTMANAGEMENT_TESTS_FILELIST_MARKS_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_FILELIST_MARKS_FIXTURE_H

#include <string>
#include <vector>

#include "base/bounded_text.h"
#include "filelist/CQFileList.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace flm_test {

// A card with its list; the list is not scanned until Scan. Flushing the whole machine is left out,
// since it can take seconds, and counted instead.
class ListedCard {
 public:
  explicit ListedCard(int type = 4) {
    flm::Os().Sync = [] {};
    flm::Os().StartThread = [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
      ++flushes;
      return 0;
    };
    flushes = 0;
    list.SetType(type);
    list.SetBaseURI(card.Root().c_str());
  }
  ~ListedCard() {
    list.Destroy();
    flm::ResetOsCalls();
  }
  ListedCard(const ListedCard&) = delete;
  ListedCard& operator=(const ListedCard&) = delete;

  // Makes the files and scans the card. The count of files.
  int With(const std::vector<std::string>& files) {
    for (const std::string& file : files) card.MakeFile(file);
    return Scan();
  }
  int Scan() { return list.Listup(0); }

  // An item that carries nothing but the path of a place on the card.
  CQFileListItem Item(const std::string& relative) const {
    CQFileListItem item;
    flm::CopyText(item.filePath, sizeof(item.filePath), card.Path(relative).c_str());
    return item;
  }
  // The item at an index, companions' path included. The cursor does not move.
  CQFileListItem At(int index) {
    CQFileListItem item;
    list.DCF_GetAt(index, &item);
    return item;
  }
  // What a path is called on this card; the text itself when it lies elsewhere.
  std::string Relative(const std::string& path) const {
    const std::string start = card.Root() + "/";
    return path.compare(0, start.size(), start) == 0 ? path.substr(start.size()) : path;
  }
  std::string NameOf(const CQFileListItem& item) const { return Relative(item.filePath); }
  // All files of the list, in order.
  std::vector<std::string> Files() {
    std::vector<std::string> names;
    for (int i = 0; i < list.GetCount(); ++i) names.push_back(NameOf(At(i)));
    return names;
  }

  static inline int flushes = 0;  // how often the card was flushed in the background
  Card card;
  CQFileList list;
};

// What a progress callback saw. Hand over Progress::Record after Begin.
struct Progress {
  int index;
  int total;
  int status;
  bool operator==(const Progress& other) const {
    return index == other.index && total == other.total && status == other.status;
  }

  static inline std::vector<Progress> seen;
  static inline int cancelAt = -1;
  static inline bool cancelWasSet = false;  // the flag was found set on entry

  // Forgets what was seen; the call with this number, from 0, will ask to cancel.
  static void Begin(int cancelAtCall = -1) {
    seen.clear();
    cancelAt = cancelAtCall;
    cancelWasSet = false;
  }
  static void Record(int index, int total, int* status, bool* cancel) {
    if (*cancel) cancelWasSet = true;
    if (static_cast<int>(seen.size()) == cancelAt) *cancel = true;
    seen.push_back({index, total, *status});
  }
};

inline std::ostream& operator<<(std::ostream& out, const Progress& progress) {
  return out << "(" << progress.index << " of " << progress.total << ", " << progress.status << ")";
}

}  // namespace flm_test

#endif
