// The words in which the tests tell their stories: make a card with these folders and files, do one
// thing, look at what is there now. A step that cannot be done fails the test at the line that
// asked for it.
#ifndef FILELISTMANAGEMENT_TESTS_SUPPORT_CARD_H
#define FILELISTMANAGEMENT_TESTS_SUPPORT_CARD_H

#include <ctime>
#include <string>
#include <vector>

namespace flm_test {

// The line of the test that asked for a step; filled in by the compiler.
struct Where {
  Where(const char* f = __builtin_FILE(), int l = __builtin_LINE()) : file(f), line(l) {}
  const char* file;
  int line;
};

// A text to hand to an operation that takes char*: a copy of its own, which it may change.
class Text {
 public:
  Text(const std::string& text) : chars_(text.begin(), text.end()) { chars_.push_back('\0'); }
  Text(const char* text) : Text(std::string(text)) {}
  operator char*() { return chars_.data(); }
  std::string Now() const { return chars_.data(); }  // the text as it stands

 private:
  std::vector<char> chars_;
};

// Arg("DCIM") in the place of a char* argument; good until the end of the statement.
inline Text Arg(const std::string& text) { return Text(text); }

// A storage card: a folder that is the root of everything, removed with all its content at the end.
// Paths are given relative to the root ("DCIM/100PHOTO/QVX_0001.JPG").
class Card {
 public:
  // A new folder with a short name, since a whole path has no more than 127 characters.
  Card();
  // A root at a fixed place such as /mnt/mmc, emptied now and at the end. Only below
  // tests/support/with-cards, where the place is private to the program.
  explicit Card(const std::string& root);
  ~Card();
  Card(const Card&) = delete;
  Card& operator=(const Card&) = delete;

  const std::string& Root() const { return root_; }
  // The whole path of a place on the card.
  std::string Path(const std::string& relative) const { return root_ + "/" + relative; }

  // Makes a folder with the folders above it. An existing one is fine.
  void MakeDir(const std::string& relative, Where where = Where());
  // Makes a file, and the folders above it; mtime 0 leaves the time of making.
  void MakeFile(const std::string& relative, const std::string& content = "x", time_t mtime = 0,
                Where where = Where());
  // Makes `count` files dir/<prefix><number, four digits>.<ext>, numbered from `first`.
  void MakeFiles(const std::string& dir, const std::string& prefix, int first, int count,
                 const std::string& ext, Where where = Where());
  // Replaces the content of a file, or makes it.
  void WriteFile(const std::string& relative, const std::string& content, Where where = Where());
  // Clears or sets the owner-write permission and nothing else.
  void SetReadOnly(const std::string& relative, bool readOnly, Where where = Where());
  void SetMode(const std::string& relative, unsigned int mode, Where where = Where());
  void SetTime(const std::string& relative, time_t mtime, Where where = Where());
  // Removes a file or a folder with its content, as pulling it off the card would.
  void Remove(const std::string& relative, Where where = Where());

  bool Exists(const std::string& relative) const;  // links are not followed
  bool IsReadOnly(const std::string& relative) const;
  std::string ReadFile(const std::string& relative, Where where = Where()) const;
  // Relative paths of everything on the card, sorted, folders with a '/' at the end.
  std::vector<std::string> Tree() const;

 private:
  void Empty();

  std::string root_;
  bool temporary_;  // the root itself goes at the end
};

// Gives the preference store a file of its own, in a new folder, until the end of its life. Every
// test has one from the start; a test that wants another fresh store makes one more.
class ScopedPreference {
 public:
  ScopedPreference();
  ~ScopedPreference();
  ScopedPreference(const ScopedPreference&) = delete;
  ScopedPreference& operator=(const ScopedPreference&) = delete;

  std::string File() const { return card_.Path("preferences"); }

 private:
  Card card_;
  std::string before_;
};

// Sets an environment variable until the end of its life; a null value unsets it.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value);
  ~ScopedVariable();
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  std::string name_;
  std::string before_;
  bool wasSet_;
};

// File permissions do not hold back the superuser. While one of these lives, the process acts as a
// user whom they hold back; Held() is false where the system does not let it.
class OrdinaryUser {
 public:
  OrdinaryUser();
  ~OrdinaryUser();
  OrdinaryUser(const OrdinaryUser&) = delete;
  OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  bool Held() const { return held_; }

 private:
  bool changed_ = false;
  bool held_ = true;
};

// Number of open descriptors of the process, for showing that none was lost.
int FdCount();

}  // namespace flm_test

#endif
