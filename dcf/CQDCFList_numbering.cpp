// The newest number, the series value that outlives card and process, and the next name. The next
// number follows the last one alone; no file on the card is consulted, so that a number is not
// given out twice when its file was deleted.
#include <climits>
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "fsio/os_calls.h"
#include "platform/preference.h"

namespace {

constexpr int kSeriesCategory = 1;
constexpr int kSeriesKey = 856;
constexpr int kCardFull = 99909999;
constexpr int kHighestStored = kCardFull - 1;
constexpr int kStartOver = 10000000;  // directory 100, file 0: the next number is 100/0001
constexpr int kNoNumberLeft = -9999;
constexpr int kNullPath = -2;
constexpr int kEmptyPath = -3;
constexpr int kNumbersPerFolder = 100;

// An external store may hold anything; only a file index is believed, judged before it is narrowed.
bool IsFileIndex(long value) { return value >= 0 && value <= kCardFull; }

int Saturated(long value) {
  if (value > INT_MAX) return INT_MAX;
  return value < INT_MIN ? INT_MIN : static_cast<int>(value);
}

}  // namespace

int CQDCFList::GetLastIndex() {
  lastIndex_ = 0;
  if (dirTable_ == nullptr) return 0;
  for (int slot = Folders().End() - 1; slot >= 0; --slot) {
    if (!IsRead(slot)) continue;
    const CQDCFDir& dir = dirTable_[slot];
    const DCFItem* const last = dir.GetLastItem();
    const bool photo = std::strcmp(flm::SuffixOfDirName(dir.GetDirName()), flm::kStillSuffix) == 0;
    if (dir.GetDnum() == flm::kLastDirNumber && !photo) return kCardFull;
    return GetNumToIndex(dir.GetDnum(), last == nullptr ? 0 : last->fileNumber);
  }
  return 0;
}

int CQDCFList::UpdateLastIndex(bool noSeries) {
  lastIndex_ = GetLastIndex();
  if (!noSeries) UpdateLastIndexWithSeriesValue();
  return lastIndex_;
}

int CQDCFList::UpdateLastIndexWithSeriesValue() {
  if (!seriesMode_) return lastIndex_;
  const long stored = pref_get_long(kSeriesCategory, kSeriesKey);
  if (IsFileIndex(stored) && stored > lastIndex_) lastIndex_ = static_cast<int32_t>(stored);
  return lastIndex_;
}

int CQDCFList::ReadSeriesValue(int* out) {
  if (out == nullptr) return -1;
  if (!seriesMode_) return 0;
  *out = Saturated(pref_get_long(kSeriesCategory, kSeriesKey));
  return *out;
}

int CQDCFList::BackupSeriesValue(int* value) {
  if (value == nullptr) return -1;
  if (*value > kHighestStored) *value = kStartOver;
  pref_set_long(kSeriesCategory, kSeriesKey, *value);
  return 0;
}

int CQDCFList::SetLastIndex(const char* path, bool force) {
  if (path == nullptr) return kNullPath;
  if (path[0] == '\0') return kEmptyPath;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  if (dirNumber < flm::kFirstDirNumber || dirNumber > flm::kLastDirNumber) return -1;
  const int index = GetNumToIndex(dirNumber, fileNumber);
  if (force || index > lastIndex_) lastIndex_ = index;
  return BackupSeriesValue(&lastIndex_);
}

// Whether there is a table and a root to name into, and every text that a name needs.
bool CQDCFList::CanName(std::initializer_list<const char*> texts) const {
  for (const char* const text : texts) {
    if (text == nullptr) return false;
  }
  return dirTable_ != nullptr && HasRoot();
}

int CQDCFList::GetNewFileName(const char* prefix, const char* ext, char* out, int outSize,
                              bool noSeries, const char* dirSuffix) {
  if (!CanName({prefix, ext, out, dirSuffix}) || itemCount_ >= flm::kMaxFiles) return -1;
  if (!noSeries) UpdateLastIndexWithSeriesValue();
  int index = GetNewFileIndex(prefix, ext, out, outSize, dirSuffix);
  if (index < 0) return index;
  BackupSeriesValue(&index);
  SetCurFile(out);
  return 0;
}

// The file index that follows the last one; kNoNumberLeft when there is none.
int CQDCFList::NextIndex(const char* dirSuffix) const {
  int dirNumber = flm::kFirstDirNumber;
  int fileNumber = 1;
  if (lastIndex_ >= 1) {
    dirNumber = lastIndex_ / flm::kFileIndexBase;
    if (dirNumber < flm::kFirstDirNumber) dirNumber = flm::kFirstDirNumber;
    const int last = lastIndex_ % flm::kFileIndexBase;
    if (last < flm::kLastFileNumber) {
      fileNumber = last + 1;
    } else {
      ++dirNumber;
    }
    if (dirNumber > flm::kLastDirNumber) return kNoNumberLeft;
  }
  // A folder of this number with another suffix is not ours to fill: go to the next number, once.
  if (HasNumber(dirNumber) && SlotNamed(dirNumber, dirSuffix) < 0) {
    ++dirNumber;
    fileNumber = 1;
  }
  if (dirNumber > flm::kLastDirNumber) return kNoNumberLeft;
  return dirNumber * flm::kFileIndexBase + fileNumber;
}

bool CQDCFList::HasNumber(int dirNumber) const {
  const int slot = FirstSlotOf(dirNumber);
  return slot >= 0 && slot < UsedSlots();
}

