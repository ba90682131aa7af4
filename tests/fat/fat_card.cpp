#include "tests/fat/fat_card.h"

#include <sys/mount.h>

#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/bounded_text.h"

namespace flm_test {
namespace {

constexpr char kMountPoint[] = "/tmp";
constexpr char kTreeName[] = "DCIM";
constexpr char kAfterCut[] = "/mnt/cut";
constexpr int kAllModesList = 4;
constexpr unsigned int kGroupAndOthersWrite = 0022;
constexpr unsigned int kAllWrite = 0222;

std::string Setting(const char* name) {
  const char* const value = std::getenv(name);
  if (value == nullptr) throw std::runtime_error("run below scripts/test-fat");
  return value;
}

std::string InCut(const std::string& path) {
  return kAfterCut + path.substr(std::strlen(kMountPoint));
}

}  // namespace

unsigned int MountMask() {
  return static_cast<unsigned int>(std::strtoul(Setting("FLM_FAT_MASK").c_str(), nullptr, 8));
}

bool OwnerWriteIsProtection() {
  return (MountMask() & kGroupAndOthersWrite) == kGroupAndOthersWrite;
}

void TakeOutAndPutBack() {
  const std::string device = Setting("FLM_FAT_DEVICE");
  const std::string options = Setting("FLM_FAT_OPTIONS");
  ASSERT_EQ(umount(kMountPoint), 0) << std::strerror(errno);
  if (mount(device.c_str(), kMountPoint, "vfat", 0, options.c_str()) != 0) std::abort();
}

AfterPowerCut::AfterPowerCut() {
  const std::string device = Setting("FLM_FAT_IMAGE");
  const std::string options = Setting("FLM_FAT_OPTIONS");
  if (mount(device.c_str(), kAfterCut, "vfat", MS_RDONLY, options.c_str()) != 0) {
    throw std::runtime_error(std::string("the card cannot be looked at: ") + std::strerror(errno));
  }
}

AfterPowerCut::~AfterPowerCut() {
  if (umount(kAfterCut) != 0) std::abort();
}

bool AfterPowerCut::Has(const std::string& path) const {
  struct stat status;
  return stat(InCut(path).c_str(), &status) == 0;
}

bool AfterPowerCut::IsReadOnly(const std::string& path) const {
  struct stat status;
  return stat(InCut(path).c_str(), &status) == 0 && (status.st_mode & S_IWUSR) == 0;
}

std::string AfterPowerCut::Content(const std::string& path) const {
  std::ifstream file(InCut(path), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

OnFat::OnFat() {
  list.SetType(kAllModesList);
  list.SetBaseURI(card.Root().c_str());
}

OnFat::~OnFat() { list.Destroy(); }

int OnFat::ScanAgain() {
  list.Destroy();
  TakeOutAndPutBack();
  list.SetBaseURI(card.Root().c_str());
  return Scan();
}

std::vector<std::string> OnFat::Files() {
  std::vector<std::string> names;
  for (int i = 0; i < list.GetCount(); ++i) names.push_back(Relative(At(i).filePath));
  return names;
}

std::vector<std::string> OnFat::Tree() const {
  std::vector<std::string> tree;
  for (std::string path : card.Tree()) {
    for (char& letter : path) letter = static_cast<char>(std::toupper(letter));
    if (path.compare(0, std::strlen(kTreeName), kTreeName) == 0) tree.push_back(path);
  }
  return tree;
}

CQFileListItem OnFat::At(int index) {
  CQFileListItem item;
  EXPECT_EQ(list.GetAt(index, &item, true), 0) << index;
  return item;
}

CQFileListItem OnFat::Item(const std::string& relative) const {
  CQFileListItem item;
  flm::CopyText(item.filePath, sizeof(item.filePath), card.Path(relative).c_str());
  return item;
}

std::string OnFat::Relative(const std::string& path) const {
  const std::string start = card.Root() + "/";
  return path.compare(0, start.size(), start) == 0 ? path.substr(start.size()) : path;
}

void OnFat::SetReadOnlyBit(const std::string& relative, bool on) {
  struct stat status;
  ASSERT_EQ(stat(card.Path(relative).c_str(), &status), 0) << std::strerror(errno);
  const unsigned int others = status.st_mode & 0777 & ~kAllWrite;
  card.SetMode(relative, on ? others : others | (kAllWrite & ~MountMask()));
}

}  // namespace flm_test
