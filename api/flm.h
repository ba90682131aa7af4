/// @file
/// The flat interface: two file lists, one per storage root, used without touching a class.
///
/// Call flm_init once, then flm_listup for each list that is to be used. A list is named by its
/// FileListType, a file by its index in the list (from 0). Nothing but _flm_get_isfilelist may be
/// called before flm_init, and nothing at all after flm_deinit. Call from one thread.
///
/// @anchor flm_results Results of every function that has one:
///  - 0: done; also when the operation itself failed, unless said otherwise
///  - 1: a required output pointer is null (flm_get_new_filename only)
///  - 2: the list number is neither 0 nor 1; nothing was done or written
///  - 3: the lists could not be made (flm_init), or this list was never made: nothing was written
///  - 4: the scan failed (flm_listup only)
///
/// Output pointers are not checked except where said. Values handed out are those of the list's
/// operation, failures included. An index that the list does not hold acts on no file.
#ifndef FILELISTMANAGEMENT_FLM_H
#define FILELISTMANAGEMENT_FLM_H

#include "base/flm_export.h"

class IQFileList;

/// Which list.
enum FileListType : int {
  FILELIST_MMC = 0,  ///< the memory card, root "/mnt/mmc"
  FILELIST_SD0 = 1,  ///< root "/opt/sd0"
};

/// How numbering goes on when the card changes.
enum FileListMode : int {
  FILELIST_MODE_SERIES = 0,  ///< also from the stored number; any value but 1 means this
  FILELIST_MODE_RESET = 1,   ///< from the files on the card alone
};

/// Kind of a file to be named.
enum FileType : int {
  FILETYPE_JPG = 0,  ///< still picture
  FILETYPE_SRW = 1,  ///< raw picture
  FILETYPE_MP4 = 2,  ///< movie
  FILETYPE_3GP = 3,  ///< movie
  FILETYPE_MP3 = 4,  ///< sound
  FILETYPE_WAV = 5,  ///< voice memo
  FILETYPE_MPO = 6,  ///< multi-picture file
};

/// @name Helpers
/// @{

/// @param p any pointer
/// @return 1 when p is not null, else 0
FLM_API int _flm_null_check(void* p);

/// @param type a list number
/// @return 1 for 0 and 1, else 0
FLM_API int _flm_range_check(int type);

/// Calls flm_init first.
/// @param type which list
/// @return the list, which belongs to the library; null when there is none
FLM_API IQFileList* _flm_get_isfilelist(FileListType type);

/// @}
/// @name Start and stop
/// @{

/// Makes the two lists; nothing is scanned yet. Later calls return 0 and do nothing, also when the
/// first one failed.
/// @return 0; 3 when the lists could not be made
FLM_API int flm_init();

/// Destroys the lists, for good: the library is not used again in this process.
/// @return 0
FLM_API int flm_deinit();

/// Scans the whole card; see IQFileList::Listup.
/// @param type which list
/// @return 0; 2; 3; 4 when the scan failed: flm_get_count then tells its code
FLM_API int flm_listup(FileListType type);

/// @}
/// @name Numbering
/// @{

/// Says how numbering goes on. Has no effect before the first flm_listup of the list.
/// @param type which list
/// @param mode see FileListMode
/// @return 0; 2; 3
FLM_API int flm_set_series_mode(FileListType type, FileListMode mode);

/// @param type which list
/// @param[out] mode FILELIST_MODE_RESET at first
/// @return 0; 2; 3
FLM_API int flm_get_series_mode(FileListType type, FileListMode* mode);

/// Reserves the next name; see IQFileList::GetNewFileName. A failure to name leaves *name without a
/// new path: empty it before the call to tell.
/// @param type which list
/// @param kind extension of the file
/// @param[out] name *name has room for 396 bytes and gets the full path
/// @return 0; 1 when name or *name is null; 2; 3
FLM_API int flm_get_new_filename(FileListType type, FileType kind, char** name);

/// @}
/// @name Files
/// @{

/// Forgets a file; it stays on the card.
/// @param type which list
/// @param index of the file
/// @return 0; 2; 3
FLM_API int flm_remove_file_from_list(FileListType type, int index);

/// @param type which list
/// @param path full path of a file
/// @param[out] exists 1 when the list holds it, else 0
/// @return 0; 2; 3
FLM_API int flm_is_exist(FileListType type, char* path, int* exists);

/// @param type which list
/// @param[out] count number of files; -1 before a scan; a failed scan's code
/// @return 0; 2; 3
FLM_API int flm_get_count(FileListType type, int* count);

