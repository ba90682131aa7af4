// The catalogue of one storage root: its directories, their files, two cursors and the numbering.
//
// Map of the sources
//   CQDCFList.cpp            construction, properties, the directory table
//   CQDCFList_scan.cpp       reading the tree: folder names, order, Listup
//   CQDCFList_walk.cpp       the walks over all files and the navigation cursor
//   CQDCFList_lookup.cpp     from paths to files and positions, and one file's information
//   CQDCFList_path.cpp       the paths of files and of their companions
//   CQDCFList_marks.cpp      item bits, info bytes, walks over marked files
//   CQDCFList_info_walk.cpp  the walk of a save, over the files whose info byte is set
//   CQDCFList_numbering.cpp  the newest number, the series value, new names
//   CQDCFList_change.cpp     folders made on the card, files entered and removed
#ifndef FILELISTMANAGEMENT_DCF_CQDCFLIST_H
#define FILELISTMANAGEMENT_DCF_CQDCFLIST_H

#include <cstdint>
#include <initializer_list>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFDir.h"
#include "dcf/CQDCFMemManager.h"
#include "dcf/DCFItem.h"
#include "dcf/file_marks.h"
#include "dcf/folder_index.h"

class CQFileListItem;
class PCQDCFFSIO;
namespace flm {
class BoundedText;
class FileStatus;
}  // namespace flm

// Shared rules
//   Slot       a place in the table of 999 directories; free while its number is negative. After a
//              scan the slots stand in ascending order of their numbers.
//   File index directory number * 100000 + file number; 0 for none, 99909999 when the card is full.
//   Mode       0 and 4 list the tree "DCIM", every other mode lists "VIDEO"; see dcf_path.h.
//   Paths      are written cut and terminated to the size given; a size of 0 or less writes
//              nothing. A null or odd path is found nowhere: the result for "not found".
//   Listed     a scan that stops early leaves older directories unread. The forward walk and
//   GetPrev
//              read such a directory when they reach it, and forget the files of all directories of
//              other numbers then; everything else looks only at what has been read.
//   Cursors    the navigation cursor is unset while its directory number is negative. When the item
//              that a cursor stands on is released, that cursor becomes unset.
class CQDCFList {
 public:
  CQDCFList();  // also becomes the process-wide catalogue of the static GetFullPath
  virtual ~CQDCFList();
  CQDCFList(const CQDCFList&) = delete;
  CQDCFList& operator=(const CQDCFList&) = delete;

  // --- Construction and properties --------------------------------------------------------------
  // Makes the directory table on the first call; every call resets the cursor, the counts, the root
  // and the series flag, and keeps the table's items.
  void Create();
  void Destroy();  // releases the table and the pool
  void FreeMem();  // releases the items of every directory; numbers stay
  bool HasTable() const { return dirTable_ != nullptr; }
  int CreateMemManager();
  // At most 97 characters: 0; -1 for a longer root or null, and the earlier one stays.
  int SetBaseURI(const char* uri);
  const char* GetBaseURI() const { return baseURI_; }
  int SetMode(int mode);
  int GetMode() const { return mode_; }
  int SetSeriesMode(bool on);
  bool GetSeriesMode() const { return seriesMode_; }
  int GetCount() const { return itemCount_; }  // items held in memory

  // --- Directory table --------------------------------------------------------------------------
  int AddDir(int dirNumber);  // the slot used; -1 when the table is full
  void FreeAllDir();
  // Releases the items of every directory of another number than `keep`. The items of `keep`.
  int FreeAllDirExcept(CQDCFDir* keep);
  void MakeUpperCase(char* text);
  // Checks a folder name after upper-casing it in place: 0 accepted ("CAMERA...", or 8 characters
  // beginning with three digits); -1 null, -2 another length, -100 to -102 no digit.
  int CheckDirNameSyntax(char* name);
  int GetDnum(const char* name);  // 99 for "CAMERA...", else the first three characters; null: -1
  // 1 when a stands behind b: by number, and for equal numbers the one ending in "PHOTO" last and
  // the others by name; -1 before; 0 equal or null.
  int CompareDirName(const CQDCFDir* a, const CQDCFDir* b);
  int SortDirList();
  // The scan. stopAtFirst 1 stops after the newest directory that has files; withCamera takes the
  // "CAMERA" folders too. 0; -1 no usable root or no memory, -2 the tree cannot be opened.
  int Listup(int stopAtFirst, bool withCamera);
  int SortItem();

