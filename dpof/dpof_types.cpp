#include "dpof/dpof_types.h"

#include <cstring>

namespace flm {
namespace {

struct SizeType {
  int code;
  const char* text;
};
constexpr SizeType kSizeTypes[] = {{3, "SIZ -03"}, {4, "SIZ -04"}, {5, "SIZ -05"}, {8, "SIZ -08"}};

}  // namespace

const char* SizeTypeOf(int sizeCode) {
  for (const SizeType& size : kSizeTypes) {
    if (size.code == sizeCode) return size.text;
  }
  return "";
}

int JobTypeOf(const char* text) {
  if (std::strcmp(text, kTypeStandard) == 0) return kJobStandard;
  if (std::strcmp(text, kTypeIndex) == 0) return kJobIndex;
  for (const SizeType& size : kSizeTypes) {
    if (std::strcmp(text, size.text) == 0) return size.code;
  }
  return kJobNone;
}

}  // namespace flm
