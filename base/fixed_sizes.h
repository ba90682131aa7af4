// Every fixed size of the library, in one place. Sizes of buffers count the terminating NUL.
#ifndef FILELISTMANAGEMENT_BASE_FIXED_SIZES_H
#define FILELISTMANAGEMENT_BASE_FIXED_SIZES_H

namespace flm {

constexpr int kPathSize = 128;         // a file's full path, as records and callers carry it
constexpr int kFolderPathSize = 99;    // a path that the catalogue forms while it scans
constexpr int kRootSize = 98;          // a storage root, as the catalogue keeps it
constexpr int kDirNameSize = 99;       // the name of one folder of the tree
constexpr int kFileNameSize = 41;      // a file's name; free names have at most 40 characters
constexpr int kNewNameSize = 396;      // what a caller provides for the path of a new file
constexpr int kFlatPathSize = 1024;    // what flm_get_at fills, always to the last byte
constexpr int kDcfNameLength = 12;     // ABCD0001.JPG
constexpr int kMaxFiles = 32000;       // items of one catalogue
constexpr int kMaxFolders = 999;       // slots of a catalogue's directory table
constexpr int kEntryNameSize = 136;    // the name field of a directory entry
constexpr int kEntryNameCopied = 128;  // how much of an entry's name is handed out

}  // namespace flm

#endif
