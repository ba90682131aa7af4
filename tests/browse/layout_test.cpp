// Where the tiles of the contact sheet stand, and texts cut to columns.
#include <gtest/gtest.h>

#include "browse_layout.h"

using flm::tool::Box;
using flm::tool::Centred;
using flm::tool::Fitted;
using flm::tool::Layout;
using flm::tool::ScreenSize;

namespace {

ScreenSize Screen(int columns, int rows) {
  ScreenSize size;
  size.columns = columns;
  size.rows = rows;
  return size;
}

TEST(BrowseLayout, UsualTerminalHoldsTwoRowsOfFour) {
  const Layout layout(Screen(80, 24));
  EXPECT_TRUE(layout.Fits());
  EXPECT_EQ(layout.Across(), 4);
  EXPECT_EQ(layout.PerPage(), 8);
}

TEST(BrowseLayout, TilesLieBetweenTitleAndMessageAndNeverOverlap) {
  for (int columns = 1; columns < 260; columns += 3) {
    for (int rows = 1; rows < 90; ++rows) {
      const Layout layout(Screen(columns, rows));
      if (!layout.Fits()) continue;
      for (int i = 0; i < layout.PerPage(); ++i) {
        const Box tile = layout.Tile(i);
        const Box picture = layout.Picture(i);
        ASSERT_GE(tile.row, 1);
        ASSERT_LE(tile.row + tile.rows, layout.MessageRow());
        ASSERT_LE(tile.column + tile.columns, columns);
        ASSERT_GE(picture.columns, 1);
        ASSERT_GE(picture.rows, 1);
        if (i == 0) continue;
        const Box before = layout.Tile(i - 1);
        ASSERT_TRUE(tile.row >= before.row + before.rows ||
                    tile.column >= before.column + before.columns);
      }
    }
  }
}

TEST(BrowseLayout, TinyTerminalHoldsNothing) {
  EXPECT_FALSE(Layout(Screen(10, 24)).Fits());
  EXPECT_FALSE(Layout(Screen(80, 7)).Fits());
  EXPECT_EQ(Layout(Screen(1, 1)).PerPage(), 1);
}

TEST(BrowseText, IsFilledUpOrCutWithASign) {
  EXPECT_EQ(Fitted("abc", 5, true), "abc  ");
  EXPECT_EQ(Fitted("abcdef", 4, true), "abc…");
  EXPECT_EQ(Fitted("abcdef", 4, false), "abc~");
  EXPECT_EQ(Fitted("abc", 0, true), "");
  EXPECT_EQ(Fitted("", 2, true), "  ");
}

TEST(BrowseText, WideCharactersTakeTwoColumnsAndJoiningOnesNone) {
  EXPECT_EQ(Fitted("日本", 5, true), "日本 ");
  EXPECT_EQ(Fitted("日本", 3, true), "日…");
  EXPECT_EQ(Fitted("日本日", 4, true), "日… ");
  EXPECT_EQ(Fitted("e\xCC\x81", 2, true), "e\xCC\x81 ");
}

TEST(BrowseText, HasAQuestionMarkForWhatAnAsciiTerminalLacks) {
  EXPECT_EQ(Fitted("café", 6, false), "caf?  ");
}

TEST(BrowseText, StandsInTheMiddle) {
  EXPECT_EQ(Centred("ab", 6, true), "  ab  ");
  EXPECT_EQ(Centred("abcdef", 3, true), "ab…");
}

}  // namespace
