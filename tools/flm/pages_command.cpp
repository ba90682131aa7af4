// flm pages: the files as thumbnail screens see them.
#include <CLI/CLI.hpp>
#include <memory>
#include <nlohmann/json.hpp>

#include "base/fixed_sizes.h"
#include "commands.h"
#include "entries.h"
#include "failure.h"
#include "output.h"
#include "rows.h"
#include "text.h"
#include "unreadable.h"

namespace flm::tool {
namespace {

constexpr int kEveryPage = -1;

struct PagesOptions {
  CardOptions card;
  int size = 0;
  int page = kEveryPage;
  bool json = false;
};

using Items = std::vector<CQFileListItem>;

Items ReadPage(Card& card, int page, int size) {
  Items items(static_cast<size_t>(size));
  const int filled = card.List().GetPageAt(page, items.data());
  if (filled < 0) throw Failure("cannot read page " + std::to_string(page));
  items.resize(static_cast<size_t>(filled));
  return items;
}

void PrintPage(const Card& card, int page, int pages, int size, const Items& items) {
  PrintLine("page " + std::to_string(page) + " of " + std::to_string(pages));
  int index = page * size;
  for (const CQFileListItem& item : items) {
    PrintLine("  " + std::to_string(index) + "  " + card.Shown(item.filePath));
    ++index;
  }
}

nlohmann::ordered_json PageJson(const Card& card, int page, int size, const Items& items) {
  nlohmann::ordered_json value;
  value["page"] = page;
  value["files"] = nlohmann::ordered_json::array();
  int index = page * size;
  for (const CQFileListItem& item : items) {
    value["files"].push_back({{"index", index}, {"path", JsonText(card.UserPath(item.filePath))}});
    ++index;
  }
  return value;
}

int RunPages(const PagesOptions& options) {
  Card card(options.card, Access::kLook);
  const int whole = TellUnreadable(card);
  CQFileList& list = card.List();
  list.InitPage(options.size);
  const int pages = list.GetPageTotalCount();
  if (options.page >= pages) {
    throw Failure(
        "no page " + std::to_string(options.page) + ": the card has " + Counted(pages, "page"),
        whole == kStatusDone ? kStatusNothing : whole);
  }
  const int first = options.page == kEveryPage ? 0 : options.page;
  const int end = options.page == kEveryPage ? pages : options.page + 1;
  RowPrinter rows(RowFormat::kJson, {});
  for (int page = first; page < end && !OutputIsGone(); ++page) {
    const Items items = ReadPage(card, page, options.size);
    if (options.json) {
      rows.Add(PageJson(card, page, options.size, items));
    } else {
      PrintPage(card, page, pages, options.size, items);
    }
  }
  if (options.json) rows.End();
  return whole;
}

}  // namespace

void AddPagesCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<PagesOptions>();
  CLI::App& pages = *app.add_subcommand("pages", "List the files page by page");
  AddRoot(pages, options->card.root);
  pages.add_option("--size", options->size, "Files on a page")
      ->required()
      ->check(CLI::Range(1, kMaxFiles));
  pages.add_option("--page", options->page, "Only this page, counted from 0")
      ->check(CLI::Range(0, kMaxFiles));
  pages.add_flag("--json", options->json, "One array of pages");
  pages.callback([options, &action] { action = [options] { return RunPages(*options); }; });
}

}  // namespace flm::tool
