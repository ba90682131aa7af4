// Where things stand on the screen of the contact sheet. Columns and rows count from 0.
#ifndef FILELISTMANAGEMENT_TOOLS_BROWSE_LAYOUT_H
#define FILELISTMANAGEMENT_TOOLS_BROWSE_LAYOUT_H

#include <string>

namespace flm::tool {

struct ScreenSize {
  int columns = 80;
  int rows = 24;
  int cellWidth = 8;  // pixels of one character; these are small ones, for a terminal that hides it
  int cellHeight = 16;
};

struct Box {
  int column = 0;
  int row = 0;
  int columns = 0;
  int rows = 0;
};

// A title line, tiles in rows of equal size, a line for messages. A tile is a frame around a
// picture, the file's name and its marks.
class Layout {
 public:
  explicit Layout(ScreenSize size);

  bool Fits() const { return fits_; }  // false: there is no room for even one tile
  int Across() const { return across_; }
  int PerPage() const { return across_ * down_; }
  const ScreenSize& Size() const { return size_; }

  Box Tile(int position) const;
  Box Picture(int position) const;
  int MessageRow() const { return size_.rows - 1; }

 private:
  ScreenSize size_;
  bool fits_ = false;
  int across_ = 1;
  int down_ = 1;
  int tileColumns_ = 0;
  int tileRows_ = 0;
};

// A printable text in exactly so many columns: filled up with blanks, or cut, with a sign that it
// was. Wide characters take two columns. Without `unicode` every character beyond ASCII is a "?".
std::string Fitted(const std::string& printable, int columns, bool unicode);
// The same with the text in the middle.
std::string Centred(const std::string& printable, int columns, bool unicode);

}  // namespace flm::tool

#endif
