// What `flm check` finds: collected by the parts of the check, printed by the command.
#ifndef FILELISTMANAGEMENT_TOOLS_FINDINGS_H
#define FILELISTMANAGEMENT_TOOLS_FINDINGS_H

#include <string>
#include <vector>

#include "card.h"

namespace flm::tool {

struct Finding {
  const char* kind;    // what sort of trouble, as JSON names it
  std::string path;    // library path
  std::string reason;  // a raw text; names in it come from the card
};

using Findings = std::vector<Finding>;

// Kinds of findings.
constexpr char kFolderName[] = "folder-name";  // a folder that is not taken, or not as it is named
constexpr char kFileName[] = "file-name";      // a file that is not listed, or not as it is named
constexpr char kCompanion[] = "companion";     // a companion without its picture
constexpr char kDuplicate[] = "duplicate";     // files of one number in a folder
constexpr char kEqualFolders[] = "equal-folders";  // folders of one number
constexpr char kAlikeFolders[] = "alike-folders";  // folders that lookups take for one another
constexpr char kUnreadable[] = "unreadable";       // a folder that cannot be opened
constexpr char kPrintOrder[] = "print-order";      // an entry of the print order without effect
constexpr char kProtection[] = "protection";       // the mount lets no file be protected
constexpr char kLimit[] = "limit";                 // the end of the numbers or of the list is near

// Folders and files below DCIM.
void CheckFolders(Findings& findings);

// The print order against the files of the list, given by their library paths.
void CheckPrintOrder(const std::vector<std::string>& paths, Findings& findings);

// How many lines of it are not understood and would be lost when it is written again. Lines about
// files that are gone are not among them.
int CountDroppedLines(const std::vector<std::string>& paths);

}  // namespace flm::tool

#endif
