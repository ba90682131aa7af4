#include "browse_layout.h"

#include <glib.h>

#include <algorithm>
#include <string>
#include <vector>

namespace flm::tool {
namespace {

constexpr int kTileWidth = 20;     // columns of a tile where there is room
constexpr int kLeastColumns = 14;  // of a screen
constexpr int kTitleRows = 1;
constexpr int kMessageRows = 1;
constexpr int kLabelRows = 2;
constexpr int kFrame = 2;  // both sides
constexpr int kLeastTileRows = kFrame + kLabelRows + 2;

// Rows of a picture of the usual shape, three high by four wide.
int PictureRows(int columns, const ScreenSize& size) {
  return columns * size.cellWidth * 3 / 4 / size.cellHeight;
}

struct Piece {
  std::string text;
  int columns;
};

int ColumnsOf(gunichar character) {
  if (g_unichar_iszerowidth(character) != 0) return 0;
  return g_unichar_iswide(character) != 0 ? 2 : 1;
}

std::vector<Piece> PiecesOf(const std::string& text, bool unicode) {
  std::vector<Piece> pieces;
  const char* next = nullptr;
  for (const char* at = text.c_str(); *at != '\0'; at = next) {
    next = g_utf8_next_char(at);
    const gunichar character = g_utf8_get_char(at);
    constexpr gunichar kFirstBeyondAscii = 0x80;
    if (character >= kFirstBeyondAscii && !unicode) {
      pieces.push_back({"?", 1});
    } else {
      pieces.push_back({std::string(at, next), ColumnsOf(character)});
    }
  }
  return pieces;
}

int ColumnsOf(const std::vector<Piece>& pieces) {
  int columns = 0;
  for (const Piece& piece : pieces) columns += piece.columns;
  return columns;
}

}  // namespace

Layout::Layout(ScreenSize size) : size_(size) {
  const int rows = size.rows - kTitleRows - kMessageRows;
  fits_ = size.columns >= kLeastColumns && rows >= kLeastTileRows;
  if (!fits_) return;
  across_ = std::max(1, size.columns / kTileWidth);
  tileColumns_ = size.columns / across_;
  const int wanted = PictureRows(tileColumns_ - kFrame, size) + kLabelRows + kFrame;
  // The nearest number of rows of tiles, and no more than there is room for.
  down_ = std::clamp((rows + wanted / 2) / std::max(wanted, 1), 1, rows / kLeastTileRows);
  tileRows_ = rows / down_;
}

Box Layout::Tile(int position) const {
  return {position % across_ * tileColumns_, kTitleRows + position / across_ * tileRows_,
          tileColumns_, tileRows_};
}

Box Layout::Picture(int position) const {
  const Box tile = Tile(position);
  return {tile.column + 1, tile.row + 1, tile.columns - kFrame, tile.rows - kFrame - kLabelRows};
}

std::string Fitted(const std::string& printable, int columns, bool unicode) {
  const std::vector<Piece> pieces = PiecesOf(printable, unicode);
  const int whole = ColumnsOf(pieces);
  const bool cut = whole > columns;
  const int room = cut ? columns - 1 : columns;
  std::string text;
  int used = 0;
  for (const Piece& piece : pieces) {
    if (used + piece.columns > room) break;
    text += piece.text;
    used += piece.columns;
  }
  if (cut && columns > 0) {
    text += unicode ? "…" : "~";
    ++used;
  }
  return text + std::string(static_cast<size_t>(std::max(0, columns - used)), ' ');
}

std::string Centred(const std::string& printable, int columns, bool unicode) {
  const int left = std::max(0, columns - ColumnsOf(PiecesOf(printable, unicode))) / 2;
  return Fitted(std::string(static_cast<size_t>(left), ' ') + printable, columns, unicode);
}

}  // namespace flm::tool
