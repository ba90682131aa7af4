// A print order of any bytes, read into a list that holds three files: the reading ends, stays in
// bounds, and the order that is then written can be read again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>

#include <sys/stat.h>

#include "api/CBIFileListManager.h"
#include "filelist/IQFileList.h"

namespace {

constexpr int kListType = 4;

void Write(const std::string& path, const char* text, size_t size) {
  std::ofstream(path, std::ios::binary).write(text, static_cast<std::streamsize>(size));
}

// One card for the whole run; the operating system's temporary folder is cleared by itself.
std::string MakeCard() {
  char root[] = "/tmp/zXXXXXX";
  if (mkdtemp(root) == nullptr) std::abort();
  const std::string made = root;
  for (const char* const folder : {"/DCIM", "/DCIM/100PHOTO", "/MISC"}) {
    mkdir((made + folder).c_str(), 0755);
  }
  for (const char* const name : {"QVX_0001.JPG", "QVX_0002.JPG", "QVX_0003.MP4"}) {
    Write(made + "/DCIM/100PHOTO/" + name, "x", 1);
  }
  return made;
}

IQFileList* MakeList(std::string root) {
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, root.data(), kListType, false);
  IQFileList* const list = CBIFileListManager::GetFileList(root.data(), kListType);
  if (list == nullptr || list->Listup(0) != 3) std::abort();
  return list;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const std::string root = MakeCard();
  static IQFileList* const list = MakeList(root);
  Write(root + "/MISC/AUTPRINT.MRK", reinterpret_cast<const char*>(data), size);
  list->LoadDPOFInfo(nullptr);
  std::string copy = root + "/MISC/COPY.MRK";
  if (list->SaveDPOFInfo(copy.data(), nullptr) != 0) std::abort();
  if (list->LoadDPOFInfo(copy.data()) != 0) std::abort();
  return 0;
}
