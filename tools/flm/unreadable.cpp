#include "unreadable.h"

#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "check_names.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

bool HasNumber(const std::string& folder) {
  return DirNumberInName(Upper(folder).c_str()) != kCameraNumber;
}

// A name that leads nowhere, or to something else than a folder, is none that the list reads.
int ErrorOfEntry(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) == 0) return S_ISDIR(status.st_mode) ? FolderError(path) : 0;
  return errno == ENOENT || errno == ENOTDIR || errno == ELOOP ? 0 : errno;
}

}  // namespace

int FolderError(const std::string& folder) {
  DIR* const dir = opendir(folder.c_str());
  if (dir == nullptr) return errno;
  closedir(dir);
  return access(folder.c_str(), X_OK) == 0 ? 0 : errno;
}

std::vector<Unreadable> UnreadableFolders(bool nonDcf) {
  std::vector<std::string> names = EntriesOf("./DCIM");
  std::sort(names.begin(), names.end());
  std::vector<Unreadable> found;
  for (const std::string& name : names) {
    const std::string path = "./DCIM/" + name;
    if (!FolderNameProblem(name).empty() || (!nonDcf && !HasNumber(name))) continue;
    const int error = ErrorOfEntry(path);
    if (error != 0) found.push_back({path, error});
  }
  return found;
}

std::string Describe(const Card& card, const Unreadable& folder) {
  return WithReason("cannot read " + card.Shown(folder.path), folder.error);
}

int TellUnreadable(const Card& card, bool nonDcf) {
  const std::vector<Unreadable> folders = UnreadableFolders(nonDcf);
  for (const Unreadable& folder : folders) Complain(Describe(card, folder));
  return folders.empty() ? kStatusDone : kStatusUnreadable;
}

Failure NotThere(const Card& card, const std::string& message) {
  const std::vector<Unreadable> folders = UnreadableFolders();
  if (folders.empty()) return Failure(message, kStatusNothing);
  return Failure(message + ", as far as the card can be read: " + Describe(card, folders.front()),
                 kStatusUnreadable);
}

}  // namespace flm::tool
