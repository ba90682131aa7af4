// A text file of any bytes, read line by line with any delimiter, size of line and size of block,
// beside a plain walk over the same bytes.
//
// Input: delimiter, size of the lines, most bytes that one read gives (0: no limit), switches,
// text.
#include <algorithm>
#include <memory>
#include <string>

#include "dpof/CQFileReader.h"
#include "fuzz/input.h"
#include "fuzz/memory_card.h"

namespace {

constexpr char kFile[] = "/mnt/mmc/MISC/LINES.TXT";
constexpr int kSizes[] = {0, 1, 2, 3, 4, 5, 8, 13, 16, 33, 64, 127, 128, 512, 2048, 9000};
constexpr int kTooLong = -101;
constexpr int kEndOfFile = -102;
constexpr int kCallsBehindEnd = 2;

// What GetLine gives, one byte at a time.
class PlainReader {
 public:
  PlainReader(std::string_view text, int size, char delimiter)
      : text_(text), size_(static_cast<size_t>(size)), delimiter_(delimiter) {}

  int Next(std::string* line) {
    line->clear();
    for (; at_ < text_.size(); ++at_) {
      const bool ends = text_[at_] == delimiter_;
      if (ends) ++at_;
      if (ends && line->size() + 1 >= size_) return kTooLong;
      if (!ends && line->size() == size_) return kTooLong;
      line->push_back(ends ? delimiter_ : text_[at_]);
      if (ends) return 0;
    }
    return kEndOfFile;
  }

 private:
  std::string_view text_;
  size_t size_;
  char delimiter_;
  size_t at_ = 0;
};

struct Line {
  explicit Line(int bytes) : room(new char[static_cast<size_t>(bytes)]), size(bytes) {}
  std::unique_ptr<char[]> room;  // of exactly the size, so that a byte too many is noticed
  int size;
};

void CheckCleared(const Line& line, size_t used) {
  const char* const from = line.room.get() + used;
  const char* const to = line.room.get() + line.size;
  if (std::any_of(from, to, [](char c) { return c != '\0'; })) {
    flm_fuzz::Fail("the rest of a line is not cleared");
  }
}

// Both ways of reading a line.
int ReadLine(CQFileReader& reader, Line& line, char delimiter, bool whole, size_t* length) {
  int read = 0;
  std::fill_n(line.room.get(), line.size, '\x5A');
  const int result = whole ? reader.GetLine(line.room.get(), line.size, delimiter)
                           : reader.NextLine(line.room.get(), line.size, delimiter, &read);
  *length = static_cast<size_t>(read);
  return result;
}

void CompareLines(CQFileReader& reader, PlainReader& plain, Line& line, char delimiter,
                  bool whole) {
  int behindEnd = 0;
  std::string expected;
  while (behindEnd < kCallsBehindEnd) {
    const int expectedResult = plain.Next(&expected);
    size_t length = 0;
    const int result = ReadLine(reader, line, delimiter, whole, &length);
    if (result != expectedResult) flm_fuzz::Fail("a line has another result");
    if (!whole && length != expected.size()) flm_fuzz::Fail("a line has another length");
    if (!std::equal(expected.begin(), expected.end(), line.room.get())) {
      flm_fuzz::Fail("a line has another text");
    }
    if (whole) CheckCleared(line, expected.size());
    if (result == kEndOfFile) ++behindEnd;
    // Without room for a byte an ordinary one is never read.
    if (result == kTooLong && line.size == 0) break;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  flm_fuzz::MemoryCard& card = flm_fuzz::MemoryCard::Get();
  flm_fuzz::Input input(data, size);
  const char delimiter = static_cast<char>(input.Byte());
  Line line(kSizes[input.Below(sizeof(kSizes) / sizeof(kSizes[0]))]);
  const size_t mostRead = input.Byte();
  const bool whole = (input.Byte() & 1) == 0;
  const std::string_view text = input.Rest();
  card.Clear();
  card.MakeFile(kFile, text);
  if (mostRead > 0) card.LimitReads(mostRead);
  {
    CQFileReader reader(kFile);
    if (!reader.FlagCreate() || reader.GetStatus() != 0) flm_fuzz::Fail("a file cannot be opened");
    PlainReader plain(text, line.size, delimiter);
    CompareLines(reader, plain, line, delimiter, whole);
  }
  if (!card.AllClosed()) flm_fuzz::Fail("a file stays open");
  return 0;
}
