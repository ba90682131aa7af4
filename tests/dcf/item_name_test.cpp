// A file name as a value of its own, with 32 bits of the caller's beside it.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <string>

#include "dcf/CQDCFItem.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Text;

std::string NameOf(const CQDCFItem& item) {
  char name[32];
  EXPECT_EQ(0, item.GetFilename(name, sizeof(name)));
  return name;
}

TEST(NameValue, OfNoFileHasNoNumber) {
  const CQDCFItem item;
  EXPECT_EQ(-1, item.GetFnum());
  EXPECT_EQ("CAM_0000", NameOf(item));
  for (int i = 0; i < 4; ++i) EXPECT_EQ(0, item.GetCustomByte(i)) << i;
}

struct NameCase {
  const char* given;
  const char* expected;
};
constexpr NameCase kNames[] = {
    {"cam_0012.mp4", "CAM_0012.MP4"}, {"CAM_0001.JPG", "CAM_0001.JPG"},
    {"HDV_0002.MP4", "HDV_0002.MP4"}, {"HDE_0003.MP4", "HDE_0003.MP4"},
    {"HDA_9999.MP4", "HDA_9999.MP4"}, {"SDV_0000.MP4", "SDV_0000.MP4"},
    {"sde_0006.jpg", "SDE_0006.JPG"}, {"SDA_0007.JPG", "SDA_0007.JPG"},
    {"CAM_12AB.JPG", "CAM_0012.JPG"}, {"CAM_ABCD.JPG", "CAM_0000.JPG"},
};

TEST(NameValue, IsWrittenAsItWasTaken) {
  for (const NameCase& c : kNames) {
    CQDCFItem item;
    EXPECT_EQ(0, item.SetFileName(Arg(c.given))) << c.given;
    EXPECT_EQ(c.expected, NameOf(item)) << c.given;
  }
}

TEST(NameValue, AnUnknownPrefixLeavesTheEarlierOne) {
  CQDCFItem item;
  item.SetFileName(Arg("SDA_0001.JPG"));
  EXPECT_EQ(0, item.SetFileName(Arg("QVX_0002.JPG")));
  EXPECT_EQ("SDA_0002.JPG", NameOf(item));
}

TEST(NameValue, AnUnknownExtensionLeavesTheEarlierOne) {
  CQDCFItem item;
  item.SetFileName(Arg("CAM_0001.MP4"));
  EXPECT_EQ(0, item.SetFileName(Arg("CAM_0002.WAV")));
  EXPECT_EQ("CAM_0002.MP4", NameOf(item));
  EXPECT_EQ(0, item.SetFileName(Arg("CAM_0003XJPG")));
  EXPECT_EQ("CAM_0003.MP4", NameOf(item));
}

TEST(NameValue, WithoutAKnownExtensionIsWrittenWithoutOne) {
  CQDCFItem item;
  EXPECT_EQ(0, item.SetFileName(Arg("CAM_0002.WAV")));
  EXPECT_EQ("CAM_0002", NameOf(item));
}

TEST(NameValue, IsUpperCasedInPlace) {
  Text name("cam_0012.mp4");
  CQDCFItem item;
  item.SetFileName(name);
  EXPECT_EQ("CAM_0012.MP4", name.Now());
}

TEST(NameValue, OfAnotherLengthIsRefusedAndChangesNothing) {
  CQDCFItem item;
  item.SetFileName(Arg("HDV_0042.MP4"));
  for (const char* name : {"cam_001.jpg", "cam_00001.jpg", "", "c"}) {
    Text given(name);
    EXPECT_EQ(-1, item.SetFileName(given)) << name;
    EXPECT_EQ(name, given.Now());
  }
  EXPECT_EQ(-1, item.SetFileName(nullptr));
  EXPECT_EQ("HDV_0042.MP4", NameOf(item));
}

TEST(NameValue, IsCutToTheBytesThatThereAre) {
  CQDCFItem item;
  item.SetFileName(Arg("CAM_0012.MP4"));
  for (int size = 1; size <= 14; ++size) {
    char out[16];
    std::memset(out, 0x7e, sizeof(out));
    EXPECT_EQ(0, item.GetFilename(out, size));
    EXPECT_EQ(std::string("CAM_0012.MP4").substr(0, static_cast<size_t>(size) - 1), out);
    EXPECT_EQ(0x7e, out[size]) << size;
  }
}

TEST(NameValue, IsNotWrittenWhereThereIsNoRoom) {
  CQDCFItem item;
  item.SetFileName(Arg("CAM_0012.MP4"));
  char out[2] = {0x7e, 0x7e};
  for (const int size : {0, -1, INT_MIN}) {
    EXPECT_EQ(0, item.GetFilename(out, size)) << size;
    EXPECT_EQ(0x7e, out[0]) << size;
  }
  EXPECT_EQ(-1, item.GetFilename(nullptr, 13));
}