  // --- Walks ------------------------------------------------------------------------------------
  // Each writes the file's path to out and, where said, the companions' path to objOut.
  int GetFirst(char* out, int outSize, char* objOut, int objSize, bool setCursor,
               unsigned int* fileTime);  // 0; -1 no files
  // Without a current file GetFirst, and then objOut is taken to have outSize bytes and no time is
  // given. objOut is written only on entering a directory. 0; -1 at the end.
  int GetNext(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime);
  // The two with the status of the file whose path they write: the time is taken from it, so that
  // a caller who asks it for more reads the card once.
  int StepFirst(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime,
                flm::FileStatus* status);
  int StepNext(char* out, int outSize, char* objOut, int objSize, unsigned int* fileTime,
               flm::FileStatus* status);
  // A step that nobody looks at, within a directory: the cursor moves as GetNext or GetPrev move
  // it. False, and it stays, when that takes more: another directory, or a time to be read.
  bool PassNext();
  bool PassPrev();
  // 0; -1 at the start, -2 without a current file. objOut as GetNext.
  int GetPrev(char* out, int outSize, char* objOut, int objSize);
  int GetLast(char* out, int outSize, char* objOut, int objSize);  // 0; -1 no files
  int GetLastPath(char* out, int outSize) const;  // the path of GetLast; the cursor stays
  // The path of the first file held in the directory that a path lies in. 0; -1 none.
  int GetFirstBeside(const char* path, char* out, int outSize);
  int GetCur(char* out, int outSize, char* objOut, int objSize);  // 0; -1 no current file
  // The file at a position from 0; the cursor stays. 0 or -1.
  int GetAt(int position, char* out, int outSize, char* objOut, int objSize);
  DCFItem* GetFirstDCFItem();  // the walk of GetFirst and GetNext, giving the records
  DCFItem* GetNextDCFItem();
  int InitCursor();
  int SetCurItem(int dirNumber, int fileNumber, int dirIndex, DCFItem* item);
  int SetBitCurFile(int dirNumber, int fileNumber, int dirIndex, DCFItem* item);
  // Moves the cursor to a file, a null path to none. 0; -100, -101 the path has no directory or
  // file number; -200, -300 directory or file not found.
  int SetCurFile(const char* path);
  int IsLast(const char* path);  // 1 when the path has the numbers of the last file

  // --- Marks ------------------------------------------------------------------------------------
  // The walks over files whose item bit is set. They share one place and read no directories.
  // GetBitFirst and GetBitLast also end the navigation. 0; -1 there is none.
  int GetBitFirst(char* out, int outSize, int bit);
  int GetBitNext(char* out, int outSize, int bit);
  // objOut (99 bytes, or null) names the directory that was left.
  int GetBitPrev(char* out, int outSize, int bit, char* objOut);
  int GetBitLast(char* out, int outSize, int bit);
  int SetCustomBit(const char* path, int bit, bool on);  // 0; -1 not found
  bool GetCustomBit(const char* path, int bit);
  int SetCustomBitAll(int bit, bool on);
  int GetCustomBitCount(int bit);
  // 0; -1 not found; -200, -201, -202 for the bytes 2, 14, 15 of a file that is no JPG.
  int SetCustomInfo(const char* path, int byte, unsigned char value);
  // The byte; 255 when the directory is not held, 0 when only the file is not.
  int GetCustomInfo(const char* path, int byte);
  int SetCustomInfoAll(int byte, unsigned char value);  // bytes 2, 14, 15 only of JPG files
  // What GetCustomBit and GetCustomInfo answer.
  flm::FileMarks GetMarks(const char* path);
  // GetListIndex, GetMarks (with `marks`) and SetCurFile of one path in this order. The position.
  int Visit(const char* path, flm::FileMarks* marks);
  // The walk of GetFirst and GetNext over fileCount files, giving only those whose GetCustomInfo is
  // not 0. Files in between are passed over without being looked at one by one; the cursor and the
  // directories read are those of the whole walk.
  struct InfoWalk {
    int byte;
    int left;  // files still to come
    bool started;
    int judgedSlot;  // the slot of which `plain` speaks
    bool plain;      // each of its files answers with its own byte
  };
  static InfoWalk WalkInfo(int byte, int fileCount) { return {byte, fileCount, false, -1, false}; }
  // The next such file: its byte, and its path in out. 0 at the end.
  int GetNextWithInfo(InfoWalk& walk, char* out, int outSize);
  // Takes the rest of the walk without looking at any file.
  void EndWalk(InfoWalk& walk);

