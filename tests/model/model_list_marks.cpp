// Marks, protection, print marks.
#include <cstring>

#include "tests/model/model_list.h"
#include "tests/model/model_print_order.h"

namespace flm_model {

int ModelList::SetMark(CQFileListItem* item, int bit, bool on, bool catalogueFirst) {
  if (catalogueFirst && !catalogue_) return -1;
  if (item == nullptr) return -2;
  if (!NamesFile(item)) return -3;
  if (!catalogue_) return -6;
  return catalogue_->SetCustomBit(item->filePath, bit, on);
}

bool ModelList::HasMark(CQFileListItem* item, int bit) {
  if (!NamesFile(item) || !catalogue_) return false;
  return catalogue_->GetCustomBit(item->filePath, bit);
}

int ModelList::MarkedFirst(CQFileListItem* item, int bit) {
  if (!catalogue_) return 0;
  return catalogue_->GetBitFirst(item->filePath, 128, bit);
}

int ModelList::MarkedNext(CQFileListItem* item, int bit) {
  if (!catalogue_) return 0;
  return catalogue_->GetBitNext(item->filePath, 128, bit);
}

int ModelList::MarkedPrev(CQFileListItem* item, int bit) {
  if (!catalogue_) return 0;
  if (item == nullptr) return -1;
  char object[128] = "";
  int result = catalogue_->GetBitPrev(item->filePath, 128, bit, object);
  if (result >= 0) Put(item->objectPath, 128, object);
  return result;
}

int ModelList::MarkedLast(CQFileListItem* item, int bit) {
  if (item == nullptr) return -1;
  if (!catalogue_) return 0;
  return catalogue_->GetBitLast(item->filePath, 128, bit);
}

bool ModelList::IsProtect(CQFileListItem* item) {
  return NamesFile(item) && world_.IsProtect(item->filePath);
}

int ModelList::SetProtect(CQFileListItem* item, bool on) {
  if (item == nullptr) return -100;
  if (!NamesFile(item)) return -101;
  int result = world_.SetProtect(item->filePath, on);
  for (int kind : {1, 5, 6}) {
    char path[128];
    if (GetObjectFullPath(item, static_cast<eFileType>(kind), path, 128) >= 0) {
      result = world_.SetProtect(path, on);
    }
  }
  return result;
}

int ModelList::SetDPOF(CQFileListItem* item, int copies) {
  if (item == nullptr) return -2;
  if (!NamesFile(item)) return -5;
  if (copies < 0) return -3;
  if (copies > 99) return -4;
  if (!catalogue_) return -6;
  return catalogue_->SetCustomInfo(item->filePath, 2, static_cast<unsigned char>(copies));
}

int ModelList::SetDPOFEdit(CQFileListItem* item, int edit) {
  if (!catalogue_) return -1;
  if (item == nullptr) return -2;
  if (!NamesFile(item)) return -5;
  if (edit < 0) return -3;
  if (edit > 99) return -4;
  return catalogue_->SetCustomInfo(item->filePath, 13, static_cast<unsigned char>(edit));
}

int ModelList::SetDPOFSize(CQFileListItem* item, int size) {
  if (size < 0) return -2;
  if (item == nullptr) return -3;
  if (!NamesFile(item)) return -4;
  if (!catalogue_) return -6;
  return catalogue_->SetCustomInfo(item->filePath, 15, static_cast<unsigned char>(size));
}

int ModelList::SetDPOFAll(int copies) {
  if (copies < 0) return -2;
  if (!catalogue_) return -6;
  return catalogue_->SetCustomInfoAll(2, static_cast<unsigned char>(copies));
}

int ModelList::SetDPOFEditAll(int edit) {
  if (!catalogue_) return -1;
  if (edit < 0) return -2;
  return catalogue_->SetCustomInfoAll(13, static_cast<unsigned char>(edit));
}

int ModelList::SetDPOFSizeAll(int size) {
  if (size < 0) return -2;
  if (!catalogue_) return -6;
  return catalogue_->SetCustomInfoAll(15, static_cast<unsigned char>(size));
}

int ModelList::PrintInfo(const char* path, int byte) {
  int value = catalogue_->GetCustomInfo(path, byte);
  return value == 255 ? -100 : value;
}

int ModelList::GetDPOFNumOfCopy(CQFileListItem* item) {
  if (item == nullptr) return -2;
  if (item->filePath[0] == '\0') return -3;
  if (strnlen(item->filePath, 128) > 127) return -4;
  if (!catalogue_) return -6;
  return PrintInfo(item->filePath, 2);
}

int ModelList::GetDPOFEdit(CQFileListItem* item) {
  if (!catalogue_) return -1;
  if (item == nullptr) return -2;
  if (!NamesFile(item)) return -3;
  return PrintInfo(item->filePath, 13);
}

int ModelList::GetDPOFSize(CQFileListItem* item) {
  if (item == nullptr) return -2;
  if (!NamesFile(item)) return -3;
  if (!catalogue_) return -6;
  return PrintInfo(item->filePath, 15);
}

bool ModelList::GetDPOFIndex(CQFileListItem* item) {
  if (!NamesFile(item) || !catalogue_) return false;
  return catalogue_->GetCustomInfo(item->filePath, 14) == 1;
}

void ModelList::SetDPOFDevName(char* name) {
  if (name != nullptr && strlen(name) <= 30) devName_ = name;
}

int ModelList::SaveDPOFInfo(char* path, char* creator) {
  return SavePrintOrder(world_, path == nullptr ? PrintOrderPath() : path, catalogue_.get(),
                        creator == nullptr ? "" : creator, count_);
}

int ModelList::LoadDPOFInfo(char* path) {
  if (path != nullptr && strlen(path) > 127) return -3;
  if (type_ != 3 && type_ != 4) return -1;
  return LoadPrintOrder(world_, path == nullptr ? PrintOrderPath() : path, catalogue_.get());
}

}  // namespace flm_model
