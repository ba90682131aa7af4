#include "prefix_check.h"

namespace flm::tool {

std::string PrefixError(const std::string& prefix) {
  constexpr size_t kLength = 4;
  constexpr char kAllowed[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
  const bool good =
      prefix.size() == kLength && prefix.find_first_not_of(kAllowed) == std::string::npos;
  return good ? "" : "a prefix is four capital letters, digits or _";
}

}  // namespace flm::tool
