#include "order_lines.h"

#include <array>

namespace flm::tool {
namespace {

constexpr int kTooLong = -101;  // what the reader answers

}  // namespace

OrderLine OrderLines::Next(std::string& line) {
  std::array<char, kOrderLineSize> text;
  int length = 0;
  const int result = reader_.NextLine(text.data(), kOrderLineSize, '\n', &length);
  if (result == kTooLong) return OrderLine::kTooLong;
  if (result < 0) return length > 0 ? OrderLine::kUnfinished : OrderLine::kNone;
  line.assign(text.data(), static_cast<size_t>(length - 1));
  if (!line.empty() && line.back() == '\r') line.pop_back();
  return OrderLine::kWhole;
}

}  // namespace flm::tool
