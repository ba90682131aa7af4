#include "marks_text.h"

#include "text.h"

namespace flm::tool {

const char kMarksLegend[] =
    "Marks: P protected, S selected, W for wireless transfer, V voice memo or continuous capture, "
    "xN prints ordered, I in the index print, zN print size code.";

namespace {

std::string Joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += between;
    text += word;
  }
  return text.empty() ? "-" : text;
}

struct MarkWords {
  const char* isProtected;
  const char* selected;
  const char* wifi;
  const char* grouped;
  const char* copies;
  const char* index;
  const char* size;
};

constexpr MarkWords kShort = {"P", "S", "W", "V", "x", "I", "z"};
constexpr MarkWords kLong = {"protected", "selected", "wifi",      "voice-or-capture",
                             "copies=",   "index",    "size-code="};

std::vector<std::string> MarksOf(const Entry& entry, const MarkWords& words) {
  const CQFileListItem& item = entry.item;
  std::vector<std::string> marks;
  if (item.isProtected != 0) marks.emplace_back(words.isProtected);
  if (item.selected != 0) marks.emplace_back(words.selected);
  if (item.wifiFlag != 0) marks.emplace_back(words.wifi);
  if (entry.grouped) marks.emplace_back(words.grouped);
  if (item.dpofCopies > 0) marks.push_back(words.copies + std::to_string(item.dpofCopies));
  if (item.dpofIndex != 0) marks.emplace_back(words.index);
  if (item.dpofSize > 0) marks.push_back(words.size + std::to_string(item.dpofSize));
  return marks;
}

}  // namespace

std::string ShortMarks(const Entry& entry) { return Joined(MarksOf(entry, kShort), " "); }

std::string LongMarks(const Entry& entry) { return Joined(MarksOf(entry, kLong), ","); }

std::string ShortCompanions(const Entry& entry) {
  std::vector<std::string> extensions;
  for (const std::string& name : CompanionNames(entry)) {
    extensions.push_back(name.substr(name.rfind('.') + 1));
  }
  return Joined(extensions, " ");
}

std::string LongCompanions(const Entry& entry) {
  std::vector<std::string> names;
  for (const std::string& name : CompanionNames(entry)) names.push_back(Printable(name));
  return Joined(names, ",");
}

}  // namespace flm::tool
