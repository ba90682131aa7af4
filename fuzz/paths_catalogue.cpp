// Every operation of the catalogue that takes a path, a number, a text or a record, and those of
// the print order that do.
#include <iterator>

#include "dpof/CQDPOF.h"
#include "fuzz/paths.h"

namespace flm_fuzz {
namespace {

constexpr size_t kRawBytes = 4;
constexpr int kObjectBytes = 99;

using A = Arguments;

// Two buffers of one size: without a current file GetNext takes them to be alike.
struct Pair {
  explicit Pair(A& a) : size(a.Size()), first(a.Out(size)), second(a.Out(size)) {}
  int size;
  char* first;
  char* second;
};

const Operation kWalks[] = {
    {false,
     [](A& a) {
       const Pair out(a);
       unsigned int time = 0;
       a.catalogue.GetFirst(out.first, out.size, out.second, out.size, a.on,
                            a.on2 ? nullptr : &time);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       unsigned int time = 0;
       a.catalogue.GetNext(out.first, out.size, out.second, out.size, a.on2 ? nullptr : &time);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       a.catalogue.GetPrev(out.first, out.size, out.second, out.size);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       a.catalogue.GetLast(out.first, out.size, out.second, out.size);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       a.catalogue.GetCur(out.first, out.size, out.second, out.size);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       a.catalogue.GetAt(a.number[0], out.first, out.size, out.second, out.size);
     }},
    {false,
     [](A& a) {
       const Pair out(a);
       a.catalogue.GetFirstBeside(a.path, out.first, out.size);
       a.catalogue.GetLastPath(out.second, out.size);
     }},
    {false, [](A& a) { a.catalogue.GetNextDCFItem(); }},
    {false, [](A& a) { a.catalogue.SetCurFile(a.path); }},
    {false, [](A& a) { a.catalogue.IsLast(a.path); }},
    {true, [](A& a) { a.catalogue.SetCurItem(a.number[0], a.number[1], a.number[2], a.Record()); }},
    {true,
     [](A& a) { a.catalogue.SetBitCurFile(a.number[0], a.number[1], a.number[2], a.Record()); }},
};

const Operation kMarks[] = {
    {false, [](A& a) { a.catalogue.GetBitFirst(a.Out(a.Size()), a.Size(), a.number[0]); }},
    {false, [](A& a) { a.catalogue.GetBitNext(a.Out(a.Size()), a.Size(), a.number[0]); }},
    {false, [](A& a) { a.catalogue.GetBitLast(a.Out(a.Size()), a.Size(), a.number[0]); }},
    {false,
     [](A& a) {
       char* const object = a.on2 ? nullptr : a.Out(kObjectBytes);
       a.catalogue.GetBitPrev(a.Out(a.Size()), a.Size(), a.number[0], object);
     }},
    {true, [](A& a) { a.catalogue.SetCustomBit(a.path, a.number[0], a.on); }},
    {false, [](A& a) { a.catalogue.GetCustomBit(a.path, a.number[0]); }},
    {true, [](A& a) { a.catalogue.SetCustomBitAll(a.number[0], a.on); }},
    {false, [](A& a) { a.catalogue.GetCustomBitCount(a.number[0]); }},
    {true,
     [](A& a) {
       a.catalogue.SetCustomInfo(a.path, a.number[0], static_cast<unsigned char>(a.number[1]));
     }},
    {false, [](A& a) { a.catalogue.GetCustomInfo(a.path, a.number[0]); }},
    {true,
     [](A& a) {
       a.catalogue.SetCustomInfoAll(a.number[0], static_cast<unsigned char>(a.number[1]));
     }},
    {false, [](A& a) { a.catalogue.GetMarks(a.path); }},
    {false,
     [](A& a) {
       flm::FileMarks marks;
       a.catalogue.Visit(a.path, a.on ? &marks : nullptr);
     }},
    {false,
     [](A& a) {
       CQDCFList::InfoWalk walk = CQDCFList::WalkInfo(a.number[0], a.number[1]);
       a.catalogue.GetNextWithInfo(walk, a.Out(a.Size()), a.Size());
       a.catalogue.EndWalk(walk);
     }},
};

const Operation kLookUps[] = {
    {false,
     [](A& a) {
       short fileNumber = 0;
       a.catalogue.GetNum(a.path, &a.number[0], &fileNumber);
     }},
    {false,
     [](A& a) {
       short dirNumber = 0;
       a.catalogue.GetNum(a.Record(), &a.number[0], &dirNumber);
     }},
    {false, [](A& a) { a.catalogue.GetDidx(a.number[0], a.path); }},
    {false, [](A& a) { a.catalogue.GetDidx(a.number[0], a.number[1]); }},
    {false, [](A& a) { a.catalogue.GetDnum(a.number[0]); }},
    {false, [](A& a) { a.catalogue.GetFnum(a.number[0], a.number[1]); }},
    {false, [](A& a) { a.catalogue.GetFidx(a.number[0]); }},
    {false, [](A& a) { a.catalogue.GetIndexToNum(a.number[0], &a.number[1], &a.number[2]); }},
    {false, [](A& a) { a.catalogue.GetNumToIndex(a.number[0], a.number[1]); }},
    {false, [](A& a) { a.catalogue.GetURIToKey(a.path); }},
    {false,
     [](A& a) {
       const int size = a.Size();
       char* const out = a.Out(size);
       const std::string name = a.path == nullptr ? "" : a.path;
       if (size > 0) name.copy(out, static_cast<size_t>(size - 1));
       a.catalogue.GetKeyToURI(a.number[0], out, size);
     }},
    {false, [](A& a) { a.catalogue.GetListIndex(a.path); }},
    {false, [](A& a) { a.catalogue.GetFileType(a.Record()); }},
    {false, [](A& a) { a.catalogue.GetDcfNum(a.Record()); }},
    {false, [](A& a) { a.catalogue.IsExist(a.path); }},
    {false, [](A& a) { a.catalogue.IsProtect(a.path); }},
    {false, [](A& a) { a.catalogue.GetInfo(a.path, a.item); }},
    {false,
     [](A& a) {
       CQDCFList::GetFullPath(a.Out(a.Size()), a.Size(), a.number[0], a.number[1], a.number[2],
                              a.Record());
     }},
    {false,
     [](A& a) {
       a.catalogue.GetObjectFullPath(a.Out(a.Size()), a.Size(), a.number[0], a.number[1],
                                     a.number[2], a.Record());
     }},
};

const Operation kNumbering[] = {
    {true, [](A& a) { a.catalogue.SetLastIndex(a.path, a.on); }},
    {true, [](A& a) { a.catalogue.UpdateLastIndex(a.on); }},
    {true,
     [](A& a) {
       a.catalogue.SetSeriesMode(a.on);
       a.catalogue.UpdateLastIndexWithSeriesValue();
     }},
    {true, [](A& a) { a.catalogue.BackupSeriesValue(&a.number[0]); }},
    {true,
     [](A& a) {
       a.catalogue.SetSeriesMode(a.on);
       a.catalogue.ReadSeriesValue(&a.number[0]);
     }},
    {true,
     [](A& a) {
       a.catalogue.GetNewFileName(a.path, a.text, a.Out(a.Size()), a.Size(), a.on, a.text);
     }},
    {true,
     [](A& a) { a.catalogue.GetNewFileIndex(a.text, a.path, a.Out(a.Size()), a.Size(), a.path); }},
    {true,
     [](A& a) {
       a.catalogue.GetNewFileIndex_SetInfo(a.number[0], a.text, a.text, a.Out(a.Size()), a.Size(),
                                           a.path);
     }},
    {true, [](A& a) { a.catalogue.GetNewFileIndex_FromLastIndex(); }},
};

const Operation kChanges[] = {
    {true, [](A& a) { a.catalogue.CreateNewDirectory(a.number[0], a.path); }},
    {true, [](A& a) { a.catalogue.MakeDirectory(a.path); }},
    {true, [](A& a) { a.catalogue.AddFile(a.path); }},
    {true, [](A& a) { a.catalogue.RemoveFile(a.path); }},
    {true, [](A& a) { a.catalogue.SetObject(a.path, a.number[0], a.on); }},
    {true, [](A& a) { a.catalogue.AddDir(a.number[0]); }},
    {true,
     [](A& a) {
       unsigned char data[kRawBytes] = {static_cast<unsigned char>(a.number[1]), 1,
                                        static_cast<unsigned char>(a.number[2]), 0};
       a.catalogue.AddItem(a.number[0], data);
     }},
    {true, [](A& a) { a.catalogue.MakeUpperCase(a.path); }},
    {true, [](A& a) { a.catalogue.CheckDirNameSyntax(a.path); }},
    {false, [](A& a) { a.catalogue.GetDnum(a.path); }},
    {true, [](A& a) { a.catalogue.Listup(a.number[0], a.on); }},
    {true, [](A& a) { a.catalogue.SetMode(a.number[0]); }},
    {true, [](A& a) { a.catalogue.SetBaseURI(a.path); }},
    {true, [](A& a) { a.catalogue.SortItem(); }},
    {true,
     [](A& a) {
       CQDPOF order;
       order.LoadDPOFInfo(a.path, &a.catalogue);
     }},
    {true,
     [](A& a) {
       CQDPOF order;
       order.SaveDPOFInfo(a.path, &a.catalogue, a.text, a.number[0]);
     }},
    {false,
     [](A& a) {
       CQDPOF order;
       const std::string line = a.path == nullptr ? "" : a.path;
       order.GetPath(a.path, a.Out(static_cast<int>(line.size()) + 1));
     }},
};

}  // namespace

const Operations& CatalogueOperations() {
  static const Operations all = [] {
    Operations operations;
    const auto add = [&operations](const auto& table) {
      operations.insert(operations.end(), std::begin(table), std::end(table));
    };
    add(kWalks);
    add(kMarks);
    add(kLookUps);
    add(kNumbering);
    add(kChanges);
    return operations;
  }();
  return all;
}

}  // namespace flm_fuzz
