// flm browse: the command line. The screen itself is left out of builds without its libraries.
#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <string>

#include "browse_options.h"
#include "commands.h"
#include "global_options.h"

namespace flm::tool {
namespace {

const std::map<std::string, Graphics> kWays = {{"auto", Graphics::kAuto},
                                               {"sixel", Graphics::kSixel},
                                               {"kitty", Graphics::kKitty},
                                               {"blocks", Graphics::kBlocks}};

}  // namespace

void AddBrowseCommand(CLI::App& app, Action& action) {
  const auto options = std::make_shared<BrowseOptions>();
  const auto way = std::make_shared<std::string>("auto");
  CLI::App& browse = *app.add_subcommand("browse", "Look at the pictures on the terminal");
  AddFooter(
      browse,
      "Arrows and page keys move, space selects, p protects, d deletes, o orders prints, ? lists "
      "every key, q saves the print order and leaves.");
  AddRoot(browse, options->card.root);
  browse
      .add_option("--graphics", *way,
                  "How pictures are drawn: auto is what the terminal is known for, blocks are "
                  "coloured characters")
      ->check(CLI::IsMember({"auto", "sixel", "kitty", "blocks"}));
  AddNonDcf(browse, options->card.nonDcf);
  browse.callback([options, way, &action] {
    options->graphics = kWays.at(*way);
    options->readOnly = Globals().readOnly;
    action = [options] { return RunBrowse(*options); };
  });
}

}  // namespace flm::tool
