// Callers and the catalogue itself read the plain records by position. The positions stand in
// layout.txt; here each record says where its fields lie.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "dcf/DCFItem.h"
#include "filelist/CQFileListItem.h"
#include "fsio/PCQDCFFSIO.h"
#include "tests/abi/abi_text.h"

namespace {

using Places = std::map<std::string, int>;

// Distance of a field from the start of its record.
template <typename Record, typename Field>
int Offset(const Record& record, const Field& field) {
  const char* const start = reinterpret_cast<const char*>(&record);
  return static_cast<int>(reinterpret_cast<const char*>(&field) - start);
}

void AddCQFileListItem(Places* places) {
  const CQFileListItem item{};
  (*places)["CQFileListItem.filePath"] = Offset(item, item.filePath);
  (*places)["CQFileListItem.selected"] = Offset(item, item.selected);
  (*places)["CQFileListItem.isProtected"] = Offset(item, item.isProtected);
  (*places)["CQFileListItem.reservedFlag"] = Offset(item, item.reservedFlag);
  (*places)["CQFileListItem.dpofCopies"] = Offset(item, item.dpofCopies);
  (*places)["CQFileListItem.dpofIndex"] = Offset(item, item.dpofIndex);
  (*places)["CQFileListItem.dpofSize"] = Offset(item, item.dpofSize);
  (*places)["CQFileListItem.wifiFlag"] = Offset(item, item.wifiFlag);
  (*places)["CQFileListItem.objectPath"] = Offset(item, item.objectPath);
  (*places)["CQFileListItem.year"] = Offset(item, item.year);
  (*places)["CQFileListItem.month"] = Offset(item, item.month);
  (*places)["CQFileListItem.day"] = Offset(item, item.day);
  (*places)["CQFileListItem.hour"] = Offset(item, item.hour);
  (*places)["CQFileListItem.minute"] = Offset(item, item.minute);
  (*places)["CQFileListItem.second"] = Offset(item, item.second);
  (*places)["CQFileListItem.modTime"] = Offset(item, item.modTime);
  (*places)["CQFileListItem.size"] = static_cast<int>(sizeof(item));
}

void AddDCFItem(Places* places) {
  const DCFItem item{};
  (*places)["DCFItem.fileNumber"] = Offset(item, item.fileNumber);
  (*places)["DCFItem.dpofCopies"] = Offset(item, item.dpofCopies);
  (*places)["DCFItem.itemBits"] = Offset(item, item.itemBits);
  (*places)["DCFItem.prefixChars"] = Offset(item, item.prefixChars);
  (*places)["DCFItem.extChars"] = Offset(item, item.extChars);
  (*places)["DCFItem.companionSrw"] = Offset(item, item.companionSrw);
  (*places)["DCFItem.companionWav"] = Offset(item, item.companionWav);
  (*places)["DCFItem.companionMpo"] = Offset(item, item.companionMpo);
  (*places)["DCFItem.dpofEdit"] = Offset(item, item.dpofEdit);
  (*places)["DCFItem.dpofIndex"] = Offset(item, item.dpofIndex);
  (*places)["DCFItem.dpofSize"] = Offset(item, item.dpofSize);
  (*places)["DCFItem.fileTime"] = Offset(item, item.fileTime);
  (*places)["DCFItem.dirNumber"] = Offset(item, item.dirNumber);
  (*places)["DCFItem.fileName"] = Offset(item, item.fileName);
  (*places)["DCFItem.prev"] = Offset(item, item.prev);
  (*places)["DCFItem.next"] = Offset(item, item.next);
  (*places)["DCFItem.size"] = static_cast<int>(sizeof(item));
}

void AddPTFile(Places* places) {
  const PCQDCFFSIO::PTFile entry{};
  (*places)["PTFile.name"] = Offset(entry, entry.name);
  (*places)["PTFile.time"] = Offset(entry, entry.time);
  (*places)["PTFile.size"] = static_cast<int>(sizeof(entry));
}

void AddtTimeStamp(Places* places) {
  const PCQDCFFSIO::tTimeStamp time{};
  (*places)["tTimeStamp.year"] = Offset(time, time.year);
  (*places)["tTimeStamp.month"] = Offset(time, time.month);
  (*places)["tTimeStamp.day"] = Offset(time, time.day);
  (*places)["tTimeStamp.hour"] = Offset(time, time.hour);
  (*places)["tTimeStamp.minute"] = Offset(time, time.minute);
  (*places)["tTimeStamp.second"] = Offset(time, time.second);
  (*places)["tTimeStamp.size"] = static_cast<int>(sizeof(time));
}

TEST(LayoutTest, EveryFieldLiesWhereCallersExpectIt) {
  Places places;
  AddCQFileListItem(&places);
  AddDCFItem(&places);
  AddPTFile(&places);
  AddtTimeStamp(&places);

  const std::vector<std::string> lines = flm_test::AbiLines("layout.txt");
  EXPECT_EQ(lines.size(), places.size());
  for (const std::string& line : lines) {
    std::istringstream words(line);
    std::string name;
    int with64 = -1;
    int with32 = -1;
    words >> name >> with64 >> with32;
    ASSERT_EQ(places.count(name), 1u) << name;
    EXPECT_EQ(places[name], sizeof(void*) == 8 ? with64 : with32) << name;
  }
}

}  // namespace
