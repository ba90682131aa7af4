#include <cstdio>

#include "tests/faults/fault_parts.h"

namespace flm_faults {
namespace {

using Files = std::vector<FaultCard::Entry>;

std::string Numbered(const std::string& folder, int number, const char* extension) {
  char name[32];
  std::snprintf(name, sizeof(name), "/QVX_%04d.%s", number, extension);
  return folder + name;
}

std::string Job(const std::string& path) {
  return "[JOB]\r\nPRT PID=001\r\nPRT TYP=STD\r\nPRT QTY=002\r\nIMG FMT=EXIF2 -J\r\n"
         "<IMG SRC=\"../" +
         path + "\">\r\n";
}

}  // namespace

// Several folders, companions of every kind, a protected file, free names, a print order, and
// things that do not belong there.
std::vector<FaultCard::Entry> MixedCard() {
  Files files = {{"DCIM/CAMERA/party.jpg"},
                 {"DCIM/CAMERA/zoo.mp4"},
                 {"DCIM/100PHOTO/QVX_0001.JPG"},
                 {kChosen},
                 {"DCIM/100PHOTO/QVX_0002.SRW"},
                 {"DCIM/100PHOTO/QVX_0002.WAV"},
                 {kProtected, "kept", true},
                 {"DCIM/100PHOTO/QVX_0004.MP4"},
                 {"DCIM/100PHOTO/readme.txt"},
                 {"DCIM/101OTHER/ABCD0001.JPG"},
                 {"DCIM/101OTHER/ABCD0002.JPG"},
                 {"DCIM/101OTHER/ABCD0002.MPO"},
                 {"DCIM/101OTHER/ABCD0003.SRW"},
                 {kLonely},
                 {"DCIM/notes.txt"},
                 {"DCIM/101PLAIN"}};
  for (int number = 1; number <= 7; ++number)
    files.push_back({Numbered("DCIM/103PHOTO", number, "JPG")});
  files.push_back({"DCIM/103PHOTO/QVX_0007.WAV"});
  std::string order = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"\"\r\n\r\n";
  for (const char* const path :
       {"DCIM/100PHOTO/QVX_0001.JPG", kChosen, "DCIM/103PHOTO/QVX_0004.JPG"})
    order += Job(path);
  files.push_back({kPrintOrder, order});
  return files;
}

// The newest folder's last number is taken, so that the next name needs a folder.
std::vector<FaultCard::Entry> FullFolderCard() {
  Files files = MixedCard();
  files.push_back({"DCIM/103PHOTO/QVX_9999.JPG"});
  return files;
}

std::vector<FaultCard::Entry> EmptyCard() { return {}; }

// Pictures enough for several pages and a print order of more than one block.
std::vector<FaultCard::Entry> LargeCard() {
  Files files = MixedCard();
  for (int folder = 0; folder < 3; ++folder) {
    const std::string name = "DCIM/11" + std::to_string(folder) + "PHOTO";
    for (int number = 1; number <= 16; ++number) files.push_back({Numbered(name, number, "JPG")});
  }
  return files;
}

}  // namespace flm_faults
