/// @file
/// The file list of one storage root.
#ifndef FILELISTMANAGEMENT_IQFILELIST_H
#define FILELISTMANAGEMENT_IQFILELIST_H

#include "base/flm_export.h"
#include "filelist/CQFileListItem.h"
#include "filelist/filelist_types.h"

class CQDCFList;

/// The files of one storage root: scan, walk, name, delete, mark, order prints.
///
/// Obtained from CBIFileListManager::GetFileList, which also owns it. The order of the operations
/// is part of the binary interface.
///
/// Shared rules
///  - *Results*: 0, a count or an index for success, a negative number for failure. Unless said
///    otherwise an operation that needs the catalogue returns -1 before the first Listup, a null
///    item or text is refused with a negative number, and a refused call changes nothing. An item
///    whose path fills its field without an end names no file.
///  - *Index*: position of a file in list order, from 0: folders ascending by number, files
///    ascending by number within a folder (DCF, CIPA DC-009).
///  - *File index*: folder number * 100000 + file number, such as 10000012; 0 for none.
///  - *Cursor*: the current file. Walks, indexed access, pages, deletion, naming and saving the
///    print order move it.
///  - *withInfo*: true also fills the marks, the protection and the time of the item, which reads
///    the file's status from the card; protection and time stay as they were when it cannot be
///    read. False fills only filePath, objectPath and, for GetFirst and GetNext, modTime.
///  - *Paths* begin with the root as it was given; names of at most 12 characters are in capitals.
///  - *Two files of one number* in a folder: marks are set on the file that the path names, but
///    read of the current file when the path has its folder and file number. Move the cursor to
///    such a file with SetCur before reading its marks; withInfo reads them before the cursor
///    moves.
///  - *Threads*: none; a list is used by one thread at a time.
class FLM_API IQFileList {
 public:
  /// Callers never destroy a list themselves: the manager owns it.
  virtual ~IQFileList();

  /// @name Set-up
  /// @{

  /// Does nothing; the catalogue is made by the first Listup.
  /// @return 0
  virtual int Create() = 0;

  /// Releases the catalogue. Must be called before the list is destroyed; the manager does.
  /// @return 0
  virtual int Destroy() = 0;

  /// Sets which tree is listed, from the next Listup on.
  /// @param type 0 and 4 list "DCIM", every other type lists "VIDEO". 4 spells folders and files by
  ///     their real names; 0 always ends folders in "PHOTO" and files in ".JPG", the others in
  ///     "VIDEO" and ".MP4"
  /// @return 0
  virtual int SetType(int type) = 0;

  /// @return the type set last; 0 at first
  virtual int GetType() = 0;

  /// Series numbering: on, numbering also continues from the number kept in the preference store.
  /// @param on whether the stored number counts; off at first
  /// @return the file index of the newest file after the change; -1 before the first Listup, and
  ///     the setting is then lost
  virtual int SetSeriesMode(bool on) = 0;

  /// @return whether series numbering is on
  virtual bool GetSeriesMode() = 0;

  /// @}
  /// @name Scan
  /// @{

  /// Scans the card and builds the list anew: marks of an earlier scan are gone. Makes at most one
  /// missing folder: the tree's, else the first one in it (types 0 and 2), else "MISC". With type 3
  /// or 4 the print order of the card is loaded.
  /// @param stopAtFirst 1 lists only the newest folder that has files, and walks then list each
  ///     folder that they enter in place of the one before; any other value lists everything
  /// @return number of files, 32000 at most; -1 when the root is empty or longer than 97 characters
  ///     or memory is short, -2 when the tree cannot be opened
  virtual int Listup(int stopAtFirst) = 0;

  /// Whether the next scan takes the "CAMERA" folder, whose files need not follow DCF.
  /// @param on true takes it, as at first
  /// @return 0
  virtual int IncludeNonDCF(bool on) = 0;

  /// @}
  /// @name Deletion
  /// @{

  /// Deletes the file, its companions (when the item's objectPath is filled) and, when it becomes
  /// empty, its folder; the newest folder is kept unless its number is 999. The card is flushed by
  /// a thread of its own. After a deletion the cursor is on the last file of the list.
  /// @param item file to delete, as GetAt or a walk gave it
  /// @param force deletes a protected file too
  /// @param saveDpof rewrites the print order of the card
  /// @return the last file index as GetLastIndex gives it, above 0, when deleted (a file that was
  ///     gone already counts as deleted); 0 when the file could not be removed, or the list does
  ///     not hold it (a file below the card's root is removed all the same) or has not been
  ///     scanned; -2 null item; -100 protected; -1000 the print order could not be saved (the file
  ///     is deleted)
  virtual int Delete(CQFileListItem* item, bool force, bool saveDpof) = 0;

