#include "select.h"

#include <algorithm>
#include <set>
#include <utility>

#include "entries.h"
#include "failure.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {

const char kOneFileHelp[] =
    "The file: an index, a path (absolute, beginning with ROOT, or relative to ROOT or its DCIM "
    "folder), or a file name that occurs once";
const char kFilesHelp[] =
    "The files: indexes, ranges (3, 1-5,8), paths, or file names that occur once";

namespace {

constexpr size_t kMaxIndexDigits = 9;  // fits an int

int ParseIndex(const std::string& digits) {
  if (!IsNumber(digits) || digits.size() > kMaxIndexDigits) return -1;
  return std::stoi(digits);
}

// Finds files by what the user wrote; reads the card's paths once, when the first one is looked up.
class Finder {
 public:
  explicit Finder(Card& card) : card_(card) {}

  int One(const std::string& given) {
    if (given.empty()) throw Failure("a file name is empty", kStatusUsage);
    const int index = ParseIndex(given);
    if (index >= 0 && index < card_.Count()) return index;
    const bool isName = given.find('/') == std::string::npos;
    const int found = isName ? ByName(given) : ByPath(given);
    if (found >= 0) return found;
    if (IsNumber(given)) throw NoIndex(given);
    RequireNoCompanion(given, isName);
    throw NotThere(card_, "no file " + Named(given) + " on the card");
  }

  // True and the indexes added when the text is a list of indexes and ranges.
  bool Ranges(const std::string& given, std::set<int>& indexes) {
    if (!IsIndexList(given)) return false;
    size_t at = 0;
    while (at <= given.size()) {
      const size_t comma = std::min(given.find(',', at), given.size());
      AddRange(given, given.substr(at, comma - at), indexes);
      at = comma + 1;
    }
    return true;
  }

 private:
  Failure NoIndex(const std::string& index) {
    return NotThere(card_, "no file with the index " + index + ": the card has " +
                               Counted(card_.Count(), "file"));
  }

  void AddRange(const std::string& given, const std::string& part, std::set<int>& indexes) {
    const size_t dash = part.find('-');
    const std::string from = part.substr(0, dash);
    const std::string to = dash == std::string::npos ? from : part.substr(dash + 1);
    if (!IsNumber(from) || !IsNumber(to)) {
      throw Failure(Named(given) + " is not a list of indexes such as 1-5,8", kStatusUsage);
    }
    const int first = ParseIndex(from);
    const int last = ParseIndex(to);
    if (first >= 0 && last >= 0 && last < first) {
      throw Failure("the range " + part + " runs backwards", kStatusUsage);
    }
    if (first < 0 || first >= card_.Count()) throw NoIndex(from);
    if (last < 0 || last >= card_.Count()) throw NoIndex(to);
    for (int i = first; i <= last; ++i) indexes.insert(i);
  }

  int ByPath(const std::string& given) {
    const std::string path = card_.LibraryPath(given);
    if (path.empty()) throw Failure(Named(given) + " does not lie on the card", kStatusNothing);
    const std::vector<std::string>& paths = Paths();
    const auto found = std::find(paths.begin(), paths.end(), path);
    if (found == paths.end()) return -1;
    return static_cast<int>(found - paths.begin());
  }

  int ByName(const std::string& name) {
    int found = -1;
    int matches = 0;
    for (size_t i = 0; i < Paths().size(); ++i) {
      if (BaseName(Paths()[i]) != name) continue;
      found = static_cast<int>(i);
      ++matches;
    }
    if (matches > 1) {
      throw Failure(
          Named(name) + " is the name of " + Counted(matches, "file") + ": name the folder too",
          kStatusUsage);
    }
    return found;
  }

  // Throws Failure when what was given is a companion, which is no file of the list.
  void RequireNoCompanion(const std::string& given, bool isName) {
    const std::string wanted = isName ? given : card_.LibraryPath(given);
    for (int i = 0; i < card_.Count(); ++i) {
      const Entry entry = ReadNamedEntry(card_, i);
      for (const std::string& companion : entry.companions) {
        if ((isName ? BaseName(companion) : companion) != wanted) continue;
        throw Failure(Named(given) + " is a companion of " + Printable(BaseName(entry.Path())) +
                          ", not a file of the list",
                      kStatusNothing);
      }
    }
  }

  const std::vector<std::string>& Paths() {
    if (!read_) paths_ = ReadPaths(card_);
    read_ = true;
    return paths_;
  }

  Card& card_;
  bool read_ = false;
  std::vector<std::string> paths_;
};

}  // namespace

bool IsIndexList(const std::string& given) {
  return given.find_first_not_of("0123456789,-") == std::string::npos &&
         given.find_first_of(",-") != std::string::npos;
}

int SelectOne(Card& card, const std::string& given) { return Finder(card).One(given); }

std::vector<int> SelectMany(Card& card, const std::vector<std::string>& given) {
  Finder finder(card);
  std::set<int> indexes;
  for (const std::string& text : given) {
    if (!finder.Ranges(text, indexes)) indexes.insert(finder.One(text));
  }
  return {indexes.begin(), indexes.end()};
}

}  // namespace flm::tool
