// Walking the items of a directory and looking one up.
#include <cstring>

#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kNumbersPerFolder = 100;

bool Any(const DCFItem* /*item*/) { return true; }

}  // namespace

DCFItem* CQDCFDir::GetFirstItem() const { return items_ == nullptr ? nullptr : items_->Head(); }

DCFItem* CQDCFDir::GetNextItem(DCFItem* item) const {
  return item == nullptr ? nullptr : item->next;
}

DCFItem* CQDCFDir::GetPrevItem(DCFItem* item) const {
  return item == nullptr ? nullptr : item->prev;
}

DCFItem* CQDCFDir::GetLastItem() const { return items_ == nullptr ? nullptr : items_->Last(); }

DCFItem* CQDCFDir::GetItem(int fileNumber) const {
  return items_ == nullptr ? nullptr : items_->FirstOfNumber(fileNumber, Any);
}

DCFItem* CQDCFDir::GetItem(int fileNumber, const char* path) const {
  if (path == nullptr || items_ == nullptr) return nullptr;
  if (dirNumber_ == flm::kCameraNumber) return items_->FirstOfName(flm::FileNameInPath(path));
  const char* const prefix = flm::PrefixInPath(path);
  const char* const extension = flm::ExtensionInPath(path);
  if (prefix == nullptr || extension == nullptr) return nullptr;
  return items_->FirstOfNumber(fileNumber, [&](const DCFItem* item) {
    return item->extChars[0] == extension[0] &&
           std::memcmp(item->prefixChars, prefix, flm::kPrefixSize) == 0;
  });
}

DCFItem* CQDCFDir::FindItem(int fileNumber, const char* prefix) const {
  if (items_ == nullptr) return nullptr;
  return items_->FirstOfNumber(fileNumber, [&](const DCFItem* item) {
    return std::memcmp(item->prefixChars, prefix, flm::kPrefixSize) == 0;
  });
}

DCFItem* CQDCFDir::FindForInfo(int fileNumber, const char* path) const {
  if (items_ == nullptr) return nullptr;
  DCFItem* const numbered = items_->FirstOfNumber(
      fileNumber, [](const DCFItem* item) { return item->dirNumber != flm::kCameraNumber; });
  if (items_->NextWith(nullptr, flm::kFlagFree) == nullptr) return numbered;
  DCFItem* const named = items_->FirstNameWithin(path, flm::kFlagFree);
  if (numbered == nullptr || named == nullptr) return numbered == nullptr ? named : numbered;
  return items_->PositionOf(named) < items_->PositionOf(numbered) ? named : numbered;
}

DCFItem* CQDCFDir::GetItemAt(int position) const {
  return items_ == nullptr ? nullptr : items_->GetItemAt(position);
}

DCFItem* CQDCFDir::NextWith(const DCFItem* from, flm::ItemFlags flags) const {
  return items_ == nullptr ? nullptr : items_->NextWith(from, flags);
}

DCFItem* CQDCFDir::PreviousWith(const DCFItem* from, flm::ItemFlags flags) const {
  return items_ == nullptr ? nullptr : items_->PreviousWith(from, flags);
}

int CQDCFDir::PositionOf(const DCFItem* item) const {
  return items_ == nullptr ? 0 : items_->PositionOf(item);
}

int CQDCFDir::CountOfBit(int bit) const {
  return items_ == nullptr || bit < 0 || bit >= flm::kItemBitCount ? 0 : items_->CountOfBit(bit);
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
    const DCFItem* const named = items_->FirstNameWithin(path, 0);
    return named == nullptr ? -1 : named->fileNumber;
  }
  const char* const extension = flm::ExtensionInPath(path);
  if (extension == nullptr) return -1;
  const DCFItem* const found = items_->FirstOfNumber(
      fileNumber, [&](const DCFItem* item) { return item->extChars[0] == extension[0]; });
  return found == nullptr ? -1 : items_->PositionOf(found);
}
