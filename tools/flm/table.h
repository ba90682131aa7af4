// A table for people: a heading, columns as wide as their widest cell.
#ifndef FILELISTMANAGEMENT_TOOLS_TABLE_H
#define FILELISTMANAGEMENT_TOOLS_TABLE_H

#include <initializer_list>
#include <string>
#include <string_view>
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
  void AddRow(std::initializer_list<std::string_view> cells);

  // The heading and the rows; a line never ends in blanks.
  std::string Text() const;

 private:
  void AppendCell(std::string& text, size_t column, std::string_view cell) const;

  std::vector<Column> columns_;
  std::vector<size_t> widths_;
  std::string cells_;         // of all rows, one behind the other: a card has many rows
  std::vector<size_t> ends_;  // where each of them ends
};

}  // namespace flm::tool

#endif
