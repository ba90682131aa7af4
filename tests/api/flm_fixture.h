// The flat functions on their real roots. Included by tests that are linked with the shared object
// alone, below tests/support/with-cards, where both roots are private and empty.
#ifndef FILELISTMANAGEMENT_TESTS_API_FLM_FIXTURE_H
#define FILELISTMANAGEMENT_TESTS_API_FLM_FIXTURE_H

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "api/flm.h"
#include "filelist/CQFileListItem.h"
#include "filelist/IQFileList.h"
#include "tests/support/card.h"

namespace flm_test {

constexpr FileListType kNoType = static_cast<FileListType>(2);

// The functions are set up once in the life of a process, so a test of what comes before wants a
// process in which no other test ran.
inline bool& FlatIsSetUp() {
  static bool done = false;
  return done;
}

// The value of a list's getter, whose own result must be 0.
template <class Getter>
int Value(Getter getter, FileListType type) {
  int value = -12345;
  EXPECT_EQ(getter(type, &value), 0);
  return value;
}
template <class Getter>
int ValueAt(Getter getter, FileListType type, int index) {
  int value = -12345;
  EXPECT_EQ(getter(type, index, &value), 0);
  return value;
}

inline int Count(FileListType type = FILELIST_MMC) { return Value(flm_get_count, type); }
inline int Cursor(FileListType type = FILELIST_MMC) { return Value(flm_get_cursor, type); }

// The path at an index; "" for none. Moves the cursor, as the function does.
inline std::string At(int index, FileListType type = FILELIST_MMC) {
  char buffer[1024];
  char* name = buffer;
  EXPECT_EQ(flm_get_at(type, index, &name), 0);
  return buffer;
}

inline int Exists(const std::string& path, FileListType type = FILELIST_MMC) {
  int exists = -12345;
  EXPECT_EQ(flm_is_exist(type, Arg(path), &exists), 0);
  return exists;
}

inline std::string NewName(int kind = 0, FileListType type = FILELIST_MMC) {
  char buffer[396] = {};
  char* name = buffer;
  EXPECT_EQ(flm_get_new_filename(type, static_cast<FileType>(kind), &name), 0);
  return buffer;
}

class FlatTest : public testing::Test {
 protected:
  FlatTest() {
    FlatIsSetUp() = true;
    EXPECT_EQ(flm_init(), 0);
    // Another test of this process may have left the series mode on.
    for (const FileListType type : {FILELIST_MMC, FILELIST_SD0}) {
      EXPECT_EQ(flm_set_series_mode(type, FILELIST_MODE_RESET), 0);
    }
  }
  // Three folders of the memory card with 2, 1 and 2 pictures, scanned.
  void ScanFivePictures() {
    mmc.MakeFiles("DCIM/100PHOTO", "QVX_", 1, 2, "JPG");
    mmc.MakeFiles("DCIM/101PHOTO", "QVX_", 7, 1, "JPG");
    mmc.MakeFiles("DCIM/103PHOTO", "QVX_", 1, 2, "JPG");
    ASSERT_EQ(flm_listup(FILELIST_MMC), 0);
    ASSERT_EQ(Count(), 5);
  }
  // Whether `index` of a mark's getter is set, for every file.
  template <class Getter>
  static std::vector<int> All(Getter getter) {
    std::vector<int> values;
    for (int i = 0; i < Count(); ++i) values.push_back(ValueAt(getter, FILELIST_MMC, i));
    return values;
  }

  Card mmc{"/mnt/mmc"};
  Card sd0{"/opt/sd0"};
};

// Runs `act` in a child process and returns its result, 0 to 99; an abnormal end is 100.
template <class Act>
int InChild(Act act) {
  std::fflush(nullptr);
  const pid_t child = fork();
  if (child == 0) std::exit(act());
  int status = 0;
  if (child < 0 || waitpid(child, &status, 0) != child || !WIFEXITED(status)) return 100;
  return WEXITSTATUS(status);
}

}  // namespace flm_test

#endif
