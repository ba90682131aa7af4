// Scan, cursor, single files, names.
#include "tests/model/model_list.h"

#include <cstdlib>
#include <cstring>

namespace flm_model {
namespace {

const char* const kExtensions[] = {"JPG", "SRW", "MP4", "3GP", "MP3", "WAV", "MPO"};
constexpr int kObjectTypes[] = {202, 201, 204};
const char* const kObjectExtensions[] = {"SRW", "WAV", "MPO"};

tm LocalTime(time_t now) {
  tm local = {};
  localtime_r(&now, &local);
  return local;
}

}  // namespace

int ModelList::SetSeriesMode(bool on) {
  if (!catalogue_) return -1;
  series_ = on;
  catalogue_->SetSeriesMode(on);
  return UpdateLastIndex(!on);
}

int ModelList::Listup(int stopAtFirst) {
  if (!HasUsableRoot()) return count_ = -1;
  if (!catalogue_) {
    catalogue_ = std::make_unique<ModelCatalogue>(world_);
    catalogue_->Create();
  }
  catalogue_->SetMode(type_);
  catalogue_->SetSeriesMode(series_);
  catalogue_->SetBaseURI(root_.c_str());
  int result = catalogue_->Listup(stopAtFirst, camera_);
  count_ = result < 0 ? result : catalogue_->GetCount();
  LoadDPOFInfo(nullptr);
  return count_;
}

void ModelList::FreeList() {
  if (catalogue_) catalogue_->FreeMem();
  count_ = 0;
}

int ModelList::DCF_GetCount() const { return catalogue_ ? catalogue_->GetCount() : -1; }

int ModelList::DCF_GetAt(int index, CQFileListItem* item) {
  if (!catalogue_ || item == nullptr) return -1;
  memset(item->filePath, 0, 128);
  memset(item->objectPath, 0, 128);
  return catalogue_->GetAt(index, item->filePath, 128, item->objectPath, 128);
}

int ModelList::GetAt(int index, CQFileListItem* item, bool withInfo) {
  if (count_ <= 0 || !catalogue_ || item == nullptr) return -1;
  int result = DCF_GetAt(index, item);
  curIndex_ = GetFileListIndex(item->filePath);
  if (result < 0) return result;
  if (withInfo && GetFileInfo(item) < 0) return -1;
  SetCur(item->filePath);
  return result;
}

int ModelList::GetFileListIndex(char* path) {
  return catalogue_ ? catalogue_->GetListIndex(path) : -6;
}

int ModelList::GetFileListIndex(CQFileListItem* item) {
  char none[] = "";
  return GetFileListIndex(NamesFile(item) ? item->filePath : none);
}

int ModelList::GetCur(CQFileListItem* item) {
  if (item == nullptr || !catalogue_) return -1;
  return catalogue_->GetCur(item->filePath, 128, item->objectPath, 128);
}

int ModelList::GetCurrent(CQFileListItem* item, bool withInfo) {
  if (item == nullptr || count_ < 1 || !catalogue_) return -1;
  int result = catalogue_->GetCur(item->filePath, 128, item->objectPath, 128);
  if (result < 0) {
    SetCur(nullptr);
    return result;
  }
  return withInfo ? GetFileInfo(item) : result;
}

int ModelList::Walk(CQFileListItem* item, bool withInfo, char kind) {
  if (item == nullptr || count_ <= 0 || !catalogue_) return -1;
  char* path = item->filePath;
  char* object = item->objectPath;
  unsigned int time = static_cast<unsigned int>(item->modTime);
  int result = 0;
  if (kind == 'F') result = catalogue_->GetFirst(path, 128, object, 128, true, &time);
  if (kind == 'N') result = catalogue_->GetNext(path, 128, object, 128, &time);
  if (kind == 'P') result = catalogue_->GetPrev(path, 128, object, 128);
  if (kind == 'L') result = catalogue_->GetLast(path, 128, object, 128);
  item->modTime = static_cast<int32_t>(time);
  if (result < 0) {
    if (SetCur(nullptr) < 0) return -1;
  } else {
    if (kind == 'F') curIndex_ = 0;
    if (kind == 'N' || kind == 'P') curIndex_ = GetFileListIndex(path);
    if (kind == 'L') curIndex_ = count_ - 1;
    if (withInfo && kind == 'L') memset(object, 0, 128);
    if (withInfo) result = GetFileInfo(item);
  }
  count_ = DCF_GetCount();
  return result;
}

int ModelList::IsLast(CQFileListItem* item) {
  return !NamesFile(item) || !catalogue_ ? 0 : catalogue_->IsLast(item->filePath);
}

int ModelList::SetCur(const char* path) {
  if (!catalogue_) return -1;
  int result = catalogue_->SetCurFile(path);
  curIndex_ = catalogue_->GetListIndex(path);
  return result;
}

int ModelList::SetCurIndex(int index) {
  CQFileListItem item;
  return GetAt(index, &item, true);
}

int ModelList::GetInfo(char* path, CQFileListItem* item) {
  if (path == nullptr) return -2;
  if (item == nullptr) return -3;
  if (!catalogue_) return -6;
  if (catalogue_->GetInfo(path, item) < 0) return -1;
  return GetFileInfo(item);
}

int ModelList::GetFileInfo(CQFileListItem* item) {
  if (!NamesFile(item)) return -1;
  item->selected = IsSel(item) ? 1 : 0;
  item->wifiFlag = IsWifiFlag(item) ? 1 : 0;
  item->dpofCopies = static_cast<uint8_t>(GetDPOFNumOfCopy(item));
  item->dpofSize = GetDPOFSize(item);
  item->dpofIndex = GetDPOFIndex(item) ? 1 : 0;
  world_.FillTime(item, true);
  return 0;
}

int ModelList::GetFileCreateTime(CQFileListItem* item) {
  return NamesFile(item) ? world_.FillTime(item, false) : -1;
}

int ModelList::GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize) {
  if (item == nullptr || out == nullptr) return -1;
  std::string text(item->objectPath, strnlen(item->objectPath, 128));
  if (text.size() < 3 || text.size() >= 128) return -1;
  if (outSize > 0) memset(out, 0, static_cast<size_t>(outSize));
  std::string letters = Upper(text.substr(text.size() - 3));
  std::string stem = text.substr(0, text.size() - 3);
  if (outSize <= static_cast<int>(text.size())) world_.doubt.out = true;
  if (kind == 1 && letters[0] != 'S') return -1;
  if (kind == 5 && letters[1] != 'W') return -5;
  if (kind == 6 && letters[2] != 'M') return -6;
  if (kind == 1) Put(out, outSize, stem + "SRW");
  if (kind == 5) Put(out, outSize, stem + "WAV");
  if (kind == 6) Put(out, outSize, stem + "MPO");
  return kind == 1 || kind == 5 || kind == 6 ? static_cast<int>(kind) : 0;
}

