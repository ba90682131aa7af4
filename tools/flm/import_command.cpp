// flm import. A copy is written under a temporary name beside its place and renamed when it is
// whole and flushed, so that a name on the card never stands for half a file.
#include <CLI/CLI.hpp>
#include <memory>

#include "commands.h"
#include "copy_file.h"
#include "failure.h"
#include "interrupt.h"
#include "naming.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

struct ImportOptions {
  NamingOptions naming;
  std::vector<std::string> files;
};

const Kind& KindOfFile(const std::string& file) {
  const std::string name = BaseName(file);
  const size_t point = name.rfind('.');
  const std::string extension = point == std::string::npos ? "" : name.substr(point + 1);
  const Kind* const kind = FindKind(Upper(extension) == "JPEG" ? "jpg" : extension);
  if (kind == nullptr) {
    throw Failure(Printable(file) +
                  " has no extension that a card knows (jpg srw mp4 3gp mp3 wav mpo)");
  }
  return *kind;
}

// The reserved name and, when it had to be made, its folder are given up.
void GiveUp(Card& card, std::string path, bool madeFolder) {
  card.List().RemoveFileFromList(Arg(path));
  if (madeFolder) RemoveFolder(FolderOf(path));
  card.RemoveNewEmptyFolders();
}

// Numbering names the folder only with the file, so whether it was there is seen from the list of
// folders before.
void ImportOne(Card& card, const std::string& given) {
  const Kind& kind = KindOfFile(given);
  SourceFile source(card.FromOutside(given), Printable(given));
  const std::vector<std::string> before = EntriesOf("./DCIM");
  const std::string path = ReserveName(card, kind);
  const bool madeFolder = !Contains(before, BaseName(FolderOf(path)));
  try {
    CopyInto(source, path, card.Shown(path));
    if (madeFolder) FlushFolder("./DCIM");
  } catch (const Failure&) {
    GiveUp(card, path, madeFolder);
    throw;
  }
  PrintLine(card.Shown(path));
}

int RunImport(const ImportOptions& options) {
  for (const std::string& file : options.files) KindOfFile(file);
  CatchInterrupts();
  Card card(options.naming.card, Access::kRecord);
  ApplyNaming(card, options.naming);
  try {
    for (const std::string& file : options.files) ImportOne(card, file);
  } catch (const Failure&) {
    card.RemoveNewEmptyFolders();
    throw;
  }
  return kStatusDone;
}

}  // namespace

void AddImportCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<ImportOptions>();
  CLI::App& import = *app.add_subcommand("import", "Copy files onto the card under the next names");
  import.footer(
      "Each copy keeps its time and its path is printed. The first file that cannot be copied ends "
      "the command; copies made before it stay.");
  AddRoot(import, options->naming.card.root);
  import.add_option("FILE", options->files, "The files to copy")->required();
  AddNamingOptions(import, options->naming);
  import.callback([options, &action] { action = [options] { return RunImport(*options);
};
}  // namespace flm::tool
);
}

}  // namespace flm::tool
