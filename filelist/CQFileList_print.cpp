// Print marks of single and of all files, and the print order file. The order of the checks differs
// from setter to setter; applications tell the cases apart by the codes.
#include <cstring>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "dpof/CQDPOF.h"
#include "filelist/CQFileList_internal.h"

namespace {

constexpr int kMostCopies = 99;
constexpr int kMaxDevNameLength = 30;
constexpr int kNoCatalogue = -6;

unsigned char InEightBits(int value) { return static_cast<unsigned char>(value); }

}  // namespace

int CQFileList::SetDPOF(CQFileListItem* item, int copies) {
  if (item == nullptr) return -2;
  if (!flm::NamesFile(item)) return -5;
  if (copies < 0) return -3;
  if (copies > kMostCopies) return -4;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return catalogue_->SetCustomInfo(item->filePath, flm::kMarkInfoDpofCopies, InEightBits(copies));
}

int CQFileList::SetDPOFEdit(CQFileListItem* item, int edit) {
  if (catalogue_ == nullptr) return -1;
  if (item == nullptr) return -2;
  if (!flm::NamesFile(item)) return -5;
  if (edit < 0) return -3;
  if (edit > kMostCopies) return -4;
  return catalogue_->SetCustomInfo(item->filePath, flm::kMarkInfoDpofEdit, InEightBits(edit));
}

int CQFileList::SetDPOFSize(CQFileListItem* item, int size) {
  if (size < 0) return -2;
  if (item == nullptr) return -3;
  if (!flm::NamesFile(item)) return -4;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return catalogue_->SetCustomInfo(item->filePath, flm::kMarkInfoDpofSize, InEightBits(size));
}

int CQFileList::SetDPOFAll(int copies) {
  if (copies < 0) return -2;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return catalogue_->SetCustomInfoAll(flm::kMarkInfoDpofCopies, InEightBits(copies));
}

int CQFileList::SetDPOFEditAll(int edit) {
  if (catalogue_ == nullptr) return -1;
  if (edit < 0) return -2;
  return catalogue_->SetCustomInfoAll(flm::kMarkInfoDpofEdit, InEightBits(edit));
}

int CQFileList::SetDPOFSizeAll(int size) {
  if (size < 0) return -2;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return catalogue_->SetCustomInfoAll(flm::kMarkInfoDpofSize, InEightBits(size));
}

int CQFileList::SetDPOFIndex(bool on) {
  if (catalogue_ == nullptr) return kNoCatalogue;
  return catalogue_->SetCustomInfoAll(flm::kMarkInfoDpofIndex, on ? 1 : 0);
}

int CQFileList::ReadPrintInfo(CQFileListItem* item, int byte) {
  const int value = catalogue_->GetCustomInfo(item->filePath, byte);
  return value == flm::kInfoNoItem ? flm::kPrintInfoNotHeld : value;
}

int CQFileList::GetDPOFNumOfCopy(CQFileListItem* item) {
  if (item == nullptr) return -2;
  if (item->filePath[0] == '\0') return -3;
  if (flm::BoundedLength(item->filePath, flm::kPathSize) >= flm::kPathSize) return -4;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return ReadPrintInfo(item, flm::kMarkInfoDpofCopies);
}

int CQFileList::GetDPOFEdit(CQFileListItem* item) {
  if (catalogue_ == nullptr) return -1;
  if (item == nullptr) return -2;
  if (!flm::NamesFile(item)) return -3;
  return ReadPrintInfo(item, flm::kMarkInfoDpofEdit);
}

int CQFileList::GetDPOFSize(CQFileListItem* item) {
  if (item == nullptr) return -2;
  if (!flm::NamesFile(item)) return -3;
  if (catalogue_ == nullptr) return kNoCatalogue;
  return ReadPrintInfo(item, flm::kMarkInfoDpofSize);
}

bool CQFileList::GetDPOFIndex(CQFileListItem* item) {
  if (!flm::NamesFile(item) || catalogue_ == nullptr) return false;
  return catalogue_->GetCustomInfo(item->filePath, flm::kMarkInfoDpofIndex) == 1;
}

void CQFileList::SetDPOFDevName(char* name) {
  if (name == nullptr || std::strlen(name) > kMaxDevNameLength) return;
  std::memset(devName_, 0, sizeof(devName_));
  flm::CopyText(devName_, sizeof(devName_), name);
}

void CQFileList::DefaultPrintOrder(char* out) const {
  flm::BoundedText path(out, flm::kPathSize);
  flm::AppendPrintOrder(path, baseURI_);
}

int CQFileList::SaveDPOFInfo(char* path, char* creator) {
  if (catalogue_ == nullptr || (path == nullptr && !HasUsableRoot())) return -1;
  char printOrder[flm::kPathSize];
  DefaultPrintOrder(printOrder);
  CQDPOF dpof;
  return dpof.SaveDPOFInfo(path == nullptr ? printOrder : path, catalogue_, creator, GetCount());
}

int CQFileList::LoadDPOFInfo(char* path) {
  constexpr int kPathTooLong = -3;
  if (path != nullptr && std::strlen(path) >= flm::kPathSize) return kPathTooLong;
  const bool readable = type_ == 3 || type_ == flm::kModeStillNamed;
  if (!readable || catalogue_ == nullptr || (path == nullptr && !HasUsableRoot())) return -1;
  char printOrder[flm::kPathSize];
  DefaultPrintOrder(printOrder);
  CQDPOF dpof;
  return dpof.LoadDPOFInfo(path == nullptr ? printOrder : path, catalogue_);
}