/// The path of a file. Moves the cursor to it.
/// @param type which list
/// @param index of the file
/// @param[out] name exactly 1024 bytes of *name are written: the path, and zeros behind it; only
///     zeros for no file
/// @return 0; 2; 3
FLM_API int flm_get_at(FileListType type, int index, char** name);

/// @}
/// @name Cursor
/// The current file. Every function that takes an index of a file moves the cursor to that file.
/// @{

/// @param type which list
/// @return 0; 2; 3
FLM_API int flm_move_to_first(FileListType type);

/// @param type which list
/// @return 0; 2; 3
FLM_API int flm_move_to_last(FileListType type);

/// In front of the first file, and without a current file, there is no current file afterwards.
/// @param type which list
/// @return 0; 2; 3
FLM_API int flm_move_to_prev(FileListType type);

/// Behind the last file there is no current file; the next step on goes to the first.
/// @param type which list
/// @return 0; 2; 3
FLM_API int flm_move_to_next(FileListType type);

/// @param type which list
/// @param index of the file
/// @return 0; 2; 3
FLM_API int flm_set_cursor(FileListType type, int index);

/// @param type which list
/// @param[out] index of the current file, -1 for none
/// @return 0; 2; 3
FLM_API int flm_get_cursor(FileListType type, int* index);

/// @}
/// @name Marks
/// @{

/// Selects a file for the bulk operations of IQSelectedFileList.
/// @param type which list
/// @param index of the file
/// @param on 0 or not
/// @return 0; 2; 3
FLM_API int flm_set_selection(FileListType type, int index, int on);

/// @param type which list
/// @param index of the file
/// @param[out] on 1 when it is selected, else 0
/// @return 0; 2; 3
FLM_API int flm_get_selection(FileListType type, int index, int* on);

/// Protects a file and its companions on the card, or unprotects them.
/// @param type which list
/// @param index of the file
/// @param on 0 or not
/// @return 0; 2; 3
FLM_API int flm_set_protection(FileListType type, int index, int on);

/// @param type which list
/// @param index of the file
/// @param[out] on 1 when it is protected, else 0
/// @return 0; 2; 3
FLM_API int flm_get_protection(FileListType type, int index, int* on);

/// @}
/// @name Print order (DPOF 1.10)
/// Marks in memory; flm_save_dpof_info writes them to the card. Only JPG files take them.
/// @{

/// @param type which list
/// @param index of the picture
/// @param copies 0 to 99 prints; other values change nothing
/// @return 0; 2; 3
FLM_API int flm_set_dpof(FileListType type, int index, int copies);

/// @param type which list
/// @param copies prints of every JPG: 0 or more, of which the low 8 bits are kept
/// @return 0; 2; 3
FLM_API int flm_set_dpof_all(FileListType type, int copies);

/// @param type which list
/// @param index of the picture
/// @param[out] copies prints ordered; -3 for an index that the list does not hold
/// @return 0; 2; 3
FLM_API int flm_get_dpof(FileListType type, int index, int* copies);

/// @param type which list
/// @param on puts every JPG into the index print; 0 takes every one out
/// @return 0; 2; 3
FLM_API int flm_set_dpof_index(FileListType type, int on);

/// @param type which list
/// @param index of the picture
/// @param[out] on 1 when it is in the index print, else 0
/// @return 0; 2; 3
FLM_API int flm_get_dpof_index(FileListType type, int index, int* on);

/// @param type which list
/// @param index of the picture
/// @param size print size code: 3, 4, 5 or 8; 0 for none. See IQFileList::SetDPOFSize
/// @return 0; 2; 3
FLM_API int flm_set_dpof_size(FileListType type, int index, int size);

/// @param type which list
/// @param size print size code of every JPG
/// @return 0; 2; 3
FLM_API int flm_set_dpof_size_all(FileListType type, int size);

/// @param type which list
/// @param index of the picture
/// @param[out] size print size code, 0 for none; -3 for an index that the list does not hold
/// @return 0; 2; 3
FLM_API int flm_get_dpof_size(FileListType type, int index, int* size);

/// Writes "MISC/AUTPRINT.MRK" of the card.
/// @param type which list
/// @param devName device name in the file; may be null
/// @return 0; 2; 3
FLM_API int flm_save_dpof_info(FileListType type, char* devName);

/// Reads "MISC/AUTPRINT.MRK" of the card and sets the marks that it names; flm_listup has done so.
/// @param type which list
/// @return 0; 2; 3
FLM_API int flm_load_dpof_info(FileListType type);

/// @}

#endif
