#include "bench/card.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <utility>

#include "bench/measure.h"

namespace flm::bench {
namespace {

namespace fs = std::filesystem;

constexpr int kFolders = 4;
constexpr size_t kNameSize = 16;

std::string FileName(int number, const char* extension) {
  char name[kNameSize];
  std::snprintf(name, sizeof(name), "QVX_%04d.%s", number % 10000, extension);
  return name;
}

// One byte, so that the file takes a block as a picture does.
void MakeFile(int folder, const std::string& name) {
  constexpr mode_t kMode = 0644;
  const int file = openat(folder, name.c_str(), O_WRONLY | O_CREAT | O_EXCL, kMode);
  Require(file >= 0 && write(file, "x", 1) == 1, "a sample file cannot be made");
  close(file);
}

}  // namespace

CardLayout EvenLayout(int files) { return {kFolders, files / kFolders, false}; }

SampleCard::SampleCard(std::string root, const CardLayout& layout)
    : root_(std::move(root)), layout_(layout) {
  fs::create_directories(root_ + "/MISC");
  for (const std::string& folder : Folders()) Fill(folder);
}

SampleCard::~SampleCard() {
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

void SampleCard::Fill(const std::string& folder) const {
  fs::create_directories(folder);
  const int descriptor = open(folder.c_str(), O_RDONLY | O_DIRECTORY);
  Require(descriptor >= 0, "a sample folder cannot be opened");
  for (int number = 1; number <= layout_.picturesPerFolder; ++number) {
    MakeFile(descriptor, FileName(number, "JPG"));
    if (layout_.rawCompanions) MakeFile(descriptor, FileName(number, "SRW"));
  }
  close(descriptor);
}

std::vector<std::string> SampleCard::Folders() const {
  std::vector<std::string> folders;
  for (int i = 0; i < layout_.folders; ++i) {
    folders.push_back(Tree() + "/" + std::to_string(kFirstFolder + i) + "PHOTO");
  }
  return folders;
}

std::vector<std::string> SampleCard::Paths() const {
  std::vector<std::string> paths;
  paths.reserve(static_cast<size_t>(Pictures()));
  for (const std::string& folder : Folders()) {
    for (int number = 1; number <= layout_.picturesPerFolder; ++number) {
      paths.push_back(folder + "/" + FileName(number, "JPG"));
    }
  }
  return paths;
}

int SampleCard::CountFiles() const {
  int files = 0;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(Tree())) {
    if (!entry.is_directory()) ++files;
  }
  return files;
}

std::string NewRoot(const std::string& parent) {
  std::string root = parent + "/cXXXXXX";
  Require(mkdtemp(root.data()) != nullptr, "no private folder can be made");
  return root;
}

}  // namespace flm::bench
