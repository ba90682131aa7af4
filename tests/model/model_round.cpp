#include "tests/model/model_round.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <sstream>

#include "tests/model/model_cards.h"
#include "tests/model/model_large_cards.h"

namespace flm_model {
namespace {

namespace fs = std::filesystem;

// What can be seen of a list without changing it.
template <class List>
std::string Glance(List& list) {
  std::string text = Format("count %d cursor %d page %d series %d type %d pages %d",
                            list.GetCount(), list.GetCurIndex(), list.GetCurPageNum(),
                            list.GetSeriesMode() ? 1 : 0, list.GetType(), list.GetPageTotalCount());
  auto* catalogue = list.GetDCFList();
  if (catalogue == nullptr) return text + " no catalogue";
  char path[128] = "";
  char object[128] = "";
  int result = catalogue->GetCur(path, 128, object, 128);
  text += Format(" held %d last %d mode %d current %d ", catalogue->GetCount(),
                 catalogue->GetStoredLastIndex(), catalogue->GetMode(), result);
  return text + path + " " + object;
}

// Which files an inventory names: every `step`-th from `first`.
struct Sample {
  int first;
  int step;
};

// Everything that is known of the files of a sample, found by their paths.
template <class List>
std::string Inventory(List& list, Sample sample) {
  std::ostringstream text;
  auto* catalogue = list.GetDCFList();
  if (catalogue == nullptr) return "";
  for (int i = sample.first;; i += sample.step) {
    char path[128] = "";
    char object[128] = "";
    if (catalogue->GetAt(i, path, 128, object, 128) != 0) break;
    text << i << " " << path << " " << object << " bits";
    for (int bit = 0; bit < 8; ++bit) text << (catalogue->GetCustomBit(path, bit) ? 1 : 0);
    for (int byte : {2, 11, 12, 13, 14, 15}) text << " " << catalogue->GetCustomInfo(path, byte);
    text << " at " << catalogue->GetListIndex(path) << " exist " << catalogue->IsExist(path)
         << " last " << catalogue->IsLast(path) << " " << Dump(catalogue->FindItem(path)) << "\n";
  }
  for (int bit = 4; bit < 8; ++bit) text << catalogue->GetCustomBitCount(bit) << " ";
  return text.str();
}

// Permissions that hold the test itself back are taken away first.
void RemoveFolder(const std::string& folder) {
  if (!fs::exists(folder)) return;
  chmod(folder.c_str(), 0755);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (entry.is_directory()) chmod(entry.path().c_str(), 0755);
  }
  fs::remove_all(folder);
}

long RandomPreference(Choice& choice) {
  const long values[] = {-1,       0,        10000003,  10199999,  99909999,
                         99909998, 12300045, 100000000, 2000000000};
  if (sizeof(long) > 4 && choice.Chance(10)) return static_cast<long>(10100005LL + (1LL << 32));
  return values[choice.Below(9)];
}

// Operations after which a large card or its catalogue holds nothing more; they are made less often
// there, since the card was long in the making.
constexpr int kSparedPercent = 80;
constexpr int kFewFiles = 50;

bool EmptiesCard(const Operation& operation) {
  static const std::array names = {"DeleteAll",   "RemoveAll",  "Destroy",
                                   "FreeList",    "dcf Create", "dcf FreeMem",
                                   "dcf SetMode", "SetType",    "dcf FreeAllDir"};
  return std::find(names.begin(), names.end(), std::string(operation.name)) != names.end();
}

}  // namespace

Round::Round(uint64_t seed, int cards, CardSize size, const std::string& folder)
    : seed_(seed), choice_(seed), large_(size == CardSize::kLarge), folder_(folder) {
  RemoveFolder(folder_);
  fs::create_directories(folder_);
  for (int i = 0; i < cards; ++i) {
    std::string root = folder_ + (i == 0 ? "/a" : "/b");
    if (choice_.Chance(30)) root += std::string(static_cast<size_t>(choice_.Range(1, 24)), '_');
    large_ ? MakeLargeCard(choice_, root) : MakeCard(choice_, root);
    cards_.push_back({root, nullptr, nullptr});
  }
  world_.picture.Read(folder_);
  world_.now = 1420000000 + choice_.Below(60000000);
  world_.preference = RandomPreference(choice_);
  guard_ = std::make_unique<Guard>(folder_);
  Guard::now = world_.now;
  Guard::preference = world_.preference;
  Guard::syncs = 0;
  Guard::flushes = 0;
  for (const auto& more : {ListOperations(), MarkOperations(), BulkOperations(),
                           CatalogueOperations(), TableOperations(), NumberingOperations()}) {
    table_.insert(table_.end(), more.begin(), more.end());
  }
  if (large_) {
    for (const Operation& operation : ManyFilesOperations()) table_.push_back(operation);
  }
  for (const Operation& operation : table_) weights_ += operation.weight;
  for (Card& card : cards_) Prepare(card);
}

Round::~Round() {
  for (Card& card : cards_) {
    card.library->Destroy();
    card.model->Destroy();
  }
  cards_.clear();
  guard_.reset();
  RemoveFolder(folder_);
}

void Round::Prepare(Card& card) {
  card.model = std::make_unique<ModelList>(world_);
  card.library = std::make_unique<CQFileList>();
  if (choice_.Chance(5)) ScanWithoutRoot(card);
  card.model->SetBaseURI(card.root.c_str());
  card.library->SetBaseURI(card.root.c_str());
  int type = choice_.From(std::vector<int>{4, 4, 4, 4, 4, 0, 0, 2, 1, 3});
  card.model->SetType(type);
  card.library->SetType(type);
  history_.push_back(Format("card %s type %d", card.root.c_str(), type));
  if (large_) Prefer(card);
}

