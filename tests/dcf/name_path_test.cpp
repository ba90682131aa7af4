// Reading whole paths: their numbers at their places, and the parts at their end. No byte past the
// end of a path is looked at, which the sanitizers see because every path has a block of its own.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "dcf/dcf_name.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;

constexpr int kUnset = -1;

struct Numbers {
  int dir = kUnset;
  int file = kUnset;
  bool operator==(const Numbers& other) const { return dir == other.dir && file == other.file; }
};
std::ostream& operator<<(std::ostream& out, const Numbers& numbers) {
  return out << numbers.dir << '/' << numbers.file;
}

Numbers In(const std::string& path, const std::string& root, bool still) {
  Numbers numbers;
  flm::NumbersInPath(Arg(path), static_cast<int>(root.size()), still, &numbers.dir, &numbers.file);
  return numbers;
}

TEST(NumbersInPath, StandAtTheirPlacesBehindTheRoot) {
  EXPECT_EQ((Numbers{100, 12}), In("/mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG", "/mnt/mmc", true));
  EXPECT_EQ((Numbers{999, 9999}), In("/opt/sd0/DCIM/999ABCDE/HDV_9999.MP4", "/opt/sd0", true));
  EXPECT_EQ((Numbers{100, 12}), In("./DCIM/100PHOTO/QVX_0012.JPG", ".", true));
}

TEST(NumbersInPath, StandOnePlaceFurtherBackInTheTreeOfMovies) {
  EXPECT_EQ((Numbers{100, 12}), In("/mnt/mmc/VIDEO/100VIDEO/QVX_0012.MP4", "/mnt/mmc", false));
}

TEST(NumbersInPath, AreReadWhateverStandsBeforeThem) {
  EXPECT_EQ((Numbers{100, 12}), In("/any/mmcXXXXXX100PHOTOX____0012.JPG", "/mnt/mmc", true));
}

TEST(NumbersInPath, OfAnotherTreeAreReadAsTheyStand) {
  EXPECT_EQ((Numbers{0, 0}), In("/mnt/mmc/VIDEO/100VIDEO/QVX_0012.MP4", "/mnt/mmc", true));
}

TEST(NumbersInPath, OfACameraPathAre99AndZero) {
  EXPECT_EQ((Numbers{99, 0}), In("/mnt/mmc/DCIM/CAMERA/QVX_0012.JPG", "/mnt/mmc", true));
  EXPECT_EQ((Numbers{99, 0}), In("CAMERA", "/mnt/mmc", false));
}

TEST(NumbersInPath, AreReadOnlyWhereThePathHoldsTheirDigits) {
  const std::string root = "/mnt/mmc";
  const std::string whole = root + "/DCIM/100PHOTO/QVX_0012.JPG";
  for (size_t length = 0; length <= whole.size(); ++length) {
    Numbers expected;
    if (length >= root.size() + 9) expected.dir = 100;
    if (length >= root.size() + 23) expected.file = 12;
    EXPECT_EQ(expected, In(whole.substr(0, length), root, true)) << length;
  }
}

TEST(NumbersInPath, OfMoviesAreReadOnlyWhereThePathHoldsTheirDigits) {
  const std::string root = "/opt/sd0";
  const std::string whole = root + "/VIDEO/234VIDEO/HDV_0567.MP4";
  for (size_t length = 0; length <= whole.size(); ++length) {
    Numbers expected;
    if (length >= root.size() + 10) expected.dir = 234;
    if (length >= root.size() + 24) expected.file = 567;
    EXPECT_EQ(expected, In(whole.substr(0, length), root, false)) << length;
  }
}

TEST(NumbersInPath, NeedNoRoot) {
  EXPECT_EQ((Numbers{100, 12}), In("/DCIM/100PHOTO/QVX_0012.JPG", "", true));
}

struct TextCase {
  const char* path;
  const char* expected;  // null: none
};

std::string OrNone(const char* text) { return text == nullptr ? "(none)" : text; }

constexpr TextCase kDirNames[] = {
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG", "100PHOTO/QVX_0012.JPG"},
    {"/a/b", "a/b"},
    {"//", "/"},
    {"/a", nullptr},
    {"a/b", nullptr},
    {"a", nullptr},
    {"/", nullptr},
    {"", nullptr},
    {"a/b/c", "b/c"},
};

TEST(DirNameInPath, StandsBehindTheSecondSlashFromTheEnd) {
  for (const TextCase& c : kDirNames) {
    EXPECT_EQ(OrNone(c.expected), OrNone(flm::DirNameInPath(c.path))) << c.path;
  }
}

constexpr TextCase kFileNames[] = {
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG", "QVX_0012.JPG"},
    {"QVX_0012.JPG", "QVX_0012.JPG"},
    {"/a/", ""},
    {"/", ""},
    {"", ""},
    {"/a b/c d", "c d"},
};

TEST(FileNameInPath, StandsBehindTheLastSlash) {
  for (const TextCase& c : kFileNames) EXPECT_STREQ(c.expected, flm::FileNameInPath(c.path));
}

constexpr TextCase kPrefixes[] = {
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG", "QVX_0012.JPG"},
    {"QVX_0012.JPG", "QVX_0012.JPG"},
    {"0QVX_0012.JPG", "QVX_0012.JPG"},
    {"VX_0012.JPG", nullptr},
    {"", nullptr},
};

TEST(PrefixInPath, StandsTwelveCharactersBeforeTheEnd) {
  for (const TextCase& c : kPrefixes) {
    EXPECT_EQ(OrNone(c.expected), OrNone(flm::PrefixInPath(c.path))) << c.path;
  }
}

constexpr TextCase kExtensions[] = {
    {"/mnt/mmc/DCIM/100PHOTO/QVX_0012.JPG", "JPG"},
    {"MP4", "MP4"},
    {"name", "ame"},
    {"PG", nullptr},
    {"", nullptr},
};

TEST(ExtensionInPath, IsItsLastThreeCharacters) {
  for (const TextCase& c : kExtensions) {
    EXPECT_EQ(OrNone(c.expected), OrNone(flm::ExtensionInPath(c.path))) << c.path;
  }
}

TEST(EndsInJpg, IsExact) {
  EXPECT_TRUE(flm::EndsInJpg("/d/QVX_0012.JPG"));
  EXPECT_TRUE(flm::EndsInJpg("JPG"));
  EXPECT_FALSE(flm::EndsInJpg("/d/QVX_0012.jpg"));
  EXPECT_FALSE(flm::EndsInJpg("/d/QVX_0012.JPGx"));
  EXPECT_FALSE(flm::EndsInJpg("/d/QVX_0012.MP4"));
  EXPECT_FALSE(flm::EndsInJpg("PG"));
  EXPECT_FALSE(flm::EndsInJpg(""));
}

TEST(HasCameraWord, LooksEverywhere) {
  EXPECT_TRUE(flm::HasCameraWord("/mnt/mmc/DCIM/CAMERA/name"));
  EXPECT_TRUE(flm::HasCameraWord("/CAMERAS/100PHOTO/QVX_0001.JPG"));
  EXPECT_TRUE(flm::HasCameraWord("CAMERA"));
  EXPECT_FALSE(flm::HasCameraWord("/mnt/mmc/DCIM/camera/name"));
  EXPECT_FALSE(flm::HasCameraWord("CAMER"));
  EXPECT_FALSE(flm::HasCameraWord(""));
}

}  // namespace
