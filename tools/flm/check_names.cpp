#include "check_names.h"

#include "dcf/dcf_name.h"
#include "prefix_check.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kDcfLength = 12;
constexpr size_t kPrefixLength = 4;
constexpr size_t kExtensionStart = 9;
constexpr size_t kMaxFolderPath = 98;  // what the scan keeps of the path of a folder

// Results of the library's checks.
constexpr int kTooShort = -2;
constexpr int kTooLong = -3;
constexpr int kBadExtension = -100;
constexpr int kBadFreeCharacter = -201;

}  // namespace

std::string FolderNameProblem(const std::string& name) {
  const std::string upper = Upper(name);
  if (name.size() + sizeof("./DCIM/") - 1 > kMaxFolderPath) return "the name is too long";
  if (IsCameraName(upper.c_str())) return "";
  const int result = CheckDirName(upper.c_str());
  if (result == kTooShort)
    return "a folder name has 8 characters, this one has " + std::to_string(name.size());
  if (result < 0) return "a folder name begins with three digits";
  if (DirNumberInName(upper.c_str()) < kCameraNumber) return "folder numbers run from 100 to 999";
  return "";
}

std::string FileNameProblem(const std::string& name) {
  const std::string upper = Upper(name);
  const int result = CheckDcfName(upper.c_str());
  if (result >= 0) return "";
  if (result == kTooShort || result == kTooLong) {
    return "a file name has 12 characters, this one has " + std::to_string(name.size());
  }
  if (result == kBadExtension) {
    return "the extension is none of JPG MP4 AVI 3GP MP3 WAV SRW MPO";
  }
  if (result == kBadFreeCharacter) {
    return "the name begins neither with four letters or _ nor with a number behind four "
           "characters";
  }
  return "characters 5 to 8 are not four digits";
}

std::string FreeNameProblem(const std::string& name) {
  if (CheckFreeName(name.c_str()) >= 0) return "";
  return "a name in CAMERA has 12 to 40 characters, this one has " + std::to_string(name.size());
}

bool HasForeignCharacters(const std::string& name) {
  return !PrefixError(Upper(name.substr(0, kPrefixLength))).empty();
}

int KindOfName(const std::string& name) { return CheckDcfName(Upper(name).c_str()); }

std::string NameInList(const std::string& name) {
  if (name.size() != kDcfLength) return name;
  const std::string upper = Upper(name);
  return upper.substr(0, kPrefixLength) + Padded(FileNumberInName(upper.c_str()), 4) + "." +
         upper.substr(kExtensionStart);
}

}  // namespace flm::tool
