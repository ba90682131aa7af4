// The model of the file list, with the names and arguments of CQFileList.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_LIST_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_LIST_H

#include <cstring>
#include <memory>
#include <string>

#include "filelist/CQFileListItem.h"
#include "filelist/filelist_types.h"
#include "tests/model/model_catalogue.h"

namespace flm_model {

// Whether an item has a path with an end.
inline bool NamesFile(const CQFileListItem* item) {
  return item != nullptr && item->filePath[0] != '\0' && memchr(item->filePath, 0, 128) != nullptr;
}

class ModelList {
 public:
  explicit ModelList(World& world) : world_(world) {}

  // Set-up and scan.
  int Create() { return 0; }
  void Destroy() { catalogue_.reset(); }
  void SetType(int type) { type_ = type; }
  int GetType() const { return type_; }
  void SetBaseURI(const char* uri) { root_ = uri; }
  const char* GetBaseURI() const { return root_.c_str(); }
  int SetSeriesMode(bool on);
  bool GetSeriesMode() const { return series_; }
  int Listup(int stopAtFirst);
  void IncludeNonDCF(bool on) { camera_ = on; }
  void FreeList();
  ModelCatalogue* GetDCFList() const { return catalogue_.get(); }

  // Access and cursor.
  int GetCount() const { return count_; }
  int DCF_GetCount() const;
  int DCF_GetAt(int index, CQFileListItem* item);
  int GetAt(int index, CQFileListItem* item, bool withInfo);
  int GetFileListIndex(char* path);
  int GetFileListIndex(CQFileListItem* item);
  int GetCurIndex() const { return curIndex_; }
  int GetCur(CQFileListItem* item);
  int GetCurrent(CQFileListItem* item, bool withInfo);
  int GetFirst(CQFileListItem* item, bool withInfo) { return Walk(item, withInfo, 'F'); }
  int GetNext(CQFileListItem* item, bool withInfo) { return Walk(item, withInfo, 'N'); }
  int GetPrev(CQFileListItem* item, bool withInfo) { return Walk(item, withInfo, 'P'); }
  int GetLast(CQFileListItem* item, bool withInfo) { return Walk(item, withInfo, 'L'); }
  int IsLast(CQFileListItem* item);
  int SetCur(const char* path);
  int SetCurIndex(int index);

  // Single files.
  int GetInfo(char* path, CQFileListItem* item);
  int GetFileInfo(CQFileListItem* item);
  int GetFileCreateTime(CQFileListItem* item);
  int GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize);
  int GetPrefix(CQFileListItem* item) {
    return NamesFile(item) ? GetPrefixEnum(item->filePath) : -1;
  }
  int GetPrefixEnum(const char* path);
  int GetIndexKey(const char* path);
  int AddFile(char* path);
  int RemoveFileFromList(char* path);
  int RemoveFileFromList(CQFileListItem* item);
  int IsExist(char* path);
  int SortItem() { return catalogue_ ? catalogue_->SortItem() : 0; }
  int GetAvailNumOfPhoto();

  // Names.
  void SetFileNameMake(eFILE_NAME_MAKE make) { fileMake_ = make; }
  void SetFolderNameMake(eFILE_NAME_MAKE make) { folderMake_ = make; }
  void SetImageType(eFileListImageType type) { imageType_ = type; }
  int SetFileNameColor(eFileListColorMode mode);
  int SetFilePrefix(const char* prefix);
  int GetNewFileName(char* out, int kind);
  int GetCopyNewFileName(char* out);
  int GetLatestFileName(char* out, eFileAddType kind);
  int SetObject(CQFileListItem* item, eFileAddType kind, bool on);
  int GetLastIndex(int* dirNumber, int* fileNumber);
  int SetLastIndex(const char* path, bool force);
  int SetLastIndex(int dirNumber, int fileNumber, bool force);
  int UpdateLastIndex(bool noSeries) {
    return catalogue_ ? catalogue_->UpdateLastIndex(noSeries) : -6;
  }
  int SetLastUpdated(int page, int position);
  int SetLastUpdated(int index);
  int GetLastUpdated(int* page, int* position);

  // Marks.
  int SetSel(CQFileListItem* item, bool on) { return SetMark(item, 5, on, false); }
  int SetWifiFlag(CQFileListItem* item, bool on) { return SetMark(item, 4, on, false); }
  int SetVoiceRec(CQFileListItem* item, bool on) { return SetMark(item, 7, on, true); }
  int SetConsCap(CQFileListItem* item, bool on) { return SetMark(item, 7, on, true); }
  bool IsSel(CQFileListItem* item) { return HasMark(item, 5); }
  bool IsWifiFlag(CQFileListItem* item) { return HasMark(item, 4); }
  bool IsVoiceRec(CQFileListItem* item) { return HasMark(item, 7); }
  bool IsConsCap(CQFileListItem* item) { return HasMark(item, 7); }
  int SetSelAll(bool on) { return catalogue_ ? catalogue_->SetCustomBitAll(5, on) : -6; }
  int SetVoiceRecAll(bool on) { return catalogue_ ? catalogue_->SetCustomBitAll(7, on) : -1; }
  int SetConsCapAll(bool on) { return SetVoiceRecAll(on); }
  int GetSelCount() { return catalogue_ ? catalogue_->GetCustomBitCount(5) : -6; }
  int GetVoiceRecCount() { return catalogue_ ? catalogue_->GetCustomBitCount(7) : -1; }
  int GetConsCount() { return GetVoiceRecCount(); }
  int GetSelFirst(CQFileListItem* item) { return MarkedFirst(item, 5); }
  int GetSelNext(CQFileListItem* item) { return MarkedNext(item, 5); }
  int GetSelPrev(CQFileListItem* item) { return MarkedPrev(item, 5); }
  int GetSelLast(CQFileListItem* item) { return MarkedLast(item, 5); }
  int GetVoiceRecFirst(CQFileListItem* item) { return MarkedFirst(item, 7); }
  int GetVoiceRecNext(CQFileListItem* item) { return MarkedNext(item, 7); }
  int GetVoiceRecPrev(CQFileListItem* item) { return MarkedPrev(item, 7); }
  int GetVoiceRecLast(CQFileListItem* item) { return MarkedLast(item, 7); }
  int GetConsFirst(CQFileListItem* item) { return MarkedFirst(item, 7); }
  int GetConsNext(CQFileListItem* item) { return MarkedNext(item, 7); }
  int GetConsPrev(CQFileListItem* item) { return MarkedPrev(item, 7); }
  int GetConsLast(CQFileListItem* item) { return MarkedLast(item, 7); }
  int SetProtect(CQFileListItem* item, bool on);
  bool IsProtect(CQFileListItem* item);

