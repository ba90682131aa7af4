// flm scan: what the scan of a card takes, and what it passes over.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "commands.h"
#include "explain.h"
#include "failure.h"
#include "output.h"
#include "rows.h"
#include "table.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

struct ScanOptions {
  CardOptions card;
  bool explain = false;
  bool json = false;
  bool jsonLines = false;
  bool tsv = false;

  bool IsForPeople() const { return !json && !jsonLines && !tsv; }
  RowFormat Format() const {
    if (tsv) return RowFormat::kTsv;
    return json ? RowFormat::kJson : RowFormat::kJsonLines;
  }
};

void ExplainLines(Card& card, bool nonDcf) {
  ScanListener listener;
  listener.folder = [](const ScannedFolder& /*folder*/) {};
  listener.name = [&](const Unlisted& name) {
    PrintLine(card.Shown(name.path) + ": " + Printable(name.reason));
  };
  ExplainCard(card, nonDcf, listener);
}

void ExplainRows(Card& card, bool nonDcf, RowFormat format) {
  RowPrinter rows(format, {"path", "kind", "reason"});
  ScanListener listener;
  listener.folder = [](const ScannedFolder& /*folder*/) {};
  listener.name = [&](const Unlisted& name) {
    rows.Add({{"path", JsonText(card.UserPath(name.path))},
              {"kind", name.kind},
              {"reason", JsonText(name.reason)}});
  };
  ExplainCard(card, nonDcf, listener);
  rows.End();
}

void FolderTable(Card& card, bool nonDcf) {
  Table table({{"FOLDER", Align::kLeft},
               {"FILES", Align::kRight},
               {"COMPANIONS", Align::kRight},
               {"OTHERS", Align::kRight}});
  ScanListener listener;
  listener.name = [](const Unlisted& /*name*/) {};
  listener.folder = [&](const ScannedFolder& folder) {
    table.AddRow({card.Shown(folder.path), std::to_string(folder.files),
                  std::to_string(folder.companions), std::to_string(folder.others)});
  };
  ExplainCard(card, nonDcf, listener);
  Print(table.Text());
}

void FolderRows(Card& card, bool nonDcf, RowFormat format) {
  RowPrinter rows(format, {"folder", "files", "companions", "others"});
  ScanListener listener;
  listener.name = [](const Unlisted& /*name*/) {};
  listener.folder = [&](const ScannedFolder& folder) {
    rows.Add({{"folder", JsonText(card.UserPath(folder.path))},
              {"files", folder.files},
              {"companions", folder.companions},
              {"others", folder.others}});
  };
  ExplainCard(card, nonDcf, listener);
  rows.End();
}

int RunScan(const ScanOptions& options) {
  Card card(options.card, Access::kLook);
  const bool nonDcf = options.card.nonDcf;
  const int whole = TellUnreadable(card, nonDcf);
  if (options.explain && options.IsForPeople()) {
    ExplainLines(card, nonDcf);
  } else if (options.explain) {
    ExplainRows(card, nonDcf, options.Format());
  } else if (options.IsForPeople()) {
    FolderTable(card, nonDcf);
  } else {
    FolderRows(card, nonDcf, options.Format());
  }
  return whole;
}

}  // namespace

void AddScanCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<ScanOptions>();
  CLI::App& scan = *app.add_subcommand("scan", "Count what the folders that are read hold");
  AddRoot(scan, options->card.root);
  scan.add_flag("--explain", options->explain,
                "Every name on the card that is not in the list, and why");
  CLI::Option* const json = scan.add_flag("--json", options->json, "One array of objects");
  CLI::Option* const lines = scan.add_flag("--jsonl", options->jsonLines, "One object a line");
  CLI::Option* const tsv =
      scan.add_flag("--tsv", options->tsv, "Values between tabs, below a line of their names");
  json->excludes(lines)->excludes(tsv);
  lines->excludes(tsv);
  AddNonDcf(scan, options->card.nonDcf);
  scan.callback([options, &action] { action = [options] { return RunScan(*options); }; });
}

}  // namespace flm::tool
