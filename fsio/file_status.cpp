#include "fsio/file_status.h"

#include "fsio/os_calls.h"

namespace flm {

int FileStatus::Result() {
  if (!read_) {
    read_ = true;
    result_ = path_ == nullptr ? -1 : Os().Stat(path_, &status_);
  }
  return result_;
}

unsigned int FileStatus::ModifiedTime() {
  return Result() < 0 ? 0U : static_cast<unsigned int>(status_.st_mtime);
}

bool FileStatus::IsRegularFile() { return Result() == 0 && S_ISREG(status_.st_mode); }

bool FileStatus::IsProtected() { return Result() == 0 && (status_.st_mode & kOwnerWrite) == 0; }

}  // namespace flm
