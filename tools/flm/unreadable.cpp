#include "unreadable.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "card.h"
#include "check_names.h"
#include "copy_file.h"

namespace flm::tool {

int FolderError(const std::string& folder) {
  DIR* const dir = opendir(folder.c_str());
  if (dir == nullptr) return errno;
  closedir(dir);
  return access(folder.c_str(), X_OK) == 0 ? 0 : errno;
}

std::vector<Unreadable> UnreadableFolders() {
  std::vector<std::string> names = EntriesOf("./DCIM");
  std::sort(names.begin(), names.end());
  std::vector<Unreadable> found;
  for (const std::string& name : names) {
    const std::string path = "./DCIM/" + name;
    if (!FolderNameProblem(name).empty() || !IsFolder(path)) continue;
    const int error = FolderError(path);
    if (error != 0) found.push_back({path, error});
  }
  return found;
}

}  // namespace flm::tool
