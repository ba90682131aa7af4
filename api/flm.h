// The flat interface: two file lists, one per storage root, used without touching a class.
//
// Call flm_init once, then flm_listup for each list that is to be used. A list is named by its
// FileListType, a file by its index in the list (from 0). Nothing but _flm_get_isfilelist may be
// called before flm_init, and nothing at all after flm_deinit. Call from one thread.
//
// Results of every function that has one
//   0  done; also when the operation itself failed, unless said otherwise
//   1  a required output pointer is null (flm_get_new_filename only)
//   2  the list number is neither 0 nor 1; nothing was done or written
//   3  the lists could not be made (flm_init), or this list was never made: nothing was written
//   4  the scan failed (flm_listup only)
// Output pointers are not checked except where said. Values handed out are those of the list's
// operation, failures included. An index that the list does not hold acts on no file.
#ifndef FILELISTMANAGEMENT_FLM_H
#define FILELISTMANAGEMENT_FLM_H

#include "base/flm_export.h"

class IQFileList;

// Which list.
enum FileListType : int {
  FILELIST_MMC = 0,  // the memory card, root "/mnt/mmc"
  FILELIST_SD0 = 1,  // root "/opt/sd0"
};

// How numbering goes on when the card changes.
enum FileListMode : int {
  FILELIST_MODE_SERIES = 0,  // also from the stored number; any value but 1 means this
  FILELIST_MODE_RESET = 1,   // from the files on the card alone
};

// Kind of a file to be named.
enum FileType : int {
  FILETYPE_JPG = 0,  // still picture
  FILETYPE_SRW = 1,  // raw picture
  FILETYPE_MP4 = 2,  // movie
  FILETYPE_3GP = 3,  // movie
  FILETYPE_MP3 = 4,  // sound
  FILETYPE_WAV = 5,  // voice memo
  FILETYPE_MPO = 6,  // multi-picture file
};

// --- Helpers ------------------------------------------------------------------------------------
FLM_API int _flm_null_check(void* p);    // 1 when p is not null, else 0
FLM_API int _flm_range_check(int type);  // 1 for 0 and 1, else 0
// Calls flm_init; then the list, which belongs to the library, or null.
FLM_API IQFileList* _flm_get_isfilelist(FileListType type);

// --- Start and stop -----------------------------------------------------------------------------
// Makes the two lists; nothing is scanned yet. Later calls return 0 and do nothing, also when the
// first one failed.
FLM_API int flm_init();
// Destroys the lists, for good: the library is not used again in this process.
FLM_API int flm_deinit();
// Scans the whole card.
FLM_API int flm_listup(FileListType type);

// --- Numbering ----------------------------------------------------------------------------------
// Has no effect before the first flm_listup of the list.
FLM_API int flm_set_series_mode(FileListType type, FileListMode mode);
FLM_API int flm_get_series_mode(FileListType type, FileListMode* mode);
// Reserves the next name and writes its path to *name, which has room for 396 bytes. A failure to
// name leaves *name without a new path.
FLM_API int flm_get_new_filename(FileListType type, FileType kind, char** name);

// --- Files --------------------------------------------------------------------------------------
// Forgets a file; it stays on the card.
FLM_API int flm_remove_file_from_list(FileListType type, int index);
FLM_API int flm_is_exist(FileListType type, char* path, int* exists);  // 1 held by the list, 0 not
FLM_API int flm_get_count(FileListType type, int* count);  // -1 before a scan; a failed scan's code
// Writes exactly 1024 bytes to *name: the path, and zeros behind it; only zeros for no file.
FLM_API int flm_get_at(FileListType type, int index, char** name);

// --- Cursor -------------------------------------------------------------------------------------
FLM_API int flm_move_to_first(FileListType type);
FLM_API int flm_move_to_last(FileListType type);
FLM_API int flm_move_to_prev(FileListType type);
FLM_API int flm_move_to_next(FileListType type);
FLM_API int flm_set_cursor(FileListType type, int index);
FLM_API int flm_get_cursor(FileListType type, int* index);  // -1 for no current file

// --- Marks --------------------------------------------------------------------------------------
FLM_API int flm_set_selection(FileListType type, int index, int on);
FLM_API int flm_get_selection(FileListType type, int index, int* on);
FLM_API int flm_set_protection(FileListType type, int index, int on);
FLM_API int flm_get_protection(FileListType type, int index, int* on);

// --- Print order (DPOF) -------------------------------------------------------------------------
FLM_API int flm_set_dpof(FileListType type, int index, int copies);  // 0 to 99 prints
FLM_API int flm_set_dpof_all(FileListType type, int copies);
FLM_API int flm_get_dpof(FileListType type, int index, int* copies);
FLM_API int flm_set_dpof_index(FileListType type, int on);  // the index print, for every picture
FLM_API int flm_get_dpof_index(FileListType type, int index, int* on);
FLM_API int flm_set_dpof_size(FileListType type, int index, int size);
FLM_API int flm_set_dpof_size_all(FileListType type, int size);
FLM_API int flm_get_dpof_size(FileListType type, int index, int* size);
// Writes or reads "MISC/AUTPRINT.MRK" of the card; devName may be null.
FLM_API int flm_save_dpof_info(FileListType type, char* devName);
FLM_API int flm_load_dpof_info(FileListType type);

#endif
