// Copying one file onto the card so that it is whole or absent, whatever happens.
#ifndef FILELISTMANAGEMENT_TOOLS_COPY_FILE_H
#define FILELISTMANAGEMENT_TOOLS_COPY_FILE_H

#include <sys/stat.h>

#include <string>
#include <vector>

namespace flm::tool {

// An open file descriptor.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor();
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int Number() const { return number_; }
  bool IsOpen() const { return number_ >= 0; }

 private:
  int number_;
};

// A regular file opened for reading; `shown` is its printable name. Throws Failure.
class SourceFile {
 public:
  SourceFile(const std::string& path, std::string shown);
  int Number() const { return descriptor_.Number(); }
  const std::string& Shown() const { return shown_; }
  const struct stat& Status() const { return status_; }

 private:
  std::string shown_;
  Descriptor descriptor_;
  struct stat status_ = {};
};

// Copies content and time to `target`, whose folder exists and which must not exist itself. File
// and folder are flushed. Throws Failure, and nothing is left then; Ctrl-C does the same.
void CopyInto(const SourceFile& source, const std::string& target, const std::string& shownTarget);

// Flushes a folder's entries. Throws Failure.
void FlushFolder(const std::string& folder);
// Removes an empty folder; nothing happens to any other.
void RemoveFolder(const std::string& folder);
// The names of a folder's entries, in no order; none when it cannot be read.
std::vector<std::string> EntriesOf(const std::string& folder);
bool Contains(const std::vector<std::string>& names, const std::string& name);

}  // namespace flm::tool

#endif
