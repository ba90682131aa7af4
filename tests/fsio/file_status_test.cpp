// What the card says about a file: size, times, protection, existence, and an empty folder.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <string>

#include "base/file_list_item.h"
#include "fsio/PCQDCFFSIO.h"
#include "tests/fsio/scoped_os_calls.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;
using flm_test::ScopedOsCalls;

constexpr time_t kJuly2017 = 1500000000;  // 2017-07-14 02:40:00 UTC, 08:10:00 in the tests' zone

CQFileListItem ItemOf(const std::string& path) {
  CQFileListItem item;
  std::strncpy(item.filePath, path.c_str(), sizeof(item.filePath) - 1);
  return item;
}

// A file of the wanted status for the length of a test; nothing on the card has it.
class FakeStatus {
 public:
  FakeStatus(off_t size, time_t modified, int result = 0) {
    status_ = {};
    status_.st_size = size;
    status_.st_mtime = modified;
    status_.st_mode = S_IFREG | 0644;
    result_ = result;
    flm::Os().Stat = [](const char*, struct stat* out) {
      *out = status_;
      return result_;
    };
  }
  ~FakeStatus() { flm::ResetOsCalls(); }

 private:
  inline static struct stat status_ = {};
  inline static int result_ = 0;
};

TEST(FileSize, IsTheNumberOfBytes) {
  Card card;
  card.MakeFile("empty", "");
  card.MakeFile("five", "12345");
  EXPECT_EQ(0, PCQDCFFSIO::GetFileSize(Arg(card.Path("empty"))));
  EXPECT_EQ(5, PCQDCFFSIO::GetFileSize(Arg(card.Path("five"))));
}

TEST(FileSize, OfAMissingFileIsNegative) {
  Card card;
  EXPECT_EQ(-1, PCQDCFFSIO::GetFileSize(Arg(card.Path("missing"))));
  EXPECT_EQ(-1, PCQDCFFSIO::GetFileSize(Arg("")));
  EXPECT_EQ(-1, PCQDCFFSIO::GetFileSize(nullptr));
}

TEST(FileSize, ANegativeResultOfTheStatusIsHandedOn) {
  const FakeStatus status(5, 0, -7);
  EXPECT_EQ(-7, PCQDCFFSIO::GetFileSize(Arg("/any")));
}

TEST(FileSize, IsCutToItsLow32Bits) {
  struct {
    off_t size;
    int expected;
  } const cases[] = {{0x7fffffff, 0x7fffffff},
                     {0x80000000LL, -0x7fffffff - 1},
                     {0xffffffffLL, -1},
                     {0x100000000LL, 0},
                     {0x500000007LL, 7}};
  for (const auto& c : cases) {
    const FakeStatus status(c.size, 0);
    EXPECT_EQ(c.expected, PCQDCFFSIO::GetFileSize(Arg("/any"))) << c.size;
  }
}

TEST(FileSize, OfALinkIsThatOfItsTarget) {
  Card card;
  card.MakeFile("five", "12345");
  ASSERT_EQ(0, symlink("five", card.Path("a-link-with-a-long-name").c_str()));
  EXPECT_EQ(5, PCQDCFFSIO::GetFileSize(Arg(card.Path("a-link-with-a-long-name"))));
}

TEST(FileTime, IsTheModificationInSecondsSinceTheEpoch) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  EXPECT_EQ(1500000000U, PCQDCFFSIO::GetFileCreateTime(Arg(card.Path("f"))));
}

TEST(FileTime, OfAMissingFileIsZero) {
  Card card;
  EXPECT_EQ(0U, PCQDCFFSIO::GetFileCreateTime(Arg(card.Path("missing"))));
  EXPECT_EQ(0U, PCQDCFFSIO::GetFileCreateTime(Arg("")));
  EXPECT_EQ(0U, PCQDCFFSIO::GetFileCreateTime(static_cast<char*>(nullptr)));
}

