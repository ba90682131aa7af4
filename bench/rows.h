// The rows of the benchmark: what is measured, against which floor, with which goal.
#ifndef FILELISTMANAGEMENT_BENCH_ROWS_H
#define FILELISTMANAGEMENT_BENCH_ROWS_H

#include <string>
#include <vector>

namespace flm::bench {

struct Setting {
  std::string folder;  // where cards are made
  std::string tool;    // the program flm
  int files = 0;
};

struct Measured {
  int files;     // what the card held
  double value;  // milliseconds unless the row's name says otherwise
  double floor;
};

// What a goal limits.
enum class GoalKind {
  kRatio,  // value / floor
  kValue,  // the value itself; there is no floor
  kNone,   // nothing: the row is for comparison
};

struct Row {
  const char* id;  // G and a number, and a letter where one goal has several rows
  const char* name;
  GoalKind kind;
  double goal;
  Measured (*measure)(const Setting& setting);
};

// Each of these stands in the source of its theme.
std::vector<Row> ScanRows();
std::vector<Row> WalkRows();
std::vector<Row> PrintRows();
std::vector<Row> FlatRows();
std::vector<Row> ChangeRows();
std::vector<Row> ProcessRows();
std::vector<Row> MemoryRows();

std::vector<Row> AllRows();

// Operations for a count of instructions; see counted.cpp.
std::vector<std::string> CountedOperations();
void RunCountedOperation(const std::string& name, const Setting& setting);

}  // namespace flm::bench

#endif
