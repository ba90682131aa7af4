// Storage access: the one place where the library touches the card.
//
// Map of the sources
//   PCQDCFFSIO.cpp         the sorted directory reader
//   PCQDCFFSIO_status.cpp  size, times, protection, existence
//   PCQDCFFSIO_change.cpp  removal, folders, writing a file
#ifndef FILELISTMANAGEMENT_FSIO_PCQDCFFSIO_H
#define FILELISTMANAGEMENT_FSIO_PCQDCFFSIO_H

#include <cstddef>
#include <cstdint>

#include "base/fixed_sizes.h"
#include "fsio/folder_listing.h"

class CQFileListItem;
namespace flm {
class FileStatus;
}

class PCQDCFFSIO {
 public:
  // One directory entry.
  struct PTFile {
    char name[flm::kEntryNameSize];  // Read fills the first 128 bytes
    uint32_t time;                   // not filled by Read
  };

  // A local time.
  struct tTimeStamp {
    uint16_t year;   // four digits
    uint16_t month;  // 1 to 12
    uint16_t day;    // 1 to 31
    uint16_t hour;
    uint16_t minute;
    uint16_t second;
  };

  // --- Directory reader -------------------------------------------------------------------------
  // Lists a folder in DCF order: names of 12 characters by everything behind their four free
  // characters, any other pair by the whole names, byte by byte. "." and ".." are listed too. The
  // catalogue's own scan uses the listing below it (folder_listing.h) without copying the names.
  PCQDCFFSIO();
  PCQDCFFSIO(const char* path, const char* pattern);  // opens at once
  virtual ~PCQDCFFSIO();
  PCQDCFFSIO(const PCQDCFFSIO&) = delete;
  PCQDCFFSIO& operator=(const PCQDCFFSIO&) = delete;

  // Lists `path`; `pattern` is accepted and ignored. Returns 0 even when the folder cannot be
  // listed; IsValid tells.
  int Open(const char* path, const char* pattern);

  // Hands out the next name, at most 128 bytes of it, filled up with zeros (and not terminated when
  // it has 128 characters or more). 0; -1 without a listing; -2 at the end. Null entry: -1.
  int Read(PTFile* entry);

  // Releases the listing. Returns 0.
  int Close();

  // Whether a listing was made by the last Open; stays true after Close.
  bool IsValid() const { return valid_; }

  // --- Status of a file -------------------------------------------------------------------------
  // Links are followed. A time is the last modification, whatever the name says.

  // Low 32 bits of the size in bytes, or the negative result of the status call.
  static int GetFileSize(const char* path);
  // 0 and the six time fields and modTime of the item filled from its filePath; negative, and the
  // item left alone, when the status or the local time cannot be had.
  static int GetFileCreateTime(CQFileListItem* item);
  // Seconds since the epoch (low 32 bits), 0 when the status cannot be had.
  static unsigned int GetFileCreateTime(const char* path);
  // As GetFileCreateTime(item), and sets the item's isProtected.
  static int GetFileStatInfo(CQFileListItem* item);
  // The same from a status of the item's file that the caller shares with others.
  static int TakeStatInfo(CQFileListItem* item, flm::FileStatus& status);
  // 1 when the path exists, else 0.
  static int IsExist(const char* path);
  // 1 when the owner-write permission is clear, 0 when it is set or unknown.
  static int IsProtect(const char* path);
  // Clears (protect) or sets the owner-write permission and flushes the file system. The result of
  // changing the permission; -1, without a flush, when the file has no status.
  static int SetProtect(const char* path, bool protect);
  // 1 when a folder holds nothing but "." and ".." or cannot be opened, else 0.
  static int IsDirEmpty(const char* path);
  // The current local time; 1900 and 1 in all five other fields when it cannot be had.
  static void GetSystemTime(tTimeStamp& ts);

  // --- Changes ----------------------------------------------------------------------------------
  // Removes a file or an empty folder; a link is removed itself, never its target. With syncAfter a
  // detached thread then flushes the file system, also after a failure. 0 or -1.
  static int RemoveFile(const char* path, bool syncAfter);
  // Makes a folder with mode 0775 whatever the umask, and flushes when that worked. 0 or -1.
  static int MakeDirectory(const char* path);
  // Opens a file for writing, made or emptied; null for a failure, a link, or anything
  // but a regular file.
  static void* CreateFileIO(const char* path);
  // Gathers what is written in a buffer of the caller's, which lives until the file is closed;
  // before the first write. Without it the file takes a small one of its own.
  static void GatherIn(void* handle, char* buffer, size_t size);
  // Writes *len bytes of buf, stores the number written in *len and returns it. Null: -1.
  static int Write(void* handle, const char* buf, int* len);
  // Closes the file. 0, or the failure of closing it; -1 for null.
  static int DestroyFileIO(void* handle);

 private:
  flm::FolderListing listing_;
  bool valid_ = false;  // the last Open made a listing
  bool open_ = false;   // and it has not been closed
  int32_t next_ = 0;    // the entry to hand out next
};

#endif
