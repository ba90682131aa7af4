#include "tests/model/model_world.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <set>
#include <sstream>

#include "filelist/CQFileListItem.h"

namespace flm_model {
namespace {

int CompareNames(const void* a, const void* b) {
  const std::string& first = **static_cast<const std::string* const*>(a);
  const std::string& second = **static_cast<const std::string* const*>(b);
  if (ListingLess(first, second)) return -1;
  return ListingLess(second, first) ? 1 : 0;
}

// The platform's own sort on the folder's own order, as its scandir does it: the order of names
// that compare equal, or in a circle (two of 12 characters and a longer one), is nobody else's.
std::vector<std::string> SortedByPlatform(const std::vector<std::string>& names) {
  std::vector<const std::string*> pointers;
  for (const std::string& name : names) pointers.push_back(&name);
  if (pointers.empty()) return {};
  qsort(pointers.data(), pointers.size(), sizeof pointers[0], CompareNames);
  std::vector<std::string> sorted;
  for (const std::string* name : pointers) sorted.push_back(*name);
  return sorted;
}

std::string FolderOf(const std::string& path) { return path.substr(0, path.rfind('/')); }

std::string ReadAll(const std::string& path) {
  std::string text;
  int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) return text;
  char part[4096];
  for (ssize_t got = read(file, part, sizeof part); got > 0; got = read(file, part, sizeof part)) {
    text.append(part, static_cast<size_t>(got));
  }
  close(file);
  return text;
}

Node ReadNode(const std::string& path) {
  Node node;
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return node;
  node.folder = S_ISDIR(status.st_mode);
  node.mode = status.st_mode & 0777;
  node.time = status.st_mtime;
  node.timeKnown = !node.folder;
  if (!node.folder) {
    node.size = static_cast<size_t>(status.st_size);
    if (node.size != 0) node.content = ReadAll(path);
    node.contentKnown = true;
  }
  return node;
}

}  // namespace

Place ResolvePlace(const std::string& base, const std::string& path) {
  Place place;
  if (path.empty() || path[0] != '/') return place;
  std::istringstream in(path);
  for (std::string part; std::getline(in, part, '/');) {
    if (part == "." || part == "..") return place;
    if (!part.empty()) place.path += "/" + part;
  }
  place.mustBeFolder = path.back() == '/';
  place.allowed = place.path == base || place.path.compare(0, base.size() + 1, base + "/") == 0;
  return place;
}

bool ListingLess(const std::string& a, const std::string& b) {
  if (a.size() == 12 && b.size() == 12) return a.compare(4, 8, b, 4, 8) < 0;
  return a < b;
}

void Picture::Read(const std::string& base) {
  base_ = base;
  nodes_.clear();
  nodes_[base] = ReadNode(base);
  for (const auto& entry : std::filesystem::recursive_directory_iterator(base)) {
    nodes_[entry.path().string()] = ReadNode(entry.path().string());
  }
}

const Node* Picture::Find(const std::string& path) const {
  Place place = ResolvePlace(base_, path);
  if (!place.allowed) return nullptr;
  auto found = nodes_.find(place.path);
  if (found == nodes_.end() || (place.mustBeFolder && !found->second.folder)) return nullptr;
  return &found->second;
}

Node* Picture::Find(const std::string& path) {
  return const_cast<Node*>(static_cast<const Picture*>(this)->Find(path));
}

std::vector<std::string> Picture::Children(const std::string& folder) const {
  std::vector<std::string> names;
  std::string start = folder + "/";
  for (auto at = nodes_.lower_bound(start); at != nodes_.end(); ++at) {
    if (at->first.compare(0, start.size(), start) != 0) break;
    std::string name = at->first.substr(start.size());
    if (name.find('/') == std::string::npos) names.push_back(name);
  }
  return names;
}

bool Picture::List(const std::string& path, std::vector<std::string>* names) const {
  const Node* node = Find(path);
  if (node == nullptr || !node->folder) return false;
  std::vector<std::string> children = Children(ResolvePlace(base_, path).path);
  std::set<std::string> left(children.begin(), children.end());
  std::vector<std::string> found;
  dirent** entries = nullptr;
  int count = scandir(path.c_str(), &entries, nullptr, nullptr);
  for (int i = 0; i < count; ++i) {
    std::string name = entries[i]->d_name;
    if (left.erase(name) != 0 || name == "." || name == "..") found.push_back(name);
    free(entries[i]);
  }
  free(entries);
  // A folder made by the operation at hand is not on the disk yet.
  found.insert(found.end(), left.begin(), left.end());
  for (const std::string& name : SortedByPlatform(found)) {
    if (name != "." && name != "..") names->push_back(name);
  }
  return true;
}

bool Picture::HasEntries(const std::string& path) const {
  return !Children(ResolvePlace(base_, path).path).empty();
}

// The superuser is held back by no permission.
bool Picture::MayChangeFolderOf(const std::string& path) const {
  auto folder = nodes_.find(FolderOf(path));
  if (folder == nodes_.end() || !folder->second.folder) return false;
  return geteuid() == 0 || (folder->second.mode & 0200) != 0;
}

