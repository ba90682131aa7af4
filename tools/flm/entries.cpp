// Reading the list. It is read by index: the forward walk asks the card for the time of every file,
// wanted or not, and the walks write the companions' path only on entering a folder. Each file's
// status is read once, here, because the library's information has no size.
#include "entries.h"

#include <sys/stat.h>

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

// In the CAMERA folder companions do not share their picture's number, and a path made from it
// would name a stranger.
bool NamesOwnCompanions(const CQFileListItem& item) {
  const size_t length = std::strlen(item.filePath);
  return length == std::strlen(item.objectPath) && length > kExtensionLength &&
         std::strncmp(item.filePath, item.objectPath, length - kExtensionLength) == 0;
}

void TakeMarks(CQFileList& list, Entry& entry) {
  CQFileListItem& item = entry.item;
  item.selected = list.IsSel(&item) ? 1 : 0;
  item.wifiFlag = list.IsWifiFlag(&item) ? 1 : 0;
  item.dpofCopies = static_cast<uint8_t>(list.GetDPOFNumOfCopy(&item));
  item.dpofSize = list.GetDPOFSize(&item);
  item.dpofIndex = list.GetDPOFIndex(&item) ? 1 : 0;
  entry.grouped = list.IsVoiceRec(&item);
}

void TakeStatus(Entry& entry) {
  struct stat status;
  entry.found = stat(entry.item.filePath, &status) == 0;
  if (!entry.found) return;
  entry.size = status.st_size;
  entry.time = status.st_mtime;
  entry.item.isProtected = (status.st_mode & S_IWUSR) == 0 ? 1 : 0;
}

void TakeCompanions(CQFileList& list, Entry& entry) {
  CQFileListItem& item = entry.item;
  if (!NamesOwnCompanions(item)) item.objectPath[0] = '\0';
  if (item.objectPath[0] == '\0') return;
  for (const eFileType kind : kCompanionKinds) {
    char path[sizeof(item.objectPath)] = {};
    const int size = static_cast<int>(sizeof(path));
    if (list.GetObjectFullPath(&item, kind, path, size) > 0) entry.companions.emplace_back(path);
  }
}

}  // namespace

void ForEachPath(Card& card, const std::function<void(const char*)>& take) {
  CQFileListItem item;
  for (int i = 0; card.List().GetAt(i, &item, false) >= 0; ++i) take(item.filePath);
}

std::vector<std::string> ReadPaths(Card& card) {
  std::vector<std::string> paths;
  ForEachPath(card, [&](const char* path) { paths.emplace_back(path); });
  return paths;
}

std::vector<Entry> ReadEntries(Card& card) {
  std::vector<Entry> entries;
  entries.reserve(static_cast<size_t>(card.Count()));
  for (int i = 0; i < card.Count(); ++i) entries.push_back(ReadEntry(card, i));
  return entries;
}

Entry ReadEntry(Card& card, int index) {
  Entry entry = ReadNamedEntry(card, index);
  TakeMarks(card.List(), entry);
  TakeStatus(entry);
  return entry;
}

Entry ReadNamedEntry(Card& card, int index) {
  Entry entry;
  entry.index = index;
  if (card.List().GetAt(index, &entry.item, false) < 0) {
    throw Failure("cannot read the file with the index " + std::to_string(index));
  }
  TakeCompanions(card.List(), entry);
  return entry;
}

std::vector<std::string> CompanionNames(const Entry& entry) {
  std::vector<std::string> names;
  for (const std::string& path : entry.companions) names.push_back(BaseName(path));
  return names;
}

std::vector<std::string> JsonFields() {
  return {"index",     "path",          "size",
          "mtime",     "mtime_seconds", "protected",
          "selected",  "wifi",          "voice_or_capture",
          "copies",    "index_print",   "size_code",
          "companions"};
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
