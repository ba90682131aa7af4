// The operations of the file list: scan, cursor, single files, names, marks, print marks.
#include "tests/model/model_call.h"

namespace flm_model {
namespace {

void LargeOut(Call& call, Scene&) { call.size = 396; }

void ObjectKind(Call& call, Scene& scene) {
  call.number[0] = scene.choice.From(std::vector<int>{0, 1, 5, 6, 1, 5, 6, 7, -1});
}

void LastIndexNumbers(Call& call, Scene& scene) {
  static const std::vector<int> dirs = {99, 100, 101, 102, 103, 998, 999, 999, 1000, -5, 0, 12345};
  static const std::vector<int> files = {0, 1, 5, 20, 9998, 9999, 9999, 10000, -3, 123456};
  call.number[0] = scene.choice.From(dirs);
  call.number[1] = scene.choice.From(files);
}

void PrintOrderPath(Call& call, Scene& scene) {
  static const std::vector<std::string> places = {
      "/MISC/AUTPRINT.MRK", "/MISC/OTHER.MRK", "/AUTPRINT.MRK",
      "/none/x.MRK",        "/MISC",           "/MISCELLANY.MRK"};
  call.hasPath = scene.choice.Chance(40);
  call.path = scene.root + scene.choice.From(places);
  if (scene.choice.Chance(3)) call.path += std::string(130, 'z');
}

void FilePrefix(Call& call, Scene& scene) {
  static const std::vector<std::string> prefixes = {"QVX_",       "ABCD", "LONGPREF", "NINECHARS",
                                                    "TOOLONGER_", "HDV_", "hda_",     "AB"};
  call.path = scene.choice.From(prefixes);
}

void DeviceName(Call& call, Scene& scene) {
  call.path = std::string(static_cast<size_t>(scene.choice.Range(0, 33)), 'd');
}

void ReserveKind(Call& call, Scene& scene) {
  call.size = 396;
  call.number[1] = scene.choice.Range(0, 6);
}

void ListType(Call& call, Scene& scene) {
  call.number[0] = scene.choice.From(std::vector<int>{4, 4, 4, 0, 2, 1, 3});
}

void Select(std::vector<Operation>& table, std::vector<Operation> more) {
  table.insert(table.end(), more.begin(), more.end());
}

std::vector<Operation> CursorOperations() {
  return {
      OnList(
          "GetAt", 30, [](Call& c, auto& l) { c.result = l.GetAt(c.number[0], c.Item(), c.on); },
          kNullItem),
      OnList(
          "DCF_GetAt", 8, [](Call& c, auto& l) { c.result = l.DCF_GetAt(c.number[0], c.Item()); },
          kNullItem),
      OnList(
          "GetCur", 10, [](Call& c, auto& l) { c.result = l.GetCur(c.Item()); }, kNullItem),
      OnList(
          "GetCurrent", 12, [](Call& c, auto& l) { c.result = l.GetCurrent(c.Item(), c.on); },
          kNullItem),
      OnList(
          "GetFirst", 16, [](Call& c, auto& l) { c.result = l.GetFirst(c.Item(), c.on); },
          kNullItem),
      OnList(
          "GetNext", 40, [](Call& c, auto& l) { c.result = l.GetNext(c.Item(), c.on); }, kNullItem),
      OnList(
          "GetPrev", 40, [](Call& c, auto& l) { c.result = l.GetPrev(c.Item(), c.on); }, kNullItem),
      OnList(
          "GetLast", 16, [](Call& c, auto& l) { c.result = l.GetLast(c.Item(), c.on); }, kNullItem),
      OnList(
          "IsLast", 8, [](Call& c, auto& l) { c.result = l.IsLast(c.Item()); }, kNullItem),
      OnList(
          "SetCur", 20, [](Call& c, auto& l) { c.result = l.SetCur(c.Path()); }, kNullPath),
      OnList("SetCurIndex", 10, [](Call& c, auto& l) { c.result = l.SetCurIndex(c.number[0]); }),
      OnList("GetFileListIndex path", 8,
             [](Call& c, auto& l) { c.result = l.GetFileListIndex(c.path.data()); }),
      OnList("GetFileListIndex item", 6,
             [](Call& c, auto& l) { c.result = l.GetFileListIndex(&c.item); }),
  };
}

std::vector<Operation> FileOperations() {
  return {
      OnList(
          "GetInfo", 14, [](Call& c, auto& l) { c.result = l.GetInfo(c.Path(), c.Item()); },
          kNullItem | kNullPath),
      OnList(
          "GetFileInfo", 10, [](Call& c, auto& l) { c.result = l.GetFileInfo(c.Item()); },
          kNullItem),
      OnList(
          "GetFileCreateTime", 6,
          [](Call& c, auto& l) { c.result = l.GetFileCreateTime(c.Item()); }, kNullItem),
      OnList(
          "GetObjectFullPath", 12,
          [](Call& c, auto& l) {
            eFileType kind = static_cast<eFileType>(c.number[0]);
            c.result = l.GetObjectFullPath(c.Item(), kind, c.out, c.size);
          },
          kNullItem, ObjectKind),
      OnList(
          "GetPrefix", 4, [](Call& c, auto& l) { c.result = l.GetPrefix(c.Item()); }, kNullItem),
      OnList("GetIndexKey", 4, [](Call& c, auto& l) { c.result = l.GetIndexKey(c.path.data()); }),
      OnList(
          "AddFile", 5, [](Call& c, auto& l) { c.result = l.AddFile(c.Path()); }, 0, AddedFile),
      OnList("RemoveFileFromList path", 6,
             [](Call& c, auto& l) { c.result = l.RemoveFileFromList(c.path.data()); }),
      OnList(
          "RemoveFileFromList item", 6,
          [](Call& c, auto& l) { c.result = l.RemoveFileFromList(c.Item()); }, kNullItem),
      OnList("IsExist", 10, [](Call& c, auto& l) { c.result = l.IsExist(c.path.data()); }),
      OnList("SortItem", 6, [](Call& c, auto& l) { c.result = l.SortItem(); }),
      OnList("GetAvailNumOfPhoto", 5, [](Call& c, auto& l) { c.result = l.GetAvailNumOfPhoto(); }),
  };
}

std::vector<Operation> NameOperations() {
  return {
      OnList(
          "SetFileNameMake", 5,
          [](Call& c, auto& l) { l.SetFileNameMake(static_cast<eFILE_NAME_MAKE>(c.number[3])); }),
      OnList(
          "SetFolderNameMake", 5,
          [](Call& c, auto& l) { l.SetFolderNameMake(static_cast<eFILE_NAME_MAKE>(c.number[3])); }),
      OnList(
          "SetImageType", 5,
          [](Call& c, auto& l) { l.SetImageType(static_cast<eFileListImageType>(c.number[3])); }),
      OnList("SetFileNameColor", 5,
             [](Call& c, auto& l) {
               c.result = l.SetFileNameColor(static_cast<eFileListColorMode>(c.number[3] * 2));
             }),
      OnList(
          "SetFilePrefix", 2, [](Call& c, auto& l) { c.result = l.SetFilePrefix(c.Path()); },
          kNullPath, FilePrefix),
      OnList(
          "GetNewFileName", 16,
          [](Call& c, auto& l) { c.result = l.GetNewFileName(c.out, c.number[1]); }, 0,
          ReserveKind),
      OnList(
          "GetCopyNewFileName", 6, [](Call& c, auto& l) { c.result = l.GetCopyNewFileName(c.out); },
          0, LargeOut),
      OnList(
          "GetLatestFileName", 5,
          [](Call& c, auto& l) {
            c.exact = true;
            eFileAddType kind = static_cast<eFileAddType>(c.number[2]);
            c.result = l.GetLatestFileName(c.hasPath ? c.out : nullptr, kind);
          },
          kNullPath, [](Call& c, Scene& s) { c.number[2] = s.choice.Range(-1, 3); }),
      OnList(
          "SetObject", 8,
          [](Call& c, auto& l) {
            c.result = l.SetObject(c.Item(), static_cast<eFileAddType>(c.number[2]), c.on);
          },
          kNullItem, [](Call& c, Scene& s) { c.number[2] = s.choice.Range(-1, 3); }),
  };
}

std::vector<Operation> LastIndexOperations() {
  return {
      OnList("GetLastIndex", 5,
             [](Call& c, auto& l) { c.result = l.GetLastIndex(&c.outNumber[0], &c.outNumber[1]); }),
      OnList(
          "SetLastIndex path", 4,
          [](Call& c, auto& l) { c.result = l.SetLastIndex(c.Path(), c.on); }, kNullPath),
      OnList(
          "SetLastIndex numbers", 8,
          [](Call& c, auto& l) { c.result = l.SetLastIndex(c.number[0], c.number[1], c.on); }, 0,
          LastIndexNumbers),
      OnList("UpdateLastIndex", 5, [](Call& c, auto& l) { c.result = l.UpdateLastIndex(c.on); }),
      OnList("SetSeriesMode", 4, [](Call& c, auto& l) { c.result = l.SetSeriesMode(c.on); }),
      OnList("GetSeriesMode", 2, [](Call& c, auto& l) { c.result = l.GetSeriesMode(); }),
      OnList("SetLastUpdated page", 2,
             [](Call& c, auto& l) { c.result = l.SetLastUpdated(c.number[0], c.number[1]); }),
      OnList("SetLastUpdated index", 2,
             [](Call& c, auto& l) { c.result = l.SetLastUpdated(c.number[2]); }),
      OnList("GetLastUpdated", 3,
             [](Call& c, auto& l) {
               c.result = l.GetLastUpdated(c.on ? &c.outNumber[0] : nullptr,
                                           c.on2 ? nullptr : &c.outNumber[1]);
             }),
  };
}

std::vector<Operation> PrintOperations() {
  return {
      OnList(
          "SetDPOF", 14, [](Call& c, auto& l) { c.result = l.SetDPOF(c.Item(), c.number[2]); },
          kNullItem),
      OnList(
          "SetDPOFEdit", 8,
          [](Call& c, auto& l) { c.result = l.SetDPOFEdit(c.Item(), c.number[2]); }, kNullItem),
      OnList(
          "SetDPOFSize", 12,
          [](Call& c, auto& l) { c.result = l.SetDPOFSize(c.Item(), c.number[2]); }, kNullItem),
      OnList("SetDPOFAll", 3, [](Call& c, auto& l) { c.result = l.SetDPOFAll(c.number[2]); }),
      OnList("SetDPOFEditAll", 2,
             [](Call& c, auto& l) { c.result = l.SetDPOFEditAll(c.number[2]); }),
      OnList("SetDPOFSizeAll", 3,
             [](Call& c, auto& l) { c.result = l.SetDPOFSizeAll(c.number[2]); }),
      OnList("SetDPOFIndex", 4, [](Call& c, auto& l) { c.result = l.SetDPOFIndex(c.on); }),
      OnList(
          "GetDPOFNumOfCopy", 8, [](Call& c, auto& l) { c.result = l.GetDPOFNumOfCopy(c.Item()); },
          kNullItem),
      OnList(
          "GetDPOFEdit", 5, [](Call& c, auto& l) { c.result = l.GetDPOFEdit(c.Item()); },
          kNullItem),
      OnList(
          "GetDPOFSize", 5, [](Call& c, auto& l) { c.result = l.GetDPOFSize(c.Item()); },
          kNullItem),
      OnList(
          "GetDPOFIndex", 5, [](Call& c, auto& l) { c.result = l.GetDPOFIndex(c.Item()); },
          kNullItem),
      OnList(
          "SetDPOFDevName", 3, [](Call& c, auto& l) { l.SetDPOFDevName(c.Path()); }, kNullPath,
          DeviceName),
      OnList(
          "SaveDPOFInfo", 10,
          [](Call& c, auto& l) { c.result = l.SaveDPOFInfo(c.Path(), c.Text()); }, 0,
          PrintOrderPath),
      OnList(
          "LoadDPOFInfo", 8, [](Call& c, auto& l) { c.result = l.LoadDPOFInfo(c.Path()); }, 0,
          PrintOrderPath),
  };
}

}  // namespace

// A name of a length that every prefix field is filled by; what a shorter one leaves there is not
// told.
void AddedFile(Call& call, Scene& scene) {
  static const std::vector<std::string> names = {"QVX_0007.JPG", "HDV_0002.MP4", "abcd0003.jpg",
                                                 "QVX_9999.JPG", "ABCD0001.SRW"};
  size_t slash = call.path.rfind('/');
  if (slash == std::string::npos) return;
  size_t length = call.path.size() - slash - 1;
  if (length >= 12 && length <= 40 && scene.choice.Chance(40)) return;
  call.path = call.path.substr(0, slash + 1) + scene.choice.From(names);
}

std::vector<Operation> ListOperations() {
  std::vector<Operation> table = {
      OnList(
          "SetType", 5, [](Call& c, auto& l) { l.SetType(c.number[0]); }, 0, ListType),
      OnList("IncludeNonDCF", 3, [](Call& c, auto& l) { l.IncludeNonDCF(c.on); }),
      OnList("Listup", 14, [](Call& c, auto& l) { c.result = l.Listup(c.number[3]); }),
      OnList("Destroy", 1, [](Call&, auto& l) { l.Destroy(); }),
      OnList("Create", 1, [](Call& c, auto& l) { c.result = l.Create(); }),
      OnList("FreeList", 1, [](Call&, auto& l) { l.FreeList(); }),
  };
  Select(table, CursorOperations());
  Select(table, FileOperations());
  Select(table, NameOperations());
  Select(table, LastIndexOperations());
  Select(table, PrintOperations());
  return table;
}

}  // namespace flm_model
