// The check of the print order, read by the library's own rules: which of its lines have no effect.
#include <sys/stat.h>

#include <algorithm>
#include <iterator>
#include <set>

#include "dcf/dcf_name.h"
#include "dpof/dpof_types.h"
#include "failure.h"
#include "findings.h"
#include "order_lines.h"
#include "print_order.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

constexpr size_t kUpwards = 3;  // the "../" in front of every source
constexpr size_t kKeyLength = 7;
constexpr size_t kQuantityDigits = 2;  // of the highest quantity, 99

// What the list reads, or writes itself again.
constexpr const char* kKnownStarts[] = {"[HDR]",   "[JOB]",   "GEN REV", "GEN CRT", "PRT PID",
                                        "PRT TYP", "PRT QTY", "IMG FMT", "IMG SRC", "<IMG SR"};

class OrderCheck {
 public:
  OrderCheck(const std::vector<std::string>& paths, Findings& findings)
      : paths_(paths.begin(), paths.end()), findings_(findings) {
    for (const Unreadable& folder : UnreadableFolders()) unreadable_.insert(folder.path);
  }

  void Run() {
    OrderLines lines(PrintOrderPath());
    OrderLine found = lines.Next(line_);
    for (number_ = 1; found == OrderLine::kWhole; ++number_) {
      CheckLine();
      found = lines.Next(line_);
    }
    if (found == OrderLine::kUnfinished) {
      AddDropped("the last line has no line end and is passed over");
    } else if (found == OrderLine::kTooLong) {
      AddDropped("the line is too long, and the reading ends here");
    }
  }

  int Dropped() const { return dropped_; }

 private:
  void CheckLine() {
    if (StartsWith(line_, "PRT")) {
      CheckSetting();
    } else if (StartsWith(line_, "IM") || StartsWith(line_, "<I")) {
      CheckImage();
    } else if (IsMisspeltKey()) {
      AddDropped("\"" + line_ +
                 "\" is passed over: keys are in capitals and begin at the start of the line");
    } else {
      CheckKey();
    }
  }

  void CheckKey() {
    const bool empty = std::all_of(line_.begin(), line_.end(), IsBlank);
    const bool known = std::any_of(std::begin(kKnownStarts), std::end(kKnownStarts),
                                   [&](const char* start) { return StartsWith(line_, start); });
    if (!empty && !known) AddDropped("\"" + line_ + "\" is not known");
  }

  // Whether the line begins with a key of a job but for its case or blanks in front.
  bool IsMisspeltKey() const {
    const size_t start = line_.find_first_not_of(" \t");
    if (start == std::string::npos) return false;
    const std::string key = Upper(line_.substr(start, kKeyLength));
    return StartsWith(key, "PRT") || StartsWith(key, "IMG") || StartsWith(key, "<IMG");
  }

  // A finding about a line that is lost when the order is written again.
  void AddDropped(const std::string& reason) {
    ++dropped_;
    Add(reason);
  }

  void Add(const std::string& reason) {
    findings_.push_back(
        {kPrintOrder, PrintOrderPath(), "line " + std::to_string(number_) + ": " + reason});
  }

  static bool HasOuterBlanks(const std::string& value) {
    return !value.empty() && (IsBlank(value.front()) || IsBlank(value.back()));
  }
  static bool IsBlank(char c) { return c == ' ' || c == '\t'; }

  void CheckSetting() {
    const std::string key = line_.substr(0, kKeyLength);
    const size_t equals = line_.find('=');
    if (equals == std::string::npos) {
      AddDropped("\"" + line_ + "\" has no value");
      return;
    }
    const std::string value = line_.substr(equals + 1);
    if (key == "PRT TYP") CheckType(value);
    if (key == "PRT QTY") CheckQuantity(value);
    const std::string wanted = Upper(key);
    if (key != wanted && (wanted == "PRT TYP" || wanted == "PRT QTY")) {
      AddDropped("\"" + line_ + "\" is passed over: keys are in capitals");
      return;
    }
    CheckKey();
  }

  void CheckQuantity(const std::string& value) {
    const size_t digits = std::min(value.find_first_not_of("0123456789"), value.size());
    if (digits == 0) {
      AddPassedOver(value, "the quantity");
      return;
    }
    const size_t start = std::min(value.find_first_not_of('0'), digits);
    if (start == digits || digits - start > kQuantityDigits) {
      AddDropped("the quantity \"" + value + "\" is outside 1 to 99");
    }
  }

  void CheckType(const std::string& value) {
    typeKnown_ = JobTypeOf(value.c_str()) != kJobNone;
    if (!typeKnown_) AddPassedOver(value, "the type");
  }

  void AddPassedOver(const std::string& value, const std::string& what) {
    AddDropped(what + " \"" + value + "\" is passed over" +
               (HasOuterBlanks(value) ? " because of the blanks around \"=\"" : ""));
  }

  void CheckImage() {
    const std::string key = line_.substr(0, kKeyLength);
    if (key != "IMG SRC" && key != "<IMG SR") {
      CheckKey();
      return;
    }
    const size_t first = line_.find('"');
    const size_t second = first == std::string::npos ? first : line_.find('"', first + 1);
    if (second == std::string::npos) {
      AddDropped("the image has no name in quotes");
      return;
    }
    CheckSource(line_.substr(first + 1, second - first - 1));
  }

  void CheckSource(const std::string& source) {
    if (!StartsWith(source, "../")) {
      AddDropped("\"" + source + "\" does not begin with ../");
      return;
    }
    const std::string path = "./" + source.substr(kUpwards);
    if (paths_.count(path) == 0) {
      CheckUnlisted(source, path);
    } else if (ExtensionInPath(path.c_str())[0] != 'J') {
      AddDropped("\"" + source + "\" is no JPG and cannot be printed");
    } else if (!typeKnown_) {
      AddDropped("\"" + source + "\" gets no mark, since the type of its job is not known");
    }
  }

  void CheckUnlisted(const std::string& source, const std::string& path) {
    if (unreadable_.count(FolderOf(path)) != 0) {
      AddDropped("\"" + source + "\" lies in a folder that cannot be read");
    } else if (Exists(path)) {
      AddDropped("\"" + source + "\" is not in the list");
    } else {
      Add("\"" + source + "\" is missing");
    }
  }

  std::set<std::string> paths_;
  std::set<std::string> unreadable_;  // folders
  Findings& findings_;
  std::string line_;
  int number_ = 0;
  int dropped_ = 0;
  bool typeKnown_ = false;
};

bool IsRegularFile(const std::string& path) {
  struct stat status;
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

void CheckOrderFile(const std::vector<std::string>& paths, Findings& findings) {
  if (const int error = PrintOrderError(); error != 0) {
    findings.push_back({kPrintOrder, PrintOrderPath(), WithReason("cannot be read", error)});
    return;
  }
  OrderCheck(paths, findings).Run();
}

}  // namespace

void CheckPrintOrder(const std::vector<std::string>& paths, Findings& findings) {
  if (HasPrintOrder()) {
    CheckOrderFile(paths, findings);
  } else if (Exists(PrintOrderPath()) && !IsRegularFile(PrintOrderPath())) {
    findings.push_back({kPrintOrder, PrintOrderPath(), "it is no regular file and is passed over"});
  }
}

int CountDroppedLines(const std::vector<std::string>& paths) {
  if (!HasPrintOrder()) return 0;
  Findings findings;
  OrderCheck check(paths, findings);
  check.Run();
  return check.Dropped();
}

}  // namespace flm::tool
