// Protection and print marks of many files: one walk from the last file to the first, which each
// operation supplies with a filter, an action and the rule for its result.
#include "filelist/CQFileList_internal.h"

// What tells the four operations apart.
struct CQFileList::BulkWalk {
  int (*act)(CQFileList& list, CQFileListItem* item, bool on);
  bool on;            // handed to the action
  bool selectedOnly;  // passes over files that are not selected, and counts only the others
  bool blamesStep;    // a failure is reported by the result of the step that reached the file
  bool returnsLast;   // the result is that of the last step or action, else 0
};

namespace {

constexpr int kWalkFailed = -20000;  // minus the code that is reported

int Protect(CQFileList& list, CQFileListItem* item, bool on) { return list.SetProtect(item, on); }

int ToggleProtection(CQFileList& list, CQFileListItem* item, bool /*on*/) {
  return list.SetProtect(item, !list.IsProtect(item));
}

int ToggleOrder(CQFileList& list, CQFileListItem* item, bool /*on*/) {
  return list.SetDPOF(item, list.GetDPOFNumOfCopy(item) > 0 ? 0 : 1);
}

}  // namespace

int CQFileList::WalkBackwards(const BulkWalk& walk, ProgressCallback callback) {
  // A list whose catalogue was released keeps its count, but has no file to change.
  if (catalogue_ == nullptr && GetCount() > 0) return -1;
  const int selected = walk.selectedOnly ? GetSelCount() : 0;
  int handled = 0;
  int result = 0;
  CQFileListItem item;  // one for the whole walk: a companions' path found once stays in it
  for (int i = 0; i < GetCount(); ++i) {
    const int step = i == 0 ? GetLast(&item, true) : GetPrev(&item, false);
    result = step;
    if (walk.selectedOnly && !IsSel(&item)) continue;
    const int acted = walk.act(*this, &item, walk.on);
    if (acted < 0) return kWalkFailed - (walk.blamesStep ? step : acted);
    result = acted;
    int status = 0;
    bool cancel = false;
    if (callback != nullptr) {
      callback(walk.selectedOnly ? handled : i, walk.selectedOnly ? selected : GetCount(), &status,
               &cancel);
    }
    if (cancel) return flm::kBulkCancelled;
    ++handled;
  }
  return walk.returnsLast ? result : 0;
}

int CQFileList::SetProtectAll(bool on, ProgressCallback callback) {
  return WalkBackwards({Protect, on, false, true, false}, callback);
}

int CQFileList::SetProtectSel(bool on, ProgressCallback callback) {
  return WalkBackwards({Protect, on, true, true, false}, callback);
}

int CQFileList::SetProtectSel(ProgressCallback callback) {
  return WalkBackwards({ToggleProtection, false, true, false, true}, callback);
}

int CQFileList::DPOFSel(ProgressCallback callback) {
  return WalkBackwards({ToggleOrder, false, true, false, true}, callback);
}
