// Folders of the card that the list takes and that cannot be opened. The scan passes over their
// files without a word, so whatever counts on every file must know of them.
#ifndef FILELISTMANAGEMENT_TOOLS_UNREADABLE_H
#define FILELISTMANAGEMENT_TOOLS_UNREADABLE_H

#include <string>
#include <vector>

namespace flm::tool {

struct Unreadable {
  std::string path;  // library path
  int error;         // why
};

// Folders below DCIM, in the order of their names.
std::vector<Unreadable> UnreadableFolders();

// 0 when the folder can be listed and its files reached, else the error number.
int FolderError(const std::string& folder);

}  // namespace flm::tool

#endif
