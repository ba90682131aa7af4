// A file of a FAT has one bit of protection for everybody. The system sets it only when all write
// permissions that the mount leaves are taken at once, and ignores any other change without a word.
// So the owner's permission can be taken alone only where the mount leaves nobody else's.
#include "card_mount.h"

#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <sstream>
#include <vector>

namespace flm::tool {
namespace {

constexpr char kMounts[] = "/proc/self/mountinfo";
constexpr char kMaskOption[] = "fmask=";
constexpr const char* kFatTypes[] = {"vfat", "exfat", "msdos"};
constexpr mode_t kWritePermissions = 0222;
constexpr mode_t kWantedMask = 0022;
constexpr size_t kDeviceField = 2;

// Behind the field "-", since those before it vary in number.
constexpr size_t kTypeField = 1;
constexpr size_t kOptionsField = 3;

std::vector<std::string> FieldsOf(const std::string& line) {
  std::istringstream text(line);
  return {std::istream_iterator<std::string>(text), std::istream_iterator<std::string>()};
}

std::string DeviceName(dev_t device) {
  return std::to_string(major(device)) + ":" + std::to_string(minor(device));
}

void TakeMask(const std::string& options, CardMount& mount) {
  std::istringstream text(options);
  std::string option;
  while (std::getline(text, option, ',')) {
    if (option.rfind(kMaskOption, 0) != 0) continue;
    const char* const digits = option.c_str() + sizeof(kMaskOption) - 1;
    char* end = nullptr;
    constexpr int kOctal = 8;
    const unsigned long mask = std::strtoul(digits, &end, kOctal);
    mount.hasMask = end != digits && *end == '\0';
    mount.fileMask = static_cast<mode_t>(mask);
  }
}

std::string Octal(mode_t mask) {
  constexpr int kDigits = 4;
  std::ostringstream text;
  text << std::oct << std::setw(kDigits) << std::setfill('0') << mask;
  return text.str();
}

}  // namespace

CardMount FindMount(std::istream& mounts, dev_t device) {
  CardMount mount;
  const std::string name = DeviceName(device);
  std::string line;
  while (std::getline(mounts, line)) {
    const std::vector<std::string> fields = FieldsOf(line);
    if (fields.size() <= kDeviceField || fields[kDeviceField] != name) continue;
    const auto dash = std::find(fields.begin(), fields.end(), "-");
    if (static_cast<size_t>(fields.end() - dash) <= kOptionsField) continue;
    mount.type = dash[kTypeField];
    TakeMask(dash[kOptionsField], mount);
    return mount;
  }
  return mount;
}

std::string ProtectionTrouble(const CardMount& mount) {
  const bool fat =
      std::find(std::begin(kFatTypes), std::end(kFatTypes), mount.type) != std::end(kFatTypes);
  if (!fat || !mount.hasMask) return "";
  if ((mount.fileMask & kWritePermissions) == kWantedMask) return "";
  return "the card is mounted so that its files can be neither protected nor unprotected (" +
         mount.type + " with fmask=" + Octal(mount.fileMask) + "; fmask=" + Octal(kWantedMask) +
         " lets them be)";
}

std::string ProtectionTroubleAt(const std::string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) != 0) return "";
  std::ifstream mounts(kMounts);
  return ProtectionTrouble(FindMount(mounts, status.st_dev));
}

}  // namespace flm::tool
