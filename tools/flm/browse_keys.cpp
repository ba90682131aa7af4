#include "browse_keys.h"

#include <algorithm>

namespace flm::tool {
namespace {

constexpr char kEsc = '\033';
constexpr size_t kLongestSequence = 32;  // no key sends more; what does is dropped

bool IsBetween(char c, int first, int last) {
  const auto byte = static_cast<unsigned char>(c);
  return byte >= first && byte <= last;
}

bool IsParameter(char c) { return IsBetween(c, 0x20, 0x3F); }
bool IsFinal(char c) { return IsBetween(c, 0x40, 0x7E); }

struct NamedKey {
  char name;
  KeyKind kind;
};

// By the last character of a sequence.
constexpr NamedKey kByFinal[] = {
    {'A', KeyKind::kUp},   {'B', KeyKind::kDown}, {'C', KeyKind::kRight}, {'D', KeyKind::kLeft},
    {'H', KeyKind::kHome}, {'F', KeyKind::kEnd},  {'P', KeyKind::kHelp}};

// By the number in front of a '~'; both of the old keyboards' numbers for Home and End.
constexpr NamedKey kByNumber[] = {{'1', KeyKind::kHome},   {'7', KeyKind::kHome},
                                  {'4', KeyKind::kEnd},    {'8', KeyKind::kEnd},
                                  {'5', KeyKind::kPageUp}, {'6', KeyKind::kPageDown}};

template <size_t kSize>
KeyKind Find(const NamedKey (&keys)[kSize], char name) {
  for (const NamedKey& key : keys) {
    if (key.name == name) return key.kind;
  }
  return KeyKind::kUnknown;
}

// Shift and the like stand behind a ';' and make no difference.
KeyKind KindOfCsi(const std::string& parameters, char last) {
  if (last != '~') return Find(kByFinal, last);
  const std::string number = parameters.substr(0, parameters.find(';'));
  if (number == "11") return KeyKind::kHelp;
  return number.size() == 1 ? Find(kByNumber, number[0]) : KeyKind::kUnknown;
}

}  // namespace

void KeyParser::Feed(const char* bytes, size_t count) { bytes_.append(bytes, count); }

Key KeyParser::Take(size_t length, Key key) {
  bytes_.erase(0, length);
  return key;
}

std::optional<Key> KeyParser::Next() {
  if (bytes_.empty()) return std::nullopt;
  const char first = bytes_[0];
  if (first == kEsc) return NextOfSequence();
  if (IsBetween(first, 0x80, 0xFF)) {
    const auto end = std::find_if(bytes_.begin(), bytes_.end(),
                                  [](char c) { return !IsBetween(c, 0x80, 0xFF); });
    return Take(static_cast<size_t>(end - bytes_.begin()), {KeyKind::kUnknown});
  }
  return Take(1, {KeyKind::kCharacter, first});
}

// ESC in front of anything but a sequence is the key of that name, and the next one came at once.
std::optional<Key> KeyParser::NextOfSequence() {
  if (bytes_.size() == 1) return std::nullopt;
  if (bytes_[1] == '[') return NextOfCsi();
  if (bytes_[1] == 'O') return NextOfSs3();
  return Take(1, {KeyKind::kEscape});
}

std::optional<Key> KeyParser::NextOfCsi() {
  constexpr size_t kStart = 2;
  size_t end = kStart;
  while (end < bytes_.size() && IsParameter(bytes_[end])) ++end;
  if (end >= kLongestSequence) return Take(end, {KeyKind::kUnknown});
  if (end == bytes_.size()) return std::nullopt;
  if (!IsFinal(bytes_[end])) return Take(end, {KeyKind::kUnknown});
  // The console of the system sends one letter more for its function keys.
  if (bytes_[end] == '[') {
    if (bytes_.size() == end + 1) return std::nullopt;
    const bool help = bytes_[end + 1] == 'A';
    return Take(end + 2, {help ? KeyKind::kHelp : KeyKind::kUnknown});
  }
  const KeyKind kind = KindOfCsi(bytes_.substr(kStart, end - kStart), bytes_[end]);
  return Take(end + 1, {kind});
}

std::optional<Key> KeyParser::NextOfSs3() {
  constexpr size_t kLength = 3;
  if (bytes_.size() < kLength) return std::nullopt;
  return Take(kLength, {Find(kByFinal, bytes_[kLength - 1])});
}

std::optional<Key> KeyParser::GiveUp() {
  if (bytes_.empty()) return std::nullopt;
  return Take(1, {bytes_[0] == kEsc ? KeyKind::kEscape : KeyKind::kUnknown});
}

}  // namespace flm::tool