TEST(FileTime, OutsideTheFieldIsCutToItsLow32Bits) {
  {
    const FakeStatus status(0, 0x100000005LL);
    EXPECT_EQ(5U, PCQDCFFSIO::GetFileCreateTime(Arg("/any")));
  }
  const FakeStatus status(0, -1);
  EXPECT_EQ(0xffffffffU, PCQDCFFSIO::GetFileCreateTime(Arg("/any")));
}

TEST(FileTime, OfAnItemFillsItsFieldsInLocalTime) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  CQFileListItem item = ItemOf(card.Path("f"));
  EXPECT_EQ(0, PCQDCFFSIO::GetFileCreateTime(&item));
  EXPECT_EQ(2017, item.year);
  EXPECT_EQ(7, item.month);
  EXPECT_EQ(14, item.day);
  EXPECT_EQ(8, item.hour);
  EXPECT_EQ(10, item.minute);
  EXPECT_EQ(0, item.second);
  EXPECT_EQ(1500000000, item.modTime);
}

TEST(FileTime, OfAnItemChangesNothingElse) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  card.SetReadOnly("f", true);
  CQFileListItem item = ItemOf(card.Path("f"));
  item.selected = 1;
  item.dpofCopies = 3;
  ASSERT_EQ(0, PCQDCFFSIO::GetFileCreateTime(&item));
  EXPECT_EQ(card.Path("f"), item.filePath);
  EXPECT_EQ(1, item.selected);
  EXPECT_EQ(0, item.isProtected);
  EXPECT_EQ(3, item.dpofCopies);
  EXPECT_EQ(-1, item.dpofSize);
  EXPECT_STREQ("", item.objectPath);
}

TEST(FileTime, OfAnItemAfter2038KeepsTheLocalTimeAndCutsTheSeconds) {
  const FakeStatus status(0, 0x100000000LL);  // 2106-02-07 06:28:16 UTC
  CQFileListItem item = ItemOf("/any");
  ASSERT_EQ(0, PCQDCFFSIO::GetFileCreateTime(&item));
  EXPECT_EQ(2106, item.year);
  EXPECT_EQ(2, item.month);
  EXPECT_EQ(7, item.day);
  EXPECT_EQ(11, item.hour);
  EXPECT_EQ(58, item.minute);
  EXPECT_EQ(16, item.second);
  EXPECT_EQ(0, item.modTime);
}

// The two operations that fill an item refuse alike.
using Fill = int (*)(CQFileListItem*);
class FillingAnItem : public testing::TestWithParam<Fill> {};

TEST_P(FillingAnItem, FromAMissingFileIsNegativeAndFillsNothing) {
  Card card;
  for (const std::string& path : {card.Path("missing"), std::string()}) {
    CQFileListItem item = ItemOf(path);
    item.year = 1999;
    item.modTime = 77;
    item.isProtected = 1;
    EXPECT_GT(0, GetParam()(&item)) << path;
    EXPECT_EQ(1999, item.year) << path;
    EXPECT_EQ(0, item.month) << path;
    EXPECT_EQ(77, item.modTime) << path;
    EXPECT_EQ(1, item.isProtected) << path;
  }
}

TEST_P(FillingAnItem, HandsTheNegativeResultOfTheStatusOn) {
  const FakeStatus status(0, 0, -9);
  CQFileListItem item = ItemOf("/any");
  EXPECT_EQ(-9, GetParam()(&item));
}

TEST_P(FillingAnItem, WithoutALocalTimeIsMinusOne) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  const ScopedOsCalls os;
  flm::Os().Localtime = [](const time_t*, tm*) -> tm* { return nullptr; };
  CQFileListItem item = ItemOf(card.Path("f"));
  item.year = 1999;
  EXPECT_EQ(-1, GetParam()(&item));
  EXPECT_EQ(1999, item.year);
  EXPECT_EQ(0, item.day);
}

TEST_P(FillingAnItem, ThatIsNullIsNegative) { EXPECT_EQ(-1, GetParam()(nullptr)); }

TEST_P(FillingAnItem, WorksForAFolderToo) {
  Card card;
  card.MakeDir("d");
  card.SetTime("d", kJuly2017);
  CQFileListItem item = ItemOf(card.Path("d"));
  EXPECT_EQ(0, GetParam()(&item));
  EXPECT_EQ(1500000000, item.modTime);
}

