#include "tests/model/model_directory.h"

#include <algorithm>
#include <cstring>

namespace flm_model {
namespace {

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsFree(char c) { return (c >= 'A' && c <= 'Z') || c == '_'; }

int KindOfExtension(const std::string& name, int other) {
  std::string ext = name.substr(name.size() - 3);
  if (ext == "MP3") return 200;
  if (ext == "WAV") return 201;
  if (ext == "SRW") return 202;
  if (ext == "MPO") return 204;
  if (ext == "JPG" || ext == "MP4" || ext == "AVI" || ext == "3GP") return 0;
  return other;
}

int CodeOfPrefix(const std::string& prefix) {
  const char* known[] = {"HDV_", "HDE_", "HDA_", "SDV_", "SDE_", "SDA_"};
  for (int i = 0; i < 6; ++i) {
    if (prefix == known[i]) return i + 1;
  }
  return 0;
}

// One reading of a folder.
struct Scan {
  World& world;
  ModelPool& pool;
  ModelDirectory* dir;
  std::string folder;
  bool camera;
  int held;
  int running = 0;
  int added = 0;
  std::vector<std::string> deferred = {};

  void Add(int number, const std::string& name) {
    ModelItem* item = dir->hasPool ? pool.Take() : nullptr;
    ++added;
    if (item == nullptr) return;
    dir->items.push_back(item);
    item->SetBit(0, true);
    item->SetPrefixFrom(name);
    item->SetNumber(number);
    item->SetTime(0);
    item->SetDirNumber(dir->number);
    item->SetName(name);
  }

  bool HasMainPicture(const std::string& name) const {
    return world.IsExist(Cut(folder + "/" + name.substr(0, 8) + ".JPG", 99));
  }

  // Whether the reading goes on with the next name.
  bool Take(std::string name) {
    if (name[0] == '.') return true;
    int kind = camera ? KindOfFreeName(&name) : KindOfName(&name);
    if (kind < 0) return true;
    int number = camera ? running : NumberAt(name, 4, 4);
    bool companion = kind == 201 || kind == 202 || kind == 204;
    if (companion && HasMainPicture(name)) {
      deferred.push_back(name.substr(0, 12));
    } else {
      Add(number, name);
    }
    ++running;
    return held + added < kPoolUnits;
  }

  bool Attach(const std::string& name) {
    ModelItem* item = dir->ByNumber(NumberAt(name, 4, 4));
    if (item == nullptr) return false;
    for (int at = 11; at <= 13; ++at) {
      if (item->raw[at] == 0) item->raw[at] = ' ';
    }
    std::string ext = name.substr(9, 3);
    if (ext == "SRW") item->raw[11] = 'S';
    if (ext == "WAV") item->raw[12] = 'W';
    if (ext == "MPO") item->raw[13] = 'M';
    return true;
  }

