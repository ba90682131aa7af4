// Every call that the library makes to the operating system about files, as a table, so that a test
// can make any of them fail. Nothing outside fsio/ and platform/ calls the system directly.
#ifndef FILELISTMANAGEMENT_FSIO_OS_CALLS_H
#define FILELISTMANAGEMENT_FSIO_OS_CALLS_H

#include <dirent.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/types.h>

#include <cstdio>
#include <ctime>

namespace flm {

// A movie may exceed 2 GB and be dated after 2038; a status call must not fail because of it.
static_assert(sizeof(off_t) == 8, "build with 64-bit file offsets");
static_assert(sizeof(time_t) == 8, "build with 64-bit times");

struct OsCalls {
  int (*Stat)(const char* path, struct stat* status);
  int (*Fstat)(int descriptor, struct stat* status);
  int (*Chmod)(const char* path, mode_t mode);
  mode_t (*Umask)(mode_t mask);
  int (*Mkdir)(const char* path, mode_t mode);
  int (*Unlink)(const char* path);
  int (*Remove)(const char* path);
  void (*Sync)();
  DIR* (*Opendir)(const char* path);
  dirent* (*Readdir)(DIR* dir);
  int (*Closedir)(DIR* dir);
  int (*Open)(const char* path, int flags, mode_t mode);
  int (*Close)(int descriptor);
  ssize_t (*Read)(int descriptor, void* buffer, size_t size);
  FILE* (*Fdopen)(int descriptor, const char* mode);
  int (*Setvbuf)(FILE* file, char* buffer, int mode, size_t size);
  size_t (*Fwrite)(const void* data, size_t size, size_t count, FILE* file);
  int (*Fclose)(FILE* file);
  time_t (*Time)(time_t* now);
  tm* (*Localtime)(const time_t* time, tm* result);
  int (*StartThread)(pthread_t* thread, const pthread_attr_t* attributes, void* (*body)(void*),
                     void* argument);
};

// The table in use; the system's own calls unless a test has replaced some.
OsCalls& Os();

// Puts the system's own calls back.
void ResetOsCalls();

// Opens a regular file and nothing else: for a folder, a pipe or a device -1, without ever waiting.
// The descriptor does not survive exec. *size, when not null, receives the file's size.
int OpenRegularFile(const char* path, int flags, off_t* size);

// Seconds since the epoch, cut to the low 32 bits that records keep.
unsigned int CurrentTime();

}  // namespace flm

#endif
