#include "base/file_list_item.h"

CQFileListItem::CQFileListItem()
    : filePath(),
      selected(0),
      isProtected(0),
      reservedFlag(0),
      dpofCopies(0),
      dpofIndex(0),
      dpofSize(-1),
      wifiFlag(0),
      objectPath(),
      year(0),
      month(0),
      day(0),
      hour(0),
      minute(0),
      second(0),
      modTime(0) {}

CQFileListItem::~CQFileListItem() = default;
