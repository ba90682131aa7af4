// New names, the last index, series mode and the file updated last. What a new file is called is
// decided here; which number it gets is the catalogue's business.
#include <cstring>

#include "base/bounded_text.h"
#include "base/wrapping.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "filelist/CQFileList_internal.h"
#include "fsio/PCQDCFFSIO.h"

namespace {

constexpr char kSrgbPrefix[] = "QVX_";
constexpr char kAdobeRgbPrefix[] = "_QVX";
constexpr char k3dPrefix[] = "S3D_";
constexpr int kMaxPrefixLength = 8;
constexpr int kTwoDigits = 2;
constexpr int kExtensionSize = 3;

constexpr int kKindMovie = 2;
constexpr const char* kExtensions[] = {"JPG", "SRW", "MP4", "3GP", "MP3", "WAV", "MPO"};
constexpr int kKinds = static_cast<int>(sizeof(kExtensions) / sizeof(kExtensions[0]));

// A kind that nobody defined has no extension.
const char* ExtensionOf(int kind) { return kind >= 0 && kind < kKinds ? kExtensions[kind] : ""; }

struct AddedCompanion {
  const char* extension;
  int objectType;
};
constexpr AddedCompanion kAdded[] = {
    {"SRW", flm::kKindSrw}, {"WAV", flm::kKindWav}, {"MPO", flm::kKindMpo}};
constexpr int kAddedKinds = static_cast<int>(sizeof(kAdded) / sizeof(kAdded[0]));
constexpr int kUnknownKind = -200;

const AddedCompanion* AddedOf(eFileAddType kind) {
  return kind >= 0 && kind < kAddedKinds ? &kAdded[kind] : nullptr;
}

// One character for the month, as DCF names of the underscore form have no room for two.
char MonthCharacter(int month) {
  constexpr char kMonths[] = "0123456789ABC";
  return month >= 0 && month < static_cast<int>(sizeof(kMonths)) - 1 ? kMonths[month] : '0';
}

bool HasStillType(int type) { return type == 3 || type == 4; }

}  // namespace

int CQFileList::SetFileNameMake(eFILE_NAME_MAKE make) {
  fileNameMake_ = make;
  return 0;
}

int CQFileList::SetFolderNameMake(eFILE_NAME_MAKE make) {
  folderNameMake_ = make;
  return 0;
}

int CQFileList::SetImageType(eFileListImageType imageType) {
  imageType_ = imageType;
  return 0;
}

int CQFileList::SetFileNameColor(eFileListColorMode mode) {
  colorMode_ = mode;
  char prefix[kMaxPrefixLength + 1];
  flm::CopyText(prefix, sizeof(prefix),
                mode == FILELIST_COLOR_SRGB ? kSrgbPrefix : kAdobeRgbPrefix);
  return SetFilePrefix(prefix);
}

int CQFileList::SetFilePrefix(char* prefix) {
  if (prefix == nullptr) return -1;
  if (std::strlen(prefix) > kMaxPrefixLength) return -2;
  flm::CopyText(filePrefix_, sizeof(filePrefix_), prefix);
  return 0;
}

const char* CQFileList::DatePrefix(bool underscore) {
  PCQDCFFSIO::tTimeStamp now;
  PCQDCFFSIO::GetSystemTime(now);
  flm::BoundedText prefix(datePrefix_, sizeof(datePrefix_));
  if (underscore) {
    prefix.Char('_').Char(MonthCharacter(now.month));
  } else {
    prefix.Number(now.month, kTwoDigits);
  }
  prefix.Number(now.day, kTwoDigits);
  return datePrefix_;
}

const char* CQFileList::FolderSuffix() {
  if (folderNameMake_ == FILE_NAME_MAKE_FIXED) return flm::kStillSuffix;
  PCQDCFFSIO::tTimeStamp now;
  PCQDCFFSIO::GetSystemTime(now);
  flm::BoundedText suffix(dateFolderSuffix_, sizeof(dateFolderSuffix_));
  suffix.Char('_').Number(now.month, kTwoDigits).Number(now.day, kTwoDigits);
  return dateFolderSuffix_;
}

const char* CQFileList::PrefixFor(bool movie3d) {
  if (fileNameMake_ != FILE_NAME_MAKE_FIXED) {
    return DatePrefix(colorMode_ != FILELIST_COLOR_SRGB || movie3d);
  }
  if (!movie3d) return filePrefix_;
  flm::CopyText(s3dPrefix_, sizeof(s3dPrefix_), k3dPrefix);
  return s3dPrefix_;
}

