// A preference file of any bytes: it is read within bounds, and a value stored over it comes back.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include "platform/preference.h"

namespace {

std::string MakeFile() {
  char folder[] = "/tmp/zXXXXXX";
  if (mkdtemp(folder) == nullptr) std::abort();
  const std::string file = std::string(folder) + "/preferences";
  setenv("FLM_PREFERENCE_FILE", file.c_str(), 1);
  return file;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string file = MakeFile();
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const long before = pref_get_long(1, 856);
  const bool stored = pref_set_long(1, 856, 10000001) == 0;
  // A file that is full already keeps what it has.
  if (pref_get_long(1, 856) != (stored ? 10000001 : before)) std::abort();
  return 0;
}
