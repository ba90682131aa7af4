#include "base/bounded_text.h"

#include <cstring>

namespace flm {
namespace {

constexpr int kNumberSize = 12;  // the digits of a 32-bit number and its sign

bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

BoundedText::BoundedText(char* out, int size) : out_(out), size_(out == nullptr ? 0 : size) {
  if (size_ > 0) out_[0] = '\0';
}

BoundedText& BoundedText::Char(char c) {
  if (length_ + 1 >= size_) {
    cut_ = true;
    return *this;
  }
  out_[length_++] = c;
  out_[length_] = '\0';
  return *this;
}

BoundedText& BoundedText::Bytes(const char* text, size_t length) {
  const size_t room = size_ > length_ + 1 ? static_cast<size_t>(size_ - length_ - 1) : 0;
  const size_t taken = length < room ? length : room;
  if (taken < length) cut_ = true;
  if (taken == 0) return *this;
  std::memcpy(out_ + length_, text, taken);
  length_ += static_cast<int>(taken);
  out_[length_] = '\0';
  return *this;
}

BoundedText& BoundedText::Text(const char* text) {
  return text == nullptr ? *this : Bytes(text, std::strlen(text));
}

BoundedText& BoundedText::Text(const char* text, size_t maxLength) {
  if (text == nullptr) return *this;
  size_t length = 0;  // counted here: most fields have three or four characters
  while (length < maxLength && text[length] != '\0') ++length;
  return Bytes(text, length);
}

BoundedText& BoundedText::Number(int value, int minWidth) {
  char digits[kNumberSize];
  char* const end = digits + kNumberSize;
  char* at = end;
  unsigned int rest =
      value < 0 ? 0U - static_cast<unsigned int>(value) : static_cast<unsigned int>(value);
  do {
    *--at = static_cast<char>('0' + rest % 10);
    rest /= 10;
  } while (rest != 0);
  int zeros = minWidth - static_cast<int>(end - at);
  if (value < 0) {
    Char('-');
    --zeros;
  }
  for (; zeros > 0 && at > digits; --zeros) *--at = '0';
  for (; zeros > 0; --zeros) Char('0');
  return Bytes(at, static_cast<size_t>(end - at));
}

bool CopyText(char* out, int size, const char* text) {
  if (size <= 0 || out == nullptr || text == nullptr)
    return !BoundedText(out, size).Text(text).Cut();
  const size_t length = strnlen(text, static_cast<size_t>(size));
  const bool whole = length < static_cast<size_t>(size);
  const size_t taken = whole ? length : static_cast<size_t>(size) - 1;
  // A caller may hand a part of a record back to the record.
  std::memmove(out, text, taken);
  out[taken] = '\0';
  return whole;
}

int BoundedLength(const char* text, int limit) {
  return text == nullptr || limit <= 0
             ? 0
             : static_cast<int>(strnlen(text, static_cast<size_t>(limit)));
}

bool CopyField(char* out, int size, const char* text, int textSize) {
  return !BoundedText(out, size).Text(text, static_cast<size_t>(textSize)).Cut();
}

int ReadNumber(const char* text, int digits) {
  int at = 0;
  unsigned int plain = 0;
  for (; at < digits && IsDigit(text[at]); ++at) {
    plain = plain * 10 + static_cast<unsigned int>(text[at] - '0');
  }
  if (at > 0) return static_cast<int>(plain);
  while (at < digits && IsBlank(text[at])) ++at;
  const bool negative = at < digits && text[at] == '-';
  if (at < digits && (text[at] == '-' || text[at] == '+')) ++at;
  unsigned int value = 0;
  for (; at < digits && IsDigit(text[at]); ++at) {
    value = value * 10 + static_cast<unsigned int>(text[at] - '0');
  }
  return static_cast<int>(negative ? 0U - value : value);
}

char UpperCaseOf(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

void UpperCase(char* text) {
  for (; *text != '\0'; ++text) *text = UpperCaseOf(*text);
}

}  // namespace flm
