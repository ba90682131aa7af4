// The operations of the file list: marks and their walks, protection, deletion, many files, pages.
#include <algorithm>

#include "tests/model/model_call.h"

namespace flm_model {
namespace {

constexpr int kPageItems = 12;

void PageRoom(Call& call, Scene& scene) {
  call.items.resize(kPageItems);
  int most = std::max(6, scene.list.GetPageTotalCount());
  call.number[0] = scene.choice.Range(-1, most);
  if (scene.choice.Chance(2)) call.number[0] = 2147483647;
}

void PageSize(Call& call, Scene& scene) { call.number[0] = scene.choice.Range(-1, kPageItems); }

}  // namespace

std::vector<Operation> MarkOperations() {
  return {
      OnList(
          "SetSel", 30, [](Call& c, auto& l) { c.result = l.SetSel(c.Item(), c.on); }, kNullItem),
      OnList(
          "SetWifiFlag", 8, [](Call& c, auto& l) { c.result = l.SetWifiFlag(c.Item(), c.on); },
          kNullItem),
      OnList(
          "SetVoiceRec", 12, [](Call& c, auto& l) { c.result = l.SetVoiceRec(c.Item(), c.on); },
          kNullItem),
      OnList(
          "SetConsCap", 8, [](Call& c, auto& l) { c.result = l.SetConsCap(c.Item(), c.on); },
          kNullItem),
      OnList(
          "IsSel", 6, [](Call& c, auto& l) { c.result = l.IsSel(c.Item()); }, kNullItem),
      OnList(
          "IsWifiFlag", 4, [](Call& c, auto& l) { c.result = l.IsWifiFlag(c.Item()); }, kNullItem),
      OnList(
          "IsVoiceRec", 4, [](Call& c, auto& l) { c.result = l.IsVoiceRec(c.Item()); }, kNullItem),
      OnList(
          "IsConsCap", 4, [](Call& c, auto& l) { c.result = l.IsConsCap(c.Item()); }, kNullItem),
      OnList("SetSelAll", 4, [](Call& c, auto& l) { c.result = l.SetSelAll(c.on); }),
      OnList("SetVoiceRecAll", 2, [](Call& c, auto& l) { c.result = l.SetVoiceRecAll(c.on); }),
      OnList("SetConsCapAll", 2, [](Call& c, auto& l) { c.result = l.SetConsCapAll(c.on); }),
      OnList("GetSelCount", 4, [](Call& c, auto& l) { c.result = l.GetSelCount(); }),
      OnList("GetVoiceRecCount", 3, [](Call& c, auto& l) { c.result = l.GetVoiceRecCount(); }),
      OnList("GetConsCount", 3, [](Call& c, auto& l) { c.result = l.GetConsCount(); }),
      OnList("GetSelFirst", 8, [](Call& c, auto& l) { c.result = l.GetSelFirst(&c.item); }),
      OnList("GetSelNext", 12, [](Call& c, auto& l) { c.result = l.GetSelNext(&c.item); }),
      OnList(
          "GetSelPrev", 12, [](Call& c, auto& l) { c.result = l.GetSelPrev(c.Item()); }, kNullItem),
      OnList(
          "GetSelLast", 8, [](Call& c, auto& l) { c.result = l.GetSelLast(c.Item()); }, kNullItem),
      OnList("GetVoiceRecFirst", 4,
             [](Call& c, auto& l) { c.result = l.GetVoiceRecFirst(&c.item); }),
      OnList("GetVoiceRecNext", 5, [](Call& c, auto& l) { c.result = l.GetVoiceRecNext(&c.item); }),
      OnList(
          "GetVoiceRecPrev", 5, [](Call& c, auto& l) { c.result = l.GetVoiceRecPrev(c.Item()); },
          kNullItem),
      OnList(
          "GetVoiceRecLast", 4, [](Call& c, auto& l) { c.result = l.GetVoiceRecLast(c.Item()); },
          kNullItem),
      OnList("GetConsFirst", 3, [](Call& c, auto& l) { c.result = l.GetConsFirst(&c.item); }),
      OnList("GetConsNext", 3, [](Call& c, auto& l) { c.result = l.GetConsNext(&c.item); }),
      OnList(
          "GetConsPrev", 3, [](Call& c, auto& l) { c.result = l.GetConsPrev(c.Item()); },
          kNullItem),
      OnList(
          "GetConsLast", 3, [](Call& c, auto& l) { c.result = l.GetConsLast(c.Item()); },
          kNullItem),
      OnList(
          "SetProtect", 12, [](Call& c, auto& l) { c.result = l.SetProtect(c.Item(), c.on); },
          kNullItem),
      OnList(
          "IsProtect", 6, [](Call& c, auto& l) { c.result = l.IsProtect(c.Item()); }, kNullItem),
  };
}

std::vector<Operation> BulkOperations() {
  return {
      OnList("DCF_RemoveFile", 4,
             [](Call& c, auto& l) { c.result = l.DCF_RemoveFile(c.path.data(), c.on); }),
      OnList(
          "Delete", 10, [](Call& c, auto& l) { c.result = l.Delete(c.Item(), c.on, c.on2); },
          kNullItem),
      OnList(
          "DeleteCons", 2, [](Call& c, auto& l) { c.result = l.DeleteCons(c.Item(), c.on, c.on2); },
          kNullItem),
      OnList(
          "DeleteVoiceRec", 2,
          [](Call& c, auto& l) { c.result = l.DeleteVoiceRec(c.Item(), c.on, c.on2); }, kNullItem),
      OnList("DeleteAll", 3, [](Call& c, auto& l) { c.result = l.DeleteAll(c.on, c.Callback()); }),
      OnList("RemoveAll", 1, [](Call& c, auto& l) { c.result = l.RemoveAll(c.on); }),
      OnList("DeleteSel", 5, [](Call& c, auto& l) { c.result = l.DeleteSel(c.on, c.Callback()); }),
      OnList("DeleteVoiceRecAll", 3,
             [](Call& c, auto& l) { c.result = l.DeleteVoiceRecAll(c.on, c.Callback()); }),
      OnList("DeleteConsAll", 2,
             [](Call& c, auto& l) { c.result = l.DeleteConsAll(c.on, c.Callback()); }),
      OnList("SetProtectAll", 5,
             [](Call& c, auto& l) { c.result = l.SetProtectAll(c.on, c.Callback()); }),
      OnList("SetProtectSel", 5,
             [](Call& c, auto& l) { c.result = l.SetProtectSel(c.on, c.Callback()); }),
      OnList("SetProtectSel toggle", 5,
             [](Call& c, auto& l) { c.result = l.SetProtectSel(c.Callback()); }),
      OnList("DPOFSel", 6, [](Call& c, auto& l) { c.result = l.DPOFSel(c.Callback()); }),
      OnList(
          "InitPage", 6, [](Call& c, auto& l) { c.result = l.InitPage(c.number[0]); }, 0, PageSize),
      OnList(
          "GetPageAt", 14,
          [](Call& c, auto& l) { c.result = l.GetPageAt(c.number[0], c.items.data()); }, 0,
          PageRoom),
      OnList(
          "GetFirstPage", 8, [](Call& c, auto& l) { c.result = l.GetFirstPage(c.items.data()); }, 0,
          PageRoom),
      OnList(
          "GetNextPage", 16, [](Call& c, auto& l) { c.result = l.GetNextPage(c.items.data()); }, 0,
          PageRoom),
      OnList(
          "GetPrevPage", 14, [](Call& c, auto& l) { c.result = l.GetPrevPage(c.items.data()); }, 0,
          PageRoom),
      OnList(
          "GetLastPage", 8, [](Call& c, auto& l) { c.result = l.GetLastPage(c.items.data()); }, 0,
          PageRoom),
      OnList("GetPageTotalCount", 4, [](Call& c, auto& l) { c.result = l.GetPageTotalCount(); }),
  };
}

}  // namespace flm_model
