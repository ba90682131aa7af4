#include "print_order.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fstream>

#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "entries.h"
#include "failure.h"
#include "findings.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kMaxCreator = 30;
constexpr char kCreatorKey[] = "GEN CRT";
constexpr char kNewFile[] = "AUTPRINT.NEW";

std::string InMisc(const char* name) { return std::string("./") + kMiscFolder + "/" + name; }

// The index print is written only for names that end in JPG, and read back only for those.
bool SameMarks(const Entry& wanted, const Entry& found) {
  const bool sameIndex =
      !EndsInJpg(wanted.item.filePath) || wanted.item.dpofIndex == found.item.dpofIndex;
  return sameIndex && wanted.item.dpofCopies == found.item.dpofCopies &&
         wanted.item.dpofSize == found.item.dpofSize;
}

// The new order's marks must be exactly those that were written.
void Verify(Card& card, const std::vector<Entry>& wanted) {
  ClearPrintMarks(card);
  std::string path = NewPrintOrderPath();
  if (card.List().LoadDPOFInfo(Arg(path)) != 0)
    throw Failure("cannot read the new print order " + card.Shown(path) + " back");
  const std::vector<Entry> found = ReadEntries(card);
  for (size_t i = 0; i < wanted.size(); ++i) {
    if (i < found.size() && SameMarks(wanted[i], found[i])) continue;
    throw Failure("the print order was not written whole: " + card.Shown(wanted[i].Path()) +
                  " lacks its marks");
  }
}

void FlushFile(const Card& card, const std::string& path) {
  const Descriptor descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!descriptor.IsOpen() || fsync(descriptor.Number()) != 0) {
    throw Failure(WithReason("cannot write the print order " + card.Shown(path), errno));
  }
}

void ReplaceOrder(const Card& card) {
  FlushFile(card, NewPrintOrderPath());
  if (rename(NewPrintOrderPath().c_str(), PrintOrderPath().c_str()) != 0) {
    const int error = errno;
    throw Failure(
        WithReason("cannot replace the print order " + card.Shown(PrintOrderPath()), error));
  }
  FlushFile(card, PrintOrderPath());
  FlushFolder(FolderOf(PrintOrderPath()));
}

}  // namespace

std::string PrintOrderPath() { return InMisc(kPrintOrderFile); }

std::string NewPrintOrderPath() { return InMisc(kNewFile); }

bool HasPrintOrder() {
  struct stat status;
  return stat(PrintOrderPath().c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
         status.st_size > 0;
}

std::string PrintOrderCreator() {
  if (!HasPrintOrder()) return "";
  std::ifstream file(PrintOrderPath(), std::ios::binary);
  std::string line;
  while (std::getline(file, line)) {
    if (!StartsWith(line, kCreatorKey)) continue;
    const size_t first = line.find('"');
    const size_t second = first == std::string::npos ? first : line.find('"', first + 1);
    if (second == std::string::npos) return "";
    return line.substr(first + 1, std::min(second - first - 1, kMaxCreator));
  }
  return "";
}

void WarnOfDroppedLines(Card& card) {
  const int lines = CountDroppedLines(ReadPaths(card));
  if (lines == 0) return;
  Complain(Counted(lines, "line") + " of the print order " + (lines == 1 ? "is" : "are") +
           " not understood and will be dropped (see flm check)");
}

void ClearPrintMarks(Card& card) {
  card.List().SetDPOFAll(0);
  card.List().SetDPOFIndex(false);
  card.List().SetDPOFSizeAll(0);
}

void SavePrintOrder(Card& card, std::string creator) {
  const std::vector<Entry> wanted = ReadEntries(card);
  std::string path = NewPrintOrderPath();
  try {
    if (card.List().SaveDPOFInfo(Arg(path), Arg(creator)) != 0) {
      throw Failure(WithReason("cannot write " + card.Shown(path), errno));
    }
    Verify(card, wanted);
    ReplaceOrder(card);
  } catch (const Failure&) {
    unlink(path.c_str());
    throw;
  }
}

std::string CreatorError(const std::string& creator) {
  if (creator.size() > kMaxCreator) return "a creator has at most 30 characters";
  for (const char c : creator) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '"' || byte < 0x20 || byte == 0x7F) {
      return "a creator has no quotes, line ends or control characters";
    }
  }
  return "";
}

}  // namespace flm::tool
