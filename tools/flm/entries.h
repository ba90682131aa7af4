// The files of a card as the commands show and change them.
#ifndef FILELISTMANAGEMENT_TOOLS_ENTRIES_H
#define FILELISTMANAGEMENT_TOOLS_ENTRIES_H

#include <cstdint>
#include <ctime>
#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "card.h"

namespace flm::tool {

struct Entry {
  int index = -1;
  CQFileListItem item;                  // filled; objectPath is "" unless it names own companions
  bool grouped = false;                 // the voice memo and continuous capture mark
  bool found = false;                   // the file has a status; size and time are known
  int64_t size = 0;                     // bytes, also above 2 GB
  std::time_t time = 0;                 // last modification
  std::vector<std::string> companions;  // library paths

  std::string Path() const { return item.filePath; }
};

// Calls `take` with the library path of each file in list order. No file is read for it.
void ForEachPath(Card& card, const std::function<void(const char*)>& take);

// The library paths of all files in list order. No file is read for it.
std::vector<std::string> ReadPaths(Card& card);

// Everything about all files, in list order.
std::vector<Entry> ReadEntries(Card& card);

// Everything about the file at an index, which must exist.
Entry ReadEntry(Card& card, int index);
// The same without marks, size and time; no file is read for it.
Entry ReadNamedEntry(Card& card, int index);

// The base names of the companions.
std::vector<std::string> CompanionNames(const Entry& entry);

nlohmann::ordered_json ToJson(const Card& card, const Entry& entry);
// The names of its fields, in order.
std::vector<std::string> JsonFields();

}  // namespace flm::tool

#endif
