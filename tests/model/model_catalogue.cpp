// The table, the scan, the walks.
#include "tests/model/model_catalogue.h"

#include <algorithm>
#include <cstring>

namespace flm_model {
namespace {

// 1 when a stands behind b.
int CompareFolders(const ModelDirectory& a, const ModelDirectory& b) {
  if (a.number != b.number) return a.number > b.number ? 1 : -1;
  if (a.name.substr(3) == "PHOTO") return 1;
  if (b.name.substr(3) == "PHOTO") return -1;
  return a.name.compare(b.name);
}

bool IsFolderName(const std::string& name) {
  if (name.compare(0, 6, "CAMERA") == 0) return true;
  if (name.size() != 8) return false;
  return std::all_of(name.begin(), name.begin() + 3, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

ModelCatalogue::ModelCatalogue(World& world) : world_(world) { world.current = this; }
ModelCatalogue::~ModelCatalogue() { world_.current = nullptr; }

void ModelCatalogue::Create() {
  if (dirs_.empty()) dirs_.resize(kSlots);
  dirCount_ = 0;
  InitCursor();
  itemCount_ = 0;
  root_.clear();
  series_ = false;
}

int ModelCatalogue::SetBaseURI(const char* uri) {
  if (strlen(uri) > 97) return -1;
  root_ = uri;
  return 0;
}

int ModelCatalogue::SetSeriesMode(bool on) {
  series_ = on;
  return 0;
}

void ModelCatalogue::ReleaseItem(ModelItem* item) {
  if (item == curItem_) InitCursor();
  if (item == bitItem_) SetBitCursor(Found());
  pool_.Give(item);
}

void ModelCatalogue::FreeDirectory(int slot) {
  ModelDirectory& dir = dirs_[slot];
  if (!dir.hasList) return;
  for (ModelItem* item : dir.items) ReleaseItem(item);
  dir.items.clear();
  dir.hasList = false;
  dir.listed = false;
}

void ModelCatalogue::FreeMem() {
  for (int slot = 0; slot < kSlots; ++slot) FreeDirectory(slot);
}

void ModelCatalogue::FreeAllDir() {
  for (int slot = 0; slot < kSlots; ++slot) {
    dirs_[slot].number = -1;
    FreeDirectory(slot);
  }
  itemCount_ = 0;
  dirCount_ = 0;
}

void ModelCatalogue::FreeOthers(int keep) {
  for (int slot = 0; slot < kSlots; ++slot) {
    if (dirs_[slot].number < 0 || dirs_[slot].number == dirs_[keep].number) continue;
    FreeDirectory(slot);
    dirs_[slot].listed = false;
  }
  itemCount_ = static_cast<int>(dirs_[keep].items.size());
}

int ModelCatalogue::AddDir(int number) {
  if (dirCount_ >= kSlots) return -1;
  dirs_[dirCount_].number = static_cast<int16_t>(number);
  return dirCount_++;
}

void ModelCatalogue::TakeFolders(const std::vector<std::string>& names, bool withCamera) {
  for (const std::string& found : names) {
    std::string name = Upper(found.substr(0, 128));
    if (!IsFolderName(name) || name.size() > 98 || dirCount_ >= kSlots) continue;
    int number = name.compare(0, 6, "CAMERA") == 0 ? 99 : NumberAt(name, 0, 3);
    if (number < 99 || (number == 99 && !withCamera)) continue;
    ModelDirectory& dir = dirs_[dirCount_++];
    dir.hasPool = true;
    dir.number = number;
    dir.name = name;
  }
}

void ModelCatalogue::SortFolders() {
  for (int i = 0; i < dirCount_; ++i) {
    for (int j = i + 1; j < dirCount_; ++j) {
      if (CompareFolders(dirs_[i], dirs_[j]) <= 0) continue;
      std::swap(dirs_[i].number, dirs_[j].number);
      std::swap(dirs_[i].name, dirs_[j].name);
    }
  }
}

int ModelCatalogue::Listup(int stopAtFirst, bool withCamera) {
  if (root_.empty()) return -1;
  CreateBaseDirectory();
  FreeAllDir();
  std::vector<std::string> names;
  if (!world_.picture.List(Cut(root_ + "/" + Tree(), 99), &names)) return -2;
  TakeFolders(names, withCamera);
  SortFolders();
  for (int slot = dirCount_ - 1; slot >= 0; --slot) {
    FreeDirectory(slot);
    itemCount_ += ScanDirectory(world_, pool_, root_, mode_, itemCount_, &dirs_[slot]);
    if (itemCount_ > (stopAtFirst == 1 ? 0 : kPoolUnits - 1)) break;
  }
  lastIndex_ = GetLastIndex();
  UpdateLastIndexWithSeriesValue();
  return 0;
}

int ModelCatalogue::SortItem() {
  for (int slot = 0; slot < UsedSlots(); ++slot) dirs_[slot].Sort();
  return 0;
}

void ModelCatalogue::Enter(int slot) {
  if (dirs_[slot].listed || root_.empty()) return;
  FreeDirectory(slot);
  int added = ScanDirectory(world_, pool_, root_, mode_, itemCount_, &dirs_[slot]);
  itemCount_ += added;
  if (added > 0) FreeOthers(slot);
}

ModelCatalogue::Found ModelCatalogue::FirstFrom(int slot, int step, bool listing) {
  for (; HasSlot(slot); slot += step) {
    if (listing ? dirs_[slot].number < 0 : dirs_[slot].number <= 0) continue;
    if (listing) Enter(slot);
    if (dirs_[slot].items.empty()) continue;
    return {slot, step > 0 ? dirs_[slot].First() : dirs_[slot].Last()};
  }
  return {};
}

ModelCatalogue::Found ModelCatalogue::Beside(Found from, int step, bool listing,
                                             bool* sameDirectory) {
  if (from.item != nullptr && HasSlot(from.slot)) {
    const ModelDirectory& dir = dirs_[from.slot];
    int position = dir.PositionOf(from.item) + step;
    if (position >= 0 && position < static_cast<int>(dir.items.size())) {
      *sameDirectory = true;
      return {from.slot, dir.items[static_cast<size_t>(position)]};
    }
  }
  *sameDirectory = false;
  return FirstFrom(from.slot + step, step, listing);
}

std::vector<ModelCatalogue::Found> ModelCatalogue::All() const {
  std::vector<Found> all;
  for (int slot = 0; slot < kSlots; ++slot) {
    if (dirs_[slot].number <= 0) continue;
    for (ModelItem* item : dirs_[slot].items) all.push_back({slot, item});
  }
  return all;
}

void ModelCatalogue::InitCursor() { SetCurItem(-1, -1, -1, nullptr); }

void ModelCatalogue::SetCurItem(int dirNumber, int fileNumber, int slot, ModelItem* item) {
  curDnum_ = dirNumber;
  curFnum_ = fileNumber;
  curSlot_ = slot;
  curItem_ = item;
}

void ModelCatalogue::SetCursor(Found found, int dirNumber) {
  SetCurItem(dirNumber, found.item->Number(), found.slot, found.item);
}

int ModelCatalogue::GetFirst(char* out, int outSize, char* objOut, int objSize, bool setCursor,
                             unsigned int* time) {
  if (setCursor) InitCursor();
  Found found = FirstFrom(0, 1, true);
  if (found.item == nullptr) return -1;
  if (setCursor) SetCursor(found, found.slot + 100);
  Write(found, out, outSize);
  WriteObject(found, objOut, objSize);
  WriteTime(found.item, time);
  return 0;
}

int ModelCatalogue::GetNext(char* out, int outSize, char* objOut, int objSize, unsigned int* time) {
  if (curDnum_ < 0) return GetFirst(out, outSize, objOut, outSize, true, nullptr);
  bool same = false;
  Found found = Beside({curSlot_, curItem_}, 1, true, &same);
  if (found.item == nullptr) return -1;
  SetCursor(found, dirs_[found.slot].number);
  Write(found, out, outSize);
  if (!same) WriteObject(found, objOut, objSize);
  WriteTime(found.item, time);
  return 0;
}

int ModelCatalogue::GetPrev(char* out, int outSize, char* objOut, int objSize) {
  if (curDnum_ < 0) return -2;
  bool same = false;
  Found found = Beside({curSlot_, curItem_}, -1, true, &same);
  if (found.item == nullptr) return -1;
  SetCursor(found, dirs_[found.slot].number);
  Write(found, out, outSize);
  if (!same) WriteObject(found, objOut, objSize);
  return 0;
}

int ModelCatalogue::GetLast(char* out, int outSize, char* objOut, int objSize) {
  InitCursor();
  Found found = FirstFrom(kSlots - 1, -1, false);
  if (found.item == nullptr) return -1;
  SetCursor(found, dirs_[found.slot].number);
  Write(found, out, outSize);
  WriteObject(found, objOut, objSize);
  return 0;
}

std::string ModelCatalogue::LastPath() const {
  ModelCatalogue* self = const_cast<ModelCatalogue*>(this);
  Found found = self->FirstFrom(kSlots - 1, -1, false);
  return found.item == nullptr ? "" : Cut(self->PathOf(found), 128);
}

int ModelCatalogue::GetCur(char* out, int outSize, char* objOut, int objSize) {
  if (curDnum_ < 0 || curFnum_ < 0) return -1;
  Found found{curSlot_, curItem_};
  Write(found, out, outSize);
  WriteObject(found, objOut, objSize);
  return 0;
}

int ModelCatalogue::GetAt(int position, char* out, int outSize, char* objOut, int objSize) {
  std::vector<Found> all = All();
  if (position < 0 || position >= static_cast<int>(all.size())) return -1;
  Write(all[static_cast<size_t>(position)], out, outSize);
  WriteObject(all[static_cast<size_t>(position)], objOut, objSize);
  return 0;
}

ModelItem* ModelCatalogue::GetFirstDCFItem() {
  InitCursor();
  Found found = FirstFrom(0, 1, true);
  if (found.item != nullptr) SetCursor(found, found.slot + 100);
  return found.item;
}

ModelItem* ModelCatalogue::GetNextDCFItem() {
  if (curDnum_ < 0) return GetFirstDCFItem();
  bool same = false;
  Found found = Beside({curSlot_, curItem_}, 1, true, &same);
  if (found.item != nullptr) SetCursor(found, dirs_[found.slot].number);
  return found.item;
}

int ModelCatalogue::IsLast(const char* path) {
  Found found = FirstFrom(kSlots - 1, -1, false);
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  return found.item != nullptr && dirs_[found.slot].number == dirNumber &&
         found.item->Number() == fileNumber;
}

}  // namespace flm_model
