// The status of one file, read from the card when it is first asked for and then kept: one
// operation needs time and protection of the same file, and a status call costs more than all the
// rest.
#ifndef FILELISTMANAGEMENT_FSIO_FILE_STATUS_H
#define FILELISTMANAGEMENT_FSIO_FILE_STATUS_H

#include <sys/stat.h>

namespace flm {

constexpr mode_t kOwnerWrite = 0200;  // of a file's mode; clear means protected

class FileStatus {
 public:
  // The path is lent; it may be written until the status is first asked for.
  explicit FileStatus(const char* path) : path_(path) {}

  // The path has been written anew: what was read is of another file.
  void Forget() { read_ = false; }
  // 0, or the negative result of the status call; null has no status.
  int Result();
  const struct stat& Value() { return status_; }  // after a Result of 0
  unsigned int ModifiedTime();                    // seconds since the epoch, cut to 32 bits, or 0
  bool IsProtected();  // the owner-write permission is clear; false when there is no status
  bool IsRegularFile();

 private:
  const char* path_;
  struct stat status_;
  int result_ = 0;
  bool read_ = false;
};

}  // namespace flm

#endif
