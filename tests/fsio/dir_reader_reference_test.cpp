// Random folders, listed by the reader and by the platform's scandir with the order that the reader
// promises: the same names in the same sequence, also where two names compare equal or three stand
// in a circle.
#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "fsio/PCQDCFFSIO.h"
#include "tests/model/model_choice.h"
#include "tests/support/card.h"

namespace {

using flm_model::Choice;
using flm_test::Arg;
using Names = std::vector<std::string>;

constexpr int kRounds = 40;
constexpr size_t kDcfLength = 12;
constexpr size_t kShown = 128;  // bytes of a name that are handed out

// A folder in memory where the system has such a place: thousands of files are made.
class Folder {
 public:
  Folder() {
    std::string path = access("/dev/shm", W_OK) == 0 ? "/dev/shm/flmXXXXXX" : "/tmp/flmXXXXXX";
    path_ = mkdtemp(path.data());
    chmod(path_.c_str(), 0755);  // for users who must be held back by it alone
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::string& Path() const { return path_; }
  void Make(const std::string& name) { std::ofstream file(path_ + "/" + name); }

 private:
  std::string path_;
};

// Names of 12 characters by what follows their four free characters, all others whole.
int InListingOrder(const dirent** a, const dirent** b) {
  const std::string left = (*a)->d_name;
  const std::string right = (*b)->d_name;
  const bool dcf = left.size() == kDcfLength && right.size() == kDcfLength;
  return dcf ? left.substr(4).compare(right.substr(4)) : left.compare(right);
}

Names Expected(const std::string& path) {
  Names names;
  dirent** entries = nullptr;
  const int count = scandir(path.c_str(), &entries, nullptr, InListingOrder);
  for (int i = 0; i < count; ++i) {
    names.push_back(std::string(entries[i]->d_name).substr(0, kShown));
    free(entries[i]);
  }
  free(entries);
  return names;
}

Names Read(PCQDCFFSIO& reader) {
  Names names;
  PCQDCFFSIO::PTFile entry = {};
  while (reader.Read(&entry) == 0) names.emplace_back(entry.name, strnlen(entry.name, kShown));
  return names;
}

std::string Digits(int number) { return std::to_string(10000 + number % 10000).substr(1); }

std::string DcfName(Choice& choice) {
  static const Names prefixes = {"QVX_", "QVX_", "CAM_", "ABCD", "_QVX", "abcd"};
  static const Names ends = {".JPG", ".JPG", ".MP4", ".MPO", ".jpg"};
  return choice.From(prefixes) + Digits(choice.Below(600)) + choice.From(ends);
}

// Few numbers: nearly every name compares equal to others.
std::string TwinName(Choice& choice) {
  std::string name;
  for (int i = 0; i < 4; ++i) name += static_cast<char>(choice.Range('A', 'Z'));
  return name + Digits(choice.Below(3)) + ".JPG";
}

std::string AnyLengthName(Choice& choice) {
  std::string name = DcfName(choice);
  if (choice.Chance(30)) name += std::string(static_cast<size_t>(choice.Range(1, 4)), 'x');
  if (choice.Chance(30)) name = name.substr(0, static_cast<size_t>(choice.Range(1, 12)));
  if (choice.Chance(3)) name += std::string(static_cast<size_t>(choice.Range(100, 230)), 'y');
  return name;
}

// Beginning with a character that stands before '.', or with any other.
std::string LowName(Choice& choice) {
  static const std::string firsts = " !#$%&()*+,-..0~\xc3\xff";
  std::string name(1, firsts[static_cast<size_t>(choice.Below(static_cast<int>(firsts.size())))]);
  name += DcfName(choice);
  if (choice.Chance(70)) name.resize(kDcfLength);
  return name;
}

std::string AnyName(Choice& choice) {
  switch (choice.Below(4)) {
    case 0:
      return TwinName(choice);
    case 1:
      return LowName(choice);
    case 2:
      return AnyLengthName(choice);
    default:
      return DcfName(choice);
  }
}

void ExpectSameSequence(uint64_t firstSeed, std::string (*nameOf)(Choice&)) {
  for (uint64_t seed = firstSeed; seed < firstSeed + kRounds; ++seed) {
    Choice choice(seed);
    Folder folder;
    const int files = choice.Chance(30) ? choice.Range(0, 40) : choice.Range(41, 700);
    for (int i = 0; i < files; ++i) folder.Make(nameOf(choice));
    PCQDCFFSIO reader(Arg(folder.Path()), "");
    ASSERT_TRUE(reader.IsValid());
    ASSERT_EQ(Expected(folder.Path()), Read(reader)) << "seed " << seed;
  }
}

TEST(DirReaderReference, NamesOfTwelveCharactersComeAsScandirSortsThem) {
  ExpectSameSequence(1, DcfName);
}

TEST(DirReaderReference, NamesThatCompareEqualComeAsScandirLeavesThem) {
  ExpectSameSequence(1001, TwinName);
}

TEST(DirReaderReference, NamesOfMixedLengthsComeAsScandirSortsThem) {
  ExpectSameSequence(2001, AnyLengthName);
}

TEST(DirReaderReference, NamesBeforeTheFoldersOwnEntriesComeAsScandirSortsThem) {
  ExpectSameSequence(3001, LowName);
}

TEST(DirReaderReference, NamesOfEveryKindTogetherComeAsScandirSortsThem) {
  ExpectSameSequence(4001, AnyName);
}

// A folder of so many names is sorted by their numbers, unless one of them has no number.
TEST(DirReaderReference, OneNameWithoutANumberLeavesThreeHundredInTheOrderOfScandir) {
  for (const std::string odd : {"QVX_A001", "QVX_0A01", "QVX_00A1", "QVX_000A"}) {
    Folder folder;
    for (int number = 1; number <= 300; ++number) {
      folder.Make((number % 2 == 0 ? "QVX_" : "CAM_") + Digits(number) + ".JPG");
    }
    folder.Make(odd + ".JPG");
    PCQDCFFSIO reader(Arg(folder.Path()), "");
    const Names listed = Read(reader);
    EXPECT_EQ(303U, listed.size()) << odd;
    EXPECT_EQ(Expected(folder.Path()), listed) << odd;
  }
}

TEST(DirReaderReference, AReaderOpenedAgainInTheMiddleListsTheOtherFolder) {
  Choice choice(5001);
  Folder first;
  Folder second;
  for (int i = 0; i < 300; ++i) first.Make(AnyName(choice));
  for (int i = 0; i < 50; ++i) second.Make(AnyName(choice));
  PCQDCFFSIO reader(Arg(first.Path()), "");
  PCQDCFFSIO::PTFile entry = {};
  for (int i = 0; i < 100; ++i) ASSERT_EQ(0, reader.Read(&entry));
  reader.Open(Arg(second.Path()), "");
  EXPECT_EQ(Expected(second.Path()), Read(reader));
  reader.Open(Arg(first.Path()), "");
  EXPECT_EQ(Expected(first.Path()), Read(reader));
}

TEST(DirReaderReference, AFolderWithoutFilesListsItsTwoOwnEntries) {
  Folder folder;
  PCQDCFFSIO reader(Arg(folder.Path()), "");
  EXPECT_EQ((Names{".", ".."}), Read(reader));
  EXPECT_EQ(Expected(folder.Path()).size(), 2U);
}

TEST(DirReaderReference, AFolderThatMayNotBeReadListsNothing) {
  Folder folder;
  folder.Make("QVX_0001.JPG");
  chmod(folder.Path().c_str(), 0311);
  flm_test::OrdinaryUser user;
  if (!user.Held()) GTEST_SKIP() << "permissions hold nobody back here";
  PCQDCFFSIO reader(Arg(folder.Path()), "");
  EXPECT_FALSE(reader.IsValid());
  EXPECT_EQ(Expected(folder.Path()), Read(reader));
}

}  // namespace
