// The operations of the catalogue itself, called on the catalogue of a list between those of the
// list.
#include "tests/model/model_call.h"

namespace flm_model {
namespace {

void BitNumber(Call& call, Scene& scene) {
  call.number[2] = scene.choice.Chance(90) ? scene.choice.Range(4, 7) : scene.choice.Range(-1, 9);
}

void InfoByte(Call& call, Scene& scene) {
  static const std::vector<int> common = {2, 13, 14, 15, 2, 13, 14, 15, 11, 12, 3};
  // The bytes that order, look-ups and marks go by: number, bits, free characters, extension.
  static const std::vector<int> deciding = {0, 1, 3, 3, 4, 7, 8, 9, 20, 22, 30};
  call.number[2] = scene.choice.From(common);
  if (scene.choice.Chance(4)) call.number[2] = scene.choice.Range(-1, 70);
  if (scene.large && scene.choice.Chance(30)) call.number[2] = scene.choice.From(deciding);
  call.number[1] = scene.choice.Chance(80) ? scene.choice.Below(9) : scene.choice.Below(256);
}

void Key(Call& call, Scene& scene) {
  call.number[0] = scene.choice.Range(99, 106) * 100000 + scene.choice.Range(-1, 12);
  if (scene.choice.Chance(70)) Put(call.out, 128, call.path);
  if (!scene.choice.Chance(70)) Put(call.out, 128, "no path at all");
}

void NewName(Call& call, Scene& scene) {
  static const std::vector<std::string> suffixes = {"PHOTO", "PHOTO", "ABCDE",
                                                    "_0315", "VIDEO", "X"};
  static const std::vector<int> sizes = {396, 396, 396, 128, 64, 40, 13};
  call.text = scene.choice.From(suffixes);
  call.size = scene.choice.From(sizes);
}

void DirNumber(Call& call, Scene& scene) {
  call.number[0] =
      scene.choice.From(std::vector<int>{99, 100, 101, 105, 110, 999, 1098, 1099, -1, 40});
  call.number[1] = scene.choice.Range(0, 9);
}

void ObjectType(Call& call, Scene& scene) {
  call.number[2] = scene.choice.From(std::vector<int>{201, 202, 204, 203, 0});
}

// The record's own reading of its time, which goes by the process-wide catalogue.
void AskTime(ModelCatalogue& catalogue, ModelItem* item, unsigned int* time) {
  catalogue.AskTime(item, time);
}
void AskTime(CQDCFList&, DCFItem* item, unsigned int* time) { item->getFileTime(time); }

std::vector<Operation> WalkOperations() {
  return {
      OnCatalogue("dcf GetFirst", 6,
                  [](Call& c, auto& k) {
                    c.result = k.GetFirst(c.out, c.size, c.out2, c.size2, c.on, c.Time());
                  }),
      OnCatalogue("dcf GetNext", 16,
                  [](Call& c, auto& k) {
                    // Without a current file the second buffer is taken to be as large as the
                    // first.
                    c.size2 = c.size;
                    c.result = k.GetNext(c.out, c.size, c.out2, c.size2, c.Time());
                  }),
      OnCatalogue("dcf GetPrev", 14,
                  [](Call& c, auto& k) { c.result = k.GetPrev(c.out, c.size, c.out2, c.size2); }),
      OnCatalogue("dcf GetLast", 5,
                  [](Call& c, auto& k) { c.result = k.GetLast(c.out, c.size, c.out2, c.size2); }),
      OnCatalogue("dcf GetCur", 6,
                  [](Call& c, auto& k) { c.result = k.GetCur(c.out, c.size, c.out2, c.size2); }),
      OnCatalogue("dcf GetAt", 6,
                  [](Call& c, auto& k) {
                    c.result = k.GetAt(c.number[0], c.out, c.size, c.out2, c.size2);
                  }),
      OnCatalogue("dcf GetFirstDCFItem", 4,
                  [](Call& c, auto& k) { c.note = Dump(k.GetFirstDCFItem()); }),
      OnCatalogue("dcf GetNextDCFItem", 8,
                  [](Call& c, auto& k) { c.note = Dump(k.GetNextDCFItem()); }),
      OnCatalogue("dcf InitCursor", 2, [](Call&, auto& k) { k.InitCursor(); }),
      OnCatalogue(
          "dcf SetCurFile", 8, [](Call& c, auto& k) { c.result = k.SetCurFile(c.Path()); },
          kNullPath),
      OnCatalogue("dcf IsLast", 4, [](Call& c, auto& k) { c.result = k.IsLast(c.path.c_str()); }),
      OnCatalogue(
          "dcf GetBitFirst", 6,
          [](Call& c, auto& k) { c.result = k.GetBitFirst(c.out, c.size, c.number[2]); }, 0,
          BitNumber),
      OnCatalogue(
          "dcf GetBitNext", 8,
          [](Call& c, auto& k) { c.result = k.GetBitNext(c.out, c.size, c.number[2]); }, 0,
          BitNumber),
      OnCatalogue(
          "dcf GetBitPrev", 8,
          [](Call& c, auto& k) {
            c.size2 = 99;
            c.result = k.GetBitPrev(c.out, c.size, c.number[2], c.on2 ? nullptr : c.out2);
          },
          0, BitNumber),
      OnCatalogue(
          "dcf GetBitLast", 6,
          [](Call& c, auto& k) { c.result = k.GetBitLast(c.out, c.size, c.number[2]); }, 0,
          BitNumber),
  };
}

std::vector<Operation> MarkBytes() {
  return {
      OnCatalogue(
          "dcf SetCustomBit", 8,
          [](Call& c, auto& k) { c.result = k.SetCustomBit(c.path.c_str(), c.number[2], c.on); }, 0,
          BitNumber),
      OnCatalogue(
          "dcf GetCustomBit", 6,
          [](Call& c, auto& k) { c.result = k.GetCustomBit(c.path.c_str(), c.number[2]); }, 0,
          BitNumber),
      OnCatalogue(
          "dcf SetCustomBitAll", 2,
          [](Call& c, auto& k) { c.result = k.SetCustomBitAll(c.number[2], c.on); }, 0, BitNumber),
      OnCatalogue(
          "dcf GetCustomBitCount", 3,
          [](Call& c, auto& k) { c.result = k.GetCustomBitCount(c.number[2]); }, 0, BitNumber),
      OnCatalogue(
          "dcf SetCustomInfo", 8,
          [](Call& c, auto& k) {
            c.result = k.SetCustomInfo(c.path.c_str(), c.number[2],
                                       static_cast<unsigned char>(c.number[1]));
          },
          0, InfoByte),
      OnCatalogue(
          "dcf GetCustomInfo", 6,
          [](Call& c, auto& k) { c.result = k.GetCustomInfo(c.path.c_str(), c.number[2]); }, 0,
          InfoByte),
      OnCatalogue(
          "dcf SetCustomInfoAll", 1,
          [](Call& c, auto& k) {
            c.result = k.SetCustomInfoAll(c.number[2], static_cast<unsigned char>(c.number[1]));
          },
          0, InfoByte),
  };
}

std::vector<Operation> Lookups() {
  return {
      OnCatalogue("dcf GetNum", 5,
                  [](Call& c, auto& k) {
                    short fileNumber = -1;
                    k.GetNum(c.path.c_str(), &c.outNumber[0], &fileNumber);
                    c.outNumber[1] = fileNumber;
                  }),
      OnCatalogue(
          "dcf GetDidx path", 4,
          [](Call& c, auto& k) { c.result = k.GetDidx(c.number[0], c.Path()); }, kNullPath),
      OnCatalogue(
          "dcf GetDidx numbers", 3,
          [](Call& c, auto& k) { c.result = k.GetDidx(c.number[0], c.number[1]); }, 0, DirNumber),
      OnCatalogue("dcf conversions", 1,
                  [](Call& c, auto& k) {
                    c.note = Format("%d %d %d", k.GetDnum(c.number[2]),
                                    k.GetFnum(c.number[2], c.number[1]), k.GetFidx(c.number[2]));
                  }),
      OnCatalogue("dcf GetURIToKey", 3,
                  [](Call& c, auto& k) { c.result = k.GetURIToKey(c.path.c_str()); }),
      OnCatalogue(
          "dcf GetKeyToURI", 4,
          [](Call& c, auto& k) { c.result = k.GetKeyToURI(c.number[0], c.out, c.size); }, 0, Key),
      OnCatalogue("dcf GetListIndex", 5,
                  [](Call& c, auto& k) { c.result = k.GetListIndex(c.path.c_str()); }),
      OnCatalogue("dcf IsExist", 4, [](Call& c, auto& k) { c.result = k.IsExist(c.path.c_str()); }),
      OnCatalogue("dcf IsProtect", 2,
                  [](Call& c, auto& k) { c.result = k.IsProtect(c.path.c_str()); }),
      OnCatalogue(
          "dcf GetInfo", 6, [](Call& c, auto& k) { c.result = k.GetInfo(c.Path(), c.Item()); },
          kNullItem | kNullPath),
      OnCatalogue("dcf FindItem", 8,
                  [](Call& c, auto& k) {
                    auto* item = k.FindItem(c.path.c_str());
                    c.note = Dump(item) + Format(" %d", k.GetFileType(item));
                    if (item == nullptr) return;
                    short dirNumber = -1;
                    k.GetNum(item, &c.outNumber[0], &dirNumber);
                    unsigned int time = 1;
                    AskTime(k, item, &time);
                    c.note += Format(" %d %d %u", k.GetDcfNum(item), dirNumber, time);
                    int slot = k.GetDidx(0, c.path.c_str());
                    k.GetFullPath(c.out, c.size, c.on ? 99 : 100, c.number[2], slot, item);
                    if (slot >= 0)
                      k.GetObjectFullPath(c.out2, c.size2, 100, c.number[2], slot, item);
                  }),
  };
}

}  // namespace

std::vector<Operation> CatalogueOperations() {
  std::vector<Operation> table = WalkOperations();
  for (const auto& more : {MarkBytes(), Lookups()})
    table.insert(table.end(), more.begin(), more.end());
  return table;
}

std::vector<Operation> TableOperations() {
  return {
      OnCatalogue("dcf Create", 1,
                  [](Call& c, auto& k) {
                    std::string root = k.GetBaseURI();
                    k.Create();
                    if (c.on) k.SetBaseURI(root.c_str());
                  }),
      OnCatalogue("dcf SetBaseURI too long", 1,
                  [](Call& c, auto& k) { c.result = k.SetBaseURI(std::string(98, 'r').c_str()); }),
      OnCatalogue("dcf FreeMem", 1, [](Call&, auto& k) { k.FreeMem(); }),
      OnCatalogue("dcf FreeAllDir", 1, [](Call&, auto& k) { k.FreeAllDir(); }),
      OnCatalogue("dcf SetMode", 2, [](Call& c, auto& k) { k.SetMode(c.number[1]); }),
      OnCatalogue("dcf SetSeriesMode", 2, [](Call& c, auto& k) { k.SetSeriesMode(c.on); }),
      OnCatalogue("dcf Listup", 3,
                  [](Call& c, auto& k) { c.result = k.Listup(c.number[3], c.on); }),
      OnCatalogue("dcf SortItem", 2, [](Call& c, auto& k) { c.result = k.SortItem(); }),
      OnCatalogue(
          "dcf AddDir", 1, [](Call& c, auto& k) { c.result = k.AddDir(c.number[0]); }, 0,
          DirNumber),
      OnCatalogue(
          "dcf AddItem", 3,
          [](Call& c, auto& k) {
            unsigned char data[4] = {static_cast<unsigned char>(c.number[1]), 0,
                                     static_cast<unsigned char>(c.on), 0x84};
            c.result = k.AddItem(c.number[0], c.on2 ? nullptr : data);
          },
          0, DirNumber),
      OnCatalogue(
          "dcf AddFile", 3, [](Call& c, auto& k) { c.result = k.AddFile(c.path.c_str()); }, 0,
          AddedFile),
      OnCatalogue("dcf RemoveFile", 3,
                  [](Call& c, auto& k) { c.result = k.RemoveFile(c.path.c_str()); }),
      OnCatalogue(
          "dcf SetObject", 5,
          [](Call& c, auto& k) { c.result = k.SetObject(c.path.c_str(), c.number[2], c.on); }, 0,
          ObjectType),
  };
}

std::vector<Operation> NumberingOperations() {
  return {
      OnCatalogue("dcf GetLastIndex", 2, [](Call& c, auto& k) { c.result = k.GetLastIndex(); }),
      OnCatalogue("dcf UpdateLastIndex", 2,
                  [](Call& c, auto& k) { c.result = k.UpdateLastIndex(c.on); }),
      OnCatalogue("dcf UpdateLastIndexWithSeriesValue", 2,
                  [](Call&, auto& k) { k.UpdateLastIndexWithSeriesValue(); }),
      OnCatalogue(
          "dcf SetLastIndex", 2,
          [](Call& c, auto& k) { c.result = k.SetLastIndex(c.Path(), c.on); }, kNullPath),
      OnCatalogue("dcf ReadSeriesValue", 2,
                  [](Call& c, auto& k) { c.result = k.ReadSeriesValue(&c.outNumber[0]); }),
      OnCatalogue("dcf BackupSeriesValue", 1,
                  [](Call& c, auto& k) {
                    c.outNumber[0] = c.on ? 99909998 + c.number[3] : c.number[0];
                    c.result = k.BackupSeriesValue(c.on2 ? nullptr : &c.outNumber[0]);
                  }),
      OnCatalogue(
          "dcf GetNewFileName", 5,
          [](Call& c, auto& k) {
            c.result = k.GetNewFileName(c.on2 ? "HDE_" : "ABCD", c.on2 ? "MP4" : "JPG", c.out,
                                        c.size, c.on, c.text.c_str());
          },
          0, NewName),
      OnCatalogue("dcf GetNewFileIndex_FromLastIndex", 2,
                  [](Call& c, auto& k) { c.result = k.GetNewFileIndex_FromLastIndex(); }),
      OnCatalogue("dcf CreateBaseDirectory", 2,
                  [](Call& c, auto& k) { c.result = k.CreateBaseDirectory(); }),
      OnCatalogue(
          "dcf CreateNewDirectory", 2,
          [](Call& c, auto& k) { c.result = k.CreateNewDirectory(c.number[0], c.text.c_str()); }, 0,
          [](Call& c, Scene& s) {
            DirNumber(c, s);
            NewName(c, s);
          }),
  };
}

}  // namespace flm_model
