// Random changes of whole catalogues, with hundreds of files in few folders and with hundreds of
// folders; after each of them look-ups, positions, marks and the walks over marked files are held
// to plain walks over the records.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/file_list_item.h"
#include "tests/dcf/list_fixture.h"
#include "tests/dcf/plain_walks.h"
#include "tests/model/model_choice.h"

namespace {

using flm_model::Choice;
using flm_test::CardCatalogue;
using flm_test::Names;
using flm_test::PlainFolder;
using flm_test::PlainFolders;
using flm_test::PlainPlace;

constexpr int kQuestions = 8;  // of each kind after a step
constexpr int kEnough = 600;   // files, beyond which none is added

const Names kPrefixes = {"QVX_", "QVX_", "QVX_", "CAM_", "HDE_"};
const Names kExtensions = {"JPG", "JPG", "JPG", "MP4", "MP3"};

std::string Numbered(Choice& choice, int number) {
  std::string digits = std::to_string(10000 + number % 10000).substr(1);
  return choice.From(kPrefixes) + digits + "." + choice.From(kExtensions);
}

// A card of the given folders with the changes that are made on it and the reference. The folders
// are given in the order of their slots, and none of them is ever without a file, so that the walk
// over all records can be cut into folders.
class RandomCatalogue {
 public:
  RandomCatalogue(uint64_t seed, const Names& folders) : choice_(seed), names_(folders) {}

  void Fill(const std::string& folder, int files) {
    for (int i = 0; i < files; ++i) {
      int number = choice_.Chance(85) ? i + 1 : i / 2 + 1;
      std::string name = folder == "CAMERA" ? "free name " + std::to_string(i) + ".jpg"
                                            : Numbered(choice_, number);
      on_.card.MakeFile("DCIM/" + folder + "/" + name, "");
    }
  }

  void Run(int steps) {
    ASSERT_EQ(0, on_.ScanWithCamera());
    Walk();
    Compare();
    for (int step = 0; step < steps && !testing::Test::HasFailure(); ++step) {
      SCOPED_TRACE("step " + std::to_string(step));
      Change();
      Walk();
      Compare();
    }
  }

 private:
  // Reads the folders from the links of the records.
  void Walk() {
    folders_.clear();
    DCFItem* item = on_.list.GetFirstDCFItem();
    for (; item != nullptr; item = on_.list.GetNextDCFItem()) {
      if (item->prev != nullptr) continue;
      const std::string name = folders_.size() < names_.size() ? names_[folders_.size()] : "";
      folders_.push_back({name, flm::DirNumberInName(name.c_str()), flm_test::ItemsFrom(item)});
      EXPECT_TRUE(flm_test::IsLinkedBothWays(folders_.back().items));
    }
    on_.list.InitCursor();
    ASSERT_EQ(names_.size(), folders_.size());
    places_ = flm_test::AllPlaces(folders_);
  }

  std::string PathOf(const PlainPlace& place) const {
    char path[flm::kPathSize] = "";
    int number = folders_[static_cast<size_t>(place.slot)].number;
    CQDCFList::GetFullPath(path, flm::kPathSize, number, place.item->fileNumber, place.slot,
                           place.item);
    return path;
  }
  std::string FolderPath(const std::string& name) const { return on_.card.Path("DCIM/" + name); }
  std::string AnyPath() {
    std::string path = PathOf(choice_.From(places_));
    switch (choice_.Below(12)) {
      case 0:
        return FolderPath(choice_.From(names_)) + "/" + Numbered(choice_, choice_.Below(400));
      case 1:
        path[path.size() - 3] = choice_.Chance(50) ? 'M' : 'J';
        return path;
      case 2:
        path[path.size() - 12] = 'Z';
        return path;
      case 3:
        return path.substr(0, static_cast<size_t>(choice_.Below(static_cast<int>(path.size()))));
      case 4:
        path[FolderPath("").size() + static_cast<size_t>(choice_.Below(8))] = 'X';
        return path;
      default:
        return path;
    }
  }

