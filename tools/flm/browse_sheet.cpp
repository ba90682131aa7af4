#include "browse_sheet.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

#include "failure.h"
#include "findings.h"
#include "print_order.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr int kMostPrints = 99;

void Fail(SheetOutcome& outcome, const std::string& complaint) {
  if (outcome.failed++ == 0) outcome.complaint = complaint;
}

bool IsProtected(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
}

// The first of a file and its companions that is not as it should be, "" for none. The list answers
// for the last companion only; the card tells about every file.
std::string FirstNotProtected(const Entry& entry, bool on) {
  if (!Exists(entry.Path()) || IsProtected(entry.Path()) != on) return entry.Path();
  for (const std::string& companion : entry.companions) {
    if (Exists(companion) && IsProtected(companion) != on) return companion;
  }
  return "";
}

// Why a file could not be removed, as far as the system tells.
std::string WithFolderReason(const std::string& what, const std::string& path) {
  return access(FolderOf(path).c_str(), W_OK) == 0 ? what : WithReason(what, errno);
}

}  // namespace

void Sheet::SetPageSize(int files) {
  pageSize_ = std::max(files, 1);
  pages_.InitPage(pageSize_);
  Refresh();
}

// Shows the page of an index; without such a file that of the nearest one.
void Sheet::Show(int index) {
  std::vector<CQFileListItem> items(static_cast<size_t>(pageSize_));
  current_ = std::clamp(index, 0, std::max(0, Count() - 1));
  const int page = current_ / pageSize_;
  Take(Count() > 0 ? pages_.GetPageAt(page, items.data()) : 0, items);
}

void Sheet::Take(int filled, std::vector<CQFileListItem>& items) {
  if (filled < 0) throw Failure("cannot read the page of file " + std::to_string(current_));
  pageNumber_ = std::max(0, pages_.GetCurPageNum());
  page_.clear();
  for (int k = 0; k < filled; ++k) {
    page_.push_back(Found(items[static_cast<size_t>(k)].filePath, FirstOnPage() + k));
  }
  if (page_.empty()) return;
  current_ = std::clamp(current_, FirstOnPage(), FirstOnPage() + filled - 1);
}

// Everything about a file of the page. A page goes on from the name of its first file, so where two
// files share a name their indexes are not always those counted from the first page.
Entry Sheet::Found(const std::string& path, int index) {
  Entry entry = ReadEntry(card_, std::min(index, Count() - 1));
  if (entry.Path() == path) return entry;
  std::string text = path;
  return ReadEntry(card_, list_.GetFileListIndex(Arg(text)));
}

void Sheet::GoTo(int index) {
  if (IsEmpty()) return;
  const int target = std::clamp(index, 0, Count() - 1);
  const bool onPage = target / pageSize_ == pageNumber_;
  current_ = target;
  if (!onPage) Refresh();
}

void Sheet::Step(int files) {
  if (IsEmpty()) return;
  const int count = Count();
  GoTo(((current_ + files) % count + count) % count);
}

void Sheet::StepRow(int across) {
  if (IsEmpty()) return;
  const int target = current_ + across;
  if (target < 0) return;
  const bool lastRow = current_ / std::abs(across) == (Count() - 1) / std::abs(across);
  if (target >= Count() && lastRow) return;
  GoTo(target);
}

void Sheet::NextPage() {
  if (IsEmpty()) return;
  const int position = Position();
  std::vector<CQFileListItem> items(static_cast<size_t>(pageSize_));
  const int filled = pages_.GetNextPage(items.data());
  current_ = std::max(0, pages_.GetCurPageNum()) * pageSize_ + position;
  Take(filled, items);
}

void Sheet::PreviousPage() {
  if (IsEmpty()) return;
  const int position = Position();
  std::vector<CQFileListItem> items(static_cast<size_t>(pageSize_));
  const int filled = pages_.GetPrevPage(items.data());
  current_ = std::max(0, pages_.GetCurPageNum()) * pageSize_ + position;
  Take(filled, items);
}

void Sheet::ToggleSelected() {
  if (IsEmpty()) return;
  Entry& entry = page_[static_cast<size_t>(Position())];
  list_.SetSel(&entry.item, entry.item.selected == 0);
  entry.item.selected = list_.IsSel(&entry.item) ? 1 : 0;
}

void Sheet::ToggleSelectedAll() {
  list_.SetSelAll(SelectedCount() < Count());
  Refresh();
}

