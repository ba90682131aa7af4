#include "tests/model/model_large_cards.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>

#include "tests/model/model_cards.h"
#include "tests/model/model_world.h"

namespace flm_model {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

constexpr int kFilesOfCard = 640;  // about, in one tree
constexpr int kSmallFolder = 9;
constexpr int kLeastLargeFolder = 40;
constexpr int kMostLargeFolder = 400;
constexpr int kFoldersTried = 9;

const Names kPrefixes = {"QVX_", "QVX_", "QVX_", "QVX_", "QVX_", "CAM_", "CAM_", "HDE_",
                         "SDA_", "ABCD", "ABCE", "_QVX", "SDC1", "1A-X", "HDV_"};
const Names kExtensions = {"JPG", "JPG", "JPG", "JPG", "JPG", "JPG", "MP4",
                           "AVI", "3GP", "MP3", "WAV", "SRW", "MPO"};
// Extensions that begin alike: look-ups go by the first letter alone.
const Names kAlike = {"MP4", "MPO", "MP3"};
const Names kCompanions = {"SRW", "WAV", "MPO"};
// Several of one number, and several that share their first six characters.
const Names kFolders = {"100PHOTO", "100PHOTO", "100PHOXX", "100PHOTA", "100ABCDE", "101PHOTO",
                        "101ABCDE", "101ABCXX", "102_0315", "103photo", "105VIDEO", "998PHOTO",
                        "999PHOTO", "999ABCDE", "CAMERA",   "CAMERA",   "CAMERA01"};
const Names kOddNames = {".CAM_001.JPG",
                         "CAM_A001.JPG",
                         "CAM_0003.JPEG",
                         "CAM_0100.JPEG",
                         "QVX_0020-a.JPG",
                         "CAM_00X1.JPG",
                         "-00",
                         "CAM_0030",
                         "QVX_0077XJPG",
                         "QVX_0100b.JPG",
                         "1",
                         "Thumbs.db"};
const Names kWords = {"HOLIDAY", "summer", "Some Hat", "road", "-", "QVX_0001", "CAM", "0000"};
const Names kFreeExtensions = {".JPG", ".JPG", ".JPG", ".jpg", ".MP4",
                               ".WAV", ".SRW", ".MPO", ".txt", "ajpg"};

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
  return text;
}

bool IsCamera(const std::string& name) { return name.compare(0, 6, "CAMERA") == 0; }

std::string Numbered(const std::string& prefix, int number, const std::string& extension) {
  return prefix + Format("%04d", number) + "." + extension;
}

// Files of one number: same prefix or not, extensions that begin alike or not.
void MakeTwins(Choice& choice, const std::string& folder, const std::string& prefix, int number) {
  if (choice.Chance(50)) {
    for (const std::string& extension : kAlike) {
      if (choice.Chance(60)) MakeEntry(choice, folder + "/" + Numbered(prefix, number, extension));
    }
    return;
  }
  for (int twins = choice.Range(1, 3); twins > 0; --twins) {
    std::string name = Numbered(choice.From(kPrefixes), number, choice.From(kExtensions));
    MakeEntry(choice, folder + "/" + name);
  }
}

void MakeNumbered(Choice& choice, const std::string& folder, int files) {
  int number = choice.Chance(80) ? 1 : choice.Range(1, 9600);
  for (int i = 0; i < files; ++i) {
    std::string prefix = choice.From(kPrefixes);
    std::string name = Numbered(prefix, number, choice.From(kExtensions));
    if (choice.Chance(2)) name = choice.From(kOddNames);
    MakeEntry(choice, folder + "/" + (choice.Chance(3) ? Lower(name) : name));
    if (choice.Chance(12)) MakeTwins(choice, folder, prefix, number);
    if (choice.Chance(10)) {
      MakeEntry(choice, folder + "/" + Numbered(prefix, number, choice.From(kCompanions)));
    }
    if (choice.Chance(85)) number += choice.Chance(90) ? 1 : choice.Range(2, 30);
    number = std::min(number, 9999);
  }
}

