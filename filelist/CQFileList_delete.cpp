// Deletion: one file, every file, every marked file. A file goes with its companions, an emptied
// folder goes too, and the catalogue always says what is on the card: an entry is dropped only when
// its file is gone.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "filelist/CQFileList_internal.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/file_status.h"

// What tells the three deletions of marked files apart.
struct CQFileList::MarkedWalk {
  int (CQFileList::*count)();
  int (CQFileList::*last)(CQFileListItem*);
  int (CQFileList::*prev)(CQFileListItem*);
};

namespace {

constexpr int kNullItem = -2;
constexpr int kProtected = -100;
constexpr int kRemovalFailed = -200;
constexpr int kSaveFailed = -1000;
constexpr int kFlushMask = 1023;  // the card is flushed after every 1024 files
constexpr char kLastFolderStart[] = "/999";

// Storage failures after which the file counts as removed.
constexpr int kGoneAnyway = -4;
constexpr int kGoneByAccess = -13;
bool CountsAsRemoved(int result) {
  return result >= 0 || result == kGoneAnyway || result == kGoneByAccess;
}

// The path up to its last '/', empty without one.
void FolderOf(const char* path, char* out) {
  const char* const slash = std::strrchr(path, '/');
  const size_t length = slash == nullptr ? 0 : static_cast<size_t>(slash - path);
  flm::BoundedText(out, flm::kPathSize).Text(path, length);
}

bool BeginsWith(const char* text, const char* start) {
  return std::strncmp(text, start, std::strlen(start)) == 0;
}

// Whether a file's folder begins with another folder's path; every one does with an empty path.
bool IsInFolder(const char* filePath, const char* folder) {
  char own[flm::kPathSize];
  FolderOf(filePath, own);
  return BeginsWith(own, folder);
}

// Whether what stands behind a root names the root itself or goes upwards.
bool LeavesRoot(const char* below) {
  constexpr char kUpwards[] = "/..";
  constexpr size_t kLength = sizeof(kUpwards) - 1;
  if (below[std::strspn(below, "/")] == '\0') return true;
  for (const char* at = std::strstr(below, kUpwards); at != nullptr;
       at = std::strstr(at + 1, kUpwards)) {
    if (at[kLength] == '/' || at[kLength] == '\0') return true;
  }
  return false;
}

bool IsLastNumberedFolder(const char* folder) {
  const char* const slash = std::strrchr(folder, '/');
  return slash != nullptr && BeginsWith(slash, kLastFolderStart);
}

bool IsCancelled(ProgressCallback callback, int index, int total, int* status) {
  bool cancel = false;
  if (callback != nullptr) callback(index, total, status, &cancel);
  return cancel;
}

}  // namespace

// A path of another card must never be removed through this list, nor the root itself, nor a path
// that climbs out of it: no path of the catalogue goes upwards.
bool CQFileList::IsOnThisCard(const char* path) const {
  if (catalogue_ == nullptr || path == nullptr) return false;
  const char* const root = catalogue_->GetBaseURI();
  const size_t length = std::strlen(root);
  if (length == 0 || !BeginsWith(path, root) || path[length] != '/') return false;
  return !LeavesRoot(path + length);
}

int CQFileList::DCF_RemoveFile(char* path, bool sync) {
  if (!IsOnThisCard(path)) return -1;
  const int result = PCQDCFFSIO::RemoveFile(path, sync);
  const bool stillThere = !CountsAsRemoved(result) && PCQDCFFSIO::IsExist(path) != 0;
  return stillThere ? result : catalogue_->RemoveFile(path);
}

// The file's result; a companion that cannot be removed never changes it.
int CQFileList::RemoveWithCompanions(CQFileListItem* item, bool sync) {
  if (!flm::NamesFile(item)) return -1;
  const int result = DCF_RemoveFile(item->filePath, sync);
  flm::ForEachCompanion(*this, item, [&](char* companion) { DCF_RemoveFile(companion, sync); });
  return result;
}

int CQFileList::Delete(CQFileListItem* item, bool force, bool saveDpof) {
  if (item == nullptr) return kNullItem;
  if (IsProtect(item)) {
    if (!force) return kProtected;
    if (IsOnThisCard(item->filePath)) SetProtect(item, false);
  }
  // The newest folder is judged by the list as it is now: it stays even when its last file goes.
  char newestFile[flm::kPathSize] = {};
  char newestDir[flm::kPathSize];
  if (catalogue_ != nullptr) catalogue_->GetLastPath(newestFile, flm::kPathSize);
  FolderOf(newestFile, newestDir);
  CQFileListItem before;
  if (GetPrev(&before, IsDerived()) < 0) SetCur(nullptr);
  // Callers take 0 for "not deleted": a number above 0 is the newest file's index.
  if (RemoveWithCompanions(item, true) != 0) return 0;
  --count_;
  const int result = UpdateLastIndex(false);
  curPage_ = -1;
  if (saveDpof && SaveDPOFInfo(nullptr, devName_) < 0) return kSaveFailed;
  CleanUpDirectory(item->filePath, newestDir);
  return result;
}

// Removes the folder of a deleted file when it is empty. The newest folder stays, so that new files
// go on into it; only number 999 makes room.
void CQFileList::CleanUpDirectory(const char* filePath, const char* newestDir) {
  CQFileListItem last;
  GetLast(&last, IsDerived());
  if (last.filePath[0] == '\0') return;
  char folder[flm::kPathSize];
  FolderOf(filePath, folder);
  if (BeginsWith(folder, newestDir) && !IsLastNumberedFolder(newestDir)) return;
  if (HoldsFile(folder, filePath)) return;
  if (PCQDCFFSIO::IsDirEmpty(folder) != 0) DCF_RemoveFile(folder, true);
}