bool Picture::MakeFolder(const std::string& path) {
  Place place = ResolvePlace(base_, path);
  if (!place.allowed || nodes_.count(place.path) != 0 || !MayChangeFolderOf(place.path)) {
    return false;
  }
  Node node;
  node.folder = true;
  node.mode = 0775;
  nodes_[place.path] = node;
  return true;
}

bool Picture::Remove(const std::string& path) {
  const Node* node = Find(path);
  Place place = ResolvePlace(base_, path);
  if (node == nullptr || place.path == base_ || !MayChangeFolderOf(place.path)) return false;
  if (node->folder && HasEntries(path)) return false;
  nodes_.erase(place.path);
  return true;
}

Node* Picture::WriteFile(const std::string& path, const std::string& content) {
  Place place = ResolvePlace(base_, path);
  if (!place.allowed || place.mustBeFolder) return nullptr;
  Node* node = Find(path);
  if (node == nullptr) {
    if (!MayChangeFolderOf(place.path)) return nullptr;
    node = &nodes_[place.path];
    node->mode = 0644;
  } else if (node->folder || (geteuid() != 0 && (node->mode & 0200) == 0)) {
    return nullptr;
  }
  node->content = content;
  node->contentKnown = true;
  node->size = content.size();
  node->timeKnown = false;
  return node;
}

long long Picture::TimeOf(const std::string& path) const {
  const Node* node = Find(path);
  if (node == nullptr) return 0;
  if (node->timeKnown) return node->time;
  struct stat status;
  return stat(path.c_str(), &status) == 0 ? status.st_mtime : 0;
}

std::string Picture::DifferenceFromDisk() const {
  std::ostringstream lines;
  std::set<std::string> seen;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(base_)) {
    std::string path = entry.path().string();
    seen.insert(path);
    auto expected = nodes_.find(path);
    if (expected == nodes_.end()) {
      lines << "unexpected on the card: " << path << "\n";
      continue;
    }
    const Node& node = expected->second;
    struct stat status;
    if (stat(path.c_str(), &status) != 0) continue;
    if ((status.st_mode & 0777) != node.mode) {
      lines << Format("mode of %s: expected %o, is %o\n", path.c_str(), node.mode,
                      static_cast<unsigned int>(status.st_mode & 0777));
    }
    if (node.folder) continue;
    bool mark = path.find("MRK") != std::string::npos;
    bool same = static_cast<size_t>(status.st_size) == node.size;
    if (!same || (mark && node.contentKnown && ReadAll(path) != node.content)) {
      lines << "content of " << path << ":\n--- expected\n"
            << node.content << "\n--- is\n"
            << ReadAll(path) << "\n---\n";
    }
  }
  for (const auto& node : nodes_) {
    if (node.first != base_ && seen.count(node.first) == 0) {
      lines << "missing on the card: " << node.first << "\n";
    }
  }
  return lines.str();
}

bool World::IsProtect(const std::string& path) const {
  const Node* node = picture.Find(path);
  return node != nullptr && (node->mode & 0200) == 0;
}

int World::SetProtect(const std::string& path, bool on) {
  Node* node = picture.Find(path);
  if (node == nullptr) return -1;
  node->mode = on ? node->mode & ~0200u : node->mode | 0200u;
  ++syncs;
  return 0;
}

int World::RemoveFile(const std::string& path, bool flush) {
  if (flush) ++flushes;
  return picture.Remove(path) ? 0 : -1;
}

int World::MakeDirectory(const std::string& path) {
  if (!picture.MakeFolder(path)) return -1;
  ++syncs;
  return 0;
}

bool World::IsDirEmpty(const std::string& path) const {
  const Node* node = picture.Find(path);
  return node == nullptr || !node->folder || !picture.HasEntries(path);
}

unsigned int World::TimeOf(const std::string& path) const {
  return static_cast<unsigned int>(picture.TimeOf(path));
}

int World::FillTime(CQFileListItem* item, bool withProtection) const {
  std::string path = item->filePath;
  if (!IsExist(path)) return -1;
  time_t seconds = picture.TimeOf(path);
  tm local;
  if (localtime_r(&seconds, &local) == nullptr) return -1;
  item->year = local.tm_year + 1900;
  item->month = local.tm_mon + 1;
  item->day = local.tm_mday;
  item->hour = local.tm_hour;
  item->minute = local.tm_min;
  item->second = local.tm_sec;
  item->modTime = static_cast<int32_t>(static_cast<unsigned int>(seconds));
  if (withProtection) item->isProtected = IsProtect(path) ? 1 : 0;
  return 0;
}

std::string Format(const char* format, ...) {
  char text[2048];
  va_list arguments;
  va_start(arguments, format);
  vsnprintf(text, sizeof text, format, arguments);
  va_end(arguments);
  return text;
}

std::string Cut(const std::string& text, size_t bytes) { return text.substr(0, bytes - 1); }

void Put(char* out, int size, const std::string& text) {
  if (out == nullptr || size <= 0) return;
  std::string kept = Cut(text, static_cast<size_t>(size));
  memcpy(out, kept.c_str(), kept.size() + 1);
}

int NumberAt(const std::string& text, size_t at, size_t size) {
  return at <= text.size() ? atoi(text.substr(at, size).c_str()) : 0;
}

std::string Upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

}  // namespace flm_model
