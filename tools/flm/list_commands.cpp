// flm ls, flm count.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "entries.h"
#include "failure.h"
#include "marks_text.h"
#include "output.h"
#include "table.h"
#include "text.h"

namespace flm::tool {
namespace {

struct ListOptions {
  CardOptions card;
  bool exact = false;
  bool json = false;
  bool paths = false;
  bool nul = false;
};

int ListPaths(Card& card, bool nul) {
  const bool raw = nul && isatty(STDOUT_FILENO) == 0;
  std::string line;
  ForEachPath(card, [&](const char* path) {
    card.UserPathInto(path, line);
    if (!raw) MakePrintable(line);
    line += nul ? '\0' : '\n';
    Print(line);
  });
  return kStatusDone;
}

int ListJson(Card& card) {
  nlohmann::ordered_json files = nlohmann::ordered_json::array();
  ForEachEntry(card, [&](const Entry& entry) { files.push_back(ToJson(card, entry)); });
  PrintJson(files);
  return kStatusDone;
}

std::string SizeText(const Entry& entry, bool exact) {
  if (!entry.found) return "?";
  return exact ? std::to_string(entry.size) : HumanSize(entry.size);
}

int ListTable(Card& card, bool exact) {
  Table table({{"INDEX", Align::kRight},
               {"PATH", Align::kLeft},
               {"SIZE", Align::kRight},
               {"TIME", Align::kLeft},
               {"MARKS", Align::kLeft},
               {"COMPANIONS", Align::kLeft}});
  ForEachEntry(card, [&](const Entry& entry) {
    table.AddRow({std::to_string(entry.index), card.Shown(entry.Path()), SizeText(entry, exact),
                  entry.found ? LocalTime(entry.time) : "?",
                  exact ? LongMarks(entry) : ShortMarks(entry),
                  exact ? LongCompanions(entry) : ShortCompanions(entry)});
  });
  Print(table.Text());
  return kStatusDone;
}

int RunList(const ListOptions& options) {
  Card card(options.card, Access::kLook);
  if (options.paths) return ListPaths(card, options.nul);
  return options.json ? ListJson(card) : ListTable(card, options.exact);
}

int RunCount(const ListOptions& options) {
  Card card(options.card, Access::kLook);
  PrintLine(std::to_string(card.Count()));
  return kStatusDone;
}

void AddNonDcf(CLI::App& command, bool& nonDcf) {
  command.add_flag("--non-dcf,!--no-non-dcf", nonDcf,
                   "Take the CAMERA folder too, whose names are free (the default)");
}

}  // namespace

void AddRoot(CLI::App& command, std::string& root) {
  command.add_option("ROOT", root, "The card's folder")->required();
}

void AddListCommands(CLI::App& app, Action& action) {
  const auto options = std::make_shared<ListOptions>();
  CLI::App& list = *app.add_subcommand("ls", "List the files of a card");
  list.footer(kMarksLegend);
  AddRoot(list, options->card.root);
  CLI::Option* const exact = list.add_flag("-l,--long", options->exact,
                                           "Exact sizes, every mark and companion spelled out");
  CLI::Option* const json = list.add_flag("--json", options->json, "One array of objects");
  CLI::Option* const paths =
      list.add_flag("--paths", options->paths, "One path a line; no file is read for it");
  json->excludes(exact);
  paths->excludes(exact)->excludes(json);
  list.add_flag("-0,--null", options->nul,
                "With --paths: end each path with a NUL, and write it raw (not to a terminal)")
      ->needs(paths);
  AddNonDcf(list, options->card.nonDcf);
  list.callback([options, &action] { action = [options] { return RunList(*options); }; });

  CLI::App& count =
      *app.add_subcommand("count", "Print the number of files; no file is read for it");
  AddRoot(count, options->card.root);
  AddNonDcf(count, options->card.nonDcf);
  count.callback([options, &action] { action = [options] { return RunCount(*options); }; });
}

}  // namespace flm::tool
