// The selected files of a list, as a list of their own.
#ifndef FILELISTMANAGEMENT_IQSELECTEDFILELIST_H
#define FILELISTMANAGEMENT_IQSELECTEDFILELIST_H

#include "base/flm_export.h"
#include "filelist/CQFileListItem.h"
#include "filelist/filelist_types.h"

// Obtained from CBIFileListManager::GetSelectedFileList; it is another face of the list that
// IQFileList shows. The order of the operations is part of the binary interface.
class FLM_API IQSelectedFileList {
 public:
  virtual ~IQSelectedFileList();

  // --- Walking the selected files ---------------------------------------------------------------
  // Each writes the path of the file found into item->filePath and returns 0, or returns -1 and
  // leaves `item` as it was when there is none. Without a catalogue each returns 0 and leaves
  // `item` untouched. The walk keeps its own place, shared with the walks over voice memos and
  // continuous captures: do not interleave two walks. Item must not be null for First and Next.
  virtual int GetSelFirst(CQFileListItem* item) = 0;
  virtual int GetSelNext(CQFileListItem* item) = 0;
  virtual int GetSelPrev(CQFileListItem* item) = 0;  // fills objectPath too; null item: -1, after
                                                     // the test for a catalogue
  virtual int GetSelLast(CQFileListItem* item) = 0;  // null item: -1, even without a catalogue

  // Number of selected files; -6 without a catalogue.
  virtual int GetSelCount() = 0;

  // --- Bulk operations on the selected files ----------------------------------------------------
  // A null callback reports nothing and cannot cancel. 10000 when the callback cancelled.

  // Deletes every selected file, from the last to the first, and rewrites the print order after
  // each. `force` deletes protected files too. Companions stay: only paths travel from file to
  // file. Callback: (index, selected files at the start, result of Delete for the file).
  // 0 when nothing was selected or all were deleted; -1000 when the print order could not be
  // saved; else the result of the last step of the walk.
  virtual int DeleteSel(bool force, ProgressCallback callback) = 0;

  // Protects or unprotects every selected file, from the last to the first. Callback: (selected
  // files handled before, selected files at the start, 0). 0 when done; when a file could not be
  // changed -20000 minus the result of the step that reached it (0), and the walk stops.
  virtual int SetProtectSel(bool on, ProgressCallback callback) = 0;

  // As above, but each selected file that is protected is unprotected and the other way round;
  // -20000 minus the result of SetProtect when that fails. Returns the result of the last step.
  virtual int SetProtectSel(ProgressCallback callback) = 0;

  // Each selected file that has prints ordered gets 0 copies, each other one gets 1. Only the marks
  // in memory change; save with SaveDPOFInfo. -20000 minus the result of SetDPOF when that fails
  // (so a selected movie ends the walk). Returns the result of the last step.
  virtual int DPOFSel(ProgressCallback callback) = 0;
};

#endif
