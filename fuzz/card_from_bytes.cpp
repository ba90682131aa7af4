#include "fuzz/card_from_bytes.h"

#include <iterator>
#include <string>

namespace flm_fuzz {
namespace {

constexpr size_t kMostName = 45;
constexpr size_t kMostOrder = 255;
constexpr int kMostFiles = 80;  // more than a folder without an index holds
constexpr int kMostSeries = 2;
constexpr int kMostEntries = 60;
constexpr int kNumberDigits = 4;
constexpr int kDirDigits = 3;

constexpr const char* kSuffixes[] = {"PHOTO", "ABCDE", "PHOTX", "_0722", "photo", "VIDEO", "-----"};
constexpr const char* kPrefixes[] = {"QVX_", "CAM_", "SDC1", "_QVX",
                                     "S3D_", "HDV_", "qvx_", "I-G "};
constexpr const char* kExtensions[] = {"JPG", "MP4", "WAV", "SRW", "MPO",
                                       "MP3", "AVI", "3GP", "jpg", "TXT"};
constexpr const char* kCameraNames[] = {"CAMERA", "CAMERA12", "camera", "099ABCDE", "CAMERAOFMINE"};
constexpr int kOddDirNumbers[] = {999, 998, 99, 0};
constexpr const char* kBystanders[] = {"/mnt/mmc/NOTES.TXT", "/mnt/mmc/DCIM/KEEP.TXT",
                                       "/mnt/mmc/DCIM/100PHOTO/KEEP.TXT",
                                       "/mnt/mmc2/DCIM/100PHOTO/QVX_0001.JPG"};

enum EntryKind { kFolder, kFile, kOddFile, kOddFolder, kCamera, kManyFiles, kOrder, kEnd, kKinds };
enum FileHow { kPlain, kProtected, kOldest, kLink, kPipe, kFolderOfThatName, kHows };

template <typename Table>
auto From(const Table& table, Input& input) {
  return table[static_cast<size_t>(input.Below(static_cast<int>(std::size(table))))];
}

std::string Digits(int number, int width) {
  const std::string digits = std::to_string(number);
  const size_t missing =
      static_cast<size_t>(width) > digits.size() ? static_cast<size_t>(width) - digits.size() : 0;
  return std::string(missing, '0') + digits;
}

// Mostly numbers near the beginning and the end of what there is.
int FileNumber(Input& input) {
  constexpr int kFromTheEnd = 240;
  constexpr int kLast = 9999;
  const int byte = input.Byte();
  return byte < kFromTheEnd ? byte : kLast - (UINT8_MAX - byte);
}

int DirNumber(Input& input) {
  constexpr int kFirst = 100;
  constexpr int kUsual = 8;
  const int byte = input.Byte();
  if (byte % (kUsual + 1) < kUsual) return kFirst + byte % (kUsual + 1);
  return kOddDirNumbers[static_cast<size_t>(byte) % std::size(kOddDirNumbers)];
}

class Maker {
 public:
  Maker(Input& input, MemoryCard& card) : input_(input), card_(card) {}

  // False at the end of the card.
  bool MakeEntry() {
    const uint8_t first = input_.Byte();
    tree_ = std::string(kRoot) + ((first & 0x80) == 0 ? "/DCIM/" : "/VIDEO/");
    switch (first % kKinds) {
      case kFolder:
        Enter(Digits(DirNumber(input_), kDirDigits) + From(kSuffixes, input_));
        return true;
      case kFile:
        MakeFile();
        return true;
      case kOddFile:
        card_.MakeFile(folder_ + std::string(input_.Text(kMostName)));
        return true;
      case kOddFolder:
        Enter(std::string(input_.Text(kMostName)));
        return true;
      case kCamera:
        Enter(From(kCameraNames, input_));
        return true;
      case kManyFiles:
        MakeManyFiles();
        return true;
      case kOrder:
        card_.MakeFile(std::string(kRoot) + "/MISC/AUTPRINT.MRK", input_.Text(kMostOrder));
        return true;
      default:
        return false;
    }
  }

 private:
  void Enter(const std::string& name) {
    if (name.find('/') != std::string::npos || name.empty() || name[0] == '.') return;
    folder_ = tree_ + name + "/";
    card_.MakeFolder(folder_);
  }

  void MakeFile() {
    const std::string prefix = From(kPrefixes, input_);
    const std::string number = Digits(FileNumber(input_), kNumberDigits);
    const std::string path = folder_ + prefix + number + "." + From(kExtensions, input_);
    switch (input_.Below(kHows)) {
      case kLink:
        card_.MakeLink(path, folder_ + prefix + "0001.JPG");
        break;
      case kPipe:
        card_.MakePipe(path);
        break;
      case kFolderOfThatName:
        card_.MakeFolder(path);
        break;
      case kProtected:
        card_.MakeFile(path);
        card_.SetReadOnly(path);
        break;
      case kOldest:
        card_.MakeFile(path);
        card_.SetTime(path, 0);
        break;
      default:
        card_.MakeFile(path);
    }
  }

  void MakeManyFiles() {
    const int count = input_.Below(kMostFiles);
    const int first = FileNumber(input_);
    const std::string prefix = From(kPrefixes, input_);
    const std::string extension = From(kExtensions, input_);
    if (++series_ > kMostSeries) return;
    for (int i = 0; i < count; ++i) {
      card_.MakeFile(folder_ + prefix + Digits(first + i, kNumberDigits) + "." + extension);
    }
  }

  Input& input_;
  MemoryCard& card_;
  int series_ = 0;
  std::string tree_;
  std::string folder_ = std::string(kRoot) + "/DCIM/100PHOTO/";
};

}  // namespace

void MakeCard(Input& input, MemoryCard& card) {
  Maker maker(input, card);
  for (int i = 0; i < kMostEntries && !input.Ended(); ++i) {
    if (!maker.MakeEntry()) return;
  }
}

void MakeBystanders(MemoryCard& card) {
  for (const char* const path : kBystanders) card.MakeFile(path, "stays");
}

void CheckBystanders(const MemoryCard& card) {
  for (const char* const path : kBystanders) {
    if (card.Content(path) != "stays") Fail("gone or changed:", path);
  }
}

}  // namespace flm_fuzz
