// Numbers are read out of names as atoi reads them, but never past the digits of their place.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "base/bounded_text.h"

namespace {

struct NumberCase {
  const char* text;
  int digits;
  int expected;
};

constexpr NumberCase kNumbers[] = {
    {"0001", 4, 1},
    {"9999", 4, 9999},
    {"0000", 4, 0},
    {"100PHOTO", 3, 100},
    {"12345", 4, 1234},
    {"12", 4, 12},
    {"12a4", 4, 12},
    {"a123", 4, 0},
    {"", 4, 0},
    {"    5", 4, 0},
    {"   5", 4, 5},
    {" \t\n5", 4, 5},
    {"-012", 4, -12},
    {"+012", 4, 12},
    {"--12", 4, 0},
    {"- 12", 4, 0},
    {"-", 4, 0},
    {"123", 0, 0},
    {"123", -1, 0},
    {"2147483647", 10, 2147483647},
    {"007PHOTO", 3, 7},
    {"1e3", 3, 1},
    {"0x10", 4, 0},
    {"1.50", 4, 1},
    {" 1 2", 4, 1},
    {"\v\f\r7", 4, 7},
    {"\xff\x80"
     "12",
     4, 0},
};

TEST(ReadNumber, ReadsTheLeadingNumberOfItsPlace) {
  for (const NumberCase& c : kNumbers) {
    EXPECT_EQ(c.expected, flm::ReadNumber(c.text, c.digits)) << '"' << c.text << '"';
  }
}

TEST(ReadNumber, AgreesWithAtoiForEveryTextOfFourCharacters) {
  const std::string alphabet = "059 -+a.";
  const size_t n = alphabet.size();
  for (size_t i = 0; i < n * n * n * n; ++i) {
    const std::string text = {alphabet[i % n], alphabet[i / n % n], alphabet[i / n / n % n],
                              alphabet[i / n / n / n]};
    EXPECT_EQ(std::atoi(text.c_str()), flm::ReadNumber(text.c_str(), 4)) << '"' << text << '"';
  }
}

TEST(ReadNumber, LooksAtNoByteBehindItsDigits) {
  const char field[4] = {'0', '0', '1', '2'};  // no terminator: a sanitizer sees one byte more
  EXPECT_EQ(12, flm::ReadNumber(field, 4));
}

TEST(ReadNumber, LooksAtNoByteBehindTheTerminator) {
  const char text[3] = {'1', '2', '\0'};
  EXPECT_EQ(12, flm::ReadNumber(text, 8));
}

}  // namespace