TEST_P(FillingAnItem, FollowsALinkToItsTarget) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  ASSERT_EQ(0, symlink("f", card.Path("link").c_str()));
  CQFileListItem item = ItemOf(card.Path("link"));
  EXPECT_EQ(0, GetParam()(&item));
  EXPECT_EQ(1500000000, item.modTime);
}

INSTANTIATE_TEST_SUITE_P(Both, FillingAnItem,
                         testing::Values<Fill>(&PCQDCFFSIO::GetFileCreateTime,
                                               &PCQDCFFSIO::GetFileStatInfo));

TEST(FileStatInfo, FillsTheTimeAndTheProtection) {
  Card card;
  card.MakeFile("f", "x", kJuly2017);
  card.SetMode("f", 0444);
  CQFileListItem item = ItemOf(card.Path("f"));
  EXPECT_EQ(0, PCQDCFFSIO::GetFileStatInfo(&item));
  EXPECT_EQ(1, item.isProtected);
  EXPECT_EQ(2017, item.year);
  EXPECT_EQ(10, item.minute);
  EXPECT_EQ(1500000000, item.modTime);
}

TEST(FileStatInfo, ClearsTheProtectionOfAWritableFile) {
  Card card;
  card.MakeFile("f");
  CQFileListItem item = ItemOf(card.Path("f"));
  item.isProtected = 1;
  EXPECT_EQ(0, PCQDCFFSIO::GetFileStatInfo(&item));
  EXPECT_EQ(0, item.isProtected);
}

struct ModeCase {
  unsigned int mode;
  int isProtected;
};
constexpr ModeCase kModes[] = {{0644, 0}, {0444, 1}, {0200, 0}, {0000, 1},
                               {0577, 1}, {0266, 0}, {0466, 1}};

TEST(Protection, IsTheOwnerWritePermissionAlone) {
  for (const ModeCase& c : kModes) {
    Card card;
    card.MakeFile("f");
    card.SetMode("f", c.mode);
    EXPECT_EQ(c.isProtected, PCQDCFFSIO::IsProtect(Arg(card.Path("f")))) << std::oct << c.mode;
  }
}

