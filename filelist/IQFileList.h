// The file list of one storage root.
#ifndef FILELISTMANAGEMENT_IQFILELIST_H
#define FILELISTMANAGEMENT_IQFILELIST_H

#include "base/flm_export.h"
#include "filelist/CQFileListItem.h"
#include "filelist/filelist_types.h"

class CQDCFList;

// Obtained from CBIFileListManager::GetFileList, which also owns it. The order of the operations is
// part of the binary interface.
//
// Shared rules
//   Results   0, a count or an index for success; a negative number for failure. Unless said
//             otherwise an operation that needs the catalogue returns -1 before the first Listup,
//             a null item or text is refused with a negative number, and a refused call changes
//             nothing. An item whose path fills its field without an end names no file.
//   Index     position of a file in list order, from 0: directories ascending by number, files
//             ascending by number within a directory (DCF, CIPA DC-009).
//   Cursor    the current file. Walks, indexed access, pages, deletion and saving the print order
//             move it.
//   withInfo  true: fill the marks, the protection and the time of the item too, which reads the
//             file's status from the card; false: only filePath, objectPath and, for GetFirst and
//             GetNext, modTime.
//   Threads   none: a list is used by one thread at a time.
class FLM_API IQFileList {
 public:
  virtual ~IQFileList();

  // --- Set-up -----------------------------------------------------------------------------------
  // Does nothing; the catalogue is made by the first Listup. Returns 0.
  virtual int Create() = 0;

  // Releases the catalogue. Must be called before the list is destroyed. Returns 0.
  virtual int Destroy() = 0;

  // The list type, handed to the catalogue as its mode: 0 and 4 list the tree "DCIM", every other
  // type lists "VIDEO". 4 is the type for real folder names; 0 and the movie types spell every
  // folder with the suffix "PHOTO" or "VIDEO".
  virtual int SetType(int type) = 0;
  virtual int GetType() = 0;

  // Series numbering: on, numbering also continues from the number kept in the preference store.
  // -1 before the first Listup (the setting is then lost); else the file index of the newest file
  // after the change (see GetLastIndex), directory number * 100000 + file number.
  virtual int SetSeriesMode(bool on) = 0;
  virtual bool GetSeriesMode() = 0;

  // --- Scan -------------------------------------------------------------------------------------
  // Scans the card and builds the list; makes the tree folder when it is missing. stopAtFirst 1
  // lists only the newest directory that has files, 0 everything. Loads the print order of the
  // card. Returns the number of files; -1 when the root is empty or longer than 97 characters or
  // memory is short, -2 when the tree cannot be opened.
  virtual int Listup(int stopAtFirst) = 0;

  // Whether the next scan takes the "CAMERA" folder, whose files need not follow DCF. On at first.
  virtual int IncludeNonDCF(bool on) = 0;

  // --- Deletion ---------------------------------------------------------------------------------
  // Deletes the file, its companions (when the item's objectPath is filled) and, when it becomes
  // empty, its directory; the newest directory is kept unless its number is 999. `force` deletes a
  // protected file too; `saveDpof` rewrites the print order. The file index of the newest file that
  // is left when deleted (a file that was gone already counts as deleted); 0 when the file could
  // not be removed, or the list does not hold it or has not been scanned; -2 null item; -100
  // protected; -1000 the print order could not be saved (the file is deleted).
  virtual int Delete(CQFileListItem* item, bool force, bool saveDpof) = 0;

  // Deletes the files, exactly as DeleteAll(force, no callback).
  virtual int RemoveAll(bool force) = 0;

  // Deletes every file with its companions, first to last, and saves the print order at the end.
  // Without `force` protected files are passed over. Callback: (files handled before, files at the
  // start, 0 or -100 for a file passed over). The file index of the newest file at the end; 10000
  // cancelled; -100 a file could not be unprotected; -200 a file could not be removed; -1000 the
  // print order could not be saved.
  virtual int DeleteAll(bool force, ProgressCallback callback) = 0;

  // --- Indexed access and cursor ----------------------------------------------------------------
  // Number of files; -1 before the first scan, the scan's negative code after a failed one.
  virtual int GetCount() = 0;

  // Does nothing. Returns 0.
  virtual int InitGetAt() = 0;

  // The file at `index`; moves the cursor to it. 0, or -1; the cursor's index is then -1, while
  // GetCurrent still gives the file that was current before.
  virtual int GetAt(int index, CQFileListItem* item, bool withInfo) = 0;

  // Index of a file; -1 when the list does not hold it, -6 without a catalogue. For a file of the
  // "CAMERA" folder it counts from the file's running number.
  virtual int GetFileListIndex(CQFileListItem* item) = 0;
  virtual int GetFileListIndex(char* path) = 0;