  // Print marks.
  int SetDPOF(CQFileListItem* item, int copies);
  int SetDPOFEdit(CQFileListItem* item, int edit);
  int SetDPOFSize(CQFileListItem* item, int size);
  int SetDPOFAll(int copies);
  int SetDPOFEditAll(int edit);
  int SetDPOFSizeAll(int size);
  int SetDPOFIndex(bool on) { return catalogue_ ? catalogue_->SetCustomInfoAll(14, on) : -6; }
  int GetDPOFNumOfCopy(CQFileListItem* item);
  int GetDPOFEdit(CQFileListItem* item);
  int GetDPOFSize(CQFileListItem* item);
  bool GetDPOFIndex(CQFileListItem* item);
  void SetDPOFDevName(char* name);
  int SaveDPOFInfo(char* path, char* creator);
  int LoadDPOFInfo(char* path);

  // Deletion and bulk operations.
  int DCF_RemoveFile(const char* path, bool sync);
  int Delete(CQFileListItem* item, bool force, bool saveDpof);
  int DeleteCons(CQFileListItem* i, bool force, bool save) { return Delete(i, force, save); }
  int DeleteVoiceRec(CQFileListItem* i, bool force, bool save) { return Delete(i, force, save); }
  int DeleteAll(bool force, ProgressCallback callback);
  int RemoveAll(bool force) { return DeleteAll(force, nullptr); }
  int DeleteSel(bool force, ProgressCallback callback) { return DeleteMarked(5, force, callback); }
  int DeleteVoiceRecAll(bool force, ProgressCallback cb) { return DeleteMarked(7, force, cb); }
  int DeleteConsAll(bool force, ProgressCallback cb) { return DeleteMarked(7, force, cb); }
  int SetProtectAll(bool on, ProgressCallback callback);
  int SetProtectSel(bool on, ProgressCallback callback);
  int SetProtectSel(ProgressCallback callback);
  int DPOFSel(ProgressCallback callback);

  // Pages.
  int InitPage(int pageSize);
  int GetPageAt(int page, CQFileListItem* items);
  int GetFirstPage(CQFileListItem* items);
  int GetNextPage(CQFileListItem* items);
  int GetPrevPage(CQFileListItem* items);
  int GetLastPage(CQFileListItem* items);
  int GetCurPageNum() const { return curPage_; }
  int GetPageTotalCount() const;

 private:
  int Walk(CQFileListItem* item, bool withInfo, char kind);
  bool HasUsableRoot() const { return !root_.empty() && root_.size() <= 97; }
  std::string PrintOrderPath() const { return Cut(root_ + "/MISC/AUTPRINT.MRK", 128); }
  std::string DateText(bool underscore) const;
  int SetMark(CQFileListItem* item, int bit, bool on, bool catalogueFirst);
  bool HasMark(CQFileListItem* item, int bit);
  int MarkedFirst(CQFileListItem* item, int bit);
  int MarkedNext(CQFileListItem* item, int bit);
  int MarkedPrev(CQFileListItem* item, int bit);
  int MarkedLast(CQFileListItem* item, int bit);
  int PrintInfo(const char* path, int byte);
  bool IsBelowRoot(const std::string& path) const;
  int RemoveWithCompanions(CQFileListItem* item, bool sync);
  int DeleteMarked(int bit, bool force, ProgressCallback callback);
  bool RemoveInTurn(CQFileListItem* item, bool force, bool sync, const std::string& lastDir,
                    int* position, int* status, int* result);
  int SelectedWalk(ProgressCallback callback, bool navigationCode, bool lastResult,
                   int (ModelList::*act)(CQFileListItem*));
  int ActProtect(CQFileListItem* item) { return SetProtect(item, true); }
  int ActUnprotect(CQFileListItem* item) { return SetProtect(item, false); }
  int ActToggleProtect(CQFileListItem* item) { return SetProtect(item, !IsProtect(item)); }
  int ActTogglePrint(CQFileListItem* item) {
    return SetDPOF(item, GetDPOFNumOfCopy(item) > 0 ? 0 : 1);
  }
  int Fill(CQFileListItem* items, CQFileListItem* scratch, bool fromFirst, bool bounded);
  void GoToPageTop();

  World& world_;
  std::unique_ptr<ModelCatalogue> catalogue_;
  int count_ = -1;
  std::string root_;
  std::string devName_;
  int type_ = 0;
  bool series_ = false;
  std::string prefix_ = "QVX_";
  int curIndex_ = -1;
  int pageSize_ = -1;
  int curPage_ = -1;
  std::string pageTop_;
  int fileMake_ = 0;
  int folderMake_ = 0;
  int color_ = 0;
  int imageType_ = 0;
  bool camera_ = true;
  int lastUpdated_ = 0;
};

}  // namespace flm_model

#endif
