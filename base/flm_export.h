/// @file
/// The one macro of the library: marks what applications may link against. Everything else is
/// compiled with hidden visibility and never leaves the shared object.
#ifndef FILELISTMANAGEMENT_FLM_EXPORT_H
#define FILELISTMANAGEMENT_FLM_EXPORT_H

/// Part of the binary interface.
#define FLM_API __attribute__((visibility("default")))

#endif
