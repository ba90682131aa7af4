// Pages, built on the list's own walks: a page holds the files in list order and moves the cursor.
// The first file of the current page is remembered by its path, so that the next step finds its way
// even when files were added meanwhile. Positions are computed in 64 bits, for every page number.
#include <climits>
#include <cstdint>

#include "base/bounded_text.h"
#include "base/wrapping.h"
#include "dcf/CQDCFList.h"
#include "filelist/CQFileList.h"
#include "fsio/file_status.h"

namespace {

int64_t PositionOf(int page, int pageSize) { return static_cast<int64_t>(page) * pageSize; }

}  // namespace

int CQFileList::InitPage(int pageSize) {
  pageSize_ = pageSize;
  curPage_ = -1;
  return 0;
}

int CQFileList::GetCurPageNum() { return curPage_; }

int CQFileList::GetPageTotalCount() {
  if (pageSize_ <= 0) return 0;
  const int files = GetCount();
  return files / pageSize_ + (files % pageSize_ > 0 ? 1 : 0);
}

bool CQFileList::IsBeyondLast(int page, int offset) const {
  return PositionOf(page, pageSize_) + offset >= count_;
}

// Index of a page's first file; an index that no file has when the page lies beyond all numbers.
int CQFileList::IndexOfPage(int page) const {
  const int64_t position = PositionOf(page, pageSize_);
  return position > INT_MAX || position < 0 ? -1 : static_cast<int>(position);
}

void CQFileList::TakeOnPage(CQFileListItem* element, const CQFileListItem& found,
                            flm::FileStatus& status) {
  flm::CopyText(element->filePath, flm::kPathSize, found.filePath);
  FillInfo(element, status);
}

// A step of filling a page. The information that it would give is only wanted on the page.
int CQFileList::StepOnPage(CQFileListItem* found, flm::FileStatus& status, WalkStep step) {
  const bool first = step == WalkStep::kFirst;
  status.Forget();
  if (!IsDerived()) {
    return first ? StepFirst(found, status, false) : StepNext(found, status, false);
  }
  return first ? GetFirst(found, true) : GetNext(found, true);
}

// Fills a page forward and remembers its first file. `bounded` also ends it at the last file of the
// list; a page in front of another one is always full.
int CQFileList::FillPage(CQFileListItem* items, PageStart start, bool bounded) {
  CQFileListItem found;
  flm::FileStatus status(found.filePath);
  int filled = 0;
  int step = start == PageStart::kFirstFile ? StepOnPage(&found, status, WalkStep::kFirst)
                                            : GetCur(&found);
  flm::CopyText(pageTopPath_, flm::kPathSize, found.filePath);
  while (step >= 0) {
    TakeOnPage(&items[filled], found, status);
    ++filled;
    if (filled >= pageSize_ || (bounded && IsBeyondLast(curPage_, filled))) break;
    step = StepOnPage(&found, status, WalkStep::kNext);
  }
  return filled;
}

int CQFileList::GetFirstPage(CQFileListItem* items) {
  if (GetCount() == 0) return 0;
  if (GetCount() < 0 || items == nullptr) return -1;
  curPage_ = 0;
  if (pageSize_ <= 0 || count_ <= 0) return 0;
  const int filled = FillPage(items, PageStart::kFirstFile, true);
  curPage_ = 0;
  return filled;
}

int CQFileList::AnchorOnPageTop() {
  const int result = SetCur(pageTopPath_);
  curIndex_ = GetFileListIndex(pageTopPath_);
  return result;
}

// Steps over a page of files. Only the last step is seen: of the others stay the cursor and the
// count.
bool CQFileList::PassPage(WalkStep step) {
  const bool forward = step == WalkStep::kNext;
  CQFileListItem passed;
  for (int i = 0; i < pageSize_; ++i) {
    const bool unseen = i + 1 < pageSize_ && !IsDerived() && CanWalk(&passed) && DCF_GetCount() > 0;
    if (unseen && (forward ? catalogue_->PassNext() : catalogue_->PassPrev())) {
      count_ = DCF_GetCount();
      continue;
    }
    const int result = forward ? GetNext(&passed, IsDerived()) : GetPrev(&passed, IsDerived());
    if (result < 0) return false;
  }
  return true;
}

int CQFileList::GetNextPage(CQFileListItem* items) {
  if (GetCount() == 0) return 0;
  if (items == nullptr) return -1;
  if (GetCurPageNum() == GetPageTotalCount() - 1) return GetFirstPage(items);
  AnchorOnPageTop();
  if (pageSize_ <= 0) {
    curPage_ = flm::WrappingSum(curPage_, 1);
    return 0;
  }
  if (!PassPage(WalkStep::kNext)) return -1;
  curPage_ = flm::WrappingSum(curPage_, 1);
  if (IsBeyondLast(curPage_, 0)) return 0;
  return FillPage(items, PageStart::kCursor, true);
}

int CQFileList::GetPrevPage(CQFileListItem* items) {
  if (GetCount() == 0) return 0;
  if (items == nullptr) return -1;
  if (GetCurPageNum() == 0) return GetLastPage(items);
  AnchorOnPageTop();
  if (pageSize_ <= 0) {
    curPage_ = flm::WrappingSum(curPage_, -1);
    return 0;
  }
  if (!PassPage(WalkStep::kPrev)) return -1;
  const int filled = FillPage(items, PageStart::kCursor, false);
  curPage_ = flm::WrappingSum(curPage_, -1);
  return filled;
}

int CQFileList::GetLastPage(CQFileListItem* items) {
  if (GetCount() == 0 || pageSize_ <= 0) return 0;
  if (items == nullptr) return -1;
  int onPage = GetCount() % pageSize_;
  if (onPage == 0) onPage = pageSize_;
  CQFileListItem found;
  for (int k = onPage - 1; k >= 0; --k) {
    const int step = k == onPage - 1 ? GetLast(&found, IsDerived()) : GetPrev(&found, IsDerived());
    if (step < 0) break;
    flm::CopyText(pageTopPath_, flm::kPathSize, found.filePath);
    flm::FileStatus status(found.filePath);
    TakeOnPage(&items[k], found, status);
  }
  curPage_ = GetPageTotalCount() - 1;
  return onPage;
}

int CQFileList::GetPageAt(int page, CQFileListItem* items) {
  if (page < 0) return -1;
  if (GetCount() <= 0) return -2;
  if (items == nullptr) return -1;
  const bool shown = curPage_ >= 0;
  if (shown && page - 1 == curPage_) return GetNextPage(items);
  if (shown && page == curPage_ - 1) return GetPrevPage(items);
  if (!shown || page != curPage_) {
    CQFileListItem first;
    if (GetAt(IndexOfPage(page), &first, IsDerived()) < 0) return -1;
    flm::CopyText(pageTopPath_, flm::kPathSize, first.filePath);
  }
  return ShowPageFrom(page, items);
}

// Shows the page whose first file is remembered.
int CQFileList::ShowPageFrom(int page, CQFileListItem* items) {
  int result = AnchorOnPageTop();
  if (curIndex_ < 0) {
    CQFileListItem first;
    result = GetAt(IndexOfPage(page), &first, IsDerived());
  }
  if (result < 0) return -1;
  curPage_ = page;
  if (pageSize_ <= 0 || IsBeyondLast(page, 0)) return 0;
  const int filled = FillPage(items, PageStart::kCursor, true);
  curPage_ = page;
  return filled;
}
