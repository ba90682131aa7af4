// What the look-ups of a directory and of a catalogue answer, found by walking over the linked
// records from the first to the last. Slow and plain on purpose: every quicker way is held to them.
#ifndef FILELISTMANAGEMENT_TESTS_DCF_PLAIN_WALKS_H
#define FILELISTMANAGEMENT_TESTS_DCF_PLAIN_WALKS_H

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFDir.h"
#include "dcf/DCFItem.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace flm_test {

using Items = std::vector<DCFItem*>;

inline Items ItemsFrom(DCFItem* first) {
  Items items;
  for (DCFItem* item = first; item != nullptr; item = item->next) items.push_back(item);
  return items;
}

// Whether the links lead back the way they came.
inline bool IsLinkedBothWays(const Items& items) {
  for (size_t i = 0; i < items.size(); ++i) {
    if (items[i]->prev != (i == 0 ? nullptr : items[i - 1])) return false;
  }
  return true;
}

inline bool HasBit(const DCFItem* item, int bit) {
  return item != nullptr && bit >= 0 && bit < 8 && (item->itemBits >> (7 - bit) & 1) != 0;
}

inline unsigned char* BytesOf(DCFItem* item) { return reinterpret_cast<unsigned char*>(item); }

// How many bytes of a record are info bytes; the terminator of the name is none.
constexpr int kInfoBytes = static_cast<int>(offsetof(DCFItem, fileName)) + flm::kFileNameSize - 1;

inline int PlainInfo(DCFItem* item, int byte) {
  if (item == nullptr || byte < 0 || byte >= kInfoBytes) return 0;
  return item->fileNumber < 0 ? 255 : BytesOf(item)[byte];
}

inline DCFItem* PlainAt(const Items& items, int position) {
  bool held = position >= 0 && position < static_cast<int>(items.size());
  return held ? items[static_cast<size_t>(position)] : nullptr;
}

inline DCFItem* PlainByNumber(const Items& items, int number) {
  for (DCFItem* item : items) {
    if (item->fileNumber == number) return item;
  }
  return nullptr;
}

inline bool StandsInPath(const DCFItem* item, int dirNumber, int number, const std::string& path) {
  if (dirNumber == flm::kCameraNumber) return path.substr(path.rfind('/') + 1) == item->fileName;
  return path.size() >= 12 && item->fileNumber == number &&
         item->extChars[0] == path[path.size() - 3] &&
         path.compare(path.size() - 12, 4, item->prefixChars, 4) == 0;
}

inline DCFItem* PlainByPath(const Items& items, int dirNumber, int number,
                            const std::string& path) {
  for (DCFItem* item : items) {
    if (StandsInPath(item, dirNumber, number, path)) return item;
  }
  return nullptr;
}

// The position by number and first letter of the extension; for a path with "CAMERA" in it the
// number of the first file whose name occurs there.
inline int PlainPosition(const Items& items, int number, const std::string& path) {
  bool camera = path.find("CAMERA") != std::string::npos;
  for (size_t i = 0; i < items.size(); ++i) {
    if (camera && path.find(items[i]->fileName) != std::string::npos) return items[i]->fileNumber;
    if (camera || path.size() < 3 || items[i]->fileNumber != number) continue;
    if (items[i]->extChars[0] == path[path.size() - 3]) return static_cast<int>(i);
  }
  return -1;
}

// What is sorted: a record without its links.
using Payload = std::string;

inline std::vector<Payload> PayloadsOf(const Items& items) {
  std::vector<Payload> payloads;
  for (DCFItem* item : items) {
    payloads.emplace_back(reinterpret_cast<char*>(item), flm::kItemPayloadSize);
  }
  return payloads;
}

inline int NumberIn(const Payload& payload) {
  int16_t number = 0;
  std::memcpy(&number, payload.data(), sizeof(number));
  return number;
}

inline std::string NameIn(const Payload& payload) {
  return payload.c_str() + offsetof(DCFItem, fileName);
}

