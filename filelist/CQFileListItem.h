/// @file
/// The record that describes one file to applications.
#ifndef FILELISTMANAGEMENT_CQFILELISTITEM_H
#define FILELISTMANAGEMENT_CQFILELISTITEM_H

#include "base/file_list_item.h"

#endif