// 12 to 40 characters; those of 12 stand in no order with the others.
std::string FreeName(Choice& choice) {
  std::string name = choice.From(kWords) + choice.From(kWords) + std::to_string(choice.Below(300));
  if (choice.Chance(40)) name = (name + "12345678").substr(0, 8);
  name.resize(std::max<size_t>(name.size(), 8), '_');
  return name.substr(0, 36) + choice.From(kFreeExtensions);
}

void MakeFree(Choice& choice, const std::string& folder, int files) {
  for (int i = 0; i < files; ++i) {
    std::string name = FreeName(choice);
    MakeEntry(choice, folder + "/" + name);
    if (!choice.Chance(15)) continue;
    MakeEntry(choice, folder + "/" + name.substr(0, 8) + "." + choice.From(kCompanions));
  }
}

int FolderSize(Choice& choice, int left) {
  if (left < kLeastLargeFolder || choice.Chance(35)) return choice.Range(0, kSmallFolder);
  if (choice.Chance(20)) return choice.Range(30, 36);
  return choice.Range(kLeastLargeFolder, std::min(left, kMostLargeFolder));
}

void MakeLargeTree(Choice& choice, const std::string& tree, int files) {
  fs::create_directories(tree);
  int left = files;
  for (int i = 0; i < kFoldersTried; ++i) {
    std::string name = i == 0 ? "100PHOTO" : choice.From(kFolders);
    std::string folder = tree + "/" + name;
    if (fs::exists(folder)) continue;
    fs::create_directories(folder);
    int size = FolderSize(choice, left);
    if (i == 0) size = std::max(size, kLeastLargeFolder + choice.Below(100));
    left -= size;
    if (IsCamera(name)) {
      MakeFree(choice, folder, std::min(size, 150));
    } else {
      MakeNumbered(choice, folder, size);
    }
  }
}

Names PicturesOf(const std::string& tree) {
  Names files;
  for (const auto& entry : fs::recursive_directory_iterator(tree)) {
    if (!entry.is_directory()) files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

// Jobs as this library writes them, each for some of the files.
std::string LongPrintOrder(Choice& choice, const std::string& root) {
  Names files = PicturesOf(root + "/DCIM");
  std::string text = "[HDR]\r\nGEN REV=01.10\r\nGEN CRT=\"a maker\"\r\n\r\n";
  for (int job = 0, jobs = choice.Range(10, 90); job < jobs && !files.empty(); ++job) {
    static const Names types = {"STD", "STD", "SIZ -03", "SIZ -05", "IDX"};
    text += "[JOB]\r\nPRT PID=" + Format("%03d", job % 1000) + "\r\nPRT TYP=" + choice.From(types) +
            "\r\nPRT QTY=" + Format("%03d", choice.Range(1, 12)) + "\r\nIMG FMT=EXIF2 -J\r\n";
    for (int images = choice.Chance(80) ? 1 : choice.Range(2, 20); images > 0; --images) {
      text += "<IMG SRC=\"../" + choice.From(files).substr(root.size() + 1) + "\">\r\n";
    }
    text += "\r\n";
  }
  return text;
}

}  // namespace

void MakeLargeCard(Choice& choice, const std::string& root) {
  MakeLargeTree(choice, root + "/DCIM", choice.Range(kFilesOfCard / 3, kFilesOfCard));
  if (choice.Chance(40)) MakeLargeTree(choice, root + "/VIDEO", kFilesOfCard / 5);
  fs::create_directories(root + "/MISC");
  if (choice.Chance(20)) return;
  std::string order =
      choice.Chance(70) ? LongPrintOrder(choice, root) : RandomPrintOrder(choice, root);
  std::ofstream(root + "/MISC/AUTPRINT.MRK", std::ios::binary) << order;
}

}  // namespace flm_model
