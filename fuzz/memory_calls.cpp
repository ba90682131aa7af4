// The table of system calls, answered from the card in memory.
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <ctime>
#include <utility>

#include "fsio/os_calls.h"
#include "fuzz/memory_card.h"

namespace flm_fuzz {

constexpr time_t kNow = 1721692800;  // a day in July
constexpr int kFirstDescriptor = 1000;
constexpr mode_t kOwnerMayWrite = 0200;
constexpr mode_t kModeBits = 07777;

struct MemoryCalls {
  using Kind = MemoryCard::Kind;
  using Node = MemoryCard::Node;
  using OpenThing = MemoryCard::OpenThing;

  static MemoryCard& Card() { return MemoryCard::Get(); }
  static Node& At(int node) { return Card().nodes_[static_cast<size_t>(node)]; }

  static int Refuse(int reason) {
    errno = reason;
    return -1;
  }

  static void Fill(const Node& node, struct stat* status) {
    *status = {};
    switch (node.kind) {
      case Kind::kFolder:
        status->st_mode = S_IFDIR;
        break;
      case Kind::kPipe:
        status->st_mode = S_IFIFO;
        break;
      default:
        status->st_mode = S_IFREG;
    }
    status->st_mode |= node.mode;
    status->st_size = static_cast<off_t>(node.content.size());
    status->st_mtime = node.time;
  }

  static int Stat(const char* path, struct stat* status) {
    const int node = Card().Find(path, true);
    if (node < 0) return -1;
    Fill(At(node), status);
    return 0;
  }

  static int Fstat(int descriptor, struct stat* status) {
    OpenThing* const thing = Of(descriptor);
    if (thing == nullptr) return -1;
    Fill(At(thing->node), status);
    return 0;
  }

  static int Chmod(const char* path, mode_t mode) {
    const int node = Card().Find(path, true);
    if (node < 0) return -1;
    At(node).mode = mode & kModeBits;
    ++Card().changes_;
    return 0;
  }

  static mode_t Umask(mode_t mask) {
    static mode_t current = 022;
    return std::exchange(current, mask);
  }

  // The folder that a new entry of this path would stand in, and its name.
  static int FolderFor(std::string_view path, std::string_view* name) {
    while (path.size() > 1 && path.back() == '/') path.remove_suffix(1);
    const size_t slash = path.rfind('/');
    if (slash == std::string_view::npos) return Refuse(ENOENT);
    *name = path.substr(slash + 1);
    const int folder = Card().Find(path.substr(0, slash + 1), true);
    if (folder < 0) return -1;
    if (name->empty() || *name == "." || *name == "..") return Refuse(EEXIST);
    if (name->size() > NAME_MAX) return Refuse(ENAMETOOLONG);
    return (At(folder).mode & kOwnerMayWrite) != 0 ? folder : Refuse(EACCES);
  }

  static int Make(const char* path, Kind kind, mode_t mode) {
    std::string_view name;
    const int folder = FolderFor(path, &name);
    if (folder < 0) return -1;
    if (Card().EntryOf(folder, name) >= 0) return Refuse(EEXIST);
    return Card().Add(folder, name, kind, mode);
  }

  static int Mkdir(const char* path, mode_t mode) {
    return Make(path, Kind::kFolder, mode) < 0 ? -1 : 0;
  }

  static int Unlink(const char* path) {
    const int node = Card().Find(path, false);
    if (node < 0) return -1;
    return At(node).kind == Kind::kFolder ? Refuse(EISDIR) : Card().RemoveNode(node);
  }

  static int Remove(const char* path) {
    const std::string_view name(path);
    if (name.size() >= 2 && name.substr(name.size() - 2) == "/.") return Refuse(EINVAL);
    if (name.size() >= 3 && name.substr(name.size() - 3) == "/..") return Refuse(ENOTEMPTY);
    const int node = Card().Find(path, false);
    return node < 0 ? -1 : Card().RemoveNode(node);
  }

  static DIR* Opendir(const char* path) {
    const int node = Card().Find(path, true);
    if (node < 0) return nullptr;
    if (At(node).kind != Kind::kFolder) {
      errno = ENOTDIR;
      return nullptr;
    }
    return reinterpret_cast<DIR*>(Card().Opened(node));
  }

