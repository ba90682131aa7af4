// What the tool accepts as the prefix of file names.
#ifndef FILELISTMANAGEMENT_TOOLS_PREFIX_CHECK_H
#define FILELISTMANAGEMENT_TOOLS_PREFIX_CHECK_H

#include <string>

namespace flm::tool {

// Names begin with exactly four capital letters, digits or "_"; the library takes other texts too,
// and then makes names that it does not list. "" when the text is one, else what is wrong, in the
// form that the argument parser expects of a check.
std::string PrefixError(const std::string& prefix);

}  // namespace flm::tool

#endif
