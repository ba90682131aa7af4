// Arithmetic on numbers that callers hand in: it wraps at 32 bits instead of being undefined.
#ifndef FILELISTMANAGEMENT_BASE_WRAPPING_H
#define FILELISTMANAGEMENT_BASE_WRAPPING_H

namespace flm {

constexpr int WrappingSum(int a, int b) {
  return static_cast<int>(static_cast<unsigned int>(a) + static_cast<unsigned int>(b));
}

constexpr int WrappingProduct(int a, int b) {
  return static_cast<int>(static_cast<unsigned int>(a) * static_cast<unsigned int>(b));
}

}  // namespace flm

#endif
