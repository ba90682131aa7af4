// Reading a folder: which names belong to the catalogue, and which of them are companions that join
// the item of their number instead of becoming one. Companions wait until the main files are known;
// the buffer for them is allocated once, and when it is full each further one is joined at once.
// Proven by dir_scan_test.
#include <cstdint>
#include <memory>
#include <new>

#include "base/bounded_text.h"
#include "dcf/CQDCFDir.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr size_t kDeferredBufferSize = 65536;
constexpr int kMaxDeferred = static_cast<int>(kDeferredBufferSize / flm::kDcfNameLength);
constexpr int kStemSize = 8;  // the name without point and extension
constexpr int kNoReader = -1;
constexpr int kNoBuffer = -100;
constexpr int kPatternSize = 16;

constexpr int kModeHdMovies = 10;
constexpr int kModeSdMovies = 20;

// The reader lists every name whatever the pattern says; it is handed on for readers that select.
const char* PatternOf(int mode) {
  switch (mode) {
    case flm::kModeStillPlain:
      return "CAM*";
    case kModeHdMovies:
      return "HD*";
    case kModeSdMovies:
      return "SD*";
    default:
      return "";
  }
}

}  // namespace

struct CQDCFDir::Scan {
  std::unique_ptr<PCQDCFFSIO> reader;
  std::unique_ptr<char[]> names;           // deferred companions, 12 bytes each
  std::unique_ptr<unsigned char[]> times;  // their times, 4 bytes each
  int deferred = 0;
  char folder[flm::kFolderPathSize];
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
  char pattern[kPatternSize];
  flm::CopyText(pattern, sizeof(pattern), PatternOf(mode));
  scan.reader.reset(new (std::nothrow) PCQDCFFSIO(scan.folder, pattern));
  if (scan.reader == nullptr) return kNoReader;
  scan.names.reset(new (std::nothrow) char[kDeferredBufferSize]);
  if (scan.names == nullptr) return kNoBuffer;
  scan.times.reset(new (std::nothrow) unsigned char[kDeferredBufferSize]);
  if (scan.times == nullptr) return kNoBuffer;
  ScanEntries(scan);
  JoinDeferred(scan);
  sorted_ = true;
  listedUp_ = true;
  return scan.added;
}

void CQDCFDir::ScanEntries(Scan& scan) {
  PCQDCFFSIO::PTFile entry = {};
  while (scan.reader->Read(&entry) >= 0) {
    if (!TakeEntry(scan, entry.name)) continue;
    ++scan.running;
    if (static_cast<int64_t>(scan.catalogueItems) + scan.added >= flm::kMaxFiles) return;
  }
}

// Whether the name belongs to the catalogue. Times are left for later: reading them here would cost
// one status call a file.
bool CQDCFDir::TakeEntry(Scan& scan, char* name) {
  if (name[0] == '.') return false;
  const int kind = scan.camera ? CheckFileNameSyntaxNonDCF(name) : CheckFileNameSyntax(name);
  if (kind < 0) return false;
  const int fileNumber = scan.camera ? scan.running : GetFnumFromFileName(name);
  if (flm::IsCompanionKind(kind)) {
    TakeCompanion(scan, name, fileNumber);
  } else {
    AddFile(nullptr, fileNumber, name, &scan.added, 0);
  }
  return true;
}

// A companion waits only for a picture that is there; without one it is a file of its own.
void CQDCFDir::TakeCompanion(Scan& scan, const char* name, int fileNumber) {
  char picture[flm::kFolderPathSize];
  flm::BoundedText path(picture, sizeof(picture));
  path.Text(scan.folder).Char('/').Text(name, kStemSize).Char('.').Text(flm::kStillExtension);
  if (PCQDCFFSIO::IsExist(picture) == 0) {
    AddFile(nullptr, fileNumber, name, &scan.added, 0);
  } else if (scan.deferred < kMaxDeferred) {
    ObjTmpListAdd(scan.names.get(), &scan.deferred, name, scan.times.get(), 0);
  } else {
    char kept[flm::kDcfNameLength + 1];
    flm::CopyText(kept, sizeof(kept), name);
    JoinCompanion(scan, kept, 0);
  }
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