int ModelList::GetPrefixEnum(const char* path) {
  const char* const known[] = {"CAM_", "HDV_", "HDE_", "HDA_", "SDV_", "SDE_", "SDA_"};
  for (int code = 0; code < 7; ++code) {
    if (strstr(path, known[code]) != nullptr) return code;
  }
  return -1;
}

int ModelList::GetIndexKey(const char* path) {
  std::string text = path;
  if (text.size() < 21) {
    world_.doubt.result = true;
    return 0;
  }
  return NumberAt(text, text.size() - 21, 3) * 10000 + NumberAt(text, text.size() - 8, 4);
}

int ModelList::AddFile(char* path) {
  if (!catalogue_) return -1;
  int result = catalogue_->AddFile(path);
  ++count_;
  return result;
}

int ModelList::RemoveFileFromList(char* path) {
  if (!catalogue_) return -6;
  int result = catalogue_->RemoveFile(path);
  if (result >= 0) --count_;
  return result;
}

int ModelList::RemoveFileFromList(CQFileListItem* item) {
  if (item == nullptr) return -1;
  char none[] = "";
  int result = RemoveFileFromList(NamesFile(item) ? item->filePath : none);
  if (result >= 0) item->filePath[0] = '\0';
  return result;
}

int ModelList::IsExist(char* path) { return catalogue_ && catalogue_->IsExist(path) >= 0 ? 1 : 0; }

int ModelList::GetAvailNumOfPhoto() {
  int dirNumber = 0;
  int fileNumber = 0;
  GetLastIndex(&dirNumber, &fileNumber);
  int a = dirNumber <= 998 ? 1000 : 9999 - fileNumber;
  int b = kPoolUnits - count_;
  return a < b ? a : b;
}