  // Index of the cursor's file, -1 for none.
  virtual int GetCurIndex() = 0;

  // --- Walking ----------------------------------------------------------------------------------
  // Each fills `item` and returns 0, or returns a negative number when there is no such file, which
  // also leaves no current file. There is no wrap-around: after GetNext failed at the end, the next
  // GetNext gives the first file. Companion paths are written only for files that have companions,
  // and by GetNext and GetPrev only on entering a directory; objectPath stays as it was otherwise.
  virtual int GetCurrent(CQFileListItem* item, bool withInfo) = 0;  // does not move the cursor
  virtual int GetFirst(CQFileListItem* item, bool withInfo) = 0;
  virtual int GetNext(CQFileListItem* item,
                      bool withInfo) = 0;  // without a current file: the first
  virtual int GetPrev(CQFileListItem* item, bool withInfo) = 0;  // without a current file: -2
  virtual int GetLast(CQFileListItem* item, bool withInfo) = 0;  // withInfo empties objectPath

  // 1 when the file is the last one, else 0.
  virtual int IsLast(CQFileListItem* item) = 0;

  // --- How new files are named ------------------------------------------------------------------
  virtual int SetFileNameMake(eFILE_NAME_MAKE make) = 0;
  virtual int SetFolderNameMake(eFILE_NAME_MAKE make) = 0;
  virtual int SetFileNameColor(eFileListColorMode mode) = 0;  // also sets the prefix
  virtual int SetImageType(eFileListImageType imageType) = 0;

  // Reserves the next name: chooses folder and number, makes the folder, enters the file into the
  // list, puts the catalogue's cursor on it and writes its full path into `out`, which has room for
  // 396 bytes. Kinds: 0 "JPG", 1 "SRW", 2 "MP4", 3 "3GP", 4 "MP3", 5 "WAV", 6 "MPO". 0; -1 without
  // a catalogue or with 32000 files held; -9999 when no number is left.
  virtual int GetNewFileName(char* out, int kind) = 0;

  // The path under which a companion of the newest file is to be written; marks the companion as
  // present. No terminator is written: pass a zero-filled buffer of 128 bytes. 0; -1 null or no
  // such file; -200 unknown kind.
  virtual int GetLatestFileName(char* out, eFileAddType kind) = 0;

  // --- Last index -------------------------------------------------------------------------------
  // Directory number and file number of the newest file, as numbering goes on from it. Returns 0;
  // without a catalogue the outputs stay as they are.
  virtual int GetLastIndex(int* dirNumber, int* fileNumber) = 0;

  // Sets the newest number, from a path or from the numbers; without `force` it is only raised. The
  // number is stored in the preference store. 0 (also without a catalogue); -1 a directory number
  // outside 100 to 999, -2 null path, -3 empty path. Only the directory number is judged: a path
  // that ends before its file number counts as file number -1.
  virtual int SetLastIndex(char* path, bool force) = 0;
  virtual int SetLastIndex(int dirNumber, int fileNumber, bool force) = 0;

  // --- Single files -----------------------------------------------------------------------------
  // Takes a file out of the list; the file on the card is not touched. 0; -6 without a catalogue;
  // -1 or -2 when the list does not hold the folder or the file. The item's path is emptied.
  virtual int RemoveFileFromList(char* path) = 0;
  virtual int RemoveFileFromList(CQFileListItem* item) = 0;

  // 1 when the list holds the file, else 0.
  virtual int IsExist(char* path) = 0;

  // Code of the first of these found anywhere in the path, tested in this order: "CAM_" 0,
  // "HDV_" 1, "HDE_" 2, "HDA_" 3, "SDV_" 4, "SDE_" 5, "SDA_" 6; -1 when there is none.
  virtual int GetPrefix(CQFileListItem* item) = 0;

  // Moves the cursor to a file, or with a null path to none. 0; -100 or -101 the path has no
  // directory or file number; -200 or -300 directory or file not found.
  virtual int SetCur(char* path) = 0;
  virtual int SetCurIndex(int index) = 0;

  // --- Marks ------------------------------------------------------------------------------------
  // Setters: 0; -1 the list does not hold the file; -2 null item; -3 empty path; -6 without a
  // catalogue. Tests answer false on any bad argument.
  virtual int SetSel(CQFileListItem* item, bool on) = 0;
  virtual int SetSelAll(bool on) = 0;
  virtual bool IsSel(CQFileListItem* item) = 0;
  virtual int SetWifiFlag(CQFileListItem* item, bool on) = 0;
  virtual bool IsWifiFlag(CQFileListItem* item) = 0;

