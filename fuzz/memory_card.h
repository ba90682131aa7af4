// A file system in memory in the place of the system's own calls, so that a fuzzer does thousands
// of operations in the time that a real card needs for one, and nothing on the machine is touched.
//
// Folders, regular files, links and pipes; names of any bytes. Folders are read in the order in
// which their entries were made. Time stands still, and flushing does nothing.
#ifndef FILELISTMANAGEMENT_FUZZ_MEMORY_CARD_H
#define FILELISTMANAGEMENT_FUZZ_MEMORY_CARD_H

#include <sys/stat.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/fail.h"

namespace flm_fuzz {

constexpr char kRoot[] = "/mnt/mmc";        // the card, one of the roots that flat functions know
constexpr char kNeighbour[] = "/mnt/mmc2";  // a folder beside it that is no part of the card

class MemoryCard {
 public:
  // The only one; replaces the system's calls when it is asked for first.
  static MemoryCard& Get();

  // An empty card beside an empty neighbour.
  void Clear();
  // What there is now, and going back to it. Restore does nothing when nothing has changed.
  void Keep();
  void Restore();
  // Changes since the card was made or restored; a caller that sets something aside compares them.
  int Changes() const { return changes_; }

  // Each makes the folders above. False, and nothing is changed, where there is something already
  // or when a name is none that a file system takes.
  bool MakeFolder(std::string_view path);
  bool MakeFile(std::string_view path, std::string_view content = "x");
  bool MakeLink(std::string_view path, std::string_view target);
  bool MakePipe(std::string_view path);
  void SetTime(std::string_view path, int64_t time);
  void SetReadOnly(std::string_view path);  // a file: protected; a folder: its entries stay

  bool Exists(std::string_view path) const;  // links are followed
  std::string Content(std::string_view path) const;

  // No operation takes more bytes from a file at once.
  void LimitReads(size_t bytes) { readLimit_ = bytes; }
  // Every descriptor and folder that was opened was closed again.
  bool AllClosed() const;

 private:
  friend struct MemoryCalls;

  static constexpr int kNone = -1;
  static constexpr size_t kMaxNodes = 512;
  static constexpr size_t kMaxOpen = 8;

  enum class Kind : uint8_t { kFolder, kFile, kLink, kPipe };
  struct Node {
    Kind kind = Kind::kFolder;
    mode_t mode = 0;
    int parent = kNone;
    int first = kNone;  // of a folder's entries
    int last = kNone;
    int next = kNone;  // entry of the same folder
    int64_t time = 0;
    uint32_t hash = 0;  // of the name
    std::string name;
    std::string content;  // a link's: its target
  };
  struct OpenThing {
    bool used = false;
    int node = kNone;
    int entry = kNone;    // of a folder: the next one
    int dots = 0;         // "." and ".." handed out already
    size_t position = 0;  // in a file
  };

  MemoryCard();
  int Walk(std::string_view path, bool followLast, int depth) const;
  int Find(std::string_view path, bool followLast) const { return Walk(path, followLast, 0); }
  int EntryOf(int folder, std::string_view name) const;
  int Add(int folder, std::string_view name, Kind kind, mode_t mode);
  int AddPath(std::string_view path, Kind kind, mode_t mode);
  int RemoveNode(int node);
  bool IsOnCard(int node) const;
  OpenThing* Opened(int node);

  std::vector<Node> nodes_;  // the first used_ of them; a removed one stays unused
  std::vector<Node> kept_;
  int used_ = 0;
  int keptUsed_ = 0;
  int changes_ = 0;
  int root_ = kNone;
  size_t readLimit_ = SIZE_MAX;
  OpenThing open_[kMaxOpen];
};

}  // namespace flm_fuzz

#endif
