// Marks of single files and the walks over marked files. Every operation is one line: the marks
// differ only in their bit, in the code for a missing catalogue and in when that is tested.
#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/item_layout.h"
#include "filelist/CQFileList_internal.h"
#include "fsio/PCQDCFFSIO.h"

struct CQFileList::MarkKind {
  int bit;
  int noCatalogue;      // the code for a list without a catalogue
  bool catalogueFirst;  // whether that is tested before the item
};

const CQFileList::MarkKind CQFileList::kSelected = {flm::kMarkBitSelected, -6, false};
const CQFileList::MarkKind CQFileList::kWifi = {flm::kMarkBitWifi, -6, false};
const CQFileList::MarkKind CQFileList::kVoiceRecCons = {flm::kMarkBitVoiceRecCons, -1, true};

namespace {

constexpr int kNullItem = -2;
constexpr int kEmptyPath = -3;
constexpr int kProtectNullItem = -100;
constexpr int kProtectEmptyPath = -101;

}  // namespace

int CQFileList::SetMark(const MarkKind& kind, CQFileListItem* item, bool on) {
  if (kind.catalogueFirst && catalogue_ == nullptr) return kind.noCatalogue;
  if (item == nullptr) return kNullItem;
  if (!flm::NamesFile(item)) return kEmptyPath;
  if (catalogue_ == nullptr) return kind.noCatalogue;
  return catalogue_->SetCustomBit(item->filePath, kind.bit, on);
}

bool CQFileList::HasMark(const MarkKind& kind, CQFileListItem* item) {
  if (!flm::NamesFile(item) || catalogue_ == nullptr) return false;
  return catalogue_->GetCustomBit(item->filePath, kind.bit);
}

int CQFileList::SetMarkAll(const MarkKind& kind, bool on) {
  return catalogue_ == nullptr ? kind.noCatalogue : catalogue_->SetCustomBitAll(kind.bit, on);
}

int CQFileList::CountMark(const MarkKind& kind) {
  return catalogue_ == nullptr ? kind.noCatalogue : catalogue_->GetCustomBitCount(kind.bit);
}

int CQFileList::FirstMarked(const MarkKind& kind, CQFileListItem* item) {
  if (catalogue_ == nullptr) return 0;
  if (item == nullptr) return -1;
  char path[flm::kPathSize] = {};
  const int result = catalogue_->GetBitFirst(path, flm::kPathSize, kind.bit);
  if (result == 0) flm::CopyText(item->filePath, flm::kPathSize, path);
  return result;
}

int CQFileList::NextMarked(const MarkKind& kind, CQFileListItem* item) {
  if (catalogue_ == nullptr) return 0;
  if (item == nullptr) return -1;
  char path[flm::kPathSize] = {};
  const int result = catalogue_->GetBitNext(path, flm::kPathSize, kind.bit);
  if (result == 0) flm::CopyText(item->filePath, flm::kPathSize, path);
  return result;
}

// The only step that also gives the companions' path.
int CQFileList::PrevMarked(const MarkKind& kind, CQFileListItem* item) {
  if (catalogue_ == nullptr) return 0;
  if (item == nullptr) return -1;
  char path[flm::kPathSize] = {};
  char objects[flm::kPathSize] = {};
  const int result = catalogue_->GetBitPrev(path, flm::kPathSize, kind.bit, objects);
  if (result != 0) return result;
  flm::CopyText(item->filePath, flm::kPathSize, path);
  flm::CopyText(item->objectPath, flm::kPathSize, objects);
  return result;
}

int CQFileList::LastMarked(const MarkKind& kind, CQFileListItem* item) {
  if (item == nullptr) return -1;
  if (catalogue_ == nullptr) return 0;
  char path[flm::kPathSize] = {};
  const int result = catalogue_->GetBitLast(path, flm::kPathSize, kind.bit);
  if (result == 0) flm::CopyText(item->filePath, flm::kPathSize, path);
  return result;
}

// --- Selection and wifi ---
int CQFileList::SetSel(CQFileListItem* item, bool on) { return SetMark(kSelected, item, on); }
int CQFileList::SetSelAll(bool on) { return SetMarkAll(kSelected, on); }
bool CQFileList::IsSel(CQFileListItem* item) { return HasMark(kSelected, item); }
int CQFileList::GetSelCount() { return CountMark(kSelected); }
int CQFileList::GetSelFirst(CQFileListItem* item) { return FirstMarked(kSelected, item); }
int CQFileList::GetSelNext(CQFileListItem* item) { return NextMarked(kSelected, item); }
int CQFileList::GetSelPrev(CQFileListItem* item) { return PrevMarked(kSelected, item); }
int CQFileList::GetSelLast(CQFileListItem* item) { return LastMarked(kSelected, item); }
int CQFileList::SetWifiFlag(CQFileListItem* item, bool on) { return SetMark(kWifi, item, on); }
bool CQFileList::IsWifiFlag(CQFileListItem* item) { return HasMark(kWifi, item); }

// --- Voice memos and continuous captures: one mark, two names ---
int CQFileList::SetVoiceRec(CQFileListItem* item, bool on) {
  return SetMark(kVoiceRecCons, item, on);
}
int CQFileList::SetVoiceRecAll(bool on) { return SetMarkAll(kVoiceRecCons, on); }
bool CQFileList::IsVoiceRec(CQFileListItem* item) { return HasMark(kVoiceRecCons, item); }
int CQFileList::GetVoiceRecCount() { return CountMark(kVoiceRecCons); }
int CQFileList::GetVoiceRecFirst(CQFileListItem* item) { return FirstMarked(kVoiceRecCons, item); }
int CQFileList::GetVoiceRecNext(CQFileListItem* item) { return NextMarked(kVoiceRecCons, item); }
int CQFileList::GetVoiceRecPrev(CQFileListItem* item) { return PrevMarked(kVoiceRecCons, item); }
int CQFileList::GetVoiceRecLast(CQFileListItem* item) { return LastMarked(kVoiceRecCons, item); }
int CQFileList::SetConsCap(CQFileListItem* item, bool on) {
  return SetMark(kVoiceRecCons, item, on);
}
int CQFileList::SetConsCapAll(bool on) { return SetMarkAll(kVoiceRecCons, on); }
bool CQFileList::IsConsCap(CQFileListItem* item) { return HasMark(kVoiceRecCons, item); }
int CQFileList::GetConsCount() { return CountMark(kVoiceRecCons); }
int CQFileList::GetConsFirst(CQFileListItem* item) { return FirstMarked(kVoiceRecCons, item); }
int CQFileList::GetConsNext(CQFileListItem* item) { return NextMarked(kVoiceRecCons, item); }
int CQFileList::GetConsPrev(CQFileListItem* item) { return PrevMarked(kVoiceRecCons, item); }
int CQFileList::GetConsLast(CQFileListItem* item) { return LastMarked(kVoiceRecCons, item); }

// --- Protection ---
bool CQFileList::IsProtect(CQFileListItem* item) {
  return flm::NamesFile(item) && PCQDCFFSIO::IsProtect(item->filePath) != 0;
}

int CQFileList::SetProtect(CQFileListItem* item, bool on) {
  if (item == nullptr) return kProtectNullItem;
  if (!flm::NamesFile(item)) return kProtectEmptyPath;
  int result = PCQDCFFSIO::SetProtect(item->filePath, on);
  // The last file changed decides, so that a companion can hide a failure of its main file.
  flm::ForEachCompanion(
      *this, item, [&](const char* companion) { result = PCQDCFFSIO::SetProtect(companion, on); });
  return result;
}
