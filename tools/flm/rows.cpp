#include "rows.h"

#include <nlohmann/json.hpp>

#include "output.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr char kBetweenNames[] = "/";  // no name holds it

// Line ends in JSON text are only those that the writer made.
std::string Indented(const std::string& json) {
  std::string text(kJsonIndent, ' ');
  for (const char c : json) {
    text += c;
    if (c == '\n') text.append(kJsonIndent, ' ');
  }
  return text;
}

// A value as a cell between tabs; nothing for null.
std::string Cell(const nlohmann::ordered_json& value) {
  if (value.is_null()) return "";
  if (value.is_string()) return WithoutControls(value.get<std::string>());
  if (!value.is_array()) return value.dump();
  std::string cell;
  for (const auto& part : value) cell += (cell.empty() ? "" : kBetweenNames) + Cell(part);
  return cell;
}

void PrintCells(const std::vector<std::string>& cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) line += '\t';
    line += cell;
  }
  PrintLine(line);
}

}  // namespace

RowPrinter::RowPrinter(RowFormat format, const std::vector<std::string>& columns)
    : format_(format) {
  if (format_ == RowFormat::kTsv) PrintCells(columns);
}

void RowPrinter::Add(const nlohmann::ordered_json& row) {
  if (format_ == RowFormat::kJsonLines) {
    PrintLine(JsonLines(row, kJsonInOneLine));
  } else if (format_ == RowFormat::kTsv) {
    std::vector<std::string> cells;
    for (const auto& value : row) cells.push_back(Cell(value));
    PrintCells(cells);
  } else {
    Print((first_ ? "[\n" : ",\n") + Indented(JsonLines(row, kJsonIndent)));
  }
  first_ = false;
}

void RowPrinter::End() {
  if (format_ == RowFormat::kJson) PrintLine(first_ ? "[]" : "\n]");
}

}  // namespace flm::tool
