// Every operation of the file list that takes a path, an item or a number.
#include "api/CBIFileListManager.h"
#include "fuzz/paths.h"

namespace flm_fuzz {
namespace {

constexpr int kNewNameBytes = 396;
constexpr int kPathBytes = 128;
constexpr int kPageFiles = 4;

using A = Arguments;

eFileAddType AddedKind(const A& a) { return static_cast<eFileAddType>(a.number[0]); }

const Operation kSingleFiles[] = {
    {false, [](A& a) { a.list.GetFileListIndex(a.item); }},
    {false, [](A& a) { a.list.GetFileListIndex(a.path); }},
    {false, [](A& a) { a.list.IsExist(a.path); }},
    {false, [](A& a) { a.list.IsLast(a.item); }},
    {false, [](A& a) { a.list.GetPrefix(a.item); }},
    {false, [](A& a) { a.list.GetPrefixEnum(a.path); }},
    {false, [](A& a) { a.list.GetIndexKey(a.path); }},
    {false, [](A& a) { a.list.SetCur(a.path); }},
    {false, [](A& a) { a.list.SetCurIndex(a.number[0]); }},
    {false, [](A& a) { a.list.GetAt(a.number[0], a.item, a.on); }},
    {false, [](A& a) { a.list.DCF_GetAt(a.number[0], a.item); }},
    {false, [](A& a) { a.list.GetCur(a.item); }},
    {false, [](A& a) { a.list.GetCurrent(a.item, a.on); }},
    {false, [](A& a) { a.list.GetFirst(a.item, a.on); }},
    {false, [](A& a) { a.list.GetNext(a.item, a.on); }},
    {false, [](A& a) { a.list.GetPrev(a.item, a.on); }},
    {false, [](A& a) { a.list.GetLast(a.item, a.on); }},
    {false, [](A& a) { a.list.GetInfo(a.path, a.item); }},
    {false, [](A& a) { a.list.GetFileInfo(a.item); }},
    {false, [](A& a) { a.list.GetFileCreateTime(a.item); }},
    {false,
     [](A& a) {
       const int size = a.Size();
       a.list.GetObjectFullPath(a.item, static_cast<eFileType>(a.number[0]), a.Out(size), size);
     }},
    {true, [](A& a) { a.list.SetObject(a.item, AddedKind(a), a.on); }},
    {true, [](A& a) { a.list.AddFile(a.path); }},
    {true, [](A& a) { a.list.RemoveFileFromList(a.path); }},
    {true, [](A& a) { a.list.RemoveFileFromList(a.item); }},
};

const Operation kMarks[] = {
    {true, [](A& a) { a.list.SetSel(a.item, a.on); }},
    {false, [](A& a) { a.list.IsSel(a.item); }},
    {true, [](A& a) { a.list.SetWifiFlag(a.item, a.on); }},
    {false, [](A& a) { a.list.IsWifiFlag(a.item); }},
    {true, [](A& a) { a.list.SetVoiceRec(a.item, a.on); }},
    {false, [](A& a) { a.list.IsVoiceRec(a.item); }},
    {true, [](A& a) { a.list.SetConsCap(a.item, a.on); }},
    {false, [](A& a) { a.list.IsConsCap(a.item); }},
    {true, [](A& a) { a.list.SetProtect(a.item, a.on); }},
    {false, [](A& a) { a.list.IsProtect(a.item); }},
    {true, [](A& a) { a.list.SetSelAll(a.on); }},
    {false, [](A& a) { a.list.GetSelFirst(&a.ownItem); }},
    {false, [](A& a) { a.list.GetSelNext(&a.ownItem); }},
    {false, [](A& a) { a.list.GetSelPrev(a.item); }},
    {false, [](A& a) { a.list.GetSelLast(a.item); }},
    {true, [](A& a) { a.list.SetProtectAll(a.on, a.Callback()); }},
    {true, [](A& a) { a.list.SetProtectSel(a.on, a.Callback()); }},
    {true, [](A& a) { a.list.SetProtectSel(a.Callback()); }},
    {true, [](A& a) { a.list.DPOFSel(a.Callback()); }},
};

const Operation kPrintMarks[] = {
    {true, [](A& a) { a.list.SetDPOF(a.item, a.number[0]); }},
    {true, [](A& a) { a.list.SetDPOFAll(a.number[0]); }},
    {true, [](A& a) { a.list.SetDPOFIndex(a.on); }},
    {true, [](A& a) { a.list.SetDPOFSize(a.item, a.number[0]); }},
    {true, [](A& a) { a.list.SetDPOFSizeAll(a.number[0]); }},
    {true, [](A& a) { a.list.SetDPOFEdit(a.item, a.number[0]); }},
    {true, [](A& a) { a.list.SetDPOFEditAll(a.number[0]); }},
    {false, [](A& a) { a.list.GetDPOFNumOfCopy(a.item); }},
    {false, [](A& a) { a.list.GetDPOFIndex(a.item); }},
    {false, [](A& a) { a.list.GetDPOFSize(a.item); }},
    {false, [](A& a) { a.list.GetDPOFEdit(a.item); }},
    {true, [](A& a) { a.list.SaveDPOFInfo(a.path, a.text); }},
    {true, [](A& a) { a.list.SaveDPOFInfo(nullptr, a.path); }},
    {true, [](A& a) { a.list.LoadDPOFInfo(a.path); }},
    {true, [](A& a) { a.list.SetDPOFDevName(a.path); }},
};

const Operation kDeletion[] = {
    {true, [](A& a) { a.list.Delete(a.item, a.on, a.on2); }},
    {true, [](A& a) { a.list.DeleteCons(a.item, a.on, a.on2); }},
    {true, [](A& a) { a.list.DeleteVoiceRec(a.item, a.on, a.on2); }},
    {true, [](A& a) { a.list.DCF_RemoveFile(a.path, a.on); }},
    {true, [](A& a) { a.list.DeleteAll(a.on, a.Callback()); }},
    {true, [](A& a) { a.list.DeleteSel(a.on, a.Callback()); }},
    {true, [](A& a) { a.list.DeleteVoiceRecAll(a.on, a.Callback()); }},
};

const Operation kNames[] = {
    {true, [](A& a) { a.list.GetNewFileName(a.Out(kNewNameBytes), a.number[0]); }},
    {true, [](A& a) { a.list.GetCopyNewFileName(a.Out(kNewNameBytes)); }},
    {true, [](A& a) { a.list.GetLatestFileName(a.Out(kPathBytes), AddedKind(a)); }},
    {true, [](A& a) { a.list.SetFilePrefix(a.path); }},
    {true, [](A& a) { a.list.SetFileNameMake(static_cast<eFILE_NAME_MAKE>(a.number[0])); }},
    {true, [](A& a) { a.list.SetFolderNameMake(static_cast<eFILE_NAME_MAKE>(a.number[0])); }},
    {true, [](A& a) { a.list.SetFileNameColor(static_cast<eFileListColorMode>(a.number[0])); }},
    {true, [](A& a) { a.list.SetImageType(static_cast<eFileListImageType>(a.number[0])); }},
    {true, [](A& a) { a.list.SetLastIndex(a.path, a.on); }},
    {true, [](A& a) { a.list.SetLastIndex(a.number[0], a.number[1], a.on); }},
    {true, [](A& a) { a.list.SetSeriesMode(a.on); }},
    {true, [](A& a) { a.list.UpdateLastIndex(a.on); }},
    {false, [](A& a) { a.list.GetAvailNumOfPhoto(); }},
    {true, [](A& a) { a.list.SetLastUpdated(a.number[0], a.number[1]); }},
    {true,
     [](A& a) {
       a.list.SetLastUpdated(a.number[0]);
       a.list.GetLastUpdated(&a.number[0], &a.number[1]);
     }},
};

// `items` has room for every page size that InitPage is given.
const Operation kSetUp[] = {
    {true,
     [](A& a) {
       CQFileListItem items[kPageFiles];
       a.list.InitPage(a.number[1] % (kPageFiles + 1));
       a.list.GetPageAt(a.number[0], items);
       a.list.GetNextPage(items);
     }},
    {true,
     [](A& a) {
       CQFileListItem items[kPageFiles];
       a.list.InitPage(a.number[1] % (kPageFiles + 1));
       a.list.GetLastPage(items);
       a.list.GetPrevPage(items);
     }},
    {true,
     [](A& a) {
       a.list.SetType(a.number[0]);
       a.list.Listup(a.number[1]);
     }},
    {true,
     [](A& a) {
       a.list.SetBaseURI(a.path);
       a.list.Listup(a.number[1]);
     }},
    {true,
     [](A& a) {
       a.list.IncludeNonDCF(a.on);
       a.list.Listup(a.number[1]);
     }},
    {false, [](A& a) { CBIFileListManager::GetFileList(a.path, a.number[0]); }},
    {false, [](A& a) { CBIFileListManager::GetPageUtil(a.path, a.number[0]); }},
};

}  // namespace

ProgressCallback Arguments::Callback() const {
  if (number[1] < 0) return nullptr;
  return [](int index, int /*total*/, int* /*status*/, bool* cancel) { *cancel = index == 1; };
}

const Operations& ListOperations() {
  static const Operations all = [] {
    Operations operations;
    const auto add = [&operations](const auto& table) {
      operations.insert(operations.end(), std::begin(table), std::end(table));
    };
    add(kSingleFiles);
    add(kMarks);
    add(kPrintMarks);
    add(kDeletion);
    add(kNames);
    add(kSetUp);
    return operations;
  }();
  return all;
}

}  // namespace flm_fuzz
