// Directory and file numbers as the user writes and reads them.
#ifndef FILELISTMANAGEMENT_TOOLS_NUMBERS_H
#define FILELISTMANAGEMENT_TOOLS_NUMBERS_H

#include <string>

namespace flm::tool {

struct FileNumber {
  int folder = 0;  // 100 to 999, 0 for none yet
  int file = 0;    // 0 to 9999
};

// Reads "105/0020". Throws Failure for anything else, and for 999/9999, behind which no number
// follows and which the library would take for a fresh start.
FileNumber ParseNumber(const std::string& text);

std::string NumberText(const FileNumber& number);  // "105/0020", "none" without a numbered folder

// The same as one number, which is how the library and the preference store keep it.
long ToFileIndex(const FileNumber& number);
FileNumber FromFileIndex(long index);

}  // namespace flm::tool

#endif
