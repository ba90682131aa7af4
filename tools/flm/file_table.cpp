// The widths of the columns follow from all rows, so the list is walked twice. What costs a call to
// the card is kept from the first walk, in a few bytes a file; names are asked for again.
#include "file_table.h"

#include <algorithm>
#include <array>

#include "marks_text.h"
#include "output.h"
#include "terminal.h"
#include "text.h"

namespace flm::tool {
namespace {

enum Column : size_t { kIndex, kPath, kSize, kTime, kMarks, kCompanions, kColumns };

constexpr std::array<const char*, kColumns> kHeadings = {"INDEX", "PATH",  "SIZE",
                                                         "TIME",  "MARKS", "COMPANIONS"};
constexpr std::array<bool, kColumns> kFlushRight = {true, false, true, false, false, false};
constexpr char kGap[] = "  ";
constexpr size_t kGapWidth = sizeof(kGap) - 1;

// In a narrow terminal the front of a path goes first, as far as folder and file name; then these
// columns, one after the other.
constexpr size_t kShortPath = 23;
constexpr Column kDropped[] = {kCompanions, kTime, kMarks, kSize};

constexpr char kReset[] = "\033[0m";
constexpr char kProtectedColor[] = "31";  // red

struct TypeColor {
  const char* extension;
  const char* color;
};
constexpr TypeColor kTypeColors[] = {{"JPG", "32"}, {"MPO", "32"}, {"SRW", "33"}, {"MP4", "35"},
                                     {"AVI", "35"}, {"3GP", "35"}, {"MP3", "36"}, {"WAV", "36"}};

using Cells = std::array<std::string, kColumns>;

// What is kept of a file between the walks.
struct Row {
  int32_t index;
  int32_t sizeCode;
  int64_t size;
  int64_t time;
  uint8_t copies;
  bool found;
  bool isProtected;
  bool selected;
  bool wifi;
  bool grouped;
  bool indexPrint;
};

Row RowOf(const Entry& entry) {
  const CQFileListItem& item = entry.item;
  return {entry.index,
          item.dpofSize,
          entry.size,
          static_cast<int64_t>(entry.time),
          item.dpofCopies,
          entry.found,
          item.isProtected != 0,
          item.selected != 0,
          item.wifiFlag != 0,
          entry.grouped,
          item.dpofIndex != 0};
}

Entry EntryOf(Card& card, const Row& row) {
  Entry entry = ReadNamedEntry(card, row.index);
  entry.found = row.found;
  entry.size = row.size;
  entry.time = static_cast<std::time_t>(row.time);
  entry.grouped = row.grouped;
  entry.item.isProtected = row.isProtected ? 1 : 0;
  entry.item.selected = row.selected ? 1 : 0;
  entry.item.wifiFlag = row.wifi ? 1 : 0;
  entry.item.dpofCopies = row.copies;
  entry.item.dpofSize = row.sizeCode;
  entry.item.dpofIndex = row.indexPrint ? 1 : 0;
  return entry;
}

std::string SizeText(const Entry& entry, bool exact) {
  if (!entry.found) return "?";
  return exact ? std::to_string(entry.size) : HumanSize(entry.size);
}

std::string TimeText(const Entry& entry) { return entry.found ? LocalTime(entry.time) : "?"; }

std::string MarksText(const Entry& entry, bool exact) {
  return exact ? LongMarks(entry) : ShortMarks(entry);
}

std::string CompanionsText(const Entry& entry, bool exact) {
  return exact ? LongCompanions(entry) : ShortCompanions(entry);
}

Cells CellsOf(const Card& card, const Entry& entry, bool exact) {
  return {std::to_string(entry.index), card.Shown(entry.Path()),
          SizeText(entry, exact),      TimeText(entry),
          MarksText(entry, exact),     CompanionsText(entry, exact)};
}

std::string ColorOf(const Entry& entry) {
  const std::string path = entry.Path();
  const std::string extension = Upper(path.substr(path.rfind('.') + 1));
  std::string color;
  for (const TypeColor& type : kTypeColors) {
    if (extension == type.extension) color = type.color;
  }
  if (entry.item.isProtected == 0) return color;
  return color.empty() ? "1" : "1;" + color;
}

class Layout {
 public:
  Layout() {
    for (size_t column = 0; column < kColumns; ++column) {
      widths_[column] = DisplayWidth(kHeadings[column]);
    }
    shown_.fill(true);
  }