TEST(Protection, OfAMissingFileIsNotThere) {
  Card card;
  EXPECT_EQ(0, PCQDCFFSIO::IsProtect(Arg(card.Path("missing"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsProtect(Arg("")));
  EXPECT_EQ(0, PCQDCFFSIO::IsProtect(nullptr));
}

TEST(Existence, HoldsForFilesAndFolders) {
  Card card;
  card.MakeFile("d/f");
  EXPECT_EQ(1, PCQDCFFSIO::IsExist(Arg(card.Path("d/f"))));
  EXPECT_EQ(1, PCQDCFFSIO::IsExist(Arg(card.Path("d"))));
}

TEST(Existence, DoesNotHoldForWhatIsMissing) {
  Card card;
  card.MakeFile("f");
  EXPECT_EQ(0, PCQDCFFSIO::IsExist(Arg(card.Path("missing"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsExist(Arg(card.Path("f/below"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsExist(Arg("")));
  EXPECT_EQ(0, PCQDCFFSIO::IsExist(nullptr));
}

TEST(Existence, OfALinkIsThatOfItsTarget) {
  Card card;
  card.MakeFile("f");
  ASSERT_EQ(0, symlink("f", card.Path("good").c_str()));
  ASSERT_EQ(0, symlink("missing", card.Path("broken").c_str()));
  EXPECT_EQ(1, PCQDCFFSIO::IsExist(Arg(card.Path("good"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsExist(Arg(card.Path("broken"))));
}

TEST(EmptyFolder, HoldsNothingButItsTwoOwnEntries) {
  Card card;
  card.MakeDir("empty");
  card.MakeFile("one/f");
  card.MakeFile("hidden/.f");
  card.MakeDir("folder/below");
  EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("empty"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("one"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("hidden"))));
  EXPECT_EQ(0, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("folder"))));
}

TEST(EmptyFolder, IsAlsoOneThatCannotBeOpened) {
  Card card;
  card.MakeFile("f");
  EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("missing"))));
  EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(Arg(card.Path("f"))));
  EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(Arg("")));
  EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(nullptr));
}

// A folder of `count` entries without names, for counting what is read of it.
class FakeFolder {
 public:
  explicit FakeFolder(int count) {
    left_ = count;
    reads = 0;
    closes = 0;
    flm::Os().Readdir = [](DIR*) -> dirent* {
      static dirent entry = {};
      ++reads;
      return left_-- > 0 ? &entry : nullptr;
    };
    flm::Os().Closedir = [](DIR* dir) {
      ++closes;
      return closedir(dir);
    };
  }
  ~FakeFolder() { flm::ResetOsCalls(); }
  inline static int reads = 0;
  inline static int closes = 0;

 private:
  inline static int left_ = 0;
};

TEST(EmptyFolder, IsToldByTheNumberOfItsEntriesNotByTheirNames) {
  Card card;
  for (const int count : {0, 1, 2}) {
    const FakeFolder folder(count);
    EXPECT_EQ(1, PCQDCFFSIO::IsDirEmpty(Arg(card.Root()))) << count;
  }
  const FakeFolder folder(3);
  EXPECT_EQ(0, PCQDCFFSIO::IsDirEmpty(Arg(card.Root())));
}

TEST(EmptyFolder, IsReadNoFurtherThanItsThirdEntryAndClosed) {
  Card card;
  const FakeFolder folder(1000);
  EXPECT_EQ(0, PCQDCFFSIO::IsDirEmpty(Arg(card.Root())));
  EXPECT_EQ(3, FakeFolder::reads);
  EXPECT_EQ(1, FakeFolder::closes);
}

class SystemTime : public testing::Test {
 protected:
  SystemTime() {
    flm::Os().Time = [](time_t*) -> time_t { return kJuly2017 + 59; };
    PCQDCFFSIO::GetSystemTime(ts_);
  }
  ScopedOsCalls os_;
  PCQDCFFSIO::tTimeStamp ts_ = {};
};

TEST_F(SystemTime, IsTheLocalTimeOfTheClock) {
  EXPECT_EQ(2017, ts_.year);
  EXPECT_EQ(7, ts_.month);
  EXPECT_EQ(14, ts_.day);
  EXPECT_EQ(8, ts_.hour);
  EXPECT_EQ(10, ts_.minute);
  EXPECT_EQ(59, ts_.second);
}

TEST_F(SystemTime, WithoutALocalTimeIsTheFirstSecondOfALegalDate) {
  flm::Os().Localtime = [](const time_t*, tm*) -> tm* { return nullptr; };
  PCQDCFFSIO::GetSystemTime(ts_);
  EXPECT_EQ(1900, ts_.year);
  EXPECT_EQ(1, ts_.month);
  EXPECT_EQ(1, ts_.day);
  EXPECT_EQ(1, ts_.hour);
  EXPECT_EQ(1, ts_.minute);
  EXPECT_EQ(1, ts_.second);
}

TEST(TimeStamp, HoldsSixFieldsOf16BitsInTheirOrder) {
  EXPECT_EQ(12U, sizeof(PCQDCFFSIO::tTimeStamp));
  const PCQDCFFSIO::tTimeStamp ts = {2017, 7, 14, 8, 10, 59};
  const uint16_t* const fields = reinterpret_cast<const uint16_t*>(&ts);
  EXPECT_EQ(2017, fields[0]);
  EXPECT_EQ(59, fields[5]);
}

TEST(DirectoryEntry, HoldsANameOf136BytesAndThenATime) {
  EXPECT_EQ(136U, sizeof(PCQDCFFSIO::PTFile::name));
  EXPECT_EQ(0U, offsetof(PCQDCFFSIO::PTFile, name));
  EXPECT_EQ(136U, offsetof(PCQDCFFSIO::PTFile, time));
  EXPECT_EQ(4U, sizeof(PCQDCFFSIO::PTFile::time));
}

}  // namespace
