// Writing paths: every shape, for every size of the buffer and for odd numbers, is what snprintf
// writes.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <cstring>
#include <functional>
#include <string>

#include "dcf/dcf_path.h"

namespace {

constexpr char kSentinel = '\x7e';
constexpr int kLargest = 140;
constexpr int kNumbers[] = {-1, 0, 1, 99, 100, 999, 1000, 9999, 10000, -1000, INT_MAX, INT_MIN};
constexpr char kRoot[] = "/mnt/mmc";

using Writer = std::function<void(flm::BoundedText&)>;

// Holds `write` against the text that it should make, for every size from 0 to 140.
void ExpectShape(const std::string& expected, const Writer& write) {
  for (int size = 0; size <= kLargest; ++size) {
    char buffer[kLargest + 2];
    std::memset(buffer, kSentinel, sizeof(buffer));
    flm::BoundedText out(buffer, size);
    write(out);
    const size_t room = size == 0 ? 0 : static_cast<size_t>(size) - 1;
    const std::string cut = expected.substr(0, room);
    if (size > 0) {
      EXPECT_EQ(cut, buffer) << "size " << size;
    }
    const bool untouched = std::all_of(buffer + std::max(size, 0), buffer + sizeof(buffer),
                                       [](char c) { return c == kSentinel; });
    EXPECT_TRUE(untouched) << "size " << size;
    EXPECT_EQ(cut != expected, out.Cut()) << "size " << size;
  }
}

// What snprintf makes of a format with one number.
std::string Formatted(const char* format, int number) {
  char text[64];
  std::snprintf(text, sizeof(text), format, number);
  return text;
}

TEST(PathShape, OfAFolderOfTheRoot) {
  ExpectShape("/mnt/mmc/MISC",
              [](flm::BoundedText& out) { flm::AppendRootFolder(out, kRoot, "MISC"); });
  ExpectShape("./DCIM", [](flm::BoundedText& out) { flm::AppendRootFolder(out, ".", "DCIM"); });
}

TEST(PathShape, OfANamedFolder) {
  ExpectShape("/mnt/mmc/DCIM/100PHOTO", [](flm::BoundedText& out) {
    flm::AppendNamedFolder(out, kRoot, "DCIM", "100PHOTO");
  });
}

TEST(PathShape, OfANumberedFolder) {
  for (const int number : kNumbers) {
    ExpectShape("/mnt/mmc/VIDEO/" + Formatted("%03d", number) + "PHOTO",
                [number](flm::BoundedText& out) {
                  flm::AppendNumberedFolder(out, kRoot, "VIDEO", number, "PHOTO");
                });
  }
}

TEST(PathShape, OfANumberedFile) {
  const char prefix[4] = {'Q', 'V', 'X', '_'};
  const char extension[3] = {'J', 'P', 'G'};
  for (const int number : kNumbers) {
    ExpectShape("QVX_" + Formatted("%04d", number) + ".JPG",
                [number, &prefix, &extension](flm::BoundedText& out) {
                  flm::AppendNumberedName(out, {prefix, 4}, number, {extension, 3});
                });
  }
}

TEST(PathShape, OfAFileWhosePartsAreTexts) {
  ExpectShape("PREFIX0012.MPEG", [](flm::BoundedText& out) {
    flm::AppendNumberedName(out, flm::WholeText("PREFIX"), 12, flm::WholeText("MPEG"));
  });
}

TEST(PathShape, OfAFileWithoutPrefixOrExtension) {
  ExpectShape("0012.", [](flm::BoundedText& out) {
    flm::AppendNumberedName(out, {"", 4}, 12, flm::WholeText(nullptr));
  });
  ExpectShape("0012.", [](flm::BoundedText& out) {
    flm::AppendNumberedName(out, {nullptr, 4}, 12, {nullptr, 3});
  });
}

TEST(PathShape, OfThePrintOrder) {
  ExpectShape("/mnt/mmc/MISC/AUTPRINT.MRK",
              [](flm::BoundedText& out) { flm::AppendPrintOrder(out, kRoot); });
}

TEST(PathShape, OfAnyLengthIsCutAtTheEndOfTheBuffer) {
  const std::string root(200, 'r');
  ExpectShape(root + "/DCIM/100PHOTO", [&root](flm::BoundedText& out) {
    flm::AppendNamedFolder(out, root.c_str(), "DCIM", "100PHOTO");
  });
}

struct TreeCase {
  int mode;
  const char* scanned;
  const char* made;
};
constexpr TreeCase kTrees[] = {
    {0, "DCIM", "DCIM"},        {1, "VIDEO", "DCIM"},       {2, "VIDEO", "VIDEO"},
    {3, "VIDEO", "DCIM"},       {4, "DCIM", "DCIM"},        {5, "VIDEO", "DCIM"},
    {10, "VIDEO", "DCIM"},      {20, "VIDEO", "DCIM"},      {-1, "VIDEO", "DCIM"},
    {INT_MAX, "VIDEO", "DCIM"}, {INT_MIN, "VIDEO", "DCIM"},
};

TEST(Tree, ThatIsListedAndThatIsMadeDifferInSomeModes) {
  for (const TreeCase& c : kTrees) {
    EXPECT_STREQ(c.scanned, flm::ScannedTree(c.mode)) << c.mode;
    EXPECT_STREQ(c.made, flm::MadeTree(c.mode)) << c.mode;
    EXPECT_EQ(c.mode == 0 || c.mode == 4, flm::IsStillMode(c.mode)) << c.mode;
  }
}

}  // namespace
