// The fields of one item: names and their checks, prefix codes, item bits, info bytes.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kMaxShownName = flm::kPathSize - 1;
constexpr int kTopBit = 0x80;
constexpr int kLastPrefixCode = 6;
constexpr int kPrefixShift = 4;  // the prefix code is bits 1 to 3 read as a number
constexpr int kPrefixMask = 7;

// The record as the bytes that info indexes count.
unsigned char* BytesOf(DCFItem* item) { return reinterpret_cast<unsigned char*>(item); }

// The byte that ends the name is no mark: a name must stay terminated.
bool IsInfoByte(int index) {
  return index >= 0 &&
         index < static_cast<int>(offsetof(DCFItem, fileName)) + flm::kFileNameSize - 1;
}

bool IsItemBit(int n) { return n >= 0 && n < flm::kItemBitCount; }

}  // namespace

int CQDCFDir::MakeUpperCase(char* name) {
  if (name == nullptr) return -1;
  const size_t length = std::strlen(name);
  if (length >= 1 && length <= flm::kDcfNameLength) flm::UpperCase(name);
  return 0;
}

int CQDCFDir::CheckFileNameSyntax(char* name) {
  if (name == nullptr) return -1;
  if (std::strlen(name) == flm::kDcfNameLength) flm::UpperCase(name);
  return flm::CheckDcfName(name);
}

int CQDCFDir::CheckFileNameSyntaxNonDCF(char* name) {
  if (name == nullptr) return -1;
  if (std::strlen(name) == flm::kDcfNameLength) flm::UpperCase(name);
  return flm::CheckFreeName(name);
}

int CQDCFDir::GetFnumFromFileName(const char* name) {
  return name == nullptr ? -1 : flm::FileNumberInName(name);
}

char* CQDCFDir::GetFileName(const char* path, char* out) {
  const char* const slash = path == nullptr ? nullptr : std::strrchr(path, '/');
  if (slash == nullptr) return nullptr;
  const size_t length = std::strlen(slash);
  if (out != nullptr && length <= kMaxShownName) std::memcpy(out, slash, length);
  return out;
}

int CQDCFDir::GetFileNameToPrefixCode(const char* name) {
  return name == nullptr ? -1 : flm::PrefixCode(name);
}

int CQDCFDir::GetBin(unsigned char v, char* out) {
  if (out == nullptr) return -1;
  for (int n = 0; n < flm::kItemBitCount; ++n) out[n] = (v & (kTopBit >> n)) != 0 ? '1' : '0';
  return 0;
}

void CQDCFDir::StorePrefixCode(DCFItem* item, int code) {
  const int known = code >= 1 && code <= kLastPrefixCode ? code : 0;
  item->itemBits = static_cast<uint8_t>((item->itemBits & ~(kPrefixMask << kPrefixShift)) |
                                        known << kPrefixShift);
}

int CQDCFDir::SetPrefix(DCFItem* item, int code) {
  if (item == nullptr) return -1;
  Change(item, false, [&] { StorePrefixCode(item, code); });
  return 0;
}

void CQDCFDir::StorePrefix(DCFItem* item, const char* name, size_t length) {
  const size_t prefixLength = length < flm::kPrefixSize ? length : flm::kPrefixSize;
  const size_t extLength = length < flm::kExtensionSize ? length : flm::kExtensionSize;
  std::memset(item->prefixChars, 0, sizeof(item->prefixChars));
  std::memset(item->extChars, 0, sizeof(item->extChars));
  std::memcpy(item->prefixChars, name, prefixLength);
  std::memcpy(item->extChars, name + length - extLength, extLength);
  char free[flm::kPrefixSize + 1] = {};
  for (int i = 0; i < flm::kPrefixSize; ++i) free[i] = flm::UpperCaseOf(item->prefixChars[i]);
  StorePrefixCode(item, flm::PrefixCode(free));
}

int CQDCFDir::SetPrefix(DCFItem* item, const char* name) {
  if (item == nullptr || name == nullptr) return -1;
  Change(item, false, [&] { StorePrefix(item, name, std::strlen(name)); });
  return 0;
}

int CQDCFDir::GetPrefix(DCFItem* item) {
  return item == nullptr ? -1 : item->itemBits >> kPrefixShift & kPrefixMask;
}

int CQDCFDir::GetPrefixCode(DCFItem* item) { return GetPrefix(item); }

void CQDCFDir::StoreFileName(DCFItem* item, const char* name, size_t length) {
  const size_t stored = length < flm::kFileNameSize ? length : flm::kFileNameSize - 1;
  StorePrefix(item, name, length);
  std::memcpy(item->fileName, name, stored);
  item->fileName[stored] = '\0';
  item->itemBits |= kTopBit >> flm::kItemBitEnabled;
}

int CQDCFDir::SetFileName(DCFItem* item, const char* name) {
  if (item == nullptr || name == nullptr) return -1;
  Change(item, true, [&] { StoreFileName(item, name, std::strlen(name)); });
  return 0;
}

bool CQDCFDir::GetItemBit(DCFItem* item, int n) {
  return item != nullptr && IsItemBit(n) && (item->itemBits & (kTopBit >> n)) != 0;
}

int CQDCFDir::SetItemBit(DCFItem* item, int n, bool on) {
  if (item == nullptr || !IsItemBit(n)) return -1;
  const int mask = kTopBit >> n;
  Change(item, false, [&] {
    item->itemBits = static_cast<uint8_t>(on ? item->itemBits | mask : item->itemBits & ~mask);
  });
  return 0;
}

int CQDCFDir::GetItemInfo(DCFItem* item, int index) {
  if (item == nullptr || !IsInfoByte(index)) return 0;
  return item->fileNumber < 0 ? flm::kInfoNoItem : BytesOf(item)[index];
}

int CQDCFDir::SetItemInfo(DCFItem* item, int index, unsigned char v) {
  if (items_ != nullptr && item != nullptr && IsInfoByte(index)) {
    const bool renames = index >= static_cast<int>(offsetof(DCFItem, fileName));
    Change(item, renames, [&] { BytesOf(item)[index] = v; });
  }
  return IsEmpty();
}

int CQDCFDir::SetFnum(DCFItem* item, short fileNumber) {
  if (item == nullptr) return -1;
  Change(item, false, [&] { item->fileNumber = fileNumber; });
  return 0;
}

int CQDCFDir::SetDnum(DCFItem* item, short /*ignored*/) {
  if (item == nullptr) return -1;
  Change(item, false, [&] { item->dirNumber = dirNumber_; });
  return 0;
}

int CQDCFDir::GetFnum(DCFItem* item) { return item == nullptr ? -1 : item->fileNumber; }