// The first slot of a number whose name ends in the suffix, -1 for none.
int CQDCFList::SlotNamed(int dirNumber, const char* dirSuffix) const {
  const int used = UsedSlots();
  for (int slot = FirstSlotOf(dirNumber); slot >= 0 && slot < used;
       slot = NextSlotOf(dirNumber, slot)) {
    const char* const suffix = flm::SuffixOfDirName(dirTable_[slot].GetDirName());
    if (std::strcmp(suffix, dirSuffix) == 0) return slot;
  }
  return -1;
}

int CQDCFList::GetNewFileIndex(const char* prefix, const char* ext, char* out, int outSize,
                               const char* dirSuffix) {
  if (!CanName({prefix, ext, out, dirSuffix})) return -1;
  const int index = NextIndex(dirSuffix);
  if (index < 0) return index;
  const int result = GetNewFileIndex_SetInfo(index, prefix, ext, out, outSize, dirSuffix);
  if (result < 0) return result;
  lastIndex_ = index;
  return index;
}

void CQDCFList::NameSlot(CQDCFDir& dir, int dirNumber, const char* dirSuffix) {
  char name[flm::kDirNameSize];
  flm::BoundedText(name, sizeof(name)).Number(dirNumber, 1).Text(dirSuffix);
  dir.SetDirName(name);
}

// Makes a folder of the catalogue and of the card out of a slot. A slot that was never used before
// raises the count by two: the count tells callers how many slots to look through, and a slot too
// many is a free one.
void CQDCFList::PrepareSlot(int slot, int dirNumber, const char* dirSuffix) {
  CQDCFDir& dir = dirTable_[slot];
  if (dir.GetDnum() < 0 || dir.GetMemMgr() == nullptr) TableChanged();
  if (dir.GetDnum() < 0) {
    dir.SetDnum(static_cast<short>(dirNumber));
    NameSlot(dir, dirNumber, dirSuffix);
    dir.GetMem();
    dir.SetListup(true);
    ++dirCount_;
  }
  CreateNewDirectory(dirNumber, dirSuffix);
  if (dir.GetMemMgr() != nullptr) return;
  dir.SetMemMgr(&memManager_);
  NameSlot(dir, dirNumber, dirSuffix);
  dir.GetMem();
  CreateNewDirectory(dirNumber, dirSuffix);
  ++dirCount_;
}

int CQDCFList::GetNewFileIndex_SetInfo(int index, const char* prefix, const char* ext, char* out,
                                       int outSize, const char* dirSuffix) {
  if (index < 0 || !CanName({prefix, ext, out, dirSuffix})) return -1;
  const int dirNumber = index / flm::kFileIndexBase;
  const int fileNumber = index % flm::kFileIndexBase;
  int slot = SlotNamed(dirNumber, dirSuffix);
  if (slot < 0) slot = dirCount_;
  if (!IsSlot(slot)) return kNoNumberLeft;
  PrepareSlot(slot, dirNumber, dirSuffix);
  CQDCFDir& dir = dirTable_[slot];
  flm::BoundedText name(out, outSize);
  flm::AppendNumberedName(name, flm::WholeText(prefix), fileNumber, flm::WholeText(ext));
  DCFItem* const item = dir.AddItem();
  if (item != nullptr) {
    dir.SetFileName(item, outSize > 0 ? out : "");
    dir.SetFnum(item, static_cast<short>(fileNumber));
    dir.SetDnum(item, static_cast<short>(dirNumber));
    item->setFileTime(flm::CurrentTime());
    CountSlot(slot);
  }
  WriteNewPath({out, outSize}, slot, {dirNumber, fileNumber, prefix, ext, dirSuffix});
  ++itemCount_;
  return 0;
}

// The whole path of a new file; the modes without a spelling of their own keep the bare name.
void CQDCFList::WriteNewPath(PathOut out, int slot, const NewName& name) const {
  const bool named = mode_ == flm::kModeStillNamed;
  if (!named && mode_ != flm::kModeStillPlain && mode_ != flm::kModeMovie) return;
  flm::BoundedText path(out.text, out.size);
  if (named) {
    flm::AppendNamedFolder(path, baseURI_, flm::kStillTree, dirTable_[slot].GetDirName());
  } else {
    const bool movie = mode_ == flm::kModeMovie;
    flm::AppendNumberedFolder(path, baseURI_, flm::ScannedTree(mode_), name.dirNumber,
                              movie ? flm::kMovieSuffix : name.dirSuffix);
  }
  path.Char('/');
  flm::AppendNumberedName(path, flm::WholeText(name.prefix), name.fileNumber,
                          flm::WholeText(name.ext));
}

int CQDCFList::GetNewFileIndex_FromLastIndex() {
  for (int slot = 0; IsSlot(slot); ++slot) {
    const int dirNumber = GetDnum(slot);
    const int rest = dirNumber % kNumbersPerFolder;
    const int base = GetNumToIndex(dirNumber, rest * kNumbersPerFolder);
    if (dirTable_[slot].GetDnum() < 1) return base + (rest > 1 ? 0 : 1 - rest);
    for (int k = rest == 0 ? 1 : 0; k < flm::kLastFileNumber; ++k) {
      if (dirTable_[slot].GetFnum(k) < 0) return base + k;
    }
  }
  return 0;
}
