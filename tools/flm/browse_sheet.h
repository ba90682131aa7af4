// The contact sheet without its looks: the list cut into pages, the file that the cursor is on, and
// what can be done to the files.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_SHEET_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_SHEET_H

#include <functional>
#include <string>
#include <vector>

#include "entries.h"

namespace flm::tool {

// Told after each file of a long operation how many of how many are done; false stops it.
using SheetProgress = std::function<bool(int done, int total)>;

// What became of the files of an operation.
struct SheetOutcome {
  int done = 0;
  int kept = 0;           // protected files that were not deleted
  int failed = 0;         // the others
  std::string complaint;  // about the first that failed
  bool cancelled = false;
};

class Sheet {
 public:
  explicit Sheet(Card& card) : card_(card), list_(card.List()), pages_(card.List()) {}

  // Files on a page from now on; the page of the current file is shown.
  void SetPageSize(int files);

  // --- What is shown ----------------------------------------------------------------------------
  const std::vector<Entry>& Page() const { return page_; }
  int PageNumber() { return pages_.GetCurPageNum(); }
  int PageCount() { return pages_.GetPageTotalCount(); }
  int Count() { return card_.Count(); }
  int SelectedCount() { return list_.GetSelCount(); }
  int Position() const { return current_ - FirstOnPage(); }  // of the current file on the page
  bool IsEmpty() const { return page_.empty(); }
  const Entry& Current() const { return page_[static_cast<size_t>(Position())]; }
  std::string Shown(const std::string& path) const { return card_.Shown(path); }

  // --- Moving: nothing happens without files. Stepping goes round at both ends. ------------------
  void Step(int files);      // forward, or back with a negative number
  void StepRow(int across);  // down, or up; at the ends of the list it stays
  void NextPage();
  void PreviousPage();
  void GoTo(int index);

  // --- Marks in memory --------------------------------------------------------------------------
  void ToggleSelected();
  void ToggleSelectedAll();  // all files, or none when all are selected

  // --- The print order. Throws Failure when it could not be saved later.
  // --------------------------
  void Order(int more);  // for the current file; 0 to 99 prints
  bool IsOrderChanged() const { return orderChanged_; }
  int LinesToDrop();  // of the order on the card, by the next saving
  void SaveOrder();   // does nothing when the order did not change

  // --- The files themselves ---------------------------------------------------------------------
  // The selected files, else the current one.
  std::vector<Entry> Targets();
  SheetOutcome Protect(const std::vector<Entry>& targets, bool on, const SheetProgress& progress);
  SheetOutcome Delete(const std::vector<Entry>& targets, const SheetProgress& progress);

 private:
  int FirstOnPage() const { return pageNumber_ * pageSize_; }
  void Show(int index);
  void Take(int filled, std::vector<CQFileListItem>& items);
  Entry Found(const std::string& path, int index);
  void Refresh() { Show(current_); }
  void DeleteOne(const Entry& target, SheetOutcome& outcome);
  void SaveOrderAfterDeletion(SheetOutcome& outcome);
  void RestorePrintMarks(const std::vector<Entry>& wanted);

  Card& card_;
  CQFileList& list_;
  IQPageUtil& pages_;
  int pageSize_ = 1;
  int pageNumber_ = 0;
  int current_ = 0;  // index in the list
  std::vector<Entry> page_;
  bool orderChanged_ = false;
};

}  // namespace flm::tool

#endif
