#include "dcf/CQDCFDir.h"

#include <cstring>
#include <new>

#include "base/bounded_text.h"
#include "dcf/dcf_name.h"
#include "dcf/item_layout.h"

namespace {

constexpr char kDuplicateMark[] = "SDC1";
constexpr int kDeferredNameSize = flm::kDcfNameLength;
constexpr size_t kDeferredTimeSize = sizeof(unsigned int);

void BlankIfUnset(char* companion) {
  if (*companion == '\0') *companion = ' ';
}

}  // namespace

CQDCFDir::CQDCFDir()
    : memManager_(nullptr),
      dirNumber_(-1),
      dirName_(),
      listedUp_(false),
      sorted_(false),
      items_(nullptr) {}

CQDCFDir::~CQDCFDir() { FreeMem(); }

int CQDCFDir::SetMemMgr(CQDCFMemManager* memManager) {
  memManager_ = memManager;
  return 0;
}

int CQDCFDir::SetDnum(short dirNumber) {
  dirNumber_ = dirNumber;
  return 0;
}

int CQDCFDir::SetDirName(const char* name) {
  if (name == nullptr || std::strlen(name) >= flm::kDirNameSize) return -1;
  if (name == dirName_) return 0;
  std::memset(dirName_, 0, sizeof(dirName_));
  flm::CopyText(dirName_, flm::kDirNameSize, name);
  return 0;
}

int CQDCFDir::SetListup(bool listedUp) {
  listedUp_ = listedUp;
  return 0;
}

int CQDCFDir::GetMem() {
  if (items_ == nullptr) items_ = new (std::nothrow) CQDCFItemList;
  if (items_ == nullptr) return -1;
  return items_->SetMemMgr(memManager_);
}

int CQDCFDir::FreeMem() {
  if (items_ == nullptr) return 0;
  delete items_;
  items_ = nullptr;
  listedUp_ = false;
  return 0;
}

DCFItem* CQDCFDir::AddItem() {
  if (items_ == nullptr) GetMem();
  return items_ == nullptr ? nullptr : items_->AddTail();
}

int CQDCFDir::IsEmpty() const { return items_ == nullptr ? 1 : 0; }

int CQDCFDir::GetCount() { return items_ == nullptr ? 0 : items_->UpdateCount(); }

int CQDCFDir::GetCountVariable() const { return items_ == nullptr ? 0 : items_->GetCount(); }

DCFItem* CQDCFDir::AddFile(DCFItem* item, int fileNumber, const char* name, int* added,
                           unsigned int time) {
  if (name == nullptr) return nullptr;
  if (item == nullptr) {
    item = AddItem();
    if (added != nullptr) ++*added;
  }
  if (item == nullptr) return nullptr;
  Change(item, true, [&] { Fill(item, fileNumber, name, std::strlen(name), time); });
  return item;
}

void CQDCFDir::Fill(DCFItem* item, int fileNumber, const char* name, size_t length,
                    unsigned int time) const {
  item->companionSrw = '\0';
  item->companionWav = '\0';
  item->companionMpo = '\0';
  item->dpofCopies = 0;
  item->dpofIndex = 0;
  item->dpofSize = 0;
  StoreFileName(item, name, length);
  item->fileNumber = static_cast<int16_t>(fileNumber);
  item->setFileTime(time);
  item->dirNumber = dirNumber_;
}

int CQDCFDir::RemoveItem(DCFItem* item) {
  if (item == nullptr || items_ == nullptr) return -1;
  // Out of the list first: its look-ups find the item by what is cleared below.
  const int result = items_->DeleteItemAt(item);
  item->fileNumber = 0;
  item->dpofCopies = 0;
  item->itemBits = 0;
  std::memset(item->prefixChars, 0, sizeof(item->prefixChars));
  return result;
}

int CQDCFDir::SetObject(const char* name) {
  DCFItem* const item = name == nullptr ? nullptr : GetItem(flm::FileNumberInName(name));
  if (item == nullptr) return -1;
  BlankIfUnset(&item->companionSrw);
  BlankIfUnset(&item->companionWav);
  BlankIfUnset(&item->companionMpo);
  switch (flm::DcfExtensionKind(name)) {
    case flm::kKindSrw:
      item->companionSrw = 'S';
      break;
    case flm::kKindWav:
      item->companionWav = 'W';
      break;
    case flm::kKindMpo:
      item->companionMpo = 'M';
      break;
    default:
      break;
  }
  return 0;
}

DCFItem* CQDCFDir::CheckDup(const char* flags, int fileNumber, const char* name) {
  if (flags == nullptr || name == nullptr || fileNumber < 0 || flags[fileNumber] == 0)
    return nullptr;
  char mark[sizeof(kDuplicateMark)];
  flm::CopyText(mark, sizeof(mark), name);
  flm::UpperCase(mark);
  return std::strcmp(mark, kDuplicateMark) == 0 ? GetItem(fileNumber) : nullptr;
}

int CQDCFDir::ObjTmpListAdd(char* names, int* count, const char* name, unsigned char* times,
                            unsigned int time) {
  if (names == nullptr) return -1;
  if (count == nullptr) return -2;
  if (name == nullptr) return -3;
  if (times == nullptr) return -4;
  char* const entry = names + static_cast<ptrdiff_t>(*count) * kDeferredNameSize;
  const size_t length = strnlen(name, kDeferredNameSize);
  std::memset(entry, 0, kDeferredNameSize);
  std::memcpy(entry, name, length);
  std::memcpy(times + static_cast<ptrdiff_t>(*count) * static_cast<ptrdiff_t>(kDeferredTimeSize),
              &time, kDeferredTimeSize);
  return ++*count;
}

int CQDCFDir::ObjTmpListAt(const char* names, int i, char* out, const unsigned char* times,
                           unsigned int* time) {
  if (out == nullptr || names == nullptr || times == nullptr || time == nullptr) return -1;
  std::memcpy(out, names + static_cast<ptrdiff_t>(i) * kDeferredNameSize, kDeferredNameSize);
  out[kDeferredNameSize] = '\0';
  std::memcpy(time, times + static_cast<ptrdiff_t>(i) * static_cast<ptrdiff_t>(kDeferredTimeSize),
              kDeferredTimeSize);
  return 0;
}
