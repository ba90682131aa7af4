// The tool as a process, held against the system's own listing programs.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "bench/card.h"
#include "bench/measure.h"
#include "bench/rows.h"

namespace flm::bench {
namespace {

constexpr int kCannotStart = 127;

using Command = std::vector<std::string>;

// Runs a program with its output going nowhere; throws unless it ends well. No shell stands
// between, whose own start would be timed too.
rusage Run(const Command& command) {
  std::vector<char*> words;
  for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  const pid_t child = fork();
  Require(child >= 0, "no process can be started");
  if (child == 0) {
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    execvp(words[0], words.data());
    _exit(kCannotStart);
  }
  int status = 0;
  rusage usage = {};
  const bool ended = wait4(child, &status, 0, &usage) == child;
  Require(ended && status == 0, "a listing program failed");
  return usage;
}

Command ToolCommand(const Setting& setting, const char* option, const SampleCard& card) {
  return {setting.tool, "ls", option, card.Root()};
}

// The tool must print at least a line for each file, or its time means nothing.
void CheckLines(const Command& tool, const SampleCard& card) {
  const std::string test = "test \"$(\"$@\" | wc -l)\" -ge " + std::to_string(card.Pictures());
  Command command = {"sh", "-c", test, "sh"};
  command.insert(command.end(), tool.begin(), tool.end());
  Run(command);
}

// Byte order without a language's rules is the fastest that the floors can sort in.
void UsePlainLocale() { setenv("LC_ALL", "C", 1); }

Measured Compare(const Setting& setting, const char* option, Command floor) {
  UsePlainLocale();
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  const Command tool = ToolCommand(setting, option, card);
  floor.push_back(card.Root());
  CheckLines(tool, card);
  const Times times = MeasureInTurn({[&] { Run(tool); }, [&] { Run(floor); }});
  return {card.Pictures(), times.operation, times.floor};
}

Measured PathsAgainstFind(const Setting& setting) {
  return Compare(setting, "--paths", {"sh", "-c", "find \"$1\" -type f | sort", "sh"});
}

Measured PathsAgainstLs(const Setting& setting) {
  return Compare(setting, "--paths", {"ls", "-R"});
}

Measured TableAgainstLs(const Setting& setting) {
  return Compare(setting, "--long", {"ls", "-lR"});
}

// The system counts what a process held before exec too. That is this program here, which is small:
// the paths of the card are never formed.
Measured PeakMemory(const Setting& setting) {
  const SampleCard card(NewRoot(setting.folder), EvenLayout(setting.files));
  const rusage usage = Run(ToolCommand(setting, "--paths", card));
  return {card.Pictures(), static_cast<double>(usage.ru_maxrss), 0};
}

}  // namespace

std::vector<Row> ProcessRows() {
  constexpr double kPeakKibibytes = 10 * 1024;
  return {
      {"G12a", "flm ls --paths / find | sort", GoalKind::kRatio, 0.70, PathsAgainstFind},
      {"G12b", "flm ls --paths / ls -R", GoalKind::kRatio, 0.90, PathsAgainstLs},
      {"G12c", "flm ls --long / ls -lR", GoalKind::kRatio, 0.60, TableAgainstLs},
      {"G12d", "flm ls --paths, peak memory (KiB)", GoalKind::kValue, kPeakKibibytes, PeakMemory},
  };
}

}  // namespace flm::bench