  std::string AnyOrLastPath() { return choice_.Chance(40) ? last_ : AnyPath(); }

  void Change() {
    bool on = choice_.Chance(60);
    unsigned char value = static_cast<unsigned char>(choice_.Below(256));
    switch (choice_.Below(12)) {
      case 0:
        on_.list.SetCustomBitAll(choice_.Below(8), on);
        return;
      case 1:
      case 2:
        MarkSome(choice_.Below(8), on);
        return;
      case 3:
      case 4:
        SetByte(choice_.Below(flm_test::kInfoBytes), value);
        return;
      case 5:
        SetByte(choice_.From(std::vector<int>{0, 3, 4, 7, 8}), value);
        return;
      case 6:
        if (choice_.Chance(20)) on_.list.SetCustomInfoAll(choice_.Chance(50) ? 3 : 2, value);
        return;
      case 7:
        if (choice_.Chance(30)) on_.list.SortItem();
        return;
      case 8:
      case 9:
        AddSome();
        return;
      default:
        RemoveSome();
    }
  }

  void MarkSome(int bit, bool on) {
    for (int i = choice_.Chance(50) ? 2 : 60; i > 0; --i) {
      on_.list.SetCustomBit(AnyOrLastPath().c_str(), bit, on);
    }
  }
  // The high byte of the number stays small, so that most numbers have four digits.
  void SetByte(int byte, unsigned char value) {
    unsigned char set = byte == 1 ? static_cast<unsigned char>(value % 4) : value;
    const std::string path = AnyOrLastPath();
    DCFItem* const item = on_.list.FindItem(path.c_str());
    if (item != nullptr) touched_.push_back(item->fileNumber);
    on_.list.SetCustomInfo(path.c_str(), byte, set);
    if (item != nullptr) touched_.push_back(item->fileNumber);
  }
  void AddSome() {
    if (places_.size() > kEnough) return;
    const std::string folder = FolderPath(choice_.From(names_)) + "/";
    for (int i = choice_.Range(1, 12); i > 0; --i) {
      on_.list.AddFile((folder + Numbered(choice_, choice_.Below(400))).c_str());
    }
  }
  void RemoveSome() {
    for (int i = choice_.Range(1, 12); i > 0; --i) {
      const std::string path = AnyOrLastPath();
      int slot = flm_test::PlainSlot(folders_, path);
      if (slot < 0 || folders_[static_cast<size_t>(slot)].items.size() < 3) return;
      on_.list.RemoveFile(path.c_str());
      Walk();
      if (testing::Test::HasFailure()) return;
    }
  }

  void Compare() {
    if (testing::Test::HasFailure()) return;
    ComparePath(last_);
    CompareSlots();
    for (int i = 0; i < kQuestions; ++i) ComparePath(AnyPath());
    ComparePositions();
    int bit = choice_.Below(8);
    CompareCount(bit);
    CompareForward(bit);
    CompareBackward(bit);
    CompareLast();
    last_ = AnyPath();
    ComparePath(last_);
  }

  void ComparePath(const std::string& path) {
    SCOPED_TRACE(path);
    int dirNumber = -1;
    int file = -1;
    flm::NumbersInPath(path.c_str(), static_cast<int>(on_.card.Root().size()), true, &dirNumber,
                       &file);
    int slot = flm_test::PlainSlot(folders_, path);
    EXPECT_EQ(slot, on_.list.GetDidx(dirNumber, path.c_str()));
    DCFItem* item = nullptr;
    if (slot >= 0) {
      const PlainFolder& folder = folders_[static_cast<size_t>(slot)];
      item = flm_test::PlainByPath(folder.items, folder.number, file, path);
    }
    EXPECT_EQ(item == nullptr ? -1 : item->fileNumber, on_.list.IsExist(path.c_str()));
    for (int bit = 0; bit < 8; ++bit) {
      EXPECT_EQ(flm_test::HasBit(item, bit), on_.list.GetCustomBit(path.c_str(), bit)) << bit;
    }
    int byte = choice_.Below(flm_test::kInfoBytes);
    int info = slot < 0 ? 255 : flm_test::PlainInfo(item, byte);
    EXPECT_EQ(info, on_.list.GetCustomInfo(path.c_str(), byte)) << byte;
    EXPECT_EQ(flm_test::PlainIndex(folders_, slot, file, path),
              on_.list.GetListIndex(path.c_str()));
    EXPECT_EQ(flm_test::PlainFound(folders_, path, dirNumber, file),
              on_.list.FindItem(path.c_str()));
    CompareInfo(path, dirNumber, file);
  }

