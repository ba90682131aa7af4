// The print order file (DPOF 1.10), "MISC/AUTPRINT.MRK" of a card: written from the print marks of
// the catalogue and read back into them.
//
// The file is ASCII with CR LF line ends: a header, one standard job per file with prints ordered,
// at most one index job that names all its pictures, one size job per file with a size code. Job
// numbers run from 001 in that order. A picture is named relative to the folder "MISC", as
// "../DCIM/100PHOTO/ABCD0001.JPG".
#ifndef FILELISTMANAGEMENT_DPOF_CQDPOF_H
#define FILELISTMANAGEMENT_DPOF_CQDPOF_H

#include <cstdint>

class CQDCFList;

class CQDPOF {
 public:
  CQDPOF();
  virtual ~CQDPOF();

  // Writes the file for the first fileCount files of the catalogue's walk, replacing an earlier
  // one; with 0 files it becomes empty. The walk moves the catalogue's cursor. The result of
  // closing the file; -1 when it cannot be made. A block that could not be written is not reported.
  int SaveDPOFInfo(const char* path, CQDCFList* catalogue, const char* creator, int fileCount);

  // Sets the marks that the file names and clears none. 0 at its end, also when lines were odd or
  // named unknown files; -1 when it is missing, its path has no "/MISC", memory is short, or a
  // value has more than 127 characters (the lines before it have taken effect).
  int LoadDPOFInfo(const char* path, CQDCFList* catalogue);

  // One kind of block each, written to a file of PCQDCFFSIO::CreateFileIO. 0; -1 for a null
  // argument.
  int MakeHeader(void* file, const char* creator, int fileCount);  // null creator: an empty name
  int MakeStandard(void* file, CQDCFList* catalogue, int fileCount);
  int MakeIndex(void* file, CQDCFList* catalogue, int fileCount);
  int MakeSize(void* file, CQDCFList* catalogue, int fileCount);

  // Copies the text between the first two double quotes of a line into `out`, which has room for
  // the line; without two quotes `out` stays as it is. 0; -1 for a null argument.
  int GetPath(const char* line, char* out);

 private:
  struct Load;

  void WriteJob(void* file, const char* type, int quantity, const char* source);
  bool TakeLine(Load& load);
  void ApplySource(Load& load);

  int32_t jobCount_;  // jobs written so far in the current save
};

#endif
