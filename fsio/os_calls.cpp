#include "fsio/os_calls.h"

#include <fcntl.h>
#include <unistd.h>

namespace flm {
namespace {

// Calls that are overloaded, variadic or macros get a plain function to point to.
int StatOf(const char* path, struct stat* status) { return stat(path, status); }
int FstatOf(int descriptor, struct stat* status) { return fstat(descriptor, status); }
int OpenOf(const char* path, int flags, mode_t mode) { return open(path, flags, mode); }

const OsCalls kSystem = {
    StatOf, FstatOf,      chmod,       umask,       mkdir,  unlink,      std::remove,
    sync,   opendir,      readdir,     closedir,    OpenOf, close,       read,
    fdopen, std::setvbuf, std::fwrite, std::fclose, time,   localtime_r, pthread_create};

}  // namespace

OsCalls& Os() {
  static OsCalls calls = kSystem;
  return calls;
}

void ResetOsCalls() { Os() = kSystem; }

int OpenRegularFile(const char* path, int flags, off_t* size) {
  constexpr mode_t kNewFileMode = 0666;
  const int descriptor = Os().Open(path, flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, kNewFileMode);
  if (descriptor < 0) return -1;
  struct stat status;
  if (Os().Fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
    Os().Close(descriptor);
    return -1;
  }
  if (size != nullptr) *size = status.st_size;
  return descriptor;
}

unsigned int CurrentTime() { return static_cast<unsigned int>(Os().Time(nullptr)); }

}  // namespace flm
