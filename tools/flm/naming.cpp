#include "naming.h"

#include <sys/stat.h>

#include <CLI/CLI.hpp>
#include <cerrno>

#include "base/fixed_sizes.h"
#include "copy_file.h"
#include "dcf/dcf_name.h"
#include "failure.h"
#include "output.h"
#include "prefix_check.h"
#include "series_store.h"
#include "terminal.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr char kTree[] = "./DCIM";
constexpr mode_t kFolderMode = 0775;

// The list hands a name out even when the card refuses its folder. Making it once more tells why.
void RequireFolder(const Card& card, const std::string& folder) {
  for (const std::string& path : {std::string(kTree), folder}) {
    if (IsFolder(path) || mkdir(path.c_str(), kFolderMode) == 0) continue;
    throw Failure(WithReason("cannot make the folder " + card.Shown(path), errno));
  }
  card.RequireOnCard(folder);
}

FileNumber NumberOf(const std::string& path) {
  return {DirNumberInName(BaseName(FolderOf(path)).c_str()),
          FileNumberInName(BaseName(path).c_str())};
}

}  // namespace

const std::vector<Kind> kKinds = {{"jpg", 0}, {"srw", 1}, {"mp4", 2}, {"3gp", 3},
                                  {"mp3", 4}, {"wav", 5}, {"mpo", 6}};

const Kind* FindKind(const std::string& word) {
  for (const Kind& kind : kKinds) {
    if (Upper(kind.word) == Upper(word)) return &kind;
  }
  return nullptr;
}

std::string KindWords() {
  std::string words;
  for (const Kind& kind : kKinds) words += (words.empty() ? "" : " ") + std::string(kind.word);
  return words;
}

void AddNamingOptions(CLI::App& command, NamingOptions& options) {
  command.add_flag("--series", options.series,
                   "Number on from the last number given out on any card, when it is higher");
  CLI::Option* const prefix =
      command.add_option("--prefix", options.card.prefix, "The four characters before the number")
          ->capture_default_str()
          ->check(PrefixError, "PREFIX");
  command.add_flag("--date-files", options.dateFiles, "Today's month and day as the prefix")
      ->excludes(prefix);
  command.add_flag("--date-folders", options.dateFolders,
                   "Folders named after today (100_0315) instead of 100PHOTO");
  command.add_flag("--3d", options.threeD, "Images are 3D: movies get the prefix S3D_");
}

void ApplyNaming(Card& card, const NamingOptions& options) {
  CQFileList& list = card.List();
  if (options.dateFiles) list.SetFileNameMake(FILE_NAME_MAKE_DATE);
  if (options.dateFolders) list.SetFolderNameMake(FILE_NAME_MAKE_DATE);
  if (options.threeD) list.SetImageType(FILELIST_IMAGE_3D);
  // The list keeps this setting only after its scan.
  if (options.series) list.SetSeriesMode(true);
}

void RequireRoom(Card& card) {
  if (card.Count() >= kMaxFiles) {
    throw Failure("the card holds " + std::to_string(card.Count()) +
                  " files, and no more are listed");
  }
}

void RequireFree(const Card& card, const std::string& path) {
  if (Exists(path)) throw Failure(card.Shown(path) + " is the next name, but it is there already");
}

void WarnUnlessKept(const NewName& name) { WarnUnlessStored(NumberOf(name.path)); }

NewName ReserveName(Card& card, const Kind& kind, bool series) {
  RequireRoom(card);
  // Numbering names the folder only with the file, so whether it was there is seen from the list
  // of folders before.
  const std::vector<std::string> before = EntriesOf(kTree);
  char path[kNewNameSize] = {};
  if (card.List().GetNewFileName(path, kind.number) < 0) {
    throw Failure("no file number is left on the card");
  }
  const std::string folder = FolderOf(path);
  NewName name = {path, !Contains(before, BaseName(folder))};
  try {
    RequireFolder(card, folder);
    RequireFree(card, path);
    if (series) RequireStored(NumberOf(name.path));
  } catch (const Failure&) {
    if (name.madeFolder) RemoveFolder(folder);
    throw;
  }
  return name;
}

void PrintNewPath(const Card& card, const std::string& path, bool nul) {
  std::string text = OutputIsTerminal() ? card.Shown(path) : card.UserPath(path);
  text += nul ? '\0' : '\n';
  Print(text);
}

void AddNul(CLI::App& command, bool& nul) {
  command.add_flag("-0,--null", nul, "End each path with a NUL");
}

}  // namespace flm::tool
