// The flat functions. Each checks the list number, fetches the file where one is named by its
// index, and hands on to one operation of the list; what that operation answers is dropped, unless
// the function hands a value out.
#include "api/flm.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "api/CBIFileListManager.h"
#include "base/fixed_sizes.h"
#include "filelist/CQFileListItem.h"
#include "filelist/IQFileList.h"

namespace {

constexpr int kDone = 0;
constexpr int kNullPointer = 1;
constexpr int kBadList = 2;
constexpr int kNoList = 3;
constexpr int kScanFailed = 4;

constexpr int kListCount = 2;
constexpr int kListType = 4;

char mmcRoot[] = "/mnt/mmc";
char sd0Root[] = "/opt/sd0";
char defaultPrefix[] = "QVX_";

uint8_t initDone = 0;  // set by the first flm_init, never cleared
IQFileList* lists[kListCount] = {nullptr, nullptr};

// Runs `act` on the list of a type; 2 or 3 when there is none.
template <typename Act>
int OnList(FileListType type, Act act) {
  if (_flm_range_check(type) == 0) return kBadList;
  IQFileList* const list = lists[type];
  if (list == nullptr) return kNoList;
  act(*list);
  return kDone;
}

// The same with the file at an index, which is empty when the list holds no such file.
template <typename Act>
int OnFile(FileListType type, int index, Act act) {
  return OnList(type, [&](IQFileList& list) {
    CQFileListItem item;
    list.GetAt(index, &item, true);
    act(list, item);
  });
}

}  // namespace

int _flm_null_check(void* p) { return p != nullptr ? 1 : 0; }

int _flm_range_check(int type) { return static_cast<unsigned int>(type) < kListCount ? 1 : 0; }

IQFileList* _flm_get_isfilelist(FileListType type) {
  flm_init();
  return _flm_range_check(type) != 0 ? lists[type] : nullptr;
}

int flm_init() {
  if (initDone != 0) return kDone;
  // Before the lists exist: a first call that failed is never repeated.
  initDone = 1;
  try {
    if (CBIFileListManager::Create(kListCount) != 0) return kNoList;
  } catch (const std::bad_alloc&) {
    return kNoList;
  }
  CBIFileListManager::SetURIToFileList(FILELIST_MMC, mmcRoot, kListType, false);
  CBIFileListManager::SetURIToFileList(FILELIST_SD0, sd0Root, kListType, false);
  lists[FILELIST_MMC] = CBIFileListManager::GetFileList(mmcRoot, kListType);
  lists[FILELIST_SD0] = CBIFileListManager::GetFileList(sd0Root, kListType);
  for (IQFileList* const list : lists) {
    if (list != nullptr) list->SetFilePrefix(defaultPrefix);
  }
  return kDone;
}

// Neither the flag nor the stored lists are cleared: the library is not set up twice in a process.
int flm_deinit() {
  CBIFileListManager::Destroy();
  return kDone;
}

int flm_listup(FileListType type) {
  int count = 0;
  const int result = OnList(type, [&](IQFileList& list) { count = list.Listup(0); });
  return result == kDone && count < 0 ? kScanFailed : result;
}

int flm_set_series_mode(FileListType type, FileListMode mode) {
  return OnList(type, [&](IQFileList& list) { list.SetSeriesMode(mode != FILELIST_MODE_RESET); });
}

int flm_get_series_mode(FileListType type, FileListMode* mode) {
  return OnList(type, [&](IQFileList& list) {
    *mode = list.GetSeriesMode() ? FILELIST_MODE_SERIES : FILELIST_MODE_RESET;
  });
}

int flm_get_new_filename(FileListType type, FileType kind, char** name) {
  if (_flm_range_check(type) == 0) return kBadList;
  if (name == nullptr || *name == nullptr) return kNullPointer;
  return OnList(type, [&](IQFileList& list) { list.GetNewFileName(*name, kind); });
}

int flm_remove_file_from_list(FileListType type, int index) {
  return OnFile(type, index, [](IQFileList& list, CQFileListItem& item) {
    list.RemoveFileFromList(item.filePath);
  });
}

