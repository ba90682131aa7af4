// A preference file of any bytes: it is read within bounds, a value stored over it comes back, and
// the other values stay. The store calls the system itself, so the file is a real one, in memory
// where the system has such a folder.
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <initializer_list>
#include <string>

#include "fuzz/fail.h"
#include "platform/preference.h"

namespace {

constexpr int kCategory = 1;
constexpr int kKey = 856;
constexpr int kOtherKey = 857;
constexpr long kValue = 10000001;

// A folder of its own, gone at the end.
class Folder {
 public:
  Folder() {
    for (const char* const above : {"/dev/shm", "/tmp"}) {
      path_ = std::string(above) + "/zXXXXXX";
      if (mkdtemp(path_.data()) != nullptr) break;
      path_.clear();
    }
    if (path_.empty()) flm_fuzz::Fail("no folder can be made");
    setenv("FLM_PREFERENCE_FILE", File().c_str(), 1);
  }
  ~Folder() {
    unlink(File().c_str());
    rmdir(path_.c_str());
  }
  std::string File() const { return path_ + "/p"; }

 private:
  std::string path_;
};

void Write(const std::string& path, const uint8_t* data, size_t size) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const ssize_t length = static_cast<ssize_t>(size);
  if (file < 0 || (size > 0 && write(file, data, size) != length) || close(file) != 0) {
    flm_fuzz::Fail("cannot write", path.c_str());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const Folder folder;
  Write(folder.File(), data, size);
  const long before = pref_get_long(kCategory, kKey);
  const long other = pref_get_long(kCategory, kOtherKey);
  const bool stored = pref_set_long(kCategory, kKey, kValue) == 0;
  // A file that is full already keeps what it has.
  if (pref_get_long(kCategory, kKey) != (stored ? kValue : before)) {
    flm_fuzz::Fail("a value does not come back");
  }
  if (pref_get_long(kCategory, kOtherKey) != other) flm_fuzz::Fail("another value is lost");
  return 0;
}
