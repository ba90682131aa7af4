#include "tests/faults/fault_world.h"

#include <algorithm>
#include <cstring>
#include <ostream>

namespace flm_faults {
namespace {

constexpr int kAllModesList = 4;
constexpr char kFence = 0x5A;

}  // namespace

std::vector<Listed> FilesOf(CQFileList& list, const std::string& root) {
  std::vector<Listed> files;
  CQFileListItem item;
  for (int i = 0; list.DCF_GetAt(i, &item) == 0; ++i) {
    const std::string path = item.filePath;
    const std::string objects = item.objectPath;
    const size_t start = root.size() + 1;
    files.push_back({path.size() > start ? path.substr(start) : path,
                     objects.size() > start ? objects.substr(start) : objects});
  }
  return files;
}

void Record::Text(const char* text, size_t size) {
  const void* const end = std::memchr(text, '\0', std::min(size, kTextSize));
  sound_ = sound_ && end != nullptr;
  if (end == nullptr || texts_ == kMost) return;
  std::memcpy(text_[texts_++], text, std::strlen(text) + 1);
}

bool Record::operator==(const Record& other) const {
  if (results_ != other.results_ || texts_ != other.texts_) return false;
  if (!std::equal(result_, result_ + results_, other.result_)) return false;
  for (int i = 0; i < texts_; ++i) {
    if (std::strcmp(text_[i], other.text_[i]) != 0) return false;
  }
  return true;
}

NewName::NewName() {
  std::memset(text, 0, sizeof(text));
  std::memset(fence, kFence, sizeof(fence));
}

bool NewName::IsWhole() const {
  return std::all_of(fence, fence + sizeof(fence), [](char c) { return c == kFence; });
}

void PrintTo(const Scenario& scenario, std::ostream* out) { *out << scenario.name; }

World::World(FaultCard& onCard) : card(onCard) {
  list.SetBaseURI(card.Root().c_str());
  list.SetType(kAllModesList);
}

World::~World() { list.Destroy(); }

int World::Scan(int stopAtFirst) { return list.Listup(stopAtFirst); }

CQFileListItem World::ItemOf(const std::string& relative) {
  CQFileListItem found;
  for (int i = 0; list.DCF_GetAt(i, &found) == 0; ++i) {
    if (Below(found.filePath) == relative) return found;
  }
  return CQFileListItem();
}

std::string World::Below(const std::string& path) const {
  const std::string start = card.Root() + "/";
  return path.compare(0, start.size(), start) == 0 ? path.substr(start.size()) : path;
}

}  // namespace flm_faults
