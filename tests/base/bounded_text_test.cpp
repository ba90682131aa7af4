// The bounded writer, compared with snprintf for every size of the buffer: what it writes, where it
// stops, and that the byte behind the buffer stays as it was.
#include "base/bounded_text.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

constexpr char kSentinel = '\x7e';
constexpr int kRoom = 64;

// A buffer whose bytes are all the sentinel before the writer comes.
struct Guarded {
  Guarded() { std::memset(bytes, kSentinel, sizeof(bytes)); }
  bool UntouchedFrom(int first) const {
    for (int i = first; i < kRoom; ++i) {
      if (bytes[i] != kSentinel) return false;
    }
    return true;
  }
  char bytes[kRoom];
};

TEST(BoundedText, AppendsWhatIsHandedIn) {
  char out[kRoom];
  flm::BoundedText text(out, sizeof(out));
  text.Text("DCIM").Char('/').Number(100, 3).Text("PHOTO");
  EXPECT_STREQ("DCIM/100PHOTO", out);
  EXPECT_EQ(13, text.Length());
  EXPECT_FALSE(text.Cut());
}

TEST(BoundedText, BeginsWithAnEmptyText) {
  Guarded out;
  const flm::BoundedText text(out.bytes, kRoom);
  EXPECT_STREQ("", out.bytes);
  EXPECT_EQ(0, text.Length());
  EXPECT_TRUE(out.UntouchedFrom(1));
}

TEST(BoundedText, WritesWhatSnprintfWritesForEverySize) {
  for (int size = 1; size < kRoom; ++size) {
    Guarded written;
    Guarded expected;
    flm::BoundedText text(written.bytes, size);
    text.Text("/mnt/mmc").Char('/').Number(42, 4).Text(".JPG");
    const int wanted =
        std::snprintf(expected.bytes, static_cast<size_t>(size), "%s/%04d.JPG", "/mnt/mmc", 42);
    EXPECT_STREQ(expected.bytes, written.bytes) << "size " << size;
    EXPECT_EQ(wanted >= size, text.Cut()) << "size " << size;
    EXPECT_TRUE(written.UntouchedFrom(size)) << "size " << size;
  }
}

TEST(BoundedText, NumbersHaveTheWidthThatSnprintfGivesThem) {
  const int numbers[] = {0,          1,        -1,    9,     99,     100,     999,
                         1000,       -999,     -1000, 9999,  10000,  -9999,   -10000,
                         2147483647, 99909999, 32767, 65535, -32768, INT_MAX, INT_MIN};
  for (const int number : numbers) {
    for (int width = 0; width <= 16; ++width) {
      char expected[kRoom];
      if (width == 0) {
        std::snprintf(expected, sizeof(expected), "%d", number);
      } else {
        std::snprintf(expected, sizeof(expected), "%0*d", width, number);
      }
      char out[kRoom];
      flm::BoundedText(out, sizeof(out)).Number(number, width);
      EXPECT_STREQ(expected, out) << "width " << width;
    }
  }
}

TEST(BoundedText, ANumberIsCutLikeAnyText) {
  char out[4];
  flm::BoundedText text(out, sizeof(out));
  text.Number(12345, 4);
  EXPECT_STREQ("123", out);
  EXPECT_TRUE(text.Cut());
}

TEST(BoundedText, AFieldWithoutATerminatorIsReadToItsEndOnly) {
  const char field[4] = {'Q', 'V', 'X', '_'};
  char out[kRoom];
  flm::BoundedText text(out, sizeof(out));
  text.Text(field, sizeof(field));
  EXPECT_STREQ("QVX_", out);
  EXPECT_FALSE(text.Cut());
}

TEST(BoundedText, ATextShorterThanItsMaximumEndsAtItsTerminator) {
  char out[kRoom];
  flm::BoundedText(out, sizeof(out)).Text("AB", 4).Char('c');
  EXPECT_STREQ("ABc", out);
}

TEST(BoundedText, ANullTextAddsNothing) {
  char out[kRoom];
  flm::BoundedText text(out, sizeof(out));
  text.Text(nullptr).Text(nullptr, 4).Char('a');
  EXPECT_STREQ("a", out);
  EXPECT_FALSE(text.Cut());
}

TEST(BoundedText, ASizeOfZeroOrLessWritesNothing) {
  for (const int size : {0, -1, -128, INT_MIN}) {
    Guarded out;
    flm::BoundedText text(out.bytes, size);
    text.Text("DCIM").Char('/').Number(7, 4);
    EXPECT_TRUE(out.UntouchedFrom(0)) << "size " << size;
    EXPECT_TRUE(text.Cut()) << "size " << size;
    EXPECT_EQ(0, text.Length()) << "size " << size;
  }
}

