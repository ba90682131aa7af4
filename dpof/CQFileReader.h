// Reading a text file line by line.
#ifndef FILELISTMANAGEMENT_DPOF_CQFILEREADER_H
#define FILELISTMANAGEMENT_DPOF_CQFILEREADER_H

#include <cstdint>

// Reads through one buffer of 8192 bytes, allocated by the constructor; reading a line allocates
// nothing. Knows nothing of CR and LF beyond the delimiter that the caller passes.
class CQFileReader {
 public:
  CQFileReader();  // no file: GetLine answers -1
  // Opens a regular file. Anything else, a folder or a pipe, reads as a file that could not be
  // opened, and opening it never waits.
  explicit CQFileReader(const char* path);
  virtual ~CQFileReader();
  CQFileReader(const CQFileReader&) = delete;
  CQFileReader& operator=(const CQFileReader&) = delete;

  bool FlagCreate() const { return created_; }  // whether there is a file to read
  int GetStatus() const { return status_; }     // 0; -100 no buffer or no file

  // Fills a buffer with one value. Returns 0.
  int BufferMemSet(char* buffer, unsigned int value, int length);

  // Reads the next line into `line` of `size` bytes, all of which are cleared first. The delimiter
  // stays in the text. 0; -1 nothing to read from; -102 the end of the file, with a last line that
  // had no delimiter in `line`; -101 the line does not fit. Then an ordinary byte without room is
  // left for the next call, which goes on with the rest of the line (and `line` is full, without a
  // terminator), while a delimiter without room is consumed, so that the next call reads the
  // following line.
  int GetLine(char* line, int size, char delimiter);

  // The same for a reader of lines that looks at nothing behind the end of each: the line is only
  // terminated, where it has room, and *length is what was read of it.
  int NextLine(char* line, int size, char delimiter, int* length);

 private:
  bool ReadBlock();
  bool TakeWholeLine(char* line, int size, char delimiter, int* length);
  bool TakeFromBlock(char* line, int size, char delimiter, int* length, int* result);

  char* buffer_;        // owned
  int32_t readPos_;     // next unread byte of the buffer
  int32_t bufferSize_;  // always 8192
  int stream_;          // descriptor of the file, -1 for none; owned
  bool created_;        // the file was opened and its size read
  int32_t status_;      // 0 or -100
  int64_t fileSize_;    // bytes of the file when it was opened
  int64_t totalRead_;   // bytes read so far
  int32_t dataLen_;     // bytes in the buffer
};

#endif
