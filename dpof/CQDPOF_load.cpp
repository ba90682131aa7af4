// Reading a print order. Only what the library itself writes is understood; files of other makers
// are read with the same rules, and whatever they say differently is passed over. Type and quantity
// carry over from job to job until a line changes them, so a job may leave out what stays the same.
// Proven by dpof_load_test and by the print order fuzzer.
#include <cstring>
#include <memory>
#include <new>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "dpof/CQDPOF.h"
#include "dpof/CQFileReader.h"
#include "dpof/dpof_types.h"

namespace {

constexpr int kLineSize = 2048;
constexpr size_t kKeyLength = 7;
constexpr size_t kMaxValueLength = 127;
constexpr size_t kUpwards = 3;  // the "../" in front of every source

bool BeginsWith(const char* text, const char* start) {
  return std::strncmp(text, start, std::strlen(start)) == 0;
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

// The number that a text begins with, as many digits as there are, in its low 32 bits.
unsigned int LeadingDigits(const char* text) {
  unsigned int value = 0;
  for (; *text >= '0' && *text <= '9'; ++text)
    value = value * 10 + static_cast<unsigned int>(*text - '0');
  return value;
}

}  // namespace

struct CQDPOF::Load {
  CQDCFList* catalogue = nullptr;
  char target[flm::kPathSize] = {};  // the root and a '/', behind which each source is written
  int rootLength = 0;                // with the '/'; -1 for a root that leaves no room
  int jobType = flm::kJobNone;
  unsigned int quantity = 0;
  char value[kMaxValueLength + 1] = {};
  char source[kLineSize] = {};
  char line[kLineSize] = {};

  void TakeRoot(const char* root, size_t length);
  bool TakeValue(size_t length);
  // Whether the line begins with the key; the line is longer than any.
  bool KeyIs(const char* key) const { return std::memcmp(line, key, kKeyLength) == 0; }
};

void CQDPOF::Load::TakeRoot(const char* root, size_t length) {
  flm::BoundedText start(target, flm::kPathSize);
  start.Bytes(root, length).Char('/');
  rootLength = start.Cut() ? -1 : start.Length();
}

// The text behind "=", less its line end. False when it is too long to be a value.
bool CQDPOF::Load::TakeValue(size_t length) {
  const void* const equals = std::memchr(line, '=', length);
  if (equals == nullptr) return true;
  const char* const text = static_cast<const char*>(equals) + 1;
  size_t rest = static_cast<size_t>(line + length - text);
  if (rest > 0 && IsLineEnd(text[rest - 1])) --rest;
  if (rest > 0 && IsLineEnd(text[rest - 1])) --rest;
  if (rest > kMaxValueLength) return false;
  std::memcpy(value, text, rest);
  value[rest] = '\0';
  return true;
}

int CQDPOF::LoadDPOFInfo(const char* path, CQDCFList* catalogue) {
  if (path == nullptr || catalogue == nullptr) return -1;
  CQFileReader reader(path);
  char misc[sizeof(flm::kMiscFolder) + 1];
  flm::BoundedText(misc, sizeof(misc)).Char('/').Text(flm::kMiscFolder);
  const char* const rootEnd = std::strstr(path, misc);
  if (!reader.FlagCreate() || rootEnd == nullptr) return -1;
  const std::unique_ptr<Load> load(new (std::nothrow) Load);
  if (load == nullptr) return -1;
  load->catalogue = catalogue;
  load->TakeRoot(path, static_cast<size_t>(rootEnd - path));
  int length = 0;
  while (reader.NextLine(load->line, kLineSize, '\n', &length) >= 0) {
    if (!TakeLine(*load)) return -1;
  }
  return 0;
}

// False when the line ends the load. Lines of other kinds change nothing.
bool CQDPOF::TakeLine(Load& load) {
  const char* const line = load.line;
  if (line[0] == '[') return true;
  const size_t length = std::strlen(line);
  if (length < kKeyLength) return true;
  if (BeginsWith(line, "PRT")) {
    if (!load.TakeValue(length)) return false;
    if (load.KeyIs("PRT TYP")) load.jobType = flm::JobTypeOf(load.value);
    if (load.KeyIs("PRT QTY")) load.quantity = LeadingDigits(load.value);
  } else if (BeginsWith(line, "IM") || BeginsWith(line, "<I")) {
    GetPath(line, load.source);
    if (load.KeyIs("<IMG SR") || load.KeyIs("IMG SRC")) ApplySource(load);
  }
  return true;
}

// Sets the mark of the job's kind on the file that the source names. The catalogue refuses whatever
// it does not hold, so a source can never reach a file outside it.
void CQDPOF::ApplySource(Load& load) {
  char* const target = load.target;
  if (load.rootLength < 0 || std::strlen(load.source) < kUpwards) return;
  if (!flm::CopyText(target + load.rootLength, flm::kPathSize - load.rootLength,
                     load.source + kUpwards)) {
    return;
  }
  switch (load.jobType) {
    case flm::kJobNone:
      break;
    case flm::kJobStandard:
      load.catalogue->SetCustomInfo(target, flm::kMarkInfoDpofCopies,
                                    static_cast<unsigned char>(load.quantity));
      break;
    case flm::kJobIndex:
      load.catalogue->SetCustomInfo(target, flm::kMarkInfoDpofIndex, 1);
      break;
    default:
      load.catalogue->SetCustomInfo(target, flm::kMarkInfoDpofSize,
                                    static_cast<unsigned char>(load.jobType));
      break;
  }
}