void Sheet::Order(int more) {
  if (IsEmpty()) return;
  if (!orderChanged_) card_.RequireReadable();
  Entry& entry = page_[static_cast<size_t>(Position())];
  const int copies = std::clamp(entry.item.dpofCopies + more, 0, kMostPrints);
  if (list_.SetDPOF(&entry.item, copies) < 0) {
    throw Failure(Printable(BaseName(entry.Path())) +
                  " cannot be printed: its name does not end in JPG in capitals");
  }
  if (copies != entry.item.dpofCopies) orderChanged_ = true;
  entry.item.dpofCopies = static_cast<uint8_t>(copies);
}

int Sheet::LinesToDrop() { return HasPrintOrder() ? CountDroppedLines(ReadPaths(card_)) : 0; }

void Sheet::SaveOrder() {
  if (!orderChanged_) return;
  card_.RequireReadable();
  const std::vector<Entry> wanted = ReadEntries(card_);
  try {
    SavePrintOrder(card_, PrintOrderCreator());
  } catch (const Failure&) {
    RestorePrintMarks(wanted);
    throw;
  }
  orderChanged_ = false;
}

// A saving that fails may have read back half of an order. What was ordered stays ordered in
// memory; the marks that the sheet does not change are those of the order on the card.
void Sheet::RestorePrintMarks(const std::vector<Entry>& wanted) {
  ClearPrintMarks(card_);
  list_.LoadDPOFInfo(nullptr);
  for (Entry entry : wanted) {
    list_.SetDPOF(&entry.item, entry.item.dpofCopies);
    list_.SetDPOFSize(&entry.item, entry.item.dpofSize);
  }
}

std::vector<Entry> Sheet::Targets() {
  std::vector<Entry> targets;
  if (IsEmpty()) return targets;
  if (SelectedCount() <= 0) return {Current()};
  CQFileListItem item;
  for (int found = list_.GetSelFirst(&item); found == 0; found = list_.GetSelNext(&item)) {
    targets.push_back(ReadEntry(card_, list_.GetFileListIndex(item.filePath)));
  }
  return targets;
}

SheetOutcome Sheet::Protect(const std::vector<Entry>& targets, bool on,
                            const SheetProgress& progress) {
  SheetOutcome outcome;
  const int total = static_cast<int>(targets.size());
  for (int i = 0; i < total && !outcome.cancelled; ++i) {
    Entry target = targets[static_cast<size_t>(i)];
    list_.SetProtect(&target.item, on);
    const std::string failed = FirstNotProtected(target, on);
    if (failed.empty()) {
      ++outcome.done;
    } else {
      Fail(outcome, std::string("cannot ") + (on ? "protect " : "unprotect ") + Shown(failed));
    }
    outcome.cancelled = !progress(i + 1, total) && i + 1 < total;
  }
  Refresh();
  return outcome;
}

// A file that is not on the card under its listed name must not pass for deleted.
void Sheet::DeleteOne(const Entry& target, SheetOutcome& outcome) {
  const std::string path = target.Path();
  const std::string complaint = "cannot delete " + Shown(path);
  if (!Exists(path)) {
    Fail(outcome, WithReason(complaint, ENOENT));
    return;
  }
  if (IsProtected(path)) {
    ++outcome.kept;
    return;
  }
  CQFileListItem item = target.item;
  list_.Delete(&item, false, false);
  if (Exists(path)) {
    Fail(outcome, WithFolderReason(complaint, path));
    return;
  }
  ++outcome.done;
  for (const std::string& companion : target.companions) {
    if (!Exists(companion)) continue;
    Fail(outcome, WithFolderReason("cannot delete the companion " + Shown(companion), companion));
  }
}

// Whoever looks into the order must not find a file that is gone.
void Sheet::SaveOrderAfterDeletion(SheetOutcome& outcome) {
  orderChanged_ = true;
  try {
    SaveOrder();
  } catch (const Failure& failure) {
    Fail(outcome, failure.what());
  }
}

SheetOutcome Sheet::Delete(const std::vector<Entry>& targets, const SheetProgress& progress) {
  if (HasPrintOrder()) card_.RequireReadable();
  SheetOutcome outcome;
  const int total = static_cast<int>(targets.size());
  const int before = current_;
  for (int i = 0; i < total && !outcome.cancelled; ++i) {
    const Entry& target = targets[static_cast<size_t>(i)];
    const int doneBefore = outcome.done;
    DeleteOne(target, outcome);
    if (target.index < before && outcome.done > doneBefore) --current_;
    outcome.cancelled = !progress(i + 1, total) && i + 1 < total;
  }
  Refresh();
  if (outcome.done > 0 && HasPrintOrder()) SaveOrderAfterDeletion(outcome);
  return outcome;
}

}  // namespace flm::tool
