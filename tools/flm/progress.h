// Progress of a bulk operation, by the library's own callback: a bar on the terminal or lines, and
// the way by which Ctrl-C stops the operation between two files.
#ifndef FILELISTMANAGEMENT_TOOLS_PROGRESS_H
#define FILELISTMANAGEMENT_TOOLS_PROGRESS_H

#include "filelist/filelist_types.h"

namespace flm::tool {

// One at a time: the callback is a plain function, so its state is the process's.
class Progress {
 public:
  // What --progress says appears on standard error; left to itself, a bar on a terminal unless
  // `quiet`. Ctrl-C is caught from here on.
  explicit Progress(bool quiet);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // Counts a file, whatever its outcome, draws the bar, sets *cancel after Ctrl-C.
  static void Report(int index, int total, int* status, bool* cancel);

  void Wipe() const;       // takes the bar away again, as destruction does
  bool Cancelled() const;  // whether a callback asked to stop
};

}  // namespace flm::tool

#endif
