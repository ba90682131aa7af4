// flm new, flm next.
#include <dirent.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "failure.h"
#include "fsio/PCQDCFFSIO.h"
#include "naming.h"
#include "numbers.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

struct NameOptions {
  NamingOptions naming;
  std::string kind;
  bool nul = false;
};

const Kind& RequireKind(const std::string& word) {
  const Kind* const kind = FindKind(word);
  if (kind == nullptr) {
    const std::string what =
        word.empty() ? "the kind of file is empty" : Named(word) + " is no kind of file";
    throw Failure(what + " (" + KindWords() + ")", kStatusUsage);
  }
  return *kind;
}

int RunNew(const NameOptions& options) {
  const Kind& kind = RequireKind(options.kind);
  Card card(options.naming.card, Access::kRecord);
  ApplyNaming(card, options.naming);
  try {
    const NewName name = ReserveName(card, kind, options.naming.series);
    WarnUnlessKept(name);
    PrintNewPath(card, name.path, options.nul);
  } catch (const Failure&) {
    card.RemoveNewEmptyFolders();
    throw;
  }
  return kStatusDone;
}

// The parts of a name that follow from the date, exactly as the list makes them.
std::string DatePrefix(bool underscore) {
  PCQDCFFSIO::tTimeStamp now;
  PCQDCFFSIO::GetSystemTime(now);
  if (!underscore) return Padded(now.month, 2) + Padded(now.day, 2);
  constexpr char kMonths[] = "0123456789ABC";
  return std::string("_") + kMonths[now.month] + Padded(now.day, 2);
}

std::string NextPrefix(const NamingOptions& options, const Kind& kind) {
  const bool movie3d = options.threeD && kind.number == FindKind("mp4")->number;
  if (options.dateFiles) return DatePrefix(movie3d);
  return movie3d ? "S3D_" : options.card.prefix;
}

std::string NextSuffix(const NamingOptions& options) {
  return options.dateFolders ? "_" + DatePrefix(false) : kStillSuffix;
}

// The names of the card's numbered folders, in capitals as the list keeps them.
std::vector<std::string> NumberedFolders() {
  std::vector<std::string> names;
  PCQDCFFSIO reader(kStillTree, "");
  PCQDCFFSIO::PTFile entry = {};
  while (reader.IsValid() && reader.Read(&entry) >= 0) {
    const std::string name = Upper(std::string(entry.name, BoundedLength(entry.name, 128)));
    if (CheckDirName(name.c_str()) == 0 && !IsCameraName(name.c_str())) names.push_back(name);
  }
  return names;
}

// A number whose folders all have other suffixes is left to them, and the next one begins.
FileNumber StepOverForeignFolder(FileNumber number, const std::string& suffix) {
  bool taken = false;
  for (const std::string& name : NumberedFolders()) {
    if (DirNumberInName(name.c_str()) != number.folder) continue;
    if (SuffixOfDirName(name.c_str()) == suffix) return number;
    taken = true;
  }
  return taken ? FileNumber{number.folder + 1, 1} : number;
}

FileNumber NumberBehind(FileNumber last) {
  if (last.folder == 0) return {kFirstDirNumber, 1};
  if (last.folder < kFirstDirNumber) last.folder = kFirstDirNumber;
  if (last.file < kLastFileNumber) return {last.folder, last.file + 1};
  return {last.folder + 1, 1};
}

// The list has no way to ask without reserving, so the rules of numbering are followed here on what
// it does tell: its last number. The tests hold the answer against what `new` then gives.
int RunNext(const NameOptions& options) {
  const Kind& kind = RequireKind(options.kind);
  Card card(options.naming.card, Access::kLook);
  ApplyNaming(card, options.naming);
  RequireRoom(card);
  FileNumber last;
  card.List().GetLastIndex(&last.folder, &last.file);
  const std::string suffix = NextSuffix(options.naming);
  FileNumber next = NumberBehind(last);
  if (next.folder <= kLastDirNumber) next = StepOverForeignFolder(next, suffix);
  if (next.folder > kLastDirNumber) throw Failure("no file number is left on the card");
  const std::string name =
      NextPrefix(options.naming, kind) + Padded(next.file, 4) + "." + Upper(kind.word);
  const std::string folder = std::string("./") + kStillTree + "/" + Padded(next.folder, 3) + suffix;
  RequireFree(card, folder + "/" + name);
  PrintNewPath(card, folder + "/" + name, options.nul);
  return kStatusDone;
}

std::string KindsHelp() { return "The kind of file: " + KindWords(); }

}  // namespace

void AddNameCommands(CLI::App& app, Action& action) {
  const auto options = std::make_shared<NameOptions>();
  CLI::App& reserve = *app.add_subcommand("new", "Reserve the next file name and print its path");
  AddFooter(
      reserve,
      "The folder is made, the file is not: whoever asks writes it. Until a file stands under the "
      "name, the next call gives the same name again (with --series the number is used up).");
  AddRoot(reserve, options->naming.card.root);
  reserve.add_option("KIND", options->kind, KindsHelp())->required();
  AddNamingOptions(reserve, options->naming);
  AddNul(reserve, options->nul);
  reserve.callback([options, &action] { action = [options] { return RunNew(*options); }; });

  const auto nextOptions = std::make_shared<NameOptions>();
  nextOptions->kind = "jpg";
  CLI::App& next =
      *app.add_subcommand("next", "Print the path that `new` would give; make nothing");
  AddRoot(next, nextOptions->naming.card.root);
  next.add_option("KIND", nextOptions->kind, KindsHelp())->capture_default_str();
  AddNamingOptions(next, nextOptions->naming);
  AddNul(next, nextOptions->nul);
  next.callback(
      [nextOptions, &action] { action = [nextOptions] { return RunNext(*nextOptions); }; });
}

}  // namespace flm::tool
