// The check of the tree below DCIM. It reads the card itself, by the library's own rules of names,
// because the list passes over what it does not take without a word.
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <map>
#include <set>

#include "base/fixed_sizes.h"
#include "check_names.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "failure.h"
#include "findings.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

constexpr char kTree[] = "./DCIM";
constexpr size_t kStemLength = 8;
constexpr size_t kComparedCharacters = 6;  // of folder names, when a path is looked up

struct Folder {
  std::string path;
  std::string name;  // as the list keeps it
  int number;
  bool camera;
};

std::vector<std::string> SortedEntries(const std::string& folder) {
  std::vector<std::string> names = EntriesOf(folder);
  std::sort(names.begin(), names.end());
  return names;
}

class FolderCheck {
 public:
  explicit FolderCheck(Findings& findings) : findings_(findings) {}

  void Run() {
    for (const std::string& name : SortedEntries(kTree)) TakeFolder(name);
    for (const Folder& folder : folders_) CheckFiles(folder);
    CompareFolders();
    if (folders_.size() > kMaxFolders) {
      Add(kLimit, kTree, std::to_string(folders_.size()) + " folders, and only 999 are listed");
    }
  }

 private:
  void Add(const char* kind, const std::string& path, const std::string& reason) {
    findings_.push_back({kind, path, reason});
  }

  void TakeFolder(const std::string& name) {
    const std::string path = std::string(kTree) + "/" + name;
    if (!IsFolder(path)) {
      Add(kFileName, path, "not listed: it lies beside the folders, not in one");
      return;
    }
    const std::string problem = FolderNameProblem(name);
    if (!problem.empty()) {
      Add(kFolderName, path, "not listed: " + problem);
      return;
    }
    const std::string upper = Upper(name);
    const std::string listed = std::string(kTree) + "/" + upper;
    if (!Exists(listed)) {
      Add(kFolderName, path, "lost: listed as " + upper + ", where its files cannot be opened");
      return;
    }
    if (DirNumberInName(upper.c_str()) == kCameraNumber && !IsCameraName(upper.c_str())) {
      Add(kFolderName, path,
          "folder numbers begin at 100: this one is listed with the CAMERA folder");
    }
    if (const int error = FolderError(path); error != 0) {
      Add(kUnreadable, path, WithReason("cannot be read", error));
    }
    folders_.push_back({path, upper, DirNumberInName(upper.c_str()), IsCameraName(upper.c_str())});
  }

  void CheckFiles(const Folder& folder) {
    std::map<int, std::vector<std::string>> numbers;
    for (const std::string& name : SortedEntries(folder.path)) {
      const std::string path = folder.path + "/" + name;
      const std::string problem = Problem(folder, name);
      if (!problem.empty()) {
        Add(kFileName, path, problem);
        continue;
      }
      if (!folder.camera && HasForeignCharacters(name)) {
        Add(kFileName, path,
            "listed, but other devices may not take it: one of its first four characters is none "
            "of A-Z, 0-9 and _");
      }
      if (!folder.camera && IsJoined(folder, path, name)) continue;
      const std::string kind = KindProblem(path);
      if (!kind.empty()) Add(kFileName, path, kind);
      if (!folder.camera) numbers[FileNumberInName(name.c_str())].push_back(name);
    }
    for (const auto& [number, names] : numbers) AddDuplicates(folder, number, names);
  }

  // Why what has the name of a file, and is listed as one, is none; "" when it is.
  static std::string KindProblem(const std::string& path) {
    struct stat status;
    if (stat(path.c_str(), &status) != 0) {
      // Where a link leads to what may not be seen, nothing is known.
      const bool nowhere = errno == ENOENT || errno == ENOTDIR || errno == ELOOP;
      return nowhere && IsLink(path) ? "a link that leads nowhere is listed as a file" : "";
    }
    if (S_ISDIR(status.st_mode)) return "a folder with the name of a file is listed as a file";
    if (S_ISREG(status.st_mode)) return "";
    return "what is neither file nor folder is listed as a file";
  }

  // Why a file is not listed, or not as it stands on the card; "" when all is well.
  static std::string Problem(const Folder& folder, const std::string& name) {
    if (name[0] == '.') return "not listed: names that begin with a point are hidden";
    const std::string refused = folder.camera ? FreeNameProblem(name) : FileNameProblem(name);
    if (!refused.empty()) return "not listed: " + refused;
    const std::string listed = folder.camera && name.size() > kDcfNameLength
                                   ? name
                                   : (folder.camera ? Upper(name) : NameInList(name));
    if (listed != name && !Exists(folder.path + "/" + listed)) {
      return "lost: listed as " + listed + ", which cannot be opened";
    }
    if (!folder.camera && FileNumberInName(name.c_str()) == 0) return "file numbers begin at 0001";
    return "";
  }

  // Whether a file is a companion that joins its picture. A companion without one is reported.
  bool IsJoined(const Folder& folder, const std::string& path, const std::string& name) {
    if (!IsCompanionKind(KindOfName(name))) return false;
    const std::string picture = Upper(name.substr(0, kStemLength)) + ".JPG";
    if (Exists(folder.path + "/" + picture)) return true;
    Add(kCompanion, path, "listed as a file of its own: there is no " + picture);
    return false;
  }

  void AddDuplicates(const Folder& folder, int number, const std::vector<std::string>& names) {
    if (names.size() < 2) return;
    std::string all;
    for (const std::string& name : names) all += (all.empty() ? "" : ", ") + name;
    Add(kDuplicate, folder.path,
        "the number " + Padded(number, 4) + " is used by " + all +
            ": companions join the first of them");
  }

  // Each folder against the first one before it: a card may hold any number of them.
  void CompareFolders() {
    std::map<std::string, std::string> firstAlike;
    std::map<int, std::string> firstOfNumber;
    for (const Folder& folder : folders_) {
      const std::string name = BaseName(folder.path);
      const auto alike = firstAlike.emplace(folder.name.substr(0, kComparedCharacters), name);
      const auto equal = firstOfNumber.emplace(folder.number, name);
      if (!alike.second) {
        Add(kAlikeFolders, folder.path,
            "its name begins as that of " + alike.first->second +
                ": files of one are looked up in the other");
      } else if (!equal.second) {
        Add(kEqualFolders, folder.path, "it has the number of " + equal.first->second);
      }
    }
  }

  Findings& findings_;
  std::vector<Folder> folders_;
};

}  // namespace

void CheckFolders(Findings& findings) { FolderCheck(findings).Run(); }

}  // namespace flm::tool
