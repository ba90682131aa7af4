// Names and paths of any bytes through everything that reads them. No function may look behind the
// terminating NUL; the text lies in a block of exactly its size, so that a sanitizer sees it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "base/bounded_text.h"
#include "dcf/dcf_name.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::vector<char> text(data, data + size);
  text.push_back('\0');
  flm::UpperCase(text.data());
  const char* const name = text.data();

  flm::CheckDcfName(name);
  flm::CheckFreeName(name);
  flm::CheckDirName(name);
  flm::DcfExtensionKind(name);
  flm::HasCameraWord(name);
  flm::IsCameraName(name);
  flm::FileNumberInName(name);
  flm::DirNumberInName(name);
  flm::SuffixOfDirName(name);
  flm::PrefixCode(name);
  flm::PrefixCodeInPath(name);
  flm::DirNameInPath(name);
  flm::FileNameInPath(name);
  flm::PrefixInPath(name);
  flm::ExtensionInPath(name);
  flm::EndsInJpg(name);
  int dirNumber = -1;
  int fileNumber = -1;
  for (const int rootLength : {0, 1, 8, 97}) {
    flm::NumbersInPath(name, rootLength, rootLength != 8, &dirNumber, &fileNumber);
  }
  return 0;
}
