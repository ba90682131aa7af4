// The file list of one storage root, behind all three interfaces.
//
// Map of the sources
//   CQFileList.cpp         construction, set-up, scan, what is known about one file
//   CQFileList_cursor.cpp  indexed access, walking, the cursor
//   CQFileList_files.cpp   single files: information, companions, keys, adding, forgetting
//   CQFileList_names.cpp   new names, last index, series mode, last updated file
//   CQFileList_marks.cpp   selection, wifi, voice memo and capture marks, protection, their walks
//   CQFileList_print.cpp   print marks and the print order file
//   CQFileList_pages.cpp   pages
//   CQFileList_delete.cpp  deletion of one, all and marked files
//   CQFileList_bulk.cpp    protection and print marks of many files
//
// What each operation does is said once, in the three interfaces; here stand the operations of the
// class's own. The order of the virtual operations is fixed.
#ifndef FILELISTMANAGEMENT_CQFILELIST_H
#define FILELISTMANAGEMENT_CQFILELIST_H

#include <cstdint>

#include "base/fixed_sizes.h"
#include "filelist/CQFileListItem.h"
#include "filelist/IQFileList.h"
#include "filelist/IQPageUtil.h"
#include "filelist/IQSelectedFileList.h"
#include "filelist/filelist_types.h"

class CQDCFList;
struct DCFItem;
namespace flm {
class FileStatus;
}

class CQFileList : public IQFileList, public IQSelectedFileList, public IQPageUtil {
 public:
  CQFileList();
  // Ends the object's life and nothing else: Destroy must have released the catalogue before.
  ~CQFileList() override;
  CQFileList(const CQFileList&) = delete;
  CQFileList& operator=(const CQFileList&) = delete;

  // --- Set-up -----------------------------------------------------------------------------------
  int Create() override;
  int Destroy() override;
  int SetType(int type) override;
  int GetType() override;
  int SetSeriesMode(bool on) override;
  bool GetSeriesMode() override;

  // --- Scan -------------------------------------------------------------------------------------
  int Listup(int stopAtFirst) override;
  int IncludeNonDCF(bool on) override;

  // --- Deletion ---------------------------------------------------------------------------------
  int Delete(CQFileListItem* item, bool force, bool saveDpof) override;
  int RemoveAll(bool force) override;
  int DeleteAll(bool force, ProgressCallback callback) override;

  // --- Indexed access and cursor ----------------------------------------------------------------
  int GetCount() override;
  int InitGetAt() override;
  int GetAt(int index, CQFileListItem* item, bool withInfo) override;
  int GetFileListIndex(CQFileListItem* item) override;
  int GetFileListIndex(char* path) override;
  int GetCurIndex() override;

  // --- Walking ----------------------------------------------------------------------------------
  int GetCurrent(CQFileListItem* item, bool withInfo) override;
  int GetFirst(CQFileListItem* item, bool withInfo) override;
  int GetNext(CQFileListItem* item, bool withInfo) override;
  int GetPrev(CQFileListItem* item, bool withInfo) override;
  int GetLast(CQFileListItem* item, bool withInfo) override;
  int IsLast(CQFileListItem* item) override;

  // --- How new files are named ------------------------------------------------------------------
  int SetFileNameMake(eFILE_NAME_MAKE make) override;
  int SetFolderNameMake(eFILE_NAME_MAKE make) override;
  int SetFileNameColor(eFileListColorMode mode) override;
  int SetImageType(eFileListImageType imageType) override;
  int GetNewFileName(char* out, int kind) override;
  int GetLatestFileName(char* out, eFileAddType kind) override;

  // --- Last index -------------------------------------------------------------------------------
  int GetLastIndex(int* dirNumber, int* fileNumber) override;
  int SetLastIndex(char* path, bool force) override;
  int SetLastIndex(int dirNumber, int fileNumber, bool force) override;