  // --- Lookup and conversion --------------------------------------------------------------------
  // Directory and file number of a path, each -1 when the path is too short for it.
  void GetNum(const char* path, int* dirNumber, short* fileNumber);
  // Writes the item's directory number into the short; the int is not written.
  void GetNum(const DCFItem* item, int* ignored, short* dirNumber);
  // The first slot whose name, or its first six characters, stand in the path; the number is not
  // looked at. -1 for a path below 24 characters.
  int GetDidx(int dirNumber, const char* path);
  int GetDidx(int dirNumber, int fileNumber);  // the first slot of that number with that file
  int GetDnum(int slotIndex);                  // slotIndex + 100
  int GetFnum(int slotIndex, int n);           // n + ((slotIndex + 100) % 100) * 100
  int GetFidx(int n);                          // n for 1 to 99, else n % 100
  int GetIndexToNum(int key, int* dirNumber, int* fileNumber);
  int GetNumToIndex(int dirNumber, int fileNumber);
  int GetURIToKey(const char* path);
  // Reads a folder name from the text already in out and writes a path there, with the slot in the
  // place of the file number. 0; -4 no such slot (or no table), -2 nothing read, -3 free slot.
  int GetKeyToURI(int key, char* out, int outSize);
  int GetListIndex(const char* path);   // position from 0; -1 not found
  DCFItem* FindItem(const char* path);  // by directory number, file number and free characters
  int IsExist(const char* path);        // file number, or -1
  int IsProtect(const char* path);
  int GetFileType(const DCFItem* item);  // 203 JPG, 201 WAV, 202 SRW, 204 MPO, -2 other, -1 null
  // Fills a record. 0; -1 not found, or the path is longer than 127 characters (all but filePath is
  // filled then).
  int GetInfo(const char* path, CQFileListItem* info);
  int GetDcfNum(const DCFItem* item);  // file number + 100000 * directory number

  // --- Paths ------------------------------------------------------------------------------------
  // The path of a file in the process-wide catalogue; nothing is written without one. dirIndex -1:
  // the slot is looked up in mode 4.
  static void GetFullPath(char* out, int outSize, int dirNumber, int fileNumber, int dirIndex,
                          const DCFItem* item);
  // The companions' path: the extension is the three companion letters, a blank for each absent
  // one. Nothing is written when the file has none.
  void GetObjectFullPath(char* out, int outSize, int dirNumber, int fileNumber, int dirIndex,
                         const DCFItem* item);

  // --- Numbering --------------------------------------------------------------------------------
  int GetLastIndex();  // file index of the newest file; resets the stored index
  int UpdateLastIndex(bool noSeries);
  int UpdateLastIndexWithSeriesValue();
  // 0; -1 a directory number outside 100 to 999, -2 null, -3 empty path.
  int SetLastIndex(const char* path, bool force);
  int GetStoredLastIndex() const { return lastIndex_; }
  int ReadSeriesValue(int* out);      // reads only in series mode; a value beyond 32 bits saturates
  int BackupSeriesValue(int* value);  // 0; -1 null. Above 99909998: 10000000 in both places
  // Names and enters the next file. 0; -1 null text, unusable root or 32000 files held; -9999 no
  // number or no slot is left.
  int GetNewFileName(const char* prefix, const char* ext, char* out, int outSize, bool noSeries,
                     const char* dirSuffix);
  int GetNewFileIndex(const char* prefix, const char* ext, char* out, int outSize,
                      const char* dirSuffix);
  int GetNewFileIndex_SetInfo(int index, const char* prefix, const char* ext, char* out,
                              int outSize, const char* dirSuffix);
  int GetNewFileIndex_FromLastIndex();

