// flm check: what on a card would be refused, hidden or lost, and why.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/fixed_sizes.h"
#include "card_mount.h"
#include "commands.h"
#include "dcf/dcf_name.h"
#include "entries.h"
#include "failure.h"
#include "findings.h"
#include "numbers.h"
#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

// From here on the end of the numbers or of the list is worth a word.
constexpr int kFewFiles = 1000;
constexpr int kFewFolders = 10;

struct CheckOptions {
  CardOptions card;
  bool json = false;
};

struct Room {
  int files;        // in the list
  FileNumber last;  // the newest file
  int FilesLeft() const { return kMaxFiles - files; }
  int FoldersLeft() const { return kLastDirNumber - std::max(last.folder, kFirstDirNumber - 1); }
  int NumbersLeft() const { return kLastFileNumber - last.file; }
};

Room RoomOf(Card& card) {
  Room room = {card.Count(), {}};
  card.List().GetLastIndex(&room.last.folder, &room.last.file);
  return room;
}

void CheckRoom(const Room& room, Findings& findings) {
  if (room.FilesLeft() <= 0) {
    findings.push_back({kLimit, "./DCIM", "the list is full: further files are not listed"});
  } else if (room.FilesLeft() < kFewFiles) {
    findings.push_back(
        {kLimit, "./DCIM",
         "room for only " + std::to_string(room.FilesLeft()) + " more files in the list"});
  }
  if (room.last.folder > kLastDirNumber - kFewFolders) {
    findings.push_back(
        {kLimit, "./DCIM",
         "the newest file is " + NumberText(room.last) + ": the numbers end at 999/9999"});
  }
}

void CheckMount(Findings& findings) {
  const std::string trouble = ProtectionTroubleAt("./DCIM");
  if (!trouble.empty()) findings.push_back({kProtection, "./DCIM", trouble});
}

nlohmann::ordered_json ToJson(const Card& card, const Findings& findings, const Room& room) {
  nlohmann::ordered_json value;
  value["findings"] = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    value["findings"].push_back({{"kind", finding.kind},
                                 {"path", JsonText(card.UserPath(finding.path))},
                                 {"reason", JsonText(finding.reason)}});
  }
  value["room"] = {{"files", room.files},
                   {"files_left", room.FilesLeft()},
                   {"last_folder", room.last.folder},
                   {"last_file", room.last.file},
                   {"folder_numbers_left", room.FoldersLeft()},
                   {"file_numbers_left_in_folder", room.NumbersLeft()}};
  return value;
}

void PrintText(const Card& card, const Findings& findings, const Room& room) {
  for (const Finding& finding : findings) {
    PrintLine(card.Shown(finding.path) + ": " + Printable(finding.reason));
  }
  PrintLine(findings.empty() ? "nothing to report"
                             : Counted(static_cast<int64_t>(findings.size()), "finding"));
  PrintLine(std::to_string(room.files) + " of " + std::to_string(kMaxFiles) +
            " files; the newest is " + NumberText(room.last) + " of 999/9999");
}

int RunCheck(const CheckOptions& options) {
  Card card(options.card, Access::kLook);
  Findings findings;
  CheckFolders(findings);
  CheckPrintOrder(ReadPaths(card), findings);
  CheckMount(findings);
  const Room room = RoomOf(card);
  CheckRoom(room, findings);
  if (options.json) {
    PrintJson(ToJson(card, findings, room));
  } else {
    PrintText(card, findings, room);
  }
  return findings.empty() ? kStatusDone : kStatusFailed;
}

}  // namespace

void AddCheckCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<CheckOptions>();
  CLI::App& check = *app.add_subcommand("check", "Report what would be refused, hidden or lost");
  AddFooter(check, "The exit status is 1 when there is something to report.");
  AddRoot(check, options->card.root);
  check.add_flag("--json", options->json, "One object");
  check.callback([options, &action] { action = [options] { return RunCheck(*options); }; });
}

}  // namespace flm::tool
