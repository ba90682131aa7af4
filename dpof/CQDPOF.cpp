// Writing a print order. Each block is one text, written with one call.
#include "dpof/CQDPOF.h"

#include <cstring>
#include <memory>
#include <new>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"
#include "dpof/dpof_types.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr char kHeaderStart[] = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"";
constexpr char kHeaderEnd[] = "\"\r\n\r\n";
constexpr char kJobStart[] = "[JOB]\r\nPRT PID=";
constexpr char kTypeStart[] = "\r\nPRT TYP=";
constexpr char kQuantityStart[] = "\r\nPRT QTY=";
constexpr char kImageFormat[] = "\r\nIMG FMT=EXIF2 -J\r\n";
constexpr char kIndexHead[] = "\r\nPRT TYP=IDX\r\nPRT QTY=001>\r\nIMG FMT=EXIF2 -J\r\n";
constexpr char kSourceStart[] = "<IMG SRC=\"../";
constexpr char kSourceEnd[] = "\">\r\n";
constexpr int kBlockSize = 512;
// Each write to a card takes its time, however little it writes.
constexpr size_t kGatheredSize = size_t{32} * 1024;
constexpr int kThreeDigits = 3;
constexpr int kOnePrint = 1;

// The file being written, and the memory in which it gathers what is written: that must outlive the
// file also when the saving thread is cancelled, which unwinds it.
class OrderFile {
 public:
  explicit OrderFile(const char* path) : handle_(PCQDCFFSIO::CreateFileIO(path)) {}
  ~OrderFile() { Close(); }
  OrderFile(const OrderFile&) = delete;
  OrderFile& operator=(const OrderFile&) = delete;

  void* Handle() const { return handle_; }

  void Gather() {
    gathered_.reset(new (std::nothrow) char[kGatheredSize]);
    PCQDCFFSIO::GatherIn(handle_, gathered_.get(), kGatheredSize);
  }

  int Close() {
    void* const file = handle_;
    handle_ = nullptr;
    return PCQDCFFSIO::DestroyFileIO(file);
  }

 private:
  void* handle_;  // null when closed
  std::unique_ptr<char[]> gathered_;
};

// The path of a file less the storage root and the '/' behind it.
const char* BelowRoot(const char* path, const CQDCFList& catalogue) {
  const size_t root = std::strlen(catalogue.GetBaseURI());
  return std::strlen(path) > root ? path + root + 1 : "";
}

void WriteBlock(void* file, const char* text, int length) {
  PCQDCFFSIO::Write(file, text, &length);
}

// Every file of the catalogue's walk whose byte is set, at most fileCount files on; `take` gets its
// path and the byte. The walk moves the catalogue's cursor.
template <typename Take>
void ForEachWith(CQDCFList& catalogue, int byte, int fileCount, Take take) {
  char path[flm::kPathSize] = {};
  CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(byte, fileCount);
  while (const int value = catalogue.GetNextWithInfo(walk, path, flm::kPathSize)) {
    take(path, value);
  }
}

// Whether any file of the walk has the byte set. The walk is taken to its end all the same: it may
// read directories.
bool AnyWith(CQDCFList& catalogue, int byte, int fileCount) {
  char path[flm::kPathSize] = {};
  CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(byte, fileCount);
  const bool any = catalogue.GetNextWithInfo(walk, path, flm::kPathSize) != 0;
  catalogue.EndWalk(walk);
  return any;
}

}  // namespace

CQDPOF::CQDPOF() : jobCount_(0) {}

CQDPOF::~CQDPOF() = default;

int CQDPOF::SaveDPOFInfo(const char* path, CQDCFList* catalogue, const char* creator,
                         int fileCount) {
  if (path == nullptr || catalogue == nullptr) return -1;
  OrderFile file(path);
  if (file.Handle() == nullptr) return -1;
  if (fileCount != 0) {
    file.Gather();
    jobCount_ = 0;
    MakeHeader(file.Handle(), creator, fileCount);
    MakeStandard(file.Handle(), catalogue, fileCount);
    MakeIndex(file.Handle(), catalogue, fileCount);
    MakeSize(file.Handle(), catalogue, fileCount);
  }
  return file.Close();
}

int CQDPOF::MakeHeader(void* file, const char* creator, int /*fileCount*/) {
  if (file == nullptr) return -1;
  const size_t nameLength = creator == nullptr ? 0 : std::strlen(creator);
  const size_t size = sizeof(kHeaderStart) + nameLength + sizeof(kHeaderEnd);
  const std::unique_ptr<char[]> text(new (std::nothrow) char[size]);
  if (text == nullptr) return -1;
  flm::BoundedText header(text.get(), static_cast<int>(size));
  header.Text(kHeaderStart).Text(creator).Text(kHeaderEnd);
  WriteBlock(file, text.get(), header.Length());
  return 0;
}

void CQDPOF::WriteJob(void* file, const char* type, int quantity, const char* source) {
  char text[kBlockSize];
  flm::BoundedText job(text, kBlockSize);
  job.Text(kJobStart).Number(++jobCount_, kThreeDigits);
  job.Text(kTypeStart).Text(type);
  job.Text(kQuantityStart).Number(quantity, kThreeDigits).Text(kImageFormat);
  job.Text(kSourceStart).Text(source).Text(kSourceEnd);
  WriteBlock(file, text, job.Length());
}

int CQDPOF::MakeStandard(void* file, CQDCFList* catalogue, int fileCount) {
  if (file == nullptr || catalogue == nullptr) return -1;
  ForEachWith(*catalogue, flm::kMarkInfoDpofCopies, fileCount, [&](const char* path, int copies) {
    WriteJob(file, flm::kTypeStandard, copies, BelowRoot(path, *catalogue));
  });
  return 0;
}

int CQDPOF::MakeIndex(void* file, CQDCFList* catalogue, int fileCount) {
  if (file == nullptr || catalogue == nullptr) return -1;
  if (!AnyWith(*catalogue, flm::kMarkInfoDpofIndex, fileCount)) return 0;
  char text[kBlockSize];
  flm::BoundedText head(text, kBlockSize);
  head.Text(kJobStart).Number(++jobCount_, kThreeDigits).Text(kIndexHead);
  WriteBlock(file, text, head.Length());
  ForEachWith(*catalogue, flm::kMarkInfoDpofIndex, fileCount, [&](const char* path, int /*set*/) {
    if (!flm::EndsInJpg(path)) return;
    flm::BoundedText line(text, kBlockSize);
    line.Text(kSourceStart).Text(BelowRoot(path, *catalogue)).Text(kSourceEnd);
    WriteBlock(file, text, line.Length());
  });
  return 0;
}

int CQDPOF::MakeSize(void* file, CQDCFList* catalogue, int fileCount) {
  if (file == nullptr || catalogue == nullptr) return -1;
  ForEachWith(*catalogue, flm::kMarkInfoDpofSize, fileCount, [&](const char* path, int size) {
    WriteJob(file, flm::SizeTypeOf(size), kOnePrint, BelowRoot(path, *catalogue));
  });
  return 0;
}

int CQDPOF::GetPath(const char* line, char* out) {
  if (line == nullptr || out == nullptr) return -1;
  const char* const open = std::strchr(line, '"');
  const char* const close = open == nullptr ? nullptr : std::strchr(open + 1, '"');
  if (close == nullptr) return 0;
  const size_t length = static_cast<size_t>(close - open - 1);
  std::memcpy(out, open + 1, length);
  out[length] = '\0';
  return 0;
}
