#include "print_order.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>

#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "entries.h"
#include "failure.h"
#include "findings.h"
#include "order_lines.h"
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

bool HasMarks(const Entry& entry) {
  const CQFileListItem& item = entry.item;
  return item.dpofCopies > 0 || item.dpofSize > 0 ||
         (item.dpofIndex != 0 && EndsInJpg(item.filePath));
}

// Bytes that end a line or the quotes around a name, and all that terminals act upon.
bool BreaksLines(const std::string& text) {
  return std::any_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return c == '"' || byte < 0x20 || byte == 0x7F;
  });
}

void RequireOrderable(const Card& card, const std::vector<Entry>& entries) {
  for (const Entry& entry : entries) {
    if (!HasMarks(entry) || CanBeOrdered(entry.Path())) continue;
    throw Failure(card.Shown(entry.Path()) +
                  " cannot be ordered: no line of a print order can hold its name");
  }
}

bool IsCardFull() {
  struct statvfs status;
  return statvfs(".", &status) == 0 && status.f_bavail == 0;
}

// The new order's marks must be exactly those that were written. Its lines are not looked at while
// they are written, so a card that fills up shows only here.
void Verify(Card& card, const std::vector<Entry>& wanted) {
  ClearPrintMarks(card);
  std::string path = NewPrintOrderPath();
  if (card.List().LoadDPOFInfo(Arg(path)) != 0)
    throw Failure("cannot read the new print order " + card.Shown(path) + " back");
  const std::vector<Entry> found = ReadEntries(card);
  for (size_t i = 0; i < wanted.size(); ++i) {
    if (i < found.size() && SameMarks(wanted[i], found[i])) continue;
    if (IsCardFull()) throw Failure("the new print order is cut: the card is full");
    throw Failure("the new print order is cut: " + card.Shown(wanted[i].Path()) +
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
  if (stat(PrintOrderPath().c_str(), &status) != 0) return errno != ENOENT && errno != ENOTDIR;
  return S_ISREG(status.st_mode) && status.st_size > 0;
}

int PrintOrderError() {
  const Descriptor order(
      open(PrintOrderPath().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
  if (!order.IsOpen()) return errno;
  std::array<char, 4096> block;
  int line = 0;  // bytes since the last line end
  // The list reads no further than a line that is too long.
  while (line < kOrderLineSize) {
    const ssize_t got = read(order.Number(), block.data(), block.size());
    if (got == 0) return 0;
    if (got < 0 && errno != EINTR) return errno;
    for (ssize_t i = 0; i < got && line < kOrderLineSize; ++i)
      line = block[i] == '\n' ? 0 : line + 1;
  }
  return 0;
}

bool CanBeOrdered(const std::string& path) { return !BreaksLines(path); }

void RequireOrderable(Card& card) { RequireOrderable(card, ReadEntries(card)); }

std::string PrintOrderCreator() {
  if (!HasPrintOrder()) return "";
  OrderLines lines(PrintOrderPath());
  std::string line;
  while (lines.Next(line) == OrderLine::kWhole) {
    if (!StartsWith(line, kCreatorKey)) continue;
    const size_t first = line.find('"');
    const size_t second = first == std::string::npos ? first : line.find('"', first + 1);
    if (second == std::string::npos) return "";
    const std::string name = line.substr(first + 1, std::min(second - first - 1, kMaxCreator));
    return CreatorError(name).empty() ? name : "";
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
  RequireOrderable(card, wanted);
  std::string path = NewPrintOrderPath();
  // Whatever lies there under that name goes: the list would write into the target of a link.
  unlink(path.c_str());
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
  return BreaksLines(creator) ? "a creator has no quotes, line ends or control characters" : "";
}

}  // namespace flm::tool
