#include "dcf/DCFItem.h"

#include "dcf/CQDCFList.h"
#include "fsio/PCQDCFFSIO.h"

void DCFItem::getFileTime(unsigned int* out) {
  if (out == nullptr) return;
  if (fileTime == 0) {
    constexpr int kSlotUnknown = -1;
    char path[flm::kPathSize] = {};
    CQDCFList::GetFullPath(path, flm::kPathSize, dirNumber, fileNumber, kSlotUnknown, this);
    setFileTime(PCQDCFFSIO::GetFileCreateTime(path));
  }
  *out = fileTime;
}
