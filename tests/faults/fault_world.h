// One list on one card, what a run did with it, and what is said about that afterwards.
#ifndef FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_WORLD_H
#define FILELISTMANAGEMENT_TESTS_FAULTS_FAULT_WORLD_H

#include <iosfwd>
#include <string>
#include <vector>

#include "filelist/CQFileList.h"
#include "tests/faults/fault_card.h"
#include "tests/faults/fault_gate.h"

namespace flm_faults {

// A file as a list names it.
struct Listed {
  std::string path;  // below the root
  std::string objects;
};

std::vector<Listed> FilesOf(CQFileList& list, const std::string& root);

// Everything that an operation handed out. Taking it down allocates nothing.
class Record {
 public:
  void Result(int result) {
    if (results_ < kMost) result_[results_++] = result;
  }
  void Text(const char* text, size_t size);
  void Item(const CQFileListItem& item) {
    Text(item.filePath, sizeof(item.filePath));
    Text(item.objectPath, sizeof(item.objectPath));
  }

  int Results() const { return results_; }
  int At(int i) const { return result_[i]; }
  int Last() const { return results_ == 0 ? 0 : result_[results_ - 1]; }
  int Texts() const { return texts_; }
  const char* TextAt(int i) const { return text_[i]; }
  bool IsSound() const {
    return sound_;
  }  // every text had an end, and nothing stood behind its room
  void Broken() { sound_ = false; }
  bool operator==(const Record& other) const;

 private:
  static constexpr int kMost = 240;
  static constexpr size_t kTextSize = 128;

  int results_ = 0;
  int texts_ = 0;
  bool sound_ = true;
  int result_[kMost];
  char text_[kMost][kTextSize];
};

// Room for the path of a new file, with a fence behind it.
struct NewName {
  NewName();
  bool IsWhole() const;
  char text[396];
  char fence[32];
};

struct World {
  explicit World(FaultCard& onCard);
  ~World();
  World(const World&) = delete;
  World& operator=(const World&) = delete;

  // Scans without a fault; the count of files.
  int Scan(int stopAtFirst = 0);
  // The whole item of a file, without a fault; the path below the root.
  CQFileListItem ItemOf(const std::string& relative);
  std::string Below(const std::string& path) const;

  FaultCard& card;
  CQFileList list;
  CQFileListItem item;
  Record record;
};

// A complaint about a run; empty for none.
using Complaint = std::string;

// Where a list may say something else than a fresh scan of the card, and why.
enum Excuse : unsigned int {
  kNoExcuse = 0,
  // A folder that cannot be opened or read to its end lists as empty, also for lack of memory, and
  // the scan of the card goes on: one bad folder must not hide the others.
  kUnreadFolder = 1,
  // A companion waits only for a picture whose status says that it is there; it is a file of its
  // own otherwise.
  kLoneCompanion = 2,
  // A companion that cannot be removed never changes the result of its file: it is left on the
  // card, and the next scan lists it.
  kLeftCompanion = 4,
  // A name is entered into the list when it is given out, before the application writes the file.
  kReservedName = 8,
  // Without memory for its record a name is given out and counted all the same: the number is free,
  // and taking the picture must not depend on the list.
  kNameWithoutRecord = 16,
  // A scan that stopped early holds the folders that were read since.
  kReadInPart = 32,
  // A file whose status cannot be had counts as not there and as not protected: the list forgets it
  // when it cannot be removed, and the next scan finds it again.
  kBelievedGone = 64,
};

struct Scenario;

// What a run under a fault left behind.
struct Aftermath {
  const Scenario& scenario;
  const Fault& fault;
  const Counted& counted;
  const Record& clean;  // of the run without a fault
  World& world;
  const Tree& before;
  const Tree& now;
  std::vector<Listed> listed;
  std::vector<Listed> onCard;  // as a fresh list scans it
};

struct Scenario {
  const char* name;
  std::vector<FaultCard::Entry> (*files)();
  void (*prepare)(World& world);                             // without a fault
  void (*act)(World& world);                                 // under it
  Complaint (*judge)(const Aftermath& after);                // of the results
  bool (*mayGo)(World& world, const std::string& path);      // files the operation is about
  bool (*mayChange)(World& world, const std::string& path);  // made, written or changed in mode
  unsigned int excuses;
};

// Tells a failing test which scenario it was.
void PrintTo(const Scenario& scenario, std::ostream* out);

const std::vector<Scenario>& Scenarios();

// Whether the judgement ends with one more scan by the list itself, which may make a folder.
bool ScansAgain(const Scenario& scenario, const Fault& fault);

// Everything that is wrong after a run.
Complaint Judge(const Aftermath& after);

}  // namespace flm_faults

#endif
