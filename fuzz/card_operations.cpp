#include "fuzz/card_operations.h"

#include <iterator>
#include <string>

#include "api/flm.h"
#include "fuzz/memory_card.h"

namespace flm_fuzz {
namespace {

constexpr int kNewNameBytes = 396;
constexpr int kFlatBytes = 1024;
constexpr int kPathBytes = 128;
constexpr int kPageFiles = 5;
constexpr FileListType kFlat = FILELIST_MMC;

struct Step {
  CQFileList& list;
  CQFileListItem item;  // a file of the list
  int index;
  int number;
  bool on;
  bool on2;
};

void CancelSecond(int index, int /*total*/, int* /*status*/, bool* cancel) { *cancel = index == 1; }

ProgressCallback CallbackOf(const Step& s) { return s.on2 ? CancelSecond : nullptr; }

// A file that the camera writes under the name that it was given.
void WriteNew(const char* path) {
  if (path[0] == '/') MemoryCard::Get().MakeFile(path);
}

using Act = void (*)(Step&);

constexpr Act kFiles[] = {
    [](Step& s) {
      const bool was = MemoryCard::Get().Exists(s.item.filePath);
      const std::string path = s.item.filePath;
      const int result = s.list.Delete(&s.item, s.on, s.on2);
      if (was && result > 0 && MemoryCard::Get().Exists(path)) Fail("not deleted:", path.c_str());
    },
    [](Step& s) { s.list.RemoveFileFromList(&s.item); },
    [](Step& s) {
      s.list.SetCur(s.item.filePath);
      s.list.GetCurrent(&s.item, s.on);
      s.list.GetNext(&s.item, s.on2);
    },
    [](Step& s) { s.list.GetInfo(s.item.filePath, &s.item); },
    [](Step& s) {
      if (s.list.SetProtect(&s.item, s.on) == 0 && s.list.IsProtect(&s.item) != s.on) {
        // A companion's result is the whole result; only a file without any must have changed.
        if (s.item.objectPath[0] == '\0') Fail("protection is not as set:", s.item.filePath);
      }
    },
    [](Step& s) { s.list.SetObject(&s.item, static_cast<eFileAddType>(s.number), s.on); },
    [](Step& s) { s.list.GetPrev(&s.item, s.on); },
    [](Step& s) { s.list.GetLast(&s.item, s.on); },
};

constexpr Act kMarks[] = {
    [](Step& s) { s.list.SetSel(&s.item, s.on); },
    [](Step& s) { s.list.SetVoiceRec(&s.item, s.on); },
    [](Step& s) { s.list.SetWifiFlag(&s.item, s.on); },
    [](Step& s) { s.list.SetDPOF(&s.item, s.number); },
    [](Step& s) { s.list.SetDPOFSize(&s.item, s.number); },
    [](Step& s) { s.list.SetDPOFEdit(&s.item, s.number); },
    [](Step& s) { s.list.SetDPOFIndex(s.on); },
    [](Step& s) { s.list.SetDPOFAll(s.number); },
    [](Step& s) { s.list.SaveDPOFInfo(nullptr, nullptr); },
    [](Step& s) { s.list.LoadDPOFInfo(nullptr); },
};

constexpr Act kBulk[] = {
    [](Step& s) { s.list.DeleteSel(s.on, CallbackOf(s)); },
    [](Step& s) { s.list.DeleteVoiceRecAll(s.on, CallbackOf(s)); },
    [](Step& s) {
      const int result = s.list.DeleteAll(s.on, CallbackOf(s));
      const bool finished = result >= 0 && s.on && !s.on2;
      if (finished && s.list.GetCount() > 0) Fail("files are left of all");
    },
    [](Step& s) { s.list.SetProtectSel(s.on, CallbackOf(s)); },
    [](Step& s) { s.list.SetProtectSel(CallbackOf(s)); },
    [](Step& s) { s.list.SetProtectAll(s.on, CallbackOf(s)); },
    [](Step& s) { s.list.DPOFSel(CallbackOf(s)); },
    [](Step& s) { s.list.SetSelAll(s.on); },
};

constexpr Act kNames[] = {
    [](Step& s) {
      char out[kNewNameBytes] = {};
      if (s.list.GetNewFileName(out, s.number) == 0 && s.on) WriteNew(out);
    },
    [](Step& s) {
      char out[kNewNameBytes] = {};
      if (s.list.GetCopyNewFileName(out) == 0 && s.on) WriteNew(out);
    },
    [](Step& s) {
      char out[kPathBytes] = {};
      const int done = s.list.GetLatestFileName(out, static_cast<eFileAddType>(s.number));
      if (done == 0 && s.on) WriteNew(out);
    },
    [](Step& s) { s.list.SetFileNameMake(static_cast<eFILE_NAME_MAKE>(s.number)); },
    [](Step& s) { s.list.SetFolderNameMake(static_cast<eFILE_NAME_MAKE>(s.number)); },
    [](Step& s) { s.list.SetFileNameColor(static_cast<eFileListColorMode>(s.number)); },
    [](Step& s) { s.list.SetImageType(static_cast<eFileListImageType>(s.number)); },
    [](Step& s) { s.list.SetLastIndex(s.number, s.index, s.on); },
    [](Step& s) { s.list.SetLastIndex(s.item.filePath, s.on); },
    [](Step& s) { s.list.SetSeriesMode(s.on); },
    [](Step& s) { s.list.UpdateLastIndex(s.on); },
    [](Step& s) { s.list.AddFile(s.item.filePath); },
    [](Step& s) { s.list.SortItem(); },
};

constexpr Act kSetUp[] = {
    [](Step& s) { s.list.Listup(s.on ? 1 : 0); },
    [](Step& s) {
      s.list.SetType(s.number);
      s.list.Listup(s.on ? 1 : 0);
    },
    [](Step& s) {
      CQFileListItem items[kPageFiles];
      s.list.InitPage(s.index % (kPageFiles + 1));
      s.list.GetPageAt(s.number, items);
      s.on ? s.list.GetNextPage(items) : s.list.GetPrevPage(items);
    },
    [](Step& s) { s.list.FreeList(); },
    [](Step& s) { MemoryCard::Get().SetReadOnly(s.item.filePath); },
    [](Step& s) {
      const std::string path = s.item.filePath;
      MemoryCard::Get().SetReadOnly(path.substr(0, path.rfind('/')));
    },
};

constexpr Act kFlatFunctions[] = {
    [](Step& s) {
      char text[kFlatBytes];
      char* out = text;
      flm_get_at(kFlat, s.index, &out);
    },
    [](Step&) { flm_listup(kFlat); },
    [](Step& s) { flm_set_selection(kFlat, s.index, s.number); },
    [](Step& s) { flm_get_selection(kFlat, s.index, &s.number); },
    [](Step& s) { flm_set_protection(kFlat, s.index, s.number); },
    [](Step& s) { flm_get_protection(kFlat, s.index, &s.number); },
    [](Step& s) { flm_remove_file_from_list(kFlat, s.index); },
    [](Step& s) { flm_is_exist(kFlat, s.item.filePath, &s.number); },
    [](Step& s) {
      flm_set_cursor(kFlat, s.index);
      s.on ? flm_move_to_next(kFlat) : flm_move_to_prev(kFlat);
      flm_get_cursor(kFlat, &s.index);
    },
    [](Step& s) { s.on ? flm_move_to_first(kFlat) : flm_move_to_last(kFlat); },
    [](Step& s) { flm_set_dpof(kFlat, s.index, s.number); },
    [](Step& s) { flm_get_dpof(kFlat, s.index, &s.number); },
    [](Step& s) { flm_set_dpof_size(kFlat, s.index, s.number); },
    [](Step& s) { flm_get_dpof_size(kFlat, s.index, &s.number); },
    [](Step& s) { flm_get_dpof_index(kFlat, s.index, &s.number); },
    [](Step& s) { flm_set_dpof_size_all(kFlat, s.number); },
    [](Step&) { flm_save_dpof_info(kFlat, nullptr); },
    [](Step&) { flm_load_dpof_info(kFlat); },
    [](Step& s) { flm_set_series_mode(kFlat, static_cast<FileListMode>(s.number)); },
    [](Step& s) {
      char text[kNewNameBytes] = {};
      char* out = text;
      flm_get_new_filename(kFlat, static_cast<FileType>(s.number), &out);
      if (s.on) WriteNew(text);
    },
};

struct Family {
  const Act* acts;
  size_t count;
};
constexpr Family kFamilies[] = {
    {kFiles, std::size(kFiles)}, {kMarks, std::size(kMarks)},
    {kBulk, std::size(kBulk)},   {kNames, std::size(kNames)},
    {kSetUp, std::size(kSetUp)}, {kFlatFunctions, std::size(kFlatFunctions)}};

}  // namespace

void DoOperation(Input& input, CQFileList& list) {
  size_t choice = input.Byte();
  const uint8_t switches = input.Byte();
  Step step{list, {}, input.Byte(), input.Number(), (switches & 1) != 0, (switches & 2) != 0};
  // The file is found without moving the cursor.
  const int count = list.DCF_GetCount();
  if (count > 0) list.DCF_GetAt(step.index % count, &step.item);
  size_t all = 0;
  for (const Family& family : kFamilies) all += family.count;
  choice %= all;
  for (const Family& family : kFamilies) {
    if (choice < family.count) return family.acts[choice](step);
    choice -= family.count;
  }
}

}  // namespace flm_fuzz