int flm_is_exist(FileListType type, char* path, int* exists) {
  return OnList(type, [&](IQFileList& list) { *exists = list.IsExist(path); });
}

int flm_get_count(FileListType type, int* count) {
  return OnList(type, [&](IQFileList& list) { *count = list.GetCount(); });
}

int flm_get_at(FileListType type, int index, char** name) {
  return OnFile(type, index, [&](IQFileList&, CQFileListItem& item) {
    // All 1024 bytes, far more than a path has: applications rely on the zeros.
    std::memset(*name, 0, flm::kFlatPathSize);
    std::memcpy(*name, item.filePath, strnlen(item.filePath, flm::kPathSize));
  });
}

int flm_move_to_first(FileListType type) {
  return OnList(type, [](IQFileList& list) {
    CQFileListItem item;
    list.GetFirst(&item, true);
  });
}

int flm_move_to_last(FileListType type) {
  return OnList(type, [](IQFileList& list) {
    CQFileListItem item;
    list.GetLast(&item, true);
  });
}

int flm_move_to_prev(FileListType type) {
  return OnList(type, [](IQFileList& list) {
    CQFileListItem item;
    list.GetPrev(&item, true);
  });
}

int flm_move_to_next(FileListType type) {
  return OnList(type, [](IQFileList& list) {
    CQFileListItem item;
    list.GetNext(&item, true);
  });
}

int flm_set_cursor(FileListType type, int index) {
  return OnFile(type, index,
                [](IQFileList& list, CQFileListItem& item) { list.SetCur(item.filePath); });
}

int flm_get_cursor(FileListType type, int* index) {
  return OnList(type, [&](IQFileList& list) { *index = list.GetCurIndex(); });
}

int flm_set_selection(FileListType type, int index, int on) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { list.SetSel(&item, on != 0); });
}

int flm_get_selection(FileListType type, int index, int* on) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { *on = list.IsSel(&item) ? 1 : 0; });
}

int flm_set_protection(FileListType type, int index, int on) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { list.SetProtect(&item, on != 0); });
}

int flm_get_protection(FileListType type, int index, int* on) {
  return OnFile(type, index, [&](IQFileList& list, CQFileListItem& item) {
    *on = list.IsProtect(&item) ? 1 : 0;
  });
}

int flm_set_dpof(FileListType type, int index, int copies) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { list.SetDPOF(&item, copies); });
}

int flm_set_dpof_all(FileListType type, int copies) {
  return OnList(type, [&](IQFileList& list) { list.SetDPOFAll(copies); });
}

int flm_get_dpof(FileListType type, int index, int* copies) {
  return OnFile(type, index, [&](IQFileList& list, CQFileListItem& item) {
    *copies = list.GetDPOFNumOfCopy(&item);
  });
}

int flm_set_dpof_index(FileListType type, int on) {
  return OnList(type, [&](IQFileList& list) { list.SetDPOFIndex(on != 0); });
}

int flm_get_dpof_index(FileListType type, int index, int* on) {
  return OnFile(type, index, [&](IQFileList& list, CQFileListItem& item) {
    *on = list.GetDPOFIndex(&item) ? 1 : 0;
  });
}

int flm_set_dpof_size(FileListType type, int index, int size) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { list.SetDPOFSize(&item, size); });
}

int flm_set_dpof_size_all(FileListType type, int size) {
  return OnList(type, [&](IQFileList& list) { list.SetDPOFSizeAll(size); });
}

int flm_get_dpof_size(FileListType type, int index, int* size) {
  return OnFile(type, index,
                [&](IQFileList& list, CQFileListItem& item) { *size = list.GetDPOFSize(&item); });
}

int flm_save_dpof_info(FileListType type, char* devName) {
  return OnList(type, [&](IQFileList& list) { list.SaveDPOFInfo(nullptr, devName); });
}

int flm_load_dpof_info(FileListType type) {
  return OnList(type, [](IQFileList& list) { list.LoadDPOFInfo(nullptr); });
}