  static dirent* Readdir(DIR* dir) {
    static dirent entry;
    OpenThing& thing = *reinterpret_cast<OpenThing*>(dir);
    if (!thing.used) Fail("a folder is read that is not open");
    if (thing.dots < 2) {
      entry.d_type = DT_DIR;
      std::strcpy(entry.d_name, thing.dots++ == 0 ? "." : "..");
      return &entry;
    }
    if (thing.entry < 0) return nullptr;
    const Node& node = At(thing.entry);
    thing.entry = node.next;
    entry.d_type = TypeOf(node.kind);
    std::memcpy(entry.d_name, node.name.c_str(), node.name.size() + 1);
    return &entry;
  }

  static unsigned char TypeOf(Kind kind) {
    constexpr unsigned char kTypes[] = {DT_DIR, DT_REG, DT_LNK, DT_FIFO};
    return kTypes[static_cast<size_t>(kind)];
  }

  static int Closedir(DIR* dir) {
    reinterpret_cast<OpenThing*>(dir)->used = false;
    return 0;
  }

  static int Open(const char* path, int flags, mode_t mode) {
    const bool writes = (flags & O_ACCMODE) != O_RDONLY;
    int node = Card().Find(path, true);
    if (node < 0) {
      if ((flags & O_CREAT) == 0 || errno != ENOENT || Card().Find(path, false) >= 0) return -1;
      node = Make(path, Kind::kFile, mode & ~022U);
      if (node < 0) return -1;
    } else if (writes && At(node).kind == Kind::kFolder) {
      return Refuse(EISDIR);
    } else if (writes && (At(node).mode & kOwnerMayWrite) == 0) {
      return Refuse(EACCES);
    }
    if ((flags & O_TRUNC) != 0) {
      At(node).content.clear();
      ++Card().changes_;
    }
    OpenThing* const thing = Card().Opened(node);
    return thing == nullptr ? -1 : kFirstDescriptor + static_cast<int>(thing - Card().open_);
  }

  static OpenThing* Of(int descriptor) {
    const int index = descriptor - kFirstDescriptor;
    if (index < 0 || index >= static_cast<int>(MemoryCard::kMaxOpen) || !Card().open_[index].used) {
      Fail("a descriptor is used that is not open");
    }
    return &Card().open_[index];
  }

  static int Close(int descriptor) {
    Of(descriptor)->used = false;
    return 0;
  }

  static ssize_t Read(int descriptor, void* buffer, size_t size) {
    OpenThing& thing = *Of(descriptor);
    const std::string& content = At(thing.node).content;
    const size_t taken = std::min({size, content.size() - thing.position, Card().readLimit_});
    std::memcpy(buffer, content.data() + thing.position, taken);
    thing.position += taken;
    return static_cast<ssize_t>(taken);
  }

  static FILE* Fdopen(int descriptor, const char* /*mode*/) {
    return reinterpret_cast<FILE*>(Of(descriptor));
  }

  static size_t Fwrite(const void* data, size_t size, size_t count, FILE* file) {
    At(reinterpret_cast<OpenThing*>(file)->node)
        .content.append(static_cast<const char*>(data), size * count);
    ++Card().changes_;
    return count;
  }

  static int Fclose(FILE* file) {
    reinterpret_cast<OpenThing*>(file)->used = false;
    return 0;
  }

  static time_t Time(time_t* now) {
    if (now != nullptr) *now = kNow;
    return kNow;
  }
};

namespace {

void Install() {
  using Calls = MemoryCalls;
  flm::Os() = {Calls::Stat,
               Calls::Fstat,
               Calls::Chmod,
               Calls::Umask,
               Calls::Mkdir,
               Calls::Unlink,
               Calls::Remove,
               [] {},
               Calls::Opendir,
               Calls::Readdir,
               Calls::Closedir,
               Calls::Open,
               Calls::Close,
               Calls::Read,
               Calls::Fdopen,
               [](FILE*, char*, int, size_t) { return 0; },
               Calls::Fwrite,
               Calls::Fclose,
               Calls::Time,
               gmtime_r,
               [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) { return 0; }};
}

}  // namespace

MemoryCard::MemoryCard() : nodes_(kMaxNodes) {
  Install();
  Clear();
}

MemoryCard& MemoryCard::Get() {
  static MemoryCard card;
  return card;
}

}  // namespace flm_fuzz