  // --- Single files -----------------------------------------------------------------------------
  int RemoveFileFromList(char* path) override;
  int RemoveFileFromList(CQFileListItem* item) override;
  int IsExist(char* path) override;
  int GetPrefix(CQFileListItem* item) override;
  int SetCur(char* path) override;
  int SetCurIndex(int index) override;

  // --- Marks ------------------------------------------------------------------------------------
  int SetSel(CQFileListItem* item, bool on) override;
  int SetSelAll(bool on) override;
  bool IsSel(CQFileListItem* item) override;
  int SetWifiFlag(CQFileListItem* item, bool on) override;
  bool IsWifiFlag(CQFileListItem* item) override;
  int SetProtect(CQFileListItem* item, bool on) override;
  bool IsProtect(CQFileListItem* item) override;
  int SetProtectAll(bool on, ProgressCallback callback) override;

  // --- Print order ------------------------------------------------------------------------------
  int SetDPOF(CQFileListItem* item, int copies) override;
  int SetDPOFAll(int copies) override;
  int SetDPOFIndex(bool on) override;
  int SetDPOFSize(CQFileListItem* item, int size) override;
  int SetDPOFSizeAll(int size) override;
  int GetDPOFNumOfCopy(CQFileListItem* item) override;
  bool GetDPOFIndex(CQFileListItem* item) override;
  int GetDPOFSize(CQFileListItem* item) override;
  int SaveDPOFInfo(char* path, char* creator) override;
  int LoadDPOFInfo(char* path) override;
  void SetDPOFDevName(char* name) override;

