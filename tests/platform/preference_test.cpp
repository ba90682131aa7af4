// The file-backed preference store: what is stored survives, whatever is no store of ours reads as
// never stored, and the file is always either the old one or the new one.
#include "platform/preference.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/support/card.h"

namespace {

using flm_test::Card;
using flm_test::OrdinaryUser;
using flm_test::ScopedVariable;

constexpr char kVariable[] = "FLM_PREFERENCE_FILE";
constexpr char kHeading[] = "filelistmanagement preferences 1\n";

// A path of so many bytes to a file of the working folder.
std::string PathOfLength(size_t length) {
  std::string path;
  while (path.size() + 3 < length) path += "./";
  return path + std::string(length - path.size(), 'p');
}

// A store in the file "state/preferences" of a folder of its own.
class PreferenceTest : public testing::Test {
 protected:
  Card folder_;
  ScopedVariable file_{kVariable, folder_.Path("state/preferences").c_str()};

  void Store(const std::string& content) { folder_.MakeFile("state/preferences", content); }
};

TEST_F(PreferenceTest, AValueNeverStoredReadsMinusOne) {
  EXPECT_EQ(pref_get_long(1, 856), -1);
  EXPECT_TRUE(folder_.Tree().empty()) << "reading makes nothing";
}

TEST_F(PreferenceTest, AnythingInTheWayOfTheNewFileIsReplaced) {
  folder_.MakeDir("state");
  ASSERT_EQ(mkfifo(folder_.Path("state/preferences.new").c_str(), 0600), 0);
  EXPECT_EQ(pref_set_long(1, 856, 7), 0);
  EXPECT_EQ(pref_get_long(1, 856), 7);
  EXPECT_FALSE(folder_.Exists("state/preferences.new"));
}

TEST_F(PreferenceTest, AStoredValueIsRead) {
  EXPECT_EQ(pref_set_long(1, 856, 10000012), 0);
  EXPECT_EQ(pref_get_long(1, 856), 10000012);
  EXPECT_EQ(pref_get_long(1, 857), -1);
  EXPECT_EQ(pref_get_long(2, 856), -1);
}

TEST_F(PreferenceTest, TheLastValueStoredCounts) {
  pref_set_long(1, 856, 1);
  EXPECT_EQ(pref_set_long(1, 856, 2), 0);
  EXPECT_EQ(pref_get_long(1, 856), 2);
}

TEST_F(PreferenceTest, OtherValuesAreKept) {
  pref_set_long(1, 856, 1);
  pref_set_long(-7, INT_MAX, 2);
  EXPECT_EQ(pref_set_long(INT_MIN, 0, 3), 0);
  EXPECT_EQ(pref_get_long(1, 856), 1);
  EXPECT_EQ(pref_get_long(-7, INT_MAX), 2);
  EXPECT_EQ(pref_get_long(INT_MIN, 0), 3);
}

TEST_F(PreferenceTest, ExtremeValuesComeBack) {
  for (const long value : {LONG_MIN, -1L, 0L, LONG_MAX}) {
    EXPECT_EQ(pref_set_long(1, 856, value), 0);
    EXPECT_EQ(pref_get_long(1, 856), value);
  }
}

TEST_F(PreferenceTest, ACategoryOrKeyOutOfRangeIsNoStoreOfOurs) {
  if (sizeof(long) == sizeof(int)) GTEST_SKIP() << "every long is in range here";
  for (const char* const pair :
       {"2147483648 856", "-2147483649 856", "1 2147483648", "1 -2147483649"}) {
    Store(kHeading + std::string("1 856 7\n") + pair + " 7\nend 2\n");
    EXPECT_EQ(pref_get_long(1, 856), -1) << pair;
  }
}

// A process may run without any of the variables; then its user's own home counts.
TEST_F(PreferenceTest, WithoutVariablesTheUsersHomeIsTaken) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can act as a user without a home";
  const ScopedVariable file("FLM_PREFERENCE_FILE", nullptr);
  const ScopedVariable state("XDG_STATE_HOME", nullptr);
  const ScopedVariable home("HOME", nullptr);
  constexpr uid_t kNobody = 65534;
  constexpr uid_t kUserWithoutEntry = 54321;
  for (const uid_t user : {kNobody, kUserWithoutEntry}) {
    ASSERT_EQ(seteuid(user), 0);
    EXPECT_EQ(pref_get_long(1, 856), -1) << user;
    EXPECT_EQ(pref_set_long(1, 856, 7), -1) << user;
    ASSERT_EQ(seteuid(0), 0);
  }
}

TEST_F(PreferenceTest, NothingButTheFileIsLeft) {
  pref_set_long(1, 856, 1);
  pref_set_long(1, 856, 2);
  EXPECT_EQ(folder_.Tree(), (std::vector<std::string>{"state/", "state/preferences"}));
}