  /// Deletes the files, exactly as DeleteAll without a callback.
  /// @param force deletes protected files too
  /// @return as DeleteAll
  virtual int RemoveAll(bool force) = 0;

  /// Deletes every file with its companions, first to last, and saves the print order at the end.
  /// The card is flushed after every 1024 files and after the last.
  /// @param force deletes protected files too; without it they are passed over
  /// @param callback null or told (files handled before, files at the start, 0 or -100 for a file
  ///     passed over)
  /// @return the file index of the newest file at the end; 10000 cancelled; -100 a file could not
  ///     be unprotected, -200 a file could not be removed: both end the deletion and save nothing;
  ///     -1000 the print order could not be saved, also before the first Listup
  virtual int DeleteAll(bool force, ProgressCallback callback) = 0;

  /// @}
  /// @name Indexed access and cursor
  /// @{

  /// @return number of files; -1 before the first scan, the scan's negative code after a failed one
  virtual int GetCount() = 0;

  /// Does nothing.
  /// @return 0
  virtual int InitGetAt() = 0;

  /// The file at an index; moves the cursor to it.
  /// @param index 0 to GetCount() - 1
  /// @param[out] item the file; both paths are emptied for an index that the list does not hold,
  ///     unless the list has no files at all
  /// @param withInfo see the shared rules
  /// @return 0, or -1; for an index that the list does not hold the cursor's index is then -1,
  ///     while GetCurrent still gives the file that was current before
  virtual int GetAt(int index, CQFileListItem* item, bool withInfo) = 0;

  /// Index of a file. For a file of the "CAMERA" folder it counts from the file's running number.
  /// @param item the file, by its filePath
  /// @return the index; -1 when the list does not hold it, -6 without a catalogue
  virtual int GetFileListIndex(CQFileListItem* item) = 0;
  /// The same from a path.
  /// @param path full path of the file
  /// @return as from an item
  virtual int GetFileListIndex(char* path) = 0;

  /// @return index of the cursor's file as the access before left it, -1 for none. Walks over
  ///     marked files, saves of the print order and changes of the list do not keep it up to date
  virtual int GetCurIndex() = 0;

  /// @}
  /// @name Walking
  /// Each fills `item` and returns 0, or returns a negative number when there is no such file,
  /// which also leaves no current file. There is no wrap-around: after GetNext failed at the end,
  /// the next GetNext gives the first file. Companion paths are written only for files that have
  /// companions, and by GetNext and GetPrev only on entering a folder; objectPath stays as it was
  /// otherwise.
  /// @{

  /// The file at the cursor, which stays.
  /// @param[out] item the file
  /// @param withInfo see the shared rules
  /// @return 0, or -1 without a current file
  virtual int GetCurrent(CQFileListItem* item, bool withInfo) = 0;

  /// The first file.
  /// @param[out] item the file, with modTime
  /// @param withInfo see the shared rules
  /// @return 0, or -1
  virtual int GetFirst(CQFileListItem* item, bool withInfo) = 0;

  /// The file behind the cursor; the first one without a current file, and modTime then only comes
  /// with the information.
  /// @param[out] item the file, with modTime
  /// @param withInfo see the shared rules
  /// @return 0, or -1 behind the last file
  virtual int GetNext(CQFileListItem* item, bool withInfo) = 0;

  /// The file in front of the cursor.
  /// @param[out] item the file
  /// @param withInfo see the shared rules
  /// @return 0; -1 in front of the first file; -2 without a current file
  virtual int GetPrev(CQFileListItem* item, bool withInfo) = 0;

  /// The last file.
  /// @param[out] item the file; withInfo empties objectPath
  /// @param withInfo see the shared rules
  /// @return 0, or -1
  virtual int GetLast(CQFileListItem* item, bool withInfo) = 0;

  /// @param item a file, by its filePath
  /// @return 1 when its folder and file number are those of the last file, else 0
  virtual int IsLast(CQFileListItem* item) = 0;

  /// @}
  /// @name How new files are named
  /// @{

