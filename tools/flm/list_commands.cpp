// flm ls, flm count.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "entries.h"
#include "failure.h"
#include "file_table.h"
#include "filter.h"
#include "marks_text.h"
#include "output.h"
#include "rows.h"
#include "select.h"
#include "terminal.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

struct ListOptions {
  CardOptions card;
  std::vector<std::string> files;
  Filter filter;
  bool exact = false;
  bool json = false;
  bool jsonLines = false;
  bool tsv = false;
  bool paths = false;
  bool nul = false;
  bool companions = false;

  bool OnlyPaths() const { return paths || nul; }
};

int ListPaths(Card& card, Choice& choice, const ListOptions& options) {
  const bool raw = options.nul && !OutputIsTerminal();
  std::string line;
  const auto printPath = [&](const char* path) {
    card.UserPathInto(path, line);
    if (!raw) MakePrintable(line);
    line += options.nul ? '\0' : '\n';
    Print(line);
  };
  if (!options.companions) return choice.ForEachPath(printPath);
  return choice.ForEach([&](const Entry& entry) {
    printPath(entry.item.filePath);
    for (const std::string& companion : entry.companions) printPath(companion.c_str());
  });
}

int ListRows(Card& card, Choice& choice, RowFormat format) {
  RowPrinter rows(format, JsonFields());
  const int count = choice.ForEach([&](const Entry& entry) { rows.Add(ToJson(card, entry)); });
  rows.End();
  return count;
}

int List(const ListOptions& options, Card& card, Choice& choice) {
  if (options.OnlyPaths()) return ListPaths(card, choice, options);
  if (options.json) return ListRows(card, choice, RowFormat::kJson);
  if (options.jsonLines) return ListRows(card, choice, RowFormat::kJsonLines);
  if (options.tsv) return ListRows(card, choice, RowFormat::kTsv);
  return PrintFileTable(card, choice, options.exact);
}

int RunList(const ListOptions& options) {
  if (options.companions && !options.OnlyPaths()) {
    throw Failure("--companions adds to --paths or -0", kStatusUsage);
  }
  Card card(options.card, Access::kLook);
  Choice choice(card, options.files, options.filter);
  // Files that are named have been found: nothing can be missing among them.
  const int whole = options.files.empty() ? TellUnreadable(card, options.card.nonDcf) : kStatusDone;
  const bool none = List(options, card, choice) == 0;
  if (none && choice.IsNarrow() && !OutputIsGone() && whole == kStatusDone) throw NothingMatches();
  return whole;
}

int RunCount(const ListOptions& options) {
  Card card(options.card, Access::kLook);
  const int whole = TellUnreadable(card, options.card.nonDcf);
  if (!options.filter.IsSet()) {
    PrintLine(std::to_string(card.Count()));
    return whole;
  }
  const int count = Choice(card, {}, options.filter).ForEachPath([](const char* /*path*/) {});
  PrintLine(std::to_string(count));
  if (count == 0 && whole == kStatusDone) throw NothingMatches();
  return whole;
}

void AddFormats(CLI::App& list, ListOptions& options) {
  const std::vector<CLI::Option*> formats = {
      list.add_flag("-l,--long", options.exact,
                    "Exact sizes, every mark and companion spelled out"),
      list.add_flag("--json", options.json, "One array of objects"),
      list.add_flag("--jsonl", options.jsonLines, "One object a line"),
      list.add_flag("--tsv", options.tsv, "Values between tabs, below a line of their names"),
      list.add_flag("--paths", options.paths,
                    "One path a line; without a filter no file is read for it"),
  };
  CLI::Option* const nul =
      list.add_flag("-0,--null", options.nul, "Raw paths, each ended by a NUL, for xargs -0");
  list.add_flag("--companions", options.companions,
                "With --paths or -0: behind each file its companions");
  for (CLI::Option* const format : formats) {
    for (CLI::Option* const other : formats) {
      if (other != format) format->excludes(other);
    }
    if (format->get_name() != "--paths") nul->excludes(format);
  }
}

}  // namespace

void AddRoot(CLI::App& command, std::string& root) {
  command.add_option("ROOT", root, "The card's folder")->required();
}

void AddFooter(CLI::App& command, const std::string& text) {
  command.footer(text + "\n" + command.get_footer());
}

void AddNonDcf(CLI::App& command, bool& nonDcf) {
  command.add_flag("--non-dcf,!--no-non-dcf", nonDcf,
                   "Take the CAMERA folder too, whose names are free (the default)");
}

void AddListCommands(CLI::App& app, Action& action) {
  const auto options = std::make_shared<ListOptions>();
  CLI::App& list = *app.add_subcommand("ls", "List the files of a card");
  AddFooter(list, kMarksLegend);
  AddRoot(list, options->card.root);
  list.add_option("FILE", options->files, std::string(kFilesHelp) + "; all when none is named");
  AddFormats(list, *options);
  AddFilterOptions(list, options->filter);
  AddNonDcf(list, options->card.nonDcf);
  list.callback([options, &action] { action = [options] { return RunList(*options); }; });

  CLI::App& count =
      *app.add_subcommand("count", "Print the number of files; without a filter no file is read");
  AddRoot(count, options->card.root);
  AddFilterOptions(count, options->filter);
  AddNonDcf(count, options->card.nonDcf);
  count.callback([options, &action] { action = [options] { return RunCount(*options); }; });
}

}  // namespace flm::tool
