#include "copy_file.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "failure.h"
#include "interrupt.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kChunk = 1 << 16;
constexpr mode_t kFileMode = 0664;

[[noreturn]] void FailWith(const std::string& what) { throw Failure(WithReason(what, errno)); }

// The temporary file: removed unless it got its name.
class Temporary {
 public:
  explicit Temporary(const std::string& folder) : path_(folder + "/.flm-import-XXXXXX") {
    number_ = mkostemp(path_.data(), O_CLOEXEC);
  }
  ~Temporary() {
    if (number_ >= 0) close(number_);
    if (number_ >= 0 && !named_) unlink(path_.c_str());
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  int Number() const { return number_; }

  // A file that is in the way stays: numbering does not look at files that the list does not hold.
  bool NameWithoutReplacing(const std::string& target) {
    int result = renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE);
    if (result != 0 && (errno == EINVAL || errno == ENOSYS)) {
      // The file system cannot promise it; nothing else writes to a card meanwhile.
      struct stat status;
      if (lstat(target.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
      }
      result = rename(path_.c_str(), target.c_str());
    }
    named_ = result == 0;
    return named_;
  }

 private:
  std::string path_;
  int number_ = -1;
  bool named_ = false;
};

void WriteAll(int target, const char* data, size_t size, const std::string& shown) {
  while (size > 0) {
    const ssize_t written = write(target, data, size);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) FailWith("cannot write " + shown);
    data += written;
    size -= static_cast<size_t>(written);
  }
}

void CopyContent(const SourceFile& source, int target, const std::string& shown) {
  std::array<char, kChunk> chunk;
  for (;;) {
    if (Interrupted()) throw Failure("interrupted before " + shown, kStatusInterrupted);
    const ssize_t got = read(source.Number(), chunk.data(), chunk.size());
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) FailWith("cannot read " + source.Shown());
    if (got == 0) return;
    WriteAll(target, chunk.data(), static_cast<size_t>(got), shown);
  }
}

// What a new file gets from the process's mask; the temporary file was private.
mode_t OrdinaryMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return kFileMode & ~mask;
}

}  // namespace

Descriptor::~Descriptor() {
  if (number_ >= 0) close(number_);
}

// Opening must not wait for a pipe's other end.
SourceFile::SourceFile(const std::string& path, std::string shown)
    : shown_(std::move(shown)), descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
  if (!descriptor_.IsOpen()) FailWith("cannot open " + shown_);
  if (fstat(descriptor_.Number(), &status_) != 0) FailWith("cannot read " + shown_);
  if (!S_ISREG(status_.st_mode)) throw Failure(shown_ + " is not a file");
}

void CopyInto(const SourceFile& source, const std::string& target, const std::string& shownTarget) {
  const std::string folder = FolderOf(target);
  Temporary temporary(folder);
  const int number = temporary.Number();
  if (number < 0) FailWith("cannot make " + shownTarget);
  CopyContent(source, number, shownTarget);
  // A FAT card has no modes to change and says so; the copy is as good without.
  if (fchmod(number, OrdinaryMode()) != 0 && errno != EPERM) FailWith("cannot make " + shownTarget);
  const timespec times[2] = {source.Status().st_atim, source.Status().st_mtim};
  if (futimens(number, times) != 0) FailWith("cannot set the time of " + shownTarget);
  if (fsync(number) != 0) FailWith("cannot write " + shownTarget);
  if (!temporary.NameWithoutReplacing(target)) FailWith("cannot make " + shownTarget);
  // On a FAT card a rename rewrites the entry, so the file is flushed under its new name too.
  if (fsync(number) != 0) FailWith("cannot write " + shownTarget);
  FlushFolder(folder);
}

void FlushFolder(const std::string& folder) {
  const Descriptor descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.IsOpen() || fsync(descriptor.Number()) != 0) {
    FailWith("cannot flush the folder " + Printable(BaseName(folder)));
  }
}

void RemoveFolder(const std::string& folder) { rmdir(folder.c_str()); }

std::vector<std::string> EntriesOf(const std::string& folder) {
  std::vector<std::string> names;
  DIR* const dir = opendir(folder.c_str());
  if (dir == nullptr) return names;
  while (const dirent* const entry = readdir(dir)) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(name);
  }
  closedir(dir);
  return names;
}

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

}  // namespace flm::tool
