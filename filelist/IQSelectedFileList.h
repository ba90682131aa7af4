/// @file
/// The selected files of a list, as a list of their own.
#ifndef FILELISTMANAGEMENT_IQSELECTEDFILELIST_H
#define FILELISTMANAGEMENT_IQSELECTEDFILELIST_H

#include "base/flm_export.h"
#include "filelist/CQFileListItem.h"
#include "filelist/filelist_types.h"

/// The selected files of a list: walk, delete, protect, order prints.
///
/// Obtained from CBIFileListManager::GetSelectedFileList; it is another face of the list that
/// IQFileList shows, where IQFileList::SetSel selects files. The order of the operations is part of
/// the binary interface.
class FLM_API IQSelectedFileList {
 public:
  /// Callers never destroy a list themselves: the manager owns it.
  virtual ~IQSelectedFileList();

  /// @name Walking the selected files
  /// Each writes the path of the file found into item->filePath and returns 0, or returns -1 and
  /// leaves `item` as it was when there is none. Without a catalogue each returns 0 and leaves
  /// `item` untouched. The walk keeps its own place, shared with the walks over voice memos and
  /// continuous captures: do not interleave two walks.
  /// @{

  /// The first selected file in list order. Leaves the list without a current file.
  /// @param[out] item its path
  /// @return 0, or -1
  virtual int GetSelFirst(CQFileListItem* item) = 0;

  /// The selected file behind the one found last.
  /// @param[out] item its path
  /// @return 0, or -1, also when no walk has begun or the file found last is gone from the list
  virtual int GetSelNext(CQFileListItem* item) = 0;

  /// The selected file in front of the one found last.
  /// @param[out] item its path, and its companions' path in objectPath. Directly behind a step into
  ///     an earlier folder, objectPath still names the folder that was left
  /// @return 0, or -1, also when no walk has begun
  virtual int GetSelPrev(CQFileListItem* item) = 0;

  /// The last selected file. Leaves the list without a current file.
  /// @param[out] item its path; a null one gives -1 even without a catalogue
  /// @return 0, or -1
  virtual int GetSelLast(CQFileListItem* item) = 0;

  /// @return number of selected files; -6 without a catalogue
  virtual int GetSelCount() = 0;

  /// @}
  /// @name Bulk operations on the selected files
  /// 10000 when the callback cancelled. A null callback reports nothing and cannot cancel. Without
  /// files, and before the first scan, all but DeleteSel return 0.
  /// @{

  /// Deletes every selected file, from the last to the first, and rewrites the print order after
  /// each. Companions stay: only paths travel from file to file.
  /// @param force deletes protected files too
  /// @param callback told (index, selected files at the start, result of IQFileList::Delete for the
  ///     file)
  /// @return 0 when nothing was selected or all were deleted; -1000 when the print order could not
  ///     be saved, also without a catalogue; else the result of the last step of the walk: -1 when
  ///     it reached its end
  virtual int DeleteSel(bool force, ProgressCallback callback) = 0;

  /// Protects or unprotects every selected file, from the last to the first.
  /// @param on true protects
  /// @param callback told (selected files handled before, selected files at the start, 0)
  /// @return 0 when done; when a file could not be changed -20000 minus the result of the step that
  ///     reached it (0 as a rule), and the walk stops
  virtual int SetProtectSel(bool on, ProgressCallback callback) = 0;

  /// As above, but each selected file that is protected is unprotected and the other way round.
  /// @param callback told (selected files handled before, selected files at the start, 0)
  /// @return the result of the last step, 0 as a rule; -20000 minus the result of
  ///     IQFileList::SetProtect when that fails
  virtual int SetProtectSel(ProgressCallback callback) = 0;

  /// Each selected file that has prints ordered gets 0 copies, each other one gets 1. Only the
  /// marks in memory change; IQFileList::SaveDPOFInfo writes them.
  /// @param callback told (selected files handled before, selected files at the start, 0)
  /// @return the result of the last step, 0 as a rule; -20000 minus the result of
  ///     IQFileList::SetDPOF when that fails, so a selected movie ends the walk with -19800
  virtual int DPOFSel(ProgressCallback callback) = 0;

  /// @}
};

#endif
