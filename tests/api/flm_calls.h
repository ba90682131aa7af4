// One call of every flat function that takes a list, with outputs whose change can be seen.
#ifndef FILELISTMANAGEMENT_TESTS_API_FLM_CALLS_H
#define FILELISTMANAGEMENT_TESTS_API_FLM_CALLS_H

#include <cstring>

#include "api/flm.h"

namespace flm_test {

constexpr int kUntouched = -12345;

struct FlatOutputs {
  FlatOutputs() { std::memset(buffer, 'z', sizeof(buffer)); }
  bool Untouched() const {
    for (const char c : buffer) {
      if (c != 'z') return false;
    }
    return number == kUntouched && mode == kUntouched;
  }

  int number = kUntouched;
  FileListMode mode = static_cast<FileListMode>(kUntouched);
  char buffer[1024];
  char* name = buffer;
};

struct FlatCall {
  const char* name;
  int (*call)(FileListType type, FlatOutputs& out);
};

inline char anyPath[] = "/mnt/mmc/DCIM/100PHOTO/QVX_0001.JPG";
inline char anyDevice[] = "CAM";

inline const FlatCall kFlatCalls[] = {
    {"flm_listup", [](FileListType t, FlatOutputs&) { return flm_listup(t); }},
    {"flm_set_series_mode",
     [](FileListType t, FlatOutputs&) { return flm_set_series_mode(t, FILELIST_MODE_RESET); }},
    {"flm_get_series_mode",
     [](FileListType t, FlatOutputs& o) { return flm_get_series_mode(t, &o.mode); }},
    {"flm_get_new_filename",
     [](FileListType t, FlatOutputs& o) { return flm_get_new_filename(t, FILETYPE_JPG, &o.name); }},
    {"flm_remove_file_from_list",
     [](FileListType t, FlatOutputs&) { return flm_remove_file_from_list(t, 0); }},
    {"flm_is_exist",
     [](FileListType t, FlatOutputs& o) { return flm_is_exist(t, anyPath, &o.number); }},
    {"flm_get_count", [](FileListType t, FlatOutputs& o) { return flm_get_count(t, &o.number); }},
    {"flm_get_at", [](FileListType t, FlatOutputs& o) { return flm_get_at(t, 0, &o.name); }},
    {"flm_move_to_first", [](FileListType t, FlatOutputs&) { return flm_move_to_first(t); }},
    {"flm_move_to_last", [](FileListType t, FlatOutputs&) { return flm_move_to_last(t); }},
    {"flm_move_to_prev", [](FileListType t, FlatOutputs&) { return flm_move_to_prev(t); }},
    {"flm_move_to_next", [](FileListType t, FlatOutputs&) { return flm_move_to_next(t); }},
    {"flm_set_cursor", [](FileListType t, FlatOutputs&) { return flm_set_cursor(t, 0); }},
    {"flm_get_cursor", [](FileListType t, FlatOutputs& o) { return flm_get_cursor(t, &o.number); }},
    {"flm_set_selection", [](FileListType t, FlatOutputs&) { return flm_set_selection(t, 0, 1); }},
    {"flm_get_selection",
     [](FileListType t, FlatOutputs& o) { return flm_get_selection(t, 0, &o.number); }},
    {"flm_set_protection",
     [](FileListType t, FlatOutputs&) { return flm_set_protection(t, 0, 1); }},
    {"flm_get_protection",
     [](FileListType t, FlatOutputs& o) { return flm_get_protection(t, 0, &o.number); }},
    {"flm_set_dpof", [](FileListType t, FlatOutputs&) { return flm_set_dpof(t, 0, 1); }},
    {"flm_set_dpof_all", [](FileListType t, FlatOutputs&) { return flm_set_dpof_all(t, 1); }},
    {"flm_get_dpof", [](FileListType t, FlatOutputs& o) { return flm_get_dpof(t, 0, &o.number); }},
    {"flm_set_dpof_index", [](FileListType t, FlatOutputs&) { return flm_set_dpof_index(t, 1); }},
    {"flm_get_dpof_index",
     [](FileListType t, FlatOutputs& o) { return flm_get_dpof_index(t, 0, &o.number); }},
    {"flm_set_dpof_size", [](FileListType t, FlatOutputs&) { return flm_set_dpof_size(t, 0, 1); }},
    {"flm_set_dpof_size_all",
     [](FileListType t, FlatOutputs&) { return flm_set_dpof_size_all(t, 1); }},
    {"flm_get_dpof_size",
     [](FileListType t, FlatOutputs& o) { return flm_get_dpof_size(t, 0, &o.number); }},
    {"flm_save_dpof_info",
     [](FileListType t, FlatOutputs&) { return flm_save_dpof_info(t, anyDevice); }},
    {"flm_load_dpof_info", [](FileListType t, FlatOutputs&) { return flm_load_dpof_info(t); }},
};

}  // namespace flm_test

#endif
