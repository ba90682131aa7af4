#include "tests/faults/fault_card.h"

#include <dirent.h>
#include <fcntl.h>

namespace flm_faults {
namespace {

constexpr time_t kYearsAgo = 1500000000;
constexpr mode_t kPermissions = 07777;

bool IsDot(const std::string& name) { return name == "." || name == ".."; }

void LookInto(const std::string& root, const std::string& below, Tree* tree) {
  DIR* const dir = opendir((root + "/" + below).c_str());
  if (dir == nullptr) return;
  while (const dirent* const entry = readdir(dir)) {
    const std::string name = entry->d_name;
    struct stat status;
    if (IsDot(name) || fstatat(dirfd(dir), entry->d_name, &status, AT_SYMLINK_NOFOLLOW) != 0)
      continue;
    const bool folder = S_ISDIR(status.st_mode);
    const std::string path = below + name + (folder ? "/" : "");
    // What a folder holds changes its size and time; its name is all that counts.
    (*tree)[path] = {folder ? 0 : status.st_ino, folder ? 0 : status.st_size,
                     folder ? 0 : status.st_mtime, status.st_mode & kPermissions};
    if (folder) LookInto(root, path, tree);
  }
  closedir(dir);
}

bool IsFolder(const std::string& path) { return path.back() == '/'; }

bool IsSame(const Stamp& a, const Stamp& b) {
  return a.inode == b.inode && a.size == b.size && a.modified == b.modified;
}

}  // namespace

bool HasSame(const Tree& tree, const Tree::value_type& file) {
  const auto found = tree.find(file.first);
  return found != tree.end() && IsSame(found->second, file.second);
}

FaultCard::FaultCard(const std::vector<Entry>& entries) : entries_(entries) {
  for (const Entry& entry : entries_) Put(entry);
  fresh_ = Look();
}

void FaultCard::Put(const Entry& entry) {
  if (IsFolder(entry.path)) return card_.MakeDir(entry.path);
  card_.MakeFile(entry.path, entry.content, kYearsAgo);
  if (entry.isProtected) card_.SetReadOnly(entry.path, true);
}

void FaultCard::Write(const std::string& relative, const std::string& content) {
  card_.WriteFile(relative, content);
}

Tree FaultCard::Look() const {
  Tree tree;
  LookInto(card_.Root() + "/.", "", &tree);
  return tree;
}

void FaultCard::Restore(const Tree& now) {
  bool changed = false;
  for (auto path = now.rbegin(); path != now.rend(); ++path) {
    if (fresh_.count(path->first) != 0) continue;
    card_.Remove(path->first);
    changed = true;
  }
  for (const Entry& entry : entries_) {
    const auto is = now.find(entry.path);
    const auto was = fresh_.find(entry.path);
    const bool same = is != now.end() && IsSame(is->second, was->second);
    if (same && is->second.mode == was->second.mode) continue;
    if (same) {
      card_.SetMode(entry.path, was->second.mode);
    } else {
      if (is != now.end()) card_.Remove(entry.path);
      Put(entry);
    }
    changed = true;
  }
  if (changed) fresh_ = Look();
}

}  // namespace flm_faults
