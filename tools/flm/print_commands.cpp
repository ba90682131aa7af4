// flm print: the marks of the print order. Each changing command starts from the order on the card,
// which the scan has read, and leaves a whole new one.
#include <unistd.h>

#include <CLI/CLI.hpp>
#include <array>
#include <memory>
#include <nlohmann/json.hpp>
#include <sstream>

#include "bulk.h"
#include "commands.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "failure.h"
#include "output.h"
#include "print_order.h"
#include "select.h"
#include "table.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr int kMaxCopies = 99;

struct PrintOptions {
  PrintOptions() { card.whole = true; }

  CardOptions card;
  std::vector<std::string> files;
  Filter filter;
  bool all = false;
  int value = 0;
  std::string onOff;
  std::string creator;
  std::string from;
  bool merge = false;
  bool json = false;
};

using Options = std::shared_ptr<PrintOptions>;
using Setter = int (CQFileList::*)(CQFileListItem*, int);

std::string CreatorOf(const PrintOptions& options) {
  return options.creator.empty() ? PrintOrderCreator() : options.creator;
}

void Save(Card& card, const PrintOptions& options) { SavePrintOrder(card, CreatorOf(options)); }

bool IsOrdered(const Entry& entry) {
  return entry.item.dpofCopies > 0 || entry.item.dpofIndex != 0 || entry.item.dpofSize > 0;
}

int ShowJson(const Card& card, const std::vector<Entry>& entries) {
  nlohmann::ordered_json value;
  value["creator"] = JsonText(PrintOrderCreator());
  value["files"] = nlohmann::ordered_json::array();
  for (const Entry& entry : entries) {
    if (!IsOrdered(entry)) continue;
    nlohmann::ordered_json file;
    file["index"] = entry.index;
    file["path"] = JsonText(card.UserPath(entry.Path()));
    file["copies"] = entry.item.dpofCopies;
    file["index_print"] = entry.item.dpofIndex != 0;
    file["size_code"] = entry.item.dpofSize;
    value["files"].push_back(file);
  }
  PrintJson(value);
  return kStatusDone;
}

int RunShow(const PrintOptions& options) {
  Card card(options.card, Access::kLook);
  const std::vector<Entry> entries = ReadEntries(card);
  if (options.json) return ShowJson(card, entries);
  Table table({{"INDEX", Align::kRight},
               {"PATH", Align::kLeft},
               {"COPIES", Align::kRight},
               {"INDEX PRINT", Align::kLeft},
               {"SIZE CODE", Align::kRight}});
  for (const Entry& entry : entries) {
    if (!IsOrdered(entry)) continue;
    table.AddRow({std::to_string(entry.index), card.Shown(entry.Path()),
                  std::to_string(entry.item.dpofCopies), entry.item.dpofIndex != 0 ? "yes" : "no",
                  std::to_string(entry.item.dpofSize)});
  }
  Print(table.Text());
  return kStatusDone;
}

// Sets one mark of the named files. Only pictures can be printed: naming another file is a mistake,
// while --all and a filter mean pictures alone.
int RunMark(const PrintOptions& options, Setter setter) {
  if (!options.all && options.files.empty() && !options.filter.IsSet()) {
    throw Failure("no file is named (or --all, or a filter)", kStatusUsage);
  }
  Card card(options.card, Access::kChange);
  WarnOfDroppedLines(card);
  BulkOptions bulk;
  bulk.all = options.all;
  bulk.files = options.files;
  bulk.filter = options.filter;
  const bool named = !options.files.empty();
  int status = kStatusDone;
  bool any = false;
  for (Entry& entry : BulkTargets(card, bulk)) {
    if (!named && !EndsInJpg(entry.item.filePath)) continue;
    any = true;
    if (!named && options.value != 0 && !CanBeOrdered(entry.Path())) {
      Complain(card.Shown(entry.Path()) +
               " is left out: no line of a print order can hold its name");
      status = kStatusFailed;
      continue;
    }
    if ((card.List().*setter)(&entry.item, options.value) < 0) {
      throw Failure(card.Shown(entry.Path()) +
                    " cannot be printed: its name does not end in JPG in capitals");
    }
  }
  if (!any) {
    throw Failure("no file that can be printed: the name of none ends in JPG in capitals",
                  kStatusNothing);
  }
  Save(card, options);
  return status;
}

int RunIndex(const PrintOptions& options) {
  Card card(options.card, Access::kChange);
  WarnOfDroppedLines(card);
  card.List().SetDPOFIndex(options.onOff == "on");
  Save(card, options);
  return kStatusDone;
}

int RunClear(const PrintOptions& options) {
  Card card(options.card, Access::kChange);
  ClearPrintMarks(card);
  Save(card, options);
  return kStatusDone;
}

int RunSave(const PrintOptions& options) {
  Card card(options.card, Access::kChange);
  WarnOfDroppedLines(card);
  Save(card, options);
  return kStatusDone;
}

