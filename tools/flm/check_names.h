// Why the list does not take a name, in words.
#ifndef FILELISTMANAGEMENT_TOOLS_CHECK_NAMES_H
#define FILELISTMANAGEMENT_TOOLS_CHECK_NAMES_H

#include <string>

namespace flm::tool {

// "" for a name that is taken. Names are given as they stand on the card.
std::string FolderNameProblem(const std::string& name);
std::string FileNameProblem(const std::string& name);  // of a numbered folder
std::string FreeNameProblem(const std::string& name);  // of the CAMERA folder

// Whether a name that is taken has free characters beyond capital letters, digits and "_".
bool HasForeignCharacters(const std::string& name);

// The kind of a file of a numbered folder whose name is taken, as dcf_name.h tells kinds apart.
int KindOfName(const std::string& name);

// The name under which the list will look for a file of a numbered folder.
std::string NameInList(const std::string& name);

}  // namespace flm::tool

#endif
