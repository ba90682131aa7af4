// A file name as a value of its own. The catalogue does not use it; it is kept for applications
// that parse and write single names.
#ifndef FILELISTMANAGEMENT_DCF_CQDCFITEM_H
#define FILELISTMANAGEMENT_DCF_CQDCFITEM_H

#include <cstdint>

class CQDCFItem {
 public:
  CQDCFItem();
  virtual ~CQDCFItem();

  // Takes a name of 12 characters, upper-casing it in place. 0; -1 for null or another length. A
  // prefix or extension that is not known leaves the earlier one.
  int SetFileName(char* name);
  // Writes the name into `dst`, cut to n bytes. 0; -1 for null.
  int GetFilename(char* dst, int n) const;
  // Does nothing. Returns 0.
  int DelFileName();

  // Four bytes and 32 bits of the caller's own, two views of the same storage: byte i (0 to 3)
  // counts from the low end, bit n (0 to 31) from the high end. An index outside changes nothing
  // and reads as 0.
  int SetCustomByte(int i, char v);
  char GetCustomByte(int i) const;
  unsigned int SetCustomBit(int n, bool on);  // the 32 bits afterwards
  int GetCustomBit(int n) const;              // 1 or 0

  // Writes the 32 binary digits of v and a NUL, 33 bytes in all. 0; -1 for null.
  int GetBin(unsigned long v, char* out) const;

  int SetFnum(short fnum);  // returns 0
  short GetFnum() const { return fnum_; }
  // a to z become A to Z, in place. The length of the text; -1 for null.
  int MakeUpperCase(char* text) const;

 private:
  int16_t fnum_;           // -1 after construction
  uint8_t customWord_[4];  // little-endian
  uint16_t number_;        // the four digits of the name
  uint8_t nameCode_;       // which prefix
  char extCode_;           // 'J', 'M' or 0
};

#endif
