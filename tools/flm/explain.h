// Every name on a card, sorted into those that are in the list, those that are not, and why.
#ifndef FILELISTMANAGEMENT_TOOLS_EXPLAIN_H
#define FILELISTMANAGEMENT_TOOLS_EXPLAIN_H

#include <functional>
#include <string>

#include "card.h"

namespace flm::tool {

struct ScannedFolder {
  std::string path;  // library path, as the folder is named on the card
  int files = 0;     // in the list
  int companions = 0;
  int others = 0;  // names that are not in the list, for whatever reason
};

struct Unlisted {
  std::string path;    // library path
  const char* kind;    // what sort of reason, as JSON names it
  std::string reason;  // a raw text; names in it come from the card
};

struct ScanListener {
  std::function<void(const ScannedFolder&)> folder;  // after the names in it
  std::function<void(const Unlisted&)> name;
};

// Walks the whole card, by name. The list itself says which names are in it; for the others the
// library's rules of names say why not.
void ExplainCard(Card& card, bool nonDcf, const ScanListener& listener);

}  // namespace flm::tool

#endif