  // --- Changes ----------------------------------------------------------------------------------
  int CreateBaseDirectory();
  int CreateNewDirectory(int dirNumber, const char* dirSuffix);  // 0 or -1
  int MakeDirectory(const char* path);                           // 0 or -1
  // Enters a file that exists. 0; -3 no '/', -1 too long, unknown folder or no memory, -2 name too
  // long. A path that ends before its file number enters a record of number -1, which counts as
  // none.
  int AddFile(const char* path);
  // Forgets a file. 0; -1 unknown folder, -2 unknown file.
  int RemoveFile(const char* path);
  // Appends an item with 4 bytes of data to the slot dirNumber - 100. 0; -1.
  int AddItem(int dirNumber, const unsigned char* data);
  // Records a companion: 202 raw, 201 voice memo, 204 multi-picture. 0; -1 not found.
  int SetObject(const char* path, int type, bool on);

 private:
  // A file and the slot that holds it.
  struct Place {
    int slot;
    DCFItem* item;
  };
  struct PathOut {
    char* text;
    int size;
  };

  // What makes up the name of a new file.
  struct NewName {
    int dirNumber;
    int fileNumber;
    const char* prefix;
    const char* ext;
    const char* dirSuffix;
  };

  bool IsSlot(int slot) const {
    return dirTable_ != nullptr && slot >= 0 && slot < flm::kMaxFolders;
  }
  bool IsRead(int slot) const { return dirTable_[slot].GetDnum() > 0; }
  // The directory number of a slot; a caller may have put any slot into a cursor.
  int NumberOf(int slot) const { return IsSlot(slot) ? dirTable_[slot].GetDnum() : -1; }
  int UsedSlots() const;
  bool HasRoot() const { return baseURI_[0] != '\0'; }

  // Directories by name, number and position, taken from the table when they are asked for.
  const flm::FolderIndex& Folders() const;
  void TableChanged();
  void CountSlot(int slot) { folders_.SetCount(slot, dirTable_[slot].GetCount()); }
  // The first slot of a number, and the next behind one; -1 at the end.
  int FirstSlotOf(int dirNumber) const;
  int NextSlotOf(int dirNumber, int slot) const;
  int SlotFrom(int dirNumber, int slot) const;
  Place PlaceAt(int position) const;
  static int ClampSlot(int slot);
  int SlotBefore(int slot) const;
  bool HasList(int slot) const { return IsSlot(slot) && dirTable_[slot].IsEmpty() == 0; }

  // One step over every item of every used directory; item null at the end.
  Place BeforeFirst() const { return {-1, nullptr}; }
  Place BehindLast() const { return {flm::kMaxFolders, nullptr}; }
  Place Forward(Place from) const;
  Place Backward(Place from) const;
  // The same with reading directories on the way, which may release other items.
  Place ForwardReading(Place from);
  Place BackwardReading(Place from);
  CQDCFDir* ReachSlot(int slot);

  // Cursors.
  Place CursorPlace() const { return {curDirIndex_, curItem_}; }
  void MoveCursor(Place place, int dirNumber);
  void LeaveItem(const DCFItem* item);
  void LeaveSlot(int slot);
  int ListSlot(int slot);
  void FreeSlot(int slot);

