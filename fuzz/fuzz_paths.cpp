// A fixed small card, and every operation that takes a path, a text or a number with any of them.
//
// Input: number of operations (up to four), three numbers, switches, how the path is made, a text
// with its length in front, the operations; the rest is the text of the path.
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "fuzz/input.h"
#include "fuzz/memory_card.h"
#include "fuzz/paths.h"
#include "fuzz/reset_list.h"

namespace {

using flm_fuzz::Arguments;
using flm_fuzz::Operation;

constexpr int kMostOperations = 4;
constexpr size_t kMostText = 40;
constexpr int kMostSteps = 64;
constexpr int kPathBytes = 128;

constexpr const char* kFiles[] = {
    "DCIM/100PHOTO/QVX_0001.JPG",        "DCIM/100PHOTO/QVX_0002.JPG", "DCIM/100PHOTO/QVX_0002.SRW",
    "DCIM/100PHOTO/QVX_0002.WAV",        "DCIM/100PHOTO/QVX_0003.MP4", "DCIM/100PHOTO/CAM_0003.JPG",
    "DCIM/100ABCDE/QVX_0001.JPG",        "DCIM/101PHOTO/SDC10004.JPG", "DCIM/101PHOTO/QVX_9999.JPG",
    "DCIM/999_0722/S3D_0001.MP4",        "DCIM/999_0722/_QVX0002.MPO", "DCIM/CAMERA/HOLIDAY1.JPG",
    "DCIM/CAMERA/party at the lake.jpg", "VIDEO/100VIDEO/QVX_0001.MP4"};

enum PathKind { kText, kBelowTree, kListed, kListedChanged, kNull, kNoEnd, kListedLonger, kKinds };

class Fixture {
 public:
  Fixture() {
    flm_fuzz::MemoryCard& card = flm_fuzz::MemoryCard::Get();
    for (const char* const file : kFiles) card.MakeFile(Below(flm_fuzz::kRoot, file));
    card.MakeFile(Below(flm_fuzz::kNeighbour, kFiles[0]));
    card.MakeFolder(Below(flm_fuzz::kRoot, "DCIM/102EMPTY"));
    card.MakeFile(Below(flm_fuzz::kRoot, "MISC/AUTPRINT.MRK"), "PRT TYP=STD\r\nPRT QTY=2\r\n");
    card.SetReadOnly(Below(flm_fuzz::kRoot, kFiles[1]));
    card.Keep();
    Prepare();
    CQFileListItem item;
    for (int i = 0; list_.GetAt(i, &item, false) >= 0; ++i) listed_.push_back(item);
    if (listed_.size() < 8) flm_fuzz::Fail("the card lists wrongly");
  }
  ~Fixture() { list_.Destroy(); }

  CQFileList& List() { return list_; }
  const CQFileListItem& Listed(int i) const {
    return listed_[static_cast<size_t>(i) % listed_.size()];
  }

  // The card and the list as they were at first.
  void Prepare() {
    flm_fuzz::MemoryCard::Get().Restore();
    flm_fuzz::ResetList(list_);
    list_.Listup(0);
    flm_fuzz::ResetCursors(list_);
  }

 private:
  static std::string Below(const char* root, const char* file) {
    return std::string(root) + "/" + file;
  }

  CQFileList list_;
  std::vector<CQFileListItem> listed_;
};

std::string MakePath(const Fixture& fixture, PathKind kind, int which, std::string_view text) {
  std::string listed = fixture.Listed(which).filePath;
  switch (kind) {
    case kBelowTree:
      return std::string(flm_fuzz::kRoot) + "/DCIM/" + std::string(text);
    case kListed:
      return listed;
    case kListedChanged: {
      // The text stands over a part of the path.
      const size_t at = text.empty() ? 0 : static_cast<uint8_t>(text[0]) % listed.size();
      const std::string_view over = text.substr(std::min<size_t>(1, text.size()));
      return listed.replace(at, over.size(), over);
    }
    case kListedLonger:
      return listed + std::string(text);
    default:
      return std::string(text);
  }
}

void FillItem(CQFileListItem* item, const CQFileListItem& listed, PathKind kind,
              const std::string& path, bool ownObject, std::string_view object) {
  const std::string shown = path.substr(0, path.find('\0')).substr(0, kPathBytes - 1);
  std::memcpy(item->filePath, shown.c_str(), shown.size() + 1);
  std::memcpy(item->objectPath, listed.objectPath, kPathBytes);
  if (ownObject) {
    const std::string text(object.substr(0, object.find('\0')));
    std::memcpy(item->objectPath, text.c_str(), text.size() + 1);
  }
  if (kind == kNoEnd) std::memset(item->filePath, 'x', kPathBytes);
  if (kind == kNoEnd && ownObject) std::memset(item->objectPath, 'S', kPathBytes);
}

char* CopyInto(Arguments& arguments, std::string_view text) {
  const std::string_view shown = text.substr(0, text.find('\0'));
  char* const copy = arguments.Out(static_cast<int>(shown.size()) + 1);
  std::copy(shown.begin(), shown.end(), copy);
  return copy;
}

const Operation& OperationOf(int choice) {
  const flm_fuzz::Operations& list = flm_fuzz::ListOperations();
  const flm_fuzz::Operations& catalogue = flm_fuzz::CatalogueOperations();
  const size_t index = static_cast<size_t>(choice) % (list.size() + catalogue.size());
  return index < list.size() ? list[index] : catalogue[index - list.size()];
}

// Whatever was done, the list can be walked to an end.
void WalkThrough(CQFileList& list) {
  CQFileListItem item;
  int steps = 0;
  for (int found = list.GetFirst(&item, true); found >= 0; found = list.GetNext(&item, true)) {
    if (++steps > kMostSteps) flm_fuzz::Fail("a walk without an end");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static Fixture fixture;
  flm_fuzz::Input input(data, size);
  Arguments arguments(fixture.List());
  const int count = 1 + input.Below(kMostOperations);
  for (int& number : arguments.number) number = input.Number();
  const uint8_t switches = input.Byte();
  arguments.on = (switches & 1) != 0;
  arguments.on2 = (switches & 2) != 0;
  const PathKind kind = static_cast<PathKind>(input.Below(kKinds));
  const std::string_view text = input.Text(kMostText);
  const Operation* operations[kMostOperations];
  for (int i = 0; i < count; ++i) operations[i] = &OperationOf(input.Byte());

  const int which = switches >> 3;
  const std::string path = MakePath(fixture, kind, which, input.Rest());
  FillItem(&arguments.ownItem, fixture.Listed(which), kind, path, (switches & 4) != 0, text);
  arguments.path = kind == kNull ? nullptr : CopyInto(arguments, path);
  arguments.text = CopyInto(arguments, text);
  arguments.item = kind == kNull ? nullptr : &arguments.ownItem;

  bool changed = false;
  for (int i = 0; i < count; ++i) {
    operations[i]->run(arguments);
    changed = changed || operations[i]->changes;
  }
  if (changed) {
    WalkThrough(fixture.List());
    fixture.Prepare();
  } else {
    flm_fuzz::ResetCursors(fixture.List());
  }
  if (!flm_fuzz::MemoryCard::Get().AllClosed()) flm_fuzz::Fail("a file stays open");
  return 0;
}
