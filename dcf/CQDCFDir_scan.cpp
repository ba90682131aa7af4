// Reading a folder: which names belong to the catalogue, and which of them are companions that join
// the item of their number instead of becoming one. Companions wait until the main files are known;
// the buffer for them is allocated once, and when it is full each further one is joined at once.
// Proven by dir_scan_test.
#include <cstdint>
#include <cstring>
#include <memory>
#include <new>

#include "base/bounded_text.h"
#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "fsio/PCQDCFFSIO.h"
#include "fsio/folder_listing.h"

namespace {

constexpr size_t kDeferredBufferSize = 65536;
constexpr int kMaxDeferred = static_cast<int>(kDeferredBufferSize / flm::kDcfNameLength);
constexpr int kStemSize = 8;  // the name without point and extension
constexpr int kNearby = 64;   // so many names of one number are looked through
constexpr int kNoReader = -1;
constexpr int kNoBuffer = -100;

int CheckName(const char* name, size_t length) {
  return length == flm::kDcfNameLength ? flm::CheckDcfCharacters(name) : -1;
}

// Whether the picture of a companion is listed near it: in DCF order the names of one number stand
// together, the picture in front of its companions.
bool IsListed(const flm::FolderListing& listing, int entry, const char* name) {
  const int farthest = entry > kNearby ? entry - kNearby : 0;
  for (int at = entry - 1; at >= farthest; --at) {
    const char* const listed = listing.Name(at);
    if (std::strncmp(listed, name, flm::kNumberAt) == 0 && std::strcmp(listed, name) == 0)
      return listing.IsNoLink(at);
    const bool sameNumber =
        flm::BoundedLength(listed, kStemSize) == kStemSize &&
        std::memcmp(listed + flm::kNumberAt, name + flm::kNumberAt, flm::kNumberDigits) == 0;
    if (!sameNumber) return false;
  }
  return false;
}

}  // namespace

struct CQDCFDir::Scan {
  std::unique_ptr<flm::FolderListing> listing;
  std::unique_ptr<char[]> names;           // deferred companions, 12 bytes each
  std::unique_ptr<unsigned char[]> times;  // their times, 4 bytes each
  int deferred = 0;
  char folder[flm::kFolderPathSize];
  bool wholePaths = false;  // paths of 12-character names in the folder are not cut
  bool searchable = false;  // a file of the folder was found by its path
  bool camera = false;
  int running = 0;  // the number of the next file of a "CAMERA" folder
  int added = 0;
  int catalogueItems = 0;
};

int CQDCFDir::Listup(const char* baseURI, int mode, int /*dirNumber*/, int catalogueItems) {
  if (baseURI == nullptr || baseURI[0] == '\0') return kNoReader;
  sorted_ = false;
  listedUp_ = false;
  FreeMem();
  if (GetMem() < 0) return kNoBuffer;
  Scan scan;
  scan.catalogueItems = catalogueItems;
  scan.camera = flm::IsCameraName(dirName_);
  flm::BoundedText folder(scan.folder, sizeof(scan.folder));
  flm::AppendNamedFolder(folder, baseURI, flm::ScannedTree(mode), dirName_);
  scan.wholePaths = folder.Length() + 1 + flm::kDcfNameLength < flm::kFolderPathSize;
  scan.listing.reset(new (std::nothrow) flm::FolderListing);
  if (scan.listing == nullptr) return kNoReader;
  scan.listing->Read(scan.folder);
  items_->ReserveIndex(scan.listing->Count(), dirNumber_ == flm::kCameraNumber);
  scan.names.reset(new (std::nothrow) char[kDeferredBufferSize]);
  if (scan.names == nullptr) return kNoBuffer;
  scan.times.reset(new (std::nothrow) unsigned char[kDeferredBufferSize]);
  if (scan.times == nullptr) return kNoBuffer;
  ScanEntries(scan);
  scan.listing.reset();
  items_->FitIndex(scan.deferred);
  JoinDeferred(scan);
  items_->FitIndex(0);
  sorted_ = true;
  listedUp_ = true;
  return scan.added;
}