  /// @param make the list's prefix, or month and day of the local date, for new files
  /// @return 0
  virtual int SetFileNameMake(eFILE_NAME_MAKE make) = 0;

  /// @param make "PHOTO", or month and day of the local date, at the end of new folders
  /// @return 0
  virtual int SetFolderNameMake(eFILE_NAME_MAKE make) = 0;

  /// Sets the colour space of new pictures, and with it the prefix.
  /// @param mode colour space, which DCF marks by where the underscore stands
  /// @return 0
  virtual int SetFileNameColor(eFileListColorMode mode) = 0;

  /// @param imageType kind of images that are being recorded; names 3D movies "S3D_"
  /// @return 0
  virtual int SetImageType(eFileListImageType imageType) = 0;

  /// Reserves the next name: chooses folder and number behind the newest one, makes the folder,
  /// enters the file into the list, moves the cursor to it (GetCurIndex does not follow) and stores
  /// its number in the preference store. The file itself is the caller's to write;
  /// RemoveFileFromList takes the name back. A folder that cannot be made is no failure here:
  /// writing the file then fails.
  /// @param[out] out room for 396 bytes; the full path, or the bare name with a list type other
  ///     than 0, 2 and 4
  /// @param kind 0 "JPG", 1 "SRW", 2 "MP4", 3 "3GP", 4 "MP3", 5 "WAV", 6 "MPO"; others get no
  ///     extension
  /// @return 0; -1 null, without a catalogue, without a usable root or with 32000 files held; -9999
  ///     when no number is left
  virtual int GetNewFileName(char* out, int kind) = 0;

  /// The path under which a companion of the last file of the list is to be written; marks the
  /// companion as present. Moves the cursor to that file.
  /// @param[out] out no terminator is written: pass a zero-filled buffer of 128 bytes
  /// @param kind the companion
  /// @return 0; -1 null or no such file; -200 unknown kind
  virtual int GetLatestFileName(char* out, eFileAddType kind) = 0;

  /// @}
  /// @name Newest number
  /// @{

  /// The number of the newest file, behind which numbering goes on.
  /// @param[out] dirNumber 100 to 999; 99 when "CAMERA" is the only folder, 0 without any
  /// @param[out] fileNumber 1 to 9999, or 0 for a folder without files
  /// @return 0, also without a catalogue or with a null argument: both outputs then stay as they
  ///     are
  virtual int GetLastIndex(int* dirNumber, int* fileNumber) = 0;

  /// Sets the newest number from a path and stores it in the preference store. Only the folder
  /// number is judged: a path that ends before its file number counts as file number -1.
  /// @param path a path below the root of the list; the file need not exist
  /// @param force false only raises the number
  /// @return 0, also without a catalogue; -1 a folder number outside 100 to 999, -2 null path, -3
  ///     empty path
  virtual int SetLastIndex(char* path, bool force) = 0;

  /// The same from the numbers.
  /// @param dirNumber 100 to 999
  /// @param fileNumber 0 to 9999
  /// @param force false only raises the number
  /// @return as from a path. List types 0 and 3 answer -1: the path that is formed here lies in the
  ///     other tree than theirs
  virtual int SetLastIndex(int dirNumber, int fileNumber, bool force) = 0;

  /// @}
  /// @name Single files
  /// @{

  /// Takes a file out of the list; the file on the card is not touched.
  /// @param path full path of the file
  /// @return 0; -6 without a catalogue; -1 or -2 when the list does not hold the folder or the file
  virtual int RemoveFileFromList(char* path) = 0;
  /// The same from an item.
  /// @param item the file; its filePath is emptied when it was taken out
  /// @return as from a path; -1 null item
  virtual int RemoveFileFromList(CQFileListItem* item) = 0;

  /// @param path full path of a file
  /// @return 1 when the list holds the file, else 0; the card is not asked
  virtual int IsExist(char* path) = 0;

  /// The kind of recording that a name tells: the code of the first of these found anywhere in the
  /// path, tested in this order: "CAM_" 0, "HDV_" 1, "HDE_" 2, "HDA_" 3, "SDV_" 4, "SDE_" 5, "SDA_"
  /// 6.
  /// @param item the file, by its filePath
  /// @return the code; -1 when there is none
  virtual int GetPrefix(CQFileListItem* item) = 0;

