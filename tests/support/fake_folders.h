// Folders that exist on no card: the names that reading a folder finds are a test's own.
#ifndef FILELISTMANAGEMENT_TESTS_SUPPORT_FAKE_FOLDERS_H
#define FILELISTMANAGEMENT_TESTS_SUPPORT_FAKE_FOLDERS_H

#include <functional>
#include <string>
#include <vector>

#include "fsio/os_calls.h"

namespace flm_test {

// Answers every reading of a folder from then on; ResetOsCalls ends it. One folder at a time.
class FakeFolders {
 public:
  using Names = std::vector<std::string>;
  // The names in the folder of a path, in the order of reading; false when there is none.
  using Answer = std::function<bool(const std::string& path, Names& names)>;

  static void Install(Answer answer) {
    answer_ = std::move(answer);
    flm::Os().Opendir = Opendir;
    flm::Os().Readdir = Readdir;
    flm::Os().Closedir = [](DIR*) { return 0; };
  }

 private:
  static DIR* Opendir(const char* path) {
    names_.clear();
    next_ = 0;
    return answer_(path, names_) ? reinterpret_cast<DIR*>(&entry_) : nullptr;
  }
  static dirent* Readdir(DIR*) {
    if (next_ == names_.size()) return nullptr;
    entry_ = {};
    names_[next_++].copy(entry_.d_name, sizeof(entry_.d_name) - 1);
    return &entry_;
  }

  inline static Answer answer_;
  inline static Names names_;
  inline static size_t next_ = 0;
  inline static dirent entry_;
};

}  // namespace flm_test

#endif
