// flm browse: a contact sheet of the card on the terminal.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_OPTIONS_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_OPTIONS_H

#include "card.h"

namespace flm::tool {

// How pictures are drawn.
enum class Graphics { kAuto, kSixel, kKitty, kBlocks };

struct BrowseOptions {
  CardOptions card;
  Graphics graphics = Graphics::kAuto;
  bool readOnly = false;  // nothing on the card is changed
};

// Shows the sheet until the user leaves it. In a build without the libraries that it needs it
// throws Failure.
int RunBrowse(const BrowseOptions& options);

}  // namespace flm::tool

#endif
