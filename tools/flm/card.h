// One card, opened for a command: the library's list of a folder, and the ways between the paths
// that the library uses and those that the user wrote.
#ifndef FILELISTMANAGEMENT_TOOLS_CARD_H
#define FILELISTMANAGEMENT_TOOLS_CARD_H

#include <string>
#include <vector>

#include "filelist/CQFileList.h"

namespace flm::tool {

enum class Access {
  kLook,    // nothing on the card is made or changed; there must be a DCIM folder
  kChange,  // files may change, missing folders are made; there must be a DCIM folder
  kRecord   // as kChange, and an empty card gets its DCIM folder
};

struct CardOptions {
  std::string root;             // the card's folder, as the user wrote it
  bool nonDcf = true;           // take the CAMERA folder too
  std::string prefix = "QVX_";  // of new files
  bool whole = false;           // refuse a card with a part that cannot be read
};

// The tool works inside the card's folder and tells the library that the root is ".", so that
// neither the length nor the words of the folder's own path matter. There is one card a process.
// Library paths ("./DCIM/100PHOTO/QVX_0001.JPG") are also right for system calls.
class Card {
 public:
  // Opens and scans the card. Throws Failure with a message that names what is wrong.
  Card(const CardOptions& options, Access access);
  ~Card();
  Card(const Card&) = delete;
  Card& operator=(const Card&) = delete;

  CQFileList& List() { return *list_; }
  int Count() { return list_->GetCount(); }

  // A library path as the user would write it, with the root in front; and the same made printable.
  std::string UserPath(const std::string& libraryPath) const;
  std::string Shown(const std::string& libraryPath) const;
  // The same for a list of many: the path goes into `line`, whose room is used again.
  void UserPathInto(const char* libraryPath, std::string& line) const;

  // A path that the user wrote, absolute, beginning with the root as given, or relative to the card
  // or to its DCIM folder, as a library path; "" for a path outside the card.
  std::string LibraryPath(const std::string& given) const;

  // A path relative to the folder that the user was in, made absolute.
  std::string FromOutside(const std::string& given) const;

  // Throws Failure when a numbered folder or the print order is there and cannot be read: what the
  // list does not know of would be numbered over or dropped.
  void RequireReadable() const;

  // Throws Failure when a file or folder of the card is, or lies behind, a link that leads out of
  // it. One that is not there leads nowhere.
  void RequireOnCard(const std::string& libraryPath) const;

  // The same for the folders of the files and of the print order. Changing cards have done it.
  void RequireTreesOnCard() const;

  // Removes the folders of the card that this process made and that are still empty.
  void RemoveNewEmptyFolders() const;

 private:
  void Enter(Access access);
  void Scan(const CardOptions& options, Access access);

  std::string root_;     // as given, without slashes at the end
  std::string outside_;  // where the user was
  std::string inside_;   // the card's real path
  bool hadTree_ = false;
  bool hadMisc_ = false;
  CQFileList* list_ = nullptr;  // the manager's
};

// Whether anything, of whatever kind, has this name.
bool Exists(const std::string& path);
bool IsFolder(const std::string& path);
bool IsLink(const std::string& path);

// A text as the library's operations take it; valid while the string lives and is not changed.
inline char* Arg(std::string& text) { return text.data(); }

}  // namespace flm::tool

#endif
