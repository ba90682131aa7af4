// Single files: information, companions, keys, entering and forgetting.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"
#include "filelist/CQFileList_internal.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/file_status.h"

namespace {

constexpr int kLetters = 3;  // the companion letters at the end of an object path

// What the letter at each place stands for.
struct Companion {
  eFileType kind;
  int letterAt;
  char letter;
  const char* extension;
  int absent;  // the result when the file has no such companion
};
constexpr Companion kCompanions[] = {{FILE_TYPE_RAW, 0, 'S', "SRW", -1},
                                     {FILE_TYPE_VOICE_MEMO, 1, 'W', "WAV", -5},
                                     {FILE_TYPE_MULTI_PICTURE, 2, 'M', "MPO", -6}};

const Companion* CompanionOf(eFileType kind) {
  for (const Companion& companion : kCompanions) {
    if (companion.kind == kind) return &companion;
  }
  return nullptr;
}

constexpr int kNoCatalogue = -6;

// Places of the numbers of a key, counted from the end of a path.
constexpr int kKeyDirAt = 21;
constexpr int kKeyFileAt = 8;
constexpr int kKeyBase = 10000;

}  // namespace

void flm::StoreMarks(CQFileListItem* item, const FileMarks& marks) {
  const auto held = [](int value) { return value == kInfoNoItem ? kPrintInfoNotHeld : value; };
  item->selected = marks.selected ? 1 : 0;
  item->wifiFlag = marks.wifi ? 1 : 0;
  item->dpofCopies = static_cast<uint8_t>(held(marks.copies));
  item->dpofSize = held(marks.size);
  item->dpofIndex = marks.index == 1 ? 1 : 0;
}

int CQFileList::GetInfo(char* path, CQFileListItem* item) {
  if (path == nullptr) return -2;
  if (item == nullptr) return -3;
  if (catalogue_ == nullptr) return -6;
  if (catalogue_->GetInfo(path, item) < 0) return -1;
  return GetFileInfo(item);
}

int CQFileList::GetFileInfo(CQFileListItem* item) {
  flm::FileStatus status(item == nullptr ? nullptr : item->filePath);
  return FillInfo(item, status);
}

int CQFileList::FillInfo(CQFileListItem* item, flm::FileStatus& status) {
  if (!flm::NamesFile(item)) return -1;
  if (IsDerived()) {
    item->selected = IsSel(item) ? 1 : 0;
    item->wifiFlag = IsWifiFlag(item) ? 1 : 0;
    item->dpofCopies = static_cast<uint8_t>(GetDPOFNumOfCopy(item));
    item->dpofSize = GetDPOFSize(item);
    item->dpofIndex = GetDPOFIndex(item) ? 1 : 0;
  } else {
    TakeMarks(item);
  }
  PCQDCFFSIO::TakeStatInfo(item, status);
  return 0;
}

// What those five operations say, with one look-up.
void CQFileList::TakeMarks(CQFileListItem* item) {
  if (catalogue_ != nullptr) {
    flm::StoreMarks(item, catalogue_->GetMarks(item->filePath));
  } else {
    flm::StoreMarks(item, {false, false, kNoCatalogue, kNoCatalogue, 0});
  }
}

int CQFileList::GetFileCreateTime(CQFileListItem* item) {
  return flm::NamesFile(item) ? PCQDCFFSIO::GetFileCreateTime(item) : -1;
}

int CQFileList::GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize) {
  if (item == nullptr || out == nullptr) return -1;
  const int length = flm::BoundedLength(item->objectPath, flm::kPathSize);
  if (length < kLetters || length >= flm::kPathSize) return -1;
  if (outSize > 0) std::memset(out, 0, static_cast<size_t>(outSize));
  const Companion* const companion = CompanionOf(kind);
  if (companion == nullptr) return 0;
  const char* const letters = item->objectPath + length - kLetters;
  if (flm::UpperCaseOf(letters[companion->letterAt]) != companion->letter) return companion->absent;
  flm::BoundedText path(out, outSize);
  path.Text(item->objectPath, static_cast<size_t>(length - kLetters)).Text(companion->extension);
  return kind;
}

int CQFileList::GetPrefix(CQFileListItem* item) {
  return flm::NamesFile(item) ? GetPrefixEnum(item->filePath) : -1;
}

int CQFileList::GetPrefixEnum(const char* path) {
  return path == nullptr ? -1 : flm::PrefixCodeInPath(path);
}

// Only the shape NNN*****/****NNNN.*** gives a meaningful key; that suffices its callers.
int CQFileList::GetIndexKey(const char* path) {
  if (path == nullptr || std::strlen(path) < kKeyDirAt) return -1;
  const char* const end = path + std::strlen(path);
  return flm::ReadNumber(end - kKeyDirAt, flm::kDirDigits) * kKeyBase +
         flm::ReadNumber(end - kKeyFileAt, flm::kNumberDigits);
}

int CQFileList::AddFile(char* path) {
  if (catalogue_ == nullptr) return -1;
  const int result = catalogue_->AddFile(path);
  // Callers rely on the count rising even when the catalogue refuses the file.
  ++count_;
  return result;
}

int CQFileList::RemoveFileFromList(char* path) {
  if (catalogue_ == nullptr) return -6;
  const int result = catalogue_->RemoveFile(path);
  if (result < 0) return result;
  --count_;
  return result;
}

int CQFileList::RemoveFileFromList(CQFileListItem* item) {
  if (item == nullptr) return -1;
  char none[] = "";
  const int result = RemoveFileFromList(flm::NamesFile(item) ? item->filePath : none);
  if (result >= 0) item->filePath[0] = '\0';
  return result;
}

int CQFileList::IsExist(char* path) {
  return catalogue_ != nullptr && catalogue_->IsExist(path) >= 0 ? 1 : 0;
}