TEST_F(PreferenceTest, TheFileIsReplacedNotChanged) {
  pref_set_long(1, 856, 1);
  const std::string path = folder_.Path("state/preferences");
  ASSERT_EQ(link(path.c_str(), folder_.Path("old").c_str()), 0);
  const std::string before = folder_.ReadFile("old");
  pref_set_long(1, 856, 2);
  EXPECT_EQ(folder_.ReadFile("old"), before);
  EXPECT_NE(folder_.ReadFile("state/preferences"), before);
}

TEST_F(PreferenceTest, OnlyTheUserMayReadTheFile) {
  pref_set_long(1, 856, 1);
  struct stat status;
  ASSERT_EQ(stat(folder_.Path("state/preferences").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0600u);
}

TEST_F(PreferenceTest, AFileWrittenByHandIsRead) {
  Store(std::string(kHeading) + "1 856 10000012\n2 3 -4\nend 2\n");
  EXPECT_EQ(pref_get_long(1, 856), 10000012);
  EXPECT_EQ(pref_get_long(2, 3), -4);
}

TEST_F(PreferenceTest, ATornFileReadsAsNeverStored) {
  pref_set_long(1, 856, 10000012);
  const std::string whole = folder_.ReadFile("state/preferences");
  for (size_t length = 0; length < whole.size(); ++length) {
    Store(whole.substr(0, length));
    EXPECT_EQ(pref_get_long(1, 856), -1) << length << " bytes are left";
  }
  Store(whole);
  EXPECT_EQ(pref_get_long(1, 856), 10000012);
}

TEST_F(PreferenceTest, AForeignFileReadsAsNeverStored) {
  const std::string heading = kHeading;
  const std::string foreign[] = {
      "1 856 5\nend 1\n",                                    // no first line
      "filelistmanagement preferences 2\n1 856 5\nend 1\n",  // another version
      heading + "1 856 5\nend 2\n",                          // a line is missing
      heading + "1 856 5\nend 1\nmore\n",                    // something behind the end
      heading + "1 856 five\nend 1\n",                       // no number
      heading + "1 856 99999999999999999999\nend 1\n",       // no number of this machine
      heading + "4294967297 856 5\nend 1\n",                 // no category
      heading + "1 856 5 6\nend 1\n",                        // one number too many
      std::string("\0", 1) + heading + "1 856 5\nend 1\n",
      heading + "1 856 5\nend 1\n" + std::string("\0", 1)};
  for (const std::string& content : foreign) {
    Store(content);
    EXPECT_EQ(pref_get_long(1, 856), -1) << content;
  }
}

TEST_F(PreferenceTest, AFileTooLongReadsAsNeverStored) {
  std::string content = std::string(kHeading) + "1 856 5\n";
  int lines = 1;
  for (; lines < 2000; ++lines) content += "2 " + std::to_string(lines) + " 6\n";
  Store(content + "end " + std::to_string(lines) + "\n");
  EXPECT_EQ(pref_get_long(1, 856), -1);
}

TEST_F(PreferenceTest, AForeignFileIsReplacedByTheFirstStore) {
  Store("somebody else's");
  EXPECT_EQ(pref_set_long(1, 856, 5), 0);
  EXPECT_EQ(pref_get_long(1, 856), 5);
}

TEST_F(PreferenceTest, AFullStoreRefusesMoreAndKeepsWhatItHas) {
  int stored = 0;
  while (stored < 1000 && pref_set_long(3, stored, stored) == 0) ++stored;
  ASSERT_GE(stored, 1);
  ASSERT_LT(stored, 1000);
  for (int key = 0; key < stored; ++key) EXPECT_EQ(pref_get_long(3, key), key);
  EXPECT_EQ(pref_set_long(3, 0, 77), 0) << "a value that has a place is still replaced";
  EXPECT_EQ(pref_get_long(3, 0), 77);
}

TEST_F(PreferenceTest, AFolderInThePlaceOfTheFileIsNoStore) {
  folder_.MakeDir("state/preferences");
  EXPECT_EQ(pref_get_long(1, 856), -1);
  EXPECT_LT(pref_set_long(1, 856, 5), 0);
  EXPECT_EQ(folder_.Tree(), (std::vector<std::string>{"state/", "state/preferences/"}));
}

TEST_F(PreferenceTest, APipeIsNoStoreAndNobodyWaitsForIt) {
  folder_.MakeDir("state");
  ASSERT_EQ(mkfifo(folder_.Path("state/preferences").c_str(), 0600), 0);
  EXPECT_EQ(pref_get_long(1, 856), -1);
}

TEST_F(PreferenceTest, AnUnreadableFileReadsAsNeverStored) {
  pref_set_long(1, 856, 5);
  folder_.SetMode("state/preferences", 0);
  folder_.SetMode("state", 0755);
  folder_.SetMode("", 0755);
  const OrdinaryUser user;
  if (!user.Held()) GTEST_SKIP() << "the system lets the superuser be nobody else";
  EXPECT_EQ(pref_get_long(1, 856), -1);
}

TEST_F(PreferenceTest, AReadOnlyFolderKeepsTheOldValue) {
  pref_set_long(1, 856, 5);
  const std::string before = folder_.ReadFile("state/preferences");
  folder_.SetMode("state", 0555);
  folder_.SetMode("", 0755);
  {
    const OrdinaryUser user;
    if (!user.Held()) GTEST_SKIP() << "the system lets the superuser be nobody else";
    EXPECT_LT(pref_set_long(1, 856, 6), 0);
  }
  EXPECT_EQ(pref_get_long(1, 856), 5);
  EXPECT_EQ(folder_.ReadFile("state/preferences"), before);
  EXPECT_EQ(folder_.Tree(), (std::vector<std::string>{"state/", "state/preferences"}));
}

TEST_F(PreferenceTest, DescriptorsAreGivenBack) {
  pref_set_long(1, 856, 5);
  const int before = flm_test::FdCount();
  pref_set_long(1, 856, 6);
  pref_get_long(1, 856);
  Store("torn");
  pref_get_long(1, 856);
  EXPECT_EQ(flm_test::FdCount(), before);
}

TEST_F(PreferenceTest, APathTooLongIsRefused) {
  const ScopedVariable longFile(kVariable, ("/tmp/" + std::string(5000, 'x')).c_str());
  EXPECT_EQ(pref_get_long(1, 856), -1);
  EXPECT_LT(pref_set_long(1, 856, 5), 0);
}

// The process works in a folder until the end of its life.
class WorkingIn {
 public:
  explicit WorkingIn(const Card& folder) : before_(open(".", O_PATH | O_CLOEXEC)) {
    EXPECT_EQ(chdir(folder.Root().c_str()), 0);
  }
  ~WorkingIn() {
    EXPECT_EQ(fchdir(before_), 0);
    close(before_);
  }
  WorkingIn(const WorkingIn&) = delete;
  WorkingIn& operator=(const WorkingIn&) = delete;

 private:
  int before_;
};

TEST_F(PreferenceTest, AFileWithoutAFolderIsStoredInTheWorkingFolder) {
  const ScopedVariable name(kVariable, "p3");
  const WorkingIn folder(folder_);
  EXPECT_EQ(pref_set_long(1, 856, 5), 0);
  EXPECT_EQ(pref_set_long(1, 856, 6), 0);
  EXPECT_EQ(pref_get_long(1, 856), 6);
  EXPECT_EQ(folder_.Tree(), std::vector<std::string>{"p3"});
}

// The new file stands beside the old one, under a name that is longer by ".new".
TEST_F(PreferenceTest, APathWithoutRoomForTheNewFileIsRefused) {
  const WorkingIn folder(folder_);
  const std::vector<std::string> empty;
  for (const size_t length : {PATH_MAX - 1, PATH_MAX - 3, PATH_MAX - 4}) {
    const ScopedVariable file(kVariable, PathOfLength(length).c_str());
    EXPECT_EQ(pref_set_long(1, 856, 5), -1) << length;
    EXPECT_EQ(pref_get_long(1, 856), -1) << length;
    EXPECT_EQ(folder_.Tree(), empty) << length;
  }
  const ScopedVariable file(kVariable, PathOfLength(PATH_MAX - 5).c_str());
  EXPECT_EQ(pref_set_long(1, 856, 5), 0);
  EXPECT_EQ(pref_get_long(1, 856), 5);
}

TEST_F(PreferenceTest, WithoutANameTheStateFolderIsUsed) {
  const ScopedVariable noFile(kVariable, nullptr);
  const ScopedVariable state("XDG_STATE_HOME", folder_.Path("xdg").c_str());
  const ScopedVariable home("HOME", folder_.Path("home").c_str());
  EXPECT_EQ(pref_set_long(1, 856, 5), 0);
  EXPECT_TRUE(folder_.Exists("xdg/filelistmanagement/preferences"));
  EXPECT_FALSE(folder_.Exists("home"));
  EXPECT_EQ(pref_get_long(1, 856), 5);
}

TEST_F(PreferenceTest, WithoutAStateFolderTheHomeFolderIsUsed) {
  const ScopedVariable home("HOME", folder_.Path("home").c_str());
  for (const char* const state : {static_cast<const char*>(nullptr), "", "relative/state"}) {
    const ScopedVariable noFile(kVariable, "");
    const ScopedVariable noState("XDG_STATE_HOME", state);
    EXPECT_EQ(pref_set_long(1, 856, 5), 0);
    EXPECT_TRUE(folder_.Exists("home/.local/state/filelistmanagement/preferences"));
    folder_.Remove("home");
  }
}

}  // namespace
