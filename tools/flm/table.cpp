#include "table.h"

#include <algorithm>
#include <utility>

#include "text.h"

namespace flm::tool {

Table::Table(std::vector<Column> columns) : columns_(std::move(columns)) {
  for (const Column& column : columns_) widths_.push_back(DisplayWidth(column.heading));
}

void Table::AddRow(std::initializer_list<std::string_view> cells) {
  size_t column = 0;
  for (const std::string_view cell : cells) {
    widths_[column] = std::max(widths_[column], DisplayWidth(cell));
    cells_ += cell;
    ends_.push_back(cells_.size());
    ++column;
  }
}

void Table::AppendCell(std::string& text, size_t column, std::string_view cell) const {
  const size_t blanks = widths_[column] - DisplayWidth(cell);
  if (columns_[column].align == Align::kRight) text.append(blanks, ' ');
  text += cell;
  if (columns_[column].align == Align::kLeft) text.append(blanks, ' ');
  if (column + 1 < columns_.size()) {
    text += "  ";
    return;
  }
  text.erase(text.find_last_not_of(' ') + 1);
  text += '\n';
}

std::string Table::Text() const {
  std::string text;
  for (size_t column = 0; column < columns_.size(); ++column) {
    AppendCell(text, column, columns_[column].heading);
  }
  size_t start = 0;
  size_t column = 0;
  for (const size_t end : ends_) {
    AppendCell(text, column, std::string_view(cells_).substr(start, end - start));
    column = (column + 1) % columns_.size();
    start = end;
  }
  return text;
}

}  // namespace flm::tool
