#include "explain.h"

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <set>
#include <unordered_set>
#include <utility>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "check_names.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "entries.h"
#include "failure.h"
#include "fsio/PCQDCFFSIO.h"
#include "print_order.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr char kCard[] = ".";
constexpr char kTree[] = "./DCIM";
constexpr size_t kStemLength = 8;
constexpr size_t kMaxReadName = 128;  // what storage access hands out of an entry's name

constexpr char kOutside[] = "outside";        // beside the tree
constexpr char kFolder[] = "folder";          // a folder that is not read
constexpr char kInside[] = "inside";          // in a folder that is not read
constexpr char kFile[] = "file";              // a file that is not taken
constexpr char kHidden[] = "hidden";          // begins with a point
constexpr char kCompanion[] = "companion";    // belongs to another file
constexpr char kListedAs[] = "listed-as";     // is in the list under another name
constexpr char kUnreadable[] = "unreadable";  // a folder that cannot be opened
constexpr char kLimit[] = "limit";            // the list or its table of folders is full
constexpr char kLeftOut[] = "left-out";       // the command line says so
constexpr char kChanged[] = "changed";        // came while the card was read

struct Why {
  const char* kind;
  std::string reason;
};

std::string Below(const std::string& folder, const std::string& name) {
  return folder + "/" + name;
}

std::vector<std::string> SortedNames(const std::string& folder) {
  std::vector<std::string> names = EntriesOf(folder);
  std::sort(names.begin(), names.end());
  return names;
}

