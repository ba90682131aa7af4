/// @file
/// The owner of every file list of the process.
#ifndef FILELISTMANAGEMENT_CBIFILELISTMANAGER_H
#define FILELISTMANAGEMENT_CBIFILELISTMANAGER_H

#include <cstdint>

#include "base/flm_export.h"

class CQFileList;
class IQFileList;
class IQPageUtil;
class IQSelectedFileList;

/// Makes the file lists, gives each its storage root, and hands out their interfaces.
///
/// Only static operations: Create, then SetURIToFileList for each position, then any number of
/// lookups, then Destroy. Lists are known by their storage root and type; of two that match, the
/// one at the lower position is meant. Interfaces handed out become invalid at Destroy and at the
/// next Create. Not to be used by two threads at once, nor beside the flat functions of flm.h,
/// which make and destroy their own two lists here.
class FLM_API CBIFileListManager {
 public:
  /// An object is not needed; constructing one forgets the lists without destroying them.
  CBIFileListManager();
  virtual ~CBIFileListManager();

  /// Makes lists, after destroying earlier ones. Nothing is read from a card. Throws std::bad_alloc
  /// when memory is short.
  /// @param count number of lists, 0 or more
  /// @return 0; -1 for a negative count, and nothing is done
  static int Create(int count);

  /// Destroys every list with its catalogue.
  /// @return 0, also without lists
  static int Destroy();

  /// The list with this root and type. It belongs to the manager.
  /// @param uri storage root, spelled as in SetURIToFileList
  /// @param type list type, see IQFileList::SetType
  /// @return the list, null when there is none
  static IQFileList* GetFileList(char* uri, int type);

  /// The selected files of the list with this root and type. They belong to the manager.
  /// @param uri storage root, spelled as in SetURIToFileList
  /// @param type list type, see IQFileList::SetType
  /// @return the interface, null when there is no such list
  static IQSelectedFileList* GetSelectedFileList(char* uri, int type);

  /// The pages of the list with this root and type. They belong to the manager.
  /// @param uri storage root, spelled as in SetURIToFileList
  /// @param type list type, see IQFileList::SetType
  /// @return the interface, null when there is no such list
  static IQPageUtil* GetPageUtil(char* uri, int type);

  /// Gives the list at a position its root, type and series mode.
  /// @param position of the list, from 0
  /// @param uri storage root, at most 127 characters; a longer or null one is ignored and the
  ///     earlier root stays. Only roots of at most 97 characters can be scanned
  /// @param type list type, see IQFileList::SetType
  /// @param seriesMode see IQFileList::SetSeriesMode
  /// @return the result of the list's SetSeriesMode: -1 before its first scan, when root and type
  ///     are stored and the series mode is not. -1 for a position that does not exist
  static int SetURIToFileList(int position, char* uri, int type, bool seriesMode);

  /// IQFileList::GetNewFileName of the list with this root and type, for a file of kind `type`: one
  /// argument serves as both.
  /// @param uri storage root, spelled as in SetURIToFileList
  /// @param ignored not looked at
  /// @param[out] name room for 396 bytes
  /// @param type list type and kind of the file at once
  /// @return the list's result; -1 when there is no such list
  static int GetNewFileName(char* uri, int ignored, char* name, int type);

 private:
  static CQFileList* Find(const char* uri, int type);

  static int32_t listCount;      // lists in fileLists
  static CQFileList* fileLists;  // made and destroyed together; owned
  static uint32_t reservedWord;  // 0; kept for the layout
};

#endif
