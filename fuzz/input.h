// Taking a fuzzer's input apart. Numbers stand at the front, texts where they are asked for; an
// input that has ended gives zeros and empty texts, so that every input means something.
#ifndef FILELISTMANAGEMENT_FUZZ_INPUT_H
#define FILELISTMANAGEMENT_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace flm_fuzz {

class Input {
 public:
  Input(const uint8_t* data, size_t size)
      : rest_(reinterpret_cast<const char*>(data), data == nullptr ? 0 : size) {}

  bool Ended() const { return rest_.empty(); }

  uint8_t Byte() {
    if (rest_.empty()) return 0;
    const uint8_t byte = static_cast<uint8_t>(rest_.front());
    rest_.remove_prefix(1);
    return byte;
  }

  int Below(int n) { return Byte() % n; }

  // Small numbers of either sign, and now and then one of all 32 bits.
  int Number() {
    constexpr uint8_t kWide = 0xFF;
    constexpr int kBytes = 4;
    const uint8_t first = Byte();
    if (first != kWide) return static_cast<int>(first) - 8;
    uint32_t wide = 0;
    for (int i = 0; i < kBytes; ++i) wide = wide << 8 | Byte();
    return static_cast<int>(wide);
  }

  // A text of at most `most` bytes in front of which stands its length.
  std::string_view Text(size_t most) {
    const size_t length = Byte();
    return Take(length < most ? length : most);
  }

  std::string_view Rest() { return Take(rest_.size()); }

 private:
  std::string_view Take(size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
  }

  std::string_view rest_;
};

}  // namespace flm_fuzz

#endif