bool IsRealFolder(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsThere(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0;
}

// A card may take two spellings for one name.
bool IsSame(const std::string& a, const std::string& b) {
  struct stat first;
  struct stat second;
  return stat(a.c_str(), &first) == 0 && stat(b.c_str(), &second) == 0 &&
         first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

int OpenError(const std::string& folder) {
  DIR* const dir = opendir(folder.c_str());
  if (dir == nullptr) return errno;
  closedir(dir);
  return 0;
}

// The names of folders that get a place in the table of the scan, which takes them in the order in
// which storage access hands them out.
std::set<std::string> TakenFolders(bool nonDcf) {
  std::set<std::string> taken;
  PCQDCFFSIO reader(kStillTree, "");
  PCQDCFFSIO::PTFile entry = {};
  while (reader.IsValid() && taken.size() < kMaxFolders && reader.Read(&entry) >= 0) {
    const std::string name(entry.name, BoundedLength(entry.name, kMaxReadName));
    const bool numbered =
        !IsCameraName(Upper(name).c_str()) && DirNumberInName(Upper(name).c_str()) != kCameraNumber;
    if (FolderNameProblem(name).empty() && (nonDcf || numbered)) taken.insert(name);
  }
  return taken;
}

// One folder that the scan has read: its names in the list.
struct Listed {
  std::unordered_set<std::string> names;
  std::map<int, std::string> firstOfNumber;  // companions join it
};

class Explainer {
 public:
  Explainer(Card& card, bool nonDcf, const ScanListener& listener)
      : card_(card), nonDcf_(nonDcf), listener_(listener), taken_(TakenFolders(nonDcf)) {
    int index = 0;
    ForEachPath(card, [&](const char* path) {
      const std::string folder = FolderOf(path);
      if (folder != lastFolder_) ranges_.emplace(folder, std::make_pair(index, index));
      lastFolder_ = folder;
      ranges_[folder].second = ++index;
    });
  }

  void Run() {
    for (const std::string& name : SortedNames(kCard)) {
      const std::string path = Below(kCard, name);
      if (!IsSame(path, kTree)) {
        TellTree(path, {kOutside, OutsideReason(path)});
        continue;
      }
      for (const std::string& folder : SortedNames(path)) TakeFolder(folder);
    }
  }

 private:
  void Tell(const std::string& path, const Why& why) {
    listener_.name({path, why.kind, why.reason});
  }

  // A name and everything below it. Links are not followed: they may lead anywhere.
  void TellTree(const std::string& path, const Why& why) {
    Tell(path, why);
    TellBelow(path);
  }

  void TellBelow(const std::string& folder) {
    if (!IsRealFolder(folder)) return;
    for (const std::string& name : SortedNames(folder)) {
      const std::string path = Below(folder, name);
      const bool order = path == PrintOrderPath();
      TellTree(path,
               {kInside, order ? "it is the print order" : "it lies in a folder that is not read"});
    }
  }

  static std::string OutsideReason(const std::string& path) {
    return FolderOf(PrintOrderPath()) == path ? "it is the folder of the print order"
                                              : "it lies outside the DCIM folder";
  }

  void TakeFolder(const std::string& name) {
    const std::string path = Below(kTree, name);
    const Why why = WhyNotRead(path, name);
    if (!why.reason.empty()) return TellTree(path, why);
    TakeFiles(path, Below(kTree, Upper(name)));
  }

  Why WhyNotRead(const std::string& path, const std::string& name) const {
    const std::string problem = FolderNameProblem(name);
    if (!IsFolder(path)) {
      return {kFile, problem.empty() ? "it has the name of a folder and is none"
                                     : "it lies beside the folders, not in one"};
    }
    if (!problem.empty()) return {kFolder, problem};
    const std::string upper = Upper(name);
    if (!nonDcf_ && DirNumberInName(upper.c_str()) == kCameraNumber) {
      return {kLeftOut, "the CAMERA folder is left out"};
    }
    if (taken_.count(name) == 0) return {kLimit, "the list holds 999 other folders already"};
    const std::string listed = Below(kTree, upper);
    if (!IsSame(path, listed)) {
      return {kListedAs,
              "it is looked for as " + upper +
                  (IsThere(listed) ? ", which is another folder" : ", which is not there")};
    }
    const int error = OpenError(path);
    if (error != 0) return {kUnreadable, WithReason("cannot be read", error)};
    return {nullptr, ""};
  }

  Listed ListedIn(const std::string& folder) {
    Listed listed;
    const auto range = ranges_.find(folder);
    if (range == ranges_.end()) return listed;
    CQFileListItem item;
    for (int i = range->second.first; i < range->second.second; ++i) {
      if (card_.List().GetAt(i, &item, false) < 0) continue;
      const std::string name = BaseName(item.filePath);
      listed.names.insert(name);
      listed.firstOfNumber.emplace(FileNumberInName(name.c_str()), name);
    }
    return listed;
  }

  void TakeFiles(const std::string& path, const std::string& listedPath) {
    const Listed listed = ListedIn(listedPath);
    ScannedFolder folder = {path};
    for (const std::string& name : SortedNames(path)) {
      const std::string file = Below(path, name);
      if (listed.names.count(name) != 0) {
        ++folder.files;
      } else {
        const Why why = WhyNotListed(path, name, listed);
        ++(why.kind == kCompanion ? folder.companions : folder.others);
        Tell(file, why);
      }
      TellBelow(file);
    }
    listener_.folder(folder);
  }

  Why WhyNotListed(const std::string& folder, const std::string& name, const Listed& listed) const {
    const bool camera = IsCameraName(Upper(BaseName(folder)).c_str());
    if (name[0] == '.') return {kHidden, "names that begin with a point are hidden"};
    const std::string problem = camera ? FreeNameProblem(name) : FileNameProblem(name);
    if (!problem.empty()) return {kFile, problem};
    const std::string kept = KeptName(folder, name);
    if (listed.names.count(kept) != 0) return {kListedAs, "it is listed as " + kept};
    const int kind = camera ? CheckFreeName(kept.c_str()) : KindOfName(name);
    const std::string picture = Upper(name.substr(0, kStemLength)) + ".JPG";
    if (IsCompanionKind(kind) && IsThere(Below(folder, picture))) {
      return {kCompanion, CompanionReason(kept, picture, camera, listed)};
    }
    if (card_.List().GetCount() >= kMaxFiles) return {kLimit, "the list is full"};
    return {kChanged, "it came while the card was read"};
  }

  // The name in the list. Folders without a number of their own keep whole names.
  static std::string KeptName(const std::string& folder, const std::string& name) {
    if (DirNumberInName(Upper(BaseName(folder)).c_str()) != kCameraNumber) return NameInList(name);
    return name.size() > kDcfNameLength ? name : Upper(name);
  }

  static std::string CompanionReason(const std::string& name, const std::string& picture,
                                     bool camera, const Listed& listed) {
    const auto first = listed.firstOfNumber.find(FileNumberInName(name.c_str()));
    if (camera || first == listed.firstOfNumber.end()) {
      return "it is taken for a companion of " + picture;
    }
    if (first->second == picture) return "it is a companion of " + picture;
    return "it is a companion of " + picture + ", but joins " + first->second +
           ", the first file of its number";
  }

  Card& card_;
  bool nonDcf_;
  const ScanListener& listener_;
  std::set<std::string> taken_;
  std::string lastFolder_;
  std::map<std::string, std::pair<int, int>> ranges_;  // indexes of each folder's files
};

}  // namespace

void ExplainCard(Card& card, bool nonDcf, const ScanListener& listener) {
  Explainer(card, nonDcf, listener).Run();
}

}  // namespace flm::tool