int ModelList::SetFileNameColor(eFileListColorMode mode) {
  color_ = mode;
  return SetFilePrefix(mode == 0 ? "QVX_" : "_QVX");
}

int ModelList::SetFilePrefix(const char* prefix) {
  if (prefix == nullptr) return -1;
  if (strlen(prefix) > 8) return -2;
  prefix_ = prefix;
  return 0;
}

std::string ModelList::DateText(bool underscore) const {
  tm local = LocalTime(world_.now);
  int month = local.tm_mon + 1;
  if (!underscore) return Format("%02d%02d", month, local.tm_mday);
  return Format("_%c%02d", month < 10 ? '0' + month : 'A' + month - 10, local.tm_mday);
}

int ModelList::GetNewFileName(char* out, int kind) {
  if (!catalogue_ || !HasUsableRoot()) return -1;
  std::string ext = kind >= 0 && kind <= 6 ? kExtensions[kind] : "";
  bool movie3d = kind == 2 && imageType_ == 1;
  std::string prefix = prefix_;
  if (movie3d) prefix = "S3D_";
  if (fileMake_ != 0) prefix = DateText(color_ != 0 || movie3d);
  std::string suffix = folderMake_ != 0 ? "_" + DateText(false) : "PHOTO";
  int result =
      catalogue_->GetNewFileName(prefix.c_str(), ext.c_str(), out, 396, false, suffix.c_str());
  count_ = DCF_GetCount();
  return result;
}

int ModelList::GetCopyNewFileName(char* out) {
  if (!catalogue_ || !HasUsableRoot()) return -1;
  std::string prefix = fileMake_ != 0 ? DateText(color_ != 0) : prefix_;
  std::string suffix = folderMake_ != 0 ? "_" + DateText(false) : "PHOTO";
  return catalogue_->GetNewFileName(prefix.c_str(), "JPG", out, 396, true, suffix.c_str());
}

int ModelList::GetLatestFileName(char* out, eFileAddType kind) {
  if (!catalogue_ || out == nullptr) return -1;
  CQFileListItem item;
  GetLast(&item, false);
  if (kind < 0 || kind > 2) return -200;
  int result = catalogue_->SetObject(item.filePath, kObjectTypes[kind], true);
  if (result != 0) return result;
  size_t stem = strlen(item.filePath) - 3;
  memcpy(out, item.filePath, stem);
  memcpy(out + stem, kObjectExtensions[kind], 3);
  return 0;
}

int ModelList::SetObject(CQFileListItem* item, eFileAddType kind, bool on) {
  if (item == nullptr) return -1;
  if (!catalogue_) return -6;
  if (kind < 0 || kind > 2) return -200;
  if (!NamesFile(item)) return -1;
  return catalogue_->SetObject(item->filePath, kObjectTypes[kind], on);
}

int ModelList::GetLastIndex(int* dirNumber, int* fileNumber) {
  if (!catalogue_) return 0;
  *dirNumber = catalogue_->GetStoredLastIndex() / 100000;
  *fileNumber = catalogue_->GetStoredLastIndex() % 100000;
  return 0;
}

int ModelList::SetLastIndex(const char* path, bool force) {
  return catalogue_ ? catalogue_->SetLastIndex(path, force) : 0;
}

int ModelList::SetLastIndex(int dirNumber, int fileNumber, bool force) {
  bool pictures = type_ == 3 || type_ == 4;
  std::string tail = Format("%s%04d.%s", prefix_.c_str(), fileNumber, pictures ? "JPG" : "MP4");
  std::string path = root_ + (pictures ? "/DCIM/" : "/VIDEO/") + Format("%03d", dirNumber) +
                     (pictures ? "PHOTO/" : "VIDEO/") + tail;
  return SetLastIndex(Cut(path, 128).c_str(), force);
}

int ModelList::SetLastUpdated(int page, int position) {
  lastUpdated_ = position - 1 + pageSize_ * (page - 1);
  return 0;
}

int ModelList::SetLastUpdated(int index) {
  lastUpdated_ = index;
  return 0;
}

int ModelList::GetLastUpdated(int* page, int* position) {
  if (page == nullptr) return -1;
  if (position == nullptr) return -2;
  if (pageSize_ <= 0) return -3;
  *page = lastUpdated_ / pageSize_ + 1;
  *position = lastUpdated_ % pageSize_ + 1;
  return 0;
}

}  // namespace flm_model
