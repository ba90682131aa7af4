// Walking the items of a directory and looking one up.
#include <cstring>

#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kNumbersPerFolder = 100;

// One rule for "the item's name is the last part of the path".
bool HasName(const DCFItem* item, const char* name) {
  return std::strncmp(item->fileName, name, flm::kFileNameSize) == 0;
}

}  // namespace

DCFItem* CQDCFDir::GetFirstItem() const { return items_ == nullptr ? nullptr : items_->Head(); }

DCFItem* CQDCFDir::GetNextItem(DCFItem* item) const {
  return item == nullptr ? nullptr : item->next;
}

DCFItem* CQDCFDir::GetPrevItem(DCFItem* item) const {
  return item == nullptr ? nullptr : item->prev;
}

DCFItem* CQDCFDir::GetLastItem() const {
  return items_ == nullptr ? nullptr : items_->GetItemAt(items_->GetCount() - 1);
}

DCFItem* CQDCFDir::GetItem(int fileNumber) const {
  for (DCFItem* item = GetFirstItem(); item != nullptr; item = item->next) {
    if (item->fileNumber == fileNumber) return item;
  }
  return nullptr;
}

DCFItem* CQDCFDir::GetItem(int fileNumber, const char* path) const {
  if (path == nullptr) return nullptr;
  if (dirNumber_ == flm::kCameraNumber) {
    const char* const name = flm::FileNameInPath(path);
    for (DCFItem* item = GetFirstItem(); item != nullptr; item = item->next) {
      if (HasName(item, name)) return item;
    }
    return nullptr;
  }
  const char* const prefix = flm::PrefixInPath(path);
  const char* const extension = flm::ExtensionInPath(path);
  if (prefix == nullptr || extension == nullptr) return nullptr;
  for (DCFItem* item = GetFirstItem(); item != nullptr; item = item->next) {
    if (item->fileNumber == fileNumber && item->extChars[0] == extension[0] &&
        std::memcmp(item->prefixChars, prefix, flm::kPrefixSize) == 0) {
      return item;
    }
  }
  return nullptr;
}

bool CQDCFDir::GetItemBit(int fileNumber, int n) { return GetItemBit(GetItem(fileNumber), n); }

int CQDCFDir::SetItemBit(int fileNumber, int n, bool on) {
  return SetItemBit(GetItem(fileNumber), n, on);
}

bool CQDCFDir::IsEnabledItem(int fileNumber) {
  return GetItemBit(fileNumber, flm::kItemBitEnabled);
}

int CQDCFDir::GetFnum(int fileNumber) {
  if (dirNumber_ < 0) return -1;
  if (!IsEnabledItem(fileNumber)) return -2;
  return fileNumber + dirNumber_ % kNumbersPerFolder * kNumbersPerFolder;
}

int CQDCFDir::GetFidx(int fileNumber, const char* path) const {
  if (items_ == nullptr) return 0;
  if (items_->GetCount() < 1 || path == nullptr) return -1;
  if (flm::HasCameraWord(path)) {
    // A number instead of a position: callers know which of the two they asked for.
    for (DCFItem* item = GetFirstItem(); item != nullptr; item = item->next) {
      if (std::strstr(path, item->fileName) != nullptr) return item->fileNumber;
    }
    return -1;
  }
  const char* const extension = flm::ExtensionInPath(path);
  if (extension == nullptr) return -1;
  int position = 0;
  for (DCFItem* item = GetFirstItem(); item != nullptr; item = item->next, ++position) {
    if (item->fileNumber == fileNumber && item->extChars[0] == extension[0]) return position;
  }
  return -1;
}
