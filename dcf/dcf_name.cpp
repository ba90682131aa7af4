// Tested by name_check_test and name_path_test (tables of what is accepted and what nearly is) and
// by the name fuzzer.
#include "dcf/dcf_name.h"

#include <cstring>

#include "base/bounded_text.h"
#include "base/fixed_sizes.h"
#include "dcf/item_layout.h"

namespace flm {
namespace {

constexpr char kCameraWord[] = "CAMERA";
constexpr size_t kCameraWordLength = sizeof(kCameraWord) - 1;
constexpr int kDirNameLength = 8;
constexpr int kExtensionAt = 9;
constexpr int kMaxFreeNameLength = kFileNameSize - 1;

// Places of the numbers in a path, counted from the end of the root, in the tree "DCIM".
constexpr int kDirDigitsAt = 6;
constexpr int kFileDigitsAt = 19;

constexpr const char* kPrefixes[] = {"CAM_", "HDV_", "HDE_", "HDA_", "SDV_", "SDE_", "SDA_"};

struct ExtensionKind {
  char extension[kExtensionSize + 1];
  int kind;
};

constexpr ExtensionKind kDcfExtensions[] = {
    {"JPG", kKindMain}, {"MP4", kKindMain}, {"AVI", kKindMain}, {"3GP", kKindMain},
    {"MP3", kKindMp3},  {"WAV", kKindWav},  {"SRW", kKindSrw},  {"MPO", kKindMpo}};

constexpr int kBadPrefix = -201;
constexpr int kBadFirstDigit = -104;  // -105 to -107 for the digits behind it
constexpr int kBadExtension = -100;
constexpr int kTooShort = -2;
constexpr int kTooLong = -3;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsFreeCharacter(char c) { return (c >= 'A' && c <= 'Z') || c == '_'; }

// The free characters matter only while no digit follows them: cameras of other makers put all
// kinds of characters there, and their files must still be listed.
int CheckFreeCharacters(const char* name) {
  if (IsDigit(name[kNumberAt])) return 0;
  for (int i = 0; i < kPrefixSize; ++i) {
    if (!IsFreeCharacter(name[i])) return kBadPrefix;
  }
  return kBadFirstDigit;
}

// The extension ends behind its third character.
int KindOfExtension(const char* extension, int otherwise) {
  for (const ExtensionKind& known : kDcfExtensions) {
    if (std::memcmp(extension, known.extension, sizeof(known.extension)) == 0) return known.kind;
  }
  return otherwise;
}

// A number at a fixed place; left alone when the path ends before its last digit.
void NumberAt(const char* path, int length, int at, int digits, int* number) {
  if (length >= at + digits) *number = ReadNumber(path + at, digits);
}

}  // namespace

bool IsCompanionKind(int kind) { return kind == kKindWav || kind == kKindSrw || kind == kKindMpo; }

int CheckDcfName(const char* name) {
  const int length = BoundedLength(name, kEntryNameSize);
  if (length < kDcfNameLength) return kTooShort;
  return length > kDcfNameLength ? kTooLong : CheckDcfCharacters(name);
}

int CheckDcfCharacters(const char* name) {
  const int prefixResult = CheckFreeCharacters(name);
  if (prefixResult < 0) return prefixResult;
  for (int i = 1; i < kNumberDigits; ++i) {
    if (!IsDigit(name[kNumberAt + i])) return kBadFirstDigit - i;
  }
  return KindOfExtension(name + kExtensionAt, kBadExtension);
}

int CheckFreeName(const char* name) {
  const int length = BoundedLength(name, kEntryNameSize);
  if (length < kDcfNameLength || length > kMaxFreeNameLength) return kTooLong;
  // Every extension that is not one of the sound and companion kinds is a main file here.
  return KindOfExtension(name + length - kExtensionSize, kKindMain);
}

int CheckDirName(const char* name) {
  if (IsCameraName(name)) return 0;
  if (std::strlen(name) != kDirNameLength) return kTooShort;
  for (int i = 0; i < kDirDigits; ++i) {
    if (!IsDigit(name[i])) return kBadExtension - i;
  }
  return 0;
}

int DcfExtensionKind(const char* name) {
  if (BoundedLength(name, kExtensionAt) < kExtensionAt) return kBadExtension;
  char extension[kExtensionSize + 1] = {};
  CopyText(extension, sizeof(extension), name + kExtensionAt);
  return KindOfExtension(extension, kBadExtension);
}

bool HasCameraWord(const char* path) { return std::strstr(path, kCameraWord) != nullptr; }

bool IsCameraName(const char* dirName) {
  return std::strncmp(dirName, kCameraWord, kCameraWordLength) == 0;
}

int FileNumberInName(const char* name) {
  if (BoundedLength(name, kNumberAt) < kNumberAt) return 0;
  return ReadNumber(name + kNumberAt, kNumberDigits);
}

int DirNumberInName(const char* dirName) {
  return IsCameraName(dirName) ? kCameraNumber : ReadNumber(dirName, kDirDigits);
}

const char* SuffixOfDirName(const char* dirName) {
  return dirName + BoundedLength(dirName, kDirDigits);
}

int PrefixCode(const char* name) {
  int code = 0;
  for (const char* prefix : kPrefixes) {
    if (name[0] == prefix[0] && std::strncmp(name, prefix, kPrefixSize) == 0) return code;
    ++code;
  }
  return -1;
}

int PrefixCodeInPath(const char* path) {
  int code = 0;
  for (const char* prefix : kPrefixes) {
    if (std::strstr(path, prefix) != nullptr) return code;
    ++code;
  }
  return -1;
}

void NumbersInPath(const char* path, int rootLength, bool stillTree, int* dirNumber,
                   int* fileNumber) {
  NumbersInPath(path, HasCameraWord(path), rootLength, stillTree, dirNumber, fileNumber);
}

void NumbersInPath(const char* path, bool camera, int rootLength, bool stillTree, int* dirNumber,
                   int* fileNumber) {
  if (camera) {
    *dirNumber = kCameraNumber;
    *fileNumber = 0;
    return;
  }
  const int base = rootLength + (stillTree ? 0 : 1);
  const int length = BoundedLength(path, base + kFileDigitsAt + kNumberDigits);
  NumberAt(path, length, base + kDirDigitsAt, kDirDigits, dirNumber);
  NumberAt(path, length, base + kFileDigitsAt, kNumberDigits, fileNumber);
}

const char* DirNameInPath(const char* path) {
  const char* const last = std::strrchr(path, '/');
  if (last == nullptr) return nullptr;
  for (const char* at = last; at != path;) {
    if (*--at == '/') return at + 1;
  }
  return nullptr;
}

const char* FileNameInPath(const char* path) {
  const char* const slash = std::strrchr(path, '/');
  return slash == nullptr ? path : slash + 1;
}

const char* PrefixInPath(const char* path) {
  const size_t length = std::strlen(path);
  return length < kDcfNameLength ? nullptr : path + length - kDcfNameLength;
}

const char* ExtensionInPath(const char* path) {
  const size_t length = std::strlen(path);
  return length < kExtensionSize ? nullptr : path + length - kExtensionSize;
}

bool EndsInJpg(const char* path) {
  const char* const extension = ExtensionInPath(path);
  return extension != nullptr && std::strcmp(extension, "JPG") == 0;
}

}  // namespace flm
