#include "filter.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>

#include "output.h"
#include "select.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr int kFirstYear = 1900;
constexpr int kDaysOfMonth[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// The shapes of a date: digits stand for digits, anything else for itself.
constexpr const char* kShapes[] = {"0000-00-00", "0000-00-00T00:00", "0000-00-00 00:00",
                                   "0000-00-00T00:00:00", "0000-00-00 00:00:00"};

bool HasShape(const std::string& text, const std::string& shape) {
  const auto fits = [](char c, char wanted) {
    return wanted == '0' ? (c >= '0' && c <= '9') : c == wanted;
  };
  return text.size() == shape.size() && std::equal(text.begin(), text.end(), shape.begin(), fits);
}

int NumberIn(const std::string& text, size_t at, size_t digits) {
  return at < text.size() ? std::stoi(text.substr(at, digits)) : 0;
}

int DaysOf(int year, int month) {
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return kDaysOfMonth[month - 1] + (leap && month == 2 ? 1 : 0);
}

bool IsDate(const std::tm& parts) {
  const int year = parts.tm_year + kFirstYear;
  const int month = parts.tm_mon + 1;
  return year >= kFirstYear && month >= 1 && month <= 12 && parts.tm_mday >= 1 &&
         parts.tm_mday <= DaysOf(year, month) && parts.tm_hour < 24 && parts.tm_min < 60 &&
         parts.tm_sec < 60;
}

std::string DateError(const std::string& text) {
  std::time_t time = 0;
  if (ParseLocalTime(text, &time)) return "";
  return Named(text) + " is no date such as 2024-03-05 or 2024-03-05T09:07";
}

std::string TypeError(const std::string& text) {
  const bool good =
      !text.empty() && text.find_first_of("./\\ ") == std::string::npos && Printable(text) == text;
  return good ? "" : "a type is an extension such as jpg";
}

std::string ExtensionOf(const std::string& path) {
  const std::string name = BaseName(path);
  const size_t point = name.rfind('.');
  return point == std::string::npos ? "" : Upper(name.substr(point + 1));
}

}  // namespace

bool ParseLocalTime(const std::string& text, std::time_t* time) {
  const bool shaped = std::any_of(std::begin(kShapes), std::end(kShapes),
                                  [&](const char* shape) { return HasShape(text, shape); });
  if (!shaped) return false;
  std::tm parts = {};
  parts.tm_year = NumberIn(text, 0, 4) - kFirstYear;
  parts.tm_mon = NumberIn(text, 5, 2) - 1;
  parts.tm_mday = NumberIn(text, 8, 2);
  parts.tm_hour = NumberIn(text, 11, 2);
  parts.tm_min = NumberIn(text, 14, 2);
  parts.tm_sec = NumberIn(text, 17, 2);
  parts.tm_isdst = -1;
  if (!IsDate(parts)) return false;
  *time = std::mktime(&parts);
  return true;
}

bool Filter::IsSet() const {
  return onlyProtected || onlyUnprotected || onlySelected || onlyWithCompanion || !types.empty() ||
         !since.empty();
}

void AddFilterOptions(CLI::App& command, Filter& filter) {
  constexpr char kGroup[] = "Filters (files for which all of them hold)";
  CLI::Option* const locked =
      command.add_flag("--protected", filter.onlyProtected, "Files that are protected");
  CLI::Option* const open =
      command.add_flag("--unprotected", filter.onlyUnprotected, "Files that are not");
  open->excludes(locked);
  CLI::Option* const selected =
      command.add_flag("--selected", filter.onlySelected, "Files that are selected");
  CLI::Option* const companion =
      command.add_flag("--with-companion", filter.onlyWithCompanion, "Files with a companion");
  CLI::Option* const types =
      command.add_option("--type", filter.types, "Files with one of these extensions: jpg,mp4")
          ->delimiter(',')
          ->allow_extra_args(false)
          ->check(TypeError, "TYPES");
  CLI::Option* const since =
      command
          .add_option("--since", filter.since,
                      "Files last changed then or later, in local time: 2024-03-05, or "
                      "2024-03-05T09:07")
          ->check(DateError, "DATE");
  for (CLI::Option* const option : {locked, open, selected, companion, types, since}) {
    option->group(kGroup);
  }
}

Choice::Choice(Card& card, const std::vector<std::string>& files, const Filter& filter)
    : card_(card),
      filter_(filter),
      narrow_(filter.IsSet() || !files.empty()),
      all_(files.empty()),
      readsFiles_(filter.onlyProtected || filter.onlyUnprotected || filter.onlySelected ||
                  !filter.since.empty()),
      readsCompanions_(filter.onlyWithCompanion) {
  if (!all_) indexes_ = SelectMany(card, files);
  for (const std::string& type : filter.types) types_.push_back(Upper(type));
  if (!filter.since.empty()) ParseLocalTime(filter.since, &since_);
}

bool Choice::TakesType(const char* path) const {
  if (types_.empty()) return true;
  return std::find(types_.begin(), types_.end(), ExtensionOf(path)) != types_.end();
}

// A file without a status is neither protected nor unprotected, and of no time.
bool Choice::Takes(const Entry& entry) const {
  const bool locked = entry.item.isProtected != 0;
  if (filter_.onlyProtected && !(entry.found && locked)) return false;
  if (filter_.onlyUnprotected && !(entry.found && !locked)) return false;
  if (filter_.onlySelected && entry.item.selected == 0) return false;
  if (filter_.onlyWithCompanion && entry.companions.empty()) return false;
  return filter_.since.empty() || (entry.found && entry.time >= since_);
}

template <class Take>
int Choice::Walk(const Take& take) {
  int taken = 0;
  const int end = all_ ? card_.Count() : static_cast<int>(indexes_.size());
  for (int i = 0; i < end && !OutputIsGone(); ++i) {
    const int index = all_ ? i : indexes_[static_cast<size_t>(i)];
    if (take(index)) ++taken;
  }
  return taken;
}

int Choice::ForEachPath(const std::function<void(const char*)>& take) {
  CQFileListItem item;
  CQFileList& list = card_.List();
  return Walk([&](int index) {
    if (list.GetAt(index, &item, false) < 0 || !TakesType(item.filePath)) return false;
    if ((readsFiles_ || readsCompanions_) && !Takes(ReadAsNeeded(index))) return false;
    take(item.filePath);
    return true;
  });
}

Entry Choice::ReadAsNeeded(int index) const {
  return readsFiles_ ? ReadEntry(card_, index) : ReadNamedEntry(card_, index);
}

int Choice::ForEach(const std::function<void(const Entry&)>& take) {
  CQFileListItem item;
  return Walk([&](int index) {
    const bool otherType = !types_.empty() && card_.List().GetAt(index, &item, false) >= 0 &&
                           !TakesType(item.filePath);
    if (otherType) return false;
    const Entry entry = ReadEntry(card_, index);
    if (!Takes(entry)) return false;
    take(entry);
    return true;
  });
}

Failure NothingMatches() { return Failure("no file matches", kStatusNothing); }

}  // namespace flm::tool