// Whether one of the first lines is the headline that every print order begins with. The list takes
// any file for an order, and a wrong one would wipe out the order on the card.
bool IsPrintOrder(const SourceFile& source) {
  constexpr char kHeadline[] = "[HDR]";
  std::array<char, 4096> start;
  const ssize_t got = pread(source.Number(), start.data(), start.size(), 0);
  if (got <= 0) return false;
  std::istringstream text(std::string(start.data(), static_cast<size_t>(got)));
  std::string line;
  while (std::getline(text, line)) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line == kHeadline) return true;
  }
  return false;
}

// The list reads orders only from the card's own MISC folder, so the file is brought there first.
int RunLoad(const PrintOptions& options) {
  Card card(options.card, Access::kChange);
  const SourceFile source(card.FromOutside(options.from), Named(options.from));
  if (!IsPrintOrder(source)) throw Failure(source.Shown() + " is no print order");
  if (options.merge) WarnOfDroppedLines(card);
  if (!options.merge) ClearPrintMarks(card);
  std::string path = NewPrintOrderPath();
  unlink(path.c_str());
  CopyInto(source, path, card.Shown(path));
  const int result = card.List().LoadDPOFInfo(Arg(path));
  unlink(path.c_str());
  if (result < 0) throw Failure("cannot read " + source.Shown() + " as a print order");
  Save(card, options);
  return kStatusDone;
}

CLI::App& AddPrint(CLI::App& print, const char* name, const char* help, const Options& options) {
  CLI::App& command = *print.add_subcommand(name, help);
  AddRoot(command, options->card.root);
  return command;
}

void AddCreator(CLI::App& command, const Options& options) {
  command
      .add_option("--creator", options->creator,
                  "The device named in the order (default: the one named there already)")
      ->check(CreatorError, "NAME");
}

void AddFiles(CLI::App& command, const Options& options) {
  CLI::Option* const files = command.add_option("FILE", options->files, kFilesHelp);
  command.add_flag("-a,--all", options->all, "Every picture of the card")->excludes(files);
  AddFilterOptions(command, options->filter);
  AddCreator(command, options);
}

void AddMarking(CLI::App& print, Action& action, const Options& options) {
  CLI::App& set = AddPrint(print, "set", "Order prints of files", options);
  set.add_option("COPIES", options->value, "How many, 0 for none")
      ->required()
      ->check(CLI::Range(0, kMaxCopies));
  AddFiles(set, options);
  set.callback([options, &action] {
    action = [options] { return RunMark(*options, &CQFileList::SetDPOF); };
  });

  CLI::App& size = AddPrint(print, "size", "Order prints of a certain size", options);
  size.add_option("CODE", options->value, "The print size: 3, 4, 5 or 8; 0 for none")
      ->required()
      ->check(CLI::IsMember({0, 3, 4, 5, 8}));
  AddFiles(size, options);
  size.callback([options, &action] {
    action = [options] { return RunMark(*options, &CQFileList::SetDPOFSize); };
  });
}

void AddWhole(CLI::App& print, Action& action, const Options& options) {
  CLI::App& index = AddPrint(print, "index", "Put every picture into the index print", options);
  index.add_option("STATE", options->onOff, "on, or off to take every picture out")
      ->required()
      ->check(CLI::IsMember({"on", "off"}));
  AddCreator(index, options);
  index.callback([options, &action] { action = [options] { return RunIndex(*options); }; });

  CLI::App& clear = AddPrint(print, "clear", "Take back the whole order", options);
  AddCreator(clear, options);
  clear.callback([options, &action] { action = [options] { return RunClear(*options); }; });

  CLI::App& save = AddPrint(print, "save", "Write the order again as this tool writes it", options);
  AddFooter(save, "What other makers' orders say beyond copies, index print and sizes is dropped.");
  AddCreator(save, options);
  save.callback([options, &action] { action = [options] { return RunSave(*options); }; });

  CLI::App& load = AddPrint(print, "load", "Take over an order from another file", options);
  load.add_option("FILE", options->from, "The print order to read")->required();
  load.add_flag("--merge", options->merge, "Keep the marks that it does not set");
  AddCreator(load, options);
  load.callback([options, &action] { action = [options] { return RunLoad(*options); }; });
}

}  // namespace

void AddPrintCommands(CLI::App& app, Action& action) {
  CLI::App& print = *app.add_subcommand("print", "Show and change the print order of a card");
  print.require_subcommand(1);
  const auto options = std::make_shared<PrintOptions>();
  CLI::App& show = AddPrint(print, "show", "List the files that are ordered", options);
  show.add_flag("--json", options->json, "One object");
  show.callback([options, &action] { action = [options] { return RunShow(*options); }; });
  AddMarking(print, action, options);
  AddWhole(print, action, options);
}

}  // namespace flm::tool
