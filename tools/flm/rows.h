// Rows of named values in the formats for programs, printed one by one: the whole of a large card
// never stands in memory.
#ifndef FILELISTMANAGEMENT_TOOLS_ROWS_H
#define FILELISTMANAGEMENT_TOOLS_ROWS_H

#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

namespace flm::tool {

enum class RowFormat { kJson, kJsonLines, kTsv };

class RowPrinter {
 public:
  // `columns` are the names of the values of every row, in their order.
  RowPrinter(RowFormat format, const std::vector<std::string>& columns);

  // Texts in a row have gone through JsonText.
  void Add(const nlohmann::ordered_json& row);
  void End();

 private:
  RowFormat format_;
  bool first_ = true;
};

}  // namespace flm::tool

#endif
