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
constexpr int kKeyLength = 7;
constexpr int kMaxValueLength = 127;
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
  const char* root = nullptr;  // not terminated
  size_t rootLength = 0;
  int jobType = flm::kJobNone;
  unsigned int quantity = 0;
  char key[kKeyLength + 1] = {};
  char value[kMaxValueLength + 1] = {};
  char source[kLineSize] = {};
  char line[kLineSize] = {};

  bool TakeValue();
  void TakeKey() { flm::BoundedText(key, sizeof(key)).Text(line, kKeyLength); }
  bool KeyIs(const char* text) const { return std::strcmp(key, text) == 0; }
};

// The text behind "=", less its line end. False when it is too long to be a value.
bool CQDPOF::Load::TakeValue() {
  const char* const equals = std::strchr(line, '=');
  if (equals == nullptr) return true;
  const char* const text = equals + 1;
  size_t length = std::strlen(text);
  if (length > 0 && IsLineEnd(text[length - 1])) --length;
  if (length > 0 && IsLineEnd(text[length - 1])) --length;
  if (length > kMaxValueLength) return false;
  flm::BoundedText(value, sizeof(value)).Text(text, length);
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
  load->root = path;
  load->rootLength = static_cast<size_t>(rootEnd - path);
  while (reader.GetLine(load->line, kLineSize, '\n') >= 0) {
    if (!TakeLine(*load)) return -1;
  }
  return 0;
}

// False when the line ends the load.
bool CQDPOF::TakeLine(Load& load) {
  const char* const line = load.line;
  if (std::strlen(line) < kKeyLength || line[0] == '[') return true;
  if (BeginsWith(line, "PRT")) {
    load.TakeKey();
    if (!load.TakeValue()) return false;
  } else if (BeginsWith(line, "IM") || BeginsWith(line, "<I")) {
    load.TakeKey();
    GetPath(line, load.source);
  }
  // A line of another kind acts by the key before it, which repeats what that line did.
  if (load.KeyIs("PRT TYP")) load.jobType = flm::JobTypeOf(load.value);
  if (load.KeyIs("PRT QTY")) load.quantity = LeadingDigits(load.value);
  if (load.KeyIs("<IMG SR") || load.KeyIs("IMG SRC")) ApplySource(load);
  return true;
}

// Sets the mark of the job's kind on the file that the source names. The catalogue refuses whatever
// it does not hold, so a source can never reach a file outside it.
void CQDPOF::ApplySource(const Load& load) {
  if (std::strlen(load.source) < kUpwards) return;
  char target[flm::kPathSize];
  flm::BoundedText path(target, flm::kPathSize);
  path.Text(load.root, load.rootLength).Char('/').Text(load.source + kUpwards);
  if (path.Cut()) return;
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
