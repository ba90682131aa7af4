// flm import. A copy is written under a temporary name beside its place and renamed when it is
// whole and flushed, so that a name on the card never stands for half a file.
#include <CLI/CLI.hpp>
#include <memory>

#include "bulk.h"
#include "commands.h"
#include "copy_file.h"
#include "failure.h"
#include "global_options.h"
#include "interrupt.h"
#include "naming.h"
#include "output.h"
#include "progress.h"
#include "text.h"

namespace flm::tool {
namespace {

struct ImportOptions {
  NamingOptions naming;
  std::vector<std::string> files;
  bool nul = false;
};

const Kind& KindOfFile(const std::string& file) {
  const std::string name = BaseName(file);
  const size_t point = name.rfind('.');
  const std::string extension = point == std::string::npos ? "" : name.substr(point + 1);
  const Kind* const kind = FindKind(Upper(extension) == "JPEG" ? "jpg" : extension);
  if (kind == nullptr) {
    throw Failure(Named(file) + " has no extension that a card knows (" + KindWords() + ")");
  }
  return *kind;
}

// The reserved name and, when it had to be made, its folder are given up.
void GiveUp(Card& card, NewName name) {
  card.List().RemoveFileFromList(Arg(name.path));
  if (name.madeFolder) RemoveFolder(FolderOf(name.path));
}

void ImportOne(Card& card, const std::string& given, const ImportOptions& options,
               const Progress& progress) {
  const Kind& kind = KindOfFile(given);
  SourceFile source(card.FromOutside(given), Named(given));
  const NewName name = ReserveName(card, kind, options.naming.series);
  try {
    CopyInto(source, name.path, card.Shown(name.path));
    if (name.madeFolder) FlushFolder("./DCIM");
  } catch (const Failure&) {
    GiveUp(card, name);
    throw;
  }
  progress.Wipe();
  WarnUnlessKept(name);
  PrintNewPath(card, name.path, options.nul);
}

// Ctrl-C is looked for before each file.
void CountOne(size_t files) {
  int status = 0;
  bool cancel = false;
  Progress::Report(0, static_cast<int>(files), &status, &cancel);
}

int RunImport(const ImportOptions& options) {
  RequireChangesAllowed();
  for (const std::string& file : options.files) KindOfFile(file);
  CatchInterrupts();
  Card card(options.naming.card, Access::kRecord);
  ApplyNaming(card, options.naming);
  size_t done = 0;
  try {
    const Progress progress(false);
    for (const std::string& file : options.files) {
      if (Interrupted()) throw Failure("interrupted", kStatusInterrupted);
      ImportOne(card, file, options, progress);
      ++done;
      CountOne(options.files.size());
    }
  } catch (const Failure& failure) {
    card.RemoveNewEmptyFolders();
    if (failure.Status() == kStatusInterrupted) return SayInterrupted(done, options.files.size());
    throw;
  }
  return kStatusDone;
}

}  // namespace

void AddImportCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<ImportOptions>();
  CLI::App& command =
      *app.add_subcommand("import", "Copy files onto the card under the next names");
  AddFooter(
      command,
      "Each copy keeps its time and its path is printed. The first file that cannot be copied ends "
      "the command; copies made before it stay.");
  AddRoot(command, options->naming.card.root);
  command.add_option("FILE", options->files, "The files to copy")->required();
  AddNamingOptions(command, options->naming);
  AddNul(command, options->nul);
  command.callback([options, &action] { action = [options] { return RunImport(*options); }; });
}

}  // namespace flm::tool
