// Measures the rows asked for, one line each, as fields between tabs:
//
//   row, name, files, place, value, floor, ratio, goal, verdict
//
// A value is in milliseconds unless the name says otherwise; "-" stands for what a row has not got.
// Times are reported and never judged by the exit status: that is 1 only when a row could not be
// measured, which includes every wrong result of the library, and 2 for a wrong command.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>

#include "bench/rows.h"

namespace flm::bench {

std::vector<Row> AllRows() {
  std::vector<Row> all;
  for (const auto& rows : {ScanRows(), WalkRows(), PrintRows(), FlatRows(), ChangeRows(),
                           ProcessRows(), MemoryRows()}) {
    all.insert(all.end(), rows.begin(), rows.end());
  }
  return all;
}

namespace {

constexpr int kDone = 0;
constexpr int kNotMeasured = 1;
constexpr int kUsage = 2;
constexpr int kLeastFiles = 400;  // below, the rows with every fiftieth file have nothing to do
constexpr int kMostFiles = 32000;

struct Command {
  Setting setting;
  std::string place = "folder";
  std::string rows;     // "" for all
  std::string counted;  // an operation to run once instead of rows
  bool list = false;
};

// "G5" asks for G5a, G5b and so on; "G1" does not ask for G10.
bool Matches(const std::string& id, const std::string& wanted) {
  if (id == wanted) return true;
  return id.size() == wanted.size() + 1 && id.compare(0, wanted.size(), wanted) == 0 &&
         id.back() >= 'a';
}

bool IsWanted(const Row& row, const std::string& rows) {
  if (rows.empty()) return true;
  for (size_t start = 0; start <= rows.size();) {
    const size_t end = std::min(rows.find(',', start), rows.size());
    if (Matches(row.id, rows.substr(start, end - start))) return true;
    start = end + 1;
  }
  return false;
}

std::string Short(double number) {
  char text[32];
  std::snprintf(text, sizeof(text), "%.6g", number);
  return text;
}

void Print(const Row& row, const Measured& measured, const std::string& place) {
  std::string floor = "-";
  std::string ratio = "-";
  std::string goal = "-";
  double judged = measured.value;
  if (row.kind != GoalKind::kValue) {
    judged = measured.value / measured.floor;
    floor = Short(measured.floor);
    ratio = Short(judged);
  }
  const char* verdict = "-";
  if (row.kind != GoalKind::kNone) {
    goal = Short(row.goal);
    verdict = judged <= row.goal ? "ok" : "MISSED";
  }
  std::printf("%s\t%s\t%d\t%s\t%s\t%s\t%s\t%s\t%s\n", row.id, row.name, measured.files,
              place.c_str(), Short(measured.value).c_str(), floor.c_str(), ratio.c_str(),
              goal.c_str(), verdict);
  std::fflush(stdout);
}

bool MeasureAndPrint(const Row& row, const Command& command) {
  try {
    Print(row, row.measure(command.setting), command.place);
    return true;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "flm_bench: %s with %d files: %s\n", row.id, command.setting.files,
                 failure.what());
    return false;
  }
}

int MeasureRows(const Command& command) {
  int status = kDone;
  for (const Row& row : AllRows()) {
    if (IsWanted(row, command.rows) && !MeasureAndPrint(row, command)) status = kNotMeasured;
  }
  return status;
}

int RunCounted(const Command& command) {
  try {
    RunCountedOperation(command.counted, command.setting);
    return kDone;
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "flm_bench: %s: %s\n", command.counted.c_str(), failure.what());
    return kNotMeasured;
  }
}

int ListNames() {
  for (const Row& row : AllRows()) {
    const bool limited = row.kind == GoalKind::kValue;
    std::printf("%s\t%s\t%s%s\n", row.id, row.name, limited ? "<= " : "",
                row.kind == GoalKind::kNone ? "-" : Short(row.goal).c_str());
  }
  for (const std::string& name : CountedOperations()) std::printf("count\t%s\t-\n", name.c_str());
  return kDone;
}

// The option's value goes to `command`; false for an unknown option.
bool TakeOption(Command& command, const std::string& option, const char* value) {
  Setting& setting = command.setting;
  if (option == "--dir") {
    setting.folder = value;
  } else if (option == "--tool") {
    setting.tool = value;
  } else if (option == "--files") {
    setting.files = std::atoi(value);
  } else if (option == "--place") {
    command.place = value;
  } else if (option == "--rows") {
    command.rows = value;
  } else if (option == "--count") {
    command.counted = value;
  } else {
    return false;
  }
  return true;
}

bool Read(Command& command, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (std::strcmp(argv[i], "--list") == 0) {
      command.list = true;
    } else if (i + 1 >= argc || !TakeOption(command, argv[i], argv[i + 1])) {
      return false;
    } else {
      ++i;
    }
  }
  const Setting& setting = command.setting;
  return command.list ||
         (!setting.folder.empty() && setting.files >= kLeastFiles && setting.files <= kMostFiles);
}

int Main(int argc, char** argv) {
  Command command;
  if (!Read(command, argc, argv)) {
    std::fputs(
        "usage: flm_bench --dir FOLDER --files N [--rows G1,G5,...] [--place NAME]\n"
        "                 [--tool FLM] [--count OPERATION]\n"
        "       flm_bench --list\n",
        stderr);
    return kUsage;
  }
  if (command.list) return ListNames();
  // The numbers kept by whoever runs this are none of the benchmark's business.
  setenv("FLM_PREFERENCE_FILE", (command.setting.folder + "/preferences").c_str(), 1);
  return command.counted.empty() ? MeasureRows(command) : RunCounted(command);
}

}  // namespace
}  // namespace flm::bench

int main(int argc, char** argv) { return flm::bench::Main(argc, argv); }
