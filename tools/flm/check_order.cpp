// The check of the print order, read by the library's own rules: which of its lines have no effect.
#include <algorithm>
#include <fstream>
#include <set>

#include "dcf/dcf_name.h"
#include "dpof/dpof_types.h"
#include "findings.h"
#include "print_order.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kLongestLine = 2046;  // with its end; a longer one ends the reading
constexpr size_t kUpwards = 3;         // the "../" in front of every source
constexpr size_t kKeyLength = 7;

class OrderCheck {
 public:
  OrderCheck(const std::vector<std::string>& paths, Findings& findings)
      : paths_(paths.begin(), paths.end()), findings_(findings) {}

  void Run() {
    std::ifstream file(PrintOrderPath(), std::ios::binary);
    while (std::getline(file, line_)) {
      ++number_;
      if (line_.size() + 1 > kLongestLine) {
        Add("the line is too long, and the reading ends here");
        return;
      }
      if (!line_.empty() && line_.back() == '\r') line_.pop_back();
      if (StartsWith(line_, "PRT")) CheckSetting();
      if (StartsWith(line_, "IM") || StartsWith(line_, "<I")) CheckImage();
    }
  }

 private:
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
      Add("\"" + line_ + "\" has no value");
      return;
    }
    const std::string value = line_.substr(equals + 1);
    if (key == "PRT TYP") CheckType(value);
    if (key == "PRT QTY" && (value.empty() || value[0] < '0' || value[0] > '9')) {
      AddPassedOver(value, "the quantity");
    }
  }

  void CheckType(const std::string& value) {
    typeKnown_ = JobTypeOf(value.c_str()) != kJobNone;
    if (!typeKnown_) AddPassedOver(value, "the type");
  }

  void AddPassedOver(const std::string& value, const std::string& what) {
    Add(what + " \"" + value + "\" is passed over" +
        (HasOuterBlanks(value) ? " because of the blanks around \"=\"" : ""));
  }

  void CheckImage() {
    const std::string key = line_.substr(0, kKeyLength);
    if (key != "IMG SRC" && key != "<IMG SR") return;
    const size_t first = line_.find('"');
    const size_t second = first == std::string::npos ? first : line_.find('"', first + 1);
    if (second == std::string::npos) {
      Add("the image has no name in quotes");
      return;
    }
    CheckSource(line_.substr(first + 1, second - first - 1));
  }

  void CheckSource(const std::string& source) {
    if (!StartsWith(source, "../")) {
      Add("\"" + source + "\" does not begin with ../");
      return;
    }
    const std::string path = "./" + source.substr(kUpwards);
    if (paths_.count(path) == 0) {
      Add("\"" + source + "\" " + (Exists(path) ? "is not in the list" : "is missing"));
    } else if (ExtensionInPath(path.c_str())[0] != 'J') {
      Add("\"" + source + "\" is no JPG and cannot be printed");
    } else if (!typeKnown_) {
      Add("\"" + source + "\" gets no mark, since the type of its job is not known");
    }
  }

  std::set<std::string> paths_;
  Findings& findings_;
  std::string line_;
  int number_ = 0;
  bool typeKnown_ = false;
};

}  // namespace

void CheckPrintOrder(const std::vector<std::string>& paths, Findings& findings) {
  if (HasPrintOrder()) OrderCheck(paths, findings).Run();
}

}  // namespace flm::tool