  void Take(Column column, const std::string& cell) {
    widths_[column] = std::max(widths_[column], DisplayWidth(cell));
  }

  // Makes no line wider than a terminal's `width`.
  void Fit(size_t width) {
    for (const Column column : kDropped) {
      if (WidthBesidePath() + std::min(widths_[kPath], kShortPath) <= width) break;
      shown_[column] = false;
    }
    const size_t taken = WidthBesidePath();
    if (taken + widths_[kPath] > width) widths_[kPath] = width > taken ? width - taken : 1;
  }

  // The colours of the cells, in the order of the columns; "" for none.
  std::string Line(Cells cells, const Cells& colors) const {
    cells[kPath] = TailOfWidth(cells[kPath], widths_[kPath]);
    std::string line;
    size_t blanks = 0;  // owed, so that no line ends in some
    for (size_t column = 0; column < kColumns; ++column) {
      if (!shown_[column]) continue;
      const size_t cell = DisplayWidth(cells[column]);
      const size_t rest = widths_[column] > cell ? widths_[column] - cell : 0;
      line.append(blanks + (kFlushRight[column] ? rest : 0), ' ');
      line += Colored(cells[column], colors[column]);
      blanks = kGapWidth + (kFlushRight[column] ? 0 : rest);
    }
    return line + '\n';
  }

 private:
  static std::string Colored(const std::string& text, const std::string& color) {
    return color.empty() ? text : "\033[" + color + "m" + text + kReset;
  }

  size_t WidthBesidePath() const {
    size_t width = 0;
    for (size_t column = 0; column < kColumns; ++column) {
      if (column != kPath && shown_[column]) width += widths_[column] + kGapWidth;
    }
    return width;
  }

  std::array<size_t, kColumns> widths_ = {};
  std::array<bool, kColumns> shown_ = {};
};

// Indexes and times are as wide as the least or the greatest of them.
void TakeExtremes(const std::vector<Row>& rows, Layout& layout) {
  if (rows.empty()) return;
  layout.Take(kIndex, std::to_string(rows.back().index));
  const auto byTime = [](const Row& a, const Row& b) { return a.time < b.time; };
  const auto [first, last] = std::minmax_element(rows.begin(), rows.end(), byTime);
  for (const int64_t time : {first->time, last->time}) {
    layout.Take(kTime, LocalTime(static_cast<std::time_t>(time)));
  }
}

}  // namespace

int PrintFileTable(Card& card, Choice& choice, bool exact) {
  Layout layout;
  std::vector<Row> rows;
  const int count = choice.ForEach([&](const Entry& entry) {
    rows.push_back(RowOf(entry));
    layout.Take(kPath, card.Shown(entry.Path()));
    layout.Take(kSize, SizeText(entry, exact));
    layout.Take(kMarks, MarksText(entry, exact));
    if (!entry.companions.empty()) layout.Take(kCompanions, CompanionsText(entry, exact));
  });
  TakeExtremes(rows, layout);
  if (OutputIsTerminal() && !exact) layout.Fit(TerminalWidth());
  const bool colored = ColorsAreWanted();
  Cells headings;
  std::copy(kHeadings.begin(), kHeadings.end(), headings.begin());
  Print(layout.Line(headings, {}));
  for (const Row& row : rows) {
    if (OutputIsGone()) break;
    const Entry entry = EntryOf(card, row);
    Cells colors;
    if (colored) colors[kPath] = ColorOf(entry);
    if (colored && entry.item.isProtected != 0) colors[kMarks] = kProtectedColor;
    Print(layout.Line(CellsOf(card, entry, exact), colors));
  }
  return count;
}

}  // namespace flm::tool