TEST(NameValue, DeletingTheNameDoesNothing) {
  CQDCFItem item;
  item.SetFileName(Arg("CAM_0012.MP4"));
  EXPECT_EQ(0, item.DelFileName());
  EXPECT_EQ("CAM_0012.MP4", NameOf(item));
}

TEST(NameValue, KeepsTheNumberThatIsSetApartFromTheName) {
  CQDCFItem item;
  item.SetFileName(Arg("CAM_0012.MP4"));
  EXPECT_EQ(-1, item.GetFnum());
  for (const short number : {short{0}, short{9999}, short{-32768}, short{32767}}) {
    item.SetFnum(number);
    EXPECT_EQ(number, item.GetFnum());
  }
  EXPECT_EQ("CAM_0012.MP4", NameOf(item));
}

TEST(CustomBytes, AreKeptOneByOne) {
  CQDCFItem item;
  for (int i = 0; i < 4; ++i) item.SetCustomByte(i, static_cast<char>('a' + i));
  for (int i = 0; i < 4; ++i) EXPECT_EQ('a' + i, item.GetCustomByte(i)) << i;
  item.SetCustomByte(1, 'z');
  EXPECT_EQ('a', item.GetCustomByte(0));
  EXPECT_EQ('z', item.GetCustomByte(1));
  EXPECT_EQ('c', item.GetCustomByte(2));
}

TEST(CustomBits, CountFromTheTopOfTheWord) {
  for (int n = 0; n < 32; ++n) {
    CQDCFItem item;
    EXPECT_EQ(0x80000000U >> n, item.SetCustomBit(n, true)) << n;
    for (int other = 0; other < 32; ++other) {
      EXPECT_EQ(other == n ? 1 : 0, item.GetCustomBit(other)) << n << ' ' << other;
    }
  }
}

TEST(CustomBits, AreClearedOneByOne) {
  CQDCFItem item;
  for (int i = 0; i < 4; ++i) item.SetCustomByte(i, '\xff');
  for (int n = 0; n < 32; ++n) {
    EXPECT_EQ(~(0x80000000U >> n), item.SetCustomBit(n, false)) << n;
    EXPECT_EQ(0, item.GetCustomBit(n)) << n;
    EXPECT_EQ(0xffffffffU, item.SetCustomBit(n, true)) << n;
  }
}

TEST(CustomBits, AreTheCustomBytesFromTheLowEnd) {
  CQDCFItem item;
  item.SetCustomByte(0, 0x04);
  item.SetCustomByte(1, 0x03);
  item.SetCustomByte(2, 0x02);
  item.SetCustomByte(3, 0x00);
  EXPECT_EQ(0x80020304U, item.SetCustomBit(0, true));
  EXPECT_EQ('\x80', item.GetCustomByte(3));
  EXPECT_EQ(0x80020305U, item.SetCustomBit(31, true));
  EXPECT_EQ(0x05, item.GetCustomByte(0));
}

TEST(CustomBits, OutsideTheWordChangeNothing) {
  CQDCFItem item;
  for (const int n : {-1, 32, 1000, INT_MIN, INT_MAX}) {
    EXPECT_EQ(0U, item.SetCustomBit(n, true)) << n;
    EXPECT_EQ(0, item.GetCustomBit(n)) << n;
  }
  for (const int i : {-1, 4, 1000, INT_MIN, INT_MAX}) {
    item.SetCustomByte(i, 'x');
    EXPECT_EQ(0, item.GetCustomByte(i)) << i;
  }
  EXPECT_EQ(0U, item.SetCustomBit(0, false));
}

TEST(BinaryDigitsOfAWord, AreWrittenTopFirstAndTerminated) {
  const CQDCFItem item;
  struct {
    unsigned long value;
    const char* expected;
  } const cases[] = {{0UL, "00000000000000000000000000000000"},
                     {1UL, "00000000000000000000000000000001"},
                     {0x80000000UL, "10000000000000000000000000000000"},
                     {0xffffffffUL, "11111111111111111111111111111111"},
                     {0x12345678UL, "00010010001101000101011001111000"}};
  for (const auto& c : cases) {
    char out[34];
    std::memset(out, 0x7e, sizeof(out));
    item.GetBin(c.value, out);
    EXPECT_STREQ(c.expected, out);
    EXPECT_EQ(0x7e, out[33]);
  }
  EXPECT_EQ(-1, item.GetBin(1, nullptr));
}

TEST(NameValue, UpperCasingGivesTheLength) {
  const CQDCFItem item;
  Text name("a longer name of Any length_z{.jpg");
  EXPECT_EQ(34, item.MakeUpperCase(name));
  EXPECT_EQ("A LONGER NAME OF ANY LENGTH_Z{.JPG", name.Now());
  EXPECT_EQ(0, item.MakeUpperCase(Arg("")));
  EXPECT_EQ(-1, item.MakeUpperCase(nullptr));
}

}  // namespace
