// A card that is the same before every fault: what a run took away, made or changed is put right.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_CARD_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_CARD_H

#include <sys/stat.h>

#include <map>
#include <string>
#include <vector>

#include "tests/support/card.h"

namespace flm_faults {

// What shows that a file was left alone. Every file of a fresh card is years old, so that writing
// to it cannot go unseen.
struct Stamp {
  ino_t inode;
  off_t size;
  time_t modified;
  mode_t mode;
};

using Tree = std::map<std::string, Stamp>;  // by the path below the root; folders end in '/'

class FaultCard {
 public:
  // A file to begin with; a path that ends in '/' is a folder.
  struct Entry {
    std::string path;
    std::string content = "picture";
    bool isProtected = false;
  };

  explicit FaultCard(const std::vector<Entry>& entries);

  const std::string& Root() const { return card_.Root(); }
  std::string Path(const std::string& relative) const { return card_.Path(relative); }
  std::string Read(const std::string& relative) const { return card_.ReadFile(relative); }
  void Write(const std::string& relative, const std::string& content);

  const Tree& Fresh() const { return fresh_; }
  Tree Look() const;  // the card as it is now
  void Restore(const Tree& now);

 private:
  void Put(const Entry& entry);

  flm_test::Card card_;
  std::vector<Entry> entries_;
  Tree fresh_;
};

// Whether a file of the one tree is in the other, with its bytes.
bool HasSame(const Tree& tree, const Tree::value_type& file);

}  // namespace flm_faults

#endif
