// What surrounds the model: a picture of the cards in memory, the preference store, the clock, and
// the storage operations that the catalogue and the list use, each as a walk over the picture.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_WORLD_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_WORLD_H

#include <ctime>
#include <map>
#include <string>
#include <vector>

class CQFileListItem;

namespace flm_model {

class ModelCatalogue;

// A path without doubled slashes. Paths with "." or ".." and paths outside the folder of all cards
// are refused, by the model and by the guarded system calls alike.
struct Place {
  bool allowed = false;
  bool mustBeFolder = false;
  std::string path;
};
Place ResolvePlace(const std::string& base, const std::string& path);

// The order of a listing: names of 12 characters by what follows their four free characters.
bool ListingLess(const std::string& a, const std::string& b);

struct Node {
  bool folder = false;
  unsigned int mode = 0;
  long long time = 0;
  bool timeKnown = false;  // else the time is asked of the card itself
  bool contentKnown = false;
  std::string content;
  size_t size = 0;
};

// The folder of all cards as the model believes it to be.
class Picture {
 public:
  void Read(const std::string& base);  // from the disk, once per round
  const std::string& Base() const { return base_; }
  const Node* Find(const std::string& path) const;
  Node* Find(const std::string& path);
  // The names in a folder in listing order; names that compare equal stand in the platform's order.
  bool List(const std::string& path, std::vector<std::string>* names) const;
  bool HasEntries(const std::string& path) const;
  bool MakeFolder(const std::string& path);
  bool Remove(const std::string& path);  // a file, or an empty folder
  Node* WriteFile(const std::string& path, const std::string& content);
  long long TimeOf(const std::string& path) const;
  // One line for each place that differs from the disk; empty when none does.
  std::string DifferenceFromDisk() const;

 private:
  bool MayChangeFolderOf(const std::string& path) const;
  std::vector<std::string> Children(const std::string& folder) const;

  std::string base_;
  std::map<std::string, Node> nodes_;
};

// What the model does not know about the operation at hand, and is therefore not compared.
struct Doubt {
  bool result = false;
  bool out = false;
  bool flushes = false;
};

struct World {
  Picture picture;
  long preference = -1;
  time_t now = 0;
  int syncs = 0;
  int flushes = 0;
  ModelCatalogue* current = nullptr;
  Doubt doubt;

  bool IsExist(const std::string& path) const { return picture.Find(path) != nullptr; }
  bool IsProtect(const std::string& path) const;
  int SetProtect(const std::string& path, bool on);
  int RemoveFile(const std::string& path, bool flush);
  int MakeDirectory(const std::string& path);
  bool IsDirEmpty(const std::string& path) const;
  unsigned int TimeOf(const std::string& path) const;
  int FillTime(CQFileListItem* item, bool withProtection) const;
};

// Text as C sees it.
std::string Format(const char* format, ...) __attribute__((format(printf, 1, 2)));
std::string Cut(const std::string& text, size_t bytes);         // what a buffer of `bytes` holds
void Put(char* out, int size, const std::string& text);         // into a caller's buffer
int NumberAt(const std::string& text, size_t at, size_t size);  // decimal value of a part
std::string Upper(std::string text);

// Arithmetic on numbers that callers hand in: it wraps at 32 bits.
inline int WrappedSum(int a, int b) {
  return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b));
}

}  // namespace flm_model

#endif