int CQFileList::GetNewFileName(char* out, int kind) {
  if (catalogue_ == nullptr || !HasUsableRoot()) return -1;
  const bool movie3d = kind == kKindMovie && imageType_ == FILELIST_IMAGE_3D;
  const char* const prefix = PrefixFor(movie3d);
  const int result = catalogue_->GetNewFileName(prefix, ExtensionOf(kind), out, flm::kNewNameSize,
                                                false, FolderSuffix());
  count_ = DCF_GetCount();
  return result;
}

int CQFileList::GetCopyNewFileName(char* out) {
  if (catalogue_ == nullptr || !HasUsableRoot()) return -1;
  const char* const prefix = PrefixFor(false);
  const int result = catalogue_->GetNewFileName(prefix, flm::kStillExtension, out,
                                                flm::kNewNameSize, true, FolderSuffix());
  // A copy is not counted before the next scan: the count is taken from the list itself.
  count_ = GetCount();
  return result;
}

int CQFileList::GetLatestFileName(char* out, eFileAddType kind) {
  if (catalogue_ == nullptr || out == nullptr) return -1;
  CQFileListItem item;
  GetLast(&item, false);
  const AddedCompanion* const added = AddedOf(kind);
  if (added == nullptr) return kUnknownKind;
  const int result = catalogue_->SetObject(item.filePath, added->objectType, true);
  if (result != 0) return result;
  // No terminator: callers pass a zero-filled buffer and may have text of their own behind it.
  const size_t stem = std::strlen(item.filePath) - kExtensionSize;
  std::memcpy(out, item.filePath, stem);
  std::memcpy(out + stem, added->extension, kExtensionSize);
  return result;
}

int CQFileList::SetObject(CQFileListItem* item, eFileAddType kind, bool on) {
  if (item == nullptr) return -1;
  if (catalogue_ == nullptr) return -6;
  const AddedCompanion* const added = AddedOf(kind);
  if (added == nullptr) return kUnknownKind;
  if (!flm::NamesFile(item)) return -1;
  return catalogue_->SetObject(item->filePath, added->objectType, on);
}

int CQFileList::GetLastIndex(int* dirNumber, int* fileNumber) {
  if (catalogue_ != nullptr) {
    catalogue_->GetIndexToNum(catalogue_->GetStoredLastIndex(), dirNumber, fileNumber);
  }
  return 0;
}

int CQFileList::SetLastIndex(char* path, bool force) {
  return catalogue_ == nullptr ? 0 : catalogue_->SetLastIndex(path, force);
}

int CQFileList::SetLastIndex(int dirNumber, int fileNumber, bool force) {
  const bool still = HasStillType(type_);
  char path[flm::kPathSize];
  flm::BoundedText text(path, sizeof(path));
  flm::AppendNumberedFolder(text, baseURI_, still ? flm::kStillTree : flm::kMovieTree, dirNumber,
                            still ? flm::kStillSuffix : flm::kMovieSuffix)
      .Char('/');
  flm::AppendNumberedName(text, flm::WholeText(filePrefix_), fileNumber,
                          flm::WholeText(still ? flm::kStillExtension : flm::kMovieExtension));
  return SetLastIndex(path, force);
}

int CQFileList::UpdateLastIndex(bool noSeries) {
  return catalogue_ == nullptr ? -6 : catalogue_->UpdateLastIndex(noSeries);
}

int CQFileList::SetSeriesMode(bool on) {
  // Before the first scan the setting is lost, and callers set it again after Listup.
  if (catalogue_ == nullptr) return -1;
  seriesMode_ = on;
  catalogue_->SetSeriesMode(on);
  return UpdateLastIndex(!on);
}

bool CQFileList::GetSeriesMode() { return seriesMode_; }

int CQFileList::SetLastUpdated(int page, int position) {
  const int pagesBefore = flm::WrappingProduct(pageSize_, flm::WrappingSum(page, -1));
  return SetLastUpdated(flm::WrappingSum(flm::WrappingSum(position, -1), pagesBefore));
}

int CQFileList::SetLastUpdated(int index) {
  lastUpdated_ = index;
  return 0;
}

int CQFileList::GetLastUpdated(int* page, int* position) {
  if (page == nullptr) return -1;
  if (position == nullptr) return -2;
  if (pageSize_ <= 0) return -3;
  *page = flm::WrappingSum(lastUpdated_ / pageSize_, 1);
  *position = lastUpdated_ % pageSize_ + 1;
  return 0;
}
