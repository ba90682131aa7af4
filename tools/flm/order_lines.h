// The lines of a print order as the list reads them: the same reader with the same bounds, so that
// a file of any size and bytes costs no more here than there.
#ifndef FILELISTMANAGEMENT_TOOLS_ORDER_LINES_H
#define FILELISTMANAGEMENT_TOOLS_ORDER_LINES_H

#include <string>

#include "dpof/CQFileReader.h"

namespace flm::tool {

constexpr int kOrderLineSize = 2048;  // a line with its end and a terminator

enum class OrderLine {
  kWhole,
  kTooLong,     // the list reads no further
  kUnfinished,  // the last one, without a line end: the list passes over it
  kNone         // the end of the file
};

class OrderLines {
 public:
  explicit OrderLines(const std::string& path) : reader_(path.c_str()) {}

  // The next line goes into `line`, without its line end of one character or two.
  OrderLine Next(std::string& line);

 private:
  CQFileReader reader_;
};

}  // namespace flm::tool

#endif
