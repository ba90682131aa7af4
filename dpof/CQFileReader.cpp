#include "dpof/CQFileReader.h"

#include <fcntl.h>

#include <cstring>
#include <new>

#include "fsio/os_calls.h"

namespace {

constexpr int kBufferSize = 8192;
constexpr int kNotOpened = -100;
constexpr int kNotUsable = -1;
constexpr int kTooLong = -101;
constexpr int kEndOfFile = -102;

}  // namespace

CQFileReader::CQFileReader()
    : buffer_(nullptr),
      readPos_(0),
      bufferSize_(kBufferSize),
      stream_(-1),
      created_(false),
      status_(0),
      fileSize_(0),
      totalRead_(0),
      dataLen_(0) {}

CQFileReader::CQFileReader(const char* path) : CQFileReader() {
  status_ = kNotOpened;
  if (path == nullptr) return;
  buffer_ = new (std::nothrow) char[kBufferSize]();
  if (buffer_ == nullptr) return;
  off_t size = 0;
  stream_ = flm::OpenRegularFile(path, O_RDONLY, &size);
  if (stream_ < 0) {
    delete[] buffer_;
    buffer_ = nullptr;
    return;
  }
  fileSize_ = size;
  created_ = true;
  status_ = 0;
}

CQFileReader::~CQFileReader() {
  if (stream_ >= 0) flm::Os().Close(stream_);
  delete[] buffer_;
}

int CQFileReader::BufferMemSet(char* buffer, unsigned int value, int length) {
  if (buffer == nullptr || length <= 0) return -1;
  std::memset(buffer, static_cast<int>(value & 0xFF), static_cast<size_t>(length));
  return 0;
}

// Reads the next block over the last one, of which nothing is looked at again; false at the end of
// the file. A read that yields nothing is the end whatever the size says: the file may have shrunk,
// or be no file that has a size.
bool CQFileReader::ReadBlock() {
  readPos_ = 0;
  const ssize_t got = flm::Os().Read(stream_, buffer_, static_cast<size_t>(bufferSize_));
  dataLen_ = got > 0 ? static_cast<int32_t>(got) : 0;
  totalRead_ += dataLen_;
  return dataLen_ > 0;
}

int CQFileReader::GetLine(char* line, int size, char delimiter) {
  if (!created_ || buffer_ == nullptr || line == nullptr) return kNotUsable;
  BufferMemSet(line, 0, size);
  int length = 0;
  return NextLine(line, size, delimiter, &length);
}

int CQFileReader::NextLine(char* line, int size, char delimiter, int* length) {
  *length = 0;
  if (!created_ || buffer_ == nullptr || line == nullptr) return kNotUsable;
  if (TakeWholeLine(line, size, delimiter, length)) return 0;
  int result = kEndOfFile;
  while (!TakeFromBlock(line, size, delimiter, length, &result)) {
    if ((totalRead_ > 0 && totalRead_ >= fileSize_) || !ReadBlock()) break;
  }
  if (*length < size) line[*length] = '\0';
  return result;
}

// Takes a line that lies in the block and fits, as nearly every one does; false, and nothing taken,
// for any other.
bool CQFileReader::TakeWholeLine(char* line, int size, char delimiter, int* length) {
  const char* const from = buffer_ + readPos_;
  const void* const found = std::memchr(from, delimiter, static_cast<size_t>(dataLen_ - readPos_));
  if (found == nullptr) return false;
  const int bytes = static_cast<int>(static_cast<const char*>(found) - from) + 1;
  if (bytes >= size) return false;
  std::memcpy(line, from, static_cast<size_t>(bytes));
  line[bytes] = '\0';
  readPos_ += bytes;
  *length = bytes;
  return true;
}

// Adds what the block has of the line. True when the line or its room ends there, with the result.
bool CQFileReader::TakeFromBlock(char* line, int size, char delimiter, int* length, int* result) {
  const char* const from = buffer_ + readPos_;
  const size_t left = static_cast<size_t>(dataLen_ - readPos_);
  const void* const found = left == 0 ? nullptr : std::memchr(from, delimiter, left);
  const int bytes = found == nullptr ? dataLen_ - readPos_
                                     : static_cast<int>(static_cast<const char*>(found) - from);
  const int room = size > *length ? size - *length : 0;
  const int taken = bytes < room ? bytes : room;
  std::memcpy(line + *length, from, static_cast<size_t>(taken));
  *length += taken;
  readPos_ += taken;
  *result = kTooLong;
  if (taken < bytes) return true;
  if (found == nullptr) {
    *result = kEndOfFile;
    return false;
  }
  ++readPos_;
  if (*length + 1 >= size) return true;
  line[(*length)++] = delimiter;
  *result = 0;
  return true;
}