TEST(BoundedText, ANullBufferTakesNothing) {
  flm::BoundedText text(nullptr, kRoom);
  text.Text("DCIM").Char('/').Number(7, 4);
  EXPECT_TRUE(text.Cut());
  EXPECT_EQ(0, text.Length());
}

TEST(BoundedText, ASizeOfOneHoldsTheTerminatorAlone) {
  Guarded out;
  flm::BoundedText text(out.bytes, 1);
  text.Text("a");
  EXPECT_STREQ("", out.bytes);
  EXPECT_TRUE(text.Cut());
  EXPECT_TRUE(out.UntouchedFrom(1));
}

TEST(BoundedText, AddingNothingToAFullBufferCutsNothing) {
  char out[3];
  flm::BoundedText text(out, sizeof(out));
  text.Text("ab").Text("").Text(nullptr);
  EXPECT_FALSE(text.Cut());
  text.Char('c');
  EXPECT_TRUE(text.Cut());
  EXPECT_STREQ("ab", out);
}

TEST(BoundedText, EveryByteIsATextByte) {
  char out[kRoom];
  flm::BoundedText(out, sizeof(out)).Char('\xff').Char('\n').Char('%');
  EXPECT_STREQ("\xff\n%", out);
}

TEST(CopyText, TellsWhetherItCut) {
  char out[5];
  EXPECT_TRUE(flm::CopyText(out, sizeof(out), "QVX_"));
  EXPECT_STREQ("QVX_", out);
  EXPECT_FALSE(flm::CopyText(out, sizeof(out), "HDV_1"));
  EXPECT_STREQ("HDV_", out);
}

TEST(CopyText, ANullTextIsAnEmptyOne) {
  char out[5] = "full";
  EXPECT_TRUE(flm::CopyText(out, sizeof(out), nullptr));
  EXPECT_STREQ("", out);
}

TEST(CopyText, OntoItselfLeavesTheText) {
  char out[8] = "QVX_";
  EXPECT_TRUE(flm::CopyText(out, sizeof(out), out));
  EXPECT_STREQ("QVX_", out);
}

TEST(CopyText, OverItselfMovesTheText) {
  char out[16] = "/mnt/mmc";
  EXPECT_TRUE(flm::CopyText(out, sizeof(out), out + 4));
  EXPECT_STREQ("/mmc", out);
  EXPECT_TRUE(flm::CopyText(out + 2, sizeof(out) - 2, out));
  EXPECT_STREQ("/m/mmc", out);
}

TEST(CopyField, ReadsNoFurtherThanTheField) {
  const char field[3] = {'J', 'P', 'G'};
  char out[8];
  EXPECT_TRUE(flm::CopyField(out, sizeof(out), field, sizeof(field)));
  EXPECT_STREQ("JPG", out);
  EXPECT_FALSE(flm::CopyField(out, 3, field, sizeof(field)));
  EXPECT_STREQ("JP", out);
}

TEST(BoundedLength, LooksAtNoMoreThanItsLimit) {
  const char field[4] = {'Q', 'V', 'X', '_'};
  EXPECT_EQ(4, flm::BoundedLength(field, 4));
  EXPECT_EQ(2, flm::BoundedLength(field, 2));
  EXPECT_EQ(3, flm::BoundedLength("JPG", 12));
  EXPECT_EQ(0, flm::BoundedLength("", 12));
  EXPECT_EQ(0, flm::BoundedLength("JPG", 0));
  EXPECT_EQ(0, flm::BoundedLength("JPG", -1));
  EXPECT_EQ(0, flm::BoundedLength(nullptr, 12));
}

TEST(UpperCase, TurnsTheLettersAToZAndNothingElse) {
  char text[] = "cam_0001.jpg `az{ \xe4\xc4";
  flm::UpperCase(text);
  EXPECT_STREQ("CAM_0001.JPG `AZ{ \xe4\xc4", text);
}

TEST(UpperCase, AnEmptyTextStaysEmpty) {
  char text[] = "";
  flm::UpperCase(text);
  EXPECT_STREQ("", text);
}

TEST(UpperCaseOf, ChangesOnlyTheLettersAToZ) {
  for (int c = CHAR_MIN; c <= CHAR_MAX; ++c) {
    const int expected = c >= 'a' && c <= 'z' ? c - 32 : c;
    EXPECT_EQ(static_cast<char>(expected), flm::UpperCaseOf(static_cast<char>(c)));
  }
}

}  // namespace
