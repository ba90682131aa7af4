// Construction, set-up and the scan.
#include "filelist/CQFileList.h"

#include <cstring>
#include <new>
#include <typeinfo>

#include "base/bounded_text.h"
#include "dcf/CQDCFList.h"
#include "dcf/dcf_path.h"

namespace {

// Texts that callers built against the layout expect to find; nothing reads them.
constexpr char kDefaultRoot[] = "/mnt/mmc";
constexpr char kDefaultPrefix[] = "QVX_";

}  // namespace

CQFileList::CQFileList()
    : count_(-1),
      baseURI_(),
      defaultRoot_(),
      defaultFolderWord_(),
      defaultPrefixText_(),
      devName_(),
      type_(0),
      seriesMode_(false),
      catalogue_(nullptr),
      filePrefix_(),
      datePrefix_(),
      dateFolderSuffix_(),
      s3dPrefix_(),
      curIndex_(-1),
      pageSize_(-1),
      curPage_(-1),
      pageTopPath_(),
      fileNameMake_(FILE_NAME_MAKE_FIXED),
      folderNameMake_(FILE_NAME_MAKE_FIXED),
      colorMode_(FILELIST_COLOR_SRGB),
      imageType_(FILELIST_IMAGE_ORDINARY),
      includeNonDCF_(true),
      lastUpdated_(0) {
  flm::CopyText(defaultRoot_, sizeof(defaultRoot_), kDefaultRoot);
  flm::CopyText(defaultFolderWord_, sizeof(defaultFolderWord_), flm::kStillSuffix);
  flm::CopyText(defaultPrefixText_, sizeof(defaultPrefixText_), kDefaultPrefix);
  CQFileList::SetFileNameColor(FILELIST_COLOR_SRGB);
}

CQFileList::~CQFileList() = default;

// A derived list may answer single operations itself, and its answers count: then every operation
// is asked where it would be, and no work is spared that only this class knows to be without
// effect.
bool CQFileList::IsDerived() const { return typeid(*this) != typeid(CQFileList); }

int CQFileList::Create() { return 0; }

int CQFileList::Destroy() {
  delete catalogue_;
  catalogue_ = nullptr;
  return 0;
}

int CQFileList::SetType(int type) {
  type_ = type;
  return 0;
}

int CQFileList::GetType() { return type_; }

int CQFileList::IncludeNonDCF(bool on) {
  includeNonDCF_ = on;
  return 0;
}

int CQFileList::SetBaseURI(const char* uri) {
  if (uri == nullptr || std::strlen(uri) >= flm::kPathSize) return -1;
  flm::CopyText(baseURI_, flm::kPathSize, uri);
  return 0;
}

char* CQFileList::GetBaseURI() { return baseURI_; }

CQDCFList* CQFileList::GetDCFList() { return catalogue_; }

// Whether the catalogue can keep the root. Without one nothing is read or made: paths would begin
// at the root of the whole system, or in another folder than the one that was named.
bool CQFileList::HasUsableRoot() const {
  const int length = flm::BoundedLength(baseURI_, flm::kPathSize);
  return length > 0 && length < flm::kRootSize;
}

int CQFileList::Listup(int stopAtFirst) {
  InitGetAt();
  if (catalogue_ == nullptr) {
    catalogue_ = new (std::nothrow) CQDCFList;
    if (catalogue_ == nullptr) return count_ = -1;
  }
  if (!catalogue_->HasTable()) catalogue_->Create();
  // Derived lists may answer GetType themselves; the answer counts.
  catalogue_->SetMode(GetType());
  catalogue_->SetSeriesMode(seriesMode_);
  if (!HasUsableRoot()) {
    // As for a tree that cannot be opened, nothing of an earlier scan stays. Nor does its root,
    // below which a deletion would go on.
    catalogue_->FreeAllDir();
    catalogue_->SetBaseURI("");
    count_ = -1;
    return count_;
  }
  catalogue_->SetBaseURI(baseURI_);
  const int result = catalogue_->Listup(stopAtFirst, includeNonDCF_);
  count_ = result < 0 ? result : catalogue_->GetCount();
  char printOrder[flm::kPathSize];
  DefaultPrintOrder(printOrder);
  LoadDPOFInfo(printOrder);
  return count_;
}

int CQFileList::FreeList() {
  if (catalogue_ != nullptr) catalogue_->FreeMem();
  count_ = 0;
  return 0;
}

int CQFileList::GetCount() { return count_; }

int CQFileList::DCF_GetCount() { return catalogue_ == nullptr ? -1 : catalogue_->GetCount(); }

int CQFileList::SortItem() { return catalogue_ == nullptr ? 0 : catalogue_->SortItem(); }

int CQFileList::GetAvailNumOfPhoto() {
  constexpr int kMostReported = 1000;  // a cap, while a directory number is left
  constexpr int kLastDirWithSuccessor = 998;
  constexpr int kLastFileNumber = 9999;
  int dirNumber = 0;
  int fileNumber = 0;
  GetLastIndex(&dirNumber, &fileNumber);
  const int byNumber =
      dirNumber <= kLastDirWithSuccessor ? kMostReported : kLastFileNumber - fileNumber;
  const int byRoom = flm::kMaxFiles - GetCount();
  return byNumber < byRoom ? byNumber : byRoom;
}
