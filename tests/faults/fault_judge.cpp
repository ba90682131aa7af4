// What must hold after every run, whatever failed: the card keeps what the operation was not about,
// and the list names what is on the card.
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <set>

#include "tests/faults/fault_world.h"

namespace flm_faults {
namespace {

constexpr mode_t kUmask = 022;

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

std::string StemOf(const std::string& path) { return path.substr(0, path.rfind('.')); }

bool IsCompanion(const std::string& path) {
  const std::string extension = path.substr(path.rfind('.') + 1);
  return extension == "SRW" || extension == "WAV" || extension == "MPO";
}

bool IsExcused(const Aftermath& after, Excuse excuse) {
  return (after.scenario.excuses & excuse) != 0;
}

Complaint JudgeRun(const Aftermath& after) {
  if (after.counted.open != 0) return "handles left open: " + std::to_string(after.counted.open);
  const mode_t mask = umask(kUmask);
  if (mask != kUmask) return "the umask is another one";
  if (!after.world.record.IsSound()) return "a text without an end, or beyond its room";
  const bool hasFailed = after.fault.source == Source::kNone || after.counted.failed != 0 ||
                         after.fault.source == Source::kMemory;
  return hasFailed ? "" : "the fault was never reached";
}

// A card that gives no status of a protected file does not say that it is protected.
bool MayGo(const Aftermath& after, const std::string& path) {
  const bool hidden = IsExcused(after, kBelievedGone);
  const bool wasProtected = (after.before.at(path).mode & S_IWUSR) == 0;
  return after.scenario.mayGo(after.world, path) || (hidden && wasProtected);
}

// Nothing goes, and nothing changes, that the operation is not about.
Complaint JudgeCard(const Aftermath& after) {
  for (const auto& file : after.before) {
    const std::string& path = file.first;
    if (HasSame(after.now, file)) {
      const bool sameMode = after.now.at(path).mode == file.second.mode;
      if (sameMode || after.scenario.mayChange(after.world, path)) continue;
      return "changed in mode: " + path;
    }
    const bool allowed = after.now.count(path) == 0 ? MayGo(after, path)
                                                    : after.scenario.mayChange(after.world, path);
    if (!allowed) return "gone or changed: " + path;
  }
  for (const auto& file : after.now) {
    const bool isNew = after.before.count(file.first) == 0;
    if (isNew && !after.scenario.mayChange(after.world, file.first)) return "made: " + file.first;
  }
  return "";
}

std::set<std::string> PathsOf(const std::vector<Listed>& files) {
  std::set<std::string> paths;
  for (const Listed& file : files) paths.insert(file.path);
  return paths;
}

bool IsBelievedGone(const Aftermath& after) {
  return IsExcused(after, kBelievedGone) && after.fault.lasting;
}

bool LacksRecords(const Aftermath& after) {
  return IsExcused(after, kNameWithoutRecord) && after.fault.source == Source::kMemory;
}

// Whether a file may be on the card and not in the list.
bool MayMiss(const Aftermath& after, const std::string& path, std::set<std::string>* emptied) {
  if (IsExcused(after, kReadInPart) || IsBelievedGone(after)) return true;
  if (LacksRecords(after) && after.before.count(path) == 0) return true;
  if (IsExcused(after, kUnreadFolder)) {
    const std::string folder = FolderOf(path);
    emptied->insert(folder);
    return std::none_of(after.listed.begin(), after.listed.end(),
                        [&](const Listed& file) { return FolderOf(file.path) == folder; });
  }
  return IsExcused(after, kLeftCompanion) && IsCompanion(path) &&
         after.now.count(StemOf(path) + ".JPG") == 0;
}

// Whether a file may be in the list that a fresh scan does not name.
bool MayHold(const Aftermath& after, const std::string& path) {
  if (IsExcused(after, kReservedName) && after.before.count(path) == 0) return true;
  return IsExcused(after, kLoneCompanion) && IsCompanion(path) && after.now.count(path) != 0;
}

Complaint JudgeMissing(const Aftermath& after) {
  const std::set<std::string> listed = PathsOf(after.listed);
  std::set<std::string> emptied;
  for (const Listed& file : after.onCard) {
    if (listed.count(file.path) != 0) continue;
    if (!MayMiss(after, file.path, &emptied))
      return "on the card and not in the list: " + file.path;
  }
  const bool failed = after.world.record.Last() < 0;
  if (!failed && !after.fault.lasting && emptied.size() > 1)
    return "one fault empties " + std::to_string(emptied.size()) + " folders, and the scan is done";
  return "";
}

Complaint JudgeHeld(const Aftermath& after) {
  const std::set<std::string> onCard = PathsOf(after.onCard);
  for (const Listed& file : after.listed) {
    if (onCard.count(file.path) == 0 && !MayHold(after, file.path))
      return "in the list and not on the card: " + file.path;
  }
  return "";
}

// Whether every companion that the list does not name beside a file is a file of its own there. The
// letters of the companions stand at the end of their path, a blank for each that is absent.
bool AreAlone(const Listed& mine, const Listed& fresh, const std::set<std::string>& listed) {
  constexpr const char* kExtensions[] = {"SRW", "WAV", "MPO"};
  const std::string stem = StemOf(fresh.path) + ".";
  if (fresh.objects.compare(0, stem.size(), stem) != 0) return false;
  for (size_t i = 0; i < 3; ++i) {
    const bool known = mine.objects.size() == fresh.objects.size() &&
                       mine.objects[stem.size() + i] == fresh.objects[stem.size() + i];
    const bool absent = fresh.objects[stem.size() + i] == ' ';
    if (!known && !absent && listed.count(stem + kExtensions[i]) == 0) return false;
  }
  return true;
}

// The files that both name, in one order and with the same companions.
Complaint JudgeOrder(const Aftermath& after) {
  const std::set<std::string> listed = PathsOf(after.listed);
  const std::set<std::string> onCard = PathsOf(after.onCard);
  std::vector<Listed> mine;
  std::vector<Listed> fresh;
  for (const Listed& file : after.listed) {
    if (onCard.count(file.path) != 0) mine.push_back(file);
  }
  for (const Listed& file : after.onCard) {
    if (listed.count(file.path) != 0) fresh.push_back(file);
  }
  if (mine.size() != fresh.size()) return "a file is in the list twice";
  for (size_t i = 0; i < mine.size(); ++i) {
    if (mine[i].path != fresh[i].path) return "the order of the list is another one";
    const bool alone = IsExcused(after, kLoneCompanion) && AreAlone(mine[i], fresh[i], listed);
    if (mine[i].objects != fresh[i].objects && !alone) return "other companions of " + mine[i].path;
  }
  return "";
}

Complaint JudgeCounts(const Aftermath& after) {
  if (LacksRecords(after)) return "";
  CQFileList& list = after.world.list;
  const int held = static_cast<int>(after.listed.size());
  if (list.DCF_GetCount() > held)
    return "the catalogue counts more than it holds, by " +
           std::to_string(list.DCF_GetCount() - held);
  const int counted = list.GetCount();
  if (counted >= 0 && counted != held)
    return "the list counts " + std::to_string(counted - held) + " more than it holds";
  return "";
}

// When card and memory are well again, one more scan finds everything.
Complaint JudgeRecovery(const Aftermath& after) {
  if (!ScansAgain(after.scenario, after.fault)) return "";
  CQFileList& list = after.world.list;
  if (list.Listup(0) != static_cast<int>(after.onCard.size()))
    return "the next scan without a fault does not find all files";
  const std::vector<Listed> again = FilesOf(list, after.world.card.Root());
  const bool same = std::equal(
      again.begin(), again.end(), after.onCard.begin(), after.onCard.end(),
      [](const Listed& a, const Listed& b) { return a.path == b.path && a.objects == b.objects; });
  return same ? "" : "the next scan without a fault finds other files";
}

}  // namespace

bool ScansAgain(const Scenario& scenario, const Fault& fault) {
  return (scenario.excuses & kUnreadFolder) != 0 || fault.source == Source::kMemory;
}

Complaint Judge(const Aftermath& after) {
  for (const auto judge : {JudgeRun, JudgeCard, after.scenario.judge, JudgeMissing, JudgeHeld,
                           JudgeOrder, JudgeCounts, JudgeRecovery}) {
    const Complaint complaint = judge(after);
    if (!complaint.empty()) return complaint;
  }
  return "";
}

}  // namespace flm_faults
