// Indexed access, walking and the cursor.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "filelist/CQFileList_internal.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/file_status.h"

int CQFileList::InitGetAt() { return 0; }

int CQFileList::DCF_GetAt(int index, CQFileListItem* item) {
  if (catalogue_ == nullptr || item == nullptr) return -1;
  std::memset(item->filePath, 0, sizeof(item->filePath));
  std::memset(item->objectPath, 0, sizeof(item->objectPath));
  return catalogue_->GetAt(index, item->filePath, flm::kPathSize, item->objectPath, flm::kPathSize);
}

int CQFileList::GetAt(int index, CQFileListItem* item, bool withInfo) {
  if (count_ <= 0 || catalogue_ == nullptr || item == nullptr) return -1;
  const int result = DCF_GetAt(index, item);
  if (result >= 0 && !IsDerived() && flm::NamesFile(item)) return TakeAt(result, item, withInfo);
  // The cursor's index follows every attempt, also one that fails.
  curIndex_ = GetFileListIndex(item->filePath);
  if (result < 0) return result;
  if (withInfo && GetFileInfo(item) < 0) return -1;
  SetCur(item->filePath);
  return result;
}

// The same three steps with one reading of the path.
int CQFileList::TakeAt(int result, CQFileListItem* item, bool withInfo) {
  flm::FileMarks marks;
  curIndex_ = catalogue_->Visit(item->filePath, withInfo ? &marks : nullptr);
  if (!withInfo) return result;
  flm::StoreMarks(item, marks);
  flm::FileStatus status(item->filePath);
  PCQDCFFSIO::TakeStatInfo(item, status);
  return result;
}

int CQFileList::GetFileListIndex(char* path) {
  return catalogue_ == nullptr ? -6 : catalogue_->GetListIndex(path);
}

int CQFileList::GetFileListIndex(CQFileListItem* item) {
  if (item == nullptr) return -1;
  char none[] = "";
  return GetFileListIndex(flm::NamesFile(item) ? item->filePath : none);
}

int CQFileList::GetCurIndex() { return curIndex_; }

int CQFileList::SetCur(char* path) {
  if (catalogue_ == nullptr) return -1;
  if (path == nullptr) InitGetAt();
  const int result = catalogue_->SetCurFile(path);
  curIndex_ = catalogue_->GetListIndex(path);
  return result;
}

int CQFileList::SetCurIndex(int index) {
  CQFileListItem item;
  return GetAt(index, &item, true);
}

int CQFileList::GetCur(CQFileListItem* item) {
  if (item == nullptr || catalogue_ == nullptr) return -1;
  return catalogue_->GetCur(item->filePath, flm::kPathSize, item->objectPath, flm::kPathSize);
}

bool CQFileList::CanWalk(const CQFileListItem* item) const {
  return item != nullptr && count_ > 0 && catalogue_ != nullptr;
}

// The common end of the walks; with a status the item is filled from it. A step that failed leaves
// no current file, so that the next forward step begins at the first file again.
int CQFileList::FinishWalk(CQFileListItem* item, int result, WalkStep step, flm::FileStatus* info) {
  if (result < 0) {
    if (SetCur(nullptr) < 0) return -1;
    InitGetAt();
  } else {
    if (step == WalkStep::kFirst) {
      curIndex_ = 0;
    } else if (step == WalkStep::kLast) {
      curIndex_ = count_ - 1;
    } else {
      curIndex_ = GetFileListIndex(item->filePath);
    }
    // Only the last file comes without its companions' path; callers depend on the difference.
    if (info != nullptr && step == WalkStep::kLast) item->objectPath[0] = '\0';
    if (info != nullptr) result = FillInfo(item, *info);
  }
  count_ = DCF_GetCount();
  return result;
}

int CQFileList::GetFirst(CQFileListItem* item, bool withInfo) {
  if (!CanWalk(item)) return -1;
  flm::FileStatus status(item->filePath);
  return StepFirst(item, status, withInfo);
}

// The status is of the file that is stepped to, and is read at most once.
int CQFileList::StepFirst(CQFileListItem* item, flm::FileStatus& status, bool withInfo) {
  if (!CanWalk(item)) return -1;
  unsigned int time = static_cast<unsigned int>(item->modTime);
  const int result = catalogue_->StepFirst(item->filePath, flm::kPathSize, item->objectPath,
                                           flm::kPathSize, &time, &status);
  item->modTime = static_cast<int32_t>(time);
  return FinishWalk(item, result, WalkStep::kFirst, withInfo ? &status : nullptr);
}

int CQFileList::GetNext(CQFileListItem* item, bool withInfo) {
  if (!CanWalk(item)) return -1;
  flm::FileStatus status(item->filePath);
  return StepNext(item, status, withInfo);
}

int CQFileList::StepNext(CQFileListItem* item, flm::FileStatus& status, bool withInfo) {
  if (!CanWalk(item)) return -1;
  unsigned int time = static_cast<unsigned int>(item->modTime);
  const int result = catalogue_->StepNext(item->filePath, flm::kPathSize, item->objectPath,
                                          flm::kPathSize, &time, &status);
  item->modTime = static_cast<int32_t>(time);
  return FinishWalk(item, result, WalkStep::kNext, withInfo ? &status : nullptr);
}

int CQFileList::GetPrev(CQFileListItem* item, bool withInfo) {
  if (!CanWalk(item)) return -1;
  const int result =
      catalogue_->GetPrev(item->filePath, flm::kPathSize, item->objectPath, flm::kPathSize);
  flm::FileStatus status(item->filePath);
  return FinishWalk(item, result, WalkStep::kPrev, withInfo ? &status : nullptr);
}

int CQFileList::GetLast(CQFileListItem* item, bool withInfo) {
  if (!CanWalk(item)) return -1;
  const int result =
      catalogue_->GetLast(item->filePath, flm::kPathSize, item->objectPath, flm::kPathSize);
  flm::FileStatus status(item->filePath);
  return FinishWalk(item, result, WalkStep::kLast, withInfo ? &status : nullptr);
}

int CQFileList::GetCurrent(CQFileListItem* item, bool withInfo) {
  if (!CanWalk(item)) return -1;
  int result = catalogue_->GetCur(item->filePath, flm::kPathSize, item->objectPath, flm::kPathSize);
  if (result < 0) {
    if (SetCur(nullptr) < 0) return -1;
    InitGetAt();
  } else if (withInfo) {
    result = GetFileInfo(item);
  }
  count_ = GetCount();
  return result;
}

int CQFileList::IsLast(CQFileListItem* item) {
  if (!flm::NamesFile(item) || catalogue_ == nullptr) return 0;
  return catalogue_->IsLast(item->filePath);
}
