// The marks that a file's information consists of.
#ifndef FILELISTMANAGEMENT_DCF_FILE_MARKS_H
#define FILELISTMANAGEMENT_DCF_FILE_MARKS_H

namespace flm {

struct FileMarks {
  bool selected;
  bool wifi;
  int copies;  // the print values are bytes; kInfoNoItem when the file's directory is not held
  int size;
  int index;
};

}  // namespace flm

#endif
