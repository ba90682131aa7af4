// Reading the list. The walk goes from the last file to the first, because the forward walk asks
// the card for the time of every file, wanted or not. The companions' path comes with GetCurrent
// and GetAt alone: the walks write it only on entering a folder.
#include "entries.h"

#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <nlohmann/json.hpp>

#include "failure.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kExtensionLength = 3;
constexpr eFileType kCompanionKinds[] = {FILE_TYPE_RAW, FILE_TYPE_VOICE_MEMO,
                                         FILE_TYPE_MULTI_PICTURE};

// Calls `take` with the cursor on each file, from the last to the first.
void WalkBackwards(Card& card, const std::function<void(const CQFileListItem&)>& take) {
  CQFileListItem item;
  int result = card.List().GetLast(&item, false);
  while (result == 0) {
    take(item);
    result = card.List().GetPrev(&item, false);
  }
}

// In the CAMERA folder companions do not share their picture's number, and a path made from it
// would name a stranger.
bool NamesOwnCompanions(const CQFileListItem& item) {
  const size_t length = std::strlen(item.filePath);
  return length == std::strlen(item.objectPath) && length > kExtensionLength &&
         std::strncmp(item.filePath, item.objectPath, length - kExtensionLength) == 0;
}

void Complete(Card& card, Entry& entry) {
  CQFileListItem& item = entry.item;
  entry.grouped = card.List().IsVoiceRec(&item);
  struct stat status;
  entry.found = stat(item.filePath, &status) == 0;
  if (entry.found) {
    entry.size = status.st_size;
    entry.time = status.st_mtime;
  }
  if (!NamesOwnCompanions(item)) item.objectPath[0] = '\0';
  for (const eFileType kind : kCompanionKinds) {
    char path[sizeof(item.objectPath)] = {};
    const int size = static_cast<int>(sizeof(path));
    if (card.List().GetObjectFullPath(&item, kind, path, size) > 0) {
      entry.companions.emplace_back(path);
    }
  }
}

}  // namespace

std::vector<std::string> ReadPaths(Card& card) {
  std::vector<std::string> paths;
  WalkBackwards(card, [&](const CQFileListItem& item) { paths.emplace_back(item.filePath); });
  std::reverse(paths.begin(), paths.end());
  return paths;
}

std::vector<Entry> ReadEntries(Card& card) {
  std::vector<Entry> entries;
  WalkBackwards(card, [&](const CQFileListItem&) {
    Entry entry;
    card.List().GetCurrent(&entry.item, true);
    Complete(card, entry);
    entries.push_back(std::move(entry));
  });
  std::reverse(entries.begin(), entries.end());
  for (size_t i = 0; i < entries.size(); ++i) entries[i].index = static_cast<int>(i);
  return entries;
}

Entry ReadEntry(Card& card, int index) {
  Entry entry;
  entry.index = index;
  if (card.List().GetAt(index, &entry.item, true) < 0) {
    throw Failure("cannot read the file with the index " + std::to_string(index));
  }
  Complete(card, entry);
  return entry;
}

std::vector<std::string> CompanionNames(const Entry& entry) {
  std::vector<std::string> names;
  for (const std::string& path : entry.companions) names.push_back(BaseName(path));
  return names;
}

nlohmann::ordered_json ToJson(const Card& card, const Entry& entry) {
  nlohmann::ordered_json value;
  value["index"] = entry.index;
  value["path"] = JsonText(card.UserPath(entry.Path()));
  value["size"] = nullptr;
  value["mtime"] = nullptr;
  value["mtime_seconds"] = nullptr;
  if (entry.found) {
    value["size"] = entry.size;
    value["mtime"] = IsoTime(entry.time);
    value["mtime_seconds"] = static_cast<int64_t>(entry.time);
  }
  value["protected"] = entry.item.isProtected != 0;
  value["selected"] = entry.item.selected != 0;
  value["wifi"] = entry.item.wifiFlag != 0;
  value["voice_or_capture"] = entry.grouped;
  value["copies"] = entry.item.dpofCopies;
  value["index_print"] = entry.item.dpofIndex != 0;
  value["size_code"] = entry.item.dpofSize;
  value["companions"] = nlohmann::ordered_json::array();
  for (const std::string& name : CompanionNames(entry)) {
    value["companions"].push_back(JsonText(name));
  }
  return value;
}

}  // namespace flm::tool
