// The only place that decides what of a foreign name reaches a terminal. UTF-8 is checked strictly
// (no overlong forms, no surrogates, nothing above U+10FFFF), because the JSON writer refuses the
// rest. Proven by tests/tool: names of any bytes are listed in every form.
#include "text.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "failure.h"

namespace flm::tool {
namespace {

constexpr size_t kMaxSequence = 4;
constexpr int kSizeStep = 1024;
constexpr char kEllipsis[] = "\xE2\x80\xA6";
constexpr char kEscape = '\\';

struct Character {
  size_t length;  // bytes; 0 when the bytes are no UTF-8
  uint32_t code;
};

struct Lead {
  unsigned char mask;
  unsigned char value;
  size_t length;
  uint32_t smallest;  // code points below this have a shorter form
};

constexpr Lead kLeads[] = {{0x80, 0x00, 1, 0},
                           {0xE0, 0xC0, 2, 0x80},
                           {0xF0, 0xE0, 3, 0x800},
                           {0xF8, 0xF0, kMaxSequence, 0x10000}};

bool IsValidCode(uint32_t code) { return code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF); }

Character Decode(std::string_view text, size_t at) {
  const auto first = static_cast<unsigned char>(text[at]);
  for (const Lead& lead : kLeads) {
    if ((first & lead.mask) != lead.value) continue;
    if (text.size() - at < lead.length) return {0, 0};
    uint32_t code = first & static_cast<unsigned char>(~lead.mask);
    for (size_t i = 1; i < lead.length; ++i) {
      const auto next = static_cast<unsigned char>(text[at + i]);
      if ((next & 0xC0) != 0x80) return {0, 0};
      code = (code << 6) | (next & 0x3FU);
    }
    if (code < lead.smallest || !IsValidCode(code)) return {0, 0};
    return {lead.length, code};
  }
  return {0, 0};
}

struct CodeRange {
  uint32_t first;
  uint32_t last;
};

constexpr CodeRange kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0xA4CF},
                               {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},  {0xFE30, 0xFE6F},
                               {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},  {0x1F300, 0x1F64F},
                               {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
constexpr CodeRange kCombining[] = {{0x0300, 0x036F}, {0x200B, 0x200D}, {0x20D0, 0x20FF},
                                    {0x302A, 0x302D}, {0x3099, 0x309A}, {0xFE00, 0xFE0F}};
constexpr uint32_t kFirstUneven = 0x300;  // all characters before take one column

template <size_t kSize>
bool IsIn(const CodeRange (&ranges)[kSize], uint32_t code) {
  return std::any_of(ranges, ranges + kSize, [code](const CodeRange& range) {
    return code >= range.first && code <= range.last;
  });
}

size_t WidthOf(const Character& character) {
  if (character.code < kFirstUneven) return 1;
  if (IsIn(kCombining, character.code)) return 0;
  return IsIn(kWide, character.code) ? 2 : 1;
}

bool IsControl(uint32_t code) { return code < 0x20 || (code >= 0x7F && code < 0xA0); }

// Line and paragraph separators and the marks that turn the direction of writing.
bool IsLayout(uint32_t code) {
  return code == 0x061C || (code >= 0x200E && code <= 0x200F) ||
         (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

void AppendEscaped(std::string& out, const std::string& raw, size_t at, size_t length) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  for (size_t i = at; i < at + length; ++i) {
    const auto byte = static_cast<unsigned char>(raw[i]);
    out += "\\x";
    out += kDigits[byte >> 4];
    out += kDigits[byte & 0xF];
  }
}

// Which characters are escaped.
struct Escapes {
  bool backslash;
  bool controls;
};

std::string Escape(const std::string& raw, const Escapes& escapes) {
  std::string out;
  for (size_t at = 0; at < raw.size();) {
    const Character character = Decode(raw, at);
    const size_t length = character.length == 0 ? 1 : character.length;
    const bool hidden = IsControl(character.code) || IsLayout(character.code);
    if (escapes.backslash && character.code == kEscape) {
      out.append(2, kEscape);
    } else if (character.length == 0 || (escapes.controls && hidden)) {
      AppendEscaped(out, raw, at, length);
    } else {
      out.append(raw, at, length);
    }
    at += length;
  }
  return out;
}

std::string FormatTime(std::time_t time, const char* format) {
  std::tm parts = {};
  if (localtime_r(&time, &parts) == nullptr) return "?";
  std::array<char, 64> text = {};
  const size_t length = std::strftime(text.data(), text.size(), format, &parts);
  return std::string(text.data(), length);
}

}  // namespace

std::string WithReason(const std::string& what, int error) {
  return what + ": " + std::strerror(error);
}

void MakePrintable(std::string& text) {
  const auto isPlain = [](char c) { return c >= ' ' && c <= '~' && c != kEscape; };
  if (!std::all_of(text.begin(), text.end(), isPlain)) text = Escape(text, {true, true});
}

std::string Printable(std::string raw) {
  MakePrintable(raw);
  return raw;
}

std::string Named(const std::string& given) {
  const bool overlooked = given.empty() || given.front() == ' ' || given.back() == ' ';
  return overlooked ? "\"" + Printable(given) + "\"" : Printable(given);
}

std::string JsonText(const std::string& raw) { return Escape(raw, {true, false}); }

std::string WithoutControls(const std::string& text) { return Escape(text, {false, true}); }

size_t DisplayWidth(std::string_view printable) {
  const auto isPlain = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (std::all_of(printable.begin(), printable.end(), isPlain)) return printable.size();
  size_t width = 0;
  for (size_t at = 0; at < printable.size();) {
    const Character character = Decode(printable, at);
    width += WidthOf(character);
    at += std::max<size_t>(character.length, 1);
  }
  return width;
}

std::string TailOfWidth(const std::string& printable, size_t width) {
  size_t tooMuch = DisplayWidth(printable);
  if (tooMuch <= width) return printable;
  if (width == 0) return "";
  tooMuch -= width - 1;  // the ellipsis takes one
  size_t at = 0;
  for (size_t cut = 0; cut < tooMuch && at < printable.size();) {
    const Character character = Decode(printable, at);
    cut += WidthOf(character);
    at += std::max<size_t>(character.length, 1);
  }
  return kEllipsis + printable.substr(at);
}

// Rounded up, so that no file ever looks smaller than the room it needs.
std::string HumanSize(int64_t bytes) {
  if (bytes < kSizeStep) return std::to_string(bytes);
  constexpr char kUnits[] = "KMGTPE";
  int64_t divisor = kSizeStep;
  size_t unit = 0;
  while (bytes / divisor >= kSizeStep && unit + 1 < sizeof(kUnits) - 1) {
    divisor *= kSizeStep;
    ++unit;
  }
  int64_t whole = bytes / divisor;
  int64_t tenths = ((bytes % divisor) * 10 + divisor - 1) / divisor;
  if (tenths == 10) {
    ++whole;
    tenths = 0;
  }
  return std::to_string(whole) + "." + std::to_string(tenths) + kUnits[unit];
}

std::string LocalTime(std::time_t time) { return FormatTime(time, "%F %T"); }

std::string IsoTime(std::time_t time) {
  std::string text = FormatTime(time, "%Y-%m-%dT%H:%M:%S%z");
  constexpr size_t kZoneMinutes = 2;
  if (text.size() > kZoneMinutes) text.insert(text.size() - kZoneMinutes, ":");
  return text;
}

std::string Padded(int number, int width) {
  const std::string digits = std::to_string(number);
  const auto wanted = static_cast<size_t>(width);
  return digits.size() >= wanted ? digits : std::string(wanted - digits.size(), '0') + digits;
}

std::string Upper(std::string text) {
  for (char& c : text) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return text;
}

std::string Counted(int64_t count, const std::string& word) {
  return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
}

std::string BaseName(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string FolderOf(const std::string& path) {
  const size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash);
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

}  // namespace flm::tool
