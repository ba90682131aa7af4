// Walking the items of a directory and looking one up.
#include <cstring>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kNumbersPerFolder = 100;

bool Any(const DCFItem* /*item*/) { return true; }

bool HasPrefix(const DCFItem* item, const char* prefix) {
  return std::memcmp(item->prefixChars, prefix, flm::kPrefixSize) == 0;
}

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
  if (prefix == nullptr) return nullptr;
  const char* const extension = prefix + flm::kDcfNameLength - flm::kExtensionSize;
  return items_->FirstOfNumber(fileNumber, [&](const DCFItem* item) {
    return item->extChars[0] == extension[0] && HasPrefix(item, prefix);
  });
}

DCFItem* CQDCFDir::FindItem(int fileNumber, const char* prefix) const {
  if (items_ == nullptr) return nullptr;
  return items_->FirstOfNumber(fileNumber,
                               [&](const DCFItem* item) { return HasPrefix(item, prefix); });
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
  return PositionIn(fileNumber, path, path != nullptr && flm::HasCameraWord(path));
}

CQDCFDir::Located CQDCFDir::Locate(int fileNumber, const char* path, int length) const {
  if (dirNumber_ == flm::kCameraNumber || length < flm::kDcfNameLength) {
    return {GetItem(fileNumber, path), PositionIn(fileNumber, path, false)};
  }
  const char* const prefix = path + length - flm::kDcfNameLength;
  const char extension = path[length - flm::kExtensionSize];
  int position = -1;
  DCFItem* const first = items_->FirstOfNumber(
      fileNumber, [extension](const DCFItem* item) { return item->extChars[0] == extension; },
      &position);
  // Mostly the first of its number and extension has the free characters too.
  const bool both = first != nullptr && HasPrefix(first, prefix);
  return {both ? first : GetItem(fileNumber, path), position};
}

int CQDCFDir::PositionIn(int fileNumber, const char* path, bool free) const {
  if (items_ == nullptr) return 0;
  if (items_->GetCount() < 1 || path == nullptr) return -1;
  if (free) {
    // A number instead of a position: callers know which of the two they asked for.
    const DCFItem* const named = items_->FirstNameWithin(path, 0);
    return named == nullptr ? -1 : named->fileNumber;
  }
  const char* const extension = flm::ExtensionInPath(path);
  if (extension == nullptr) return -1;
  int position = -1;
  items_->FirstOfNumber(
      fileNumber, [&](const DCFItem* item) { return item->extChars[0] == extension[0]; },
      &position);
  return position;
}
