// Keys from the bytes of a terminal.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "browse_keys.h"

using flm::tool::Key;
using flm::tool::KeyKind;
using flm::tool::KeyParser;

namespace {

// Every key in a text that came at once, then what is left when nothing follows.
std::vector<KeyKind> KindsIn(const std::string& bytes) {
  KeyParser parser;
  parser.Feed(bytes.data(), bytes.size());
  std::vector<KeyKind> kinds;
  while (const auto key = parser.Next()) kinds.push_back(key->kind);
  while (const auto key = parser.GiveUp()) {
    kinds.push_back(key->kind);
    while (const auto next = parser.Next()) kinds.push_back(next->kind);
  }
  return kinds;
}

using Kinds = std::vector<KeyKind>;

TEST(BrowseKeys, LettersAreTheirOwnKeys) {
  KeyParser parser;
  parser.Feed("d ", 2);
  EXPECT_EQ(parser.Next()->character, 'd');
  EXPECT_EQ(parser.Next()->character, ' ');
  EXPECT_FALSE(parser.Next().has_value());
}

TEST(BrowseKeys, ArrowsAreKnownInBothForms) {
  const Kinds arrows = {KeyKind::kUp, KeyKind::kDown, KeyKind::kRight, KeyKind::kLeft};
  EXPECT_EQ(KindsIn("\033[A\033[B\033[C\033[D"), arrows);
  EXPECT_EQ(KindsIn("\033OA\033OB\033OC\033OD"), arrows);
}

TEST(BrowseKeys, PageHomeEndAndHelpAreKnownInEveryForm) {
  EXPECT_EQ(KindsIn("\033[5~\033[6~"), (Kinds{KeyKind::kPageUp, KeyKind::kPageDown}));
  EXPECT_EQ(KindsIn("\033[H\033[1~\033[7~\033OH"), Kinds(4, KeyKind::kHome));
  EXPECT_EQ(KindsIn("\033[F\033[4~\033[8~\033OF"), Kinds(4, KeyKind::kEnd));
  EXPECT_EQ(KindsIn("\033OP\033[11~\033[[A"), Kinds(3, KeyKind::kHelp));
}

TEST(BrowseKeys, ShiftAndTheLikeMakeNoDifference) {
  EXPECT_EQ(KindsIn("\033[1;2A\033[5;5~"), (Kinds{KeyKind::kUp, KeyKind::kPageUp}));
}

TEST(BrowseKeys, SequenceMayComeByteByByte) {
  KeyParser parser;
  for (const char c : std::string("\033[5")) {
    parser.Feed(&c, 1);
    EXPECT_FALSE(parser.Next().has_value());
    EXPECT_TRUE(parser.IsWaiting());
  }
  parser.Feed("~", 1);
  EXPECT_EQ(parser.Next()->kind, KeyKind::kPageUp);
  EXPECT_FALSE(parser.IsWaiting());
}

TEST(BrowseKeys, LoneEscIsOneOnlyWhenNothingFollows) {
  KeyParser parser;
  parser.Feed("\033", 1);
  EXPECT_FALSE(parser.Next().has_value());
  EXPECT_EQ(parser.GiveUp()->kind, KeyKind::kEscape);
  EXPECT_FALSE(parser.GiveUp().has_value());
}

TEST(BrowseKeys, EscInFrontOfAnotherKeyLeavesThatKeyWhole) {
  EXPECT_EQ(KindsIn("\033q"), (Kinds{KeyKind::kEscape, KeyKind::kCharacter}));
  EXPECT_EQ(KindsIn("\033\033[A"), (Kinds{KeyKind::kEscape, KeyKind::kUp}));
}

TEST(BrowseKeys, StrangeSequencesAreOneUnknownKeyAndHideNothingBehindThem) {
  for (const char* const strange : {"\033[24~", "\033[?1;2c", "\033[200~", "\033OQ", "\xC3\xA9"}) {
    EXPECT_EQ(KindsIn(strange + std::string("q")), (Kinds{KeyKind::kUnknown, KeyKind::kCharacter}))
        << strange;
  }
}

TEST(BrowseKeys, EndlessSequenceIsDropped) {
  KeyParser parser;
  const std::string bytes = "\033[" + std::string(100, '1');
  parser.Feed(bytes.data(), bytes.size());
  EXPECT_EQ(parser.Next()->kind, KeyKind::kUnknown);
  EXPECT_FALSE(parser.IsWaiting());
}

TEST(BrowseKeys, AnyBytesEndInKeys) {
  unsigned int state = 1;
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    for (int i = 0; i < 12; ++i) {
      state = state * 1103515245U + 12345U;
      constexpr char kLikely[] = "\033[O~;1A\xC3q";
      bytes += (state >> 28) < 12 ? kLikely[(state >> 16) % 9] : static_cast<char>(state >> 16);
    }
    EXPECT_LE(KindsIn(bytes).size(), bytes.size());
  }
}

}  // namespace
