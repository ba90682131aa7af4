/// @file
/// The enumerations of the file list and the type of its progress callback.
///
/// Every enumeration has `int` as its underlying type: callers pass plain numbers, and a value
/// without a name here is a value like any other, with the meaning given beside "any other".
#ifndef FILELISTMANAGEMENT_FILELIST_TYPES_H
#define FILELISTMANAGEMENT_FILELIST_TYPES_H

/// How the names of new files and folders are made (IQFileList::SetFileNameMake,
/// IQFileList::SetFolderNameMake).
enum eFILE_NAME_MAKE : int {
  FILE_NAME_MAKE_FIXED = 0,  ///< the list's prefix; the folder suffix "PHOTO"
  /// Month and day of the local date: files "0315" or, with the second colour space and for 3D
  /// movies, "_315" (months "1" to "9", "A", "B", "C"); folders "_0315". Any other value but 0
  /// means the same.
  FILE_NAME_MAKE_DATE = 1,
};

/// Colour space of new pictures. DCF 2.0 (CIPA DC-009) marks the second one by an underscore in
/// front of the name.
enum eFileListColorMode : int {
  FILELIST_COLOR_SRGB = 0,      ///< prefix "QVX_"
  FILELIST_COLOR_ADOBERGB = 1,  ///< prefix "_QVX"; any other value but 0 means the same
};

/// Kind of images that are being recorded.
enum eFileListImageType : int {
  FILELIST_IMAGE_ORDINARY = 0,  ///< any value but 1
  FILELIST_IMAGE_3D = 1,        ///< movies are named with the prefix "S3D_"
};

/// Kind of a companion file, as IQFileList::GetObjectFullPath takes it. Other values name no
/// companion.
enum eFileType : int {
  FILE_TYPE_RAW = 1,            ///< raw companion, extension "SRW"
  FILE_TYPE_VOICE_MEMO = 5,     ///< voice memo, extension "WAV"
  FILE_TYPE_MULTI_PICTURE = 6,  ///< multi-picture file, extension "MPO"
};

/// Kind of a companion file, as IQFileList::SetObject and IQFileList::GetLatestFileName take it.
enum eFileAddType : int {
  FILE_ADD_RAW = 0,            ///< extension "SRW"
  FILE_ADD_VOICE_MEMO = 1,     ///< extension "WAV"
  FILE_ADD_MULTI_PICTURE = 2,  ///< extension "MPO"
};

/// Called by the bulk operations once after each handled file, never before the first one, on the
/// caller's thread. A null callback reports nothing and cannot cancel.
///
/// Each operation says what it puts into the first three arguments:
///  - `index`: number of the file just handled, from 0
///  - `total`: number of files that the operation will handle
///  - `status`: outcome for that file, to be read
///  - `cancel`: false on entry; set it to true to stop the operation, which then returns 10000
typedef void (*ProgressCallback)(int index, int total, int* status, bool* cancel);

#endif