  // --- Properties -------------------------------------------------------------------------------
  char* GetBaseURI() override;
  int SetFilePrefix(char* prefix) override;
  int GetInfo(char* path, CQFileListItem* item) override;
  int GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize) override;
  int SetObject(CQFileListItem* item, eFileAddType kind, bool on) override;
  int GetFileCreateTime(CQFileListItem* item) override;
  int UpdateLastIndex(bool noSeries) override;
  int SortItem() override;
  int GetAvailNumOfPhoto() override;
  CQDCFList* GetDCFList() override;

  // --- Copies -----------------------------------------------------------------------------------
  // As GetNewFileName for a copied picture: always "JPG", without the stored series value, and the
  // file is not counted until the next scan. -1 without a catalogue.
  virtual int GetCopyNewFileName(char* out);

  // --- Selected files in bulk -------------------------------------------------------------------
  int SetProtectSel(bool on, ProgressCallback callback) override;
  int SetProtectSel(ProgressCallback callback) override;

  // --- Print edit value -------------------------------------------------------------------------
  // 0 to 99; it shares its byte with the multi-picture companion's letter. SetDPOFEdit: -1 without
  // a catalogue, -2 null item, -5 empty path, -3 below 0, -4 above 99. SetDPOFEditAll: -1, -2 below
  // 0. GetDPOFEdit: -1, -2 null item, -3 empty path, -100 the list does not hold the directory.
  virtual int SetDPOFEdit(CQFileListItem* item, int edit);
  virtual int SetDPOFEditAll(int edit);
  virtual int GetDPOFEdit(CQFileListItem* item);
  int DPOFSel(ProgressCallback callback) override;

  // --- Walking the selected files ---------------------------------------------------------------
  int GetSelFirst(CQFileListItem* item) override;
  int GetSelNext(CQFileListItem* item) override;
  int GetSelPrev(CQFileListItem* item) override;
  int GetSelLast(CQFileListItem* item) override;
  int GetSelCount() override;
  int DeleteSel(bool force, ProgressCallback callback) override;

  // --- Pages ------------------------------------------------------------------------------------
  int InitPage(int pageSize) override;
  int GetPageAt(int page, CQFileListItem* items) override;
  int GetFirstPage(CQFileListItem* items) override;
  int GetNextPage(CQFileListItem* items) override;
  int GetPrevPage(CQFileListItem* items) override;
  int GetLastPage(CQFileListItem* items) override;
  int GetCurPageNum() override;
  int GetPageTotalCount() override;

  // --- Continuous captures ----------------------------------------------------------------------
  // The mark of a continuous capture and that of a voice memo are one and the same: both families
  // read, set, count and walk it. Setters: -1 without a catalogue, -2 null item, -3 empty path. The
  // walks and deletions are those of the selected files, with this mark.
  virtual int SetConsCap(CQFileListItem* item, bool on);
  virtual int SetConsCapAll(bool on);
  virtual bool IsConsCap(CQFileListItem* item);
  virtual int GetConsFirst(CQFileListItem* item);
  virtual int GetConsNext(CQFileListItem* item);
  virtual int GetConsPrev(CQFileListItem* item);
  virtual int GetConsLast(CQFileListItem* item);
  virtual int GetConsCount();
  virtual int DeleteCons(CQFileListItem* item, bool force, bool saveDpof);
  virtual int DeleteConsAll(bool force, ProgressCallback callback);

  // --- Voice memos ------------------------------------------------------------------------------
  virtual int SetVoiceRec(CQFileListItem* item, bool on);
  virtual int SetVoiceRecAll(bool on);
  virtual bool IsVoiceRec(CQFileListItem* item);
  virtual int GetVoiceRecFirst(CQFileListItem* item);
  virtual int GetVoiceRecNext(CQFileListItem* item);
  virtual int GetVoiceRecPrev(CQFileListItem* item);
  virtual int GetVoiceRecLast(CQFileListItem* item);
  virtual int GetVoiceRecCount();
  virtual int DeleteVoiceRec(CQFileListItem* item, bool force, bool saveDpof);
  virtual int DeleteVoiceRecAll(bool force, ProgressCallback callback);

  // --- Beyond the virtual table -----------------------------------------------------------------
  // Sets the storage root: at most 127 characters, a longer or null one is ignored (-1). The next
  // Listup refuses one that the catalogue cannot keep.
  int SetBaseURI(const char* uri);

  // Releases the items of the catalogue; the count becomes 0. Returns 0.
  int FreeList();
  int DCF_GetCount();                              // the catalogue's count; -1 without one
  int DCF_GetAt(int index, CQFileListItem* item);  // both paths, the cursor stays; 0 or -1
  int GetCur(CQFileListItem* item);                // both paths of the catalogue's cursor; 0, -1
  int GetFileInfo(CQFileListItem* item);           // marks and file status of filePath; 0 or -1
  int GetPrefixEnum(const char* path);             // see GetPrefix
  int GetIndexKey(const char* path);               // directory number * 10000 + file number
  // Enters a file into the catalogue and counts it, even when the catalogue refuses it.
  int AddFile(char* path);
  // Removes a file or an empty folder of this card and forgets it. 0; -1 without a catalogue or for
  // a path of another card; -2 not held; else the failure, when the file is still there.
  int DCF_RemoveFile(char* path, bool sync);

  // The file that was updated last, for returning to its page. SetLastUpdated: page and position
  // count from 1. GetLastUpdated: 0; -1 null page, -2 null position, -3 no page size.
  int SetLastUpdated(int page, int position);
  int SetLastUpdated(int index);
  int GetLastUpdated(int* page, int* position);

 private:
  enum class WalkStep { kFirst, kNext, kPrev, kLast };
  struct MarkKind;
  struct MarkedWalk;
  struct BulkWalk;

  static const MarkKind kSelected;
  static const MarkKind kWifi;
  static const MarkKind kVoiceRecCons;

  // Cursor.
  int FinishWalk(CQFileListItem* item, int result, WalkStep step, flm::FileStatus* info);
  int StepFirst(CQFileListItem* item, flm::FileStatus& status, bool withInfo);
  int StepNext(CQFileListItem* item, flm::FileStatus& status, bool withInfo);
  int FillInfo(CQFileListItem* item, flm::FileStatus& status);
  void TakeMarks(CQFileListItem* item);
  int TakeAt(int result, CQFileListItem* item, bool withInfo);
  bool IsDerived() const;
  bool CanWalk(const CQFileListItem* item) const;

  // Names.
  bool HasUsableRoot() const;
  void DefaultPrintOrder(char* out) const;
  const char* DatePrefix(bool underscore);
  const char* FolderSuffix();
  const char* PrefixFor(bool movie3d);

  // Marks: one worker for each shape of operation.
  int SetMark(const MarkKind& kind, CQFileListItem* item, bool on);
  bool HasMark(const MarkKind& kind, CQFileListItem* item);
  int SetMarkAll(const MarkKind& kind, bool on);
  int CountMark(const MarkKind& kind);
  int FirstMarked(const MarkKind& kind, CQFileListItem* item);
  int NextMarked(const MarkKind& kind, CQFileListItem* item);
  int PrevMarked(const MarkKind& kind, CQFileListItem* item);
  int LastMarked(const MarkKind& kind, CQFileListItem* item);
  int ReadPrintInfo(CQFileListItem* item, int byte);

  // Deletion and bulk operations.
  bool IsOnThisCard(const char* path) const;
  int RemoveWithCompanions(CQFileListItem* item, bool sync);
  int RemoveInTurn(CQFileListItem* item, flm::FileStatus& status, bool force, bool sync,
                   int* passedOver);
  bool LeaveFolder(CQFileListItem* item, flm::FileStatus& status, int position, bool sync);
  bool HoldsFile(const char* folder, const char* filePath) const;
  void CleanUpDirectory(const char* filePath, const char* newestDir);
  int SaveAfterDeletion(int done);
  int DeleteMarked(const MarkedWalk& walk, bool force, ProgressCallback callback);
  int WalkBackwards(const BulkWalk& walk, ProgressCallback callback);

  // Pages.
  enum class PageStart { kCursor, kFirstFile };
  int FillPage(CQFileListItem* items, PageStart start, bool bounded);
  void TakeOnPage(CQFileListItem* element, const CQFileListItem& found, flm::FileStatus& status);
  int StepOnPage(CQFileListItem* found, flm::FileStatus& status, WalkStep step);
  bool PassPage(WalkStep step);
  bool IsBeyondLast(int page, int offset) const;
  int IndexOfPage(int page) const;
  int AnchorOnPageTop();
  int ShowPageFrom(int page, CQFileListItem* items);

  int32_t count_;                 // files as last known, or the failure of the last scan
  char baseURI_[flm::kPathSize];  // the storage root
  char defaultRoot_[32];          // these three keep their places for callers that were
  char defaultFolderWord_[32];    // built against the layout; nothing reads them
  char defaultPrefixText_[32];
  char devName_[32];                  // device name for the print order
  int32_t type_;                      // list type, the catalogue's mode
  bool seriesMode_;                   // series numbering
  CQDCFList* catalogue_;              // owned; made by the first Listup
  char filePrefix_[9];                // prefix of new files
  char datePrefix_[5];                // prefix made from the date
  char dateFolderSuffix_[6];          // folder suffix made from the date
  char s3dPrefix_[5];                 // prefix of 3D movies
  int32_t curIndex_;                  // index of the cursor's file, -1 for none
  int32_t pageSize_;                  // files per page, -1 until InitPage
  int32_t curPage_;                   // current page, -1 for none
  char pageTopPath_[flm::kPathSize];  // first file of the current page
  eFILE_NAME_MAKE fileNameMake_;      // how file names are made
  eFILE_NAME_MAKE folderNameMake_;    // how folder names are made
  eFileListColorMode colorMode_;      // chooses the prefix
  eFileListImageType imageType_;      // ordinary or 3D
  bool includeNonDCF_;                // whether the scan takes "CAMERA" folders
  int32_t lastUpdated_;               // index of the file updated last
};

#endif
