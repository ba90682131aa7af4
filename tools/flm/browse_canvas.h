// Pictures on the terminal: pixels where it can show them, else coloured characters.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_CANVAS_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_CANVAS_H

#include <memory>
#include <string>

#include "browse_layout.h"
#include "browse_options.h"
#include "browse_picture.h"

namespace flm::tool {

class Canvas {
 public:
  // What the terminal can do is read from the environment, unless `wanted` says it.
  Canvas(Graphics wanted, bool unicode);
  ~Canvas();
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  // What to write so that the picture stands in the middle of the box, as large as it fits.
  std::string Draw(const Picture& picture, const Box& box, const ScreenSize& size) const;

  // What to write so that every picture goes with the next clearing of the screen.
  std::string Forget() const;

  // How many pixels of a picture are of use in the box: width and height.
  static int PixelsAcross(const Box& box, const ScreenSize& size) {
    return box.columns * size.cellWidth;
  }
  static int PixelsDown(const Box& box, const ScreenSize& size) {
    return box.rows * size.cellHeight;
  }

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

// Moves the cursor; columns and rows count from 0.
std::string CursorTo(int column, int row);

}  // namespace flm::tool

#endif
