// Random choices that can be repeated from a seed, on every target alike.
#ifndef FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CHOICE_H
#define FILELISTMANAGEMENT_TESTS_MODEL_MODEL_CHOICE_H

#include <cstdint>
#include <string>
#include <vector>

namespace flm_model {

class Choice {
 public:
  explicit Choice(uint64_t seed) : state_(seed * 2862933555777941757ULL + 3037000493ULL) {}

  uint32_t Next() {
    state_ ^= state_ << 13;
    state_ ^= state_ >> 7;
    state_ ^= state_ << 17;
    return static_cast<uint32_t>(state_ >> 16);
  }
  int Below(int n) { return static_cast<int>(Next() % static_cast<uint32_t>(n)); }
  int Range(int first, int last) { return first + Below(last - first + 1); }
  bool Chance(int percent) { return Below(100) < percent; }
  template <class T>
  const T& From(const std::vector<T>& values) {
    return values[static_cast<size_t>(Below(static_cast<int>(values.size())))];
  }

 private:
  uint64_t state_;
};

}  // namespace flm_model

#endif