  void CompareInfo(const std::string& path, int dirNumber, int file) {
    CQFileListItem info;
    PlainPlace place = flm_test::PlainForInfo(folders_, path, dirNumber, file);
    ASSERT_EQ(place.item == nullptr ? -1 : 0, on_.list.GetInfo(path.c_str(), &info));
    if (place.item == nullptr) return;
    char object[flm::kPathSize] = "";
    on_.list.GetObjectFullPath(object, flm::kPathSize, 0, place.item->fileNumber, place.slot,
                               place.item);
    EXPECT_EQ(flm_test::PlainInfo(place.item, 2), info.dpofCopies);
    EXPECT_EQ(flm_test::PlainInfo(place.item, 15), info.dpofSize);
    EXPECT_EQ(flm_test::HasBit(place.item, 5) ? 1 : 0, info.selected);
    EXPECT_EQ(flm_test::HasBit(place.item, 4) ? 1 : 0, info.wifiFlag);
    EXPECT_EQ(dirNumber == flm::kCameraNumber ? path : std::string(object), info.objectPath);
    EXPECT_EQ(path, info.filePath);
  }

  void ComparePositions() {
    int count = static_cast<int>(places_.size());
    for (int position : {-1, 0, count - 1, count, choice_.Below(count), choice_.Below(count),
                         choice_.Below(count), choice_.Below(count)}) {
      const flm_test::Step at = on_.At(position);
      bool held = position >= 0 && position < count;
      ASSERT_EQ(held ? 0 : -1, at.result) << position;
      if (!held) continue;
      EXPECT_EQ(on_.Relative(PathOf(places_[static_cast<size_t>(position)])), at.path) << position;
    }
  }

  Names Marked(int bit) const {
    Names paths;
    for (const PlainPlace& place : places_) {
      if (flm_test::HasBit(place.item, bit)) paths.push_back(on_.Relative(PathOf(place)));
    }
    return paths;
  }

  void CompareCount(int among) {
    for (int bit : {among, 0, 5}) {
      int count = 0;
      for (const PlainPlace& place : places_) count += flm_test::HasBit(place.item, bit) ? 1 : 0;
      EXPECT_EQ(count, on_.list.GetCustomBitCount(bit)) << bit;
    }
    EXPECT_EQ(0, on_.list.GetCustomBitCount(choice_.Chance(50) ? -1 : 8));
  }

  void CompareForward(int bit) {
    Names walked;
    flm_test::Step step = on_.BitFirst(bit);
    for (; step.result == 0; step = on_.BitNext(bit)) walked.push_back(step.path);
    EXPECT_EQ(Marked(bit), walked) << bit;
  }

  void CompareBackward(int bit) {
    Names walked;
    flm_test::Step step = on_.BitLast(bit);
    for (; step.result == 0; step = on_.BitPrev(bit)) walked.push_back(step.path);
    Names expected = Marked(bit);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(expected, walked) << bit;
    CompareTurn(bit, choice_.Below(8));
  }

