// Reading a text file line by line: where a line ends, what is left in the line, and which result
// tells what.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "dpof/CQFileReader.h"
#include "tests/support/card.h"

namespace {

using flm_test::Arg;
using flm_test::Card;

constexpr int kRead = 0;
constexpr int kTooLong = -101;
constexpr int kEnd = -102;

// What one call gave: its result and the text in the line.
struct Line {
  int result;
  std::string text;
  bool operator==(const Line& other) const { return result == other.result && text == other.text; }
};
std::ostream& operator<<(std::ostream& out, const Line& line) {
  return out << line.result << " \"" << line.text << '"';
}

class ReaderLines : public testing::Test {
 protected:
  void Of(const std::string& content) {
    card_.WriteFile("f", content);
    reader_ = std::make_unique<CQFileReader>(Arg(card_.Path("f")));
    ASSERT_TRUE(reader_->FlagCreate());
  }
  // Reads into a line of exactly `size` bytes, so that a sanitizer sees one byte more.
  Line Next(int size = 256, char delimiter = '\n') {
    std::vector<char> line(static_cast<size_t>(size), '~');
    const int result = reader_->GetLine(line.data(), size, delimiter);
    return {result, std::string(line.data(), strnlen(line.data(), line.size()))};
  }
  Card card_;
  std::unique_ptr<CQFileReader> reader_;
};

TEST_F(ReaderLines, ALineKeepsItsDelimiter) {
  Of("A\nB");
  EXPECT_EQ((Line{kRead, "A\n"}), Next());
}

TEST_F(ReaderLines, ALastLineWithoutADelimiterIsGivenWithTheEnd) {
  Of("A\nB");
  Next();
  EXPECT_EQ((Line{kEnd, "B"}), Next());
}

TEST_F(ReaderLines, AfterTheEndThereIsNothingMore) {
  Of("A\nB");
  Next();
  Next();
  EXPECT_EQ((Line{kEnd, ""}), Next());
  EXPECT_EQ((Line{kEnd, ""}), Next());
}

TEST_F(ReaderLines, AfterALastDelimiterTheEndIsEmpty) {
  Of("A\n");
  EXPECT_EQ((Line{kRead, "A\n"}), Next());
  EXPECT_EQ((Line{kEnd, ""}), Next());
  EXPECT_EQ((Line{kEnd, ""}), Next());
}

TEST_F(ReaderLines, AnEmptyLineIsTheDelimiterAlone) {
  Of("\n\nA\n");
  EXPECT_EQ((Line{kRead, "\n"}), Next());
  EXPECT_EQ((Line{kRead, "\n"}), Next());
  EXPECT_EQ((Line{kRead, "A\n"}), Next());
}

TEST_F(ReaderLines, AnEmptyFileIsAtItsEnd) {
  Of("");
  EXPECT_EQ((Line{kEnd, ""}), Next());
  EXPECT_EQ((Line{kEnd, ""}), Next());
}

TEST_F(ReaderLines, ACarriageReturnIsAByteLikeAnyOther) {
  Of("A\r\nB\r\n");
  EXPECT_EQ((Line{kRead, "A\r\n"}), Next());
  EXPECT_EQ((Line{kRead, "B\r\n"}), Next());
}

TEST_F(ReaderLines, TheCallerChoosesTheDelimiter) {
  Of("a;b\nc;d");
  EXPECT_EQ((Line{kRead, "a;"}), Next(256, ';'));
  EXPECT_EQ((Line{kRead, "b\n"}), Next(256, '\n'));
  EXPECT_EQ((Line{kRead, "c;"}), Next(256, ';'));
  EXPECT_EQ((Line{kEnd, "d"}), Next(256, ';'));
}

TEST_F(ReaderLines, ADelimiterMayBeAnyByte) {
  Of("a\xff"
     "b\xff");
  EXPECT_EQ((Line{kRead, "a\xff"}), Next(256, '\xff'));
  EXPECT_EQ((Line{kRead, "b\xff"}), Next(256, '\xff'));
}

TEST_F(ReaderLines, ALineIsClearedToItsLastByte) {
  Of("A\nB\n");
  char line[16];
  std::memset(line, '~', sizeof(line));
  EXPECT_EQ(kRead, reader_->GetLine(line, 8, '\n'));
  EXPECT_EQ(std::string("A\n\0\0\0\0\0\0~~~~~~~~", 16), std::string(line, sizeof(line)));
}

TEST_F(ReaderLines, ALineThatFitsWithItsTerminatorIsRead) {
  Of("ab\ncd\n");
  EXPECT_EQ((Line{kRead, "ab\n"}), Next(4));
  EXPECT_EQ((Line{kRead, "cd\n"}), Next(4));
}

TEST_F(ReaderLines, ADelimiterWithoutRoomIsConsumed) {
  Of("abc\nde\n");
  EXPECT_EQ((Line{kTooLong, "abc"}), Next(4));
  EXPECT_EQ((Line{kRead, "de\n"}), Next(4));
}

TEST_F(ReaderLines, ADelimiterBehindAFullLineIsConsumedToo) {
  Of("abcd\nef\n");
  EXPECT_EQ((Line{kTooLong, "abcd"}), Next(4));
  EXPECT_EQ((Line{kRead, "ef\n"}), Next(4));
}

TEST_F(ReaderLines, AByteWithoutRoomBeginsTheNextLine) {
  Of("abcde\nf\n");
  EXPECT_EQ((Line{kTooLong, "abcd"}), Next(4));
  EXPECT_EQ((Line{kRead, "e\n"}), Next(4));
  EXPECT_EQ((Line{kRead, "f\n"}), Next(4));
}

TEST_F(ReaderLines, ALongLineComesInPieces) {
  Of("abcdefghij\n");
  EXPECT_EQ((Line{kTooLong, "abcd"}), Next(4));
  EXPECT_EQ((Line{kTooLong, "efgh"}), Next(4));
  EXPECT_EQ((Line{kRead, "ij\n"}), Next(4));
  EXPECT_EQ((Line{kEnd, ""}), Next(4));
}

TEST_F(ReaderLines, ALastLineMayFillTheLine) {
  Of("abcd");
  EXPECT_EQ((Line{kEnd, "abcd"}), Next(4));
}

TEST_F(ReaderLines, ALineOfOneByteHoldsNoDelimiter) {
  Of("\n\nab\n");
  EXPECT_EQ((Line{kTooLong, ""}), Next(1));
  EXPECT_EQ((Line{kTooLong, ""}), Next(1));
  EXPECT_EQ((Line{kTooLong, "a"}), Next(1));
  EXPECT_EQ((Line{kTooLong, "b"}), Next(1));
  EXPECT_EQ((Line{kEnd, ""}), Next(1));
}

TEST_F(ReaderLines, ALineWithoutRoomTakesOrdinaryBytesNever) {
  for (const int size : {0, -1, INT_MIN}) {
    Of("\nab");
    char byte = '~';
    EXPECT_EQ(kTooLong, reader_->GetLine(&byte, size, '\n')) << size;
    EXPECT_EQ(kTooLong, reader_->GetLine(&byte, size, '\n')) << size;
    EXPECT_EQ('~', byte) << size;
    EXPECT_EQ((Line{kEnd, "ab"}), Next()) << size;
  }
}

TEST_F(ReaderLines, ANullLineIsRefusedAndTakesNothing) {
  Of("A\nB");
  EXPECT_EQ(-1, reader_->GetLine(nullptr, 16, '\n'));
  EXPECT_EQ((Line{kRead, "A\n"}), Next());
}

TEST_F(ReaderLines, ANulByteIsAByteLikeAnyOther) {
  Of(std::string("a\0b\nc\n", 6));
  char line[8];
  EXPECT_EQ(kRead, reader_->GetLine(line, sizeof(line), '\n'));
  EXPECT_EQ(std::string("a\0b\n\0", 5), std::string(line, 5));
  EXPECT_EQ((Line{kRead, "c\n"}), Next());
}

TEST_F(ReaderLines, ANulByteAtTheStartIsAByteLikeAnyOther) {
  Of(std::string("\0a\nb\n", 5));
  char line[8];
  EXPECT_EQ(kRead, reader_->GetLine(line, sizeof(line), '\n'));
  EXPECT_EQ(std::string("\0a\n\0", 4), std::string(line, 4));
  EXPECT_EQ((Line{kRead, "b\n"}), Next());
}

TEST_F(ReaderLines, ANulByteMayBeTheDelimiter) {
  Of(std::string("a\0b", 3));
  char line[4];
  EXPECT_EQ(kRead, reader_->GetLine(line, sizeof(line), '\0'));
  EXPECT_STREQ("a", line);
  EXPECT_EQ((Line{kEnd, "b"}), Next(4, '\0'));
}

}  // namespace