void CQDCFDir::ScanEntries(Scan& scan) {
  for (int entry = 0; entry < scan.listing->Count(); ++entry) {
    if (!TakeEntry(scan, entry)) continue;
    ++scan.running;
    if (static_cast<int64_t>(scan.catalogueItems) + scan.added >= flm::kMaxFiles) return;
  }
}

// Whether the name belongs to the catalogue. Times are left for later: reading them here would cost
// one status call a file.
bool CQDCFDir::TakeEntry(Scan& scan, int entry) {
  const char* const listed = scan.listing->Name(entry);
  const size_t length = static_cast<size_t>(scan.listing->Length(entry));
  char name[flm::kFileNameSize];
  // A longer name belongs to no folder.
  if (listed[0] == '.' || length >= sizeof(name)) return false;
  std::memcpy(name, listed, length + 1);
  if (length == flm::kDcfNameLength) flm::UpperCase(name);
  const int kind = scan.camera ? flm::CheckFreeName(name) : CheckName(name, length);
  if (kind < 0) return false;
  const int fileNumber = scan.camera ? scan.running : flm::FileNumberInName(name);
  if (flm::IsCompanionKind(kind)) {
    TakeCompanion(scan, entry, name, length, fileNumber);
  } else {
    AddScanned(scan, fileNumber, name, length);
  }
  return true;
}

void CQDCFDir::AddScanned(Scan& scan, int fileNumber, const char* name, size_t length) {
  DCFItem* const item = AddItem();
  ++scan.added;  // an attempt counts, also when the pool is exhausted
  if (item != nullptr) Fill(item, fileNumber, name, length, 0);
}

// A companion waits only for a picture that is there; without one it is a file of its own.
void CQDCFDir::TakeCompanion(Scan& scan, int entry, const char* name, size_t length,
                             int fileNumber) {
  char picture[flm::kFolderPathSize];
  flm::BoundedText path(picture, sizeof(picture));
  path.Text(scan.folder).Char('/');
  const char* const pictureName = picture + path.Length();
  path.Text(name, kStemSize).Char('.').Text(flm::kStillExtension);
  if (!IsThere(scan, entry, picture, pictureName)) {
    AddScanned(scan, fileNumber, name, length);
  } else if (scan.deferred < kMaxDeferred) {
    ObjTmpListAdd(scan.names.get(), &scan.deferred, name, scan.times.get(), 0);
  } else {
    char kept[flm::kDcfNameLength + 1];
    flm::CopyText(kept, sizeof(kept), name);
    JoinCompanion(scan, kept, 0);
  }
}

// Whether the picture of an entry can be found by its path. What the listing names needs no status
// call, once one file has shown that files of the folder can be reached at all; what it does not
// name does, for a card may take two spellings for one name.
bool CQDCFDir::IsThere(Scan& scan, int entry, const char* path, const char* name) {
  if (scan.searchable && scan.wholePaths && IsListed(*scan.listing, entry, name)) return true;
  const bool there = PCQDCFFSIO::IsExist(path) != 0;
  scan.searchable = scan.searchable || there;
  return there;
}

void CQDCFDir::JoinDeferred(Scan& scan) {
  char name[flm::kDcfNameLength + 1];
  unsigned int time = 0;
  for (int i = 0; i < scan.deferred; ++i) {
    if (ObjTmpListAt(scan.names.get(), i, name, scan.times.get(), &time) < 0) return;
    JoinCompanion(scan, name, time);
  }
}

void CQDCFDir::JoinCompanion(Scan& scan, const char* name, unsigned int time) {
  const int fileNumber = scan.camera ? ++scan.running : GetFnumFromFileName(name);
  if (SetObject(name) == 0) return;
  const int kind = flm::DcfExtensionKind(name);
  const bool ownItem = kind == flm::kKindSrw || kind == flm::kKindMpo;
  // A voice memo without its picture is worth nothing to anyone who browses.
  if (ownItem) AddFile(nullptr, fileNumber, name, &scan.added, time);
}

int CQDCFDir::Sort() {
  if (sorted_ || items_ == nullptr) return 0;
  items_->Sort();
  sorted_ = true;
  return 0;
}
