// Loaded in front of the tool by failing_card_test.py: a card that drops one block of a new print
// order without a word, or that cannot be read beyond the first block of the present one.
//
//   FLM_DROP_BLOCK=N   the Nth block written to AUTPRINT.NEW does not arrive
//   FLM_FAIL_READ=1    AUTPRINT.MRK is read up to some point and no further
#include <dlfcn.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

bool IsOf(int descriptor, const std::string& name) {
  std::array<char, 4096> path = {};
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  const ssize_t length = readlink(link.c_str(), path.data(), path.size() - 1);
  if (length < 0) return false;
  const std::string text(path.data(), static_cast<size_t>(length));
  return text.size() > name.size() && text.substr(text.size() - name.size()) == name;
}

template <class Function>
Function Next(const char* name) {
  return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

using Fwrite = size_t (*)(const void*, size_t, size_t, FILE*);
using Read = ssize_t (*)(int, void*, size_t);

}  // namespace

extern "C" size_t fwrite(const void* data, size_t size, size_t count, FILE* file) {
  static const Fwrite next = Next<Fwrite>("fwrite");
  static const char* const dropped = std::getenv("FLM_DROP_BLOCK");
  static int block = 0;
  if (dropped != nullptr && IsOf(fileno(file), "/AUTPRINT.NEW") && ++block == std::atoi(dropped)) {
    return 0;
  }
  return next(data, size, count, file);
}

extern "C" ssize_t read(int descriptor, void* buffer, size_t size) {
  static const Read next = Next<Read>("read");
  static const char* const failing = std::getenv("FLM_FAIL_READ");
  const bool fails =
      failing != nullptr && IsOf(descriptor, "/AUTPRINT.MRK") && lseek(descriptor, 0, SEEK_CUR) > 0;
  if (!fails) return next(descriptor, buffer, size);
  errno = EIO;
  return -1;
}
