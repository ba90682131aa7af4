// flm info.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "entries.h"
#include "failure.h"
#include "marks_text.h"
#include "output.h"
#include "rows.h"
#include "select.h"
#include "text.h"

namespace flm::tool {
namespace {

struct InfoOptions {
  CardOptions card;
  std::vector<std::string> files;
  bool json = false;
};

// What info tells beyond what a list does.
struct Numbers {
  int folder = -1;
  int file = -1;
  std::string prefix;
};

constexpr char kCameraStart[] = "./DCIM/CAMERA";
constexpr size_t kFolderAt = 7;  // "./DCIM/" comes first
constexpr size_t kPrefixLength = 4;

Numbers NumbersOf(const std::string& path) {
  Numbers numbers;
  if (StartsWith(path, kCameraStart)) return numbers;
  const std::string name = BaseName(path);
  numbers.folder = std::stoi(path.substr(kFolderAt, 3));
  numbers.prefix = name.substr(0, kPrefixLength);
  numbers.file = std::stoi(name.substr(kPrefixLength, 4));
  return numbers;
}

nlohmann::ordered_json JsonOf(const Card& card, const Entry& entry, bool last) {
  nlohmann::ordered_json value = ToJson(card, entry);
  const Numbers numbers = NumbersOf(entry.Path());
  const bool dcf = numbers.folder >= 0;
  value["dcf"] = dcf;
  value["folder_number"] = dcf ? nlohmann::ordered_json(numbers.folder) : nullptr;
  value["file_number"] = dcf ? nlohmann::ordered_json(numbers.file) : nullptr;
  value["prefix"] = dcf ? nlohmann::ordered_json(JsonText(numbers.prefix)) : nullptr;
  value["last"] = last;
  value["companion_paths"] = nlohmann::ordered_json::array();
  for (const std::string& path : entry.companions) {
    value["companion_paths"].push_back(JsonText(card.UserPath(path)));
  }
  return value;
}

void PrintField(const std::string& name, const std::string& value) {
  constexpr size_t kNameWidth = 14;
  PrintLine(name + std::string(kNameWidth - name.size(), ' ') + value);
}

std::string YesNo(bool value) { return value ? "yes" : "no"; }

void PrintNumbers(const Entry& entry) {
  const Numbers numbers = NumbersOf(entry.Path());
  if (numbers.folder < 0) {
    PrintField("name", "free (the CAMERA folder)");
    return;
  }
  PrintField("folder", std::to_string(numbers.folder));
  PrintField("number", Padded(numbers.file, 4));
  PrintField("prefix", Printable(numbers.prefix));
}

void PrintText(const Card& card, const Entry& entry, bool last) {
  PrintField("path", card.Shown(entry.Path()));
  PrintField("index", std::to_string(entry.index) + (last ? " (the last file)" : ""));
  PrintNumbers(entry);
  PrintField("size", entry.found ? Counted(entry.size, "byte") : "?");
  PrintField("time", entry.found ? LocalTime(entry.time) : "?");
  PrintField("protected", YesNo(entry.item.isProtected != 0));
  PrintField("selected", YesNo(entry.item.selected != 0));
  PrintField("wifi", YesNo(entry.item.wifiFlag != 0));
  PrintField("voice/capture", YesNo(entry.grouped));
  PrintField("copies", std::to_string(entry.item.dpofCopies));
  PrintField("index print", YesNo(entry.item.dpofIndex != 0));
  PrintField("size code", std::to_string(entry.item.dpofSize));
  if (entry.companions.empty()) PrintField("companions", "none");
  for (const std::string& path : entry.companions) PrintField("companion", card.Shown(path));
}

nlohmann::ordered_json JsonAt(Card& card, int index) {
  return JsonOf(card, ReadEntry(card, index), index == card.Count() - 1);
}

// One file is one object, and whatever may be several is an array.
void PrintAsJson(Card& card, const std::vector<std::string>& files) {
  if (files.size() == 1 && !IsIndexList(files.front())) {
    PrintJson(JsonAt(card, SelectOne(card, files.front())));
    return;
  }
  RowPrinter rows(RowFormat::kJson, {});
  for (const int index : SelectMany(card, files)) rows.Add(JsonAt(card, index));
  rows.End();
}

int RunInfo(const InfoOptions& options) {
  Card card(options.card, Access::kLook);
  if (options.json) {
    PrintAsJson(card, options.files);
    return kStatusDone;
  }
  bool first = true;
  for (const int index : SelectMany(card, options.files)) {
    if (!first) PrintLine("");
    PrintText(card, ReadEntry(card, index), index == card.Count() - 1);
    first = false;
  }
  return kStatusDone;
}

}  // namespace

void AddInfoCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<InfoOptions>();
  CLI::App& info = *app.add_subcommand("info", "Print everything that is known about files");
  AddRoot(info, options->card.root);
  info.add_option("FILE", options->files, kFilesHelp)->required();
  info.add_flag("--json", options->json,
                "One object; an array of them for a list, a range or several files");
  info.callback([options, &action] { action = [options] { return RunInfo(*options); }; });
}

}  // namespace flm::tool
