// Paths, lookups, marks.
#include <cstring>

#include "filelist/CQFileListItem.h"
#include "tests/model/model_catalogue.h"

namespace flm_model {
namespace {

int TypeOfExtension(const std::string& ext) {
  if (ext == "JPG") return 203;
  if (ext == "WAV") return 201;
  if (ext == "SRW") return 202;
  if (ext == "MPO") return 204;
  return -2;
}

}  // namespace

std::string ModelCatalogue::PathOf(int dirNumber, int fileNumber, int slot, const ModelItem* item) {
  if (item == nullptr || slot < -1 || slot >= kSlots) {
    world_.doubt.out = true;
    return "";
  }
  std::string free = item->Name();
  std::string numbered = Format("%s%04d.", item->Prefix().c_str(), fileNumber);
  if (mode_ == 4) {
    if (slot == -1) slot = GetDidx(dirNumber, fileNumber);
    std::string folder = slot == -1 ? Format("%03dPHOTO", dirNumber) : dirs_[slot].name;
    std::string file = dirNumber == 99 ? free : numbered + item->Extension();
    return root_ + "/DCIM/" + folder + "/" + file;
  }
  std::string suffix = mode_ == 0 ? "PHOTO" : "VIDEO";
  std::string file = dirNumber == 99 ? free : numbered + (mode_ == 0 ? "JPG" : "MP4");
  return root_ + "/" + Tree() + "/" + Format("%03d", dirNumber) + suffix + "/" + file;
}

std::string ModelCatalogue::PathOf(Found found) {
  if (found.item == nullptr) {
    world_.doubt.out = true;
    return "";
  }
  return PathOf(dirs_[found.slot].number, found.item->Number(), found.slot, found.item);
}

bool ModelCatalogue::ObjectPathOf(int fileNumber, int slot, const ModelItem* item,
                                  std::string* path) const {
  if (item == nullptr || !item->HasObjectLetters()) return false;
  std::string ext = Tree() == "DCIM" ? item->ObjectLetters() : "MP4";
  *path = root_ + "/" + Tree() + "/" + dirs_[slot].name + "/" +
          Format("%s%04d.", item->Prefix().c_str(), fileNumber) + ext;
  return true;
}

void ModelCatalogue::Write(Found found, char* out, int outSize) {
  Put(out, outSize, PathOf(found));
}

void ModelCatalogue::WriteObject(Found found, char* objOut, int objSize) {
  std::string path;
  if (found.item != nullptr && ObjectPathOf(found.item->Number(), found.slot, found.item, &path)) {
    Put(objOut, objSize, path);
  }
}

void ModelCatalogue::WriteTime(ModelItem* item, unsigned int* time) {
  if (time == nullptr) return;
  if (item->Time() == 0) {
    item->SetTime(world_.TimeOf(Cut(PathOf(item->DirNumber(), item->Number(), -1, item), 128)));
  }
  *time = item->Time();
}

void ModelCatalogue::AskTime(ModelItem* item, unsigned int* time) {
  if (world_.current != nullptr) {
    world_.current->WriteTime(item, time);
  } else {
    *time = item->Time();
  }
}

void ModelCatalogue::GetFullPath(char* out, int outSize, int dirNumber, int fileNumber, int slot,
                                 const ModelItem* item) {
  if (world_.current == nullptr) return;
  Put(out, outSize, world_.current->PathOf(dirNumber, fileNumber, slot, item));
}

void ModelCatalogue::GetObjectFullPath(char* out, int outSize, int, int fileNumber, int slot,
                                       const ModelItem* item) {
  std::string path;
  if (ObjectPathOf(fileNumber, slot, item, &path)) Put(out, outSize, path);
}

void ModelCatalogue::GetNum(const char* path, int* dirNumber, short* fileNumber) {
  if (path == nullptr || dirNumber == nullptr || fileNumber == nullptr) return;
  std::string text = path;
  if (text.find("CAMERA") != std::string::npos) {
    *dirNumber = 99;
    *fileNumber = 0;
    return;
  }
  size_t tree = root_.size() + Tree().size() + 2;
  if (text.size() >= tree + 3) *dirNumber = NumberAt(text, tree, 3);
  if (text.size() >= tree + 17) *fileNumber = static_cast<short>(NumberAt(text, tree + 13, 4));
}

void ModelCatalogue::GetNum(const ModelItem* item, int*, short* dirNumber) {
  *dirNumber = static_cast<short>(item->DirNumber());
}

int ModelCatalogue::GetDidx(int, const char* path) {
  if (path == nullptr || strlen(path) < 24) return -1;
  std::string text = path;
  size_t slash = text.rfind('/');
  if (slash == std::string::npos || slash == 0) return -1;
  slash = text.rfind('/', slash - 1);
  if (slash == std::string::npos) return -1;
  std::string name = text.substr(slash + 1, 8);
  for (int slot = 0; slot < UsedSlots(); ++slot) {
    if (dirs_[slot].name == name || dirs_[slot].name.substr(0, 6) == name.substr(0, 6)) return slot;
  }
  return -1;
}

int ModelCatalogue::GetDidx(int dirNumber, int fileNumber) {
  for (int slot = 0; slot < kSlots; ++slot) {
    if (dirs_[slot].number == dirNumber && dirs_[slot].ByNumber(fileNumber) != nullptr) {
      return slot;
    }
  }
  return -1;
}

int ModelCatalogue::GetURIToKey(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  return dirNumber * 100000 + fileNumber;
}

int ModelCatalogue::GetKeyToURI(int key, char* out, int outSize) {
  int slot = GetDidx(key / 100000, out);
  if (slot < 0) return -4;
  if (!dirs_[slot].hasList) return -2;
  if (dirs_[slot].number < 0) return -3;
  Put(out, outSize, PathOf(dirs_[slot].number, slot, key % 100000, curItem_));
  return 0;
}

ModelCatalogue::Found ModelCatalogue::LookUp(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  int slot = GetDidx(dirNumber, path);
  if (slot < 0) return {};
  return {slot, dirs_[slot].ByPath(fileNumber, path)};
}

// The short cut of the mark readers: the cursor's item, when its numbers are those of the path.
ModelItem* ModelCatalogue::CursorItemFor(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  bool same = curDnum_ >= 0 && dirNumber == curDnum_ && fileNumber == curFnum_;
  return same ? curItem_ : nullptr;
}

int ModelCatalogue::SetCurFile(const char* path) {
  if (path == nullptr) {
    InitCursor();
    return 0;
  }
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  if (dirNumber < 0) return -100;
  if (fileNumber < 0) return -101;
  Found found = LookUp(path);
  if (found.slot < 0) return -200;
  if (found.item == nullptr) return -300;
  SetCursor(found, dirs_[found.slot].number);
  return 0;
}

int ModelCatalogue::GetListIndex(const char* path) {
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  int slot = GetDidx(dirNumber, path);
  if (slot < 0 || dirs_[slot].items.empty()) return -1;
  int place = dirs_[slot].PlaceOf(fileNumber, path);
  if (place < 0) return -1;
  for (int before = 0; before < slot; ++before) {
    place += static_cast<int>(dirs_[before].items.size());
  }
  return place;
}

ModelItem* ModelCatalogue::FindItem(const char* path) {
  if (path == nullptr || strlen(path) < 12) return nullptr;
  std::string prefix = Upper(std::string(path).substr(strlen(path) - 12, 4));
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  for (Found found : All()) {
    if (dirs_[found.slot].number == dirNumber && found.item->Number() == fileNumber &&
        memcmp(found.item->raw + 4, prefix.data(), 4) == 0) {
      return found.item;
    }
  }
  return nullptr;
}

int ModelCatalogue::IsExist(const char* path) {
  Found found = LookUp(path);
  return found.item == nullptr ? -1 : found.item->Number();
}

int ModelCatalogue::IsProtect(const char* path) { return world_.IsProtect(path) ? 1 : 0; }

int ModelCatalogue::GetFileType(const ModelItem* item) {
  return item == nullptr ? -1 : TypeOfExtension(Upper(item->Extension()));
}

int ModelCatalogue::GetDcfNum(const ModelItem* item) {
  return item->Number() + 100000 * item->DirNumber();
}

ModelItem* ModelCatalogue::FindForInfo(const std::string& path, int dirNumber, int fileNumber,
                                       int* slot) {
  for (Found found : All()) {
    if (dirs_[found.slot].number != dirNumber) continue;
    *slot = found.slot;
    if (found.item->DirNumber() != 99 ? found.item->Number() == fileNumber
                                      : path.find(found.item->Name()) != std::string::npos) {
      return found.item;
    }
  }
  return nullptr;
}

int ModelCatalogue::GetInfo(const char* path, CQFileListItem* info) {
  if (path == nullptr || info == nullptr) return -1;
  int dirNumber = -1;
  short fileNumber = -1;
  GetNum(path, &dirNumber, &fileNumber);
  int slot = -1;
  ModelItem* item = FindForInfo(path, dirNumber, fileNumber, &slot);
  if (item == nullptr) return -1;
  info->dpofCopies = static_cast<uint8_t>(item->Info(2));
  info->dpofIndex = item->Info(14) != 0 ? 1 : 0;
  info->dpofSize = item->Info(15);
  memset(info->objectPath, 0, 99);
  std::string object;
  if (dirNumber == 99) {
    Put(info->objectPath, 128, path);
  } else if (ObjectPathOf(item->Number(), slot, item, &object)) {
    Put(info->objectPath, 128, object);
  }
  info->isProtected = world_.IsProtect(path) ? 1 : 0;
  info->selected = item->Bit(5) ? 1 : 0;
  info->wifiFlag = item->Bit(4) ? 1 : 0;
  if (strlen(path) > 127) return -1;
  Put(info->filePath, 128, path);
  return 0;
}

ModelCatalogue::Found ModelCatalogue::Marked(Found from, int bit, int step) {
  bool same = false;
  do {
    from = Beside(from, step, false, &same);
  } while (from.item != nullptr && !from.item->Bit(bit));
  return from;
}

void ModelCatalogue::SetBitCursor(Found found) {
  bitSlot_ = found.slot;
  bitItem_ = found.item;
}

int ModelCatalogue::GetBitFirst(char* out, int outSize, int bit) {
  InitCursor();
  SetBitCursor(Found());
  Found found = Marked({-1, nullptr}, bit, 1);
  if (found.item == nullptr) return -1;
  SetBitCursor(found);
  Write(found, out, outSize);
  return 0;
}

int ModelCatalogue::GetBitNext(char* out, int outSize, int bit) {
  if (bitItem_ == nullptr) return -1;
  Found found = Marked({bitSlot_, bitItem_}, bit, 1);
  if (found.item == nullptr) return -1;
  SetBitCursor(found);
  Write(found, out, outSize);
  return 0;
}

int ModelCatalogue::GetBitPrev(char* out, int outSize, int bit, char* objOut) {
  if (bitItem_ == nullptr) return -1;
  int left = bitSlot_;
  Found found = Marked({bitSlot_, bitItem_}, bit, -1);
  if (found.item == nullptr) return -1;
  SetBitCursor(found);
  Write(found, out, outSize);
  std::string object;
  if (ObjectPathOf(found.item->Number(), left, found.item, &object)) Put(objOut, 99, object);
  return 0;
}

int ModelCatalogue::GetBitLast(char* out, int outSize, int bit) {
  curDnum_ = -1;
  curFnum_ = -1;
  Found found = Marked({kSlots, nullptr}, bit, -1);
  if (found.item == nullptr) return -1;
  SetBitCursor(found);
  Write(found, out, outSize);
  return 0;
}

int ModelCatalogue::SetCustomBit(const char* path, int bit, bool on) {
  Found found = LookUp(path);
  if (found.item == nullptr) return -1;
  found.item->SetBit(bit, on);
  return 0;
}

bool ModelCatalogue::GetCustomBit(const char* path, int bit) {
  ModelItem* item = CursorItemFor(path);
  if (item == nullptr) item = LookUp(path).item;
  return item != nullptr && item->Bit(bit);
}

int ModelCatalogue::SetCustomBitAll(int bit, bool on) {
  for (Found found : All()) found.item->SetBit(bit, on);
  return 0;
}

int ModelCatalogue::GetCustomBitCount(int bit) {
  int count = 0;
  for (Found found : All()) count += found.item->Bit(bit) ? 1 : 0;
  return count;
}

int ModelCatalogue::SetCustomInfo(const char* path, int byte, unsigned char value) {
  Found found = LookUp(path);
  if (found.item == nullptr) return -1;
  bool picture = path[strlen(path) - 3] == 'J';
  if (byte == 2 && !picture) return -200;
  if (byte == 14 && !picture) return -201;
  if (byte == 15 && !picture) return -202;
  found.item->SetInfo(byte, value);
  return 0;
}

int ModelCatalogue::GetCustomInfo(const char* path, int byte) {
  if (ModelItem* item = CursorItemFor(path)) return item->Info(byte);
  Found found = LookUp(path);
  if (found.slot < 0) return 255;
  return found.item == nullptr ? 0 : found.item->Info(byte);
}

int ModelCatalogue::SetCustomInfoAll(int byte, unsigned char value) {
  for (Found found : All()) {
    bool picturesOnly = byte == 2 || byte == 14 || byte == 15;
    if (!picturesOnly || GetFileType(found.item) == 203) found.item->SetInfo(byte, value);
  }
  return 0;
}

}  // namespace flm_model
