// A table for people: a heading, columns as wide as their widest cell.
#ifndef FILELISTMANAGEMENT_TOOLS_TABLE_H
#define FILELISTMANAGEMENT_TOOLS_TABLE_H

#include <string>
#include <vector>

namespace flm::tool {

enum class Align { kLeft, kRight };

class Table {
 public:
  struct Column {
    std::string heading;
    Align align;
  };

  explicit Table(std::vector<Column> columns);

  // Cells are printable texts, as many as there are columns.
  void AddRow(std::vector<std::string> cells);

  // The heading and the rows; a line never ends in blanks.
  std::string Text() const;

 private:
  std::string Line(const std::vector<std::string>& cells) const;

  std::vector<Column> columns_;
  std::vector<size_t> widths_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace flm::tool

#endif