// Large cards are listed with their "CAMERA" folders most of the time.
void Round::Prefer(Card& card) {
  bool camera = choice_.Chance(75);
  card.model->IncludeNonDCF(camera);
  card.library->IncludeNonDCF(camera);
}

// A list whose root is missing or too long to be kept reads and makes nothing.
void Round::ScanWithoutRoot(Card& card) {
  std::string root = choice_.Chance(50) ? "" : card.root + std::string(98, 'r');
  card.model->SetBaseURI(root.c_str());
  card.library->SetBaseURI(root.c_str());
  int model = card.model->Listup(0);
  int library = card.library->Listup(0);
  if (model != library || card.model->GetCount() != card.library->GetCount()) {
    Fail(Format("scan without a root: model %d library %d\n", model, library));
  }
  std::string tree = world_.picture.DifferenceFromDisk();
  if (!tree.empty()) Fail(tree);
  card.model->Destroy();
  card.library->Destroy();
}

void Round::Fail(const std::string& what) {
  if (!failure_.empty()) return;
  std::ostringstream text;
  text << "seed " << seed_ << ", step " << history_.size() << "\n";
  for (const std::string& line : history_) text << "  " << line << "\n";
  failure_ = text.str() + what;
}

// A list without files, or with few of a large card, is scanned again soon.
const Operation& Round::Pick(const Card& card) {
  int count = card.model->GetCount();
  int rescan = count > 0 ? 0 : large_ ? 60 : 20;
  if (card.model->GetDCFList() == nullptr) rescan = 85;
  if (large_ && rescan == 0 && count < kFewFiles) rescan = 8;
  for (const Operation& operation : table_) {
    if (std::string(operation.name) == "Listup" && choice_.Chance(rescan)) return operation;
  }
  const Operation& picked = PickAny();
  return large_ && EmptiesCard(picked) && choice_.Chance(kSparedPercent) ? PickAny() : picked;
}

const Operation& Round::PickAny() {
  int at = choice_.Below(weights_);
  for (const Operation& operation : table_) {
    at -= operation.weight;
    if (at < 0) return operation;
  }
  return table_.front();
}

void Round::Disturb(Card& card) {
  history_.push_back(DisturbCard(choice_, card.root));
  world_.picture.Read(folder_);
  if (choice_.Chance(20)) {
    world_.preference = RandomPreference(choice_);
    Guard::preference = world_.preference;
    history_.push_back(Format("stored %ld", world_.preference));
  }
  world_.now += choice_.Below(9000000);
  Guard::now = world_.now;
}

void Round::RunOperation(Card& card, const Operation& operation) {
  Call onModel;
  const Card& other = cards_[cards_.size() - 1 - static_cast<size_t>(&card - cards_.data())];
  Scene scene{choice_, world_, *card.model, card.root, other.root, stale_, large_, last_};
  ChooseArguments(onModel, operation, scene);
  Call onLibrary = onModel;
  history_.push_back(card.root.substr(folder_.size()) + " " + Describe(operation, onModel));
  world_.doubt = Doubt();
  operation.Run(onModel, *card.model);
  operation.Run(onLibrary, *card.library);
  std::string difference = Difference(onModel, onLibrary, world_.doubt);
  if (world_.syncs != Guard::syncs) {
    difference += Format("flushes waited for: model %d library %d\n", world_.syncs, Guard::syncs);
  }
  if (world_.flushes != Guard::flushes && !world_.doubt.flushes) {
    difference += Format("flushes: model %d library %d\n", world_.flushes, Guard::flushes);
  }
  world_.syncs = Guard::syncs = world_.flushes = Guard::flushes = 0;
  if (!difference.empty()) Fail(difference);
}

void Round::CheckState(Card& card, bool whole) {
  std::string expected = Glance(*card.model);
  std::string actual = Glance(*card.library);
  if (whole) {
    Sample sample{0, 1};
    if (large_ && !choice_.Chance(3)) sample.step = choice_.Range(20, 60);
    if (large_) sample.first = choice_.Below(sample.step);
    expected += "\n" + Inventory(*card.model, sample);
    actual += "\n" + Inventory(*card.library, sample);
  }
  if (expected != actual)
    Fail("state of " + card.root + "\n--- model\n" + expected + "\n--- library\n" + actual);
  if (world_.preference != Guard::preference) {
    Fail(Format("stored: model %ld library %ld\n", world_.preference, Guard::preference));
  }
  if (!whole) return;
  std::string tree = world_.picture.DifferenceFromDisk();
  if (!tree.empty()) Fail(tree);
}

// Nothing more is to be learned from a card whose files are all gone.
bool Round::IsWornOut() {
  bool barren = true;
  for (const Card& card : cards_) barren = barren && card.model->GetCount() <= 0;
  barren_ = barren ? barren_ + 1 : 0;
  return barren_ > 12;
}

int Round::Run(int steps) {
  int made = 0;
  while (made < steps && failure_.empty() && !IsWornOut()) {
    Card& card = cards_[static_cast<size_t>(choice_.Below(static_cast<int>(cards_.size())))];
    bool disturbing = choice_.Chance(4);
    bool whole = disturbing || choice_.Chance(25) || made + 5 >= steps;
    const Operation& operation = Pick(card);
    int times = choice_.Chance(12) ? choice_.Range(2, 5) : 1;
    for (int i = 0; i < times && failure_.empty(); ++i) {
      RunOperation(card, operation);
      CheckState(card, whole && i + 1 == times);
      ++made;
    }
    if (disturbing && failure_.empty()) Disturb(card);
  }
  return made;
}

}  // namespace flm_model