  /// Moves the cursor to a file.
  /// @param path full path of the file; null leaves no current file
  /// @return 0; -1 without a catalogue; -100 or -101 the path has no folder or file number; -200 or
  ///     -300 folder or file not found. After a failure GetCurrent still gives the file that was
  ///     current before
  virtual int SetCur(char* path) = 0;

  /// Moves the cursor to the file at an index.
  /// @param index 0 to GetCount() - 1
  /// @return as GetAt
  virtual int SetCurIndex(int index) = 0;

  /// @}
  /// @name Marks
  /// Kept in memory until the next scan. Setters return 0; -1 the list does not hold the file; -2
  /// null item; -3 empty path; -6 without a catalogue. Tests answer false on any bad argument.
  /// @{

  /// @param item the file, by its filePath
  /// @param on whether it is selected
  /// @return see above
  virtual int SetSel(CQFileListItem* item, bool on) = 0;

  /// @param on whether every file is selected, or none
  /// @return 0; -6 without a catalogue
  virtual int SetSelAll(bool on) = 0;

  /// @param item the file, by its filePath
  /// @return whether it is selected
  virtual bool IsSel(CQFileListItem* item) = 0;

  /// @param item the file, by its filePath
  /// @param on whether it is marked for wireless transfer
  /// @return see above
  virtual int SetWifiFlag(CQFileListItem* item, bool on) = 0;

  /// @param item the file, by its filePath
  /// @return whether it is marked for wireless transfer
  virtual bool IsWifiFlag(CQFileListItem* item) = 0;

  /// @}
  /// @name Protection
  /// The file's owner-write permission on the card; DCF calls it the read-only attribute.
  /// @{

  /// Protects or unprotects a file with the companions that its objectPath names, and flushes the
  /// card. Works without a catalogue.
  /// @param item the file, by its filePath
  /// @param on true protects
  /// @return that of the last file changed, companions included: 0, or -1 when it could not be;
  ///     -100 null item; -101 empty path
  virtual int SetProtect(CQFileListItem* item, bool on) = 0;

  /// @param item the file, by its filePath; works without a catalogue
  /// @return whether it is protected; false for a file that is not there
  virtual bool IsProtect(CQFileListItem* item) = 0;

  /// Protects or unprotects every file, from the last to the first. Of companions the walk knows
  /// only those of the file by which it enters a folder, and not those of the last file of all; it
  /// changes these again and again. SetProtect with an item from GetAt takes every companion along.
  /// @param on true protects
  /// @param callback null or told (files handled before, files, 0)
  /// @return 0, also before the first Listup; 10000 cancelled; -20000 minus the result of the step
  ///     that reached a file which could not be changed (0 as a rule)
  virtual int SetProtectAll(bool on, ProgressCallback callback) = 0;

  /// @}
  /// @name Print order (DPOF 1.10)
  /// Marks in memory; only SaveDPOFInfo writes them. Setters of one file return 0; -1 the list does
  /// not hold the file; -200 (copies) or -202 (size) for a path whose extension does not begin with
  /// "J".
  /// @{

  /// @param item the picture, by its filePath
  /// @param copies prints, 0 to 99
  /// @return see above; -2 null item, -5 empty path, -3 below 0, -4 above 99, -6 without a
  ///     catalogue
  virtual int SetDPOF(CQFileListItem* item, int copies) = 0;

  /// @param copies prints of every JPG; 0 or more, stored in 8 bits (300 becomes 44)
  /// @return 0; -2 below 0, -6 without a catalogue
  virtual int SetDPOFAll(int copies) = 0;

  /// @param on puts every JPG into the index print, or takes every one out
  /// @return 0; -6 without a catalogue
  virtual int SetDPOFIndex(bool on) = 0;

  /// @param item the picture, by its filePath
  /// @param size print size code, stored in 8 bits: 3, 4, 5 and 8 have a text in the print order
  /// @return see above; -2 below 0 (the first check), -3 null item, -4 empty path, -6 without a
  ///     catalogue
  virtual int SetDPOFSize(CQFileListItem* item, int size) = 0;

  /// @param size print size code of every JPG, stored in 8 bits
  /// @return 0; -2 below 0, -6 without a catalogue
  virtual int SetDPOFSizeAll(int size) = 0;

  /// @param item the picture, by its filePath
  /// @return prints ordered, 0 for none; -2 null item, -3 empty path, -4 path without an end, -6
  ///     without a catalogue, -100 the list does not hold the folder (or the value stored is 255)
  virtual int GetDPOFNumOfCopy(CQFileListItem* item) = 0;