// By number, then by name. Equal records end where this exchanging leaves them.
inline std::vector<Payload> PlainlySorted(std::vector<Payload> payloads) {
  for (size_t a = 0; a < payloads.size(); ++a) {
    for (size_t b = a + 1; b < payloads.size(); ++b) {
      int first = NumberIn(payloads[a]);
      int second = NumberIn(payloads[b]);
      bool after = first > second || (first == second && NameIn(payloads[a]) > NameIn(payloads[b]));
      if (after) std::swap(payloads[a], payloads[b]);
    }
  }
  return payloads;
}

// One directory of a catalogue as the walks see it; its place in a vector of these is its slot.
struct PlainFolder {
  std::string name;
  int number = 0;
  Items items;
};
using PlainFolders = std::vector<PlainFolder>;

struct PlainPlace {
  int slot = -1;
  DCFItem* item = nullptr;
};

inline std::vector<PlainPlace> AllPlaces(const PlainFolders& folders) {
  std::vector<PlainPlace> places;
  for (size_t slot = 0; slot < folders.size(); ++slot) {
    for (DCFItem* item : folders[slot].items) places.push_back({static_cast<int>(slot), item});
  }
  return places;
}

// The first folder with the name in the path or its first six characters.
inline int PlainSlot(const PlainFolders& folders, const std::string& path) {
  const char* const found = path.size() < 24 ? nullptr : flm::DirNameInPath(path.c_str());
  if (found == nullptr) return -1;
  std::string name = std::string(found).substr(0, 8);
  for (size_t slot = 0; slot < folders.size(); ++slot) {
    bool weak = folders[slot].name.substr(0, 6) == name.substr(0, 6);
    if (folders[slot].name == name || weak) return static_cast<int>(slot);
  }
  return -1;
}

inline int PlainSlotHolding(const PlainFolders& folders, int dirNumber, int fileNumber) {
  for (size_t slot = 0; slot < folders.size(); ++slot) {
    if (folders[slot].number == dirNumber && PlainByNumber(folders[slot].items, fileNumber)) {
      return static_cast<int>(slot);
    }
  }
  return -1;
}

// The position of a path's file among all files; -1 for none.
inline int PlainIndex(const PlainFolders& folders, int slot, int file, const std::string& path) {
  if (slot < 0) return -1;
  int position = PlainPosition(folders[static_cast<size_t>(slot)].items, file, path);
  if (position < 0) return -1;
  for (int before = 0; before < slot; ++before) {
    position += static_cast<int>(folders[static_cast<size_t>(before)].items.size());
  }
  return position;
}

// The first file of both numbers and the free characters of the path, these in upper case.
inline DCFItem* PlainFound(const PlainFolders& folders, const std::string& path, int dirNumber,
                           int file) {
  if (path.size() < 12) return nullptr;
  std::string wanted = path.substr(path.size() - 12, 4);
  for (char& c : wanted) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  for (const PlainPlace& place : AllPlaces(folders)) {
    bool numbers = folders[static_cast<size_t>(place.slot)].number == dirNumber &&
                   place.item->fileNumber == static_cast<short>(file);
    if (numbers && wanted.compare(0, 4, place.item->prefixChars, 4) == 0) return place.item;
  }
  return nullptr;
}

// The first file of both numbers; a file of the "CAMERA" folder by its name.
inline PlainPlace PlainForInfo(const PlainFolders& folders, const std::string& path, int dirNumber,
                               int file) {
  for (const PlainPlace& place : AllPlaces(folders)) {
    if (folders[static_cast<size_t>(place.slot)].number != dirNumber) continue;
    bool camera = place.item->dirNumber == flm::kCameraNumber;
    bool matches = camera ? path.find(place.item->fileName) != std::string::npos
                          : place.item->fileNumber == file;
    if (matches) return place;
  }
  return {};
}

}  // namespace flm_test

#endif
