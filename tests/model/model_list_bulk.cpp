// Deletion, operations on many files, pages.
#include <cstring>

#include "tests/model/model_list.h"

namespace flm_model {
namespace {

std::string FolderOf(const std::string& path) {
  size_t slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

bool IsNumber999(const std::string& folder) {
  size_t slash = folder.rfind('/');
  return slash != std::string::npos && folder.compare(slash, 4, "/999") == 0;
}

bool Cancelled(ProgressCallback callback, int index, int total, int status) {
  bool cancel = false;
  if (callback != nullptr) callback(index, total, &status, &cancel);
  return cancel;
}

}  // namespace

// The card is the one that the catalogue stands on; its root itself is not below it.
bool ModelList::IsBelowRoot(const std::string& path) const {
  std::string root = catalogue_ ? catalogue_->GetBaseURI() : "";
  if (root.empty() || !StartsWith(path, root + "/")) return false;
  bool upwards = (path + "/").find("/../", root.size()) != std::string::npos;
  return !upwards && path.find_first_not_of('/', root.size()) != std::string::npos;
}

int ModelList::DCF_RemoveFile(const char* path, bool sync) {
  if (!catalogue_ || path == nullptr || !IsBelowRoot(path)) return -1;
  int result = world_.RemoveFile(path, sync);
  if (result >= 0 || result == -4 || result == -13) return catalogue_->RemoveFile(path);
  return world_.IsExist(path) ? result : catalogue_->RemoveFile(path);
}

int ModelList::RemoveWithCompanions(CQFileListItem* item, bool sync) {
  if (!NamesFile(item)) return -1;
  int result = DCF_RemoveFile(item->filePath, sync);
  for (int kind : {1, 5, 6}) {
    char path[128];
    if (GetObjectFullPath(item, static_cast<eFileType>(kind), path, 128) >= 0) {
      DCF_RemoveFile(path, sync);
    }
  }
  return result;
}

int ModelList::Delete(CQFileListItem* item, bool force, bool saveDpof) {
  if (item == nullptr) return -2;
  if (IsProtect(item)) {
    if (!force) return -100;
    if (IsBelowRoot(item->filePath)) SetProtect(item, false);
  }
  std::string newest = catalogue_ ? FolderOf(catalogue_->LastPath()) : "";
  CQFileListItem scratch;
  if (GetPrev(&scratch, true) < 0) SetCur(nullptr);
  if (RemoveWithCompanions(item, true) != 0) return 0;
  --count_;
  int result = UpdateLastIndex(false);
  curPage_ = -1;
  if (saveDpof && SaveDPOFInfo(nullptr, devName_.data()) < 0) return -1000;
  std::string folder = FolderOf(item->filePath);
  CQFileListItem last;
  GetLast(&last, true);
  if (last.filePath[0] == '\0') return result;
  if (StartsWith(folder, newest) && !IsNumber999(newest)) return result;
  if (world_.IsDirEmpty(folder)) DCF_RemoveFile(folder.c_str(), true);
  return result;
}

// One file of DeleteAll; false when the whole operation ends with *result.
bool ModelList::RemoveInTurn(CQFileListItem* item, bool force, bool sync,
                             const std::string& lastDir, int* position, int* status, int* result) {
  DCF_GetAt(*position, item);
  if (IsProtect(item)) {
    if (!force) {
      ++*position;
      *status = -100;
      return true;
    }
    *result = -100;
    if (SetProtect(item, false) < 0) return false;
  }
  int removed = RemoveWithCompanions(item, sync);
  *result = -200;
  if (removed < 0) return false;
  if (removed == 0) --count_;
  std::string folder = FolderOf(item->filePath);
  if (!lastDir.empty() && !StartsWith(folder, lastDir) && world_.IsDirEmpty(folder)) {
    DCF_RemoveFile(folder.c_str(), sync);
  }
  return true;
}

int ModelList::DeleteAll(bool force, ProgressCallback callback) {
  CQFileListItem scratch;
  GetLast(&scratch, true);
  std::string lastDir = FolderOf(scratch.filePath);
  int total = count_;
  int position = 0;
  for (int i = 0; i < total; ++i) {
    CQFileListItem item;
    bool sync = i == total - 1 || (i & 1023) == 1023;
    int status = 0;
    int result = 0;
    if (!RemoveInTurn(&item, force, sync, lastDir, &position, &status, &result)) return result;
    if (Cancelled(callback, i, total, status)) {
      UpdateLastIndex(false);
      return SaveDPOFInfo(nullptr, devName_.data()) < 0 ? -1000 : 10000;
    }
  }
  curPage_ = -1;
  if (SaveDPOFInfo(nullptr, devName_.data()) < 0) return -1000;
  return UpdateLastIndex(false);
}

int ModelList::DeleteMarked(int bit, bool force, ProgressCallback callback) {
  int total = bit == 5 ? GetSelCount() : GetVoiceRecCount();
  if (total == 0) return 0;
  curPage_ = -1;
  CQFileListItem current;
  int walked = MarkedLast(&current, bit);
  int deleted = 0;
  for (int i = 0; total > 0; ++i) {
    CQFileListItem scratch;
    walked = MarkedPrev(&scratch, bit);
    int status = Delete(&current, force, true);
    if (status > 0) ++deleted;
    if (Cancelled(callback, i, total, status)) {
      return SaveDPOFInfo(nullptr, devName_.data()) < 0 ? -1000 : 10000;
    }
    if (walked < 0 || scratch.filePath[0] == '\0' || i + 1 == total) break;
    strcpy(current.filePath, scratch.filePath);
  }
  if (SaveDPOFInfo(nullptr, devName_.data()) < 0) return -1000;
  return deleted == total ? 0 : walked;
}

int ModelList::SetProtectAll(bool on, ProgressCallback callback) {
  if (!catalogue_ && count_ > 0) return -1;
  CQFileListItem item;
  for (int i = 0; i < count_; ++i) {
    int fetched = i == 0 ? GetLast(&item, true) : GetPrev(&item, false);
    if (SetProtect(&item, on) < 0) return -20000 - fetched;
    if (Cancelled(callback, i, count_, 0)) return 10000;
  }
  return 0;
}

int ModelList::SelectedWalk(ProgressCallback callback, bool navigationCode, bool lastResult,
                            int (ModelList::*act)(CQFileListItem*)) {
  if (!catalogue_ && count_ > 0) return -1;
  CQFileListItem item;
  int total = GetSelCount();
  int handled = 0;
  int result = 0;
  for (int i = 0; i < count_; ++i) {
    int fetched = i == 0 ? GetLast(&item, true) : GetPrev(&item, false);
    result = fetched;
    if (!IsSel(&item)) continue;
    result = (this->*act)(&item);
    if (result < 0) return -20000 - (navigationCode ? fetched : result);
    if (Cancelled(callback, handled++, total, 0)) return 10000;
  }
  return lastResult ? result : 0;
}

int ModelList::SetProtectSel(bool on, ProgressCallback callback) {
  return SelectedWalk(callback, true, false,
                      on ? &ModelList::ActProtect : &ModelList::ActUnprotect);
}

int ModelList::SetProtectSel(ProgressCallback callback) {
  return SelectedWalk(callback, false, true, &ModelList::ActToggleProtect);
}

int ModelList::DPOFSel(ProgressCallback callback) {
  return SelectedWalk(callback, false, true, &ModelList::ActTogglePrint);
}

int ModelList::InitPage(int pageSize) {
  pageSize_ = pageSize;
  curPage_ = -1;
  return 0;
}

int ModelList::GetPageTotalCount() const {
  if (pageSize_ <= 0) return 0;
  return count_ / pageSize_ + (count_ % pageSize_ > 0 ? 1 : 0);
}

int ModelList::Fill(CQFileListItem* items, CQFileListItem* scratch, bool fromFirst, bool bounded) {
  int k = 0;
  while (k < pageSize_) {
    int step = 0;
    if (k > 0) {
      step = GetNext(scratch, true);
    } else {
      step = fromFirst ? GetFirst(scratch, true) : GetCur(scratch);
      pageTop_ = scratch->filePath;
    }
    if (step < 0) break;
    strcpy(items[k].filePath, scratch->filePath);
    GetFileInfo(&items[k]);
    ++k;
    if (bounded && static_cast<long long>(curPage_) * pageSize_ + k >= count_) break;
  }
  return k;
}

void ModelList::GoToPageTop() {
  SetCur(pageTop_.c_str());
  curIndex_ = GetFileListIndex(pageTop_.data());
}

int ModelList::GetFirstPage(CQFileListItem* items) {
  if (count_ == 0) return 0;
  if (count_ < 0) return -1;
  curPage_ = 0;
  if (pageSize_ <= 0) return 0;
  CQFileListItem scratch;
  int filled = Fill(items, &scratch, true, true);
  curPage_ = 0;
  return filled;
}

int ModelList::GetNextPage(CQFileListItem* items) {
  if (count_ == 0) return 0;
  if (curPage_ == GetPageTotalCount() - 1) return GetFirstPage(items);
  GoToPageTop();
  if (pageSize_ <= 0) {
    curPage_ = WrappedSum(curPage_, 1);
    return 0;
  }
  CQFileListItem scratch;
  for (int i = 0; i < pageSize_; ++i) {
    if (GetNext(&scratch, true) < 0) return -1;
  }
  curPage_ = WrappedSum(curPage_, 1);
  if (static_cast<long long>(curPage_) * pageSize_ >= count_) return 0;
  return Fill(items, &scratch, false, true);
}

int ModelList::GetPrevPage(CQFileListItem* items) {
  if (count_ == 0) return 0;
  if (curPage_ == 0) return GetLastPage(items);
  GoToPageTop();
  if (pageSize_ <= 0) {
    curPage_ = WrappedSum(curPage_, -1);
    return 0;
  }
  CQFileListItem scratch;
  for (int i = 0; i < pageSize_; ++i) {
    if (GetPrev(&scratch, true) < 0) return -1;
  }
  int filled = Fill(items, &scratch, false, false);
  curPage_ = WrappedSum(curPage_, -1);
  return filled;
}

int ModelList::GetLastPage(CQFileListItem* items) {
  if (count_ == 0 || pageSize_ <= 0) return 0;
  int n = count_ % pageSize_;
  if (n == 0) n = pageSize_;
  CQFileListItem scratch;
  for (int k = n - 1; k >= 0; --k) {
    int step = k == n - 1 ? GetLast(&scratch, true) : GetPrev(&scratch, true);
    if (step < 0) break;
    pageTop_ = scratch.filePath;
    strcpy(items[k].filePath, scratch.filePath);
    GetFileInfo(&items[k]);
  }
  curPage_ = GetPageTotalCount() - 1;
  return n;
}

int ModelList::GetPageAt(int page, CQFileListItem* items) {
  if (page < 0) return -1;
  if (count_ <= 0) return -2;
  CQFileListItem scratch;
  long long first = static_cast<long long>(page) * pageSize_;
  int position = first == static_cast<int>(first) ? static_cast<int>(first) : -1;
  if (curPage_ >= 0 && page == WrappedSum(curPage_, 1)) return GetNextPage(items);
  if (curPage_ >= 0 && page == curPage_ - 1) return GetPrevPage(items);
  if (curPage_ < 0 || page != curPage_) {
    if (GetAt(position, &scratch, true) < 0) return -1;
    pageTop_ = scratch.filePath;
  }
  int result = SetCur(pageTop_.c_str());
  curIndex_ = GetFileListIndex(pageTop_.data());
  if (curIndex_ < 0) result = GetAt(position, &scratch, true);
  if (result < 0) return -1;
  curPage_ = page;
  if (pageSize_ <= 0 || first >= count_) return 0;
  int filled = Fill(items, &scratch, false, true);
  curPage_ = page;
  return filled;
}

}  // namespace flm_model
