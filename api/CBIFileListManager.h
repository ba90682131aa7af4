// The owner of every file list of the process.
#ifndef FILELISTMANAGEMENT_CBIFILELISTMANAGER_H
#define FILELISTMANAGEMENT_CBIFILELISTMANAGER_H

#include <cstdint>

#include "base/flm_export.h"

class CQFileList;
class IQFileList;
class IQPageUtil;
class IQSelectedFileList;

// Only static operations: Create, then SetURIToFileList for each position, then any number of
// lookups, then Destroy. Lists are known by their storage root and type; of two that match, the one
// at the lower position is meant. Interfaces handed out become invalid at Destroy and at the next
// Create. Not to be used by two threads at once.
class FLM_API CBIFileListManager {
 public:
  // An object is not needed; constructing one forgets the lists without destroying them.
  CBIFileListManager();
  virtual ~CBIFileListManager();

  // Makes `count` lists, after destroying earlier ones. 0; -1 for a negative count. Throws
  // std::bad_alloc when memory is short.
  static int Create(int count);

  // Destroys every list with its catalogue. Returns 0.
  static int Destroy();

  // One of the interfaces of the list with this root and type, null when there is none. The lists
  // belong to the manager.
  static IQFileList* GetFileList(char* uri, int type);
  static IQSelectedFileList* GetSelectedFileList(char* uri, int type);
  static IQPageUtil* GetPageUtil(char* uri, int type);

  // Gives the list at a position its root (at most 127 characters, a longer one is ignored), type
  // and series mode. The result of the list's SetSeriesMode: -1 before its first scan, when the
  // series mode is not stored. -1 for a position that does not exist.
  static int SetURIToFileList(int position, char* uri, int type, bool seriesMode);

  // GetNewFileName of the list with this root and type, for a file of kind `type`: one argument
  // serves as both. The second argument is ignored. -1 when there is no such list.
  static int GetNewFileName(char* uri, int ignored, char* name, int type);

 private:
  static CQFileList* Find(const char* uri, int type);

  static int32_t listCount;      // lists in fileLists
  static CQFileList* fileLists;  // made and destroyed together; owned
  static uint32_t reservedWord;  // 0; kept for the layout
};

#endif
