// The walk over the files whose info byte is set. It gives what the plain walk with GetCustomInfo
// for each file gives; files whose answer is known to be 0 are passed over by position. The answer
// for a file is not always its own byte: the mark reads compare numbers in paths. So files are
// passed over only where the numbers in a file's path are sure to be its own.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"

namespace {

constexpr size_t kPlainNameLength = 8;

// The flag that files with a byte other than 0 have; 0 for bytes that no flag tells.
flm::ItemFlags FlagOfInfo(int byte) {
  switch (byte) {
    case flm::kMarkInfoDpofCopies:
      return flm::kFlagCopies;
    case flm::kMarkInfoDpofIndex:
      return flm::kFlagIndex;
    case flm::kMarkInfoDpofSize:
      return flm::kFlagSize;
    default:
      return 0;
  }
}

}  // namespace

// Whether the numbers in the paths of a directory's files are read where they stand and are those
// of the directory.
bool CQDCFList::IsPlainSlot(int slot) const {
  if (!IsSlot(slot) || mode_ != flm::kModeStillNamed || flm::HasCameraWord(baseURI_)) return false;
  const char* const name = dirTable_[slot].GetDirName();
  const int number = dirTable_[slot].GetDnum();
  return std::strlen(name) == kPlainNameLength && number >= flm::kFirstDirNumber &&
         number <= flm::kLastDirNumber && flm::ReadNumber(name, flm::kDirDigits) == number &&
         std::strchr(name, '/') == nullptr && !flm::HasCameraWord(name);
}

// Moves the cursor in front of the next file of its directory that has any of the flags, or to the
// directory's last file.
void CQDCFList::SkipInSlot(InfoWalk& walk, flm::ItemFlags flags) {
  if (curItem_ == nullptr || !HasList(curDirIndex_)) return;
  if (curItem_->next == nullptr || (flm::FlagsOf(curItem_->next) & flags) != 0) return;
  CQDCFDir& dir = dirTable_[curDirIndex_];
  if (dir.IsWalked()) {
    DCFItem* item = curItem_;
    for (; walk.left > 0 && item->next != nullptr; --walk.left) {
      if ((flm::FlagsOf(item->next) & flags) != 0) break;
      item = item->next;
    }
    if (item != curItem_) MoveCursor({curDirIndex_, item}, dir.GetDnum());
    return;
  }
  const DCFItem* const next = dir.NextWith(curItem_, flags);
  const int here = dir.PositionOf(curItem_);
  const int end = next == nullptr ? dir.GetCount() : dir.PositionOf(next);
  int skipped = end - 1 - here;
  if (skipped > walk.left) skipped = walk.left;
  if (here < 0 || skipped <= 0) return;
  walk.left -= skipped;
  MoveCursor({curDirIndex_, dir.GetItemAt(here + skipped)}, dir.GetDnum());
}

// One file of the walk; false at its end.
bool CQDCFList::StepInfoWalk(InfoWalk& walk, PathOut out) {
  if (walk.left <= 0) return false;
  char objects[flm::kPathSize];
  const PathOut objOut = {objects, flm::kPathSize};
  const int step = walk.started ? TakeNext(out, objOut, nullptr, nullptr)
                                : TakeFirst(out, objOut, true, nullptr, nullptr);
  walk.started = true;
  walk.left = step < 0 ? 0 : walk.left - 1;
  return step >= 0;
}

// Whether the walk stands in a directory, and on a file of it, whose numbers are sure to be those
// in its path. On the first file of all the cursor may carry another directory number.
bool CQDCFList::IsPlainFile(InfoWalk& walk) const {
  if (walk.judgedSlot != curDirIndex_) {
    walk.judgedSlot = curDirIndex_;
    walk.plain = IsPlainSlot(curDirIndex_);
  }
  return walk.plain && curItem_ != nullptr && curDnum_ == dirTable_[curDirIndex_].GetDnum() &&
         (flm::FlagsOf(curItem_) & flm::kFlagOdd) == 0;
}

int CQDCFList::GetNextWithInfo(InfoWalk& walk, char* out, int outSize) {
  const flm::ItemFlags flag = FlagOfInfo(walk.byte);
  for (;;) {
    if (walk.started && flag != 0 && walk.plain) {
      SkipInSlot(walk, static_cast<flm::ItemFlags>(flag | flm::kFlagOdd));
    }
    if (!StepInfoWalk(walk, {out, outSize})) return 0;
    const int value = IsPlainFile(walk) ? dirTable_[curDirIndex_].GetItemInfo(curItem_, walk.byte)
                                        : GetCustomInfo(out, walk.byte);
    if (value != 0) return value;
  }
}

void CQDCFList::EndWalk(InfoWalk& walk) {
  char path[flm::kPathSize];
  do {
    if (walk.started) SkipInSlot(walk, 0);
  } while (StepInfoWalk(walk, {path, flm::kPathSize}));
}
