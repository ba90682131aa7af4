// The destructors of the three interfaces, so that each virtual table is emitted here alone.
#include "filelist/IQFileList.h"
#include "filelist/IQPageUtil.h"
#include "filelist/IQSelectedFileList.h"

IQFileList::~IQFileList() = default;
IQSelectedFileList::~IQSelectedFileList() = default;
IQPageUtil::~IQPageUtil() = default;