  // Protection is the file's owner-write permission on the card. Companions named by the item's
  // objectPath follow, and the result is that of the last file changed: 0, or -1 when it could not
  // be; -100 null item; -101 empty path. Works without a catalogue.
  virtual int SetProtect(CQFileListItem* item, bool on) = 0;
  virtual bool IsProtect(CQFileListItem* item) = 0;

  // Protects or unprotects every file, from the last to the first. Callback: (index of the file,
  // files, 0). 0; 10000 cancelled; -20000 minus the result of the step that reached a file which
  // could not be changed.
  virtual int SetProtectAll(bool on, ProgressCallback callback) = 0;

  // --- Print order (DPOF 1.10) ------------------------------------------------------------------
  // Marks in memory; only SaveDPOFInfo writes them. Setters return what the mark setters of the
  // catalogue return: 0; -1 the list does not hold the file; -200 or -202 for a file that is no
  // JPG.

  // Copies 0 to 99. -2 null item, -5 empty path, -3 below 0, -4 above 99, -6 without a catalogue.
  virtual int SetDPOF(CQFileListItem* item, int copies) = 0;

  // Copies of every JPG; stored in 8 bits without an upper bound. -2 below 0, -6 no catalogue.
  virtual int SetDPOFAll(int copies) = 0;

  // Puts every JPG into the index print or takes every one out. -6 without a catalogue.
  virtual int SetDPOFIndex(bool on) = 0;

  // Print size code, stored in 8 bits: 3, 4, 5 and 8 have a text in the print order. -2 below 0
  // (the first check), -3 null item, -4 empty path, -6 without a catalogue.
  virtual int SetDPOFSize(CQFileListItem* item, int size) = 0;
  virtual int SetDPOFSizeAll(int size) = 0;  // of every JPG; -2 below 0, -6 without a catalogue

  // -2 null item, -3 empty path, -4 path without an end, -6 without a catalogue, -100 the list does
  // not hold the directory.
  virtual int GetDPOFNumOfCopy(CQFileListItem* item) = 0;
  virtual bool GetDPOFIndex(CQFileListItem* item) = 0;
  virtual int GetDPOFSize(CQFileListItem* item) = 0;

  // Writes the print order to `path` (null: "MISC/AUTPRINT.MRK" of the card), with `creator` as the
  // device name (null: none). Moves the cursor. 0; -1 the file cannot be made; -2 no memory.
  virtual int SaveDPOFInfo(char* path, char* creator) = 0;

  // Reads a print order (null: that of the card) and sets the marks that it names; clears none. 0;
  // -1 missing, unusable, or the list's type is neither 3 nor 4; -2 no memory; -3 path too long.
  virtual int LoadDPOFInfo(char* path) = 0;

  // Device name that the deletions write into the print order, at most 30 characters; a null or
  // longer name is ignored.
  virtual void SetDPOFDevName(char* name) = 0;

  // --- Properties -------------------------------------------------------------------------------
  // The storage root; the text belongs to the list.
  virtual char* GetBaseURI() = 0;

  // Prefix of new files, at most 8 characters; DCF names have 4. 0; -1 null; -2 too long.
  virtual int SetFilePrefix(char* prefix) = 0;

  // Fills an item from a path: everything that withInfo gives. The companions' path is that of the
  // first file of the number: where two files share one, take the item from GetAt. 0; -2 null path,
  // -3 null item, -6 without a catalogue, -1 the list does not hold the file.
  virtual int GetInfo(char* path, CQFileListItem* item) = 0;

  // The path of a companion of the item, by the letters at the end of its objectPath (S, W, M or a
  // blank each). 1, 5 or 6, the kind; -1, -5 or -6 when the file has no such companion; 0 for
  // another kind; -1 when objectPath is empty. All outSize bytes of `out` are cleared first.
  virtual int GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize) = 0;

  // Records that a file has a companion or no longer has it. 0; -1 null item or no such file; -6
  // without a catalogue; -200 unknown kind.
  virtual int SetObject(CQFileListItem* item, eFileAddType kind, bool on) = 0;

  // Fills the time fields of an item from its file. 0, or negative when it cannot be read.
  virtual int GetFileCreateTime(CQFileListItem* item) = 0;

  // Finds the newest number again: from the files, and unless noSeries from the stored series value
  // too. Returns the file index; -6 without a catalogue.
  virtual int UpdateLastIndex(bool noSeries) = 0;

  // Sorts the files that were added since the scan into their places. 0.
  virtual int SortItem() = 0;

  // How many more files may be numbered; at most 1000 while a directory number is left, and so
  // also before the first scan.
  virtual int GetAvailNumOfPhoto() = 0;

  // The list's catalogue, null before the first Listup; it belongs to the list.
  virtual CQDCFList* GetDCFList() = 0;
};

#endif
