#include "card.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <filesystem>

#include "api/CBIFileListManager.h"
#include "dcf/dcf_path.h"
#include "failure.h"
#include "fsio/os_calls.h"
#include "global_options.h"
#include "print_order.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

constexpr int kListType = 4;  // stills, with the real names of their folders
constexpr mode_t kFolderMode = 0775;
constexpr char kPreferenceVariable[] = "FLM_PREFERENCE_FILE";

std::string CurrentFolder() {
  char buffer[PATH_MAX];
  return getcwd(buffer, sizeof(buffer)) == nullptr ? "" : buffer;
}

std::string WithoutTrailingSlashes(std::string path) {
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return path;
}

// The scan makes missing folders. A command that only looks must leave the card as it is.
int RefuseWithMode(const char* /*path*/, mode_t /*mode*/) {
  errno = EROFS;
  return -1;
}

// --read-only holds for the library too, whatever an operation of it would do to the card.
void ForbidChanges() {
  const auto refuse = [](const char* /*path*/) {
    errno = EROFS;
    return -1;
  };
  Os().Mkdir = RefuseWithMode;
  Os().Chmod = RefuseWithMode;
  Os().Unlink = refuse;
  Os().Remove = refuse;
  Os().Sync = [] {};
}

Failure NoCard(const std::string& message) { return Failure(message, kStatusUnreadable); }

void RequireReadableFolder(const char* folder, const std::string& shown) {
  struct stat status;
  if (stat(folder, &status) != 0) throw NoCard(WithReason("cannot open " + shown, errno));
  if (!S_ISDIR(status.st_mode)) throw NoCard(shown + " is not a folder");
  const int error = FolderError(folder);
  if (error != 0) throw NoCard(WithReason("cannot read " + shown, error));
}

// The store's file is named relative to where the user is, and the tool is about to leave.
void KeepPreferenceFile(const std::string& outside) {
  const char* const named = std::getenv(kPreferenceVariable);
  if (named == nullptr || named[0] == '\0' || named[0] == '/') return;
  setenv(kPreferenceVariable, (outside + "/" + named).c_str(), 1);
}

// What is left of `path` below `folder`; false when it does not lie there.
bool Below(const std::string& folder, const std::string& path, std::string* rest) {
  const std::string start = folder == "/" ? folder : folder + "/";
  if (folder.empty() || !StartsWith(path, start)) return false;
  *rest = path.substr(start.size());
  return true;
}

// The real path of a file's folder with the file's own name: the file itself may be a link.
std::string RealPath(const std::string& path) {
  char buffer[PATH_MAX];
  if (realpath(FolderOf(path).c_str(), buffer) == nullptr) return "";
  return std::string(buffer) + "/" + BaseName(path);
}

std::string Normal(const std::string& path) {
  return std::filesystem::path(path).lexically_normal().string();
}

}  // namespace

bool Exists(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0;
}

bool IsLink(const std::string& path) {
  struct stat status;
  return lstat(path.c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

bool IsFolder(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Card::Card(const CardOptions& options, Access access)
    : root_(WithoutTrailingSlashes(options.root)), outside_(CurrentFolder()) {
  if (access != Access::kLook) RequireChangesAllowed();
  Enter(access);
  if (options.whole && hadTree_) RequireReadable();
  Scan(options, access);
}

Card::~Card() { CBIFileListManager::Destroy(); }

void Card::Enter(Access access) {
  if (root_.empty()) throw Failure("the name of the card's folder is empty", kStatusUsage);
  const std::string shown = Named(root_);
  RequireReadableFolder(root_.c_str(), shown);
  KeepPreferenceFile(outside_);
  if (chdir(root_.c_str()) != 0) throw NoCard(WithReason("cannot enter " + shown, errno));
  inside_ = CurrentFolder();
  hadTree_ = Exists(kStillTree);
  hadMisc_ = Exists(kMiscFolder);
  if (!hadTree_ && access != Access::kRecord) {
    throw NoCard(std::string("no ") + kStillTree + " folder in " + shown);
  }
  if (hadTree_) RequireReadableFolder(kStillTree, Shown(std::string("./") + kStillTree));
  if (access != Access::kLook) RequireTreesOnCard();
}

void Card::RequireTreesOnCard() const {
  for (const char* const folder : {kStillTree, kMiscFolder}) {
    RequireOnCard(std::string("./") + folder);
  }
}

void Card::RequireOnCard(const std::string& libraryPath) const {
  char real[PATH_MAX];
  if (realpath(libraryPath.c_str(), real) == nullptr) return;
  std::string rest;
  if (inside_ == real || Below(inside_, real, &rest)) return;
  throw Failure(Shown(libraryPath) + " leads out of the card, and nothing is changed there");
}

void Card::RequireReadable() const {
  for (const Unreadable& folder : UnreadableFolders()) throw NoCard(Describe(*this, folder));
  const std::string order = PrintOrderPath();
  const int error = HasPrintOrder() ? PrintOrderError() : 0;
  if (error != 0) throw NoCard(WithReason("cannot read " + Shown(order), error));
}

void Card::Scan(const CardOptions& options, Access access) {
  std::string root = ".";
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, Arg(root), kListType, false);
  // The manager makes objects of this class only; some marks are declared by it and no interface.
  list_ = static_cast<CQFileList*>(CBIFileListManager::GetFileList(Arg(root), kListType));
  std::string prefix = options.prefix;
  list_->SetFilePrefix(Arg(prefix));
  list_->IncludeNonDCF(options.nonDcf);
  if (access == Access::kLook) Os().Mkdir = RefuseWithMode;
  if (Globals().readOnly) ForbidChanges();
  const int count = list_->Listup(0);
  if (count < 0) {
    CBIFileListManager::Destroy();
    // The scan makes this folder and keeps the reason to itself when it cannot; asking again tells.
    if (access == Access::kRecord && !IsFolder(kStillTree) && mkdir(kStillTree, kFolderMode) != 0) {
      throw Failure(
          WithReason("cannot make the folder " + Printable(root_) + "/" + kStillTree, errno));
    }
    throw NoCard("cannot read the files of " + Named(root_));
  }
}

void Card::UserPathInto(const char* libraryPath, std::string& line) const {
  line.assign(root_ == "/" ? "" : root_.c_str());
  line.append(libraryPath + 1);
}

std::string Card::UserPath(const std::string& libraryPath) const {
  std::string path;
  UserPathInto(libraryPath.c_str(), path);
  return path;
}

std::string Card::Shown(const std::string& libraryPath) const {
  return Printable(UserPath(libraryPath));
}

std::string Card::FromOutside(const std::string& given) const {
  return given.empty() || given[0] == '/' ? given : outside_ + "/" + given;
}

std::string Card::LibraryPath(const std::string& given) const {
  const std::string path = Normal(given);
  std::string rest;
  const bool onCard = Below(Normal(root_), path, &rest) ||
                      Below(Normal(FromOutside(root_)), path, &rest) ||
                      (path[0] == '/' && Below(inside_, RealPath(path), &rest));
  if (!onCard) {
    if (path[0] == '/' || StartsWith(path, "..")) return "";
    rest = path;
  }
  const std::string tree = std::string(kStillTree) + "/";
  return StartsWith(rest, tree) ? "./" + rest : "./" + tree + rest;
}

void Card::RemoveNewEmptyFolders() const {
  if (!hadMisc_) rmdir(kMiscFolder);
  if (!hadTree_) rmdir(kStillTree);
}

}  // namespace flm::tool
