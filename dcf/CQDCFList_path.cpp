// The paths of files and of their companions, in the three spellings that the modes ask for.
// Proven by list_path_test.
#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"
#include "fsio/file_status.h"

namespace {

constexpr int kSlotUnknown = -1;  // the slot is looked up
constexpr char kAbsentCompanion = ' ';

flm::NamePart PrefixOf(const DCFItem* item) {
  return {item == nullptr ? "" : item->prefixChars, flm::kPrefixSize};
}

flm::NamePart ExtensionOf(const DCFItem* item) {
  return {item == nullptr ? "" : item->extChars, flm::kExtensionSize};
}

const char* FreeNameOf(const DCFItem* item) { return item == nullptr ? "" : item->fileName; }

// "/free name" for a file of the "CAMERA" folder, "/prefixNNNN.ext" for any other.
void AppendFile(flm::BoundedText& path, int dirNumber, int fileNumber, const DCFItem* item,
                flm::NamePart extension) {
  path.Char('/');
  if (dirNumber == flm::kCameraNumber) {
    path.Text(FreeNameOf(item));
  } else {
    flm::AppendNumberedName(path, PrefixOf(item), fileNumber, extension);
  }
}

char LetterOf(char companion) { return companion == '\0' ? kAbsentCompanion : companion; }

}  // namespace

void CQDCFList::GetFullPath(char* out, int outSize, int dirNumber, int fileNumber, int dirIndex,
                            const DCFItem* item) {
  if (current_ == nullptr || out == nullptr) return;
  current_->BuildPath({out, outSize}, dirNumber, fileNumber, dirIndex, item);
}

void CQDCFList::BuildPath(PathOut out, int dirNumber, int fileNumber, int dirIndex,
                          const DCFItem* item) const {
  if (mode_ == flm::kModeStillNamed) {
    BuildNamedPath(out, dirNumber, fileNumber, dirIndex, item);
    return;
  }
  // These modes spell every folder alike, whatever its real suffix.
  const bool still = flm::IsStillMode(mode_);
  flm::BoundedText path(out.text, out.size);
  flm::AppendNumberedFolder(path, baseURI_, flm::ScannedTree(mode_), dirNumber,
                            still ? flm::kStillSuffix : flm::kMovieSuffix);
  AppendFile(path, dirNumber, fileNumber, item,
             flm::WholeText(still ? flm::kStillExtension : flm::kMovieExtension));
}

// The start of the paths of a slot's files, which is kept: walks write many of one folder.
void CQDCFList::AppendFolder(flm::BoundedText& path, int slot) const {
  if (slot != folderText_.slot) {
    flm::BoundedText folder(folderText_.text, flm::kPathSize);
    flm::AppendNamedFolder(folder, baseURI_, flm::kStillTree, dirTable_[slot].GetDirName());
    // A folder that fills it alone is written each time anew.
    folderText_.slot = folder.Cut() ? -1 : slot;
    folderText_.length = folder.Length();
    if (folder.Cut()) {
      flm::AppendNamedFolder(path, baseURI_, flm::kStillTree, dirTable_[slot].GetDirName());
      return;
    }
  }
  path.Bytes(folderText_.text, static_cast<size_t>(folderText_.length));
}

void CQDCFList::BuildNamedPath(PathOut out, int dirNumber, int fileNumber, int dirIndex,
                               const DCFItem* item) const {
  const int slot = dirIndex == kSlotUnknown ? SlotHolding(dirNumber, fileNumber) : dirIndex;
  flm::BoundedText path(out.text, out.size);
  if (IsSlot(slot)) {
    AppendFolder(path, slot);
  } else {
    flm::AppendNumberedFolder(path, baseURI_, flm::kStillTree, dirNumber, flm::kStillSuffix);
  }
  AppendFile(path, dirNumber, fileNumber, item, ExtensionOf(item));
}

void CQDCFList::GetObjectFullPath(char* out, int outSize, int /*dirNumber*/, int fileNumber,
                                  int dirIndex, const DCFItem* item) {
  BuildObjectPath({out, outSize}, fileNumber, dirIndex, item);
}

void CQDCFList::BuildObjectPath(PathOut out, int fileNumber, int dirIndex,
                                const DCFItem* item) const {
  if (item == nullptr) return;
  if (item->companionSrw == '\0' && item->companionWav == '\0' && item->companionMpo == '\0')
    return;
  const char letters[flm::kExtensionSize] = {
      LetterOf(item->companionSrw), LetterOf(item->companionWav), LetterOf(item->companionMpo)};
  flm::BoundedText path(out.text, out.size);
  flm::AppendNamedFolder(path, baseURI_, flm::ScannedTree(mode_),
                         IsSlot(dirIndex) ? dirTable_[dirIndex].GetDirName() : "");
  path.Char('/');
  flm::AppendNumberedName(path, PrefixOf(item), fileNumber,
                          flm::IsStillMode(mode_) ? flm::NamePart{letters, flm::kExtensionSize}
                                                  : flm::WholeText(flm::kMovieExtension));
}

int CQDCFList::SlotHolding(int dirNumber, int fileNumber) const {
  for (int slot = FirstSlotOf(dirNumber); slot >= 0; slot = NextSlotOf(dirNumber, slot)) {
    if (dirTable_[slot].GetItem(fileNumber) != nullptr) return slot;
  }
  return kSlotUnknown;
}

void CQDCFList::WritePath(PathOut out, Place place) const {
  BuildPath(out, NumberOf(place.slot), place.item->fileNumber, place.slot, place.item);
}

void CQDCFList::WriteObjectPath(PathOut out, Place place) const {
  BuildObjectPath(out, place.item->fileNumber, place.slot, place.item);
}

// Whether the path that is looked up by an item's numbers is the one of the place: with duplicates
// it may be another file's.
bool CQDCFList::IsPathOf(Place place) const {
  const int dirNumber = place.item->dirNumber;
  if (NumberOf(place.slot) != dirNumber) return false;
  return mode_ != flm::kModeStillNamed ||
         SlotHolding(dirNumber, place.item->fileNumber) == place.slot;
}

// As DCFItem::getFileTime does it, but with this catalogue's folders: two cards may be open.
void CQDCFList::WriteTime(unsigned int* out, Place place, flm::FileStatus* status) const {
  if (out == nullptr) return;
  DCFItem* const item = place.item;
  if (item->fileTime == 0) {
    if (status != nullptr && IsPathOf(place)) {
      item->setFileTime(status->ModifiedTime());
    } else {
      char path[flm::kPathSize];
      BuildPath({path, flm::kPathSize}, item->dirNumber, item->fileNumber, kSlotUnknown, item);
      item->setFileTime(flm::FileStatus(path).ModifiedTime());
    }
  }
  *out = item->fileTime;
}