  // What the walks write.
  void WritePath(PathOut out, Place place) const;
  void WriteObjectPath(PathOut out, Place place) const;
  bool IsPathOf(Place place) const;
  // The status, when there is one, is of the path that was written for the place, uncut.
  void WriteTime(unsigned int* out, Place place, flm::FileStatus* status) const;
  int TakeFirst(PathOut out, PathOut objOut, bool setCursor, unsigned int* fileTime,
                flm::FileStatus* status);
  int TakeNext(PathOut out, PathOut objOut, unsigned int* fileTime, flm::FileStatus* status);
  void BuildPath(PathOut out, int dirNumber, int fileNumber, int dirIndex,
                 const DCFItem* item) const;
  void AppendFolder(flm::BoundedText& path, int slot) const;
  void BuildNamedPath(PathOut out, int dirNumber, int fileNumber, int dirIndex,
                      const DCFItem* item) const;
  void BuildObjectPath(PathOut out, int fileNumber, int dirIndex, const DCFItem* item) const;
  int SlotHolding(int dirNumber, int fileNumber) const;

  // Looking files up. What a path says is kept until another path is read: an application asks
  // about one file several times in a row.
  struct PathNumbers {
    int length;  // of the path
    int dirNumber;
    short fileNumber;
    bool free;  // the path has the word of the folders with free names in it
    int slot;
  };
  struct PathReading {
    char text[flm::kPathSize];
    int length;        // of the text; -1 for none
    int folderLength;  // up to its last '/'
    PathNumbers numbers;
  };
  PathNumbers ReadPath(const char* path);
  PathNumbers ReadNewPath(const char* path, int length, int folderLength) const;
  int PositionIn(const PathNumbers& numbers, const char* path) const;
  int MoveCursorTo(const PathNumbers& numbers, const Place& place);
  flm::FileMarks MarksOf(Place place);
  bool CursorAnswers(const PathNumbers& numbers) const;
  Place Answering(const PathNumbers& numbers, const char* path) const;
  int SlotNamedIn(const char* path) const;
  Place LookUp(const char* path) { return LookUp(ReadPath(path), path); }
  Place LookUp(const PathNumbers& numbers, const char* path) const;
  Place LookUpExactly(const char* path);
  Place FindForInfo(const char* path, int dirNumber, int fileNumber) const;
  Place NextMarked(Place from, int bit) const;
  Place PrevMarked(Place from, int bit) const;
  bool IsPlainSlot(int slot) const;
  void SkipInSlot(InfoWalk& walk, flm::ItemFlags flags);
  bool StepInfoWalk(InfoWalk& walk, PathOut out);
  bool IsPlainFile(InfoWalk& walk) const;
  int FoundBit(Place place, char* out, int outSize);

  // Scan and numbering.
  void TakeFolders(PCQDCFFSIO& reader, bool withCamera);
  bool SortByTable(int used);
  void ListFolders(int stopAtFirst);
  bool CanName(std::initializer_list<const char*> texts) const;
  int NextIndex(const char* dirSuffix) const;
  bool HasNumber(int dirNumber) const;
  int SlotNamed(int dirNumber, const char* dirSuffix) const;
  void WriteNewPath(PathOut out, int slot, const NewName& name) const;
  void PrepareSlot(int slot, int dirNumber, const char* dirSuffix);
  void NameSlot(CQDCFDir& dir, int dirNumber, const char* dirSuffix);

  static CQDCFList* current_;  // the catalogue constructed last; null once any was destroyed

  int32_t dirCount_;            // slots in use; may run ahead of the used ones by new folders
  CQDCFDir* dirTable_;          // 999 slots; owned, null before Create
  CQDCFMemManager memManager_;  // all items
  int32_t lastIndex_;           // file index of the newest file
  char baseURI_[flm::kRootSize];
  int32_t rootLength_;
  int32_t mode_;
  int32_t itemCount_;  // items held, as the operations count them
  int32_t curDnum_;    // navigation cursor
  int32_t curFnum_;
  DCFItem* curItem_;
  int32_t curDirIndex_;
  bool seriesMode_;
  int32_t bitDnum_;  // cursor of the walks over marked files
  int32_t bitFnum_;
  int32_t bitDirIndex_;
  DCFItem* bitItem_;
  mutable flm::FolderIndex folders_;
  PathReading reading_;  // of the path read last
  // The start of the paths in the slot that was written last.
  struct FolderText {
    int slot;  // -1 for none
    int length;
    char text[flm::kPathSize];
  };
  mutable FolderText folderText_;
};

#endif
