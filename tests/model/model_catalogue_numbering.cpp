// New names, folders made on the card, files entered and removed.
#include <cstring>

#include "tests/model/model_catalogue.h"

namespace flm_model {

int ModelCatalogue::GetLastIndex() {
  lastIndex_ = 0;
  for (int slot = kSlots - 1; slot >= 0; --slot) {
    const ModelDirectory& dir = dirs_[slot];
    if (dir.number <= 0) continue;
    if (dir.number == 999 && (dir.name.size() < 3 || dir.name.substr(3) != "PHOTO")) {
      return 99909999;
    }
    return dir.number * 100000 + (dir.items.empty() ? 0 : dir.items.back()->Number());
  }
  return 0;
}

int ModelCatalogue::UpdateLastIndex(bool noSeries) {
  lastIndex_ = GetLastIndex();
  if (!noSeries) UpdateLastIndexWithSeriesValue();
  return lastIndex_;
}

int ModelCatalogue::UpdateLastIndexWithSeriesValue() {
  long value = world_.preference;
  if (series_ && value >= 0 && value <= 99909999 && value > lastIndex_) {
    lastIndex_ = static_cast<int>(value);
  }
  return 0;
}

int ModelCatalogue::SetLastIndex(const char* path, bool force) {
  if (path == nullptr) return -2;
  if (path[0] == '\0') return -3;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  if (dirNumber < 100 || dirNumber > 999) return -1;
  int value = dirNumber * 100000 + fileNumber;
  if (force || value > lastIndex_) lastIndex_ = value;
  return BackupSeriesValue(&lastIndex_);
}

int ModelCatalogue::ReadSeriesValue(int* out) {
  if (!series_ || out == nullptr || world_.preference > INT32_MAX ||
      world_.preference < INT32_MIN) {
    world_.doubt.result = true;
    if (series_) world_.doubt.out = true;
    return 0;
  }
  *out = static_cast<int>(world_.preference);
  return *out;
}

int ModelCatalogue::BackupSeriesValue(int* value) {
  if (value == nullptr) return -1;
  if (*value > 99909998) *value = 10000000;
  world_.preference = *value;
  return 0;
}

int ModelCatalogue::SlotNamed(int dirNumber, const std::string& suffix) const {
  for (int slot = 0; slot < UsedSlots(); ++slot) {
    const ModelDirectory& dir = dirs_[slot];
    if (dir.number == dirNumber && dir.name.size() >= 3 && dir.name.substr(3) == suffix) {
      return slot;
    }
  }
  return -1;
}

int ModelCatalogue::NextNumber(const std::string& suffix, int* dirNumber, int* fileNumber) const {
  int d = 100;
  int f = 1;
  if (lastIndex_ >= 1) {
    d = lastIndex_ / 100000;
    if (d <= 99) d = 100;
    int last = lastIndex_ % 100000;
    if (last < 9999) {
      f = last + 1;
    } else {
      ++d;
    }
    if (d >= 1000) return -9999;
  }
  bool held = false;
  for (int slot = 0; slot < UsedSlots(); ++slot) held = held || dirs_[slot].number == d;
  if (held && SlotNamed(d, suffix) < 0) {
    ++d;
    f = 1;
  }
  if (d >= 1000) return -9999;
  *dirNumber = d;
  *fileNumber = f;
  return 0;
}

int ModelCatalogue::GetNewFileName(const char* prefix, const char* ext, char* out, int outSize,
                                   bool noSeries, const char* dirSuffix) {
  if (root_.empty() || itemCount_ >= kPoolUnits) return -1;
  if (!noSeries) UpdateLastIndexWithSeriesValue();
  int d = 0;
  int f = 0;
  if (NextNumber(dirSuffix, &d, &f) < 0) return -9999;
  int slot = SlotNamed(d, dirSuffix);
  if (slot < 0) slot = dirCount_;
  if (slot >= kSlots) return -9999;
  EnterNewFile(slot, d, f, prefix, ext, out, outSize, dirSuffix);
  lastIndex_ = d * 100000 + f;
  int stored = lastIndex_;
  BackupSeriesValue(&stored);
  SetCurFile(out);
  return 0;
}

void ModelCatalogue::EnterNewFile(int slot, int d, int f, const char* prefix, const char* ext,
                                  char* out, int outSize, const std::string& suffix) {
  ModelDirectory& dir = dirs_[slot];
  if (dir.number < 0) {
    dir.number = d;
    dir.name = std::to_string(d) + suffix;
    dir.hasList = true;
    dir.listed = true;
    ++dirCount_;
  }
  CreateNewDirectory(d, suffix.c_str());
  std::string bare = Format("%s%04d.%s", prefix, f, ext);
  Put(out, outSize, bare);
  if (!dir.hasPool) {
    dir.hasPool = true;
    dir.name = std::to_string(d) + suffix;
    dir.hasList = true;
    CreateNewDirectory(d, suffix.c_str());
    ++dirCount_;
  }
  dir.hasList = true;
  if (ModelItem* item = pool_.Take()) {
    dir.items.push_back(item);
    item->SetName(out);
    item->SetPrefixFrom(out);
    item->SetBit(0, true);
    item->SetNumber(f);
    item->SetDirNumber(dir.number);
    item->SetTime(static_cast<unsigned int>(world_.now));
  }
  std::string folder = mode_ == 4   ? dir.name
                       : mode_ == 2 ? Format("%03dVIDEO", d)
                                    : Format("%03d", d) + suffix;
  if (mode_ == 0 || mode_ == 2 || mode_ == 4) {
    Put(out, outSize, root_ + "/" + Tree() + "/" + folder + "/" + bare);
  }
  ++itemCount_;
}

int ModelCatalogue::GetNewFileIndex_FromLastIndex() {
  for (int slot = 0; slot < kSlots; ++slot) {
    const ModelDirectory& dir = dirs_[slot];
    int d = slot + 100;
    int r = d % 100;
    if (dir.number < 1) return d * 100000 + (r * 100 + (r > 1 ? 0 : 1 - r));
    for (int k = r == 0 ? 1 : 0; k <= 9998; ++k) {
      ModelItem* item = dir.ByNumber(k);
      bool enabled = item != nullptr && item->Bit(0);
      if (!enabled || k + (dir.number % 100) * 100 < 0) return d * 100000 + r * 100 + k;
    }
  }
  return 0;
}

int ModelCatalogue::CreateBaseDirectory() {
  if (root_.empty()) return 0;
  std::string tree = root_ + (mode_ == 2 ? "/VIDEO" : "/DCIM");
  std::string first = tree;
  if (mode_ == 0) first += "/100PHOTO";
  if (mode_ == 2) first += "/100VIDEO";
  if (world_.MakeDirectory(Cut(tree, 99)) == 0) return 0;
  if (world_.MakeDirectory(Cut(first, 99)) == 0) return 0;
  world_.MakeDirectory(Cut(root_ + "/MISC", 99));
  return 0;
}

int ModelCatalogue::CreateNewDirectory(int dirNumber, const char* dirSuffix) {
  return world_.MakeDirectory(root_ + "/" + Tree() + "/" + Format("%03d%s", dirNumber, dirSuffix));
}

int ModelCatalogue::AddFile(const char* path) {
  const char* slash = path == nullptr ? nullptr : strrchr(path, '/');
  if (path == nullptr) return -1;
  if (slash == nullptr) return -3;
  if (strlen(path) > 98) return -1;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  int slot = GetDidx(dirNumber, path);
  if (slot < 0) return -1;
  dirs_[slot].hasPool = true;
  dirs_[slot].hasList = true;
  ModelItem* item = pool_.Take();
  if (item == nullptr) return -1;
  dirs_[slot].items.push_back(item);
  item->SetName(slash + 1);
  item->SetPrefixFrom(slash + 1);
  item->SetBit(0, true);
  item->SetNumber(fileNumber);
  ++itemCount_;
  return 0;
}

int ModelCatalogue::RemoveFile(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  int slot = GetDidx(dirNumber, path);
  if (slot < 0) return -1;
  ModelDirectory& dir = dirs_[slot];
  ModelItem* item = dir.ByPathExactly(fileNumber, path);
  if (item == nullptr) return -2;
  memset(item->raw, 0, 8);
  dir.items.erase(dir.items.begin() + dir.PositionOf(item));
  ReleaseItem(item);
  --itemCount_;
  return 0;
}

int ModelCatalogue::AddItem(int dirNumber, const unsigned char* data) {
  int slot = dirNumber - 100;
  if (data == nullptr || !HasSlot(slot)) return -1;
  ModelDirectory& dir = dirs_[slot];
  dir.hasPool = true;
  dir.hasList = true;
  dir.number = dirNumber;
  ModelItem* item = pool_.Take();
  if (item == nullptr) return -1;
  memcpy(item->raw, data, 4);
  dir.items.push_back(item);
  ++itemCount_;
  return 0;
}

int ModelCatalogue::SetObject(const char* path, int type, bool on) {
  ModelItem* item = FindItem(path);
  if (item == nullptr) return -1;
  if (type == 202) item->raw[11] = on ? 'S' : ' ';
  if (type == 201) item->raw[12] = on ? 'W' : ' ';
  if (type == 204) item->raw[13] = on ? 'M' : ' ';
  return 0;
}

}  // namespace flm_model
