#include "browse_paint.h"

#include <algorithm>
#include <cstdlib>

#include "browse_canvas.h"
#include "marks_text.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr char kPlain[] = "\033[0m";
constexpr char kTitleStyle[] = "\033[0;7m";
constexpr char kMessageStyle[] = "\033[0;1m";
constexpr char kCurrentStyle[] = "\033[0;1;33m";   // bold yellow
constexpr char kSelectedStyle[] = "\033[0;32m";    // green
constexpr char kSelectedName[] = "\033[0;30;42m";  // black on green
constexpr char kMarksStyle[] = "\033[0;36m";       // cyan
constexpr char kPlaceholderStyle[] = "\033[0;2m";  // faint
constexpr char kClear[] = "\033[0m\033[2J";

struct FrameSigns {
  const char* topLeft;
  const char* topRight;
  const char* bottomLeft;
  const char* bottomRight;
  const char* across;
  const char* down;
};

constexpr FrameSigns kHeavy = {"┏", "┓", "┗", "┛", "━", "┃"};
constexpr FrameSigns kLight = {"╭", "╮", "╰", "╯", "─", "│"};
constexpr FrameSigns kAsciiHeavy = {"#", "#", "#", "#", "=", "#"};
constexpr FrameSigns kAsciiLight = {"+", "+", "+", "+", "-", "|"};
constexpr FrameSigns kNoFrame = {" ", " ", " ", " ", " ", " "};

struct FrameLook {
  const FrameSigns& signs;
  const char* style;
};

FrameLook LookOf(const Entry& entry, bool current, bool unicode) {
  if (current) return {unicode ? kHeavy : kAsciiHeavy, kCurrentStyle};
  if (entry.item.selected != 0) return {unicode ? kLight : kAsciiLight, kSelectedStyle};
  return {kNoFrame, kPlain};
}

std::string Repeated(const char* sign, int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += sign;
  return text;
}

std::string Frame(const Box& tile, const FrameLook& look) {
  const int inside = tile.columns - 2;
  const int right = tile.column + tile.columns - 1;
  const int bottom = tile.row + tile.rows - 1;
  const FrameSigns& signs = look.signs;
  std::string text = look.style;
  text += CursorTo(tile.column, tile.row) + signs.topLeft + Repeated(signs.across, inside) +
          signs.topRight;
  for (int row = tile.row + 1; row < bottom; ++row) {
    text += CursorTo(tile.column, row) + signs.down + CursorTo(right, row) + signs.down;
  }
  text += CursorTo(tile.column, bottom) + signs.bottomLeft + Repeated(signs.across, inside) +
          signs.bottomRight;
  return text;
}

const char* NameStyle(const Entry& entry, bool current) {
  if (entry.item.selected != 0) return kSelectedName;
  return current ? kCurrentStyle : kPlain;
}

std::string MarksText(const Entry& entry) {
  std::string text = ShortMarks(entry);
  if (text == "-") text.clear();
  const std::string companions = ShortCompanions(entry);
  if (companions == "-") return Printable(text);
  return Printable((text.empty() ? "" : text + " ") + "+" + companions);
}

const char* WordOf(Content content, bool unicode) {
  switch (content) {
    case Content::kMovie:
      return unicode ? "▶ movie" : "movie";
    case Content::kSound:
      return unicode ? "♪ sound" : "sound";
    case Content::kRaw:
      return "raw";
    case Content::kBroken:
      return "broken picture";
    case Content::kUnreadable:
      return "cannot be read";
    case Content::kNoFile:
      return "no such file";
    default:
      return "no picture";
  }
}

std::string InMiddle(const std::string& text, const Style& style) {
  const ScreenSize& size = style.layout.Size();
  return CursorTo(0, size.rows / 2) + kMessageStyle + Centred(text, size.columns, style.unicode) +
         kPlain;
}

std::string CurrentText(const Sheet& sheet) {
  const Entry& entry = sheet.Current();
  std::string text = sheet.Shown(entry.Path());
  if (entry.found) text += "  " + LocalTime(entry.time) + "  " + HumanSize(entry.size);
  return text;
}

