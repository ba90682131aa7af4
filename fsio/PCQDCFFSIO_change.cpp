// What changes the card: removal, folders, writing a file.
#include <fcntl.h>

#include <cstdio>

#include "fsio/PCQDCFFSIO.h"
#include "fsio/os_calls.h"

namespace {

constexpr mode_t kFolderMode = 0775;

// The call is handed over, so that the thread shares no data with the library, the table of calls
// included.
void* FlushBody(void* sync) {
  reinterpret_cast<void (*)()>(sync)();
  return nullptr;
}

// Flushing a card may take seconds; the caller goes on meanwhile. A thread that cannot be started
// is no failure: the system flushes on its own, later.
void StartFlush() {
  pthread_attr_t attributes;
  if (pthread_attr_init(&attributes) != 0) return;
  pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
  pthread_t thread;
  void* const sync = reinterpret_cast<void*>(flm::Os().Sync);
  flm::Os().StartThread(&thread, &attributes, FlushBody, sync);
  pthread_attr_destroy(&attributes);
}

}  // namespace

int PCQDCFFSIO::RemoveFile(const char* path, bool syncAfter) {
  int result = -1;
  if (path != nullptr) {
    result = flm::Os().Unlink(path);
    if (result == -1) result = flm::Os().Remove(path);
  }
  if (syncAfter) StartFlush();
  return result;
}

int PCQDCFFSIO::MakeDirectory(const char* path) {
  if (path == nullptr) return -1;
  const mode_t previous = flm::Os().Umask(0);
  const int result = flm::Os().Mkdir(path, kFolderMode);
  flm::Os().Umask(previous);
  if (result == 0) flm::Os().Sync();
  return result;
}

void* PCQDCFFSIO::CreateFileIO(const char* path) {
  if (path == nullptr) return nullptr;
  // A link would lead the writing to a file that nobody named.
  const int descriptor =
      flm::OpenRegularFile(path, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, nullptr);
  if (descriptor < 0) return nullptr;
  FILE* const file = flm::Os().Fdopen(descriptor, "w");
  if (file == nullptr) flm::Os().Close(descriptor);
  return file;
}

void PCQDCFFSIO::GatherIn(void* handle, char* buffer, size_t size) {
  if (handle == nullptr || buffer == nullptr) return;
  flm::Os().Setvbuf(static_cast<FILE*>(handle), buffer, _IOFBF, size);
}

int PCQDCFFSIO::Write(void* handle, const char* buf, int* len) {
  if (handle == nullptr || buf == nullptr || len == nullptr || *len < 0) return -1;
  *len = static_cast<int>(
      flm::Os().Fwrite(buf, 1, static_cast<size_t>(*len), static_cast<FILE*>(handle)));
  return *len;
}

int PCQDCFFSIO::DestroyFileIO(void* handle) {
  return handle == nullptr ? -1 : flm::Os().Fclose(static_cast<FILE*>(handle));
}
