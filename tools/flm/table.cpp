#include "table.h"

#include <algorithm>
#include <utility>

#include "text.h"

namespace flm::tool {

Table::Table(std::vector<Column> columns) : columns_(std::move(columns)) {
  for (const Column& column : columns_) widths_.push_back(DisplayWidth(column.heading));
}

void Table::AddRow(std::vector<std::string> cells) {
  for (size_t i = 0; i < widths_.size(); ++i) {
    widths_[i] = std::max(widths_[i], DisplayWidth(cells[i]));
  }
  rows_.push_back(std::move(cells));
}

std::string Table::Line(const std::vector<std::string>& cells) const {
  std::string line;
  for (size_t i = 0; i < columns_.size(); ++i) {
    if (i > 0) line += "  ";
    const std::string blanks(widths_[i] - DisplayWidth(cells[i]), ' ');
    line += columns_[i].align == Align::kRight ? blanks + cells[i] : cells[i] + blanks;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + "\n";
}

std::string Table::Text() const {
  std::vector<std::string> headings;
  for (const Column& column : columns_) headings.push_back(column.heading);
  std::string text = Line(headings);
  for (const std::vector<std::string>& row : rows_) text += Line(row);
  return text;
}

}  // namespace flm::tool
