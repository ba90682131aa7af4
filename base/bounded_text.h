// Writing text into fixed buffers. Nothing else in the library writes text: a buffer is never
// overrun, always terminated (unless it has no room at all), and what does not fit is cut without
// an error, because callers rely on getting as much of a path as their buffer holds.
// Proven equal to snprintf by bounded_text_test.
#ifndef FILELISTMANAGEMENT_BASE_BOUNDED_TEXT_H
#define FILELISTMANAGEMENT_BASE_BOUNDED_TEXT_H

#include <cstddef>

namespace flm {

class BoundedText {
 public:
  // Writes into `out`, which has room for `size` bytes; a size of 0 or less writes nothing.
  BoundedText(char* out, int size);

  BoundedText& Text(const char* text);  // a NUL-terminated text; null adds nothing
  BoundedText& Text(const char* text, size_t maxLength);  // at most maxLength characters of it
  BoundedText& Bytes(const char* text, size_t length);    // characters without a NUL among them
  BoundedText& Char(char c);                              // one character, whatever its value
  BoundedText& Number(int value, int minWidth);           // decimal, as "%0<minWidth>d" writes it

  bool Cut() const { return cut_; }  // whether something did not fit
  int Length() const { return length_; }

 private:
  char* out_;
  int size_;
  int length_ = 0;
  bool cut_ = false;
};

// Copies `text` into `out` of `size` bytes, cut and terminated; false when it was cut. The two may
// overlap.
bool CopyText(char* out, int size, const char* text);

// Length of `text`, looking at no more than `limit` bytes.
int BoundedLength(const char* text, int limit);

// As CopyText, for a text that fills its field of `textSize` bytes without a terminator.
bool CopyField(char* out, int size, const char* text, int textSize);

// Decimal value of the leading number of at most `digits` characters of `text`, read as atoi does:
// blanks, a sign, digits; 0 when there is none. Looks at no byte past a NUL.
int ReadNumber(const char* text, int digits);

// a to z become A to Z, in place, whatever the locale.
void UpperCase(char* text);
char UpperCaseOf(char c);

}  // namespace flm

#endif