  // A walk that goes on with the next mark of another kind from where it stands, there and back.
  void CompareTurn(int bit, int other) {
    if (on_.BitFirst(bit).result != 0) return;
    size_t at = 0;
    while (!flm_test::HasBit(places_[at].item, bit)) ++at;
    for (int turn = 0; turn < 6; ++turn) {
      bool forward = choice_.Chance(70);
      size_t next = Beside(at, other, forward);
      const flm_test::Step step = forward ? on_.BitNext(other) : on_.BitPrev(other);
      ASSERT_EQ(next == places_.size() ? -1 : 0, step.result) << bit << " " << other;
      if (next == places_.size()) continue;
      EXPECT_EQ(on_.Relative(PathOf(places_[next])), step.path) << bit << " " << other;
      at = next;
    }
  }
  // The next place with the mark in a direction; the number of places when there is none.
  size_t Beside(size_t at, int bit, bool forward) const {
    while (forward ? at + 1 < places_.size() : at > 0) {
      at = forward ? at + 1 : at - 1;
      if (flm_test::HasBit(places_[at].item, bit)) return at;
    }
    return places_.size();
  }

  void CompareLast() {
    char path[flm::kPathSize] = "";
    EXPECT_EQ(0, on_.list.GetLastPath(path, flm::kPathSize));
    EXPECT_EQ(PathOf(places_.back()), path);
    const std::string asked = choice_.Chance(40) ? std::string(path) : AnyPath();
    int dirNumber = -1;
    int file = -1;
    flm::NumbersInPath(asked.c_str(), static_cast<int>(on_.card.Root().size()), true, &dirNumber,
                       &file);
    bool last = dirNumber == folders_.back().number && file == places_.back().item->fileNumber;
    EXPECT_EQ(last ? 1 : 0, on_.list.IsLast(asked.c_str())) << asked;
  }

  void CompareSlots() {
    for (int i = 0; i < kQuestions; ++i) {
      int dirNumber = choice_.From(folders_).number + (choice_.Chance(10) ? 1 : 0);
      int file = choice_.Chance(70) ? choice_.From(places_).item->fileNumber : choice_.Below(500);
      if (!touched_.empty() && choice_.Chance(60)) file = choice_.From(touched_);
      EXPECT_EQ(flm_test::PlainSlotHolding(folders_, dirNumber, file),
                on_.list.GetDidx(dirNumber, file))
          << dirNumber << " " << file;
    }
    if (touched_.size() > kQuestions) touched_.clear();
  }

  Choice choice_;
  Names names_;
  CardCatalogue on_;
  std::string last_;          // asked for before a change and again right after it
  std::vector<int> touched_;  // file numbers, as they were and as they were changed to
  PlainFolders folders_;
  std::vector<PlainPlace> places_;
};

TEST(ListReference, HundredsOfFilesInFewFoldersAreFoundAsByPlainWalks) {
  for (uint64_t seed = 1; seed <= 6 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    const Names folders = {"CAMERA", "100ABCDE", "100PHOXX", "100PHOTO", "101PHOTO", "999PHOTO"};
    RandomCatalogue catalogue(seed, folders);
    catalogue.Fill("CAMERA", 70);
    catalogue.Fill("100ABCDE", 80);
    catalogue.Fill("100PHOXX", 65);
    catalogue.Fill("100PHOTO", 180);
    catalogue.Fill("101PHOTO", 5);
    catalogue.Fill("999PHOTO", 64);
    catalogue.Run(60);
  }
}

TEST(ListReference, OneLargeFolderIsFoundAsByPlainWalks) {
  for (uint64_t seed = 101; seed <= 104 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    RandomCatalogue catalogue(seed, {"100PHOTO"});
    catalogue.Fill("100PHOTO", 320);
    catalogue.Run(60);
  }
}

TEST(ListReference, FilesInHundredsOfFoldersAreFoundAsByPlainWalks) {
  for (uint64_t seed = 201; seed <= 202 && !testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Names folders;
    for (int number = 100; number < 620; ++number) {
      if (number % 7 == 0) folders.push_back(std::to_string(number) + "ABCDE");
      folders.push_back(std::to_string(number) + "PHOTO");
    }
    RandomCatalogue catalogue(seed, folders);
    for (const std::string& folder : folders) catalogue.Fill(folder, 1);
    catalogue.Run(25);
  }
}

}  // namespace
