#include "tests/model/model_call.h"

#include <algorithm>
#include <cctype>

namespace flm_model {
namespace {

Call* reporting = nullptr;  // the call whose operation is running; callbacks have no other context
int reports = 0;

void Report(int index, int total, int* status, bool* cancel) {
  reporting->note += Format("(%d %d %d %d)", index, total, *status, *cancel ? 1 : 0);
  *cancel = reports++ == reporting->cancelAt;
}

std::string DumpBytes(const uint8_t* raw) {
  std::string text = "{";
  for (int i = 0; i < 22; ++i) text += Format("%02x", raw[i]);
  return text + " " + reinterpret_cast<const char*>(raw + 22) + "}";
}

std::string Quoted(const std::string& text) {
  std::string shown = "\"";
  for (char c : text) {
    bool plain = c >= ' ' && c < 127;
    shown += plain ? std::string(1, c) : Format("\\x%02x", static_cast<unsigned char>(c));
  }
  return shown + "\"";
}

std::string Shown(const CQFileListItem& item) {
  return "item{" + Quoted(std::string(item.filePath, strnlen(item.filePath, 128))) + " " +
         Quoted(std::string(item.objectPath, strnlen(item.objectPath, 128))) +
         Format(" sel%d prot%d res%d copies%d idx%d size%d wifi%d %d-%d-%d %d:%d:%d mod%d}",
                item.selected, item.isProtected, item.reservedFlag, item.dpofCopies, item.dpofIndex,
                item.dpofSize, item.wifiFlag, item.year, item.month, item.day, item.hour,
                item.minute, item.second, item.modTime);
}

std::string Shown(const char* out) {
  const char* end = out + kOutBytes;
  if (std::all_of(out, end, [](char c) { return c == kUntouched; })) return "untouched";
  return Quoted(std::string(out, strnlen(out, 160)));
}

bool SameOut(const char* a, const char* b, int size, bool exact, bool doubtful) {
  if (memcmp(a, b, kOutBytes) == 0) return true;
  size_t bytes = static_cast<size_t>(std::clamp(size, 0, kOutBytes));
  if (exact || memcmp(a + bytes, b + bytes, kOutBytes - bytes) != 0) return false;
  if (doubtful) return true;
  // Behind its terminator a text may hold anything as far as its buffer goes.
  size_t length = strnlen(a, bytes);
  return length < bytes && length == strnlen(b, bytes) && memcmp(a, b, length) == 0;
}

std::string Versus(const char* what, const std::string& model, const std::string& library) {
  return model == library
             ? ""
             : Format("%s:\n  model   ", what) + model + "\n  library " + library + "\n";
}

}  // namespace

ProgressCallback Call::Callback() {
  reporting = this;
  reports = 0;
  return cancelAt == -2 ? nullptr : &Report;
}

std::string Dump(const ModelItem* item) { return item == nullptr ? "{}" : DumpBytes(item->raw); }

std::string Dump(const DCFItem* item) {
  return item == nullptr ? "{}" : DumpBytes(reinterpret_cast<const uint8_t*>(item));
}

std::string Describe(const Operation& operation, const Call& call) {
  std::string line = operation.name;
  line += Format(" n=%d,%d,%d,%d on=%d,%d sizes=%d,%d cancel=%d", call.number[0], call.number[1],
                 call.number[2], call.number[3], call.on, call.on2, call.size, call.size2,
                 call.cancelAt);
  line += " path=" + (call.hasPath ? Quoted(call.path) : "null");
  line += " text=" + Quoted(call.text);
  return line + " " + (call.hasItem ? Shown(call.item) : "null");
}

std::string Difference(const Call& model, const Call& library, const Doubt& doubt) {
  std::string lines;
  if (!doubt.result) {
    lines += Versus("result", std::to_string(model.result), std::to_string(library.result));
  }
  lines += Versus("path", Quoted(model.path), Quoted(library.path));
  lines += Versus("item", Shown(model.item), Shown(library.item));
  for (size_t i = 0; i < model.items.size(); ++i) {
    lines += Versus(Format("items[%d]", static_cast<int>(i)).c_str(), Shown(model.items[i]),
                    Shown(library.items[i]));
  }
  if (!SameOut(model.out, library.out, model.size, model.exact, doubt.out)) {
    lines += "out:\n  model   " + Shown(model.out) + "\n  library " + Shown(library.out) + "\n";
  }
  if (!SameOut(model.out2, library.out2, model.size2, false, doubt.out)) {
    lines += "out2:\n  model   " + Shown(model.out2) + "\n  library " + Shown(library.out2) + "\n";
  }
  if (!doubt.out) {
    lines += Versus("numbers", Format("%d %d", model.outNumber[0], model.outNumber[1]),
                    Format("%d %d", library.outNumber[0], library.outNumber[1]));
  }
  return lines + Versus("reported", model.note, library.note);
}

}  // namespace flm_model
