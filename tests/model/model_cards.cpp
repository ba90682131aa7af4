#include "tests/model/model_cards.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cctype>
#include <ctime>
#include <filesystem>
#include <fstream>

#include "tests/model/model_world.h"

namespace flm_model {
namespace {

namespace fs = std::filesystem;
using Names = std::vector<std::string>;

const Names kPrefixes = {"QVX_", "_QVX", "HDV_", "HDE_", "HDA_", "SDV_", "SDE_", "SDA_",
                         "CAM_", "ABCD", "1A-X", "SDC1", "QVX_", "QVX_", "CAM_"};
const Names kExtensions = {"JPG", "JPG", "JPG", "JPG", "MP4", "MP4", "AVI",
                           "3GP", "MP3", "WAV", "SRW", "MPO", "TXT"};
const Names kSuffixes = {"PHOTO", "PHOTO", "PHOTO", "ABCDE", "ABCXX", "_0315", "abcde", "VIDEO"};
const Names kOddNames = {".DS_Store",    ".CAM_001.JPG", "CAM_A001.JPG",
                         "CA-XA001.JPG", "CAM_001.JPG",  "CAM_0001.JPEG",
                         "CAM_00X1.JPG", "CAM_0001XJPG", "Thumbs.db"};
const Names kFreeNames = {"HOLIDAY1.JPG",
                          "HOLIDAY1.WAV",
                          "HOLIDAY1.SRW",
                          "HOLIDAY1-a-long-name.WAV",
                          "CAM_0001.JPG",
                          "CAM_0000.JPG",
                          "CAM_0000.WAV",
                          "CAM_0000.MPO",
                          "cam_0002.jpg",
                          "some picture of a hat.jpg",
                          "notes from the road.txt",
                          "a name of forty characters, no more .JPG",
                          "a name of forty one characters, refused.J",
                          "short.jpg",
                          "QVX_0001.JPG",
                          "Summer_2.MPO",
                          "a sound of thirteen.WAV"};

std::string Lower(std::string text) {
  for (char& c : text) c = static_cast<char>(tolower(static_cast<unsigned char>(c)));
  return text;
}

void Write(const std::string& path, const std::string& content) {
  std::ofstream(path, std::ios::binary) << content;
}

void SetTime(Choice& choice, const std::string& path) {
  const long long kinds[] = {1000000000, 1426400000, 1, 0, -5, 4294967296LL + 77, 2147483648LL};
  timespec times[2] = {};
  times[1].tv_sec = static_cast<time_t>(choice.Chance(70) ? 1300000000 + choice.Below(400000000)
                                                          : kinds[choice.Below(7)]);
  utimensat(AT_FDCWD, path.c_str(), times, 0);
}

std::string RandomNumber(Choice& choice) {
  int number = choice.Range(1, 6);
  if (choice.Chance(10)) number = choice.Range(9996, 9999);
  if (choice.Chance(10)) number = choice.Below(10000);
  return Format("%04d", number);
}

std::string RandomName(Choice& choice) {
  if (choice.Chance(6)) return choice.From(kOddNames);
  std::string name = choice.From(kPrefixes) + RandomNumber(choice) + "." + choice.From(kExtensions);
  return choice.Chance(6) ? Lower(name) : name;
}

void MakeNumberedFiles(Choice& choice, const std::string& folder) {
  int files = choice.Chance(12) ? 0 : choice.Range(1, 8);
  for (int i = 0; i < files; ++i) {
    std::string name = RandomName(choice);
    MakeEntry(choice, folder + "/" + name);
    if (name.size() != 12 || !choice.Chance(30)) continue;
    for (const char* ext : {"SRW", "WAV", "MPO", "JPG"}) {
      if (choice.Chance(40)) MakeEntry(choice, folder + "/" + name.substr(0, 9) + ext);
    }
  }
}

void MakeFreeFiles(Choice& choice, const std::string& folder) {
  int files = choice.Below(8);
  for (int i = 0; i < files; ++i) MakeEntry(choice, folder + "/" + choice.From(kFreeNames));
}

std::string RandomFolder(Choice& choice) {
  static const Names odd = {
      "CAMERA",   "CAMERA",   "CAMERA01", "camera_2", "CAMERA WITH A LONG NAME",
      "099XXXXX", "099PHOTO", "10ABCDEF", "ABC12345", "1000ABCD",
      "100PHOT",  ".hidden",  "098ABCDE", "CAMERA"};
  if (choice.Chance(25)) return choice.From(odd);
  if (choice.Chance(1))
    return "CAMERA" + std::string(static_cast<size_t>(choice.Range(60, 110)), 'x');
  int number = choice.Range(100, 105);
  if (choice.Chance(12)) number = choice.Range(997, 999);
  if (choice.Chance(10)) number = choice.Range(100, 999);
  return std::to_string(number) + choice.From(kSuffixes);
}

void MakeTree(Choice& choice, const std::string& tree) {
  fs::create_directories(tree);
  int folders = choice.Chance(8) ? 0 : choice.Range(1, 6);
  for (int i = 0; i < folders; ++i) {
    std::string name = RandomFolder(choice);
    std::string folder = tree + "/" + name;
    if (fs::exists(folder) && !fs::is_directory(folder)) continue;
    if (choice.Chance(2) && !fs::exists(folder)) {
      Write(folder, "a file named like a folder");
      continue;
    }
    fs::create_directories(folder);
    bool camera = Lower(name).compare(0, 6, "camera") == 0;
    if (camera && choice.Chance(85)) {
      MakeFreeFiles(choice, folder);
    } else {
      MakeNumberedFiles(choice, folder);
    }
  }
  if (choice.Below(400) == 0) {
    for (int i = 0, n = choice.Range(990, 1003); i < n; ++i) {
      fs::create_directories(tree + Format("/%03dX%04d", 100 + i % 900, i));
    }
  }
}

Names FilesOf(const std::string& folder) {
  Names files;
  if (!fs::is_directory(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    files.push_back(entry.path().string());
  }
  return files;
}

std::string RandomSource(Choice& choice, const std::string& root, const Names& files) {
  if (files.empty() || choice.Chance(10)) return "../DCIM/100PHOTO/QVX_0001.JPG";
  std::string source = "../" + choice.From(files).substr(root.size() + 1);
  if (choice.Chance(10)) source = Lower(source);
  if (choice.Chance(4)) source += std::string(static_cast<size_t>(choice.Below(200)), 'x');
  if (choice.Chance(4)) source = source.substr(0, static_cast<size_t>(choice.Below(8)));
  return source;
}

std::string RandomBytes(Choice& choice) {
  std::string text;
  int size = choice.Below(600);
  for (int i = 0; i < size; ++i) {
    const char common[] = "PRT TYPQIMG<\"=\n\r[]0189";
    text += choice.Chance(60) ? common[choice.Below(sizeof common - 1)]
                              : static_cast<char>(choice.Below(256));
  }
  return text;
}

// One line of a job, now and then an odd one.
std::string RandomLine(Choice& choice, const std::string& root, const Names& files) {
  static const Names types = {"STD",     "STD",     "IDX",     "IDX", "SIZ -03", "SIZ -04",
                              "SIZ -05", "SIZ -08", "SIZ -06", "std", "MUL"};
  switch (choice.Below(10)) {
    case 0:
      return "[JOB]";
    case 1:
    case 2:
      return "PRT TYP=" + choice.From(types);
    case 3:
      return "PRT QTY=" + choice.From(Names{"001", "002>", "099", "255", "300", "x", "", "7 8"});
    case 4:
    case 5:
    case 6:
      return "<IMG SRC=\"" + RandomSource(choice, root, files) + "\">";
    case 7:
      return "IMG SRC=\"" + RandomSource(choice, root, files) + "\"";
    case 8:
      return choice.From(Names{"IMG FMT=EXIF2 -J", "GEN DTM=2015:03:15:12:00:00", "PRT TYP",
                               "PRT QTY", "PAPER=1", "IMG SRC=no quotes", "<IMG SRC=\"one quote",
                               "PRT=", "P", ""});
    default:
      return choice.Chance(50)
                 ? "PRT TYP=" + std::string(static_cast<size_t>(choice.Range(125, 129)), 'v')
                 : "VUQ RGN=" + std::string(static_cast<size_t>(choice.Range(2030, 2045)), 'w');
  }
}

}  // namespace

void MakeEntry(Choice& choice, const std::string& path) {
  if (fs::exists(path)) return;
  if (choice.Chance(2)) {
    fs::create_directory(path);
    if (choice.Chance(30)) Write(path + "/inside", "x");
    return;
  }
  Write(path, std::string(static_cast<size_t>(choice.Below(3)), 'x'));
  SetTime(choice, path);
  if (choice.Chance(15)) chmod(path.c_str(), 0444);
}

std::string RandomPrintOrder(Choice& choice, const std::string& root) {
  if (choice.Chance(10)) return RandomBytes(choice);
  Names files = FilesOf(root + "/DCIM");
  std::string end = choice.Chance(70) ? "\r\n" : "\n";
  std::string text = "[HDR]" + end + "GEN REV=01.10" + end + "GEN CRT=\"a maker\"" + end + end;
  bool plain = choice.Chance(60);
  for (int i = 0, lines = choice.Below(30); i < lines; ++i) {
    std::string line = RandomLine(choice, root, files);
    if (plain && line.size() > 140) continue;
    text += line + end;
  }
  if (choice.Chance(5)) text.insert(static_cast<size_t>(choice.Below(20)), 1, '\0');
  if (choice.Chance(2)) text.insert(0, std::string(8192, '\n'));
  if (choice.Chance(10)) text.resize(text.size() / 2);
  return text;
}

void MakeCard(Choice& choice, const std::string& root) {
  fs::create_directories(root);
  if (choice.Chance(96)) MakeTree(choice, root + "/DCIM");
  if (choice.Chance(70)) MakeTree(choice, root + "/VIDEO");
  if (choice.Chance(80)) {
    fs::create_directories(root + "/MISC");
    std::string mark = root + "/MISC/AUTPRINT.MRK";
    if (choice.Chance(3)) {
      fs::create_directories(mark);
    } else if (choice.Chance(70)) {
      Write(mark, RandomPrintOrder(choice, root));
    }
  } else if (choice.Chance(20)) {
    Write(root + "/MISC", "a file");
  }
}

std::string DisturbCard(Choice& choice, const std::string& root) {
  Names all = FilesOf(root);
  std::string place = all.empty() ? root : choice.From(all);
  std::error_code ignored;
  switch (choice.Below(6)) {
    case 0:
    case 1: {
      std::string folder = fs::is_directory(place) ? place : place.substr(0, place.rfind('/'));
      std::string name = choice.Chance(80) ? RandomName(choice) : choice.From(kFreeNames);
      MakeEntry(choice, folder + "/" + name);
      return "made " + folder + "/" + name;
    }
    case 2:
      if (place != root && !fs::is_directory(place)) fs::remove(place, ignored);
      return "removed " + place;
    case 3:
      if (choice.Chance(20) && place != root) fs::remove_all(place, ignored);
      return "removed all of " + place;
    case 4:
      if (!fs::is_directory(place)) chmod(place.c_str(), choice.Chance(50) ? 0444 : 0644);
      return "changed the mode of " + place;
    default:
      fs::create_directory(root + "/MISC", ignored);
      if (fs::is_directory(root + "/MISC") && !fs::is_directory(root + "/MISC/AUTPRINT.MRK")) {
        Write(root + "/MISC/AUTPRINT.MRK", RandomPrintOrder(choice, root));
      }
      return "wrote another print order";
  }
}

}  // namespace flm_model
