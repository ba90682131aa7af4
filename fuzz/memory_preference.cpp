// The preference store as numbers in memory, in the place of the archive's own.
#include "fuzz/memory_preference.h"

#include "platform/preference.h"

namespace flm_fuzz {

long storedNumber = -1;

}  // namespace flm_fuzz

extern "C" long pref_get_long(int /*category*/, int /*key*/) { return flm_fuzz::storedNumber; }

extern "C" int pref_set_long(int /*category*/, int /*key*/, long value) {
  flm_fuzz::storedNumber = value;
  return 0;
}
