#include "tests/faults/fault_parts.h"

#include <cerrno>

#include "platform/preference.h"

namespace flm_faults {
namespace {

constexpr int kCancelled = 10000;
constexpr int kSaveFailed = -1000;

// --- What may come of it -------------------------------------------------------------------------
bool IsOneOf(int value, std::initializer_list<int> values) {
  for (const int one : values) {
    if (value == one) return true;
  }
  return false;
}

Complaint Odd(const char* operation, int result) {
  return std::string(operation) + " answers " + std::to_string(result);
}

bool Holds(const Aftermath& after, const std::string& path) {
  for (const Listed& file : after.listed) {
    if (file.path == path) return true;
  }
  return false;
}

bool HasFailed(const Aftermath& after, Call call) {
  return (after.counted.failed & 1U << static_cast<unsigned int>(call)) != 0;
}

bool IsThere(const Aftermath& after, const std::string& path) { return after.now.count(path) != 0; }

bool IsProtectedNow(const Aftermath& after, const std::string& path) {
  const auto found = after.now.find(path);
  return found != after.now.end() && (found->second.mode & S_IWUSR) == 0;
}

}  // namespace

// The number of files, or -1 for a lack of memory or -2 for a tree that cannot be opened.
Complaint JudgeScan(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (result >= 0 && static_cast<size_t>(result) != after.listed.size())
    return Odd("Listup", result);
  if (result < 0 && !after.listed.empty()) return "a failed scan holds files";
  if (result == -1 && after.fault.source == Source::kSystem) return Odd("Listup", result);
  return result < -2 ? Odd("Listup", result) : "";
}

// A status that cannot be had costs the time fields, no file and no path.
Complaint JudgeSame(const Aftermath& after) {
  return after.world.record == after.clean ? "" : "the results are others than without a fault";
}

Complaint JudgeWalk(const Aftermath& after) {
  const Record& record = after.world.record;
  if (record.Last() != -1) return Odd("the last step of the walk", record.Last());
  for (int i = 0; i + 2 < record.Texts(); i += 2) {
    const std::string path = after.world.Below(record.TextAt(i));
    if (!IsThere(after, path)) return "the walk names " + path;
  }
  return "";
}

// A name that was given out is new and held by the list, and lies in the folder that was made for
// it.
Complaint JudgeName(const Aftermath& after, int result, const std::string& path) {
  if (result < 0) return IsOneOf(result, {-1, -9999}) ? "" : Odd("GetNewFileName", result);
  if (result > 0) return Odd("GetNewFileName", result);
  if (path.compare(0, 14, "DCIM/104PHOTO/") != 0) return "a name in another folder: " + path;
  const bool recordless =
      (after.scenario.excuses & kNameWithoutRecord) != 0 && after.fault.source == Source::kMemory;
  if (!Holds(after, path) && !recordless) return "a new name is not in the list";
  const bool made = IsThere(after, "DCIM/104PHOTO/") || HasFailed(after, Call::kMkdir);
  return made ? "" : "the folder of a new name is not made";
}

Complaint JudgeNames(const Aftermath& after) {
  const Record& record = after.world.record;
  for (int i = 0; i < record.Results(); ++i) {
    const Complaint complaint = JudgeName(after, record.At(i), after.world.Below(record.TextAt(i)));
    if (!complaint.empty()) return complaint;
  }
  return "";
}

// Each name is followed by what is known about the file then: two results, three texts.
Complaint JudgeImport(const Aftermath& after) {
  const Record& record = after.world.record;
  for (int i = 0; 2 * i + 1 < record.Results(); ++i) {
    const std::string path = after.world.Below(record.TextAt(3 * i));
    const Complaint complaint = JudgeName(after, record.At(2 * i), path);
    if (!complaint.empty()) return complaint;
    const int known = record.At(2 * i) == 0 ? 0 : -1;
    if (record.At(2 * i + 1) != known) return Odd("GetFileInfo", record.At(2 * i + 1));
  }
  return "";
}

// 0: the file is there; a file index or -1000: it is gone.
Complaint JudgeDeletion(const Aftermath& after) {
  const int result = after.world.record.Last();
  const std::string path = after.world.Below(after.world.item.filePath);
  const bool gone = !IsThere(after, path);
  if (result != kSaveFailed && result < 0) return Odd("Delete", result);
  if (result == 0 && gone) return "Delete answers 0 and the file is gone";
  // A status that cannot be had says "not there".
  const bool believed = after.fault.lasting;
  if (result != 0 && !gone && !believed) return Odd("Delete", result) + " and the file is there";
  return "";
}

// A card that gives no status of a protected file does not say that it is protected.
Complaint JudgeRefusedDeletion(const Aftermath& after) {
  const int result = after.world.record.Last();
  const bool hidden = HasFailed(after, Call::kStat);
  return result == -100 || hidden || IsThere(after, kProtected)
             ? ""
             : "a protected file is deleted unasked";
}

Complaint JudgeDeleteAll(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (result < 0 && !IsOneOf(result, {-100, -200, kSaveFailed})) return Odd("DeleteAll", result);
  if (result == kCancelled) return Odd("DeleteAll", result);
  if (result < 0 && result != kSaveFailed) return "";
  for (const Listed& file : after.listed) {
    if (file.path != kProtected) return Odd("DeleteAll", result) + " and the list has files";
  }
  return "";
}

Complaint JudgeDeleteSelected(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (!IsOneOf(result, {0, -1, kSaveFailed})) return Odd("DeleteSel", result);
  return result == 0 && after.world.list.GetSelCount() != 0 ? "DeleteSel answers 0 and left files"
                                                            : "";
}

// The result is that of the file changed last: the memo.
Complaint JudgeProtection(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (!IsOneOf(result, {0, -1})) return Odd("SetProtect", result);
  const bool done = IsProtectedNow(after, "DCIM/100PHOTO/QVX_0002.WAV");
  return result == 0 && !done ? "SetProtect answers 0 and the file is not protected" : "";
}

Complaint JudgeProtectAll(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (!IsOneOf(result, {0, -20000})) return Odd("SetProtectAll", result);
  if (result < 0) return "";
  int failed = 0;
  for (const Listed& file : after.listed) failed += IsProtectedNow(after, file.path) ? 0 : 1;
  // A companion can hide the failure of its main file, and the walk's one item keeps the
  // companions' path that it found: a single failure may not be told.
  const bool hidden = after.fault.source == Source::kSystem && !after.fault.lasting;
  return failed <= (hidden ? 1 : 0) ? "" : "SetProtectAll answers 0 and passed files over";
}

Complaint JudgeToggle(const Aftermath& after) {
  const int result = after.world.record.Last();
  return IsOneOf(result, {0, -19999}) ? "" : Odd("SetProtectSel", result);
}

// A block that could not be formed or written is not reported; everything else is.
Complaint JudgeSave(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (!IsOneOf(result, {0, -1, -2})) return Odd("SaveDPOFInfo", result);
  const bool lacksBlock = after.fault.source == Source::kMemory;
  if (result != 0 || lacksBlock || HasFailed(after, Call::kFwrite)) return "";
  const std::string order = after.world.card.Read(kPrintOrder);
  const bool whole = order.compare(0, 5, "[HDR]") == 0 && order.find("[JOB]") != std::string::npos;
  return whole ? "" : "SaveDPOFInfo answers 0 and the order is not whole";
}

// A read that fails ends the order where it stands, as the end of the file does.
Complaint JudgeLoad(const Aftermath& after) {
  const int result = after.world.record.Last();
  if (!IsOneOf(result, {0, -1, -2})) return Odd("LoadDPOFInfo", result);
  CQFileListItem item = after.world.ItemOf(kChosen);
  const int copies = after.world.list.GetDPOFNumOfCopy(&item);
  if (copies != 0 && copies != 2) return "a file has " + std::to_string(copies) + " prints ordered";
  const bool lost = result == 0 && copies == 0 && !HasFailed(after, Call::kRead);
  return lost ? "LoadDPOFInfo answers 0 and set no mark" : "";
}

// The store holds a number of before or of now, and what somebody else put there.
Complaint JudgeSeries(const Aftermath& after) {
  const Record& record = after.world.record;
  if (record.At(0) < 0) return Odd("SetSeriesMode", record.At(0));
  if (record.At(1) != 0) return Odd("GetNewFileName", record.At(1));
  if (record.At(2) != 0) return Odd("SetLastIndex", record.At(2));
  const long stored = pref_get_long(kSeriesCategory, kSeriesKey);
  if (stored < 10300008 || stored > 10400077) return "the store holds " + std::to_string(stored);
  // A store that is said not to be there holds nothing that could be kept.
  if (after.fault.error == ENOENT) return "";
  const long other = pref_get_long(kOtherCategory, kOtherKey);
  return other == kOtherValue ? "" : "a value of somebody else is lost from the store";
}

// --- What an operation may touch -----------------------------------------------------------------
bool Never(World& /*world*/, const std::string& /*path*/) { return false; }

bool IsInTree(World& /*world*/, const std::string& path) {
  return path.compare(0, 5, "DCIM/") == 0;
}

bool IsTreeFolder(World& /*world*/, const std::string& path) {
  return path == "DCIM/" || path == "MISC/";
}

bool IsPrintOrder(World& /*world*/, const std::string& path) { return path == kPrintOrder; }

bool IsNew(World& /*world*/, const std::string& path) {
  return path == "DCIM/104PHOTO/" || path == "DCIM/104PHOTO" ||
         path.compare(0, 18, "DCIM/104PHOTO/QVX_") == 0 || path == "DCIM/103PHOTO/QVX_0010.JPG";
}

// The file, its companions and the folder that it leaves empty.
bool IsOfItem(World& world, const std::string& path) {
  const std::string file = world.Below(world.item.filePath);
  return path.compare(0, file.size() - 3, file, 0, file.size() - 3) == 0 ||
         path == file.substr(0, file.rfind('/') + 1);
}

bool IsDeletable(World& world, const std::string& path) {
  return IsInTree(world, path) && path != kProtected;
}

bool IsSelectedOrFolder(World& /*world*/, const std::string& path) {
  return path == kChosen || path == kProtected || path == kLonely || path == "DCIM/102LONEL/" ||
         path == "DCIM/CAMERA/zoo.mp4" || path == "DCIM/103PHOTO/QVX_0007.JPG" ||
         path == "DCIM/101OTHER/ABCD0001.JPG";
}

bool IsSelectedUnprotected(World& world, const std::string& path) {
  return path != kProtected && IsSelectedOrFolder(world, path);
}

bool IsOrderOrInTree(World& world, const std::string& path) {
  return path == kPrintOrder || IsInTree(world, path);
}

}  // namespace flm_faults
