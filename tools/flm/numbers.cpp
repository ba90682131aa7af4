#include "numbers.h"

#include "dcf/dcf_name.h"
#include "failure.h"
#include "text.h"

namespace flm::tool {
namespace {

constexpr size_t kMaxDigits = 4;

int ParsePart(const std::string& digits) {
  return IsNumber(digits) && digits.size() <= kMaxDigits ? std::stoi(digits) : -1;
}

}  // namespace

FileNumber ParseNumber(const std::string& text) {
  if (text.empty()) {
    throw Failure("the number is empty: it is a folder and a file number such as 105/0020",
                  kStatusUsage);
  }
  const size_t slash = text.find('/');
  FileNumber number;
  number.folder = ParsePart(text.substr(0, slash));
  number.file = slash == std::string::npos ? -1 : ParsePart(text.substr(slash + 1));
  if (number.folder < kFirstDirNumber || number.folder > kLastDirNumber || number.file < 0) {
    throw Failure(Named(text) + " is not a folder number (100 to 999) and a file number (0 to " +
                      "9999) such as 105/0020",
                  kStatusUsage);
  }
  if (number.folder == kLastDirNumber && number.file == kLastFileNumber) {
    throw Failure("no number follows 999/9999", kStatusUsage);
  }
  return number;
}

std::string NumberText(const FileNumber& number) {
  if (number.folder < kFirstDirNumber) return "none";
  return Padded(number.folder, 3) + "/" + Padded(number.file, 4);
}

long ToFileIndex(const FileNumber& number) {
  return static_cast<long>(number.folder) * kFileIndexBase + number.file;
}

FileNumber FromFileIndex(long index) {
  return {static_cast<int>(index / kFileIndexBase), static_cast<int>(index % kFileIndexBase)};
}

}  // namespace flm::tool