  void Join(const std::string& name) {
    int number = camera ? ++running : NumberAt(name, 4, 4);
    if (Attach(name)) return;
    std::string ext = name.substr(9, 3);
    if (ext == "SRW" || ext == "MPO") Add(number, name);
  }
};

}  // namespace

int ModelItem::Short(int at) const {
  int16_t value;
  memcpy(&value, raw + at, 2);
  return value;
}

void ModelItem::SetShort(int at, int value) {
  int16_t narrow = static_cast<int16_t>(value);
  memcpy(raw + at, &narrow, 2);
}

unsigned int ModelItem::Time() const {
  uint32_t value;
  memcpy(&value, raw + 16, 4);
  return value;
}

void ModelItem::SetTime(unsigned int value) { memcpy(raw + 16, &value, 4); }

std::string ModelItem::Field(int at, int size) const {
  std::string text(reinterpret_cast<const char*>(raw) + at, static_cast<size_t>(size));
  return text.substr(0, text.find('\0'));
}

void ModelItem::SetBit(int n, bool on) {
  if (n < 0 || n > 7) return;
  int mask = 0x80 >> n;
  raw[3] = static_cast<uint8_t>(on ? raw[3] | mask : raw[3] & ~mask);
}

void ModelItem::SetName(const std::string& name) {
  std::string kept = name.substr(0, 40);
  memcpy(raw + 22, kept.c_str(), kept.size() + 1);
}

void ModelItem::SetPrefixFrom(const std::string& name) {
  int code = CodeOfPrefix(Upper(name.substr(0, 4)));
  SetBit(1, (code & 4) != 0);
  SetBit(2, (code & 2) != 0);
  SetBit(3, (code & 1) != 0);
  memcpy(raw + 4, name.data(), 4);
  memcpy(raw + 8, name.data() + name.size() - 3, 3);
}

int ModelItem::Info(int index) const {
  if (Number() < 0) return 255;
  return index >= 0 && index < kItemBytes - 1 ? raw[index] : 0;
}

void ModelItem::SetInfo(int index, uint8_t value) {
  if (index >= 0 && index < kItemBytes - 1) raw[index] = value;
}

std::string ModelItem::ObjectLetters() const {
  std::string letters;
  for (int at = 11; at <= 13; ++at) letters += raw[at] == 0 ? ' ' : static_cast<char>(raw[at]);
  return letters;
}

ModelItem* ModelPool::Take() {
  for (ModelItem& unit : units_) {
    if (unit.used) continue;
    unit.used = true;
    memset(unit.raw, 0, 16);
    return &unit;
  }
  if (units_.size() >= kPoolUnits) return nullptr;
  units_.emplace_back();
  units_.back().used = true;
  return &units_.back();
}

int ModelDirectory::PositionOf(const ModelItem* item) const {
  auto found = std::find(items.begin(), items.end(), item);
  return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

ModelItem* ModelDirectory::ByNumber(int wanted) const {
  for (ModelItem* item : items) {
    if (item->Number() == wanted) return item;
  }
  return nullptr;
}

ModelItem* ModelDirectory::ByPath(int wanted, const std::string& path) const {
  for (ModelItem* item : items) {
    if (number == 99) {
      if (item->Name() == path.substr(path.rfind('/') + 1)) return item;
    } else if (path.size() >= 12 && item->Number() == wanted &&
               memcmp(item->raw + 4, path.data() + path.size() - 12, 4) == 0 &&
               item->raw[8] == static_cast<uint8_t>(path[path.size() - 3])) {
      return item;
    }
  }
  return nullptr;
}

ModelItem* ModelDirectory::ByPathExactly(int wanted, const std::string& path) const {
  if (number == 99) return ByPath(wanted, path);
  for (ModelItem* item : items) {
    if (path.size() >= 12 && item->Number() == wanted &&
        memcmp(item->raw + 4, path.data() + path.size() - 12, 4) == 0 &&
        memcmp(item->raw + 8, path.data() + path.size() - 3, 3) == 0) {
      return item;
    }
  }
  return nullptr;
}

int ModelDirectory::PlaceOf(int wanted, const std::string& path) const {
  if (path.find("CAMERA") != std::string::npos) {
    for (ModelItem* item : items) {
      if (path.find(item->Name()) != std::string::npos) return item->Number();
    }
    return -1;
  }
  for (size_t i = 0; i < items.size(); ++i) {
    if (path.size() >= 3 && items[i]->Number() == wanted &&
        items[i]->raw[8] == static_cast<uint8_t>(path[path.size() - 3])) {
      return static_cast<int>(i);
    }
  }
  return -1;
}

void ModelDirectory::Sort() {
  if (sorted || !hasList) return;
  for (size_t i = 0; i < items.size(); ++i) {
    for (size_t j = i + 1; j < items.size(); ++j) {
      bool greater =
          items[i]->Number() > items[j]->Number() ||
          (items[i]->Number() == items[j]->Number() && items[i]->Name() > items[j]->Name());
      if (greater) std::swap_ranges(items[i]->raw, items[i]->raw + kItemBytes, items[j]->raw);
    }
  }
  sorted = true;
}

int KindOfName(std::string* name) {
  if (name->size() < 12) return -2;
  if (name->size() > 12) return -3;
  *name = Upper(*name);
  const std::string& n = *name;
  if (!IsDigit(n[4])) {
    for (size_t i = 0; i < 4; ++i) {
      if (!IsFree(n[i])) return -201;
    }
    return -104;
  }
  for (size_t i = 5; i < 8; ++i) {
    if (!IsDigit(n[i])) return -100 - static_cast<int>(i);
  }
  return KindOfExtension(n, -100);
}

int KindOfFreeName(std::string* name) {
  if (name->size() < 12 || name->size() > 40) return -3;
  if (name->size() == 12) *name = Upper(*name);
  return KindOfExtension(*name, 0);
}

int ScanDirectory(World& world, ModelPool& pool, const std::string& root, int mode, int held,
                  ModelDirectory* dir) {
  dir->hasList = true;
  std::string tree = mode == 0 || mode == 4 ? "DCIM" : "VIDEO";
  Scan scan{world,
            pool,
            dir,
            Cut(root + "/" + tree + "/" + dir->name, 99),
            dir->name.compare(0, 6, "CAMERA") == 0,
            held};
  std::vector<std::string> names;
  world.picture.List(scan.folder, &names);
  for (const std::string& name : names) {
    if (!scan.Take(name)) break;
  }
  for (const std::string& name : scan.deferred) scan.Join(name);
  dir->sorted = true;
  dir->listed = true;
  return scan.added;
}

}  // namespace flm_model
