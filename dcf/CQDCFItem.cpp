#include "dcf/CQDCFItem.h"

#include <cstring>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "dcf/dcf_name.h"
#include "dcf/dcf_path.h"
#include "dcf/item_layout.h"

namespace {

constexpr int kCustomBytes = 4;
constexpr int kCustomBits = 32;
constexpr int kBitsPerByte = 8;
constexpr int kExtensionWithPointAt = 8;

struct NameCode {
  const char* prefix;
  uint8_t code;
};
constexpr NameCode kNameCodes[] = {{"CAM_", 0},  {"HDV_", 10}, {"HDE_", 11}, {"HDA_", 12},
                                   {"SDV_", 20}, {"SDE_", 21}, {"SDA_", 22}};

struct ExtCode {
  const char* extension;
  char code;
};
constexpr ExtCode kExtCodes[] = {{".JPG", 'J'}, {".MP4", 'M'}};

bool IsCustomByte(int i) { return i >= 0 && i < kCustomBytes; }
bool IsCustomBit(int n) { return n >= 0 && n < kCustomBits; }

// Bit n counts from the top of the word, whose top byte is the last one stored.
int ByteOfBit(int n) { return kCustomBytes - 1 - n / kBitsPerByte; }
uint8_t MaskOfBit(int n) { return static_cast<uint8_t>(0x80 >> (n % kBitsPerByte)); }

}  // namespace

CQDCFItem::CQDCFItem() : fnum_(-1), customWord_(), number_(0), nameCode_(0), extCode_(0) {}

CQDCFItem::~CQDCFItem() = default;

int CQDCFItem::SetFileName(char* name) {
  if (name == nullptr || std::strlen(name) != flm::kDcfNameLength) return -1;
  MakeUpperCase(name);
  number_ = static_cast<uint16_t>(flm::FileNumberInName(name));
  for (const NameCode& known : kNameCodes) {
    if (std::strncmp(name, known.prefix, flm::kPrefixSize) == 0) nameCode_ = known.code;
  }
  for (const ExtCode& known : kExtCodes) {
    if (std::strcmp(name + kExtensionWithPointAt, known.extension) == 0) extCode_ = known.code;
  }
  return 0;
}

int CQDCFItem::GetFilename(char* dst, int n) const {
  if (dst == nullptr) return -1;
  flm::BoundedText out(dst, n);
  for (const NameCode& known : kNameCodes) {
    if (known.code == nameCode_) out.Text(known.prefix);
  }
  out.Number(number_, flm::kNumberDigits);
  for (const ExtCode& known : kExtCodes) {
    if (known.code == extCode_) out.Text(known.extension);
  }
  return 0;
}

int CQDCFItem::DelFileName() { return 0; }

int CQDCFItem::SetCustomByte(int i, char v) {
  if (!IsCustomByte(i)) return -1;
  customWord_[i] = static_cast<uint8_t>(v);
  return 0;
}

char CQDCFItem::GetCustomByte(int i) const {
  return IsCustomByte(i) ? static_cast<char>(customWord_[i]) : '\0';
}

unsigned int CQDCFItem::SetCustomBit(int n, bool on) {
  if (IsCustomBit(n)) {
    uint8_t& byte = customWord_[ByteOfBit(n)];
    byte = static_cast<uint8_t>(on ? byte | MaskOfBit(n) : byte & ~MaskOfBit(n));
  }
  unsigned int word = 0;
  for (int i = kCustomBytes - 1; i >= 0; --i) word = word << kBitsPerByte | customWord_[i];
  return word;
}

int CQDCFItem::GetCustomBit(int n) const {
  return IsCustomBit(n) && (customWord_[ByteOfBit(n)] & MaskOfBit(n)) != 0 ? 1 : 0;
}

int CQDCFItem::GetBin(unsigned long v, char* out) const {
  if (out == nullptr) return -1;
  for (int n = 0; n < kCustomBits; ++n) out[n] = (v >> (kCustomBits - 1 - n) & 1) != 0 ? '1' : '0';
  out[kCustomBits] = '\0';
  return 0;
}

int CQDCFItem::SetFnum(short fnum) {
  fnum_ = fnum;
  return 0;
}

int CQDCFItem::MakeUpperCase(char* text) const {
  if (text == nullptr) return -1;
  flm::UpperCase(text);
  return static_cast<int>(std::strlen(text));
}
