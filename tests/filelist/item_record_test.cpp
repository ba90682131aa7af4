// The record that crosses the library's boundary, and how one object stands behind three
// interfaces.
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "filelist/CQFileList.h"
#include "tests/filelist/core_fixture.h"

namespace {

using flm_test::MarkedItem;

TEST(FileListItemRecord, AFreshItemHasEmptyPaths) {
  const CQFileListItem item;
  EXPECT_STREQ(item.filePath, "");
  EXPECT_STREQ(item.objectPath, "");
}

TEST(FileListItemRecord, AFreshItemHasNoMarks) {
  const CQFileListItem item;
  EXPECT_EQ(item.selected, 0);
  EXPECT_EQ(item.isProtected, 0);
  EXPECT_EQ(item.reservedFlag, 0);
  EXPECT_EQ(item.dpofCopies, 0);
  EXPECT_EQ(item.dpofIndex, 0);
  EXPECT_EQ(item.wifiFlag, 0);
}

TEST(FileListItemRecord, AFreshItemHasNoPrintSize) { EXPECT_EQ(CQFileListItem().dpofSize, -1); }

TEST(FileListItemRecord, AFreshItemHasNoTime) {
  const CQFileListItem item;
  for (const int field :
       {item.year, item.month, item.day, item.hour, item.minute, item.second, item.modTime}) {
    EXPECT_EQ(field, 0);
  }
}

TEST(FileListItemRecord, PathsHaveRoomFor127Characters) {
  EXPECT_EQ(sizeof(CQFileListItem::filePath), 128U);
  EXPECT_EQ(sizeof(CQFileListItem::objectPath), 128U);
}

TEST(FileListItemRecord, NumbersKeepTheirWidth) {
  EXPECT_EQ(sizeof(CQFileListItem::dpofSize), 4U);
  EXPECT_EQ(sizeof(CQFileListItem::modTime), 4U);
  EXPECT_EQ(sizeof(CQFileListItem::year), 4U);
  EXPECT_EQ(sizeof(CQFileListItem::dpofCopies), 1U);
  EXPECT_TRUE(std::is_signed<decltype(CQFileListItem::dpofSize)>::value);
  EXPECT_TRUE(std::is_signed<decltype(CQFileListItem::modTime)>::value);
  EXPECT_TRUE(std::is_unsigned<decltype(CQFileListItem::dpofCopies)>::value);
}

TEST(FileListItemRecord, ItIsDestroyedThroughAPointerToIt) {
  EXPECT_TRUE(std::has_virtual_destructor<CQFileListItem>::value);
}

TEST(FileListItemRecord, ACopyHasEveryField) {
  const CQFileListItem original = MarkedItem();
  const CQFileListItem copy = original;
  flm_test::ExpectUntouched(copy);
}

TEST(FileListInterfaces, AreAbstractWithVirtualDestructors) {
  EXPECT_TRUE(std::is_abstract<IQFileList>::value);
  EXPECT_TRUE(std::is_abstract<IQSelectedFileList>::value);
  EXPECT_TRUE(std::is_abstract<IQPageUtil>::value);
  EXPECT_TRUE(std::has_virtual_destructor<IQFileList>::value);
  EXPECT_TRUE(std::has_virtual_destructor<IQSelectedFileList>::value);
  EXPECT_TRUE(std::has_virtual_destructor<IQPageUtil>::value);
}

TEST(FileListInterfaces, TheWholeListIsThePrimaryBase) {
  CQFileList list;
  EXPECT_EQ(static_cast<void*>(static_cast<IQFileList*>(&list)), static_cast<void*>(&list));
}

TEST(FileListInterfaces, TheBasesStandInTheirOrder) {
  CQFileList list;
  const void* const whole = static_cast<IQFileList*>(&list);
  const void* const selected = static_cast<IQSelectedFileList*>(&list);
  const void* const pages = static_cast<IQPageUtil*>(&list);
  EXPECT_LT(whole, selected);
  EXPECT_LT(selected, pages);
}

class Witness : public CQFileList {
 public:
  explicit Witness(int* ends) : ends_(ends) {}
  ~Witness() override { ++*ends_; }

