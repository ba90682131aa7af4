// The calls that the table and the preference store share stand here under their own names, so that
// they are met on both ways; the table's other calls are replaced in the table. A call that closes
// something does so even when it is to fail, as the system does.
#include "tests/faults/faulty_calls.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "fsio/os_calls.h"
#include "tests/faults/fault_gate.h"

namespace flm_faults {
namespace {

constexpr size_t kPlaceSize = 4200;

char mountRoot[64] = "";
char mountFolder[64] = "";

// Where a path really leads.
class Place {
 public:
  explicit Place(const char* path) : path_(path) {
    const size_t root = std::strlen(mountRoot);
    if (root == 0 || std::strncmp(path, mountRoot, root) != 0) return;
    std::snprintf(place_, sizeof(place_), "%s%s", mountFolder, path + root);
    path_ = place_;
  }
  operator const char*() const { return path_; }

 private:
  const char* path_;
  char place_[kPlaceSize];
};

// A handle that was opened, when it was.
int Opened(int handle) {
  if (handle >= 0) ++Gate::Now().open;
  return handle;
}

// A handle that was closed; the result of closing it.
int Closed(int result, bool fails) {
  --Gate::Now().open;
  return fails ? -1 : result;
}

int Stat(const char* path, struct stat* status) {
  return Gate::Fails(Call::kStat) ? -1 : fstatat(AT_FDCWD, Place(path), status, 0);
}

int Chmod(const char* path, mode_t mode) {
  return Gate::Fails(Call::kChmod) ? -1 : fchmodat(AT_FDCWD, Place(path), mode, 0);
}

mode_t Umask(mode_t mask) {
  Gate::Watch();
  return umask(mask);
}

int Remove(const char* path) { return Gate::Fails(Call::kRemove) ? -1 : std::remove(Place(path)); }

void Sync() {
  Gate::Watch();
  ++Gate::Now().syncs;
}

DIR* Opendir(const char* path) {
  if (Gate::Fails(Call::kOpendir)) return nullptr;
  DIR* const dir = opendir(Place(path));
  if (dir != nullptr) ++Gate::Now().open;
  return dir;
}

dirent* Readdir(DIR* dir) { return Gate::Fails(Call::kReaddir) ? nullptr : readdir(dir); }

int Closedir(DIR* dir) {
  const bool fails = Gate::Fails(Call::kClosedir);
  return Closed(closedir(dir), fails);
}

FILE* Fdopen(int descriptor, const char* mode) {
  if (Gate::Fails(Call::kFdopen)) return nullptr;
  return fdopen(descriptor, mode);
}

size_t Fwrite(const void* data, size_t size, size_t count, FILE* file) {
  if (Gate::Fails(Call::kFwrite)) return 0;
  return std::fwrite(data, size, count, file);
}

int Fclose(FILE* file) {
  const bool fails = Gate::Fails(Call::kFclose);
  return Closed(std::fclose(file), fails);
}

time_t Time(time_t* now) { return Gate::Fails(Call::kTime) ? -1 : time(now); }

tm* Localtime(const time_t* time, tm* result) {
  return Gate::Fails(Call::kLocaltime) ? nullptr : localtime_r(time, result);
}

int StartThread(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
  ++Gate::Now().threads;
  return Gate::Fails(Call::kStartThread) ? errno : 0;
}

void Copy(const std::string& text, char* out, size_t size) {
  std::snprintf(out, size, "%s", text.c_str());
}

}  // namespace

FaultyCalls::FaultyCalls() {
  flm::OsCalls& os = flm::Os();
  os.Stat = Stat;
  os.Chmod = Chmod;
  os.Umask = Umask;
  os.Remove = Remove;
  os.Sync = Sync;
  os.Opendir = Opendir;
  os.Readdir = Readdir;
  os.Closedir = Closedir;
  os.Fdopen = Fdopen;
  os.Fwrite = Fwrite;
  os.Fclose = Fclose;
  os.Time = Time;
  os.Localtime = Localtime;
  os.StartThread = StartThread;
}

FaultyCalls::~FaultyCalls() {
  Mount("", "");
  flm::ResetOsCalls();
}

void FaultyCalls::Mount(const std::string& root, const std::string& folder) {
  Copy(root, mountRoot, sizeof(mountRoot));
  Copy(folder, mountFolder, sizeof(mountFolder));
}

}  // namespace flm_faults

using flm_faults::Call;
using flm_faults::Closed;
using flm_faults::Gate;
using flm_faults::Opened;
using flm_faults::Place;

extern "C" {

int open(const char* path, int flags, ...) {
  if (Gate::Fails(Call::kOpen)) return -1;
  va_list rest;
  va_start(rest, flags);
  const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(rest, mode_t) : 0;
  va_end(rest);
  return Opened(openat(AT_FDCWD, Place(path), flags, mode));
}

int close(int descriptor) {
  const bool fails = Gate::Fails(Call::kClose);
  return Closed(static_cast<int>(syscall(SYS_close, descriptor)), fails);
}

ssize_t read(int descriptor, void* buffer, size_t size) {
  const iovec part = {buffer, size};
  return Gate::Fails(Call::kRead) ? -1 : readv(descriptor, &part, 1);
}

ssize_t write(int descriptor, const void* data, size_t size) {
  const iovec part = {const_cast<void*>(data), size};
  return Gate::Fails(Call::kWrite) ? -1 : writev(descriptor, &part, 1);
}

int fstat(int descriptor, struct stat* status) noexcept {
  return Gate::Fails(Call::kFstat) ? -1 : fstatat(descriptor, "", status, AT_EMPTY_PATH);
}

int mkdir(const char* path, mode_t mode) noexcept {
  return Gate::Fails(Call::kMkdir) ? -1 : mkdirat(AT_FDCWD, Place(path), mode);
}

int unlink(const char* path) noexcept {
  return Gate::Fails(Call::kUnlink) ? -1 : unlinkat(AT_FDCWD, Place(path), 0);
}

int rename(const char* from, const char* to) noexcept {
  return Gate::Fails(Call::kRename) ? -1 : renameat(AT_FDCWD, from, AT_FDCWD, to);
}

// A real flush of the disk takes longer than everything else.
int fsync(int /*descriptor*/) { return Gate::Fails(Call::kFsync) ? -1 : 0; }
}
