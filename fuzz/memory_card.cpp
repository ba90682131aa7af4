#include "fuzz/memory_card.h"

#include <cerrno>
#include <climits>

namespace flm_fuzz {
namespace {

constexpr mode_t kFolderMode = 0755;
constexpr mode_t kFileMode = 0644;
constexpr mode_t kOwnerWrite = 0200;
constexpr int kMostLinks = 8;
constexpr int64_t kMadeAt = 1700000000;

int Refuse(int reason) {
  errno = reason;
  return -1;
}

// Takes the next part of a path off its front; empty at the end.
std::string_view TakePart(std::string_view& path) {
  const size_t from = path.find_first_not_of('/');
  if (from == std::string_view::npos) {
    path = {};
    return {};
  }
  size_t to = path.find('/', from);
  if (to == std::string_view::npos) to = path.size();
  const std::string_view part = path.substr(from, to - from);
  path.remove_prefix(to);
  return part;
}

// Most names differ by it, and a comparison that a sanitizer watches takes long.
uint32_t HashOf(std::string_view name) {
  uint32_t hash = 2166136261U;
  for (const char c : name) hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
  return hash;
}

bool IsName(std::string_view name) {
  return !name.empty() && name.size() <= NAME_MAX && name != "." && name != ".." &&
         name.find('/') == std::string_view::npos && name.find('\0') == std::string_view::npos;
}

}  // namespace

void MemoryCard::Clear() {
  used_ = 0;
  Add(kNone, "", Kind::kFolder, kFolderMode);
  root_ = AddPath(kRoot, Kind::kFolder, kFolderMode);
  AddPath(kNeighbour, Kind::kFolder, kFolderMode);
  readLimit_ = SIZE_MAX;
  for (OpenThing& thing : open_) thing.used = false;
  changes_ = 0;
}

void MemoryCard::Keep() {
  kept_.assign(nodes_.begin(), nodes_.begin() + used_);
  keptUsed_ = used_;
  changes_ = 0;
}

void MemoryCard::Restore() {
  if (changes_ == 0) return;
  used_ = keptUsed_;
  for (int i = 0; i < used_; ++i) nodes_[static_cast<size_t>(i)] = kept_[static_cast<size_t>(i)];
  changes_ = 0;
}

bool MemoryCard::MakeFolder(std::string_view path) {
  return AddPath(path, Kind::kFolder, kFolderMode) != kNone;
}

bool MemoryCard::MakeFile(std::string_view path, std::string_view content) {
  const int node = AddPath(path, Kind::kFile, kFileMode);
  if (node != kNone) nodes_[static_cast<size_t>(node)].content = content;
  return node != kNone;
}

bool MemoryCard::MakeLink(std::string_view path, std::string_view target) {
  const int node = AddPath(path, Kind::kLink, 0777);
  if (node != kNone) nodes_[static_cast<size_t>(node)].content = target;
  return node != kNone;
}

bool MemoryCard::MakePipe(std::string_view path) {
  return AddPath(path, Kind::kPipe, kFileMode) != kNone;
}

void MemoryCard::SetTime(std::string_view path, int64_t time) {
  const int node = Find(path, false);
  if (node != kNone) nodes_[static_cast<size_t>(node)].time = time;
}

void MemoryCard::SetReadOnly(std::string_view path) {
  const int node = Find(path, false);
  if (node != kNone) nodes_[static_cast<size_t>(node)].mode &= ~kOwnerWrite;
}

bool MemoryCard::Exists(std::string_view path) const { return Find(path, true) != kNone; }

std::string MemoryCard::Content(std::string_view path) const {
  const int node = Find(path, true);
  return node == kNone ? std::string() : nodes_[static_cast<size_t>(node)].content;
}

bool MemoryCard::AllClosed() const {
  for (const OpenThing& thing : open_) {
    if (thing.used) return false;
  }
  return true;
}

int MemoryCard::EntryOf(int folder, std::string_view name) const {
  const uint32_t hash = HashOf(name);
  for (int at = nodes_[static_cast<size_t>(folder)].first; at != kNone;) {
    const Node& entry = nodes_[static_cast<size_t>(at)];
    if (entry.hash == hash && entry.name == name) return at;
    at = entry.next;
  }
  return kNone;
}

// The node of a path, kNone with errno set when there is none.
int MemoryCard::Walk(std::string_view path, bool followLast, int depth) const {
  if (path.empty() || path[0] != '/' || depth > kMostLinks || path.size() >= PATH_MAX) {
    errno = path.size() >= PATH_MAX ? ENAMETOOLONG : ENOENT;
    return kNone;
  }
  const bool mustBeFolder = path.back() == '/';
  int at = 0;
  for (std::string_view part = TakePart(path); !part.empty(); part = TakePart(path)) {
    const Node& folder = nodes_[static_cast<size_t>(at)];
    if (folder.kind != Kind::kFolder) return Refuse(ENOTDIR);
    if (part.size() > NAME_MAX) return Refuse(ENAMETOOLONG);
    if (part == ".") continue;
    if (part == "..") {
      at = folder.parent == kNone ? at : folder.parent;
      continue;
    }
    at = EntryOf(at, part);
    if (at == kNone) return Refuse(ENOENT);
    const Node& found = nodes_[static_cast<size_t>(at)];
    if (found.kind == Kind::kLink && (!path.empty() || followLast)) {
      at = Walk(found.content, true, depth + 1);
      if (at == kNone) return kNone;
    }
  }
  if (mustBeFolder && nodes_[static_cast<size_t>(at)].kind != Kind::kFolder) return Refuse(ENOTDIR);
  return at;
}

int MemoryCard::Add(int folder, std::string_view name, Kind kind, mode_t mode) {
  if (static_cast<size_t>(used_) == kMaxNodes) return Refuse(ENOSPC);
  const int added = used_++;
  Node& node = nodes_[static_cast<size_t>(added)];
  node.kind = kind;
  node.mode = mode;
  node.parent = folder;
  node.first = node.last = node.next = kNone;
  node.time = kMadeAt;
  node.name = name;
  node.hash = HashOf(name);
  node.content.clear();
  ++changes_;
  if (folder == kNone) return added;
  Node& above = nodes_[static_cast<size_t>(folder)];
  int& place = above.last == kNone ? above.first : nodes_[static_cast<size_t>(above.last)].next;
  place = added;
  above.last = added;
  return added;
}

// With the folders above that are missing.
int MemoryCard::AddPath(std::string_view path, Kind kind, mode_t mode) {
  int at = 0;
  std::string_view part = TakePart(path);
  for (std::string_view next = TakePart(path); !next.empty(); next = TakePart(path)) {
    if (nodes_[static_cast<size_t>(at)].kind != Kind::kFolder || !IsName(part)) return kNone;
    const int found = EntryOf(at, part);
    at = found != kNone ? found : Add(at, part, Kind::kFolder, kFolderMode);
    if (at == kNone) return kNone;
    part = next;
  }
  if (nodes_[static_cast<size_t>(at)].kind != Kind::kFolder || !IsName(part)) return kNone;
  return EntryOf(at, part) != kNone ? kNone : Add(at, part, kind, mode);
}

bool MemoryCard::IsOnCard(int node) const {
  for (int at = node; at != kNone; at = nodes_[static_cast<size_t>(at)].parent) {
    if (at == root_) return at != node;
  }
  return false;
}

int MemoryCard::RemoveNode(int node) {
  Node& gone = nodes_[static_cast<size_t>(node)];
  if (!IsOnCard(node)) Fail("removed outside the card:", gone.name.c_str());
  if (gone.first != kNone) return Refuse(ENOTEMPTY);
  Node& above = nodes_[static_cast<size_t>(gone.parent)];
  if ((above.mode & kOwnerWrite) == 0) return Refuse(EACCES);
  int before = kNone;
  for (int at = above.first; at != node; at = nodes_[static_cast<size_t>(at)].next) before = at;
  int& place = before == kNone ? above.first : nodes_[static_cast<size_t>(before)].next;
  place = gone.next;
  if (above.last == node) above.last = before;
  ++changes_;
  return 0;
}

MemoryCard::OpenThing* MemoryCard::Opened(int node) {
  for (OpenThing& thing : open_) {
    if (thing.used) continue;
    thing = {};
    thing.used = true;
    thing.node = node;
    thing.entry = nodes_[static_cast<size_t>(node)].first;
    return &thing;
  }
  errno = EMFILE;
  return nullptr;
}

}  // namespace flm_fuzz
