// A card and its catalogue, for the tests of CQDCFList.
#ifndef FILELISTMANAGEMENT_TESTS_DCF_LIST_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_DCF_LIST_FIXTURE_H

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "base/fixed_sizes.h"
#include "dcf/CQDCFList.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"
#include "tests/support/fake_folders.h"

namespace flm_test {

using Names = std::vector<std::string>;

constexpr char kUntouched[] = "untouched";  // what stands in every buffer before a call
constexpr unsigned int kNoTime = 4242;      // what stands in a time before a call

// What a walk answered: its result and the texts it left, card paths without the root.
struct Step {
  int result;
  std::string path;
  std::string object = kUntouched;
  bool operator==(const Step& other) const {
    return result == other.result && path == other.path && object == other.object;
  }
};
inline std::ostream& operator<<(std::ostream& out, const Step& step) {
  return out << "{" << step.result << ", " << step.path << ", " << step.object << "}";
}

// A card with its catalogue, which is not scanned until Scan. Flushing the whole machine is left
// out, since it can take seconds.
class CardCatalogue {
 public:
  explicit CardCatalogue(int mode = 4) {
    flm::Os().Sync = [] {};
    list.Create();
    list.SetBaseURI(card.Root().c_str());
    list.SetMode(mode);
  }
  ~CardCatalogue() { flm::ResetOsCalls(); }
  CardCatalogue(const CardCatalogue&) = delete;
  CardCatalogue& operator=(const CardCatalogue&) = delete;

  // Makes the files and scans the card.
  int With(const Names& files) {
    for (const std::string& file : files) card.MakeFile(file);
    return Scan();
  }
  int Scan() { return list.Listup(0, false); }
  int ScanNewest() { return list.Listup(1, false); }
  int ScanWithCamera() { return list.Listup(0, true); }

  Text Path(const std::string& relative) const { return Text(card.Path(relative)); }
  // What a path is called on this card; the text itself when it lies elsewhere.
  std::string Relative(const std::string& path) const {
    const std::string start = card.Root() + "/";
    return path.compare(0, start.size(), start) == 0 ? path.substr(start.size()) : path;
  }

  Step First(bool setCursor = true) {
    return Take([&](char* out, char* object) {
      return list.GetFirst(out, flm::kPathSize, object, flm::kPathSize, setCursor, &time);
    });
  }
  Step Next() {
    return Take([&](char* out, char* object) {
      return list.GetNext(out, flm::kPathSize, object, flm::kPathSize, &time);
    });
  }
  Step Prev() {
    return Take([&](char* out, char* object) {
      return list.GetPrev(out, flm::kPathSize, object, flm::kPathSize);
    });
  }
  Step Last() {
    return Take([&](char* out, char* object) {
      return list.GetLast(out, flm::kPathSize, object, flm::kPathSize);
    });
  }
  Step Cur() {
    return Take([&](char* out, char* object) {
      return list.GetCur(out, flm::kPathSize, object, flm::kPathSize);
    });
  }
  Step At(int position) {
    return Take([&](char* out, char* object) {
      return list.GetAt(position, out, flm::kPathSize, object, flm::kPathSize);
    });
  }
  Step BitFirst(int bit) {
    return Take([&](char* out, char*) { return list.GetBitFirst(out, flm::kPathSize, bit); });
  }
  Step BitNext(int bit) {
    return Take([&](char* out, char*) { return list.GetBitNext(out, flm::kPathSize, bit); });
  }
  Step BitPrev(int bit) {
    return Take(
        [&](char* out, char* obj) { return list.GetBitPrev(out, flm::kPathSize, bit, obj); });
  }
  Step BitLast(int bit) {
    return Take([&](char* out, char*) { return list.GetBitLast(out, flm::kPathSize, bit); });
  }
  // Names the next file; path is the buffer, object stays untouched.
  Step New(const char* suffix = "PHOTO", bool noSeries = false, const char* prefix = "QVX_",
           const char* ext = "JPG") {
    return Take([&](char* out, char*) {
      return list.GetNewFileName(prefix, ext, out, flm::kNewNameSize, noSeries, suffix);
    });
  }

  // Every file that is held, in order; the cursor stays.
  Names Held() {
    Names names;
    for (int i = 0;; ++i) {
      const Step step = At(i);
      if (step.result != 0) return names;
      names.push_back(step.path);
    }
  }
  // Every file that a walk from the first comes by.
  Names Walked() {
    Names names;
    for (Step step = First(); step.result == 0; step = Next()) names.push_back(step.path);
    return names;
  }
  // Every file that a walk back from the last comes by.
  Names WalkedBack() {
    Names names;
    for (Step step = Last(); step.result == 0; step = Prev()) names.push_back(step.path);
    return names;
  }
  // The slot of a folder by its name; -1 when no slot carries it.
  int SlotOf(const std::string& folder) {
    return list.GetDidx(0, Path("DCIM/" + folder + "/QVX_0001.JPG"));
  }
  int SetCur(const std::string& relative) { return list.SetCurFile(Path(relative)); }
  int SetBit(const std::string& relative, int bit) {
    return list.SetCustomBit(Path(relative), bit, true);
  }
  bool Bit(const std::string& relative, int bit) { return list.GetCustomBit(Path(relative), bit); }
  int Info(const std::string& relative, int byte) {
    return list.GetCustomInfo(Path(relative), byte);
  }
  DCFItem* Find(const std::string& relative) { return list.FindItem(Path(relative)); }

  Card card;
  CQDCFList list;
  unsigned int time = kNoTime;  // what the last walk gave

 private:
  template <typename Walk>
  Step Take(Walk walk) {
    char out[flm::kNewNameSize] = {};
    char object[flm::kNewNameSize] = {};
    std::strcpy(out, kUntouched);
    std::strcpy(object, kUntouched);
    time = kNoTime;
    const int result = walk(out, object);
    return {result, Relative(out), Relative(object)};
  }
};

// Folder listings that exist in no folder: cards of any size, without making their files. Paths are
// relative to the root. Lives as long as the CardCatalogue it belongs to.
class FakeListings {
 public:
  explicit FakeListings(const Card& card) {
    folders.clear();
    root = card.Root() + "/";
    FakeFolders::Install([](const std::string& whole, Names& names) {
      const auto found = folders.find(whole.substr(std::min(whole.size(), root.size())));
      if (found == folders.end()) return false;
      names = found->second;
      return true;
    });
  }
  // Adds a folder below "DCIM" with `count` files QVX_0001.JPG and so on.
  void AddFolder(const std::string& name, int count) {
    folders["DCIM"].push_back(name);
    Names& files = folders["DCIM/" + name];
    for (int i = 1; i <= count; ++i) {
      const std::string digits = std::to_string(10000 + i).substr(1);
      files.push_back("QVX_" + digits + ".JPG");
    }
  }

  static inline std::map<std::string, Names> folders;
  static inline std::string root;
};

}  // namespace flm_test

#endif
