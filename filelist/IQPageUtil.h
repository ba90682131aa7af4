/// @file
/// A list cut into pages, for thumbnail screens.
#ifndef FILELISTMANAGEMENT_IQPAGEUTIL_H
#define FILELISTMANAGEMENT_IQPAGEUTIL_H

#include "base/flm_export.h"
#include "filelist/CQFileListItem.h"

/// The files of a list page by page.
///
/// Obtained from CBIFileListManager::GetPageUtil; another face of the list that IQFileList shows.
/// Pages are numbered from 0; page p holds the files at the indexes p * pageSize to p * pageSize +
/// pageSize - 1. `items` is the caller's array with room for pageSize items; element k gets the
/// k-th file of the page (path, marks, protection and time; objectPath stays as it was), elements
/// beyond the last file stay as they are. Every page call moves the list's cursor to the last file
/// that it read. Call InitPage first, with a positive size, after a successful scan. A deletion
/// forgets the current page, as InitPage does; go to a page by its number, to the first or the last
/// before stepping: a step without a current page begins wherever the list stands. A null `items`
/// gives -1. The order of the operations is part of the binary interface.
class FLM_API IQPageUtil {
 public:
  /// Callers never destroy a list themselves: the manager owns it.
  virtual ~IQPageUtil();

  /// Sets the number of files per page and forgets the current page.
  /// @param pageSize files per page; not checked: with 0 or less there are no pages
  /// @return 0
  virtual int InitPage(int pageSize) = 0;

  /// Goes to a page. The page after or before the current one is reached by GetNextPage or
  /// GetPrevPage, wrap-around included: behind the last page comes the first.
  /// @param page number of the page, from 0
  /// @param[out] items the files of the page
  /// @return number of items filled; -1 for a negative page or one that lies beyond the files; -2
  ///     when the list has no files
  virtual int GetPageAt(int page, CQFileListItem* items) = 0;

  /// Goes to page 0.
  /// @param[out] items the files of the page
  /// @return number of items filled; 0 for an empty list, -1 before a successful scan
  virtual int GetFirstPage(CQFileListItem* items) = 0;

  /// Goes one page on, from the last page to the first.
  /// @param[out] items the files of the page
  /// @return number of items filled, 0 for an empty list; -1 when the walk to the next page fails
  ///     (the current page stays)
  virtual int GetNextPage(CQFileListItem* items) = 0;

  /// Goes one page back, from page 0 to the last.
  /// @param[out] items the files of the page
  /// @return as GetNextPage
  virtual int GetPrevPage(CQFileListItem* items) = 0;

  /// Goes to the last page.
  /// @param[out] items the files of the page, filled from the last one backwards; the cursor ends
  ///     on the first
  /// @return number of files on the last page, also when some of them could not be read; 0 for an
  ///     empty list or without a page size
  virtual int GetLastPage(CQFileListItem* items) = 0;

  /// @return number of the current page; -1 when none has been shown since InitPage or since a
  ///     deletion
  virtual int GetCurPageNum() = 0;

  /// @return number of pages; 0 without a page size
  virtual int GetPageTotalCount() = 0;
};

#endif
