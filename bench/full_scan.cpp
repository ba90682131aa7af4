// How long a full scan of a card takes, against its floor: a program that only reads the same
// folders with scandir. Both are measured in turn on one card, and the medians are compared.
//
//   full_scan [FILES [FOLDERS]]

#include <dirent.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "api/CBIFileListManager.h"
#include "filelist/IQFileList.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 15;
constexpr int kListType = 4;
constexpr int kFirstFolder = 100;

// A card of `files` files, spread evenly, in a folder that goes with it.
class SampleCard {
 public:
  SampleCard(int files, int folders) {
    char root[] = "/tmp/bXXXXXX";
    if (mkdtemp(root) == nullptr) throw fs::filesystem_error("no temporary folder", {});
    root_ = root;
    for (int folder = 0; folder < folders; ++folder) {
      folders_.push_back(root_ + "/DCIM/" + std::to_string(kFirstFolder + folder) + "PHOTO");
      fs::create_directories(folders_.back());
    }
    for (int file = 0; file < files; ++file) MakeFile(file);
  }
  ~SampleCard() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }
  SampleCard(const SampleCard&) = delete;
  SampleCard& operator=(const SampleCard&) = delete;

  const std::string& Root() const { return root_; }
  const std::vector<std::string>& Folders() const { return folders_; }

 private:
  void MakeFile(int file) {
    const int folders = static_cast<int>(folders_.size());
    char name[32];
    std::snprintf(name, sizeof(name), "/QVX_%04d.JPG", file / folders + 1);
    std::ofstream(folders_[static_cast<size_t>(file % folders)] + name) << "x";
  }

  std::string root_;
  std::vector<std::string> folders_;
};

// Entries of a folder, counted the cheapest way that still reads every name.
int Scandir(const std::string& folder) {
  dirent** entries = nullptr;
  const int count = scandir(folder.c_str(), &entries, nullptr, nullptr);
  for (int i = 0; i < count; ++i) free(entries[i]);
  free(entries);
  return count;
}

int ScanFloor(const SampleCard& card) {
  int entries = Scandir(card.Root() + "/DCIM");
  for (const std::string& folder : card.Folders()) entries += Scandir(folder);
  return entries;
}

template <typename Work>
double Milliseconds(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
      .count();
}

double Median(std::vector<double> times) {
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

int Measure(int files, int folders) {
  const SampleCard card(files, folders);
  std::string root = card.Root();
  CBIFileListManager::Create(1);
  CBIFileListManager::SetURIToFileList(0, root.data(), kListType, false);
  IQFileList* const list = CBIFileListManager::GetFileList(root.data(), kListType);

  std::vector<double> scans;
  std::vector<double> floors;
  bool complete = true;
  for (int round = 0; round < kRounds; ++round) {
    floors.push_back(Milliseconds([&] { complete &= ScanFloor(card) >= files; }));
    scans.push_back(Milliseconds([&] { complete &= list->Listup(0) == files; }));
  }
  CBIFileListManager::Destroy();
  if (!complete) {
    std::fprintf(stderr, "full_scan: not every file was found\n");
    return 1;
  }
  const double scan = Median(scans);
  const double floor = Median(floors);
  std::printf("full scan of %d files in %d folders: %.2f ms, scandir alone %.2f ms, ratio %.2f\n",
              files, folders, scan, floor, scan / floor);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  const int files = argc > 1 ? std::atoi(argv[1]) : 9000;
  const int folders = argc > 2 ? std::atoi(argv[2]) : 9;
  if (files < 1 || folders < 1 || folders > 900 || files > 32000 || files / folders > 9998) {
    std::fprintf(stderr, "usage: full_scan [FILES [FOLDERS]]\n");
    return 2;
  }
  return Measure(files, folders);
}