  /// @param item the picture, by its filePath
  /// @return whether it is in the index print
  virtual bool GetDPOFIndex(CQFileListItem* item) = 0;

  /// @param item the picture, by its filePath
  /// @return print size code, 0 for none; -2 null item, -3 empty path or one without an end, -6
  ///     without a catalogue, -100 the list does not hold the folder (or the value stored is 255)
  virtual int GetDPOFSize(CQFileListItem* item) = 0;

  /// Writes the print order, in place of what the file held. Moves the cursor. An empty list writes
  /// an empty file. Not flushed: a power cut may take it until the system has written it.
  /// @param path file to write; null is "MISC/AUTPRINT.MRK" of the card
  /// @param creator device name, written whole and as given; null writes none
  /// @return 0; -1 the file cannot be made or closed, is a link, or there is no catalogue or usable
  ///     root
  virtual int SaveDPOFInfo(char* path, char* creator) = 0;

  /// Reads a print order and sets the marks that it names; clears none.
  /// @param path file to read, with "/MISC" behind the root of the card; null is that of the card
  /// @return 0; -1 missing, unusable, memory is short, or the list's type is neither 3 nor 4; -3
  ///     path of 128 characters or more
  virtual int LoadDPOFInfo(char* path) = 0;

  /// Device name that the deletions write into the print order; empty at first.
  /// @param name at most 30 characters; a null or longer name is ignored
  virtual void SetDPOFDevName(char* name) = 0;

  /// @}
  /// @name Properties
  /// @{

  /// @return the storage root; the text belongs to the list
  virtual char* GetBaseURI() = 0;

  /// @param prefix first characters of new files, at most 8; DCF names have 4. "QVX_" at first
  /// @return 0; -1 null; -2 too long
  virtual int SetFilePrefix(char* prefix) = 0;

  /// Fills an item from a path: everything that withInfo gives. The companions' path is that of the
  /// first file of the number: where two files share one, take the item from GetAt.
  /// @param path full path of the file
  /// @param[out] item the file
  /// @return 0; -2 null path, -3 null item, -6 without a catalogue, -1 the list does not hold the
  ///     file
  virtual int GetInfo(char* path, CQFileListItem* item) = 0;

  /// The path of a companion of the item, by the letters at the end of its objectPath: S raw, W
  /// voice memo, M multi-picture, or a blank each. The card is not asked.
  /// @param item the file, with objectPath filled
  /// @param kind the companion
  /// @param[out] out the path; all outSize bytes are cleared first
  /// @param outSize size of `out` in bytes
  /// @return the kind, 1, 5 or 6; -1, -5 or -6 when the file has no such companion; 0 for another
  ///     kind; -1 when objectPath is empty
  virtual int GetObjectFullPath(CQFileListItem* item, eFileType kind, char* out, int outSize) = 0;

  /// Records that a file has a companion or no longer has it; the card is not touched.
  /// @param item the file, by its filePath
  /// @param kind the companion
  /// @param on whether the file has it
  /// @return 0; -1 null item or no such file; -6 without a catalogue; -200 unknown kind
  virtual int SetObject(CQFileListItem* item, eFileAddType kind, bool on) = 0;

  /// Fills the seven time fields of an item from its file: the last modification, in spite of the
  /// name. Works without a catalogue.
  /// @param item the file, by its filePath
  /// @return 0, or negative when it cannot be read
  virtual int GetFileCreateTime(CQFileListItem* item) = 0;

  /// Finds the newest number again, from the files.
  /// @param noSeries false lets a higher stored series value count too, in series mode
  /// @return the file index; 99909999 when folder 999 ends in other letters than "PHOTO" and no
  ///     number is left; -6 without a catalogue
  virtual int UpdateLastIndex(bool noSeries) = 0;

  /// Sorts the folders that were made since the scan. A folder that was scanned counts as sorted:
  /// files that were named into it stay at its end until the next scan.
  /// @return 0
  virtual int SortItem() = 0;

  /// How many more files may be numbered.
  /// @return 1000 at most while a folder number is left, and so also before the first scan; never
  ///     more than 32000 less the files held
  virtual int GetAvailNumOfPhoto() = 0;

  /// @return the list's catalogue, null before the first Listup; it belongs to the list
  virtual CQDCFList* GetDCFList() = 0;

  /// @}
};

#endif
