// A file list on a card of its own, for the tests of the list's core, cursor, files and names.
#ifndef FILELISTMANAGEMENT_TESTS_FILELIST_CORE_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_FILELIST_CORE_FIXTURE_H

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "dcf/CQDCFList.h"
#include "filelist/CQFileList.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace flm_test {

constexpr int kAllModesList = 4;  // the list type that the camera's own lists have

// Flushing the machine's file systems says nothing about a list and may take long.
class QuietSync {
 public:
  QuietSync() {
    flm::Os().Sync = [] {};
  }
  ~QuietSync() { flm::ResetOsCalls(); }
  QuietSync(const QuietSync&) = delete;
  QuietSync& operator=(const QuietSync&) = delete;
};

// Any list (a test may override operations), destroyed as its owner would.
template <class List>
class FileListTestOf : public testing::Test {
 protected:
  ~FileListTestOf() override { list.Destroy(); }

  void Prepare(int type = kAllModesList) {
    list.SetBaseURI(card.Root().c_str());
    list.SetType(type);
  }
  // Scans the card as it stands; the count of files, or the failure.
  int Scan(int type = kAllModesList) {
    Prepare(type);
    return list.Listup(0);
  }
  // Three folders with 2, 1 and 2 pictures.
  void MakeFivePictures() {
    card.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
    card.MakeFiles("DCIM/101PHOTO", "QVX_", 7, 1, "JPG");
    card.MakeFiles("DCIM/103PHOTO", "QVX_", 1, 2, "JPG");
  }
  std::string On(const std::string& relative) const { return card.Path(relative); }
  // The path at an index, without moving anything; "" when there is none.
  std::string PathAt(int index) {
    CQFileListItem found;
    return list.DCF_GetAt(index, &found) == 0 ? found.filePath : "";
  }

  QuietSync quiet;
  Card card;
  List list;
};

using FileListTest = FileListTestOf<CQFileList>;

inline void SetPath(CQFileListItem* item, const std::string& path) {
  ASSERT_LT(path.size(), sizeof(item->filePath));
  std::memset(item->filePath, 0, sizeof(item->filePath));
  std::memcpy(item->filePath, path.c_str(), path.size());
}

inline CQFileListItem ItemOf(const std::string& path) {
  CQFileListItem item;
  SetPath(&item, path);
  return item;
}

inline void SetObjectPath(CQFileListItem* item, const std::string& path) {
  ASSERT_LT(path.size(), sizeof(item->objectPath));
  std::memset(item->objectPath, 0, sizeof(item->objectPath));
  std::memcpy(item->objectPath, path.c_str(), path.size());
}

// An item in which every field has a value that no file gives it, to see which are written.
inline CQFileListItem MarkedItem() {
  CQFileListItem item = ItemOf("untouched");
  item.selected = 77;
  item.isProtected = 77;
  item.reservedFlag = 77;
  item.dpofCopies = 77;
  item.dpofIndex = 77;
  item.dpofSize = 77;
  item.wifiFlag = 77;
  SetObjectPath(&item, "untouched object");
  item.year = item.month = item.day = item.hour = item.minute = item.second = 77;
  item.modTime = 77;
  return item;
}

inline void ExpectTimeUntouched(const CQFileListItem& item) {
  for (const int field :
       {item.year, item.month, item.day, item.hour, item.minute, item.second, item.modTime}) {
    EXPECT_EQ(field, 77);
  }
}

inline void ExpectMarksUntouched(const CQFileListItem& item) {
  for (const int field : {int{item.selected}, int{item.isProtected}, int{item.reservedFlag},
                          int{item.dpofCopies}, int{item.dpofIndex}, int{item.wifiFlag}}) {
    EXPECT_EQ(field, 77);
  }
  EXPECT_EQ(item.dpofSize, 77);
}

inline void ExpectPathsUntouched(const CQFileListItem& item) {
  EXPECT_STREQ(item.filePath, "untouched");
  EXPECT_STREQ(item.objectPath, "untouched object");
}

inline void ExpectUntouched(const CQFileListItem& item) {
  ExpectPathsUntouched(item);
  ExpectMarksUntouched(item);
  ExpectTimeUntouched(item);
}

}  // namespace flm_test

#endif