 private:
  int* ends_;
};

TEST(FileListInterfaces, DestroyingThroughAnyOfThemDestroysTheWholeList) {
  int ends = 0;
  delete static_cast<IQFileList*>(new Witness(&ends));
  EXPECT_EQ(ends, 1);
  delete static_cast<IQSelectedFileList*>(new Witness(&ends));
  EXPECT_EQ(ends, 2);
  delete static_cast<IQPageUtil*>(new Witness(&ends));
  EXPECT_EQ(ends, 3);
}

// Answers every operation of the two smaller interfaces with a number of its own.
class Answering : public CQFileList {
 public:
  int GetSelFirst(CQFileListItem*) override { return 1; }
  int GetSelNext(CQFileListItem*) override { return 2; }
  int GetSelPrev(CQFileListItem*) override { return 3; }
  int GetSelLast(CQFileListItem*) override { return 4; }
  int GetSelCount() override { return 5; }
  int DeleteSel(bool force, ProgressCallback) override { return force ? 6 : 60; }
  int SetProtectSel(bool on, ProgressCallback) override { return on ? 7 : 70; }
  int SetProtectSel(ProgressCallback) override { return 8; }
  int DPOFSel(ProgressCallback) override { return 9; }
  int InitPage(int pageSize) override { return 100 + pageSize; }
  int GetPageAt(int page, CQFileListItem*) override { return 200 + page; }
  int GetFirstPage(CQFileListItem*) override { return 12; }
  int GetNextPage(CQFileListItem*) override { return 13; }
  int GetPrevPage(CQFileListItem*) override { return 14; }
  int GetLastPage(CQFileListItem*) override { return 15; }
  int GetCurPageNum() override { return 16; }
  int GetPageTotalCount() override { return 17; }
};

TEST(FileListInterfaces, TheSelectedFilesAreReachedThroughTheirInterface) {
  Answering list;
  CQFileListItem item;
  IQSelectedFileList& selected = list;
  EXPECT_EQ(selected.GetSelFirst(&item), 1);
  EXPECT_EQ(selected.GetSelNext(&item), 2);
  EXPECT_EQ(selected.GetSelPrev(&item), 3);
  EXPECT_EQ(selected.GetSelLast(&item), 4);
  EXPECT_EQ(selected.GetSelCount(), 5);
  EXPECT_EQ(selected.DeleteSel(true, nullptr), 6);
  EXPECT_EQ(selected.SetProtectSel(true, nullptr), 7);
  EXPECT_EQ(selected.SetProtectSel(nullptr), 8);
  EXPECT_EQ(selected.DPOFSel(nullptr), 9);
}

TEST(FileListInterfaces, PagesAreReachedThroughTheirInterface) {
  Answering list;
  CQFileListItem item;
  IQPageUtil& pages = list;
  EXPECT_EQ(pages.InitPage(9), 109);
  EXPECT_EQ(pages.GetPageAt(4, &item), 204);
  EXPECT_EQ(pages.GetFirstPage(&item), 12);
  EXPECT_EQ(pages.GetNextPage(&item), 13);
  EXPECT_EQ(pages.GetPrevPage(&item), 14);
  EXPECT_EQ(pages.GetLastPage(&item), 15);
  EXPECT_EQ(pages.GetCurPageNum(), 16);
  EXPECT_EQ(pages.GetPageTotalCount(), 17);
}

TEST(FileListEnumerations, HaveTheirFixedValues) {
  EXPECT_EQ(FILE_TYPE_RAW, 1);
  EXPECT_EQ(FILE_TYPE_VOICE_MEMO, 5);
  EXPECT_EQ(FILE_TYPE_MULTI_PICTURE, 6);
  EXPECT_EQ(FILE_ADD_RAW, 0);
  EXPECT_EQ(FILE_ADD_VOICE_MEMO, 1);
  EXPECT_EQ(FILE_ADD_MULTI_PICTURE, 2);
  EXPECT_EQ(FILE_NAME_MAKE_FIXED, 0);
  EXPECT_EQ(FILELIST_IMAGE_3D, 1);
}

}  // namespace
