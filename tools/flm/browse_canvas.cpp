#include "browse_canvas.h"

#include <chafa.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace flm::tool {

struct Canvas::Parts {
  ChafaTermInfo* terminal = nullptr;
  ChafaSymbolMap* symbols = nullptr;
  ChafaCanvasMode colours = CHAFA_CANVAS_MODE_FGBG;
  ChafaPixelMode pixels = CHAFA_PIXEL_MODE_SYMBOLS;
};

namespace {

constexpr int kBytesPerPixel = 3;

bool Has(ChafaTermInfo* terminal, ChafaTermSeq sequence) {
  return chafa_term_info_have_seq(terminal, sequence) != 0;
}

ChafaCanvasMode ColoursOf(ChafaTermInfo* terminal) {
  if (Has(terminal, CHAFA_TERM_SEQ_SET_COLOR_FGBG_DIRECT)) return CHAFA_CANVAS_MODE_TRUECOLOR;
  if (Has(terminal, CHAFA_TERM_SEQ_SET_COLOR_FGBG_256)) return CHAFA_CANVAS_MODE_INDEXED_240;
  if (Has(terminal, CHAFA_TERM_SEQ_SET_COLOR_FGBG_16)) return CHAFA_CANVAS_MODE_INDEXED_16;
  return CHAFA_CANVAS_MODE_FGBG;
}

ChafaPixelMode PixelsOf(ChafaTermInfo* terminal, Graphics wanted) {
  switch (wanted) {
    case Graphics::kSixel:
      return CHAFA_PIXEL_MODE_SIXELS;
    case Graphics::kKitty:
      return CHAFA_PIXEL_MODE_KITTY;
    case Graphics::kBlocks:
      return CHAFA_PIXEL_MODE_SYMBOLS;
    case Graphics::kAuto:
      break;
  }
  if (Has(terminal, CHAFA_TERM_SEQ_BEGIN_KITTY_IMMEDIATE_IMAGE_V1)) return CHAFA_PIXEL_MODE_KITTY;
  if (Has(terminal, CHAFA_TERM_SEQ_BEGIN_SIXELS)) return CHAFA_PIXEL_MODE_SIXELS;
  return CHAFA_PIXEL_MODE_SYMBOLS;
}

// The terminal's own sequences, and for graphics that it was said to have the usual ones.
ChafaTermInfo* DetectTerminal() {
  ChafaTermDb* const database = chafa_term_db_get_default();
  ChafaTermInfo* const terminal = chafa_term_db_detect(database, environ);
  ChafaTermInfo* const usual = chafa_term_db_get_fallback_info(database);
  chafa_term_info_supplement(terminal, usual);
  chafa_term_info_unref(usual);
  return terminal;
}

ChafaSymbolMap* MakeSymbols(bool unicode, bool coloured) {
  ChafaSymbolMap* const symbols = chafa_symbol_map_new();
  ChafaSymbolTags tags = CHAFA_SYMBOL_TAG_ASCII;
  if (unicode) {
    tags = static_cast<ChafaSymbolTags>(CHAFA_SYMBOL_TAG_HALF | CHAFA_SYMBOL_TAG_SPACE);
    if (coloured) tags = static_cast<ChafaSymbolTags>(tags | CHAFA_SYMBOL_TAG_SOLID);
  }
  chafa_symbol_map_add_by_tags(symbols, tags);
  return symbols;
}

// Lines of characters, each put in its place.
std::string InPlace(const std::string& lines, int column, int row) {
  std::string text;
  size_t at = 0;
  while (at < lines.size()) {
    const size_t end = std::min(lines.find('\n', at), lines.size());
    text += CursorTo(column, row++) + lines.substr(at, end - at);
    at = end + 1;
  }
  return text + "\033[0m";
}

}  // namespace

std::string CursorTo(int column, int row) {
  return "\033[" + std::to_string(row + 1) + ";" + std::to_string(column + 1) + "H";
}

Canvas::Canvas(Graphics wanted, bool unicode) : parts_(std::make_unique<Parts>()) {
  ChafaTermInfo* const plain = chafa_term_db_detect(chafa_term_db_get_default(), environ);
  parts_->colours = ColoursOf(plain);
  parts_->pixels = PixelsOf(plain, wanted);
  // Graphics bring a palette of their own.
  if (parts_->pixels != CHAFA_PIXEL_MODE_SYMBOLS) parts_->colours = CHAFA_CANVAS_MODE_TRUECOLOR;
  chafa_term_info_unref(plain);
  parts_->terminal = DetectTerminal();
  parts_->symbols = MakeSymbols(unicode, parts_->colours != CHAFA_CANVAS_MODE_FGBG);
}

Canvas::~Canvas() {
  chafa_symbol_map_unref(parts_->symbols);
  chafa_term_info_unref(parts_->terminal);
}

std::string Canvas::Draw(const Picture& picture, const Box& box, const ScreenSize& size) const {
  int columns = box.columns;
  int rows = box.rows;
  const float shape = static_cast<float>(size.cellWidth) / static_cast<float>(size.cellHeight);
  chafa_calc_canvas_geometry(picture.width, picture.height, &columns, &rows, shape, TRUE, FALSE);
  columns = std::clamp(columns, 1, box.columns);
  rows = std::clamp(rows, 1, box.rows);

  ChafaCanvasConfig* const config = chafa_canvas_config_new();
  chafa_canvas_config_set_geometry(config, columns, rows);
  chafa_canvas_config_set_cell_geometry(config, size.cellWidth, size.cellHeight);
  chafa_canvas_config_set_canvas_mode(config, parts_->colours);
  chafa_canvas_config_set_pixel_mode(config, parts_->pixels);
  chafa_canvas_config_set_symbol_map(config, parts_->symbols);
  ChafaCanvas* const canvas = chafa_canvas_new(config);
  chafa_canvas_draw_all_pixels(canvas, CHAFA_PIXEL_RGB8, picture.rgb.data(), picture.width,
                               picture.height, picture.width * kBytesPerPixel);
  GString* const drawn = chafa_canvas_print(canvas, parts_->terminal);
  const std::string text(drawn->str, drawn->len);
  g_string_free(drawn, TRUE);
  chafa_canvas_unref(canvas);
  chafa_canvas_config_unref(config);

  const int column = box.column + (box.columns - columns) / 2;
  const int row = box.row + (box.rows - rows) / 2;
  if (parts_->pixels == CHAFA_PIXEL_MODE_SYMBOLS) return InPlace(text, column, row);
  return CursorTo(column, row) + text;
}

std::string Canvas::Forget() const {
  return parts_->pixels == CHAFA_PIXEL_MODE_KITTY ? "\033_Ga=d,q=2\033\\" : "";
}

}  // namespace flm::tool