// Whether a file that the list still has in a folder is there, which spares reading the folder. The
// path is of a file that was in it.
bool CQFileList::HoldsFile(const char* folder, const char* filePath) const {
  char other[flm::kPathSize];
  char otherFolder[flm::kPathSize];
  if (catalogue_ == nullptr || catalogue_->GetFirstBeside(filePath, other, flm::kPathSize) < 0)
    return false;
  FolderOf(other, otherFolder);
  return std::strcmp(folder, otherFolder) == 0 && flm::FileStatus(other).IsRegularFile();
}

int CQFileList::DeleteCons(CQFileListItem* item, bool force, bool saveDpof) {
  return Delete(item, force, saveDpof);
}

int CQFileList::DeleteVoiceRec(CQFileListItem* item, bool force, bool saveDpof) {
  return Delete(item, force, saveDpof);
}

int CQFileList::RemoveAll(bool force) { return DeleteAll(force, nullptr); }

int CQFileList::SaveAfterDeletion(int done) {
  return SaveDPOFInfo(nullptr, devName_) < 0 ? kSaveFailed : done;
}

// One file of DeleteAll. kProtected, with the code saying so, for a file that is passed over; the
// failure that ends the deletion; else 0.
int CQFileList::RemoveInTurn(CQFileListItem* item, flm::FileStatus& status, bool force, bool sync,
                             int* passedOver) {
  if (IsDerived() ? IsProtect(item) : flm::NamesFile(item) && status.IsProtected()) {
    if (!force) {
      *passedOver = kProtected;
      return 0;
    }
    if (SetProtect(item, false) < 0) return kProtected;
  }
  const int removed = RemoveWithCompanions(item, sync);
  if (removed < 0) return kRemovalFailed;
  if (removed == 0) --count_;
  return 0;
}

// Removes the folder of a file that is gone when it is empty. The next file is looked at first:
// when it is in the same folder and is there, the folder need not be read. True when `item` has
// become that file.
bool CQFileList::LeaveFolder(CQFileListItem* item, flm::FileStatus& status, int position,
                             bool sync) {
  char folder[flm::kPathSize];
  char nextFolder[flm::kPathSize];
  FolderOf(item->filePath, folder);
  DCF_GetAt(position, item);
  status.Forget();
  FolderOf(item->filePath, nextFolder);
  if (std::strcmp(folder, nextFolder) == 0 && status.IsRegularFile()) return true;
  if (PCQDCFFSIO::IsDirEmpty(folder) != 0) DCF_RemoveFile(folder, sync);
  return false;
}

int CQFileList::DeleteAll(bool force, ProgressCallback callback) {
  CQFileListItem last;
  GetLast(&last, IsDerived());
  char lastDir[flm::kPathSize];
  FolderOf(last.filePath, lastDir);
  const int total = count_;
  CQFileListItem item;
  flm::FileStatus status(item.filePath);
  bool current = false;  // the item is the next file already
  int position = 0;      // a deleted file's successor moves into its place
  for (int i = 0; i < total; ++i) {
    const bool sync = i == total - 1 || (i & kFlushMask) == kFlushMask;
    if (!current) {
      DCF_GetAt(position, &item);
      status.Forget();
    }
    current = false;
    int code = 0;
    const int failure = RemoveInTurn(&item, status, force, sync, &code);
    if (failure < 0) return failure;
    if (code < 0) {
      ++position;
    } else if (!IsInFolder(item.filePath, lastDir)) {
      current = LeaveFolder(&item, status, position, sync);
    }
    if (IsCancelled(callback, i, total, &code)) {
      UpdateLastIndex(false);
      return SaveAfterDeletion(flm::kBulkCancelled);
    }
    // A callback may have changed list and card.
    if (callback != nullptr) current = false;
  }
  curPage_ = -1;
  if (SaveDPOFInfo(nullptr, devName_) < 0) return kSaveFailed;
  return UpdateLastIndex(false);
}

int CQFileList::DeleteSel(bool force, ProgressCallback callback) {
  return DeleteMarked({&CQFileList::GetSelCount, &CQFileList::GetSelLast, &CQFileList::GetSelPrev},
                      force, callback);
}

int CQFileList::DeleteVoiceRecAll(bool force, ProgressCallback callback) {
  return DeleteMarked(
      {&CQFileList::GetVoiceRecCount, &CQFileList::GetVoiceRecLast, &CQFileList::GetVoiceRecPrev},
      force, callback);
}

int CQFileList::DeleteConsAll(bool force, ProgressCallback callback) {
  return DeleteMarked(
      {&CQFileList::GetConsCount, &CQFileList::GetConsLast, &CQFileList::GetConsPrev}, force,
      callback);
}

// From the last marked file to the first. The file before is found before a file is removed, so
// that the walk survives the removal; only its path travels on.
int CQFileList::DeleteMarked(const MarkedWalk& walk, bool force, ProgressCallback callback) {
  const int total = (this->*walk.count)();
  if (total == 0) return 0;
  curPage_ = -1;
  CQFileListItem current;
  int step = (this->*walk.last)(&current);
  int deleted = 0;
  for (int i = 0; i < total; ++i) {
    CQFileListItem before;
    step = (this->*walk.prev)(&before);
    int status = Delete(&current, force, true);
    if (status > 0) ++deleted;
    if (IsCancelled(callback, i, total, &status)) return SaveAfterDeletion(flm::kBulkCancelled);
    if (step < 0 || before.filePath[0] == '\0') break;
    flm::CopyText(current.filePath, flm::kPathSize, before.filePath);
  }
  return SaveAfterDeletion(deleted == total ? 0 : step);
}