std::string CountsText(Sheet& sheet) {
  std::string text;
  if (sheet.IsOrderChanged()) text += "print order not saved  ";
  const int selected = sheet.SelectedCount();
  if (selected > 0) text += std::to_string(selected) + " selected  ";
  if (sheet.IsEmpty()) return text + "no files";
  const int number = sheet.Current().index + 1;
  return text + std::to_string(number) + "/" + std::to_string(sheet.Count()) + "  page " +
         std::to_string(sheet.PageNumber() + 1) + "/" + std::to_string(sheet.PageCount());
}

constexpr const char* kHelpLines[] = {
    "arrows          the next file, the previous one; a row down, a row up",
    "PgDn, PgUp      the next page, the previous one; round at the ends",
    "Home, End       the first file, the last one",
    "Space           select the file, or take it back",
    "a               select all files, or none",
    "p               protect, or unprotect, the selected files or this one",
    "d               delete the selected files or this one, with companions",
    "o, O            one print more of this file, one less",
    "s               save the print order",
    "?               this page",
    "q               save the print order and leave",
    "Ctrl-C          leave, the print order as it was",
    "",
    "Below a name: P protected, S selected, xN prints ordered,",
    "+SRW +WAV +MPO companions. Esc stops a deletion."};

}  // namespace

bool IsUnicodeTerminal() {
  for (const char* const variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string locale = Upper(value);
    return locale.find("UTF-8") != std::string::npos || locale.find("UTF8") != std::string::npos;
  }
  return false;
}

std::string ClearedScreen() { return kClear; }

std::string TitleLine(Sheet& sheet, const Style& style) {
  const int columns = style.layout.Size().columns;
  const std::string right = CountsText(sheet) + " ";
  const int left = std::max(0, columns - static_cast<int>(right.size()) - 1);
  const std::string text = sheet.IsEmpty() ? "" : CurrentText(sheet);
  const std::string line = " " + Fitted(text, left - 1, style.unicode) + " " + right;
  return CursorTo(0, 0) + kTitleStyle + Fitted(line, columns, style.unicode) + kPlain;
}

std::string MessageLine(const std::string& printable, const Style& style) {
  return CursorTo(0, style.layout.MessageRow()) + kMessageStyle +
         Fitted(" " + printable, style.layout.Size().columns, style.unicode) + kPlain;
}

std::string TileLabels(const Entry& entry, int position, bool current, const Style& style) {
  const Box tile = style.layout.Tile(position);
  const int inside = tile.columns - 2;
  const int marksRow = tile.row + tile.rows - 2;
  const std::string name = Printable(BaseName(entry.Path()));
  return Frame(tile, LookOf(entry, current, style.unicode)) +
         CursorTo(tile.column + 1, marksRow - 1) + NameStyle(entry, current) +
         Centred(name, inside, style.unicode) + CursorTo(tile.column + 1, marksRow) + kMarksStyle +
         Centred(MarksText(entry), inside, style.unicode) + kPlain;
}

std::string Placeholder(Content content, int position, const Style& style) {
  const Box box = style.layout.Picture(position);
  return CursorTo(box.column, box.row + box.rows / 2) + kPlaceholderStyle +
         Centred(WordOf(content, style.unicode), box.columns, style.unicode) + kPlain;
}

std::string EmptySheet(const Style& style) { return InMiddle("no files on this card", style); }

std::string HelpPage(const Style& style) {
  const ScreenSize& size = style.layout.Size();
  std::string text = kClear;
  int row = 1;
  for (const char* const line : kHelpLines) {
    if (row >= size.rows - 1) break;
    text += CursorTo(2, row++) + Fitted(line, size.columns - 2, style.unicode);
  }
  return text + MessageLine("any key goes back", style);
}

std::string ProgressText(const std::string& act, int done, int total) {
  constexpr int kBarWidth = 20;
  const int filled = total > 0 ? static_cast<int>(int64_t{done} * kBarWidth / total) : kBarWidth;
  return act + " " + std::to_string(done) + " of " + std::to_string(total) + " [" +
         Repeated("#", filled) + Repeated(".", kBarWidth - filled) + "]  Esc stops";
}

std::string OutcomeText(const std::string& doing, const SheetOutcome& outcome) {
  std::string text =
      (outcome.cancelled ? "stopped: " : "") + doing + " " + Counted(outcome.done, "file");
  if (outcome.kept > 0) text += ", kept " + Counted(outcome.kept, "protected file");
  if (outcome.failed > 1) text += ", " + Counted(outcome.failed, "failure");
  if (outcome.failed > 0) text += ": " + outcome.complaint;
  return text;
}

}  // namespace flm::tool
