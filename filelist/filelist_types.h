// The enumerations of the file list and the type of its progress callback.
//
// Every enumeration has `int` as its underlying type: callers pass plain numbers, and a value
// without a name here is a value like any other, with the meaning given beside "any other".
#ifndef FILELISTMANAGEMENT_FILELIST_TYPES_H
#define FILELISTMANAGEMENT_FILELIST_TYPES_H

// How the names of new files and folders are made (SetFileNameMake, SetFolderNameMake).
enum eFILE_NAME_MAKE : int {
  FILE_NAME_MAKE_FIXED = 0,  // the list's prefix; the folder suffix "PHOTO"
  FILE_NAME_MAKE_DATE = 1,   // from the local date; any other value but 0 means the same
};

// Colour space of new pictures, which DCF marks by an underscore in front of the name.
enum eFileListColorMode : int {
  FILELIST_COLOR_SRGB = 0,      // prefix "QVX_"
  FILELIST_COLOR_ADOBERGB = 1,  // prefix "_QVX"; any other value but 0 means the same
};

// Kind of images that are being recorded.
enum eFileListImageType : int {
  FILELIST_IMAGE_ORDINARY = 0,  // any value but 1
  FILELIST_IMAGE_3D = 1,        // movies are named with the prefix "S3D_"
};

// Kind of a companion file, as GetObjectFullPath takes it. Other values name no companion.
enum eFileType : int {
  FILE_TYPE_RAW = 1,            // raw companion, extension "SRW"
  FILE_TYPE_VOICE_MEMO = 5,     // voice memo, extension "WAV"
  FILE_TYPE_MULTI_PICTURE = 6,  // multi-picture file, extension "MPO"
};

// Kind of a companion file, as SetObject and GetLatestFileName take it.
enum eFileAddType : int {
  FILE_ADD_RAW = 0,            // extension "SRW"
  FILE_ADD_VOICE_MEMO = 1,     // extension "WAV"
  FILE_ADD_MULTI_PICTURE = 2,  // extension "MPO"
};

// Called by the bulk operations after each handled file, on the caller's thread.
//   index   number of the file just handled, from 0
//   total   number of files that the operation will handle
//   status  outcome for that file, to be read (each operation says what it means)
//   cancel  false on entry; set it to true to stop the operation
typedef void (*ProgressCallback)(int index, int total, int* status, bool* cancel);

#endif
