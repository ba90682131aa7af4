// Cards with very many files, made cheaply: in memory where the machine has a folder there, and
// every file another name of one and the same.
#ifndef FILELISTMANAGEMENT_TESTS_LIMITS_LIMITS_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_LIMITS_LIMITS_FIXTURE_H

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>
#include <vector>

#include "base/fixed_sizes.h"
#include "filelist/CQFileList.h"
#include "fsio/os_calls.h"
#include "tests/support/card.h"

namespace flm_test {

// "0042" of 42.
inline std::string FourDigits(int number) { return std::to_string(10000 + number).substr(1); }

// A folder that goes with everything in it.
class FolderInMemory {
 public:
  FolderInMemory() : path_(Make()) {}
  ~FolderInMemory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  FolderInMemory(const FolderInMemory&) = delete;
  FolderInMemory& operator=(const FolderInMemory&) = delete;

  std::string Path(const std::string& relative) const { return path_ + "/" + relative; }

 private:
  static std::string Make() {
    char inMemory[] = "/dev/shm/fXXXXXX";
    if (mkdtemp(inMemory) != nullptr) return inMemory;
    char onDisk[] = "/tmp/fXXXXXX";
    return mkdtemp(onDisk);
  }

  std::string path_;
};

// A large card and its list. Flushing is left out, and so is the store's way to the disk.
class LargeCard : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  LargeCard() : preference_("FLM_PREFERENCE_FILE", store_.Path("preferences").c_str()) {
    flm::Os().Sync = [] {};
    flm::Os().StartThread = [](pthread_t*, const pthread_attr_t*, void* (*)(void*), void*) {
      return 0;
    };
    std::ofstream(store_.Path("content")) << "x";
    Prepare(&list_);
  }
  ~LargeCard() override {
    list_.Destroy();
    flm::ResetOsCalls();
  }

  // Adds files folder/QVX_<number>.<extension>, numbered from `first`.
  void Add(const std::string& folder, int first, int count, const std::string& extension = "JPG") {
    std::filesystem::create_directories(card_.Path(folder));
    for (int number = first; number < first + count; ++number) {
      AddFile(folder + "/QVX_" + FourDigits(number) + "." + extension);
    }
  }
  void AddFile(const std::string& relative) {
    ASSERT_EQ(link(store_.Path("content").c_str(), card_.Path(relative).c_str()), 0) << relative;
  }
  bool Exists(const std::string& relative) const {
    return std::filesystem::exists(card_.Path(relative));
  }
  int Scan() { return list_.Listup(0); }
  CQFileListItem At(int index) {
    CQFileListItem item;
    list_.DCF_GetAt(index, &item);
    return item;
  }
  std::string NameAt(int index) { return Relative(At(index).filePath); }
  std::string Relative(const std::string& path) const {
    const size_t start = card_.Path("").size();
    return path.size() < start ? path : path.substr(start);
  }
  Names Files() { return FilesOf(&list_); }
  // The files that a list of its own finds on the card.
  Names ScannedAnew() {
    CQFileList fresh;
    Prepare(&fresh);
    fresh.Listup(0);
    const Names names = FilesOf(&fresh);
    fresh.Destroy();
    return names;
  }
  // The next name; "" for none.
  std::string New() {
    char path[flm::kNewNameSize] = {};
    return list_.GetNewFileName(path, 0) == 0 ? Relative(path) : "";
  }
  int Delete(int index) {
    CQFileListItem item = At(index);
    return list_.Delete(&item, false, false);
  }

  FolderInMemory store_;
  FolderInMemory card_;
  ScopedVariable preference_;
  CQFileList list_;

 private:
  void Prepare(CQFileList* list) const {
    list->SetType(4);
    list->SetBaseURI(card_.Path("").substr(0, card_.Path("").size() - 1).c_str());
  }
  Names FilesOf(CQFileList* list) const {
    Names names;
    for (int i = 0; i < list->GetCount(); ++i) {
      CQFileListItem item;
      if (list->DCF_GetAt(i, &item) == 0) names.push_back(Relative(item.filePath));
    }
    return names;
  }
};

}  // namespace flm_test

#endif
