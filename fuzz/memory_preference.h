// The number that the preference store keeps, -1 for none; a fuzzer sets it before each input.
#ifndef FILELISTMANAGEMENT_FUZZ_MEMORY_PREFERENCE_H
#define FILELISTMANAGEMENT_FUZZ_MEMORY_PREFERENCE_H

namespace flm_fuzz {

extern long storedNumber;

}  // namespace flm_fuzz

#endif
