// Applications built long ago call the operations of a list by their place in its table. The places
// stand in vtable.txt; here each operation says which place it has.
#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "filelist/CQFileList.h"
#include "tests/abi/abi_text.h"

namespace {

using flm_test::AbiLines;

// The place of a virtual operation, as a pointer to it carries it: a byte offset into the table, on
// most machines with the lowest bit set.
template <typename Signature, class Class>
int Slot(Signature Class::*operation) {
  uintptr_t word = 0;
  static_assert(sizeof(operation) >= sizeof(word),
                "a pointer to an operation begins with its place");
  std::memcpy(&word, &operation, sizeof(word));
  return static_cast<int>((word & ~uintptr_t{1}) / sizeof(void*));
}

constexpr int kDestructorSlots = 2;

struct NamedSlot {
  const char* name;
  int slot;
};

const NamedSlot kListSlots[] = {
    {"Create()", Slot<int()>(&CQFileList::Create)},
    {"Destroy()", Slot<int()>(&CQFileList::Destroy)},
    {"SetType(int)", Slot<int(int)>(&CQFileList::SetType)},
    {"GetType()", Slot<int()>(&CQFileList::GetType)},
    {"SetSeriesMode(bool)", Slot<int(bool)>(&CQFileList::SetSeriesMode)},
    {"GetSeriesMode()", Slot<bool()>(&CQFileList::GetSeriesMode)},
    {"Listup(int)", Slot<int(int)>(&CQFileList::Listup)},
    {"IncludeNonDCF(bool)", Slot<int(bool)>(&CQFileList::IncludeNonDCF)},
    {"Delete(CQFileListItem*, bool, bool)",
     Slot<int(CQFileListItem*, bool, bool)>(&CQFileList::Delete)},
    {"RemoveAll(bool)", Slot<int(bool)>(&CQFileList::RemoveAll)},
    {"DeleteAll(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::DeleteAll)},
    {"GetCount()", Slot<int()>(&CQFileList::GetCount)},
    {"InitGetAt()", Slot<int()>(&CQFileList::InitGetAt)},
    {"GetAt(int, CQFileListItem*, bool)",
     Slot<int(int, CQFileListItem*, bool)>(&CQFileList::GetAt)},
    {"GetFileListIndex(CQFileListItem*)",
     Slot<int(CQFileListItem*)>(&CQFileList::GetFileListIndex)},
    {"GetFileListIndex(char*)", Slot<int(char*)>(&CQFileList::GetFileListIndex)},
    {"GetCurIndex()", Slot<int()>(&CQFileList::GetCurIndex)},
    {"GetCurrent(CQFileListItem*, bool)",
     Slot<int(CQFileListItem*, bool)>(&CQFileList::GetCurrent)},
    {"GetFirst(CQFileListItem*, bool)", Slot<int(CQFileListItem*, bool)>(&CQFileList::GetFirst)},
    {"GetNext(CQFileListItem*, bool)", Slot<int(CQFileListItem*, bool)>(&CQFileList::GetNext)},
    {"GetPrev(CQFileListItem*, bool)", Slot<int(CQFileListItem*, bool)>(&CQFileList::GetPrev)},
    {"GetLast(CQFileListItem*, bool)", Slot<int(CQFileListItem*, bool)>(&CQFileList::GetLast)},
    {"IsLast(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::IsLast)},
    {"SetFileNameMake(eFILE_NAME_MAKE)", Slot<int(eFILE_NAME_MAKE)>(&CQFileList::SetFileNameMake)},
    {"SetFolderNameMake(eFILE_NAME_MAKE)",
     Slot<int(eFILE_NAME_MAKE)>(&CQFileList::SetFolderNameMake)},
    {"SetFileNameColor(eFileListColorMode)",
     Slot<int(eFileListColorMode)>(&CQFileList::SetFileNameColor)},
    {"SetImageType(eFileListImageType)", Slot<int(eFileListImageType)>(&CQFileList::SetImageType)},
    {"GetNewFileName(char*, int)", Slot<int(char*, int)>(&CQFileList::GetNewFileName)},
    {"GetLatestFileName(char*, eFileAddType)",
     Slot<int(char*, eFileAddType)>(&CQFileList::GetLatestFileName)},
    {"GetLastIndex(int*, int*)", Slot<int(int*, int*)>(&CQFileList::GetLastIndex)},
    {"SetLastIndex(char*, bool)", Slot<int(char*, bool)>(&CQFileList::SetLastIndex)},
    {"SetLastIndex(int, int, bool)", Slot<int(int, int, bool)>(&CQFileList::SetLastIndex)},
    {"RemoveFileFromList(char*)", Slot<int(char*)>(&CQFileList::RemoveFileFromList)},
    {"RemoveFileFromList(CQFileListItem*)",
     Slot<int(CQFileListItem*)>(&CQFileList::RemoveFileFromList)},
    {"IsExist(char*)", Slot<int(char*)>(&CQFileList::IsExist)},
    {"GetPrefix(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetPrefix)},
    {"SetCur(char*)", Slot<int(char*)>(&CQFileList::SetCur)},
    {"SetCurIndex(int)", Slot<int(int)>(&CQFileList::SetCurIndex)},
    {"SetSel(CQFileListItem*, bool)", Slot<int(CQFileListItem*, bool)>(&CQFileList::SetSel)},
    {"SetSelAll(bool)", Slot<int(bool)>(&CQFileList::SetSelAll)},
    {"IsSel(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::IsSel)},
    {"SetWifiFlag(CQFileListItem*, bool)",
     Slot<int(CQFileListItem*, bool)>(&CQFileList::SetWifiFlag)},
    {"IsWifiFlag(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::IsWifiFlag)},
    {"SetProtect(CQFileListItem*, bool)",
     Slot<int(CQFileListItem*, bool)>(&CQFileList::SetProtect)},
    {"IsProtect(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::IsProtect)},
    {"SetProtectAll(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::SetProtectAll)},
    {"SetDPOF(CQFileListItem*, int)", Slot<int(CQFileListItem*, int)>(&CQFileList::SetDPOF)},
    {"SetDPOFAll(int)", Slot<int(int)>(&CQFileList::SetDPOFAll)},
    {"SetDPOFIndex(bool)", Slot<int(bool)>(&CQFileList::SetDPOFIndex)},
    {"SetDPOFSize(CQFileListItem*, int)",
     Slot<int(CQFileListItem*, int)>(&CQFileList::SetDPOFSize)},
    {"SetDPOFSizeAll(int)", Slot<int(int)>(&CQFileList::SetDPOFSizeAll)},
    {"GetDPOFNumOfCopy(CQFileListItem*)",
     Slot<int(CQFileListItem*)>(&CQFileList::GetDPOFNumOfCopy)},
    {"GetDPOFIndex(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::GetDPOFIndex)},
    {"GetDPOFSize(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetDPOFSize)},
    {"SaveDPOFInfo(char*, char*)", Slot<int(char*, char*)>(&CQFileList::SaveDPOFInfo)},
    {"LoadDPOFInfo(char*)", Slot<int(char*)>(&CQFileList::LoadDPOFInfo)},
    {"SetDPOFDevName(char*)", Slot<void(char*)>(&CQFileList::SetDPOFDevName)},
    {"GetBaseURI()", Slot<char*()>(&CQFileList::GetBaseURI)},
    {"SetFilePrefix(char*)", Slot<int(char*)>(&CQFileList::SetFilePrefix)},
    {"GetInfo(char*, CQFileListItem*)", Slot<int(char*, CQFileListItem*)>(&CQFileList::GetInfo)},
    {"GetObjectFullPath(CQFileListItem*, eFileType, char*, int)",
     Slot<int(CQFileListItem*, eFileType, char*, int)>(&CQFileList::GetObjectFullPath)},
    {"SetObject(CQFileListItem*, eFileAddType, bool)",
     Slot<int(CQFileListItem*, eFileAddType, bool)>(&CQFileList::SetObject)},
    {"GetFileCreateTime(CQFileListItem*)",
     Slot<int(CQFileListItem*)>(&CQFileList::GetFileCreateTime)},
    {"UpdateLastIndex(bool)", Slot<int(bool)>(&CQFileList::UpdateLastIndex)},
    {"SortItem()", Slot<int()>(&CQFileList::SortItem)},
    {"GetAvailNumOfPhoto()", Slot<int()>(&CQFileList::GetAvailNumOfPhoto)},
    {"GetDCFList()", Slot<CQDCFList*()>(&CQFileList::GetDCFList)},
    {"GetCopyNewFileName(char*)", Slot<int(char*)>(&CQFileList::GetCopyNewFileName)},
    {"SetProtectSel(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::SetProtectSel)},
    {"SetProtectSel(ProgressCallback)", Slot<int(ProgressCallback)>(&CQFileList::SetProtectSel)},
    {"SetDPOFEdit(CQFileListItem*, int)",
     Slot<int(CQFileListItem*, int)>(&CQFileList::SetDPOFEdit)},
    {"SetDPOFEditAll(int)", Slot<int(int)>(&CQFileList::SetDPOFEditAll)},
    {"GetDPOFEdit(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetDPOFEdit)},
    {"DPOFSel(ProgressCallback)", Slot<int(ProgressCallback)>(&CQFileList::DPOFSel)},
    {"GetSelFirst(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetSelFirst)},
    {"GetSelNext(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetSelNext)},
    {"GetSelPrev(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetSelPrev)},
    {"GetSelLast(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetSelLast)},
    {"GetSelCount()", Slot<int()>(&CQFileList::GetSelCount)},
    {"DeleteSel(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::DeleteSel)},
    {"InitPage(int)", Slot<int(int)>(&CQFileList::InitPage)},
    {"GetPageAt(int, CQFileListItem*)", Slot<int(int, CQFileListItem*)>(&CQFileList::GetPageAt)},
    {"GetFirstPage(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetFirstPage)},
    {"GetNextPage(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetNextPage)},
    {"GetPrevPage(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetPrevPage)},
    {"GetLastPage(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetLastPage)},
    {"GetCurPageNum()", Slot<int()>(&CQFileList::GetCurPageNum)},
    {"GetPageTotalCount()", Slot<int()>(&CQFileList::GetPageTotalCount)},
    {"SetConsCap(CQFileListItem*, bool)",
     Slot<int(CQFileListItem*, bool)>(&CQFileList::SetConsCap)},
    {"SetConsCapAll(bool)", Slot<int(bool)>(&CQFileList::SetConsCapAll)},
    {"IsConsCap(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::IsConsCap)},
    {"GetConsFirst(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetConsFirst)},
    {"GetConsNext(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetConsNext)},
    {"GetConsPrev(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetConsPrev)},
    {"GetConsLast(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetConsLast)},
    {"GetConsCount()", Slot<int()>(&CQFileList::GetConsCount)},
    {"DeleteCons(CQFileListItem*, bool, bool)",
     Slot<int(CQFileListItem*, bool, bool)>(&CQFileList::DeleteCons)},
    {"DeleteConsAll(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::DeleteConsAll)},
    {"SetVoiceRec(CQFileListItem*, bool)",
     Slot<int(CQFileListItem*, bool)>(&CQFileList::SetVoiceRec)},
    {"SetVoiceRecAll(bool)", Slot<int(bool)>(&CQFileList::SetVoiceRecAll)},
    {"IsVoiceRec(CQFileListItem*)", Slot<bool(CQFileListItem*)>(&CQFileList::IsVoiceRec)},
    {"GetVoiceRecFirst(CQFileListItem*)",
     Slot<int(CQFileListItem*)>(&CQFileList::GetVoiceRecFirst)},
    {"GetVoiceRecNext(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetVoiceRecNext)},
    {"GetVoiceRecPrev(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetVoiceRecPrev)},
    {"GetVoiceRecLast(CQFileListItem*)", Slot<int(CQFileListItem*)>(&CQFileList::GetVoiceRecLast)},
    {"GetVoiceRecCount()", Slot<int()>(&CQFileList::GetVoiceRecCount)},
    {"DeleteVoiceRec(CQFileListItem*, bool, bool)",
     Slot<int(CQFileListItem*, bool, bool)>(&CQFileList::DeleteVoiceRec)},
    {"DeleteVoiceRecAll(bool, ProgressCallback)",
     Slot<int(bool, ProgressCallback)>(&CQFileList::DeleteVoiceRecAll)},
};

TEST(VtableTest, EveryOperationOfTheListHasItsPlace) {
  std::map<std::string, int> slots;
  for (const NamedSlot& named : kListSlots) slots[named.name] = named.slot;
  const std::vector<std::string> order = AbiLines("vtable.txt");
  EXPECT_EQ(order.size(), slots.size());
  for (size_t i = 0; i < order.size(); ++i) {
    const auto found = slots.find(order[i]);
    ASSERT_NE(found, slots.end()) << order[i];
    EXPECT_EQ(found->second, static_cast<int>(i) + kDestructorSlots) << order[i];
  }
}

TEST(VtableTest, TheInterfaceEndsWithTheCatalogue) {
  constexpr int kLastSlot = 66 + kDestructorSlots;
  EXPECT_EQ(Slot<int()>(&IQFileList::Create), kDestructorSlots);
  EXPECT_EQ(Slot<CQDCFList*()>(&IQFileList::GetDCFList), kLastSlot);
  EXPECT_EQ(Slot<int(char*)>(&CQFileList::GetCopyNewFileName), kLastSlot + 1);
}

TEST(VtableTest, TheSelectedFilesHaveTheirPlaces) {
  using Selected = IQSelectedFileList;
  const std::vector<int> slots = {Slot<int(CQFileListItem*)>(&Selected::GetSelFirst),
                                  Slot<int(CQFileListItem*)>(&Selected::GetSelNext),
                                  Slot<int(CQFileListItem*)>(&Selected::GetSelPrev),
                                  Slot<int(CQFileListItem*)>(&Selected::GetSelLast),
                                  Slot<int()>(&Selected::GetSelCount),
                                  Slot<int(bool, ProgressCallback)>(&Selected::DeleteSel),
                                  Slot<int(bool, ProgressCallback)>(&Selected::SetProtectSel),
                                  Slot<int(ProgressCallback)>(&Selected::SetProtectSel),
                                  Slot<int(ProgressCallback)>(&Selected::DPOFSel)};
  EXPECT_EQ(slots, (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9, 10}));
}

TEST(VtableTest, ThePagesHaveTheirPlaces) {
  const std::vector<int> slots = {Slot<int(int)>(&IQPageUtil::InitPage),
                                  Slot<int(int, CQFileListItem*)>(&IQPageUtil::GetPageAt),
                                  Slot<int(CQFileListItem*)>(&IQPageUtil::GetFirstPage),
                                  Slot<int(CQFileListItem*)>(&IQPageUtil::GetNextPage),
                                  Slot<int(CQFileListItem*)>(&IQPageUtil::GetPrevPage),
                                  Slot<int(CQFileListItem*)>(&IQPageUtil::GetLastPage),
                                  Slot<int()>(&IQPageUtil::GetCurPageNum),
                                  Slot<int()>(&IQPageUtil::GetPageTotalCount)};
  EXPECT_EQ(slots, (std::vector<int>{2, 3, 4, 5, 6, 7, 8, 9}));
}

TEST(VtableTest, ThreeInterfacesReachOneObject) {
  CQFileList list;
  IQPageUtil* const pages = &list;
  IQSelectedFileList* const selected = &list;
  IQFileList* const files = &list;
  EXPECT_EQ(static_cast<void*>(files), static_cast<void*>(&list));
  EXPECT_EQ(dynamic_cast<CQFileList*>(pages), &list);
  EXPECT_EQ(dynamic_cast<CQFileList*>(selected), &list);
  EXPECT_LT(reinterpret_cast<char*>(selected), reinterpret_cast<char*>(pages));
}

}  // namespace
